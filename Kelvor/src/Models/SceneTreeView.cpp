#include "Models/SceneTreeView.h"

#include "Models/SceneTreeModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <deque>

namespace {

constexpr int expandedRowsLimit = 5000;

}

SceneTreeView::SceneTreeView(SceneTreeModel* model, QWidget* parent)
    : QTreeView(parent)
    , m_model(model)
{
    setModel(model);
    setUniformRowHeights(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAllColumnsShowFocus(true);
    setIndentation(14); // scene graphs are deep

    // Not at once: the scroll bar also moves while the view lays its rows out.
    m_visibleTimer.setSingleShot(true);
    m_visibleTimer.setInterval(0);
    connect(&m_visibleTimer, &QTimer::timeout, this, &SceneTreeView::fetchVisible);
    connect(&m_visibleTimer, &QTimer::timeout, this, &SceneTreeView::fitColumns);
    const auto lookSoon = [this] { m_visibleTimer.start(); };
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, lookSoon);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, lookSoon);
    connect(header(), &QHeaderView::sectionResized, this, lookSoon);
    connect(model, &QAbstractItemModel::dataChanged, this, lookSoon);
    connect(this, &QTreeView::expanded, this, lookSoon);
    connect(this, &QTreeView::collapsed, this, lookSoon);
}

void SceneTreeView::expandBelow(const QModelIndex& index)
{
    // With a layout due anyway, opening a row costs nothing more.
    scheduleDelayedItemsLayout();
    int rows = 0;
    std::deque<QModelIndex> pending{index.siblingAtColumn(0)};
    while (!pending.empty() && rows < expandedRowsLimit) {
        const QModelIndex next = pending.front();
        pending.pop_front();
        if (!m_model->hasChildren(next))
            continue;
        if (m_model->canFetchMore(next))
            m_model->fetchMore(next);
        expand(next);
        const int children = m_model->rowCount(next);
        rows += children;
        for (int row = 0; row < children; ++row)
            pending.push_back(m_model->index(row, 0, next));
    }
}

void SceneTreeView::keyPressEvent(QKeyEvent* event)
{
    // The view's own answer to the asterisk opens everything, however much it is.
    if (event->key() != Qt::Key_Asterisk)
        QTreeView::keyPressEvent(event);
    else if (currentIndex().isValid())
        expandBelow(currentIndex());
}

QItemSelectionModel::SelectionFlags SceneTreeView::selectionCommand(const QModelIndex& index,
                                                                    const QEvent* event) const
{
    // A click beside the rows leaves the current one, and so its highlight.
    return event && !index.isValid() ? QItemSelectionModel::NoUpdate
                                     : QTreeView::selectionCommand(index, event);
}

void SceneTreeView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    QTreeView::scrollTo(index, hint);
    fitColumns();
    const QRect label = visualRect(index.siblingAtColumn(SceneTreeModel::TypeColumn));
    const int end =
        label.left() + sizeHintForIndex(index.siblingAtColumn(SceneTreeModel::TypeColumn)).width();
    const int beyond = std::max(end - viewport()->width(), 0);
    QScrollBar* const bar = horizontalScrollBar();
    bar->setValue(bar->value() + std::min(beyond, label.left()));
}

void SceneTreeView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    fitColumns();
}

void SceneTreeView::fitColumns()
{
    const int rest = viewport()->width() - columnWidth(SceneTreeModel::NameColumn);
    setColumnWidth(SceneTreeModel::TypeColumn, std::max(rest, sizeHintForColumn(SceneTreeModel::TypeColumn)));
}

void SceneTreeView::fetchVisible()
{
    for (QModelIndex index = indexAt(QPoint(0, 0)); index.isValid(); index = indexBelow(index)) {
        if (visualRect(index).top() > viewport()->height())
            return;
        const QModelIndex group = index.parent();
        if (index.row() == m_model->rowCount(group) - 1 && m_model->hasMoreSlices(group)) {
            m_model->fetchSlice(group);
            return;
        }
    }
}
