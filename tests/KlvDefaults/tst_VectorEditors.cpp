// The editors of vectors, planes and rotations: what they show, and what typing does to the field.

#include "EditedField.h"
#include "FieldEditors/SFWidgets/DvSFPlaneWidget.h"
#include "FieldEditors/SFWidgets/DvSFRotationWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec2fWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec2sWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec3fWidget.h"
#include "FieldEditors/SFWidgets/DvSFVec4fWidget.h"

namespace {

QStringList textsOf(const QList<QLineEdit*>& edits)
{
    QStringList texts;
    for (QLineEdit* edit : edits)
        texts += edit->text();
    return texts;
}

void enter(QLineEdit* edit, const char* text, Qt::Key key)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QString::fromLatin1(text));
    QTest::keyClick(edit, key);
}

/// Shows a value, with its captions, from its first digit on.
template <typename Editor, typename Field>
void show(const char* value, const QStringList& texts, const QStringList& captions)
{
    Field field;
    QVERIFY(field.set(value));
    Edited<Editor> edited(&field);
    const auto edits = edited.widget->template findChildren<QLineEdit*>();
    QCOMPARE(textsOf(edits), texts);
    for (int i = 0; i < edits.size(); ++i) {
        QCOMPARE(edited.widget->template findChildren<QLabel*>()[i + 1]->text(),
                 "<p>" + captions[i] + "</p>");
        QCOMPARE(edits[i]->accessibleName(), captions[i]);
    }
    QCOMPARE(edits[0]->cursorPosition(), 0);
}

} // namespace

class tst_VectorEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void shown()
    {
        show<DvSFVec2fWidget, SoSFVec2f>("1234567 0.5", {"1.23457e+06", "0.5"}, {"x", "y"});
        show<DvSFVec3fWidget, SoSFVec3f>("0.00012345678 -1e-30 3.4028234e38",
                                         {"0.000123457", "-1e-30", "3.40282e+38"}, {"x", "y", "z"});
        show<DvSFVec4fWidget, SoSFVec4f>("0.1 0 1e-44 7", {"0.1", "0", "9.80909e-45", "7"},
                                         {"x", "y", "z", "w"});
        show<DvSFPlaneWidget, SoSFPlane>("1 2 3 4.00000048", {"0.267261", "0.534522", "0.801784", "4"},
                                         {"x", "y", "z", "distance"});
        show<DvSFRotationWidget, SoSFRotation>("0 0 1 0", {"0", "0", "1", "0"}, {"x", "y", "z", "radians"});
        show<DvSFRotationWidget, SoSFRotation>("1 2 3 4", {"0.267261", "0.534522", "0.801784", "4"},
                                               {"x", "y", "z", "radians"});
    }

    void othersKeepTheirDigits()
    {
        SoSFVec3f field;
        const SbVec3f before(1.0f / 3, 2.0f / 3, 1e-5f / 3);
        field.setValue(before);
        Edited<DvSFVec3fWidget> edited(&field);
        const auto edits = edited.widget->findChildren<QLineEdit*>();
        enter(edits[0], "0.25", Qt::Key_Tab);
        QVERIFY(field.getValue() == SbVec3f(0.25f, before[1], before[2]));
        // What follows is typed over the next component, before and after the echo.
        processSensors();
        QCOMPARE(edits[1]->selectedText(), QString("0.666667"));
        QTest::keyClicks(edits[1], "-7");
        edits[0]->setFocus();
        QVERIFY(field.getValue() == SbVec3f(0.25f, -7, before[2]));
        enter(edits[0], "8", Qt::Key_Return);
        QTest::keyClick(edits[0], Qt::Key_Tab);
        QTest::keyClicks(edits[1], "9");
        processSensors();
        QCOMPARE(textsOf(edits), QStringList({"8", "9", "3.33333e-06"}));
        QCOMPARE(edits[1]->cursorPosition(), 1);
        edited.history->undo();
        QVERIFY(field.getValue() == before);
        // Elsewhere changed, it is what counts.
        field.setValue(1, 2, 1.0f / 7);
        processSensors();
        QCOMPARE(textsOf(edits), QStringList({"1", "2", "0.142857"}));
        QVERIFY(edits[1]->cursorPosition() == 0 && !edited.editor.edited());
    }

    void textsOfTheSameComponent()
    {
        SoSFVec2f field;
        field.setValue(0.5f, 1.0f / 3);
        Edited<DvSFVec2fWidget> edited(&field);
        const std::tuple<const char*, Qt::Key, const char*, float> rows[] = {
            {"7", Qt::Key_Return, "7", 7},
            {"0.5", Qt::Key_Return, "0.5", 0.5f},
            {"1e39", Qt::Key_Return, "1e39", 0.5f},
            {"1e", Qt::Key_Tab, "0.5", 0.5f},
            {"0.000123458", Qt::Key_Tab, "0.000123458", 0.000123458f},
            {"-1.5e-7", Qt::Key_Tab, "-1.5e-7", -1.5e-7f},
            {"0.1234567", Qt::Key_Return, "0.123456", 0.123456f},
            {"-1.23456789e-3", Qt::Key_Tab, "-1.234567e-3", -1.234567e-3f},
            {"0.0000123456789", Qt::Key_Tab, "0.0000123456", 0.0000123456f},
            {" 2,5", Qt::Key_Tab, "2.5", 2.5f}};
        QLocale::setDefault(QLocale(QLocale::German));
        for (const bool pasted : {false, true}) {
            for (const auto& [text, key, shown, x] : rows) {
                QApplication::clipboard()->setText(text);
                enter(edited.line, pasted ? "" : text, pasted ? Qt::Key_End : key);
                if (pasted) {
                    edited.line->selectAll();
                    edited.line->paste();
                    QApplication::processEvents();
                    QTest::keyClick(edited.line, key);
                }
                QCOMPARE(edited.line->text(), QString::fromLatin1(shown));
                QVERIFY2(field.getValue() == SbVec2f(x, 1.0f / 3), text);
            }
        }
        QLocale::setDefault(QLocale::c());
    }

    void planes()
    {
        SoSFPlane field;
        field.setValue(SbPlane(SbVec3f(1, 2, 3), 1.0f / 3));
        const SbVec3f normal = field.getValue().getNormal();
        Edited<DvSFPlaneWidget> edited(&field);
        const auto edits = edited.widget->findChildren<QLineEdit*>();
        for (const char* distance : {"0.1", "-300000.3", "1e-10", "7"}) {
            enter(edits[3], distance, Qt::Key_Return);
            QVERIFY(field.getValue().getNormal() == normal);
            QCOMPARE(field.getValue().getDistanceFromOrigin(), QByteArray(distance).toFloat());
        }
        for (const auto& [i, text] : {std::pair(0, "3"), {1, "0"}, {2, "4"}}) {
            enter(edits[i], text, Qt::Key_Tab);
            processSensors();
        }
        QVERIFY(field.getValue().getNormal().equals(SbVec3f(0.23485f, 0, 0.97203f), 1e-4f));
        QCOMPARE(field.getValue().getDistanceFromOrigin(), 7.0f);
    }

    void rotationIsCommittedAsAWhole()
    {
        SoSFRotation field;
        field.setValue(SbRotation(SbVec3f(0.6f, 0.8f, 0), 2));
        const SbRotation before = field.getValue();
        Edited<DvSFRotationWidget> edited(&field);
        const auto edits = edited.widget->findChildren<QLineEdit*>();
        const char* const typed[] = {"1", "2", "-2", "0.5"};
        for (int i = 0; i < 3; ++i)
            enter(edits[i], typed[i], Qt::Key_Tab);
        enter(edits[3], typed[3], Qt::Key_Home);
        for (const Qt::FocusReason reason :
             {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
            QFocusEvent event(QEvent::FocusOut, reason);
            QApplication::sendEvent(edits[3], &event);
        }
        processSensors();
        QVERIFY(field.getValue() == before && edited.history->count() == 0);
        edited.outside->setFocus();
        const SbRotation expected(SbVec3f(1, 2, -2), 0.5f);
        QVERIFY(field.getValue() == expected && edited.history->count() == 1);
        processSensors();
        QCOMPARE(textsOf(edits), QStringList({"0.333333", "0.666667", "-0.666667", "0.5"}));
        edited.history->undo();
        QVERIFY(field.getValue() == before);

        // Half a number stays out, and so does an axis that is none.
        processSensors();
        enter(edits[3], "1e", Qt::Key_Home);
        edited.outside->setFocus();
        QCOMPARE(edits[3]->text(), QLatin1String("2"));
        QVERIFY(field.getValue() == before);
        const PostedErrors<SoDebugError> warnings;
        for (int i = 0; i < 3; ++i)
            enter(edits[i], "0", Qt::Key_Tab);
        QTest::keyClick(edits[3], Qt::Key_Return);
        QVERIFY(field.getValue() == before && warnings.messages.size() == 1);
        QCOMPARE(textsOf(edits).mid(0, 3), QStringList({"0", "0", "0"}));
        // The field is left with something still to be committed.
        enter(edits[2], "1", Qt::Key_Home);
        QWidget other;
        other.show();
        other.activateWindow();
        QApplication::processEvents();
        QVERIFY(field.getValue() == before && !edited.window.isActiveWindow());
        edited.editor.deactivate();
        QVERIFY(field.getValue().equals(SbRotation(SbVec3f(0, 0, 1), 2), 1e-6f));
        QCOMPARE(warnings.messages.size(), 1);
    }

    void spinBoxes()
    {
        SoSFVec2s field;
        field.setValue(-32768, 5);
        Edited<DvSFVec2sWidget> edited(&field);
        const auto boxes = edited.widget->findChildren<QSpinBox*>();
        QCOMPARE(boxes[0]->text(), QString("-32768"));
        field.setDefault(TRUE);
        QTest::keyClick(boxes[0], Qt::Key_Return);
        QVERIFY(field.isDefault());
        // The caret stays where it is while one types; 123456 is more than such a component can be.
        boxes[0]->selectAll();
        QTest::keyClicks(boxes[0], "13");
        QTest::keyClick(boxes[0], Qt::Key_Left);
        processSensors();
        QTest::keyClicks(boxes[0], "2456");
        QVERIFY(field.getValue() == SbVec2s(12453, 5));
        // A change of both components from elsewhere is shown and not written back half; one that is not
        // shown yet is not undone by an edit of the other component.
        field.setValue(1, 2);
        processSensors();
        QVERIFY(boxes[0]->value() == 1 && boxes[1]->value() == 2 && field.getValue() == SbVec2s(1, 2));
        field.setValue(1, 3);
        QTest::keyClick(boxes[0], Qt::Key_Up);
        QVERIFY(field.getValue() == SbVec2s(2, 3));
        processSensors();
        QCOMPARE(boxes[1]->value(), 3);
        edited.history->undo();
        QVERIFY(field.getValue() == SbVec2s(-32768, 5));
    }
};

KLV_TEST_MAIN(tst_VectorEditors)
#include "tst_VectorEditors.moc"
