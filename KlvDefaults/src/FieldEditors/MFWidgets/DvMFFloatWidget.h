#pragma once

#include "FieldEditors/MFWidgets/DvMFRealWidget.h"

/// The editor of fields that hold single-precision numbers.
class DvMFFloatWidget : public DvMFRealWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFFloatWidget".
    explicit DvMFFloatWidget(const char* name);
    ~DvMFFloatWidget() override;

protected:
    double getMin() const override { return m_rangeComponent.getfMin(); }
    double getMax() const override { return m_rangeComponent.getfMax(); }
};
