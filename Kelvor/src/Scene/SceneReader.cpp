#include "SceneReader.h"

#include "SceneNesting.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
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

/// Reads all nodes of a file like `SoDB::readAll()`, which tells only once in a process that a file goes on
/// after the last node it could read.
class SceneInput : public SoInput
{
public:
    SoSeparator* readScene(bool* readToEnd)
    {
        SoSeparator* const all = new SoSeparator;
        all->ref();
        SoNode* node = nullptr;
        bool good = true;
        do {
            good = SoDB::read(this, node);
            if (good && node)
                all->addChild(node);
        } while (good && node && skipWhiteSpace());
        *readToEnd = eof();
        popFile(); // connects the file's routes

        SoSeparator* scene = nullptr;
        if (good) {
            const bool single =
                all->getNumChildren() == 1 && all->getChild(0)->isOfType(SoSeparator::getClassTypeId());
            scene = single ? static_cast<SoSeparator*>(all->getChild(0)) : all;
            scene->ref();
        }
        all->unref();
        if (scene)
            scene->unrefNoDelete();
        return scene;
    }
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

} // namespace

SceneReader::Result SceneReader::read(const QString& file)
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
    SceneInput input;
    if (!input.openFile(QFile::encodeName(file).constData())) {
        result.reason = collector.errors.value(0, tr("it cannot be opened"));
        return result;
    }
    const bool hasHeader = input.isValidFile();
    bool readToEnd = false;
    SoSeparator* const scene = input.readScene(&readToEnd);
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
