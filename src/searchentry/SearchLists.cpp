// The lists of the search form that are its own: jurisdictions, case types and templates; and
// the ways to those that have a class of their own.

#include "courts/CaseTypes.h"
#include "searchentry/BatchEntries.h"
#include "searchentry/CountyChoice.h"
#include "searchentry/RecentsOnForm.h"
#include "searchentry/SearchControls.h"
#include "searchentry/SearchTemplates.h"
#include "searchentry/SearchYears.h"
#include "searchentry/frmSearchWA.h"

using namespace Qt::StringLiterals;

namespace {
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
    counties->Load();
    ui->lboxCaseTypes->SelectAll(false);
    tickTemplate(ui->lboxCountyOrProfile, record->Juris);
    tickTemplate(ui->lboxCaseTypes, record->Cases);
    FormState next = state;
    next.TemplateApplied = true;
    GoTo(next);
    ui->lboxCountyOrProfile->setFocus();
}

// ---- what has a class of its own ----

void frmSearchWA::LoadSearchYears()
{
    years->Load();
}

void frmSearchWA::InitCountyRadioBtns()
{
    counties->InitButtons();
}

void frmSearchWA::LoadAllWaCountyCombos()
{
    batch->LoadCounties(CourtFamily::Superior);
}

void frmSearchWA::LoadAllOrCountyCombos()
{
    batch->LoadCounties(CourtFamily::Oregon);
}

void frmSearchWA::LoadAllIdCountyCombos()
{
    batch->LoadCounties(CourtFamily::Idaho);
}

void frmSearchWA::InitMruList(const QString &searchType)
{
    recents->Load(searchType);
}

void frmSearchWA::ShowMRU()
{
    recents->ShowOfType();
}
