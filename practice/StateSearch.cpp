#include "practice/StateSearch.h"

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum Field : qsizetype { Last = 1, First, Middle, InCourts = 5, Types, FromYear, ToYear };

constexpr auto everywhere = u"*ALL";

QString rowText(OtherFamily family, const OtherHit &hit, const QString &lastField)
{
    const OtherCase &found = hit.courtCase;
    const QString note =
        found.judgment && family == OtherFamily::Oregon ? u" (Judgment)"_s : QString();
    return u"%1~%2%3~%4~%5%6~%7~%8~"_s.arg(
        NameText(hit.person), found.archived ? u"*"_s : QString(), found.number,
        DateText(found.filed), found.text, note,
        CourtsOf(family)[static_cast<std::size_t>(found.court)].location,
        lastField.isEmpty() ? found.role : lastField);
}
} // namespace

ParsedSearch ParseStateSearch(OtherFamily family, const QStringList &fields, int thisYear)
{
    if (fields.size() != stateSearchFields)
        return u"Wrong number of fields"_s;
    OtherSearch search;
    search.family = family;
    search.name = ParseName(fields[Last], fields[First], fields[Middle]);
    if (search.name.last.isEmpty())
        return u"No name"_s;
    const auto years = ParseYears(fields[FromYear], fields[ToYear], FirstYearOf(family), thisYear);
    if (!years)
        return u"Not a year"_s;
    search.years = *years;
    TakeCourts(fields[InCourts], everywhere,
               family == OtherFamily::Oregon ? u"all Oregon Courts"_s : u"all Idaho Courts"_s,
               search);
    TakeTypes(fields[Types], search);
    search.write = [family](const OtherHit &hit, const QString &lastField) {
        return rowText(family, hit, lastField);
    };
    return search;
}

Reply AnswerStateSearch(OtherFamily family, const Population &population, const QStringList &fields,
                        int thisYear)
{
    ParsedSearch parsed = ParseStateSearch(family, fields, thisYear);
    if (const QString *trouble = std::get_if<QString>(&parsed))
        return Refusal(*trouble);
    auto &search = std::get<OtherSearch>(parsed);
    search.people = population.Find(search.name);
    return AnswerOther(population, search, thisYear);
}
} // namespace Practice
