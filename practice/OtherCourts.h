#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <span>

namespace Practice {
/// The court families beside the Superior Courts of Washington. The people are the same in all of
/// them.
enum class OtherFamily : quint8 { Oregon, Idaho, District, Bankruptcy };

/// A court of one of these families.
struct OtherCourt
{
    QString code;        ///< how a request calls it: "BAK C", "Ada", "KSD", "WAW"
    QString location;    ///< how a row calls it
    QString place;       ///< how a line of progress calls it
    int weight = 0;      ///< how many of the family's cases lie there, against the others'
    bool lesser = false; ///< a District Court of Oregon, which hears small matters only
};

/// All courts of a family. Oregon has a Circuit Court in every county and a District Court in most;
/// the district and municipal courts of Washington are those of the program's own catalogue.
std::span<const OtherCourt> CourtsOf(OtherFamily family);

/// The place in CourtsOf() of the court that a request calls `code`, whatever its case; nullopt
/// when there is none.
std::optional<int> FindCourt(OtherFamily family, QStringView code);
} // namespace Practice
