#pragma once

#include "FieldEditors/SFWidgets/DvSF4fBox.h"

class QFocusEvent;

/// The editor of rotation fields: the axis and the angle in radians.
///
/// Its components make a value only together: what was entered is committed by Return, and when the keyboard
/// focus leaves all four line edits, not when it goes from one to another, to a menu or to another window.
class DvSFRotationWidget : public DvSF4fBox
{
    Q_OBJECT

public:
    /// `name` becomes the object name; null gives "DvSFRotationWidget".
    explicit DvSFRotationWidget(const char* name);

    void load() override;
    /// Commits what is still to be committed and lets go of the field.
    void deactivate() override;

    ~DvSFRotationWidget() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Called when one of the line edits loses the focus.
    void focusOutEvent(QFocusEvent* event);
    void getComponents(float* components) const override;
    bool setComponents(const float* components) override;

private:
    void commit();
};
