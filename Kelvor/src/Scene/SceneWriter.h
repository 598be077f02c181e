#pragma once

#include <QCoreApplication>
#include <QString>

class SoNode;

/// Writes a scene as text into a new file, which replaces the old one in one step.
class SceneWriter
{
    Q_DECLARE_TR_FUNCTIONS(SceneWriter)

public:
    /// Gives why it failed, half a sentence without the file's name; empty on success. The old file is
    /// untouched on failure, the graph always.
    static QString write(SoNode& root, const QString& file);
};
