#include "CarouselScene.h"

#include <Inventor/engines/SoCalculator.h>
#include <Inventor/engines/SoElapsedTime.h>
#include <Inventor/nodes/SoCone.h>
#include <Inventor/nodes/SoCylinder.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoRotationXYZ.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTransform.h>

namespace {

SoSeparator* makeHorse(SoElapsedTime* clock, float share)
{
    auto* horse = new SoSeparator;
    auto* ride = new SoCalculator;
    ride->a.connectFrom(&clock->timeOut);
    ride->b = 6.2831853f * share;
    ride->expression = "oA = vec3f(4 * cos(b), 1 + 0.5 * sin(2 * a + 3 * b), 4 * sin(b))";
    auto* place = new SoTransform;
    place->setName("Place");
    place->translation.connectFrom(&ride->oA);
    auto* paint = new SoMaterial;
    paint->diffuseColor.setHSVValue(share, 0.7f, 0.9f);
    auto* body = new SoCone;
    body->bottomRadius = 0.4f;
    body->height = 1.2f;
    horse->addChild(place);
    horse->addChild(paint);
    horse->addChild(body);
    return horse;
}

} // namespace

SoSeparator* makeCarousel(int horses)
{
    auto* root = new SoSeparator;
    root->setName("Carousel");
    auto* camera = new SoPerspectiveCamera;
    camera->position.setValue(0.0f, 6.0f, 13.0f);
    camera->pointAt(SbVec3f(0.0f, 0.5f, 0.0f));
    camera->nearDistance = 1.0f;
    camera->farDistance = 40.0f;
    auto* clock = new SoElapsedTime;
    auto* turn = new SoRotationXYZ;
    turn->setName("Turn");
    turn->axis = SoRotationXYZ::Y;
    turn->angle.connectFrom(&clock->timeOut);
    auto* platform = new SoCylinder;
    platform->radius = 5.0f;
    platform->height = 0.2f;
    auto* light = new SoDirectionalLight;
    light->direction.setValue(-0.4f, -0.8f, -0.5f);
    root->addChild(camera);
    root->addChild(light);
    root->addChild(turn);
    root->addChild(platform);
    for (int i = 0; i < horses; ++i)
        root->addChild(makeHorse(clock, static_cast<float>(i) / static_cast<float>(horses)));
    return root;
}
