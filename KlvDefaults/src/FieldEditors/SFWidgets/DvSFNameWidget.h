#pragma once

#include "FieldEditors/SFWidgets/DvSFTextWidget.h"

/// The editor of name fields. Names are kept in Latin-1: characters that it does not have become question
/// marks.
class DvSFNameWidget : public DvSFTextWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFNameWidget".
    explicit DvSFNameWidget(const char* name);

    ~DvSFNameWidget() override;

protected:
    QString getText(const SoField* field) const override;
    void setText(SoField* field, const QString& text) const override;
};
