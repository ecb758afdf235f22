#include "core/Clock.h"
#include "core/EventLoop.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <QTimer>

#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
/// What a child of this test does: it says the time, by the product's clock and by Qt's.
int sayTheTime(const QStringList & /*none*/)
{
    std::printf("%.3f %.3f\n", static_cast<double>(Clock::Current().SecondsOfDay()),
                QTime::currentTime().msecsSinceStartOfDay() / 1000.0);
    return 0;
}
} // namespace

class tst_Clock : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void elapsedSeconds_data();
    void elapsedSeconds();
    void secondsOfDayCountFromMidnight_data();
    void secondsOfDayCountFromMidnight();
    void theMachinesClockTellsTheLocalTime_data();
    void theMachinesClockTellsTheLocalTime();
    void wholeSecondsFollowTheClock();
    void theMachinesClockIsInForceUnlessReplaced();
    void replaceAnswersTheClockBefore();
    void pauseSecondsEndsWhenTheTimeIsThere_data();
    void pauseSecondsEndsWhenTheTimeIsThere();
    void pauseSecondsLetsEventsRun();
    void pauseSecondsOverMidnight();
    void theMachinesSleepBlocksEvents();
};

void tst_Clock::elapsedSeconds_data()
{
    QTest::addColumn<QTime>("now");
    QTest::addColumn<float>("start");
    QTest::addColumn<float>("elapsed");
    QTest::newRow("the same moment") << QTime(10, 0, 0) << 36000.0F << 0.025F;
    QTest::newRow("below the least") << QTime(0, 0, 10, 20) << 10.0F << 0.025F;
    QTest::newRow("just above the least") << QTime(0, 0, 10, 30) << 10.0F << 0.03F;
    QTest::newRow("five seconds") << QTime(0, 0, 15) << 10.0F << 5.0F;
    QTest::newRow("stepped back a little") << QTime(0, 0, 10) << 10.01F << 0.025F;
    QTest::newRow("stepped back half a second") << QTime(0, 0, 10) << 10.5F << 0.025F;
    QTest::newRow("stepped back one second") << QTime(0, 0, 10) << 11.0F << 0.025F;
    QTest::newRow("further back is midnight") << QTime(0, 0, 10) << 12.0F << 86398.0F;
    QTest::newRow("over midnight") << QTime(0, 0, 5) << 86390.0F << 15.0F;
    QTest::newRow("at midnight") << QTime(0, 0, 0) << 86399.5F << 0.5F;
    QTest::newRow("a whole day less a second") << QTime(23, 59, 59) << 0.0F << 86399.0F;
}

void tst_Clock::elapsedSeconds()
{
    QFETCH(QTime, now);
    QFETCH(float, start);
    QFETCH(float, elapsed);
    const TestClock clock(QDateTime({2026, 3, 10}, now));
    QVERIFY2(std::fabs(ElapsedSeconds(start) - elapsed) < 0.005F,
             qPrintable(QString::number(static_cast<double>(ElapsedSeconds(start)))));
    QVERIFY(ElapsedSeconds(start) >= 0.025F);
}

void tst_Clock::secondsOfDayCountFromMidnight_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<float>("seconds");
    QTest::newRow("midnight") << QTime(0, 0) << 0.0F;
    QTest::newRow("half a second") << QTime(0, 0, 0, 500) << 0.5F;
    QTest::newRow("ten") << QTime(10, 0) << 36000.0F;
    QTest::newRow("the last second") << QTime(23, 59, 59) << 86399.0F;
}

void tst_Clock::secondsOfDayCountFromMidnight()
{
    QFETCH(QTime, time);
    QFETCH(float, seconds);
    const TestClock clock(QDateTime({2026, 3, 10}, time));
    QCOMPARE(Clock::Current().SecondsOfDay(), seconds);
}

void tst_Clock::theMachinesClockTellsTheLocalTime_data()
{
    QTest::addColumn<QString>("zone");
    QTest::newRow("universal") << u"UTC0"_s;
    QTest::newRow("half an hour off") << u"XST-5:30"_s;
    QTest::newRow("far west") << u"XST12"_s;
    QTest::newRow("far east") << u"XST-14"_s;
    QTest::newRow("summer time") << u"PST8PDT,M3.2.0,M11.1.0"_s;
}

void tst_Clock::theMachinesClockTellsTheLocalTime()
{
    QFETCH(QString, zone);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TZ"_s, zone);
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {u"--say-time"_s});
    QVERIFY(child.waitForFinished());
    const QByteArrayList said = child.readAllStandardOutput().trimmed().split(' ');
    QCOMPARE(said.size(), 2);
    // Midnight may have passed between the two questions.
    const double apart = std::fabs(said[0].toDouble() - said[1].toDouble());
    QVERIFY2(apart < 2.0 || apart > 86398.0, said.join(' ').constData());
}

void tst_Clock::wholeSecondsFollowTheClock()
{
    TestClock clock;
    const qint64 start = Clock::Current().EpochSeconds();
    QCOMPARE(start, clock.Now().toSecsSinceEpoch());
    clock.Advance(2.0);
    QCOMPARE(Clock::Current().EpochSeconds(), start + 2);
}

void tst_Clock::theMachinesClockIsInForceUnlessReplaced()
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = Clock::Current().Now();
    QVERIFY(before <= now && now <= QDateTime::currentDateTime());
    {
        const TestClock clock;
        QCOMPARE(Clock::Current().Now(), QDateTime({2026, 3, 10}, {10, 0, 0}));
    }
    QVERIFY(Clock::Current().Now() >= now);
}

void tst_Clock::replaceAnswersTheClockBefore()
{
    Clock first;
    Clock second;
    QCOMPARE(Clock::Replace(&first), nullptr);
    QCOMPARE(Clock::Replace(&second), &first);
    QCOMPARE(&Clock::Current(), &second);
    QCOMPARE(Clock::Replace(nullptr), &second);
    QVERIFY(&Clock::Current() != &first && &Clock::Current() != &second);
}

void tst_Clock::pauseSecondsEndsWhenTheTimeIsThere_data()
{
    QTest::addColumn<float>("seconds");
    QTest::newRow("none") << 0.0F;
    QTest::newRow("less than the least") << 0.01F;
    QTest::newRow("two and a half") << 2.5F;
    QTest::newRow("a minute") << 60.0F;
}

void tst_Clock::pauseSecondsEndsWhenTheTimeIsThere()
{
    QFETCH(float, seconds);
    TestClock clock;
    clock.Run(0.5);
    const QDateTime start = clock.Now();
    PauseSeconds(seconds);
    const double gone = static_cast<double>(start.msecsTo(clock.Now())) / 1000.0;
    QVERIFY(gone >= static_cast<double>(seconds) - 0.03);
    QVERIFY(gone <= static_cast<double>(seconds) + 5.0);
}

void tst_Clock::pauseSecondsLetsEventsRun()
{
    TestClock clock;
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (++ticks == 20)
            clock.Advance(10.0);
    });
    timer.start(0);
    PauseSeconds(10.0F);
    QCOMPARE(ticks, 20);
    QCOMPARE(clock.Sleeps(), QList<int>());
}

void tst_Clock::pauseSecondsOverMidnight()
{
    TestClock clock(QDateTime({2026, 3, 10}, {23, 59, 58}));
    clock.Run(0.5);
    PauseSeconds(5.0F);
    QCOMPARE(clock.Now().date(), QDate(2026, 3, 11));
    QVERIFY(clock.Now().time() >= QTime(0, 0, 2));
    QVERIFY(clock.Now().time() <= QTime(0, 0, 8));
}

void tst_Clock::theMachinesSleepBlocksEvents()
{
    int ticks = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { ++ticks; });
    timer.start(0);
    QElapsedTimer slept;
    slept.start();
    Clock::Current().SleepMilliseconds(20);
    QVERIFY(slept.elapsed() >= 19);
    QCOMPARE(ticks, 0);
    Yield();
    QVERIFY(ticks > 0);
}

HALVANE_TEST_CHILD("--say-time", sayTheTime)
HALVANE_TEST(tst_Clock)
#include "tst_Clock.moc"
