#pragma once

#include <QMenu>

class HostShell;
class QUndoStack;

/// The Edit menu's way back and forth through a history. Both commit first what has been typed.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    /// Everything given outlives it.
    EditMenu(QUndoStack* history, const HostShell* shell, QWidget* parent);

private:
    struct Move;
    QAction* addMove(QUndoStack* history, const HostShell* shell, const Move& move);
};
