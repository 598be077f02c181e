#pragma once

#include <QValidator>

#include <limits>

/// Validator for unsigned 32-bit integers in base 10. At first every one of them is acceptable.
class QUIntValidator : public QValidator
{
    Q_OBJECT

public:
    explicit QUIntValidator(QObject* parent = nullptr);

    void setRange(unsigned int bottom, unsigned int top);
    unsigned int bottom() const { return m_bottom; }
    unsigned int top() const { return m_top; }

    /// An empty text is acceptable, a number outside the range intermediate, anything else invalid.
    State validate(QString& text, int& position) const override;

private:
    unsigned int m_bottom = 0;
    unsigned int m_top = std::numeric_limits<unsigned int>::max();
};
