#include "NurbsRules.h"

#include "GeometryLists.h"

#include <Inventor/elements/SoMaterialBindingElement.h>
#include <Inventor/nodes/SoIndexedNurbsCurve.h>
#include <Inventor/nodes/SoIndexedNurbsSurface.h>
#include <Inventor/nodes/SoNurbsCurve.h>
#include <Inventor/nodes/SoNurbsSurface.h>

#include <algorithm>

namespace {

using Binding = SoMaterialBindingElement;
using Demand = GeometryLists::Demand;
using Indices = GeometryLists::Indices;

constexpr int highestOrder = 24; // of curves, in GLU
constexpr int lowestIndex = -1;

/// Of the control points of a curve or surface, by indices or in order.
QString controlFault(qint64 count, const SoMFInt32* indices, GeometryLists& lists)
{
    if (!indices)
        return lists.vertexFault(0, count);
    if (indices->getNum() < count)
        return NurbsRules::tr("takes %1 indices of coordIndex and has %2").arg(count).arg(indices->getNum());
    return lists.vertexFault(*indices, lowestIndex);
}

QString knotFault(qint64 controls, const SoMFFloat& knots)
{
    const qint64 order = knots.getNum() - controls;
    if (order < 2 || order > controls || order > highestOrder)
        return NurbsRules::tr("has %1 control points and %2 knots").arg(controls).arg(knots.getNum());
    const float* const values = knots.getValues(0);
    return std::is_sorted(values, values + knots.getNum()) ? QString()
                                                           : NurbsRules::tr("has knots that go down");
}

template <class Curve>
QString curve(const Curve& shape, const SoMFInt32* coordIndex, GeometryLists& lists)
{
    const int controls = shape.numControlPoints.getValue();
    const QString fault = knotFault(controls, shape.knotVector);
    return fault.isEmpty() ? controlFault(controls, coordIndex, lists) : fault;
}

/// Of what a texture is laid over a surface with.
template <class Surface>
QString textureFault(const Surface& shape, const SoMFInt32* indices, GeometryLists& lists)
{
    const qint64 across = shape.numSControlPoints.getValue();
    const qint64 along = shape.numTControlPoints.getValue();
    if (across == 0 || along == 0 || shape.sKnotVector.getNum() == 0 || shape.tKnotVector.getNum() == 0)
        return QString();
    for (const QString& fault : {knotFault(across, shape.sKnotVector), knotFault(along, shape.tKnotVector)})
        if (!fault.isEmpty())
            return fault;
    const GeometryLists::Bindings none{Binding::OVERALL, Binding::OVERALL, Binding::PER_VERTEX_INDEXED};
    if (!indices || indices->getNum() == 0)
        return lists.fault(Demand::ofPoints(across * along), none);
    if (indices->getNum() < across * along)
        return NurbsRules::tr("takes %1 indices of textureCoordIndex and has %2")
            .arg(across * along)
            .arg(indices->getNum());
    const Indices all{*indices, *indices, *indices, *indices, indices->getNum()};
    return lists.fault(Demand::ofPoints(across * along), none, &all);
}

template <class Surface>
QString surface(const Surface& shape, const SoMFInt32* coordIndex, const SoMFInt32* textureCoordIndex,
                GeometryLists& lists)
{
    const qint64 across = shape.numUControlPoints.getValue();
    const qint64 along = shape.numVControlPoints.getValue();
    for (const QString& fault : {knotFault(across, shape.uKnotVector), knotFault(along, shape.vKnotVector),
                                 controlFault(across * along, coordIndex, lists)})
        if (!fault.isEmpty())
            return fault;
    return textureFault(shape, textureCoordIndex, lists);
}

} // namespace

QString NurbsRules::nurbsCurve(const SoNode& node, GeometryLists& lists)
{
    return curve(static_cast<const SoNurbsCurve&>(node), nullptr, lists);
}

QString NurbsRules::indexedNurbsCurve(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedNurbsCurve&>(node);
    return curve(shape, &shape.coordIndex, lists);
}

QString NurbsRules::nurbsSurface(const SoNode& node, GeometryLists& lists)
{
    return surface(static_cast<const SoNurbsSurface&>(node), nullptr, nullptr, lists);
}

QString NurbsRules::indexedNurbsSurface(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedNurbsSurface&>(node);
    return surface(shape, &shape.coordIndex, &shape.textureCoordIndex, lists);
}
