#pragma once

#include "TextScanner.h"
#include "ValueFieldKind.h"

/// A kind whose text is made of words: one element after the other can be read.
template <class Field>
class ScannedFieldKind : public ValueFieldKind<Field>
{
public:
    using Element = FieldElement<Field>;

protected:
    /// Reads the element that stands at an index of the text, and goes to the same index of the field.
    virtual bool readNext(TextScanner& scanner, const Field& field, int index, Element& value) const = 0;

    bool readValues(Field& field, std::string_view text, std::vector<Element>& values) const override
    {
        TextScanner scanner(text);
        const auto readOne = [&] {
            Element value;
            if (!readNext(scanner, field, static_cast<int>(values.size()), value))
                return false;
            values.push_back(value);
            return true;
        };
        if constexpr (isMultiField<Field>)
            return scanner.readList(readOne);
        else
            return readOne() && scanner.atEnd();
    }

    bool readElement(Field& field, int index, std::string_view text, Element& value) const override
    {
        TextScanner scanner(text);
        return readNext(scanner, field, index, value) && scanner.atEnd();
    }
};
