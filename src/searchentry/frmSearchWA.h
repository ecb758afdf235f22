#pragma once

#include "controls/FormWindow.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NameRequests.h"

#include <array>
#include <memory>

class QLineEdit;
class QRadioButton;
class frmNameSearchResults;

namespace Ui {
class frmSearchWA;
}

/// What the search form asks of the windows beside it.
class SearchEvents : public QObject
{
    Q_OBJECT
public:
    static SearchEvents &Of();

Q_SIGNALS:
    /// An entry was refused: what is wrong, why, and what to do. Shown before the signal returns.
    void FieldErrorRaised(const QString &what, const QString &why, const QString &action);
};

/// The one screen on which every search is entered. It never talks to the server: it makes the
/// request lines, hands them to a results window, and gives that window a place in the turn queue.
class frmSearchWA : public FormWindow
{
    Q_OBJECT
public:
    /// The one search form, loaded now if it was not.
    static frmSearchWA &Form();
    static bool IsLoaded();

    /// Shows the form, in the main window when there is one, with the focus on the first name box.
    static void ShowForm();
    /// Takes the form off the screen and keeps what was entered.
    static void HideForm();

    ~frmSearchWA() override;

    void LoadCaseTypes(const QString &court);
    void LoadSearchYears();
    void LoadJurisdictionList();
    void ResetFormFields();

    /// Selects name search on the first court of the state.
    void SelectFirstCourt();
    /// Selects a state of strSearchState ("WA", "OR", "ID", "FED"); any other, and a state that
    /// cannot be searched, leaves the form as it is.
    void SelectState(const QString &state);

    bool ValidateAllFormFields();
    bool DisplayWaCourtDisclaimer();

    /// Fills the window's request list. True when the list may be searched.
    bool LoadNameSearchRequests(frmNameSearchResults &form, const NameSearchEntry &entry);

protected:
    void Unloading() override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    frmSearchWA();

    void optState_Click(int index);
    void optCourtSelection_Click(int index);
    void optSearchType_Click(int index);
    void optSearchWhere_Click(int index);
    void optSearchYears_Click();
    void cmdBeginSearch_Click();
    void cmdClearForm_Click();

    void FoldEntries();
    FormEntries Entries() const;
    NameSearchEntry NameEntry() const;
    bool DisclaimerAccepted();
    bool LoggedIn();
    void DispatchNameSearch();
    void ReportRequestError(const QString &description);
    void FocusFirstName();

    const std::unique_ptr<Ui::frmSearchWA> ui;
    std::array<QLineEdit *, 4> txtSearchName{};
    std::array<QRadioButton *, 4> optState{};
    std::array<QRadioButton *, 5> optSearchType{};
    std::array<QRadioButton *, 3> optSearchWhere{};
    int LastStateIndex = 1;
    int searchTypeIndex = -1;
    int searchWhereIndex = -1;
};
