#include "FieldEditors/SFWidgets/DvLineEdit.h"

#include <limits>

DvLineEdit::DvLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("lineEdit"));
    setAccessibleName(tr("Value"));
    setAlignment(Qt::AlignLeft);
    setMaxLength(std::numeric_limits<int>::max());
}
