#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <Inventor/SbString.h>

#include <QList>

class KlvExtension;

/// What a plug-in module hands to the host: a name and a list of extensions.
///
/// A module exports two functions with C linkage: `KlvPlugin* loadPlugin()`, which makes the plug-in object,
/// and `void unloadPlugin()`, which deletes it. The object derives from this class, registers its extensions
/// in `load()` and then calls `KlvPlugin::load()`.
class KLV_EXTENDER_EXPORT KlvPlugin
{
public:
    KlvPlugin();

    /// Loads every registered extension, in the order of registration.
    virtual void load();
    /// Unloads every registered extension, in reverse order, and forgets them.
    virtual void unload();

    virtual ~KlvPlugin();

    KlvPlugin(const KlvPlugin&) = delete;
    KlvPlugin& operator=(const KlvPlugin&) = delete;

    /// Registers an extension. Takes no ownership: the extension lives at least until `unload()`. Null and an
    /// extension that is registered already are ignored.
    void addExtension(KlvExtension* extension);

    /// The registered extensions in the order of registration.
    const QList<KlvExtension*>& getExtensions() const { return m_extensions; }

    const SbString& getName() const { return m_name; }
    const SbString& getDescription() const { return m_description; }
    const SbString& getAuthor() const { return m_author; }
    const SbString& getVersion() const { return m_version; }

protected:
    SbString m_name;
    SbString m_description;
    SbString m_author;
    SbString m_version;

private:
    QList<KlvExtension*> m_extensions;
};
