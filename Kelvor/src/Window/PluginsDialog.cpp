#include "PluginsDialog.h"

#include "HostPlugins.h"
#include "WindowDialogs.h"

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTreeWidget>
#include <QUndoStack>
#include <QVBoxLayout>

namespace {

enum Column
{
    NameColumn,
    StateColumn,
    VersionColumn,
    AuthorColumn,
    DescriptionColumn,
    FileColumn
};

template <class Described>
QTreeWidgetItem* makeItem(const Described& described)
{
    auto* item = new QTreeWidgetItem;
    item->setText(NameColumn, toUtf16(described.getName()));
    item->setText(VersionColumn, toUtf16(described.getVersion()));
    item->setText(AuthorColumn, toUtf16(described.getAuthor()));
    item->setText(DescriptionColumn, toUtf16(described.getDescription()));
    return item;
}

/// The plug-in loaded from a file, or null. Rows know files, never objects, which may be gone.
KlvPlugin* findPlugin(const QString& file)
{
    const KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    for (KlvPlugin* plugin : manager->getPlugins()) {
        if (manager->getPluginFile(plugin) == file)
            return plugin;
    }
    return nullptr;
}

QString stateOf(const KlvExtension& extension)
{
    if (!extension.isActive())
        return PluginsDialog::tr("inactive");
    return extension.isVisible() ? PluginsDialog::tr("visible") : PluginsDialog::tr("active");
}

} // namespace

PluginsDialog::PluginsDialog(HostPlugins* plugins, QWidget* parent)
    : QDialog(parent)
    , m_plugins(plugins)
    , m_tree(new QTreeWidget)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Close))
{
    setWindowTitle(tr("Plug-ins"));
    resize(860, 480);
    m_tree->setAccessibleName(tr("Plug-ins and extensions"));
    m_tree->setHeaderLabels(
        {tr("Name"), tr("State"), tr("Version"), tr("Author"), tr("Description"), tr("File")});
    m_tree->setUniformRowHeights(true);
    addButton(tr("Load from &File…"), &PluginsDialog::loadFromFile);
    m_load = addButton(tr("&Load"), &PluginsDialog::loadCurrent);
    m_unload = addButton(tr("&Unload"), &PluginsDialog::unloadCurrent);
    m_forget = addButton(tr("F&orget"), &PluginsDialog::forgetCurrent);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tree);
    layout->addWidget(m_buttons);

    connect(m_buttons, &QDialogButtonBox::rejected, this, &PluginsDialog::reject);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &PluginsDialog::updateButtons);
    connect(m_plugins, &HostPlugins::changed, this, &PluginsDialog::fill);
    fill();
    for (int column = NameColumn; column <= DescriptionColumn; ++column)
        m_tree->resizeColumnToContents(column);
    m_tree->setFocus();
}

QPushButton* PluginsDialog::addButton(const QString& text, void (PluginsDialog::*slot)())
{
    QPushButton* button = m_buttons->addButton(text, QDialogButtonBox::ActionRole);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void PluginsDialog::fill()
{
    const QString current = currentFile();
    m_tree->clear();
    for (const KlvPlugin* plugin : KlvPluginsManager::getInstance()->getPlugins())
        addPlugin(plugin);
    for (const QString& file : m_plugins->absentPlugins())
        addAbsent(file);
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        if (m_tree->topLevelItem(row)->data(0, Qt::UserRole) == current)
            m_tree->setCurrentItem(m_tree->topLevelItem(row));
    }
    if (!m_tree->currentItem())
        m_tree->setCurrentItem(m_tree->topLevelItem(0));
    updateStates();
    updateButtons();
}

void PluginsDialog::addPlugin(const KlvPlugin* plugin)
{
    const QString file = KlvPluginsManager::getInstance()->getPluginFile(plugin);
    QTreeWidgetItem* item = makeItem(*plugin);
    item->setText(StateColumn, tr("loaded"));
    item->setText(FileColumn, QDir::toNativeSeparators(file));
    item->setToolTip(FileColumn, item->text(FileColumn));
    item->setData(NameColumn, Qt::UserRole, file);
    m_tree->addTopLevelItem(item);
    for (const KlvExtension* extension : plugin->getExtensions()) {
        QTreeWidgetItem* child = makeItem(*extension);
        if (child->text(NameColumn).isEmpty())
            child->setText(NameColumn, QString::fromLatin1(extension->metaObject()->className()));
        item->addChild(child);
        connect(extension, &KlvExtension::stateChanged, this, &PluginsDialog::updateStates,
                Qt::UniqueConnection);
    }
    item->setExpanded(true);
}

void PluginsDialog::addAbsent(const QString& file)
{
    auto* item = new QTreeWidgetItem;
    item->setText(NameColumn,
                  m_plugins->isDefault(file) ? tr("Default plug-in") : QFileInfo(file).fileName());
    item->setText(StateColumn, tr("not loaded"));
    item->setText(FileColumn, QDir::toNativeSeparators(file));
    item->setToolTip(FileColumn, item->text(FileColumn));
    item->setData(NameColumn, Qt::UserRole, file);
    m_tree->addTopLevelItem(item);
}

void PluginsDialog::updateStates()
{
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = m_tree->topLevelItem(row);
        // None for a plug-in that is just being unloaded.
        const KlvPlugin* plugin = findPlugin(item->data(NameColumn, Qt::UserRole).toString());
        for (int i = 0; plugin && i < item->childCount(); ++i)
            item->child(i)->setText(StateColumn, stateOf(*plugin->getExtensions().at(i)));
    }
}

void PluginsDialog::updateButtons()
{
    const QString file = currentFile();
    const bool isLoaded = findPlugin(file);
    m_load->setEnabled(!file.isEmpty() && !isLoaded);
    m_unload->setEnabled(isLoaded);
    m_forget->setEnabled(!file.isEmpty() && !isLoaded && !m_plugins->isDefault(file));
}

QString PluginsDialog::currentFile() const
{
    const QTreeWidgetItem* item = m_tree->currentItem();
    if (item && item->parent())
        item = item->parent();
    return item ? item->data(NameColumn, Qt::UserRole).toString() : QString();
}

void PluginsDialog::loadFromFile()
{
    const QString file =
        chooseFile(this, tr("Load Plug-in"), QString(), tr("Plug-ins (*.so);;All files (*)"));
    if (!file.isEmpty())
        load(file);
}

void PluginsDialog::load(const QString& file)
{
    QString error;
    if (!m_plugins->loadAndRemember(file, &error))
        warn(this, windowTitle(), error);
}

void PluginsDialog::loadCurrent()
{
    load(currentFile());
}

void PluginsDialog::unloadCurrent()
{
    const QString file = currentFile();
    const int steps = KlvServices::getInstance()->getUndoStack()->count();
    const QString question =
        tr("Unloading the plug-in clears the history: %n step(s) can no longer be undone. "
           "What they changed stays. Unload it?",
           nullptr, steps);
    if (steps > 0 && ask(this, windowTitle(), question, QMessageBox::Yes | QMessageBox::Cancel,
                         QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    m_plugins->unload(findPlugin(file));
}

void PluginsDialog::forgetCurrent()
{
    m_plugins->forget(currentFile());
}
