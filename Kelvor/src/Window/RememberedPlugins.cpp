#include "RememberedPlugins.h"

#include "HostSettings.h"

#include <QFileInfo>

namespace {

const QString filesKey = QStringLiteral("plugins/files");
const QString defaultKey = QStringLiteral("plugins/default");

/// One and the same for a file, whatever links lead to it.
QString pathOf(const QString& file)
{
    const QFileInfo info(file);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

} // namespace

QStringList RememberedPlugins::files() const
{
    return HostSettings().value(filesKey).toStringList();
}

void RememberedPlugins::add(const QString& file)
{
    const QString path = pathOf(file);
    QStringList list = files();
    if (!list.contains(path))
        HostSettings().setValue(filesKey, list << path);
}

void RememberedPlugins::remove(const QString& file)
{
    QStringList list = files();
    const QString path = pathOf(file);
    if (list.removeIf([&path](const QString& one) { return pathOf(one) == path; }))
        HostSettings().setValue(filesKey, list);
}

bool RememberedPlugins::wantsDefault() const
{
    return HostSettings().value(defaultKey, true).toBool();
}

void RememberedPlugins::setWantsDefault(bool wanted)
{
    HostSettings().setValue(defaultKey, wanted);
}
