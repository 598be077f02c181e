#include "SceneReader.h"

#include "ReadErrors.h"
#include "SceneNesting.h"

#include <Inventor/nodes/SoSeparator.h>

#include <QFile>
#include <QFileInfo>

namespace {

/// Why the operating system does not let us read the file; empty when it does.
QString obstacle(const QString& name)
{
    const QFileInfo info(name);
    if (!info.exists())
        return SceneReader::tr("there is no such file");
    if (info.isDir())
        return SceneReader::tr("it is a folder");
    if (!info.isFile())
        return SceneReader::tr("it is no regular file");
    if (info.size() == 0)
        return SceneReader::tr("it is empty");
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

/// How many bytes Coin will have read in the end, or 0: a compressed file holds only the last four bytes of
/// its size.
qint64 unpackedSize(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) && file.peek(2) == QByteArray("\x1f\x8b") ? 0 : file.size();
}

} // namespace

SceneReader::Result SceneReader::read(const QString& file, const SceneInput::Progress& progress)
{
    Result result;
    result.reason = obstacle(file);
    if (!result.reason.isEmpty())
        return result;

    SceneInput input(progress, unpackedSize(file));
    // What follows from stopping is no fault of the file's.
    ReadErrors collector([&input] { return !input.hasStopped(); });
    if (!input.openFile(QFile::encodeName(file).constData())) {
        result.reason = collector.errors.value(0, tr("it cannot be opened"));
        return result;
    }
    const bool hasHeader = input.isValidFile();
    bool readToEnd = false;
    SoSeparator* const scene = input.readScene(&readToEnd);
    if (input.hasStopped()) {
        if (input.isTooDeep())
            result.reason = tr("it is nested too deeply");
        return result;
    }
    if (scene && !readToEnd)
        collector.errors << tr("The file goes on after the end of the scene; the rest was left out");

    if (SoNode* const node = scene ? SceneNesting::endless(scene) : nullptr) {
        result.reason = tr("a node in it contains itself, or it is nested too deeply");
        scene->ref();
        // Nodes that hold each other would never be released.
        if (node->isOfType(SoGroup::getClassTypeId()))
            static_cast<SoGroup*>(node)->removeAllChildren();
        scene->unref();
        return result;
    }
    if (scene && (scene->getNumChildren() > 0 || collector.errors.isEmpty())) {
        result.root = scene;
        result.warnings = collector.errors;
        return result;
    }
    if (scene) {
        scene->ref();
        scene->unref();
    }
    result.reason = hasHeader ? collector.errors.value(0, tr("it holds no scene"))
                              : tr("it is not an Inventor or VRML file");
    return result;
}
