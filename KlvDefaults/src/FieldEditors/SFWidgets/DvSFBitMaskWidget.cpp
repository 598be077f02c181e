#include "FieldEditors/SFWidgets/DvSFBitMaskWidget.h"

#include "FieldEditors/SFWidgets/EnumEntries.h"

#include <KlvExtender/KlvEditScope.h>

#include <Inventor/fields/SoSFBitMask.h>

#include <QCheckBox>
#include <QHBoxLayout>

DvSFBitMaskWidget::DvSFBitMaskWidget(const char* name)
    : DvSFieldWidget(name ? name : "DvSFBitMaskWidget")
{
    m_handledType = SoSFBitMask::getClassTypeId();
    m_handledTypeName = "SFBitMask";
}

DvSFBitMaskWidget::~DvSFBitMaskWidget()
{
    delete m_boxLayout;
}

void DvSFBitMaskWidget::load()
{
    setFieldName(QStringLiteral("SFBitMask"));
    DvSFieldWidget::load();
    delete m_boxLayout;
    m_boxLayout = new QVBoxLayout;
}

void DvSFBitMaskWidget::unload()
{
    if (!m_boxes.isEmpty())
        clearEditor();
    DvSFieldWidget::unload();
}

void DvSFBitMaskWidget::setField(SoField* field)
{
    if (!m_boxes.isEmpty())
        clearEditor();
    DvSFieldWidget::setField(field);
    initClass();
}

void DvSFBitMaskWidget::initClass()
{
    if (!m_field)
        return;
    const auto* field = static_cast<const SoSFBitMask*>(m_field);
    for (const EnumEntry& entry : enumEntries(*field)) {
        if (entry.value == 0)
            continue;
        auto* box = new QCheckBox(entry.name, m_editionFrame);
        box->setChecked((field->getValue() & entry.value) != 0);
        m_boxLayout->addWidget(box);
        connect(box, SIGNAL(clicked()), this, SLOT(setBitMaskValue()));
        m_boxes.append(box);
    }
    if (!m_boxLayout->parent()) {
        m_editLayout->addLayout(m_boxLayout);
        m_editLayout->setAlignment(m_boxLayout, Qt::AlignVCenter);
    }
    m_labelSpacer->changeSize(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum);
}

void DvSFBitMaskWidget::setBitMaskValue()
{
    if (!m_field)
        return;
    auto* field = static_cast<SoSFBitMask*>(m_field);
    const std::vector<EnumEntry> entries = enumEntries(*field);
    int value = 0;
    for (auto box = m_boxes.crbegin(); box != m_boxes.crend(); ++box) {
        for (const EnumEntry& entry : entries) {
            if ((*box)->isChecked() && entry.name == (*box)->text())
                value |= entry.value;
        }
    }
    const KlvEditScope scope(field);
    field->setValue(value);
}

void DvSFBitMaskWidget::clearEditor()
{
    for (QCheckBox* box : m_boxes) {
        box->disconnect();
        m_boxLayout->removeWidget(box);
        delete box;
    }
    m_boxes.clear();
    m_editLayout->removeItem(m_boxLayout);
    m_boxLayout->setParent(nullptr);
}
