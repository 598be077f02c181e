#include "Models/FieldPreview.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/SbName.h>
#include <Inventor/SoPath.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/fields/SoFields.h>
#include <Inventor/fields/SoSFImage3.h>
#include <Inventor/nodes/SoNode.h>

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <charconv>

namespace {

constexpr qsizetype longest = 100;
constexpr int fewElements = 10;

QString tr(const char* text)
{
    return QCoreApplication::translate("FieldPreview", text);
}

QString shortened(QString line)
{
    if (line.size() <= longest)
        return line;
    qsizetype end = longest - 1;
    if (line.at(end - 1).isHighSurrogate())
        --end;
    return line.left(end) + QChar(0x2026);
}

/// Names may be Latin-1.
QString plain(const SbString& text)
{
    const QByteArray bytes(text.getString());
    const QString line = QString::fromUtf8(bytes);
    return (line.toUtf8() == bytes ? line : QString::fromLatin1(bytes)).simplified();
}

/// Coin prints a float with a digit more than it holds, as in 0.079999998; this gives the shortest text for
/// it.
QString floats(const SbString& text)
{
    QStringList words = plain(text).split(QLatin1Char(' '));
    for (QString& word : words) {
        bool isNumber = false;
        const float value = word.toFloat(&isNumber);
        char digits[32];
        if (isNumber)
            word = QString::fromLatin1(digits, std::to_chars(digits, std::end(digits), value).ptr - digits);
    }
    return words.join(QLatin1Char(' '));
}

QString quoted(const SbString& string)
{
    // Enough bytes for a line too long, whatever the characters, so that the cut does not show. Coin's own
    // length runs through the whole text.
    constexpr std::size_t enough = 4 * (longest + 1);
    const int length = static_cast<int>(qstrnlen(string.getString(), enough));
    QString text = length > 0 ? toUtf16(SbString(string.getString(), 0, length - 1)) : QString();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\n'), QChar(0x23CE));
    text.replace(QLatin1Char('\r'), QChar(0x23CE));
    text.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString pathLabel(const SoPath* path)
{
    return path ? tr("path of %1 nodes").arg(path->getLength()) : tr("none");
}

QString componentsLabel(int components)
{
    return components == 1 ? tr("1 component") : tr("%1 components").arg(components);
}

/// The name of a value of an enumeration. Works for the lists of single-value and multi-value fields.
template <typename Field>
QString enumText(Field& field, int value)
{
    for (int i = 0; i < field.getNumEnums(); ++i) {
        SbName name;
        if (field.getEnum(i, name) == value)
            return QString::fromUtf8(name.getString());
    }
    return tr("%1 (not in the list)").arg(value);
}

/// The names of the set bits as Coin prints them, "(A | B)", and after them the bits that have no name.
template <typename Field>
QString maskText(Field& field, int value, const SbString& known)
{
    QString text = plain(known);
    text.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
    int unnamed = value;
    for (int i = 0; i < field.getNumEnums(); ++i) {
        SbName name;
        unnamed &= ~field.getEnum(i, name);
    }
    if (unnamed)
        text += (text.isEmpty() ? QString() : QStringLiteral(" | ")) +
                QStringLiteral("0x%1").arg(static_cast<unsigned>(unnamed), 0, 16);
    return text.isEmpty() ? tr("none") : text;
}

// The whole value of a single-value field.

QString textPreview(SoField& field)
{
    SbString text;
    field.get(text);
    return plain(text);
}

QString floatPreview(SoField& field)
{
    SbString text;
    field.get(text);
    return floats(text);
}

QString stringPreview(SoField& field)
{
    return quoted(static_cast<SoSFString&>(field).getValue());
}

template <typename Field>
QString objectPreview(SoField& field)
{
    return objectLabel(static_cast<Field&>(field).getValue());
}

QString pathPreview(SoField& field)
{
    return pathLabel(static_cast<SoSFPath&>(field).getValue());
}

QString imagePreview(SoField& field)
{
    SbVec2s size;
    int components = 0;
    static_cast<SoSFImage&>(field).getValue(size, components);
    return size[0] * size[1] == 0
               ? tr("no image")
               : QStringLiteral("%1 x %2, %3").arg(size[0]).arg(size[1]).arg(componentsLabel(components));
}

QString volumePreview(SoField& field)
{
    SbVec3s size;
    int components = 0;
    static_cast<SoSFImage3&>(field).getValue(size, components);
    return size[0] * size[1] * size[2] == 0 ? tr("no image")
                                            : QStringLiteral("%1 x %2 x %3, %4")
                                                  .arg(size[0])
                                                  .arg(size[1])
                                                  .arg(size[2])
                                                  .arg(componentsLabel(components));
}

QString enumPreview(SoField& field)
{
    auto& single = static_cast<SoSFEnum&>(field);
    return enumText(single, single.getValue());
}

QString maskPreview(SoField& field)
{
    SbString known;
    field.get(known);
    auto& single = static_cast<SoSFBitMask&>(field);
    return maskText(single, single.getValue(), known);
}

// One element of a multi-value field.

using ElementPreview = QString (*)(SoMField&, int);

QString textElement(SoMField& field, int index)
{
    SbString text;
    field.get1(index, text);
    return plain(text);
}

QString floatElement(SoMField& field, int index)
{
    SbString text;
    field.get1(index, text);
    return floats(text);
}

QString stringElement(SoMField& field, int index)
{
    return quoted(static_cast<SoMFString&>(field)[index]);
}

template <typename Field>
QString objectElement(SoMField& field, int index)
{
    return objectLabel(static_cast<Field&>(field)[index]);
}

QString pathElement(SoMField& field, int index)
{
    return pathLabel(static_cast<SoMFPath&>(field)[index]);
}

QString enumElement(SoMField& field, int index)
{
    auto& multiple = static_cast<SoMFEnum&>(field);
    return enumText(multiple, multiple[index]);
}

QString maskElement(SoMField& field, int index)
{
    SbString known;
    field.get1(index, known);
    auto& multiple = static_cast<SoMFBitMask&>(field);
    return maskText(multiple, multiple[index], known);
}

template <ElementPreview element>
QString elementsPreview(SoField& field)
{
    auto& multiple = static_cast<SoMField&>(field);
    const int count = multiple.getNum();
    if (count == 0)
        return tr("no values");
    if (count == 1)
        return element(multiple, 0);
    QString line = tr("%1 values: ").arg(count);
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            line += QLatin1String(", ");
        if (i == fewElements || line.size() > longest)
            return line + QChar(0x2026);
        line += element(multiple, i);
    }
    return line;
}

struct Kind
{
    SoType (*type)();
    QString (*preview)(SoField&);
};

/// The first kind that a field's type derives from is its own.
constexpr Kind kinds[] = {
    {SoSFString::getClassTypeId, stringPreview},
    {SoSFBitMask::getClassTypeId, maskPreview},
    {SoSFEnum::getClassTypeId, enumPreview},
    {SoSFNode::getClassTypeId, objectPreview<SoSFNode>},
    {SoSFEngine::getClassTypeId, objectPreview<SoSFEngine>},
    {SoSFPath::getClassTypeId, pathPreview},
    {SoSFImage::getClassTypeId, imagePreview},
    {SoSFImage3::getClassTypeId, volumePreview},
    {SoMFString::getClassTypeId, elementsPreview<stringElement>},
    {SoMFBitMask::getClassTypeId, elementsPreview<maskElement>},
    {SoMFEnum::getClassTypeId, elementsPreview<enumElement>},
    {SoMFNode::getClassTypeId, elementsPreview<objectElement<SoMFNode>>},
    {SoMFEngine::getClassTypeId, elementsPreview<objectElement<SoMFEngine>>},
    {SoMFPath::getClassTypeId, elementsPreview<pathElement>},
    {SoSFFloat::getClassTypeId, floatPreview},
    {SoMFFloat::getClassTypeId, elementsPreview<floatElement>},
    {SoSFVec2f::getClassTypeId, floatPreview},
    {SoMFVec2f::getClassTypeId, elementsPreview<floatElement>},
    {SoSFVec3f::getClassTypeId, floatPreview},
    {SoMFVec3f::getClassTypeId, elementsPreview<floatElement>},
    {SoSFVec4f::getClassTypeId, floatPreview},
    {SoMFVec4f::getClassTypeId, elementsPreview<floatElement>},
    {SoSFColor::getClassTypeId, floatPreview},
    {SoMFColor::getClassTypeId, elementsPreview<floatElement>},
    {SoSFColorRGBA::getClassTypeId, floatPreview},
    {SoMFColorRGBA::getClassTypeId, elementsPreview<floatElement>},
    {SoSFRotation::getClassTypeId, floatPreview},
    {SoMFRotation::getClassTypeId, elementsPreview<floatElement>},
    {SoSFPlane::getClassTypeId, floatPreview},
    {SoMFPlane::getClassTypeId, elementsPreview<floatElement>},
    {SoSFMatrix::getClassTypeId, floatPreview},
    {SoMFMatrix::getClassTypeId, elementsPreview<floatElement>},
    {SoSFBox2f::getClassTypeId, floatPreview},
    {SoSFBox3f::getClassTypeId, floatPreview},
    {SoMField::getClassTypeId, elementsPreview<textElement>},
    {SoField::getClassTypeId, textPreview},
};

} // namespace

QString fieldPreview(SoField& field)
{
    const SoType type = field.getTypeId();
    const auto* kind = std::find_if(std::begin(kinds), std::end(kinds),
                                    [type](const Kind& each) { return type.isDerivedFrom(each.type()); });
    return shortened(kind->preview(field));
}
