#pragma once

#include "practice/Population.h"
#include "practice/Reply.h"

#include <QStringList>

namespace Practice {
/// What follows "INDEX" in a search of the weekly index of the Superior Courts: SEARCH, LAST,
/// FIRST, MI, empty, counties, case types, from year, to year, "LL=" and "UL=" with the first and
/// the last row of a page.
inline constexpr qsizetype indexSearchFields = 11;

/// The index answers with no more rows than a 16-bit number counts: the program keeps its place in
/// one.
inline constexpr qint64 mostIndexRows = 32'767;

/// Answers one page: the rows from LL to UL, then the end mark, or, when more rows are left, a
/// warning in its place, with the number of the last row and of the rows left.
Reply AnswerIndexSearch(const Population &population, const QStringList &fields, int thisYear);
} // namespace Practice
