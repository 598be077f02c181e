#include "Models/FieldListView.h"

#include <QStyledItemDelegate>

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

FieldListView::FieldListView(QWidget* parent)
    : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setItemDelegate(new RowDelegate(this));
}

void FieldListView::keyboardSearch(const QString& search)
{
    // The search goes through the column of the current cell, which is where the mouse was.
    if (currentIndex().column() > 0)
        setCurrentIndex(currentIndex().siblingAtColumn(0));
    QTreeView::keyboardSearch(search);
}
