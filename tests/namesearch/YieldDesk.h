#pragma once

#include "namesearch/EveryYield.h"
#include "support/AnsweringCourt.h"

#include <QObject>
#include <QPointer>

#include <array>
#include <functional>
#include <memory>
#include <optional>

class JobWindow;
class QTimer;
class SearchDesk;
class frmMain;

// What the tests have in common that repeat a job with something done to it inside each of its
// yields in turn.

/// The main window and a session in it, without a network. It goes before its desk.
class YieldDesk
{
public:
    explicit YieldDesk(SearchDesk &searchDesk);
    ~YieldDesk();

    /// A new session in a program without windows, with a court that answers every line like this.
    void ConnectAgain(const AnsweringCourt::Answers &answers,
                      AnsweringCourt::EndMark endMark = AnsweringCourt::EndMark::InTwo);
    /// What is done next is done to this window. The status of such a window blinks while the court
    /// is asked: a yield inside the yields.
    void Watch(JobWindow *job) { window = job; }
    /// Makes the window a child of the main window. It blinks once and then at its own pace,
    /// whatever has started its timer.
    void Show(JobWindow *job);

    /// Lets the watched window ask for its turn by this timer. Inside the nth yield from then on,
    /// or never if there is no such yield, this happens.
    void Begin(QTimer *timer, int nth, const std::function<void()> &happens);
    /// The job is over: what happens from here on happens behind its end.
    static void StopWatching();

    /// Something happens now.
    void Note(Moment now);
    /// Does it to the watched window, and expects the box that refuses while a job is running.
    void Do(Act act, Moment now);
    /// The same without the box.
    void Perform(Act act);

    /// From event to event, without naps in between: there are hundreds of runs.
    static bool WaitFor(const std::function<bool()> &condition);
    /// Until the program has ended.
    bool WaitForTheEnding();

    /// How often something has to be done, and how often it must have met the job.
    struct Walk
    {
        int fewestPending;
        int fewestRunning;
        int mostYields;
    };
    /// Does one run after the other, until it happens behind the end of one. The runs have to meet
    /// the job everywhere: before its turn, while a line is sent, and in its replies.
    void WalkYields(const Walk &walk, const std::function<void(int nth)> &runWith);

    std::unique_ptr<frmMain> Main;
    std::optional<Moment> When; ///< when it happened
    int Endings = 0;            ///< how often the program has ended since

private:
    QObject context;
    SearchDesk &desk;
    QPointer<JobWindow> window;
    int timesInASend = 0;
};

/// What is left of the program behind a job, as one line.
struct StateLeft
{
    QString End;
    bool Gone; ///< the window
    QStringList Queue;
    bool LoggedIn;
    bool StopsOthers;
    bool EndsProgram;

    QString Line() const;
};
