#pragma once

#include "Scene/SceneInput.h"
#include "Scene/SourceFile.h"
#include "Scene/StraySources.h"

#include <KlvExtender/KlvContainerRef.h>

#include <Inventor/nodes/SoNode.h> // a signal's type must be complete where it is connected

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

/// The scene that is open: read from a file, or given by the application that is inspected.
///
/// Looking at the scene and saving it leave the graph as it is. While a file is open its folder is searched
/// first for files that the scene names (textures, inlined scenes), at reading and when such a name is edited
/// later.
class SceneDocument : public QObject
{
    Q_OBJECT

public:
    explicit SceneDocument(QObject* parent = nullptr);
    /// Releases the scene.
    ~SceneDocument() override;

    /// Reads an Inventor or VRML file, compressed or not, and shows it in place of the scene that was open. A
    /// file that has several nodes at its top gives a separator that holds them.
    ///
    /// On failure the scene that was open stays, `error` holds one sentence with file and reason, and the
    /// result is false. What was wrong with a file that could be read all the same is in `warnings()`.
    ///
    /// `progress` hears how far it has come and may cancel it: the scene that was open then stays, too, and
    /// `error` is empty.
    bool open(const QString& file, QString* error, const SceneInput::Progress& progress = {});
    /// Writes the scene as text. A scene that was read from a VRML file becomes a VRML file of that version,
    /// any other an Inventor file, whatever its name ends in. `file` is the document's file from then on; a
    /// live graph stays one that belongs to no file.
    ///
    /// The file is replaced in one step when all is written. On failure it is as it was, `error` holds one
    /// sentence and the result is false.
    bool save(const QString& file, QString* error);
    /// Whether the document's file may be written over: there is one, it is not compressed, all of it could
    /// be read, and it can be written. What it loses by that is told by `sourceFile()`.
    bool canOverwrite() const;
    /// The document's file as it was when it was read or saved; for a live graph it says nothing.
    const SourceFile& sourceFile() const { return m_source; }
    /// Shows a live graph, or nothing (null), which belongs to no file. It is referenced while it is shown.
    void setRoot(SoNode* root);

    /// Null when nothing is open.
    SoNode* root() const;
    /// Absolute; empty when the scene does not come from a file.
    QString fileName() const;
    /// One sentence for each thing that was wrong with the file at the last successful `open()`, at most a
    /// hundred.
    QStringList warnings() const;

Q_SIGNALS:
    /// Another scene, or nothing (null), is shown; the earlier one is still alive.
    void rootChanged(SoNode* root);
    /// The scene belongs to another file now, or to none.
    void fileNameChanged();

private:
    void replace(SoNode* root, const QString& file, const QStringList& warnings);
    void setFileName(const QString& file);

    StraySources m_sources;
    KlvContainerRef m_root; ///< goes before its sources
    QString m_fileName;
    SourceFile m_source;
    QByteArray m_searchedFolder;
    QStringList m_warnings;
};
