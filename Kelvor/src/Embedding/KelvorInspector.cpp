#include <Kelvor/KelvorInspector.h>

#include "RootWatch.h"
#include "Scene/SceneDocument.h"
#include "SensorFallback.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"
#include "Window/StatusLine.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr int unwindTime = 20; // ms until it is looked again whether a nested event loop has ended

KelvorInspector* g_instance = nullptr;

void closeInstance()
{
    delete g_instance;
}

} // namespace

class KelvorInspector::Private
{
public:
    void startPlugins();
    void noteLoop();
    bool isBelowNothing() const;
    bool endDialogs();

    MainWindow window{MainWindow::Layout::Kept, MainWindow::Host::Application};
    RootWatch rootWatch{window.document()};
    SensorFallback sensors;
    int outermostLoop = QThread::currentThread()->loopLevel(); ///< that has turned since it was opened
    bool closing = false;
};

void KelvorInspector::Private::noteLoop()
{
    const int level = QThread::currentThread()->loopLevel();
    outermostLoop = std::min(outermostLoop, level);
    // Where none ran at first, the application may have begun its own by now, or turns the events over by
    // itself and this is the loop of a dialog.
    if (level == 1 && !QApplication::activeModalWidget() && !QApplication::activePopupWidget())
        outermostLoop = level;
}

/// Whether no event loop has been started from within the window and still runs.
bool KelvorInspector::Private::isBelowNothing() const
{
    return QThread::currentThread()->loopLevel() <= outermostLoop;
}

/// Ends dialogs and menus, false when there were none; whoever has opened them goes on with the window when
/// its turn comes.
bool KelvorInspector::Private::endDialogs()
{
    bool any = false;
    for (QWidget* child : window.findChildren<QWidget*>()) {
        auto* dialog = qobject_cast<QDialog*>(child);
        if (!child->isVisible() || !(dialog || child->windowType() == Qt::Popup))
            continue;
        any = true;
        if (dialog)
            dialog->reject();
        else
            child->close();
    }
    return any;
}

void KelvorInspector::Private::startPlugins()
{
    HostPlugins* plugins = window.plugins();
    const QStringList problems = plugins->profiles().problems() + plugins->loadRemembered();
    plugins->activateProfile();
    if (problems.isEmpty())
        return;
    // Not one that the application would have to wait for.
    auto* box = new QMessageBox(QMessageBox::Warning, tr("Kelvor"), problems.join(QLatin1Char('\n')),
                                QMessageBox::Ok, &window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

KelvorInspector* KelvorInspector::inspect(SoNode* root)
{
    if (!g_instance) {
        g_instance = new KelvorInspector;
        // After those of the framework, which therefore go later.
        qAddPostRoutine(closeInstance);
    }
    Private& d = *g_instance->d;
    // One that is about to go is taken up again.
    d.closing = false;
    d.window.document()->setRoot(root);
    d.window.show();
    d.window.raise();
    d.window.activateWindow();
    return g_instance;
}

KelvorInspector* KelvorInspector::getInstance()
{
    return g_instance && g_instance->d && !g_instance->d->closing ? g_instance : nullptr;
}

KelvorInspector::KelvorInspector()
    : d(std::make_unique<Private>())
{
    d->startPlugins();
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
            [this] { d->noteLoop(); });
    connect(&d->rootWatch, &RootWatch::released, this, [this] {
        d->window.statusLine()->tell(tr("The application has deleted the scene that was shown here."));
    });
    // Later: the window is in the midst of closing. It may be wanted again meanwhile.
    const auto closeHidden = [this] {
        if (d->window.isHidden())
            close();
    };
    connect(&d->window, &MainWindow::closed, this, closeHidden, Qt::QueuedConnection);
    // No event loop comes round any more.
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { delete this; });
}

KelvorInspector::~KelvorInspector()
{
    qRemovePostRoutine(closeInstance);
    if (d->window.isVisible())
        d->window.keepLayout();
    d.reset();
    g_instance = nullptr;
    Q_EMIT closed();
}

QWidget* KelvorInspector::window() const
{
    return &d->window;
}

SoNode* KelvorInspector::root() const
{
    return d->window.document()->root();
}

void KelvorInspector::close()
{
    if (std::exchange(d->closing, true))
        return;
    if (d->window.isVisible())
        d->window.keepLayout();
    const bool waits = d->endDialogs();
    d->window.hide();
    // The call may come from a callback of the scene below an editor of the window, so that has to be there
    // until control is back in the loop that runs now, also where the application turns events over before.
    if (!waits && QThread::currentThread()->loopLevel() > 0) {
        auto* guard = new QObject;
        connect(guard, &QObject::destroyed, this, &KelvorInspector::release);
        guard->deleteLater();
    } else {
        QTimer::singleShot(unwindTime, this, &KelvorInspector::release);
    }
}

void KelvorInspector::release()
{
    // Unloading the plug-ins deletes all that waits for it, and so comes here once more.
    if (!d || !d->closing)
        return;
    if (d->isBelowNothing())
        delete this;
    else
        QTimer::singleShot(unwindTime, this, &KelvorInspector::release);
}
