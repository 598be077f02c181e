#pragma once

#include <string_view>

class SoField;
class SoMField;
class SoType;

/// What the text and element operations do with the fields of one type. There is one object a type, made on
/// first use; none has state.
class FieldKind
{
public:
    /// The kind of a field. Types that Coin does not bring along have one too, which knows no more of them
    /// than every field can do.
    static const FieldKind& of(const SoField& field);

    virtual ~FieldKind() = default;

    /// Sets the whole value and notifies once; false, with the field untouched, when the text is not exactly
    /// one value of the kind.
    virtual bool setValue(SoField& field, std::string_view text) const = 0;
    /// Sets one element, from 0 to any number beyond the end, in the same way.
    virtual bool setElement(SoMField& field, int index, std::string_view text) const;
    /// Inserts elements with the kind's neutral value; the caller sees to notification and to valid indices.
    virtual void insertElements(SoMField& field, int first, int count) const;

protected:
    /// The kind of exactly this type, or null.
    static const FieldKind* find(SoType type);
    /// True when the text is what the field prints at present: it then stands for the present value, also
    /// where it does not tell all of it.
    static bool isPresentText(SoField& field, std::string_view text);
    static bool isPresentText(SoMField& field, int index, std::string_view text);
    /// Makes sure that an element exists: what it has to add to the field is neutral.
    void growTo(SoMField& field, int index) const;
};
