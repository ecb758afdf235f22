// What is entered on the search form, and the ways from there to a search.

#include "searchentry/BatchEntries.h"
#include "searchentry/CourtDisclaimers.h"
#include "searchentry/SearchControls.h"
#include "searchentry/SearchStart.h"
#include "searchentry/Slips.h"
#include "searchentry/frmSearchWA.h"

namespace {
enum BatchButton { RetrieveAndPrint, SameCounties, Reset, SaveDefaultCounty, Retrieve };
} // namespace

SearchEntry frmSearchWA::Entry() const
{
    SearchEntry entry = ui->Entered(state.Court);
    entry.Court = state.Court;
    entry.Kind = state.Kind;
    entry.CourtName = courtDisplayName;
    entry.Where = static_cast<SearchScope>(intSearchWhere);
    entry.InBatch = state.Batch;
    return entry;
}

QString frmSearchWA::SlipOnForm() const
{
    return SlipIn(Entry(), Shows(FormPart::Years) || Shows(FormPart::BankruptcyYears));
}

void frmSearchWA::AddRecordToSearchList()
{
    searchList.append(::AddRecordToSearchList(Entry()));
}

bool frmSearchWA::ValidateAllFormFields(SearchEntry &entry)
{
    return start->ValidateAllFormFields(entry);
}

bool frmSearchWA::ValidateBkFormFields(SearchEntry &entry)
{
    return start->ValidateBkFormFields(entry);
}

bool frmSearchWA::ValidateBatchSearchFields(SearchEntry &entry)
{
    return start->ValidateBatchSearchFields(entry);
}

bool frmSearchWA::DisplayWaCourtDisclaimer()
{
    return DisplayCourtDisclaimer(this, u"WA");
}

bool frmSearchWA::DisplayOrCourtDisclaimer()
{
    return DisplayCourtDisclaimer(this, u"OR");
}

bool frmSearchWA::DisplayIdCourtDisclaimer()
{
    return DisplayCourtDisclaimer(this, u"ID");
}

void frmSearchWA::cmdBeginSearch_Click()
{
    if (state.Batch) {
        // A batch has buttons of its own: Enter goes on to the next number instead.
        focusNextChild();
        focusNextChild();
        return;
    }
    start->Begin();
}

void frmSearchWA::cmdBatchSearch_Click(int index)
{
    const RunScope scope(this);
    switch (index) {
    case SameCounties:
        batch->SetSameCounties();
        break;
    case Reset:
        batch->ResetBatchFields(state.Court);
        break;
    case SaveDefaultCounty:
        batch->SetDefaultCounty(state.Court, this);
        break;
    case RetrieveAndPrint:
    case Retrieve:
        start->BeginBatch(index == RetrieveAndPrint);
        break;
    default:
        break;
    }
}
