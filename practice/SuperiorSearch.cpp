#include "practice/SuperiorSearch.h"

#include "practice/Counties.h"
#include "practice/CourtTables.h"
#include "practice/NameTables.h"
#include "practice/ToldNames.h"

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// A request, understood.
struct Query
{
    NameQuery name;
    std::vector<int> counties;
    std::vector<const CaseType *> types;
    int fromYear = 0;
    int toYear = 0;
};

enum Field : qsizetype { Last = 1, First, Middle, InCounties = 5, Types, FromYear, ToYear };

QString upper(const QString &field)
{
    return field.simplified().toUpper();
}

/// The years of the two fields; an empty one is open. False when one is no year.
bool parseYears(const QStringList &fields, int thisYear, Query &query)
{
    query.fromYear = firstCaseYear;
    query.toYear = thisYear;
    bool isYear = true;
    if (const QString text = fields[FromYear].trimmed(); !text.isEmpty())
        query.fromYear = text.toInt(&isYear);
    if (const QString text = fields[ToYear].trimmed(); !text.isEmpty() && isYear)
        query.toYear = text.toInt(&isYear);
    return isYear;
}

Query parseNameAndCourts(const QStringList &fields)
{
    Query query;
    query.name = {upper(fields[Last]), upper(fields[First]), upper(fields[Middle])};
    for (const QString &name : fields[InCounties].split(u',', Qt::SkipEmptyParts)) {
        if (const std::optional<int> county = CountyNumber(name))
            query.counties.push_back(*county);
    }
    const QStringList words = fields[Types].split(u',', Qt::SkipEmptyParts);
    for (const CaseType &type : CaseTypes()) {
        const bool asked = std::any_of(words.begin(), words.end(), [&](const QString &word) {
            return CaseTypeOfWord(word) == &type;
        });
        if (asked || words.isEmpty())
            query.types.push_back(&type);
    }
    return query;
}

QString rowText(const Person &person, const CourtCase &courtCase, const QString &role)
{
    // The program finds the county between "Ct " and " County".
    return u"%1~%2%3~%4~%5~WA Superior Ct %6 County~%7~"_s.arg(
        NameText(person), courtCase.archived ? u"*"_s : QString(), CaseNumberText(courtCase.number),
        courtCase.filed.toString(u"MM/dd/yyyy"_s), courtCase.description,
        CountyName(courtCase.number.county), role);
}

bool passes(const Query &query, const CourtCase &courtCase)
{
    const CaseNumber &number = courtCase.number;
    const auto hasDigit = [&](const CaseType *type) { return type->digit == number.type; };
    return courtCase.family == CourtFamily::Superior && number.year >= query.fromYear
           && number.year <= query.toYear
           && std::find(query.counties.begin(), query.counties.end(), number.county)
                  != query.counties.end()
           && std::any_of(query.types.begin(), query.types.end(), hasDigit);
}

/// The parts that the query asks for, by name, then by date.
std::vector<quint32> findParts(const Population &population, const Query &query)
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

QString progressOf(int county, const QString &rest)
{
    const QString name = CountyName(county).toString().replace(u' ', u'~');
    return u"SEARCHING~%1~County~Superior~Court~%2"_s.arg(name, rest);
}

void sayProgress(const Query &query, Reply &reply)
{
    for (const int county : query.counties)
        reply.Say(progressOf(county, u".."_s));
    reply.Say(u"SEARCHING~the~index~of~names~.."_s);
    reply.Say(u"SEARCHING~the~index~of~cases~.."_s);
}

/// Row `number` of a name with a meaning: a case that is made up on the spot and passes the
/// filters of the query.
QString toldRow(const Query &query, qint64 number, const QString &role = QString())
{
    const auto index = static_cast<std::size_t>(number);
    const std::size_t years = static_cast<std::size_t>(query.toYear - query.fromYear) + 1;
    const CaseType &type = *query.types[index % query.types.size()];
    const std::size_t turn = index / query.types.size();

    Person person;
    person.last = query.name.last;
    person.first = QString::fromUtf16(FirstNames()[index % FirstNames().size()]);
    person.middle = QChar(static_cast<char16_t>(u'A' + index / FirstNames().size() % 26));

    CourtCase courtCase;
    courtCase.number.county = query.counties[index % query.counties.size()];
    courtCase.number.year = query.fromYear + static_cast<int>(turn % years);
    courtCase.number.type = type.digit;
    courtCase.number.serial = 1 + static_cast<int>(turn / years % lastSerial);
    courtCase.filed = QDate(courtCase.number.year, 1 + static_cast<int>(index % 12),
                            1 + static_cast<int>(index % 28));
    courtCase.description = QString::fromUtf16(type.descriptions[index % type.descriptions.size()]);
    const char16_t *usual = type.parties[index % type.parties.size()].role;
    return rowText(person, courtCase, role.isEmpty() ? QString::fromUtf16(usual) : role);
}

/// So many rows from row `first` on.
void sayToldRows(const Query &query, qint64 count, Reply &reply, qint64 first = 0)
{
    if (query.counties.empty() || query.types.empty() || query.fromYear > query.toYear)
        return;
    reply.Rows(count, [query, first](qint64 number) { return toldRow(query, first + number); });
}

void sayThereof(const Query &query, Reply &reply)
{
    sayToldRows(query, 2, reply);
    if (!query.counties.empty() && !query.types.empty() && query.fromYear <= query.toYear)
        reply.Say(toldRow(query, 2, u"Heirs THEREOF"_s));
    sayToldRows(query, 2, reply, 3);
}

/// A number given as the first name, from 0 to `most`; `usual` when it is none.
qint64 numberAsFirstName(const Query &query, qint64 usual, qint64 most)
{
    bool isNumber = false;
    const qint64 number = query.name.first.toLongLong(&isNumber);
    return isNumber && number >= 0 ? std::min(number, most) : usual;
}

void saySlow(const Query &query, Reply &reply)
{
    const qint64 seconds = numberAsFirstName(query, slowSeconds, mostSlowSeconds);
    const int county = query.counties.empty() ? 1 : query.counties.front();
    for (qint64 second = 1; second <= seconds; ++second) {
        reply.Say(progressOf(county, u"%1~of~%2~.."_s.arg(second).arg(seconds)));
        reply.Pause(1'000);
    }
    sayToldRows(query, 3, reply);
}

void sayTold(ToldSearch search, const Query &query, Reply &reply)
{
    switch (search) {
    case ToldSearch::TooManyHits:
        sayToldRows(query, 25, reply);
        reply.Say(u"ERROR~Too many hits~"_s);
        break;
    case ToldSearch::Over200:
        sayToldRows(query, query.name.first == u"NONE" ? 0 : 200, reply);
        reply.Say(u"This search resulted in more than 200 results."_s);
        break;
    case ToldSearch::ErrorRow:
        sayToldRows(query, 3, reply);
        reply.Say(u"ERROR~A court record could not be read~"_s);
        sayToldRows(query, 3, reply, 3);
        break;
    case ToldSearch::Thereof:
        sayThereof(query, reply);
        break;
    case ToldSearch::Stall:
        sayToldRows(query, 5, reply);
        reply.Silence();
        break;
    case ToldSearch::DropLink:
        sayToldRows(query, 5, reply);
        reply.Drop();
        break;
    case ToldSearch::Empty:
        break;
    case ToldSearch::Many:
        sayToldRows(query, numberAsFirstName(query, manyRows, mostManyRows), reply);
        break;
    case ToldSearch::Slow:
        saySlow(query, reply);
        break;
    }
}
} // namespace

Reply AnswerSuperiorSearch(const Population &population, const QStringList &fields, int thisYear)
{
    Reply reply;
    if (fields.size() != superiorSearchFields) {
        reply.Say(u"ERROR~Wrong number of fields~"_s).Finish();
        return reply;
    }
    Query query = parseNameAndCourts(fields);
    if (query.name.last.isEmpty()) {
        reply.Say(u"ERROR~No name~"_s).Finish();
        return reply;
    }
    if (!parseYears(fields, thisYear, query)) {
        reply.Say(u"ERROR~Not a year~"_s).Finish();
        return reply;
    }

    sayProgress(query, reply);
    if (const ToldName *told = FindToldName(query.name.last)) {
        // Rows are made for the years from 1970 on, whatever else is asked for.
        query.fromYear = std::max(query.fromYear, firstCaseYear);
        query.toYear = std::min(query.toYear, thisYear);
        sayTold(told->search, query, reply);
    } else {
        const auto parts =
            std::make_shared<const std::vector<quint32>>(findParts(population, query));
        reply.Rows(static_cast<qint64>(parts->size()), [&population, parts](qint64 number) {
            const Part &part = population.Parts()[(*parts)[static_cast<std::size_t>(number)]];
            return rowText(population.People()[part.person], population.Cases()[part.courtCase],
                           part.role);
        });
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
