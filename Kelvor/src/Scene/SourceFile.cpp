#include "SourceFile.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

constexpr qint64 headerLimit = 1000; // bytes; a header is a short line
constexpr qint64 chunk = 1 << 16;    // bytes

/// Whether there is a comment from where the file is, which is outside of a string.
bool hasComments(QFile& file)
{
    bool isString = false;
    bool isEscaped = false;
    for (QByteArray text = file.read(chunk); !text.isEmpty(); text = file.read(chunk)) {
        for (const char letter : std::as_const(text)) {
            if (letter == '#' && !isString)
                return true;
            if (letter == '"' && !isEscaped)
                isString = !isString;
            isEscaped = isString && letter == '\\' && !isEscaped;
        }
    }
    return false;
}

} // namespace

SourceFile::SourceFile(const QString& name)
    : m_name(name)
    , m_modified(QFileInfo(name).lastModified())
    , m_size(QFileInfo(name).size())
{
}

SourceFile::Loss SourceFile::lossWhenReplaced() const
{
    QFile file(m_name);
    if (!file.open(QIODevice::ReadOnly))
        return Loss::None;
    const SourceFile now(m_name);
    if (now.m_modified != m_modified || now.m_size != m_size)
        return Loss::Changes;
    if (file.readLine(headerLimit).contains("binary"))
        return Loss::Binary;
    return hasComments(file) ? Loss::Comments : Loss::None;
}
