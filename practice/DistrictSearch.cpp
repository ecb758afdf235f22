#include "practice/DistrictSearch.h"

#include "practice/Counties.h"
#include "practice/ListedPeople.h"
#include "practice/OtherSearch.h"
#include "practice/SuperiorCases.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum Field : qsizetype { Last = 1, First, Middle, InCourt, Kind, Wanted };
constexpr qsizetype ListedPerson = 2;

constexpr auto statewide = u"*SW";
constexpr auto nonCivil = u"IN";
constexpr QStringView everywhere = u"all District and Municipal Courts";
constexpr auto superiorFelony = u"S1";

// A criminal case is over after so many years.
constexpr int openFor = 5;

/// What can be asked for, and of which cases.
struct Command
{
    const char16_t *word;
    bool statewide;
    bool withAgency; ///< the agency that brought the case stands in place of the court's name
};

constexpr std::array<Command, 3> commands{{
    {u"CNCI", false, false},
    {u"SNCI", true, false},
    {u"DND", true, true},
}};

/// Asks for the cases of somebody from the list of people that another search gave.
struct ListedCommand
{
    const char16_t *word;
    const char16_t *listedBy; ///< whose rows the answer has
    bool withAddresses;
    qsizetype fields;
};

constexpr std::array<ListedCommand, 2> listedCommands{{
    {u"SNCINMD", u"SNCI", false, listedFields},
    {u"DNDND", u"DND", true, listedAddressFields},
}};

/// The one of the table with this word; nullptr when there is none.
template<typename Row, std::size_t count>
const Row *findCommand(const std::array<Row, count> &rows, const QString &word)
{
    const auto *row = std::find_if(rows.begin(), rows.end(),
                                   [&](const Row &one) { return word == QStringView(one.word); });
    return row == rows.end() ? nullptr : row;
}

/// The letters of a police force: the place's first two and a P.
QString agencyOf(QStringView place)
{
    return place.first(2).toString().toUpper() + u'P';
}

QString rowText(const QStringList &fields)
{
    return fields.join(u'~') + u'~';
}

QString districtRow(const OtherHit &hit, const Command &command, const QString &lastField)
{
    const OtherCase &found = hit.courtCase;
    const OtherCourt &court =
        CourtsOf(OtherFamily::District)[static_cast<std::size_t>(found.court)];
    const OtherCaseType &type =
        CaseTypesOf(OtherFamily::District)[static_cast<std::size_t>(found.type)];
    return rowText({NameText(hit.person), found.number, court.code,
                    command.withAgency ? agencyOf(court.code) : court.location,
                    QString::fromUtf16(type.mark), found.text, found.role,
                    lastField.isEmpty() ? DateText(found.filed) : lastField});
}

/// The criminal cases of the Superior Courts, in the same form.
void addSuperior(const Population &population, const NameQuery &name, const Command &command,
                 int thisYear, std::vector<OrderedRow> &rows)
{
    SuperiorQuery query;
    query.name = name;
    for (int county = 1; county <= static_cast<int>(counties.size()); ++county)
        query.counties.push_back(county);
    query.types = {CaseTypeOfWord(u"Criminal")};
    query.years = {firstCaseYear, thisYear};
    for (const quint32 part : FindSuperiorParts(population, query)) {
        const SuperiorRow found = SuperiorRowOf(population, part);
        const CaseNumber &number = found.courtCase.number;
        const QStringView county = CountyName(number.county);
        const QString text = CaseNumberText(number);
        rows.push_back(
            {NameText(found.person), found.courtCase.filed, text,
             rowText({NameText(found.person), text, u"S%1"_s.arg(number.county, 2, 10, QChar(u'0')),
                      command.withAgency ? agencyOf(county) : u"%1 Superior"_s.arg(county),
                      QString::fromUtf16(superiorFelony),
                      thisYear - number.year > openFor ? u"CL"_s : u"OP"_s, u"DEF"_s,
                      DateText(found.courtCase.filed)})});
    }
}
/// A search that is not narrowed yet, with rows as the command has them.
OtherSearch searchFor(const Command &command, int thisYear)
{
    OtherSearch search;
    search.family = OtherFamily::District;
    search.years = {FirstYearOf(search.family), thisYear};
    search.write = [&command](const OtherHit &hit, const QString &lastField) {
        return districtRow(hit, command, lastField);
    };
    return search;
}

/// Somebody from a list of people, and a search for that person's cases.
struct ListedSearch
{
    QString name;
    qint64 place = 0;
    OtherSearch search;
};

std::variant<ListedSearch, QString> parseListed(const ListedCommand &command,
                                                const QStringList &fields, int thisYear)
{
    if (fields.size() != command.fields)
        return u"Wrong number of fields"_s;
    const std::optional<qint64> place = FindListed(fields, command.withAddresses);
    if (!place)
        return u"Nobody was listed so"_s;
    ListedSearch listed{
        fields[ListedPerson], *place,
        searchFor(*findCommand(commands, QString::fromUtf16(command.listedBy)), thisYear)};
    TakeCourts(QString::fromUtf16(statewide), statewide, everywhere.toString(), listed.search);
    TakeTypes(QString::fromUtf16(nonCivil), listed.search);
    return listed;
}

Reply answerListed(const ListedCommand &command, const QStringList &fields, int thisYear)
{
    const auto parsed = parseListed(command, fields, thisYear);
    if (const QString *trouble = std::get_if<QString>(&parsed))
        return Refusal(*trouble);
    const auto &listed = std::get<ListedSearch>(parsed);
    Reply reply;
    SayProgress(listed.search.places, reply);
    SayListedCases(listed.name, listed.place, listed.search, reply);
    reply.Finish();
    return reply;
}

bool isStatewide(const QStringList &fields)
{
    return fields[InCourt].trimmed() == QStringView(statewide);
}

/// Understands a search by name, all but whom it means.
ParsedSearch parseSearch(const QStringList &fields, int thisYear)
{
    if (fields.size() != districtSearchFields)
        return u"Wrong number of fields"_s;
    const Command *command = findCommand(commands, fields[Wanted]);
    if (command == nullptr)
        return u"Unknown request"_s;
    OtherSearch search = searchFor(*command, thisYear);
    search.name = ParseName(fields[Last], fields[First], fields[Middle]);
    if (search.name.last.isEmpty())
        return u"No name"_s;
    // A statewide search and the state belong together, and it knows no civil cases.
    if (isStatewide(fields) == command->statewide
        && (!command->statewide || fields[Kind] == QStringView(nonCivil)))
        TakeCourts(fields[InCourt], statewide, everywhere.toString(), search);
    TakeTypes(fields[Kind], search);
    return search;
}

/// Says what the name means if it is one of those that list people; false when it is not.
bool sayListed(const OtherSearch &search, const Command &command, Reply &reply)
{
    const SpecialName *special = FindSpecialName(search.name.last);
    if (special == nullptr || !command.statewide || search.courts.empty() || search.types.empty()
        || (special->search != SpecialSearch::NamesOnly
            && special->search != SpecialSearch::NamesAndCases))
        return false;
    SayListedPeople(special->search, search, command.withAgency, reply);
    return true;
}
} // namespace

std::optional<OtherHit> FindMadeUpDistrictHit(const QStringList &fields, int thisYear,
                                              const QString &number)
{
    const ListedCommand *command = findCommand(listedCommands, fields.last());
    if (command == nullptr) {
        const ParsedSearch parsed = parseSearch(fields, thisYear);
        const auto *search = std::get_if<OtherSearch>(&parsed);
        return search == nullptr ? std::nullopt : FindMadeUpHit(*search, thisYear, number);
    }
    const auto parsed = parseListed(*command, fields, thisYear);
    const auto *listed = std::get_if<ListedSearch>(&parsed);
    for (int i = 0; listed != nullptr && i < ListedCases(listed->place); ++i) {
        const OtherHit hit = ListedCase(listed->name, listed->place, i, listed->search);
        if (hit.courtCase.number == number)
            return hit;
    }
    return std::nullopt;
}

Reply AnswerDistrictSearch(const Population &population, const QStringList &fields, int thisYear)
{
    if (const ListedCommand *listed = findCommand(listedCommands, fields.last()))
        return answerListed(*listed, fields, thisYear);
    ParsedSearch parsed = parseSearch(fields, thisYear);
    if (const QString *trouble = std::get_if<QString>(&parsed))
        return Refusal(*trouble);
    auto &search = std::get<OtherSearch>(parsed);
    const Command *command = findCommand(commands, fields[Wanted]);
    search.people = population.Find(search.name);

    Reply reply;
    SayProgress(search.places, reply);
    if (!sayListed(search, *command, reply) && !SayOtherSpecial(search, thisYear, reply)) {
        std::vector<OrderedRow> rows = FindOtherRows(population, search);
        if (!search.courts.empty() && isStatewide(fields))
            addSuperior(population, search.name, *command, thisYear, rows);
        SayOrdered(std::move(rows), reply);
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
