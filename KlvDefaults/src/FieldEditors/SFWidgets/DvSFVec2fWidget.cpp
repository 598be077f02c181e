#include "FieldEditors/SFWidgets/DvSFVec2fWidget.h"

DvSFVec2fWidget::DvSFVec2fWidget(const char* name)
    : DvSFVectorWidget("SFVec2f",
                       Look{"SFVec2fLayout", "SFVec2fLabel", "SFVec2fBox", "SF2BoxVSpacing", "SF2BoxHSpacing",
                            "SF2BoxHMargin"},
                       QStringList{QStringLiteral("x"), QStringLiteral("y")}, name ? name : "DvSFVec2fWidget")
{
}

DvSFVec2fWidget::~DvSFVec2fWidget() = default;
