#include "casedetails/DiscisCaseJob.h"

#include "casedetails/DiscisSummary.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// Where a text of the reply goes. Each kind of case sends its own.
struct HeaderRow
{
    QString CaseRecord::*field;
    std::optional<QString> DiscisSummaryView::*text;
};
constexpr std::array headerRows{
    HeaderRow{&CaseRecord::lblCaseNo, &DiscisSummaryView::CaseNo},
    HeaderRow{&CaseRecord::lblCourtName, &DiscisSummaryView::CourtName},
    HeaderRow{&CaseRecord::lblDateFiled, &DiscisSummaryView::DateFiled},
    HeaderRow{&CaseRecord::lblCause, &DiscisSummaryView::Cause},
    HeaderRow{&CaseRecord::lblSuitAmt, &DiscisSummaryView::SuitAmt},
    HeaderRow{&CaseRecord::lblName, &DiscisSummaryView::Name},
    HeaderRow{&CaseRecord::lblSex, &DiscisSummaryView::Sex},
    HeaderRow{&CaseRecord::lblCourtType, &DiscisSummaryView::CourtType},
};
} // namespace

DiscisCaseJob::DiscisCaseJob(CaseKind caseKind) : CaseJob(caseKind) {}

/// Nobody hands over a heading: it reads as the caption of the window.
void DiscisCaseJob::BeginTick()
{
    CaseJob::BeginTick();
    Sheet.SetHeader(&CaseRecord::lblCaseDetailsHdr, Record.Caption);
}

void DiscisCaseJob::CutTabsToCase()
{
    Sheet.SetTabs(DiscisTabs(Record.Kind));
}

void DiscisCaseJob::ShowSummaryResponse()
{
    const DiscisSummaryView view = ReadDiscisSummary(Record.Kind, lboxResponses.Lines());
    if (view.CaseTitle)
        Sheet.SetTitle(*view.CaseTitle);
    for (const HeaderRow &row : headerRows) {
        if (const std::optional<QString> &text = view.*row.text)
            Sheet.SetHeader(row.field, *text);
    }
    Record.Tab(CaseTab::Summary).Notes = {view.Note.value_or(QString()),
                                          view.SumNote2.value_or(QString())};
    if (view.Status)
        EndNotLocated(*view.Status, view.CaptionSuffix.value_or(QString()));
    Sheet.ShowTable(CaseTab::Summary, view.Grid);
}

/// The court's own line stays: these are not the Superior Courts.
void DiscisCaseJob::ShowSummaryFailure(const QString &reason)
{
    Sheet.SetTitle(reason);
    Sheet.SetHeader(&CaseRecord::lblDateFiled, u"N/A"_s);
}
