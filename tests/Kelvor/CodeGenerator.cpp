#include "Changes/SceneCode.h"

#include "TunedScene.h"

#include <Inventor/SoInteraction.h>

#include <QCoreApplication>
#include <QFile>

/// Writes a function that tunes the scene as it was tuned here, for the compiler to judge.
int main(int argc, char** argv)
{
    SoDB::init();
    SoInteraction::init();
    const QCoreApplication application(argc, argv);
    SoSeparator* root = TunedScene::make();
    root->ref();
    QFile file(application.arguments().at(1));
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write("#include <Inventor/SoDB.h>\n#include <Inventor/fields/SoFields.h>\n"
               "#include <Inventor/misc/SoChildList.h>\n#include <Inventor/nodes/SoGeoOrigin.h>\n#include "
               "<Inventor/nodes/SoNodes.h>\n#include <limits>\n"
               "void tuneAsGenerated(SoNode* root)\n{\n");
    file.write(SceneCode::cppStatements(TunedScene::tune(root), root).toUtf8() + "}\n");
    root->unref();
    return 0;
}
