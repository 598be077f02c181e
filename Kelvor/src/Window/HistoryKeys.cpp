#include "HistoryKeys.h"

#include "HostShell.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

HistoryKeys::HistoryKeys(QAction* undo, QAction* redo, const HostShell* shell, QObject* parent)
    : QObject(parent)
    , m_undo(undo)
    , m_redo(redo)
    , m_shell(shell)
{
    qApp->installEventFilter(this);
}

void HistoryKeys::commitPendingInput(const HostShell& shell)
{
    QWidget* input = QApplication::focusWidget();
    if (!shell.isInExtensionDock(input))
        return;
    // Inputs commit when they lose the focus.
    input->clearFocus();
    // The editor of a table's cell is closed by that; the table takes its place.
    while (input && !input->isVisible())
        input = input->parentWidget();
    if (input)
        input->setFocus(Qt::OtherFocusReason);
}

bool HistoryKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && watched->isWidgetType() &&
        m_shell->isInExtensionDock(static_cast<QWidget*>(watched))) {
        const QKeySequence keys(static_cast<QKeyEvent*>(event)->keyCombination());
        if (m_undo->shortcuts().contains(keys) || m_redo->shortcuts().contains(keys)) {
            event->ignore();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
