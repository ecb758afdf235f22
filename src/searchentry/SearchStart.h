#pragma once

#include "searchentry/FormTalk.h"
#include "searchentry/SearchEntry.h"

#include <QList>

#include <optional>
#include <utility>

class QLineEdit;
class RecentsOnForm;
class SlipNote;
class frmSearchWA;
struct SearchControls;

/// What stands between a click on Start Search, or on a batch's buttons, and the dispatch: the
/// checks, the disclaimer, the login question and the client code. Whichever of them stops the
/// search leaves the form as it stood.
///
/// Each of these questions may outlive the form, which is asked after every one whether it is
/// still there.
class SearchStart : private FormTalk
{
public:
    /// Starts the searches of this form. What was searched for goes to the recent entries.
    SearchStart(frmSearchWA &window, SearchControls &controls, RecentsOnForm &recentEntries,
                SlipNote &note)
        : form(window), ui(controls), recents(recentEntries), slips(note)
    {
    }

    /// Starts the search that is entered. Nothing when one is being built already.
    void Begin();
    /// Starts the cases of a batch; `autoPrint` prints each as soon as it is there. Nothing when a
    /// search is being built already. The caller has a RunScope of the form.
    void BeginBatch(bool autoPrint);

    /// Starts a search, or a batch, that was started before: the checks, the disclaimer and the
    /// login question come as they do for the form, which stays as it stands. The client code is
    /// the one given; without one it is asked for as always. True when its windows wait.
    bool BeginAgain(SearchEntry entry, const QString &code);
    /// The same for a search that had waited already when its program ended: it has been checked,
    /// and its code entered.
    bool PutBack(const SearchEntry &entry, const QString &code);
    /// Whether the notice of the courts of this search is accepted; asks when it is not yet.
    bool DisclaimerAccepted(const SearchEntry &entry);
    /// Asks for a list of numbers, and starts those that are ticked as a batch. Nothing when a
    /// search is being built already. The caller has a RunScope of the form.
    void BeginList();

    /// The checks of what was entered, with the answer of the function of the same name. Numbers
    /// are rewritten in the court's own form, in `entry` and in their boxes.
    bool ValidateAllFormFields(SearchEntry &entry);
    bool ValidateBkFormFields(SearchEntry &entry);
    bool ValidateBatchSearchFields(SearchEntry &entry);

private:
    /// A text that is to be sent, and the box it was typed in.
    using TypedText = std::pair<QString, QLineEdit *>;

    void foldEntries();
    void takeBackNumbers(const SearchEntry &entry);
    /// Whether the texts may go out: a character that cannot be sent is not lost without the
    /// user's consent.
    bool maySendCharacters(const QList<TypedText> &typed);
    bool maySendNames(const SearchEntry &entry);
    bool maySendBatch(const SearchEntry &entry);
    bool loggedIn();
    /// True when windows wait for their turns.
    bool dispatch(const SearchEntry &entry, const QString &code);
    bool launchBatch(const SearchEntry &entry, const QString &code, bool autoPrint);
    /// The code in force after the user was asked; nothing when the session, or the form, is gone.
    std::optional<QString> codeAsked(bool wanted);
    bool checkedAgain(SearchEntry &entry);
    static bool accountingEnabled();
    static QString currentCode();
    /// The login, the disclaimer and the client code of a batch: the code, or nothing when the
    /// batch is not to begin.
    std::optional<QString> codeOfBatch();
    void RunBatchSearch(const SearchEntry &entry, bool autoPrint);
    void reportNoRequests();
    void reportRequestError(const QString &description);

    void ShowFieldError(const QString &what, const QString &why, const QString &action,
                        const QString &caption) override;
    void Notice(const QString &text, const QString &title, MessageIcon icon) override;
    bool Ask(const QString &text, const QString &title, QuestionButtons buttons,
             MessageIcon icon) override;

    frmSearchWA &form;
    SearchControls &ui;
    RecentsOnForm &recents;
    SlipNote &slips;
    QString pastedList;    ///< a list that was put in and not started, for the next time
    bool building = false; ///< from the click on Start Search until its windows wait
};
