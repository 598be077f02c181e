#include "ProfileJson.h"

#include <QJsonArray>

namespace {

const QLatin1String nameKey("name");
const QLatin1String ruleKey("rule");
const QLatin1String extensionsKey("extensions");
const QLatin1String withheldKey("withheld");
const QLatin1String pluginKey("plugin");
const QLatin1String extensionKey("extension");
const QLatin1String activeKey("active");
const QLatin1String dockKey("dock");
const QLatin1String editorKey("editor");

QJsonObject writeId(const ExtensionId& id)
{
    return {{pluginKey, id.plugin}, {extensionKey, id.extension}};
}

std::optional<ExtensionId> readId(const QJsonValue& value)
{
    const ExtensionId id{value[pluginKey].toString(), value[extensionKey].toString()};
    return id.plugin.isEmpty() || id.extension.isEmpty() ? std::nullopt : std::optional(id);
}

bool readChoice(const QJsonValue& entry, ProfileDescription& profile)
{
    const std::optional<ExtensionId> id = readId(entry);
    const QJsonValue active = entry[activeKey];
    if (!id || !active.isBool())
        return false;
    profile.choices[*id] = active.toBool();
    return true;
}

bool readWithheld(const QJsonValue& entry, ProfileDescription& profile)
{
    const std::optional<ExtensionId> dock = readId(entry[dockKey]);
    const std::optional<ExtensionId> editor = readId(entry[editorKey]);
    if (!dock || !editor)
        return false;
    profile.withheld.insert({*dock, *editor});
    return true;
}

struct List
{
    QLatin1String key;
    bool (*read)(const QJsonValue& entry, ProfileDescription& profile);
};
const List lists[] = {{extensionsKey, readChoice}, {withheldKey, readWithheld}};

} // namespace

QJsonObject ProfileJson::write(const ProfileDescription& profile)
{
    QJsonArray extensions;
    for (const auto& [id, active] : profile.choices) {
        QJsonObject entry = writeId(id);
        entry[activeKey] = active;
        extensions.append(entry);
    }
    QJsonArray withheld;
    for (const auto& [dock, editor] : profile.withheld)
        withheld.append(QJsonObject{{dockKey, writeId(dock)}, {editorKey, writeId(editor)}});
    return {{nameKey, profile.name},
            {ruleKey, profile.rule},
            {extensionsKey, extensions},
            {withheldKey, withheld}};
}

std::optional<ProfileDescription> ProfileJson::read(const QJsonValue& value, QStringList& problems)
{
    ProfileDescription profile{value[nameKey].toString().trimmed(), value[ruleKey].toString(), {}, {}, false};
    if (profile.name.isEmpty()) {
        problems << tr("A profile without a name is skipped in the file of profiles.");
        return std::nullopt;
    }
    if (!ProfileDescription::rules().contains(profile.rule)) {
        problems << tr("The profile \"%1\" is skipped: its rule \"%2\" is unknown.")
                        .arg(profile.name, profile.rule);
        return std::nullopt;
    }
    for (const List& list : lists) {
        const QJsonValue entries = value[list.key];
        if (!entries.isArray() && !entries.isUndefined())
            problems
                << tr("In the profile \"%1\", \"%2\" is skipped: it is no list.").arg(profile.name, list.key);
        const QJsonArray array = entries.toArray();
        for (qsizetype i = 0; i < array.size(); ++i) {
            if (!list.read(array.at(i), profile))
                problems << tr("In the profile \"%1\", entry %2 of \"%3\" is skipped: it is damaged.")
                                .arg(profile.name, QString::number(i + 1), list.key);
        }
    }
    for (const QString& key : value.toObject().keys()) {
        if (!QStringList{nameKey, ruleKey, extensionsKey, withheldKey}.contains(key))
            problems << tr("In the profile \"%1\", \"%2\" is skipped: it is unknown.").arg(profile.name, key);
    }
    return profile;
}
