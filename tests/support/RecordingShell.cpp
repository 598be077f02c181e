#include "RecordingShell.h"

#include <KlvExtender/KlvExtension.h>

#include <QDockWidget>
#include <QToolBar>

void RecordingShell::addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area)
{
    m_calls += QStringLiteral("addDockWidget %1 %2").arg(dock->windowTitle()).arg(area);
    m_window.addDockWidget(area, dock);
}

void RecordingShell::removeDockWidget(QDockWidget* dock)
{
    m_calls += QStringLiteral("removeDockWidget ") + dock->windowTitle();
    m_window.removeDockWidget(dock);
    dock->setParent(nullptr);
}

void RecordingShell::addToolBar(QToolBar* toolBar)
{
    m_calls += QStringLiteral("addToolBar ") + toolBar->windowTitle();
    m_window.addToolBar(toolBar);
}

void RecordingShell::removeToolBar(QToolBar* toolBar)
{
    m_calls += QStringLiteral("removeToolBar ") + toolBar->windowTitle();
    m_window.removeToolBar(toolBar);
    toolBar->setParent(nullptr);
}

void RecordingShell::extensionActivated(KlvExtension* extension, int state)
{
    m_calls += QStringLiteral("extensionActivated %1 %2").arg(extension->getName().getString()).arg(state);
}

void RecordingShell::extensionDeactivated(KlvExtension* extension)
{
    m_calls += QStringLiteral("extensionDeactivated ") + QString::fromUtf8(extension->getName().getString());
}
