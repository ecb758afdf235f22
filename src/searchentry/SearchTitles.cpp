#include "searchentry/SearchTitles.h"

#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "searchentry/NameRequests.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
struct TitleRow
{
    CourtFamily court;
    QStringView oneCounty;
    QStringView severalCounties;
};

// One word for one county and for several, except in Idaho: that is how the windows have always
// read.
constexpr std::array<TitleRow, 3> titles{{
    {CourtFamily::Superior, u" County", u" County"},
    {CourtFamily::Oregon, u" County", u" County"},
    {CourtFamily::Idaho, u" County", u" Counties"},
}};

const TitleRow *titleRow(const SearchEntry &entry)
{
    const auto *found = std::find_if(titles.begin(), titles.end(),
                                     [&](const TitleRow &row) { return row.court == entry.Court; });
    return found == titles.end() ? nullptr : found;
}

/// One row for each SearchKind, in its order. Bankruptcy has its own filing: a business
/// goes to the persons there, and only a tax identifier to the businesses.
struct RecentRow
{
    QStringView type;
    QStringView bankruptcyType;
};
constexpr std::array<RecentRow, 5> recentTypes{{
    {u"Individual Name", u"Individual Name"},
    {u"Business Name", u"Individual Name"},
    {u"Case Number", u"Case Number"},
    {u"Case Number", u"Business Name"},
    {u"Case Number", u"Individual Name"},
}};
} // namespace

QString JurisdictionsTitle(const SearchEntry &entry)
{
    const TitleRow *row = titleRow(entry);
    if (!row)
        return {};
    const CourtFacts &court = CourtOf(entry.Court);
    const QString courts = u" - " + (entry.DistrictCourt ? court.DistrictCourts : court.Courts);
    if (entry.Where == SearchScope::Statewide)
        return u"Statewide (All Counties)"_s + courts;
    const QString names = entry.Counties.join(u", "_s);
    return names + (names.contains(u',') ? row->severalCounties : row->oneCounty).toString()
           + courts;
}

QString RecentEntryText(const SearchEntry &entry)
{
    QStringList parts{TrimBlanks(entry.Names[LastName])};
    if (entry.Kind == SearchKind::Person) {
        for (const NameBox box : {FirstName, MiddleInitial}) {
            const QString part = TrimBlanks(entry.Names[box]);
            if (!part.isEmpty())
                parts.append(part);
        }
    }
    return FoldToUpper(parts.join(u", "_s));
}

QString RecentEntryType(const SearchEntry &entry)
{
    const RecentRow &row = recentTypes[static_cast<size_t>(entry.Kind)];
    return (entry.Court == CourtFamily::Bankruptcy ? row.bankruptcyType : row.type).toString();
}

QString ShownName(const SearchEntry &entry)
{
    if (entry.Court != CourtFamily::Discis)
        return RecentEntryText(entry);
    return FoldToUpper(TrimBlanks(entry.Names[LastName]) + u", "_s
                       + TrimBlanks(entry.Names[FirstName]) + u' '
                       + TrimBlanks(entry.Names[MiddleInitial]));
}

NameResultsFields NameResultsFieldsOf(const SearchEntry &entry)
{
    NameResultsFields fields;
    if (titleRow(entry))
        fields.lblState = CourtOf(entry.Court).State.toString();
    const bool statewide = entry.Where == SearchScope::Statewide;
    fields.chkIndexSearch = IsIndexSearch(entry);
    fields.OrStatewide = statewide && entry.Court == CourtFamily::Oregon;
    fields.IdStatewide = statewide && entry.Court == CourtFamily::Idaho;
    fields.ORchkboxJGMcasetype = entry.JudgmentsOnly && entry.Court == CourtFamily::Oregon;
    fields.txtCountyList = JurisdictionsTitle(entry);
    return fields;
}
