#include "SceneWriter.h"

#include "Models/SceneWalk.h"
#include "ReadErrors.h"
#include "StraySources.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFPath.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFPath.h>
#include <Inventor/fields/SoSFString.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoProto.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
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

/// Why Coin cannot write what a field holds so that it can be read again; empty when it can.
QString flaw(const SoField& field)
{
    const auto endsBadly = [](const SbString& text) {
        return text.getLength() > 0 && text[text.getLength() - 1] == '\\';
    };
    bool isBad = false;
    if (field.isOfType(SoSFString::getClassTypeId()))
        isBad = endsBadly(static_cast<const SoSFString&>(field).getValue());
    if (field.isOfType(SoMFString::getClassTypeId())) {
        const auto& list = static_cast<const SoMFString&>(field);
        const SbString* strings = list.getValues(0);
        isBad = std::any_of(strings, strings + list.getNum(), endsBadly);
    }
    if (isBad)
        return SceneWriter::tr("a string in %1 ends in a backslash, which the file cannot hold");
    // Of a path, the nodes along it would be written.
    if (field.isOfType(SoSFPath::getClassTypeId()) && static_cast<const SoSFPath&>(field).getValue())
        return SceneWriter::tr("%1 holds a path, which Coin cannot write");
    if (field.isOfType(SoMFPath::getClassTypeId()) && static_cast<const SoMFPath&>(field).getNum() > 0)
        return SceneWriter::tr("%1 holds paths, which Coin cannot write");
    return QString();
}

/// The same for all nodes of a scene, with the name of the field.
QString flaw(SoNode* root)
{
    SceneWalk walk(root, SceneWalk::Visits::EachNode);
    while (const SoNode* node = walk.next()) {
        const SoFieldData* data = node->getFieldData();
        if (!data || node->getNodeType() == SoNode::VRML2) // whose strings are written in another way
            continue;
        for (int i = 0; i < data->getNumFields(); ++i) {
            const SoField* field = data->getField(node, i);
            if (const QString reason = flaw(*field); !reason.isEmpty())
                return reason.arg(fieldLabel(*field));
        }
    }
    return QString();
}

/// Why a text would not be read again; empty when it would.
QString flaw(void* text, size_t size)
{
    const ReadErrors collector;
    SoInput input;
    input.setBuffer(text, size);
    SoSeparator* const again = SoDB::readAll(&input);
    if (!again)
        return collector.errors.value(0, SceneWriter::tr("Coin cannot read it"));
    again->ref();
    const StraySources sources(*again);
    again->unref();
    return QString();
}

} // namespace

QString SceneWriter::write(SoNode& root, const QString& name)
{
    for (const char* suffix : {".gz", ".wrz"})
        if (name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive))
            return tr("compressed files are read but not written");
    if (QFileInfo(name).isDir())
        return tr("it is a folder");

    if (const QString reason = flaw(&root); !reason.isEmpty())
        return reason;

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

    // Before what may be the only good file is replaced.
    if (const QString reason = flaw(text, size); !reason.isEmpty())
        return tr("it could not be read again (%1)").arg(reason);

    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(static_cast<const char*>(text), static_cast<qint64>(size)) != static_cast<qint64>(size))
        return file.errorString();
    return file.commit() ? QString() : file.errorString();
}
