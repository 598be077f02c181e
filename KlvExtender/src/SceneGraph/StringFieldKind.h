#pragma once

#include "StringText.h"
#include "ValueFieldKind.h"

#include <Inventor/nodes/SoNode.h>

/// Fields of strings or names.
template <class Field>
class StringFieldKind final : public ValueFieldKind<Field>
{
public:
    using Element = FieldElement<Field>;

protected:
    bool readValues(Field& field, std::string_view text, std::vector<Element>& values) const override
    {
        if constexpr (isMultiField<Field>) {
            std::vector<std::string> strings;
            if (!StringText::readStrings(text, backslash(field), strings))
                return false;
            values.reserve(strings.size());
            for (const std::string& string : strings)
                values.emplace_back(string.c_str());
            return true;
        } else {
            return readElement(field, 0, text, values.emplace_back());
        }
    }

    bool readElement(Field& field, int, std::string_view text, Element& value) const override
    {
        std::string string;
        if (!StringText::readString(text, backslash(field), string))
            return false;
        value = Element(string.c_str());
        return true;
    }

    Element neutral(const Field&) const override { return Element(""); }

private:
    /// How the field prints backslashes: Coin marks them in the strings, not the names, of VRML97 nodes.
    static StringText::Backslash backslash(const Field& field)
    {
        const SoFieldContainer* container = field.getContainer();
        const bool marked = std::is_same_v<Element, SbString> && container &&
                            container->isOfType(SoNode::getClassTypeId()) &&
                            (static_cast<const SoNode*>(container)->getNodeType() & SoNode::VRML2);
        return marked ? StringText::Backslash::Marked : StringText::Backslash::Plain;
    }
};
