#pragma once

#include <Inventor/SoType.h>

#include <QCoreApplication>
#include <QString>

class GeometryLists;
class SoNode;

/// What shapes need to be measured, picked and drawn at all: Coin reads behind the ends of lists, or never
/// ends, where their numbers do not fit together. What is merely odd, and shows nothing, is no fault.
class GeometryRules
{
    Q_DECLARE_TR_FUNCTIONS(GeometryRules)

public:
    /// The rule of a kind of shapes.
    struct Rule
    {
        SoType (*type)();
        /// The end of a sentence that begins with the shape; empty when there is no fault. The lists are
        /// those of the state with which the shape is drawn.
        QString (*fault)(const SoNode& shape, GeometryLists& lists);
    };

    /// The rule for a node; null when there is none.
    static const Rule* find(const SoNode& node);
};
