#pragma once

#include <Kelvor/KelvorHostExport.h>

#include <QObject>

#include <memory>

class QWidget;
class SoNode;

/// The inspector inside another application: a window of its own on a live scene graph of that application.
///
/// \code
/// connect(action, &QAction::triggered, this, [this] { KelvorInspector::inspect(m_root); });
/// \endcode
///
/// The application has made its `QApplication` and initialized Coin, and runs the event loop; the inspector
/// works within that. It replaces no callback of Coin's sensor manager: where the application has a pump for
/// Coin's sensors it relies on it, and where there is none it looks after the queues itself while it is open.
/// Nothing is added to the graph, and no node is kept alive beyond the inspector. The application may delete
/// any node at any time, the root included; the inspector then shows an empty scene. Closing the window
/// leaves the application as it was, with the values that were tuned.
///
/// At most one inspector is open in a process. User-interface thread only.
class KELVOR_HOST_EXPORT KelvorInspector : public QObject
{
    Q_OBJECT

public:
    /// Opens the inspector on a graph, or lets the one that is open show another graph and brings it to the
    /// front. It owns itself and goes when its window is closed or the application quits.
    static KelvorInspector* inspect(SoNode* root);
    /// The inspector that is open, or null; one that is closing no longer counts.
    static KelvorInspector* getInstance();

    ~KelvorInspector() override;

    /// The inspector's window, for placing it. Owned by the inspector.
    QWidget* window() const;
    /// The graph that is shown; null after the application has deleted it.
    SoNode* root() const;
    /// Closes the inspector without asking anything; may be called from any callback of the scene. It is
    /// hidden at once and gone when the event loop comes round, which `closed()` tells, unless `inspect()`
    /// takes it up again before.
    void close();

Q_SIGNALS:
    /// The inspector has closed: its window is gone and it holds nothing any more. `inspect()` opens another.
    void closed();

private:
    KelvorInspector();
    void release();

    class Private;
    std::unique_ptr<Private> d;
};
