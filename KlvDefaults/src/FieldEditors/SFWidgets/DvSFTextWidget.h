#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

class QLineEdit;

/// Base of the editors whose value is itself a text, shown without the quotes of the field's text form. They
/// commit when editing is finished, by Return or by leaving the line edit. Fields of other kinds are edited
/// in their text form.
class DvSFTextWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    void load() override;
    /// Shows the field's text; what is being typed is lost if the field was changed meanwhile.
    void refresh() override;
    bool edited() override;

    ~DvSFTextWidget() override;

public Q_SLOTS:
    /// Writes the text into the field and records it. A text that stands as the field gave it is not written,
    /// so that the field keeps its value to the bit, and its default flag.
    void applyChanges() override;

protected:
    /// The editor of the fields of a kind, whose name without "So" is given.
    DvSFTextWidget(SoType kind, const char* kindName, const char* name);

    /// The text of a field of the kind.
    virtual QString getText(const SoField* field) const = 0;
    /// Sets a field of the kind to a text.
    virtual void setText(SoField* field, const QString& text) const = 0;

    QLineEdit* lineEdit = nullptr;

private:
    bool writeText(const QString& text);

    /// The text in the line edit that stands for the field's value as it is.
    QString m_shownText;
};
