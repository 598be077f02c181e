// The element table of the multi-value editors, worked with keys and clicks in every one of them.

#include "EditedField.h"
#include "FieldEditors/DvSlider.h"
#include "FieldEditors/MFWidgets/DvMFFloatWidget.h"
#include "FieldEditors/MFWidgets/DvMFStringWidget.h"
#include "FieldEditors/MFWidgets/DvMFieldTable.h"
#include "FieldEditors/MFWidgets/DvTableClipboard.h"
#include "KlvDefaults.h"
#include "TestMain.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/fields/SoFields.h>
#include <Inventor/nodes/SoLOD.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSubNode.h>
#include <Inventor/nodes/SoText2.h>

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

// clang-format off
#define EVERY_LIST(DO) \
    DO(SoMFDouble, doubles) DO(SoMFFloat, floats) DO(SoMFInt32, int32s) DO(SoMFShort, shorts) \
    DO(SoMFString, strings) DO(SoMFUInt32, uint32s) DO(SoMFUShort, ushorts) DO(SoMFVec3f, vectors)
#define DECLARE_LIST(kind, name) kind name;
#define ADD_LIST(kind, name) SO_NODE_ADD_EMPTY_MFIELD(name);

class EveryList : public SoNode
{
    SO_NODE_HEADER(EveryList);

public:
    static void initClass() { SO_NODE_INIT_CLASS(EveryList, SoNode, "Node"); }
    EveryList()
    {
        SO_NODE_CONSTRUCTOR(EveryList);
        EVERY_LIST(ADD_LIST)
    }
    EVERY_LIST(DECLARE_LIST)
};

SO_NODE_SOURCE(EveryList);
// clang-format on

namespace {

struct Kind
{
    const char* field;
    QStringList elements; ///< their texts
    const char* keys;     ///< what is entered
    const char* entered;  ///< the element's text then
    const char* added;    ///< that of a new element
    bool records;         ///< edits of a cell leave a step
};

const Kind Kinds[] = {
    {"doubles", {"0.3", "-1e+100", "3", "4"}, "1.25", "1.25", "0", false},
    {"floats", {"0.30000001", "1e-05", "3", "nan"}, "-2.5", "-2.5", "0", false},
    {"int32s", {"1", "-2147483648", "3", "4"}, "-77", "-77", "0", false},
    {"shorts", {"1", "-32768", "3", "4"}, "-77", "-77", "0", false},
    {"strings", {"\"a\"", "\" b\\\"c\"", "\"\"", "\"d\""}, "x y", "\"x y\"", "\"\"", true},
    {"uint32s", {"0x1", "0xffffffff", "0x3", "0x4"}, "4294967294", "0xfffffffe", "0x0", false},
    {"ushorts", {"0x1", "0xffff", "0x3", "0x4"}, "0x1f", "0x1f", "0x0", false},
    {"vectors", {"0.1 2 3", "0 0 1", "3 2 1", "4 4 4"}, "1 2 3", "1 2 3", "0 0 0", true},
};

/// One of the editors at work on one of the fields.
class Bench
{
public:
    explicit Bench(const Kind& kind, const QStringList& elements)
    {
        m_plugin.load();
        m_node->ref();
        field = static_cast<SoMField*>(m_node->getField(kind.field));
        setFieldFromText(field, ("[ " + elements.join(", ") + " ]").toUtf8().constData());
        processSensors();
        history->clear();
        KlvServices::getInstance()->setSelectedField(field);
        for (KlvExtension* extension : m_plugin.getExtensions()) {
            auto* candidate = dynamic_cast<KlvFieldEditors*>(extension);
            if (candidate && field->isOfType(candidate->getHandledType()) &&
                (!editor || candidate->getHandledType().isDerivedFrom(editor->getHandledType())))
                editor = candidate;
        }
        (new QVBoxLayout(&m_window))->addWidget(editor->getWidget());
        editor->setEditedObject(field);
        editor->activate();
        m_window.resize(400, 300);
        m_window.show();
        m_window.activateWindow();
        table = editor->getWidget()->findChild<DvMFieldTable*>();
        QApplication::processEvents();
        table->setFocus();
    }
    ~Bench()
    {
        editor->deactivate();
        m_plugin.unload();
        editor->getWidget()->setParent(nullptr);
        KlvServices::getInstance()->setSelectedNode(nullptr);
        history->clear();
        m_node->unref();
    }

    QStringList elements() const
    {
        QStringList texts;
        for (int i = 0; i < field->getNum(); ++i)
            texts += QString::fromUtf8(getElementText(field, i).getString());
        return texts;
    }
    QLineEdit* open(int row)
    {
        table->setCurrentCell(row, 0);
        QTest::keyClick(table, Qt::Key_F2);
        return openEditor();
    }
    QLineEdit* openEditor() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    void click(const char* button)
    {
        QTest::mouseClick(editor->getWidget()->findChild<QPushButton*>(button), Qt::LeftButton);
        settle();
    }
    void settle()
    {
        processSensors();
        QApplication::processEvents();
        QCOMPARE(table->rowCount(), field->getNum());
        auto* box = editor->getWidget()->findChild<QSpinBox*>("m_accessBox");
        QCOMPARE(box->minimum(), std::min(field->getNum(), 1));
        QCOMPARE(box->maximum(), field->getNum());
    }

    SoMField* field = nullptr;
    KlvFieldEditors* editor = nullptr;
    DvMFieldTable* table = nullptr;
    QUndoStack* history = KlvServices::getInstance()->getUndoStack();

private:
    KlvDefaults m_plugin;
    EveryList* m_node = new EveryList;
    QWidget m_window;
};

} // namespace

class tst_ElementTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { EveryList::initClass(); }
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void cells_data() { kinds(); }
    void cells()
    {
        QFETCH(int, kind);
        const Kind& expected = Kinds[kind];
        Bench bench(expected, expected.elements);
        QStringList elements = bench.elements();

        // Escape leaves the element; what comes from outside does not disturb what is being typed.
        QLineEdit* edit = bench.open(1);
        QVERIFY(edit);
        QTest::keyClicks(edit, expected.keys);
        swapElements(bench.field, 0, 1);
        bench.settle();
        QCOMPARE(edit->text(), expected.keys);
        QTest::keyClick(edit, Qt::Key_Escape);
        swapElements(bench.field, 0, 1);
        bench.settle();
        QCOMPARE(bench.elements(), elements);

        // Return and Tab write it; Tab goes on to the next cell.
        for (const auto& [row, key] : {std::pair(1, Qt::Key_Return), std::pair(2, Qt::Key_Tab)}) {
            const int steps = bench.history->count();
            edit = bench.open(row);
            QTest::keyClicks(edit, expected.keys);
            QTest::keyClick(edit, key);
            bench.settle();
            elements[row] = expected.entered;
            QCOMPARE(bench.elements(), elements);
            QCOMPARE(bench.table->currentRow(), row + (key == Qt::Key_Tab ? 1 : 0));
            QCOMPARE(bench.history->count(), expected.records ? std::max(steps, 1) : 0);
        }
        // What is opened can be edited character by character, and closed as it is.
        edit = bench.openEditor();
        QVERIFY(edit && edit->isVisible());
        QTest::keyClick(edit, Qt::Key_Return);
        bench.settle();
        edit = bench.open(0);
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text().size(),
                 qobject_cast<DvMFStringWidget*>(bench.editor) ? 0 : bench.elements()[0].size() - 1);
        QTest::keyClick(edit, Qt::Key_Escape);
        bench.settle();
        QCOMPARE(bench.elements(), elements);
        if (expected.records) {
            bench.history->undo();
            QCOMPARE(bench.elements()[2], expected.elements[2]);
        }
    }

    void rows_data() { kinds(); }
    void rows()
    {
        QFETCH(int, kind);
        const Kind& expected = Kinds[kind];
        Bench bench(expected, {});
        QList<QStringList> states = {bench.elements()};
        const auto changed = [&](const QStringList& now) {
            bench.settle();
            QCOMPARE(bench.elements(), now);
            if (bench.history->count() == states.size())
                states += now;
        };
        QTest::keyClick(bench.table, Qt::Key_Minus);
        bench.click("m_deleteButton");
        QCOMPARE(bench.history->count(), 0);
        bench.click("m_addButton");
        changed({expected.added});
        QCOMPARE(bench.table->currentRow(), 0);
        QTest::keyClick(bench.table, Qt::Key_Plus);
        changed({expected.added, expected.added});
        QCOMPARE(bench.table->currentRow(), 0);
        QTest::keyClick(bench.table, Qt::Key_Delete);
        changed({expected.added});
        bench.click("m_deleteButton");
        changed({});
        QCOMPARE(bench.table->currentRow(), -1);
        walk(bench, states);

        // Moves, from end to end and no further; the moved row stays current.
        setFieldFromText(bench.field, ("[ " + expected.elements.join(", ") + " ]").toUtf8().constData());
        bench.settle();
        bench.history->clear();
        QStringList elements = bench.elements();
        states = {elements};
        bench.table->setCurrentCell(3, 0);
        for (int row = 3; row >= 0; --row) {
            QCOMPARE(bench.table->currentRow(), row);
            bench.click("m_upButton");
            if (row > 0)
                elements.move(row, row - 1);
            changed(elements);
        }
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(bench.table->currentRow(), row);
            bench.click("m_downButton");
            if (row < 3)
                elements.move(row, row + 1);
            changed(elements);
        }
        // A range, selected while Shift is held.
        bench.table->setCurrentCell(1, 0);
        QTest::keyPress(bench.table, Qt::Key_Shift);
        QTest::keyClick(bench.table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(bench.table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(bench.table, Qt::Key_Delete, Qt::ShiftModifier);
        QTest::keyRelease(bench.table, Qt::Key_Shift);
        changed({elements[0]});
        QTest::keyClick(bench.table, Qt::Key_Delete);
        changed({});
        QCOMPARE(bench.history->count(), 8);
        walk(bench, states);
    }

    void boundedCell()
    {
        auto* material = new SoMaterial;
        const float values[] = {0.1f, 0.2f, 0.3f};
        material->transparency.setValues(0, 3, values);
        Edited<DvMFFloatWidget> edited(&material->transparency);
        auto* table = edited.child<DvMFieldTable>("m_table");
        const auto open = [&](int row) {
            table->setFocus();
            table->setCurrentCell(row, 0);
            QTest::keyClick(table, Qt::Key_F2);
            return table->findChild<DvSlider*>();
        };
        DvSlider* frame = open(0);
        QVERIFY(frame);
        auto* slider = frame->findChild<QSlider*>();
        slider->setFocus();
        QCOMPARE(slider->value(), 10);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(material->transparency[0], 0.11f);
        // Keys that the slider has no use for do nothing to the rows.
        QTest::keyClick(slider, Qt::Key_Minus);
        QCOMPARE(material->transparency.getNum(), 3);
        QTest::keyClick(slider, Qt::Key_Escape);
        QCOMPARE(material->transparency[0], 0.1f);
        QApplication::processEvents();
        QTest::qWait(0);

        frame = open(1);
        QTest::keyClicks(frame->focusProxy(), "7");
        QTest::keyClick(frame->focusProxy(), Qt::Key_Tab);
        QCOMPARE(material->transparency[1], 1.f);
        QCOMPARE(table->currentRow(), 2);
        QTest::qWait(0);
        frame = table->findChild<DvSlider*>();
        QVERIFY(frame && frame->isVisible());
        QTest::keyClicks(frame->focusProxy(), ".25");
        edited.outside->setFocus();
        QCOMPARE(material->transparency[2], 0.25f);
        QTest::qWait(0);
        QVERIFY(!table->findChild<DvSlider*>());
    }

    void clipboard_data()
    {
        QTest::addColumn<QStringList>("elements");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("selected");
        QTest::addColumn<QStringList>("result");
        const QStringList abc = {"a", "b", "c"};
        QTest::newRow("one") << abc << "x" << 1 << 1 << QStringList{"a", "x", "c"};
        QTest::newRow("tabs and lines") << abc << "x\ty\r\nz\n" << 0 << 1 << QStringList{"x", "y", "z"};
        QTest::newRow("beyond the end") << abc << "x\n\ny" << 2 << 1 << QStringList{"a", "b", "x", "", "y"};
        QTest::newRow("into nothing") << QStringList() << "x\ty" << -1 << 0 << QStringList{"x", "y"};
        QTest::newRow("fills the selection") << abc << "x" << 1 << 2 << QStringList{"a", "x", "x"};
        QTest::newRow("more than selected") << abc << "x\ny\nz" << 0 << 2 << QStringList{"x", "y", "z"};
        QTest::newRow("quotes") << abc << "\"x\"\n\"y\tz\"\n\"1 \"\"2\n3\"\"\"" << 0 << 1
                                << QStringList{"\"x\"", "y\tz", "1 \"2\n3\""};
        QTest::newRow("nothing") << abc << "" << 0 << 1 << abc;
    }
    void clipboard()
    {
        QFETCH(QStringList, elements);
        QFETCH(QString, text);
        QFETCH(int, row);
        QFETCH(int, selected);
        QFETCH(QStringList, result);
        auto* node = new SoText2;
        node->string.setNum(0);
        for (const QString& element : elements)
            node->string.set1Value(node->string.getNum(), element.toUtf8().constData());
        Edited<DvMFStringWidget> edited(&node->string);
        auto* table = edited.child<DvMFieldTable>("m_table");
        table->setFocus();
        const auto select = [&](int first, int count) {
            table->setCurrentCell(first, 0);
            QTest::keyPress(table, Qt::Key_Shift);
            for (int i = 1; i < count; ++i)
                QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
            QTest::keyRelease(table, Qt::Key_Shift);
        };
        const auto strings = [&] {
            QStringList list;
            for (int i = 0; i < node->string.getNum(); ++i)
                list += QString::fromUtf8(node->string[i].getString());
            return list;
        };
        if (row >= 0)
            select(row, selected);
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
        processSensors();
        QCOMPARE(strings(), result);
        QCOMPARE(edited.history->count(), result == elements ? 0 : 1);
        select(0, int(result.size()));
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QStringList cells;
        for (const QStringList& line : DvTableClipboard::split(QGuiApplication::clipboard()->text()))
            cells += line;
        QCOMPARE(cells, result);
        edited.history->undo();
        QCOMPARE(strings(), elements);
        edited.history->redo();
        QCOMPARE(strings(), result);
    }

    void costsWhatIsOnTheScreen()
    {
        class Counting : public DvMFFloatWidget
        {
        public:
            using DvMFFloatWidget::DvMFFloatWidget;
            QString getFieldValue(int row, int column) const override
            {
                ++reads;
                return DvMFFloatWidget::getFieldValue(row, column);
            }
            mutable int reads = 0;
        };
        auto* lod = new SoLOD;
        lod->range.setNum(1000000);
        Edited<Counting> edited(&lod->range);
        auto* table = edited.child<DvMFieldTable>("m_table");
        const std::function<void()> operations[] = {
            [&] { lod->range.touch(); },          [&] { lod->range.set1Value(3, 7.f); },
            [&] { table->showTableRow(500000); }, [&] { table->addRow(); },
            [&] { table->deleteRow(); },          [&] { table->swapUpRow(); },
        };
        for (const auto& operation : operations) {
            edited.editor.reads = 0;
            operation();
            processSensors();
            QApplication::processEvents();
            QVERIFY2(edited.editor.reads > 0 && edited.editor.reads < 100,
                     qPrintable(QString::number(edited.editor.reads)));
        }
    }

private:
    static void kinds()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < int(std::size(Kinds)); ++kind)
            QTest::newRow(Kinds[kind].field) << kind;
    }
    /// Back and forth through all states.
    static void walk(Bench& bench, const QList<QStringList>& states)
    {
        QCOMPARE(bench.history->count(), states.size() - 1);
        for (qsizetype i = states.size() - 1; i-- > 0;) {
            bench.history->undo();
            bench.settle();
            QCOMPARE(bench.elements(), states[i]);
        }
        for (qsizetype i = 1; i < states.size(); ++i) {
            bench.history->redo();
            bench.settle();
            QCOMPARE(bench.elements(), states[i]);
        }
    }
};

KLV_TEST_MAIN(tst_ElementTable)
#include "tst_ElementTable.moc"
