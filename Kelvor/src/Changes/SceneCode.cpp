#include "Changes/SceneCode.h"

#include "Changes/CodeValue.h"
#include "Changes/FieldCode.h"
#include "Changes/ScenePlaceSearch.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/SoDB.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoNode.h>

#include <QSet>
#include <QStringList>

#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <map>
#include <memory>
#include <typeinfo>
#include <vector>

namespace {

struct Block
{
    SoFieldContainer* container;
    QList<SoField*> fields;
};

/// The fields by their containers, in the order of the first ones.
std::vector<Block> blocksOf(const QList<SoField*>& fields)
{
    std::vector<Block> blocks;
    QHash<const SoFieldContainer*, std::size_t> places;
    for (SoField* field : fields) {
        SoFieldContainer* container = field->getContainer();
        // Coin does not tell the container of every field.
        if (!container)
            continue;
        if (!places.contains(container)) {
            places.insert(container, blocks.size());
            blocks.push_back({container, {}});
        }
        blocks[places.value(container)].fields.append(field);
    }
    return blocks;
}

/// The places of the blocks' containers.
ScenePlaceSearch::Places placesOf(const std::vector<Block>& blocks, SoNode* root)
{
    QSet<SoFieldContainer*> containers;
    for (const Block& block : blocks)
        containers.insert(block.container);
    return ScenePlaceSearch::findAll(root, containers);
}

/// What Coin calls the type of a field or a container.
template <class Object>
QString typeOf(const Object& object)
{
    return QString::fromUtf8(object.getTypeId().getName().getString());
}

QString nameOf(const SoField& field)
{
    SbName name;
    field.getContainer()->getFieldName(&field, name);
    return QString::fromUtf8(name.getString());
}

QString definableName(const SbName& name)
{
    QString definable;
    for (const char* next = name.getString(); *next; ++next)
        definable += SbName::isBaseNameChar(*next) ? QLatin1Char(*next) : QLatin1Char('_');
    if (!definable.isEmpty() && !SbName::isBaseNameStartChar(definable.at(0).toLatin1()))
        definable.prepend(QLatin1Char('_'));
    return definable;
}

/// Each line as a comment.
QString commented(QString text, const QString& mark)
{
    text.replace(QLatin1Char('\n'), QLatin1Char('\n') + mark);
    return mark + text;
}

/// The declaration of fields without which nobody reads those of a node of an unknown type.
QString fieldList(const QList<SoField*>& fields)
{
    QStringList declarations;
    for (const SoField* field : fields)
        declarations += typeOf(*field) + QLatin1Char(' ') + nameOf(*field);
    return QStringLiteral("    fields [ %1 ]\n").arg(declarations.join(QLatin1String(", ")));
}

QString inventorLine(SoField& field)
{
    const QString name = nameOf(field);
    const auto value = FieldCode::inventorValue(field);
    if (!value)
        return SceneCode::tr("    # %1 has a value that text does not hold\n").arg(name);
    return QStringLiteral("    %1 %2%3\n").arg(name, *value, QLatin1String(field.isIgnored() ? " ~" : ""));
}

/// The name of the class of a field or a container as the compiler knows it; that of the type where the
/// object's code has no type information.
template <class Object>
QString className(const Object& object)
{
    const auto* table = *reinterpret_cast<const void* const* const*>(&object);
    if (table[-1]) {
        const std::unique_ptr<char, decltype(&std::free)> name(
            abi::__cxa_demangle(typeid(object).name(), nullptr, nullptr, nullptr), std::free);
        // Coin does not publish the class of nodes that it does not know.
        if (name && std::strcmp(name.get(), "SoUnknownNode") == 0)
            return QStringLiteral("SoNode");
        if (name && !std::strchr(name.get(), '('))
            return QString::fromUtf8(name.get());
    }
    return typeOf(object);
}

std::ptrdiff_t offsetIn(const SoFieldContainer& object, const SoField* member)
{
    return reinterpret_cast<const char*>(member) - reinterpret_cast<const char*>(&object);
}

/// How far the fields of fresh objects of a type are from the beginning of these.
const QHash<QString, std::ptrdiff_t>& fieldOffsets(SoType type)
{
    static std::map<SoType, QHash<QString, std::ptrdiff_t>> known;
    const auto [row, isNew] = known.try_emplace(type);
    if (isNew && type.canCreateInstance()) {
        auto* fresh = static_cast<SoFieldContainer*>(type.createInstance());
        fresh->ref();
        SoFieldList fields;
        fresh->getAllFields(fields);
        for (int i = 0; i < fields.getLength(); ++i) {
            SbName name;
            fresh->getFieldName(fields[i], name);
            row->second.insert(QString::fromUtf8(name.getString()), offsetIn(*fresh, fields[i]));
        }
        fresh->unref();
    }
    return row->second;
}

/// True when the field is certainly a member of its class by its own name: not one of those that an object
/// has for itself, and not a part of a node kit. What an application's class does when an object of it is
/// made is not known, so only Coin's are tried; their types lack the prefix of the classes.
bool isMember(const SoField& field)
{
    const SoFieldContainer& container = *field.getContainer();
    if (className(container) != QLatin1String("So") + typeOf(container) ||
        field.getTypeId().getName() == SbName("SFNode"))
        return false;
    const auto& offsets = fieldOffsets(container.getTypeId());
    const auto offset = offsets.constFind(nameOf(field));
    // As far from the beginning of the object: it lies within.
    return offset != offsets.constEnd() && *offset == offsetIn(container, &field);
}

/// The expression for a field of the object in a variable, and the operator after it.
QString memberOf(const SoField& field, const QString& variable)
{
    const QString name = nameOf(field);
    if (isMember(field))
        return QStringLiteral("%1->%2.").arg(variable, name);
    return QStringLiteral("static_cast<%1*>(%2->getField(\"%3\"))->").arg(className(field), variable, name);
}

QString globalMember(const SoField& field)
{
    return QStringLiteral("static_cast<%1*>(SoDB::getGlobalField(%2))->")
        .arg(className(field), CodeValue::quoted(field.getContainer()->getName().getString()));
}

bool isGlobal(const SoField& field)
{
    return SoDB::getGlobalField(field.getContainer()->getName()) == &field;
}

bool isKeyword(const QString& word)
{
    static const QSet<QString> keywords = [] {
        const QString words = QStringLiteral(
            "alignas alignof and and_eq asm auto bitand bitor bool break case catch char char8_t char16_t "
            "char32_t class compl concept const consteval constexpr constinit const_cast continue co_await "
            "co_return co_yield decltype default delete do double dynamic_cast else enum explicit export "
            "extern false float for friend goto if inline int long mutable namespace new noexcept not not_eq "
            "nullptr operator or or_eq private protected public register reinterpret_cast requires return "
            "short signed sizeof static static_assert static_cast struct switch template this thread_local "
            "throw true try typedef typeid typename union unsigned using virtual void volatile wchar_t while "
            "xor xor_eq");
        const QStringList list = words.split(QLatin1Char(' '));
        return QSet<QString>(list.begin(), list.end());
    }();
    return keywords.contains(word);
}

/// The words of a name or a type as an identifier: "My gold-2" becomes myGold2, "VRMLBox" vrmlBox.
QString variableName(const SoFieldContainer& container)
{
    QString identifier;
    bool wordBegins = false;
    for (const QChar next : objectKey(&container)) {
        const bool usable = next.unicode() < 0x80 && next.isLetterOrNumber();
        if (usable)
            identifier += wordBegins && !identifier.isEmpty() ? next.toUpper() : next;
        wordBegins = !usable;
    }
    // Capitals at the beginning, but for the one that begins the next word.
    qsizetype capitals = 0;
    while (capitals < identifier.size() && identifier.at(capitals).isUpper())
        ++capitals;
    if (capitals > 1 && capitals < identifier.size() && identifier.at(capitals).isLower())
        --capitals;
    identifier = identifier.left(capitals).toLower() + identifier.mid(capitals);
    if (identifier.isEmpty() || identifier.at(0).isDigit())
        identifier.prepend(QLatin1String("node"));
    return isKeyword(identifier) ? identifier + QLatin1String("Node") : identifier;
}

QString uniqueName(const QString& name, QSet<QString>& taken)
{
    QString unique = name;
    for (int number = 2; taken.contains(unique); ++number)
        unique = name + QString::number(number);
    taken.insert(unique);
    return unique;
}

/// The statement that fetches an object into a variable, with a comment that tells which it is.
QString declaration(SoFieldContainer& container, const QString& variable, const ScenePlace& place,
                    SoNode* root)
{
    const QString type = className(container);
    const QString named = FieldCode::byName(&container);
    const QString object = named.isEmpty() ? place.expression(root) : named;
    if (object.isEmpty())
        return SceneCode::tr("// %1 is neither in the scene nor found by a name: put it here.")
                   .arg(place.label()) +
               QStringLiteral("\n%1* %2 = nullptr;\n").arg(type, variable);
    return QStringLiteral("// %1\nauto* %2 = static_cast<%3*>(%4);\n")
        .arg(place.label(), variable, type, object);
}

} // namespace

QString SceneCode::inventorText(const QList<SoField*>& fields, SoNode* root)
{
    const std::vector<Block> blocks = blocksOf(fields);
    const auto places = placesOf(blocks, root);
    QStringList texts;
    for (const auto& [container, own] : blocks) {
        const QString name = definableName(container->getName());
        QString text = QStringLiteral("# %1\n").arg(places.find(container)->label());
        const QString type = QString::fromUtf8(objectType(container).getString());
        QString block = (name.isEmpty() ? QString() : QStringLiteral("DEF %1 ").arg(name)) + type +
                        QLatin1String(" {\n") + (type == typeOf(*container) ? QString() : fieldList(own));
        for (SoField* field : own)
            block += inventorLine(*field);
        block += QLatin1Char('}');
        // Only nodes stand for themselves in a file.
        text +=
            container->isOfType(SoNode::getClassTypeId()) ? block : commented(block, QStringLiteral("# "));
        texts += text + QLatin1Char('\n');
    }
    return texts.join(QLatin1Char('\n'));
}

QString SceneCode::cppStatements(const QList<SoField*>& fields, SoNode* root)
{
    const std::vector<Block> blocks = blocksOf(fields);
    const auto places = placesOf(blocks, root);
    QStringList texts;
    QSet<QString> taken{QStringLiteral("root"), QStringLiteral("values")};
    for (const auto& [container, own] : blocks) {
        QString text;
        QString variable;
        for (SoField* field : own) {
            if (isGlobal(*field)) {
                text += FieldCode::cppStatements(*field, globalMember(*field));
                continue;
            }
            if (variable.isEmpty()) {
                variable = uniqueName(variableName(*container), taken);
                text += declaration(*container, variable, *places.find(container), root);
            }
            text += FieldCode::cppStatements(*field, memberOf(*field, variable));
        }
        texts += text;
    }
    const QString code = texts.join(QLatin1Char('\n'));
    return code.contains(QLatin1String("std::numeric_limits")) ? tr("// needs #include <limits>\n") + code
                                                               : code;
}

QString SceneCode::cppStatement(SoField& field)
{
    QString member = QStringLiteral("field->");
    if (field.getContainer())
        member = isGlobal(field) ? globalMember(field) : memberOf(field, variableName(*field.getContainer()));
    return FieldCode::cppStatements(field, member).trimmed();
}
