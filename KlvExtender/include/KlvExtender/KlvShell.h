#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Qt>

class KlvExtension;
class QDockWidget;
class QToolBar;

/// The host's main window as extensions see it. The host implements it; there is at most one at a time.
class KLV_EXTENDER_EXPORT KlvShell
{
public:
    /// The shell constructed last and still alive, or null.
    static KlvShell* getInstance();

    virtual ~KlvShell();

    KlvShell(const KlvShell&) = delete;
    KlvShell& operator=(const KlvShell&) = delete;

    /// Places a dock widget, which stays the caller's. It is shown and hidden by the caller.
    virtual void addDockWidget(QDockWidget* dock, Qt::DockWidgetArea area) = 0;
    /// Takes a dock widget out again; it is left without a parent. One that was not placed is ignored.
    virtual void removeDockWidget(QDockWidget* dock) = 0;
    /// Places a tool bar, which stays the caller's.
    virtual void addToolBar(QToolBar* toolBar) = 0;
    /// Takes a tool bar out again; it is left without a parent.
    virtual void removeToolBar(QToolBar* toolBar) = 0;
    /// An extension tells that it became active; `state` is 1.
    virtual void extensionActivated(KlvExtension* extension, int state) = 0;
    /// An extension tells that it is no longer active.
    virtual void extensionDeactivated(KlvExtension* extension) = 0;

protected:
    /// Makes this object the instance.
    KlvShell();
};
