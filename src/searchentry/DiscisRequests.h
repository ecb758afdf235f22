#pragma once

#include "records/CaseStart.h"
#include "searchentry/SearchEntry.h"

#include <functional>
#include <optional>

/// The texts by which the court list stands for more than its courts.
constexpr QStringView discisStatewideItem = u"Statewide (all counties/jurisdictions)";
constexpr QStringView discisDefendantsItem = u"Statewide Defendant Name Search with Addresses";

/// A name search of the District and Municipal courts: its lines and what its window shows.
struct DiscisRequests
{
    bool Ok = false; ///< false when neither civil nor non-civil was chosen; all else is empty then
    QStringList Lines;
    QString CourtCounty;  ///< lblCourtCounty
    QString CaseTypeVals; ///< lblCaseTypeVals; "" leaves it as it is
    QString NameVal;      ///< lblNameVal
    QString CountyList;   ///< txtCountyList
};

/// `turn` is called after each court, for the event loop; it may be empty.
DiscisRequests DiscisNameRequests(const SearchEntry &entry, const std::function<void()> &turn);

/// True when the next non-civil window asks for defendants with their addresses.
bool IsDndSearch(const SearchEntry &entry);

/// One number of the District and Municipal Courts. None when neither civil nor non-civil was
/// chosen, or no court: that is logged.
std::optional<CaseStart> DiscisNumberFields(const SearchEntry &entry);

/// The name of a court in a list item of the form "name (code)".
QString DiscisCourtNameOf(const QString &listItem);

/// The three letters in the brackets at its end; "" when it has none.
QString DiscisCourtCodeOf(const QString &listItem);
