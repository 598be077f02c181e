#include "VrmlRules.h"

#include "GeometryRuns.h"

#include <Inventor/VRMLnodes/SoVRMLElevationGrid.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedLineSet.h>
#include <Inventor/VRMLnodes/SoVRMLPointSet.h>
#include <Inventor/elements/SoMaterialBindingElement.h>

#include <limits>

namespace {

using Binding = SoMaterialBindingElement;
using Demand = GeometryLists::Demand;
using Indices = GeometryLists::Indices;

constexpr int endOfFace = -1;

/// The binding of a list that has one element for each vertex or for each face.
int vrmlBinding(const SoSFNode& list, const SoSFBool& perVertex, const SoMFInt32& indices)
{
    if (!list.getValue())
        return Binding::OVERALL;
    if (perVertex.getValue())
        return Binding::PER_VERTEX_INDEXED;
    return indices.getNum() > 0 && indices[0] >= 0 ? Binding::PER_FACE_INDEXED : Binding::PER_FACE;
}

} // namespace

QString VrmlRules::vrmlIndexedFaceSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoVRMLIndexedFaceSet&>(node);
    if (shape.coordIndex.getNum() < 3)
        return QString();
    const GeometryRuns runs(shape.coordIndex, 3, GeometryRuns::addFace);
    if (!shape.coord.getValue() || runs.demand().vertices == 0)
        return tr("has no vertices");
    if (const QString fault = lists.vertexFault(shape.coordIndex, endOfFace); !fault.isEmpty())
        return fault;
    const Indices indices{shape.coordIndex, shape.normalIndex, shape.colorIndex, shape.texCoordIndex,
                          runs.taken()};
    return lists.fault(runs.demand(),
                       {vrmlBinding(shape.normal, shape.normalPerVertex, shape.normalIndex),
                        vrmlBinding(shape.color, shape.colorPerVertex, shape.colorIndex),
                        Binding::PER_VERTEX_INDEXED},
                       &indices);
}

QString VrmlRules::vrmlIndexedLineSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoVRMLIndexedLineSet&>(node);
    if (const QString fault = lists.vertexFault(shape.coordIndex, endOfFace); !fault.isEmpty())
        return fault;
    if (shape.color.getValue() && shape.colorIndex.getNum() > 0 && shape.colorIndex[0] < 0)
        return tr("begins with %1 in colorIndex").arg(shape.colorIndex[0]);
    const GeometryRuns runs(shape.coordIndex, 2, GeometryRuns::addLine);
    const Indices indices{shape.coordIndex, shape.coordIndex, shape.colorIndex, shape.coordIndex,
                          runs.taken()};
    return lists.fault(runs.demand(),
                       {Binding::OVERALL, vrmlBinding(shape.color, shape.colorPerVertex, shape.colorIndex),
                        Binding::PER_VERTEX_INDEXED},
                       &indices);
}

QString VrmlRules::vrmlPointSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoVRMLPointSet&>(node);
    return lists.fault(Demand::ofPoints(lists.vertices()),
                       {Binding::OVERALL, shape.color.getValue() ? Binding::PER_VERTEX : Binding::OVERALL,
                        Binding::OVERALL});
}

QString VrmlRules::vrmlElevationGrid(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoVRMLElevationGrid&>(node);
    const qint64 columns = shape.xDimension.getValue();
    const qint64 rows = shape.zDimension.getValue();
    if (columns < 2 || rows < 2)
        return QString();
    if (columns * rows > std::numeric_limits<int>::max())
        return tr("takes %1 heights and has %2").arg(columns * rows).arg(shape.height.getNum());
    if (columns * rows > shape.height.getNum())
        return QString(); // not drawn
    const auto binding = [](const SoSFNode& list, const SoSFBool& perVertex) -> int {
        return !list.getValue()       ? Binding::OVERALL
               : perVertex.getValue() ? Binding::PER_VERTEX
                                      : Binding::PER_FACE;
    };
    return lists.fault({columns * rows, (columns - 1) * (rows - 1), 0},
                       {binding(shape.normal, shape.normalPerVertex),
                        binding(shape.color, shape.colorPerVertex), Binding::PER_VERTEX});
}
