#pragma once

#include "Models/SceneChildren.h"

#include "CoinHelpers.h"

#include <functional>
#include <limits>
#include <vector>

/// A scene with fields of many kinds, and values for them that are hard to write down.
namespace TunedScene {
inline SoSeparator* make()
{
    return sceneOf("Separator { DEF Gold Material {} Switch { DEF switch Cone {} DEF switch Cube {} }"
                   " IndexedFaceSet { vertexProperty VertexProperty { vertex [0 0 0, 1 0 0, 0 1 0] } }"
                   " Transform { translation 1 2 3 ~ } MatrixTransform {} ClipPlane {} DrawStyle {}"
                   " DEF Box-2 Text3 {} Texture2 {} LOD {} Info {} MaterialBinding {} Environment {}"
                   " GeoOrigin {} Probe { fields [ SFFloat x, MFInt32 list ] x 3 } }");
}

struct Tuning
{
    std::vector<int> way;
    const char* field;
    const char* text; ///< of the value; null when it is set by the function
    std::function<void(SoField*)> set = nullptr;
};

template <class Field>
std::function<void(SoField*)> with(auto... values)
{
    return [=](SoField* field) { static_cast<Field*>(field)->setValue(values...); };
}

inline const std::vector<Tuning>& tunings()
{
    static const std::vector<Tuning> all = {
        {{0}, "transparency", nullptr, with<SoMFFloat>(1.0F / 3)},
        {{0}, "diffuseColor", "[0.1 0.7 0.9, 1e-20 3e10 -0]"},
        {{1}, "whichChild", "-3"},
        {{2, 0}, "vertex", "[0.1 0.2 0.3, 4 5 6]"},
        {{2}, "coordIndex", "[0, 1, 2, -1, 2147483647, -2147483648]"},
        {{3}, "rotation", nullptr, with<SoSFRotation>(SbVec3f(0.3F, -0.2F, 0.7F), 1.1F)},
        {{3}, "translation", nullptr, [](auto* field) { field->setIgnored(FALSE); }},
        {{3}, "scaleFactor", nullptr, [](auto* field) { field->setIgnored(TRUE); }},
        {{4}, "matrix", "0.36 0.48 -0.8 0 -0.8 0.6 0 0 0.48 0.64 0.6 0 0 0.1 3e-8 1"},
        {{5}, "plane", nullptr, with<SoSFPlane>(SbPlane(SbVec3f(1, 7, 3), 0.1F))},
        {{6}, "style", "LINES"},
        {{7}, "string", "[\"a \\\"b\\\"\n\\x\", \"\xc3\xbc 7 \xff\", \"?\?=\", \"%1\"]"},
        {{7}, "parts", "(FRONT | BACK)"},
        {{8}, "image", "2 1 3 0xff0080 0x00ff00"},
        {{8}, "model", nullptr, with<SoSFEnum>(7)},
        {{9}, "range", nullptr, [](auto* field) { static_cast<SoMFFloat*>(field)->setNum(0); }},
        {{10}, "string", nullptr, with<SoSFString>("ends in \\")},
        {{12}, "ambientIntensity", nullptr, with<SoSFFloat>(-std::numeric_limits<float>::infinity())},
        {{13}, "geoCoords", nullptr, with<SoSFVec3d>(0.1 + 0.2, -59.84537233416583, 1e300)},
        {{14}, "x", "0.25"},
        {{14}, "list", "[1, 2]"},
    };
    return all;
}

/// The fields below such a scene that are tuned.
inline QList<SoField*> fields(SoNode* root)
{
    QList<SoField*> fields;
    for (const Tuning& tuning : tunings()) {
        SoNode* node = root;
        for (const int index : tuning.way)
            node = SceneChildren::at(node, index);
        fields += node->getField(tuning.field);
    }
    return fields;
}

inline QList<SoField*> tune(SoNode* root)
{
    const QList<SoField*> tuned = fields(root);
    for (qsizetype i = 0; i < tuned.size(); ++i) {
        const Tuning& tuning = tunings()[std::size_t(i)];
        if (tuning.text)
            tuned[i]->set(tuning.text);
        else
            tuning.set(tuned[i]);
    }
    return tuned;
}
} // namespace TunedScene
