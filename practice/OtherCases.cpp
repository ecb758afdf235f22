#include "practice/OtherCases.h"

#include "practice/CaseFile.h"
#include "practice/Random.h"
#include "practice/SpecialCases.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// How many cases the people of a family have, and how they are numbered.
struct Numbering
{
    int firstYear;
    int numbers;                ///< a year's numbers
    bool archives;              ///< old cases are marked
    std::array<int, 4> chances; ///< in percent, that two neighbours have a first, second ... case
};

constexpr int casesAPair = 4;
constexpr std::array<Numbering, 4> numberings{{
    {firstCaseYear, 120'000, true, {45, 20, 8, 0}},
    {firstCaseYear, 200'000, true, {35, 12, 4, 0}},
    {1980, 1'000'000, false, {60, 30, 12, 5}},
    {1980, 100'000, false, {18, 3, 0, 0}},
}};

const Numbering &numberingOf(OtherFamily family)
{
    return numberings[static_cast<std::size_t>(family)];
}

constexpr int oldCase = 20;
constexpr int archivedShare = 30;
constexpr int judgmentShare = 30;
constexpr int lastDay = 28;

// A prime that no year's numbers are divided by: neighbours get numbers that lie far apart.
constexpr qint64 stride = 104'729;

// The numbers of the made-up people begin here, those of fixed name before it.
constexpr quint32 firstMadeUpNumber = 10'000;
constexpr quint32 socialSecurityBase = 900'000'000;
constexpr qsizetype personalDigits = 9;

/// The part that somebody of fixed name has in a case of fixed number.
struct FixedCase
{
    OtherFamily family;
    const char16_t *last;
    const char16_t *first; ///< nullptr: a business
    const char16_t *middle;
    const char16_t *court;
    int type; ///< place in CaseTypesOf()
    const char16_t *number;
    int year;
    int month;
    int day;
    const char16_t *text;
    const char16_t *role;
    const char16_t *otherParty;
    bool judgment = false;
};

constexpr auto oregon = OtherFamily::Oregon;
constexpr auto idaho = OtherFamily::Idaho;
constexpr auto district = OtherFamily::District;
constexpr auto bankruptcy = OtherFamily::Bankruptcy;
constexpr auto smith = u"SMITH";
constexpr auto john = u"JOHN";
constexpr auto jane = u"JANE";
constexpr auto acme = u"ACME PLUMBING INC";
constexpr auto johnSmith = u"SMITH, JOHN Q";
constexpr auto janeSmith = u"SMITH, JANE R";
constexpr auto divorce = u"DO99120007";
constexpr auto contract = u"CV08060677";
constexpr auto owed = u"CV-2004-0000711-OC";
constexpr auto claim = u"5KS000123";
constexpr auto chapter = u"Chapter 7";

// Longer rows than a line holds.
// clang-format off
constexpr std::array<FixedCase, 15> fixedCases{{
    {oregon, smith, john, u"Q", u"MCR C", 0, contract, 2008, 6, 17, u"Contract", u"Plaintiff", acme},
    {oregon, acme, nullptr, nullptr, u"MCR C", 0, contract, 2008, 6, 17, u"Contract", u"Defendant", johnSmith},
    {oregon, smith, john, u"Q", u"MCR C", 1, divorce, 1999, 12, 6, u"Dissolution", u"Petitioner", janeSmith},
    {oregon, smith, jane, u"R", u"MCR C", 1, divorce, 1999, 12, 6, u"Dissolution", u"Respondent", johnSmith},
    {oregon, smith, john, u"Q", u"WSH D", 5, u"SC97030044", 1997, 3, 4, u"Small Claims", u"Defendant", acme, true},
    {oregon, acme, nullptr, nullptr, u"WSH D", 5, u"SC97030044", 1997, 3, 4, u"Small Claims", u"Plaintiff", johnSmith, true},
    {idaho, smith, john, u"Q", u"Ada", 4, u"CR-1998-0002546-IN", 1998, 5, 8, u"Speeding", u"Defendant", nullptr},
    {idaho, smith, john, u"Q", u"Kootenai", 0, owed, 2004, 2, 20, u"Contract", u"Plaintiff", acme},
    {idaho, acme, nullptr, nullptr, u"Kootenai", 0, owed, 2004, 2, 20, u"Contract", u"Defendant", johnSmith},
    {district, smith, john, u"Q", u"KSD", 2, u"3YH809020", 2003, 8, 9, u"CL", u"DEF", nullptr},
    {district, smith, john, u"Q", u"TAC", 4, u"1TA004410", 2001, 10, 1, u"CL", u"DEF", nullptr},
    {district, smith, john, u"Q", u"KSD", 1, claim, 2005, 1, 11, u"OP", u"PLA", acme},
    {district, acme, nullptr, nullptr, u"KSD", 1, claim, 2005, 1, 11, u"OP", u"DEF", johnSmith},
    {bankruptcy, smith, john, u"Q", u"OR", 0, u"99-20077", 1999, 3, 16, chapter, u"Debtor", acme},
    {bankruptcy, acme, nullptr, nullptr, u"OR", 0, u"99-20077", 1999, 3, 16, chapter, u"Creditor", johnSmith},
}};
// clang-format on

bool isFixedNumber(const QString &number)
{
    return std::any_of(fixedCases.begin(), fixedCases.end(),
                       [&](const FixedCase &fixed) { return number == QStringView(fixed.number); });
}

bool isHis(const FixedCase &fixed, const Person &person)
{
    if (fixed.first == nullptr || person.business)
        return (fixed.first == nullptr) == person.business
               && person.last == QStringView(fixed.last);
    return person.last == QStringView(fixed.last) && person.first == QStringView(fixed.first)
           && person.middle == QStringView(fixed.middle);
}

std::vector<OtherCase> fixedCasesOf(const Person &person, OtherFamily family)
{
    std::vector<OtherCase> cases;
    for (const FixedCase &fixed : fixedCases) {
        if (fixed.family != family || !isHis(fixed, person))
            continue;
        OtherCase &one = cases.emplace_back();
        one.court = FindCourt(family, fixed.court).value_or(0);
        one.type = fixed.type;
        one.number = QString::fromUtf16(fixed.number);
        one.filed = QDate(fixed.year, fixed.month, fixed.day);
        one.text = QString::fromUtf16(fixed.text);
        one.role = QString::fromUtf16(fixed.role);
        if (fixed.otherParty != nullptr)
            one.otherParty = QString::fromUtf16(fixed.otherParty);
        one.judgment = fixed.judgment;
    }
    return cases;
}

Person personOf(const FixedCase &fixed)
{
    if (fixed.first == nullptr)
        return {QString::fromUtf16(fixed.last), {}, {}, true};
    return {QString::fromUtf16(fixed.last), QString::fromUtf16(fixed.first),
            QString::fromUtf16(fixed.middle), false};
}

/// Where the serial stands in a number without its dashes.
struct SerialPlace
{
    qsizetype at;
    qsizetype digits;
    qsizetype size; ///< of the whole number
};

// In the order of the families.
constexpr std::array<SerialPlace, 4> serialPlaces{{
    {4, 6, 10}, // the month goes with it
    {6, 7, 15},
    {3, 6, 9},
    {2, 5, 7},
}};

/// The first slot whose number has this value: what undoes the stride.
qint64 slotOfValue(qint64 value, qint64 numbers)
{
    // The inverse of the stride, by the extended algorithm of Euclid.
    qint64 old = numbers;
    qint64 rest = stride % numbers;
    qint64 oldFactor = 0;
    qint64 factor = 1;
    while (rest > 1) {
        const qint64 quotient = old / rest;
        old = std::exchange(rest, old - quotient * rest);
        oldFactor = std::exchange(factor, oldFactor - quotient * factor);
    }
    return value * ((factor % numbers + numbers) % numbers) % numbers;
}

/// A place in the list, the heavier ones more often.
template<typename Row>
int drawByWeight(ShortRandom &random, std::span<const Row> rows)
{
    int sum = 0;
    for (const Row &row : rows)
        sum += row.weight;
    int rest = random.Between(0, sum - 1);
    std::size_t at = 0;
    while (rest >= rows[at].weight)
        rest -= rows[at++].weight;
    return static_cast<int>(at);
}

/// The kind of case: one that the court hears.
int drawType(ShortRandom &random, OtherFamily family, bool lesserCourt)
{
    const std::span<const OtherCaseType> types = CaseTypesOf(family);
    int drawn = 0;
    do
        drawn = drawByWeight(random, types);
    while (lesserCourt && !types[static_cast<std::size_t>(drawn)].lesser);
    return drawn;
}

/// Makes a case that two neighbours could share, and gives `person` a part in it; false when the
/// case is not one for such people, or is the other one's alone.
bool makeCase(const Population &population, quint32 person, OtherFamily family, quint32 slot,
              OtherCase &made)
{
    const Numbering &numbering = numberingOf(family);
    const Origin &origin = population.origin;
    ShortRandom random((quint64{origin.seed} << 32) ^ (static_cast<quint64>(family) << 28) ^ slot);
    if (!random.Percent(numbering.chances[slot % casesAPair]))
        return false;

    made.court = drawByWeight(random, CourtsOf(family));
    const bool lesser = CourtsOf(family)[static_cast<std::size_t>(made.court)].lesser;
    made.type = drawType(random, family, lesser);
    const OtherCaseType &type = CaseTypesOf(family)[static_cast<std::size_t>(made.type)];
    const int lastYear = std::max(origin.thisYear - 1, numbering.firstYear);
    // The later of two years: courts have become busier.
    const int year = std::max(random.Between(numbering.firstYear, lastYear),
                              random.Between(numbering.firstYear, lastYear));
    const auto value = static_cast<int>(slot * stride % numbering.numbers);
    made.filed = QDate(year, MonthOf(family, value), random.Between(1, lastDay));
    made.number = OtherNumberText(family, made.court, made.type, year, value);
    made.text = QString::fromUtf16(random.OneOf(type.texts));
    made.judgment = random.Percent(judgmentShare);
    made.archived =
        random.Percent(archivedShare) && numbering.archives && origin.thisYear - year > oldCase;
    const bool isFirst = random.Below(2) == person % 2;

    const Person &other = population.People()[person ^ 1U];
    const bool both = type.otherRole != nullptr;
    if ((!both && !isFirst) || isFixedNumber(made.number)
        || IsSpecialCaseNumber(CourtFamilyOf(family), made.number))
        return false;
    if (type.personal && (population.People()[person].business || (both && other.business)))
        return false;
    made.role = QString::fromUtf16(isFirst ? type.role : type.otherRole);
    made.otherParty = both ? NameText(other) : QString();
    return true;
}
} // namespace

int FirstYearOf(OtherFamily family)
{
    return numberingOf(family).firstYear;
}

int NumbersOf(OtherFamily family)
{
    return numberingOf(family).numbers;
}

int MonthOf(OtherFamily family, int value)
{
    return 1 + static_cast<int>(qint64{value} * 12 / NumbersOf(family));
}

QString OtherNumberText(OtherFamily family, int court, int type, int year, int value)
{
    const OtherCaseType &kind = CaseTypesOf(family)[static_cast<std::size_t>(type)];
    const QString shortYear = u"%1"_s.arg(year % 100, 2, 10, QChar(u'0'));
    const QString mark = QString::fromUtf16(kind.mark);
    switch (family) {
    case OtherFamily::Oregon:
        return u"%1%2%3%4"_s.arg(mark, shortYear)
            .arg(MonthOf(family, value), 2, 10, QChar(u'0'))
            .arg(value % (NumbersOf(family) / 12), 4, 10, QChar(u'0'));
    case OtherFamily::Idaho:
        return u"%1%2-%3-%4"_s.arg(mark)
            .arg(year)
            .arg(value + 1, 7, 10, QChar(u'0'))
            .arg(QStringView(kind.ending));
    case OtherFamily::District:
        return u"%1%2%3"_s.arg(year % 10)
            .arg(CourtsOf(family)[static_cast<std::size_t>(court)].code.first(2))
            .arg(value, 6, 10, QChar(u'0'));
    case OtherFamily::Bankruptcy:
        break;
    }
    return u"%1-%2"_s.arg(shortYear).arg(value, 5, 10, QChar(u'0'));
}

std::vector<OtherCase> OtherCasesOf(const Population &population, quint32 person,
                                    OtherFamily family)
{
    if (person >= population.origin.madeUp)
        return fixedCasesOf(population.People()[person], family);
    std::vector<OtherCase> cases;
    const quint32 firstSlot = person / 2 * casesAPair;
    for (quint32 slot = firstSlot; slot < firstSlot + casesAPair; ++slot) {
        OtherCase made;
        if (makeCase(population, person, family, slot, made))
            cases.push_back(std::move(made));
    }
    return cases;
}

std::optional<qint64> ValueOfNumber(OtherFamily family, const QString &number)
{
    const QString bare = BareNumber(number);
    const SerialPlace &place = serialPlaces[static_cast<std::size_t>(family)];
    bool isNumber = false;
    const qint64 serial = bare.mid(place.at, place.digits).toLongLong(&isNumber);
    if (bare.size() != place.size || !isNumber)
        return std::nullopt;
    switch (family) {
    case OtherFamily::Oregon: {
        constexpr qint64 serials = 10'000;
        const qint64 aMonth = NumbersOf(family) / 12;
        return (serial / serials - 1) * aMonth + serial % serials;
    }
    case OtherFamily::Idaho: // counted from 1
        return serial - 1;
    case OtherFamily::District:
    case OtherFamily::Bankruptcy:
        break;
    }
    return serial;
}

std::vector<OtherParty> PartiesOfOtherCase(const Population &population, OtherFamily family,
                                           const QString &number)
{
    const QString bare = BareNumber(number);
    std::vector<OtherParty> parties;
    const auto take = [&](const Person &person, const std::vector<OtherCase> &cases) {
        for (const OtherCase &one : cases) {
            if (BareNumber(one.number) == bare)
                parties.push_back({person, one});
        }
    };
    for (const FixedCase &fixed : fixedCases) {
        if (fixed.family == family && BareNumber(fixed.number) == bare) {
            const Person person = personOf(fixed);
            take(person, fixedCasesOf(person, family));
        }
    }
    const auto slots = static_cast<qint64>(population.origin.madeUp / 2) * casesAPair;
    const qint64 numbers = NumbersOf(family);
    const std::optional<qint64> value = ValueOfNumber(family, bare);
    if (value && *value >= 0 && *value < numbers) {
        for (qint64 slot = slotOfValue(*value, numbers); slot < slots; slot += numbers) {
            const auto pair = static_cast<quint32>(slot / casesAPair) * 2;
            for (const quint32 person : {pair, pair + 1})
                take(population.People()[person], OtherCasesOf(population, person, family));
        }
    }
    const auto isFirst = [family](const OtherParty &party) {
        const OtherCaseType &type =
            CaseTypesOf(family)[static_cast<std::size_t>(party.courtCase.type)];
        return party.courtCase.role == QStringView(type.role);
    };
    std::stable_partition(parties.begin(), parties.end(), isFirst);
    return parties;
}

std::optional<quint32> FindByPersonalNumber(const Population &population, QStringView digits,
                                            bool business)
{
    QString bare;
    for (const QChar character : digits) {
        if (character >= u'0' && character <= u'9')
            bare += character;
        else if (character != u'-' && character != u' ')
            return std::nullopt;
    }
    const quint32 base = business ? 0 : socialSecurityBase;
    const quint32 number = bare.toUInt();
    if (bare.size() != personalDigits || number < base)
        return std::nullopt;

    const quint32 place = number - base;
    if (place == 1) {
        const Person fixed =
            business ? Person{QString::fromUtf16(acme), {}, {}, true}
                     : Person{QString::fromUtf16(smith), QString::fromUtf16(john), u"Q"_s, false};
        return population.FindPerson(fixed);
    }
    const quint32 person = place - firstMadeUpNumber;
    if (place < firstMadeUpNumber || person >= population.origin.madeUp
        || population.People()[person].business != business)
        return std::nullopt;
    return person;
}
} // namespace Practice
