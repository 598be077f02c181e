#include "Changes/SceneCode.h"

QString SceneCode::inventorText(const QList<SoField*>&, SoNode*)
{
    return QString();
}

QString SceneCode::cppStatements(const QList<SoField*>&, SoNode*)
{
    return QString();
}

QString SceneCode::cppStatement(SoField&)
{
    return QString();
}
