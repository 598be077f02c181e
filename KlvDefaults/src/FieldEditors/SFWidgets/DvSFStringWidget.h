#pragma once

#include "FieldEditors/SFWidgets/DvSFTextWidget.h"

/// The editor of string fields. Every string is shown and kept as it is, also bytes that are no valid UTF-8.
class DvSFStringWidget : public DvSFTextWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFStringWidget".
    explicit DvSFStringWidget(const char* name);

    ~DvSFStringWidget() override;

protected:
    QString getText(const SoField* field) const override;
    void setText(SoField* field, const QString& text) const override;
};
