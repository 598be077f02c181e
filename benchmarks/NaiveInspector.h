#pragma once

#include <Inventor/sensors/SoNodeSensor.h>

#include <QWidget>

class QLineEdit;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;
class SoField;

/// A window that shows a scene in the obvious way: a tree widget with an item for each node, a table widget
/// with the fields of one of them, and an input for one field. Whatever changes, all of it is filled anew
/// when the sensors are processed.
class NaiveInspector
{
public:
    /// Shows the window. Graph and field must outlive it; the field belongs to a node.
    NaiveInspector(SoNode* root, SoField& edited);

    /// Return commits it.
    QLineEdit* input() const { return m_input; }

    /// Fills an item with type and name of a node, and makes items for all that is below it.
    static void fillItem(QTreeWidgetItem* item, const SoNode* node);

private:
    void fill();

    SoNode* m_root;
    SoField& m_edited;
    QWidget m_window;
    QTreeWidget* m_tree;
    QTableWidget* m_fields;
    QLineEdit* m_input;
    SoNodeSensor m_sensor;
};
