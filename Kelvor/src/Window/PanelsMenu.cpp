#include "PanelsMenu.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QToolBar>

PanelsMenu::PanelsMenu(QMainWindow* window)
    : QMenu(tr("&Panels"), window)
    , m_window(window)
{
    connect(this, &QMenu::aboutToShow, this, &PanelsMenu::fill);
}

void PanelsMenu::fill()
{
    clear();
    for (QDockWidget* dock : m_window->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        QAction* toggle = dock->toggleViewAction();
        // An extension that shows nothing at the moment has nothing to open.
        toggle->setEnabled(dock->widget() != nullptr);
        addAction(toggle);
    }
    for (QToolBar* toolBar : m_window->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        addAction(toolBar->toggleViewAction());
}
