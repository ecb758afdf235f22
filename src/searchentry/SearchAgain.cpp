// A search that was started before, started again: on the road of the form's own, without the form.

#include "controls/FormWindow.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "core/TurnHold.h"
#include "searchentry/CourtDisclaimers.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NumberRequests.h"
#include "searchentry/RecentsOnForm.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/SearchStart.h"
#include "searchentry/frmAccounting.h"
#include "searchentry/frmSearchWA.h"

#include <QScopedValueRollback>

bool SearchStart::checkedAgain(SearchEntry &entry)
{
    if (entry.InBatch)
        return ::ValidateBatchSearchFields(entry, *this);
    return entry.Court == CourtFamily::Bankruptcy ? ::ValidateBkFormFields(entry, *this)
                                                  : ::ValidateAllFormFields(entry, *this);
}

bool SearchStart::DisclaimerAccepted(const SearchEntry &entry)
{
    return CourtDisclaimerAccepted(&form, entry.InBatch, CourtOf(entry.Court).SearchState);
}

std::optional<QString> SearchStart::codeAsked(bool wanted)
{
    if (!wanted)
        return QString();
    frmAccounting::ShowModal(&form);
    const QString code = currentCode();
    // The session may have ended under that window, or the form have gone.
    if (form.IsUnloaded() || !loggedIn() || form.IsUnloaded())
        return std::nullopt;
    return code;
}

/// What cannot be sent was said when the search was started for the first time.
bool SearchStart::BeginAgain(SearchEntry entry, const QString &code)
{
    if (building)
        return false;
    const FormWindow::RunScope scope(&form);
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    if (!checkedAgain(entry) || form.IsUnloaded() || !DisclaimerAccepted(entry) || form.IsUnloaded()
        || !loggedIn() || form.IsUnloaded())
        return false;
    const bool wanted = accountingEnabled() || (Global.bClientAcctgOpt && !entry.InBatch);
    const std::optional<QString> billed =
        code.isEmpty() ? codeAsked(wanted) : std::optional<QString>(code);
    return billed && dispatch(entry, *billed);
}

bool SearchStart::PutBack(const SearchEntry &entry, const QString &code)
{
    if (building)
        return false;
    const FormWindow::RunScope scope(&form);
    const QScopedValueRollback<bool> guard(building, true);
    const TurnHold hold;
    // The session may have ended under the court's notice.
    return DisclaimerAccepted(entry) && !form.IsUnloaded() && Global.bLoggedIn
           && dispatch(entry, code);
}
