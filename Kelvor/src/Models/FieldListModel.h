#pragma once

#include <QAbstractTableModel>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class SoField;
class SoFieldContainer;

/// A list of fields: name, type, a preview of the value, and whether it is the default, changed, ignored or
/// connected. Those of one container, event-ins and event-outs included, or any that were added one by one.
///
/// Each row watches its field and is refreshed when Coin's sensor queue has been processed; changes of any
/// number of fields within a sixtieth of a second become one signal. The rows of fields that are destroyed
/// go; nothing of theirs is touched before that. No container is referenced: whoever sets it keeps it alive,
/// or lets it die, which leaves an empty list.
class FieldListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        TypeColumn,
        ValueColumn,
        StateColumn,
        ColumnCount
    };

    /// The field of a row as a `SoField*`, in every column; null once it was destroyed.
    static constexpr int FieldRole = Qt::UserRole;

    explicit FieldListModel(QObject* parent = nullptr);
    ~FieldListModel() override;

    /// Lists the fields of another container instead of all that are listed; null lists none.
    void setContainer(SoFieldContainer* container);
    /// Adds a field, which must be in a container, by its full name: "Gold.transparency".
    void append(SoField* field);
    /// Removes the row of a field, if it is listed.
    void remove(const SoField* field);

    /// The field of a row; null when the index is not valid or the field was destroyed.
    SoField* field(const QModelIndex& index) const;
    /// The row of a field; not valid when it is not listed.
    QModelIndex indexOf(const SoField* field) const;

    /// Whether rows are refreshed; they are at first. While they are not, changes cost next to nothing. All
    /// are refreshed when it begins again.
    void setLive(bool live);

    /// What tells where a container is, for the tool tips of names; nothing does at first. An empty text is
    /// left out.
    using PlaceText = std::function<QString(SoFieldContainer*)>;
    void setPlaceText(PlaceText place) { m_placeText = std::move(place); }

    /// Says that states may have changed. Coin tells of no change of a default flag and of no disconnection.
    void refreshStates();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool removeRows(int first, int count, const QModelIndex& parent = QModelIndex()) override;

private:
    struct Row;

    QString text(const QModelIndex& index) const;
    QString toolTip(const QModelIndex& index) const;
    void refreshChanged();
    void removeDestroyed();

    std::vector<std::unique_ptr<Row>> m_rows;
    QTimer m_refresh; // runs while there are changed rows that views have not been told of
    PlaceText m_placeText;
    bool m_nameOwners = false;
    bool m_live = true;
    bool m_removalScheduled = false;
};
