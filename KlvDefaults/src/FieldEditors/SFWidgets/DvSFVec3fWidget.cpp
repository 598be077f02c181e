#include "FieldEditors/SFWidgets/DvSFVec3fWidget.h"

DvSFVec3fWidget::DvSFVec3fWidget(const char* name)
    : DvSFVectorWidget("SFVec3f",
                       Look{"SFVec3fLayout", "SFVec3fLabel", "SFVec3fLine", "SF3fBoxVSpacing",
                            "SF3fBoxHSpacing", "SF3fBoxHMargin"},
                       QStringList{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")},
                       name ? name : "DvSFVec3fWidget")
{
}

DvSFVec3fWidget::~DvSFVec3fWidget() = default;
