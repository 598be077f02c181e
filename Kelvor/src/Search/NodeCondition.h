#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <unordered_set>

class FieldComparison;
class SoNode;

/// What is asked of a node. Looks at the node itself only, not at what is below it.
using NodeCondition = std::function<bool(SoNode*)>;

/// The nodes that have several places in a graph: filled by who walks the graph, before a condition that is
/// made with it is asked.
using SharedNodes = std::unordered_set<const SoNode*>;

/// What can be asked of a node, each function for one thing. Case never matters.
namespace NodeConditions {

/// Its name or its type contains the text, or one of its fields is called so. The prefix "So" of the type may
/// be there or not.
NodeCondition word(const QString& text);
NodeCondition name(const QString& text);
/// It is of the type, or of one derived from it; if there is no such type, its type's name contains the text.
/// The prefix may be there or not.
NodeCondition type(const QString& text);
/// It has a field of that name.
NodeCondition field(const QString& name);
/// A field that is not at its default contains the text: strings anywhere, other kinds in what a list of
/// fields shows of them.
NodeCondition value(const QString& text);
NodeCondition comparison(const QString& field, const FieldComparison& comparison);

/// The words for the states that can be asked for.
QStringList states();
/// The state of that word; empty when there is none. `shared` is asked for nothing but "shared".
NodeCondition state(const QString& word, const SharedNodes* shared);

} // namespace NodeConditions
