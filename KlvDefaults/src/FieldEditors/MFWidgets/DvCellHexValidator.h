#pragma once

#include <QRegularExpression>
#include <QValidator>

#include <utility>

/// A validator for unsigned integers, `Base`, that takes hexadecimal ones too, as unsigned fields print them:
/// "0x" and digits, up to a limit.
template <typename Base>
class DvCellHexValidator : public Base
{
public:
    template <typename... BaseArgs>
    explicit DvCellHexValidator(unsigned int limit, BaseArgs&&... baseArgs)
        : Base(std::forward<BaseArgs>(baseArgs)...)
        , m_limit(limit)
    {
    }

    QValidator::State validate(QString& text, int& position) const override
    {
        static const QRegularExpression hexadecimal(QStringLiteral("^0[xX]([0-9a-fA-F]*)$"));
        const QValidator::State state = Base::validate(text, position);
        const QRegularExpressionMatch match = hexadecimal.match(text);
        if (state != QValidator::Invalid || !match.hasMatch())
            return state;
        if (match.capturedLength(1) == 0)
            return QValidator::Intermediate;
        bool fits = false;
        const unsigned int number = text.toUInt(&fits, 16);
        return fits && number <= m_limit ? QValidator::Acceptable : QValidator::Invalid;
    }

private:
    unsigned int m_limit;
};
