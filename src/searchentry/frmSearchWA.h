#pragma once

#include "controls/FormWindow.h"
#include "searchentry/FormStates.h"
#include "searchentry/SearchEntry.h"
#include "searchentry/SearchEvents.h"
#include "searchentry/SearchLogRow.h"

#include <memory>

class BatchEntries;
class CountyChoice;
class DiscisCourtChoice;
class RecentsOnForm;
class SearchStart;
class SearchYears;
class SlipNote;
struct SearchControls;

/// The one screen on which every search is entered. It never talks to the server: it makes the
/// request lines, hands them to a new window, and gives that window a place in the turn queue.
///
/// Every click moves `state` and then shows what FormStates has for it. What goes on within a part
/// of the form is a class of its own, on the same controls: the years, the counties, the District
/// and Municipal Courts, the recent entries, the rows of a batch, and the start of a search.
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
    /// Puts a search on the form as if the user had just entered it; nothing that stood there is
    /// left. False when something of it is not offered any more, such as a county: the form has the
    /// rest then.
    bool Fill(const SearchEntry &entry);

    /// What starts searches, also those that were started before.
    SearchStart &Start() { return *start; }

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
    void lstJurisdictions_Click(int row);
    void lboxSearchProfiles_DblClick(int row);
    void chkBulkSearch_Click();
    void cmdBatchSearch_Click(int index);
    void cmdBeginSearch_Click();
    void cmdClearForm_Click();

    // Visibility
    void Connect();
    void ConnectChoices();
    void GoTo(FormState next);
    void SelectCourtState(FormState next);
    void ShowParts();
    void FocusFirstName();
    bool Shows(FormPart part) const { return parts.testFlag(part); }
    QString SlipOnForm() const;

    FormState state;
    FormParts parts;
    int LastStateIndex = 1;
    QString courtDisplayName;
    QList<SearchLogRow> searchList;

    const std::unique_ptr<SearchControls> ui;
    const std::unique_ptr<SearchYears> years;
    const std::unique_ptr<CountyChoice> counties;
    const std::unique_ptr<DiscisCourtChoice> discisCourts;
    const std::unique_ptr<RecentsOnForm> recents;
    const std::unique_ptr<BatchEntries> batch;
    const std::unique_ptr<SlipNote> slips;
    const std::unique_ptr<SearchStart> start;
};
