// A search put back on the form, control by control, on the ways of the user's own clicks.

#include "searchentry/BatchEntries.h"
#include "searchentry/CountyChoice.h"
#include "searchentry/EntryText.h"
#include "searchentry/SearchControls.h"
#include "searchentry/frmSearchWA.h"

namespace {
void tick(CheckListBox *list, const QStringList &texts)
{
    list->SelectAll(false);
    for (int row = 0; row < list->count(); ++row) {
        if (texts.contains(list->item(row)->text()))
            list->SetSelected(row, true);
    }
}

void chooseRow(QListWidget *list, const QString &text)
{
    list->clearSelection();
    const QList<QListWidgetItem *> found = list->findItems(text, Qt::MatchFixedString);
    if (text.isEmpty() || found.isEmpty())
        return;
    list->setCurrentItem(found.first());
    found.first()->setSelected(true);
}

void chooseText(QComboBox *box, const QString &text)
{
    if (const int index = box->findText(text); index >= 0)
        box->setCurrentIndex(index);
}

void fillLists(SearchControls &ui, const SearchEntry &entry)
{
    if (entry.Where != SearchScope::Statewide)
        tick(ui.lboxCountyOrProfile, entry.Counties);
    chooseRow(ui.lboxMultiJurisdiction, entry.NumberCounty);
    tick(ui.lboxCaseTypes, entry.CaseTypes);
    ui.optORjgmtsONLY->setChecked(entry.JudgmentsOnly);
    ui.chkUseIndex->setChecked(entry.UseIndex);
    for (size_t i = 0; i < entry.BkCourts.size(); ++i)
        ui.chkBKcourt[i]->setChecked(entry.BkCourts[i]);
}

/// The years are loaded anew.
void fillYears(SearchControls &ui, const SearchEntry &entry)
{
    if (!entry.YearRange)
        return;
    const bool bankruptcy = entry.Court == CourtFamily::Bankruptcy;
    (bankruptcy ? ui.optSearchYears1_1 : ui.optSearchYears_1)->setChecked(true);
    chooseText(bankruptcy ? ui.cboxSearchStartYear1 : ui.cboxSearchStartYear, entry.FromYear);
    chooseText(bankruptcy ? ui.cboxSearchEndYear1 : ui.cboxSearchEndYear, entry.ToYear);
}

/// The rows are empty.
void fillBatch(SearchControls &ui, const SearchEntry &entry)
{
    for (size_t i = 0; i < entry.Batch.size(); ++i) {
        if (entry.Batch[i] == BatchRow())
            continue;
        ui.Text1[i]->setText(entry.Batch[i].Number);
        chooseText(ui.cbCty1[i], entry.Batch[i].County);
    }
}

FormState placeOf(const SearchEntry &entry, FormState state)
{
    state.Where = entry.Where;
    // The counties are what is known of a template; the list of templates comes by its button.
    state.TemplateApplied = entry.Where == SearchScope::Template;
    state.Batch = entry.InBatch;
    return state;
}

/// The lists of the courts can have changed since, and what is offered with them.
SearchEntry compared(SearchEntry entry)
{
    entry = AsAsked(entry);
    entry.DiscisCountyIndex = -1;
    entry.DiscisItems.clear();
    return entry;
}
} // namespace

bool frmSearchWA::Fill(const SearchEntry &entry)
{
    ResetFormFields();
    SelectCourt(entry.Court);
    optOrCDcourts_Click(entry.DistrictCourt ? 1 : 0);
    optSearchType_Click(static_cast<int>(entry.Kind));
    if (entry.Court == CourtFamily::Discis) {
        optDiscisSearch_Click(entry.Where == SearchScope::DiscisNonCivil ? 1 : 0);
        chooseText(ui->cboxCountyList, entry.DiscisCounty);
        tick(ui->lboxDiscisCourtNames, entry.DiscisSelected);
    } else {
        GoTo(placeOf(entry, state));
        counties->Load();
        LoadSearchProfileList();
    }
    batch->ResetBatchFields(state.Court);
    LoadSearchYears();
    fillLists(*ui, entry);
    fillYears(*ui, entry);
    fillBatch(*ui, entry);
    for (size_t i = 0; i < entry.Names.size(); ++i)
        ui->txtSearchName[i]->setText(entry.Names[i]);
    return compared(Entry()) == compared(entry);
}
