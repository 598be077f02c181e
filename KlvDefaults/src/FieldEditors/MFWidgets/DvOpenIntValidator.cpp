#include "FieldEditors/MFWidgets/DvOpenIntValidator.h"

#include <QRegularExpression>

DvOpenIntValidator::DvOpenIntValidator(QObject* parent)
    : QIntValidator(1, -1, parent)
{
}

bool DvOpenIntValidator::isComplete(const QString& text)
{
    static const QRegularExpression integer(QStringLiteral("^[-+]?([0-9]+|(0[xX])[0-9a-fA-F]+)$"));
    const QRegularExpressionMatch match = integer.match(text);
    bool fits = false;
    text.toInt(&fits, match.capturedLength(2) > 0 ? 16 : 10);
    return match.hasMatch() && fits;
}

QValidator::State DvOpenIntValidator::validate(QString& text, int&) const
{
    static const QRegularExpression beginning(QStringLiteral("^[-+]?(0[xX])?$"));
    return isComplete(text) || beginning.match(text).hasMatch() ? Intermediate : Invalid;
}
