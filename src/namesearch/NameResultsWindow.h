#pragma once

#include "jobs/JobWindow.h"
#include "namesearch/NameSearch.h"
#include "reports/ReportViewer.h"
#include "reports/ResultsReport.h"

#include <QString>

#include <memory>

class CourtStrip;
class QLineEdit;
class ResultListView;
struct ListLayout;

/// The results window of one name search: shows its record, and hands over what the user does.
///
/// This is what the three results windows have in common. What the search does is the business of
/// NameSearch and of the searches made from it.
class NameResultsWindow : public JobWindow, private SearchTalk
{
    Q_OBJECT
public:
    NameSearch &Search() const { return *search; }

    /// Queues the window again, with the key it has, for further requests.
    void BeginSearching() { search->BeginSearching(); }

    bool HasReport() const override { return true; }
    void PrintDirect() override;
    void PrintToFile(const QString &path) override;
    /// Shows the report of the list, as it is now, as it will be printed.
    virtual void PrintResults();
    /// Asks where to save the report, and saves it there.
    void SaveResultsDialog();
    /// Saves the report in the folder of reports, and opens a mail with it.
    void EmailResults();

    virtual void InitListView() = 0;
    void ShowHeaderIcon(int column, Qt::SortOrder order, bool show);
    /// Shows the criteria of a line of lboxQueue. Throws error 9 when it has too few fields.
    void ShowSearchCriteria(int lineIndex) { search->ShowSearchCriteria(lineIndex); }

    void SetNameVal(const QString &text) { search->SetNameVal(text); }
    QString lblNameVal() const { return search->Record.lblNameVal; }
    void SetCaption(const QString &text) { search->SetText(&ResultsRecord::Caption, text); }
    void SetCaseTypeVals(const QString &text)
    {
        search->SetText(&ResultsRecord::lblCaseTypeVals, text);
    }
    void SetTxtCountyList(const QString &text)
    {
        search->SetText(&ResultsRecord::txtCountyList, text);
    }
    QString txtCountyList() const { return search->Record.txtCountyList; }

    int RowCount() const { return search->RowCount(); }

    /// Opens the case of this row in a window of its own, which takes its place in the queue, and
    /// marks the row. A row that is no case opens nothing.
    void OpenCaseFromRow(int row);

private:
    NameSearch *const search;

public:
    // What the starter hands over
    ListBox &lboxQueue;
    QString lbl911; ///< "T" closes the window without a question

    // What the reports read
    bool &SearchIncomplete; ///< a request failed in a way that loses results
    bool &StopWarningFlag;
    QString &SortColumnName;

protected:
    NameResultsWindow(NameSearch *ownSearch, QWidget *parent);

    /// Takes the controls that the three windows share, under the same names in each, makes the
    /// columns and starts the timers: to be called once the controls are there.
    template<class Controls>
    void UseControls(const Controls &ui)
    {
        lblSearchStatus = ui.lblSearchStatus;
        Label3 = ui.Label3;
        nameVal = ui.lblNameVal;
        lblCaseTypeVals = ui.lblCaseTypeVals;
        countyList = ui.txtCountyList;
        listview1 = ui.listview1;
        printButton = ui.cmdSearchResults_2;
        connectStrip(ui.courtStrip);
        connectList(ui.cmdSearchResults_0);
        load(ui.lblStatus, ui.cmdStopSearching);
    }

    /// The button that retrieves what is chosen in the list: by itself, the selected case.
    virtual void RetrieveDetails();
    /// Turns that button on or off, now that something else is chosen.
    virtual void UpdateRetrieveButton();
    /// Sorts a list of the window by a column, as a click on its header does.
    void SortList(ResultListView *list, int column);
    /// Shows every row that has come.
    virtual void FlushRows();
    static ListLayout ListColumnsOf(ResultKind kind);
    /// The list above the strip of the courts: the Tab key goes on from it.
    virtual ResultListView *LastList() const { return listview1; }
    /// The list that a report is about: the one in front.
    virtual ReportedList Reported() const { return CasesOf(search->Record); }
    void ConnectReportButtons(QPushButton *save, QPushButton *email);
    /// A further list, whose rows the count follows and a screen reader tells of, too.
    void AlsoCountsRowsOf(ResultListView *list);
    /// Whether the window may ask the court for something. When nobody is logged in, the login is
    /// offered, and the user asks again once that is done.
    bool MaySearch();

    void ShowState() override;
    void ShowStatus() override;
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;
    bool event(QEvent *event) override;

    ResultListView *List() const { return listview1; }

private:
    void TellEmptyQueue() override;
    void CloseUnasked() override;

    void load(QLabel *lblStatus, QPushButton *cmdStopSearching);
    void connectList(QPushButton *retrieve);
    void connectStrip(CourtStrip *strip);
    void retryFailed();
    void chooseRow(int row);
    bool mayOpenRow(int row);
    QString noteOfRow(int row) const;
    void showCount();
    void showColumns();
    ReportSituation situation() const;
    bool saveReport(const QString &path);
    QString caption() const;

    std::unique_ptr<ReportViewer> preview;
    QLabel *lblSearchStatus = nullptr;
    QLabel *Label3 = nullptr;
    QLabel *nameVal = nullptr;
    QLabel *lblCaseTypeVals = nullptr;
    QLineEdit *countyList = nullptr;
    ResultListView *listview1 = nullptr;
    QPushButton *printButton = nullptr;
    CourtStrip *courtStrip = nullptr;
    QPushButton *retrieveButton = nullptr;
    QString shownCaption;
    QString shownCounties;
    bool closesUnasked = false; ///< the box has said why, and the user has answered it
    bool sortFlag = false;      ///< turned by every click on a header
};
