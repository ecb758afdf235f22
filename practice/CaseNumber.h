#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace Practice {
/// A Superior Court case number, YY-T-NNNNN-C. The check digit C depends on the county too, so the
/// same year, type and serial end differently in two counties.
struct CaseNumber
{
    int county = 0; ///< 1 to 39
    int year = 0;   ///< with its century
    int type = 0;   ///< 1 Criminal to 9 Judgment
    int serial = 0; ///< 0 to 99999

    friend bool operator==(const CaseNumber &, const CaseNumber &) = default;
};

/// The first year that has two digits of its own: "70" to "99" are of the last century, "00" to
/// "69" of this one.
inline constexpr int firstCaseYear = 1970;
inline constexpr int lastSerial = 99999;

/// The last digit of the number, 0 to 9.
int CheckDigit(const CaseNumber &number);

/// "YY-T-NNNNN-C", without an archive mark.
QString CaseNumberText(const CaseNumber &number);

/// The number that `text` stands for in `county`: with or without its dashes, with or without the
/// "*" of an archived case; nullopt when the form or the check digit is wrong.
std::optional<CaseNumber> ParseCaseNumber(int county, QStringView text);
} // namespace Practice
