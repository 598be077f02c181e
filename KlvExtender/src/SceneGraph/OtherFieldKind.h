#pragma once

#include "FieldKind.h"

/// Triggers, and fields of types that Coin does not bring along: Coin reads their text, on a scratch field of
/// the same type, since it may leave a field half read.
class OtherFieldKind final : public FieldKind
{
public:
    bool setValue(SoField& field, std::string_view text) const override;
    bool setElement(SoMField& field, int index, std::string_view text) const override;
    /// As for the type that the field's type is derived from.
    void insertElements(SoMField& field, int first, int count) const override;
};
