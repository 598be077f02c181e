#include "FieldEditors/DvWheelGuard.h"

#include <QEvent>
#include <QWidget>

DvWheelGuard::DvWheelGuard(QWidget* input)
    : QObject(input)
{
    input->setFocusPolicy(Qt::StrongFocus);
    input->installEventFilter(this);
}

void DvWheelGuard::install(QWidget* input)
{
    new DvWheelGuard(input);
}

bool DvWheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return false;
    // An ignored event goes on to the parent.
    event->ignore();
    return true;
}
