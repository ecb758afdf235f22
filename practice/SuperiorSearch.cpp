#include "practice/SuperiorSearch.h"

#include "practice/Counties.h"
#include "practice/SpecialSearches.h"
#include "practice/SuperiorCases.h"

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
QString placeOf(int county)
{
    return u"%1 County Superior Court"_s.arg(CountyName(county));
}

QString rowText(const SuperiorRow &row)
{
    return SuperiorFields(row).join(u'~') + u'~';
}

void saySpecial(const SpecialName &special, SuperiorQuery query, int thisYear, Reply &reply)
{
    // Rows are made for the years from 1970 on, whatever else is asked for.
    query.years.from = std::max(query.years.from, firstCaseYear);
    query.years.to = std::min(query.years.to, thisYear);
    SpecialScene scene{
        query.name, {}, placeOf(query.counties.empty() ? 1 : query.counties.front())};
    if (LetsSomethingThrough(query)) {
        scene.row = [query](qint64 number, const QString &lastField) {
            SuperiorRow row = MadeUpSuperiorRow(query, number);
            if (!lastField.isEmpty())
                row.role = lastField;
            return rowText(row);
        };
    }
    SaySpecial(special.search, scene, reply);
}
} // namespace

Reply AnswerSuperiorSearch(const Population &population, const QStringList &fields, int thisYear)
{
    if (fields.size() != superiorSearchFields)
        return Refusal(u"Wrong number of fields"_s);
    SuperiorQuery query;
    if (const std::optional<QString> wrong = ReadSuperiorQuery(fields, thisYear, query))
        return Refusal(*wrong);

    Reply reply;
    QStringList places;
    for (const int county : query.counties)
        places.append(placeOf(county));
    SayProgress(places, reply);
    if (const SpecialName *special = FindSpecialName(query.name.last)) {
        saySpecial(*special, query, thisYear, reply);
    } else {
        const auto parts =
            std::make_shared<const std::vector<quint32>>(FindSuperiorParts(population, query));
        reply.Rows(static_cast<qint64>(parts->size()), [&population, parts](qint64 number) {
            return rowText(SuperiorRowOf(population, (*parts)[static_cast<std::size_t>(number)]));
        });
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
