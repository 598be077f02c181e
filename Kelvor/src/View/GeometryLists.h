#pragma once

#include <QCoreApplication>
#include <QString>

class SoMFInt32;
class SoState;

/// How long the lists are that a shape takes its vertices, normals, colors and texture coordinates from,
/// where it stands in a scene, and whether they are long enough.
///
/// Faults are told as the end of a sentence that begins with the shape; empty when there is none.
class GeometryLists
{
    Q_DECLARE_TR_FUNCTIONS(GeometryLists)

public:
    /// How many elements are taken, by what they are given for.
    struct Demand
    {
        qint64 vertices = 0;
        qint64 faces = 0; ///< or lines, or triangles of strips
        qint64 parts = 0; ///< segments of lines, strips, rows of meshes

        static Demand ofPoints(qint64 count) { return {count, count, count}; }
    };
    /// Bindings, with Coin's numbers for those of colors.
    struct Bindings
    {
        int normals;
        int colors;
        int textureCoordinates;
    };
    /// The indices with which elements are taken. Those of the vertices stand in for missing ones, where one
    /// is for a vertex.
    struct Indices
    {
        const SoMFInt32& vertices;
        const SoMFInt32& normals;
        const SoMFInt32& colors;
        const SoMFInt32& textureCoordinates;
        int taken;                   ///< how many of them, with those that end faces
        bool areAlwaysTaken = false; ///< those that are given, even where the binding takes none
    };

    /// Reads the state of a traversal, which must already have what the shape itself has for it.
    explicit GeometryLists(SoState* state);

    qint64 vertices() const { return m_vertices; }
    const Bindings& bindings() const { return m_bindings; }

    /// Of vertices that are taken one after the other.
    QString vertexFault(qint64 first, qint64 count) const;
    /// Of vertices that are taken by indices, none of which may be below the lowest.
    QString vertexFault(const SoMFInt32& indices, int lowest) const;
    /// Of normals that are made of the vertices, by a shape that can do so with three coordinates only.
    QString madeNormalsFault() const;
    /// Of all lists but that of the vertices; without indices they are taken one after the other.
    QString fault(const Demand& demand, const Bindings& bindings, const Indices* indices = nullptr);

    /// Whether there would be a fault, of those that were asked for, with other colors or textures.
    bool dependsOnAppearance() const { return m_dependsOnAppearance; }

private:
    struct Use;

    QString useFault(const Use& use, const Demand& demand, const Indices* indices) const;
    static QString indexFault(const Use& use, const SoMFInt32& list, qint64 needed);

    qint64 m_vertices;
    qint64 m_normals;
    qint64 m_colors;
    qint64 m_textureCoordinates = 0;
    Bindings m_bindings;
    bool m_is3D;
    bool m_isTextured = false;
    bool m_dependsOnAppearance = false;
};
