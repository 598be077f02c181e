#pragma once

#include "GeometryLists.h"

/// The faces, lines or strips that indices tell, and what they take.
class GeometryRuns
{
public:
    using Demand = GeometryLists::Demand;
    /// What one face, line or strip of some vertices adds.
    using Add = void (*)(Demand& demand, qint64 vertices);

    static void addFace(Demand& demand, qint64 vertices);
    static void addLine(Demand& demand, qint64 vertices);
    static void addStrip(Demand& demand, qint64 vertices);

    /// Negative indices end a run; one below the shortest is incomplete.
    GeometryRuns(const SoMFInt32& indices, int shortest, Add add);

    const Demand& demand() const { return m_demand; }
    /// How many indices are taken.
    int taken() const { return m_taken; }

private:
    Demand m_demand;
    int m_taken;
};
