#pragma once

#include "controls/FormWindow.h"

#include <QString>
#include <QTimer>

#include <functional>

class QLabel;
class QPushButton;

/// The pace of a job window, in milliseconds.
struct JobPace
{
    int turn;         ///< Timer1: from one question for the turn to the next
    int blink;        ///< tmrBlink from the load on
    int takenBlink;   ///< tmrBlink once another job was seen using the link
    int workingBlink; ///< tmrBlink while the job itself runs
};

/// A window that owns one job on the link: it waits for its turn, blinks its status meanwhile, runs
/// the job to its end, and can be stopped before and during it. What the job is, and what the
/// labels say, is the business of the windows made from it.
///
/// Whoever starts one fills its public members, enqueues txtMasterKey and shows it; the timers run
/// from the moment it is made.
class JobWindow : public FormWindow
{
    Q_OBJECT
public:
    /// Stops the job that is using the link: tells the server.
    bool StopActiveSearch();
    /// Stops the job before it had its turn. False, and nothing has happened, when it is not
    /// pending.
    bool StopPendingSearch();
    void StopCurrentSearch();

    // What the starter hands over
    QString txtMasterKey;
    QString lblState; ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    QString ClientAcctgCode;

    bool StopRequested = false; ///< Stop was confirmed

    QTimer *Timer1;   ///< asks for the turn
    QTimer *tmrBlink; ///< blinks lblStatus

protected:
    JobWindow(const JobPace &jobPace, QWidget *parent);

    /// Takes the two controls that every job has, and starts the timers. `home` gets the keyboard
    /// when it is on a button that is turned off.
    void StartJob(QLabel *lblStatus, QPushButton *cmdStopSearching, QWidget *home);

    enum class StopCase {
        AllJobs, ///< a logout, disconnect or exit; seen by Timer1
        Pending, ///< the Stop button, before the turn
        Active   ///< the Stop button, during the run
    };

    /// At the beginning of every tick, before the turn is asked for.
    virtual void BeginTick() {}
    /// The job itself. It releases the turn on every way out.
    virtual void ProcessSearchRequests() = 0;
    /// Who gets the keyboard: what StartJob was given, unless something else is in its place.
    virtual QWidget *HomeOfFocus() const { return homeOfFocus; }
    /// What lblStatus reads during the run.
    virtual QString WorkingText() const = 0;
    /// Shows that the job was stopped; ShowStoppedStatus is the part that all have in common.
    virtual void ShowStopped(StopCase stopCase) = 0;
    /// What is sent to the server when the job is stopped.
    virtual QString StopRequest() const = 0;
    /// The Stop button was pressed; nothing has been asked yet.
    virtual void StopPressed() {}
    /// The stop has been carried out.
    virtual void StopDone() {}

    void ShowStoppedStatus();
    void StopBlinking();
    /// Turns a button off. If it has the keyboard, the home of the keyboard gets it: the platform
    /// would go on to the next button, which prints, stops or closes.
    void TurnOff(QPushButton *button);
    void DisableStop();
    /// The job is over: no more stopping, no more blinking.
    void EndJob();
    /// Puts the window back into the queue, with the key it has.
    void RestartJob() { RestartJob(Timer1); }
    /// The same, for a job whose turn another timer asks for.
    void RestartJob(QTimer *timer);

    /// A job that asks for its turn.
    struct TurnRequest
    {
        QTimer *Timer;    ///< asks again
        int WorkingBlink; ///< tmrBlink during the run, in milliseconds
        std::function<void()> Run;
        std::function<void()> Stopped; ///< every job was asked to stop
    };
    /// Asks once, and does what the answer says.
    void AskTurn(const TurnRequest &request);
    /// The rule for closing, for a window that asks this question.
    bool MayClose(UnloadMode mode, const QString &question);

    void Unloading() override;

    /// The window is the one that is using the link.
    bool HasTurn = false;

private:
    void Timer1_Tick();
    void tmrBlink_Tick();
    void cmdStopSearching_Click();

    const JobPace pace;
    QLabel *statusLabel = nullptr;
    QPushButton *stopButton = nullptr;
    QWidget *homeOfFocus = nullptr;
    bool over = false;
    bool BlinkOn = false;
    bool blinking = true;
};
