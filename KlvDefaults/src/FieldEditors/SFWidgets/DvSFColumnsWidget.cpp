#include "FieldEditors/SFWidgets/DvSFColumnsWidget.h"

#include "FieldEditors/SFWidgets/DvCompactStyle.h"
#include "FieldEditors/klsettings_fieldEditor.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <QHBoxLayout>
#include <QLabel>

DvSFColumnsWidget::DvSFColumnsWidget(SoType kind, const char* kindName, const Look& look,
                                     const QStringList& captions, const char* name)
    : DvSFieldWidget(name)
    , m_look(look)
    , m_captions(captions)
{
    m_handledType = kind;
    m_handledTypeName = kindName;
}

DvSFColumnsWidget::~DvSFColumnsWidget() = default;

void DvSFColumnsWidget::load()
{
    setFieldName(toUtf16(m_handledTypeName));
    DvSFieldWidget::load();
    expandSpacers();
    m_labels.clear();
    const int margin = klsettings_fieldEditor(m_look.rowMargin);
    m_editLayout->setContentsMargins(margin, margin, margin, margin);
    m_editLayout->setSpacing(klsettings_fieldEditor(m_look.rowSpacing));
}

QLabel* DvSFColumnsWidget::addColumn(QWidget* input)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(klsettings_fieldEditor(m_look.columnSpacing));
    column->setObjectName(QString::fromLatin1(m_look.layoutName));

    auto* label = new QLabel(m_editionFrame);
    label->setObjectName(QString::fromLatin1(m_look.labelName));
    label->setBuddy(input);
    DvCompactStyle::apply(label, klsettings_fieldEditor("SFVecLabelHeight"));
    column->addWidget(label);

    input->setObjectName(QString::fromLatin1(m_look.inputName));
    DvCompactStyle::apply(input, klsettings_fieldEditor("SFVecLineHeight"));
    column->addWidget(input);

    column->setSizeConstraint(QLayout::SetMinimumSize);
    m_editLayout->addLayout(column);
    // Free height goes around the column, not between its caption and its input.
    m_editLayout->setAlignment(column, Qt::AlignVCenter);
    m_labels.push_back(label);
    return label;
}

void DvSFColumnsWidget::setNameLabels(const QString* names)
{
    for (QLabel* label : m_labels) {
        label->buddy()->setAccessibleName(*names);
        label->setText(tr("<p>") + *names + tr("</p>"));
        ++names;
    }
}
