#include "FieldEditors/MFWidgets/AccessButtonPrivate.h"

#include <QKeyEvent>

AccessButtonPrivate::AccessButtonPrivate(QWidget* parent, const char* name)
    : QSpinBox(parent)
{
    setObjectName(QString::fromUtf8(name));
    setLocale(QLocale::c());
}

AccessButtonPrivate::AccessButtonPrivate(int minimum, int maximum, int step, QWidget* parent,
                                         const char* name)
    : AccessButtonPrivate(parent, name)
{
    setRange(minimum, maximum);
    setSingleStep(step);
}

AccessButtonPrivate::~AccessButtonPrivate() = default;

void AccessButtonPrivate::setNewValue(int row)
{
    setValue(row + 1);
}

void AccessButtonPrivate::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT valueChanged(value());
    else
        QSpinBox::keyPressEvent(event);
}
