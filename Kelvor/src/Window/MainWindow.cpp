#include "MainWindow.h"

#include "Appearance.h"
#include "Changes/ChangesPanel.h"
#include "DocumentActions.h"
#include "EditMenu.h"
#include "EditorInput.h"
#include "HelpMenu.h"
#include "HostPlugins.h"
#include "MenuKeys.h"
#include "Models/FieldListPanel.h"
#include "Models/SceneTreePanel.h"
#include "PanelsMenu.h"
#include "PluginsDialog.h"
#include "ProfileMenu.h"
#include "ProfilesDialog.h"
#include "Scene/SceneDocument.h"
#include "SceneHint.h"
#include "StatusLine.h"
#include "View/SceneView.h"
#include "WindowDialogs.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QUndoStack>
#include <QUndoView>

#include <algorithm>
#include <utility>

namespace {

QIcon inspectorIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/kelvor/%1.png").arg(size));
    return icon;
}

} // namespace

MainWindow::MainWindow(Layout layout, Host host)
    : m_layout(this, layout == Layout::Kept)
    , m_host(host)
    , m_history(KlvServices::getInstance()->getUndoStack())
    , m_document(new SceneDocument(this))
    , m_view(new SceneView(this))
    , m_status(new StatusLine(this))
    , m_shell(this)
{
    setAttribute(Qt::WA_StyledBackground);
    setAcceptDrops(m_host == Host::Program);
    // The application ends with its own last window.
    setAttribute(Qt::WA_QuitOnClose, m_host == Host::Program);
    setWindowIcon(inspectorIcon());
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setCentralWidget(m_view);
    setStatusBar(m_status);
    m_view->viewActions().setSceneShown(false);
    if (m_host == Host::Program)
        m_hint = new SceneHint(m_view);
    createDocks();
    createMenus();
    connect(m_document, &SceneDocument::rootChanged, this, &MainWindow::sceneChanged);
    connect(m_document, &SceneDocument::fileNameChanged, this, &MainWindow::fileNameChanged);
    if (m_host == Host::Program)
        connect(m_history, &QUndoStack::cleanChanged, this,
                [this](bool clean) { setWindowModified(!clean); });
    updateTitle();
    m_layout.restore();
    // After the layout: the docks that the plug-ins add find their places in it, tool bars do not.
    m_plugins = std::make_unique<HostPlugins>();
    connect(
        KlvPluginsManager::getInstance(), &KlvPluginsManager::activeProfileChanged, this,
        [this] { m_layout.restoreToolBars(); }, Qt::SingleShotConnection);
}

MainWindow::~MainWindow()
{
    KlvServices* services = KlvServices::getInstance();
    services->setSelectedNode(nullptr);
    services->setSelectedField(nullptr);
    delete m_pluginsDialog;
    // While the window and its docks are whole: the plug-ins take theirs out of it.
    m_plugins.reset();
    m_history->clear();
    services->getChanges()->restart();
    m_history->disconnect(this);
}

QDockWidget* MainWindow::addPanel(const char* name, const QString& title, QWidget* panel,
                                  Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(panel);
    addDockWidget(area, dock);
    m_dockFocus.add(dock);
    return dock;
}

void MainWindow::createDocks()
{
    m_treePanel = new SceneTreePanel;
    m_fieldPanel = new FieldListPanel;
    auto* historyView = new QUndoView(m_history);
    historyView->setEmptyLabel(tr("Scene as opened"));
    historyView->setAccessibleName(tr("History"));
    QDockWidget* tree = addPanel("SceneTree", tr("Scene"), m_treePanel, Qt::LeftDockWidgetArea);
    QDockWidget* history = addPanel("History", tr("History"), historyView, Qt::LeftDockWidgetArea);
    m_changesPanel = new ChangesPanel;
    QDockWidget* changes = addPanel("Changes", tr("Changes"), m_changesPanel, Qt::LeftDockWidgetArea);
    tabifyDockWidget(history, changes);
    QDockWidget* fields = addPanel("FieldList", tr("Fields"), m_fieldPanel, Qt::RightDockWidgetArea);
    const int unit = fontMetrics().averageCharWidth();
    m_view->setMinimumWidth(33 * unit);
    resizeDocks({tree, fields}, {52 * unit, 84 * unit}, Qt::Horizontal);
    // In this proportion; more would be taken from docks below.
    resizeDocks({tree, history}, {250, 100}, Qt::Vertical);
    history->raise();
    connectPanels(changes);
}

void MainWindow::connectPanels(QDockWidget* changes)
{
    connect(m_view, &SceneView::picked, m_treePanel, &SceneTreePanel::select);
    connect(m_view, &SceneView::pickedNothing, this,
            [] { KlvServices::getInstance()->setSelectedNode(nullptr); });
    connect(m_treePanel, &SceneTreePanel::occurrenceChanged, m_view, &SceneView::setHighlight);
    connect(m_fieldPanel, &FieldListPanel::problem, m_status, &StatusLine::tellInPassing);
    connect(m_changesPanel, &ChangesPanel::problem, m_status, &StatusLine::tellInPassing);
    const ViewActions& actions = m_view->viewActions();
    m_treePanel->addTreeActions({actions.frame, actions.clearSelection});
    connect(m_changesPanel, &ChangesPanel::countChanged, changes, [changes](int count) {
        changes->setWindowTitle(count > 0 ? tr("Changes (%1)").arg(count) : tr("Changes"));
    });
    connect(m_fieldPanel, &FieldListPanel::fieldActivated, this,
            [] { enterEditorOf(KlvServices::getInstance()->getSelectedField()); });
}

void MainWindow::createMenus()
{
    m_documentActions = new DocumentActions(m_document, m_history, &m_shell, this);
    QMenu* file = menuBar()->addMenu(tr("&File"));
    if (m_host == Host::Program)
        m_documentActions->addTo(file);
    else
        m_documentActions->addLiveTo(file);
    auto* edit = new EditMenu(m_history, &m_shell, this);
    edit->addSeparator();
    edit->addAction(m_treePanel->findAction());
    m_viewMenu = createViewMenu();
    for (QMenu* menu : std::initializer_list<QMenu*>{edit, m_viewMenu, createToolsMenu(), new HelpMenu(this)})
        menuBar()->addMenu(menu);
    new MenuKeys(this);
}

QMenu* MainWindow::createViewMenu()
{
    auto* menu = new QMenu(tr("&View"), this);
    menu->addActions(m_view->actions());
    menu->addSeparator();
    menu->addMenu(new PanelsMenu(this));
    return menu;
}

QMenu* MainWindow::createToolsMenu()
{
    auto* menu = new QMenu(tr("&Tools"), this);
    menu->addMenu(new ProfileMenu(this));
    menu->addAction(tr("&Profiles…"), this, [this] {
        ProfilesDialog dialog(&m_plugins->profiles(), this);
        execForWindow(dialog);
    });
    menu->addAction(tr("P&lug-ins…"), this, &MainWindow::showPlugins);
    return menu;
}

void MainWindow::showPlugins()
{
    if (!m_pluginsDialog) {
        m_pluginsDialog = new PluginsDialog(m_plugins.get(), this);
        m_pluginsDialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    m_pluginsDialog->show();
    m_pluginsDialog->activateWindow();
}

void MainWindow::addColorsMenu()
{
    m_viewMenu->addMenu(new Appearance(this));
}

void MainWindow::sceneChanged()
{
    KlvServices* services = KlvServices::getInstance();
    services->setSelectedNode(nullptr);
    services->setSelectedField(nullptr);
    m_history->clear();
    services->getChanges()->restart();
    m_fieldPanel->setRoot(m_document->root());
    const QString file = m_document->fileName();
    const bool isReload = file == std::exchange(m_shownFile, file) && !file.isEmpty();
    m_view->setRoot(m_document->root(), isReload ? SceneView::Look::Kept : SceneView::Look::Anew);
    m_view->viewActions().setSceneShown(m_document->root());
    if (m_hint)
        m_hint->setVisible(!m_document->root());
    m_treePanel->setRoot(m_document->root());
    m_changesPanel->setRoot(m_document->root());
    updateTitle();
    showWarnings();
}

void MainWindow::fileNameChanged()
{
    // Saved under another name.
    if (m_document->root() == m_view->root())
        m_shownFile = m_document->fileName();
    updateTitle();
}

void MainWindow::showWarnings()
{
    const QStringList warnings = m_document->warnings();
    QString sentence;
    if (!warnings.isEmpty())
        sentence =
            tr("%n problem(s) while reading: %1", nullptr, int(warnings.size())).arg(warnings.constFirst());
    m_status->tell(sentence, warnings.join(QLatin1Char('\n')));
}

void MainWindow::updateTitle()
{
    const QString file = m_document->fileName();
    setWindowFilePath(file);
    if (!file.isEmpty())
        setWindowTitle(tr("%1[*] – Kelvor").arg(QFileInfo(file).fileName()));
    else if (const SoNode* root = m_document->root())
        setWindowTitle(tr("%1[*] – Kelvor").arg(objectLabel(root)));
    else
        setWindowTitle(tr("Kelvor[*]"));
}

/// Whether the application has no window left besides this one, whose end is its end, too.
bool MainWindow::isLastWindow() const
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::none_of(windows.begin(), windows.end(), [this](const QWidget* one) {
        return one != this && one->isVisible() && !one->parentWidget() &&
               one->testAttribute(Qt::WA_QuitOnClose);
    });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_host == Host::Program ? !m_documentActions->mayDiscard() : !m_documentActions->mayLeave()) {
        event->ignore();
        if (m_host == Host::Application)
            setAttribute(Qt::WA_QuitOnClose, isLastWindow());
        return;
    }
    keepLayout();
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DocumentActions::sceneFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString file = DocumentActions::sceneFile(event->mimeData());
    if (file.isEmpty())
        return;
    event->acceptProposedAction();
    // Later: a question must not hold up the application that the drag comes from.
    QMetaObject::invokeMethod(
        m_documentActions, [this, file] { m_documentActions->open(file); }, Qt::QueuedConnection);
}
