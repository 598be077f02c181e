#pragma once

#include "FieldEditors/MFWidgets/DvMFLineWidget.h"

/// Base of the editors of real number fields. The range of their cells comes from the table of ranges, anew
/// with each field that is accepted.
class DvMFRealWidget : public DvMFLineWidget
{
    Q_OBJECT

public:
    /// Accepts fields of the handled type and takes over the range of their container.
    bool checkField(SoField* field) override;

    ~DvMFRealWidget() override;

protected:
    /// `rangeName` is the range in the table's row "DefaultNode".
    DvMFRealWidget(SoType kind, const char* kindName, CellType cellType, const char* rangeName,
                   const char* name);

    void initClass() override;
    /// The bounds that the range component has for the kind.
    virtual double getMin() const = 0;
    virtual double getMax() const = 0;

private:
    const char* const m_rangeName;
};
