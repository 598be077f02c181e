// The field editors at work: typing, buttons, undo; and the tables and commands behind them.

#include "EditedField.h"
#include "FieldEditors/DvRangeSettings.h"
#include "FieldEditors/KlvFieldSetDefaultCommand.h"
#include "FieldEditors/KlvSFSetValueCommand.h"
#include "FieldEditors/SFWidgets/DvSFLineWidget.h"
#include "FieldEditors/SFWidgets/DvSFNameWidget.h"
#include "FieldEditors/SFWidgets/DvSFStringWidget.h"
#include "FieldEditors/klsettings_fieldEditor.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

class tst_FieldEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void tables()
    {
        QCOMPARE(klsettings_fieldEditor("MFGlobalLayoutMarging"), 6);
        QCOMPARE(klsettings_fieldEditor("mfgloballayoutmarging"), 0);
        const DvRangeSettings ranges;
        QVERIFY(ranges.getFieldRange("Material", "transparency") == DvRangeComponent(0.0f, 1.0f, true));
        QVERIFY(ranges.getFieldRange("DefaultNode", "intField") == DvRangeComponent(0, 100, false));
        QVERIFY(ranges.getFieldRange("Complexity", nullptr) == DvRangeComponent());
        QVERIFY(ranges.isBounded("Complexit", "yvalue") && !ranges.isBounded("Complexity", "intensity"));
        QCOMPARE(DvRangeComponent(0.1, 1.0, false).getdMin(), double(0.1f));
        for (const auto& [text, base] :
             {std::pair("0x1F", 16), {"0x", 10}, {"0X1F", 10}, {"07", 8}, {"017", 10}})
            QCOMPARE(DvRangeSettings::checkBase(text), base);
    }

    void commands()
    {
        SoSFFloat number;
        number.setValue(2);
        SbString previous("1.5");
        KlvSFSetValueCommand set(&number, previous);
        QCOMPARE(previous.getLength(), 0);
        set.execute();
        number.setValue(3);
        set.redo();
        QCOMPARE(number.getValue(), 2.0f);
        set.undo();
        QCOMPARE(number.getValue(), 1.5f);
        SoMFString list;
        list.set("[ \"a\", \"\", \"c\n\" ]");
        SoMFString fresh;
        KlvFieldSetDefaultCommand reset(&list, &fresh);
        reset.execute();
        QVERIFY(list.isDefault() && list == fresh);
        reset.undo();
        QVERIFY(!list.isDefault() && list.getNum() == 3 && list[2] == "c\n");
    }

    void typing()
    {
        const std::pair<const char*, QString> rows[] = {
            {"SFFloat", "1.5"}, {"SFFloat", "-2"},         {"SFFloat", "1e-3"},
            {"SFFloat", " 7 "}, {"SFVec3f", "1 -2.5 3e2"}, {"SFString", "\"a \\\"b\\\" c\""},
            {"SFBool", "TRUE"}, {"SFUInt32", "0xFF"}};
        for (const auto& [kind, text] : rows) {
            const auto expected = newField(kind);
            QVERIFY(expected->set(text.toUtf8().constData()));
            for (const bool processBetween : {true, false}) {
                const auto field = newField(kind);
                field->set("0 0 0");
                Edited<DvSFLineWidget> edited(field.get());
                edited.line->selectAll();
                for (int i = 0; i < text.size(); ++i) {
                    QTest::keyClick(edited.line, text[i].toLatin1());
                    if (processBetween)
                        processSensors();
                    QCOMPARE(edited.line->text(), text.left(i + 1));
                    QCOMPARE(edited.line->cursorPosition(), i + 1);
                }
                processSensors();
                QCOMPARE(edited.line->text(), text);
                QVERIFY(field->isSame(*expected));
            }
        }
    }

    void rejectedText()
    {
        SoSFFloat field;
        field.setValue(1);
        field.setDefault(TRUE);
        Edited<DvSFLineWidget> edited(&field);
        QTest::keyClicks(edited.line, "x.5");
        QCOMPARE(edited.line->text(), QString("x.51"));
        QVERIFY(field.isDefault() && field.getValue() == 1.0f && edited.history->count() == 0);
        const auto isMarked = [&] {
            return edited.line->palette().base() != edited.widget->palette().base();
        };
        QVERIFY(isMarked() && !edited.line->toolTip().isEmpty());
        QTest::keyClick(edited.line, Qt::Key_Escape);
        QVERIFY(!isMarked() && edited.line->text() == QLatin1String("1"));

        // The echo of "2" comes when the text is already "2e", which must not be wiped.
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "2e");
        processSensors();
        QVERIFY(isMarked() && edited.line->text() == QLatin1String("2e"));
        // A refresh that is no echo shows the field, also while an echo is due.
        QTest::keyClicks(edited.line, "1x");
        edited.editor.refresh();
        QCOMPARE(edited.line->text(), QString("20"));

        // A change from elsewhere shows, the caret stays.
        field.setValue(0.125f);
        QTest::keyClick(edited.line, Qt::Key_Home);
        processSensors();
        QCOMPARE(edited.line->text(), QString("0.125"));
        QVERIFY(edited.line->cursorPosition() == 0 && !edited.editor.edited());
    }

    void exactStrings()
    {
        const QByteArray quotes("\"a\" \\\"b\\\" c\\"), lines("a\nb\r\n\tc  "), invalid("\xff\xe9 \xc3");
        const QByteArray unicode("\u00e9\u4e2d\U0001F600 e\u0301");
        for (const QByteArray& bytes : {quotes, lines, invalid, unicode, QByteArray(40000, 'x')}) {
            SoSFString string;
            string.setValue(bytes.constData());
            string.setDefault(TRUE);
            Edited<DvSFStringWidget> edited(&string);
            QTest::keyClick(edited.line, Qt::Key_Return);
            QVERIFY(string.isDefault() && bytes == string.getValue().getString());
            // Pasted over itself with something behind it.
            QApplication::clipboard()->setText(edited.line->text() + QLatin1Char('+'));
            edited.line->selectAll();
            edited.line->paste();
            edited.line->clearFocus();
            QCOMPARE(QByteArray(string.getValue().getString()), bytes + "+");
        }
    }

    void names()
    {
        // Before, typed, after, shown.
        const char* const rows[][4] = {
            {"", "\u00e9", "\xe9", "\u00e9"}, {"\u20ac", "", "\u20ac", "\u20ac"}, {"", "\u20ac", "?", "?"}};
        for (const auto& [before, typed, after, shown] : rows) {
            SoSFName name;
            name.setValue(SbName(before));
            Edited<DvSFNameWidget> edited(&name);
            edited.line->insert(QString::fromUtf8(typed));
            QTest::keyClick(edited.line, Qt::Key_Return);
            processSensors();
            QCOMPARE(name.getValue().getString(), after);
            QCOMPARE(edited.line->text(), QString::fromUtf8(shown));
        }
    }

    void buttonsByKeyboard()
    {
        SoSFName& field = (new SoLabel)->label;
        Edited<DvSFNameWidget> edited(&field);
        auto* ignoreButton = edited.widget->findChild<QPushButton*>("m_ignoreButton");
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "pending");
        for (const bool ignored : {true, false}) {
            QTest::keyClick(edited.line, Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
            processSensors();
            QVERIFY(field.isIgnored() == ignored && ignoreButton->isChecked() == ignored);
            QVERIFY(edited.line->hasFocus() && edited.line->text() == QLatin1String("pending"));
        }
        edited.history->undo();
        processSensors();
        QVERIFY(field.isIgnored() && ignoreButton->isChecked() && edited.history->count() == 2);
        field.setValue("x");
        QTest::keyClick(edited.line, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(field.isDefault() && field.getValue() == SbName("<Undefined label>"));
    }

    void resetToDefault()
    {
        // A scene, the field of its first node, and its default if it has one.
        const char* const rows[][3] = {{"DirectionalLight { direction 0.1 0.2 0.3 }", "direction", "0 0 -1"},
                                       {"DrawStyle { style LINES }", "style", "FILLED"},
                                       {"Blinker {}", "whichChild", nullptr},
                                       {"Strange { fields [ SFFloat own ] own 2 }", "own", nullptr},
                                       {"#VRML V2.0 utf8\n Script { field SFFloat own 2 }", "own", nullptr},
                                       {"", "no container", nullptr}};
        for (const auto& [file, name, result] : rows) {
            SoSFFloat alone;
            SoSeparator* scene = sceneOf(file);
            scene->ref();
            {
                SoField& field = *file ? *scene->getChild(0)->getField(name) : alone;
                const QByteArray expected = result ? QByteArray(result) : textOf(field);
                const PostedErrors<SoDebugError> errors;
                Edited<DvSFLineWidget> edited(&field);
                edited.widget->findChild<QPushButton*>("m_defaultButton")->click();
                QCOMPARE(textOf(field), expected);
                QCOMPARE(errors.messages.size(), result ? 0 : 1);
                QCOMPARE(edited.history->count(), result ? 1 : 0);
                QVERIFY(!result || field.isDefault());
            }
            scene->unref();
        }
    }

    void fieldDestroyed()
    {
        auto* field = new SoSFFloat;
        Edited<DvSFLineWidget> edited(field);
        QSignalSpy lost(&edited.editor, &KlvEditor::editedObjectLost);
        field->setValue(3);
        delete field;
        processSensors();
        QVERIFY(lost.count() == 1 && edited.editor.getEditedObject().isNull() && !edited.editor.isVisible());
        QTest::keyClicks(edited.line, "4\r");
        for (const char* name : {"m_ignoreButton", "m_defaultButton"})
            edited.widget->findChild<QPushButton*>(name)->click();
        edited.editor.refresh();
    }
};

KLV_TEST_MAIN(tst_FieldEditors)
#include "tst_FieldEditors.moc"
