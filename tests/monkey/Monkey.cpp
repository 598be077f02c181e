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
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoSensorManager.h>

#include <QtTest>
#include <QtWidgets>

#include <random>

namespace {

constexpr int blockLength = 100; // actions between two checks
constexpr int askedAfter = 40;   // milliseconds that a question is open before somebody answers
constexpr int mostAnswers = 10;  // within one action; then what is open is given up

const QStringList texts{"1",
                        "-0.5 2 3e2",
                        "[0.1 0.2 0.3, 1 1 1]",
                        "TRUE",
                        "\"a\" \"ä\n\\\"",
                        "0 1 0 1.5",
                        "~",
                        "LINES",
                        "",
                        "1e400 nan",
                        "type:Material transparency>0.5",
                        "is:changed c",
                        "2 2 3 0xff0000 0x00ff00 0x0000ff 0xffffff",
                        "99999999999",
                        "Separator { Cube {} }"};
const QStringList keys =
    QString("Return Tab Shift+Tab Esc Space Del Backspace Up Down Left Right PgUp PgDown Home End F2 F3 F4 "
            "F5 F10 Menu Ctrl+A Ctrl+C Ctrl+V Ctrl+X Ctrl+F Ctrl+Z Ctrl+Y Ctrl+S Ctrl+Q Ctrl+W Ctrl+Return "
            "Alt+Left Alt+Right Alt+F Alt+E Alt+V Alt+T Shift+Down Shift+F3 / A F H L O S")
        .split(' ');

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
            m_random.seed(m_seed * 1'000'003 + quint64(++m_number));
            m_answers = 0;
            act(byInput | byCall | (m_isQuiet ? 0 : byApplication));
            // Some actions follow at once, some when the event loop has come round, some a while later.
            bool isOver = pick(8) > 0;
            if (!isOver)
                QTimer::singleShot(pick(600), this, [&isOver] { isOver = true; });
            for (int turn = pick(3); turn > 0 || !isOver; --turn)
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
    // Two draws in one expression are in braces, which give them an order in every build.
    int pick(int count) { return count > 0 ? int(m_random() % quint64(count)) : 0; }
    template <class Item>
    Item pickFrom(const QList<Item>& list)
    {
        return list.value(pick(int(list.size())));
    }
    QPoint pickPoint(const QWidget* widget) { return {pick(widget->width()), pick(widget->height())}; }

    void act(int by)
    {
        const auto weight = [by](const Action& action) { return action.by & by ? action.weight : 0; };
        int place = 0;
        for (const Action& action : m_actions)
            place += weight(action);
        place = pick(place);
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

    /// What takes input now: an open menu or question, else the window.
    QWidget* front() const
    {
        QWidget* question = QApplication::activePopupWidget();
        question = question ? question : QApplication::activeModalWidget();
        return question ? question : m_window.get();
    }

    template <class Widget>
    QList<Widget*> visible(Qt::FocusPolicy policy)
    {
        QList<Widget*> widgets = front()->findChildren<Widget*>();
        widgets.removeIf([policy](const Widget* widget) {
            return !widget->isVisible() || (widget->focusPolicy() & policy) != policy;
        });
        return widgets;
    }

    void answerQuestions()
    {
        QTimer::singleShot(askedAfter, this, &Monkey::answerQuestions);
        if (QThread::currentThread()->loopLevel() == 0)
            return;
        auto* files = qobject_cast<QFileDialog*>(front());
        auto* dialog = qobject_cast<QDialog*>(front());
        const bool givesUp = ++m_answers > mostAnswers || (files && pick(4) == 0);
        if (!givesUp && !files)
            return act(m_isQuiet || pick(4) ? byInput : byApplication);
        note(givesUp ? "give up" : "choose a file");
        if (!givesUp) {
            const bool saves = files->acceptMode() == QFileDialog::AcceptSave;
            files->findChild<QLineEdit*>()->setText(saves ? m_folder + "saved.iv" : pickFrom(m_files));
            QMetaObject::invokeMethod(files, "accept");
        } else if (dialog) {
            dialog->reject();
        } else {
            press("Esc");
        }
    }

    void press(const QString& keys, const QString& text = QString())
    {
        const QKeySequence sequence(keys);
        const QKeyCombination key = sequence.isEmpty() ? QKeyCombination(Qt::Key_unknown) : sequence[0];
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            const QWidget* popup = QApplication::activePopupWidget();
            if (QWindow* window = popup ? popup->windowHandle() : QApplication::focusWindow())
                qt_handleKeyEvent(window, type, key.key(), key.keyboardModifiers(), text);
        }
    }

    void edit()
    {
        const QList<QLineEdit*> inputs = visible<QLineEdit>(Qt::TabFocus);
        if (inputs.isEmpty())
            return;
        pickFrom(inputs)->setFocus();
        press("Ctrl+A");
        for (const QChar character : pickFrom(texts))
            press(character.toUpper(), character);
        press(pick(3) ? "Return" : "Tab");
    }

    void click(Qt::MouseButton button, int clicks, int moves = 0)
    {
        const QList<QWidget*> widgets = visible<QWidget>(pick(2) ? Qt::TabFocus : Qt::NoFocus);
        const QWidget* widget = widgets.isEmpty() ? front() : pickFrom(widgets);
        const QPointer<QWindow> window = widget->window()->windowHandle();
        QPoint position = widget->mapTo(widget->window(), pickPoint(widget));
        const Qt::KeyboardModifiers modifiers(pick(4) ? 0 : int(Qt::ShiftModifier) << pick(2));
        const auto send = [&](QEvent::Type type, Qt::MouseButtons held, Qt::MouseButton changed) {
            if (window)
                qt_handleMouseEvent(window, position, window->mapToGlobal(position), held, changed, type,
                                    modifiers, ++m_time);
        };
        m_time += 1000; // more than parts a double click
        send(QEvent::MouseMove, {}, Qt::NoButton);
        for (int click = 0; click < clicks; ++click) {
            send(QEvent::MouseButtonPress, button, button);
            for (int move = 0; move < moves; ++move) {
                position += QPoint{pick(121) - 60, pick(121) - 60};
                send(QEvent::MouseMove, button, Qt::NoButton);
                QApplication::processEvents();
            }
            send(QEvent::MouseButtonRelease, {}, button);
        }
    }

    void turnWheel()
    {
        const QPoint position = pickPoint(front());
        QWidget* child = front()->childAt(position);
        QWheelEvent event(position, front()->mapToGlobal(position), {}, {0, 120 * (pick(7) - 3)},
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(child ? child : front(), &event);
    }

    void moveDock()
    {
        QDockWidget* other = dock();
        QDockWidget* moved = dock();
        if (pick(2))
            m_window->tabifyDockWidget(other, moved);
        else
            m_window->addDockWidget(Qt::DockWidgetArea(1 << pick(4)), moved);
    }
    QDockWidget* dock() { return pickFrom(m_window->findChildren<QDockWidget*>()); }

    /// A node of the scene; null when there is none, or none that can have others below it.
    template <class Node = SoNode>
    Node* node()
    {
        SoNode* found = m_window->document()->root();
        const SoChildList* children = found ? found->getChildren() : nullptr;
        while (children && children->getLength() > 0 && pick(6)) {
            found = (*children)[pick(children->getLength())];
            children = found->getChildren();
        }
        return found && found->isOfType(Node::getClassTypeId()) ? static_cast<Node*>(found) : nullptr;
    }

    /// A field of a node of the scene, or of the engine behind it; null when there is none.
    SoField* field(SoFieldContainer* container)
    {
        SoFieldList fields;
        if (!container || container->getFields(fields) == 0)
            return nullptr;
        SoField* found = fields[pick(fields.getLength())];
        SoEngineOutput* output = nullptr;
        const bool isDriven = found->getConnectedEngine(output) && output->getContainer();
        return isDriven && pick(2) ? field(output->getContainer()) : found;
    }

    void addNode()
    {
        auto* parent = node<SoGroup>();
        SoNode* other = node();
        if (!parent || parent->getNumChildren() > 40)
            return;
        SoTypeList types;
        SoType::getAllDerivedFrom(SoNode::getClassTypeId(), types);
        const SoType type = types[pick(types.getLength())];
        // VRML for what is said below; NURBS cannot be picked without a display.
        static const QRegularExpression unfit("VRML|Nurbs");
        if (pick(2) && type.canCreateInstance() && !QString(type.getName().getString()).contains(unfit))
            other = static_cast<SoNode*>(type.createInstance());
        else if (other->getChildren()) // another occurrence of it might hold itself
            other = new SoSeparator;
        parent->insertChild(other, pick(parent->getNumChildren() + 1));
    }

    void deleteNode()
    {
        auto* parent = node<SoGroup>();
        if (parent && parent->getNumChildren() > 0)
            parent->removeChild(pick(parent->getNumChildren()));
    }

    void changeField()
    {
        SoField* changed = field(node());
        setFieldFromText(changed, qUtf8Printable(pickFrom(texts)));
    }

    void connectField()
    {
        SoField* target = field(node());
        SoField* source = pick(3) ? field(node()) : SoDB::getGlobalField("realTime");
        if (!target || !source || target->isConnected())
            return target ? target->disconnect() : void();
        // Nothing that goes round in circles, over connections or nodes, nor what Coin cannot convert: a time
        // beyond all years ends it where it is to become a text.
        SoFieldList targets;
        const SoType from = source->getTypeId();
        const SoType to = target->getTypeId();
        if (source != target && !source->isConnected() && target->getForwardConnections(targets) == 0 &&
            !QString(to.getName().getString()).endsWith("FNode") &&
            !QString(to.getName().getString()).endsWith("FString") &&
            (from == to || SoDB::getConverter(from, to) != SoType::badType()))
            target->connectFrom(source);
    }

    void showLiveScene()
    {
        SoInput input;
        const bool isRead = pick(9) && input.openFile(qUtf8Printable(pickFrom(m_scenes)));
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
        m_isQuiet = pick(2);
    }

    const quint64 m_seed;
    const QString m_folder;
    const QStringList m_scenes;
    std::FILE* const m_log;
    KlvPluginsManager* const m_manager = KlvPluginsManager::getInstance();
    KlvServices* const m_services = KlvServices::getInstance();
    QUndoStack* const m_history = m_services->getUndoStack();
    std::mt19937_64 m_random;
    QStringList m_plugins;
    QString m_error;
    QStringList m_files; ///< what is opened, some of it in vain
    std::unique_ptr<MainWindow> m_window;
    SoSeparator* const m_live = new SoSeparator; ///< holds the application's own scene
    bool m_isQuiet = false;                      ///< the application leaves its scene alone
    int m_number = 0;
    int m_answers = 0; ///< within this action
    int m_time = 0;    ///< of the mouse, in milliseconds

    const std::vector<Action> m_actions = {
        {"click", byInput, 60, [this] { click(Qt::LeftButton, 1); }},
        {"click twice", byInput, 10, [this] { click(Qt::LeftButton, 2); }},
        {"click with the right button", byInput, 10, [this] { click(Qt::RightButton, 1); }},
        {"drag", byInput, 12, [this] { click(Qt::LeftButton, 1, 1 + pick(5)); }},
        {"drag with the middle button", byInput, 2, [this] { click(Qt::MiddleButton, 1, 3); }},
        {"wheel", byInput, 10, [this] { turnWheel(); }},
        {"key", byInput, 50, [this] { press(pickFrom(keys)); }},
        {"edit", byInput, 50, [this] { edit(); }},
        {"copy", byInput, 8, [this] { QApplication::clipboard()->setText(pickFrom(texts)); }},
        {"paste", byInput, 8, [this] { press("Ctrl+V"); }},
        {"activate the window", byCall, 20, [this] { m_window->activateWindow(); }},
        {"select a node", byCall, 12, [this] { m_services->setSelectedNode(node()); }},
        {"select a field", byCall, 40, [this] { m_services->setSelectedField(field(node())); }},
        {"undo", byCall, 8, [this] { m_history->undo(); }},
        {"redo", byCall, 6, [this] { m_history->redo(); }},
        {"float or dock a dock", byCall, 1, [this] { dock()->setFloating(pick(2)); }},
        {"open or close a dock", byCall, 2, [this] { dock()->toggleViewAction()->trigger(); }},
        {"move a dock", byCall, 2, [this] { moveDock(); }},
        {"resize", byCall, 2,
         [this] {
             m_window->resize(QSize{200 + pick(1400), 100 + pick(1000)});
         }},
        {"first profile", byCall, 3,
         [this] { m_manager->setActiveProfile(m_manager->getProfilesList()[0]); }},
        {"any profile", byCall, 1,
         [this] { m_manager->setActiveProfile(pickFrom(m_manager->getProfilesList())); }},
        {"load a plug-in", byCall, 2,
         [this] { m_window->plugins()->loadAndRemember(pickFrom(m_plugins), &m_error); }},
        {"unload a plug-in", byCall, 1,
         [this] { m_window->plugins()->unload(pickFrom(m_manager->getPlugins())); }},
        {"open a file", byCall, 1, [this] { m_window->documentActions()->open(pickFrom(m_files)); }},
        {"show a live scene", byCall, 1, [this] { showLiveScene(); }},
        {"close the window", byCall, 1, [this] { m_window->close(); }},
        {"add a node", byApplication, 6, [this] { addNode(); }},
        {"delete a node", byApplication, 3, [this] { deleteNode(); }},
        {"change a field", byApplication, 16, [this] { changeField(); }},
        {"connect a field", byApplication, 5, [this] { connectField(); }},
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
