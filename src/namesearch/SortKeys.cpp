#include "namesearch/SortKeys.h"

#include "core/TextUtilities.h"

#include <QDate>
#include <QTime>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
struct SortColumn
{
    QStringView header;
    SortAs as;
};
constexpr std::array<SortColumn, 5> sortColumns{{
    {u"Case Number", SortAs::CaseNumber},
    {u"Case No.", SortAs::CaseNumber},
    {u"Date Filed", SortAs::Date},
    {u"Vio./File Date", SortAs::Date},
    {u"D.O.B.", SortAs::Date},
}};

constexpr qsizetype zerosEitherSide = 30;
constexpr qsizetype digitsOfAGroup = 3;
constexpr int noonHour = 12;
constexpr int hoursOfHalfADay = 12;

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Reads a text from its beginning, piece by piece.
class Pieces
{
public:
    explicit Pieces(QStringView text) : rest(text) {}

    bool AtEnd() const { return rest.isEmpty(); }

    bool Take(QChar c)
    {
        if (!rest.startsWith(c))
            return false;
        rest = rest.sliced(1);
        return true;
    }

    bool TakeWord(QStringView word)
    {
        if (!rest.startsWith(word, Qt::CaseInsensitive))
            return false;
        rest = rest.sliced(word.size());
        return true;
    }

    /// A whole number of `least` to `most` digits.
    std::optional<int> TakeNumber(int least, int most)
    {
        int value = 0;
        int digits = 0;
        while (digits < most && digits < rest.size() && isDigit(rest[digits]))
            value = value * 10 + rest[digits++].digitValue();
        if (digits < least)
            return std::nullopt;
        rest = rest.sliced(digits);
        return value;
    }

private:
    QStringView rest;
};

std::optional<QDate> takeDate(Pieces &pieces)
{
    const std::optional<int> month = pieces.TakeNumber(1, 2);
    if (!month || !pieces.Take(u'/'))
        return std::nullopt;
    const std::optional<int> day = pieces.TakeNumber(1, 2);
    if (!day || !pieces.Take(u'/'))
        return std::nullopt;
    const std::optional<int> year = pieces.TakeNumber(4, 4);
    if (!year || !QDate::isValid(*year, *month, *day))
        return std::nullopt;
    return QDate(*year, *month, *day);
}

std::optional<QTime> takeTime(Pieces &pieces)
{
    const std::optional<int> hour = pieces.TakeNumber(1, 2);
    if (!hour || !pieces.Take(u':'))
        return std::nullopt;
    const std::optional<int> minute = pieces.TakeNumber(2, 2);
    const std::optional<int> second =
        minute && pieces.Take(u':') ? pieces.TakeNumber(2, 2) : std::optional(0);
    if (!minute || !second)
        return std::nullopt;
    const bool halfDay = pieces.Take(u' ');
    if (!halfDay)
        return QTime::isValid(*hour, *minute, *second)
                   ? std::optional(QTime(*hour, *minute, *second))
                   : std::nullopt;
    const bool afternoon = pieces.TakeWord(u"PM");
    if ((!afternoon && !pieces.TakeWord(u"AM")) || *hour < 1 || *hour > noonHour)
        return std::nullopt;
    const int ofDay = *hour % noonHour + (afternoon ? hoursOfHalfADay : 0);
    return QTime::isValid(ofDay, *minute, *second) ? std::optional(QTime(ofDay, *minute, *second))
                                                   : std::nullopt;
}

void appendPadded(QString &text, int number, int digits)
{
    QChar characters[4];
    for (int i = digits - 1; i >= 0; --i, number /= 10)
        characters[i] = QChar(u'0' + number % 10);
    text.append(characters, digits);
}

/// The digits of a number without a sign, with one point among them or not, and with its thousands
/// set apart by commas or not: "1,234.5" gives "1234.5". Nothing for any other text.
std::optional<QString> digitsOf(QStringView text)
{
    QString digits;
    digits.reserve(text.size());
    qsizetype ofThisGroup = 0;
    bool grouped = false;
    bool pointSeen = false;
    const auto groupIsWhole = [&] { return !grouped || ofThisGroup == digitsOfAGroup; };
    for (const QChar c : text) {
        if (isDigit(c)) {
            digits.append(c);
            ++ofThisGroup;
        } else if (c == u',' && !pointSeen && groupIsWhole() && ofThisGroup > 0
                   && ofThisGroup <= digitsOfAGroup) {
            grouped = true;
            ofThisGroup = 0;
        } else if (c == u'.' && !pointSeen && groupIsWhole()) {
            digits.append(c);
            pointSeen = true;
        } else {
            return std::nullopt;
        }
    }
    const bool anyDigit = digits.size() > (pointSeen ? 1 : 0);
    return anyDigit && (pointSeen || groupIsWhole()) ? std::optional(digits) : std::nullopt;
}

QString fillUp(QStringView number)
{
    qsizetype point = number.indexOf(u'.');
    if (point < 0)
        point = number.size();
    const QStringView whole = number.first(point);
    const QStringView fraction =
        number.sliced(std::min(point + 1, number.size()))
            .first(std::min(zerosEitherSide, std::max<qsizetype>(0, number.size() - point - 1)));
    QString text;
    text.reserve(std::max(whole.size(), zerosEitherSide) + 1 + zerosEitherSide);
    text.fill(u'0', std::max<qsizetype>(0, zerosEitherSide - whole.size()));
    text.append(whole).append(u'.').append(fraction);
    text.append(QString(zerosEitherSide - fraction.size(), u'0'));
    return text;
}

bool isZero(QStringView number)
{
    return std::all_of(number.begin(), number.end(),
                       [](QChar c) { return c == u'0' || c == u'.'; });
}
} // namespace

SortAs SortAsOf(QStringView header)
{
    for (const SortColumn &column : sortColumns) {
        if (column.header == header)
            return column.as;
    }
    return SortAs::Text;
}

QString DateSortText(const QString &cell)
{
    const QString trimmed = TrimBlanks(cell);
    Pieces pieces(trimmed);
    const std::optional<QDate> date = takeDate(pieces);
    if (!date)
        return cell;
    std::optional<QTime> time = QTime(0, 0);
    if (pieces.Take(u' '))
        time = takeTime(pieces);
    if (!time || !pieces.AtEnd())
        return cell;
    QString text;
    text.reserve(14);
    appendPadded(text, date->year(), 4);
    for (const int part :
         {date->month(), date->day(), time->hour(), time->minute(), time->second()})
        appendPadded(text, part, 2);
    return text;
}

QString CaseNumberSortText(const QString &cell)
{
    QString text = cell;
    text.remove(u'*').remove(u'-').remove(u">>"_s);
    if (text.startsWith(u'0'))
        text.prepend(u'1');
    const QString trimmed = TrimBlanks(text);
    const bool bracketed = trimmed.size() > 1 && trimmed.startsWith(u'(') && trimmed.endsWith(u')');
    QStringView value = trimmed;
    if (bracketed)
        value = value.sliced(1).chopped(1);
    else if (value.startsWith(u'+'))
        value = value.sliced(1);
    const std::optional<QString> number = digitsOf(value);
    if (!number)
        return text;
    // Nothing is less than zero by being in brackets.
    const bool negative = bracketed && !isZero(*number);
    return negative ? QString(u'&' + InvertDigits(fillUp(*number))) : fillUp(*number);
}

QString InvertDigits(QString text)
{
    for (QChar &c : text) {
        if (isDigit(c))
            c = QChar(u'0' + (u'9' - c.unicode()));
        else if (c == u'-')
            c = u' ';
    }
    return text;
}

QString SortKeyOf(const QString &cell, SortAs as)
{
    switch (as) {
    case SortAs::Date:
        return DateSortText(cell).toCaseFolded();
    case SortAs::CaseNumber:
        return CaseNumberSortText(cell).toCaseFolded();
    case SortAs::Text:
        break;
    }
    return cell.toCaseFolded();
}
