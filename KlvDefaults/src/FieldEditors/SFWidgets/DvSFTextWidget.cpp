#include "FieldEditors/SFWidgets/DvSFTextWidget.h"

#include "FieldEditors/DvEscapeKey.h"
#include "FieldEditors/SFWidgets/DvLineEdit.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoField.h>

#include <QHBoxLayout>

DvSFTextWidget::DvSFTextWidget(SoType kind, const char* kindName, const char* name)
    : DvSFieldWidget(name)
{
    m_handledType = kind;
    m_handledTypeName = kindName;
}

DvSFTextWidget::~DvSFTextWidget() = default;

void DvSFTextWidget::load()
{
    setFieldName(toUtf16(m_handledTypeName));
    DvSFieldWidget::load();
    lineEdit = new DvLineEdit(m_editionFrame);
    DvEscapeKey::install(lineEdit, lineEdit, [this] { refresh(); });
    m_editLayout->addWidget(lineEdit, 1);
    connect(lineEdit, SIGNAL(editingFinished()), this, SLOT(setCommandValue()));
}

void DvSFTextWidget::refresh()
{
    if (m_field && !takeEcho()) {
        if (m_field->isOfType(m_handledType))
            m_shownText = getText(m_field);
        else {
            SbString text;
            m_field->get(text);
            m_shownText = toUtf16(text);
        }
        // Setting the same text again would move the caret.
        if (lineEdit->text() != m_shownText)
            lineEdit->setText(m_shownText);
        lineEdit->setModified(false);
        static_cast<DvLineEdit*>(lineEdit)->setRefused(false);
    }
    DvSFieldWidget::refresh();
}

bool DvSFTextWidget::edited()
{
    return lineEdit->isModified();
}

void DvSFTextWidget::applyChanges()
{
    const QString text = lineEdit->text();
    if (!m_field)
        return;
    const bool taken = text == m_shownText || writeText(text);
    if (taken)
        m_shownText = text;
    static_cast<DvLineEdit*>(lineEdit)->setRefused(!taken);
    recordValue();
}

bool DvSFTextWidget::writeText(const QString& text)
{
    if (!m_field->isOfType(m_handledType))
        return setFieldFromText(m_field, fromUtf16(text));
    setText(m_field, text);
    return true;
}
