// What somebody does in a long day, one act at a time.

#include "sweeps/LongDay.h"

#include "casedetails/CaseWindow.h"
#include "casedetails/CaseWindows.h"
#include "casedetails/DocumentList.h"
#include "core/GlobalState.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "namesearch/frmNameSearchResults.h"
#include "practice/SpecialCases.h"
#include "session/NewWindow.h"
#include "session/frmLogin.h"
#include "support/WindowUser.h"

#include <QPushButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostWindows = 12;
/// Documents of a case that are asked for at once.
constexpr int mostDocuments = 4;

using Practice::SpecialCaseRow;
using PracticeFamily = Practice::CourtFamily;

/// A search: whose window it has, and its line, which is asked so many times.
struct DaySearch
{
    NameResultsWindow *(*make)();
    const char16_t *line;
    int lines;
};

NameResultsWindow *makeCourt(const QString &state, bool index)
{
    auto *window = new frmNameSearchResults(state, index);
    window->chkIndexSearch = index;
    return window;
}

constexpr std::array<DaySearch, 10> daySearches{{
    {[] { return makeCourt(u"WA"_s, false); },
     u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦", 39},
    {[] { return makeCourt(u"WA"_s, false); }, u"WASUP¦SEARCH¦TOOMANY¦¦¦¦King,¦Civil,¦¦¦", 3},
    {[] { return makeCourt(u"WA"_s, false); }, u"WASUP¦SEARCH¦BADROW¦¦¦¦King,¦Civil,¦¦¦", 4},
    {[] { return makeCourt(u"OR"_s, false); },
     u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,DO,¦1990¦2008¦", 36},
    {[] { return makeCourt(u"ID"_s, false); }, u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CR,¦¦¦", 2},
    {[] { return makeCourt(u"WA"_s, true); },
     u"INDEX~SEARCH~PAGES~~~~King,~Criminal,Judgment,~1970~2005~LL=1~UL=500~", 1},
    {[] { return makeCourt(u"ORBK"_s, false); }, u"BKRPT~SEARCH~SMITH~JOHN~Q~~OR~*ALL~1980~2005~",
     2},
    {[]() -> NameResultsWindow * { return new frmDiscisNameResults; },
     u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦CV¦CNCI¦", 20},
    {[]() -> NameResultsWindow * { return new frmDiscisNCNameResults; },
     u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦IN¦CNCI¦", 20},
    {[]() -> NameResultsWindow * { return new frmDiscisNCNameResults; },
     u"WADISCIS¦SEARCH¦DUPES¦JOHN¦¦*SW¦IN¦SNCI¦", 1},
}};

/// Whose cases there are, and which windows they have.
struct DayCase
{
    PracticeFamily family;
    CaseKind kind;
    const char16_t *state;
    const char16_t *county;
    const char16_t *type;
};
constexpr std::array<DayCase, 6> dayCases{{
    {PracticeFamily::Superior, CaseKind::State, u"WA", u"King", u""},
    {PracticeFamily::Oregon, CaseKind::State, u"OR", u"Multnomah", u"C"},
    {PracticeFamily::Idaho, CaseKind::State, u"ID", u"Ada", u""},
    {PracticeFamily::Bankruptcy, CaseKind::State, u"ORBK", u"", u""},
    {PracticeFamily::District, CaseKind::Civil, u"", u"King", u"CV"},
    {PracticeFamily::District, CaseKind::NonCivil, u"", u"King", u"IN"},
}};

QStringList numbersOf(PracticeFamily family)
{
    QStringList numbers;
    for (const SpecialCaseRow &row : Practice::specialCases) {
        if ((row.families & Practice::FamilyBit(family)) != 0)
            numbers.append(Practice::SpecialCaseNumber(family, row));
    }
    return numbers;
}

CaseStart startOf(const DayCase &row, const QString &number)
{
    CaseStart start(row.kind);
    start.txtCaseNumber = number;
    start.txtCountyName = QString::fromUtf16(row.county);
    start.SetHeading(u"Case Details ("_s + number + u')');
    start.lblState = QString::fromUtf16(row.state);
    if (row.kind == CaseKind::State) {
        start.lblOrCourtType = QString::fromUtf16(row.type);
    } else {
        start.txtCourtCode = u"KSD"_s;
        start.txtCaseType = QString::fromUtf16(row.type);
    }
    if (row.family == PracticeFamily::Bankruptcy) {
        start.chkBK = true;
        start.TabRequests = {u"BKRPT~SUMMARY~"_s + number + u"~OR~"_s};
    }
    return start;
}
} // namespace

/// An open window of the class, by the dice; null when there is none.
template<class Window>
Window *LongDay::any() const
{
    QList<Window *> candidates;
    for (JobWindow *window : windows()) {
        if (auto *one = qobject_cast<Window *>(window))
            candidates.append(one);
    }
    return candidates.isEmpty() ? nullptr : candidates.at(below(candidates.size()));
}

bool LongDay::mayOpen() const
{
    return Global.bLoggedIn && windows().size() < mostWindows;
}

const QList<LongDay::Act> &LongDay::acts()
{
    static const QList<Act> all{
        {&LongDay::openSearch, 24},    {&LongDay::openRow, 16},         {&LongDay::openCase, 12},
        {&LongDay::openDocument, 10},  {&LongDay::openAllDocuments, 6}, {&LongDay::stopOne, 5},
        {&LongDay::closeOne, 24},      {&LongDay::retryOne, 10},        {&LongDay::nextPage, 10},
        {&LongDay::retrieveNames, 10}, {&LongDay::fetchOnDemand, 20},   {&LongDay::activateTab, 20},
        {&LongDay::disconnectNow, 1},  {&LongDay::cancelLogin, 2},      {&LongDay::wait, 12'000}};
    return all;
}

void LongDay::openSearch()
{
    if (!mayOpen())
        return;
    const DaySearch &kind =
        daySearches.at(static_cast<std::size_t>(below(std::ssize(daySearches))));
    NewWindow window(kind.make());
    for (int i = 0; i < kind.lines; ++i)
        window->lboxQueue.AddItem(QString::fromUtf16(kind.line));
    window.GiveKey();
    window.Launch();
}

void LongDay::openRow()
{
    auto *results = any<NameResultsWindow>();
    if (!results || !mayOpen() || results->RowCount() == 0)
        return;
    note(u"rows"_s);
    results->OpenCaseFromRow(below(results->RowCount()));
}

void LongDay::openCase()
{
    if (!mayOpen())
        return;
    const DayCase &row = dayCases.at(static_cast<std::size_t>(below(std::ssize(dayCases))));
    const QStringList numbers = numbersOf(row.family);
    NewWindow window(MakeCaseWindow(row.kind));
    window->Take(startOf(row, numbers.at(below(numbers.size()))));
    window.GiveKey();
    window.Launch();
}

/// The documents of a case whose list has come.
QList<DocumentStart> LongDay::documentsOf(const CaseWindow *window)
{
    QList<int> rows;
    const auto count = window->Record().Tab(CaseTab::Documents).Table.Rows.size();
    for (int row = 1; row <= static_cast<int>(count); ++row)
        rows.append(row);
    QList<DocumentStart> all = DocumentsOfRows(window->Record(), rows);
    all.removeIf([](const DocumentStart &start) { return !IsRetrievable(start); });
    return all;
}

void LongDay::openDocument()
{
    const auto *window = any<CaseWindow>();
    if (!window || !mayOpen())
        return;
    const QList<DocumentStart> starts = documentsOf(window);
    if (starts.isEmpty())
        return;
    NewWindow form(new frmDocTransfer);
    form->Take(starts.at(below(starts.size())));
    form.GiveKey();
    form.Launch();
}

void LongDay::openAllDocuments()
{
    const auto *window = any<CaseWindow>();
    if (!window || !mayOpen())
        return;
    const QList<DocumentStart> starts = documentsOf(window).mid(0, mostDocuments);
    if (starts.isEmpty() || frmAllDocuments::GoOnWith(starts))
        return;
    NewWindow form(new frmAllDocuments);
    form->Take(starts);
    form.GiveKey();
    form.Launch();
}

void LongDay::stopOne()
{
    auto *window = any<JobWindow>();
    if (!window || !window->ShownJob()->CanBeStopped())
        return;
    note(window->ShownJob()->HasTurn() ? u"stops of a run"_s : u"stops before the turn"_s);
    window->PressStop();
}

void LongDay::closeOne()
{
    auto *window = any<JobWindow>();
    if (!window)
        return;
    const bool running = window->ShownJob()->HasTurn();
    const bool waiting = window->ShownJob()->State() == JobState::Pending;
    const bool gone = window->Unload(below(2) == 0 ? UnloadMode::Code : UnloadMode::ControlMenu);
    note(!gone     ? u"refusals to close"_s
         : running ? u"closed under a run"_s
         : waiting ? u"closed before the turn"_s
                   : u"closed"_s);
}

void LongDay::retryOne()
{
    auto *results = any<NameResultsWindow>();
    if (!results || !Global.bLoggedIn || !results->Search().CanRetry())
        return;
    note(u"retries"_s);
    results->Search().RetryFailed();
}

void LongDay::nextPage()
{
    auto *window = any<frmNameSearchResults>();
    auto *search = window ? qobject_cast<CourtSearch *>(window->ShownJob()) : nullptr;
    if (!search || !Global.bLoggedIn || !search->CanTakePage())
        return;
    note(u"further pages"_s);
    search->GetNextPage();
}

void LongDay::retrieveNames()
{
    auto *window = any<frmDiscisNCNameResults>();
    auto *search = window ? qobject_cast<NonCivilSearch *>(window->ShownJob()) : nullptr;
    if (!search || !Global.bLoggedIn || !search->NamesRetrievable() || search->Names.Count() == 0)
        return;
    note(u"checked names"_s);
    search->Names.SetChecked(below(search->Names.Count()), true);
    search->RetrieveCheckedNames();
}

void LongDay::fetchOnDemand()
{
    auto *window = any<CaseWindow>();
    QPushButton *button = window ? ButtonOf(window, "cmdSearchNow") : nullptr;
    if (!button || !button->isEnabled() || !button->isVisible() || !Global.bLoggedIn)
        return;
    note(u"later runs"_s);
    button->click();
}

void LongDay::activateTab()
{
    auto *window = any<CaseWindow>();
    auto *job = window ? qobject_cast<CaseJob *>(window->ShownJob()) : nullptr;
    if (!job || job->Record.TabCaptions.isEmpty())
        return;
    const QStringList captions = job->Record.TabCaptions;
    const QString &caption = captions.at(below(captions.size()));
    job->Sheet.Select(caption);
    job->ActivateTab(caption);
}

void LongDay::disconnectNow()
{
    if (!Global.bLoggedIn)
        return;
    note(u"disconnects"_s);
    choose("mnuConnectionDisConnect");
}

void LongDay::cancelLogin()
{
    if (!frmLogin::IsLoaded())
        return;
    note(u"logins given up"_s);
    if (auto *login = Shown<QWidget>(u"frmLogin"_s))
        ButtonOf(login, "cmdCancel")->click();
}
