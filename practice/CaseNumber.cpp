#include "practice/CaseNumber.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr int digitCount = 9;

/// Digit `place` of `number`, counted from the right, from 0.
int digitOf(int number, int place)
{
    while (place-- > 0)
        number /= 10;
    return number % 10;
}
} // namespace

int CheckDigit(const CaseNumber &number)
{
    const int year = number.year % 100;
    // The serial is not weighed alone: a constant joins its first digit, the county its second and
    // third, the year its last two.
    const int sum = number.type * 7 + (digitOf(number.serial, 4) + 3) * 6
                    + (digitOf(number.serial, 3) + digitOf(number.county, 1)) * 5
                    + (digitOf(number.serial, 2) + digitOf(number.county, 0)) * 4
                    + (digitOf(number.serial, 1) + digitOf(year, 1)) * 3
                    + (digitOf(number.serial, 0) + digitOf(year, 0)) * 2;
    return (11 - sum % 11) % 10;
}

QString CaseNumberText(const CaseNumber &number)
{
    return u"%1-%2-%3-%4"_s.arg(number.year % 100, 2, 10, QChar(u'0'))
        .arg(number.type)
        .arg(number.serial, 5, 10, QChar(u'0'))
        .arg(CheckDigit(number));
}

std::optional<CaseNumber> ParseCaseNumber(int county, QStringView text)
{
    QStringView rest = text.trimmed();
    if (rest.startsWith(u'*'))
        rest = rest.mid(1);

    std::array<int, digitCount> digits{};
    std::size_t count = 0;
    for (const QChar character : rest) {
        if (character == u'-')
            continue;
        if (character < u'0' || character > u'9' || count == digits.size())
            return std::nullopt;
        digits[count++] = character.unicode() - u'0';
    }
    if (count != digits.size())
        return std::nullopt;

    CaseNumber number;
    number.county = county;
    const int shortYear = digits[0] * 10 + digits[1];
    number.year = shortYear >= firstCaseYear % 100 ? 1900 + shortYear : 2000 + shortYear;
    number.type = digits[2];
    for (std::size_t i = 3; i < 8; ++i)
        number.serial = number.serial * 10 + digits[i];
    if (CheckDigit(number) != digits[8])
        return std::nullopt;
    return number;
}
} // namespace Practice
