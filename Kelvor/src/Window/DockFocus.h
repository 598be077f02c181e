#pragma once

#include <QObject>

class QDockWidget;

/// Shows where the focus is among docks, and keeps it where it can be seen: the lists of a dock that do not
/// have the focus show their selection in a fainter colour, and a dock behind the tab of another is disabled,
/// so that Tab passes it over.
class DockFocus : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// A dock that was added already is no failure.
    void add(QDockWidget* dock);
    /// Leaves the dock as it would be without this class.
    void remove(QDockWidget* dock);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
