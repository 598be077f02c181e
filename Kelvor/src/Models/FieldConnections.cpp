#include "Models/FieldConnections.h"

#include "Models/ObjectLabel.h"

#include <Inventor/SbName.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/engines/SoNodeEngine.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>

QStringList fieldSources(const SoField& field)
{
    QStringList sources;
    const auto add = [&sources](const SoBase* owner, const SbName& name) {
        sources += objectKey(owner) + QLatin1Char('.') + QString::fromUtf8(name.getString());
    };
    SoFieldList masters;
    field.getConnections(masters);
    for (int i = 0; i < masters.getLength(); ++i) {
        SbName name;
        const SoFieldContainer* owner = masters[i]->getContainer();
        if (owner && owner->getFieldName(masters[i], name))
            add(owner, name);
    }
    SoEngineOutput* output = nullptr;
    if (field.getConnectedEngine(output)) {
        SbName name;
        if (const SoEngine* engine = output->getContainer(); engine && engine->getOutputName(output, name))
            add(engine, name);
        else if (const SoNodeEngine* node = output->getNodeContainer();
                 node && node->getOutputName(output, name))
            add(node, name);
    }
    return sources;
}
