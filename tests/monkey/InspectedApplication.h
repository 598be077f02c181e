#pragma once

#include "Chance.h"

class SceneDocument;
class SoField;
class SoFieldContainer;
class SoNode;

/// The application that owns the inspected scene, and changes it without asking.
class InspectedApplication
{
public:
    explicit InspectedApplication(Chance& chance)
        : m_chance(chance)
    {
    }
    void setDocument(SceneDocument* document) { m_document = document; }

    /// A node of the scene; null when there is none, or the one that was hit is no such node.
    template <class Node = SoNode>
    Node* node();
    /// A field of a node, or of the engine behind it; null when there is none.
    SoField* field(SoFieldContainer* container);

    void addNode();
    void deleteNode();
    void changeField();
    void connectField();

private:
    Chance& m_chance;
    SceneDocument* m_document = nullptr;
};
