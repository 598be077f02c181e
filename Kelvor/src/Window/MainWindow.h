#pragma once

#include "DockFocus.h"
#include "HostShell.h"
#include "WindowLayout.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class ChangesPanel;
class DocumentActions;
class FieldListPanel;
class HostPlugins;
class PluginsDialog;
class SceneDocument;
class SceneTreePanel;
class SceneHint;
class SceneView;
class StatusLine;
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

    /// Whose process the window is in.
    enum class Host
    {
        Program,    ///< the inspector's own: scenes come from files
        Application ///< one that is inspected: it brings its scene, and what is its own stays as it is
    };

    explicit MainWindow(Layout layout, Host host = Host::Program);
    ~MainWindow() override;

    SceneDocument* document() const { return m_document; }
    SceneView* view() const { return m_view; }
    SceneTreePanel* treePanel() const { return m_treePanel; }
    HostPlugins* plugins() const { return m_plugins.get(); }
    DocumentActions* documentActions() const { return m_documentActions; }
    /// Where what is said of the scene is told.
    StatusLine* statusLine() const { return m_status; }

    /// Keeps the layout for the next run, if it is one to be kept. Done when the window is closed.
    void keepLayout() const { m_layout.keep(); }

    /// Adds the menu that chooses the window's colours; for a host that has the application to itself.
    void addColorsMenu();

Q_SIGNALS:
    /// A person has closed the window, and nothing of it is wanted any more.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QDockWidget* addPanel(const char* name, const QString& title, QWidget* panel, Qt::DockWidgetArea area);
    void createDocks();
    void connectPanels(QDockWidget* changes);
    void createMenus();
    QMenu* createViewMenu();
    QMenu* createToolsMenu();
    void showPlugins();
    void sceneChanged();
    void fileNameChanged();
    void showWarnings();
    void updateTitle();
    bool isLastWindow() const;

    const WindowLayout m_layout;
    const Host m_host;
    QUndoStack* m_history;
    SceneDocument* m_document;
    SceneView* m_view;
    StatusLine* m_status;
    SceneTreePanel* m_treePanel = nullptr;
    FieldListPanel* m_fieldPanel = nullptr;
    ChangesPanel* m_changesPanel = nullptr;
    SceneHint* m_hint = nullptr; ///< null in an application, which brings its scene
    QMenu* m_viewMenu = nullptr;
    DocumentActions* m_documentActions = nullptr;
    DockFocus m_dockFocus;
    HostShell m_shell;
    std::unique_ptr<HostPlugins> m_plugins;
    QPointer<PluginsDialog> m_pluginsDialog;
    QString m_shownFile; ///< that the scene in the view comes from
};
