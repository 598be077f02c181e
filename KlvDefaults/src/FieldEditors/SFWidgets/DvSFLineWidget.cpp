#include "FieldEditors/SFWidgets/DvSFLineWidget.h"

#include "FieldEditors/DvEscapeKey.h"
#include "FieldEditors/SFWidgets/DvLineEdit.h"

#include <KlvExtender/SceneGraph/SbStringText.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoSField.h>

#include <QHBoxLayout>
#include <QSignalBlocker>

DvSFLineWidget::DvSFLineWidget(const char* name)
    : DvSFieldWidget(name ? name : "DvSFLineWidget")
{
    m_handledType = SoSField::getClassTypeId();
    m_handledTypeName = "SField";
}

DvSFLineWidget::~DvSFLineWidget() = default;

void DvSFLineWidget::load()
{
    setFieldName(QStringLiteral("SField"));
    DvSFieldWidget::load();
    lineEdit = new DvLineEdit(m_editionFrame);
    DvEscapeKey::install(lineEdit, lineEdit, [this] { refresh(); });
    m_editLayout->addWidget(lineEdit, 1);
    connect(lineEdit, SIGNAL(editingFinished()), this, SLOT(setFocusLeaveEvent()));
    connect(lineEdit, SIGNAL(returnPressed()), this, SLOT(applyChanges()));
    // Both signals come with each keystroke. The history keeps the first command, which changed the field.
    connect(lineEdit, SIGNAL(textChanged(const QString&)), this, SLOT(applyChanges(const QString&)));
    connect(lineEdit, SIGNAL(cursorPositionChanged(int, int)), this, SLOT(setCursorPosition(int, int)));
    connect(lineEdit, SIGNAL(textEdited(const QString&)), this, SLOT(applyChanges(const QString&)));
}

void DvSFLineWidget::refresh()
{
    if (m_field && !takeEcho()) {
        const QSignalBlocker blocker(lineEdit);
        SbString text;
        m_field->get(text);
        lineEdit->setText(toUtf16(text));
        lineEdit->setCursorPosition(m_cursorPosition);
        static_cast<DvLineEdit*>(lineEdit)->setRefused(false);
    }
    DvSFieldWidget::refresh();
}

bool DvSFLineWidget::edited()
{
    return lineEdit->isModified();
}

void DvSFLineWidget::applyChanges(const QString&)
{
    if (!m_field)
        return;
    const int cursorPosition = lineEdit->cursorPosition();
    const bool taken = setFieldFromText(m_field, fromUtf16(lineEdit->text()));
    lineEdit->setCursorPosition(cursorPosition);
    static_cast<DvLineEdit*>(lineEdit)->setRefused(!taken);
    recordValue();
    // A text that was not taken leaves the echo of an earlier one due.
    if (taken)
        expectEcho();
}

void DvSFLineWidget::setCursorPosition(int, int newPos)
{
    m_cursorPosition = newPos;
}
