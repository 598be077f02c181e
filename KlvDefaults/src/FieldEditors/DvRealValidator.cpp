#include "FieldEditors/DvRealValidator.h"

#include <QLocale>
#include <QRegularExpression>

#include <limits>

namespace {

/// Numbers below 1 that are shown with as many significant digits as larger ones have decimals.
QRegularExpression smallNumber(int digits)
{
    return QRegularExpression(QStringLiteral("^[-+]?0?\\.0+[0-9]{1,%1}$").arg(digits));
}

QString withPoint(QString text)
{
    return QLocale().decimalPoint() == QLatin1String(",") ? text.replace(QLatin1Char(','), QLatin1Char('.'))
                                                          : text;
}

} // namespace

DvRealValidator::DvRealValidator(Precision precision, QObject* parent)
    : QDoubleValidator(parent)
    , m_precision(precision)
{
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    setLocale(locale);
    resetRange();
}

void DvRealValidator::resetRange()
{
    if (m_precision == Float)
        setRange(std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max(), 6);
    else
        setRange(std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max(), 15);
}

QString DvRealValidator::fitting(const QString& text) const
{
    static const QRegularExpression number(QStringLiteral("^([-+]?[0-9]*\\.?)([0-9]*)(e[-+]?[0-9]+)?$"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch parts = number.match(withPoint(text).trimmed());
    for (qsizetype decimals = parts.capturedLength(2); parts.hasMatch() && decimals >= 0; --decimals) {
        QString cut = parts.captured(1) + parts.captured(2).left(decimals) + parts.captured(3);
        int position = 0;
        if (validate(cut, position) != Invalid)
            return cut;
    }
    return QString();
}

QValidator::State DvRealValidator::validate(QString& text, int& position) const
{
    text = withPoint(text);
    const State state = QDoubleValidator::validate(text, position);
    bool isNumber = false;
    text.toDouble(&isNumber);
    if (state == Invalid) {
        if (isNumber && smallNumber(decimals()).match(text).hasMatch())
            return Acceptable;
        // What is left of "inf" or "nan" while it is deleted.
        static const QRegularExpression notFinite(QStringLiteral("^-?[infa]+$"));
        return notFinite.match(text).hasMatch() ? Intermediate : Invalid;
    }
    return m_outsideAccepted && isNumber ? Acceptable : state;
}
