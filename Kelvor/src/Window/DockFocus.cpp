#include "DockFocus.h"

#include <QApplication>
#include <QDockWidget>
#include <QEvent>

#include <algorithm>

namespace {

void dimInactiveSelection(QDockWidget* dock)
{
    const QPalette all = QApplication::palette(dock);
    const QColor active = all.color(QPalette::Active, QPalette::Highlight);
    QPalette own;
    // A theme that tells the two apart has its own way. Otherwise nearly grey, and dark enough for the text
    // and the icons of selected rows.
    if (all.color(QPalette::Inactive, QPalette::Highlight) == active)
        own.setColor(QPalette::Inactive, QPalette::Highlight,
                     QColor::fromHslF(std::max(active.hslHueF(), 0.0f), active.hslSaturationF() * 0.15f,
                                      active.lightnessF() * 0.9f));
    dock->setPalette(own);
}

} // namespace

void DockFocus::add(QDockWidget* dock)
{
    connect(dock, &QDockWidget::visibilityChanged, dock, &QWidget::setEnabled, Qt::UniqueConnection);
    dock->installEventFilter(this);
    dimInactiveSelection(dock);
}

void DockFocus::remove(QDockWidget* dock)
{
    disconnect(dock, &QDockWidget::visibilityChanged, dock, &QWidget::setEnabled);
    dock->removeEventFilter(this);
    dock->setEnabled(true);
    dock->setPalette(QPalette());
}

bool DockFocus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        dimInactiveSelection(static_cast<QDockWidget*>(watched));
    return QObject::eventFilter(watched, event);
}
