#include "RememberedPlugins.h"

#include "HostSettings.h"

#include <QFileInfo>

namespace {

const QString filesKey = QStringLiteral("plugins/files");
const QString defaultKey = QStringLiteral("plugins/default");

} // namespace

QStringList RememberedPlugins::files() const
{
    return HostSettings().value(filesKey).toStringList();
}

void RememberedPlugins::add(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QStringList list = files();
    if (!list.contains(path))
        HostSettings().setValue(filesKey, list << path);
}

void RememberedPlugins::remove(const QString& file)
{
    QStringList list = files();
    if (list.removeAll(QFileInfo(file).absoluteFilePath()))
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
