#pragma once

#include "TestMain.h"

#include <KlvExtender/KlvExtension.h>
#include <KlvExtender/KlvShell.h>

/// A host window for tests: it really places docks and tool bars, and notes what extensions ask of it.
class RecordingShell : public KlvShell
{
public:
    void addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area) override
    {
        m_calls += QStringLiteral("addDockWidget %1 %2").arg(dock->windowTitle()).arg(area);
        m_window.addDockWidget(area, dock);
    }
    void removeDockWidget(QDockWidget* dock) override
    {
        m_calls += QStringLiteral("removeDockWidget ") + dock->windowTitle();
        m_window.removeDockWidget(dock);
        dock->setParent(nullptr);
    }
    void addToolBar(QToolBar* toolBar) override
    {
        m_calls += QStringLiteral("addToolBar ") + toolBar->windowTitle();
        m_window.addToolBar(toolBar);
    }
    void removeToolBar(QToolBar* toolBar) override
    {
        m_calls += QStringLiteral("removeToolBar ") + toolBar->windowTitle();
        m_window.removeToolBar(toolBar);
        toolBar->setParent(nullptr);
    }
    void extensionActivated(KlvExtension* extension, int state) override
    {
        m_calls +=
            QStringLiteral("extensionActivated %1 %2").arg(extension->getName().getString()).arg(state);
    }
    void extensionDeactivated(KlvExtension* extension) override
    {
        m_calls +=
            QStringLiteral("extensionDeactivated ") + QString::fromUtf8(extension->getName().getString());
    }

    QMainWindow& window() { return m_window; }
    /// The calls since the last time, as "addDockWidget Title 2" or "extensionActivated Name 1".
    QStringList takeCalls() { return std::exchange(m_calls, {}); }

private:
    QMainWindow m_window;
    QStringList m_calls;
};
