#pragma once

#include "jobs/Job.h"
#include "jobs/ListBox.h"
#include "namesearch/CaseFromRow.h"
#include "namesearch/CourtLines.h"
#include "namesearch/ResultsWindows.h"
#include "namesearch/SearchOutcomes.h"
#include "records/ResultsRecord.h"

#include <optional>

/// What a search has to say to the user in the middle of its run.
class SearchTalk
{
public:
    SearchTalk() = default;
    virtual ~SearchTalk() = default;
    Q_DISABLE_COPY_MOVE(SearchTalk)

    /// There was nothing to ask for: tells the user.
    virtual void TellEmptyQueue() = 0;
    /// Nothing is left to be shown: goes without a question.
    virtual void CloseUnasked() = 0;
};

/// One name search: sends its request lines one after the other, keeps what comes back in its
/// record, and ends in one of a few outcomes.
///
/// This is what the searches of the three results windows have in common; in what they differ is a
/// row of the table in ResultsWindows.cpp, and which rows and criteria they have is in the searches
/// made from it.
class NameSearch : public Job
{
    Q_OBJECT
public:
    ResultsRecord Record;
    ListBox lboxQueue; ///< the request lines

    /// Who speaks for the search, until nobody looks at it any more.
    void UseTalk(SearchTalk *newTalk) { talk = newTalk; }

    /// Queues the search again, with the key it has, for further requests.
    void BeginSearching();

    /// Its name is that of the first line as long as the criteria are not shown.
    JobMatter Matter() const override;
    void ShowCriteria() override;
    /// Asks again for what failed, was stopped or was not asked, in the same words and under a new
    /// key. What comes is added to the rows; what the search has said of its end stays as it is,
    /// and Record.RetryText tells of the retry.
    void RetryFailed();
    /// No run waits or goes on, and something is missing.
    bool CanRetry() const;
    /// A retry waits or goes on.
    bool IsRetrying() const { return retrying; }
    /// Whether the user stopped the search; a retry changes nothing about that.
    bool WasStopped() const { return retrying ? before.Stopped : StopRequested; }

    /// Puts the criteria of a line of lboxQueue into the record. Throws error 9 when it has too few
    /// fields.
    virtual void ShowSearchCriteria(int lineIndex) = 0;
    /// Adds a row of the server. Throws error 9 when it has too few fields.
    virtual void AddRow(const QString &row) = 0;
    /// What the window of the case in these cells gets.
    virtual CaseStart CaseOf(const QStringList &cells) const = 0;
    /// The row has been opened: marks it, and gives what the window of its case gets.
    CaseStart OpenRow(int row);

    /// Puts texts where the search and its starter want them, and tells whoever shows them.
    virtual void SetNameVal(const QString &text);
    void SetText(QString ResultsRecord::*field, const QString &text);

    /// SortColumnName as it is at first.
    QString FirstSortColumn() const { return differences.sortColumn.toString(); }
    int RowCount() const { return Record.Rows.Count(); }

Q_SIGNALS:
    /// A run is over, and the lines of status say how. `whole` when every row that there is has
    /// come, of all pages.
    void RunEnded(bool whole);
    /// The columns are others now: one that says that there is too much, or those of the kind.
    void ColumnsChanged();
    /// Record.Courts or Record.RetryText reads otherwise.
    void CourtsChanged();
    /// A retry has come to its end, of its own or stopped by the user.
    void RetryEnded(bool stoppedByUser);

protected:
    /// `name` is the kind of the job, `window` that of the window which shows the search.
    NameSearch(JobKindName name, ResultsWindow window);

    /// What a reply means for the run; reading goes on when it means neither.
    struct ReplyEffect
    {
        bool EndsRequest = false;
        std::optional<SearchOutcome> EndsSearch = {};
    };
    virtual ReplyEffect TakeReply(const QString &reply);
    virtual void EndSearch(SearchOutcome outcome);
    /// The search is complete: the lines of status already read so.
    virtual void ShowCompletion() {}
    /// What a paged search has offered is not to be had any more.
    virtual void WithdrawOffer() {}

    /// Adds a row, unless the list has it from an earlier answer to the same request.
    void AddRowOnce(const QString &row);
    /// Whether a row names a person in place of a case.
    virtual bool NamesPerson(const QString & /*row*/) const { return false; }
    /// What the server says is wrong when a message of its own ends the search; "" when nothing is.
    virtual QString ServerTrouble() const { return {}; }
    virtual void BeginRetry() {}
    /// The last steps of a retry: nothing that the search says of its end changes.
    virtual void EndRetry(SearchOutcome outcome);
    /// A search that found too many and listed none has put a notice in the place of the cases.
    void ShowCaseColumnsAgain();

    /// The court has reported an error: rows may be missing, whatever the outcome.
    void NoteError() { errorSeen = true; }
    /// Adds the cells of a row in the order of the columns. Throws error 9 when some are missing.
    void AddParsedRow(const QString &row, ResultKind rowKind);

    void SetSearchStatus(const QString &text, StatusStyle style);
    /// lblSearchStatus, of a search that has not ended.
    void ShowInProgress();
    void SetCount(const QString &text);
    void ShowCount(int rows);
    /// A whole row has come: the count reads so many when the rows are shown next. A row that was
    /// cut short is not counted.
    void CountLater(int rows);
    /// Waits again, with the key that it has: what the user waits for begins here.
    void SearchAgain();
    /// The last steps of every run: nothing to stop any more, the results can be printed, and the
    /// turn is the next job's.
    void FinishRun();

    void BeginTick() override;
    void ProcessSearchRequests() override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void StopDone() override;
    void GivenUp() override;

    CourtLines courts{Record.Courts}; ///< writes them

private:
    std::optional<SearchOutcome> readReplies();
    SearchOutcome runRequests();
    SearchOutcome runRetry();
    SearchOutcome runSafely(SearchOutcome (NameSearch::*run)());
    std::optional<SearchOutcome> askLine(const QString &line);
    bool sendLine(const QString &request);
    void listCourts();
    void noteOutcome(SearchOutcome outcome);
    void leaveRequests();
    void endRetryState(bool stopped);
    void showStoppedTexts(StopCase stopCase);
    void takeRow(const QString &reply);
    void addMaxResultsRows();
    void reportEmptyQueue();

    SearchTalk *talk = nullptr;
    const JobKindName jobKind;
    const ResultsWindowRow &differences;
    QString countyOfRequest;
    int rowsOfRequest = 0;
    bool tooManyHits = false;
    bool errorSeen = false; ///< of any run
    bool CriteriaShown = false;
    bool stoppedByUser = false; ///< this time; StopRequested is for all pages of an index

    QString lostBecause; ///< why a request ended as lost
    bool retrying = false;
    QList<qsizetype> toRetry; ///< the lines of Record.Courts that the retry asks
    /// What the search said of its end before the retry.
    struct
    {
        bool Stopped = false;
        bool Incomplete = false;
    } before;
};
