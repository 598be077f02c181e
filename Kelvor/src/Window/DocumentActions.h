#pragma once

#include <QObject>

class HostShell;
class QMenu;
class QMimeData;
class QUndoStack;
class QWidget;
class RecentFiles;
class SceneDocument;

/// The File menu: opens, saves and reloads the scene, and asks before changes would be lost.
class DocumentActions : public QObject
{
    Q_OBJECT

public:
    /// Everything given outlives it; `window` is the parent of its dialogs.
    DocumentActions(SceneDocument* document, QUndoStack* history, const HostShell* shell, QWidget* window);

    /// Adds the actions to a menu.
    void addTo(QMenu* menu);

    /// Opens a scene, after asking about unsaved changes. When it cannot be read, one sentence tells so in a
    /// message box and the open scene stays.
    void open(const QString& file);

    /// Opens the scene that the program was started with; false and one sentence in `error` when it cannot be
    /// read.
    bool openAtStart(const QString& file, QString* error);

    /// Asks whether unsaved changes may go, if there are any: true when they may, or have been saved.
    bool mayDiscard();

    /// The scene file that a drag brings, or an empty text when it brings none.
    static QString sceneFile(const QMimeData* data);

private:
    void load(const QString& file);
    void chooseAndOpen();
    bool chooseAndSave();
    void reload();
    void showFailure(const QString& sentence);

    SceneDocument* m_document;
    QUndoStack* m_history;
    const HostShell* m_shell;
    QWidget* m_window;
    RecentFiles* m_recent;
};
