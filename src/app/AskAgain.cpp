#include "app/AskAgain.h"

#include "casedetails/CaseWindow.h"
#include "casedetails/CaseWindows.h"
#include "casedetails/OpenCases.h"
#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "history/AskedItem.h"
#include "records/StartText.h"
#include "searchentry/EntryText.h"
#include "searchentry/SearchStart.h"
#include "searchentry/frmSearchWA.h"
#include "session/LoginOffer.h"
#include "session/NewWindow.h"
#include "session/frmMain.h"

using namespace Qt::StringLiterals;

namespace {
/// What the user entered; nothing for what was opened from a list.
std::optional<SearchEntry> entryOf(const AskedItem &item)
{
    const std::optional<CaseStart> start = CaseStartOf(item.Origin);
    return EntryOf(start ? start->Origin : item.Origin);
}

/// Shows a window that asks for this start, at the end of the queue.
template<class Window, class Start>
bool launch(Window *window, const Start &start)
{
    try {
        NewWindow form(window);
        form->Take(start);
        form.GiveKey();
        form.Launch();
        return true;
    } catch (const RunTimeError &error) {
        WriteAppInfo(u"Error Asking Again: "_s + error.Description());
        return false;
    }
}

bool launchCase(const AskedItem &item, bool mayPrint)
{
    std::optional<CaseStart> start = CaseStartOf(item.Origin);
    if (!start)
        return false;
    start->ClientAcctgCode = item.ClientCode;
    start->chkAutoPrint = start->chkAutoPrint && mayPrint;
    WriteAppInfo(start->Log);
    return launch(MakeCaseWindow(start->Kind), *start);
}

bool launchDocuments(const AskedItem &item)
{
    std::optional<QList<DocumentStart>> starts = DocumentsOf(item.Origin);
    if (!starts)
        return false;
    for (DocumentStart &start : *starts)
        start.ClientMatterText = item.ClientCode;
    if (starts->size() == 1)
        return launch(new frmDocTransfer, starts->first());
    return frmAllDocuments::GoOnWith(*starts) || launch(new frmAllDocuments, *starts);
}

/// As a double click on a row asks.
bool mayBegin()
{
    if (Global.bLoggedIn)
        return true;
    if (OfferLogin(frmMain::Form()))
        ShowLogin();
    return false;
}

/// A case that has a window already is offered first, as by a list.
bool mayOpen(const AskedItem &item)
{
    const std::optional<CaseStart> start = CaseStartOf(item.Origin);
    // The session may have ended under that question.
    return !start || (MayOpenCase(frmMain::Form(), *start) && mayBegin());
}

void tellUnknown()
{
    MsgBox(frmMain::Form(),
           u"This cannot be asked for again, because it is not known any more how it was asked "
           "for. Please enter it on the search form."_s,
           u"History"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}
} // namespace

void FillSearchForm(const AskedItem &item)
{
    const std::optional<SearchEntry> entry = entryOf(item);
    if (!entry) {
        tellUnknown();
        return;
    }
    frmSearchWA::ShowForm();
    if (!frmSearchWA::Form().Fill(*entry))
        MsgBox(&frmSearchWA::Form(),
               u"Not all of this search can be put on the form: something that was chosen is not "
               "offered any more. Please look it through before you start it."_s,
               u"History"_s, MsgButtons::Ok, MsgIcon::Exclamation);
}

void AskAgain(const AskedItem &item)
{
    if (!CanBeAsked(item))
        tellUnknown();
    else if (const std::optional<SearchEntry> entry = entryOf(item))
        frmSearchWA::Form().Start().BeginAgain(*entry, item.ClientCode);
    else if (mayBegin() && mayOpen(item) && !launchCase(item, false))
        launchDocuments(item);
}

bool PutBack(const AskedItem &item)
{
    if (const std::optional<SearchEntry> entry = EntryOf(item.Origin))
        return frmSearchWA::Form().Start().PutBack(*entry, item.ClientCode);
    // The session may have ended under the court's notice.
    if (!NoticeAccepted(item) || !Global.bLoggedIn)
        return false;
    return launchCase(item, true) || launchDocuments(item);
}

std::optional<CaseStart> NumberOf(const AskedItem &item)
{
    std::optional<CaseStart> start = CaseStartOf(item.Origin);
    if (!start || start->Kind != CaseKind::State || start->chkBK || !EntryOf(start->Origin))
        return std::nullopt;
    start->ClientAcctgCode = item.ClientCode;
    return start;
}

bool NoticeAccepted(const AskedItem &item)
{
    const std::optional<SearchEntry> entered = entryOf(item);
    return !entered || frmSearchWA::Form().Start().DisclaimerAccepted(*entered);
}

bool CanBeAsked(const AskedItem &item)
{
    return EntryOf(item.Origin) || CaseStartOf(item.Origin) || DocumentsOf(item.Origin);
}
