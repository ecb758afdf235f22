#include "casedetails/TabGrids.h"

#include "casedetails/GridGrammar.h"
#include "core/TextUtilities.h"
#include "courts/CourtTable.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
// The courts, as far as their replies differ
constexpr unsigned washington = 1;
constexpr unsigned oregon = 2;
constexpr unsigned idaho = 4;
constexpr unsigned bankruptcy = 8;
constexpr unsigned district = 16;
constexpr unsigned others = oregon | idaho | bankruptcy;
constexpr unsigned allCourts = washington | others | district;

enum class Grammar { GridDef, ColDef, Names };

/// How a tab's reply is read, and what stands in place of a table.
struct TabGridRow
{
    CaseTab tab;
    unsigned courts;
    Grammar grammar;
    RowOrder order;
    QStringView note; ///< what a note ahead of the table begins with, "" for none
    QStringView empty;
    QStringView incomplete;
    QStringView emptyLog; ///< these two have the request behind them; "" for no line
    QStringView incompleteLog;
};

// A court that has no such tab is in the row whose form its replies have: the table form for
// Oregon, Idaho and the bankruptcy courts, the other for the courts of Washington. Where a tab has
// a single row, it is that. The bankruptcy courts' names are read as their other tabs are.
constexpr std::array<TabGridRow, 20> tabGrids{{
    {CaseTab::Names, washington, Grammar::GridDef, RowOrder::AsSent, u"",
     u"No Names Were Found For This Case.", u"Name Search Incomplete. Please Retry Search.",
     u"NO Responses for this Names request: ", u"Search Incomplete for this Names request: "},
    {CaseTab::Names, district, Grammar::GridDef, RowOrder::AsSent, u"CPARNOTE~",
     u"No Names Were Found For This Case.", u"Name Search Incomplete. Please Retry Search.",
     u"NO Responses for this Names request: ", u"Search Incomplete for this Names request: "},
    {CaseTab::Names, oregon | idaho, Grammar::Names, RowOrder::AsSent, u"",
     u"No Names Information Found For This Case.",
     u"Name Information Incomplete. Please Retry Search.",
     u"NO Responses Were Found for This Names Request: ", u"Incomplete Names Request: "},
    {CaseTab::Names, bankruptcy, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Names Information Found For This Case.",
     u"Name Information Incomplete. Please Retry Search.",
     u"NO Responses Were Found for This Names Request: ", u"Incomplete Names Request: "},
    {CaseTab::Docket, washington, Grammar::GridDef, RowOrder::LastFirst, u"",
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {CaseTab::Docket, district, Grammar::GridDef, RowOrder::LastFirst, u"CDKNOTE~",
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {CaseTab::Docket, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Docket Information Found For This Case.",
     u"Docket Information Incomplete. Please Retry Search.",
     u"NO Responses for this Docket request: ", u"Incomplete Docket request: "},
    {CaseTab::Accounting, washington | district, Grammar::GridDef, RowOrder::LastFirst, u"",
     u"No Accounting Information Found For This Case.",
     u"Accounting Information Incomplete. Please Retry Search.", u"", u""},
    {CaseTab::Accounting, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Accounting Details Were Found For This Case.",
     u"Accounting Search Incomplete. Please Retry Search", u"", u""},
    {CaseTab::Finance, allCourts, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Finance Details Were Found For This Case.",
     u"Finance Search Incomplete. Please Retry Search", u"", u""},
    {CaseTab::Judgments, washington, Grammar::GridDef, RowOrder::LastFirst, u"",
     u"No Judgments Were Found For This Case.", u"Judgments Search Incomplete. Please Retry Search",
     u"", u""},
    {CaseTab::Judgments, district, Grammar::GridDef, RowOrder::LastFirst, u"CVJINOTE~",
     u"No Judgments Were Found For This Case.", u"Judgments Search Incomplete. Please Retry Search",
     u"NO Responses for this Judgments request: ", u"Incomplete Judgments request: "},
    {CaseTab::Judgments, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Judgments Were Found For This Case.", u"Judgments Search Incomplete. Please Retry Search",
     u"", u""},
    {CaseTab::Charges, washington | district, Grammar::GridDef, RowOrder::AsSent, u"",
     u"No Charges Were Found For This Case.", u"Charges Search Incomplete. Please Retry Search.",
     u"", u""},
    {CaseTab::Charges, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Charges Were Found For This Case.", u"Charges Search Incomplete. Please Retry Search.",
     u"", u""},
    {CaseTab::Sentence, washington | district, Grammar::GridDef, RowOrder::AsSent, u"",
     u"No Sentence Information Found For This Case.",
     u"Sentence Information Incomplete. Please Retry Search.", u"", u""},
    {CaseTab::Sentence, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Sentence Information Found For This Case.",
     u"Sentence Information Incomplete. Please Retry Search.", u"", u""},
    {CaseTab::Schedule, washington | district, Grammar::GridDef, RowOrder::AsSent, u"",
     u"No Schedule Information Found For This Case.",
     u"Schedule Information Incomplete. Please Retry Search.", u"", u""},
    // The texts of Judgments, on purpose.
    {CaseTab::Schedule, others, Grammar::ColDef, RowOrder::AsSent, u"",
     u"No Judgments Were Found For This Case.", u"Judgments Search Incomplete. Please Retry Search",
     u"", u""},
    {CaseTab::Violations, allCourts, Grammar::GridDef, RowOrder::AsSent, u"NCVIONOTE~",
     u"No Additional Violations Details Available.",
     u"Violations Information Incomplete. Please Retry Search.", u"", u""},
}};

unsigned courtsOf(CaseKind kind, const QString &state)
{
    if (kind != CaseKind::State)
        return district;
    switch (FamilyOfState(state)) {
    case CourtFamily::Oregon:
        return oregon;
    case CourtFamily::Idaho:
        return idaho;
    case CourtFamily::Bankruptcy:
        return bankruptcy;
    case CourtFamily::Superior:
    case CourtFamily::Discis:
        break;
    }
    return washington;
}

const TabGridRow *rowOf(CaseTab tab, unsigned courts)
{
    const auto *const row =
        std::find_if(tabGrids.begin(), tabGrids.end(), [&](const TabGridRow &candidate) {
            return candidate.tab == tab && (candidate.courts & courts) != 0;
        });
    return row == tabGrids.end() ? nullptr : row;
}

/// Takes the notes ahead of the table and gives the number of the line behind them.
int takeNotes(const QStringList &lines, QStringView note, QStringList &notes)
{
    constexpr int mostNotes = 2;
    if (note.isEmpty())
        return 0;
    int line = 0;
    while (line < mostNotes && line < lines.size() && lines[line].startsWith(note))
        notes.append(lines[line++].section(u'~', 1, 1));
    return line;
}

void showMessage(const TabGridRow &row, bool incomplete, const QString &request, TabView &view)
{
    view.Grid = MessageTable((incomplete ? row.incomplete : row.empty).toString());
    const QStringView log = incomplete ? row.incompleteLog : row.emptyLog;
    if (!log.isEmpty())
        view.LogLines.append(log + request);
}

/// False when the reply holds no table and no line that would stand for one.
bool showTable(const TabGridRow &row, const QStringList &lines, TabView &view)
{
    constexpr int fewestLines = 5;
    if (row.grammar == Grammar::GridDef) {
        // Notes alone are no reply to what was asked: the message stands below them.
        const int first = takeNotes(lines, row.note, view.Notes);
        if (first >= lines.size())
            return false;
        view.Grid = GridDefTable(lines, row.order, first);
        return true;
    }
    if (lines.size() < fewestLines)
        return false;
    if (row.grammar == Grammar::Names) {
        view.Grid = NamesTable(lines);
        return true;
    }
    QStringList expanded;
    view.Grid = ColDefTable(lines, &expanded);
    for (const QString &line : std::as_const(expanded))
        view.LogLines.append(u"R="_s + line);
    return true;
}
} // namespace

TabView ShowTabResponse(CaseKind kind, const QString &state, CaseTab tab, const QStringList &lines,
                        bool incomplete, const QString &request)
{
    TabView view;
    const TabGridRow *const row = rowOf(tab, courtsOf(kind, state));
    if (row && !showTable(*row, lines, view))
        showMessage(*row, incomplete, request, view);
    return view;
}

TabLine ClassifyTabLine(CaseTab tab, const QString &line)
{
    if (line.startsWith(u"EOF~"))
        return TabLine::EndOfReply;
    // The documents come from another server, whose lines may say anything.
    if (tab != CaseTab::Documents && line.startsWith(u"ERROR"))
        return TabLine::Error;
    if (BeginsWith(line, u"SEARCHING"))
        return TabLine::Progress;
    return TabLine::Data;
}
