#include "Models/FieldConnections.h"

#include <KlvExtender/SceneGraph/ObjectLabel.h>

#include <Inventor/SbName.h>
#include <Inventor/engines/SoEngine.h>
#include <Inventor/engines/SoEngineOutput.h>
#include <Inventor/engines/SoNodeEngine.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/fields/SoFieldContainer.h>
#include <Inventor/lists/SoFieldList.h>

namespace {

FieldLink linkTo(SoFieldContainer* engine, const SbName& output)
{
    return {engine, nullptr, objectKey(engine) + QLatin1Char('.') + QString::fromUtf8(output.getString())};
}

QList<FieldLink> linksTo(const SoFieldList& fields)
{
    QList<FieldLink> links;
    for (int i = 0; i < fields.getLength(); ++i) {
        if (SoFieldContainer* owner = fields[i]->getContainer())
            links += {owner, fields[i], fieldLabel(*fields[i])};
    }
    return links;
}

} // namespace

QList<FieldLink> fieldSources(const SoField& field)
{
    SoFieldList masters;
    field.getConnections(masters);
    QList<FieldLink> sources = linksTo(masters);
    SoEngineOutput* output = nullptr;
    if (field.getConnectedEngine(output)) {
        SbName name;
        if (SoEngine* engine = output->getContainer(); engine && engine->getOutputName(output, name))
            sources += linkTo(engine, name);
        else if (SoNodeEngine* node = output->getNodeContainer(); node && node->getOutputName(output, name))
            sources += linkTo(node, name);
    }
    return sources;
}

QList<FieldLink> fieldTargets(const SoField& field)
{
    SoFieldList slaves;
    field.getForwardConnections(slaves);
    return linksTo(slaves);
}
