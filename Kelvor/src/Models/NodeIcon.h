#pragma once

#include <QIcon>

class SoNode;

/// Small pictures that tell the families of nodes apart: groups, switches, kits, shapes, lights, cameras,
/// transforms, appearance, textures, geometry data and the rest. They are drawn when shown, in the colours of
/// the palette.
class NodeIcon
{
public:
    static QIcon forNode(const SoNode* node);
};
