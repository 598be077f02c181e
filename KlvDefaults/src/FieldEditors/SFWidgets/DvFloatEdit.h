#pragma once

#include <QLineEdit>

/// The input for one single-precision component of a value. It shows six digits; as long as its text is the
/// one that it was given to show, it stands for the component with all its digits.
class DvFloatEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit DvFloatEdit(QWidget* parent);

    /// Shows a component.
    void showComponent(float component);
    /// Puts the caret at the start. A text that is selected as a whole, to be typed over, stays so.
    void revertCursorPosition();
    /// True when the text is the one that stands for the component as it is.
    bool isAsShown() const { return text() == m_shownText; }
    /// The component that the text stands for: `present`, the component as it is now, or the number entered;
    /// a text that is no number gives 0.
    float component(float present) const { return isAsShown() ? present : text().toFloat(); }
    /// Says that the component now is what was entered.
    void acceptText();
    /// Goes back to the text that was shown if what was entered is no number in range.
    void dropUnacceptableText();

    QSize sizeHint() const override;

protected:
    /// Nothing half entered stays behind when the input is left.
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool isAllSelected() const { return hasSelectedText() && selectedText() == text(); }

    QString m_shownText;
};
