// The slider frames: what they show, what is entered with keys, mouse and wheel, and what they commit.

#include "EditedField.h"
#include "FieldEditors/DvIntSlider.h"
#include "FieldEditors/DvRealSlider.h"
#include "FieldEditors/DvUIntSlider.h"
#include "FieldEditors/SFWidgets/DvSFFloatWidget.h"

#include <cmath>
#include <limits>

namespace {

/// An owner that notes what a frame asks of it.
class Owner : public KlvFieldEditors
{
public:
    void refresh() override {}
    void setRefresh(bool on) override { calls += on ? "on" : "off"; }
    void swapRows(int, int) override {}
    void swapColumns(int, int) override {}
    void set1Value(int row, int column, QString text) override
    {
        calls += QString("%1 %2 %3").arg(row).arg(column).arg(text);
    }
    void setValue(int, const void*) override {}
    void applyChanges() override { calls += "apply"; }

    QStringList calls;
};

const QStringList Once{QString("apply")};

/// A frame in a window of its own that has the keyboard focus.
template <typename Frame>
struct Shown
{
    template <typename... Args>
    explicit Shown(double max, bool fixed, Args... args)
        : frame(std::make_unique<Frame>(args...))
        , line(frame->template findChild<QLineEdit*>())
        , slider(frame->template findChild<QSlider*>())
    {
        frame->setValidLimits(0, max, fixed);
        frame->show();
        frame->activateWindow();
        line->setFocus();
        QApplication::processEvents();
    }
    void type(const char* text)
    {
        line->selectAll();
        QTest::keyClicks(line, QString::fromLatin1(text));
        QTest::keyClick(line, Qt::Key_Return);
        line->clearFocus();
    }

    std::unique_ptr<Frame> frame;
    QLineEdit* line;
    QSlider* slider;
};

Shown<DvRealSlider> showReal(Owner& owner, bool isFloat, double max, bool fixed)
{
    return Shown<DvRealSlider>(max, fixed, DvSlider::SingleValue, &owner, nullptr, isFloat, 0, 1);
}

} // namespace

class tst_Sliders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(unexpectedWarnings()); }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void realPositions()
    {
        Owner owner;
        auto real = showReal(owner, false, 10, false);
        for (const auto& [value, position] :
             {std::pair(2.5, 25), {2.54, 25}, {2.56, 26}, {-1, -9}, {15, 150}})
            QCOMPARE(real.frame->sliderToInt(value), position);
        QCOMPARE(real.frame->sliderToDouble(33), 3.3);

        // No range overflows or divides by zero.
        const double largest = std::numeric_limits<double>::max();
        for (const auto& [min, max] :
             {std::pair(0.0, 0.0), {-largest, largest}, {1.0, 0.0}, {0.0, 5e-324}, {NAN, 1.0}}) {
            for (const double value :
                 {largest, -largest, double(INFINITY), -double(INFINITY), double(NAN), 5e-324}) {
                for (const bool fixed : {true, false}) {
                    real.frame->setValidLimits(min, max, fixed);
                    real.frame->setRealValue(value);
                    for (const int position : {50, 100, 0})
                        real.slider->setValue(position);
                    QVERIFY(std::isfinite(real.frame->getRealValue()) || !real.slider->isEnabled());
                }
            }
        }
    }

    void typedReals()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        // Kind, upper bound, whether fixed, what is typed, and the value (0: nothing is committed) and
        // position.
        const std::tuple<bool, double, bool, const char*, double, int> rows[] = {
            {true, 10, false, "2,5", 2.5, 25},  {true, 10, false, "15", 15, 100},
            {false, 10, false, "-30", -30, 0},  {true, 10, true, "15", 10, 100},
            {true, 10, true, "1e300", 10, 100}, {false, 0, true, "3", 3, 0},
            {true, 10, false, "1e39", 0, 0},    {false, 10, false, "1e999", 0, 0},
            {false, 10, false, "1e", 0, 0},     {true, 10, true, "nan", 0, 0},
        };
        for (const auto& [isFloat, max, fixed, typed, value, position] : rows) {
            Owner owner;
            auto real = showReal(owner, isFloat, max, fixed);
            real.frame->setRealValue(0);
            const QString before = real.line->text();
            real.type(typed);
            QVERIFY2(owner.calls == (value == 0 ? QStringList() : Once), typed);
            QVERIFY2(real.frame->getRealValue() == value && real.slider->value() == position, typed);
            QVERIFY2(!real.frame->isEdited() && (value != 0 || real.line->text() == before), typed);
        }
    }

    void shownRealsKeepTheirBits()
    {
        Owner owner;
        auto real = showReal(owner, false, 1, true);
        for (const double value : {0.1 + 0.2, 1.23456789012345678e-4, 5.0, double(INFINITY), -0.0}) {
            real.frame->setRealValue(value);
            QCOMPARE(real.line->text(), QString::number(value, 'g', 15));
            // Neither deleted and typed again nor touched does it change.
            QTest::keyClick(real.line, Qt::Key_End);
            const QString last = real.line->text().right(1);
            QTest::keyClicks(real.line, QLatin1Char('\b') + last + QLatin1Char('\r'));
            real.slider->setSliderDown(true);
            real.slider->setSliderDown(false);
            const double kept = real.frame->getRealValue();
            QVERIFY(memcmp(&kept, &value, sizeof(value)) == 0);
        }
    }

    void drag()
    {
        Owner owner;
        auto real = showReal(owner, true, 10, false);
        for (const bool live : {true, false}) {
            real.frame->setChecked(live);
            real.frame->setRealValue(0);
            owner.calls.clear();
            real.slider->setSliderDown(true);
            for (const int position : {10, 20, 33})
                real.slider->setSliderPosition(position);
            QCOMPARE(owner.calls.size(), live ? 3 : 0);
            QCOMPARE(real.line->text(), QString("3.300000"));
            real.slider->setSliderDown(false);
            QCOMPARE(owner.calls.size(), live ? 4 : 1);
            QCOMPARE(real.frame->getRealValue(), 3.3);
        }
    }

    void movesWithoutLiveUpdate()
    {
        Owner owner;
        auto real = showReal(owner, true, 10, false);
        real.frame->findChild<QCheckBox*>()->click();
        real.slider->setFocus();
        for (const bool leave : {false, true}) {
            owner.calls.clear();
            QTest::keyClick(real.slider, Qt::Key_Right);
            QTest::keyClick(real.slider, Qt::Key_PageUp);
            QVERIFY(owner.calls.isEmpty() && real.frame->isEdited());
            QTest::keyClick(real.slider, leave ? Qt::Key_Tab : Qt::Key_Return);
            QCOMPARE(owner.calls, Once);
        }
        QCOMPARE(real.frame->getRealValue(), 2.2);
        owner.calls.clear();
        QTest::mouseClick(real.slider, Qt::LeftButton, {}, QPoint(real.slider->width() - 2, 8));
        QVERIFY(owner.calls == Once && real.frame->getRealValue() > 2.2);
    }

    void integers()
    {
        // Type, value at first, what is typed, and the value then.
        const std::tuple<int, qint64, const char*, qint64> rows[] = {
            {1, 5, "-2147483648", INT_MIN}, {1, INT_MIN, "2147483648", INT_MIN},
            {2, UINT_MAX, "-3", 3},         {3, -32768, "32767", 32767},
            {4, 65535, "65536", 65535},     {2, 5, "\b", 5},
            {2, 5, "4294967295", UINT_MAX}, {2, UINT_MAX, "4294967294", UINT_MAX - 1}};
        QLocale::setDefault(QLocale(QLocale::German));
        for (const auto& [type, shown, typed, value] : rows) {
            Owner owner;
            const auto run = [&](auto integer) {
                integer.frame->setValue(QString::number(shown));
                QCOMPARE(integer.line->text(), QString::number(shown));
                integer.type(typed);
                QCOMPARE(qint64(integer.frame->getIntValue()), value);
                QCOMPARE(integer.line->text(), QString::number(value));
                QCOMPARE(owner.calls, value == shown ? QStringList() : Once);
                // From one end to the other the slider reaches both.
                integer.slider->setValue(integer.slider->minimum());
                QVERIFY(integer.frame->getIntValue() <= 0);
                integer.slider->setValue(integer.slider->maximum());
                QVERIFY(integer.frame->getIntValue() >= qMax(value, shown));
            };
            const auto kind = DvSlider::SliderType(type);
            if (type % 2)
                run(Shown<DvIntSlider>(100, false, kind, DvSlider::SingleValue, &owner, nullptr, 0, 1));
            else
                run(Shown<DvUIntSlider>(100, false, kind, DvSlider::SingleValue, &owner, nullptr, 0, 1));
        }
    }

    void numberBases()
    {
        const char* const rows[][4] = {{"0x1F", "0x1f", "-0x20", "-0x20"},
                                       {"07", "07", "10", "010"},
                                       {"12", "12", "0x1F", "0"},
                                       {"0x99999999", "0x0", "zz", "0x0"}};
        for (const auto& [first, shown, later, text] : rows) {
            Owner owner;
            Shown<DvIntSlider> table(100, false, DvSlider::Int32, DvSlider::MultiValue, &owner, nullptr, 3,
                                     2);
            table.frame->setValue(first);
            QCOMPARE(table.line->text(), QLatin1String(shown));
            table.frame->setValue(later);
            QCOMPARE(table.frame->getText(), QLatin1String(text));
        }
        // Digits alone are read in the base; a table gets the text.
        Owner owner;
        Shown<DvUIntSlider> table(0x20, true, DvSlider::UInt16, DvSlider::MultiValue, &owner, nullptr, 3, 2);
        table.frame->setValue("0x10");
        table.type("1a");
        table.type("ff");
        QCOMPARE(owner.calls, QStringList({"off", "3 2 0x1a", "on", "off", "3 2 0x20", "on"}));
    }

    void rangesAndEchoes()
    {
        SoSFFloat& fixed = (new SoComplexity)->textureQuality;
        SoSFFloat& open = (new SoCone)->height;
        Edited<DvSFFloatWidget> edited(&fixed);
        QTest::keyClicks(edited.line, "5\r");
        QCOMPARE(fixed.getValue(), 1.0f);
        edited.editor.setField(&open);
        edited.editor.refresh();
        // Another spelling of the value is no change.
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "2\r");
        QVERIFY(open.isDefault() && edited.line->text() == QLatin1String("2.000000"));
        edited.line->selectAll();
        QTest::keyClicks(edited.line, "15\r7");
        QVERIFY(open.getValue() == 15 && edited.editor.edited());
        // Typing goes on while the commit comes back, but not over a change from elsewhere.
        processSensors();
        QCOMPARE(edited.line->text(), QString("157"));
        open.setValue(3);
        processSensors();
        QCOMPARE(edited.line->text(), QString("3.000000"));
    }
};

KLV_TEST_MAIN(tst_Sliders)
#include "tst_Sliders.moc"
