#pragma once

#include "core/Clock.h"

#include <QList>
#include <QTimer>

/// A clock that stands still until a test moves it. In force for as long as it lives.
///
/// Sleeping moves it and takes no time. To let a limit run out inside a wait, let it run: every
/// millisecond of the test then counts as so many seconds.
class TestClock : public Clock
{
public:
    explicit TestClock(const QDateTime &start = QDateTime({2026, 3, 10}, {10, 0, 0}));
    ~TestClock() override;

    QDateTime Now() const override { return now; }
    void SleepMilliseconds(int milliseconds) override;

    void Set(const QDateTime &moment) { now = moment; }
    void Advance(double seconds);

    /// Moves on by `seconds` at each turn of the event loop that a 1 ms timer brings.
    void Run(double seconds);
    void Stop();

    /// What the program has slept, in the order of the sleeps.
    const QList<int> &Sleeps() const { return sleeps; }

private:
    QDateTime now;
    QList<int> sleeps;
    QTimer timer;
    double step = 0.0;
};
