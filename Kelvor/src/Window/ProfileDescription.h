#pragma once

#include "ExtensionInfo.h"

#include <QStringList>

#include <map>
#include <set>
#include <utility>

class KlvProfile;

/// A profile in terms that outlive the plug-ins: a rule that says for any extension whether it is active, and
/// the user's choices that differ from it. Every extension controls every editor that is not withheld from
/// it.
///
/// The choices also hold for extensions whose plug-in is not loaded at the moment.
struct ProfileDescription
{
    QString name;
    QString rule; ///< one of `rules()`
    std::map<ExtensionId, bool> choices;
    std::set<std::pair<ExtensionId, ExtensionId>> withheld; ///< dock and editor
    bool isShipped = false;                                 ///< comes with the host

    /// The names of the rules: "everything", "editor docks", "console", "nothing".
    static QStringList rules();
    /// The profiles that come with the host, as they are shipped.
    static QList<ProfileDescription> shipped();

    /// True when choices were made beyond the rule.
    bool isChanged() const { return !choices.empty() || !withheld.empty(); }
    /// Drops all choices: what remains is the rule.
    void restore();

    bool isActive(const ExtensionInfo& info) const;
    void setActive(const ExtensionInfo& info, bool active);
    bool controls(const ExtensionId& dock, const ExtensionId& editor) const;
    void setControls(const ExtensionId& dock, const ExtensionId& editor, bool controls);

    /// Makes a profile of the manager say the same of all loaded extensions.
    void applyTo(KlvProfile* profile) const;
};
