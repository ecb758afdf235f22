#pragma once

#include "namesearch/NameResultsWindow.h"

#include <array>
#include <memory>

namespace Ui {
class frmNameSearchResults;
}

/// The results of a Superior, Oregon, Idaho, Bankruptcy or Index name search.
///
/// An index search comes in pages: the server ends a page with a warning that more rows are to be
/// had, and the button Get Next queues the window again for them.
class frmNameSearchResults : public NameResultsWindow
{
    Q_OBJECT
public:
    /// `state` is what lblState will hold; it decides the columns, with `indexSearch`. A window
    /// that is made while Global.BkFormLoading is set is a bankruptcy window, too.
    explicit frmNameSearchResults(const QString &state, bool indexSearch = false,
                                  QWidget *parent = nullptr);
    ~frmNameSearchResults() override;

    void InitListView() override;

    /// Adds a row of the server to the list. Throws error 9 when it has too few fields.
    void AddResultRow(const QString &row);

    void ShowSearchCriteria(int lineIndex) override;

    /// What stands in front of the name: "Name:", "Tax ID#:" or "SSN#".
    void SetLabelName(const QString &text);

    // What the starter hands over, besides the members of every results window
    bool chkIndexSearch = false;
    bool chkBK = false;
    bool OrStatewide = false;
    bool IdStatewide = false;
    bool ORchkboxJGMcasetype = false; ///< only cases with judgments were asked for

    qint16 SearchRunCount = 1; ///< plus 1 for each further page
    // The rows of the next page of an index search, counted from 1; 0 as long as none was offered
    qint16 NextLowerLimit = 0;
    qint16 NextUpperLimit = 0;

protected:
    ReplyEffect TakeReply(const QString &reply) override;
    void AddRow(const QString &row) override;
    CaseFromRow CaseOf(const QStringList &cells) const override;
    void EndSearch(SearchOutcome outcome) override;
    void PutButtonsBack() override;

private:
    ReplyEffect takeIndexReply(const QString &reply);
    void showServerMessage();
    void offerNextPage();
    void clearServerTexts();
    void cmdGetNext_Click();
    void showPageButton(bool nextPage);

    const std::unique_ptr<Ui::frmNameSearchResults> ui;
    std::array<QPushButton *, 7> cmdSearchResults{};
    ResultKind kind;
    // The rows with which the server reported trouble in an index search
    bool ServerErrorSeen = false;
    QString ServerErrorText;
    bool ServerWarningSeen = false;
    QString ServerWarningText;
};
