#pragma once

#include "searchentry/SearchEntry.h"

#include <functional>

/// What a name search needs to know beside its entries.
struct RequestContext
{
    QStringList StateCounties;  ///< the state's whole list, which a statewide search may walk
    int PageSize = 500;         ///< rows in a page of the index
    int ThisYear = 0;           ///< the year until which "all years" go
    std::function<void()> Turn; ///< called after each county, for the event loop; may be empty
};

/// True for a search of the weekly index.
bool IsIndexSearch(const SearchEntry &entry);

/// The request lines of a name search in Washington's Superior Courts, their index, Oregon or
/// Idaho. None where every county was left out, and for the courts that have lines of another kind.
QStringList NameRequests(const SearchEntry &entry, const RequestContext &context);

/// The case types of the entry as this search sends them.
QString CaseTypeField(const SearchEntry &entry);
