#include "ExtensionInfo.h"

#include <KlvExtender/KlvEditor.h>
#include <KlvExtender/KlvPlugin.h>
#include <KlvExtender/KlvPluginsManager.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>

#include <QFileInfo>
#include <QMetaMethod>

#include <tuple>

namespace {

QFlags<ExtensionInfo::Subject> followedSelections(const QMetaObject* type)
{
    QFlags<ExtensionInfo::Subject> subjects;
    for (int i = 0; i < type->methodCount(); ++i) {
        const QMetaMethod method = type->method(i);
        if (method.methodType() != QMetaMethod::Slot || method.parameterCount() != 1)
            continue;
        const QByteArray selected = method.parameterTypeName(0);
        if (selected == "SoField*")
            subjects |= ExtensionInfo::Fields;
        else if (selected == "SoFieldContainer*")
            subjects |= ExtensionInfo::Nodes;
    }
    return subjects;
}

ExtensionInfo describe(KlvExtension* extension, const QString& plugin)
{
    const QString name = toUtf16(extension->getName());
    const QMetaObject* type = extension->metaObject();
    ExtensionInfo info;
    info.extension = extension;
    info.id = {plugin, name.isEmpty() ? QString::fromLatin1(type->className()) : name};
    if (auto* editor = qobject_cast<KlvEditor*>(extension)) {
        const SoType handled = editor->getHandledType();
        info.isEditor = true;
        info.subjects.setFlag(ExtensionInfo::Fields, handled.isDerivedFrom(SoField::getClassTypeId()));
        info.subjects.setFlag(ExtensionInfo::Nodes,
                              handled.isDerivedFrom(SoFieldContainer::getClassTypeId()));
        info.handledType = QString::fromUtf8(handled.getName().getString());
    } else {
        info.subjects = followedSelections(type);
    }
    return info;
}

} // namespace

bool ExtensionId::operator<(const ExtensionId& other) const
{
    return std::tie(plugin, extension) < std::tie(other.plugin, other.extension);
}

QList<ExtensionInfo> ExtensionInfo::all()
{
    const KlvPluginsManager* manager = KlvPluginsManager::getInstance();
    QList<ExtensionInfo> all;
    for (const KlvPlugin* plugin : manager->getPlugins()) {
        QString name = toUtf16(plugin->getName());
        if (name.isEmpty())
            name = QFileInfo(manager->getPluginFile(plugin)).completeBaseName();
        for (KlvExtension* extension : plugin->getExtensions())
            all.append(describe(extension, name));
    }
    return all;
}
