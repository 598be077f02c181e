#pragma once

#include <KlvExtender/KlvExtenderExport.h>

#include <QList>

class KlvExtension;

/// What one profile says of one extension: that it is active, and which extensions it controls (a dock, its
/// editors). Owned by its profile; it owns no extension.
class KLV_EXTENDER_EXPORT KlvProfileSetting
{
public:
    explicit KlvProfileSetting(KlvExtension* extension);

    /// The extension that the setting is about.
    KlvExtension* getExtension() const { return m_extension; }

    /// Lets the extension control another one. Null and one that is controlled already are ignored.
    void addControlledExtension(KlvExtension* extension);
    /// Takes control of one away; one that is not controlled is ignored.
    void removeControlledExtension(const KlvExtension* extension);

    /// The controlled extensions, each once, in the order in which the plug-ins manager registered them;
    /// those it does not know come last, in the order of their addition.
    const QList<KlvExtension*>& getControlledExtensions() const { return m_controlled; }

private:
    KlvExtension* m_extension;
    QList<KlvExtension*> m_controlled;
};
