#pragma once

#include "practice/Population.h"
#include "practice/Reply.h"
#include "practice/SpecialNames.h"

#include <QString>

#include <functional>

namespace Practice {
/// Row `number` of a name with a meaning, made to pass the filters of the search. `lastField`, when
/// it holds something, stands in place of the row's last field.
using SpecialRowMaker = std::function<QString(qint64 number, const QString &lastField)>;

/// What a search gives for a name with a meaning.
struct SpecialScene
{
    NameQuery name;
    SpecialRowMaker row; ///< empty when the filters let nothing through
    QString place;       ///< where the search is at, for lines of progress
};

/// Says what the name means, all but the end mark.
void SaySpecial(SpecialSearch search, const SpecialScene &scene, Reply &reply);

/// Says so many rows, from row `first` on.
void SaySpecialRows(const SpecialScene &scene, qint64 count, Reply &reply, qint64 first = 0);

/// Says so many lines of progress, a second each.
void SaySlowProgress(const SpecialScene &scene, Reply &reply);

/// How many rows the names MANY and PAGES have: as many as a number in place of the first name
/// says.
qint64 SpecialRowCount(SpecialSearch search, const QString &first);

/// How many rows OVER200 has before its notice.
qint64 Over200Rows(const QString &first);

/// Rows of the name MANY, without and at most with a number as the first name.
inline constexpr qint64 manyRows = 10'000;
inline constexpr qint64 mostManyRows = 200'000;

/// Rows of the name PAGES, without a number.
inline constexpr qint64 pagesRows = 1'200;

/// Rows that come before an error or a broken line.
inline constexpr qint64 tooManyRows = 25;
inline constexpr qint64 errorRows = 3;
inline constexpr qint64 brokenRows = 5;
inline constexpr qint64 slowRows = 3;

/// Seconds of the name SLOW, likewise.
inline constexpr int slowSeconds = 30;
inline constexpr int mostSlowSeconds = 3'600;

/// What the errors say.
inline constexpr auto tooManyHits = u"ERROR~Too many hits~";
inline constexpr auto unreadableRecord = u"ERROR~A court record could not be read~";
} // namespace Practice
