#include "Models/DockReveal.h"

#include <QDockWidget>

void revealInDock(QWidget* widget)
{
    for (QWidget* each = widget; each; each = each->parentWidget()) {
        if (auto* dock = qobject_cast<QDockWidget*>(each)) {
            dock->show();
            dock->raise();
        }
    }
    widget->activateWindow();
}
