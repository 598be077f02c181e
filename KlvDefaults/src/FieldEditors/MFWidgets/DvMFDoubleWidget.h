#pragma once

#include "FieldEditors/MFWidgets/DvMFRealWidget.h"

/// The editor of fields that hold double-precision numbers.
class DvMFDoubleWidget : public DvMFRealWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvMFDoubleWidget".
    explicit DvMFDoubleWidget(const char* name);
    ~DvMFDoubleWidget() override;

protected:
    double getMin() const override { return m_rangeComponent.getdMin(); }
    double getMax() const override { return m_rangeComponent.getdMax(); }
};
