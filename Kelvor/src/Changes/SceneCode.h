#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>

class SoField;
class SoNode;

/// Values of fields as source text, to carry what was tuned back to where the scene is made.
class SceneCode
{
    Q_DECLARE_TR_FUNCTIONS(SceneCode)

public:
    /// The fields as Inventor text, one block for each of their nodes with only these fields in it:
    /// `DEF Gold Material { transparency 0.5 }`. `root` is where the nodes are; comments say how to get to
    /// those without a name. May be null.
    static QString inventorText(const QList<SoField*>& fields, SoNode* root);

    /// C++ statements that give the fields their present values with the typed setters of their classes. Each
    /// node is fetched once into a variable: by its name, or by the way from a variable `root`. What C++ has
    /// no exact form for is set from text.
    static QString cppStatements(const QList<SoField*>& fields, SoNode* root);

    /// The statement for one field, where the container's variable is expected to be called after its name or
    /// type: `gold->transparency.setValue(0.5f);`.
    static QString cppStatement(SoField& field);
};
