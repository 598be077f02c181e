#include "StraySources.h"

#include "Models/SceneWalk.h"

#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/nodes/SoNode.h>

#include <unordered_set>

StraySources::StraySources(SoNode& root)
{
    std::unordered_set<SoFieldContainer*> outside;
    std::vector<SoFieldContainer*> pending; // of those, what has not been looked at
    const auto lookAt = [&](const SoFieldContainer& container) {
        const SoFieldData* const fields = container.getFieldData();
        for (int i = 0; fields && i < fields->getNumFields(); ++i) {
            SoField* const field = fields->getField(&container, i);
            SoField* master = nullptr;
            SoEngineOutput* output = nullptr;
            SoFieldContainer* source = nullptr;
            if (field->getConnectedField(master))
                source = master->getContainer();
            else if (field->getConnectedEngine(output))
                source = output->getContainer();
            if (!source || !outside.insert(source).second)
                continue;
            pending.push_back(source);
            if (source->getRefCount() == 0)
                m_held.emplace_back(source);
        }
    };
    SceneWalk walk(&root, SceneWalk::Visits::EachNode);
    while (const SoNode* const node = walk.next())
        lookAt(*node);
    while (!pending.empty()) {
        const SoFieldContainer* const source = pending.back();
        pending.pop_back();
        lookAt(*source);
    }
}
