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
constexpr qint64 betweenNanoseconds = 100'000;

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

/// Since what was pending was last handled between two tokens.
QElapsedTimer &sinceHandled()
{
    static QElapsedTimer timer;
    return timer;
}
} // namespace

void Yield()
{
    countYield();
    handlePending();
}

void YieldBetween()
{
    countYield();
    QElapsedTimer &handled = sinceHandled();
    if (!yieldWatcher && handled.isValid() && handled.nsecsElapsed() < betweenNanoseconds) {
        QCoreApplication::sendPostedEvents();
        return;
    }
    handlePending();
    handled.start();
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
