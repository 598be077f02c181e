// The element table of the multi-value editors, worked with keys and clicks.

#include "EditedField.h"
#include "FieldEditors/DvSlider.h"
#include "FieldEditors/MFWidgets/DvMFieldTable.h"
#include "FieldEditors/MFWidgets/DvTableClipboard.h"
#include "MultiValueWidgets.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

namespace {

struct Kind
{
    const char* type;
    DvMFieldWidget* (*create)();
    QStringList elements; ///< their texts
    const char* keys;     ///< what is entered
    const char* entered;  ///< the element's text then
};

const Kind Kinds[] = {
    {"MFDouble", make<DvMFDoubleWidget>, {"0.3", "-1e+100", "3", "4"}, "1.25", "1.25"},
    {"MFFloat", make<DvMFFloatWidget>, {"0.30000001", "1e-05", "3", "nan"}, "-2.5", "-2.5"},
    {"MFInt32", make<DvMFInt32Widget>, {"1", "-2147483648", "3", "4"}, "-77", "-77"},
    {"MFShort", make<DvMFShortWidget>, {"1", "-32768", "3", "4"}, "-77", "-77"},
    {"MFString", make<DvMFStringWidget>, {"\"a\"", "\" b\\\"c\"", "\"\"", "\"d\""}, "x y", "\"x y\""},
    {"MFUInt32", make<DvMFUInt32Widget>, {"0x1", "0xffffffff", "0x3", "0x4"}, "4294967294", "0xfffffffe"},
    {"MFUShort", make<DvMFUShortWidget>, {"0x1", "0xffff", "0x3", "0x4"}, "0x1f", "0x1f"},
    {"MFVec3f", make<DvMFDefaultFieldWidget>, {"0.1 2 3", "0 0 1", "3 2 1", "4 4 4"}, "1 2 3", "1 2 3"},
};

/// One of the editors at work on a list, the table with the keyboard focus.
class Bench : public Edited<DvMFieldWidget>
{
public:
    Bench(SoMField& list, DvMFieldWidget* made)
        : Edited(&list, made)
        , field(list)
    {
        window.resize(400, 300);
        table->setFocus();
    }
    QStringList elements() const
    {
        QStringList texts;
        for (int i = 0; i < field.getNum(); ++i)
            texts += QString::fromUtf8(getElementText(&field, i).getString());
        return texts;
    }
    QLineEdit* open(int row)
    {
        table->setCurrentCell(row, 0);
        QTest::keyClick(table, Qt::Key_F2);
        return openEditor();
    }
    QLineEdit* openEditor() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    /// Selects rows as one does with Shift and the arrow keys.
    void select(int first, int count)
    {
        table->setCurrentCell(first, 0);
        QTest::keyPress(table, Qt::Key_Shift);
        for (int i = 1; i < count; ++i)
            QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyRelease(table, Qt::Key_Shift);
    }
    void settle()
    {
        processSensors();
        QApplication::processEvents();
        QCOMPARE(table->rowCount(), field.getNum());
        auto* box = widget->findChild<QSpinBox*>("m_accessBox");
        QCOMPARE(box->minimum(), std::min(field.getNum(), 1));
        QCOMPARE(box->maximum(), field.getNum());
    }

    SoMField& field;
    DvMFieldTable* table = widget->findChild<DvMFieldTable*>("m_table");
};

QStringList stringsOf(const SoMFString& list)
{
    QStringList strings;
    for (int i = 0; i < list.getNum(); ++i)
        strings += QString::fromUtf8(list[i].getString());
    return strings;
}

} // namespace

class tst_ElementTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void cells_data()
    {
        QTest::addColumn<int>("kind");
        for (int kind = 0; kind < int(std::size(Kinds)); ++kind)
            QTest::newRow(Kinds[kind].type) << kind;
    }
    void cells()
    {
        QFETCH(int, kind);
        const Kind& expected = Kinds[kind];
        const bool isString = expected.create == make<DvMFStringWidget>;
        const bool isRecorded = isString || expected.create == make<DvMFDefaultFieldWidget>;
        const auto list = newField<SoMField>(expected.type);
        setFieldFromText(list.get(), ("[ " + expected.elements.join(", ") + " ]").toUtf8().constData());
        Bench bench(*list, expected.create());
        QVERIFY(list->isOfType(bench.editor.getHandledType()));
        QStringList elements = bench.elements();
        // Escape leaves the element; what comes from outside does not disturb what is being typed.
        QLineEdit* edit = bench.open(1);
        QVERIFY(edit);
        QTest::keyClicks(edit, expected.keys);
        swapElements(list.get(), 0, 1);
        bench.settle();
        QCOMPARE(edit->text(), expected.keys);
        QTest::keyClick(edit, Qt::Key_Escape);
        swapElements(list.get(), 0, 1);
        bench.settle();
        QCOMPARE(bench.elements(), elements);
        QVERIFY(bench.history->isClean());

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
            QCOMPARE(bench.history->count(), isRecorded ? std::max(steps, 1) : 0);
            QVERIFY(!bench.history->isClean());
        }
        QTest::keyClick(bench.openEditor(), Qt::Key_Return);
        edit = bench.open(0); // can be edited character by character
        QTest::keyClick(edit, Qt::Key_End);
        QTest::keyClick(edit, Qt::Key_Backspace);
        QCOMPARE(edit->text().size(), isString ? 0 : bench.elements()[0].size() - 1);
        QTest::keyClick(edit, Qt::Key_Escape);
        bench.settle();
        QCOMPARE(bench.elements(), elements);
        if (isRecorded) {
            bench.history->undo();
            QCOMPARE(bench.elements()[2], expected.elements[2]);
        }
    }

    void rows()
    {
        SoMFString list;
        Bench bench(list, new DvMFStringWidget(nullptr));
        const auto key = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
            return [=, &bench] { QTest::keyClick(bench.table, key, modifiers); };
        };
        const auto click = [&](const char* button) {
            return [=, &bench] {
                QTest::mouseClick(bench.widget->findChild<QPushButton*>(button), Qt::LeftButton);
            };
        };
        const Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
        const auto moveDown = key(Qt::Key_Down, ctrlShift);
        QGuiApplication::clipboard()->setText("a\nb\nc\nd");
        const auto deleteTwo = [&] {
            bench.select(1, 2);
            key(Qt::Key_Delete, Qt::ShiftModifier)();
        };
        // What is done, the elements then (an empty one as "-"), and the current row. Rows move from end to
        // end and no further; the moved one stays current.
        // clang-format off
        const std::tuple<std::function<void()>, const char*, int> steps[] = {
            {key(Qt::Key_Minus), "", -1}, {click("m_deleteButton"), "", -1}, {click("m_addButton"), "-", 0},
            {key(Qt::Key_Plus), "--", 0}, {key(Qt::Key_Insert, Qt::AltModifier), "---", 0},
            {key(Qt::Key_Delete), "--", 0}, {key(Qt::Key_Delete, Qt::AltModifier), "-", 0},
            {key(Qt::Key_V, Qt::ControlModifier), "abcd", 0}, {moveDown, "bacd", 1}, {moveDown, "bcad", 2},
            {moveDown, "bcda", 3}, {moveDown, "bcda", 3}, {click("m_upButton"), "bcad", 2},
            {click("m_upButton"), "bacd", 1}, {key(Qt::Key_Up, ctrlShift), "abcd", 0},
            {click("m_upButton"), "abcd", 0}, {click("m_downButton"), "bacd", 1},
            {key(Qt::Key_Delete), "bcd", 1}, {deleteTwo, "b", 0}, {click("m_deleteButton"), "", -1}};
        // clang-format on
        const auto elements = [&list] {
            return stringsOf(list).replaceInStrings(QRegularExpression("^$"), "-").join("");
        };
        QStringList states = {""};
        for (const auto& [operate, expected, row] : steps) {
            operate();
            bench.settle();
            QCOMPARE(elements(), expected);
            QCOMPARE(bench.table->currentRow(), row);
            if (states.last() != expected)
                states += expected;
            QCOMPARE(bench.history->count(), states.size() - 1);
        }
        // Back through all of them; the table follows.
        while (bench.history->canUndo()) {
            bench.history->undo();
            bench.settle();
            QCOMPARE(elements(), states[bench.history->index()]);
        }
    }

    void boundedCell()
    {
        auto* material = new SoMaterial;
        const float values[] = {0.1f, 0.2f, 0.3f};
        material->transparency.setValues(0, 3, values);
        Bench bench(material->transparency, new DvMFFloatWidget(nullptr));
        auto* table = bench.table;
        const auto open = [&](int row) {
            bench.open(row);
            return table->findChild<DvSlider*>();
        };
        SoMFString other; // refused, and no reason to forget the bounds
        QVERIFY(!bench.editor.checkField(&other));
        DvSlider* frame = open(0);
        QVERIFY(frame);
        auto* slider = frame->findChild<QSlider*>();
        slider->setFocus();
        QCOMPARE(slider->value(), 10);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(material->transparency[0], 0.11f);
        const KlvChanges* changes = KlvServices::getInstance()->getChanges();
        QVERIFY(changes->isChanged(&material->transparency) && !bench.history->isClean());
        // Keys that the slider has no use for do nothing to the rows.
        QTest::keyClick(slider, Qt::Key_Minus);
        QCOMPARE(material->transparency.getNum(), 3);
        QTest::keyClick(slider, Qt::Key_Escape);
        QVERIFY(material->transparency[0] == 0.1f && table->hasFocus());
        QVERIFY(!changes->isChanged(&material->transparency));
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
        bench.outside->setFocus();
        QCOMPARE(material->transparency[2], 0.25f);
        QTest::qWait(0);
        QVERIFY(!table->findChild<DvSlider*>());

        // What is entered for an element that goes meanwhile goes with it; what is pasted stays in bounds.
        QTest::keyClicks(open(2)->focusProxy(), ".5");
        material->transparency.setNum(1);
        processSensors();
        QTest::qWait(0);
        QCOMPARE(material->transparency.getNum(), 1);
        QGuiApplication::clipboard()->setText("5\t-3");
        table->setCurrentCell(0, 0);
        table->pasteRows();
        QVERIFY(material->transparency[0] == 1 && material->transparency[1] == 0);
        QCOMPARE(bench.history->count(), 1);
        bench.history->undo();
        QVERIFY(material->transparency.getNum() == 1 && material->transparency[0] == 0.1f);
    }

    void touchedCell()
    {
        for (const float value : {1e-7f, 0.5f, 2.5f}) {
            auto* material = new SoMaterial;
            material->transparency.setValue(value);
            material->transparency.setDefault(TRUE);
            Bench bench(material->transparency, new DvMFFloatWidget(nullptr));
            bench.open(0);
            auto* slider = bench.table->findChild<QSlider*>("slider");
            slider->setSliderDown(true);
            slider->setSliderDown(false);
            auto* line = bench.table->findChild<QLineEdit*>("lineEdit");
            line->deselect();
            QTest::keyClicks(line, "\b0\r");
            QVERIFY(material->transparency[0] == value && material->transparency.isDefault());
            QVERIFY(bench.history->isClean());
        }
    }

    void clipboard()
    {
        const QStringList abc = {"a", "b", "c"};
        // The elements, what is pasted, the current row, how many are selected, and the elements then.
        const std::tuple<QStringList, const char*, int, int, QStringList> pastes[] = {
            {abc, "x", 1, 1, {"a", "x", "c"}},
            {abc, "x\ty\r\nz\n", 0, 1, {"x", "y", "z"}},
            {abc, "x\n\ny", 2, 1, {"a", "b", "x", "", "y"}},
            {{}, "x\ty", -1, 0, {"x", "y"}},
            {abc, "x", 1, 2, {"a", "x", "x"}},
            {abc, "x\ny\nz", 0, 2, {"x", "y", "z"}},
            {abc, "\"x\"\n\"y\tz\"\n\"1 \"\"2\n3\"\"\"", 0, 1, {"\"x\"", "y\tz", "1 \"2\n3\""}},
            {abc, "\"x\r\ny\"\n\"\"\"z\"\"\"\n\n", 0, 1, {"x\r\ny", "\"z\"", ""}},
            {abc, "", 0, 1, abc}};
        for (const auto& [elements, text, row, selected, result] : pastes) {
            SoMFString list;
            for (const QString& element : elements)
                list.set1Value(list.getNum(), element.toUtf8().constData());
            Bench bench(list, new DvMFStringWidget(nullptr));
            if (row >= 0)
                bench.select(row, selected);
            QGuiApplication::clipboard()->setText(text);
            QTest::keyClick(bench.table, Qt::Key_V, Qt::ControlModifier);
            bench.settle();
            QCOMPARE(stringsOf(list), result);
            QCOMPARE(bench.history->count(), result == elements ? 0 : 1);
            bench.select(0, list.getNum());
            QTest::keyClick(bench.table, Qt::Key_C, Qt::ControlModifier);
            QStringList copied;
            for (const QStringList& line : DvTableClipboard::split(QGuiApplication::clipboard()->text()))
                copied += line;
            QCOMPARE(copied, result);
            bench.history->undo();
            QCOMPARE(stringsOf(list), elements);
        }
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
        auto* table = edited.widget->findChild<DvMFieldTable*>("m_table");
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
};

KLV_TEST_MAIN(tst_ElementTable)
#include "tst_ElementTable.moc"
