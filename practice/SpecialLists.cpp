#include "practice/SpecialLists.h"

#include "practice/BankruptcySearch.h"
#include "practice/DistrictSearch.h"
#include "practice/SpecialNames.h"
#include "practice/StateSearch.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// A search of all district courts is a request for each of them.
constexpr std::size_t mostRemembered = 400;

/// The name stands first; in a request for somebody from a list of people it comes again, as it was
/// listed.
bool isSpecial(const QStringList &fields)
{
    constexpr qsizetype searchedFor = 1;
    constexpr qsizetype listed = 2;
    return FindSpecialName(fields.value(searchedFor)) != nullptr
           || FindSpecialName(fields.value(listed).section(u',', 0, 0)) != nullptr;
}
} // namespace

void SpecialLists::Note(CourtFamily family, const QStringList &fields)
{
    Noted &own = noted[static_cast<std::size_t>(family)];
    own.latest = isSpecial(fields);
    if (!own.latest)
        return;
    std::deque<QStringList> &searches = own.searches;
    searches.erase(std::remove(searches.begin(), searches.end(), fields), searches.end());
    searches.push_front(fields);
    if (searches.size() > mostRemembered)
        searches.pop_back();
}

bool SpecialLists::AreLatest(CourtFamily family) const
{
    return noted[static_cast<std::size_t>(family)].latest;
}

std::optional<SuperiorRow> SpecialLists::FindSuperior(const CaseNumber &number) const
{
    for (const QStringList &fields : noted.front().searches) {
        const std::optional<SuperiorQuery> query = ParseSpecialSearch(fields, lastYear);
        std::optional<SuperiorRow> row = query ? FindMadeUpRow(*query, number) : std::nullopt;
        if (row)
            return row;
    }
    return std::nullopt;
}

std::optional<OtherHit> SpecialLists::FindOther(OtherFamily family, const QString &number) const
{
    for (const QStringList &fields :
         noted[static_cast<std::size_t>(CourtFamilyOf(family))].searches) {
        if (std::optional<OtherHit> hit = findIn(family, fields, number))
            return hit;
    }
    return std::nullopt;
}

std::optional<OtherHit> SpecialLists::findIn(OtherFamily family, const QStringList &fields,
                                             const QString &number) const
{
    if (family == OtherFamily::District)
        return FindMadeUpDistrictHit(fields, lastYear, number);
    const ParsedSearch parsed = family == OtherFamily::Bankruptcy
                                    ? ParseBankruptcySearch(fields, lastYear)
                                    : ParseStateSearch(family, fields, lastYear);
    const auto *search = std::get_if<OtherSearch>(&parsed);
    return search == nullptr ? std::nullopt : FindMadeUpHit(*search, lastYear, number);
}
} // namespace Practice
