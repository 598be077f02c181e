#include "FieldEditors/SFWidgets/DvFloatEdit.h"

#include "FieldEditors/DvPastedNumber.h"
#include "FieldEditors/DvRealValidator.h"

#include <QFocusEvent>

DvFloatEdit::DvFloatEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setValidator(new DvRealValidator(DvRealValidator::Float, this));
    DvPastedNumber::install(this);
    setAlignment(Qt::AlignLeft);
}

void DvFloatEdit::showComponent(float component)
{
    m_shownText.setNum(double(component), 'g', 6);
    if (!isAsShown()) {
        const bool selected = isAllSelected();
        setText(m_shownText);
        if (selected)
            selectAll();
        revertCursorPosition();
    }
    setModified(false);
}

void DvFloatEdit::revertCursorPosition()
{
    const int length = int(text().size());
    if (isAllSelected())
        setSelection(length, -length);
    else
        setCursorPosition(0);
}

void DvFloatEdit::acceptText()
{
    m_shownText = text();
    setModified(false);
}

void DvFloatEdit::dropUnacceptableText()
{
    if (!isAsShown() && !hasAcceptableInput())
        setText(m_shownText);
}

QSize DvFloatEdit::sizeHint() const
{
    QSize size = QLineEdit::sizeHint();
    size.setWidth(fontMetrics().horizontalAdvance(QStringLiteral("-1.23457e-06  ")));
    return size;
}

void DvFloatEdit::focusOutEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        dropUnacceptableText();
    QLineEdit::focusOutEvent(event);
}
