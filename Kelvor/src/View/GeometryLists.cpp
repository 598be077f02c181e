#include "GeometryLists.h"

#include <Inventor/elements/SoCoordinateElement.h>
#include <Inventor/elements/SoLazyElement.h>
#include <Inventor/elements/SoMaterialBindingElement.h>
#include <Inventor/elements/SoMultiTextureCoordinateElement.h>
#include <Inventor/elements/SoMultiTextureEnabledElement.h>
#include <Inventor/elements/SoNormalBindingElement.h>
#include <Inventor/elements/SoNormalElement.h>
#include <Inventor/elements/SoTextureCoordinateBindingElement.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/fields/SoMFInt32.h>

#include <algorithm>
#include <iterator>

namespace {

using Binding = SoMaterialBindingElement;
using Demand = GeometryLists::Demand;

// Scenes often have fewer normals, colors or texture coordinates than their bindings ask for. Coin reads on
// in the memory behind them, which shows something wrong but does no harm as long as it is near.
constexpr int allowance = 256; // elements

/// What one element of a list is for.
const struct Per
{
    int binding;
    qint64 Demand::*demand;
    bool isIndexed;
} Pers[] = {
    {Binding::PER_VERTEX, &Demand::vertices, false}, {Binding::PER_VERTEX_INDEXED, &Demand::vertices, true},
    {Binding::PER_FACE, &Demand::faces, false},      {Binding::PER_FACE_INDEXED, &Demand::faces, true},
    {Binding::PER_PART, &Demand::parts, false},      {Binding::PER_PART_INDEXED, &Demand::parts, true}};

const Per* perOf(int binding)
{
    const auto* const found = std::find_if(std::begin(Pers), std::end(Pers),
                                           [binding](const Per& per) { return per.binding == binding; });
    return found == std::end(Pers) ? nullptr : found;
}

QString nameOf(const SoMFInt32& field)
{
    SbName name;
    field.getContainer()->getFieldName(&field, name);
    return QString::fromUtf8(name.getString());
}

bool isGiven(const SoMFInt32& indices)
{
    return indices.getNum() > 0 && indices[0] >= 0;
}

} // namespace

/// A list, how its elements are taken, and how it is called.
struct GeometryLists::Use
{
    const char* name;
    qint64 length;
    int binding;
    const SoMFInt32* indices;
};

GeometryLists::GeometryLists(SoState* state)
    : m_vertices(SoCoordinateElement::getInstance(state)->getNum())
    , m_normals(SoNormalElement::getInstance(state)->getNum())
    , m_colors(SoLazyElement::getInstance(state)->getNumDiffuse())
    , m_bindings{SoNormalBindingElement::get(state), SoMaterialBindingElement::get(state),
                 SoTextureCoordinateBindingElement::get(state) ==
                         SoTextureCoordinateBindingElement::PER_VERTEX
                     ? Binding::PER_VERTEX
                     : Binding::PER_VERTEX_INDEXED}
    , m_is3D(SoCoordinateElement::getInstance(state)->is3D())
{
    int last = -1;
    const SbBool* const enabled = SoMultiTextureEnabledElement::getEnabledUnits(state, last);
    const auto* const coordinates = SoMultiTextureCoordinateElement::getInstance(state);
    for (int unit = 0; unit <= std::max(last, 0); ++unit) {
        const bool isTextured = unit <= last && enabled[unit];
        if ((!isTextured && unit > 0) ||
            coordinates->getType(unit) != SoMultiTextureCoordinateElement::EXPLICIT)
            continue;
        m_isTextured = m_isTextured || isTextured;
        const qint64 length = coordinates->getNum(unit);
        if (length > 0 && (m_textureCoordinates == 0 || length < m_textureCoordinates))
            m_textureCoordinates = length;
    }
}

QString GeometryLists::vertexFault(qint64 first, qint64 count) const
{
    if (first < 0)
        return tr("starts at vertex %1").arg(first);
    return first + count > m_vertices ? tr("takes %1 vertices and has %2").arg(first + count).arg(m_vertices)
                                      : QString();
}

QString GeometryLists::vertexFault(const SoMFInt32& indices, int lowest) const
{
    const int* const values = indices.getValues(0);
    const int* const end = values + indices.getNum();
    const int* const wrong =
        std::find_if(values, end, [this, lowest](int i) { return i < lowest || i >= m_vertices; });
    if (wrong == end)
        return QString();
    return tr("has %1 in %2, and the last of its vertices is %3")
        .arg(*wrong)
        .arg(nameOf(indices))
        .arg(m_vertices - 1);
}

QString GeometryLists::madeNormalsFault() const
{
    const bool areMade = m_normals == 0 && perOf(m_bindings.normals);
    return areMade && !m_is3D ? tr("needs normals for vertices with four coordinates") : QString();
}

QString GeometryLists::fault(const Demand& demand, const Bindings& bindings, const Indices* indices)
{
    const Use normals{QT_TR_NOOP("normals"), m_normals, bindings.normals,
                      indices ? &indices->normals : nullptr};
    const Use colors{QT_TR_NOOP("colors"), m_colors, bindings.colors, indices ? &indices->colors : nullptr};
    const Use textureCoordinates{QT_TR_NOOP("texture coordinates"), m_textureCoordinates,
                                 bindings.textureCoordinates,
                                 indices ? &indices->textureCoordinates : nullptr};
    if (m_normals > 0)
        if (const QString fault = useFault(normals, demand, indices); !fault.isEmpty())
            return fault;
    if (m_textureCoordinates > 0)
        if (const QString fault = useFault(textureCoordinates, demand, indices); !fault.isEmpty()) {
            if (m_isTextured)
                return fault;
            m_dependsOnAppearance = true;
        }
    Use fewest = colors;
    fewest.length = 1;
    m_dependsOnAppearance = m_dependsOnAppearance || !useFault(fewest, demand, indices).isEmpty();
    return useFault(colors, demand, indices);
}

QString GeometryLists::useFault(const Use& use, const Demand& demand, const Indices* indices) const
{
    const Per* const per = perOf(use.binding);
    if (!per)
        return QString();
    const qint64 taken = demand.*per->demand;
    if (!indices || !per->isIndexed) {
        if (taken > use.length + allowance)
            return tr("takes %1 %2 and has %3").arg(taken).arg(tr(use.name)).arg(use.length);
        const bool isTaken = indices && indices->areAlwaysTaken && isGiven(*use.indices);
        return isTaken ? indexFault(use, *use.indices, taken) : QString();
    }
    const bool isPerVertex = per->demand == &Demand::vertices;
    if (!isGiven(*use.indices) && !isPerVertex)
        return tr("needs indices in %1").arg(nameOf(*use.indices));
    return indexFault(use, isGiven(*use.indices) ? *use.indices : indices->vertices,
                      isPerVertex ? indices->taken : taken);
}

/// Of a list with so many needed indices.
QString GeometryLists::indexFault(const Use& use, const SoMFInt32& list, qint64 needed)
{
    if (list.getNum() < needed)
        return tr("takes %1 indices of %2 and has %3").arg(needed).arg(nameOf(list)).arg(list.getNum());
    const int* const values = list.getValues(0);
    const int* const end = values + needed;
    const int* const wrong =
        std::find_if(values, end, [&use](int i) { return i < -allowance || i >= use.length + allowance; });
    if (wrong == end)
        return QString();
    return tr("has %1 in %2, and the last of its %3 is %4")
        .arg(*wrong)
        .arg(nameOf(list), tr(use.name))
        .arg(use.length - 1);
}
