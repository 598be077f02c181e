#include "FieldEditors/MFWidgets/DvCellSliderGuard.h"

#include "FieldEditors/DefaultField.h"
#include "FieldEditors/DvSlider.h"
#include "FieldEditors/MFWidgets/DvMFieldWidget.h"

#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <Inventor/fields/SoMField.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

DvCellSliderGuard::DvCellSliderGuard(DvSlider* slider, DvMFieldWidget* owner, int row)
    : QObject(slider)
    , m_slider(slider)
    , m_owner(owner)
    , m_row(row)
    , m_field(owner->getField())
    , m_element(copyElements(m_field, row, 1))
    , m_wasDefault(m_field && m_field->isDefault())
{
    const auto parts = slider->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* part : parts)
        part->installEventFilter(this);
}

DvCellSliderGuard::~DvCellSliderGuard() = default;

bool DvCellSliderGuard::handleKey(int key)
{
    if (key == Qt::Key_Escape)
        revert();
    const bool closes =
        key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
    return closes && m_slider->isEdited() && !m_slider->findChild<QLineEdit*>()->hasAcceptableInput();
}

void DvCellSliderGuard::revert()
{
    m_slider->updateEdit();
    if (!m_slider->hasWritten() || !m_element || m_owner->getField() != m_field || m_row >= m_field->getNum())
        return;
    const KlvEditScope scope(m_field, m_row, 1);
    setElements(m_field, m_row, m_element.get());
    if (!m_wasDefault)
        return;
    const DefaultField defaultField(m_field);
    if (defaultField.get() && m_field->isSame(*defaultField.get()))
        m_field->setDefault(TRUE);
}

bool DvCellSliderGuard::eventFilter(QObject* watched, QEvent* event)
{
    const auto* part = static_cast<QWidget*>(watched);
    if (event->type() == QEvent::FocusOut) {
        // The frame's own filter tells whether the focus is still inside.
        QCoreApplication::sendEvent(m_slider, event);
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool leaves = (key == Qt::Key_Tab && !m_slider->isAncestorOf(part->nextInFocusChain())) ||
                            (key == Qt::Key_Backtab && part->previousInFocusChain() == m_slider);
        if (leaves)
            return QCoreApplication::sendEvent(m_slider, event);
    }
    return false;
}
