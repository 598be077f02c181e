#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class SoField;

/// Compares the value of fields with one that a person typed.
///
/// A single number is compared with all kinds that consist of numbers, truth values and times among them. A
/// vector, a colour, a rotation, a box is equal to it when all components are, and otherwise it is enough
/// that one component holds. All else is compared as text, whatever the case, the blanks and the brackets,
/// numbers within it to some six digits. Of a list it is enough that one of its first elements (4,096
/// numbers, 500 texts) holds; a whole short list can be equal, too. Evaluates connected fields.
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

    /// The numbers that one value consists of, in the type that the field holds them in.
    template <typename Numbers>
    bool holdsNumbers(const Numbers& numbers) const;

private:
    template <typename Number>
    bool holdsNumber(Number value) const;
    bool isEquality() const { return m_relations == Equal || m_relations == NotEqual; }
    bool holdsText(SoField& field) const;

    int m_relations;
    std::optional<double> m_number;
    QStringList m_words;
};
