#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

#include <memory>
#include <vector>

class KlvExtension;
class KlvProfileSetting;

/// A named choice of extensions: those with a setting are active while the profile is.
class KLV_EXTENDER_EXPORT KlvProfile
{
public:
    explicit KlvProfile(const SbString& name);
    ~KlvProfile();

    KlvProfile(const KlvProfile&) = delete;
    KlvProfile& operator=(const KlvProfile&) = delete;

    const SbString& getName() const { return m_name; }

    /// Makes the extension part of the profile and gives its setting, which the profile owns; the setting
    /// that exists when it is part of it already. Takes effect when the profile is next made active. Null
    /// gives null.
    KlvProfileSetting* addSetting(KlvExtension* extension);
    /// The extension's setting, or null when the profile leaves it out.
    KlvProfileSetting* getSetting(const KlvExtension* extension) const;
    /// Forgets an extension altogether: its setting and the control that others have over it.
    void forgetExtension(const KlvExtension* extension);

private:
    friend class KlvPluginsManager; // renames

    SbString m_name;
    std::vector<std::unique_ptr<KlvProfileSetting>> m_settings;
};
