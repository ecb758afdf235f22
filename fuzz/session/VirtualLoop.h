#pragma once

#include "core/Clock.h"

#include <QAbstractEventDispatcher>

#include <functional>
#include <vector>

/// An event loop and a clock in which no real time passes: when nothing is pending, the world makes
/// its next move at once, and time goes on only where the world says so. The same input runs the
/// same way each time, and a wait of a minute takes as long as one of a second.
class VirtualLoop : public QAbstractEventDispatcher, public Clock
{
    Q_OBJECT
public:
    VirtualLoop() = default;

    /// Called on each turn on which nothing is pending.
    std::function<void()> World;

    /// Back to ten in the morning of the same day.
    void Restart() { milliseconds = 0; }
    void Advance(qint64 byMilliseconds) { milliseconds += byMilliseconds; }
    /// Milliseconds until the next timer is due, `most` at most.
    qint64 UntilNextTimer(qint64 most) const;
    qsizetype Timers() const { return static_cast<qsizetype>(timers.size()); }

    QDateTime Now() const override;
    float SecondsOfDay() const override;
    qint64 EpochSeconds() const override;
    void SleepMilliseconds(int forMilliseconds) override { Advance(forMilliseconds); }

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    void registerSocketNotifier(QSocketNotifier *notifier) override;
    void unregisterSocketNotifier(QSocketNotifier *notifier) override;
    void registerTimer(int timerId, qint64 interval, Qt::TimerType timerType,
                       QObject *object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject *object) override;
    QList<TimerInfo> registeredTimers(QObject *object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override { woken = true; }
    void interrupt() override { woken = true; }

private:
    struct Timer
    {
        int id;
        qint64 interval;
        qint64 due;
        QObject *object;
        bool active; ///< its receiver is being told
    };

    Timer *timerOf(int id);
    Timer *nextDue(qint64 until);
    bool fireTimers();

    std::vector<Timer> timers;
    qint64 milliseconds = 0; ///< since ten in the morning
    bool woken = false;
};
