#pragma once

#include "DockFit.h"
#include "DockFocus.h"

#include <KlvExtender/KlvShell.h>

#include <QList>
#include <QPointer>

class QMainWindow;
class QWidget;

/// Places what extensions show in the host's main window. The window outlives it.
class HostShell : public KlvShell
{
public:
    explicit HostShell(QMainWindow* window);

    void addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area) override;
    void removeDockWidget(QDockWidget* dock) override;
    void addToolBar(QToolBar* toolBar) override;
    void removeToolBar(QToolBar* toolBar) override;
    void extensionActivated(KlvExtension* extension, int state) override;
    void extensionDeactivated(KlvExtension* extension) override;

    /// True when a widget lies in a dock of an extension: it is an input of an editor, say.
    bool isInExtensionDock(const QWidget* widget) const;

private:
    QMainWindow* m_window;
    DockFit m_fit;
    DockFocus m_focus;
    QList<QPointer<QDockWidget>> m_docks;
};
