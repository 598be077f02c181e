#include <Kelvor/KelvorInspector.h>

#include "RootWatch.h"
#include "Scene/SceneDocument.h"
#include "SensorFallback.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>

#include <algorithm>

namespace {

KelvorInspector* g_instance = nullptr;

void closeInstance()
{
    delete g_instance;
}

} // namespace

class KelvorInspector::Private
{
public:
    QDialog* modalDialog() const;
    void startPlugins();

    MainWindow window{MainWindow::Layout::Kept, MainWindow::Host::Application};
    RootWatch rootWatch{window.document()};
    SensorFallback sensors;
    bool closing = false; ///< waits for the end of a dialog
};

QDialog* KelvorInspector::Private::modalDialog() const
{
    const QList<QDialog*> dialogs = window.findChildren<QDialog*>();
    const auto modal = std::find_if(dialogs.begin(), dialogs.end(), [](const QDialog* dialog) {
        return dialog->isModal() && dialog->isVisible();
    });
    return modal == dialogs.end() ? nullptr : *modal;
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
    d.closing = false;
    d.window.document()->setRoot(root);
    d.window.show();
    d.window.raise();
    d.window.activateWindow();
    return g_instance;
}

KelvorInspector* KelvorInspector::getInstance()
{
    return g_instance;
}

KelvorInspector::KelvorInspector()
    : d(std::make_unique<Private>())
{
    d->startPlugins();
    connect(&d->rootWatch, &RootWatch::released, this,
            [this] { d->window.tell(tr("The application has deleted the scene that was shown here.")); });
    // Later: the window is in the midst of closing. It may be wanted again meanwhile.
    const auto closeHidden = [this] {
        if (d->window.isHidden())
            close();
    };
    connect(&d->window, &MainWindow::closed, this, closeHidden, Qt::QueuedConnection);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &KelvorInspector::close);
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
    QDialog* dialog = d->modalDialog();
    if (!dialog) {
        delete this;
        return;
    }
    // Whoever has opened the dialog goes on with the window once it is over, so both have to be there.
    d->closing = true;
    const auto goOn = [this] {
        if (d->closing)
            close();
    };
    connect(dialog, &QObject::destroyed, this, goOn, Qt::QueuedConnection);
    dialog->reject();
    d->window.keepLayout();
    d->window.hide();
    d->window.document()->setRoot(nullptr);
}
