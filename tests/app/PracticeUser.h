#pragma once

#include "app/PracticeCourt.h"
#include "casedetails/CaseTabs.h"
#include "searchentry/EntryDesk.h"

#include <memory>

class CaseWindow;
class NameResultsWindow;
class TabStrip;
struct CaseTabState;

/// A user of the practice court: logs in, searches by the form, opens cases by double clicks and
/// walks through their tabs. Every window asks for its turn each millisecond. One a test function.
class PracticeUser : public EntryDesk
{
public:
    /// The session goes to the practice court at this port.
    explicit PracticeUser(quint16 port);

    /// Enters the search, starts it and waits for its end. nullptr when it does not make one window
    /// of results.
    NameResultsWindow *Search(const QStringList &steps);

    /// Double-clicks this row of the list; the window of its case, in the queue.
    CaseWindow *OpenRow(NameResultsWindow *results, int row);

    /// The same for a case that has a window already: says in the question that it is meant so.
    CaseWindow *OpenRowAgain(NameResultsWindow *results, int row);

    /// Lets the window take its turn and waits for the end of the run.
    bool Run(CaseWindow *window);
    /// Asks for all tabs that the panel offers, and waits for the end of the run. False when there
    /// is no panel to be used.
    bool FetchOnDemand(CaseWindow *window);
};

/// The two courts that every search and every case has to meet: one that answers as it should, and
/// one that leaves a stray reply behind each of its own.
class PracticeCourts
{
public:
    /// The global data rows of a test: each of its functions meets both.
    static void AddRows();
    /// Starts both; "" when they are there, otherwise what went wrong.
    QString Start(const QStringList &switches = {});
    /// The port of the court of this row.
    quint16 Port() const;

private:
    PracticeCourt tidy;
    PracticeCourt untidy;
};

/// A test at the practice court: each of its functions is a session of its own, at each of the two.
class PracticeTest : public QObject
{
    Q_OBJECT
protected Q_SLOTS:
    void initTestCase_data() { PracticeCourts::AddRows(); }
    virtual void initTestCase();
    virtual void init();
    void cleanup();

protected:
    PracticeCourts court;
    std::unique_ptr<PracticeUser> user;
};

/// Logs in at the court that options.ini names; true when the search form is there then.
bool LogInAs(const QString &user);

/// The tabs of these captions are fetched at once in every court; all others wait to be asked for.
void FetchAtOnce(const QStringList &captions);

/// A job that asks for its turn every millisecond.
void Hurry(JobWindow *window);

TabStrip *StripOf(const CaseWindow *window);
/// Clicks a tab as the user does; false when there is none of that caption.
bool ClickTab(const CaseWindow *window, const QString &caption);
/// True while the panel stands in the place of the tab.
bool ShowsPanel(const CaseWindow *window);
