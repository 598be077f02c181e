// The editors of multi-value fields at work, but for their tables.

#include "EditedField.h"
#include "FieldEditors/MFWidgets/AccessButtonPrivate.h"
#include "FieldEditors/MFWidgets/DvMFColorTable.h"
#include "MultiValueWidgets.h"

#include <KlvExtender/SceneGraph/SoFieldText.h>

#include <Inventor/VRMLnodes/SoVRMLText.h>

namespace {

const struct
{
    DvMFieldWidget* (*create)();
    const char* kind;
    const char* before;
    int row;
    const char* shown;
    const char* text;
    const char* after; ///< null for a text that is refused
} Cells[] = {
    {make<DvMFInt32Widget>, "MFInt32", "[ 1, 2 ]", 1, "2", "-7", "[ 1, -7 ]"},
    {make<DvMFInt32Widget>, "MFInt32", "[ 1, 2 ]", 0, "1", "1.5", nullptr},
    {make<DvMFShortWidget>, "MFShort", "[ 1, 2 ]", 0, "1", "40000", nullptr},
    {make<DvMFUInt32Widget>, "MFUInt32", "31", 0, "0x1f", "4294967295", "4294967295"},
    {make<DvMFUShortWidget>, "MFUShort", "31", 0, "0x1f", "0x20", "32"},
    {make<DvMFFloatWidget>, "MFFloat", "0.1", 0, "0.1", "1e-3", "0.001"},
    {make<DvMFFloatWidget>, "MFFloat", "0.123456789", 0, "0.12345679", "0.12345679", "0.123456789"},
    {make<DvMFDoubleWidget>, "MFDouble", "1", 2, "", "0.1", "[ 1, 0, 0.1 ]"},
    {make<DvMFStringWidget>, "MFString", "[ \"a\", \"b \\\"c\\\"\" ]", 1, "b \"c\"", " \"x\" y\\",
     "[ \"a\", \" \\\"x\\\" y\\\" ]"},
    {make<DvMFStringWidget>, "MFString", "\"a\"", 0, "a", "a", "\"a\""},
    {make<DvMFStringWidget>, "MFString", "\"a\"", 2, "", "b", "[ \"a\", \"\", \"b\" ]"},
    {make<DvMFDefaultFieldWidget>, "MFString", "\"a\"", 0, "\"a\"", "\"b c\"", "\"b c\""},
    {make<DvMFDefaultFieldWidget>, "MFVec3f", "1 2 3", 0, "1 2 3", "1 2", nullptr},
    {make<DvMFDefaultFieldWidget>, "MFNode", "DEF Box Cube { width 3 }", 0, "Cube \"Box\"", "NULL", "NULL"},
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
            auto* table = edited.widget->findChild<DvMFieldTable*>("m_table");
            auto* box = edited.widget->findChild<AccessButtonPrivate*>("m_accessBox");
            auto* ignore = edited.widget->findChild<QPushButton*>("m_ignoreButton");
            auto* label = edited.widget->findChild<QLabel*>("m_labelNumElement");
            const auto shows = [&](int number, bool ignored) {
                return label->text() == QString("<p align=\"center\">%1 elements</p>").arg(number) &&
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
        QCOMPARE(editor.objectName(), QString("DvMFieldWidget"));
        for (int time = 0; time < 2; ++time) {
            editor.setFieldName(QString("name %1").arg(time));
            editor.load();
        }
        QWidget* widget = editor.getWidget();
        QCOMPARE(widget->findChild<QLabel*>("m_label")->text(), QString("<p align=\"center\">name 0</p>"));
        QVERIFY(widget->findChild<DvMFColorTable*>("m_table"));
        const auto buttons = widget->findChildren<QPushButton*>();
        QVERIFY(buttons.size() == 6 && widget->actions().size() == 6);
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
        auto* table = edited.widget->findChild<DvMFieldTable*>("m_table");
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
        edited.editor.set1Value(0, 0, QString("1"));
        edited.editor.swapRows(0, 1);
        for (QPushButton* button : edited.widget->findChildren<QPushButton*>())
            button->click();
        QVERIFY(edited.editor.getFieldValue(0, 0).isEmpty() && edited.history->count() == 0);
    }

    void cells_data()
    {
        QTest::addColumn<int>("index");
        for (int index = 0; index < int(std::size(Cells)); ++index)
            QTest::addRow("%s \"%s\"", Cells[index].kind, Cells[index].text) << index;
    }
    void cells()
    {
        QFETCH(int, index);
        const auto& [create, kind, before, row, shown, text, after] = Cells[index];
        const PostedErrors<SoReadError> errors;
        std::unique_ptr<SoMField> fields[3];
        for (auto& field : fields)
            field = newField<SoMField>(kind);
        const auto& [field, old, expected] = fields;
        const bool isString = kind == QLatin1String("MFString");
        // Something is left behind the end, where elements may be added.
        setFieldFromText(field.get(), isString ? "[ \"x\", \"x\", \"x\" ]" : before);
        setFieldFromText(field.get(), before);
        setFieldFromText(old.get(), before);
        setFieldFromText(expected.get(), after ? after : before);
        field->setDefault(TRUE);
        Edited<DvMFieldWidget> edited(field.get(), create());
        QCOMPARE(edited.editor.getShownText(row, 0), QString::fromUtf8(shown));
        for (const auto& [missing, column] : {std::pair(0, 1), {-1, 0}, {field->getNum(), 0}})
            QVERIFY(edited.editor.getFieldValue(missing, column).isEmpty());

        for (const int written : {row, -1})
            edited.editor.set1Value(written, 0, QString::fromUtf8(text));
        QVERIFY2(textOf(*field) == textOf(*expected), textOf(*field));
        const bool changed = !old->isSame(*expected);
        QVERIFY(changed != bool(field->isDefault()));
        QCOMPARE(errors.messages.size(), after ? 0 : 1);
        const bool isRecorded = isString || create == make<DvMFDefaultFieldWidget>;
        QCOMPARE(edited.history->count(), changed && isRecorded ? 1 : 0);
        edited.history->undo();
        QCOMPARE(textOf(*field), textOf(changed && !isRecorded ? *expected : *old));
    }

    void ownMeans()
    {
        auto* text = new SoVRMLText;
        setFieldFromText(&text->string, "[ \"a\", \"b\", \"c\" ]");
        Edited<DvMFStringWidget> edited(&text->string);
        auto* table = edited.widget->findChild<DvMFieldTable*>("m_table");
        table->setFocus();
        edited.editor.swapRows(0, 2);
        QVERIFY(text->string[0] == "c" && text->string[2] == "a");
        QTest::keyClick(table, Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(text->string.isIgnored());
        QTest::keyClick(table, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        processSensors();
        QVERIFY(text->string.isDefault() && text->string.getNum() == 0 && table->rowCount() == 0);
        QVERIFY(edited.history->count() == 3 && table->hasFocus());
        edited.history->undo();
        QVERIFY(text->string.getNum() == 3 && text->string[0] == "c");
        edited.history->setIndex(0);
        QVERIFY(!text->string.isIgnored() && text->string[0] == "a" && text->string[2] == "c");
    }

    void accessBox()
    {
        SoMFInt32 field;
        field.setNum(5);
        QLocale::setDefault(QLocale("ar_EG"));
        Edited<DvMFInt32Widget> edited(&field);
        QLocale::setDefault(QLocale::c());
        auto* table = edited.widget->findChild<DvMFieldTable*>("m_table");
        auto* box = edited.widget->findChild<AccessButtonPrivate*>("m_accessBox");
        QVERIFY(edited.line->parent() == box);
        edited.line->selectAll();
        QTest::keyClick(edited.line, '3');
        QCOMPARE(table->currentRow(), 3);
        table->setCurrentCell(1, 0);
        QCOMPARE(box->text(), "2");
        // Return says the value again, which is a row further.
        QTest::keyClick(edited.line, Qt::Key_Return);
        QCOMPARE(table->currentRow(), 2);
        QCOMPARE(box->value(), 2);
    }
};

KLV_TEST_MAIN(tst_MultiValueEditors)
#include "tst_MultiValueEditors.moc"
