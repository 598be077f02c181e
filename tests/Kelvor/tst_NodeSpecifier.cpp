#include "Scene/NodeSpecifier.h"

#include "TestMain.h"

#include <Inventor/engines/SoCalculator.h>

class tst_NodeSpecifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void finds()
    {
        QTest::failOnWarning(unexpectedWarnings());
        SoSeparator* root =
            sceneOf("DEF Top Separator { DEF Shared Group { Material {} DEF Material Cube {} }"
                    " DEF Cube[1] Cone {} Separator { USE Shared DEF Last Cube {} } }");
        root->ref(); // the one top-level separator itself
        auto* engine = new SoCalculator;
        engine->ref();
        engine->setName("Engine");
        // "Type path field", or the error. Names go before types; a shared node counts at each of its places.
        // clang-format off
        const std::pair<QString, const char*> rows[] = {
            {"Top", "Separator  "}, {"Last", "Cube 2,1 "}, {"Last.width", "Cube 2,1 width"},
            {"Material", "Cube 0,1 "}, {"Material[0].diffuseColor", "Material 0,0 diffuseColor"},
            {"Material[1]", "Material 2,0,0 "}, {"Cube", "Cube 0,1 "}, {"Cube[1]", "Cone 1 "},
            {"Cube[2]", "Cube 2,1 "}, {"Engine.a", "Calculator  a"},
            {"realTime.realTime", "GlobalField  realTime"},
            {"Nowhere", "There is no node called \"Nowhere\" in the scene, and none of that type."},
            {"Cone[-1]", "There is no node called \"Cone[-1]\" in the scene, and none of that type."},
            {"Cone[1]", "There is no \"Cone[1]\": the scene has one Cone, which is Cone[0]."},
            {"Cube[3]", "There is no \"Cube[3]\": the scene has 3 nodes of type Cube, counted from 0."},
            {"Last.colour", "Cube has no field \"colour\"; it has: width, height, depth."},
            {"Shared.x", "Group has no field \"x\"; it has none at all."}, {"", "\"\" names no node."}};
        // clang-format on
        for (const auto& [text, expected] : rows) {
            const NodeSpecifier::Result result = NodeSpecifier::find(root, text);
            QString found = result.error;
            if (result.container) {
                QStringList path;
                for (const int index : result.path)
                    path += QString::number(index);
                SbName field;
                if (result.field)
                    result.container->getFieldName(result.field, field);
                found += QString("%1 %2 %3")
                             .arg(QLatin1String(result.container->getTypeId().getName().getString()),
                                  path.join(QLatin1Char(',')), QLatin1String(field.getString()));
            }
            QCOMPARE(found, expected);
            QVERIFY(!NodeSpecifier::find(nullptr, text).error.isEmpty() ||
                    text.startsWith(QLatin1String("Engine")) || text.startsWith(QLatin1String("realTime")));
        }
        engine->unref();
        root->unref();
    }
};

KLV_TEST_MAIN(tst_NodeSpecifier)
#include "tst_NodeSpecifier.moc"
