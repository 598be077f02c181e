#include "ProfileDescription.h"

#include <KlvExtender/KlvProfile.h>
#include <KlvExtender/KlvProfileSetting.h>

#include <algorithm>
#include <iterator>

namespace {

struct Rule
{
    const char* name;
    bool (*includes)(const ExtensionInfo& info);
};

const Rule rules[] = {
    {"everything", [](const ExtensionInfo&) { return true; }},
    {"editor docks", [](const ExtensionInfo& info) { return info.isEditorDock(); }},
    {"console",
     [](const ExtensionInfo& info) {
         return info.id == ExtensionId{QStringLiteral("KlvDefaults"), QStringLiteral("Console")};
     }},
    {"nothing", [](const ExtensionInfo&) { return false; }},
};

bool ruleIncludes(const QString& name, const ExtensionInfo& info)
{
    const auto rule = std::find_if(std::begin(rules), std::end(rules),
                                   [&name](const Rule& one) { return name == QLatin1String(one.name); });
    return rule != std::end(rules) && rule->includes(info);
}

} // namespace

QStringList ProfileDescription::rules()
{
    QStringList names;
    for (const Rule& rule : ::rules)
        names.append(QString::fromLatin1(rule.name));
    return names;
}

QList<ProfileDescription> ProfileDescription::shipped()
{
    // Not translated: they are also written on the command line and in the user's file.
    return {{QStringLiteral("Default"), QStringLiteral("everything"), {}, {}, true},
            {QStringLiteral("Fields"), QStringLiteral("editor docks"), {}, {}, true},
            {QStringLiteral("Console only"), QStringLiteral("console"), {}, {}, true}};
}

void ProfileDescription::restore()
{
    choices.clear();
    withheld.clear();
}

bool ProfileDescription::isActive(const ExtensionInfo& info) const
{
    const auto choice = choices.find(info.id);
    return choice == choices.end() ? ruleIncludes(rule, info) : choice->second;
}

void ProfileDescription::setActive(const ExtensionInfo& info, bool active)
{
    if (active == ruleIncludes(rule, info))
        choices.erase(info.id);
    else
        choices[info.id] = active;
}

bool ProfileDescription::controls(const ExtensionId& dock, const ExtensionId& editor) const
{
    return !withheld.contains({dock, editor});
}

void ProfileDescription::setControls(const ExtensionId& dock, const ExtensionId& editor, bool controls)
{
    if (controls)
        withheld.erase({dock, editor});
    else
        withheld.insert({dock, editor});
}

void ProfileDescription::applyTo(KlvProfile* profile) const
{
    const QList<ExtensionInfo> all = ExtensionInfo::all();
    for (const ExtensionInfo& info : all) {
        // Editors are put to work by the dock that shows them.
        if (info.isEditor)
            continue;
        if (!isActive(info)) {
            profile->forgetExtension(info.extension);
            continue;
        }
        KlvProfileSetting* setting = profile->addSetting(info.extension);
        for (const ExtensionInfo& other : all) {
            if (!other.isEditor)
                continue;
            if (controls(info.id, other.id))
                setting->addControlledExtension(other.extension);
            else
                setting->removeControlledExtension(other.extension);
        }
    }
}
