#include "WindowLayout.h"

#include "HostSettings.h"

#include <QDockWidget>
#include <QHash>
#include <QMainWindow>

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString stateKey = QStringLiteral("window/state");
// Raised when the docks change so much that an older layout no longer fits.
constexpr int stateVersion = 2;

} // namespace

WindowLayout::WindowLayout(QMainWindow* window, bool isKept)
    : m_window(window)
    , m_isKept(isKept)
{
}

void WindowLayout::restore() const
{
    m_window->resize(1360, 840);
    if (!m_isKept)
        return;
    const HostSettings settings;
    m_window->restoreGeometry(settings.value(geometryKey).toByteArray());
    m_window->restoreState(settings.value(stateKey).toByteArray(), stateVersion);
}

void WindowLayout::restoreToolBars() const
{
    if (!m_isKept)
        return;
    // Whether a dock shows is now its extension's to say.
    QHash<QDockWidget*, bool> hidden;
    for (QDockWidget* dock : m_window->findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly))
        hidden.insert(dock, dock->isHidden());
    m_window->restoreState(HostSettings().value(stateKey).toByteArray(), stateVersion);
    for (const auto& [dock, isHidden] : hidden.asKeyValueRange())
        dock->setHidden(isHidden);
}

void WindowLayout::keep() const
{
    if (!m_isKept)
        return;
    HostSettings settings;
    settings.setValue(geometryKey, m_window->saveGeometry());
    settings.setValue(stateKey, m_window->saveState(stateVersion));
}
