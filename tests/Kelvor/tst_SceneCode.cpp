#include "Changes/SceneCode.h"
#include "Changes/ScenePlaceSearch.h"

#include "TestMain.h"
#include "TunedScene.h"

#include <Inventor/engines/SoElapsedTime.h>

/// What `SceneCode` wrote for the tuned scene when this program was built.
void tuneAsGenerated(SoNode* root);

class tst_SceneCode : public QObject
{
    Q_OBJECT

    SoSeparator* m_root = nullptr;

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = TunedScene::make();
        m_root->ref();
    }

    void cleanup() { m_root->unref(); }

    void compiledStatementsTuneAnotherScene()
    {
        tuneAsGenerated(m_root); // while there is no other node of these names
        const QList<SoField*> generated = TunedScene::fields(m_root);
        SoSeparator* tunedRoot = TunedScene::make();
        tunedRoot->ref();
        const QList<SoField*> tuned = TunedScene::tune(tunedRoot);
        for (qsizetype i = 0; i < tuned.size(); ++i) {
            const char* name = TunedScene::tunings()[std::size_t(i)].field;
            QVERIFY2(generated[i]->isSame(*tuned[i]), name);
            QCOMPARE(generated[i]->isDefault(), tuned[i]->isDefault());
            // Nobody has kept an original here that would tell that it was ignored.
            QVERIFY2(generated[i]->isIgnored() == tuned[i]->isIgnored() || qstrcmp(name, "translation") == 0,
                     name);
        }
        tunedRoot->unref();
    }

    void inventorTextIsReadBack()
    {
        const QList<SoField*> tuned = TunedScene::tune(m_root);
        const QByteArray text = SceneCode::inventorText(tuned, m_root).toUtf8();
        const PostedErrors<SoReadError> errors;
        SoSeparator* read = sceneOf(text);
        QVERIFY(read && errors.messages.isEmpty());
        read->ref();
        qsizetype node = -1;
        const SoFieldContainer* former = nullptr;
        for (const SoField* field : tuned) {
            // One block a node, in the order of the nodes.
            if (std::exchange(former, field->getContainer()) != field->getContainer())
                ++node;
            SbName name;
            field->getContainer()->getFieldName(field, name);
            SoNode* copy = read->getChild(int(node));
            QCOMPARE(copy->getTypeId(), field->getContainer()->getTypeId());
            const QByteArray unheld = "# " + QByteArray(name.getString()) + " has a value";
            const SoField* again = copy->getField(name);
            if (again && text.contains(unheld))
                continue;
            QVERIFY2(again && again->isIgnored() == field->isIgnored(), name.getString());
            if (name == SbName("rotation"))
                QVERIFY(static_cast<const SoSFRotation*>(again)->getValue().equals(
                    static_cast<const SoSFRotation*>(field)->getValue(), 1e-7F));
            else
                QVERIFY2(again->isSame(*field), name.getString());
        }
        // Infinity, a value without a name, and a last backslash, alone and before other strings.
        QVERIFY(text.count(" has a value that text does not hold") <= 5);
        QVERIFY(text.contains("# Separator › IndexedFaceSet › VertexProperty\nVertexProperty {"));
        QVERIFY(text.contains("DEF Box-2 Text3 {"));
        read->unref();
    }

    void placesAreFoundWhileTheSceneChanges()
    {
        auto* last = new SoMaterial;
        m_root->addChild(last);
        ScenePlaceSearch search(m_root, {last, m_root->getChild(2), m_root});
        while (!search.run(0))
            m_root->insertChild(new SoMaterial, 0);
        QVERIFY(search.places().find(last)->isValid(m_root, last));
        QCOMPARE(search.places().find(last)->label(), QString("Separator › Material"));
        QCOMPARE(search.places().find(m_root)->expression(m_root), QString("root"));
    }

    void whatIsNotInTheSceneGetsAPlace()
    {
        auto* engine = new SoElapsedTime;
        engine->ref();
        engine->setName("Clock");
        auto* gone = new SoMaterial;
        gone->ref();
        SoField* global = SoDB::getGlobalField("realTime");
        SoField* held = m_root->getChild(2)->getField("vertexProperty");
        QCOMPARE(SceneCode::cppStatement(*held),
                 QString("// vertexProperty cannot be set from text: VertexProperty"));
        const QList<SoField*> fields{&engine->speed, &gone->shininess, global};
        const QString code = SceneCode::cppStatements(fields, m_root);
        QVERIFY(code.contains("clock = static_cast<SoElapsedTime*>(SoEngine::getByName(\"Clock\"));"));
        QVERIFY(code.contains("// Material is neither in the scene nor found by a name: put it here.\n"
                              "SoMaterial* material = nullptr;\n"));
        QVERIFY(code.contains("static_cast<SoSFTime*>(SoDB::getGlobalField(\"realTime"));
        // Engines do not stand for themselves in a file.
        QVERIFY(
            SceneCode::inventorText(fields, nullptr).contains("# DEF Clock ElapsedTime {\n#     speed 1"));
        gone->unref();
        engine->unref();
    }
};

KLV_TEST_MAIN(tst_SceneCode)
#include "tst_SceneCode.moc"
