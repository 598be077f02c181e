#include "ViewActions.h"

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

namespace {

struct ActionEntry
{
    QAction* ViewActions::*action;
    const char* text;
    const char* tip;
    bool isCheckable;
    bool endsGroup;
    QList<QKeySequence> keys;
};

QList<ActionEntry> actionEntries()
{
    return {{&ViewActions::viewAll,
             QT_TRANSLATE_NOOP("ViewActions", "View &All"),
             QT_TRANSLATE_NOOP("ViewActions", "Move until the whole scene is seen"),
             false,
             false,
             {Qt::Key_A}},
            {&ViewActions::frame,
             QT_TRANSLATE_NOOP("ViewActions", "&Frame Selection"),
             QT_TRANSLATE_NOOP("ViewActions", "Move until the selected node fills the view"),
             false,
             false,
             {Qt::Key_F}},
            {&ViewActions::home,
             QT_TRANSLATE_NOOP("ViewActions", "&Home"),
             QT_TRANSLATE_NOOP("ViewActions", "Go back to where the scene was seen from at first"),
             false,
             false,
             {Qt::Key_H, Qt::Key_Home}},
            {&ViewActions::setHome,
             QT_TRANSLATE_NOOP("ViewActions", "Set H&ome"),
             QT_TRANSLATE_NOOP("ViewActions", "Make this the place that Home goes back to"),
             false,
             false,
             {Qt::SHIFT | Qt::Key_H}},
            {&ViewActions::seek,
             QT_TRANSLATE_NOOP("ViewActions", "&Seek"),
             QT_TRANSLATE_NOOP("ViewActions", "Go to the point that is clicked next"),
             true,
             true,
             {Qt::Key_S}},
            {&ViewActions::lookThrough,
             QT_TRANSLATE_NOOP("ViewActions", "Look through Scene &Camera"),
             QT_TRANSLATE_NOOP("ViewActions", "Show what the scene's own camera sees"),
             true,
             false,
             {Qt::Key_C}},
            {&ViewActions::orthographic,
             QT_TRANSLATE_NOOP("ViewActions", "O&rthographic"),
             QT_TRANSLATE_NOOP("ViewActions", "Draw without perspective"),
             true,
             false,
             {Qt::Key_O}},
            {&ViewActions::headlight,
             QT_TRANSLATE_NOOP("ViewActions", "Head&light"),
             QT_TRANSLATE_NOOP("ViewActions", "Light the scene from where it is seen"),
             true,
             true,
             {Qt::Key_L}},
            {&ViewActions::clearSelection,
             QT_TRANSLATE_NOOP("ViewActions", "C&lear Selection"),
             QT_TRANSLATE_NOOP("ViewActions", "Select nothing, or end seeking"),
             false,
             false,
             {Qt::Key_Escape}}};
}

QAction* newAction(const ActionEntry& entry, QWidget* view)
{
    const auto translated = [](const char* text) { return QCoreApplication::translate("ViewActions", text); };
    auto* const action = new QAction(translated(entry.text), view);
    QStringList keys;
    for (const QKeySequence& key : entry.keys)
        keys << key.toString(QKeySequence::NativeText);
    action->setStatusTip(
        QStringLiteral("%1 (%2)").arg(translated(entry.tip), keys.join(QStringLiteral(", "))));
    action->setToolTip(action->statusTip());
    action->setCheckable(entry.isCheckable);
    action->setShortcuts(entry.keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    return action;
}

} // namespace

ViewActions::ViewActions(QWidget* view)
{
    for (const ActionEntry& entry : actionEntries()) {
        view->addAction(this->*entry.action = newAction(entry, view));
        if (!entry.endsGroup)
            continue;
        auto* const separator = new QAction(view);
        separator->setSeparator(true);
        view->addAction(separator);
    }
    headlight->setChecked(true);
    frame->setEnabled(false);
    lookThrough->setEnabled(false);
}

void ViewActions::setSceneShown(bool shown) const
{
    for (QAction* action : {viewAll, home, setHome, seek, orthographic, headlight, clearSelection})
        action->setEnabled(shown);
}
