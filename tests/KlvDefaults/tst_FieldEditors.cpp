// The field editors at work: typing, buttons, undo; and the tables and commands behind them.

#include "EditedField.h"
#include "FieldEditors/DvRangeSettings.h"
#include "FieldEditors/KlvFieldSetDefaultCommand.h"
#include "FieldEditors/KlvSFSetValueCommand.h"
#include "FieldEditors/SFWidgets/DvSFLineWidget.h"
#include "FieldEditors/SFWidgets/DvSFNameWidget.h"
#include "FieldEditors/SFWidgets/DvSFStringWidget.h"
#include "FieldEditors/klsettings_fieldEditor.h"
#include "TestMain.h"

#include <KlvExtender/SceneGraph/SbStringText.h>

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/fields/SoMFString.h>
#include <Inventor/fields/SoSFDouble.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/fields/SoSFString.h>
#include <Inventor/nodes/SoLabel.h>
#include <Inventor/nodes/SoSeparator.h>

#include <QClipboard>
#include <QPushButton>
#include <QSignalSpy>

class tst_FieldEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression("^(?!This plugin does not support)")); }

    void tables()
    {
        for (int time = 0; time < 2; ++time) {
            QCOMPARE(klsettings_fieldEditor("labelPointSize"), 10);
            QCOMPARE(klsettings_fieldEditor("MFGlobalLayoutMarging"), 6);
            QCOMPARE(klsettings_fieldEditor("labelpointsize") + klsettings_fieldEditor(""), 0);
        }
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

        KlvFieldSetDefaultCommand noDefault(&list, nullptr);
        noDefault.execute();
        noDefault.undo();
        QCOMPARE(list.getNum(), 3);
    }

    void typing_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<QString>("text");
        for (const char* text : {"1.5", "-2", "1e-3", " 7 "})
            QTest::addRow("float %s", text) << QByteArray("SFFloat") << QString::fromUtf8(text);
        QTest::newRow("vector") << QByteArray("SFVec3f") << QStringLiteral("1 -2.5 3e2");
        QTest::newRow("string") << QByteArray("SFString") << QStringLiteral("\"a \\\"b\\\" c\"");
        QTest::newRow("bool") << QByteArray("SFBool") << QStringLiteral("TRUE");
        QTest::newRow("unsigned") << QByteArray("SFUInt32") << QStringLiteral("0xFF");
    }
    void typing()
    {
        QFETCH(QByteArray, kind);
        QFETCH(QString, text);
        const SoType type = SoType::fromName(SbName(kind.constData()));
        const std::unique_ptr<SoField> expected(static_cast<SoField*>(type.createInstance()));
        QVERIFY(expected->set(text.toUtf8().constData()));
        for (const bool processBetween : {true, false}) {
            const std::unique_ptr<SoField> field(static_cast<SoField*>(type.createInstance()));
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

    void rejectedText()
    {
        SoSFFloat field;
        field.setValue(1);
        field.setDefault(TRUE);
        Edited<DvSFLineWidget> edited(&field);
        QTest::keyClicks(edited.line, "x.5");
        QCOMPARE(edited.line->text(), QStringLiteral("x.51"));
        QVERIFY(field.isDefault() && field.getValue() == 1.0f && edited.history->count() == 0);

        // The echo of "2" comes when the text is already "2e", which must not be wiped.
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "2e");
        processSensors();
        QCOMPARE(edited.line->text(), QStringLiteral("2e"));
        // A refresh that is no echo shows the field, also while an echo is due.
        QTest::keyClicks(edited.line, "1x");
        edited.editor.refresh();
        QCOMPARE(edited.line->text(), QStringLiteral("20"));

        // A change from elsewhere shows, the caret stays.
        field.setValue(0.125f);
        QTest::keyClick(edited.line, Qt::Key_Home);
        processSensors();
        QCOMPARE(edited.line->text(), QStringLiteral("0.125"));
        QVERIFY(edited.line->cursorPosition() == 0 && !edited.editor.edited());
    }

    void undoIsExact()
    {
        SoSFDouble number;
        number.setValue(0.1 + 0.2);
        Edited<DvSFLineWidget> edited(&number);
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "1.25");
        QCOMPARE(edited.history->count(), 1);
        edited.history->undo();
        QVERIFY(number.getValue() == 0.1 + 0.2);
        processSensors();
        QCOMPARE(edited.line->text().toUtf8(), textOf(&number));
        edited.history->redo();
        QVERIFY(number.getValue() == 1.25);
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
        auto* ignoreButton = edited.child<QPushButton>("m_ignoreButton");
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

    void resetToDefault_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QByteArray>("result"); // empty when there is no default
        const auto row = [](const char* file, const char* field, const char* result = "") {
            QTest::newRow(file) << QByteArray(file) << QByteArray(field) << QByteArray(result);
        };
        row("#Inventor V2.1 ascii\n DirectionalLight { direction 0.1 0.2 0.3 }", "direction", "0 0 -1");
        row("#Inventor V2.1 ascii\n DrawStyle { style LINES }", "style", "FILLED");
        row("#Inventor V2.1 ascii\n Blinker {}", "whichChild");
        row("#Inventor V2.1 ascii\n Strange { fields [ SFFloat own ] own 2 }", "own");
        row("#VRML V2.0 utf8\n Script { field SFFloat own 2 }", "own");
        row("", "no container");
    }
    void resetToDefault()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, field);
        QFETCH(QByteArray, result);
        SoSFFloat alone;
        SoField* edited = &alone;
        SoInput input;
        input.setBuffer(file.data(), file.size());
        SoSeparator* scene = file.isEmpty() ? new SoSeparator : SoDB::readAll(&input);
        if (!file.isEmpty())
            edited = scene->getChild(0)->getField(SbName(field.constData()));
        scene->ref();
        const auto release = qScopeGuard([scene] { scene->unref(); });
        QVERIFY(edited);
        const QByteArray before = textOf(edited);

        static int warnings;
        warnings = 0;
        const auto handler = SoDebugError::getHandlerCallback();
        const auto restore = qScopeGuard([=] { SoDebugError::setHandlerCallback(handler, nullptr); });
        SoDebugError::setHandlerCallback([](const SoError*, void*) { ++warnings; }, nullptr);
        Edited<DvSFLineWidget> row(edited);
        row.child<QPushButton>("m_defaultButton")->click();
        const bool possible = !result.isEmpty();
        QCOMPARE(textOf(edited), possible ? result : before);
        QCOMPARE(warnings, possible ? 0 : 1);
        QCOMPARE(row.history->count(), possible ? 1 : 0);
        QVERIFY(!possible || edited->isDefault());
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
            edited.child<QPushButton>(name)->click();
        edited.editor.refresh();

        // Loaded again it is an editor like before.
        SoSFFloat other;
        edited.editor.unload();
        edited.editor.load();
        edited.editor.setEditedObject(&other);
        edited.editor.activate();
        QCOMPARE(edited.editor.getWidget()->findChildren<QLineEdit*>().size(), 1);
        QCOMPARE(edited.child<QLineEdit>("lineEdit")->text().toUtf8(), textOf(&other));
    }
};

KLV_TEST_MAIN(tst_FieldEditors)
#include "tst_FieldEditors.moc"
