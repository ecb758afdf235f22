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
    bool district; ///< Oregon's District Courts
    QStringView state;
    QStringView courts;
    QStringView oneCounty;
    QStringView severalCounties;
};

// One word for one county and for several, except in Idaho: that is how the windows have always
// read.
constexpr std::array<TitleRow, 4> titles{{
    {CourtFamily::Superior, false, u"WA", u"Washington Superior Courts", u" County", u" County"},
    {CourtFamily::Oregon, false, u"OR", u"Oregon Circuit Courts", u" County", u" County"},
    {CourtFamily::Oregon, true, u"OR", u"Oregon District Courts", u" County", u" County"},
    {CourtFamily::Idaho, false, u"ID", u"Idaho District Courts", u" County", u" Counties"},
}};

const TitleRow *titleRow(const SearchEntry &entry)
{
    const bool district = entry.Court == CourtFamily::Oregon && entry.DistrictCourt;
    const auto *found = std::find_if(titles.begin(), titles.end(), [&](const TitleRow &row) {
        return row.court == entry.Court && row.district == district;
    });
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
    const QString courts = u" - "_s + row->courts.toString();
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
    if (const TitleRow *row = titleRow(entry))
        fields.lblState = row->state.toString();
    const bool statewide = entry.Where == SearchScope::Statewide;
    fields.chkIndexSearch = IsIndexSearch(entry);
    fields.OrStatewide = statewide && entry.Court == CourtFamily::Oregon;
    fields.IdStatewide = statewide && entry.Court == CourtFamily::Idaho;
    fields.ORchkboxJGMcasetype = entry.JudgmentsOnly && entry.Court == CourtFamily::Oregon;
    fields.txtCountyList = JurisdictionsTitle(entry);
    return fields;
}
