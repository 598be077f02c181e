#include "MenuKeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

MenuKeys::MenuKeys(QWidget* window)
    : QObject(window)
{
    qApp->installEventFilter(this);
}

bool MenuKeys::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride ||
        !(qobject_cast<QMenu*>(watched) || qobject_cast<QMenuBar*>(watched)))
        return QObject::eventFilter(watched, event);
    const QObject* owner = watched;
    while (owner && owner != parent())
        owner = owner->parent();
    constexpr auto shortcutModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!owner || (static_cast<QKeyEvent*>(event)->modifiers() & shortcutModifiers))
        return QObject::eventFilter(watched, event);
    event->accept();
    return true;
}
