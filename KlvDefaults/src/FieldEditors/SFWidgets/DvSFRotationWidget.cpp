#include "FieldEditors/SFWidgets/DvSFRotationWidget.h"

#include "FieldEditors/SFWidgets/DvFloatEdit.h"

#include <Inventor/SbVec3f.h>
#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoSFRotation.h>

#include <QApplication>
#include <QFocusEvent>

#include <algorithm>
#include <cmath>

DvSFRotationWidget::DvSFRotationWidget(const char* name)
    : DvSF4fBox(SoSFRotation::getClassTypeId(), "SFRotation",
                {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), tr("radians")},
                name ? name : "DvSFRotationWidget")
{
}

DvSFRotationWidget::~DvSFRotationWidget() = default;

void DvSFRotationWidget::load()
{
    DvSF4fBox::load();
    for (DvFloatEdit* edit : edits()) {
        disconnect(edit, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
        edit->installEventFilter(this);
    }
}

void DvSFRotationWidget::deactivate()
{
    commit();
    DvSF4fBox::deactivate();
}

bool DvSFRotationWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        focusOutEvent(static_cast<QFocusEvent*>(event));
    return DvSF4fBox::eventFilter(watched, event);
}

void DvSFRotationWidget::focusOutEvent(QFocusEvent* event)
{
    // A menu and another window give the focus back.
    constexpr Qt::FocusReason passing[] = {Qt::PopupFocusReason, Qt::MenuBarFocusReason,
                                           Qt::ActiveWindowFocusReason};
    if (std::count(std::begin(passing), std::end(passing), event->reason()))
        return;
    const auto& own = edits();
    if (std::count(own.begin(), own.end(), QApplication::focusWidget()) == 0)
        commit();
}

void DvSFRotationWidget::commit()
{
    if (!m_field)
        return;
    for (DvFloatEdit* edit : edits())
        edit->dropUnacceptableText();
    setFocusLeaveEvent();
}

void DvSFRotationWidget::getComponents(float* components) const
{
    SbVec3f axis;
    static_cast<SoSFRotation*>(m_field)->getValue().getValue(axis, components[3]);
    axis.getValue(components[0], components[1], components[2]);
}

bool DvSFRotationWidget::setComponents(const float* components)
{
    SbRotation rotation;
    rotation.setValue(SbVec3f(components), components[3]);
    float x, y, z, w;
    rotation.getValue(x, y, z, w);
    // A rotation is a quaternion of length 1; an axis without a length, or with one beyond all numbers, gives
    // none.
    if (!(std::abs(x * x + y * y + z * z + w * w - 1) < 0.001f)) {
        SoDebugError::postWarning("DvSFRotationWidget", "An axis without a length makes no rotation.");
        return false;
    }
    static_cast<SoSFRotation*>(m_field)->setValue(rotation);
    return true;
}
