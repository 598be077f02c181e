#pragma once

#include <QIntValidator>

/// Validator for 32-bit integers, decimal or hexadecimal with "0x", that lets them be typed but accepts none.
/// Kept: its bottom, 1, is above its top, -1. Who uses it asks `isComplete()` when the text is confirmed.
class DvOpenIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    explicit DvOpenIntValidator(QObject* parent);

    /// True for a whole 32-bit integer.
    static bool isComplete(const QString& text);

    /// Intermediate for an integer and for the beginning of one, anything else invalid.
    State validate(QString& text, int& position) const override;
};
