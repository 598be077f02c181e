#include "ProgramOptions.h"

#include <QCommandLineParser>

ProgramOptions ProgramOptions::parse(const QStringList& arguments, QString& error)
{
    ProgramOptions options;
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Shows and tunes the live scene graph of a 3D scene."));
    parser.addPositionalArgument(QStringLiteral("scene"), tr("The .iv or .wrl file to open."),
                                 QStringLiteral("[scene]"));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();

    struct ValueOption
    {
        const char* name;
        const char* value;
        QString description;
    };
    const ValueOption valueOptions[] = {
        {"profile", "NAME", tr("Start with this profile.")},
        {"plugin", "FILE", tr("Load a plug-in beside the default one; may be given several times.")},
        {"plugin-path", "DIR", tr("Load all plug-ins of a folder beside the default one.")},
        {"select", "NODE[.FIELD]",
         tr("Select at start: NODE is the name of a node, or the name of a type, optionally with [n] for the "
            "n-th node "
            "of the type in traversal order, from 0.")},
        {"screenshot", "FILE", tr("Write a picture of the window once everything is shown, then exit.")},
    };
    for (const ValueOption& option : valueOptions)
        parser.addOption(QCommandLineOption(QString::fromLatin1(option.name), option.description,
                                            QString::fromLatin1(option.value)));

    const bool parsed = parser.parse(arguments);
    if (parsed && parser.isSet(version))
        parser.showVersion();
    if (parsed && (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))))
        parser.showHelp();
    if (!parsed) {
        error = parser.errorText();
        if (!error.endsWith(QLatin1Char('.')))
            error += QLatin1Char('.');
        return options;
    }
    for (const ValueOption& option : valueOptions) {
        if (parser.values(QString::fromLatin1(option.name)).contains(QString()))
            error = tr("The option --%1 needs a value.").arg(QLatin1String(option.name));
    }
    const QStringList scenes = parser.positionalArguments();
    if (scenes.size() > 1) {
        error = tr("Only one scene can be opened, but %1 were given.").arg(scenes.size());
        return options;
    }
    if (scenes.contains(QString()))
        error = tr("The name of the scene is empty.");
    options.scene = scenes.value(0);
    options.profile = parser.value(QStringLiteral("profile"));
    options.plugins = parser.values(QStringLiteral("plugin"));
    options.pluginFolder = parser.value(QStringLiteral("plugin-path"));
    options.selection = parser.value(QStringLiteral("select"));
    options.screenshot = parser.value(QStringLiteral("screenshot"));
    return options;
}
