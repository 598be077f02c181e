#include "Search/NodeCondition.h"

#include "Models/FieldPreview.h"
#include "Search/FieldComparison.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/ObjectLabel.h>
#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/SbName.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFString.h>
#include <Inventor/lists/SoTypeList.h>
#include <Inventor/nodes/SoNode.h>

#include <algorithm>
#include <unordered_map>

namespace {

constexpr int mostStrings = 4096;

/// True for one of the node's fields, of which `test(field, name)` is given.
template <typename Test>
bool anyField(const SoNode* node, Test test)
{
    const SoFieldData* fields = node->getFieldData();
    for (int i = 0; fields && i < fields->getNumFields(); ++i) {
        if (test(*fields->getField(node, i), fields->getFieldName(i)))
            return true;
    }
    return false;
}

template <typename Test>
NodeCondition anyFieldThat(Test test)
{
    return [test](const SoNode* node) {
        return anyField(node, [&](SoField& field, const SbName&) { return test(field); });
    };
}

SoField* fieldNamed(const SoNode* node, const QByteArray& wanted)
{
    SoField* found = nullptr;
    anyField(node, [&](SoField& field, const SbName& name) {
        if (qstricmp(name.getString(), wanted.constData()) == 0)
            found = &field;
        return found != nullptr;
    });
    return found;
}

bool contains(const char* text, const QString& part)
{
    return QString::fromUtf8(text).contains(part, Qt::CaseInsensitive);
}

bool isSame(const QString& one, const QString& other)
{
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

const QLatin1String prefix("So"); // in programs, not in files

/// The text is what the type is called in files or in programs.
bool isName(const QString& text, const QString& type)
{
    return isSame(text, type) || isSame(text, prefix + type) || isSame(prefix + text, type);
}

/// The text is a part of what the type is called in files, or the first part of what it is in programs.
bool isPartOfName(const QString& text, const QString& type)
{
    return type.contains(text, Qt::CaseInsensitive) ||
           (text.size() > prefix.size() && (prefix + type).startsWith(text, Qt::CaseInsensitive));
}

/// The text is a part of the name of its type. Looks at each name once.
NodeCondition typeContains(const QString& text)
{
    return [text, known = std::unordered_map<const char*, bool>()](const SoNode* node) mutable {
        const char* const type = objectType(node).getString(); // the same one for all equal names
        const auto [entry, isNew] = known.try_emplace(type, false);
        if (isNew)
            entry->second = isPartOfName(text, QString::fromUtf8(type));
        return entry->second;
    };
}

bool stringContains(const SbString& string, const QString& text)
{
    return toUtf16(string).contains(text, Qt::CaseInsensitive);
}

bool valueContains(SoField& field, const QString& text)
{
    if (field.isOfType(SoSFString::getClassTypeId()))
        return stringContains(static_cast<SoSFString&>(field).getValue(), text);
    if (field.isOfType(SoMFString::getClassTypeId())) {
        const auto& list = static_cast<SoMFString&>(field);
        const SbString* strings = list.getValues(0);
        return std::any_of(strings, strings + std::min(list.getNum(), mostStrings),
                           [&](const SbString& string) { return stringContains(string, text); });
    }
    return fieldPreview(field).contains(text, Qt::CaseInsensitive);
}

const struct
{
    const char* word;
    NodeCondition (*condition)(const SharedNodes*);
} knownStates[] = {
    {"changed",
     [](const SharedNodes*) {
         return anyFieldThat([changes = KlvServices::getInstance()->getChanges()](const SoField& field) {
             return changes->isChanged(&field);
         });
     }},
    {"set",
     [](const SharedNodes*) {
         return anyFieldThat([](const SoField& field) { return !field.isDefault(); });
     }},
    {"ignored",
     [](const SharedNodes*) { return anyFieldThat([](const SoField& field) { return field.isIgnored(); }); }},
    {"connected",
     [](const SharedNodes*) {
         return anyFieldThat([](const SoField& field) { return field.isConnected(); });
     }},
    {"named",
     [](const SharedNodes*) {
         return NodeCondition([](const SoNode* node) { return node->getName().getLength() > 0; });
     }},
    {"shared",
     [](const SharedNodes* shared) {
         return NodeCondition([shared](const SoNode* node) { return shared->contains(node); });
     }},
};

} // namespace

NodeCondition NodeConditions::word(const QString& text)
{
    return [named = name(text), typed = typeContains(text), field = text.toUtf8()](SoNode* node) mutable {
        return typed(node) || named(node) || fieldNamed(node, field);
    };
}

NodeCondition NodeConditions::name(const QString& text)
{
    return [text](const SoNode* node) {
        const SbName name = node->getName();
        return name.getLength() > 0 && contains(name.getString(), text);
    };
}

NodeCondition NodeConditions::type(const QString& text)
{
    SoTypeList types;
    SoType::getAllDerivedFrom(SoNode::getClassTypeId(), types);
    for (int i = 0; i < types.getLength(); ++i) {
        const SoType type = types[i];
        if (isName(text, QString::fromUtf8(type.getName().getString())))
            return [type](const SoNode* node) { return node->isOfType(type); };
    }
    return typeContains(text);
}

NodeCondition NodeConditions::field(const QString& name)
{
    return [name = name.toUtf8()](const SoNode* node) { return fieldNamed(node, name) != nullptr; };
}

NodeCondition NodeConditions::value(const QString& text)
{
    return anyFieldThat([text](SoField& field) { return !field.isDefault() && valueContains(field, text); });
}

NodeCondition NodeConditions::comparison(const QString& field, const FieldComparison& comparison)
{
    return [name = field.toUtf8(), comparison](const SoNode* node) {
        SoField* found = fieldNamed(node, name);
        return found && comparison.holds(*found);
    };
}

QStringList NodeConditions::states()
{
    QStringList words;
    for (const auto& state : knownStates)
        words += QLatin1String(state.word);
    return words;
}

NodeCondition NodeConditions::state(const QString& word, const SharedNodes* shared)
{
    for (const auto& state : knownStates) {
        if (word.compare(QLatin1String(state.word), Qt::CaseInsensitive) == 0)
            return state.condition(shared);
    }
    return {};
}
