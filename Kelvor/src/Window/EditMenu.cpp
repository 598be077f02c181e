#include "EditMenu.h"

#include "HistoryKeys.h"

#include <QUndoStack>

/// One of the two ways through the history, as the undo stack offers it.
struct EditMenu::Move
{
    QString name;
    QList<QKeySequence> keys;
    void (QUndoStack::*move)();
    bool (QUndoStack::*can)() const;
    void (QUndoStack::*canChanged)(bool);
    QString (QUndoStack::*text)() const;
    void (QUndoStack::*textChanged)(const QString&);
};

EditMenu::EditMenu(QUndoStack* history, const HostShell* shell, QWidget* parent)
    : QMenu(tr("&Edit"), parent)
{
    QAction* undo = addMove(history, shell,
                            {tr("&Undo"),
                             {Qt::CTRL | Qt::Key_Z},
                             &QUndoStack::undo,
                             &QUndoStack::canUndo,
                             &QUndoStack::canUndoChanged,
                             &QUndoStack::undoText,
                             &QUndoStack::undoTextChanged});
    QAction* redo = addMove(history, shell,
                            {tr("&Redo"),
                             {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y},
                             &QUndoStack::redo,
                             &QUndoStack::canRedo,
                             &QUndoStack::canRedoChanged,
                             &QUndoStack::redoText,
                             &QUndoStack::redoTextChanged});
    new HistoryKeys(undo, redo, shell, this);
}

QAction* EditMenu::addMove(QUndoStack* history, const HostShell* shell, const Move& move)
{
    QAction* action = addAction(move.name);
    action->setShortcuts(move.keys);
    // Without what the next step is.
    action->setIconText(QString(move.name).remove(QLatin1Char('&')));
    connect(action, &QAction::triggered, this, [shell] { HistoryKeys::commitPendingInput(*shell); });
    connect(action, &QAction::triggered, history, move.move);
    const auto rename = [action, name = move.name](const QString& what) {
        action->setText(what.isEmpty() ? name : name + QLatin1Char(' ') + what);
    };
    action->setEnabled((history->*move.can)());
    rename((history->*move.text)());
    connect(history, move.canChanged, action, &QAction::setEnabled);
    connect(history, move.textChanged, action, rename);
    return action;
}
