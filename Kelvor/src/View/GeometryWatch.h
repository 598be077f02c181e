#pragma once

#include <Inventor/sensors/SoNodeSensor.h>

#include <QString>

/// Knows whether a scene can be measured, picked and drawn. Looks again only after changes that can make a
/// difference; how long that takes depends on the scene (`GeometryCheck`).
class GeometryWatch : public SoNodeSensor
{
public:
    /// The scene must outlive the watch.
    explicit GeometryWatch(SoNode* scene);

    /// A clause that says what is wrong and where; empty when nothing is.
    QString fault();

    void notify(SoNotList* list) override;

private:
    bool matters(const SoNotList& list) const;

    SoNode* m_scene;
    QString m_fault;
    bool m_isDue = true;
    bool m_dependsOnAppearance = false;
};
