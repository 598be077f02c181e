#pragma once

#include <QFlags>
#include <QList>
#include <QString>

class KlvExtension;

/// Names an extension so that it is found again in another run, also while its plug-in is not loaded.
struct ExtensionId
{
    QString plugin;    ///< the plug-in's name, or that of its file where it has none
    QString extension; ///< the extension's name, or its class where it has none

    bool operator==(const ExtensionId&) const = default;
    bool operator<(const ExtensionId& other) const;
};

/// What the host can tell of a loaded extension. Valid until plug-ins are loaded or unloaded.
struct ExtensionInfo
{
    enum Subject
    {
        Fields = 1,
        Nodes = 2
    };

    KlvExtension* extension = nullptr;
    ExtensionId id;
    bool isEditor = false;
    /// What an editor edits; what selection any other extension follows. The latter is told by its slots: one
    /// that takes nothing but a `SoField*` or a `SoFieldContainer*`.
    QFlags<Subject> subjects;
    /// The type that an editor handles, empty for other extensions.
    QString handledType;

    /// True for an extension that shows editors: it is none itself and follows the selection.
    bool isEditorDock() const { return !isEditor && subjects; }

    /// All loaded extensions in the order of their registration.
    static QList<ExtensionInfo> all();
};
