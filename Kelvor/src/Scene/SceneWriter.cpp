#include "SceneWriter.h"

#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoProto.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QFileInfo>
#include <QSaveFile>

#include <cstdlib>
#include <memory>

namespace {

/// Whether the scene is what a file of that VRML version gives: its nodes below a plain separator.
bool isFrom(SoNode& root, SoNode::NodeType version)
{
    const SoChildList* const children = root.getChildren();
    if (root.getTypeId() != SoSeparator::getClassTypeId() || !root.hasDefaultValues() ||
        root.getName().getLength() > 0 || children->getLength() == 0)
        return false;
    for (int i = 0; i < children->getLength(); ++i)
        if ((*children)[i]->getNodeType() != version && !(*children)[i]->isOfType(SoProto::getClassTypeId()))
            return false;
    return true;
}

/// VRML 2 knows no separators: the children stand at the top of the file, and share what they reference.
void writeChildren(SoNode& root, SoOutput& output)
{
    SoWriteAction action(&output);
    const SoChildList& children = *root.getChildren();
    for (const SoOutput::Stage stage : {SoOutput::COUNT_REFS, SoOutput::WRITE}) {
        output.setStage(stage);
        for (int i = 0; i < children.getLength(); ++i)
            action.continueToApply(children[i]);
    }
    output.write('\n');
    output.resolveRoutes();
}

} // namespace

QString SceneWriter::write(SoNode& root, const QString& name)
{
    if (name.endsWith(QStringLiteral(".gz"), Qt::CaseInsensitive))
        return tr("compressed files are read but not written");
    if (QFileInfo(name).isDir())
        return tr("it is a folder");

    SoOutput output;
    output.setBuffer(std::malloc(1 << 16), 1 << 16, std::realloc);
    // Coin cannot read the prototypes of a VRML 2 scene again when they stand in an Inventor file.
    if (isFrom(root, SoNode::VRML2)) {
        output.setHeaderString("#VRML V2.0 utf8");
        writeChildren(root, output);
    } else {
        if (isFrom(root, SoNode::VRML1))
            output.setHeaderString("#VRML V1.0 ascii");
        SoWriteAction(&output).apply(&root);
    }

    void* text = nullptr;
    size_t size = 0;
    output.getBuffer(text, size);
    const std::unique_ptr<void, decltype(&std::free)> owner(text, std::free);

    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(static_cast<const char*>(text), static_cast<qint64>(size)) != static_cast<qint64>(size))
        return file.errorString();
    return file.commit() ? QString() : file.errorString();
}
