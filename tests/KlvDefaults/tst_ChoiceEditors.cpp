// The editors of enumerations and bit masks.

#include "EditedField.h"
#include "FieldEditors/SFWidgets/DvSFBitMaskWidget.h"
#include "FieldEditors/SFWidgets/DvSFEnumWidget.h"

#include <KlvExtender/KlvChanges.h>
#include <KlvExtender/KlvContainerRef.h>

class tst_ChoiceEditors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }

    void enumerations()
    {
        auto* node = new SoDrawStyle; // the selection owns it
        Edited<DvSFEnumWidget> edited(&node->style);
        auto* box = edited.widget->findChild<QComboBox*>("comboBox");
        const auto items = [box] {
            QStringList texts;
            for (int i = 0; i < box->count(); ++i)
                texts += box->itemText(i);
            return texts.join(' ');
        };
        QCOMPARE(items(), QString("FILLED LINES POINTS INVISIBLE"));
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(node->style.getValue(), int(SoDrawStyle::LINES));
        // A value that has no name is shown in place of one, for as long as the field has it.
        node->style.setValue(99);
        processSensors();
        QCOMPARE(items(), QString("FILLED  POINTS INVISIBLE"));
        QCOMPARE(box->currentIndex(), 1);
        node->style.setValue(SoDrawStyle::POINTS);
        processSensors();
        QVERIFY(items() == QLatin1String("FILLED LINES POINTS INVISIBLE") && box->currentIndex() == 2);
        node->style.setValue(99);
        processSensors();
        edited.editor.setField(&node->style);
        QCOMPARE(items(), QString("FILLED LINES POINTS INVISIBLE"));
    }

    void bitMasks()
    {
        auto* cone = new SoCone;
        auto* font = new SoFontStyle;
        const KlvContainerRef owners[] = {KlvContainerRef(cone), KlvContainerRef(font)};
        cone->parts.setValue(SoCone::BOTTOM);
        Edited<DvSFBitMaskWidget> edited(&cone->parts);
        const auto states = [&edited] {
            QStringList texts;
            for (QCheckBox* box : edited.widget->findChildren<QCheckBox*>())
                texts += box->text() + (box->isChecked() ? "+" : "-");
            return texts.join(' ');
        };
        const auto press = [&edited](int i) {
            QTest::keyClick(edited.widget->findChildren<QCheckBox*>().at(i), Qt::Key_Space);
        };
        QCOMPARE(states(), QString("SIDES- BOTTOM+ ALL+"));
        press(1);
        QCOMPARE(cone->parts.getValue(), int(SoCone::ALL));
        press(2);
        QCOMPARE(cone->parts.getValue(), 0);
        press(0);
        QCOMPARE(cone->parts.getValue(), int(SoCone::SIDES));
        // The boxes follow the field only when it is set.
        cone->parts.setValue(SoCone::BOTTOM);
        processSensors();
        QCOMPARE(states(), QString("SIDES+ BOTTOM- ALL-"));
        QVERIFY(edited.history->count() == 0 && !edited.history->isClean());
        KlvChanges* changes = KlvServices::getInstance()->getChanges();
        QVERIFY(changes->isChanged(&cone->parts));
        changes->restart();
        QVERIFY(edited.history->isClean());

        font->style.setValue(SoFontStyle::ITALIC);
        edited.editor.setField(&font->style);
        QCOMPARE(states(), QString("BOLD- ITALIC+"));
        edited.editor.unload();
        edited.editor.load();
        QCOMPARE(states(), QString());
        edited.editor.setField(&cone->parts);
        QCOMPARE(states(), QString("SIDES- BOTTOM+ ALL+"));
    }
};

KLV_TEST_MAIN(tst_ChoiceEditors)
#include "tst_ChoiceEditors.moc"
