#include "searchentry/DiscisCourtChoice.h"

#include "core/GlobalState.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "searchentry/DiscisRequests.h"
#include "searchentry/FormStates.h"
#include "searchentry/SearchControls.h"

using namespace Qt::StringLiterals;

namespace {
/// The first entries of the box of counties.
constexpr QStringView allCounties = u"-- ALL COUNTIES/STATEWIDE --";
constexpr QStringView addressesOnly = u"-- SHOW ADDRESS/DEFS ONLY --";

constexpr QStringView noneSelected = u"0 (zero)";

QString courtStats(const QString &available, const QString &selected)
{
    return u"Courts Available: "_s + available + u"   Courts Selected: "_s + selected;
}
} // namespace

DiscisCourtChoice::DiscisCourtChoice(SearchControls &controls, const FormState &place)
    : ui(controls), state(place)
{
    connect(ui.cmdSelectAllCourts, &QPushButton::clicked, ui.lboxDiscisCourtNames,
            [list = ui.lboxDiscisCourtNames] { list->SelectAll(true); });
    connect(ui.cmdClearCourtList, &QPushButton::clicked, this, &DiscisCourtChoice::clear);
    connect(ui.cboxCountyList, &QComboBox::currentIndexChanged, this,
            &DiscisCourtChoice::cboxCountyList_Click);
    connect(ui.lboxDiscisCourtNames, &QListWidget::itemChanged, this,
            &DiscisCourtChoice::showStats);
}

void DiscisCourtChoice::LoadDiscisCountyList(SearchScope where)
{
    QComboBox *box = ui.cboxCountyList;
    const QString chosen = box->count() > 0 ? box->currentText() : Global.strDefaultWaCounty;
    {
        const QSignalBlocker blocker(box);
        box->clear();
        box->addItem(allCounties.toString());
        if (state.Kind == SearchKind::Person && where == SearchScope::DiscisNonCivil)
            box->addItem(addressesOnly.toString());
        box->addItems(WaCountyNames());
        box->setCurrentIndex(std::max(0, box->findText(chosen)));
    }
    cboxCountyList_Click();
}

void DiscisCourtChoice::cboxCountyList_Click()
{
    const QString county = ui.cboxCountyList->currentText();
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
        const QSignalBlocker blocker(ui.lboxDiscisCourtNames);
        ui.lboxDiscisCourtNames->SetItems(courts);
        ui.lboxDiscisCourtNames->SelectAll(all);
        // A number cannot be looked for in the whole state.
        ui.lboxDiscisCourtNames->setEnabled(all || !statewide);
    }
    ui.cmdSelectAllCourts->setEnabled(!statewide);
    ui.cmdClearCourtList->setEnabled(!statewide);
    showStats();
}

void DiscisCourtChoice::clear()
{
    ui.lboxDiscisCourtNames->SelectAll(false);
    ui.lblCourtNameStats->setText(
        courtStats(QString::number(ui.lboxDiscisCourtNames->count()), noneSelected.toString()));
}

void DiscisCourtChoice::showStats()
{
    const CheckListBox *list = ui.lboxDiscisCourtNames;
    const auto selected = list->Selected().size();
    const int county = ui.cboxCountyList->currentIndex();
    const bool statewide =
        list->count() == 1 && county >= 0 && ui.cboxCountyList->currentText().startsWith(u"--");
    const QString every = QString::number(discisCourtsShown);
    if (statewide)
        ui.lblCourtNameStats->setText(
            courtStats(every, selected > 0 ? every : noneSelected.toString()));
    else
        ui.lblCourtNameStats->setText(
            courtStats(QString::number(list->count()), QString::number(selected)));
}
