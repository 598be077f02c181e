#include "NaiveInspector.h"

#include <Inventor/SbName.h>
#include <Inventor/SbString.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoNode.h>

#include <QLineEdit>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QString textOf(SoField& field)
{
    SbString text;
    field.get(text);
    return QString::fromUtf8(text.getString());
}

} // namespace

NaiveInspector::NaiveInspector(SoNode* root, SoField& edited)
    : m_root(root)
    , m_edited(edited)
    , m_tree(new QTreeWidget)
    , m_fields(new QTableWidget(0, 2))
    , m_input(new QLineEdit)
    , m_sensor([](void* self, SoSensor*) { static_cast<NaiveInspector*>(self)->fill(); }, this)
{
    auto* layout = new QVBoxLayout(&m_window);
    layout->addWidget(m_tree);
    layout->addWidget(m_fields);
    layout->addWidget(m_input);
    m_tree->setColumnCount(2);
    m_tree->setUniformRowHeights(true);
    QObject::connect(m_input, &QLineEdit::returnPressed,
                     [this] { m_edited.set(m_input->text().toUtf8().constData()); });
    m_window.resize(1360, 840);
    m_window.show();
    fill();
    m_sensor.attach(root);
}

void NaiveInspector::fillItem(QTreeWidgetItem* item, const SoNode* node)
{
    item->setText(0, QString::fromUtf8(node->getTypeId().getName().getString()));
    item->setText(1, QString::fromUtf8(node->getName().getString()));
    const SoChildList* children = node->getChildren();
    for (int i = 0; children && i < children->getLength(); ++i)
        fillItem(new QTreeWidgetItem(item), (*children)[i]);
}

void NaiveInspector::fill()
{
    m_tree->clear();
    // Complete before the tree gets it: it would follow each item that is added.
    auto* item = new QTreeWidgetItem;
    fillItem(item, m_root);
    m_tree->addTopLevelItem(item);
    m_tree->expandItem(item);

    const SoFieldContainer* container = m_edited.getContainer();
    SoFieldList fields;
    m_fields->setRowCount(container->getFields(fields));
    for (int row = 0; row < fields.getLength(); ++row) {
        SbName name;
        container->getFieldName(fields[row], name);
        m_fields->setItem(row, 0, new QTableWidgetItem(QString::fromUtf8(name.getString())));
        m_fields->setItem(row, 1, new QTableWidgetItem(textOf(*fields[row])));
    }
    m_input->setText(textOf(m_edited));
}
