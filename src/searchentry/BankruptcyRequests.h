#pragma once

#include "searchentry/SearchEntry.h"

#include <optional>

constexpr int bkCourtCount = 4;

/// The court of a box of chkBKcourt. Throws error 9 for a box that there is not.
const CourtFacts &BkCourt(int index);

/// The one line of a search of this court. None when there is no such court, or when nothing
/// to look for is left of what was entered.
std::optional<QString> BkRequest(const SearchEntry &entry, int courtIndex, int thisYear);

/// What a results window of a bankruptcy search gets.
struct BkResultsFields
{
    QString lblState;
    QString txtCountyList;
    QString lblCaseTypeVals;
    QString lblNameVal;
    QString lblName; ///< "" leaves the label as it is
};

BkResultsFields BkResultsFieldsOf(const SearchEntry &entry, int courtIndex);
