// From the Start Search button to a results window that waits for its turn.

#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Options.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/Counties.h"
#include "jobs/TurnTaking.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "ui_frmSearchWA.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
constexpr size_t foldedBoxes = 3;
constexpr qint16 statewideScope = 3;

/// The code that this search carries: only where the user or the server wants one at all.
QString accountingCode()
{
    const bool wanted = GetOptionStr(u"Accounting"_s, u"EnableAcctg"_s) == u"1";
    return wanted || Global.bClientAcctgOpt ? TrimBlanks(Global.ClientAcctgCode).toUpper()
                                            : QString();
}

void showResults(frmNameSearchResults *form)
{
    if (frmMain *main = frmMain::Form())
        main->ShowChild(form);
    else
        form->show();
}
} // namespace

void frmSearchWA::cmdBeginSearch_Click()
{
    const RunScope scope(this);
    FoldEntries();
    if (!ValidateAllFormFields() || !DisclaimerAccepted() || !LoggedIn() || IsUnloaded())
        return;
    DispatchNameSearch();
}

void frmSearchWA::FoldEntries()
{
    for (size_t i = 0; i < foldedBoxes; ++i)
        txtSearchName[i]->setText(FoldToUpper(TrimBlanks(txtSearchName[i]->text())));
}

FormEntries frmSearchWA::Entries() const
{
    FormEntries entries;
    entries.Business = Global.strCurrentSearchType == u"Business Name";
    for (size_t i = 0; i < txtSearchName.size(); ++i)
        entries.Names[i] = txtSearchName[i]->text();
    entries.ByCounty = Global.intSearchWhere < statewideScope;
    entries.Counties = ui->lboxCountyOrProfile->Selected();
    entries.CaseTypes = ui->lboxCaseTypes->Selected();
    return entries;
}

NameSearchEntry frmSearchWA::NameEntry() const
{
    NameSearchEntry entry;
    entry.LastOrBusinessName = txtSearchName[0]->text();
    entry.FirstName = txtSearchName[1]->text();
    entry.MiddleInitial = txtSearchName[2]->text();
    entry.Statewide = Global.intSearchWhere == statewideScope;
    if (entry.Statewide) {
        GetCountyCount(u"WA"_s);
        entry.Counties = WaCountyList();
    } else {
        entry.Counties = ui->lboxCountyOrProfile->Selected();
    }
    entry.CaseTypes = ui->lboxCaseTypes->Selected();
    entry.YearRange = ui->optSearchYears_1->isChecked();
    entry.FromYear = ui->cboxSearchStartYear->currentText();
    entry.ToYear = ui->cboxSearchEndYear->currentText();
    return entry;
}

bool frmSearchWA::ValidateAllFormFields()
{
    const FieldRule *broken = FirstBrokenRule(Entries());
    if (!broken)
        return true;
    Q_EMIT SearchEvents::Of().FieldErrorRaised(broken->what.toString(), broken->why.toString(),
                                               broken->action.toString());
    return false;
}

bool frmSearchWA::DisplayWaCourtDisclaimer()
{
    const MsgAnswer answer =
        MsgBox(this,
               u"Neither the court nor clerk makes any representation as to the accuracy and "_s
                   + u"completeness of the Washington Court data except for court purposes. "_s
                   + u"\r\n\r\nDo you want to continue?"_s,
               u"Washington State Courts"_s, MsgButtons::YesNo, MsgIcon::Exclamation);
    if (answer != MsgAnswer::Yes)
        return false;
    Global.WaDisclaimerAccepted = true;
    return true;
}

bool frmSearchWA::DisclaimerAccepted()
{
    if (!Global.bShowAlerts) {
        Global.WaDisclaimerAccepted = true;
        Global.OrDisclaimerAccepted = true;
        return true;
    }
    return Global.WaDisclaimerAccepted || DisplayWaCourtDisclaimer();
}

bool frmSearchWA::LoggedIn()
{
    if (Global.bLoggedIn)
        return true;
    const MsgAnswer answer =
        MsgBox(this,
               u"This Search Cannot be Started!\r\n\r\nThis is because you are not currently "
               "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
               u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgButtons::YesNo,
               MsgIcon::Exclamation);
    if (answer == MsgAnswer::Yes)
        frmLogin::ShowForm(frmMain::Form());
    return Global.bLoggedIn;
}

bool frmSearchWA::LoadNameSearchRequests(frmNameSearchResults &form, const NameSearchEntry &entry)
{
    form.chkIndexSearch = false;
    for (const QString &line : SuperiorNameRequests(entry))
        form.lboxQueue.AddItem(line);
    return true;
}

void frmSearchWA::DispatchNameSearch()
{
    QPointer<frmNameSearchResults> form;
    try {
        // Before the window: reading the entries may show a box, and the window's timers run at
        // once.
        const NameSearchEntry entry = NameEntry();
        form = new frmNameSearchResults(u"WA"_s);
        form->ClientAcctgCode = accountingCode();
        if (!LoadNameSearchRequests(*form, entry))
            throw RunTimeError(0, {});
        form->txtMasterKey = MakeMasterKey();
        EnqueueKey(form->txtMasterKey);
        form->SetTxtCountyList(SuperiorJurisdictions(entry));
        Global.bStopRequested = false;
        showResults(form);
    } catch (const RunTimeError &error) {
        if (form) {
            WithdrawKey(form->txtMasterKey);
            form->lbl911 = u"T"_s;
            form->Unload();
        }
        ReportRequestError(error.Description());
    }
}

void frmSearchWA::ReportRequestError(const QString &description)
{
    Global.BkFormLoading = false;
    const QString text = u"An error was encountered while attempting to search Halvane! Please "
                         "review the search criteria and retry the search."_s;
    MsgBox(this, text + u"\r\n\r\nError Was: "_s + description, u"Halvane Search Request Error"_s,
           MsgButtons::Ok, MsgIcon::Exclamation);
    WriteAppInfo(text + u" Error Was: "_s + description);
}
