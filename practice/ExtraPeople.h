#pragma once

#include "practice/Population.h"

#include <QByteArray>
#include <QIODevice>
#include <QStringList>

namespace Practice {
/// What came of a file of extra people.
struct ExtraPeopleOutcome
{
    int added = 0;          ///< lines that were taken
    QStringList complaints; ///< "line 3: ..." for each that was skipped
};

/// The longest line that is read, in bytes.
inline constexpr int longestDataLine = 4096;

/// Adds people and cases of one's own to the population, a line each:
///
///     LAST, FIRST, MIDDLE, COUNTY, TYPE, DATE[, DESCRIPTION[, ROLE[, CASE NUMBER]]]
///
/// with a tab or "~" where the comma stands here. A name without a first name is a business. Lines
/// of the same name are one person, lines of the same county and number are one case. A line that
/// makes no sense, or would break the wire, is skipped and complained of.
ExtraPeopleOutcome AddExtraPeople(Population &population, QIODevice &lines);
} // namespace Practice
