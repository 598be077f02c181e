#pragma once

#include "ProfileDescription.h"

#include <QCoreApplication>
#include <QJsonObject>

#include <optional>

/// Profiles as they stand in the user's file:
///
///     { "name": "Mine", "rule": "everything",
///       "extensions": [ { "plugin": "KlvDefaults", "extension": "Console", "active": false } ],
///       "withheld": [ { "dock": { "plugin": …, "extension": … }, "editor": { "plugin": …, "extension": … } }
///       ] }
class ProfileJson
{
    Q_DECLARE_TR_FUNCTIONS(ProfileJson)

public:
    static QJsonObject write(const ProfileDescription& profile);

    /// Reads one; nothing when it cannot be made out at all. What is damaged or unknown in it is left out.
    /// Each such thing appends one sentence to `problems`.
    static std::optional<ProfileDescription> read(const QJsonValue& value, QStringList& problems);
};
