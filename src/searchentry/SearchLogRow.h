#pragma once

#include "searchentry/SearchEntry.h"

#include <array>

/// The columns of the session's list of searches.
enum SearchLogColumn : size_t {
    LogSearchItem,
    LogCourt,
    LogJurisdictions,
    LogCaseTypes,
    LogYears,
    LogStatus
};
using SearchLogRow = std::array<QString, 6>;

/// The row that a search begins with in the list of searches.
SearchLogRow AddRecordToSearchList(const SearchEntry &entry);

/// What is searched for: the formatted name of a person, otherwise the first box.
QString GetSearchForItem(const SearchEntry &entry);
/// Last name, first name and initial, those that are entered, joined with ", ".
QString GetFormattedName(const SearchEntry &entry);
/// The court as it is shown.
QString GetSearchCourts(const SearchEntry &entry);
/// The counties, or what stands for them in this court, joined with ", ".
QString GetJurisdictions(const SearchEntry &entry);
/// The case types joined with ", "; "N/A" for a number.
QString GetCaseTypes(const SearchEntry &entry);
/// "All Avail.", or the first and last year; "N/A" for a number.
QString GetSearchYears(const SearchEntry &entry);
