#include "searchentry/SearchStart.h"

#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "core/TurnHold.h"
#include "core/Windows1252.h"
#include "searchentry/BatchEntries.h"
#include "searchentry/CountyChoice.h"
#include "searchentry/CourtDisclaimers.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NumberListRun.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/RecentsOnForm.h"
#include "searchentry/SearchControls.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/SlipNote.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmNumberList.h"
#include "searchentry/frmPasteList.h"
#include "searchentry/frmSearchWA.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QClipboard>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {
constexpr size_t foldedBoxes = 3;
constexpr QStringView validationTitle = u"Halvane Form Field Validation";

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
} // namespace

bool SearchStart::accountingEnabled()
{
    return ReadSetting(Setting::EnableAcctg) == u"1";
}

QString SearchStart::currentCode()
{
    return FoldToUpper(TrimBlanks(Global.ClientAcctgCode));
}

// ---- the entries ----

void SearchStart::foldEntries()
{
    for (size_t i = 0; i < foldedBoxes; ++i)
        ui.txtSearchName[i]->setText(FoldToUpper(TrimBlanks(ui.txtSearchName[i]->text())));
}

/// The checks rewrite numbers in the court's own form: so they stand in the boxes.
void SearchStart::takeBackNumbers(const SearchEntry &entry)
{
    ui.txtSearchName[0]->setText(entry.Names[0]);
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        ui.Text1[i]->setText(entry.Batch[i].Number);
}

bool SearchStart::ValidateAllFormFields(SearchEntry &entry)
{
    const bool ok = ::ValidateAllFormFields(entry, *this);
    takeBackNumbers(entry);
    return ok;
}

bool SearchStart::ValidateBkFormFields(SearchEntry &entry)
{
    const bool ok = ::ValidateBkFormFields(entry, *this);
    takeBackNumbers(entry);
    return ok;
}

bool SearchStart::ValidateBatchSearchFields(SearchEntry &entry)
{
    const bool ok = ::ValidateBatchSearchFields(entry, *this);
    takeBackNumbers(entry);
    return ok;
}

void SearchStart::ShowFieldError(const QString &what, const QString &why, const QString &action,
                                 const QString &caption)
{
    // The form may have gone under a question of the same check: then there is nobody to tell.
    if (!form.IsUnloaded())
        Q_EMIT SearchEvents::Of().FieldErrorRaised(what, why, action, caption);
}

void SearchStart::Notice(const QString &text, const QString &title, MessageIcon icon)
{
    MsgBox(&form, text, title, MsgButtons::Ok, iconOf(icon));
}

bool SearchStart::Ask(const QString &text, const QString &title, QuestionButtons buttons,
                      MessageIcon icon)
{
    const MsgAnswer answer = MsgBox(
        &form, text, title,
        buttons == QuestionButtons::YesNo ? MsgButtons::YesNo : MsgButtons::OkCancel, iconOf(icon));
    return answer == MsgAnswer::Yes || answer == MsgAnswer::Ok;
}

bool SearchStart::maySendCharacters(const QList<TypedText> &typed)
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
    if (!form.IsUnloaded()) {
        first->setFocus();
        first->selectAll();
    }
    return false;
}

bool SearchStart::maySendNames(const SearchEntry &entry)
{
    QList<TypedText> typed;
    const size_t boxes = entry.Kind == SearchKind::Person ? foldedBoxes : 1;
    for (size_t i = 0; i < boxes; ++i)
        typed.append({entry.Names[i], ui.txtSearchName[i]});
    return maySendCharacters(typed);
}

bool SearchStart::maySendBatch(const SearchEntry &entry)
{
    QList<TypedText> typed;
    for (size_t i = 0; i < entry.Batch.size(); ++i)
        typed.append({entry.Batch[i].Number, ui.Text1[i]});
    return maySendCharacters(typed);
}

// ---- login ----

bool SearchStart::loggedIn()
{
    if (Global.bLoggedIn)
        return true;
    const MsgAnswer answer =
        MsgBox(&form,
               u"This Search Cannot be Started!\r\n\r\nThis is because you are not currently "
               "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
               u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgButtons::YesNo,
               MsgIcon::Exclamation);
    if (answer == MsgAnswer::Yes)
        frmLogin::ShowForm(frmMain::Form());
    return Global.bLoggedIn;
}

// ---- one search ----

void SearchStart::Begin()
{
    // Building lets events through; a second search of the same entries is nobody's wish.
    if (building)
        return;
    const FormWindow::RunScope scope(&form);
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    foldEntries();
    // What was checked is what goes out, whatever happens on the form meanwhile.
    SearchEntry entry = form.Entry();
    const bool valid = entry.Court == CourtFamily::Bankruptcy ? ValidateBkFormFields(entry)
                                                              : ValidateAllFormFields(entry);
    // Any of these questions may outlive the form.
    if (!valid || form.IsUnloaded() || !maySendNames(entry) || form.IsUnloaded()
        || !CourtDisclaimerAccepted(&form, false) || form.IsUnloaded() || !loggedIn()
        || form.IsUnloaded())
        return;
    QString code;
    if (accountingEnabled() || Global.bClientAcctgOpt) {
        frmAccounting::ShowModal(&form);
        code = currentCode();
        // The session may have ended under that window, or the form have gone.
        if (form.IsUnloaded() || !loggedIn() || form.IsUnloaded())
            return;
    }
    dispatch(entry, code);
}

bool SearchStart::dispatch(const SearchEntry &entry, const QString &code)
{
    if (entry.InBatch)
        return launchBatch(entry, code, false);
    try {
        ShownRecents shown = recents.Shown();
        switch (DispatchSearch(entry, code, shown)) {
        case DispatchResult::NoRequests:
            reportNoRequests();
            break;
        case DispatchResult::Failed:
            reportRequestError({});
            break;
        case DispatchResult::Waiting:
            // What the form has stays there, also when the file of it has gone.
            if (shown.Type == recents.Shown().Type)
                recents.Fill(shown);
            recents.Show();
            slips.Started(entry);
            return true;
        case DispatchResult::Nothing:
            break;
        }
    } catch (const RunTimeError &error) {
        reportRequestError(error.Description());
    }
    return false;
}

void SearchStart::reportNoRequests()
{
    MsgBox(&form,
           u"Search Stopped. Unable to continue with this search.\r\n\r\nAfter Skipping all "
           "invalid search requests there were ZERO requests left to submit.\r\n\r\nPlease review "
           "the Search Criteria entered before trying again."_s,
           u"No Valid Search Requests to Submit .."_s, MsgButtons::Ok, MsgIcon::Critical);
}

void SearchStart::reportRequestError(const QString &description)
{
    const QString text = u"An error was encountered while attempting to search Halvane! Please "
                         "review the search criteria and retry the search."_s;
    MsgBox(&form, text + u"\r\n\r\nError Was: "_s + description, u"Halvane Search Request Error"_s,
           MsgButtons::Ok, MsgIcon::Exclamation);
    WriteAppInfo(text + u" Error Was: "_s + description);
}

// ---- a batch of numbers ----

void SearchStart::BeginBatch(bool autoPrint)
{
    if (building)
        return;
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    SearchEntry entry = form.Entry();
    if (ValidateBatchSearchFields(entry) && !form.IsUnloaded() && maySendBatch(entry))
        RunBatchSearch(entry, autoPrint);
}

std::optional<QString> SearchStart::codeOfBatch()
{
    if (form.IsUnloaded() || !loggedIn() || form.IsUnloaded()
        || !CourtDisclaimerAccepted(&form, true) || form.IsUnloaded())
        return {};
    Global.ClientAcctgCode.clear();
    QString code;
    if (accountingEnabled()) {
        frmAccounting::ShowModal(&form);
        code = currentCode();
    }
    // The session may have ended under one of the boxes, or the form have gone.
    if (form.IsUnloaded() || !loggedIn() || form.IsUnloaded())
        return {};
    return code;
}

void SearchStart::RunBatchSearch(const SearchEntry &entry, bool autoPrint)
{
    const std::optional<QString> code = codeOfBatch();
    if (!code)
        return;
    launchBatch(entry, *code, autoPrint);
}

bool SearchStart::launchBatch(const SearchEntry &entry, const QString &code, bool autoPrint)
{
    try {
        const QList<CaseStart> cases = BatchFields(entry);
        for (const CaseStart &start : cases)
            LaunchBatchCase(start, code, autoPrint);
        slips.Started(entry);
        return !cases.isEmpty();
    } catch (const RunTimeError &error) {
        reportRequestError(error.Description());
    }
    return false;
}

// ---- a list of numbers ----

void SearchStart::BeginList()
{
    if (building)
        return;
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    const SearchEntry entry = form.Entry();
    const NumberListCourt court{entry.Court, entry.DistrictCourt, CountiesOf(entry.Court),
                                DefaultCountyOf(entry.Court)};
    // A list that did not come to be started is offered again, before what was copied since.
    const QString text =
        pastedList.isEmpty() ? ReadablePart(QApplication::clipboard()->text()) : pastedList;
    ModalDialog<frmPasteList> dialog(court, text, &form);
    const bool wanted = dialog.Run() == QDialog::Accepted && !dialog.IsGone();
    if (dialog.IsGone() || form.IsUnloaded())
        return;
    pastedList = dialog->Text() == text ? QString() : dialog->Text();
    const QList<ListedNumber> ticked = dialog->Ticked();
    if (!wanted || ticked.isEmpty())
        return;
    pastedList = dialog->Text();
    const bool prints = dialog->Prints();
    const std::optional<QString> code = codeOfBatch();
    if (!code)
        return;
    pastedList.clear();
    frmNumberList::Follow(NumberListRun::Start(ticked, court, *code, prints));
}
