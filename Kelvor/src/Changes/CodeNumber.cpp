#include "Changes/CodeNumber.h"

#include <Inventor/fields/SoSFDouble.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace {

template <class Real>
QString shortest(Real number)
{
    char digits[40];
    return QString::fromLatin1(digits, std::to_chars(digits, std::end(digits), number).ptr - digits);
}

/// A text that Coin reads as this double. It misreads the last digits of most: often it takes a neighbour, or
/// more digits, or an exponent to make it read what is meant.
QString readable(double number)
{
    constexpr int farthest = 4;
    constexpr std::pair<double, const char*> exponents[] = {{1, ""}, {0.1, "e1"}, {1000, "e-3"}};
    SoSFDouble field;
    const auto reads = [&](const QString& text) {
        return field.set(text.toLatin1().constData()) && field.getValue() == number;
    };
    const QString exact = shortest(number);
    if (reads(exact))
        return exact;
    for (const auto& [factor, exponent] : exponents) {
        double below = number;
        double above = number;
        for (int distance = 0; distance <= farthest; ++distance) {
            for (const double neighbour : {below, above}) {
                for (int digits = 15; digits <= 20; ++digits) {
                    const QString text =
                        QString::number(neighbour * factor, 'g', digits) + QLatin1String(exponent);
                    if (reads(text))
                        return text;
                }
            }
            below = std::nextafter(below, -std::numeric_limits<double>::infinity());
            above = std::nextafter(above, std::numeric_limits<double>::infinity());
        }
    }
    return exact;
}

template <class Real>
QString realNumber(Real number, CodeLanguage language)
{
    constexpr bool isFloat = std::is_same_v<Real, float>;
    if (language == CodeLanguage::Inventor)
        return isFloat || !std::isfinite(number) ? shortest(number) : readable(number);
    if (!std::isfinite(number))
        return QStringLiteral("%1std::numeric_limits<%2>::%3()")
            .arg(QLatin1String(std::signbit(number) ? "-" : ""), QLatin1String(isFloat ? "float" : "double"),
                 QLatin1String(std::isnan(number) ? "quiet_NaN" : "infinity"));
    QString text = shortest(number);
    if (!text.contains(QLatin1Char('.')) && !text.contains(QLatin1Char('e')))
        text += QLatin1String(".0");
    return isFloat ? text + QLatin1Char('f') : text;
}

} // namespace

QString codeNumber(float number, CodeLanguage language)
{
    return realNumber(number, language);
}

QString codeNumber(double number, CodeLanguage language)
{
    return realNumber(number, language);
}
