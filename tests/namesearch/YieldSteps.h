#pragma once

#include "namesearch/EveryYield.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class BoxAnswers;
class JobWindow;
class frmMain;

// What the tests have in common that repeat a run with something done to it inside each of its
// yields in turn.

/// Handles what happens until the condition holds, from event to event, without naps in between:
/// there are hundreds of runs. False when that takes some seconds.
bool WaitFor(const std::function<bool()> &condition);

/// What is left of the program behind a run.
struct ProgramState
{
    QString End;
    bool WindowGone = false;
    QStringList Queue;
    bool LoggedIn = false;
    bool StopsOthers = false;
    bool EndsProgram = false;
};
/// The same as one line, which tells at a glance in what two of them differ.
QString StateLine(const ProgramState &state);
/// The program as it is now, behind a run that has come to this end.
ProgramState StateNow(const QString &end, bool windowGone, int programEndings);

/// A session that is logged in, over the socket that was installed last, with an empty queue. The
/// main window is made when there is none.
void BeginSession(std::unique_ptr<frmMain> &main);

/// Has the label of a window blink no faster than it would, once its first blink is over.
void SlowBlinking(JobWindow *window);

/// Has the label of a window blink at once, if it blinks: a yield inside the yields.
void BlinkNow(const JobWindow *window);

/// Announces the box that refuses this in the middle of a run, if there is one.
void ExpectRefusal(BoxAnswers &boxes, Act act);

/// Does this to a window in the main window. A court that shall be silent has been silenced before.
void Perform(Act act, frmMain *main, JobWindow *window);

/// For the message of a test that failed.
QString PlaceOf(int yield, std::optional<Moment> moment);
