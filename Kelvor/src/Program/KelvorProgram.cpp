#include <Kelvor/KelvorProgram.h>

#include "ProgramOptions.h"
#include "Scene/NodeSpecifier.h"
#include "Scene/SceneDocument.h"
#include "Scene/SensorPump.h"
#include "Scene/TextureImages.h"
#include "Screenshot.h"
#include "View/SceneView.h"
#include "Window/DocumentActions.h"
#include "Window/HostPlugins.h"
#include "Window/MainWindow.h"
#include "Window/WindowDialogs.h"

#include "Models/SceneTreePanel.h"

#include <KlvExtender/KlvServices.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include <QApplication>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

int fail(const QString& sentence)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(sentence));
    return EXIT_FAILURE;
}

/// What the program can do without: told, and the program goes on.
void complain(MainWindow& window, bool quiet, const QStringList& sentences)
{
    const QString text = sentences.join(QLatin1Char('\n'));
    if (quiet)
        fail(text);
    else
        warn(&window, QApplication::applicationDisplayName(), text);
}

/// Loads what the options ask for; one sentence when something of it is missing. What the program can do
/// without appends one each to `problems`.
QString setUp(MainWindow& window, const ProgramOptions& options, QStringList& problems)
{
    HostPlugins* plugins = window.plugins();
    QString error;
    problems = plugins->profiles().problems() + plugins->loadRemembered();
    for (const QString& file : options.plugins) {
        if (!plugins->load(file, &error))
            return error;
    }
    if (!options.pluginFolder.isEmpty()) {
        if (!QFileInfo(options.pluginFolder).isReadable())
            return ProgramOptions::tr("The plug-in folder \"%1\" cannot be read.").arg(options.pluginFolder);
        problems += plugins->loadFolder(options.pluginFolder);
    }
    if (!plugins->activateProfile(options.profile))
        return ProgramOptions::tr("There is no profile \"%1\".").arg(options.profile);
    if (!options.scene.isEmpty()) {
        // A picture leaves no trace in the user's settings.
        const bool opened = !options.screenshot.isEmpty()
                                ? window.document()->open(options.scene, &error)
                                : window.documentActions()->openAtStart(options.scene, &error);
        if (!opened)
            return error;
    }
    // Reading was cancelled when there is no scene although one was asked for.
    const bool isCancelled = !options.scene.isEmpty() && !window.document()->root();
    if (options.selection.isEmpty() || isCancelled)
        return QString();

    const NodeSpecifier::Result found = NodeSpecifier::find(window.document()->root(), options.selection);
    if (!found.error.isEmpty())
        return found.error;
    if (!found.path.isEmpty())
        window.treePanel()->select(found.path);
    if (found.field)
        KlvServices::getInstance()->setSelectedField(found.field);
    else
        KlvServices::getInstance()->setSelectedNode(found.container);
    return QString();
}

int run(const ProgramOptions& options)
{
    SensorPump pump;
    const TextureImages textureImages;
    const bool picture = !options.screenshot.isEmpty();
    MainWindow window(picture ? MainWindow::Layout::Fixed : MainWindow::Layout::Kept);
    window.addColorsMenu();
    QStringList problems;
    const QString error = setUp(window, options, problems);
    if (error.isEmpty())
        window.show();
    if (!problems.isEmpty())
        complain(window, picture || !error.isEmpty(), problems);
    if (!error.isEmpty())
        return fail(error);
    if (!picture)
        return QApplication::exec();

    Screenshot screenshot(&window, options.screenshot);
    int result = EXIT_SUCCESS;
    // Queued: the event loop runs by then.
    QObject::connect(&screenshot, &Screenshot::finished, &window, [&result](const QString& sentence) {
        QApplication::exit(result = sentence.isEmpty() ? EXIT_SUCCESS : fail(sentence));
    });
    QApplication::exec();
    return result;
}

/// Takes the `--plugin` options out of the arguments: Qt would take them for its own option of that name.
QStringList takePluginOptions(std::vector<char*>& arguments)
{
    QStringList taken;
    for (auto argument = arguments.begin(); argument != arguments.end();) {
        const QString text = QFile::decodeName(*argument);
        if (text == QLatin1String("--"))
            break;
        const bool separate = text == QLatin1String("--plugin");
        if (!separate && !text.startsWith(QLatin1String("--plugin="))) {
            ++argument;
            continue;
        }
        const auto end = std::min(argument + (separate ? 2 : 1), arguments.end());
        // The value, empty when there is none, which the parser tells.
        taken << (separate ? QStringLiteral("--plugin=%1")
                                 .arg(end - argument == 2 ? QFile::decodeName(*(argument + 1)) : QString())
                           : text);
        argument = arguments.erase(argument, end);
    }
    return taken;
}

void nameApplication()
{
    QCoreApplication::setOrganizationName(QStringLiteral("Kelvor"));
    QCoreApplication::setApplicationName(QStringLiteral("kelvor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KELVOR_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kelvor.Kelvor"));
}

/// Answers `--help` and `--version` without a display and ends the process, if it can.
void answerQuestions(int argc, char** argv)
{
    const auto isQuestion = [](const char* argument) {
        return QStringList{"--help", "-h", "--version", "-v"}.contains(QLatin1String(argument));
    };
    if (std::none_of(argv + 1, argv + argc, isQuestion))
        return;
    const QCoreApplication application(argc, argv);
    QString error;
    // Comes back when the word was the value of another option, or when Qt's own options are among them.
    ProgramOptions::parse(QCoreApplication::arguments(), error);
}

/// Coin loads libraries of its own when it needs them, for compressed files and for fonts, by names that only
/// their development packages have.
void nameLibraries()
{
    static constexpr const char* names[][2] = {
        {"COIN_ZLIB_LIBNAME", "libz.so.1"},
        {"COIN_BZIP2_LIBNAME", "libbz2.so.1.0"},
        {"COIN_FREETYPE2_LIBNAME", "libfreetype.so.6"},
        {"COIN_FONTCONFIG_LIBNAME", "libfontconfig.so.1"},
    };
    for (const auto& [variable, name] : names)
        if (!qEnvironmentVariableIsSet(variable))
            qputenv(variable, name);
}

int runApplication(int argc, char** argv)
{
    std::vector<char*> arguments(argv, argv + argc);
    const QStringList pluginOptions = takePluginOptions(arguments);
    argc = int(arguments.size());
    arguments.push_back(nullptr);
    const QApplication application(argc, arguments.data());
    QApplication::setApplicationDisplayName(QStringLiteral("Kelvor"));
    QString error;
    QStringList all = QApplication::arguments();
    for (const QString& option : pluginOptions)
        all.insert(1, option);
    const ProgramOptions options = ProgramOptions::parse(all, error);
    return error.isEmpty() ? run(options) : fail(error);
}

} // namespace

int runKelvor(int argc, char** argv)
{
    nameApplication();
    answerQuestions(argc, argv);
    nameLibraries();
    SoDB::init();
    SoInteraction::init();
    const int result = runApplication(argc, argv);
    // The application object is gone by now, and with it all that refers to the scene graph.
    SoDB::finish();
    return result;
}
