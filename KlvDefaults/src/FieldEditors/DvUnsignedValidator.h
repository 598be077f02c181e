#pragma once

#include <QValidator>

#include <limits>

/// What the validators for unsigned integers share. Texts are read in base 10 and have to fit into 32 bits,
/// however wide the bounds are. At first every such integer is acceptable.
template <typename Bound>
class DvUnsignedValidator : public QValidator
{
public:
    void setRange(Bound bottom, Bound top);
    Bound bottom() const { return m_bottom; }
    Bound top() const { return m_top; }

    /// An empty text is acceptable, a number outside the range intermediate, anything else invalid.
    State validate(QString& text, int& position) const override;

protected:
    using QValidator::QValidator;

private:
    Bound m_bottom = 0;
    Bound m_top = std::numeric_limits<Bound>::max();
};
