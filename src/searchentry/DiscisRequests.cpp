#include "searchentry/DiscisRequests.h"

#include "core/Log.h"
#include "core/TextUtilities.h"
#include "courts/DiscisCourts.h"
#include "searchentry/RequestGrammar.h"
#include "searchentry/SearchTitles.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype codeInBrackets = 5; ///< "(OTD)"

/// The first county of the list for a person in a non-civil search: what stands before it is
/// statewide.
constexpr int firstCountyIndex = 2;

/// The list of courts stands for the whole state. For a business the first county stands at the
/// place of the defendants' entry: the index alone would make a statewide search of it.
bool isStatewide(const SearchEntry &entry)
{
    const QString first = entry.DiscisItems.value(0);
    return entry.DiscisCountyIndex < firstCountyIndex
           && (first == discisStatewideItem || first == discisDefendantsItem);
}

bool isCivil(const SearchEntry &entry)
{
    return entry.Where == SearchScope::DiscisCivil;
}

bool isDiscis(const SearchEntry &entry)
{
    return isCivil(entry) || entry.Where == SearchScope::DiscisNonCivil;
}

bool isEveryCourt(const SearchEntry &entry)
{
    return entry.DiscisItems.size() == 1
           && entry.DiscisItems.first().toLower().contains(u"statewide");
}

void addStatewideLine(const SearchEntry &entry, DiscisRequests &requests)
{
    const bool allCourts = entry.DiscisItems.value(0) == discisStatewideItem;
    requests.Lines.append(ComposeRequest(
        allCourts ? RequestLine::DiscisStatewide : RequestLine::DiscisDefendants, entry, {}));
    requests.CourtCounty = allCourts ? u"Statewide - All Counties"_s
                                     : u"Statewide - All Counties - Defendants and Addresses"_s;
}

void addCourt(const SearchEntry &entry, const clsDiscisCourts &court, DiscisRequests &requests)
{
    RequestValues values;
    values.Places = {court.CourtCode};
    requests.Lines.append(ComposeRequest(
        isCivil(entry) ? RequestLine::DiscisCivil : RequestLine::DiscisNonCivil, entry, values));
    requests.CountyList += court.ListText() + u", "_s;
}

QList<clsDiscisCourts> courtsToSearch(const SearchEntry &entry)
{
    if (isCivil(entry) && isEveryCourt(entry))
        return DiscisCourts();
    QList<clsDiscisCourts> found;
    for (const QString &item : entry.DiscisSelected) {
        // By name, not by code: courts that share a name are searched together.
        const QString name = DiscisCourtNameOf(item);
        for (const clsDiscisCourts &court : DiscisCourts()) {
            if (court.CourtName == name)
                found.append(court);
        }
    }
    return found;
}

void addCourts(const SearchEntry &entry, const std::function<void()> &turn,
               DiscisRequests &requests)
{
    // Gathered before the first turn of the event loop, in which the catalogue may be read anew.
    const QList<clsDiscisCourts> courts = courtsToSearch(entry);
    for (const clsDiscisCourts &court : courts) {
        addCourt(entry, court, requests);
        if (turn)
            turn();
    }
}

QString courtsTitle(const SearchEntry &entry)
{
    if (isCivil(entry) && isEveryCourt(entry))
        return u"Statewide - All Courts / "_s + QString::number(discisCourtsShown)
               + u" Jurisdictions"_s;
    return entry.DiscisCounty + u" District/Municipal Courts"_s;
}
} // namespace

DiscisRequests DiscisNameRequests(const SearchEntry &entry, const std::function<void()> &turn)
{
    DiscisRequests requests;
    if (!isDiscis(entry)) {
        WriteAppInfo(u"Error Loading Discis Name Search Strings into Form's queue. Exiting "
                     "Function False."_s);
        return requests;
    }
    requests.Ok = true;
    requests.NameVal = ShownName(entry);
    if (isCivil(entry))
        requests.CaseTypeVals = u"CIVIL"_s;
    if (!isCivil(entry) && isStatewide(entry)) {
        addStatewideLine(entry, requests);
    } else {
        requests.CourtCounty = courtsTitle(entry);
        addCourts(entry, turn, requests);
    }
    requests.CountyList = TrimBlanks(requests.CountyList);
    requests.CountyList.chop(1);
    return requests;
}

bool IsDndSearch(const SearchEntry &entry)
{
    return entry.Where == SearchScope::DiscisNonCivil && entry.Kind == SearchKind::Person
           && entry.DiscisItems.value(0) == discisDefendantsItem;
}

std::optional<CaseStart> DiscisNumberFields(const SearchEntry &entry)
{
    const QString court = entry.DiscisSelected.value(0);
    const QString code = DiscisCourtCodeOf(court);
    if (!isDiscis(entry) || code.isEmpty()) {
        WriteAppInfo(u"Error Loading Discis Case Number Search Strings into Form's queue. Exiting "
                     "Function False."_s);
        return std::nullopt;
    }
    const QString number = TrimBlanks(entry.Names[LastName]);
    CaseStart fields(isCivil(entry) ? CaseKind::Civil : CaseKind::NonCivil);
    fields.Caption = number + u" - Case Details"_s;
    fields.txtCaseType = isCivil(entry) ? u"CV"_s : u"IN"_s;
    fields.lblCourtName = entry.DiscisCounty + u" Cty. - "_s + court;
    fields.txtCaseNumber = number;
    fields.lblCaseNo = number;
    fields.txtCourtCode = code;
    return fields;
}

QString DiscisCourtNameOf(const QString &listItem)
{
    return TrimBlanks(listItem.chopped(std::min(codeInBrackets, listItem.size())));
}

QString DiscisCourtCodeOf(const QString &listItem)
{
    const QString end = listItem.right(codeInBrackets);
    if (end.size() != codeInBrackets || end.front() != u'(' || end.back() != u')')
        return {};
    return end.mid(1, codeInBrackets - 2);
}
