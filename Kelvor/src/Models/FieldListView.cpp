#include "Models/FieldListView.h"

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
}

void FieldListView::keyboardSearch(const QString& search)
{
    // The search goes through the column of the current cell, which is where the mouse was.
    if (currentIndex().column() > 0)
        setCurrentIndex(currentIndex().siblingAtColumn(0));
    QTreeView::keyboardSearch(search);
}
