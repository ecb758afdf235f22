#pragma once

#include "practice/Population.h"
#include "practice/Reply.h"

#include <QStringList>

namespace Practice {
/// What follows "WASUP" in a name search: SEARCH, LAST, FIRST, MI, empty, counties, case types,
/// from year, to year.
inline constexpr qsizetype superiorSearchFields = 9;

/// Answers a name search of the Washington Superior Courts: a few lines of progress, a row for each
/// part that somebody of the name has in a case that passes the filters, the end mark. A name of
/// its own meaning gets what it means. `population` must outlive the reply, and `thisYear` ends the
/// years of a search for all of them.
Reply AnswerSuperiorSearch(const Population &population, const QStringList &fields, int thisYear);
} // namespace Practice
