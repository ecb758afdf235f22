#include "session/SessionKinds.h"

#include "namesearch/CourtSearch.h"
#include "namesearch/DiscisSearch.h"
#include "practice/SpecialCases.h"
#include "practice/SpecialNames.h"
#include "records/CaseStart.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
NameSearch *makeCourt(const QString &state, bool index = false)
{
    auto *search = new CourtSearch(state, index);
    search->Record.lblState = state;
    search->Record.chkIndexSearch = index;
    search->chkBK = state.endsWith(u"BK");
    return search;
}

NameSearch *makeSuperior()
{
    return makeCourt(u"WA"_s);
}
NameSearch *makeOregon()
{
    return makeCourt(u"OR"_s);
}
NameSearch *makeIdaho()
{
    return makeCourt(u"ID"_s);
}
NameSearch *makeIndex()
{
    return makeCourt(u"WA"_s, true);
}
NameSearch *makeBankruptcy()
{
    return makeCourt(u"ORBK"_s);
}
NameSearch *makeCivil()
{
    return new CivilSearch;
}
NameSearch *makeNonCivil()
{
    return new NonCivilSearch(DiscisDndSearch::No);
}
NameSearch *makeDefendants()
{
    return new NonCivilSearch(DiscisDndSearch::Yes);
}

/// A search and one of its lines, with the name in the place of "%1". It has as many of them.
struct SearchKind
{
    NameSearch *(*make)();
    const char16_t *line;
    int lines;
};

constexpr std::array<SearchKind, searchKinds> searches{{
    {makeSuperior, u"WASUP¦SEARCH¦%1¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦", 1},
    {makeSuperior, u"WASUP¦SEARCH¦%1¦JOHN¦Q¦¦Pierce,¦Civil,Criminal,¦¦¦", 3},
    {makeOregon, u"OREGON¦SEARCH¦%1¦JOHN¦Q¦¦MCR C¦CV,DO,¦1990¦2008¦", 2},
    {makeIdaho, u"IDSUP¦SEARCH¦%1¦JOHN¦Q¦¦*ALL¦CR,¦¦¦", 1},
    {makeIndex, u"INDEX~SEARCH~%1~JOHN~Q~~King,~Criminal,Judgment,~1970~2005~LL=1~UL=500~", 1},
    {makeBankruptcy, u"BKRPT~SEARCH~%1~JOHN~Q~~OR~*ALL~1980~2005~", 1},
    {makeCivil, u"WADISCIS¦SEARCH¦%1¦JOHN¦Q¦KSD¦CV¦CNCI¦", 2},
    {makeNonCivil, u"WADISCIS¦SEARCH¦%1¦JOHN¦Q¦KSD¦IN¦CNCI¦", 1},
    {makeNonCivil, u"WADISCIS¦SEARCH¦%1¦JOHN¦¦*SW¦IN¦SNCI¦", 1},
    {makeDefendants, u"WADISCIS¦SEARCH¦%1¦JOHN¦¦*SW¦IN¦DND¦", 1},
    {makeSuperior, u"", 0},
}};

QString nameOf(int variant)
{
    const int count = static_cast<int>(Practice::specialNames.size());
    const int chosen = variant % (count + 1);
    return chosen == 0 ? u"SMITH"_s
                       : QString::fromUtf16(
                           Practice::specialNames.at(static_cast<size_t>(chosen - 1)).name);
}

using PracticeFamily = Practice::CourtFamily;

/// Whose cases have a window of which kind.
struct CaseOfKind
{
    PracticeFamily family;
    CaseKind kind;
    const char16_t *state;
    const char16_t *county;
    const char16_t *type;
};

constexpr std::array<CaseOfKind, caseKinds> cases{{
    {PracticeFamily::Superior, CaseKind::State, u"WA", u"King", u""},
    {PracticeFamily::Oregon, CaseKind::State, u"OR", u"Multnomah", u"C"},
    {PracticeFamily::Idaho, CaseKind::State, u"ID", u"Ada", u""},
    {PracticeFamily::Bankruptcy, CaseKind::State, u"ORBK", u"", u""},
    {PracticeFamily::District, CaseKind::Civil, u"", u"King", u"CV"},
    {PracticeFamily::District, CaseKind::NonCivil, u"", u"King", u"IN"},
    {PracticeFamily::Superior, CaseKind::State, u"WA", u"Pierce", u""},
}};

/// One of the numbers of this family that have a meaning.
QString numberOf(PracticeFamily family, int variant)
{
    QStringList numbers;
    for (const Practice::SpecialCaseRow &row : Practice::specialCases) {
        if ((row.families & Practice::FamilyBit(family)) != 0)
            numbers.append(Practice::SpecialCaseNumber(family, row));
    }
    return numbers.value(variant % static_cast<int>(numbers.size()));
}
} // namespace

NameSearch *MakeSearch(int kind, int variant)
{
    const SearchKind &row = searches.at(static_cast<size_t>(kind));
    NameSearch *search = row.make();
    const QString line = QString::fromUtf16(row.line).replace(u"%1"_s, nameOf(variant));
    for (int i = 0; i < row.lines; ++i)
        search->lboxQueue.AddItem(line);
    return search;
}

CaseStart MakeCaseStart(int kind, int variant)
{
    const CaseOfKind &row = cases.at(static_cast<size_t>(kind));
    CaseStart start(row.kind);
    start.txtCaseNumber = numberOf(row.family, variant);
    start.txtCountyName = QString::fromUtf16(row.county);
    start.SetHeading(u"Case Details ("_s + start.txtCaseNumber + u')');
    start.lblState = QString::fromUtf16(row.state);
    if (row.kind == CaseKind::State) {
        start.lblOrCourtType = QString::fromUtf16(row.type);
    } else {
        start.txtCourtCode = u"KSD"_s;
        start.txtCaseType = QString::fromUtf16(row.type);
    }
    if (row.family == PracticeFamily::Bankruptcy) {
        start.chkBK = true;
        start.TabRequests = {u"BKRPT~SUMMARY~"_s + start.txtCaseNumber + u"~OR~"_s};
    }
    return start;
}
