// From checked entries to a window that waits for its turn.

#include "searchentry/SearchDispatch.h"
#include "casedetails/CaseWindow.h"
#include "casedetails/CaseWindows.h"
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
#include "searchentry/EntryText.h"
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
    form->Search().Record.Origin = TextOfEntry(AsAsked(entry));
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

DispatchResult discisNameSearch(DiscisResultsWindow *window, const SearchEntry &entry,
                                const Handing &handing)
{
    NewWindow form(window);
    form->ClientAcctgCode = handing.code;
    form->Search().Record.Origin = TextOfEntry(AsAsked(entry));
    if (!LoadDiscisNameRequests(*form, entry))
        return DispatchResult::Failed;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

/// Fills a case window, given with the client accounting code. False when there is nothing to ask.
using FillCase = bool (*)(CaseWindow &form, const SearchEntry &entry, const QString &code);

DispatchResult caseByNumber(CaseKind kind, FillCase fill, const SearchEntry &entry,
                            const Handing &handing)
{
    NewWindow form(MakeCaseWindow(kind));
    if (!fill(*form, entry, handing.code))
        return DispatchResult::Failed;
    form.GiveKey();
    rememberEntry(entry, handing);
    form.Launch();
    return DispatchResult::Waiting;
}

DispatchResult numberSearch(const SearchEntry &entry, const Handing &handing)
{
    return caseByNumber(CaseKind::State, DoCaseNumberSearch, entry, handing);
}

DispatchResult bankruptcyResults(const SearchEntry &entry, int court, const Handing &handing)
{
    const BkResultsFields fields = BkResultsFieldsOf(entry, court);
    NewWindow form(new frmNameSearchResults(fields.lblState));
    if (!fields.lblName.isEmpty())
        form->SetLabelName(fields.lblName);
    form->SetTxtCountyList(fields.txtCountyList);
    form->SetCaseTypeVals(fields.lblCaseTypeVals);
    form->SetNameVal(fields.lblNameVal);
    form->ClientAcctgCode = handing.code;
    form->Search().Record.Origin = TextOfEntry(AsAskedOf(entry, court));
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
    NewWindow form(MakeCaseWindow(CaseKind::State));
    CaseStart start = BkNumberFields(entry, court);
    start.ClientAcctgCode = handing.code;
    start.Origin = TextOfEntry(AsAskedOf(entry, court));
    form->Take(start);
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
        return caseByNumber(civil ? CaseKind::Civil : CaseKind::NonCivil,
                            LoadDiscisCaseNumberFields, entry, handing);
    if (civil)
        return discisNameSearch(new frmDiscisNameResults, entry, handing);
    const auto defendants = IsDndSearch(entry) ? DiscisDndSearch::Yes : DiscisDndSearch::No;
    return discisNameSearch(new frmDiscisNCNameResults(defendants), entry, handing);
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

bool LoadDiscisCaseNumberFields(CaseWindow &form, const SearchEntry &entry, const QString &code)
{
    std::optional<CaseStart> start = DiscisNumberFields(entry);
    if (!start)
        return false;
    start->ClientAcctgCode = code;
    start->Origin = TextOfEntry(AsAsked(entry));
    form.Take(*start);
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

bool DoCaseNumberSearch(CaseWindow &form, const SearchEntry &entry, const QString &code)
{
    try {
        CaseStart start = NumberFields(entry);
        start.ClientAcctgCode = code;
        start.Origin = TextOfEntry(AsAsked(entry));
        form.Take(start);
        return true;
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Executing Case Number Search: DoCaseNumberSearch(): Error: "_s
                     + error.Description());
        return false;
    }
}

void LaunchBatchCase(CaseStart start, const QString &code, bool autoPrint)
{
    NewWindow form(MakeCaseWindow(start.Kind));
    start.chkAutoPrint = autoPrint;
    start.ClientAcctgCode = code;
    form->Take(start);
    form.GiveKey();
    form.Launch();
}

DispatchResult DispatchSearch(const SearchEntry &entry, const QString &code, ShownRecents &recents)
{
    return dispatchRows.at(static_cast<size_t>(entry.Court)).start(entry, {code, recents});
}
