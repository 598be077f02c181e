#pragma once

#include <QObject>

class HostShell;
class QAction;

/// Lets Undo and Redo reach the history while an input of an editor has the focus. A text input would take
/// the keys for its own undo, which knows nothing of the scene.
class HistoryKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches the application for the shortcuts of the two actions. Everything given outlives it.
    HistoryKeys(QAction* undo, QAction* redo, const HostShell* shell, QObject* parent);

    /// Commits what has been typed into the focused input of an editor but not yet taken, so that the next
    /// step back is that one.
    static void commitPendingInput(const HostShell& shell);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QAction* m_undo;
    QAction* m_redo;
    const HostShell* m_shell;
};
