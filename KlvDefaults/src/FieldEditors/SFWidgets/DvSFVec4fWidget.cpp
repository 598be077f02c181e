#include "FieldEditors/SFWidgets/DvSFVec4fWidget.h"

DvSFVec4fWidget::DvSFVec4fWidget(const char* name)
    : DvSFVectorWidget(
          "SFVec4f",
          QStringList{QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("w")},
          name ? name : "DvSFVec4fWidget")
{
}

DvSFVec4fWidget::~DvSFVec4fWidget() = default;
