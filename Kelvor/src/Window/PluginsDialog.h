#pragma once

#include <QDialog>

class HostPlugins;
class KlvPlugin;
class QDialogButtonBox;
class QPushButton;
class QTreeWidget;

/// Shows the plug-ins with their extensions and what these do at the moment, loads and unloads plug-ins, for
/// this run and for later ones. Stays up to date while it is open beside the window.
class PluginsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The plug-ins outlive the dialog.
    explicit PluginsDialog(HostPlugins* plugins, QWidget* parent = nullptr);

    /// Loads a plug-in and remembers it; a message says when that fails.
    void load(const QString& file);

private:
    QPushButton* addButton(const QString& text, void (PluginsDialog::*slot)());
    void fill();
    void addPlugin(const KlvPlugin* plugin);
    void addAbsent(const QString& file);
    void updateStates();
    void updateButtons();
    /// The file of the plug-in of the current row or of the row above it; empty when there is none.
    QString currentFile() const;

    void loadFromFile();
    void loadCurrent();
    void unloadCurrent();
    void forgetCurrent();

    HostPlugins* m_plugins;
    QTreeWidget* m_tree;
    QDialogButtonBox* m_buttons;
    QPushButton* m_load;
    QPushButton* m_unload;
    QPushButton* m_forget;
};
