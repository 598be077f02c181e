#pragma once

#include "FieldEditors/SFWidgets/DvSFieldWidget.h"

class QLineEdit;

/// The editor of any single-value field, in the field's text form. It commits while one types: the field
/// follows each text that it can take; a text that it cannot take (yet) stays to be completed or corrected.
class DvSFLineWidget : public DvSFieldWidget
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFLineWidget".
    explicit DvSFLineWidget(const char* name);

    void load() override;
    /// Shows the field's text with the caret where it was, unless it only echoes what was just typed.
    void refresh() override;
    bool edited() override;

    ~DvSFLineWidget() override;

    using DvSFieldWidget::applyChanges;

public Q_SLOTS:
    /// Sets the field from the text in the line edit (the argument is not used) and records the change.
    virtual void applyChanges(const QString& text);
    /// Remembers where the caret is now.
    void setCursorPosition(int oldPos, int newPos);

protected:
    QLineEdit* lineEdit = nullptr;

private:
    int m_cursorPosition = 0;
};
