#include "FieldEditors/SFWidgets/DvSFEnumWidget.h"

#include "FieldEditors/DvWheelGuard.h"
#include "FieldEditors/SFWidgets/EnumEntries.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoSFEnum.h>

#include <QComboBox>
#include <QHBoxLayout>

DvSFEnumWidget::DvSFEnumWidget(const char* name)
    : DvSFieldWidget(name ? name : "DvSFEnumWidget")
{
    m_handledType = SoSFEnum::getClassTypeId();
    m_handledTypeName = "SFEnum";
}

DvSFEnumWidget::~DvSFEnumWidget() = default;

void DvSFEnumWidget::load()
{
    setFieldName(QStringLiteral("SFEnum"));
    DvSFieldWidget::load();
    comboBox = new QComboBox(m_editionFrame);
    comboBox->setObjectName(QStringLiteral("comboBox"));
    comboBox->setAccessibleName(tr("Value"));
    comboBox->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    DvWheelGuard::install(comboBox);
    m_editLayout->addWidget(comboBox, 1);
    connect(comboBox, SIGNAL(activated(int)), this, SLOT(setCommandValue()));
}

void DvSFEnumWidget::setField(SoField* field)
{
    m_replacedItem = -1;
    if (comboBox)
        comboBox->clear();
    if (comboBox && field) {
        for (const EnumEntry& entry : enumEntries(*static_cast<SoSFEnum*>(field)))
            comboBox->addItem(entry.name);
    }
    DvSFieldWidget::setField(field);
}

void DvSFEnumWidget::refresh()
{
    if (m_field) {
        restoreItemText();
        SbString string;
        m_field->get(string);
        const QString text = toUtf16(string);
        const int item = comboBox->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        if (item >= 0) {
            comboBox->setCurrentIndex(item);
        } else if (comboBox->isEditable()) {
            comboBox->setEditText(text);
        } else {
            m_replacedItem = comboBox->currentIndex();
            m_replacedText = comboBox->currentText();
            comboBox->setItemText(m_replacedItem, text);
        }
    }
    DvSFieldWidget::refresh();
}

void DvSFEnumWidget::restoreItemText()
{
    if (m_replacedItem >= 0)
        comboBox->setItemText(m_replacedItem, m_replacedText);
    m_replacedItem = -1;
}

void DvSFEnumWidget::applyChanges()
{
    if (!m_field)
        return;
    const QByteArray name = comboBox->currentText().toLatin1();
    static_cast<SoSFEnum*>(m_field)->setValue(SbName(name.constData()));
    recordValue();
}
