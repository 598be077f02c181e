#pragma once

#include <QDoubleValidator>

/// Validator for real numbers as they are shown and read here, whatever the locale: a point before the
/// decimals and no group separators. Where people write a comma before the decimals it becomes a point as it
/// is typed.
///
/// Its range is at first all finite numbers of the precision.
class DvRealValidator : public QDoubleValidator
{
    Q_OBJECT

public:
    enum Precision
    {
        Float, ///< 6 decimals, or significant digits below 1
        Double ///< 15 of them
    };

    DvRealValidator(Precision precision, QObject* parent);

    /// Makes all finite numbers of the precision the range again.
    void resetRange();
    /// With true, finite numbers outside the range are accepted too: who reads them brings them into the
    /// range.
    void setOutsideAccepted(bool accepted) { m_outsideAccepted = accepted; }

    /// A number cut to the decimals that are accepted, without blanks around it; empty for a text that is no
    /// number.
    QString fitting(const QString& text) const;

    State validate(QString& text, int& position) const override;

private:
    Precision m_precision;
    bool m_outsideAccepted = false;
};
