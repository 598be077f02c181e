#pragma once

#include "FieldAccess.h"
#include "NumberText.h"
#include "ScannedFieldKind.h"

/// Fields whose values have names: truth values, enumerations and bit masks.
///
/// What such a field prints may leave values out (those that its table has no name for), so its present text
/// stands for its present value.
template <class Field>
class NamedFieldKind final : public ScannedFieldKind<Field>
{
protected:
    bool readValues(Field& field, std::string_view text, std::vector<int>& values) const override
    {
        if (!FieldKind::isPresentText(field, text))
            return ScannedFieldKind<Field>::readValues(field, text, values);
        if constexpr (isMultiField<Field>)
            values.assign(field.getValues(0), field.getValues(0) + field.getNum());
        else
            values.assign(1, field.getValue());
        return true;
    }

    bool readElement(Field& field, int index, std::string_view text, int& value) const override
    {
        if constexpr (isMultiField<Field>) {
            if (FieldKind::isPresentText(field, index, text)) {
                value = field[index];
                return true;
            }
        }
        return ScannedFieldKind<Field>::readElement(field, index, text, value);
    }

    bool readNext(TextScanner& scanner, const Field& field, int, int& value) const override
    {
        value = 0;
        if (!IsMask || !scanner.take('('))
            return readName(field, scanner.takeWord(), value);
        if (scanner.take(')'))
            return true;
        do {
            int bits = 0;
            if (!readName(field, scanner.takeWord(), bits))
                return false;
            value |= bits;
        } while (scanner.take('|'));
        return scanner.take(')');
    }

    int neutral(const Field& field) const override
    {
        if constexpr (HasTable<Field> && !IsMask) {
            SbName name;
            for (int i = 0; i < field.getNumEnums(); ++i)
                if (field.getEnum(i, name) == 0)
                    return 0;
            return field.getNumEnums() > 0 ? field.getEnum(0, name) : 0;
        } else {
            return 0;
        }
    }

private:
    template <class F>
    static constexpr bool HasTable = requires(const F& field)
    {
        field.getNumEnums();
    };
    static constexpr bool IsMask = std::is_same_v<Field, SoSFBitMask> || std::is_same_v<Field, SoMFBitMask>;

    static bool readName(const Field& field, std::string_view word, int& value)
    {
        if constexpr (HasTable<Field>) {
            SbName name;
            for (int i = 0; i < field.getNumEnums(); ++i) {
                const int named = field.getEnum(i, name);
                if (word == name.getString()) {
                    value = named;
                    return true;
                }
            }
            return !IsMask && !FieldAccess::takesNamesOnly(field) && readNumber(word, value);
        } else {
            value = word == "TRUE" || word == "1";
            return value || word == "FALSE" || word == "0";
        }
    }
};
