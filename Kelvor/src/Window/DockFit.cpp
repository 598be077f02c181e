#include "DockFit.h"

#include <QDockWidget>
#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr int releaseDelay = 20; // ms between two looks whether the mouse has been released

bool canGrow(QDockWidget* dock)
{
    return dock->widget() && (QWidgetItem(dock->widget()).expandingDirections() & Qt::Vertical);
}

} // namespace

DockFit::DockFit(QMainWindow* window)
    : m_window(window)
{
    window->installEventFilter(this);
}

void DockFit::watch(QDockWidget* dock)
{
    if (m_docks.contains(dock))
        return;
    m_docks.insert(dock, Dock());
    dock->installEventFilter(this);
    connect(dock, &QObject::destroyed, this, [this, dock] { m_docks.remove(dock); });
}

bool DockFit::eventFilter(QObject* watched, QEvent* event)
{
    const bool isWindow = watched == m_window;
    if (isWindow && event->type() == QEvent::MouseButtonPress) {
        m_isDragging = m_window->isSeparator(static_cast<QMouseEvent*>(event)->position().toPoint());
        m_columnBefore = m_window->centralWidget()->height();
        for (auto dock = m_docks.begin(); dock != m_docks.end(); ++dock)
            dock->before = dock.key()->height();
    } else if (isWindow && event->type() == QEvent::MouseButtonRelease) {
        // A separator above or below the whole column says nothing of the docks in it.
        if (std::exchange(m_isDragging, false) && m_window->centralWidget()->height() == m_columnBefore)
            keepHeights();
    }
    const QEvent::Type news = event->type();
    if ((isWindow ? news == QEvent::Resize : news == QEvent::Show || news == QEvent::LayoutRequest) &&
        !std::exchange(m_isScheduled, true)) {
        // After the window has made its layout, before it is painted.
        QMetaObject::invokeMethod(this, &DockFit::fitAll, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void DockFit::keepHeights()
{
    for (auto dock = m_docks.begin(); dock != m_docks.end(); ++dock)
        if (dock.key()->widget() && dock.key()->isVisible() && dock.key()->height() != dock->before)
            (dock->grows ? dock->grown : dock->plain) = dock.key()->height();
}

void DockFit::fitAll()
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        QTimer::singleShot(releaseDelay, this, &DockFit::fitAll);
        return;
    }
    m_isScheduled = false;
    for (auto dock = m_docks.begin(); dock != m_docks.end(); ++dock)
        if (dock.key()->isVisible())
            fit(dock.key(), *dock);
}

void DockFit::fit(QDockWidget* dock, Dock& state)
{
    m_window->layout()->activate();
    const int wanted = dock->sizeHint().height();
    const bool grew = std::exchange(state.grows, canGrow(dock));
    const bool wantsNothingNew = std::exchange(state.wanted, wanted) == wanted;
    if (!dock->widget() || (grew && state.grows && wantsNothingNew))
        return;
    const QList<QDockWidget*> others = neighbours(dock);
    const auto tallest =
        std::max_element(others.begin(), others.end(), [](QDockWidget* one, QDockWidget* other) {
            return std::pair(canGrow(one), one->height()) < std::pair(canGrow(other), other->height());
        });
    if (tallest == others.end() || !canGrow(*tallest))
        return;
    const int room = dock->height() + (*tallest)->height();
    const int kept = state.grows ? state.grown : state.plain;
    const int height = kept > 0 ? kept : state.grows ? std::min(wanted, room / 2) : wanted;
    // Where there is no room for it, once is enough.
    const std::pair asked(height, room);
    if (height == dock->height() || std::exchange(state.asked, asked) == asked)
        return;
    QList<QDockWidget*> docks{dock, *tallest};
    QList<int> heights{height, std::max(room - height, 1)};
    for (QDockWidget* other : others) {
        if (other != *tallest) {
            docks += other;
            heights += other->height();
        }
    }
    m_window->resizeDocks(docks, heights, Qt::Vertical);
    m_window->layout()->activate();
}

/// The docks above and below one.
QList<QDockWidget*> DockFit::neighbours(QDockWidget* dock) const
{
    QList<QDockWidget*> found;
    if (dock->isFloating() || !m_window->tabifiedDockWidgets(dock).isEmpty())
        return found;
    for (QDockWidget* other : m_window->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (other != dock && other->isVisible() && !other->isFloating() &&
            m_window->dockWidgetArea(other) == m_window->dockWidgetArea(dock) &&
            other->geometry().left() == dock->geometry().left() && other->width() == dock->width())
            found += other;
    return found;
}
