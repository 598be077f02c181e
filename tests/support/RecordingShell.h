#pragma once

#include <KlvExtender/KlvShell.h>

#include <QMainWindow>
#include <QStringList>

#include <utility>

/// A host window for tests: it really places docks and tool bars, and notes what extensions ask of it.
class RecordingShell : public KlvShell
{
public:
    void addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area) override;
    void removeDockWidget(QDockWidget* dock) override;
    void addToolBar(QToolBar* toolBar) override;
    void removeToolBar(QToolBar* toolBar) override;
    void extensionActivated(KlvExtension* extension, int state) override;
    void extensionDeactivated(KlvExtension* extension) override;

    QMainWindow& window() { return m_window; }
    /// The calls since the last time, as "addDockWidget Title 2" or "extensionActivated Name 1".
    QStringList takeCalls() { return std::exchange(m_calls, {}); }

private:
    QMainWindow m_window;
    QStringList m_calls;
};
