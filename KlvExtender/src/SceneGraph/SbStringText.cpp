#include <KlvExtender/SceneGraph/SbStringText.h>

#include <string>
#include <string_view>

namespace {

/// Lone surrogates from here on stand for single bytes that are no valid UTF-8.
constexpr char32_t FirstByteMark = 0xdc00;

struct Character
{
    char32_t code;
    std::size_t length;
};

/// The character at the beginning of a text, or its first byte, marked, when there is no valid one.
Character firstCharacter(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const Character invalid{FirstByteMark + byte(0), 1};
    if (byte(0) < 0x80)
        return {byte(0), 1};
    const std::size_t length = byte(0) >= 0xf0 ? 4 : byte(0) >= 0xe0 ? 3 : 2;
    if (byte(0) < 0xc2 || byte(0) > 0xf4 || text.size() < length)
        return invalid;
    char32_t code = byte(0) & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0) != 0x80)
            return invalid;
        code = code << 6 | (byte(i) & 0x3fu);
    }
    const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    return overlong || QChar::isSurrogate(code) || code > QChar::LastValidCodePoint ? invalid
                                                                                    : Character{code, length};
}

} // namespace

QString toUtf16(const SbString& string)
{
    std::string_view rest(string.getString(), static_cast<std::size_t>(string.getLength()));
    QString text;
    text.reserve(static_cast<qsizetype>(rest.size()));
    while (!rest.empty()) {
        const Character character = firstCharacter(rest);
        text += QStringView(QChar::fromUcs4(character.code));
        rest.remove_prefix(character.length);
    }
    return text;
}

SbString fromUtf16(const QString& text)
{
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit == 0)
            continue;
        if (unit >= FirstByteMark + 0x80 && unit <= FirstByteMark + 0xff) {
            bytes += static_cast<char>(unit - FirstByteMark);
            continue;
        }
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const QByteArray utf8 = QStringView(text).mid(i, pair ? 2 : 1).toUtf8();
        bytes.append(utf8.constData(), static_cast<std::size_t>(utf8.size()));
        i += pair ? 1 : 0;
    }
    return SbString(bytes.c_str());
}

QByteArray toLatin1(const SbString& string)
{
    return toUtf16(string).toLatin1();
}

SbString fromLatin1(const QByteArray& bytes)
{
    return fromUtf16(QString::fromLatin1(bytes.constData()));
}

void makeNull(SbString& string)
{
    string.makeEmpty();
}
