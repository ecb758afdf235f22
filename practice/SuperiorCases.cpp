#include "practice/SuperiorCases.h"

#include "practice/Counties.h"
#include "practice/NameTables.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr int judgmentDigit = 9;

enum Field : qsizetype {
    Last = 1,
    First,
    Middle,
    InCounties = 5,
    Types,
    FromYear,
    ToYear,
    FewestFields
};

bool passes(const SuperiorQuery &query, const CourtCase &courtCase)
{
    const CaseNumber &number = courtCase.number;
    const auto hasDigit = [&](const CaseType *type) { return type->digit == number.type; };
    return number.year >= query.years.from && number.year <= query.years.to
           && std::find(query.counties.begin(), query.counties.end(), number.county)
                  != query.counties.end()
           && std::any_of(query.types.begin(), query.types.end(), hasDigit);
}

/// What a case is called after its parties, in the order in which they joined it.
QString titleOf(int type, const QString &one, const QString &two)
{
    switch (type) {
    case 1: // Criminal, and 8, Juvenile Offender: the prosecutor is the other side
    case 8:
        return u"STATE OF WASHINGTON VS "_s + one;
    case 4: // Probate
        return u"IN RE "_s + one;
    default:
        break;
    }
    if (two.isEmpty())
        return u"IN RE "_s + one;
    if (type == 3) // Domestic
        return one + u" AND "_s + two;
    // The creditor of a judgment comes second, but brings it.
    return type == judgmentDigit ? two + u" VS "_s + one : one + u" VS "_s + two;
}

/// The counties and case types of two list fields; no type means all of them.
void parseCountiesAndTypes(const QString &countyList, const QString &typeList, SuperiorQuery &query)
{
    for (const QString &name : ParseList(countyList)) {
        if (const std::optional<int> county = CountyNumber(name))
            query.counties.push_back(*county);
    }
    const QStringList words = ParseList(typeList);
    for (const CaseType &type : CaseTypes()) {
        const bool asked = std::any_of(words.begin(), words.end(), [&](const QString &word) {
            return CaseTypeOfWord(word) == &type;
        });
        if (asked || words.isEmpty())
            query.types.push_back(&type);
    }
}
} // namespace

std::vector<quint32> FindSuperiorParts(const Population &population, const SuperiorQuery &query)
{
    struct Hit
    {
        QString name;
        QDate filed;
        quint32 part;
    };
    std::vector<Hit> hits;
    for (const quint32 person : population.Find(query.name)) {
        for (const quint32 part : population.PartsOf(person)) {
            const CourtCase &courtCase = population.Cases()[population.Parts()[part].courtCase];
            if (passes(query, courtCase))
                hits.push_back({NameText(population.People()[person]), courtCase.filed, part});
        }
    }
    std::sort(hits.begin(), hits.end(), [](const Hit &left, const Hit &right) {
        return std::tie(left.name, left.filed, left.part)
               < std::tie(right.name, right.filed, right.part);
    });
    std::vector<quint32> parts;
    parts.reserve(hits.size());
    for (const Hit &hit : hits)
        parts.push_back(hit.part);
    return parts;
}

SuperiorRow SuperiorRowOf(const Population &population, quint32 part)
{
    const Part &asked = population.Parts()[part];
    const CourtCase &courtCase = population.Cases()[asked.courtCase];
    const std::vector<quint32> parties = population.PartiesOf(asked.courtCase);
    const auto nameOf = [&](std::size_t place) {
        return place < parties.size()
                   ? NameText(population.People()[population.Parts()[parties[place]].person])
                   : QString();
    };
    return {population.People()[asked.person], courtCase, asked.role,
            titleOf(courtCase.number.type, nameOf(0), nameOf(1))};
}

bool LetsSomethingThrough(const SuperiorQuery &query)
{
    return !query.counties.empty() && !query.types.empty() && query.years.from <= query.years.to;
}

SuperiorRow MadeUpSuperiorRow(const SuperiorQuery &query, qint64 number)
{
    const auto index = static_cast<std::size_t>(number);
    const std::size_t years = static_cast<std::size_t>(query.years.to - query.years.from) + 1;
    const CaseType &type = *query.types[index % query.types.size()];
    const std::size_t turn = index / query.types.size();

    SuperiorRow row;
    row.person = MadeUpNamesake(query.name.last, number);
    CourtCase &courtCase = row.courtCase;
    courtCase.number.county = query.counties[index % query.counties.size()];
    courtCase.number.year = query.years.from + static_cast<int>(turn % years);
    courtCase.number.type = type.digit;
    courtCase.number.serial = 1 + static_cast<int>(turn / years % lastSerial);
    courtCase.filed = QDate(courtCase.number.year, 1 + static_cast<int>(index % 12),
                            1 + static_cast<int>(index % 28));
    courtCase.description = QString::fromUtf16(type.descriptions[index % type.descriptions.size()]);
    row.role = QString::fromUtf16(type.parties[index % type.parties.size()].role);
    row.title = titleOf(type.digit, NameText(row.person), {});
    return row;
}

std::optional<SuperiorRow> FindMadeUpRow(const SuperiorQuery &query, const CaseNumber &number)
{
    if (!LetsSomethingThrough(query) || number.year < query.years.from
        || number.year > query.years.to || number.serial < 1)
        return std::nullopt;
    const auto hasDigit = [&](const CaseType *type) { return type->digit == number.type; };
    const auto type = std::find_if(query.types.begin(), query.types.end(), hasDigit);
    if (type == query.types.end())
        return std::nullopt;
    // Undoes the sharing out of the rows.
    const qint64 years = query.years.to - query.years.from + 1;
    const qint64 turn = (number.serial - 1) * years + number.year - query.years.from;
    const qint64 row =
        turn * static_cast<qint64>(query.types.size()) + (type - query.types.begin());
    SuperiorRow made = MadeUpSuperiorRow(query, row);
    if (made.courtCase.number != number)
        return std::nullopt;
    return made;
}

std::optional<QString> ReadSuperiorQuery(const QStringList &fields, int thisYear,
                                         SuperiorQuery &query)
{
    if (fields.size() < FewestFields)
        return u"Wrong number of fields"_s;
    query.name = ParseName(fields[Last], fields[First], fields[Middle]);
    parseCountiesAndTypes(fields[InCounties], fields[Types], query);
    if (query.name.last.isEmpty())
        return u"No name"_s;
    const auto years = ParseYears(fields[FromYear], fields[ToYear], firstCaseYear, thisYear);
    if (!years)
        return u"Not a year"_s;
    query.years = *years;
    return std::nullopt;
}

std::optional<SuperiorQuery> ParseSpecialSearch(const QStringList &fields, int thisYear)
{
    SuperiorQuery query;
    if (ReadSuperiorQuery(fields, thisYear, query))
        return std::nullopt;
    query.years = {std::max(query.years.from, firstCaseYear), std::min(query.years.to, thisYear)};
    return query;
}

QString SuperiorLocation(const CaseNumber &number)
{
    return u"WA Superior Ct %1 County"_s.arg(CountyName(number.county));
}

QStringList SuperiorFields(const SuperiorRow &row)
{
    const CourtCase &courtCase = row.courtCase;
    return {NameText(row.person),
            (courtCase.archived ? u"*"_s : QString()) + CaseNumberText(courtCase.number),
            DateText(courtCase.filed),
            courtCase.description,
            SuperiorLocation(courtCase.number),
            row.role};
}

QDate EffectiveDate(const CourtCase &courtCase)
{
    constexpr int longest = 60;
    if (courtCase.number.type != judgmentDigit)
        return courtCase.filed;
    return courtCase.filed.addDays(-(courtCase.number.serial % longest));
}
} // namespace Practice
