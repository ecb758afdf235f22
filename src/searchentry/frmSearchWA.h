#pragma once

#include "controls/FormWindow.h"
#include "searchentry/FormStates.h"
#include "searchentry/FormTalk.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/SearchEntry.h"
#include "searchentry/SearchEvents.h"
#include "searchentry/SearchLogRow.h"

#include <array>
#include <memory>
#include <utility>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QRadioButton;

namespace Ui {
class frmSearchWA;
}

/// The one screen on which every search is entered. It never talks to the server: it makes the
/// request lines, hands them to a new window, and gives that window a place in the turn queue.
///
/// Every click moves `state` and then shows what FormStates has for it.
class frmSearchWA : public FormWindow, private FormTalk
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
    void LoadSearchProfileList();
    void ResetFormFields();
    void InitCountyRadioBtns();
    void InitMruList(const QString &searchType);
    void ShowMRU();
    void ShowOrHideFrame6();
    void ShowOrHideFrame11();
    void ShowOrHideFrame12();
    void ShowOrHideBatchCaseSearchFrame();
    void ShowOrHideDiscisFrames();
    void LoadAllWaCountyCombos();
    void LoadAllOrCountyCombos();
    void LoadAllIdCountyCombos();

    /// Selects name search on the first court of the state.
    void SelectFirstCourt();
    /// Selects a state of strSearchState ("WA", "OR", "ID", "FED"); any other text leaves the form
    /// as it is.
    void SelectState(const QString &searchState);
    /// The same, and the row in the list of jurisdictions that a start selects.
    void SelectStateAtStart(const QString &searchState);
    /// Selects a court family, as a click on its buttons does.
    void SelectCourt(CourtFamily court);

    /// The checks of what was entered. Numbers are rewritten in the court's own form, in `entry`
    /// and in their boxes.
    bool ValidateAllFormFields(SearchEntry &entry);
    bool ValidateBkFormFields(SearchEntry &entry);
    bool ValidateBatchSearchFields(SearchEntry &entry);
    bool DisplayWaCourtDisclaimer();
    bool DisplayOrCourtDisclaimer();
    bool DisplayIdCourtDisclaimer();

    /// What stands on the form now.
    SearchEntry Entry() const;

    /// One row of the session's search log, "Pending ..": no search writes it by itself.
    void AddRecordToSearchList();
    const QList<SearchLogRow> &SearchList() const { return searchList; }

    // Where the user is, as the texts and numbers of the state
    QString strCurrentCourt;      ///< "WASUP", "WADISCIS", "OR", "IDSUP" or "FED"
    QString strCurrentSearchType; ///< "Individual Name", "Business Name" or "Case Number"
    qint16 intSearchWhere = 0;    ///< 1 county, 2 template, 3 statewide, 5 civil, 6 non-civil

protected:
    void Unloading() override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    frmSearchWA();

    // Clicks
    void optState_Click(int index);
    void optCourtSelection_Click(int index);
    void optOrCDcourts_Click(int index);
    void optSearchType_Click(int index);
    void optSearchWhere_Click(int index);
    void optDiscisSearch_Click(int index);
    void optSearchYears_Click();
    void optCounties_Click(int index);
    void lstJurisdictions_Click(int row);
    void cboxCountyList_Click();
    void cboxLastBizOrCase_Click(int index);
    void cboxCaseMRUs_Click(int index);
    void lboxSearchProfiles_DblClick(int row);
    void chkBulkSearch_Click();
    void chkUseIndex_Click();
    void cmdBatchSearch_Click(int index);
    void cmdBeginSearch_Click();
    void cmdClearForm_Click();
    void cmdEditAcctID_Click();

    // Visibility and lists
    void Connect();
    void ConnectChoices();
    void GoTo(FormState next);
    void SelectCourtState(FormState next);
    void ShowParts();
    void ShowTexts();
    void LoadCountyLists();
    void LoadWaCountyList();
    void LoadOrCountyList();
    void LoadIdCountyList();
    void FillCountyLists(const QStringList &counties);
    void LoadDiscisCountyList();
    void ResetBatchFields();
    void LoadBatchCounties();
    void SetDefaultCounty();
    void ReserveCharacters();
    void ShowCourtStats();
    void ShowChosenCounty();
    void UseRecentEntry(const QString &text);
    void FillRecents(const ShownRecents &entries);
    void ShowRecents();
    void OfferWhileTyping(const QStringList &entries);
    void FocusFirstName();
    bool Shows(FormPart part) const { return parts.testFlag(part); }

    /// A text that is to be sent, and the box it was typed in.
    using TypedText = std::pair<QString, QLineEdit *>;

    // From the entries to a waiting window
    void FoldEntries();
    void TakeBackNumbers(const SearchEntry &entry);
    /// Whether the texts may go out: a character that cannot be sent is not lost without the
    /// user's consent.
    bool MaySendCharacters(const QList<TypedText> &typed);
    bool MaySendNames(const SearchEntry &entry);
    bool MaySendBatch(const SearchEntry &entry);
    bool DisclaimerAccepted(bool batch);
    bool DisplayDisclaimer(size_t index);
    bool LoggedIn();
    void Dispatch(const SearchEntry &entry, const QString &code);
    void StartBatch(bool autoPrint);
    void RunBatchSearch(const SearchEntry &entry, bool autoPrint);
    void ReportNoRequests();
    void ReportRequestError(const QString &description);

    // FormTalk
    void ShowFieldError(const QString &what, const QString &why, const QString &action,
                        const QString &caption) override;
    void Notice(const QString &text, const QString &title, MessageIcon icon) override;
    bool Ask(const QString &text, const QString &title, QuestionButtons buttons,
             MessageIcon icon) override;

    const std::unique_ptr<Ui::frmSearchWA> ui;
    std::array<QLineEdit *, 4> txtSearchName{};
    std::array<QRadioButton *, 4> optState{};
    std::array<QRadioButton *, 5> optCourtSelection{};
    std::array<QRadioButton *, 2> optOrCDcourts{};
    std::array<QRadioButton *, 5> optSearchType{};
    std::array<QRadioButton *, 3> optSearchWhere{};
    std::array<QRadioButton *, 2> optDiscisSearch{};
    std::array<QRadioButton *, 39> optCounties{};
    std::array<QCheckBox *, 4> chkBKcourt{};
    std::array<QLineEdit *, 10> Text1{};
    std::array<QComboBox *, 10> cbCty1{};
    std::array<QAbstractButton *, 5> cmdBatchSearch{};

    FormState state;
    FormParts parts;
    int LastStateIndex = 1;
    bool building = false; ///< from the click on Start Search until its windows wait
    QString courtDisplayName;
    ShownRecents recents; ///< of the type that is being entered
    QList<SearchLogRow> searchList;
};
