#include "Scene/NodeSpecifier.h"

#include "TestMain.h"

#include <Inventor/SoInput.h>
#include <Inventor/engines/SoCalculator.h>
#include <Inventor/nodes/SoSeparator.h>

class tst_NodeSpecifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray text = "#Inventor V2.1 ascii\n"
                                "DEF Top Separator {\n"
                                "  DEF Shared Group { Material {} DEF Material Cube {} }\n"
                                "  DEF Cube[1] Cone {}\n"
                                "  Separator { USE Shared DEF Last Cube {} }\n"
                                "}";
        SoInput input;
        input.setBuffer(text.constData(), static_cast<std::size_t>(text.size()));
        m_root = SoDB::readAll(&input); // the one top-level separator itself
        QVERIFY(m_root);
        m_root->ref();
        m_engine = new SoCalculator;
        m_engine->ref();
        m_engine->setName("Engine");
    }

    void init() { QTest::failOnWarning(unexpectedWarnings()); }
    void cleanupTestCase()
    {
        m_engine->unref();
        m_root->unref();
    }

    void finds_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("found"); // "Type path field", or the error
        const auto row = [](const char* text, const char* found) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(found);
        };
        row("Top", "Separator  ");
        row("Last", "Cube 2,1 ");
        row("Last.width", "Cube 2,1 width");
        row("Material", "Cube 0,1 "); // a name goes before a type
        row("Material[0].diffuseColor", "Material 0,0 diffuseColor");
        row("Material[1]", "Material 2,0,0 "); // the shared one at its second place
        row("Cube", "Cube 0,1 ");
        row("Cube[1]", "Cone 1 "); // a name again
        row("Cube[2]", "Cube 2,1 ");
        row("Engine.a", "Calculator  a");
        row("realTime.realTime", "GlobalField  realTime");
        row("Nowhere", "There is no node called \"Nowhere\" in the scene, and none of that type.");
        row("Cone[-1]", "There is no node called \"Cone[-1]\" in the scene, and none of that type.");
        row("Cone[1]", "There is no \"Cone[1]\": the scene has one Cone, which is Cone[0].");
        row("Cube[3]", "There is no \"Cube[3]\": the scene has 3 nodes of type Cube, counted from 0.");
        row("Last.colour", "Cube has no field \"colour\"; it has: width, height, depth.");
        row("Shared.x", "Group has no field \"x\"; it has none at all.");
        row("", "\"\" names no node.");
    }

    void finds()
    {
        QFETCH(QString, text);
        const NodeSpecifier::Result result = NodeSpecifier::find(m_root, text);
        QString found = result.error;
        if (result.container) {
            QStringList path;
            for (const int index : result.path)
                path += QString::number(index);
            SbName field;
            if (result.field)
                result.container->getFieldName(result.field, field);
            found += QStringLiteral("%1 %2 %3")
                         .arg(QLatin1String(result.container->getTypeId().getName().getString()),
                              path.join(QLatin1Char(',')), QLatin1String(field.getString()));
        }
        QTEST(found, "found");
        QVERIFY(!NodeSpecifier::find(nullptr, text).error.isEmpty() ||
                text.startsWith(QLatin1String("Engine")) || text.startsWith(QLatin1String("realTime")));
    }

private:
    SoSeparator* m_root = nullptr;
    SoCalculator* m_engine = nullptr;
};

KLV_TEST_MAIN(tst_NodeSpecifier)
#include "tst_NodeSpecifier.moc"
