#include "Models/FieldListView.h"

#include "Models/FieldListModel.h"

#include <KlvExtender/KlvServices.h>

#include <QAction>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

/// Rows as high as their color swatches, whether they have one or not.
class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo(option.decorationSize + QSize(0, 2));
    }
};

} // namespace

FieldListView::FieldListView(FieldListModel* fields, QAbstractItemModel* shown, QWidget* parent)
    : QTreeView(parent)
    , m_fields(fields)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setItemDelegate(new RowDelegate(this));
    // Before the selection model hears of it, which would make a neighbour current.
    connect(shown, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) {
                const int current = currentIndex().row();
                if (current >= first && current <= last)
                    follow(nullptr);
            });
    setModel(shown);
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &FieldListView::currentRowChanged);
    m_fields->setLive(false);
}

SoField* FieldListView::currentField() const
{
    return currentIndex().data(FieldListModel::FieldRole).value<SoField*>();
}

void FieldListView::follow(const SoField* field)
{
    const QScopedValueRollback following(m_following, true);
    QModelIndex index;
    for (int row = 0; field && !index.isValid() && row < model()->rowCount(); ++row) {
        const QModelIndex each = model()->index(row, 0);
        if (each.data(FieldListModel::FieldRole).value<SoField*>() == field)
            index = each;
    }
    if (index.isValid() && index.row() == currentIndex().row())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    if (index.isValid())
        scrollTo(index);
}

void FieldListView::currentRowChanged()
{
    if (!m_following)
        KlvServices::getInstance()->setSelectedField(currentField());
}

QAction* FieldListView::addListAction(const QString& text, const QList<QKeySequence>& keys)
{
    auto* action = new QAction(text, this);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    addAction(action);
    return action;
}

QAction* FieldListView::actionOf(const QKeyEvent& event) const
{
    const QKeySequence keys(event.key() | (event.modifiers() & ~Qt::KeypadModifier));
    const QList<QAction*> all = actions();
    const auto found = std::find_if(all.begin(), all.end(), [&keys](const QAction* action) {
        return action->isEnabled() && action->shortcuts().contains(keys);
    });
    return found == all.end() ? nullptr : *found;
}

bool FieldListView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && actionOf(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void FieldListView::keyPressEvent(QKeyEvent* event)
{
    if (QAction* action = actionOf(*event))
        action->trigger();
    else
        QTreeView::keyPressEvent(event);
}

QItemSelectionModel::SelectionFlags FieldListView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* event) const
{
    // A click beside the rows leaves the current one, and so its highlight.
    return event && !index.isValid() ? QItemSelectionModel::NoUpdate
                                     : QTreeView::selectionCommand(index, event);
}

void FieldListView::focusInEvent(QFocusEvent* event)
{
    // With the focus the first row would become current where none is. Moving through the window by Tab must
    // not select fields.
    const QScopedValueRollback following(m_following, true);
    const bool hadCurrent = currentIndex().isValid();
    QTreeView::focusInEvent(event);
    if (!hadCurrent)
        follow(nullptr);
}

void FieldListView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    // What a row is about may take the place of that row: the editor of a field, below the list.
    const int top = visualRect(currentIndex()).top();
    if (currentIndex().isValid() && top >= 0 && top < event->oldSize().height())
        scrollTo(currentIndex());
}

void FieldListView::showEvent(QShowEvent* event)
{
    m_fields->setLive(true);
    QTreeView::showEvent(event);
}

void FieldListView::hideEvent(QHideEvent* event)
{
    m_fields->setLive(false);
    QTreeView::hideEvent(event);
}

void FieldListView::keyboardSearch(const QString& search)
{
    // The search goes through the column of the current cell, which is where the mouse was.
    if (currentIndex().column() > 0)
        setCurrentIndex(currentIndex().siblingAtColumn(0));
    QTreeView::keyboardSearch(search);
}
