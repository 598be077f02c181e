#include "GeometryRules.h"

#include "GeometryRuns.h"
#include "NurbsRules.h"
#include "VrmlRules.h"

#include <Inventor/VRMLnodes/SoVRMLElevationGrid.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedFaceSet.h>
#include <Inventor/VRMLnodes/SoVRMLIndexedLineSet.h>
#include <Inventor/VRMLnodes/SoVRMLPointSet.h>
#include <Inventor/elements/SoMaterialBindingElement.h>
#include <Inventor/nodes/SoFaceSet.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoIndexedLineSet.h>
#include <Inventor/nodes/SoIndexedMarkerSet.h>
#include <Inventor/nodes/SoIndexedNurbsCurve.h>
#include <Inventor/nodes/SoIndexedNurbsSurface.h>
#include <Inventor/nodes/SoIndexedPointSet.h>
#include <Inventor/nodes/SoIndexedTriangleStripSet.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoNurbsCurve.h>
#include <Inventor/nodes/SoNurbsSurface.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoQuadMesh.h>
#include <Inventor/nodes/SoTriangleStripSet.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <unordered_map>

namespace {

using Binding = SoMaterialBindingElement;
using Demand = GeometryLists::Demand;
using Indices = GeometryLists::Indices;

constexpr int endOfFace = -1;
constexpr int anyNegative = std::numeric_limits<int>::min();

/// Of a list that says how many vertices each face, line or strip has. Shorter ones than the shortest are a
/// fault, or passed over.
QString runFault(const SoNonIndexedShape& shape, const SoMFInt32& runs, int shortest, bool canBeShorter,
                 GeometryRuns::Add add, GeometryLists& lists)
{
    const int count = runs.getNum();
    if (count == 0 || (count == 1 && runs[0] == 0))
        return QString();
    qint64 at = shape.startIndex.getValue();
    if (at < 0)
        return lists.vertexFault(at, 0);
    const bool isRest = count == 1 && runs[0] == -1;
    if (isRest && lists.vertices() <= 1)
        return QString();
    const int* const values = runs.getValues(0);
    Demand demand;
    for (int i = 0; i < count; ++i) {
        const qint64 run = isRest ? lists.vertices() - at : values[i];
        if (run >= shortest) {
            if (const QString fault = lists.vertexFault(at, run); !fault.isEmpty())
                return fault;
            demand.vertices += run;
            add(demand, run);
        } else if (!canBeShorter) {
            return GeometryRules::tr("has %1 vertices for a face or strip that needs %2")
                .arg(run)
                .arg(shortest);
        }
        at += run;
    }
    return lists.fault(demand, lists.bindings());
}

QString faceSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoFaceSet&>(node);
    return runFault(shape, shape.numVertices, 3, false, GeometryRuns::addFace, lists);
}

QString lineSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoLineSet&>(node);
    return runFault(shape, shape.numVertices, 2, true, GeometryRuns::addLine, lists);
}

QString triangleStripSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoTriangleStripSet&>(node);
    return runFault(shape, shape.numVertices, 3, false, GeometryRuns::addStrip, lists);
}

qint64 pointCount(const SoPointSet& shape, const GeometryLists& lists)
{
    const qint64 count = shape.numPoints.getValue();
    return count < 0 ? lists.vertices() - shape.startIndex.getValue() : count;
}

QString pointSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoPointSet&>(node);
    const qint64 count = pointCount(shape, lists);
    if (shape.numPoints.getValue() == 0)
        return QString();
    const QString fault = lists.vertexFault(shape.startIndex.getValue(), std::max<qint64>(count, 0));
    return fault.isEmpty() ? lists.fault(Demand::ofPoints(count), lists.bindings()) : fault;
}

/// Of the markers for so many points.
QString markerFault(const SoMFInt32& markers, qint64 points)
{
    const int known = SoMarkerSet::getNumDefinedMarkers();
    const int* const values = markers.getValues(0);
    const int* const end = values + std::min<qint64>(markers.getNum(), points);
    const int* const wrong = std::find_if(
        values, end, [known](int marker) { return marker < SoMarkerSet::NONE || marker >= known; });
    return wrong == end ? QString() : GeometryRules::tr("has no marker %1").arg(*wrong);
}

QString markerSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoMarkerSet&>(node);
    if (const QString fault = pointSet(node, lists); !fault.isEmpty())
        return fault;
    const qint64 count = pointCount(shape, lists);
    if (shape.markerIndex.getNum() == 0 && count > 0)
        return GeometryRules::tr("has no markers");
    return markerFault(shape.markerIndex, count);
}

QString quadMesh(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoQuadMesh&>(node);
    const qint64 columns = shape.verticesPerRow.getValue();
    const qint64 rows = shape.verticesPerColumn.getValue();
    const bool isDrawn = columns > 1 && rows > 1;
    const QString fault = lists.vertexFault(shape.startIndex.getValue(), isDrawn ? columns * rows : 0);
    if (!fault.isEmpty() || !isDrawn)
        return isDrawn || shape.startIndex.getValue() < 0 ? fault : QString();
    const QString made = lists.madeNormalsFault();
    return made.isEmpty()
               ? lists.fault({columns * rows, (columns - 1) * (rows - 1), rows - 1}, lists.bindings())
               : made;
}

Indices indicesOf(const SoIndexedShape& shape, int taken)
{
    return {shape.coordIndex, shape.normalIndex, shape.materialIndex, shape.textureCoordIndex, taken};
}

QString indexedFault(const SoIndexedShape& shape, int lowest, const GeometryRuns& runs, GeometryLists& lists)
{
    if (const QString fault = lists.vertexFault(shape.coordIndex, lowest); !fault.isEmpty())
        return fault;
    Indices indices = indicesOf(shape, runs.taken());
    indices.areAlwaysTaken = shape.isOfType(SoIndexedFaceSet::getClassTypeId()); // when it is made convex
    return lists.fault(runs.demand(), lists.bindings(), &indices);
}

QString indexedFaceSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedFaceSet&>(node);
    if (shape.coordIndex.getNum() < 3)
        return QString();
    const QString fault = lists.madeNormalsFault();
    const GeometryRuns runs(shape.coordIndex, 3, GeometryRuns::addFace);
    return fault.isEmpty() ? indexedFault(shape, anyNegative, runs, lists) : fault;
}

QString indexedTriangleStripSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedTriangleStripSet&>(node);
    if (shape.coordIndex.getNum() < 3)
        return QString();
    const GeometryRuns runs(shape.coordIndex, 3, GeometryRuns::addStrip);
    if (runs.demand().vertices == 0)
        return GeometryRules::tr("has no vertices between the ends of its strips");
    const QString fault = lists.madeNormalsFault();
    return fault.isEmpty() ? indexedFault(shape, endOfFace, runs, lists) : fault;
}

QString indexedLineSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedLineSet&>(node);
    if (shape.coordIndex.getNum() < 2)
        return QString();
    return indexedFault(shape, endOfFace, GeometryRuns(shape.coordIndex, 2, GeometryRuns::addLine), lists);
}

QString indexedPointSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedPointSet&>(node);
    if (const QString fault = lists.vertexFault(shape.coordIndex, endOfFace); !fault.isEmpty())
        return fault;
    const auto perPoint = [](int binding) -> int {
        const bool isIndexed = binding == Binding::PER_PART_INDEXED || binding == Binding::PER_FACE_INDEXED;
        return isIndexed ? Binding::PER_VERTEX_INDEXED : binding;
    };
    const int count = shape.coordIndex.getNum();
    const Indices indices = indicesOf(shape, count);
    return lists.fault(Demand::ofPoints(count),
                       {perPoint(lists.bindings().normals), perPoint(lists.bindings().colors),
                        lists.bindings().textureCoordinates},
                       &indices);
}

QString indexedMarkerSet(const SoNode& node, GeometryLists& lists)
{
    const auto& shape = static_cast<const SoIndexedMarkerSet&>(node);
    if (const QString fault = indexedPointSet(node, lists); !fault.isEmpty())
        return fault;
    const int count = shape.coordIndex.getNum();
    if (shape.markerIndex.getNum() < count)
        return GeometryRules::tr("has %1 points and %2 markers").arg(count).arg(shape.markerIndex.getNum());
    return markerFault(shape.markerIndex, count);
}

// A kind stands before those that it is derived from.
const GeometryRules::Rule Rules[] = {
    {SoFaceSet::getClassTypeId, faceSet},
    {SoLineSet::getClassTypeId, lineSet},
    {SoMarkerSet::getClassTypeId, markerSet},
    {SoPointSet::getClassTypeId, pointSet},
    {SoQuadMesh::getClassTypeId, quadMesh},
    {SoTriangleStripSet::getClassTypeId, triangleStripSet},
    {SoIndexedFaceSet::getClassTypeId, indexedFaceSet},
    {SoIndexedLineSet::getClassTypeId, indexedLineSet},
    {SoIndexedMarkerSet::getClassTypeId, indexedMarkerSet},
    {SoIndexedPointSet::getClassTypeId, indexedPointSet},
    {SoIndexedTriangleStripSet::getClassTypeId, indexedTriangleStripSet},
    {SoNurbsCurve::getClassTypeId, NurbsRules::nurbsCurve},
    {SoIndexedNurbsCurve::getClassTypeId, NurbsRules::indexedNurbsCurve},
    {SoNurbsSurface::getClassTypeId, NurbsRules::nurbsSurface},
    {SoIndexedNurbsSurface::getClassTypeId, NurbsRules::indexedNurbsSurface},
    {SoVRMLIndexedFaceSet::getClassTypeId, VrmlRules::vrmlIndexedFaceSet},
    {SoVRMLIndexedLineSet::getClassTypeId, VrmlRules::vrmlIndexedLineSet},
    {SoVRMLPointSet::getClassTypeId, VrmlRules::vrmlPointSet},
    {SoVRMLElevationGrid::getClassTypeId, VrmlRules::vrmlElevationGrid},
};

} // namespace

const GeometryRules::Rule* GeometryRules::find(const SoNode& node)
{
    // Asked for each of a million shapes.
    static std::unordered_map<int, const Rule*> known;
    const auto [place, isNew] = known.try_emplace(node.getTypeId().getKey(), nullptr);
    if (isNew) {
        const auto* const found = std::find_if(std::begin(Rules), std::end(Rules), [&node](const Rule& rule) {
            return node.isOfType(rule.type());
        });
        place->second = found == std::end(Rules) ? nullptr : found;
    }
    return place->second;
}
