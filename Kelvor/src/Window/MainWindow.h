#pragma once

#include "HostShell.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class DocumentActions;
class FieldListPanel;
class HostPlugins;
class PluginsDialog;
class SceneDocument;
class SceneTreePanel;
class SceneView;
class QUndoStack;

/// The inspector's window: the scene in the middle, around it the docks of the host and of the plug-ins.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class Layout
    {
        Kept, ///< as the last run left it, and kept for the next
        Fixed ///< always the same, for pictures
    };

    explicit MainWindow(Layout layout, QWidget* parent = nullptr);
    ~MainWindow() override;

    SceneDocument* document() const { return m_document; }
    SceneView* view() const { return m_view; }
    SceneTreePanel* treePanel() const { return m_treePanel; }
    HostPlugins* plugins() const { return m_plugins.get(); }
    DocumentActions* documentActions() const { return m_documentActions; }

    /// Adds the menu that chooses the window's colours; for a host that has the application to itself.
    void addColorsMenu();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QDockWidget* addPanel(const char* name, const QString& title, QWidget* panel, Qt::DockWidgetArea area);
    void createDocks();
    void createMenus();
    void createEditMenu();
    void showPlugins();
    struct HistoryMove;
    QAction* addHistoryMove(QMenu* menu, const QString& name, const HistoryMove& move);
    void fillPanelsMenu(QMenu* menu);
    void sceneChanged();
    void showWarnings();
    void updateTitle();
    void restoreLayout();

    const Layout m_layout;
    QUndoStack* m_history;
    SceneDocument* m_document;
    SceneView* m_view;
    SceneTreePanel* m_treePanel = nullptr;
    FieldListPanel* m_fieldPanel = nullptr;
    QMenu* m_viewMenu = nullptr;
    DocumentActions* m_documentActions = nullptr;
    HostShell m_shell;
    std::unique_ptr<HostPlugins> m_plugins;
    QPointer<PluginsDialog> m_pluginsDialog;
};
