#pragma once

#include <QDateTime>

/// The time of day and the blocking sleep. Tests put a clock of their own in its place, so that a
/// limit of a minute is tested in a millisecond.
class Clock
{
public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    virtual QDateTime Now() const;

    /// Seconds since midnight, in single precision: what every limit in the program is measured in.
    virtual float SecondsOfDay() const;

    /// Whole seconds since 1970, for telling cheaply whether the second has changed.
    virtual qint64 EpochSeconds() const;

    /// Sleeps without letting any event run. Only for the few places that may freeze the window.
    virtual void SleepMilliseconds(int milliseconds);

    /// The clock in force.
    static Clock &Current();

    /// Puts `clock` in force and returns the one before it; nullptr goes back to the machine's own.
    /// The caller keeps ownership.
    static Clock *Replace(Clock *clock);
};

/// Seconds since `startTime` (a value of Clock::SecondsOfDay). Never 0: the least answer is 0.025.
/// A clock that stepped back by up to a second counts as that least answer; anything further back
/// means that midnight has passed, and a day is added.
float ElapsedSeconds(float startTime);

/// Yields to the event loop until `seconds` have gone by: a pause that keeps the window alive.
void PauseSeconds(float seconds);
