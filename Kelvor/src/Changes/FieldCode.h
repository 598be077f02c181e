#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

class SoField;
class SoFieldContainer;

/// The value of one field as source text.
class FieldCode
{
    Q_DECLARE_TR_FUNCTIONS(FieldCode)

public:
    /// What stands after the field's name in an Inventor file, without the mark of ignored fields; no value
    /// for what reading would not give back: not-a-number, nodes, paths, some strings that end in a
    /// backslash.
    static std::optional<QString> inventorValue(SoField& field);

    /// The C++ statements that give a field its value and flags, each ending with a line break. `member` is
    /// an expression for the field and the operator after it: `gold->transparency.`. A comment where there is
    /// no way.
    static QString cppStatements(SoField& field, const QString& member);

    /// An expression for a node or an engine that has a name of its own: `SoNode::getByName("Gold")`; empty
    /// for others.
    static QString byName(SoFieldContainer* container);
};
