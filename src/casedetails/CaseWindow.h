#pragma once

#include "jobs/JobWindow.h"
#include "jobs/ListBox.h"

/// The window of one case: waits for its turn on the link, and can be stopped meanwhile. This is
/// what the three case windows have in common.
///
/// The details themselves come with a later version: on its turn the window says so and lets the
/// next job go on.
class CaseWindow : public JobWindow
{
    Q_OBJECT
public:
    void SetCaseDetailsHdr(const QString &text);
    QString lblCaseDetailsHdr() const;
    void SetCourtName(const QString &text);
    QString lblCourtName() const;
    void SetCaseTitle(const QString &text);
    QString lblCaseTitle() const;
    void SetDateFiled(const QString &text);
    QString lblDateFiled() const;

    // What the starter hands over, besides the members of every job
    QString txtCaseNumber; ///< as in the list of results, with its "*" or ">>" if it has one
    QString txtCountyName;
    QString lblOrCourtType;      ///< Oregon: "C" for Circuit, anything else for District
    QString tboxCaseNumberQueue; ///< the request line of the summary
    ListBox lboxTabReqQueue;     ///< bankruptcy: the one request line
    bool chkBK = false;
    bool chkBKYass = false;    ///< the bankruptcy list of several cases is on the screen
    bool chkAutoPrint = false; ///< print when everything has come
    QString txtCourtCode;      ///< District and Municipal Courts: the court's three letters
    QString txtCaseType;       ///< District and Municipal Courts: "CV" or "IN"

    bool SearchStopped = false; ///< the case was not asked for to its end; the reports tell

protected:
    explicit CaseWindow(QWidget *parent);

    /// Takes the controls that the three windows share, under the same names in each, and starts
    /// the timers: to be called once the controls are there.
    template<class Controls>
    void UseControls(const Controls &ui)
    {
        header = ui.lblCaseDetailsHdr;
        courtName = ui.lblCourtName;
        caseTitle = ui.lblCaseTitle;
        dateFiled = ui.lblDateFiled;
        lblStatus = ui.lblStatus;
        lblWarning = ui.lblWarning;
        load(ui.cmdStopSearching, ui.cmdCloseDetails);
    }

    void BeginTick() override;
    void ProcessSearchRequests() override;
    QString WorkingText() const override;
    void ShowStopped(StopCase stopCase) override;
    QString StopRequest() const override;
    void StopPressed() override;
    bool QueryUnload(UnloadMode mode) override;
    void Unloading() override;
    void showEvent(QShowEvent *event) override;

private:
    void load(QPushButton *cmdStopSearching, QPushButton *cmdCloseDetails);

    QLabel *header = nullptr;
    QLabel *courtName = nullptr;
    QLabel *caseTitle = nullptr;
    QLabel *dateFiled = nullptr;
    QLabel *lblStatus = nullptr;
    QLabel *lblWarning = nullptr;
    bool wasShown = false;
};
