// From checked entries to a window that waits for its turn.

#include "searchentry/SearchDispatch.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "controls/MsgBox.h"
#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/Counties.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/BankruptcyRequests.h"
#include "searchentry/DiscisRequests.h"
#include "searchentry/NameRequests.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/SearchTitles.h"
#include "session/NewWindow.h"

using namespace Qt::StringLiterals;

namespace {
RequestContext contextOf(const SearchEntry &entry)
{
    RequestContext context;
    if (entry.Court == CourtFamily::Superior && entry.Where == SearchScope::Statewide) {
        GetCountyCount(u"WA"_s);
        context.StateCounties = WaCountyList();
    }
    context.PageSize = Global.CasesPerPage;
    context.ThisYear = Clock::Current().Now().date().year();
    context.Turn = Yield;
    return context;
}

void fillLines(ListBox &list, const QStringList &lines)
{
    for (const QString &line : lines)
        list.AddItem(line);
}

/// What a dispatch needs beside the entries themselves.
struct Handing
{
    QString code; ///< the client accounting code
    ShownRecents &recents;
};

/// What was searched for goes on top of its list, unless it stands there already.
void rememberEntry(const SearchEntry &entry, const Handing &handing)
{
    RememberEntry(RecentEntryType(entry), RecentEntryText(entry), handing.recents);
}

DispatchResult nameSearch(const SearchEntry &entry, const Handing &handing)
{
    // Before the window: reading the counties may show a box.
    const RequestContext context = contextOf(entry);
    const NameResultsFields fields = NameResultsFieldsOf(entry);
    NewWindow form(new frmNameSearchResults(fields.lblState, fields.chkIndexSearch));
    form->ClientAcctgCode = handing.code;
    if (!LoadNameSearchRequests(*form, entry, context)) {
        form->lbl911 = u"T"_s;
        return DispatchResult::NoRequests;
    }
    form.GiveKey();
    form->SetTxtCountyList(fields.txtCountyList);
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

template<typename Window>
DispatchResult discisNameSearch(const SearchEntry &entry, const Handing &handing)
{
    if (entry.Where == SearchScope::DiscisNonCivil)
        Global.DiscisDndSearch = IsDndSearch(entry);
    NewWindow form(new Window);
    form->ClientAcctgCode = handing.code;
    if (!LoadDiscisNameRequests(*form, entry))
        return DispatchResult::Failed;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

template<typename Window>
DispatchResult discisNumberSearch(const SearchEntry &entry, const Handing &handing)
{
    NewWindow form(new Window);
    form->ClientAcctgCode = handing.code;
    if (!LoadDiscisCaseNumberFields(*form, entry))
        return DispatchResult::Failed;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

DispatchResult numberSearch(const SearchEntry &entry, const Handing &handing)
{
    NewWindow form(new frmCaseDetails);
    form->ClientAcctgCode = handing.code;
    if (!DoCaseNumberSearch(*form, entry))
        return DispatchResult::Failed;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

frmNameSearchResults *newBankruptcyResults(const QString &state)
{
    // The window takes its columns while it loads, before it knows its state: the flag says
    // which.
    Global.BkFormLoading = true;
    auto *form = new frmNameSearchResults(QString());
    Global.BkFormLoading = false;
    form->lblState = state;
    return form;
}

DispatchResult bankruptcyResults(const SearchEntry &entry, int court, const Handing &handing)
{
    const BkResultsFields fields = BkResultsFieldsOf(entry, court);
    NewWindow form(newBankruptcyResults(fields.lblState));
    form->chkBK = true;
    if (!fields.lblName.isEmpty())
        form->SetLabelName(fields.lblName);
    form->SetTxtCountyList(fields.txtCountyList);
    form->SetCaseTypeVals(fields.lblCaseTypeVals);
    form->SetNameVal(fields.lblNameVal);
    form->ClientAcctgCode = handing.code;
    if (!LoadBkSearchParams(form->lboxQueue, entry, court)) {
        form->lbl911 = u"T"_s;
        return DispatchResult::NoRequests;
    }
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

DispatchResult bankruptcyCase(const SearchEntry &entry, int court, const Handing &handing)
{
    NewWindow form(new frmCaseDetails);
    FillCaseWindow(*form, BkNumberFields(entry, court));
    form->ClientAcctgCode = handing.code;
    if (!LoadBkSearchParams(form->lboxTabReqQueue, entry, court))
        return DispatchResult::NoRequests;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

DispatchResult bankruptcySearch(const SearchEntry &entry, const Handing &handing)
{
    DispatchResult result = DispatchResult::Nothing;
    for (int court = 0; court < bkCourtCount; ++court) {
        if (!entry.BkCourts.at(static_cast<size_t>(court)))
            continue;
        result = entry.Kind == SearchKind::Number ? bankruptcyCase(entry, court, handing)
                                                  : bankruptcyResults(entry, court, handing);
        if (result != DispatchResult::Waiting)
            break;
    }
    return result;
}

bool isNumber(const SearchEntry &entry)
{
    return entry.Kind == SearchKind::Number;
}

DispatchResult countySearch(const SearchEntry &entry, const Handing &handing)
{
    return isNumber(entry) ? numberSearch(entry, handing) : nameSearch(entry, handing);
}

DispatchResult discisSearch(const SearchEntry &entry, const Handing &handing)
{
    const bool civil = entry.Where == SearchScope::DiscisCivil;
    if (isNumber(entry))
        return civil ? discisNumberSearch<frmCivilCaseDetails>(entry, handing)
                     : discisNumberSearch<frmNCCaseDetails>(entry, handing);
    return civil ? discisNameSearch<frmDiscisNameResults>(entry, handing)
                 : discisNameSearch<frmDiscisNCNameResults>(entry, handing);
}

/// Who builds the search of a court family.
struct DispatchRow
{
    CourtFamily court;
    DispatchResult (*start)(const SearchEntry &entry, const Handing &handing);
};
constexpr std::array<DispatchRow, 5> dispatchRows{{
    {CourtFamily::Superior, countySearch},
    {CourtFamily::Discis, discisSearch},
    {CourtFamily::Oregon, countySearch},
    {CourtFamily::Idaho, countySearch},
    {CourtFamily::Bankruptcy, bankruptcySearch},
}};
} // namespace

bool LoadNameSearchRequests(frmNameSearchResults &form, const SearchEntry &entry,
                            const RequestContext &context)
{
    const NameResultsFields fields = NameResultsFieldsOf(entry);
    form.chkIndexSearch = fields.chkIndexSearch;
    form.ORchkboxJGMcasetype = fields.ORchkboxJGMcasetype;
    form.OrStatewide = fields.OrStatewide;
    form.IdStatewide = fields.IdStatewide;
    fillLines(form.lboxQueue, NameRequests(entry, context));
    return entry.Court == CourtFamily::Superior || form.lboxQueue.ListCount() > 0;
}

bool LoadDiscisNameRequests(DiscisResultsWindow &form, const SearchEntry &entry)
{
    const DiscisRequests requests = DiscisNameRequests(entry, Yield);
    if (!requests.Ok)
        return false;
    fillLines(form.lboxQueue, requests.Lines);
    form.SetNameVal(requests.NameVal);
    form.SetCourtCounty(requests.CourtCounty);
    if (!requests.CaseTypeVals.isEmpty())
        form.SetCaseTypeVals(requests.CaseTypeVals);
    form.SetTxtCountyList(requests.CountyList);
    return true;
}

bool LoadDiscisCaseNumberFields(DiscisCaseWindow &form, const SearchEntry &entry)
{
    const std::optional<DiscisNumber> fields = DiscisNumberFields(entry);
    if (!fields)
        return false;
    form.setWindowTitle(fields->Caption);
    form.SetCaseType(fields->lblCaseType);
    form.txtCaseType = fields->txtCaseType;
    form.SetCourtName(fields->lblCourtName);
    form.txtCaseNumber = fields->txtCaseNumber;
    form.SetCaseNo(fields->lblCaseNo);
    form.txtCourtCode = fields->txtCourtCode;
    return true;
}

bool LoadBkSearchParams(ListBox &list, const SearchEntry &entry, int courtIndex)
{
    list.Clear();
    const std::optional<QString> line =
        BkRequest(entry, courtIndex, Clock::Current().Now().date().year());
    if (line)
        list.AddItem(*line);
    return line.has_value();
}

void FillCaseWindow(frmCaseDetails &form, const CaseFields &fields)
{
    form.lblState = fields.lblState;
    form.SetCaseDetailsHdr(fields.lblCaseDetailsHdr);
    if (!fields.Caption.isEmpty())
        form.setWindowTitle(fields.Caption);
    form.txtCountyName = fields.txtCountyName;
    if (!fields.lblCourtName.isEmpty())
        form.SetCourtName(fields.lblCourtName);
    form.lblOrCourtType = fields.lblOrCourtType;
    form.txtCaseNumber = fields.txtCaseNumber;
    form.tboxCaseNumberQueue = fields.tboxCaseNumberQueue;
    form.chkBK = fields.chkBK;
}

bool DoCaseNumberSearch(frmCaseDetails &form, const SearchEntry &entry)
{
    try {
        FillCaseWindow(form, NumberFields(entry));
        return true;
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Executing Case Number Search: DoCaseNumberSearch(): Error: "_s
                     + error.Description());
        return false;
    }
}

void LaunchBatchCase(const CaseFields &fields, const QString &code, bool autoPrint)
{
    NewWindow form(new frmCaseDetails);
    form->chkAutoPrint = autoPrint;
    FillCaseWindow(*form, fields);
    form->ClientAcctgCode = code;
    form.GiveKey();
    form.Launch();
}

DispatchResult DispatchSearch(const SearchEntry &entry, const QString &code, ShownRecents &recents)
{
    return dispatchRows.at(static_cast<size_t>(entry.Court)).start(entry, {code, recents});
}
