#include "InspectedApplication.h"
#include "Person.h"
#include "VirtualTime.h"

#include "Scene/SceneDocument.h"
#include "Scene/SceneWriter.h"
#include "Scene/SensorPump.h"
#include "Scene/TextureImages.h"
#include "Window/DocumentActions.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"

#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/KlvServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QtTest>
#include <QtWidgets>

namespace {

constexpr int blockLength = 100; // actions between two checks
constexpr int askedAfter = 40;   // milliseconds that a question is open before somebody answers
constexpr int mostAnswers = 10;  // within one action; then what is open is given up

// Who does something: a person with mouse and keys, the inspected application, somebody by a call.
constexpr int byInput = 1;
constexpr int byApplication = 2;
constexpr int byCall = 4; // from the event loop, never while a dialog waits

struct Action
{
    const char* name;
    int by;
    int weight; // how often, compared with the others
    std::function<void()> run;
};

/// Does at random what a person may do with the inspector's window, and what the inspected application may do
/// to its scene meanwhile, and ends the process when something is not as it must be.
///
/// What is done follows from the seed and the number of the action. Each action is noted in `actions.log` of
/// the folder, in which everything is read and written, before it is done.
class Monkey : public QObject
{
public:
    Monkey(quint64 seed, const QString& folder, const QStringList& scenes)
        : m_seed(seed)
        , m_folder(folder + '/')
        , m_scenes(scenes)
        , m_log(std::fopen(qUtf8Printable(m_folder + "actions.log"), "w"))
    {
        for (const QFileInfo& plugin : QDir(KELVOR_TEST_PLUGINDIR).entryInfoList(QDir::Files))
            m_plugins += {plugin.filePath(), HostPlugins::defaultPlugin()};
        m_live->ref();
        openWindow();
        answerQuestions();
    }
    ~Monkey() override
    {
        closeWindow();
        m_live->unref();
        std::fclose(m_log);
    }

    void run(int actions)
    {
        while (m_number < actions) {
            m_chance.seed(m_seed * 1'000'003 + quint64(++m_number));
            m_answers = 0;
            act(byInput | byCall | (m_isQuiet ? 0 : byApplication));
            // Some actions follow at once, some when the event loop has come round, some a while later.
            bool isOver = m_chance.pick(8) > 0;
            if (!isOver)
                QTimer::singleShot(m_chance.pick(600), this, [&isOver] { isOver = true; });
            for (int turn = m_chance.pick(3); turn > 0 || !isOver; --turn)
                QApplication::processEvents(isOver ? QEventLoop::AllEvents : QEventLoop::WaitForMoreEvents);
            if (m_number % blockLength == 0)
                check();
            if (!m_window->isVisible()) {
                closeWindow();
                openWindow();
            }
        }
    }

    [[noreturn]] void fail(const QString& sentence) const
    {
        std::fprintf(stderr, "kelvor_monkey: %s\nIn action %d of seed %llu; %sactions.log has all.\n",
                     qUtf8Printable(sentence), m_number, m_seed, qUtf8Printable(m_folder));
        std::_Exit(EXIT_FAILURE);
    }

private:
    void act(int by)
    {
        const auto weight = [by](const Action& action) { return action.by & by ? action.weight : 0; };
        int place = 0;
        for (const Action& action : m_actions)
            place += weight(action);
        place = m_chance.pick(place);
        auto action = m_actions.begin();
        while ((place -= weight(*action)) >= 0)
            ++action;
        note(action->name);
        action->run();
    }

    void note(const char* what)
    {
        std::fprintf(m_log, "%d %s\n", m_number, what);
        std::fflush(m_log);
    }

    void answerQuestions()
    {
        QTimer::singleShot(askedAfter, this, &Monkey::answerQuestions);
        if (QThread::currentThread()->loopLevel() == 0)
            return;
        auto* files = qobject_cast<QFileDialog*>(m_person.front());
        auto* dialog = qobject_cast<QDialog*>(m_person.front());
        const bool givesUp = ++m_answers > mostAnswers || (files && m_chance.pick(4) == 0);
        if (!givesUp && !files)
            return act(m_isQuiet || m_chance.pick(4) ? byInput : byApplication);
        note(givesUp ? "give up" : "choose a file");
        if (!givesUp) {
            const bool saves = files->acceptMode() == QFileDialog::AcceptSave;
            files->findChild<QLineEdit*>()->setText(saves ? m_folder + "saved.iv"
                                                          : m_chance.pickFrom(m_files));
            QMetaObject::invokeMethod(files, "accept");
        } else if (dialog) {
            dialog->reject();
        } else {
            m_person.press("Esc");
        }
    }

    void moveDock()
    {
        QDockWidget* other = dock();
        QDockWidget* moved = dock();
        if (m_chance.pick(2))
            m_window->tabifyDockWidget(other, moved);
        else
            m_window->addDockWidget(Qt::DockWidgetArea(1 << m_chance.pick(4)), moved);
    }
    QDockWidget* dock() { return m_chance.pickFrom(m_window->findChildren<QDockWidget*>()); }

    void showLiveScene()
    {
        SoInput input;
        const bool isRead = m_chance.pick(9) && input.openFile(qUtf8Printable(m_chance.pickFrom(m_scenes)));
        SoSeparator* root = isRead ? SoDB::readAll(&input) : nullptr;
        if (root)
            m_live->addChild(root);
        m_window->document()->setRoot(root);
        while (m_live->getNumChildren() > (root ? 1 : 0))
            m_live->removeChild(0);
    }

    void openWindow()
    {
        m_files = QStringList{m_folder, m_folder + "missing.iv", m_folder + "saved.iv"};
        for (const QString& scene : m_scenes) {
            m_files += m_folder + QFileInfo(scene).fileName();
            QFile::remove(m_files.constLast());
            QFile::copy(scene, m_files.constLast());
        }
        m_window = std::make_unique<MainWindow>(MainWindow::Layout::Kept);
        m_person.setWindow(m_window.get());
        m_application.setDocument(m_window->document());
        m_window->addColorsMenu();
        m_window->plugins()->loadRemembered();
        m_window->plugins()->loadAndRemember(HostPlugins::defaultPlugin(), &m_error);
        m_window->plugins()->activateProfile();
        m_window->documentActions()->openAtStart(m_files.constLast(), &m_error);
        m_window->show();
    }

    void closeWindow()
    {
        SoNode* root = m_window->document()->root();
        if (root && m_live->findChild(root) < 0)
            m_live->addChild(root);
        m_window.reset();
        if (root && root->getRefCount() != 1)
            fail(QString("%1 references to the scene are left.").arg(root->getRefCount() - 1));
        m_live->removeAllChildren();
    }

    /// The scene as text, without the fields that others drive: what is entered there does not last.
    QString written(const QString& name) const
    {
        QFile file(m_folder + name);
        if (m_window->document()->root())
            SceneWriter::write(*m_window->document()->root(), file.fileName());
        static const QRegularExpression driven("^.* =.*$", QRegularExpression::MultilineOption);
        return file.open(QFile::ReadOnly) ? QString(file.readAll()).remove(driven) : QString();
    }

    void check()
    {
        note("undo and redo all");
        if (QWidget* input = QApplication::focusWidget())
            input->clearFocus();
        const QString before = written("before.iv");
        const int index = m_history->index();
        m_history->setIndex(0);
        m_history->setIndex(index);
        if (written("after.iv") != before && m_isQuiet)
            fail("The scene is not the same after all was undone and redone.");
        m_history->clear();
        m_isQuiet = m_chance.pick(2);
    }

    const quint64 m_seed;
    const QString m_folder;
    const QStringList m_scenes;
    std::FILE* const m_log;
    KlvPluginsManager* const m_manager = KlvPluginsManager::getInstance();
    KlvServices* const m_services = KlvServices::getInstance();
    QUndoStack* const m_history = m_services->getUndoStack();
    Chance m_chance;
    Person m_person{m_chance};
    InspectedApplication m_application{m_chance};
    QStringList m_plugins;
    QString m_error;
    QStringList m_files; ///< what is opened, some of it in vain
    std::unique_ptr<MainWindow> m_window;
    SoSeparator* const m_live = new SoSeparator; ///< holds the application's own scene
    bool m_isQuiet = false;                      ///< the application leaves its scene alone
    int m_number = 0;
    int m_answers = 0; ///< within this action

    const std::vector<Action> m_actions = {
        {"click", byInput, 60, [this] { m_person.click(Qt::LeftButton, 1); }},
        {"click twice", byInput, 10, [this] { m_person.click(Qt::LeftButton, 2); }},
        {"click with the right button", byInput, 10, [this] { m_person.click(Qt::RightButton, 1); }},
        {"drag", byInput, 12, [this] { m_person.click(Qt::LeftButton, 1, 1 + m_chance.pick(5)); }},
        {"drag with the middle button", byInput, 2, [this] { m_person.click(Qt::MiddleButton, 1, 3); }},
        {"wheel", byInput, 10, [this] { m_person.turnWheel(); }},
        {"key", byInput, 50, [this] { m_person.pressAny(); }},
        {"edit", byInput, 50, [this] { m_person.edit(); }},
        {"copy", byInput, 8,
         [this] { QApplication::clipboard()->setText(m_chance.pickFrom(Person::texts())); }},
        {"paste", byInput, 8, [this] { m_person.press("Ctrl+V"); }},
        {"activate the window", byCall, 20, [this] { m_window->activateWindow(); }},
        {"select a node", byCall, 12, [this] { m_services->setSelectedNode(m_application.node()); }},
        {"select a field", byCall, 40,
         [this] { m_services->setSelectedField(m_application.field(m_application.node())); }},
        {"undo", byCall, 8, [this] { m_history->undo(); }},
        {"redo", byCall, 6, [this] { m_history->redo(); }},
        {"float or dock a dock", byCall, 1, [this] { dock()->setFloating(m_chance.pick(2)); }},
        {"open or close a dock", byCall, 2, [this] { dock()->toggleViewAction()->trigger(); }},
        {"move a dock", byCall, 2, [this] { moveDock(); }},
        {"resize", byCall, 2,
         [this] {
             m_window->resize(QSize{200 + m_chance.pick(1400), 100 + m_chance.pick(1000)});
         }},
        {"first profile", byCall, 3,
         [this] { m_manager->setActiveProfile(m_manager->getProfilesList()[0]); }},
        {"any profile", byCall, 1,
         [this] { m_manager->setActiveProfile(m_chance.pickFrom(m_manager->getProfilesList())); }},
        {"load a plug-in", byCall, 2,
         [this] { m_window->plugins()->loadAndRemember(m_chance.pickFrom(m_plugins), &m_error); }},
        {"unload a plug-in", byCall, 1,
         [this] { m_window->plugins()->unload(m_chance.pickFrom(m_manager->getPlugins())); }},
        {"open a file", byCall, 1, [this] { m_window->documentActions()->open(m_chance.pickFrom(m_files)); }},
        {"show a live scene", byCall, 1, [this] { showLiveScene(); }},
        {"close the window", byCall, 1, [this] { m_window->close(); }},
        {"add a node", byApplication, 6, [this] { m_application.addNode(); }},
        {"delete a node", byApplication, 3, [this] { m_application.deleteNode(); }},
        {"change a field", byApplication, 16, [this] { m_application.changeField(); }},
        {"connect a field", byApplication, 5, [this] { m_application.connectField(); }},
        {"process the sensors", byApplication, 8, [] { SoDB::getSensorManager()->processDelayQueue(TRUE); }},
    };
};

Monkey* monkey = nullptr;

void hear(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    // What Qt's offscreen platform says of itself.
    const bool isHarmless = message.startsWith("This plugin does not support ");
    if (monkey && type != QtDebugMsg && type != QtInfoMsg && !isHarmless)
        monkey->fail("Qt warns: " + message);
}

/// Keeps settings and files in the folder, and chance out of it all.
void setUp(const QTemporaryDir& folder)
{
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, QFile::encodeName(folder.path()));
    QHashSeed::setDeterministicGlobalSeed();
    if (qEnvironmentVariable("QT_QPA_PLATFORM", "offscreen") == "offscreen") {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_NO_GLIB", "1");
        startVirtualTime();
    }
    SoDB::init();
    SoInteraction::init();
    for (auto* setHandler : {SoDebugError::setHandlerCallback, SoReadError::setHandlerCallback})
        setHandler([](const SoError*, void*) {}, nullptr); // there are many, and they are expected
    qInstallMessageHandler(hear);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setQuitOnLastWindowClosed(false);
}

} // namespace

int main(int argc, char** argv)
{
    const QString clock = QString::number(QDateTime::currentMSecsSinceEpoch());
    QTemporaryDir folder;
    folder.setAutoRemove(false);
    setUp(folder);
    {
        const QApplication application(argc, argv);
        QCommandLineParser parser;
        parser.addOptions({{"seed", "Replays a run.", "N", clock}, {"actions", "How many.", "N", "1500"}});
        parser.addPositionalArgument("scene", "Instead of the examples.", "[scene…]");
        parser.addHelpOption();
        parser.process(application);
        QStringList scenes = parser.positionalArguments();
        // Coin's VRML nodes leave behind what they make for themselves, and crash on an empty font family.
        for (const QFileInfo& file : QDir(KELVOR_SCENES_DIR, "*.iv").entryInfoList())
            scenes += parser.positionalArguments().isEmpty() ? QStringList(file.filePath()) : QStringList();
        const quint64 seed = parser.value("seed").toULongLong();
        std::printf("seed %llu, notes in %s/actions.log\n", seed, qUtf8Printable(folder.path()));
        std::fflush(stdout);
        SensorPump pump;
        const TextureImages textureImages;
        Monkey driver(seed, folder.path(), scenes);
        monkey = &driver;
        driver.run(parser.value("actions").toInt());
        monkey = nullptr;
    }
    SoDB::finish();
    folder.remove();
    return EXIT_SUCCESS;
}
