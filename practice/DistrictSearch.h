#pragma once

#include "practice/OtherSearch.h"
#include "practice/Population.h"
#include "practice/Reply.h"

#include <QStringList>

namespace Practice {
/// What follows "WADISCIS" in a name search: SEARCH, LAST, FIRST, MI, the court's code or "*SW",
/// "CV" or "IN", and what is wanted: "CNCI" the cases of one court, "SNCI" and "DND" those of the
/// whole state.
inline constexpr qsizetype districtSearchFields = 7;

/// The row that such a search for a name with a meaning, or for the cases of a listed person, has
/// made up with this number; nullopt when it has none.
std::optional<OtherHit> FindMadeUpDistrictHit(const QStringList &fields, int thisYear,
                                              const QString &number);

/// Answers a name search of the district and municipal courts. A statewide one brings the criminal
/// cases of the Superior Courts too, with "S17" for a court's code.
Reply AnswerDistrictSearch(const Population &population, const QStringList &fields, int thisYear);
} // namespace Practice
