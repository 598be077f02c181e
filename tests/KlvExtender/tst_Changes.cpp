#include "NoteCommand.h"
#include "TestMain.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvContainerRef.h>

class tst_Changes : public QObject
{
    Q_OBJECT

    using Fields = QList<SoField*>;

    KlvServices* m_services = KlvServices::getInstance();
    KlvChanges* m_changes = m_services->getChanges();
    QUndoStack* m_stack = m_services->getUndoStack();
    SoSeparator* m_root = nullptr;
    SoMaterial* m_material = nullptr;
    SoDrawStyle* m_style = nullptr;
    SoCoordinate3* m_points = nullptr;

    void setShininess(float value)
    {
        edit(&m_material->shininess, [&] { m_material->shininess.setValue(value); });
    }
    template <class Field>
    Field& original(const Field& field)
    {
        return static_cast<Field&>(*m_changes->getOriginal(&field));
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_root = new SoSeparator;
        m_root->ref();
        m_root->addChild(m_material = new SoMaterial);
        m_root->addChild(m_style = new SoDrawStyle);
        m_root->addChild(m_points = new SoCoordinate3);
    }

    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_stack->clear();
        m_changes->restart();
        m_services->setCopyBudget(qint64(256) << 20);
        QCOMPARE(m_services->getCopyBytes(), 0);
        for (SoNode* node : std::initializer_list<SoNode*>{m_material, m_style, m_points})
            QCOMPARE(node->getRefCount(), 1);
        m_root->unref();
    }

    void fieldsAreListedAsLongAsTheyDiffer()
    {
        QSignalSpy changed(m_changes, &KlvChanges::changed);
        setShininess(0.5f);
        edit(&m_style->style, [&] { m_style->style = SoDrawStyle::LINES; });
        setShininess(0.75f);
        QCOMPARE(m_changes->getFields(), (Fields{&m_material->shininess, &m_style->style}));
        QCOMPARE(original(m_material->shininess)[0], 0.2f);
        QVERIFY(original(m_material->shininess).isDefault());
        QCOMPARE(textOf(original(m_style->style)), "FILLED"); // with the names of its kind
        QTRY_COMPARE(changed.count(), 1);

        m_stack->setIndex(0);
        QVERIFY(m_changes->getFields().isEmpty() && !m_changes->getOriginal(&m_style->style));
        m_stack->setIndex(3);
        QCOMPARE(m_changes->getFields().size(), 2);
        m_stack->undo();
        QVERIFY(m_changes->isChanged(&m_material->shininess));
        QTRY_COMPARE(changed.count(), 2);

        // By hand as well, to the flags; then it is compared with the same original.
        edit(&m_material->shininess, [&] {
            m_material->shininess.setValue(0.2f);
            m_material->shininess.setDefault(TRUE);
        });
        QVERIFY(!m_changes->isChanged(&m_material->shininess));
        m_material->shininess.setValue(0.3f); // by the application
        setShininess(0.5f);
        QCOMPARE(original(m_material->shininess)[0], 0.2f);
        edit(&m_material->shininess, [&] { m_material->shininess.setIgnored(TRUE); });
        QVERIFY(!original(m_material->shininess).isIgnored());
    }

    void commandsWithoutAScopeAreListed()
    {
        m_services->setSelectedField(&m_style->lineWidth);
        m_style->lineWidth.setValue(4);
        NoteCommand::push(nullptr); // does not even say which field
        QCOMPARE(original(m_style->lineWidth).getValue(), 0.0f);
        m_style->pointSize.setValue(7);
        NoteCommand::push(&m_style->pointSize); // which nobody had a copy of
        QCOMPARE(m_changes->getFields(), (Fields{&m_style->lineWidth, &m_style->pointSize}));
        QVERIFY(!m_changes->getOriginal(&m_style->pointSize));
        m_changes->revert(m_changes->getFields());
        QCOMPARE(m_changes->getFields(), Fields{&m_style->pointSize});
        QCOMPARE(m_style->pointSize.getValue(), 7.0f);
        QCOMPARE(m_stack->undoText(), QString("Revert DrawStyle.lineWidth"));
    }

    void largeListsAreKeptWholeWithinTheBudget()
    {
        constexpr int count = 100'000;
        m_points->point.setNum(count);
        for (const bool fits : {true, false}) {
            m_services->setCopyBudget(fits ? 16 * count : 1000);
            edit(
                &m_points->point, [] {}, 0, 1); // nothing changed
            QVERIFY(m_changes->getFields().isEmpty());
            edit(
                &m_points->point, [&] { m_points->point.set1Value(5, 0, 0, 7); }, 5, 1);
            edit(
                &m_points->point, [&] { m_points->point.deleteValues(count / 2, 3); }, count / 2, 3);
            QCOMPARE(m_changes->getOriginal(&m_points->point) != nullptr, fits);
            // What is kept does not take from what the steps may have.
            QVERIFY(m_services->getCopyBytes() < 10'000);
            m_changes->revert({&m_points->point});
            QCOMPARE(m_points->point.getNum(), fits ? count : count - 3);
            QTRY_COMPARE(m_changes->isChanged(&m_points->point), !fits);
            m_stack->setIndex(0);
            m_stack->clear();
            m_changes->restart();
        }
    }

    void revertingIsOneExactStep()
    {
        const float third = 1.0f / 3;
        m_material->shininess.setIgnored(TRUE);
        setShininess(third);
        edit(&m_style->style, [&] { m_style->style = SoDrawStyle::POINTS; });
        edit(&m_style->lineWidth, [&] { m_style->lineWidth = third; });
        edit(&m_material->shininess, [&] { m_material->shininess.setIgnored(FALSE); });
        m_services->setSelectedField(&m_style->lineWidth);
        // Not even a budget of nothing keeps it from being undone.
        m_services->setCopyBudget(0);
        m_changes->revert(
            {&m_style->lineWidth, &m_material->shininess, &m_style->lineWidth, &m_points->point});
        QCOMPARE(m_stack->undoText(), QString("Revert 2 fields"));
        for (int round = 0; round < 2; ++round) {
            QCOMPARE(m_changes->getFields(), Fields{&m_style->style});
            QVERIFY(m_material->shininess[0] == 0.2f && m_material->shininess.isIgnored());
            QVERIFY(m_style->lineWidth.getValue() == 0 && m_style->lineWidth.isDefault());
            m_stack->undo();
            QCOMPARE(m_changes->getFields().size(), 3);
            QVERIFY(m_material->shininess[0] == third && !m_material->shininess.isIgnored());
            QVERIFY(m_style->lineWidth.getValue() == third && !m_style->lineWidth.isDefault());
            m_stack->redo();
        }
        m_services->setCopyBudget(0); // now it does
        m_stack->undo();
        QVERIFY(m_style->lineWidth.getValue() == 0 && m_stack->undoText() != "Revert 2 fields");
    }

    void nodesInCopiesAreNotHeldElsewhere()
    {
        auto* set = new SoIndexedFaceSet;
        m_root->addChild(set);
        SoNode* points = new SoVertexProperty;
        set->vertexProperty = points;
        edit(&set->vertexProperty, [&] { set->vertexProperty = nullptr; });
        QVERIFY(points->getRefCount() > 0 && !KlvContainerRef::isHeldElsewhere(points));
    }

    void afterARestartWhatIsCounts()
    {
        setShininess(0.5f);
        m_changes->restart();
        QVERIFY(m_changes->getFields().isEmpty());
        m_stack->undo(); // to what was before
        QCOMPARE(original(m_material->shininess)[0], 0.5f);
        m_stack->redo();
        QVERIFY(!m_changes->isChanged(&m_material->shininess));
    }
};

KLV_TEST_MAIN(tst_Changes)
#include "tst_Changes.moc"
