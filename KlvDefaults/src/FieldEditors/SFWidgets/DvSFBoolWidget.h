#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

class QCheckBox;

/// The editor of boolean fields: a check box.
class DvSFBoolWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFBoolWidget".
    explicit DvSFBoolWidget(const char* name);

    void load() override;
    /// Checks the box if the field's value is anything but 0.
    void refresh() override;

    ~DvSFBoolWidget() override;

public Q_SLOTS:
    /// Writes the state of the box into the field and records that.
    void applyChanges() override;

private:
    QCheckBox* m_box = nullptr;
};
