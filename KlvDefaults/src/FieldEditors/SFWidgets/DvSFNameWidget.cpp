#include "FieldEditors/SFWidgets/DvSFNameWidget.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/fields/SoSFName.h>

DvSFNameWidget::DvSFNameWidget(const char* name)
    : DvSFTextWidget(SoSFName::getClassTypeId(), "SFName", name ? name : "DvSFNameWidget")
{
}

DvSFNameWidget::~DvSFNameWidget() = default;

QString DvSFNameWidget::getText(const SoField* field) const
{
    // Names from files hold UTF-8, those entered here Latin-1.
    const char* name = static_cast<const SoSFName*>(field)->getValue().getString();
    const QString text = QString::fromUtf8(name);
    return text.toUtf8() == name ? text : QString::fromLatin1(name);
}

void DvSFNameWidget::setText(SoField* field, const QString& text) const
{
    static_cast<SoSFName*>(field)->setValue(SbName(toLatin1(fromUtf16(text)).constData()));
}
