#include "GeometryRuns.h"

#include <Inventor/fields/SoMFInt32.h>

#include <algorithm>

void GeometryRuns::addFace(Demand& demand, qint64)
{
    demand.parts = ++demand.faces;
}

void GeometryRuns::addLine(Demand& demand, qint64 vertices)
{
    ++demand.faces;
    demand.parts += vertices - 1;
}

void GeometryRuns::addStrip(Demand& demand, qint64 vertices)
{
    ++demand.parts;
    demand.faces += std::max<qint64>(vertices - 2, 0);
}

GeometryRuns::GeometryRuns(const SoMFInt32& indices, int shortest, Add add)
{
    const int count = indices.getNum();
    const int* const values = indices.getValues(0);
    bool isComplete = true;
    qint64 run = 0;
    for (int i = 0; i < count; ++i) {
        const bool isVertex = values[i] >= 0;
        run += isVertex;
        if (isVertex && i < count - 1)
            continue;
        m_demand.vertices += run;
        if (run > 0)
            add(m_demand, run);
        isComplete = isComplete && run >= shortest;
        run = 0;
    }
    // Coin takes the end of a face that is too short for one of its vertices.
    m_taken = count > 0 && values[count - 1] < 0 && isComplete ? count - 1 : count;
}
