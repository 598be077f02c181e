#pragma once

#include <QObject>

class HostShell;
class QMenu;
class QMimeData;
class QUndoStack;
class QWidget;
class RecentFiles;
class SceneDocument;

/// The File menu: opens, saves and reloads scenes, or saves and leaves a live one, and asks before changes
/// would be lost.
class DocumentActions : public QObject
{
    Q_OBJECT

public:
    /// Everything given outlives it; `window` is the parent of its dialogs.
    DocumentActions(SceneDocument* document, QUndoStack* history, const HostShell* shell, QWidget* window);

    /// Adds the actions of a program that opens files.
    void addTo(QMenu* menu);
    /// Adds the actions of a window on another application's scene, which no file can take the place of.
    void addLiveTo(QMenu* menu);

    /// Opens a scene, after asking about unsaved changes. When it cannot be read, one sentence tells so in a
    /// message box and the open scene stays.
    void open(const QString& file);

    /// Opens the scene that the program was started with; false and one sentence in `error` when it cannot be
    /// read. When that takes long, the window is shown with the progress; a person who cancels gets no scene.
    bool openAtStart(const QString& file, QString* error);

    /// Asks whether unsaved changes may go, if there are any: true when they may, or have been saved.
    bool mayDiscard();

    /// Asks whether the list of what was changed in a live scene may go, if anything was: true when it may,
    /// or has been copied.
    bool mayLeave();

    /// The scene file that a drag brings, or an empty text when it brings none.
    static QString sceneFile(const QMimeData* data);

private:
    void load(const QString& file);
    void chooseAndOpen();
    void addSaveAs(QMenu* menu, const QList<QKeySequence>& keys);
    bool save();
    bool chooseAndSave();
    bool saveTo(const QString& file);
    void reload();
    void showFailure(const QString& sentence);

    SceneDocument* m_document;
    QUndoStack* m_history;
    const HostShell* m_shell;
    QWidget* m_window;
    RecentFiles* m_recent;
    bool m_loading = false;
};
