#include "MainWindow.h"

#include "Appearance.h"
#include "Changes/ChangesPanel.h"
#include "DocumentActions.h"
#include "HistoryKeys.h"
#include "HostPlugins.h"
#include "HostSettings.h"
#include "Models/FieldListPanel.h"
#include "Models/ObjectLabel.h"
#include "Models/SceneTreePanel.h"
#include "PluginsDialog.h"
#include "ProfilesDialog.h"
#include "Scene/SceneDocument.h"
#include "View/SceneView.h"
#include "WindowDialogs.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvServices.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QHash>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoStack>
#include <QUndoView>

#include <algorithm>
#include <utility>

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
// Raised when the docks change so much that an older layout no longer fits.
constexpr int stateVersion = 2;
constexpr int problemTime = 8000; // ms that a passing sentence is shown

QIcon inspectorIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addFile(QStringLiteral(":/kelvor/%1.png").arg(size));
    return icon;
}

} // namespace

/// One of the two ways through the history, as the undo stack offers it.
struct MainWindow::HistoryMove
{
    void (QUndoStack::*move)();
    bool (QUndoStack::*can)() const;
    void (QUndoStack::*canChanged)(bool);
    QString (QUndoStack::*text)() const;
    void (QUndoStack::*textChanged)(const QString&);
};

MainWindow::MainWindow(Layout layout, Host host)
    : m_layout(layout)
    , m_host(host)
    , m_history(KlvServices::getInstance()->getUndoStack())
    , m_document(new SceneDocument(this))
    , m_view(new SceneView(this))
    , m_shell(this)
{
    setAttribute(Qt::WA_StyledBackground);
    setAcceptDrops(m_host == Host::Program);
    // The application ends with its own last window.
    setAttribute(Qt::WA_QuitOnClose, m_host == Host::Program);
    setWindowIcon(inspectorIcon());
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setCentralWidget(m_view);
    createDocks();
    createMenus();
    connect(m_document, &SceneDocument::rootChanged, this, &MainWindow::sceneChanged);
    connect(m_document, &SceneDocument::fileNameChanged, this, &MainWindow::fileNameChanged);
    if (m_host == Host::Program)
        connect(m_history, &QUndoStack::cleanChanged, this,
                [this](bool clean) { setWindowModified(!clean); });
    updateTitle();
    restoreLayout();
    // After the layout: the docks that the plug-ins add find their places in it, tool bars do not.
    m_plugins = std::make_unique<HostPlugins>();
    connect(KlvPluginsManager::getInstance(), &KlvPluginsManager::activeProfileChanged, this,
            &MainWindow::restoreToolBars, Qt::SingleShotConnection);
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
    resizeDocks({tree, fields}, {320, 460}, Qt::Horizontal);
    resizeDocks({tree, history}, {500, 200}, Qt::Vertical);
    history->raise();
    connectPanels(changes);
}

void MainWindow::connectPanels(QDockWidget* changes)
{
    connect(m_view, &SceneView::picked, m_treePanel, &SceneTreePanel::select);
    connect(m_view, &SceneView::pickedNothing, this,
            [] { KlvServices::getInstance()->setSelectedNode(nullptr); });
    connect(m_treePanel, &SceneTreePanel::occurrenceChanged, m_view, &SceneView::setHighlight);
    const auto tellProblem = [this](const QString& sentence) { tell(sentence, problemTime); };
    connect(m_fieldPanel, &FieldListPanel::problem, this, tellProblem);
    connect(m_changesPanel, &ChangesPanel::problem, this, tellProblem);
    // What is told of the scene comes back when a passing sentence or the tip of a menu has gone.
    connect(statusBar(), &QStatusBar::messageChanged, this, [this](const QString& text) {
        if (text.isEmpty() && !m_standing.isEmpty())
            statusBar()->showMessage(m_standing);
    });
    const ViewActions& actions = m_view->viewActions();
    m_treePanel->addTreeActions({actions.frame, actions.clearSelection});
    connect(m_changesPanel, &ChangesPanel::countChanged, changes, [changes](int count) {
        changes->setWindowTitle(count > 0 ? tr("Changes (%1)").arg(count) : tr("Changes"));
    });

    // Return in the field list goes on to the first input of the editor that shows the field.
    connect(m_fieldPanel, &FieldListPanel::fieldActivated, this, [] {
        const SoField* field = KlvServices::getInstance()->getSelectedField();
        for (KlvExtension* extension : KlvPluginsManager::getInstance()->getExtensions()) {
            const auto* editor = qobject_cast<KlvEditor*>(extension);
            if (!field || !editor || !editor->isActive() || editor->getEditedObject().toField() != field)
                continue;
            for (QWidget* input : editor->getWidget()->findChildren<QWidget*>()) {
                if (input->isVisible() && input->isEnabled() && (input->focusPolicy() & Qt::TabFocus)) {
                    input->setFocus(Qt::TabFocusReason);
                    return;
                }
            }
        }
    });
}

void MainWindow::createMenus()
{
    m_documentActions = new DocumentActions(m_document, m_history, &m_shell, this);
    QMenu* file = menuBar()->addMenu(tr("&File"));
    if (m_host == Host::Program)
        m_documentActions->addTo(file);
    else
        m_documentActions->addLiveTo(file);
    createEditMenu();
    m_viewMenu = menuBar()->addMenu(tr("&View"));
    m_viewMenu->addActions(m_view->actions());
    m_viewMenu->addSeparator();
    QMenu* panels = m_viewMenu->addMenu(tr("&Panels"));
    connect(panels, &QMenu::aboutToShow, this, [this, panels] { fillPanelsMenu(panels); });
    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    tools->addAction(tr("&Profiles…"), this, [this] {
        ProfilesDialog dialog(&m_plugins->profiles(), this);
        execForWindow(dialog);
    });
    tools->addAction(tr("P&lug-ins…"), this, &MainWindow::showPlugins);
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

void MainWindow::createEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    const HistoryMove undo{&QUndoStack::undo, &QUndoStack::canUndo, &QUndoStack::canUndoChanged,
                           &QUndoStack::undoText, &QUndoStack::undoTextChanged};
    const HistoryMove redo{&QUndoStack::redo, &QUndoStack::canRedo, &QUndoStack::canRedoChanged,
                           &QUndoStack::redoText, &QUndoStack::redoTextChanged};
    QAction* undoAction = addHistoryMove(menu, tr("&Undo"), undo);
    QAction* redoAction = addHistoryMove(menu, tr("&Redo"), redo);
    undoAction->setShortcut(Qt::CTRL | Qt::Key_Z);
    redoAction->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    menu->addSeparator();
    menu->addAction(m_treePanel->findAction());
    new HistoryKeys(undoAction, redoAction, &m_shell, this);
}

QAction* MainWindow::addHistoryMove(QMenu* menu, const QString& name, const HistoryMove& move)
{
    QAction* action = menu->addAction(name);
    connect(action, &QAction::triggered, this, [this] { HistoryKeys::commitPendingInput(m_shell); });
    connect(action, &QAction::triggered, m_history, move.move);
    const auto rename = [action, name](const QString& what) {
        action->setText(what.isEmpty() ? name : name + QLatin1Char(' ') + what);
    };
    action->setEnabled((m_history->*move.can)());
    rename((m_history->*move.text)());
    connect(m_history, move.canChanged, action, &QAction::setEnabled);
    connect(m_history, move.textChanged, action, rename);
    return action;
}

void MainWindow::fillPanelsMenu(QMenu* menu)
{
    menu->clear();
    for (QDockWidget* dock : findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        QAction* toggle = dock->toggleViewAction();
        // An extension that shows nothing at the moment has nothing to open.
        toggle->setEnabled(dock->widget() != nullptr);
        menu->addAction(toggle);
    }
    for (QToolBar* toolBar : findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        menu->addAction(toolBar->toggleViewAction());
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
    m_standing =
        warnings.isEmpty()
            ? QString()
            : tr("%n problem(s) while reading: %1", nullptr, int(warnings.size())).arg(warnings.constFirst());
    statusBar()->showMessage(m_standing);
    statusBar()->setToolTip(warnings.join(QLatin1Char('\n')));
}

void MainWindow::tell(const QString& sentence, int milliseconds)
{
    if (milliseconds == 0)
        m_standing = sentence;
    statusBar()->showMessage(sentence, milliseconds);
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

void MainWindow::restoreLayout()
{
    resize(1360, 840);
    if (m_layout == Layout::Fixed)
        return;
    const HostSettings settings;
    restoreGeometry(settings.value(geometryKey).toByteArray());
    restoreState(settings.value(stateKey).toByteArray(), stateVersion);
}

void MainWindow::restoreToolBars()
{
    if (m_layout == Layout::Fixed)
        return;
    // Whether a dock shows is now its extension's to say.
    QHash<QDockWidget*, bool> hidden;
    for (QDockWidget* dock : findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly))
        hidden.insert(dock, dock->isHidden());
    restoreState(HostSettings().value(stateKey).toByteArray(), stateVersion);
    for (const auto& [dock, isHidden] : hidden.asKeyValueRange())
        dock->setHidden(isHidden);
}

void MainWindow::keepLayout() const
{
    if (m_layout == Layout::Fixed)
        return;
    HostSettings settings;
    settings.setValue(geometryKey, saveGeometry());
    settings.setValue(stateKey, saveState(stateVersion));
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
