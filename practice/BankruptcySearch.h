#pragma once

#include "practice/OtherSearch.h"
#include "practice/Population.h"
#include "practice/Reply.h"

#include <QStringList>

namespace Practice {
/// Whether a bankruptcy request is a search: SEARCH by name, SEARCHBUS by a business name,
/// SEARCHTID by a tax number, SEARCHSSN by a social security number.
bool IsBankruptcySearch(const QStringList &fields);

/// Understands one, all but whom it means.
ParsedSearch ParseBankruptcySearch(const QStringList &fields, int thisYear);

/// Answers one. Behind the verb stand the name in four fields (LAST, FIRST, MI, empty) or the one
/// business name or number, then the court, "*ALL", from year and to year.
Reply AnswerBankruptcySearch(const Population &population, const QStringList &fields, int thisYear);
} // namespace Practice
