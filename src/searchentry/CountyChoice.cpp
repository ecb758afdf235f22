#include "searchentry/CountyChoice.h"

#include "courts/Counties.h"
#include "searchentry/FormStates.h"
#include "searchentry/SearchControls.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int countyButtonColumns = 8;
} // namespace

QStringList CountiesOf(CourtFamily court)
{
    switch (court) {
    case CourtFamily::Superior:
        return WaCountyNames();
    case CourtFamily::Oregon:
        return OrCountyNames();
    case CourtFamily::Idaho:
        LoadIdCounties();
        return IdCountyList();
    default:
        return {};
    }
}

CountyChoice::CountyChoice(SearchControls &controls, const FormState &place)
    : ui(controls), state(place)
{
    connect(ui.lboxCountyOrProfile, &QListWidget::itemChanged, this,
            &CountyChoice::showChosenCounty);
}

void CountyChoice::InitButtons()
{
    auto *grid = static_cast<QGridLayout *>(ui.Frame6->layout());
    const QStringList counties = WaCountyNames();
    // Between the steps above them and the buttons below.
    QWidget *before = ui.lblHelp_11;
    for (size_t i = 0; i < ui.optCounties.size(); ++i) {
        const int index = static_cast<int>(i);
        auto *button = new QRadioButton(counties.at(index), ui.Frame6);
        button->setObjectName(u"optCounties_"_s + QString::number(index));
        connect(button, &QRadioButton::clicked, this, [this, index] { optCounties_Click(index); });
        grid->addWidget(button, index / countyButtonColumns, index % countyButtonColumns);
        QWidget::setTabOrder(before, button);
        before = button;
        ui.optCounties[i] = button;
    }
}

/// One county instead of all that were ticked.
void CountyChoice::optCounties_Click(int index)
{
    ui.lboxCountyOrProfile->SelectAll(false);
    ui.lboxCountyOrProfile->SetSelected(index, true);
    ui.lboxCountyOrProfile->setCurrentRow(index);
}

/// The button of the county that is ticked, when it is the only one.
void CountyChoice::showChosenCounty()
{
    if (!ViewOf(state).testFlag(FormPart::CountyButtons))
        return;
    const QStringList chosen = ui.lboxCountyOrProfile->Selected();
    const auto index = chosen.size() == 1 ? WaCountyNames().indexOf(chosen.first()) : -1;
    for (size_t i = 0; i < ui.optCounties.size(); ++i) {
        QRadioButton *button = ui.optCounties[i];
        // The last button of a group cannot be put out while the group is one.
        button->setAutoExclusive(false);
        button->setChecked(static_cast<qsizetype>(i) == index);
        button->setAutoExclusive(true);
    }
}

void CountyChoice::Load()
{
    const QStringList counties = CountiesOf(state.Court);
    const bool statewide = state.Where == SearchScope::Statewide;
    ui.lboxCountyOrProfile->SetItems(statewide ? QStringList{u"(Statewide)"_s} : counties);
    if (statewide)
        ui.lboxCountyOrProfile->SelectAll(true);
    ui.lboxMultiJurisdiction->clear();
    ui.lboxMultiJurisdiction->addItems(counties);
    showChosenCounty();
}
