#include "Scene/SensorPump.h"
#include "TestMain.h"

#include <Inventor/SoDB.h>
#include <Inventor/sensors/SoAlarmSensor.h>
#include <Inventor/sensors/SoIdleSensor.h>
#include <Inventor/sensors/SoOneShotSensor.h>
#include <Inventor/sensors/SoTimerSensor.h>

#include <QEventLoop>
#include <QTimer>
#include <QTimerEvent>

#include <functional>
#include <thread>
#include <utility>

class tst_SensorPump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void firesSensors_data();
    void firesSensors();
    void sleepsWhileNothingIsQueued();
    void waitsForALoopInACallback();
    void leavesNothingBehind();

private:
    bool eventFilter(QObject* receiver, QEvent* event) override;
    static void fire(void* self, SoSensor*);

    std::unique_ptr<SensorPump> m_pump;
    std::function<void()> m_onFire;
    int m_fired = 0;
    int m_wakeups = 0;
};

void tst_SensorPump::init()
{
    QTest::failOnWarning(QRegularExpression(".*"));
    SoDB::enableRealTimeSensor(FALSE); // it runs all the time
    m_pump = std::make_unique<SensorPump>();
    m_onFire = nullptr;
    m_fired = 0;
    qApp->installEventFilter(this);
}

void tst_SensorPump::cleanup()
{
    qApp->removeEventFilter(this);
    m_pump.reset();
    SoDB::enableRealTimeSensor(TRUE);
}

bool tst_SensorPump::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() == QEvent::Timer && receiver->parent() == m_pump.get())
        ++m_wakeups;
    return false;
}

void tst_SensorPump::fire(void* self, SoSensor*)
{
    auto* const test = static_cast<tst_SensorPump*>(self);
    ++test->m_fired;
    if (const auto onFire = std::exchange(test->m_onFire, nullptr))
        onFire();
}

void tst_SensorPump::firesSensors_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("fromOtherThread");
    const char* const kinds[] = {"alarm", "timer", "one shot", "idle"};
    for (int kind = 0; kind < 4; ++kind)
        QTest::newRow(kinds[kind]) << kind << false;
    QTest::newRow("one shot, other thread") << 2 << true;
    QTest::newRow("alarm, other thread") << 0 << true;
}

void tst_SensorPump::firesSensors()
{
    QFETCH(int, kind);
    QFETCH(bool, fromOtherThread);
    SoAlarmSensor alarm(fire, this);
    alarm.setTimeFromNow(SbTime(0.02));
    SoTimerSensor timer(fire, this);
    timer.setInterval(SbTime(0.01));
    SoOneShotSensor oneShot(fire, this);
    SoIdleSensor idle(fire, this);
    SoSensor* const sensors[] = {&alarm, &timer, &oneShot, &idle};

    QTest::qWait(20); // the pump sleeps
    if (fromOtherThread)
        std::thread([&] { sensors[kind]->schedule(); }).join();
    else
        sensors[kind]->schedule();
    QTRY_VERIFY(m_fired > 0);
    if (kind == 1)
        QTRY_VERIFY(m_fired > 3);
    timer.unschedule();
}

void tst_SensorPump::sleepsWhileNothingIsQueued()
{
    SoOneShotSensor oneShot(fire, this);
    oneShot.schedule();
    QTRY_COMPARE(m_fired, 1);
    QTest::qWait(200); // Coin's own watch over the delay queue runs out after a twelfth of a second
    m_wakeups = 0;
    QTest::qWait(300);
    QCOMPARE(m_wakeups, 0);

    SoAlarmSensor alarm(fire, this);
    alarm.setTimeFromNow(SbTime(0.0505)); // half a millisecond early would be a wakeup for nothing
    alarm.schedule();
    QTRY_COMPARE(m_fired, 2);
    QCOMPARE(m_wakeups, 1);
}

void tst_SensorPump::waitsForALoopInACallback()
{
    SoOneShotSensor outer(fire, this);
    SoOneShotSensor inner(fire, this);
    int wakeupsInLoop = -1;
    m_onFire = [&] {
        inner.schedule();
        m_wakeups = 0;
        QEventLoop loop;
        QTimer::singleShot(50, &loop, &QEventLoop::quit);
        loop.exec();
        wakeupsInLoop = m_wakeups;
    };
    outer.schedule();
    QTRY_COMPARE(m_fired, 2);
    QCOMPARE(wakeupsInLoop, 0);
}

void tst_SensorPump::leavesNothingBehind()
{
    m_pump.reset();
    SoOneShotSensor oneShot(fire, this);
    oneShot.schedule();
    QTest::qWait(20);
    QCOMPARE(m_fired, 0);
    m_pump = std::make_unique<SensorPump>(); // takes up what was queued before
    QTRY_COMPARE(m_fired, 1);
}

KLV_TEST_MAIN(tst_SensorPump)
#include "tst_SensorPump.moc"
