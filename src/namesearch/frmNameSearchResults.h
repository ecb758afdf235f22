#pragma once

#include "controls/FormWindow.h"
#include "jobs/ListBox.h"
#include "namesearch/ResultColumns.h"
#include "namesearch/SearchOutcomes.h"

#include <QTimer>

#include <array>
#include <memory>

class QLabel;
class QPushButton;

namespace Ui {
class frmNameSearchResults;
}

/// The results window of one name search: waits for its turn on the link, sends its request lines
/// one after the other, lists what comes back, and ends in one of a few told outcomes.
///
/// Whoever starts it fills the public members, enqueues txtMasterKey and shows the window; the
/// timers run from the moment it is made.
class frmNameSearchResults : public FormWindow
{
    Q_OBJECT
public:
    /// `state` is what lblState will hold; it decides the columns, with the other two.
    explicit frmNameSearchResults(const QString &state, bool indexSearch = false,
                                  bool bankruptcy = false, QWidget *parent = nullptr);
    ~frmNameSearchResults() override;

    /// Queues the window again, with the key it has, for the next page of its search.
    void BeginSearching();

    void InitListView();
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);

    /// Adds a row of the server to the list. Throws error 9 when it has too few fields.
    void AddResultRow(const QString &row);

    /// Shows the criteria of a line of lboxQueue. Throws error 9 when it has too few fields.
    void ShowSearchCriteria(int lineIndex);

    bool StopActiveSearch();
    bool StopPendingSearch();
    void StopCurrentSearch();

    void SetTxtCountyList(const QString &text);
    QString txtCountyList() const;

    int RowCount() const;

    // What the starter hands over
    ListBox lboxQueue;
    QString txtMasterKey;
    QString lblState; ///< "WA", "OR", "ID", "WAWBK", "WAEBK", "ORBK" or "IDBK"
    bool chkIndexSearch = false;
    bool chkBK = false;
    bool OrStatewide = false;
    bool IdStatewide = false;
    QString lbl911; ///< "T" closes the window without a question
    QString ClientAcctgCode;

    // What the reports read
    bool StopRequested = false;    ///< Stop was confirmed; read after a request's last reply
    bool SearchIncomplete = false; ///< a request failed in a way that loses results
    bool StopWarningFlag = false;
    QString SortColumnName;
    qint16 SearchRunCount = 1;

    QTimer *Timer1;   ///< asks for the turn
    QTimer *tmrBlink; ///< blinks lblStatus

protected:
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;

private:
    void Timer1_Tick();
    void tmrBlink_Tick();
    void cmdStopSearching_Click();

    void ProcessSearchRequests();
    SearchOutcome RunRequests();
    bool SendLine(int index);
    SearchOutcome ReadReplies(bool &tooManyHits, bool &ended);
    void TakeRow(const QString &reply);
    void EndSearch(SearchOutcome outcome);
    void AddMaxResultsRows();
    void ReportEmptyQueue();

    void showCount(int rows);
    void setStatus(const QString &text, StatusStyle style);
    void setSearchStatus(const QString &text, StatusStyle style);
    void stopBlinking();
    void showStopped(const QString &searchStatus);
    void showPageButton(bool nextPage);

    const std::unique_ptr<Ui::frmNameSearchResults> ui;
    std::array<QPushButton *, 7> cmdSearchResults{};
    ResultKind kind;
    QString countyOfRequest;
    int rowsOfRequest = 0;
    bool CriteriaShown = false;
    bool BlinkOn = false;
    bool ActiveSearcher = false;
    bool blinking = true;
    bool countPending = false;
};
