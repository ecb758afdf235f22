#include "searchentry/SearchLogRow.h"

#include "core/TextUtilities.h"
#include "searchentry/RecentEntries.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView notApplicable = u"N/A";

constexpr std::array<QStringView, 4> bankruptcyCourts{
    u"Washington (Western)", u"Washington (Eastern)", u"Oregon (Statewide)", u"Idaho (Statewide)"};

/// Tax identifiers and social security numbers count as case numbers.
bool isNumber(const SearchEntry &entry)
{
    return entry.Kind != SearchKind::Person && entry.Kind != SearchKind::Business;
}

QString checkedBankruptcyCourts(const SearchEntry &entry)
{
    QStringList courts;
    for (size_t i = 0; i < bankruptcyCourts.size(); ++i) {
        if (entry.BkCourts[i])
            courts.append(bankruptcyCourts[i].toString());
    }
    return courts.join(u", "_s);
}
} // namespace

QString GetFormattedName(const SearchEntry &entry)
{
    return MruPersonName(entry.Names);
}

QString GetSearchForItem(const SearchEntry &entry)
{
    return entry.Kind == SearchKind::Person ? GetFormattedName(entry)
                                            : TrimBlanks(entry.Names[LastName]);
}

QString GetSearchCourts(const SearchEntry &entry)
{
    return entry.CourtName;
}

QString GetJurisdictions(const SearchEntry &entry)
{
    if (entry.Court == CourtFamily::Bankruptcy)
        return checkedBankruptcyCourts(entry);
    if (entry.Court == CourtFamily::Discis)
        return entry.DiscisSelected.join(u", "_s);
    if (isNumber(entry))
        return entry.NumberCounty;
    return entry.Where == SearchScope::Statewide ? u"Statewide (All Counties)"_s
                                                 : entry.Counties.join(u", "_s);
}

QString GetCaseTypes(const SearchEntry &entry)
{
    return isNumber(entry) ? notApplicable.toString() : entry.CaseTypes.join(u", "_s);
}

QString GetSearchYears(const SearchEntry &entry)
{
    if (isNumber(entry))
        return notApplicable.toString();
    return entry.YearRange ? TrimBlanks(entry.FromYear) + u" - "_s + TrimBlanks(entry.ToYear)
                           : u"All Avail."_s;
}

SearchLogRow AddRecordToSearchList(const SearchEntry &entry)
{
    SearchLogRow row;
    row[LogSearchItem] = GetSearchForItem(entry);
    row[LogCourt] = GetSearchCourts(entry) + u" - "_s;
    row[LogJurisdictions] = GetJurisdictions(entry);
    row[LogCaseTypes] = GetCaseTypes(entry);
    row[LogYears] = GetSearchYears(entry);
    row[LogStatus] = u"Pending .."_s;
    return row;
}
