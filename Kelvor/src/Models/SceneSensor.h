#pragma once

#include <Inventor/sensors/SoNodeSensor.h>

#include <functional>
#include <unordered_set>

/// What happened below a node since it was last asked. The nodes are keys only: they may be gone.
struct SceneChanges
{
    std::unordered_set<const SoNode*> groups;   ///< children were added, removed or replaced
    std::unordered_set<const SoNode*> switches; ///< another child is switched on
    bool expandability = false;                 ///< a group may have got its first child or lost its last
    bool anywhere = false;                      ///< children may have changed in places that are not known
};

/// Collects the changes below a node that alter which nodes there are, or which of them are switched on.
///
/// It reads the notifications themselves. A sensor's trigger names only the last one of a batch, and hears of
/// a removal before it is done; so changes are recorded here and looked at later.
class SceneSensor : public SoNodeSensor
{
public:
    /// `changed` is called, during the notification, whenever something is recorded.
    explicit SceneSensor(std::function<void()> changed);

    /// The changes so far; afterwards there are none.
    SceneChanges take();

    void notify(SoNotList* list) override;

private:
    bool record(const SoNotList& list);

    std::function<void()> m_changed;
    SceneChanges m_changes;
};
