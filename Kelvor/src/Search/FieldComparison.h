#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class SoField;

/// Compares the value of fields with one that a person typed.
///
/// Numbers, truth values and times, single or in lists, are compared as numbers. What comes before or after
/// something is looked for in the components of vectors and colours too. All else is compared as text,
/// whatever the case, the blanks and the brackets, numbers within it to some six digits. Of a list it is
/// enough that one of its first elements (4,096 numbers, 500 texts) holds; a whole short list can be equal,
/// too. Evaluates connected fields.
class FieldComparison
{
public:
    /// How the field's value may stand to the one that was typed: several of them, combined.
    enum Relation
    {
        Less = 1,
        Equal = 2,
        Greater = 4,
        Unordered = 8, ///< one of them is not a number
        NotEqual = Less | Greater | Unordered
    };

    FieldComparison(int relations, const QString& value);

    /// False when the comparison can hold for no field: only numbers come before or after one another.
    bool isPossible() const { return isEquality() || m_number; }
    bool holds(SoField& field) const;

    /// True for `value`, the value of a field of type `Number`.
    template <typename Number>
    bool holdsNumber(Number value) const;

private:
    bool isEquality() const { return m_relations == Equal || m_relations == NotEqual; }
    bool holdsText(SoField& field) const;

    int m_relations;
    std::optional<double> m_number;
    QStringList m_words;
};
