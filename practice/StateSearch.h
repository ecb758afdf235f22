#pragma once

#include "practice/OtherSearch.h"
#include "practice/Population.h"
#include "practice/Reply.h"

#include <QStringList>

namespace Practice {
/// What follows "OREGON" or "IDSUP" in a name search: SEARCH, LAST, FIRST, MI, empty, the court or
/// "*ALL", case codes, from year, to year.
inline constexpr qsizetype stateSearchFields = 9;

/// Understands such a search, all but whom it means.
ParsedSearch ParseStateSearch(OtherFamily family, const QStringList &fields, int thisYear);

/// Answers a name search of the courts of Oregon or of Idaho, as AnswerSuperiorSearch() does for
/// Washington.
Reply AnswerStateSearch(OtherFamily family, const Population &population, const QStringList &fields,
                        int thisYear);
} // namespace Practice
