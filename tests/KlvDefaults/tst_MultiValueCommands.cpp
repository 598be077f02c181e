// The commands on the elements of multi-value fields, and the validators of the cells that show them.

#include "EditedField.h"
#include "FieldEditors/KlvMFAddRowsCommand.h"
#include "FieldEditors/KlvMFDeleteRowsCommand.h"
#include "FieldEditors/KlvMFSetFieldValueCommand.h"
#include "FieldEditors/KlvMFSetValueCommand.h"
#include "FieldEditors/KlvMFSwapRowsCommand.h"
#include "FieldEditors/MFWidgets/DvCellValidators.h"

#include <KlvExtender/SceneGraph/SoFieldElements.h>
#include <KlvExtender/SceneGraph/SoFieldText.h>

namespace {

template <typename Command>
KlvCommand* create(SoMField* field, int first, int second)
{
    return new Command(field, first, second);
}

/// What stands in the rows of a field: 0 to 3 what stood there at first, 4 the neutral value.
const struct
{
    KlvCommand* (*create)(SoMField*, int, int);
    int first, second;
    const char *step, *done, *undone;
} operations[] = {
    {create<KlvMFAddRowsCommand>, 1, 2, "Add 2 rows to %1", "044123", "0123"},
    {create<KlvMFAddRowsCommand>, 4, 1, "Add a row to %1", "01234", "0123"},
    {create<KlvMFAddRowsCommand>, 6, 1, "Add a row to %1", "0123444", "012344"},
    {create<KlvMFAddRowsCommand>, -1, 1, "Add a row to %1", "0123", "0123"},
    {create<KlvMFDeleteRowsCommand>, 0, 2, "Delete 2 rows of %1", "23", "0123"},
    {create<KlvMFDeleteRowsCommand>, 2, 4, "Delete 4 rows of %1", "01", "012344"},
    {create<KlvMFDeleteRowsCommand>, -1, 1, "Delete a row of %1", "0123", "0123"},
    {create<KlvMFSwapRowsCommand>, 0, 2, "Move a row of %1", "2103", "0123"},
    {create<KlvMFSwapRowsCommand>, 1, 1, "Move a row of %1", "0123", "0123"},
    {create<KlvMFSwapRowsCommand>, 0, 5, "Move a row of %1", "012340", "012340"},
};

} // namespace

class tst_MultiValueCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void rows_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("MFString") << QByteArray("[ x, \"a \\\"b\\\"\", c, z ]");
        QTest::newRow("MFNode") << QByteArray("[ NULL, Cone {}, DEF b Cone {}, Cube {} ]");
        QTest::newRow("MFVec3f") << QByteArray("[ 1 2 3, 0.1 0 1e-30, 3 3 3, 4 4 4 ]");
        QTest::newRow("MFBool") << QByteArray("[ TRUE, FALSE, FALSE, TRUE ]");
        QTest::newRow("MFDouble") << QByteArray("[ 1, 0.30000000000000004, 3, 4 ]");
        for (const char* kind : {"MFFloat", "MFInt32", "MFUInt32"})
            QTest::newRow(kind) << QByteArray("[ 1, 2, 3, 4 ]");
    }
    void rows()
    {
        QFETCH(QByteArray, text);
        QUndoStack* history = KlvServices::getInstance()->getUndoStack();
        for (const auto& [create, first, second, step, done, undone] : operations) {
            const auto field = newField<SoMField>(QTest::currentDataTag());
            setFieldFromText(field.get(), text.constData());
            const auto before = copyElements(field.get(), 0, 4);
            insertElements(before.get(), 4, 1);
            const auto holds = [&](const char* rows) {
                const auto expected = copyElements(before.get(), 0, 0);
                for (; *rows; ++rows)
                    setElements(expected.get(), expected->getNum(),
                                copyElements(before.get(), *rows - '0', 1).get());
                return field->isSame(*expected);
            };
            const PostedErrors<SoReadError> errors;
            const std::unique_ptr<KlvCommand> command(create(field.get(), first, second));
            {
                const Notifications notifications(*field);
                command->execute();
                QVERIFY2(notifications.count <= 1 && (notifications.count == 1 || field->getNum() == 4),
                         step);
            }
            for (int time = 0; time < 2; ++time) {
                QVERIFY2(holds(done), step);
                command->undo();
                QVERIFY2(holds(undone), step);
                command->redo();
            }
            QVERIFY(errors.messages.isEmpty() || second == 5);
            // The history goes back to what was before, also where the command's own way does not.
            deleteElements(field.get(), 0, field->getNum());
            setElements(field.get(), 0, copyElements(before.get(), 0, 4).get());
            KlvServices::getInstance()->pushCommand(create(field.get(), first, second));
            QCOMPARE(history->undoText(), QString(step).arg(QTest::currentDataTag()));
            history->undo();
            QVERIFY2(holds("0123"), step);
            history->redo();
            // Somebody else shortens the field in between.
            field->enableNotify(FALSE);
            for (const auto walk : {&QUndoStack::undo, &QUndoStack::redo, &QUndoStack::undo}) {
                deleteElements(field.get(), 1, 9);
                (history->*walk)();
                QVERIFY(field->getNum() <= 7 && !field->isNotifyEnabled());
            }
            KlvServices::getInstance()->pushCommand(create(nullptr, first, second));
            history->clear();
        }
    }

    void values()
    {
        SoMFInt32 list;
        list.set("[ 1, 2 ]");
        SbString previous("7");
        KlvMFSetValueCommand withPrevious(&list, 1, previous);
        KlvMFSetValueCommand withNone(&list, 1, previous);
        KlvMFSetFieldValueCommand written(&list, 1);
        for (KlvCommand* command : std::initializer_list<KlvCommand*>{&withPrevious, &withNone, &written}) {
            list.set1Value(1, 4);
            command->execute();
            list.set1Value(1, 5);
            command->undo();
            QCOMPARE(textOf(list), command == &withPrevious ? "[ 1, 7 ]" : "[ 1, 2 ]");
            deleteElements(&list, 1, 1);
            command->redo();
            QCOMPARE(textOf(list), command == &written ? "[ 1, 2 ]" : "[ 1, 4 ]");
        }
    }

    /// "+" stands before a text that can be committed, "~" before one that may become such, "-" before one
    /// that cannot be typed.
    void cellTexts()
    {
        const std::tuple<int, QString, const char*> rows[] = {
            {1, "-32768", "+-32767 ~ ~- ~32768 -x -1,000 -0x1f --32769"},
            {2, "0xffff", "+65535 +0X1f ~0x ~xffff ~65536 -0x10000 --1 -fffff"},
            {4, "0x1f", "+ +4294967295 +0xFFFFFFFF -4294967296 --1 -abc -0x100000000 ~0x ~x1f -2f"},
            {5, "5", "+0 ++7 +-2147483648 -2147483648 ~ ~- ~0x +-0x80000000 -0x80000000 -1.5"},
            {6, "0x1f", "+ +4294967295 +0xFFFFFFFF -4294967296 --1 -abc"},
            {7, "0.30000001", "+0.30000002 -0.300000011 ~. +1e-05 ~e-05 ~1e39 -1.5.2 -x +0.0000012"},
            {7, "1.2345679e-005", "+1.2345678e-005 ~1.2345679-005 -0.30000001 +1e+010 -1,000.5"},
            {7, "-inf", "~inf ~-if ~- +-1"},
            {8, "nan", "~na ~an ~1e999 +1.7976931348623157e308 +0.12345678901234567890123"}};
        for (const auto& [type, shown, entered] : rows) {
            QLineEdit edit;
            edit.setValidator(createCellValidator(type, shown, &edit));
            for (QString text : QString(entered).split(QLatin1Char(' '))) {
                const QString expected = text;
                text.remove(0, 1);
                edit.setText(text);
                int position = 0;
                const bool typed = edit.validator()->validate(text, position) != QValidator::Invalid;
                QCOMPARE((isCommittable(&edit) ? '+' : typed ? '~' : '-') + text, expected);
            }
            edit.setText(shown);
            edit.home(false);
            for (auto left = shown.size(); left > 0; --left)
                QTest::keyClick(&edit, Qt::Key_Delete);
            QCOMPARE(edit.text(), QString());
        }
    }
};

KLV_TEST_MAIN(tst_MultiValueCommands)
#include "tst_MultiValueCommands.moc"
