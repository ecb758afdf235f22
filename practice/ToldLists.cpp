#include "practice/ToldLists.h"

#include "practice/BankruptcySearch.h"
#include "practice/DistrictSearch.h"
#include "practice/StateSearch.h"
#include "practice/ToldNames.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// A search of all district courts is a request for each of them.
constexpr std::size_t mostRemembered = 400;

/// The name stands first; in a request for somebody from a list of people it comes again, as it was
/// listed.
bool isTold(const QStringList &fields)
{
    constexpr qsizetype searchedFor = 1;
    constexpr qsizetype listed = 2;
    return FindToldName(fields.value(searchedFor)) != nullptr
           || FindToldName(fields.value(listed).section(u',', 0, 0)) != nullptr;
}
} // namespace

void ToldLists::Note(CourtFamily family, const QStringList &fields)
{
    Noted &own = noted[static_cast<std::size_t>(family)];
    own.latest = isTold(fields);
    if (!own.latest)
        return;
    std::deque<QStringList> &searches = own.searches;
    searches.erase(std::remove(searches.begin(), searches.end(), fields), searches.end());
    searches.push_front(fields);
    if (searches.size() > mostRemembered)
        searches.pop_back();
}

bool ToldLists::AreLatest(CourtFamily family) const
{
    return noted[static_cast<std::size_t>(family)].latest;
}

std::optional<SuperiorRow> ToldLists::FindSuperior(const CaseNumber &number) const
{
    for (const QStringList &fields : noted.front().searches) {
        const std::optional<SuperiorQuery> query = ParseToldSearch(fields, lastYear);
        std::optional<SuperiorRow> row = query ? FindMadeUpRow(*query, number) : std::nullopt;
        if (row)
            return row;
    }
    return std::nullopt;
}

std::optional<OtherHit> ToldLists::FindOther(OtherFamily family, const QString &number) const
{
    for (const QStringList &fields :
         noted[static_cast<std::size_t>(CourtFamilyOf(family))].searches) {
        if (std::optional<OtherHit> hit = findIn(family, fields, number))
            return hit;
    }
    return std::nullopt;
}

std::optional<OtherHit> ToldLists::findIn(OtherFamily family, const QStringList &fields,
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
