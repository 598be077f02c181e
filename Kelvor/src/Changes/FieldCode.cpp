#include "Changes/FieldCode.h"

#include "Changes/CodeValue.h"
#include "Models/FieldPreview.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/SbName.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/fields/SoMFEngine.h>
#include <Inventor/fields/SoMFEnum.h>
#include <Inventor/fields/SoMFNode.h>
#include <Inventor/fields/SoMFPath.h>
#include <Inventor/fields/SoSFEngine.h>
#include <Inventor/fields/SoSFEnum.h>
#include <Inventor/fields/SoSFNode.h>
#include <Inventor/fields/SoSFPath.h>
#include <Inventor/lists/SoBaseList.h>
#include <Inventor/nodes/SoNode.h>

#include <QStringList>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

using CodeValue::Kind;

constexpr qsizetype widestLine = 100;

/// Nobody is told of what is read for a trial only.
class SilentReadErrors
{
public:
    SilentReadErrors()
    {
        SoReadError::setHandlerCallback([](const SoError*, void*) {}, nullptr);
    }
    ~SilentReadErrors() { SoReadError::setHandlerCallback(m_handler, m_data); }

    SilentReadErrors(const SilentReadErrors&) = delete;
    SilentReadErrors& operator=(const SilentReadErrors&) = delete;

private:
    SoErrorCB* m_handler = SoReadError::getHandlerCallback();
    void* m_data = SoReadError::getHandlerData();
};

/// Gives an enumeration the names of another one; does nothing for fields of other types.
template <class EnumField>
void copyNames(SoField& target, const SoField& source)
{
    if (!source.isOfType(EnumField::getClassTypeId()))
        return;
    const auto& enumeration = static_cast<const EnumField&>(source);
    std::vector<SbName> names(std::size_t(enumeration.getNumEnums()));
    std::vector<int> values;
    for (SbName& name : names)
        values.push_back(enumeration.getEnum(int(values.size()), name));
    if (!names.empty())
        static_cast<EnumField&>(target).setEnums(int(names.size()), values.data(), names.data());
}

/// True when a field like this one gets the same value from a text.
bool holds(const QByteArray& text, const SoField& field)
{
    if (!field.getTypeId().canCreateInstance())
        return false;
    const std::unique_ptr<SoField> trial(static_cast<SoField*>(field.getTypeId().createInstance()));
    copyNames<SoSFEnum>(*trial, field);
    copyNames<SoMFEnum>(*trial, field);
    const SilentReadErrors silent;
    return trial->set(text.constData()) && trial->isSame(field);
}

/// True for fields that refer to objects: their text makes other ones.
bool isReference(const SoField& field)
{
    const SoType types[] = {SoSFNode::getClassTypeId(),   SoMFNode::getClassTypeId(),
                            SoSFEngine::getClassTypeId(), SoMFEngine::getClassTypeId(),
                            SoSFPath::getClassTypeId(),   SoMFPath::getClassTypeId()};
    return std::any_of(std::begin(types), std::end(types),
                       [&field](SoType type) { return field.isOfType(type); });
}

/// The text that Coin prints for a field, where it tells the value.
std::optional<QByteArray> ownText(SoField& field)
{
    if (isReference(field))
        return std::nullopt;
    SbString text;
    field.get(text);
    const QByteArray bytes(text.getString());
    return !bytes.isEmpty() && holds(bytes, field) ? std::optional(bytes) : std::nullopt;
}

const SoMField* elementsOf(const SoField& field)
{
    return field.isOfType(SoMField::getClassTypeId()) ? static_cast<const SoMField*>(&field) : nullptr;
}

/// All values of a field with commas between them, in lines with an indentation where one does not take them.
QString listOf(const SoField& field, const Kind& kind, CodeLanguage language, const QString& indentation)
{
    QString lines;
    QString line;
    const int count = elementsOf(field)->getNum();
    for (int i = 0; i < count; ++i) {
        QString text = kind.text(field, i, language);
        if (i + 1 < count)
            text += QLatin1Char(',');
        if (!line.isEmpty() && line.size() + text.size() >= widestLine) {
            lines += indentation + line + QLatin1Char('\n');
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + text;
    }
    return lines + indentation + line + QLatin1Char('\n');
}

/// The name of the value of a single enumeration.
QString enumName(const SoField& field)
{
    if (field.getTypeId() != SoSFEnum::getClassTypeId())
        return QString();
    const auto& typed = static_cast<const SoSFEnum&>(field);
    for (int i = 0; i < typed.getNumEnums(); ++i) {
        SbName name;
        if (typed.getEnum(i, name) == typed.getValue())
            return CodeValue::quoted(name.getString());
    }
    return QString();
}

/// The arguments of a setter of one value. Those of vectors take their numbers one by one.
QString arguments(const Kind& kind, const QString& text)
{
    for (const char* const separable : {"SbVec", "SbColor", "SbRotation"}) {
        if (qstrncmp(kind.element, separable, qstrlen(separable)) == 0) {
            const auto begin = qsizetype(qstrlen(kind.element)) + 1;
            return text.mid(begin, text.size() - begin - 1);
        }
    }
    return text;
}

QString typedStatements(const SoField& field, const Kind& kind, const QString& member)
{
    const SoMField* elements = elementsOf(field);
    const int count = elements ? elements->getNum() : 1;
    if (count == 0)
        return member + QLatin1String("setNum(0);\n");
    if (count == 1)
        return QStringLiteral("%1setValue(%2);\n")
            .arg(member, arguments(kind, kind.text(field, 0, CodeLanguage::Cpp)));
    return QStringLiteral("{\n    const %1 values[] = {\n%2    };\n    %3setValues(0, %4, values);\n"
                          "    %3setNum(%4);\n}\n")
        .arg(QLatin1String(kind.element), listOf(field, kind, CodeLanguage::Cpp, QStringLiteral("        ")),
             member, QString::number(count));
}

/// What a field that refers to one object refers to, as an expression; empty where there is none.
template <class Field>
QString reference(const SoField& field)
{
    if (!field.isOfType(Field::getClassTypeId()))
        return QString();
    auto* object = static_cast<const Field&>(field).getValue();
    return object ? FieldCode::byName(object) : QStringLiteral("nullptr");
}

QString valueStatements(SoField& field, const QString& member)
{
    if (const QString name = enumName(field); !name.isEmpty())
        return QStringLiteral("%1setValue(%2);\n").arg(member, name);
    const Kind* kind = CodeValue::kindOf(field);
    const bool isEnum =
        field.isOfType(SoSFEnum::getClassTypeId()) || field.isOfType(SoMFEnum::getClassTypeId());
    if (kind && !isEnum)
        return typedStatements(field, *kind, member);
    for (const QString& object : {reference<SoSFNode>(field), reference<SoSFEngine>(field)})
        if (!object.isEmpty())
            return QStringLiteral("%1setValue(%2);\n").arg(member, object);
    if (elementsOf(field) && elementsOf(field)->getNum() == 0)
        return member + QLatin1String("setNum(0);\n");
    if (const auto text = ownText(field))
        return QStringLiteral("%1set(%2);\n").arg(member, CodeValue::quoted(text->constData()));
    if (kind)
        return typedStatements(field, *kind, member);
    SbName name;
    if (field.getContainer())
        field.getContainer()->getFieldName(&field, name);
    return FieldCode::tr("// %1 cannot be set from text: %2")
               .arg(QString::fromUtf8(name.getString()), fieldPreview(field)) +
           QLatin1Char('\n');
}

} // namespace

std::optional<QString> FieldCode::inventorValue(SoField& field)
{
    const Kind* kind = CodeValue::kindOf(field);
    const SoMField* elements = elementsOf(field);
    if (elements && elements->getNum() == 0)
        return QStringLiteral("[  ]");
    if (!kind || !kind->numeric) {
        const auto text = ownText(field);
        return text ? std::optional(toUtf16(text->constData())) : std::nullopt;
    }
    const bool isList = elements && elements->getNum() > 1;
    QString text = isList ? listOf(field, *kind, CodeLanguage::Inventor, QString(8, u' '))
                          : kind->text(field, 0, CodeLanguage::Inventor);
    // Coin reads neither "nan" nor "inf".
    if (text.contains(QLatin1Char('n')))
        return std::nullopt;
    if (isList)
        text = QStringLiteral("[\n%1    ]").arg(text);
    return text;
}

QString FieldCode::cppStatements(SoField& field, const QString& member)
{
    QString statements = valueStatements(field, member);
    // Setting a value clears the flag.
    if (field.isDefault())
        statements += member + QLatin1String("setDefault(TRUE);\n");
    const SoField* original = KlvServices::getInstance()->getChanges()->getOriginal(&field);
    if (field.isIgnored())
        statements += member + QLatin1String("setIgnored(TRUE);\n");
    else if (original && original->isIgnored())
        statements += member + QLatin1String("setIgnored(FALSE);\n");
    return statements;
}

QString FieldCode::byName(SoFieldContainer* container)
{
    const SbName name = container->getName();
    SoBaseList namesakes;
    const bool isNode = container->isOfType(SoNode::getClassTypeId());
    const SoType type = isNode ? SoNode::getClassTypeId() : SoEngine::getClassTypeId();
    if (name.getLength() == 0 || !container->isOfType(type) ||
        SoBase::getNamedBases(name, namesakes, type) != 1)
        return QString();
    return QStringLiteral("%1::getByName(%2)")
        .arg(QLatin1String(isNode ? "SoNode" : "SoEngine"), CodeValue::quoted(name.getString()));
}
