#pragma once

#include "controls/FormWindow.h"
#include "jobs/Job.h"

#include <QString>
#include <QTimer>

class JobVoice;
class QLabel;
class QPushButton;
class QTableView;

/// A window that shows one job: its line of status, which blinks while the job waits and works, and
/// the button that stops it. What the job does is the job's; what else the window shows is the
/// business of the windows made from it.
///
/// Whoever starts one fills its public members, gives it a key and shows it; the timers run from
/// the moment it is made.
class JobWindow : public FormWindow
{
    Q_OBJECT
public:
    ~JobWindow() override;

    /// The job of this window.
    Job *ShownJob() const { return job; }
    /// The window that shows this job; null when there is none, or it has gone for the user.
    static JobWindow *Of(const Job *shown);

    /// Presses Stop for the user, who is asked what the button asks. When there is nothing to be
    /// stopped, it does nothing.
    void PressStop();

    /// Stops the job that is using the link: tells the server.
    bool StopActiveSearch() { return job->StopActiveSearch(); }
    /// Stops the job before it had its turn. False, and nothing has happened, when it is not
    /// pending.
    bool StopPendingSearch() { return job->StopPendingSearch(); }
    void StopCurrentSearch() { job->StopCurrentSearch(); }

private:
    Job *const job;

public:
    // The job's own, under the names by which a starter fills them
    QString &txtMasterKey;
    bool &StopRequested;
    QTimer *const Timer1;
    // and of its record
    QString &lblState; ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    QString &ClientAcctgCode;

    QTimer *const tmrBlink; ///< blinks lblStatus

protected:
    /// Takes the job, which goes when both the window and its own last procedure are gone, and is
    /// told where the job's record keeps the court and the client code.
    JobWindow(Job *ownJob, QString *state, QString *code, QWidget *parent);

    /// The controls that every job has.
    struct JobControls
    {
        QLabel *lblStatus;
        QPushButton *cmdStopSearching;
        QTableView *rows; ///< the table that the job fills, or null
        QWidget *home;    ///< gets the keyboard when it is on a button that is turned off
    };
    /// Takes the controls and starts the timers.
    void StartJob(const JobControls &controls);
    /// The job fills this table, too.
    void AlsoFills(QTableView *rows);

    /// Who gets the keyboard: what StartJob was given, unless something else is in its place.
    virtual QWidget *HomeOfFocus() const { return homeOfFocus; }
    /// The Stop button was pressed; nothing has been asked yet.
    virtual void StopPressed() {}
    /// Shows what the job is and says now.
    virtual void ShowState();
    virtual void ShowStatus();

    void StopBlinking();
    /// Turns a button off. If it has the keyboard, the home of the keyboard gets it: the platform
    /// would go on to the next button, which prints, stops or closes.
    void TurnOff(QPushButton *button);
    void DisableStop();
    /// The rule for closing, for a window that asks this question.
    bool MayClose(UnloadMode mode, const QString &question);

    void Unloading() override;

private:
    void tmrBlink_Tick();
    void cmdStopSearching_Click();
    void showBeginning();
    void showEnd();

    QLabel *statusLabel = nullptr;
    QPushButton *stopButton = nullptr;
    QWidget *homeOfFocus = nullptr;
    JobVoice *voice = nullptr;
    JobState shownState = JobState::Pending;
    bool BlinkOn = false;
    bool blinking = true;
};
