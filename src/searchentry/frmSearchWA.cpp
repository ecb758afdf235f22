#include "searchentry/frmSearchWA.h"

#include "core/GlobalState.h"
#include "core/Options.h"
#include "courts/CaseTypes.h"
#include "courts/DiscisCourts.h"
#include "searchentry/BatchEntries.h"
#include "searchentry/CountyChoice.h"
#include "searchentry/DiscisCourtChoice.h"
#include "searchentry/RecentsOnForm.h"
#include "searchentry/SearchControls.h"
#include "searchentry/SearchStart.h"
#include "searchentry/SearchYears.h"
#include "searchentry/SlipNote.h"
#include "searchentry/frmAccounting.h"
#include "session/frmMain.h"

#include <QKeyEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmSearchWA> loaded;

/// What the buttons of optCourtSelection select. Only the first two are ever seen.
struct CourtButtonRow
{
    int index;
    CourtFamily court;
    QStringView caption; ///< of the form; empty is the family's own
};
constexpr std::array<CourtButtonRow, 4> courtButtons{{
    {0, CourtFamily::Superior, u""},
    {1, CourtFamily::Discis, u""},
    {2, CourtFamily::Bankruptcy, u"Search Entry Form - Federal Bankruptcy Courts"},
    {4, CourtFamily::Idaho, u"Search Entry Form - Idaho District Courts"},
}};

/// The row of the list of jurisdictions that a start selects. The next click on the form selects
/// the row of the family itself.
struct StartRow
{
    QStringView searchState;
    int jurisdiction;
};
constexpr std::array<StartRow, 4> startRows{{{u"WA", 0}, {u"OR", 2}, {u"ID", 2}, {u"FED", 4}}};

/// Chooses a button of a group and makes it the one at which Tab stops: by itself, Tab would go on
/// stopping at the one that was clicked last.
template<size_t count>
void choose(const std::array<QRadioButton *, count> &buttons, int index)
{
    for (size_t i = 0; i < count; ++i) {
        const bool chosen = static_cast<int>(i) == index;
        buttons[i]->setFocusPolicy(chosen ? Qt::StrongFocus : Qt::ClickFocus);
        if (chosen)
            buttons[i]->setChecked(true);
    }
}

/// The texts of the state, and the buttons and the row that are chosen in it.
void showTexts(frmSearchWA &form, const SearchControls &ui, const FormState &state)
{
    const CourtRow &court = CourtRowOf(state.Court);
    const KindRow &kind = KindRowOf(state.Kind);
    form.setWindowTitle(court.caption.toString());
    ui.lblCurrentCourt->setText(court.courtLabel.toString());
    ui.lblCurrentCourt->setVisible(!court.courtLabel.isEmpty());
    if (!court.statewide.isEmpty())
        ui.optSearchWhere[2]->setText(court.statewide.toString());
    ui.lblCaseNumEx->setText(court.numberExample.toString());
    ui.Frame2->setTitle(kind.step.toString());
    const std::array<QLabel *, 4> labels{ui.lblNameSearchLastName, ui.lblNameSearchFirstName,
                                         ui.lblNameSearchMI, ui.lblNameSearchSuffix};
    for (size_t i = 0; i < labels.size(); ++i) {
        labels[i]->setText(kind.labels[i].toString());
        labels[i]->setVisible(!kind.labels[i].isEmpty());
        ui.txtSearchName[i]->setVisible(!kind.labels[i].isEmpty());
    }
    choose(ui.optState, court.stateIndex);
    if (court.courtIndex >= 0)
        choose(ui.optCourtSelection, court.courtIndex);
    choose(ui.optSearchType, static_cast<int>(state.Kind));
    choose(ui.optSearchWhere, static_cast<int>(state.Where) - 1);
    const QSignalBlocker blocker(ui.lstJurisdictions);
    ui.lstJurisdictions->setCurrentRow(static_cast<int>(state.Court));
}

/// Lines of the index and of the bankruptcy courts are divided by "~", which no entry may hold
/// then.
void reserveCharacters(const SearchControls &ui, const FormState &state)
{
    const QString reserved =
        state.Court == CourtFamily::Bankruptcy || ui.chkUseIndex->isChecked() ? u"~"_s : QString();
    for (QLineEdit *line : ui.txtSearchName) {
        auto *box = static_cast<SearchTextBox *>(line);
        box->SetReserved(reserved);
        if (!reserved.isEmpty() && box->text().contains(reserved))
            box->setText(box->text().remove(reserved));
    }
}
} // namespace

SearchEvents &SearchEvents::Of()
{
    static SearchEvents events;
    return events;
}

frmSearchWA::frmSearchWA()
    : ui(std::make_unique<SearchControls>(this)), years(std::make_unique<SearchYears>(*ui)),
      counties(std::make_unique<CountyChoice>(*ui, state)),
      discisCourts(std::make_unique<DiscisCourtChoice>(*ui, state)),
      recents(std::make_unique<RecentsOnForm>(*ui, state)),
      batch(std::make_unique<BatchEntries>(*ui)),
      slips(std::make_unique<SlipNote>(*ui, [this] { return SlipOnForm(); })),
      start(std::make_unique<SearchStart>(*this, *ui, *recents, *slips))
{
    InitCountyRadioBtns();
    LoadJurisdictionList();
    Connect();
    ConnectChoices();

    LoadAppOptions();
    LoadWaCaseTypes();
    LoadDiscisCourts();
    LoadSearchYears();
    GoTo(state);
    courtDisplayName = CourtOf(state.Court).Display.toString();
    optSearchType_Click(0);
    counties->Load();
    SelectState(Global.strDefaultView);
}

frmSearchWA::~frmSearchWA() = default;

frmSearchWA &frmSearchWA::Form()
{
    if (!IsLoaded())
        loaded = new frmSearchWA;
    return *loaded;
}

bool frmSearchWA::IsLoaded()
{
    return loaded && !loaded->IsUnloaded();
}

void frmSearchWA::ShowForm()
{
    const bool wasLoaded = IsLoaded();
    frmSearchWA &form = Form();
    frmMain *main = frmMain::Form();
    if (!wasLoaded && main)
        main->ShowChild(&form);
    else if (main)
        main->ShowChildAgain(&form);
    else
        form.show();
    form.FocusFirstName();
}

void frmSearchWA::HideForm()
{
    if (!IsLoaded())
        return;
    if (frmMain *main = frmMain::Form())
        main->HideChild(loaded);
    else
        loaded->hide();
}

void frmSearchWA::Unloading()
{
    if (loaded == this)
        loaded = nullptr;
}

void frmSearchWA::FocusFirstName()
{
    QLineEdit *first = state.Batch ? ui->Text1[0] : ui->txtSearchName[0];
    first->setFocus();
    first->selectAll();
}

void frmSearchWA::showEvent(QShowEvent *event)
{
    FormWindow::showEvent(event);
    // The program coming back from the task bar is no new visit to the form.
    if (event->spontaneous())
        return;
    ui->cmdEditAcctID->setEnabled(Global.bEnableAcctg || Global.bClientAcctgOpt);
    ShowMRU();
    FocusFirstName();
}

void frmSearchWA::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->isAutoRepeat())
        return;
    if (enter && ui->lboxSearchProfiles->hasFocus())
        lboxSearchProfiles_DblClick(ui->lboxSearchProfiles->currentRow());
    else if (enter)
        ui->cmdBeginSearch->click();
    else if (event->key() == Qt::Key_Escape)
        ui->cmdCancel->click();
    else
        FormWindow::keyPressEvent(event);
}

void frmSearchWA::Connect()
{
    const auto tickAll = [](QPushButton *button, CheckListBox *list, bool tick) {
        connect(button, &QPushButton::clicked, list, [list, tick] { list->SelectAll(tick); });
    };
    tickAll(ui->cmdCheckAll, ui->lboxCountyOrProfile, true);
    tickAll(ui->cmdUnCheckAll, ui->lboxCountyOrProfile, false);
    tickAll(ui->cmdSelAll, ui->lboxCaseTypes, true);
    tickAll(ui->cmdClrAll, ui->lboxCaseTypes, false);
    const auto checkCourts = [this](QPushButton *button, bool check) {
        connect(button, &QPushButton::clicked, this, [this, check] {
            for (QCheckBox *court : ui->chkBKcourt)
                court->setChecked(check);
        });
    };
    checkCourts(ui->cmdSelBk_0, true);
    checkCourts(ui->cmdSelBk_1, false);
    connect(ui->cmdBeginSearch, &QPushButton::clicked, this, &frmSearchWA::cmdBeginSearch_Click);
    connect(ui->cmdClearForm, &QPushButton::clicked, this, &frmSearchWA::cmdClearForm_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
    connect(ui->cmdEditAcctID, &QPushButton::clicked, this, [this] {
        const RunScope scope(this);
        frmAccounting::ShowModal(this);
    });
    connect(&AccountingEvents::Of(), &AccountingEvents::OptionChanged, ui->cmdEditAcctID,
            &QWidget::setEnabled);
    for (size_t i = 0; i < ui->cmdBatchSearch.size(); ++i)
        connect(ui->cmdBatchSearch[i], &QAbstractButton::clicked, this,
                [this, i] { cmdBatchSearch_Click(static_cast<int>(i)); });
    connect(ui->cmdPasteList, &QAbstractButton::clicked, this, [this] {
        const RunScope scope(this);
        start->BeginList();
    });
    for (int topic = 0;; ++topic) {
        auto *link = findChild<LinkLabel *>(u"lblHelp_"_s + QString::number(topic));
        if (!link)
            break;
        // Twelve links read the same; what they are about is in the title of their step.
        if (const auto *step = qobject_cast<QGroupBox *>(link->parentWidget()))
            link->setAccessibleName(u"Help: "_s + step->title().simplified());
        connect(link, &LinkLabel::clicked, this,
                [topic] { Q_EMIT SearchEvents::Of().HelpWanted(static_cast<HelpTopic>(topic)); });
    }
}

void frmSearchWA::ConnectChoices()
{
    // A second click on the chosen one changes nothing, and keeps the entries.
    const auto onChoice = [this](const auto &buttons, auto isChosen, auto click) {
        for (size_t i = 0; i < buttons.size(); ++i) {
            const int index = static_cast<int>(i);
            connect(buttons[i], &QRadioButton::clicked, this, [this, index, isChosen, click] {
                if (!isChosen(index))
                    (this->*click)(index);
            });
        }
    };
    onChoice(
        ui->optState, [this](int i) { return i == LastStateIndex; }, &frmSearchWA::optState_Click);
    onChoice(
        ui->optCourtSelection, [this](int i) { return i == CourtRowOf(state.Court).courtIndex; },
        &frmSearchWA::optCourtSelection_Click);
    onChoice(
        ui->optOrCDcourts, [](int) { return false; }, &frmSearchWA::optOrCDcourts_Click);
    onChoice(
        ui->optSearchType, [this](int i) { return i == static_cast<int>(state.Kind); },
        &frmSearchWA::optSearchType_Click);
    // The template list comes back by a click on its button when a template has taken its place.
    onChoice(
        ui->optSearchWhere,
        [this](int i) { return i + 1 == static_cast<int>(state.Where) && !state.TemplateApplied; },
        &frmSearchWA::optSearchWhere_Click);
    onChoice(
        ui->optDiscisSearch,
        [this](int i) {
            return (intSearchWhere == static_cast<qint16>(SearchScope::DiscisCivil)) == (i == 0);
        },
        &frmSearchWA::optDiscisSearch_Click);
    connect(ui->lstJurisdictions, &QListWidget::currentRowChanged, this,
            &frmSearchWA::lstJurisdictions_Click);
    // The row that a start selects need not be the family's own: a click on it goes there still.
    connect(ui->lstJurisdictions, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) {
        lstJurisdictions_Click(ui->lstJurisdictions->row(item));
    });
    connect(ui->lboxSearchProfiles, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem *item) {
                lboxSearchProfiles_DblClick(ui->lboxSearchProfiles->row(item));
            });
    connect(ui->chkBulkSearch, &QCheckBox::toggled, this, &frmSearchWA::chkBulkSearch_Click);
    connect(ui->chkUseIndex, &QCheckBox::toggled, this, [this] { reserveCharacters(*ui, state); });
}

// ---- where the user is, and what that shows ----

/// Moves to a state of the form and shows it. Entries stay, lists that are the same stay.
void frmSearchWA::GoTo(FormState next)
{
    next = Settled(next);
    const bool indexWasOffered = Shows(FormPart::UseIndex);
    const QPointer<QWidget> focused = focusWidget();
    const FormState before = std::exchange(state, next);
    parts = ViewOf(state);
    const CourtRow &court = CourtRowOf(state.Court);
    Global.strSearchState = CourtOf(state.Court).SearchState.toString();
    strCurrentCourt = CourtOf(state.Court).CurrentCourt.toString();
    strCurrentSearchType = KindRowOf(state.Kind).type.toString();
    if (state.Court != CourtFamily::Discis)
        intSearchWhere = static_cast<qint16>(state.Where);
    LastStateIndex = court.stateIndex;
    ShowParts();
    // Whether the index is used is a setting, until the user says otherwise for this search.
    if (Shows(FormPart::UseIndex) != indexWasOffered)
        ui->chkUseIndex->setChecked(Shows(FormPart::UseIndex)
                                    && Global.strDefaultToWaIndex == u"1");
    // An identifier is nobody's name: it would go to the other court as one.
    if (before.Court != state.Court && IsIdentifier(before.Kind))
        ui->txtSearchName[0]->clear();
    if (before.Kind != state.Kind || before.Batch != state.Batch)
        ShowMRU();
    reserveCharacters(*ui, state);
    slips->LookAgain();
    // Whoever was in a box that has gone goes on in the first one that is there.
    if (focused && !focused->isVisibleTo(this))
        FocusFirstName();
}

void frmSearchWA::ShowParts()
{
    const std::array<std::pair<FormPart, QWidget *>, 13> simple{{
        {FormPart::CourtSelection, ui->Frame14},
        {FormPart::OrCDcourts, ui->frameOrCDcourts},
        {FormPart::UseIndex, ui->chkUseIndex},
        {FormPart::BatchEntry, ui->chkBulkSearch},
        {FormPart::BankruptcyTypes, ui->optSearchType_3},
        {FormPart::BankruptcyTypes, ui->optSearchType_4},
        {FormPart::Name, ui->Frame2},
        {FormPart::NumberExample, ui->lblCaseNumEx},
        {FormPart::BankruptcyCourts, ui->frameBK1},
        {FormPart::CaseTypes, ui->Frame4},
        {FormPart::JudgmentsOnly, ui->optORjgmtsONLY},
        {FormPart::Years, ui->Frame5},
        {FormPart::BankruptcyYears, ui->frameBK2},
    }};
    // Laid out once, at the end: old and new parts together would make the window grow.
    layout()->setEnabled(false);
    for (const auto &[part, widget] : simple)
        widget->setVisible(Shows(part));
    ShowOrHideFrame6();
    ShowOrHideFrame11();
    ShowOrHideFrame12();
    ShowOrHideBatchCaseSearchFrame();
    ShowOrHideDiscisFrames();
    showTexts(*this, *ui, state);
    layout()->setEnabled(true);
    layout()->activate();
    const QSignalBlocker blocker(ui->chkBulkSearch);
    ui->chkBulkSearch->setChecked(state.Batch);
    if (!Shows(FormPart::JudgmentsOnly))
        ui->optORjgmtsONLY->setChecked(false);
}

void frmSearchWA::ShowOrHideFrame6()
{
    ui->Frame6->setVisible(Shows(FormPart::CountyButtons));
}

void frmSearchWA::ShowOrHideFrame12()
{
    ui->Frame12->setVisible(Shows(FormPart::OneJurisdiction));
}

void frmSearchWA::ShowOrHideBatchCaseSearchFrame()
{
    ui->frameBulkSearch->setVisible(Shows(FormPart::Batch));
}

void frmSearchWA::ShowOrHideDiscisFrames()
{
    ui->Frame8->setVisible(Shows(FormPart::DiscisCaseType));
    ui->Frame9->setVisible(Shows(FormPart::DiscisCourtList));
}

/// How the choice of counties stands in this scope.
void frmSearchWA::ShowOrHideFrame11()
{
    ui->Frame11->setVisible(Shows(FormPart::Jurisdictions));
    ui->lboxCountyOrProfile->setVisible(Shows(FormPart::CountyList));
    ui->lboxSearchProfiles->setVisible(Shows(FormPart::TemplateList));
    const bool chooses = Shows(FormPart::CountyList) && state.Where != SearchScope::Statewide;
    ui->lboxCountyOrProfile->setEnabled(chooses);
    ui->cmdCheckAll->setEnabled(chooses);
    ui->cmdUnCheckAll->setEnabled(chooses);
    ui->lblCountyOrProfile->setText(
        state.TemplateApplied
            ? u"Template Loaded. Double-click 'Templates' for the Template List."_s
            : ScopeRowOf(state.Where).label.toString());
    ui->lblCountyOrProfile->setBuddy(Shows(FormPart::TemplateList)
                                         ? static_cast<QWidget *>(ui->lboxSearchProfiles)
                                         : static_cast<QWidget *>(ui->lboxCountyOrProfile));
}

// ---- clicks ----

void frmSearchWA::optState_Click(int index)
{
    FormState next = state;
    next.Court = FirstCourtOf(index);
    SelectCourtState(next);
}

void frmSearchWA::optCourtSelection_Click(int index)
{
    for (const CourtButtonRow &row : courtButtons) {
        if (row.index != index)
            continue;
        FormState next = state;
        next.Court = row.court;
        SelectCourtState(next);
        if (!row.caption.isEmpty())
            setWindowTitle(row.caption.toString());
    }
}

/// Goes to another court: its own counties, case types and courts, all still to be chosen.
void frmSearchWA::SelectCourtState(FormState next)
{
    next.Where = SearchScope::Counties;
    next.Batch = false;
    GoTo(next);
    courtDisplayName = CourtOf(state.Court).Display.toString();
    // A court begins as the setting says, also when it is chosen again.
    ui->chkUseIndex->setChecked(Shows(FormPart::UseIndex) && Global.strDefaultToWaIndex == u"1");
    LoadCaseTypes(strCurrentCourt);
    counties->Load();
    if (state.Court == CourtFamily::Discis)
        optDiscisSearch_Click(0);
}

void frmSearchWA::SelectCourt(CourtFamily court)
{
    FormState next = state;
    next.Court = court;
    SelectCourtState(next);
    if (court == CourtFamily::Oregon)
        choose(ui->optOrCDcourts, 0);
}

void frmSearchWA::optOrCDcourts_Click(int index)
{
    choose(ui->optOrCDcourts, index);
}

void frmSearchWA::lstJurisdictions_Click(int row)
{
    if (row >= 0 && row != static_cast<int>(state.Court))
        SelectCourt(static_cast<CourtFamily>(row));
}

void frmSearchWA::optSearchType_Click(int index)
{
    FormState next = state;
    next.Kind = static_cast<SearchKind>(index);
    next.Batch = false;
    GoTo(next);
    if (KindRowOf(state.Kind).empties) {
        for (QLineEdit *box : ui->txtSearchName)
            box->clear();
        LoadCaseTypes(strCurrentCourt);
    }
    if (state.Court == CourtFamily::Discis)
        discisCourts->LoadDiscisCountyList(static_cast<SearchScope>(intSearchWhere));
}

void frmSearchWA::optSearchWhere_Click(int index)
{
    FormState next = state;
    next.Where = static_cast<SearchScope>(index + 1);
    next.TemplateApplied = false;
    GoTo(next);
    counties->Load();
    if (next.Where == SearchScope::Template)
        LoadSearchProfileList();
}

void frmSearchWA::optDiscisSearch_Click(int index)
{
    choose(ui->optDiscisSearch, index);
    intSearchWhere =
        static_cast<qint16>(index == 0 ? SearchScope::DiscisCivil : SearchScope::DiscisNonCivil);
    discisCourts->LoadDiscisCountyList(static_cast<SearchScope>(intSearchWhere));
}

void frmSearchWA::chkBulkSearch_Click()
{
    FormState next = state;
    next.Batch = ui->chkBulkSearch->isChecked();
    GoTo(next);
    if (!state.Batch)
        return;
    batch->LoadCounties(state.Court);
    ui->Text1[0]->setFocus();
}

void frmSearchWA::ResetFormFields()
{
    FormState next = state;
    next.Kind = SearchKind::Person;
    next.Where = SearchScope::Counties;
    next.TemplateApplied = false;
    next.Batch = false;
    GoTo(next);
    optSearchType_Click(0);
    counties->Load();
    LoadSearchYears();
    ui->optORjgmtsONLY->setChecked(false);
    for (QCheckBox *court : ui->chkBKcourt)
        court->setChecked(false);
    // As it has always been called after that, whatever the court.
    courtDisplayName = CourtOf(CourtFamily::Superior).Display.toString();
}

void frmSearchWA::cmdClearForm_Click()
{
    ResetFormFields();
    FocusFirstName();
}

void frmSearchWA::SelectFirstCourt()
{
    ui->optCourtSelection[0]->setChecked(true);
    optCourtSelection_Click(0);
}

void frmSearchWA::SelectState(const QString &searchState)
{
    for (const CourtRow &row : CourtRows()) {
        if (CourtOf(row.court).SearchState != searchState)
            continue;
        if (LastStateIndex != row.stateIndex)
            optState_Click(row.stateIndex);
        return;
    }
}

void frmSearchWA::SelectStateAtStart(const QString &searchState)
{
    SelectState(searchState);
    for (const StartRow &row : startRows) {
        if (row.searchState != searchState)
            continue;
        const QSignalBlocker blocker(ui->lstJurisdictions);
        ui->lstJurisdictions->setCurrentRow(row.jurisdiction);
    }
}
