#include "SceneReader.h"

#include "SceneNesting.h"

#include <Inventor/errors/SoReadError.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int maxErrors = 100;
constexpr int maxErrorLength = 300;

/// Coin's message without its prefix, on one line, with the place in brackets: "Unknown field … (line 4)".
QString readable(const SoError& error)
{
    static const QRegularExpression place(QStringLiteral("Occurred at (line|position)\\s+(\\d+) in .*"),
                                          QRegularExpression::DotMatchesEverythingOption);
    QString text = QString::fromUtf8(error.getDebugString().getString());
    const QRegularExpressionMatch found = place.match(text);
    if (found.hasMatch())
        text.truncate(found.capturedStart());
    text.remove(QStringLiteral("Coin read error: "));
    text = text.simplified();
    if (text.endsWith(u'.'))
        text.chop(1);
    if (text.size() > maxErrorLength)
        text = text.left(maxErrorLength) + u'…';
    if (found.hasMatch())
        text += QStringLiteral(" (%1 %2)").arg(found.captured(1), found.captured(2));
    return text;
}

/// Collects the read errors that are posted while it lives, beside the handler that was there.
class ErrorCollector
{
public:
    ErrorCollector()
        : m_callback(SoReadError::getHandlerCallback())
        , m_data(SoReadError::getHandlerData())
    {
        SoReadError::setHandlerCallback(collect, this);
    }
    ~ErrorCollector() { SoReadError::setHandlerCallback(m_callback, m_data); }
    ErrorCollector(const ErrorCollector&) = delete;
    ErrorCollector& operator=(const ErrorCollector&) = delete;

    QStringList errors;

private:
    static void collect(const SoError* error, void* data)
    {
        auto* collector = static_cast<ErrorCollector*>(data);
        if (collector->errors.size() < maxErrors)
            collector->errors << readable(*error);
        // Whoever shows errors gets them too; Coin's own handler would print what is told in a sentence here.
        if (collector->m_callback && collector->m_callback != Access::defaultHandler())
            collector->m_callback(error, collector->m_data);
    }

    struct Access : SoError
    {
        static SoErrorCB* defaultHandler() { return &SoError::defaultHandlerCB; }
    };

    SoErrorCB* m_callback;
    void* m_data;
};

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

    if (SceneNesting::isTooDeep(file)) {
        result.reason = tr("it is nested too deeply");
        return result;
    }
    ErrorCollector collector;
    SceneInput input(progress, unpackedSize(file));
    if (!input.openFile(QFile::encodeName(file).constData())) {
        result.reason = collector.errors.value(0, tr("it cannot be opened"));
        return result;
    }
    const bool hasHeader = input.isValidFile();
    bool readToEnd = false;
    SoSeparator* const scene = input.readScene(&readToEnd);
    if (input.isCancelled())
        return result;
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
