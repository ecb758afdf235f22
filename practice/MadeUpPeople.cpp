#include "practice/MadeUpPeople.h"

#include "practice/Counties.h"
#include "practice/CourtTables.h"
#include "practice/NameTables.h"
#include "practice/Random.h"

#include <algorithm>
#include <array>
#include <tuple>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// Two neighbours share their cases in the other courts.
static_assert(madeUpPeople % 2 == 0);

constexpr int businessShare = 5;
constexpr int middleInitialShare = 70;
constexpr int homeCountyShare = 75;
constexpr int secondCaseShare = 25;
constexpr int lastCaseYear = 2069;
constexpr int daysDrawn = 365;

// Serials below the first one belong to the cases of fixed number. A court's numbers have gaps:
// what is missing are the cases of people who are not among ours.
constexpr int firstMadeUpSerial = 100;
constexpr int widestGap = 200;
constexpr int narrowGapsFrom = 60'000;

/// A case of a person of fixed name. Rows of the same number are parties of the same case.
struct FixedPart
{
    const char16_t *last;
    const char16_t *first;
    const char16_t *middle;
    CaseNumber number;
    int month;
    int day;
    const char16_t *description;
    const char16_t *role;
    bool archived = false;
};

constexpr int adams = 1;
constexpr int king = 17;
constexpr int pierce = 27;

constexpr auto mischief = u"Malicious Mischief";
constexpr auto accident = u"Tort - Motor Vehicle";
constexpr auto divorce = u"Dissolution With Children";
constexpr auto debt = u"Collection";
constexpr auto abstract = u"Abstract of Judgment";
constexpr auto acme = u"ACME PLUMBING INC";

constexpr std::array<FixedPart, 8> fixedParts{{
    {u"SMITH", u"JOHN", u"Q", {king, 1994, 1, 42}, 11, 7, mischief, u"Defendant"},
    {u"SMITH", u"JOHN", u"Q", {king, 1998, 2, 17}, 3, 16, accident, u"Plaintiff"},
    {acme, nullptr, nullptr, {king, 1998, 2, 17}, 3, 16, accident, u"Defendant"},
    {u"SMITH", u"JOHN", u"Q", {king, 2001, 3, 8}, 6, 12, divorce, u"Petitioner"},
    {u"SMITH", u"JANE", u"R", {king, 2001, 3, 8}, 6, 12, divorce, u"Respondent"},
    {u"SMITH", u"JOHN", u"Q", {pierce, 2005, 2, 31}, 9, 20, debt, u"Defendant"},
    {acme, nullptr, nullptr, {pierce, 2005, 2, 31}, 9, 20, debt, u"Plaintiff"},
    {u"SMITH", u"JOHN", u"Q", {adams, 1996, 9, 5}, 2, 14, abstract, u"Judgment Debtor", true},
}};

/// A list in which the earlier entries come up more often, the way names do: the n-th about as
/// often as 1 in n, with the head of the list flattened.
class SkewedList
{
public:
    explicit SkewedList(std::span<const char16_t *const> words)
    {
        constexpr std::size_t flatHead = 25;
        quint32 sum = 0;
        for (std::size_t i = 0; i < words.size(); ++i) {
            sum += static_cast<quint32>(100'000 / (i + flatHead));
            upTo.push_back(sum);
            texts.push_back(QString::fromUtf16(words[i]));
        }
    }

    const QString &Draw(Random &random) const
    {
        const auto found = std::upper_bound(upTo.begin(), upTo.end(), random.Below(upTo.back()));
        return texts[static_cast<std::size_t>(found - upTo.begin())];
    }

private:
    std::vector<quint32> upTo;
    std::vector<QString> texts;
};

/// A case before it has its number: numbers are given in the order of filing.
struct Draft
{
    CourtCase courtCase;
    int day = 0; ///< of the year, as drawn
    std::vector<std::pair<quint32, QString>> parties;
};

class Maker
{
public:
    Maker(quint32 seed, QDate endOfYears)
        : random(seed), seedGiven(seed), today(endOfYears), surnames(Surnames()),
          firstNames(FirstNames())
    {
        lastYear = std::clamp(today.year(), firstCaseYear, lastCaseYear);
    }

    Population Make()
    {
        population.origin = {seedGiven, madeUpPeople, today.year()};
        for (int i = 0; i < madeUpPeople; ++i) {
            population.AddPerson(makePerson());
            homes.push_back(drawCounty());
        }
        for (quint32 person = 0; person < madeUpPeople; ++person) {
            do
                draftCase(person);
            while (random.Percent(secondCaseShare));
        }
        numberCases();
        addFixedParts();
        return std::move(population);
    }

private:
    Person makePerson();
    int drawCounty();
    quint32 drawPerson(bool business);
    const CaseType &drawType(bool forBusiness);
    void draftCase(quint32 person);
    QDate filingDate(int year, int day) const;
    bool drawArchived(int year);
    void numberCases();
    void addFixedParts();

    Random random;
    quint32 seedGiven;
    QDate today;
    int lastYear = 0;
    SkewedList surnames;
    SkewedList firstNames;
    Population population;
    std::vector<int> homes;
    std::vector<quint32> businesses;
    std::vector<Draft> drafts;
};

Person Maker::makePerson()
{
    Person person;
    if (random.Percent(businessShare)) {
        person.business = true;
        person.last = QString::fromUtf16(random.OneOf(BusinessHeads())) + u' '
                      + QString::fromUtf16(random.OneOf(BusinessTrades())) + u' '
                      + QString::fromUtf16(random.OneOf(BusinessForms()));
        businesses.push_back(static_cast<quint32>(population.People().size()));
        return person;
    }
    person.last = surnames.Draw(random);
    person.first = firstNames.Draw(random);
    if (random.Percent(middleInitialShare))
        person.middle = QChar(static_cast<char16_t>(u'A' + random.Below(26)));
    // There is one SMITH, JOHN Q: the guide promises his cases and no others.
    if (person.last == u"SMITH" && person.first.startsWith(u"JOHN"_s) && person.middle == u"Q")
        person.middle = u"P"_s;
    return person;
}

int Maker::drawCounty()
{
    static constexpr int sum = [] {
        int total = 0;
        for (const County &county : counties)
            total += county.weight;
        return total;
    }();
    auto rest = static_cast<int>(random.Below(static_cast<std::uint32_t>(sum)));
    int number = 1;
    for (const County &county : counties) {
        rest -= county.weight;
        if (rest < 0)
            break;
        ++number;
    }
    return number;
}

quint32 Maker::drawPerson(bool business)
{
    if (business)
        return random.OneOf(std::span<const quint32>(businesses));
    quint32 person = 0;
    do
        person = random.Below(madeUpPeople);
    while (population.People()[person].business);
    return person;
}

/// Somebody's type of case, by weight; a business only gets into cases that have one.
const CaseType &Maker::drawType(bool forBusiness)
{
    const CaseType *drawn = nullptr;
    bool fits = false;
    while (!fits) {
        auto rest = random.Between(0, 99);
        for (const CaseType &type : CaseTypes()) {
            drawn = &type;
            rest -= type.weight;
            if (rest < 0)
                break;
        }
        fits = !forBusiness
               || std::any_of(drawn->parties.begin(), drawn->parties.end(),
                              [](const PartyKind &kind) { return kind.businessShare >= 10; });
    }
    return *drawn;
}

/// Makes a case in which `person` has one of the certain parts, and fills the others.
void Maker::draftCase(quint32 person)
{
    const bool business = population.People()[person].business;
    const CaseType &type = drawType(business);
    Draft draft;
    CaseNumber &number = draft.courtCase.number;
    number.type = type.digit;
    number.county = random.Percent(homeCountyShare) ? homes[person] : drawCounty();
    // The later of two years: courts have become busier.
    number.year =
        std::max(random.Between(firstCaseYear, lastYear), random.Between(firstCaseYear, lastYear));
    draft.day = random.Between(0, daysDrawn - 1);
    draft.courtCase.filed = filingDate(number.year, draft.day);
    draft.courtCase.description = QString::fromUtf16(random.OneOf(type.descriptions));
    draft.courtCase.archived = drawArchived(number.year);

    const auto certain = static_cast<std::uint32_t>(
        std::count_if(type.parties.begin(), type.parties.end(),
                      [](const PartyKind &kind) { return kind.chance == 100; }));
    const std::uint32_t own = random.Below(certain);
    for (std::uint32_t i = 0; i < type.parties.size(); ++i) {
        const PartyKind &kind = type.parties[i];
        if (i == own)
            draft.parties.emplace_back(person, QString::fromUtf16(kind.role));
        else if (random.Percent(kind.chance))
            draft.parties.emplace_back(drawPerson(random.Percent(kind.businessShare)),
                                       QString::fromUtf16(kind.role));
    }
    drafts.push_back(std::move(draft));
}

/// A working day of `year`; in the running year one that has already been.
QDate Maker::filingDate(int year, int day) const
{
    const QDate newYear(year, 1, 1);
    const int span = year == today.year() ? std::min(today.dayOfYear(), daysDrawn) : daysDrawn;
    const QDate drawn = newYear.addDays(day * span / daysDrawn);
    const QDate friday = drawn.addDays(std::min(0, Qt::Friday - drawn.dayOfWeek()));
    return friday.year() == year ? friday : drawn;
}

bool Maker::drawArchived(int year)
{
    const int age = lastYear - year;
    return random.Percent(age > 25 ? 60 : age > 15 ? 25 : age > 8 ? 5 : 0);
}

void Maker::numberCases()
{
    std::stable_sort(drafts.begin(), drafts.end(), [](const Draft &left, const Draft &right) {
        const CaseNumber &one = left.courtCase.number;
        const CaseNumber &two = right.courtCase.number;
        return std::tie(one.county, one.type, one.year, left.day)
               < std::tie(two.county, two.type, two.year, right.day);
    });
    CaseNumber last;
    for (Draft &draft : drafts) {
        CaseNumber &number = draft.courtCase.number;
        const bool sameRow = std::tie(number.county, number.type, number.year)
                             == std::tie(last.county, last.type, last.year);
        const int from = sameRow ? last.serial : firstMadeUpSerial;
        number.serial = from + random.Between(1, from < narrowGapsFrom ? widestGap : 1);
        last = number;
        const quint32 courtCase = population.AddCase(draft.courtCase);
        for (const auto &[person, role] : draft.parties)
            population.AddPart(person, courtCase, role);
    }
}

void Maker::addFixedParts()
{
    for (const FixedPart &part : fixedParts) {
        Person person;
        person.last = QString::fromUtf16(part.last);
        person.business = part.first == nullptr;
        if (!person.business) {
            person.first = QString::fromUtf16(part.first);
            person.middle = QString::fromUtf16(part.middle);
        }
        // A namesake among the made-up people would bring cases of their own.
        std::optional<quint32> id = population.FindPerson(person);
        if (!id || *id < madeUpPeople)
            id = population.AddPerson(person);
        std::optional<quint32> courtCase = population.FindCase(part.number);
        if (!courtCase) {
            courtCase =
                population.AddCase({part.number, QDate(part.number.year, part.month, part.day),
                                    QString::fromUtf16(part.description), part.archived});
        }
        population.AddPart(*id, *courtCase, QString::fromUtf16(part.role));
    }
}
} // namespace

Population MakePopulation(quint32 seed, QDate today)
{
    return Maker(seed, today).Make();
}
} // namespace Practice
