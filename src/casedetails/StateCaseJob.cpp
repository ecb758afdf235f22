#include "casedetails/StateCaseJob.h"

#include "casedetails/SummaryReply.h"

using namespace Qt::StringLiterals;

namespace {
constexpr Qt::Alignment rightTop = Qt::AlignRight | Qt::AlignTop;
constexpr Qt::Alignment leftTop = Qt::AlignLeft | Qt::AlignTop;
} // namespace

StateCaseJob::StateCaseJob() : CaseJob(CaseKind::State) {}

void StateCaseJob::CutTabsToCase()
{
    if (Record.lblState == u"OR")
        SetOregonTabs();
    else if (Record.lblState == u"ID")
        SetIdahoTabs();
    else
        SetWashingtonTabs(Record.txtCaseNumber);
}

void StateCaseJob::SetWashingtonTabs(const QString &number)
{
    Sheet.SetTabs(WashingtonTabs(number));
}

void StateCaseJob::SetOregonTabs()
{
    Sheet.SetTabs(OregonTabs());
}

void StateCaseJob::SetIdahoTabs()
{
    Sheet.SetTabs(IdahoTabs());
}

void StateCaseJob::ShowTab(CaseTab tab, bool incomplete, const QString &request)
{
    // What Idaho puts there are numbers of counts, which stand against their text.
    if (tab == CaseTab::Charges)
        Record.Tab(tab).FirstColumn = Record.lblState == u"ID" ? rightTop : leftTop;
    CaseJob::ShowTab(tab, incomplete, request);
}

void StateCaseJob::ShowSummaryResponse()
{
    applySummary(ReadSummary({.State = Record.lblState,
                              .CountyName = Record.txtCountyName,
                              .CaseTitle = Record.lblCaseTitle,
                              .CaseDetailsHdr = Record.lblCaseDetailsHdr,
                              .CourtName = Record.lblCourtName},
                             lboxResponses.Lines()));
}

void StateCaseJob::showHeader(const SummaryView &view)
{
    const auto show = [this](QString CaseRecord::*field, const std::optional<QString> &text) {
        if (text)
            Sheet.SetHeader(field, *text);
    };
    show(&CaseRecord::lblCourtName, view.CourtName);
    show(&CaseRecord::lblTopFrameCaseType, view.TopFrameCaseType);
    // The courts send a chapter for it, which stands behind the title.
    if (!view.TopFrameCaseType && Record.IsBankruptcy())
        Sheet.SetHeader(&CaseRecord::lblTopFrameCaseType, u"Bankruptcy"_s);
    if (view.CaseTitle)
        Sheet.SetTitle(*view.CaseTitle);
    show(&CaseRecord::lblDateFiled, view.DateFiled);
    show(&CaseRecord::Caption, view.Caption);
    show(&CaseRecord::MultipleLabel, view.MultipleLabel);
}

void StateCaseJob::applySummary(const SummaryView &view)
{
    showHeader(view);
    InvalidNumber = view.InvalidNumber;
    Record.NoSuchCase |= view.NoSuchCase;
    if (view.NotLocated)
        EndNotLocated(u"Search Stopped. Case Not Located."_s,
                      view.CaptionSuffix.value_or(QString()));
    if (view.Grid) {
        const bool items = view.Grid->HasHeader && view.Grid->Columns.size() == 2;
        Record.Tab(CaseTab::Summary).FirstColumn = items ? rightTop : leftTop;
        Sheet.ShowTable(CaseTab::Summary, *view.Grid);
    }
    if (view.ActivateSummary)
        ActivateTab(CaseTabRowOf(CaseTab::Summary).caption.toString());
    if (view.Tabs)
        Sheet.SetTabs(*view.Tabs);
    for (const QString &line : view.TabRequests)
        lboxTabReqQueue.AddItem(line);
    if (view.Multiple) {
        Record.chkBKYass = true;
        Record.List1 = view.List1;
    }
}

void StateCaseJob::ShowSummaryFailure(const QString &reason)
{
    if (Record.lblState != u"WA")
        return;
    Sheet.SetTitle(reason);
    Sheet.SetHeader(&CaseRecord::lblCourtName,
                    Record.txtCountyName + u" County, Washington Superior Courts"_s);
    Sheet.SetHeader(&CaseRecord::lblDateFiled, u"N/A"_s);
}
