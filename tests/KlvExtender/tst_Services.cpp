#include "TestMain.h"

#include <KlvExtender/KlvCommand.h>
#include <KlvExtender/KlvEditScope.h>
#include <KlvExtender/KlvServices.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>

#include <cmath>

namespace {

/// What a command's own undo can do: nothing (as those that only hold the new text), or something of its own.
struct Deeds
{
    std::function<void()> execute = [] {};
    std::function<void()> undo = [] {};
    std::function<void()> redo = [] {};
};

class TestCommand : public KlvCommand
{
public:
    explicit TestCommand(SoField* field, Deeds deeds = {}, Kind kind = Kind::ValueEdit,
                         const QString& text = {})
        : KlvCommand(field, kind, text)
        , m_deeds(std::move(deeds))
    {
        ++alive;
    }
    ~TestCommand() override { --alive; }
    void execute() override { m_deeds.execute(); }
    void undo() override { m_deeds.undo(); }
    void redo() override { m_deeds.redo(); }

    static inline int alive = 0;

private:
    Deeds m_deeds;
};

template <class Field>
std::shared_ptr<SoMField> listOf(int count, auto element)
{
    auto field = std::make_shared<Field>();
    field->setNum(count);
    for (int i = 0; i < count; ++i)
        field->set1Value(i, element(i));
    return field;
}

} // namespace

class tst_Services : public QObject
{
    Q_OBJECT

    KlvServices* m_services = nullptr;
    QUndoStack* m_stack = nullptr;
    SoSeparator* m_root = nullptr;
    SoMaterial* m_material = nullptr;
    SoCoordinate3* m_points = nullptr;

    void edit(float value)
    {
        m_material->transparency.set1Value(0, value);
        m_services->pushCommand(new TestCommand(&m_material->transparency));
    }
    /// Changes a field and records it, all within a scope.
    template <class... Scope>
    void editWithin(std::function<void()> change, SoMField* field, Scope... scope)
    {
        const KlvEditScope edit(field, scope...);
        change();
        m_services->pushCommand(new TestCommand(field));
    }
    /// Changes a list at all its ends in all ways, each within a scope, and goes back and forth.
    void checkScopes(SoMField& list)
    {
        m_services->setSelectedField(&list);
        const int size = list.getNum();
        for (const int start : {0, size / 2, size - 1, size}) {
            for (const int added : {2, 0, -1, -3}) {
                const auto before = copyElements(&list, 0, list.getNum());
                list.setDefault(TRUE);
                const auto change = [&] {
                    insertElements(&list, start, added);
                    deleteElements(&list, start, -added);
                    setElements(&list, start, copyElements(&list, 1, added == 0).get());
                };
                editWithin(change, &list, start, std::max(1, -added));
                const auto after = copyElements(&list, 0, list.getNum());
                QVERIFY(m_stack->count() == 1 || after->isSame(*before));
                for (int round = 0; round < 2 * m_stack->count(); ++round) {
                    m_stack->undo();
                    QVERIFY(list.isSame(*before) && list.isDefault());
                    m_stack->redo();
                    QVERIFY(list.isSame(*after) && !list.isDefault());
                }
                m_stack->clear();
            }
        }
        m_services->setSelectedField(nullptr);
    }
    void waitUntilNothingJoins() { QTest::qWait(1100); }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_services = KlvServices::getInstance();
        m_stack = m_services->getUndoStack();
        m_root = new SoSeparator;
        m_root->ref();
        m_root->addChild(m_material = new SoMaterial);
        m_root->addChild(m_points = new SoCoordinate3);
    }

    void cleanup()
    {
        m_services->setSelectedNode(nullptr);
        m_services->setSelectedField(nullptr);
        m_stack->clear();
        m_services->setCopyBudget(qint64(256) << 20);
        m_root->unref();
        QCOMPARE(TestCommand::alive, 0);
        QCOMPARE(m_services->getCopyBytes(), 0);
    }

    void selectingAFieldSelectsItsContainer()
    {
        QStringList log;
        QObject context;
        connect(m_services, &KlvServices::selectedNodeChanged, &context, [&](SoFieldContainer* node) {
            log << (node ? node->getTypeId().getName().getString() : "no node");
        });
        connect(m_services, &KlvServices::selectedFieldChanged, &context, [&](SoField* field) {
            log << (field ? field->getTypeId().getName().getString() : "no field");
        });
        m_services->setSelectedField(&m_material->transparency);
        m_services->setSelectedField(&m_material->transparency);
        m_services->setSelectedField(&m_material->diffuseColor);
        m_services->setSelectedNode(m_material);
        m_services->setSelectedNode(m_points);
        m_services->announceSelection();
        QCOMPARE(log, QStringList({"Material", "MFFloat", "MFColor", "no field", "Coordinate3", "Coordinate3",
                                   "no field"}));
    }

    void aSlotMaySelectSomethingElse()
    {
        QObject context;
        connect(m_services, &KlvServices::selectedNodeChanged, &context, [&](SoFieldContainer* node) {
            if (node == m_material)
                m_services->setSelectedNode(m_points);
        });
        m_services->setSelectedField(&m_material->transparency);
        QCOMPARE(m_services->getSelectedNode(), m_points);
        QCOMPARE(m_services->getSelectedField(), nullptr);
    }

    void aDeletedNodeIsDeselected()
    {
        for (SoField* field : std::initializer_list<SoField*>{&m_points->point, &m_material->transparency}) {
            m_services->setSelectedField(field);
            if (field->getContainer() == m_material)
                edit(0.5f); // And it is still in the history, whose reference keeps it for its steps.
            QSignalSpy spy(m_services, &KlvServices::selectedFieldChanged);
            m_root->removeChild(static_cast<SoNode*>(field->getContainer()));
            QCOMPARE(m_services->getSelectedField(), field);
            QTRY_COMPARE(m_services->getSelectedNode(), nullptr);
            QCOMPARE(m_services->getSelectedField(), nullptr);
            QCOMPARE(spy.count(), 1);
        }
        m_stack->undo();
    }

    void whatNobodyOwnsIsSelectedWhileItLives()
    {
        auto* node = new SoCube;
        m_services->setSelectedNode(node);
        QTest::qWait(20);
        QCOMPARE(m_services->getSelectedNode(), node);
        auto field = std::make_unique<SoSFDouble>();
        m_services->setSelectedField(field.get());
        field.reset();
        QCOMPARE(m_services->getSelectedField(), nullptr);
    }

    void undoIsExactWhateverTheCommandCanDo()
    {
        const auto bits = [](double value) { return std::bit_cast<quint64>(value); };
        // More digits than text has; not a number; the sign of zero; the ends of the range.
        const std::pair<double, double> edits[] = {
            {0.1 + 0.2, 1.0 / 3}, {std::nan("1"), -0.0}, {0.0, -0.0}, {-INFINITY, 5e-324}};
        for (const auto& [before, after] : edits) {
            SoSFDouble field;
            field.setValue(before);
            field.setDefault(TRUE);
            m_services->setSelectedField(&field);
            field.setValue(after);
            m_services->pushCommand(new TestCommand(&field));
            for (int round = 0; round < 3; ++round) {
                m_stack->undo();
                QVERIFY(bits(field.getValue()) == bits(before) && field.isDefault());
                m_stack->redo();
                QVERIFY(bits(field.getValue()) == bits(after) && !field.isDefault());
            }
            field.setDefault(TRUE); // nobody is told of that
            m_stack->clear();
            QCoreApplication::processEvents();
            field.setValue(7);
            m_services->pushCommand(new TestCommand(&field));
            m_stack->undo();
            QVERIFY(bits(field.getValue()) == bits(after) && field.isDefault());
            m_stack->clear();
            m_services->setSelectedField(nullptr);
        }
    }

    void aChangeFromElsewhereIsNotUndone()
    {
        m_services->setSelectedField(&m_material->shininess);
        SoMFFloat& field = m_material->shininess;
        field.setValue(0.5f);
        m_services->pushCommand(
            new TestCommand(&field, {[] {}, [&field] { field.setValue(0.125f); }, [] {}}));
        field.setValue(0.75f);
        m_stack->undo();
        QCOMPARE(field[0], 0.125f); // The command's own result stands.
        field.setValue(0.875f);
        m_stack->redo();
        QCOMPARE(field[0], 0.5f); // Its redo changes nothing, so the copy steps in.
    }

    void anEditorThatIsLeftMayStillCommit()
    {
        m_services->setSelectedField(&m_material->transparency);
        QObject context;
        connect(m_services, &KlvServices::selectedFieldChanged, &context, [&] {
            if (m_stack->count() == 0)
                edit(0.5f);
        });
        m_services->setSelectedField(&m_material->shininess);
        QCOMPARE(m_stack->count(), 1);
        m_stack->undo();
        QCOMPARE(m_material->transparency[0], 0.0f);
    }

    void changesFromElsewhereBelongToNoStep()
    {
        m_services->setSelectedField(&m_material->transparency);
        m_material->transparency.setValue(0.25f);
        QTest::qWait(20);
        edit(0.5f);
        m_stack->undo();
        QCOMPARE(m_material->transparency[0], 0.25f);
    }

    void commandsThatChangeNothingLeaveNoStep()
    {
        m_material->transparency.setValue(0.25f);
        m_services->setSelectedField(&m_material->transparency);
        edit(0.5f);
        m_services->pushCommand(new TestCommand(&m_material->transparency));
        QCOMPARE(m_stack->count(), 1);
        m_stack->undo();
        m_services->pushCommand(new TestCommand(&m_material->transparency));
        QVERIFY(m_stack->canRedo()); // Nor does it cost what could be redone.
        m_services->pushCommand(nullptr);
        edit(0.75f);
        edit(0.25f); // Nor does a burst that comes back.
        QCOMPARE(m_stack->count(), 0);
    }

    void editsInQuickSuccessionAreOneStep()
    {
        m_services->setSelectedField(&m_material->transparency);
        edit(0.25f);
        edit(0.5f);
        QCOMPARE(m_stack->count(), 1);
        QCOMPARE(m_stack->text(0), QString("Edit Material.transparency"));
        waitUntilNothingJoins();
        edit(0.75f);
        QCOMPARE(m_stack->count(), 2);
        m_stack->undo();
        edit(1.0f); // An undo in between ends the burst.
        QCOMPARE(m_stack->count(), 2);
        m_stack->undo();
        QCOMPARE(m_material->transparency[0], 0.5f);
        m_stack->undo();
        QCOMPARE(m_material->transparency[0], 0.0f);
        QVERIFY(m_material->transparency.isDefault());
    }

    void onlyValueEditsOfOneFieldJoin()
    {
        m_services->setSelectedField(&m_material->transparency);
        edit(0.5f);
        m_services->setSelectedField(&m_material->shininess);
        m_material->shininess.setValue(0.5f);
        m_services->pushCommand(new TestCommand(&m_material->shininess));
        m_material->shininess.setIgnored(TRUE);
        m_material->setName("Gold");
        m_services->pushCommand(
            new TestCommand(&m_material->shininess, {}, KlvCommand::Kind::Action, "Ignore %1"));
        QCOMPARE(m_stack->count(), 3);
        QCOMPARE(m_stack->text(2), QString("Ignore Gold.shininess"));
        m_stack->undo();
        QVERIFY(!m_material->shininess.isIgnored());
    }

    void editsOfOneMouseGestureAreOneStep()
    {
        QPushButton slider;
        slider.show();
        m_services->setSelectedField(&m_material->transparency);
        connect(&slider, &QPushButton::released, &slider, [this] { edit(0.75f); });
        QTest::mousePress(&slider, Qt::LeftButton);
        edit(0.25f);
        waitUntilNothingJoins();
        edit(0.5f);
        waitUntilNothingJoins();
        QTest::mouseRelease(&slider, Qt::LeftButton);
        QCOMPARE(m_stack->count(), 1);
        waitUntilNothingJoins();
        edit(1.0f);
        QCOMPARE(m_stack->count(), 2);
    }

    void aCommandThatDoesNotSayWhatItChanges()
    {
        auto* transform = new SoTransform;
        m_root->addChild(transform);
        m_services->setSelectedNode(transform);
        const auto move = [transform](float x) { transform->translation.setValue(x, 0, 0); };
        move(1);
        m_services->pushCommand(new TestCommand(nullptr, {[] {}, [&] { move(0); }, [&] { move(1); }}));
        QCOMPARE(m_stack->text(0), QString("Edit Transform"));
        m_services->setSelectedField(&transform->scaleFactor);
        move(2); // Not the selected field: the step is kept all the same.
        m_services->pushCommand(new TestCommand(nullptr));
        transform->scaleFactor.setValue(2, 2, 2);
        m_services->pushCommand(new TestCommand(nullptr));
        QCOMPARE(m_stack->count(), 3);
        m_stack->undo();
        QCOMPARE(transform->scaleFactor.getValue(), SbVec3f(1, 1, 1));
        m_stack->setIndex(0);
        QCOMPARE(transform->translation.getValue(), SbVec3f(0, 0, 0));
    }

    void copiesKeepToTheirBudget()
    {
        constexpr int elements = 10000;
        constexpr qint64 bytes = elements * qint64(sizeof(SbVec3f));
        m_points->point.setNum(elements);
        m_services->setSelectedField(&m_points->point);
        m_services->setCopyBudget(5 * bytes);
        for (int step = 0; step < 10; ++step) {
            m_points->point.set1Value(0, float(step + 1), 0, 0);
            m_services->pushCommand(new TestCommand(&m_points->point, {}, KlvCommand::Kind::Action));
            QVERIFY(m_services->getCopyBytes() <= 5 * bytes);
        }
        QCOMPARE(m_stack->count(), 10);
        m_stack->setIndex(7);
        QCOMPARE(m_points->point[0][0], 7.0f);
        m_stack->setIndex(
            0); // Beyond the budget only the commands' own undo is left; this one's does nothing.
        QCOMPARE(m_points->point[0][0], 7.0f);
        m_stack->clear();
        m_services->setCopyBudget(bytes / 2); // A field larger than that is not copied at all.
        m_points->point.set1Value(0, 50, 0, 0);
        m_services->pushCommand(new TestCommand(&m_points->point));
        QCOMPARE(m_stack->count(), 1);
    }

    void scopesMakeUndoExact()
    {
        for (const int size : {10, 9000}) {
            // Elements that text does not hold to the bit, or not at all.
            checkScopes(*listOf<SoMFDouble>(size, [](int i) { return 1.0 / (i + 3); }));
            checkScopes(*listOf<SoMFString>(size, [](int i) { return SbString(i) += "\\"; }));
            checkScopes(*listOf<SoMFNode>(size, [](int) { return new SoCube; }));
        }
    }

    void copiesOfLargeFieldsAreOfWhatChanges()
    {
        constexpr int elements = 300000; // of larger lists there is no copy
        constexpr qint64 element = sizeof(SbVec3f);
        SoMFVec3f& field = m_points->point;
        field.setNum(elements);
        const auto set = [&field](int index, float x) { field.set1Value(index, x, 0, 0); };
        m_services->setSelectedField(&field);
        for (int row = 0; row < 5; ++row)
            editWithin([&] { set(row, 1); }, &field, row, 1);
        QVERIFY(m_stack->count() == 5 && m_services->getCopyBytes() < 10000);
        QTRY_VERIFY(m_services->getCopyBytes() > elements * element);
        const qint64 whole = m_services->getCopyBytes();
        m_stack->undo();
        m_stack->redo();

        // Changes from elsewhere go into the one copy, also those that move elements.
        set(elements, 7);
        QTRY_COMPARE(m_services->getCopyBytes(), whole + element);
        insertElements(&field, 6, 2);
        deleteElements(&field, 100, 1);
        set(7, 8);
        QTRY_COMPARE(m_services->getCopyBytes(), whole + 2 * element);
        const auto before = copyElements(&field, 0, field.getNum());
        set(3, 3);
        m_services->pushCommand(new TestCommand(&field)); // This one without a scope.
        m_stack->undo();
        QVERIFY(field.isSame(*before));
    }

    void undoIsExactWithoutAScope()
    {
        SoMFFloat& field = m_material->shininess;
        const Deeds deeds = {[&] { field.setValue(0.7f); }};
        for (const bool selected : {false, true}) {
            m_services->setSelectedField(selected ? &field : nullptr);
            editWithin([&] { field.setValue(0.2f); }, &field); // Changes the default flag alone.
            m_stack->undo();
            m_services->pushCommand(new TestCommand(&field, deeds));
            m_stack->undo();
            QVERIFY(field[0] == 0.2f && field.isDefault());
        }
    }

    void otherElementsStayAsOthersMadeThem()
    {
        SoMFDouble field;
        field.setNum(9000);
        const Deeds ownMeans = {[&] { field.set1Value(6, 2); }, [&] { field.set1Value(6, 3); }};
        field.set1Value(5, 1);
        field.set1Value(6, 1);
        editWithin([&] { m_services->pushCommand(new TestCommand(&field, ownMeans)); }, &field, 6, 1);
        field.set1Value(5, 4);
        m_stack->undo();
        QVERIFY(field[5] == 4 && field[6] == 1);
        m_stack->redo();
        deleteElements(&field, 0, 1);
        m_stack->undo(); // The command's own result stands: its element is another one by now.
        QVERIFY(field[5] == 2 && field[6] == 3);
        m_stack->clear();
    }

    void aScopeIsOneStep()
    {
        auto* material = new SoMaterial;
        SoMFColor& field = material->diffuseColor;
        const auto color = [&field](int index, float red) { field.set1Value(index, red, 0, 0); };
        const auto push = [&](Deeds deeds) { m_services->pushCommand(new TestCommand(&field, deeds)); };
        editWithin([] {}, &field); // Changes nothing, and leaves it to the others to own the node.
        QCOMPARE(material->getRefCount(), 0);
        material->ref();
        {
            const KlvEditScope scope(&field, "Paste into %1");
            push({[&] { color(0, 0.25f); }});
            const KlvEditScope inner(&field, 1, 1);
            push({[&] { color(1, 0.5f); }});
            edit(0.5f); // Of another field: a step of its own.
            push({[&] { color(2, 0.75f); }});
            material->unref();
        }
        QCOMPARE(m_stack->count(), 2);
        QCOMPARE(m_stack->text(1), QString("Paste into Material.diffuseColor"));
        // Without a name they join like commands without a scope.
        for (const float red : {0.1f, 0.2f})
            editWithin([&] { color(0, red); }, &field, 0, 1);
        QCOMPARE(m_stack->count(), 3);
        m_stack->undo();
        QCOMPARE(field[0], SbColor(0.25f, 0, 0));
        m_stack->undo();
        QVERIFY(field.getNum() == 1 && field.isDefault());
        {
            const KlvEditScope scope(&field); // Records nothing.
            color(0, 0.9f);
        }
        QVERIFY(m_stack->count() == 3 && m_stack->canRedo());
    }

    void whatACommandThrowsGoesNoFurther()
    {
        const PostedErrors<SoDebugError> posted;
        m_services->setSelectedField(&m_material->transparency);
        m_services->pushCommand(
            new TestCommand(&m_material->transparency, {[] { throw std::runtime_error("broken"); }}));
        QCOMPARE(m_stack->count(), 0);
        QVERIFY(posted.messages.value(0).contains("broken"));
    }
};

KLV_TEST_MAIN(tst_Services)
#include "tst_Services.moc"
