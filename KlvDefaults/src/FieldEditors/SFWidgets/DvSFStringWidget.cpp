#include "FieldEditors/SFWidgets/DvSFStringWidget.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoSFString.h>

DvSFStringWidget::DvSFStringWidget(const char* name)
    : DvSFTextWidget(SoSFString::getClassTypeId(), "SFString", name ? name : "DvSFStringWidget")
{
}

DvSFStringWidget::~DvSFStringWidget() = default;

QString DvSFStringWidget::getText(const SoField* field) const
{
    return toUtf16(static_cast<const SoSFString*>(field)->getValue());
}

void DvSFStringWidget::setText(SoField* field, const QString& text) const
{
    static_cast<SoSFString*>(field)->setValue(fromUtf16(text));
}
