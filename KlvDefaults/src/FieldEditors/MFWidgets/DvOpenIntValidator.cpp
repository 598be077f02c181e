#include "FieldEditors/MFWidgets/DvOpenIntValidator.h"

#include <QRegularExpression>

DvOpenIntValidator::DvOpenIntValidator(QObject* parent)
    : QIntValidator(1, -1, parent)
{
}

bool DvOpenIntValidator::isComplete(const QString& text)
{
    // With the bases that the scene graph's text form has: "0x1f" is hexadecimal, "017" octal.
    static const QRegularExpression integer(QStringLiteral("^[-+]?(0[xX][0-9a-fA-F]+|[0-9]+)$"));
    bool fits = false;
    text.toInt(&fits, 0);
    return fits && integer.match(text).hasMatch();
}

QValidator::State DvOpenIntValidator::validate(QString& text, int&) const
{
    static const QRegularExpression beginning(QStringLiteral("^[-+]?(0[xX])?$"));
    return isComplete(text) || beginning.match(text).hasMatch() ? Intermediate : Invalid;
}
