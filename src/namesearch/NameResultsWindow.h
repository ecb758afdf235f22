#pragma once

#include "jobs/JobWindow.h"
#include "jobs/ListBox.h"
#include "namesearch/ResultColumns.h"
#include "namesearch/ResultsWindows.h"
#include "namesearch/SearchOutcomes.h"

#include <optional>

class QLineEdit;
class JobVoice;
class ResultListView;
struct CaseFromRow;
struct ListLayout;

/// The results window of one name search: waits for its turn on the link, sends its request lines
/// one after the other, lists what comes back, and ends in one of a few outcomes.
///
/// This is what the three results windows have in common; in what they differ is a row of the table
/// in ResultsWindows.cpp, and which columns and rows they have is in the windows themselves.
class NameResultsWindow : public JobWindow
{
    Q_OBJECT
public:
    /// Queues the window again, with the key it has, for further requests.
    void BeginSearching();

    virtual void InitListView() = 0;
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);

    /// Shows the criteria of a line of lboxQueue. Throws error 9 when it has too few fields.
    virtual void ShowSearchCriteria(int lineIndex) = 0;

    virtual void SetNameVal(const QString &text);
    QString lblNameVal() const;
    void SetCaseTypeVals(const QString &text);
    void SetTxtCountyList(const QString &text);
    QString txtCountyList() const;

    void PrintDirect() override;
    void PrintToFile(const QString &path) override;

    int RowCount() const;

    /// Opens the case of this row in a window of its own, which takes its place in the queue, and
    /// marks the row. A row that is no case opens nothing.
    void OpenCaseFromRow(int row);

    // What the starter hands over
    ListBox lboxQueue;
    QString lbl911; ///< "T" closes the window without a question

    // What the reports read
    bool SearchIncomplete = false; ///< a request failed in a way that loses results
    bool StopWarningFlag = false;
    QString SortColumnName;

protected:
    NameResultsWindow(ResultsWindow window, QWidget *parent);

    /// Takes the controls that the three windows share, under the same names in each, makes the
    /// columns and starts the timers: to be called once the controls are there.
    template<class Controls>
    void UseControls(const Controls &ui)
    {
        lblStatus = ui.lblStatus;
        lblSearchStatus = ui.lblSearchStatus;
        Label3 = ui.Label3;
        nameVal = ui.lblNameVal;
        lblCaseTypeVals = ui.lblCaseTypeVals;
        countyList = ui.txtCountyList;
        listview1 = ui.listview1;
        printButton = ui.cmdSearchResults_2;
        connectList(ui.cmdSearchResults_0);
        load(ui.cmdStopSearching);
    }

    /// What a reply means for the run; reading goes on when it means neither.
    struct ReplyEffect
    {
        bool EndsRequest = false;
        std::optional<SearchOutcome> EndsSearch = {};
    };
    virtual ReplyEffect TakeReply(const QString &reply);
    /// Adds a row of the server to the list. Throws error 9 when it has too few fields.
    virtual void AddRow(const QString &row) = 0;
    virtual void EndSearch(SearchOutcome outcome);
    /// What the window of the case in these cells gets.
    virtual CaseFromRow CaseOf(const QStringList &cells) const = 0;
    /// The button that retrieves what is chosen in the list: by itself, the selected case.
    virtual void RetrieveDetails();
    /// Whether that button can be pressed, now that something else is chosen.
    virtual void UpdateRetrieveButton();
    /// Sorts a list of the window by a column, as a click on its header does.
    void SortList(ResultListView *list, int column);
    /// The search is complete: the labels already read so.
    virtual void ShowCompletion() {}
    /// What a paged search has put in the place of other buttons goes.
    virtual void PutButtonsBack() {}

    /// Adds the cells of a row in the order of the columns. Throws error 9 when some are missing.
    void AddParsedRow(const QString &row, ResultKind kind);
    static ListLayout ListColumnsOf(ResultKind kind);

    void SetStatus(const QString &text, StatusStyle style);
    void SetSearchStatus(const QString &text, StatusStyle style);
    /// lblSearchStatus, of a search that has not ended.
    void ShowInProgress();
    void SetCount(const QString &text);
    void ShowCount(int rows);
    /// The count follows the rows of this list, each time that they are shown.
    void CountRowsOf(ResultListView *list);
    /// The same for a further list, which a screen reader tells of, too.
    void AlsoFills(ResultListView *list);
    /// Whether the window may ask the court for something. When nobody is logged in, the login is
    /// offered, and the user asks again once that is done.
    bool MaySearch();
    /// The window waits again, with the key that it has: what the user waits for begins here.
    void SearchAgain();
    /// A whole row has come: the count reads so many when the rows are shown next. A row that was
    /// cut short is not counted.
    void CountLater(int rows) { pendingCount = rows; }
    /// The last steps of every run: nothing to stop any more, the results can be printed, and the
    /// turn is the next job's.
    void FinishRun();

    void BeginTick() override;
    void ProcessSearchRequests() override;
    QString WorkingText() const override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void StopDone() override;
    bool QueryUnload(UnloadMode mode) override;
    bool event(QEvent *event) override;

    ResultListView *List() const { return listview1; }
    /// SortColumnName as it is after load.
    QString FirstSortColumn() const { return differences.sortColumn.toString(); }

private:
    void load(QPushButton *cmdStopSearching);
    void connectList(QPushButton *retrieve);
    void chooseRow(int row);
    std::optional<SearchOutcome> readReplies();
    SearchOutcome runRequests();
    bool sendLine(int index);
    void takeRow(const QString &reply);
    void addMaxResultsRows();
    void reportEmptyQueue();

    const ResultsWindowRow &differences;
    QLabel *lblStatus = nullptr;
    QLabel *lblSearchStatus = nullptr;
    QLabel *Label3 = nullptr;
    QLabel *nameVal = nullptr;
    QLabel *lblCaseTypeVals = nullptr;
    QLineEdit *countyList = nullptr;
    ResultListView *listview1 = nullptr;
    JobVoice *voice = nullptr;
    QPushButton *printButton = nullptr;
    QPushButton *retrieveButton = nullptr;
    QString countyOfRequest;
    int rowsOfRequest = 0;
    bool tooManyHits = false;
    bool CriteriaShown = false;
    bool closesUnasked = false;      ///< the box has told why, and the user has answered it
    std::optional<int> pendingCount; ///< what the count will read
    bool sortFlag = false;           ///< turned by every click on a header
    bool stoppedByUser = false;      ///< this time; StopRequested is for all pages of an index
};
