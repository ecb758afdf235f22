#include "searchentry/frmSearchWA.h"

#include "core/Clock.h"
#include "core/GlobalState.h"
#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "session/frmMain.h"
#include "ui_frmSearchWA.h"

#include <QKeyEvent>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmSearchWA> loaded;

constexpr int firstYear = 1970;

/// What selecting a state sets, by the index of its button.
struct StateRow
{
    QStringView state;
    QStringView court;
    QStringView caption;
    QStringView statewide; ///< caption of the statewide button; empty leaves it
    int jurisdiction;      ///< the row of lstJurisdictions for its first court
};
constexpr std::array<StateRow, 4> stateRows{{
    {u"OR", u"OR", u"Search Entry Form - OR. Circuit/District Court", u"State&wide (37 Counties)",
     2},
    {u"WA", u"WASUP", u"Search Entry Form - WA. Superior Courts", u"State&wide (39 Counties)", 0},
    {u"FED", u"FED", u"Search Entry Form - Federal Bankruptcy Courts", u"", 4},
    {u"ID", u"IDSUP", u"Search Entry Form - ID. District Courts", u"State&wide (44 Counties)", 2},
}};

/// What a search type shows, by the index of its button.
struct SearchTypeRow
{
    QStringView type;
    QStringView step;
    std::array<QStringView, 4> labels; ///< an empty label hides its box too
};
constexpr std::array<SearchTypeRow, 2> searchTypeRows{{
    {u"Individual Name",
     u" STEP 3:   Enter Name",
     {u"Last Name:", u"First Name:", u"M.I.:", u"Suffix (Jr. etc.):"}},
    {u"Business Name", u" STEP 3:   Enter Business Name", {u"Business Name:", u"", u"", u""}},
}};

/// What a scope shows, by the index of its button.
struct SearchWhereRow
{
    qint16 where;
    QStringView label;
};
constexpr std::array<SearchWhereRow, 3> searchWhereRows{{
    {1, u"Select County (multiple selections allowed):"},
    {2, u"Select the Template to use by Double-Clicking:"},
    {3, u"Select County (Statewide Selected):"},
}};

template<typename Button, size_t count>
void findArray(const QWidget *form, const QString &name, std::array<Button *, count> &buttons)
{
    for (size_t i = 0; i < count; ++i)
        buttons[i] = form->findChild<Button *>(name + u'_' + QString::number(i));
}
} // namespace

SearchEvents &SearchEvents::Of()
{
    static SearchEvents events;
    return events;
}

frmSearchWA::frmSearchWA() : ui(std::make_unique<Ui::frmSearchWA>())
{
    ui->setupUi(this);
    findArray(this, u"txtSearchName"_s, txtSearchName);
    findArray(this, u"optState"_s, optState);
    findArray(this, u"optSearchType"_s, optSearchType);
    findArray(this, u"optSearchWhere"_s, optSearchWhere);
    for (int i = 0; i < static_cast<int>(optState.size()); ++i)
        connect(optState[static_cast<size_t>(i)], &QRadioButton::clicked, this, [this, i] {
            // A second click on the chosen one changes nothing, and keeps the entries.
            if (i != LastStateIndex)
                optState_Click(i);
        });
    for (int i = 0; i < static_cast<int>(optSearchType.size()); ++i)
        connect(optSearchType[static_cast<size_t>(i)], &QRadioButton::clicked, this, [this, i] {
            if (i != searchTypeIndex)
                optSearchType_Click(i);
        });
    for (int i = 0; i < static_cast<int>(optSearchWhere.size()); ++i)
        connect(optSearchWhere[static_cast<size_t>(i)], &QRadioButton::clicked, this, [this, i] {
            if (i != searchWhereIndex)
                optSearchWhere_Click(i);
        });
    connect(ui->optCourtSelection_0, &QRadioButton::clicked, this,
            [this] { optCourtSelection_Click(0); });
    connect(ui->optSearchYears_0, &QRadioButton::toggled, this, &frmSearchWA::optSearchYears_Click);
    connect(ui->cmdCheckAll, &QPushButton::clicked, this,
            [this] { ui->lboxCountyOrProfile->SelectAll(true); });
    connect(ui->cmdUnCheckAll, &QPushButton::clicked, this,
            [this] { ui->lboxCountyOrProfile->SelectAll(false); });
    connect(ui->cmdSelAll, &QPushButton::clicked, this,
            [this] { ui->lboxCaseTypes->SelectAll(true); });
    connect(ui->cmdClrAll, &QPushButton::clicked, this,
            [this] { ui->lboxCaseTypes->SelectAll(false); });
    connect(ui->cmdBeginSearch, &QPushButton::clicked, this, &frmSearchWA::cmdBeginSearch_Click);
    connect(ui->cmdClearForm, &QPushButton::clicked, this, &frmSearchWA::cmdClearForm_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });

    LoadWaCaseTypes();
    LoadDiscisCourts();
    LoadJurisdictionList();
    optState_Click(LastStateIndex);
    optState[static_cast<size_t>(LastStateIndex)]->setChecked(true);
    ResetFormFields();
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
    txtSearchName[0]->setFocus();
    txtSearchName[0]->selectAll();
}

void frmSearchWA::showEvent(QShowEvent *event)
{
    FormWindow::showEvent(event);
    FocusFirstName();
}

void frmSearchWA::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        ui->cmdBeginSearch->click();
    else if (event->key() == Qt::Key_Escape)
        ui->cmdCancel->click();
    else
        FormWindow::keyPressEvent(event);
}

void frmSearchWA::LoadCaseTypes(const QString &court)
{
    ui->lboxCaseTypes->SetItems(CaseTypesOf(court));
}

void frmSearchWA::LoadJurisdictionList()
{
    // The row of an item is the number of its court family.
    ui->lstJurisdictions->addItems(
        {u"Washington State Superior Court"_s, u"Washington State District/Municipal Courts"_s,
         u"Oregon State Circuit/District Courts"_s, u"Idaho State District Courts"_s,
         u"U.S. Courts - Federal Bankruptcy Courts"_s});
    ui->lstJurisdictions->setCurrentRow(0);
}

void frmSearchWA::LoadSearchYears()
{
    const int thisYear = Clock::Current().Now().date().year();
    QStringList years;
    for (int year = firstYear; year <= thisYear; ++year)
        years.append(QString::number(year));
    for (QComboBox *box : {ui->cboxSearchStartYear, ui->cboxSearchEndYear}) {
        box->clear();
        box->addItems(years);
    }
    ui->cboxSearchStartYear->setCurrentIndex(0);
    ui->cboxSearchEndYear->setCurrentIndex(ui->cboxSearchEndYear->count() - 1);
    ui->optSearchYears_0->setChecked(true);
    optSearchYears_Click();
}

void frmSearchWA::optSearchYears_Click()
{
    const bool range = ui->optSearchYears_1->isChecked();
    for (QWidget *control : {static_cast<QWidget *>(ui->cboxSearchStartYear),
                             static_cast<QWidget *>(ui->cboxSearchEndYear),
                             static_cast<QWidget *>(ui->lblSearchStartYear),
                             static_cast<QWidget *>(ui->lblSearchEndYear)})
        control->setEnabled(range);
}

void frmSearchWA::optState_Click(int index)
{
    const StateRow &row = stateRows.at(static_cast<size_t>(index));
    Global.strSearchState = row.state.toString();
    Global.strCurrentCourt = row.court.toString();
    setWindowTitle(row.caption.toString());
    if (!row.statewide.isEmpty())
        optSearchWhere[2]->setText(row.statewide.toString());
    LastStateIndex = index;
    LoadCaseTypes(Global.strCurrentCourt);
    optSearchWhere[0]->setChecked(true);
    optSearchWhere_Click(0);
}

void frmSearchWA::optCourtSelection_Click(int index)
{
    if (index != 0)
        return;
    Global.strCurrentCourt = u"WASUP"_s;
    setWindowTitle(u"Search Entry Form - WA. Superior Courts"_s);
    ui->lblCurrentCourt->setText(u"[Current Court  -  WA Superior]"_s);
    optSearchWhere[0]->setChecked(true);
    optSearchWhere_Click(0);
}

void frmSearchWA::optSearchType_Click(int index)
{
    if (index >= static_cast<int>(searchTypeRows.size()))
        return;
    const SearchTypeRow &row = searchTypeRows[static_cast<size_t>(index)];
    searchTypeIndex = index;
    Global.strCurrentSearchType = row.type.toString();
    ui->Frame2->setTitle(row.step.toString());
    const std::array<QLabel *, 4> labels{ui->lblNameSearchLastName, ui->lblNameSearchFirstName,
                                         ui->lblNameSearchMI, ui->lblNameSearchSuffix};
    for (size_t i = 0; i < labels.size(); ++i) {
        labels[i]->setText(row.labels[i].toString());
        labels[i]->setVisible(!row.labels[i].isEmpty());
        txtSearchName[i]->setVisible(!row.labels[i].isEmpty());
        txtSearchName[i]->clear();
    }
    LoadCaseTypes(Global.strCurrentCourt);
}

void frmSearchWA::optSearchWhere_Click(int index)
{
    const SearchWhereRow &row = searchWhereRows.at(static_cast<size_t>(index));
    searchWhereIndex = index;
    Global.intSearchWhere = row.where;
    ui->lblCountyOrProfile->setText(row.label.toString());
    const bool statewide = row.where == 3;
    ui->lboxCountyOrProfile->SetItems(statewide ? QStringList{u"(Statewide)"_s} : WaCountyNames());
    if (statewide)
        ui->lboxCountyOrProfile->SelectAll(true);
    ui->lboxCountyOrProfile->setEnabled(!statewide);
    ui->cmdCheckAll->setEnabled(!statewide);
    ui->cmdUnCheckAll->setEnabled(!statewide);
}

void frmSearchWA::ResetFormFields()
{
    optSearchType[0]->setChecked(true);
    optSearchType_Click(0);
    for (QLineEdit *box : txtSearchName)
        box->clear();
    optSearchWhere[0]->setChecked(true);
    optSearchWhere_Click(0);
    LoadCaseTypes(Global.strCurrentCourt);
    LoadSearchYears();
}

void frmSearchWA::cmdClearForm_Click()
{
    ResetFormFields();
    FocusFirstName();
}

void frmSearchWA::SelectFirstCourt()
{
    ui->optCourtSelection_0->setChecked(true);
    optCourtSelection_Click(0);
}

void frmSearchWA::SelectState(const QString &state)
{
    for (size_t i = 0; i < stateRows.size(); ++i) {
        if (stateRows[i].state != state || !optState[i]->isEnabled())
            continue;
        optState[i]->setChecked(true);
        ui->lstJurisdictions->setCurrentRow(stateRows[i].jurisdiction);
        if (LastStateIndex != static_cast<int>(i))
            optState_Click(static_cast<int>(i));
    }
}
