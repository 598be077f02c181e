#pragma once

#include <QCoreApplication>
#include <QString>

class GeometryLists;
class SoNode;

/// The rules of `GeometryRules` for shapes of VRML 2.
class VrmlRules
{
    Q_DECLARE_TR_FUNCTIONS(VrmlRules)

public:
    static QString vrmlIndexedFaceSet(const SoNode& node, GeometryLists& lists);
    static QString vrmlIndexedLineSet(const SoNode& node, GeometryLists& lists);
    static QString vrmlPointSet(const SoNode& node, GeometryLists& lists);
    static QString vrmlElevationGrid(const SoNode& node, GeometryLists& lists);
};
