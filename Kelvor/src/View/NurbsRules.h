#pragma once

#include <QCoreApplication>
#include <QString>

class GeometryLists;
class SoNode;

/// The rules of `GeometryRules` for curves and surfaces.
class NurbsRules
{
    Q_DECLARE_TR_FUNCTIONS(NurbsRules)

public:
    static QString nurbsCurve(const SoNode& node, GeometryLists& lists);
    static QString indexedNurbsCurve(const SoNode& node, GeometryLists& lists);
    static QString nurbsSurface(const SoNode& node, GeometryLists& lists);
    static QString indexedNurbsSurface(const SoNode& node, GeometryLists& lists);
};
