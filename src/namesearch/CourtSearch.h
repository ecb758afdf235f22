#pragma once

#include "namesearch/NameSearch.h"
#include "namesearch/ServerMessages.h"

/// A Superior, Oregon, Idaho, Bankruptcy or Index name search.
///
/// An index search comes in pages: the server ends a page with a warning that more rows are to be
/// had, and the search can be queued again for them.
class CourtSearch : public NameSearch
{
    Q_OBJECT
public:
    /// `state` is a value of lblState; it decides the columns, with `indexSearch`.
    CourtSearch(const QString &state, bool indexSearch);

    void ShowSearchCriteria(int lineIndex) override;
    void AddRow(const QString &row) override;
    CaseStart CaseOf(const QStringList &cells) const override;

    /// Asks for the page that was offered.
    void GetNextPage();
    bool PageOffered() const { return pageOffered; }
    bool PageTaken() const { return pageTaken; }
    /// Whether that page can be asked for now: not while failed requests are retried.
    bool CanTakePage() const { return pageOffered && !pageTaken && !IsRetrying(); }
    /// How many rows that page has, as the server wrote it.
    QString PageCount() const { return pageCount; }

    bool chkBK;
    QString Label2 = QStringLiteral("Search Results"); ///< what stands above the list
    qint16 SearchRunCount = 1;                         ///< plus 1 for each further page
    // The rows of the next page of an index search, counted from 1; 0 as long as none was offered
    qint16 NextLowerLimit = 0;
    qint16 NextUpperLimit = 0;

protected:
    ReplyEffect TakeReply(const QString &reply) override;
    void EndSearch(SearchOutcome outcome) override;
    void WithdrawOffer() override;
    QString ServerTrouble() const override;
    void EndRetry(SearchOutcome outcome) override;

private:
    /// By what the search is now: its starter may have taken the index mark back after the load.
    ResultKind kindOfRows() const;
    ReplyEffect takeIndexReply(const QString &reply);
    void showServerMessage();
    void offerNextPage();
    void offerPage(const NextPage &page);
    void offerPageOfRetry();
    void clearServerTexts();

    bool pageOffered = false;
    bool pageTaken = false; ///< the page that was offered has been asked for
    QString pageCount;
    // The rows with which the server reported trouble in an index search
    bool ServerErrorSeen = false;
    QString ServerErrorText;
    bool ServerWarningSeen = false;
    QString ServerWarningText;
};
