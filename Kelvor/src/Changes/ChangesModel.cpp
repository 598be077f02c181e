#include "Changes/ChangesModel.h"

#include "Models/FieldPreview.h"
#include "Models/NodeIcon.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/nodes/SoNode.h>

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QSet>

#include <algorithm>

namespace {

/// Searches of a large scene take their time, so they wait for more changes to come.
constexpr int checkDelay = 200;
/// Milliseconds that a search takes of a turn of the event loop.
constexpr int sliceTime = 5;
/// Nobody sees values change more often.
constexpr int refreshDelay = 16;

QString nameOf(const SoField& field)
{
    SbName name;
    field.getContainer()->getFieldName(&field, name);
    return QString::fromUtf8(name.getString());
}

/// A value with what else tells it from the other one.
QString valueText(SoField& field, SoField* other)
{
    const QString value = fieldPreview(field);
    QStringList states;
    if (other && field.isDefault() && !other->isDefault() && value == fieldPreview(*other))
        states += ChangesModel::tr("default");
    if (other && field.isIgnored() != other->isIgnored())
        states += field.isIgnored() ? ChangesModel::tr("ignored") : ChangesModel::tr("not ignored");
    return states.isEmpty() ? value : QStringLiteral("%1 (%2)").arg(value, states.join(QLatin1String(", ")));
}

} // namespace

ChangesModel::ChangesModel(const KlvChanges* changes, QObject* parent)
    : QAbstractTableModel(parent)
    , m_changes(changes)
    , m_structure([this] {
        if (!m_checkTimer.isActive())
            m_checkTimer.start();
    })
    , m_values(
          [](void* model, SoSensor*) {
              auto* self = static_cast<ChangesModel*>(model);
              if (self->m_watched && !self->m_refreshTimer.isActive())
                  self->m_refreshTimer.start();
          },
          this)
{
    m_values.setDeleteCallback(
        [](void* model, SoSensor*) {
            auto* self = static_cast<ChangesModel*>(model);
            self->m_root = nullptr;
            self->m_checkTimer.start();
        },
        this);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(checkDelay);
    connect(&m_checkTimer, &QTimer::timeout, this, &ChangesModel::checkPlaces);
    connect(&m_searchTimer, &QTimer::timeout, this, &ChangesModel::searchSlice);
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(refreshDelay);
    connect(&m_refreshTimer, &QTimer::timeout, this, [this] { refresh(NowColumn, NowColumn); });
    connect(changes, &KlvChanges::changed, this, &ChangesModel::update);
    update();
}

ChangesModel::~ChangesModel() = default;

void ChangesModel::setRoot(SoNode* root)
{
    if (root == m_root)
        return;
    m_searchTimer.stop();
    m_search.reset();
    m_structure.detach();
    m_values.detach();
    m_root = root;
    if (root) {
        m_structure.attach(root);
        m_values.attach(root);
    }
    // What is no longer listed, and not yet announced, need not be looked for.
    update();
    for (auto place = m_places.cbegin(); place != m_places.cend(); ++place)
        m_unsought.insert(place.key());
    checkPlaces();
}

void ChangesModel::setWatched(bool watched)
{
    m_watched = watched;
    if (!watched) {
        m_refreshTimer.stop();
        return;
    }
    checkPlaces();
    refresh(NodeColumn, NowColumn);
}

QList<SoField*> ChangesModel::fields() const
{
    QList<SoField*> fields;
    for (const Row& row : m_rows)
        fields.append(row.field);
    return fields;
}

void ChangesModel::update()
{
    const QList<SoField*> fields = m_changes->getFields();
    const QSet<SoField*> listed(fields.begin(), fields.end());
    for (int last = rowCount() - 1; last >= 0; --last) {
        if (listed.contains(m_rows[std::size_t(last)].field))
            continue;
        int first = last;
        while (first > 0 && !listed.contains(m_rows[std::size_t(first) - 1].field))
            --first;
        beginRemoveRows(QModelIndex(), first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
    // What stays keeps its order, so what is missing is missing at its place.
    for (int row = 0; row < fields.size(); ++row)
        if (row == rowCount() || m_rows[std::size_t(row)].field != fields[row])
            insertRow(row, fields[row]);
    QSet<SoFieldContainer*> containers;
    for (const Row& row : m_rows)
        containers.insert(row.container.get());
    m_places.removeIf([&](const auto& place) { return !containers.contains(place.key()); });
    m_unsought.intersect(containers);
    search();
    refresh(NodeColumn, NowColumn);
}

void ChangesModel::insertRow(int row, SoField* field)
{
    SoFieldContainer* container = field->getContainer();
    if (!m_places.contains(container)) {
        m_places.insert(container, ScenePlace(container));
        m_unsought.insert(container);
    }
    beginInsertRows(QModelIndex(), row, row);
    m_rows.insert(m_rows.begin() + row, {KlvContainerRef(container), field});
    endInsertRows();
}

void ChangesModel::checkPlaces()
{
    m_structure.take();
    if (!m_watched)
        return;
    if (m_search) {
        // It may have passed a place where a node is now.
        m_checkTimer.start();
        return;
    }
    for (auto place = m_places.cbegin(); place != m_places.cend(); ++place) {
        // Where nobody but the inspector holds a node there is no need to look for it again.
        const bool isLost = place->isGone() && !KlvContainerRef::isHeldElsewhere(place.key());
        if (!isLost && !place->isValid(m_root, place.key()))
            m_unsought.insert(place.key());
    }
    search();
}

void ChangesModel::search()
{
    if (!m_watched || m_search || m_unsought.isEmpty())
        return;
    m_search.emplace(m_root, std::exchange(m_unsought, {}));
    m_searchTimer.start();
    searchSlice(); // which is enough in most scenes
}

void ChangesModel::searchSlice()
{
    if (!m_search->run(sliceTime))
        return;
    m_searchTimer.stop();
    const auto found = m_search->places();
    m_search.reset();
    for (auto place = found.cbegin(); place != found.cend(); ++place)
        if (const auto known = m_places.find(place.key()); known != m_places.end())
            *known = *place;
    refresh(NodeColumn, NodeColumn);
    search();
}

void ChangesModel::refresh(Column first, Column last)
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, first), index(rowCount() - 1, last));
}

int ChangesModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ChangesModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString ChangesModel::text(const Row& row, int column) const
{
    SoField* original = m_changes->getOriginal(row.field);
    switch (column) {
    case NodeColumn:
        return objectLabel(row.container.get());
    case FieldColumn:
        return nameOf(*row.field);
    case OriginalColumn:
        return original ? valueText(*original, row.field) : tr("not known");
    default:
        return valueText(*row.field, original);
    }
}

QString ChangesModel::toolTip(const Row& row, int column) const
{
    const ScenePlace& place = placeOf(row);
    if (column == NodeColumn)
        return place.isGone() ? tr("%1 is no longer in the scene.").arg(place.label()) : place.label();
    if (column == OriginalColumn && !m_changes->getOriginal(row.field))
        return tr("The value took too much memory to be kept, or was changed before it could be.");
    return QString();
}

QVariant ChangesModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = m_rows[std::size_t(index.row())];
    const bool isGone = placeOf(row).isGone();
    QFont font;
    font.setItalic(isGone);
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::ToolTipRole:
        return toolTip(row, index.column());
    case Qt::FontRole:
        return font;
    case Qt::ForegroundRole:
        return isGone ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                      : QVariant();
    case Qt::DecorationRole:
        return index.column() == NodeColumn && row.container.get()->isOfType(SoNode::getClassTypeId())
                   ? QVariant(NodeIcon::forNode(static_cast<SoNode*>(row.container.get())))
                   : QVariant();
    default:
        return {};
    }
}

QVariant ChangesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString titles[] = {tr("Node"), tr("Field"), tr("Original"), tr("Now")};
    return titles[section];
}
