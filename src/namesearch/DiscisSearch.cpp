#include "namesearch/DiscisSearch.h"

#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "namesearch/DuplicateNames.h"
#include "namesearch/ResultRows.h"
#include "namesearch/SearchCriteria.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype nameColumns = 8;

/// lblSearchStatus with one of the two lists in front.
constexpr QStringView casesInFront =
    u" Search Completed Successfully.   Double-Click on any Case to Retrieve Details.";
constexpr QStringView namesInFront = u"Multiple Names Match. Please Select Name(s) to retrieve.";
} // namespace

void DiscisSearch::ShowSearchCriteria(int lineIndex)
{
    const SearchCriteria criteria =
        DiscisCriteria(lboxQueue.List(lineIndex), Record.lblCourtCounty);
    SetNameVal(criteria.Name);
    SetText(&ResultsRecord::Caption, criteria.Caption);
}

void DiscisSearch::AddRow(const QString &row)
{
    AddParsedRow(row, Record.Kind);
}

CaseStart DiscisSearch::CaseOf(const QStringList &cells) const
{
    return DiscisCaseOfRow(cells, Record.Kind, CaseTypeOfRequest(lboxQueue.List(0)));
}

void DiscisSearch::SetNameVal(const QString &text)
{
    NameSearch::SetNameVal(text);
    SetText(&ResultsRecord::Caption, u"Name Search Results - "_s + text);
}

CivilSearch::CivilSearch() : DiscisSearch(JobKindName::CivilNameSearch, ResultsWindow::DiscisCivil)
{
    Record.lblState = u"WA"_s;
    Record.Kind = ResultKind::DiscisCivil;
}

void CivilSearch::ShowSearchCriteria(int lineIndex)
{
    DiscisSearch::ShowSearchCriteria(lineIndex);
    SetText(&ResultsRecord::lblCaseTypeVals, u"CIVIL  CV"_s);
}

NonCivilSearch::NonCivilSearch(DiscisDndSearch defendants)
    : DiscisSearch(JobKindName::NameSearch, ResultsWindow::DiscisNonCivil),
      lblDNDorSNCI(defendants == DiscisDndSearch::Yes ? u"DND"_s : u"SNCI"_s)
{
    Record.lblState = u"WA"_s;
    Record.lblCaseTypeVals = u"NON-CIVIL"_s;
    Record.Kind = defendants == DiscisDndSearch::Yes ? ResultKind::DiscisAddresses
                                                     : ResultKind::DiscisStatewide;
}

ResultKind NonCivilSearch::KindOfNames() const
{
    return Record.Kind == ResultKind::DiscisAddresses ? ResultKind::NamesAddresses
                                                      : ResultKind::NamesStatewide;
}

void NonCivilSearch::AddRow(const QString &row)
{
    const bool isName = IsDuplicateName(row);
    if (isName) {
        DupesFound = true;
        AddDupeRow(row);
    } else {
        DiscisSearch::AddRow(row);
    }
    if (isName != ShowingDupes)
        bringToFront(isName);
}

/// What comes goes in front. A retry leaves in front what the user looks at, and its words, as long
/// as there is something to look at.
void NonCivilSearch::bringToFront(bool names)
{
    if (!IsRetrying()) {
        ToggleDupesView();
    } else if ((names ? RowCount() : Names.Count()) == 0) {
        ShowingDupes = names;
        Q_EMIT Toggled();
    }
}

bool NonCivilSearch::NamesPerson(const QString &row) const
{
    return IsDuplicateName(row);
}

void NonCivilSearch::AddDupeRow(const QString &row)
{
    const NameRow name = ParseNameRow(row, Names.Count());
    if (!name.Cells.isEmpty())
        Names.AddRow(name.Cells, name.Key);
    if (!name.Complete)
        throw RunTimeError::SubscriptOutOfRange();
    CountLater(Names.Count());
}

void NonCivilSearch::ToggleDupesView()
{
    ShowingDupes = !ShowingDupes;
    Q_EMIT Toggled();
    SetSearchStatus((ShowingDupes ? namesInFront : casesInFront).toString(),
                    StatusStyle::NormalBold);
}

void NonCivilSearch::RetrieveCheckedNames()
{
    // The labels tell of each person while that person's cases are asked for; what was searched for
    // stays the same.
    if (searchedFor.isEmpty())
        searchedFor = Record.lblNameVal;
    Global.bStopRequested = false;
    lboxQueue.Clear();
    const QList<int> checked = Names.CheckedRows();
    for (const int row : checked) {
        QStringList cells = Names.Cells(row);
        cells.resize(nameColumns);
        lboxQueue.AddItem(CasesOfNameRequest(lblDNDorSNCI, searchedFor, cells, Names.Key(row)));
        Names.SetCell(row, 0, MarkedAsRetrieved(cells[0]));
    }
    ShowCaseColumnsAgain();
    allowRetrieval(false);
    Record.SortColumnName = FirstSortColumn();
    Q_EMIT SortForgotten();
    StopRequested = false;
    Global.bUserStoppedSearch = false;
    Record.SearchIncomplete = false;
    // Pending as at first, so that Stop withdraws the key until the turn has come.
    SetStatus(Kind().Pending.toString(), StatusStyle::NormalBold);
    ShowInProgress();
    SearchAgain();
}

/// A run walks the request lines and must not have them replaced under it.
void NonCivilSearch::allowRetrieval(bool allowed)
{
    namesRetrievable = allowed;
    Q_EMIT Changed();
}

void NonCivilSearch::ShowStopped(StopCase stopCase)
{
    DiscisSearch::ShowStopped(stopCase);
    // A run that was told to stop still reads to its end.
    if (!HasTurn())
        allowRetrieval(true);
}

void NonCivilSearch::ShowCompletion()
{
    if (ShowingDupes) {
        SetStatus(u"Search Complete:    "_s + QString::number(Names.Count())
                      + u" Duplicate Names Found."_s,
                  StatusStyle::NormalBold);
        SetSearchStatus(u"Duplicate Names Found. Check Name(s) to Retrieve Associated Cases."_s,
                        StatusStyle::NormalBold);
        return;
    }
    const int rows = RowCount();
    SetStatus(u"Search Complete:    "_s + QString::number(rows)
                  + (rows == 1 ? u" Case Retrieved."_s : u" Cases Retrieved."_s),
              StatusStyle::NormalBold);
}

void NonCivilSearch::EndSearch(SearchOutcome outcome)
{
    DiscisSearch::EndSearch(outcome);
    allowLists();
}

void NonCivilSearch::EndRetry(SearchOutcome outcome)
{
    DiscisSearch::EndRetry(outcome);
    allowLists();
}

/// However a run ended: what came is there to be looked at.
void NonCivilSearch::allowLists()
{
    canToggle = (ShowingDupes ? RowCount() : Names.Count()) > 0;
    allowRetrieval(true);
}
