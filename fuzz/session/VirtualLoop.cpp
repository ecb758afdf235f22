#include "session/VirtualLoop.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 beginOfDay = 10LL * 3600 * 1000;
constexpr qint64 dayMilliseconds = 24LL * 3600 * 1000;
} // namespace

QDateTime VirtualLoop::Now() const
{
    static const QDateTime day = QDateTime::fromString(u"2026-03-10T00:00:00Z"_s, Qt::ISODate);
    return day.addMSecs(beginOfDay + milliseconds);
}

float VirtualLoop::SecondsOfDay() const
{
    return static_cast<float>((beginOfDay + milliseconds) % dayMilliseconds) / 1000.0F;
}

qint64 VirtualLoop::EpochSeconds() const
{
    return milliseconds / 1000;
}

bool VirtualLoop::processEvents(QEventLoop::ProcessEventsFlags /*flags*/)
{
    const bool posted = std::exchange(woken, false);
    QCoreApplication::sendPostedEvents();
    const bool fired = fireTimers();
    if (!posted && !fired && World)
        World();
    return true;
}

/// The timer that is due first, of those that are due by then and not being told of already.
VirtualLoop::Timer *VirtualLoop::nextDue(qint64 until)
{
    Timer *first = nullptr;
    for (Timer &timer : timers) {
        if (!timer.active && timer.due <= until && (!first || timer.due < first->due))
            first = &timer;
    }
    return first;
}

/// Each timer that is due now, once.
bool VirtualLoop::fireTimers()
{
    const qint64 until = milliseconds;
    auto left = timers.size();
    bool fired = false;
    while (Timer *due = left > 0 ? nextDue(until) : nullptr) {
        --left;
        fired = true;
        const int id = due->id;
        due->active = true;
        due->due = milliseconds + due->interval;
        QTimerEvent event(id);
        QCoreApplication::sendEvent(due->object, &event);
        // The receiver may have taken it away, or others.
        if (Timer *still = timerOf(id))
            still->active = false;
    }
    return fired;
}

qint64 VirtualLoop::UntilNextTimer(qint64 most) const
{
    qint64 until = most;
    for (const Timer &timer : timers) {
        if (!timer.active)
            until = std::min(until, std::max<qint64>(1, timer.due - milliseconds));
    }
    return until;
}

VirtualLoop::Timer *VirtualLoop::timerOf(int id)
{
    const auto found = std::find_if(timers.begin(), timers.end(),
                                    [id](const Timer &timer) { return timer.id == id; });
    return found == timers.end() ? nullptr : &*found;
}

void VirtualLoop::registerTimer(int timerId, qint64 interval, Qt::TimerType /*timerType*/,
                                QObject *object)
{
    timers.push_back({timerId, interval, milliseconds + interval, object, false});
}

bool VirtualLoop::unregisterTimer(int timerId)
{
    return std::erase_if(timers, [timerId](const Timer &timer) { return timer.id == timerId; }) > 0;
}

bool VirtualLoop::unregisterTimers(QObject *object)
{
    return std::erase_if(timers, [object](const Timer &timer) { return timer.object == object; })
           > 0;
}

QList<QAbstractEventDispatcher::TimerInfo> VirtualLoop::registeredTimers(QObject *object) const
{
    QList<TimerInfo> infos;
    for (const Timer &timer : timers) {
        if (timer.object == object)
            infos.append(TimerInfo(timer.id, static_cast<int>(timer.interval), Qt::PreciseTimer));
    }
    return infos;
}

int VirtualLoop::remainingTime(int timerId)
{
    const Timer *timer = timerOf(timerId);
    return timer ? static_cast<int>(std::max<qint64>(0, timer->due - milliseconds)) : -1;
}

/// There is no descriptor to wait for: whoever asks for one would wait for ever.
void VirtualLoop::registerSocketNotifier(QSocketNotifier * /*notifier*/)
{
    qFatal("a real descriptor in a world without time");
}

void VirtualLoop::unregisterSocketNotifier(QSocketNotifier * /*notifier*/) {}
