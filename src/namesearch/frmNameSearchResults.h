#pragma once

#include "namesearch/CourtSearch.h"
#include "namesearch/NameResultsWindow.h"

#include <array>
#include <memory>

namespace Ui {
class frmNameSearchResults;
}

/// The results of a Superior, Oregon, Idaho, Bankruptcy or Index name search.
///
/// The button Get Next asks for the next page of an index search, when there is one.
class frmNameSearchResults : public NameResultsWindow
{
    Q_OBJECT
public:
    /// `state` is what lblState will hold; it decides the columns, with `indexSearch`.
    explicit frmNameSearchResults(const QString &state, bool indexSearch = false,
                                  QWidget *parent = nullptr);
    ~frmNameSearchResults() override;

    void InitListView() override;

    /// Adds a row of the server to the list. Throws error 9 when it has too few fields.
    void AddResultRow(const QString &row) { search->AddRow(row); }

    /// What stands in front of the name: "Name:", "Tax ID#:" or "SSN#".
    void SetLabelName(const QString &text);

private:
    frmNameSearchResults(CourtSearch *ownSearch, QWidget *parent);

    CourtSearch *const search;

public:
    // What the starter hands over, besides the members of every results window
    bool &chkIndexSearch;
    bool &chkBK;
    bool OrStatewide = false;
    bool IdStatewide = false;
    bool ORchkboxJGMcasetype = false; ///< only cases with judgments were asked for

    qint16 &SearchRunCount;
    qint16 &NextLowerLimit;
    qint16 &NextUpperLimit;

protected:
    void ShowStatus() override;

private:
    void cmdGetNext_Click();
    void showPageButton(bool nextPage);

    const std::unique_ptr<Ui::frmNameSearchResults> ui;
    std::array<QPushButton *, 7> cmdSearchResults{};
};
