#pragma once

#include "FieldEditors/SFWidgets/DvSF4fBox.h"

/// The editor of plane fields: the normal and the distance from the origin. The normal is made one unit long.
class DvSFPlaneWidget : public DvSF4fBox
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFPlaneWidget".
    explicit DvSFPlaneWidget(const char* name);

    ~DvSFPlaneWidget() override;

protected:
    void getComponents(float* components) const override;
    bool setComponents(const float* components) override;
};
