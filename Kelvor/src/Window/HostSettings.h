#pragma once

#include <QSettings>

/// The inspector's own settings in the user's configuration folder, also inside an application that embeds
/// it.
class HostSettings : public QSettings
{
public:
    HostSettings()
        : QSettings(QStringLiteral("Kelvor"), QStringLiteral("kelvor"))
    {
    }
};
