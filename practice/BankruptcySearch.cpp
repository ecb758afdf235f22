#include "practice/BankruptcySearch.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// What a verb asks by.
enum class By : quint8 { Name, BusinessName, TaxNumber, SocialSecurityNumber };

struct Verb
{
    const char16_t *word;
    By by;
    qsizetype keys; ///< fields between the verb and the court
};

constexpr std::array<Verb, 4> verbs{{
    {u"SEARCH", By::Name, 4},
    {u"SEARCHBUS", By::BusinessName, 1},
    {u"SEARCHTID", By::TaxNumber, 1},
    {u"SEARCHSSN", By::SocialSecurityNumber, 1},
}};

// Behind the keys.
enum Tail : qsizetype { InCourt, Types, FromYear, ToYear, TailCount };

const Verb *findVerb(const QStringList &fields)
{
    const auto *found = std::find_if(verbs.begin(), verbs.end(), [&](const Verb &verb) {
        return !fields.isEmpty() && fields.first() == QStringView(verb.word);
    });
    return found == verbs.end() ? nullptr : found;
}

/// The row has the broken bar between its fields: the request inside it is full of tildes.
QString rowText(const OtherHit &hit, const QString &lastField)
{
    const OtherCase &found = hit.courtCase;
    const OtherCourt &court =
        CourtsOf(OtherFamily::Bankruptcy)[static_cast<std::size_t>(found.court)];
    const QString retrieve =
        u"RETRIEVECOMMAND=BKRPT~SUMMARY~%1~%2~"_s.arg(found.number, court.code);
    return u"%1¦%2¦%3¦%4¦%5¦%6¦%7¦%8¦"_s.arg(
        NameText(hit.person), found.number, retrieve, DateText(found.filed), found.text,
        court.location, found.role, lastField.isEmpty() ? found.otherParty : lastField);
}

std::vector<quint32> findPeople(const Population &population, By by, const OtherSearch &search)
{
    if (by == By::TaxNumber || by == By::SocialSecurityNumber) {
        const std::optional<quint32> person =
            FindByPersonalNumber(population, search.name.last, by == By::TaxNumber);
        return person ? std::vector<quint32>{*person} : std::vector<quint32>{};
    }
    std::vector<quint32> people = population.Find(search.name);
    if (by == By::BusinessName) {
        const auto isPerson = [&](quint32 id) { return !population.People()[id].business; };
        people.erase(std::remove_if(people.begin(), people.end(), isPerson), people.end());
    }
    return people;
}
} // namespace

bool IsBankruptcySearch(const QStringList &fields)
{
    return findVerb(fields) != nullptr;
}

ParsedSearch ParseBankruptcySearch(const QStringList &fields, int thisYear)
{
    const Verb *verb = findVerb(fields);
    if (verb == nullptr || fields.size() != 1 + verb->keys + TailCount)
        return u"Wrong number of fields"_s;
    const QStringList tail = fields.mid(1 + verb->keys);

    OtherSearch search;
    search.family = OtherFamily::Bankruptcy;
    search.name = verb->by == By::Name ? ParseName(fields[1], fields[2], fields[3])
                                       : ParseName(fields[1], {}, {});
    if (search.name.last.isEmpty())
        return u"No name"_s;
    const auto years =
        ParseYears(tail[FromYear], tail[ToYear], FirstYearOf(search.family), thisYear);
    if (!years)
        return u"Not a year"_s;
    search.years = *years;
    TakeCourts(tail[InCourt], {}, {}, search);
    TakeTypes(tail[Types], search);
    search.write = rowText;
    return search;
}

Reply AnswerBankruptcySearch(const Population &population, const QStringList &fields, int thisYear)
{
    ParsedSearch parsed = ParseBankruptcySearch(fields, thisYear);
    if (const QString *trouble = std::get_if<QString>(&parsed))
        return Refusal(*trouble);
    auto &search = std::get<OtherSearch>(parsed);
    search.people = findPeople(population, findVerb(fields)->by, search);
    return AnswerOther(population, search, thisYear);
}
} // namespace Practice
