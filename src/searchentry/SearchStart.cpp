// What stands between a click on Start Search, or on a batch's buttons, and the dispatch: the
// checks, the disclaimer, the login question and the client code. Whichever of them stops the
// search leaves the form as it stood.

#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "core/TurnHold.h"
#include "core/Windows1252.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "ui_frmSearchWA.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {
constexpr size_t foldedBoxes = 3;
constexpr QStringView validationTitle = u"Halvane Form Field Validation";

/// The notice of a state's courts: asked for once a session.
struct DisclaimerRow
{
    QStringView state;
    Boolean GlobalState::*accepted;
    bool (frmSearchWA::*display)();
    bool batchOnly; ///< no notice before a single search
    QStringView title;
    QStringView whichData; ///< the second line of the notice
};
constexpr std::array<DisclaimerRow, 3> disclaimers{{
    {u"WA", &GlobalState::WaDisclaimerAccepted, &frmSearchWA::DisplayWaCourtDisclaimer, false,
     u"Washington State Courts",
     u"completeness of the Washington Court data except for court purposes. "},
    {u"OR", &GlobalState::OrDisclaimerAccepted, &frmSearchWA::DisplayOrCourtDisclaimer, false,
     u"Oregon State Courts", u"completeness of the Oregon Court data except for court purposes. "},
    {u"ID", &GlobalState::IdDisclaimerAccepted, &frmSearchWA::DisplayIdCourtDisclaimer, true,
     u"Idaho State Courts", u"completeness of the Idaho Court data except for court purposes. "},
}};

/// The setting of a state's default county.
struct DefaultCountyRow
{
    CourtFamily court;
    Setting setting;
    QString GlobalState::*county;
};
constexpr std::array<DefaultCountyRow, 3> defaultCounties{{
    {CourtFamily::Superior, Setting::DefaultWaCounty, &GlobalState::strDefaultWaCounty},
    {CourtFamily::Oregon, Setting::DefaultOrCounty, &GlobalState::strDefaultOrCounty},
    {CourtFamily::Idaho, Setting::DefaultIdCounty, &GlobalState::strDefaultIDCounty},
}};

enum BatchButton { RetrieveAndPrint, SameCounties, Reset, SaveDefaultCounty, Retrieve };

MsgIcon iconOf(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::Exclamation:
        return MsgIcon::Exclamation;
    case MessageIcon::Question:
        return MsgIcon::Question;
    case MessageIcon::Information:
        break;
    }
    return MsgIcon::Information;
}

bool accountingEnabled()
{
    return ReadSetting(Setting::EnableAcctg) == u"1";
}

QString currentCode()
{
    return FoldToUpper(TrimBlanks(Global.ClientAcctgCode));
}

/// An accent that was typed or pasted as a character of its own is one with its letter on the wire.
QString textOf(const QLineEdit *box)
{
    return box->text().normalized(QString::NormalizationForm_C);
}
} // namespace

// ---- what stands on the form ----

SearchEntry frmSearchWA::Entry() const
{
    SearchEntry entry;
    entry.Court = state.Court;
    entry.Kind = state.Kind;
    entry.CourtName = courtDisplayName;
    entry.Where = static_cast<SearchScope>(intSearchWhere);
    for (size_t i = 0; i < entry.Names.size(); ++i)
        entry.Names[i] = textOf(txtSearchName[i]);
    entry.Counties = ui->lboxCountyOrProfile->Selected();
    // The focus alone makes a row the current one; selected it is by the user only.
    const QList<QListWidgetItem *> chosen = ui->lboxMultiJurisdiction->selectedItems();
    if (!chosen.isEmpty())
        entry.NumberCounty = chosen.first()->text();
    entry.CaseTypes = ui->lboxCaseTypes->Selected();
    entry.JudgmentsOnly = ui->optORjgmtsONLY->isChecked();
    entry.UseIndex = ui->chkUseIndex->isChecked();
    entry.DistrictCourt = optOrCDcourts[1]->isChecked();
    entry.DiscisCountyIndex = ui->cboxCountyList->currentIndex();
    entry.DiscisCounty = ui->cboxCountyList->currentText();
    for (int i = 0; i < ui->lboxDiscisCourtNames->count(); ++i)
        entry.DiscisItems.append(ui->lboxDiscisCourtNames->item(i)->text());
    entry.DiscisSelected = ui->lboxDiscisCourtNames->Selected();
    for (size_t i = 0; i < entry.BkCourts.size(); ++i)
        entry.BkCourts[i] = chkBKcourt[i]->isChecked();
    const bool bankruptcy = state.Court == CourtFamily::Bankruptcy;
    const QRadioButton *range = bankruptcy ? ui->optSearchYears1_1 : ui->optSearchYears_1;
    const QComboBox *from = bankruptcy ? ui->cboxSearchStartYear1 : ui->cboxSearchStartYear;
    const QComboBox *to = bankruptcy ? ui->cboxSearchEndYear1 : ui->cboxSearchEndYear;
    entry.YearRange = range->isChecked();
    entry.FromYear = from->currentText();
    entry.ToYear = to->currentText();
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        entry.Batch[i] = {textOf(Text1[i]), cbCty1[i]->currentText()};
    return entry;
}

void frmSearchWA::AddRecordToSearchList()
{
    searchList.append(::AddRecordToSearchList(Entry()));
}

void frmSearchWA::FoldEntries()
{
    for (size_t i = 0; i < foldedBoxes; ++i)
        txtSearchName[i]->setText(FoldToUpper(TrimBlanks(txtSearchName[i]->text())));
}

/// The checks rewrite numbers in the court's own form: so they stand in the boxes.
void frmSearchWA::TakeBackNumbers(const SearchEntry &entry)
{
    txtSearchName[0]->setText(entry.Names[0]);
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        Text1[i]->setText(entry.Batch[i].Number);
}

bool frmSearchWA::ValidateAllFormFields(SearchEntry &entry)
{
    const bool ok = ::ValidateAllFormFields(entry, *this);
    TakeBackNumbers(entry);
    return ok;
}

bool frmSearchWA::ValidateBkFormFields(SearchEntry &entry)
{
    const bool ok = ::ValidateBkFormFields(entry, *this);
    TakeBackNumbers(entry);
    return ok;
}

bool frmSearchWA::ValidateBatchSearchFields(SearchEntry &entry)
{
    const bool ok = ::ValidateBatchSearchFields(entry, *this);
    TakeBackNumbers(entry);
    return ok;
}

void frmSearchWA::ShowFieldError(const QString &what, const QString &why, const QString &action,
                                 const QString &caption)
{
    // The form may have gone under a question of the same check: then there is nobody to tell.
    if (!IsUnloaded())
        Q_EMIT SearchEvents::Of().FieldErrorRaised(what, why, action, caption);
}

void frmSearchWA::Notice(const QString &text, const QString &title, MessageIcon icon)
{
    MsgBox(this, text, title, MsgButtons::Ok, iconOf(icon));
}

bool frmSearchWA::Ask(const QString &text, const QString &title, QuestionButtons buttons,
                      MessageIcon icon)
{
    const MsgAnswer answer = MsgBox(
        this, text, title,
        buttons == QuestionButtons::YesNo ? MsgButtons::YesNo : MsgButtons::OkCancel, iconOf(icon));
    return answer == MsgAnswer::Yes || answer == MsgAnswer::Ok;
}

bool frmSearchWA::MaySendCharacters(const QList<TypedText> &typed)
{
    QStringList lost;
    QLineEdit *first = nullptr;
    for (const auto &[text, box] : typed) {
        const QStringList outside = CharactersOutsideWindows1252(text);
        if (!first && !outside.isEmpty())
            first = box;
        lost.append(outside);
    }
    if (!first)
        return true;
    lost.removeDuplicates();
    if (Ask(LostCharactersText(lost)
                + u"\r\n\r\nTo search all the same click OK. To change what you entered click "
                  "Cancel."_s,
            validationTitle.toString(), QuestionButtons::OkCancel, MessageIcon::Exclamation))
        return true;
    if (!IsUnloaded()) {
        first->setFocus();
        first->selectAll();
    }
    return false;
}

bool frmSearchWA::MaySendNames(const SearchEntry &entry)
{
    QList<TypedText> typed;
    const size_t boxes = entry.Kind == SearchKind::Person ? foldedBoxes : 1;
    for (size_t i = 0; i < boxes; ++i)
        typed.append({entry.Names[i], txtSearchName[i]});
    return MaySendCharacters(typed);
}

bool frmSearchWA::MaySendBatch(const SearchEntry &entry)
{
    QList<TypedText> typed;
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        typed.append({entry.Batch[i].Number, Text1[i]});
    return MaySendCharacters(typed);
}

// ---- disclaimers and login ----

bool frmSearchWA::DisplayDisclaimer(size_t index)
{
    const DisclaimerRow &row = disclaimers.at(index);
    const MsgAnswer answer =
        MsgBox(this,
               u"Neither the court nor clerk makes any representation as to the accuracy and "_s
                   + row.whichData + u"\r\n\r\nDo you want to continue?"_s,
               row.title.toString(), MsgButtons::YesNo, MsgIcon::Exclamation);
    if (answer != MsgAnswer::Yes)
        return false;
    Global.*row.accepted = true;
    return true;
}

bool frmSearchWA::DisplayWaCourtDisclaimer()
{
    return DisplayDisclaimer(0);
}

bool frmSearchWA::DisplayOrCourtDisclaimer()
{
    return DisplayDisclaimer(1);
}

bool frmSearchWA::DisplayIdCourtDisclaimer()
{
    return DisplayDisclaimer(2);
}

bool frmSearchWA::DisclaimerAccepted(bool batch)
{
    for (const DisclaimerRow &row : disclaimers) {
        if (row.batchOnly && !batch)
            continue;
        if (!Global.bShowAlerts)
            Global.*row.accepted = true;
        else if (row.state == Global.strSearchState && !(Global.*row.accepted))
            return (this->*row.display)();
    }
    return true;
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

// ---- one search ----

void frmSearchWA::cmdBeginSearch_Click()
{
    if (state.Batch) {
        // A batch has buttons of its own: Enter goes on to the next number instead.
        focusNextChild();
        focusNextChild();
        return;
    }
    // Building lets events through; a second search of the same entries is nobody's wish.
    if (building)
        return;
    const RunScope scope(this);
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    FoldEntries();
    // What was checked is what goes out, whatever happens on the form meanwhile.
    SearchEntry entry = Entry();
    const bool valid = entry.Court == CourtFamily::Bankruptcy ? ValidateBkFormFields(entry)
                                                              : ValidateAllFormFields(entry);
    // Any of these questions may outlive the form.
    if (!valid || IsUnloaded() || !MaySendNames(entry) || IsUnloaded() || !DisclaimerAccepted(false)
        || IsUnloaded() || !LoggedIn() || IsUnloaded())
        return;
    QString code;
    if (accountingEnabled() || Global.bClientAcctgOpt) {
        frmAccounting::ShowModal(this);
        code = currentCode();
        // The session may have ended under that window, or the form have gone.
        if (IsUnloaded() || !LoggedIn() || IsUnloaded())
            return;
    }
    Dispatch(entry, code);
}

void frmSearchWA::Dispatch(const SearchEntry &entry, const QString &code)
{
    try {
        ShownRecents shown = recents;
        switch (DispatchSearch(entry, code, shown)) {
        case DispatchResult::NoRequests:
            ReportNoRequests();
            break;
        case DispatchResult::Failed:
            ReportRequestError({});
            break;
        case DispatchResult::Waiting:
            // What the form has stays there, also when the file of it has gone.
            if (shown.Type == recents.Type)
                FillRecents(shown);
            ShowRecents();
            break;
        case DispatchResult::Nothing:
            break;
        }
    } catch (const RunTimeError &error) {
        ReportRequestError(error.Description());
    }
}

void frmSearchWA::ReportNoRequests()
{
    MsgBox(this,
           u"Search Stopped. Unable to continue with this search.\r\n\r\nAfter Skipping all "
           "invalid search requests there were ZERO requests left to submit.\r\n\r\nPlease review "
           "the Search Criteria entered before trying again."_s,
           u"No Valid Search Requests to Submit .."_s, MsgButtons::Ok, MsgIcon::Critical);
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

// ---- a batch of numbers ----

void frmSearchWA::cmdBatchSearch_Click(int index)
{
    const RunScope scope(this);
    switch (index) {
    case SameCounties:
        for (QComboBox *box : cbCty1)
            box->setCurrentIndex(cbCty1[0]->currentIndex());
        break;
    case Reset:
        ResetBatchFields();
        break;
    case SaveDefaultCounty:
        SetDefaultCounty();
        break;
    case RetrieveAndPrint:
    case Retrieve:
        if (!building)
            StartBatch(index == RetrieveAndPrint);
        break;
    default:
        break;
    }
}

void frmSearchWA::StartBatch(bool autoPrint)
{
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    SearchEntry entry = Entry();
    if (ValidateBatchSearchFields(entry) && !IsUnloaded() && MaySendBatch(entry))
        RunBatchSearch(entry, autoPrint);
}

void frmSearchWA::SetDefaultCounty()
{
    if (cbCty1[0]->currentIndex() <= 0) {
        MsgBox(this, u"You must select a valid county!"_s, u"Invalid County Selected .."_s,
               MsgButtons::Ok, MsgIcon::Critical);
        return;
    }
    for (const DefaultCountyRow &row : defaultCounties) {
        if (row.court != state.Court)
            continue;
        Global.*row.county = cbCty1[0]->currentText();
        SaveSetting(row.setting, SettingWriter::BatchEntry, Global.*row.county);
    }
}

void frmSearchWA::RunBatchSearch(const SearchEntry &entry, bool autoPrint)
{
    if (IsUnloaded() || !LoggedIn() || IsUnloaded() || !DisclaimerAccepted(true) || IsUnloaded())
        return;
    Global.ClientAcctgCode.clear();
    QString code;
    if (accountingEnabled()) {
        frmAccounting::ShowModal(this);
        code = currentCode();
    }
    // The session may have ended under one of the boxes, or the form have gone.
    if (IsUnloaded() || !LoggedIn() || IsUnloaded())
        return;
    try {
        for (const CaseStart &start : BatchFields(entry))
            LaunchBatchCase(start, code, autoPrint);
    } catch (const RunTimeError &error) {
        ReportRequestError(error.Description());
    }
}
