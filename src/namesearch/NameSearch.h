#pragma once

#include "jobs/Job.h"
#include "jobs/ListBox.h"
#include "namesearch/CaseFromRow.h"
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
    void SetCaption(const QString &text);
    void SetCaseTypeVals(const QString &text);
    void SetTxtCountyList(const QString &text);
    void SetCourtCounty(const QString &text);

    /// SortColumnName as it is at first.
    QString FirstSortColumn() const { return differences.sortColumn.toString(); }
    int RowCount() const { return Record.Rows.Count(); }

Q_SIGNALS:
    /// A run is over, and the lines of status say how. `whole` when every row that there is has
    /// come, of all pages.
    void RunEnded(bool whole);
    /// The columns are others now: one that says that there is too much, or those of the kind.
    void ColumnsChanged();

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
    void GivenUp() override { talk = nullptr; }

private:
    std::optional<SearchOutcome> readReplies();
    SearchOutcome runRequests();
    bool sendLine(int index);
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
};
