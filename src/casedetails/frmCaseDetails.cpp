#include "casedetails/frmCaseDetails.h"

#include "casedetails/SummaryReply.h"
#include "ui_frmCaseDetails.h"

#include <QLabel>

using namespace Qt::StringLiterals;

frmCaseDetails::frmCaseDetails(QWidget *parent)
    : CaseWindow(CaseKind::State, parent), ui(std::make_unique<Ui::frmCaseDetails>())
{
    ui->setupUi(this);
    ui->Label1_2->hide();
    UseTab(CaseTab::Summary, ui->frameTabs_0, ui->GridSummary);
    UseTab(CaseTab::Names, ui->frameTabs_1, ui->GridNames);
    UseTab(CaseTab::Docket, ui->frameTabs_2, ui->GridDocket);
    UseTab(CaseTab::Accounting, ui->frameTabs_3, ui->GridAcctg);
    UseTab(CaseTab::Judgments, ui->frameTabs_4, ui->GridJudgment);
    UseTab(CaseTab::Charges, ui->frameTabs_5, ui->GridCharges);
    UseTab(CaseTab::Sentence, ui->frameTabs_6, ui->GridSentence);
    UseTab(CaseTab::Schedule, ui->frameTabs_7, ui->GridSched);
    UseTab(CaseTab::Documents, ui->frameTabs_9, ui->GridDocuments);
    UseTab(CaseTab::Finance, ui->frameTabs_10, ui->gridFinance);
    UseCaseTitle(ui->lblCaseTitle);
    UseControls(*ui);
    connect(ui->GridSummary, &FlexGrid::RowActivated, this, &frmCaseDetails::GridSummary_DblClick);
    connect(ui->GridJudgment, &FlexGrid::RowActivated, this,
            &frmCaseDetails::GridJudgment_DblClick);
}

frmCaseDetails::~frmCaseDetails() = default;

void frmCaseDetails::SetTopFrameCaseType(const QString &text)
{
    ui->lblTopFrameCaseType->setText(text);
}

QString frmCaseDetails::lblTopFrameCaseType() const
{
    return ui->lblTopFrameCaseType->text();
}

void frmCaseDetails::CutTabsToCase()
{
    if (lblState == u"OR")
        SetOregonTabs();
    else if (lblState == u"ID")
        SetIdahoTabs();
    else
        SetWashingtonTabs(txtCaseNumber);
}

void frmCaseDetails::SetWashingtonTabs(const QString &number)
{
    SetTabs(WashingtonTabs(number));
}

void frmCaseDetails::SetOregonTabs()
{
    SetTabs(OregonTabs());
}

void frmCaseDetails::SetIdahoTabs()
{
    SetTabs(IdahoTabs());
}

void frmCaseDetails::ShowTab(CaseTab tab, bool incomplete, const QString &request)
{
    CaseWindow::ShowTab(tab, incomplete, request);
    // What Idaho puts there are numbers of counts, which stand against their text.
    constexpr Qt::Alignment rightTop = Qt::AlignRight | Qt::AlignTop;
    constexpr Qt::Alignment leftTop = Qt::AlignLeft | Qt::AlignTop;
    if (tab == CaseTab::Charges)
        ui->GridCharges->SetColumnAlignment(0, lblState == u"ID" ? rightTop : leftTop);
}

void frmCaseDetails::ShowSummaryResponse()
{
    applySummary(ReadSummary({.State = lblState,
                              .CountyName = txtCountyName,
                              .CaseTitle = lblCaseTitle(),
                              .CaseDetailsHdr = lblCaseDetailsHdr(),
                              .CourtName = lblCourtName()},
                             lboxResponses.Lines()));
}

void frmCaseDetails::applySummary(const SummaryView &view)
{
    if (view.CourtName)
        SetCourtName(*view.CourtName);
    if (view.TopFrameCaseType)
        SetTopFrameCaseType(*view.TopFrameCaseType);
    if (view.CaseTitle)
        SetCaseTitle(*view.CaseTitle);
    if (view.DateFiled)
        SetDateFiled(*view.DateFiled);
    if (view.Caption)
        setWindowTitle(*view.Caption);
    if (view.NotLocated)
        EndNotLocated(u"Search Stopped. Case Not Located."_s,
                      view.CaptionSuffix.value_or(QString()));
    if (view.MultipleLabel) {
        ui->Label1_2->setText(*view.MultipleLabel);
        ui->Label1_2->show();
    }
    if (view.Grid) {
        const bool items = view.Grid->HasHeader && view.Grid->Columns.size() == 2;
        ui->GridSummary->SetColumnAlignment(0, (items ? Qt::AlignRight : Qt::AlignLeft)
                                                   | Qt::AlignTop);
        ShowGrid(CaseTab::Summary, *view.Grid);
    }
    if (view.ActivateSummary)
        ActivateTab(CaseTabRowOf(CaseTab::Summary).caption.toString());
    if (view.Tabs)
        SetTabs(*view.Tabs);
    for (const QString &line : view.TabRequests)
        lboxTabReqQueue.AddItem(line);
    if (view.Multiple) {
        chkBKYass = true;
        List1 = view.List1;
    }
}

void frmCaseDetails::ShowSummaryFailure(const QString &reason)
{
    if (lblState != u"WA")
        return;
    SetCaseTitle(reason);
    SetCourtName(txtCountyName + u" County, Washington Superior Courts"_s);
    SetDateFiled(u"N/A"_s);
}
