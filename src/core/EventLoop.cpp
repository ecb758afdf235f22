#include "core/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr qint64 turningNanoseconds = 50'000;
constexpr double longestSleepSeconds = 3600.0;

unsigned long long yields = 0;
std::function<void()> yieldWatcher;

void countYield()
{
    ++yields;
    if (yieldWatcher)
        yieldWatcher();
}

bool handlePending()
{
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    return dispatcher && dispatcher->processEvents(QEventLoop::AllEvents);
}
} // namespace

void Yield()
{
    countYield();
    handlePending();
}

void YieldUntilEvent(double seconds)
{
    countYield();
    if (handlePending())
        return;
    QElapsedTimer turning;
    turning.start();
    while (turning.nsecsElapsed() < turningNanoseconds) {
        if (handlePending())
            return;
    }
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    if (!dispatcher || seconds <= 0.0)
        return;
    // The timer is what wakes the loop at the deadline; it needs no receiver.
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.setTimerType(Qt::PreciseTimer);
    deadline.start(static_cast<int>(std::ceil(std::min(seconds, longestSleepSeconds) * 1000.0)));
    dispatcher->processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

unsigned long long YieldCount()
{
    return yields;
}

void WatchYields(std::function<void()> watcher)
{
    yieldWatcher = std::move(watcher);
}
