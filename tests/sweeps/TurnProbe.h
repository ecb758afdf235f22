#pragma once

#include <QTimer>

/// Processor time of the thread that calls, in milliseconds. Unlike the clock on the wall it does
/// not know what else the machine is busy with.
double ThreadMilliseconds();

/// Measures how long the event loop was away: the processor time between two turns in which a
/// timer of one millisecond was due. A click, a key and a paint waited as long. In force for as
/// long as it lives.
class TurnProbe
{
public:
    TurnProbe();

    /// Of the turns so far.
    double LongestMilliseconds();
    /// In all, since it began.
    double Milliseconds() const { return ThreadMilliseconds() - began; }
    /// The most bytes on the heap that were seen, beyond those at the beginning.
    long long MostBytes() const { return most; }
    /// Those on the heap now, beyond those at the beginning.
    long long BytesNow() const;

    int Turns() const { return turns; }
    void Forget();

private:
    void look();

    QTimer timer;
    double began;
    double last;
    double looked;
    double longest = 0.0;
    int turns = 0;
    long long before;
    long long most = 0;
};
