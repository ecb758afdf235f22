#include "searchentry/SearchYears.h"

#include "core/Clock.h"
#include "searchentry/SearchControls.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int firstYear = 1970;
constexpr int firstBankruptcyYear = 1980;
} // namespace

SearchYears::SearchYears(SearchControls &controls) : ui(controls)
{
    for (QRadioButton *all : {ui.optSearchYears_0, ui.optSearchYears1_0})
        connect(all, &QRadioButton::toggled, this, &SearchYears::optSearchYears_Click);
}

void SearchYears::Load()
{
    const int thisYear = Clock::Current().Now().date().year();
    QStringList years;
    for (int year = firstYear; year <= thisYear; ++year)
        years.append(QString::number(year));
    for (QComboBox *box : {ui.cboxSearchStartYear, ui.cboxSearchEndYear, ui.cboxSearchStartYear1,
                           ui.cboxSearchEndYear1}) {
        box->clear();
        box->addItems(years);
        box->setCurrentIndex(box->count() - 1);
    }
    ui.cboxSearchStartYear->setCurrentIndex(0);
    // The bankruptcy records begin ten years after the list does.
    ui.cboxSearchStartYear1->setCurrentIndex(
        ui.cboxSearchStartYear1->findText(QString::number(firstBankruptcyYear)));
    ui.optSearchYears_0->setChecked(true);
    ui.optSearchYears1_0->setChecked(true);
    optSearchYears_Click();
}

void SearchYears::optSearchYears_Click()
{
    const auto open = [](bool range, std::initializer_list<QWidget *> controls) {
        for (QWidget *control : controls)
            control->setEnabled(range);
    };
    open(ui.optSearchYears_1->isChecked(), {ui.cboxSearchStartYear, ui.cboxSearchEndYear,
                                            ui.lblSearchStartYear, ui.lblSearchEndYear});
    open(ui.optSearchYears1_1->isChecked(), {ui.cboxSearchStartYear1, ui.cboxSearchEndYear1,
                                             ui.lblSearchStartYear1, ui.lblSearchEndYear1});
}
