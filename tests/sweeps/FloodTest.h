#pragma once

#include "casedetails/CaseDesk.h"
#include "sweeps/FloodCourt.h"
#include "sweeps/TurnProbe.h"

#include <functional>
#include <memory>

class JobWindow;

/// What a flood has cost.
struct FloodCost
{
    double Milliseconds = 0.0; ///< of the program's own thread
    double LongestTurn = 0.0;  ///< in milliseconds of it
    long long MostBytes = 0;
    long long BytesLeft = 0; ///< when it was over
    qint64 Sent = 0;         ///< bytes of the flood
};

/// A test whose functions each have a desk, and a court that floods.
class FloodTest : public CaseTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override;
    void cleanup();

protected:
    /// So much of a number, as this run's extent has it, and at least `least`.
    static int Scaled(int whole, int least = 1);

    void Connect();
    /// Goes from event to event until this holds. False when it never does.
    static bool WaitUntil(const std::function<bool()> &holds);
    /// Lets a window ask for its turn.
    static void Begin(JobWindow *window);
    /// Waits until its run has left the stack.
    static bool Finish(JobWindow *window);
    /// Both; a run that does not end ends the program.
    void Run(JobWindow *window);
    /// Closes it, and lets everything go that it held.
    static void Close(JobWindow *window);

    /// Runs this, which sends so many of something, and measures it.
    FloodCost Measure(const std::function<void()> &act) const;
    /// Says what it cost beside the name of the data row.
    static void Tell(const char *what, const FloodCost &cost);
    /// A flood is sent twice: the first time so much less of it.
    static constexpr int Fold = 4;
    /// A flood that is `fold` times as large may cost twice as much as that; what grows with its
    /// square costs four times as much. Below `least` milliseconds a cost is nothing to compare.
    ///
    /// Not looked at under sanitizers, whose cost is not the program's.
    static void CheckGrowth(const FloodCost &part, const FloodCost &all, double least = 20.0,
                            int fold = Fold);
    /// No turn is longer than a user notices, of so many milliseconds more where one token is that
    /// large. A run beside other work is allowed more: what it shares its processor with costs
    /// processor time too. Not under sanitizers.
    static void CheckTurn(const FloodCost &cost, double more = 0.0);
    /// What may be kept of a flood: so many times its bytes, and so many bytes beside them.
    struct Keeps
    {
        int Times = 3;
        qint64 Beside = 0;
    };
    /// The cost grows with the flood, no turn is too long, and no more is kept than may be.
    static void CheckFlood(const FloodCost &part, const FloodCost &all, const Keeps &keeps);
    static void CheckFlood(const FloodCost &part, const FloodCost &all)
    {
        CheckFlood(part, all, Keeps());
    }

    /// The next job is right: a search over this connection, or a new one when this one is not fit
    /// for it any more, gives its one row.
    void SearchOnce(bool overNewConnection = false);
    /// The same at a court that knows nothing of what this one was to answer.
    void SearchAtNewCourt();

    std::unique_ptr<FloodCourt> flood;
};
