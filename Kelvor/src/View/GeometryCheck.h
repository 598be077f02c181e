#pragma once

#include "GeometryRules.h"

#include <Inventor/actions/SoCallbackAction.h>

#include <QCoreApplication>
#include <QString>

/// Looks through a scene for the first shape that Coin would not survive (`GeometryRules`), in the
/// state in which it would be measured, picked or drawn. Of nodes that choose by distance all children are
/// looked at.
class GeometryCheck : public SoCallbackAction
{
    SO_ACTION_HEADER(GeometryCheck);
    Q_DECLARE_TR_FUNCTIONS(GeometryCheck)

public:
    /// Registers the type with Coin, once; to be called before the first instance is made.
    static void initClass();

    GeometryCheck();
    ~GeometryCheck() override;

    /// What is wrong, as a clause that begins with the shape; empty when nothing is.
    QString fault(SoNode* root);
    /// Whether other colors or textures could have made a fault.
    bool dependsOnAppearance() const { return m_dependsOnAppearance; }

private:
    static void passShape(SoAction* action, SoNode* node);
    static void passLevels(SoAction* action, SoNode* node);

    QString shapeFault(SoNode& shape, const GeometryRules::Rule& rule);

    QString m_fault;
    bool m_dependsOnAppearance = false;
};
