#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

/// What the command line asks the program for.
struct ProgramOptions
{
    Q_DECLARE_TR_FUNCTIONS(ProgramOptions)

public:
    QString scene;
    QString profile;
    QStringList plugins;
    QString pluginFolder;
    QString selection;
    QString screenshot;

    /// Reads the command line of the application object. On failure gives one sentence in `error`. `--help`
    /// and
    /// `--version` print and end the process.
    static ProgramOptions parse(const QStringList& arguments, QString& error);
};
