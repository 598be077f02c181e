#include "Scene/SensorPump.h"
#include "TestMain.h"

#include <Inventor/sensors/SoAlarmSensor.h>
#include <Inventor/sensors/SoIdleSensor.h>
#include <Inventor/sensors/SoOneShotSensor.h>
#include <Inventor/sensors/SoTimerSensor.h>

#include <thread>

class tst_SensorPump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(".*")); }
    void firesSensors()
    {
        SoAlarmSensor alarm(fire, this);
        alarm.setTimeFromNow(SbTime(0.02));
        SoTimerSensor timer(fire, this);
        timer.setInterval(SbTime(0.01));
        SoOneShotSensor oneShot(fire, this);
        SoIdleSensor idle(fire, this);
        for (SoSensor* const sensor : {static_cast<SoSensor*>(&alarm), static_cast<SoSensor*>(&timer),
                                       static_cast<SoSensor*>(&oneShot), static_cast<SoSensor*>(&idle)}) {
            m_fired = 0;
            sensor->schedule();
            QTRY_VERIFY(m_fired > (sensor == &timer ? 3 : 0));
            sensor->unschedule();
            m_fired = 0;
            std::thread([&] { sensor->schedule(); }).join();
            QTRY_VERIFY(m_fired > 0);
        }
    }

    void sleepsWhileNothingIsQueued()
    {
        SoDB::enableRealTimeSensor(FALSE); // it runs all the time
        qApp->installEventFilter(this);
        QTest::qWait(200); // Coin's own watch over the delay queue runs out after a twelfth of a second
        m_wakeups = 0;
        QTest::qWait(300);
        QCOMPARE(m_wakeups, 0);

        SoAlarmSensor alarm(fire, this);
        alarm.setTimeFromNow(SbTime(0.0505)); // half a millisecond early would be a wakeup for nothing
        alarm.schedule();
        m_fired = 0;
        QTRY_COMPARE(m_fired, 1);
        QCOMPARE(m_wakeups, 1);
    }

    void waitsForALoopInACallback()
    {
        SoOneShotSensor outer(fire, this);
        SoOneShotSensor inner(fire, this);
        m_fired = m_wakeups = 0;
        m_onFire = [&] {
            inner.schedule();
            QTest::qWait(50);
        };
        outer.schedule();
        QTRY_COMPARE(m_fired, 2);
        QVERIFY(m_wakeups < 5); // it did not spin meanwhile

        m_pump.reset();
        outer.schedule();
        QTest::qWait(20);
        QCOMPARE(m_fired, 2);
    }

private:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        m_wakeups += event->type() == QEvent::Timer && receiver->parent() == m_pump.get();
        return false;
    }
    static void fire(void* self, SoSensor*)
    {
        auto* const test = static_cast<tst_SensorPump*>(self);
        ++test->m_fired;
        if (const auto onFire = std::exchange(test->m_onFire, nullptr))
            onFire();
    }

    std::unique_ptr<SensorPump> m_pump = std::make_unique<SensorPump>();
    std::function<void()> m_onFire;
    int m_fired = 0;
    int m_wakeups = 0;
};

KLV_TEST_MAIN(tst_SensorPump)
#include "tst_SensorPump.moc"
