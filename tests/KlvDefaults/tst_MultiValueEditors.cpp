// The editors of multi-value fields but for their tables at work: what they show of a field, which fields
// they take, how the text of a cell becomes an element, and the buttons.

#include "EditedField.h"
#include "FieldEditors/MFWidgets/AccessButtonPrivate.h"
#include "FieldEditors/MFWidgets/DvMFColorTable.h"
#include "KlvDefaults.h"
#include "TestMain.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/VRMLnodes/SoVRMLText.h>
#include <Inventor/errors/SoReadError.h>
#include <Inventor/fields/SoFields.h>
#include <Inventor/nodes/SoLOD.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoNode.h>

#include <QLabel>
#include <QPushButton>

namespace {

const struct
{
    const char* editor;
    const char* kind;
    const char* before;
    int row;
    const char* shown;
    const char* text;
    const char* after; ///< null for a text that is refused
} Cells[] = {
    {"DvMFInt32Widget", "MFInt32", "[ 1, 2 ]", 1, "2", "-7", "[ 1, -7 ]"},
    {"DvMFInt32Widget", "MFInt32", "[ 1, 2 ]", 0, "1", "1.5", nullptr},
    {"DvMFShortWidget", "MFShort", "[ 1, 2 ]", 0, "1", "40000", nullptr},
    {"DvMFUInt32Widget", "MFUInt32", "31", 0, "0x1f", "4294967295", "4294967295"},
    {"DvMFUShortWidget", "MFUShort", "31", 0, "0x1f", "0x20", "32"},
    {"DvMFFloatWidget", "MFFloat", "0.1", 0, "0.1", "1e-3", "0.001"},
    {"DvMFFloatWidget", "MFFloat", "0.123456789", 0, "0.12345679", "0.12345679", "0.123456789"},
    {"DvMFDoubleWidget", "MFDouble", "1", 2, "", "0.1", "[ 1, 0, 0.1 ]"},
    {"DvMFStringWidget", "MFString", "[ \"a\", \"b \\\"c\\\"\" ]", 1, "b \"c\"", " \"x\" y\\",
     "[ \"a\", \" \\\"x\\\" y\\\" ]"},
    {"DvMFStringWidget", "MFString", "\"a\"", 0, "a", "a", "\"a\""},
    {"DvMFStringWidget", "MFString", "\"a\"", 2, "", "b", "[ \"a\", \"\", \"b\" ]"},
    {"DvMFDefaultFieldWidget", "MFString", "\"a\"", 0, "\"a\"", "\"b c\"", "\"b c\""},
    {"DvMFDefaultFieldWidget", "MFVec3f", "1 2 3", 0, "1 2 3", "1 2", nullptr},
    {"DvMFDefaultFieldWidget", "MFNode", "DEF Box Cube { width 3 }", 0, "Cube \"Box\"", "NULL", "NULL"},
};

template <typename Editor>
struct RangeOf : Editor
{
    RangeOf()
        : Editor(nullptr)
    {
    }
    using Editor::m_rangeComponent;
};

} // namespace

class tst_MultiValueEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void showsTheField()
    {
        SoMFFloat field;
        for (const int count : {0, 1, 12}) {
            field.setNum(count);
            Edited<DvMFFloatWidget> edited(&field);
            auto* table = edited.child<DvMFieldTable>("m_table");
            auto* box = edited.child<AccessButtonPrivate>("m_accessBox");
            auto* ignore = edited.child<QPushButton>("m_ignoreButton");
            auto* label = edited.child<QLabel>("m_labelNumElement");
            const auto shows = [&](int number, bool ignored) {
                return label->text() == QStringLiteral("<p align=\"center\">%1 elements</p>").arg(number) &&
                       table->rowCount() == number && box->minimum() == std::min(number, 1) &&
                       box->maximum() == number && ignore->isChecked() == ignored;
            };
            QVERIFY(shows(count, false));
            edited.editor.setRefresh(false);
            field.setNum(count + 2);
            field.setIgnored(TRUE);
            processSensors();
            QVERIFY(shows(count, false));
            edited.editor.setRefresh(true);
            field.touch();
            processSensors();
            QVERIFY(shows(count + 2, true));
            field.setIgnored(FALSE);
        }
    }

    void frame()
    {
        DvMFieldWidget editor(1, nullptr);
        QCOMPARE(editor.objectName(), QStringLiteral("DvMFieldWidget"));
        for (int time = 0; time < 2; ++time) {
            editor.setFieldName(QStringLiteral("name %1").arg(time));
            editor.load();
        }
        QWidget* widget = editor.getWidget();
        QCOMPARE(widget->findChild<QLabel*>("m_label")->text(),
                 QStringLiteral("<p align=\"center\">name 0</p>"));
        QVERIFY(widget->findChild<DvMFColorTable*>("m_table"));
        QVERIFY(widget->findChildren<QLabel*>().size() == 2 && widget->actions().size() == 6);
        const auto buttons = widget->findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), 6);
        for (const auto* button : buttons)
            QVERIFY(button->focusPolicy() == Qt::NoFocus && button->toolTip() == button->accessibleName());
    }

    void otherFields()
    {
        auto field = std::make_unique<SoMFFloat>();
        field->setNum(2);
        SoMFString other;
        SoMFInt32 integers;
        Edited<DvMFFloatWidget> edited(field.get());
        auto* table = edited.child<DvMFieldTable>("m_table");
        edited.editor.setField(&other);
        QVERIFY(edited.editor.getField() == field.get());
        QCOMPARE(table->rowCount(), 2);
        field.reset();
        QVERIFY(!edited.editor.getField());
        QCOMPARE(table->rowCount(), 0);
        QVERIFY(!edited.editor.checkField(nullptr) && !edited.editor.checkField(&integers));

        // There is nothing to do without a field.
        other.touch();
        processSensors();
        edited.editor.set1Value(0, 0, QStringLiteral("1"));
        edited.editor.swapRows(0, 1);
        for (QPushButton* button : edited.children<QPushButton>())
            button->click();
        QVERIFY(edited.editor.getFieldValue(0, 0).isEmpty() && edited.history->count() == 0);
    }

    void cells_data()
    {
        QTest::addColumn<int>("index");
        for (int index = 0; index < int(std::size(Cells)); ++index)
            QTest::addRow("%s \"%s\"", Cells[index].editor, Cells[index].text) << index;
    }
    void cells()
    {
        QFETCH(int, index);
        const auto& [editor, kind, before, row, shown, text, after] = Cells[index];
        static int messages;
        messages = 0;
        const auto handler = SoReadError::getHandlerCallback();
        const auto restore = qScopeGuard([=] { SoReadError::setHandlerCallback(handler, nullptr); });
        SoReadError::setHandlerCallback([](const SoError*, void*) { ++messages; }, nullptr);

        KlvDefaults plugin;
        plugin.load();
        DvMFieldWidget* cells = nullptr;
        for (KlvExtension* extension : plugin.getExtensions()) {
            if (extension->inherits(editor))
                cells = dynamic_cast<DvMFieldWidget*>(extension);
        }
        std::unique_ptr<SoMField> fields[3];
        for (auto& field : fields)
            field.reset(static_cast<SoMField*>(SoType::fromName(SbName(kind)).createInstance()));
        const auto& [field, old, expected] = fields;
        const bool isString = kind == QLatin1String("MFString");
        // Something is left behind the end, where elements may be added.
        setFieldFromText(field.get(), isString ? "[ \"x\", \"x\", \"x\" ]" : before);
        setFieldFromText(field.get(), before);
        setFieldFromText(old.get(), before);
        setFieldFromText(expected.get(), after ? after : before);
        field->setDefault(TRUE);
        auto* history = KlvServices::getInstance()->getUndoStack();
        history->clear();
        cells->setEditedObject(field.get());
        cells->activate();
        QCOMPARE(cells->getShownText(row, 0), QString::fromUtf8(shown));
        for (const auto& [missing, column] : {std::pair(0, 1), {-1, 0}, {field->getNum(), 0}})
            QVERIFY(cells->getFieldValue(missing, column).isEmpty());

        for (const int edited : {row, -1})
            cells->set1Value(edited, 0, QString::fromUtf8(text));
        QVERIFY2(textOf(field.get()) == textOf(expected.get()), textOf(field.get()));
        const bool changed = !old->isSame(*expected);
        QVERIFY(changed != bool(field->isDefault()));
        QCOMPARE(messages, after ? 0 : 1);
        const bool isRecorded = isString || cells->inherits("DvMFDefaultFieldWidget");
        QCOMPARE(history->count(), changed && isRecorded ? 1 : 0);
        history->undo();
        QCOMPARE(textOf(field.get()), textOf(changed && !isRecorded ? expected.get() : old.get()));
        cells->deactivate();
        plugin.unload();
    }

    void swapping()
    {
        SoMFString strings;
        setFieldFromText(&strings, "[ \"a\", \"b\", \"c\" ]");
        Edited<DvMFStringWidget> edited(&strings);
        edited.editor.swapRows(0, 2);
        QVERIFY(strings[0] == "c" && strings[2] == "a" && edited.history->count() == 1);
        edited.history->undo();
        QVERIFY(strings[0] == "a" && strings[2] == "c");
    }

    void ranges()
    {
        auto* material = new SoMaterial;
        auto* lod = new SoLOD;
        for (SoNode* node : std::initializer_list<SoNode*>{material, lod})
            node->ref();
        RangeOf<DvMFFloatWidget> floats;
        RangeOf<DvMFDoubleWidget> doubles;
        SoMFDouble field;
        for (const auto& [accepted, range] :
             {std::pair(&material->shininess, DvRangeComponent(0.0f, 1.0f, true)),
              {&lod->range, DvRangeComponent(0.0f, 10.0f, false)}}) {
            floats.setField(accepted);
            QVERIFY(floats.m_rangeComponent == range);
            QVERIFY(!floats.checkField(&field) && floats.m_rangeComponent == range);
        }
        doubles.setField(&field);
        QVERIFY(doubles.m_rangeComponent == DvRangeComponent(0.0, 10.0, false));
        for (SoNode* node : std::initializer_list<SoNode*>{material, lod})
            node->unref();
    }

    void buttons()
    {
        auto* text = new SoVRMLText;
        text->ref();
        setFieldFromText(&text->string, "[ \"a\", \"b\", \"c\" ]");
        {
            Edited<DvMFStringWidget> edited(&text->string);
            auto* table = edited.child<DvMFieldTable>("m_table");
            table->setFocus();
            const Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
            QTest::keyClick(table, Qt::Key_I, ctrlShift);
            QVERIFY(text->string.isIgnored());
            QTest::keyClick(table, Qt::Key_D, ctrlShift);
            processSensors();
            QVERIFY(text->string.isDefault() && text->string.getNum() == 0 && table->rowCount() == 0);
            QCOMPARE(edited.history->count(), 2);
            edited.history->undo();
            QVERIFY(text->string.getNum() == 3 && text->string[2] == "c");
            edited.history->undo();
            QVERIFY(!text->string.isIgnored());

            processSensors();
            QTest::keyClick(table, Qt::Key_Down, ctrlShift);
            QTest::keyClick(table, Qt::Key_Up, ctrlShift);
            QTest::keyClick(table, Qt::Key_Insert, Qt::AltModifier);
            QTest::keyClick(table, Qt::Key_Delete, Qt::AltModifier);
            const char* const left[] = {"", "b", "c"};
            for (int i = 0; i < 3; ++i)
                QVERIFY(text->string[i] == left[i]);
            QVERIFY(text->string.getNum() == 3 && edited.history->count() == 4 && table->hasFocus());
        }
        text->unref();
    }

    void accessBox()
    {
        SoMFInt32 field;
        field.setNum(5);
        Edited<DvMFInt32Widget> edited(&field);
        auto* table = edited.child<DvMFieldTable>("m_table");
        auto* box = edited.child<AccessButtonPrivate>("m_accessBox");
        QVERIFY(edited.line->parent() == box);
        edited.line->selectAll();
        QTest::keyClick(edited.line, '3');
        QCOMPARE(table->currentRow(), 3);
        table->setCurrentCell(1, 0);
        QCOMPARE(box->value(), 2);
        // Return says the value again, which is a row further.
        QTest::keyClick(edited.line, Qt::Key_Return);
        QCOMPARE(table->currentRow(), 2);
        QCOMPARE(box->value(), 2);
    }
};

KLV_TEST_MAIN(tst_MultiValueEditors)
#include "tst_MultiValueEditors.moc"
