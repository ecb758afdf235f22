#include "searchentry/CaseNumbers.h"

#include "core/CSetting.h"
#include "core/Clock.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype scomisDigits = 9;
constexpr qsizetype ssnDigits = 9;
constexpr qsizetype fewestBkCharacters = 7;
constexpr qsizetype mostBkCharacters = 15;
constexpr qsizetype mostUbiCharacters = 15;
constexpr qsizetype fewestTaxIdCharacters = 5;
constexpr int firstTaxYear = 1980;
/// Added to the first digit of the serial number, where the others have the county's or the year's.
constexpr int checkDigitConstant = 3;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isAllDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), isDigit);
}

QString withoutDashes(const QString &text)
{
    return QString(text).remove(u'-');
}

int digitAt(const QString &text, qsizetype index)
{
    if (index >= text.size() || !isDigit(text[index]))
        throw RunTimeError::TypeMismatch();
    return text[index].unicode() - u'0';
}

/// The year that two characters stand for at the head of a tax identifier, 0 for none.
int taxYear(QChar tens, QChar ones)
{
    if (!isDigit(tens) || !isDigit(ones))
        return 0;
    const int year = (tens.unicode() - u'0') * 10 + (ones.unicode() - u'0');
    if (tens >= u'8')
        return 1900 + year;
    return tens <= u'1' ? 2000 + year : 0;
}
} // namespace

bool FormatScomisNumber(QString &number)
{
    const QString digits = withoutDashes(number);
    if (digits.size() != scomisDigits || !isAllDigits(digits))
        return false;
    number = digits.left(2) + u'-' + digits[2] + u'-' + digits.mid(3, 5) + u'-' + digits[8];
    return true;
}

QString FormatBkCaseNumber(const QString &number)
{
    if (number.size() < fewestBkCharacters || number.size() > mostBkCharacters)
        return {};
    const QString bare = withoutDashes(number).remove(u':');
    switch (bare.size()) {
    case 7:
        return bare.left(2) + u'-' + bare.right(5);
    case 9:
        return bare.left(3) + u'-' + bare.mid(3, 3) + u'-' + bare.right(3);
    case 10:
        return bare.left(1) + u':' + bare.mid(1, 2) + u'-' + bare.mid(3, 2) + u'-' + bare.right(5);
    default:
        return {};
    }
}

bool IsTaxId(const QString &text)
{
    const QString trimmed = TrimBlanks(text);
    if (trimmed.size() < fewestTaxIdCharacters)
        return false;
    const int year = taxYear(trimmed[0], trimmed[1]);
    return year >= firstTaxYear && year <= Clock::Current().Now().date().year();
}

QString FormatTaxId(const QString &text)
{
    if (!IsTaxId(text))
        return {};
    const QString bare = withoutDashes(TrimBlanks(text));
    return bare.left(2) + u'-' + bare.mid(2);
}

QString FormatUbi(const QString &text)
{
    if (text.isEmpty() || text.size() > mostUbiCharacters)
        return {};
    // A text that is too short gives some of its characters twice: it is looked up as it is, and
    // found nowhere.
    const QString bare = withoutDashes(text);
    return bare.left(3) + u'-' + bare.mid(3, 3) + u'-' + bare.right(3);
}

QString FormatSsn(const QString &text)
{
    const QString digits = withoutDashes(text);
    if (digits.size() != ssnDigits || !isAllDigits(digits))
        return {};
    return digits.left(3) + u'-' + digits.mid(3, 2) + u'-' + digits.right(4);
}

QChar ComputeScomisCheckDigit(const QString &countyCode, const QString &number)
{
    QString checked = number;
    if (countyCode.size() != 2 || !FormatScomisNumber(checked) || checked != number)
        throw RunTimeError::TypeMismatch();
    // Positions in YY-T-NNNNN-C. The county's digits and the year's are worked into the serial
    // number's, so that a number is wrong in any other county and in any other year.
    const int value = digitAt(number, 3) * 7 + (digitAt(number, 5) + checkDigitConstant) * 6
                      + (digitAt(number, 6) + digitAt(countyCode, 0)) * 5
                      + (digitAt(number, 7) + digitAt(countyCode, 1)) * 4
                      + (digitAt(number, 8) + digitAt(number, 0)) * 3
                      + (digitAt(number, 9) + digitAt(number, 1)) * 2;
    return QChar(u'0' + (11 - value % 11) % 10);
}

QString ScomisCountyCode(const QString &county)
{
    const QString key = TrimBlanks(county);
    if (key.isEmpty())
        return {};
    CSetting codes;
    codes.Init(u"waCtyCds"_s);
    const QString value = codes.GetSettingStr(u"Cty2Code"_s, key, u"0"_s);
    if (value.isEmpty() || value.size() > 2 || !isAllDigits(value))
        return {};
    const QString code = value.rightJustified(2, u'0');
    return code == u"00" ? QString() : code;
}
