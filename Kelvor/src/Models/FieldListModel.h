#pragma once

#include <QAbstractTableModel>

#include <memory>
#include <vector>

class SoField;
class SoFieldContainer;
class SoSensor;

/// The fields of one container, event-ins and event-outs included: name, type, a preview of the value, and
/// whether it is the default, ignored or connected.
///
/// Each row follows its field through a sensor of its own, so it is refreshed when Coin's sensor queue is
/// processed. The rows of fields that are destroyed go; nothing of theirs is touched before that. The
/// container is not referenced: whoever sets it keeps it alive, or lets it die, which leaves an empty list.
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

    explicit FieldListModel(QObject* parent = nullptr);
    ~FieldListModel() override;

    /// Lists the fields of another container; null lists none.
    void setContainer(SoFieldContainer* container);

    /// The field of a row; null when the index is not valid or the field was destroyed.
    SoField* field(const QModelIndex& index) const;
    /// The row of a field; not valid when it is not listed.
    QModelIndex indexOf(const SoField* field) const;

    /// Says that states may have changed. Coin tells of no change of a default flag and of no disconnection.
    void refreshStates();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row;

    static void fieldChanged(void* row, SoSensor* sensor);
    static void fieldDestroyed(void* row, SoSensor* sensor);
    void removeDestroyed();

    std::vector<std::unique_ptr<Row>> m_rows;
    bool m_removalScheduled = false;
};
