// The lists of the search form: what they hold, and what choosing in them does.

#include "core/Clock.h"
#include "core/GlobalState.h"
#include "courts/CaseTypes.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "searchentry/DiscisRequests.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/SearchTemplates.h"
#include "searchentry/frmSearchWA.h"
#include "ui_frmSearchWA.h"

#include <QCompleter>

using namespace Qt::StringLiterals;

namespace {
constexpr int firstYear = 1970;
constexpr int firstBankruptcyYear = 1980;
constexpr int countyButtonColumns = 8;

/// The first entries of the county box of the District and Municipal Courts.
constexpr QStringView allCounties = u"-- ALL COUNTIES/STATEWIDE --";
constexpr QStringView addressesOnly = u"-- SHOW ADDRESS/DEFS ONLY --";

QString courtStats(const QString &available, const QString &selected)
{
    return u"Courts Available: "_s + available + u"   Courts Selected: "_s + selected;
}

void fillCombos(const std::array<QComboBox *, 10> &boxes, const QStringList &counties,
                const QString &defaultCounty)
{
    for (QComboBox *box : boxes) {
        box->clear();
        box->addItem(noCountySelected.toString());
        box->addItems(counties);
        box->setCurrentIndex(std::max(0, box->findText(defaultCounty)));
    }
}
QStringList textsOf(const QListWidget *list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts.append(list->item(i)->text());
    return texts;
}

void tickTemplate(CheckListBox *list, const QString &names)
{
    for (const int row : RowsOfTemplate(names, textsOf(list)))
        list->SetSelected(row, true);
}
} // namespace

void frmSearchWA::LoadJurisdictionList()
{
    // The row of an item is the number of its court family.
    const QSignalBlocker blocker(ui->lstJurisdictions);
    ui->lstJurisdictions->addItems(
        {u"Washington State Superior Court"_s, u"Washington State District/Municipal Courts"_s,
         u"Oregon State Circuit/District Courts"_s, u"Idaho State District Courts"_s,
         u"U.S. Courts - Federal Bankruptcy Courts"_s});
    ui->lstJurisdictions->setCurrentRow(0);
    // All five are always seen whole.
    const QSize frame(2 * ui->lstJurisdictions->frameWidth(),
                      2 * ui->lstJurisdictions->frameWidth());
    const QSize texts(ui->lstJurisdictions->sizeHintForColumn(0),
                      ui->lstJurisdictions->count() * ui->lstJurisdictions->sizeHintForRow(0));
    ui->lstJurisdictions->setMinimumSize(texts + frame);
    ui->lstJurisdictions->setMaximumHeight((texts + frame).height());
}

void frmSearchWA::LoadCaseTypes(const QString &court)
{
    ui->lboxCaseTypes->SetItems(CaseTypesOf(court));
}

// ---- years ----

void frmSearchWA::LoadSearchYears()
{
    const int thisYear = Clock::Current().Now().date().year();
    QStringList years;
    for (int year = firstYear; year <= thisYear; ++year)
        years.append(QString::number(year));
    for (QComboBox *box : {ui->cboxSearchStartYear, ui->cboxSearchEndYear, ui->cboxSearchStartYear1,
                           ui->cboxSearchEndYear1}) {
        box->clear();
        box->addItems(years);
        box->setCurrentIndex(box->count() - 1);
    }
    ui->cboxSearchStartYear->setCurrentIndex(0);
    // The bankruptcy records begin ten years after the list does.
    ui->cboxSearchStartYear1->setCurrentIndex(
        ui->cboxSearchStartYear1->findText(QString::number(firstBankruptcyYear)));
    ui->optSearchYears_0->setChecked(true);
    ui->optSearchYears1_0->setChecked(true);
    optSearchYears_Click();
}

void frmSearchWA::optSearchYears_Click()
{
    const auto open = [](bool range, std::initializer_list<QWidget *> controls) {
        for (QWidget *control : controls)
            control->setEnabled(range);
    };
    open(ui->optSearchYears_1->isChecked(), {ui->cboxSearchStartYear, ui->cboxSearchEndYear,
                                             ui->lblSearchStartYear, ui->lblSearchEndYear});
    open(ui->optSearchYears1_1->isChecked(), {ui->cboxSearchStartYear1, ui->cboxSearchEndYear1,
                                              ui->lblSearchStartYear1, ui->lblSearchEndYear1});
}

// ---- counties ----

void frmSearchWA::InitCountyRadioBtns()
{
    auto *grid = static_cast<QGridLayout *>(ui->Frame6->layout());
    const QStringList counties = WaCountyNames();
    // Between the steps above them and the buttons below.
    QWidget *before = ui->lblHelp_11;
    for (size_t i = 0; i < optCounties.size(); ++i) {
        const int index = static_cast<int>(i);
        auto *button = new QRadioButton(counties.at(index), ui->Frame6);
        button->setObjectName(u"optCounties_"_s + QString::number(index));
        connect(button, &QRadioButton::clicked, this, [this, index] { optCounties_Click(index); });
        grid->addWidget(button, index / countyButtonColumns, index % countyButtonColumns);
        setTabOrder(before, button);
        before = button;
        optCounties[i] = button;
    }
}

/// One county instead of all that were ticked.
void frmSearchWA::optCounties_Click(int index)
{
    ui->lboxCountyOrProfile->SelectAll(false);
    ui->lboxCountyOrProfile->SetSelected(index, true);
    ui->lboxCountyOrProfile->setCurrentRow(index);
}

/// The button of the county that is ticked, when it is the only one.
void frmSearchWA::ShowChosenCounty()
{
    if (!Shows(FormPart::CountyButtons))
        return;
    const QStringList chosen = ui->lboxCountyOrProfile->Selected();
    const auto index = chosen.size() == 1 ? WaCountyNames().indexOf(chosen.first()) : -1;
    for (size_t i = 0; i < optCounties.size(); ++i) {
        // The last button of a group cannot be put out while the group is one.
        optCounties[i]->setAutoExclusive(false);
        optCounties[i]->setChecked(static_cast<qsizetype>(i) == index);
        optCounties[i]->setAutoExclusive(true);
    }
}

/// The counties of the court, for a name and for a number.
void frmSearchWA::LoadCountyLists()
{
    switch (state.Court) {
    case CourtFamily::Superior:
        LoadWaCountyList();
        break;
    case CourtFamily::Oregon:
        LoadOrCountyList();
        break;
    case CourtFamily::Idaho:
        LoadIdCountyList();
        break;
    default:
        FillCountyLists({});
    }
}

void frmSearchWA::LoadWaCountyList()
{
    FillCountyLists(WaCountyNames());
}

void frmSearchWA::LoadOrCountyList()
{
    FillCountyLists(OrCountyNames());
}

void frmSearchWA::LoadIdCountyList()
{
    LoadIdCounties();
    FillCountyLists(IdCountyList());
}

void frmSearchWA::FillCountyLists(const QStringList &counties)
{
    const bool statewide = state.Where == SearchScope::Statewide;
    ui->lboxCountyOrProfile->SetItems(statewide ? QStringList{u"(Statewide)"_s} : counties);
    if (statewide)
        ui->lboxCountyOrProfile->SelectAll(true);
    ui->lboxMultiJurisdiction->clear();
    ui->lboxMultiJurisdiction->addItems(counties);
    ShowChosenCounty();
}

// ---- courts of a district or municipality ----

void frmSearchWA::LoadDiscisCountyList()
{
    QComboBox *box = ui->cboxCountyList;
    const QString chosen = box->count() > 0 ? box->currentText() : Global.strDefaultWaCounty;
    {
        const QSignalBlocker blocker(box);
        box->clear();
        box->addItem(allCounties.toString());
        if (state.Kind == SearchKind::Person
            && intSearchWhere == static_cast<qint16>(SearchScope::DiscisNonCivil))
            box->addItem(addressesOnly.toString());
        box->addItems(WaCountyNames());
        box->setCurrentIndex(std::max(0, box->findText(chosen)));
    }
    cboxCountyList_Click();
}

void frmSearchWA::cboxCountyList_Click()
{
    const QString county = ui->cboxCountyList->currentText();
    // A number is looked for in one court, which is for the user to say.
    const bool all = state.Kind != SearchKind::Number;
    const bool statewide = county == allCounties || county == addressesOnly;
    QStringList courts;
    if (statewide) {
        courts = {(county == allCounties ? discisStatewideItem : discisDefendantsItem).toString()};
    } else {
        for (const clsDiscisCourts &court : DiscisCourts()) {
            if (court.CourtCounty == county)
                courts.append(court.ListText());
        }
    }
    {
        const QSignalBlocker blocker(ui->lboxDiscisCourtNames);
        ui->lboxDiscisCourtNames->SetItems(courts);
        ui->lboxDiscisCourtNames->SelectAll(all);
        // A number cannot be looked for in the whole state.
        ui->lboxDiscisCourtNames->setEnabled(all || !statewide);
    }
    ui->cmdSelectAllCourts->setEnabled(!statewide);
    ui->cmdClearCourtList->setEnabled(!statewide);
    ShowCourtStats();
}

void frmSearchWA::ShowCourtStats()
{
    const CheckListBox *list = ui->lboxDiscisCourtNames;
    const auto selected = list->Selected().size();
    const int county = ui->cboxCountyList->currentIndex();
    const bool statewide =
        list->count() == 1 && county >= 0 && ui->cboxCountyList->currentText().startsWith(u"--");
    const QString every = QString::number(discisCourtsShown);
    if (statewide)
        ui->lblCourtNameStats->setText(courtStats(every, selected > 0 ? every : u"0 (zero)"_s));
    else
        ui->lblCourtNameStats->setText(
            courtStats(QString::number(list->count()), QString::number(selected)));
}

// ---- the batch ----

void frmSearchWA::LoadAllWaCountyCombos()
{
    fillCombos(cbCty1, WaCountyNames(), Global.strDefaultWaCounty);
}

void frmSearchWA::LoadAllOrCountyCombos()
{
    fillCombos(cbCty1, OrCountyNames(), Global.strDefaultOrCounty);
}

void frmSearchWA::LoadAllIdCountyCombos()
{
    LoadIdCounties();
    fillCombos(cbCty1, IdCountyList(), Global.strDefaultIDCounty);
}

void frmSearchWA::ResetBatchFields()
{
    for (QLineEdit *number : Text1)
        number->clear();
    LoadBatchCounties();
}

void frmSearchWA::LoadBatchCounties()
{
    if (state.Court == CourtFamily::Superior)
        LoadAllWaCountyCombos();
    else if (state.Court == CourtFamily::Oregon)
        LoadAllOrCountyCombos();
    else if (state.Court == CourtFamily::Idaho)
        LoadAllIdCountyCombos();
}

// ---- templates ----

void frmSearchWA::LoadSearchProfileList()
{
    LoadTemplates();
    ui->lboxSearchProfiles->clear();
    for (const SearchTemplate &record : SearchTemplates())
        ui->lboxSearchProfiles->addItem(record.Name);
}

void frmSearchWA::lboxSearchProfiles_DblClick(int row)
{
    const QListWidgetItem *item = ui->lboxSearchProfiles->item(row);
    if (!item)
        return;
    const SearchTemplate *record = SearchTemplateByName(item->text());
    if (!record)
        return;
    LoadCountyLists();
    ui->lboxCaseTypes->SelectAll(false);
    tickTemplate(ui->lboxCountyOrProfile, record->Juris);
    tickTemplate(ui->lboxCaseTypes, record->Cases);
    FormState next = state;
    next.TemplateApplied = true;
    GoTo(next);
    ui->lboxCountyOrProfile->setFocus();
}

// ---- recent entries ----

/// Fills the box of the recent entries of a search type.
void frmSearchWA::InitMruList(const QString &searchType)
{
    FillRecents({searchType, LoadMruLists().Of(searchType)});
}

void frmSearchWA::FillRecents(const ShownRecents &entries)
{
    recents = entries;
    QComboBox *box = recents.Type == u"Case Number" ? ui->cboxCaseMRUs : ui->cboxLastBizOrCase;
    box->clear();
    box->addItems(recents.Entries);
    box->setCurrentIndex(-1);
}

/// Shows the recent entries of the type that is being entered, when they are wanted at all, and
/// lets the first box offer them as one types.
void frmSearchWA::ShowMRU()
{
    // A tax identifier is remembered among the business names.
    const QString type = state.Kind == SearchKind::TaxId
                             ? KindRowOf(SearchKind::Business).type.toString()
                             : KindRowOf(state.Kind).type.toString();
    InitMruList(type);
    ShowRecents();
}

void frmSearchWA::ShowRecents()
{
    const bool offered =
        Global.bEnableMRU && (Shows(FormPart::NameRecents) || Shows(FormPart::NumberRecents));
    // One goes before the other comes: both together would make the window grow.
    QComboBox *shown = ui->cboxLastBizOrCase;
    QComboBox *other = ui->cboxCaseMRUs;
    if (Shows(FormPart::NumberRecents))
        std::swap(shown, other);
    other->hide();
    shown->setVisible(offered);
    ui->lblMruList->setVisible(offered);
    ui->lblMruList->setBuddy(shown);
    OfferWhileTyping(offered ? recents.Entries : QStringList());
}

void frmSearchWA::OfferWhileTyping(const QStringList &entries)
{
    // One box has one completer: the old one goes with its list.
    delete txtSearchName[0]->completer();
    if (entries.isEmpty())
        return;
    auto *completer = new QCompleter(entries, txtSearchName[0]);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    connect(completer, qOverload<const QString &>(&QCompleter::activated), this,
            &frmSearchWA::UseRecentEntry, Qt::QueuedConnection);
    txtSearchName[0]->setCompleter(completer);
}

void frmSearchWA::cboxLastBizOrCase_Click(int index)
{
    UseRecentEntry(ui->cboxLastBizOrCase->itemText(index));
}

void frmSearchWA::cboxCaseMRUs_Click(int index)
{
    UseRecentEntry(ui->cboxCaseMRUs->itemText(index));
}

/// Puts a recent entry into the boxes it was entered in.
void frmSearchWA::UseRecentEntry(const QString &text)
{
    if (state.Kind != SearchKind::Person) {
        txtSearchName[0]->setText(text);
        return;
    }
    const std::array<QString, 3> names = MruNameParts(text);
    for (size_t i = 0; i < names.size(); ++i)
        txtSearchName[i]->setText(names[i]);
}
