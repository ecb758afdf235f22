#include "support/TestClock.h"

TestClock::TestClock(const QDateTime &start) : now(start)
{
    timer.setInterval(1);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Advance(step); });
    Clock::Replace(this);
}

TestClock::~TestClock()
{
    Clock::Replace(nullptr);
}

void TestClock::SleepMilliseconds(int milliseconds)
{
    sleeps.append(milliseconds);
    now = now.addMSecs(milliseconds);
}

void TestClock::Advance(double seconds)
{
    now = now.addMSecs(static_cast<qint64>(seconds * 1000.0));
}

void TestClock::Run(double seconds)
{
    step = seconds;
    timer.start();
}

void TestClock::Stop()
{
    timer.stop();
}
