#include "ProfileSettingsTree.h"

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

ProfileSettingsTree::ProfileSettingsTree(QWidget* parent)
    : QTreeWidget(parent)
    , m_extensions(ExtensionInfo::all())
{
    setAccessibleName(tr("Extensions"));
    setHeaderLabels({tr("Extension"), tr("Edits"), tr("Plug-in")});
    for (const ExtensionInfo& info : m_extensions) {
        if (info.isEditor)
            continue;
        QTreeWidgetItem* item = makeItem(info);
        addTopLevelItem(item);
        for (const ExtensionInfo& editor : m_extensions) {
            if (info.isEditorDock() && editor.isEditor && (editor.subjects & info.subjects))
                item->addChild(makeItem(editor));
        }
    }
    expandAll();
    resizeColumnToContents(0);
    resizeColumnToContents(1);
    connect(this, &QTreeWidget::itemChanged, this, &ProfileSettingsTree::takeBox);
}

QTreeWidgetItem* ProfileSettingsTree::makeItem(const ExtensionInfo& info) const
{
    auto* item = new QTreeWidgetItem({info.id.extension, info.handledType, info.id.plugin});
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, Qt::Unchecked); // Counts for the width of the column.
    item->setData(0, Qt::UserRole, int(&info - m_extensions.constData()));
    item->setToolTip(0, toUtf16(info.extension->getDescription()));
    return item;
}

const ExtensionInfo& ProfileSettingsTree::info(const QTreeWidgetItem* item) const
{
    return m_extensions.at(item->data(0, Qt::UserRole).toInt());
}

void ProfileSettingsTree::setProfile(const ProfileDescription& profile)
{
    m_profile = profile;
    const QSignalBlocker blocker(this);
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        const bool checked = (*item)->parent()
                                 ? m_profile.controls(info((*item)->parent()).id, info(*item).id)
                                 : m_profile.isActive(info(*item));
        (*item)->setCheckState(0, checked ? Qt::Checked : Qt::Unchecked);
    }
    viewport()->update();
}

void ProfileSettingsTree::takeBox(QTreeWidgetItem* item)
{
    const bool checked = item->checkState(0) == Qt::Checked;
    if (item->parent())
        m_profile.setControls(info(item->parent()).id, info(item).id, checked);
    else
        m_profile.setActive(info(item), checked);
    Q_EMIT edited();
}
