#include "Models/FieldListModel.h"

#include "Models/FieldConnections.h"
#include "Models/FieldPreview.h"

#include <Inventor/SbName.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMFColor.h>
#include <Inventor/fields/SoSFColor.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include <QColor>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>

#include <algorithm>
#include <utility>

struct FieldListModel::Row
{
    Row(FieldListModel* owner, SoField* listed, const SbName& fieldName)
        : model(owner)
        , field(listed)
        , name(QString::fromUtf8(fieldName.getString()))
        , sensor(&FieldListModel::fieldChanged, this)
    {
        sensor.setDeleteCallback(&FieldListModel::fieldDestroyed, this);
        sensor.attach(listed);
    }

    FieldListModel* model;
    SoField* field; // null once it was destroyed
    QString name;
    SoFieldSensor sensor;
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
    if (field.isIgnored())
        states += FieldListModel::tr("ignored");
    if (const QStringList sources = fieldSources(field); !sources.isEmpty())
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

QString displayText(SoField& field, const QString& name, int column)
{
    switch (column) {
    case FieldListModel::NameColumn:
        return name;
    case FieldListModel::TypeColumn:
        return QString::fromUtf8(field.getTypeId().getName().getString());
    case FieldListModel::ValueColumn:
        return fieldPreview(field);
    default:
        return stateText(field);
    }
}

} // namespace

FieldListModel::FieldListModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

FieldListModel::~FieldListModel() = default;

void FieldListModel::setContainer(SoFieldContainer* container)
{
    beginResetModel();
    m_rows.clear();
    SoFieldList fields;
    if (container)
        container->getAllFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
        SbName name;
        container->getFieldName(fields[i], name);
        m_rows.push_back(std::make_unique<Row>(this, fields[i], name));
    }
    endResetModel();
}

SoField* FieldListModel::field(const QModelIndex& index) const
{
    return index.isValid() ? m_rows[index.row()]->field : nullptr;
}

QModelIndex FieldListModel::indexOf(const SoField* field) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [field](const auto& row) { return field && row->field == field; });
    return found == m_rows.end() ? QModelIndex() : index(static_cast<int>(found - m_rows.begin()), 0);
}

void FieldListModel::refreshStates()
{
    if (!m_rows.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void FieldListModel::fieldChanged(void* row, SoSensor*)
{
    const auto* changed = static_cast<Row*>(row);
    FieldListModel* model = changed->model;
    const QModelIndex index = model->indexOf(changed->field);
    if (index.isValid())
        Q_EMIT model->dataChanged(index, index.siblingAtColumn(ColumnCount - 1));
}

void FieldListModel::fieldDestroyed(void* row, SoSensor*)
{
    // The container may be half destroyed: views hear of it later.
    auto* destroyed = static_cast<Row*>(row);
    destroyed->field = nullptr;
    if (!std::exchange(destroyed->model->m_removalScheduled, true))
        QMetaObject::invokeMethod(destroyed->model, &FieldListModel::removeDestroyed, Qt::QueuedConnection);
}

void FieldListModel::removeDestroyed()
{
    m_removalScheduled = false;
    for (int row = rowCount(); row-- > 0;) {
        if (m_rows[row]->field)
            continue;
        beginRemoveRows(QModelIndex(), row, row);
        m_rows.erase(m_rows.begin() + row);
        endRemoveRows();
    }
}

int FieldListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FieldListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FieldListModel::data(const QModelIndex& index, int role) const
{
    SoField* shown = field(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return displayText(*shown, m_rows[index.row()]->name, index.column());
    case Qt::ToolTipRole:
        return index.column() == StateColumn ? QVariant(stateText(*shown)) : QVariant();
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
