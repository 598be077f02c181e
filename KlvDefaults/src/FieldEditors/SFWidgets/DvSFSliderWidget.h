#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

/// Base of the editors of number fields, with a slider frame whose range comes from the table of ranges.
/// Range and growth start anew with each field.
class DvSFSliderWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    void load() override;
    void setField(SoField* field) override;
    /// Shows the field's value; what is being typed is lost if the field was changed meanwhile.
    void refresh() override;
    bool edited() override;

    ~DvSFSliderWidget() override;

public Q_SLOTS:
    /// Writes the slider frame's value into the field and records it. A value that is the field's already, to
    /// the bit, is not written, so that the field keeps its default flag.
    void applyChanges() override;

protected:
    /// What sets an editor apart from its siblings.
    struct Kind
    {
        SFFrameType frameType;
        const char* name;      ///< the kind of field without "So"
        const char* rangeName; ///< the range in the table's row "DefaultNode"
        bool nodesHaveRanges;  ///< complexities, materials and directional lights have a fixed range instead
    };

    DvSFSliderWidget(SoType type, const Kind& kind, const char* name);

    /// Hands the range component to the slider frame.
    virtual void showRange() = 0;
    /// Hands the field's value to the slider frame.
    virtual void showValue() = 0;
    /// Gives the field the slider frame's value.
    virtual void writeValue() = 0;

private:
    void takeRange(SoFieldContainer* container);

    const Kind m_kind;
};
