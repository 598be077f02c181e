#include "Models/FieldListModel.h"

#include "Models/FieldConnections.h"
#include "Models/FieldPreview.h"
#include "Models/FieldWatch.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMFColor.h>
#include <Inventor/fields/SoSFColor.h>
#include <Inventor/lists/SoFieldList.h>

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <utility>

struct FieldListModel::Row
{
    Row(FieldListModel* model, const SoFieldContainer* container, SoField* field)
        : watch(
              field,
              [this, model] {
                  changed = true;
                  if (!model->m_refresh.isActive())
                      model->m_refresh.start();
              },
              [model] {
                  // The container may be half destroyed: views hear of it later.
                  if (!std::exchange(model->m_removalScheduled, true))
                      QMetaObject::invokeMethod(model, &FieldListModel::removeDestroyed,
                                                Qt::QueuedConnection);
              })
    {
        SbName fieldName;
        container->getFieldName(field, fieldName);
        name = QString::fromUtf8(fieldName.getString());
        watch.setHearing(model->m_live);
    }

    QString name;
    bool changed = false; // since views were told
    FieldWatch watch;
};

namespace {

QString stateText(const SoField& field)
{
    QStringList states;
    if (field.getFieldType() == SoField::EVENTIN_FIELD)
        states += FieldListModel::tr("event in");
    else if (field.getFieldType() == SoField::EVENTOUT_FIELD)
        states += FieldListModel::tr("event out");
    else if (field.isDefault())
        states += FieldListModel::tr("default");
    if (KlvServices::getInstance()->getChanges()->isChanged(&field))
        states += FieldListModel::tr("changed");
    if (field.isIgnored())
        states += FieldListModel::tr("ignored");
    QStringList sources;
    for (const FieldLink& source : fieldSources(field))
        sources += source.label;
    if (!sources.isEmpty())
        states += FieldListModel::tr("connected to %1").arg(sources.join(QLatin1String(", ")));
    return states.join(QLatin1String(", "));
}

/// The color that a field holds, the first one of several, as a swatch that a selected row does not tint.
QVariant swatchOf(const SoField& field)
{
    SbColor color;
    if (field.isOfType(SoSFColor::getClassTypeId()))
        color = static_cast<const SoSFColor&>(field).getValue();
    else if (field.isOfType(SoMFColor::getClassTypeId()) && static_cast<const SoMFColor&>(field).getNum() > 0)
        color = static_cast<const SoMFColor&>(field)[0];
    else
        return {};
    const auto part = [&color](int i) { return std::clamp(color[i], 0.0F, 1.0F); };
    QPixmap swatch(16, 16);
    swatch.fill(QColor::fromRgbF(part(0), part(1), part(2)));
    // The color of the list itself would not be seen without an outline.
    QPainter painter(&swatch);
    painter.setPen(QGuiApplication::palette().color(QPalette::PlaceholderText));
    painter.drawRect(0, 0, swatch.width() - 1, swatch.height() - 1);
    painter.end();
    QIcon icon(swatch);
    icon.addPixmap(swatch, QIcon::Selected);
    return icon;
}

QFont fontOf(const SoField& field, int column)
{
    QFont font;
    font.setBold(column == FieldListModel::NameColumn && !field.isDefault());
    font.setStrikeOut(column == FieldListModel::ValueColumn && field.isIgnored());
    return font;
}

} // namespace

FieldListModel::FieldListModel(QObject* parent)
    : QAbstractTableModel(parent)
{
    m_refresh.setSingleShot(true);
    m_refresh.setTimerType(Qt::PreciseTimer);
    m_refresh.setInterval(16);
    connect(&m_refresh, &QTimer::timeout, this, &FieldListModel::refreshChanged);
}

FieldListModel::~FieldListModel() = default;

void FieldListModel::setContainer(SoFieldContainer* container)
{
    beginResetModel();
    m_rows.clear();
    m_nameOwners = false;
    SoFieldList fields;
    if (container)
        container->getAllFields(fields);
    for (int i = 0; i < fields.getLength(); ++i)
        m_rows.push_back(std::make_unique<Row>(this, container, fields[i]));
    endResetModel();
}

void FieldListModel::append(SoField* field)
{
    beginInsertRows(QModelIndex(), rowCount(), rowCount());
    m_nameOwners = true;
    m_rows.push_back(std::make_unique<Row>(this, field->getContainer(), field));
    endInsertRows();
}

void FieldListModel::remove(const SoField* field)
{
    if (const QModelIndex index = indexOf(field); index.isValid())
        removeRow(index.row());
}

SoField* FieldListModel::field(const QModelIndex& index) const
{
    return index.isValid() ? m_rows[index.row()]->watch.field() : nullptr;
}

QModelIndex FieldListModel::indexOf(const SoField* field) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [field](const auto& row) {
        return field && row->watch.field() == field;
    });
    return found == m_rows.end() ? QModelIndex() : index(static_cast<int>(found - m_rows.begin()), 0);
}

void FieldListModel::setLive(bool live)
{
    if (live == m_live)
        return;
    m_live = live;
    for (const auto& row : m_rows)
        row->watch.setHearing(live);
    if (live)
        refreshStates();
}

void FieldListModel::refreshStates()
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void FieldListModel::refreshChanged()
{
    int first = -1;
    int last = -1;
    for (int row = 0; row < rowCount(); ++row) {
        if (!std::exchange(m_rows[row]->changed, false))
            continue;
        first = first < 0 ? row : first;
        last = row;
    }
    if (first >= 0)
        Q_EMIT dataChanged(index(first, 0), index(last, ColumnCount - 1));
}

void FieldListModel::removeDestroyed()
{
    m_removalScheduled = false;
    for (int row = rowCount(); row-- > 0;) {
        if (!m_rows[row]->watch.field())
            removeRow(row);
    }
}

bool FieldListModel::removeRows(int first, int count, const QModelIndex& parent)
{
    if (parent.isValid() || first < 0 || count < 1 || count > rowCount() - first)
        return false;
    beginRemoveRows(QModelIndex(), first, first + count - 1);
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + count);
    endRemoveRows();
    return true;
}

int FieldListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FieldListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString FieldListModel::text(const QModelIndex& index) const
{
    const Row& row = *m_rows[index.row()];
    SoField& field = *row.watch.field();
    switch (index.column()) {
    case NameColumn:
        return m_nameOwners ? fieldLabel(field) : row.name;
    case TypeColumn:
        return QString::fromUtf8(field.getTypeId().getName().getString());
    case ValueColumn:
        return fieldPreview(field);
    default:
        return stateText(field);
    }
}

/// Columns may be narrow, or hidden.
QString FieldListModel::toolTip(const QModelIndex& index) const
{
    if (index.column() == ValueColumn)
        return text(index);
    QStringList lines;
    for (const int column : {NameColumn, TypeColumn, StateColumn})
        lines += text(index.siblingAtColumn(column));
    if (m_placeText)
        lines += m_placeText(field(index)->getContainer());
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

QVariant FieldListModel::data(const QModelIndex& index, int role) const
{
    SoField* shown = field(index);
    if (!shown)
        return {};
    switch (role) {
    case FieldRole:
        return QVariant::fromValue(shown);
    case Qt::DisplayRole:
        return text(index);
    case Qt::ToolTipRole:
        return toolTip(index);
    case Qt::DecorationRole:
        return index.column() == ValueColumn ? swatchOf(*shown) : QVariant();
    case Qt::FontRole:
        return fontOf(*shown, index.column());
    case Qt::ForegroundRole:
        return shown->isIgnored()
                   ? QVariant(QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text))
                   : QVariant();
    default:
        return {};
    }
}

QVariant FieldListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString titles[] = {tr("Field"), tr("Type"), tr("Value"), tr("State")};
    return titles[section];
}
