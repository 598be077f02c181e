#include "HostShell.h"

#include <KlvExtender/KlvExtension.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QToolBar>

#include <algorithm>

namespace {

// The window's layout is kept by object name; a widget of a plug-in that has none goes by its title.
void giveName(QWidget* widget)
{
    if (widget->objectName().isEmpty())
        widget->setObjectName(widget->windowTitle());
}

} // namespace

HostShell::HostShell(QMainWindow* window)
    : m_window(window)
    , m_fit(window)
{
}

void HostShell::addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area)
{
    if (!dock || m_docks.contains(dock))
        return;
    giveName(dock);
    m_docks.append(dock);
    // Its place may be kept from an earlier run; whether it shows is the extension's to say.
    const bool hidden = dock->isHidden();
    if (!m_window->restoreDockWidget(dock))
        m_window->addDockWidget(area, dock);
    m_fit.watch(dock);
    m_focus.add(dock);
    dock->setHidden(hidden);
}

void HostShell::removeDockWidget(QDockWidget* dock)
{
    if (!dock || !m_docks.removeOne(dock))
        return;
    m_window->removeDockWidget(dock);
    m_focus.remove(dock);
    dock->setParent(nullptr);
}

void HostShell::addToolBar(QToolBar* toolBar)
{
    if (!toolBar)
        return;
    giveName(toolBar);
    m_window->addToolBar(toolBar);
}

void HostShell::removeToolBar(QToolBar* toolBar)
{
    if (!toolBar || toolBar->window() != m_window)
        return;
    m_window->removeToolBar(toolBar);
    toolBar->setParent(nullptr);
}

void HostShell::extensionActivated(KlvExtension*, int) {}

void HostShell::extensionDeactivated(KlvExtension*) {}

bool HostShell::isInExtensionDock(const QWidget* widget) const
{
    return std::any_of(m_docks.begin(), m_docks.end(),
                       [widget](const auto& dock) { return dock && widget && dock->isAncestorOf(widget); });
}
