#include "KeysDialog.h"

#include "Changes/ChangesPanel.h"
#include "Models/FieldListPanel.h"
#include "Models/SceneTreePanel.h"
#include "View/SceneView.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenuBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

/// What no action stands for.
struct Gesture
{
    const char* what;
    const char* keys;
};

struct Place
{
    const char* name;
    const QWidget* widget; ///< it and what lies in it have the place's actions; null where it has none
    QList<Gesture> gestures;
};

QList<Place> placesIn(const QMainWindow& window)
{
    return {
        {QT_TRANSLATE_NOOP("KeysDialog", "Everywhere"), window.menuBar(), {}},
        {QT_TRANSLATE_NOOP("KeysDialog", "3D view"),
         window.findChild<SceneView*>(),
         {{QT_TRANSLATE_NOOP("KeysDialog", "Select what is under the pointer"),
           QT_TRANSLATE_NOOP("KeysDialog", "Click")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Go to the point that is hit"),
           QT_TRANSLATE_NOOP("KeysDialog", "Double click")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Orbit"),
           QT_TRANSLATE_NOOP("KeysDialog", "Left drag, arrow keys")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Pan"),
           QT_TRANSLATE_NOOP("KeysDialog", "Middle drag, Shift+left drag, Shift+arrow keys")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Come nearer, go away"),
           QT_TRANSLATE_NOOP("KeysDialog", "Right drag, Ctrl+left drag, wheel, +, -")}}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Scene tree"), window.findChild<SceneTreePanel*>(), {}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Search line"),
         nullptr,
         {{QT_TRANSLATE_NOOP("KeysDialog", "Next match"), QT_TRANSLATE_NOOP("KeysDialog", "Return, Down")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Previous match"),
           QT_TRANSLATE_NOOP("KeysDialog", "Shift+Return, Up")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Stop the search, clear the line, go back to the tree"),
           QT_TRANSLATE_NOOP("KeysDialog", "Esc")}}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Fields"),
         window.findChild<FieldListPanel*>(),
         {{QT_TRANSLATE_NOOP("KeysDialog", "Go to the editor of the field"),
           QT_TRANSLATE_NOOP("KeysDialog", "Return")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Unpin, among the pinned fields"),
           QT_TRANSLATE_NOOP("KeysDialog", "Delete")}}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Field editor"),
         nullptr,
         {{QT_TRANSLATE_NOOP("KeysDialog", "Set the field to its default"),
           QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+Shift+D")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Ignore the field"),
           QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+Shift+I")}}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Table of elements"),
         nullptr,
         {{QT_TRANSLATE_NOOP("KeysDialog", "Edit a cell"),
           QT_TRANSLATE_NOOP("KeysDialog", "F2, double click, typing")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Write the cell"), QT_TRANSLATE_NOOP("KeysDialog", "Return")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Write the cell and go on to the next"),
           QT_TRANSLATE_NOOP("KeysDialog", "Tab")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Leave the cell as it was"),
           QT_TRANSLATE_NOOP("KeysDialog", "Esc")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Add a row below the current one"),
           QT_TRANSLATE_NOOP("KeysDialog", "+")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Delete the current row"),
           QT_TRANSLATE_NOOP("KeysDialog", "-, Delete")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Move the current row"),
           QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+Shift+Up, Ctrl+Shift+Down")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Select rows, delete them"),
           QT_TRANSLATE_NOOP("KeysDialog", "Shift+arrow keys, Shift+Delete")},
          {QT_TRANSLATE_NOOP("KeysDialog", "Copy rows, write lines into the elements"),
           QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+C, Ctrl+V")}}},
        {QT_TRANSLATE_NOOP("KeysDialog", "Changes"),
         window.findChild<ChangesPanel*>(),
         {{QT_TRANSLATE_NOOP("KeysDialog", "Select the field"), QT_TRANSLATE_NOOP("KeysDialog", "Return")}}},
    };
}

/// The keys of an action; empty for one that works in another place, or in others, too.
QString keysOf(const QAction& action, const Place& place)
{
    QStringList keys;
    const bool isForAll = qobject_cast<const QMenuBar*>(place.widget);
    if (isForAll == (action.shortcutContext() == Qt::WindowShortcut)) {
        for (const QKeySequence& key : action.shortcuts())
            keys << key.toString(QKeySequence::NativeText);
    }
    return keys.join(QStringLiteral(", "));
}

/// What each key does in a place, as pairs of what and the keys.
QList<std::pair<QString, QString>> rowsOf(const Place& place)
{
    QList<std::pair<QString, QString>> rows;
    QWidgetList widgets;
    if (place.widget) {
        widgets = place.widget->findChildren<QWidget*>();
        widgets.prepend(const_cast<QWidget*>(place.widget));
    }
    for (qsizetype i = 0; i < widgets.size(); ++i) {
        for (const QAction* action : widgets.at(i)->actions()) {
            if (action->menu())
                widgets.append(action->menu());
            const QString what = action->iconText().section(QLatin1Char('\t'), 0, 0);
            const QString keys = keysOf(*action, place);
            const auto same = std::find_if(rows.begin(), rows.end(),
                                           [&what](const auto& row) { return row.first == what; });
            if (what.isEmpty() || keys.isEmpty())
                continue;
            // One list may have more keys for it than another: those of both are told.
            if (same == rows.end())
                rows.append({what, keys});
            else if (keys.size() < same->second.size())
                same->second = keys;
        }
    }
    for (const Gesture& gesture : place.gestures)
        rows.append({KeysDialog::tr(gesture.what), KeysDialog::tr(gesture.keys)});
    return rows;
}

} // namespace

KeysDialog::KeysDialog(QMainWindow* window)
    : QDialog(window)
{
    setWindowTitle(tr("Keys"));
    auto* table = new QTreeWidget;
    table->setAccessibleName(windowTitle());
    table->setHeaderLabels({tr("What"), tr("Keys and mouse")});
    table->setUniformRowHeights(true);
    table->setAllColumnsShowFocus(true);
    for (const Place& place : placesIn(*window)) {
        auto* group = new QTreeWidgetItem(table, {tr(place.name)});
        QFont bold = font();
        bold.setBold(true);
        group->setFont(0, bold);
        for (const auto& [what, keys] : rowsOf(place))
            new QTreeWidgetItem(group, {what, keys});
    }
    table->expandAll();
    for (const int column : {0, 1})
        table->resizeColumnToContents(column);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &KeysDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(table->header()->length() + fontMetrics().height() * 4, fontMetrics().height() * 36);
}
