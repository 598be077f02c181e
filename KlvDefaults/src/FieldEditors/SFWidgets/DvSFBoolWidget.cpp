#include "FieldEditors/SFWidgets/DvSFBoolWidget.h"

#include "FieldEditors/klsettings_fieldEditor.h"

#include <Inventor/fields/SoSFBool.h>

#include <QCheckBox>
#include <QHBoxLayout>

DvSFBoolWidget::DvSFBoolWidget(const char* name)
    : DvSFieldWidget(name ? name : "DvSFBoolWidget")
{
    m_handledType = SoSFBool::getClassTypeId();
    m_handledTypeName = "SFBool";
}

DvSFBoolWidget::~DvSFBoolWidget() = default;

void DvSFBoolWidget::load()
{
    setFieldName(QStringLiteral("SFBool"));
    DvSFieldWidget::load();
    m_box = new QCheckBox(m_editionFrame);
    m_box->setObjectName(QStringLiteral("m_box"));
    m_box->setAccessibleName(tr("Value"));
    m_box->setFixedSize(klsettings_fieldEditor("SFBoolWidth"), klsettings_fieldEditor("SFComponentHeight"));
    m_editLayout->addWidget(m_box);
    expandSpacers();
    connect(m_box, SIGNAL(clicked()), this, SLOT(setCommandValue()));
}

void DvSFBoolWidget::refresh()
{
    if (m_field)
        m_box->setChecked(static_cast<SoSFBool*>(m_field)->getValue() != 0);
    DvSFieldWidget::refresh();
}

void DvSFBoolWidget::applyChanges()
{
    if (!m_field)
        return;
    static_cast<SoSFBool*>(m_field)->setValue(m_box->isChecked());
    recordValue();
}
