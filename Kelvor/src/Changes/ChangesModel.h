#pragma once

#include "Changes/ScenePlaceSearch.h"
#include "Models/SceneSensor.h"

#include <KlvExtender/KlvContainerRef.h>

#include <QAbstractTableModel>
#include <QTimer>

#include <optional>
#include <vector>

class KlvChanges;
class SoField;

/// The fields that have been changed since the scene was opened: where they are, what they were, what they
/// are. The values are read from the live fields when a view asks for them. The nodes are looked for some
/// milliseconds at a time, so that the window stays fluid however large the scene is.
class ChangesModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NodeColumn,
        FieldColumn,
        OriginalColumn,
        NowColumn,
        ColumnCount
    };

    explicit ChangesModel(const KlvChanges* changes, QObject* parent = nullptr);
    ~ChangesModel() override;

    /// The scene in which the fields' nodes are looked for; not referenced. Null for none.
    void setRoot(SoNode* root);
    /// Null when there is none, or when it was deleted.
    SoNode* root() const { return m_root; }

    /// Only while it is watched, nodes are looked for and changes of values announced. At first it is not.
    void setWatched(bool watched);

    /// The field of a row. The list keeps it alive.
    SoField* field(const QModelIndex& index) const { return m_rows[std::size_t(index.row())].field; }
    QList<SoField*> fields() const;
    /// Looks anew for the nodes that are not where they were.
    void checkPlaces();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        KlvContainerRef container;
        SoField* field;
    };

    void update();
    void insertRow(int row, SoField* field);
    void search();
    void searchSlice();
    void refresh(Column first, Column last);
    const ScenePlace& placeOf(const Row& row) const { return *m_places.constFind(row.container.get()); }
    QString text(const Row& row, int column) const;
    QString toolTip(const Row& row, int column) const;

    const KlvChanges* m_changes;
    std::vector<Row> m_rows;
    ScenePlaceSearch::Places m_places;  ///< of the rows' containers
    QSet<SoFieldContainer*> m_unsought; ///< of these, those to be looked for
    std::optional<ScenePlaceSearch> m_search;
    bool m_watched = false;
    SoNode* m_root = nullptr;
    SceneSensor m_structure;
    SoNodeSensor m_values;
    QTimer m_checkTimer;
    QTimer m_searchTimer;
    QTimer m_refreshTimer;
};
