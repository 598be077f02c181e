#pragma once

#include "Scene/SceneInput.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class SoSeparator;

/// Reads a scene file. Read errors go into the result and not to the process's read-error handler, which is
/// put back.
class SceneReader
{
    Q_DECLARE_TR_FUNCTIONS(SceneReader)

public:
    struct Result
    {
        /// Unreferenced; null when nothing could be read.
        SoSeparator* root = nullptr;
        /// Why there is no root: half a sentence without the file's name. Empty when it was cancelled.
        QString reason;
        /// What was wrong, although there is a root.
        QStringList warnings;
    };

    /// `progress` hears how far it has come and may cancel it; nothing is left of what was read by then.
    static Result read(const QString& file, const SceneInput::Progress& progress = {});
};
