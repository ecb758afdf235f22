#include "practice/OtherSearch.h"

#include "practice/CaseFile.h"
#include "practice/NameTables.h"
#include "practice/SpecialSearches.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <tuple>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr auto judgmentWord = u"JG";

bool passes(const OtherSearch &search, const OtherCase &courtCase)
{
    const int year = courtCase.filed.year();
    return year >= search.years.from && year <= search.years.to
           && (courtCase.judgment || !search.judgmentsOnly)
           && std::binary_search(search.courts.begin(), search.courts.end(), courtCase.court)
           && std::binary_search(search.types.begin(), search.types.end(), courtCase.type);
}

/// Rows are made up for the years of which the family has cases, whatever else is asked for.
OtherSearch withinItsYears(OtherSearch search, int thisYear)
{
    search.years.from = std::max(search.years.from, FirstYearOf(search.family));
    search.years.to = std::min(search.years.to, thisYear);
    return search;
}

bool letsSomethingThrough(const OtherSearch &search)
{
    return !search.courts.empty() && !search.types.empty() && search.years.from <= search.years.to;
}
} // namespace

void TakeCourts(const QString &field, QStringView everywhere, const QString &placeOfAll,
                OtherSearch &search)
{
    const std::span<const OtherCourt> courts = CourtsOf(search.family);
    if (!everywhere.isEmpty() && field.trimmed() == everywhere) {
        search.courts.resize(courts.size());
        std::iota(search.courts.begin(), search.courts.end(), 0);
        search.places.append(placeOfAll);
        return;
    }
    for (const QString &code : ParseList(field)) {
        if (const std::optional<int> court = FindCourt(search.family, code)) {
            search.courts.push_back(*court);
            search.places.append(courts[static_cast<std::size_t>(*court)].place);
        }
    }
    std::sort(search.courts.begin(), search.courts.end());
}

void TakeTypes(const QString &field, OtherSearch &search)
{
    QStringList words;
    for (const QString &word : ParseList(field))
        words.append(word.trimmed().toUpper());
    // Judgments are no kind of case, but a demand on those of the other kinds.
    if (search.family == OtherFamily::Oregon)
        search.judgmentsOnly = words.removeAll(QString::fromUtf16(judgmentWord)) > 0;
    const std::span<const OtherCaseType> types = CaseTypesOf(search.family);
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (words.isEmpty() || words.contains(QStringView(types[i].asked)))
            search.types.push_back(static_cast<int>(i));
    }
}

std::vector<OrderedRow> FindOtherRows(const Population &population, const OtherSearch &search)
{
    std::vector<OrderedRow> rows;
    if (search.courts.empty())
        return rows;
    for (const quint32 id : search.people) {
        const Person &person = population.People()[id];
        for (const OtherCase &courtCase : OtherCasesOf(population, id, search.family)) {
            if (passes(search, courtCase))
                rows.push_back({NameText(person), courtCase.filed, courtCase.number,
                                search.write({person, courtCase}, QString())});
        }
    }
    return rows;
}

void SayOrdered(std::vector<OrderedRow> rows, Reply &reply)
{
    std::sort(rows.begin(), rows.end(), [](const OrderedRow &left, const OrderedRow &right) {
        return std::tie(left.name, left.filed, left.number)
               < std::tie(right.name, right.filed, right.number);
    });
    const auto kept = std::make_shared<const std::vector<OrderedRow>>(std::move(rows));
    reply.Rows(static_cast<qint64>(kept->size()),
               [kept](qint64 number) { return (*kept)[static_cast<std::size_t>(number)].text; });
}

OtherHit MadeUpHit(const OtherSearch &search, qint64 number)
{
    const auto index = static_cast<std::size_t>(number);
    const std::size_t years = static_cast<std::size_t>(search.years.to - search.years.from) + 1;
    const std::size_t turn = index / search.types.size();

    OtherHit hit;
    hit.person = MadeUpNamesake(search.name.last, number);
    OtherCase &made = hit.courtCase;
    made.court = search.courts[index % search.courts.size()];
    made.type = search.types[index % search.types.size()];
    const OtherCaseType &type = CaseTypesOf(search.family)[static_cast<std::size_t>(made.type)];
    const int year = search.years.from + static_cast<int>(turn % years);
    // Kinds of case may be numbered in one row: no two rows get the same number.
    const auto value = static_cast<int>(index % static_cast<std::size_t>(NumbersOf(search.family)));
    made.number = OtherNumberText(search.family, made.court, made.type, year, value);
    made.filed = QDate(year, MonthOf(search.family, value), 1 + static_cast<int>(index % 28));
    made.text = QString::fromUtf16(type.texts[index % type.texts.size()]);
    made.role = QString::fromUtf16(type.role);
    if (type.otherRole != nullptr)
        made.otherParty = NameText(MadeUpNamesake(search.name.last, number + 1));
    made.judgment = search.judgmentsOnly;
    return hit;
}

std::optional<OtherHit> FindMadeUpHit(const OtherSearch &asked, int thisYear, const QString &number)
{
    const OtherSearch search = withinItsYears(asked, thisYear);
    const std::optional<qint64> value = ValueOfNumber(search.family, number);
    if (!value || !letsSomethingThrough(search))
        return std::nullopt;
    // The numbers of a year come up again in a very long list.
    for (qint64 row = *value; row < mostManyRows; row += NumbersOf(search.family)) {
        const OtherHit hit = MadeUpHit(search, row);
        if (BareNumber(hit.courtCase.number) == BareNumber(number))
            return hit;
    }
    return std::nullopt;
}

bool SayOtherSpecial(const OtherSearch &asked, int thisYear, Reply &reply)
{
    const SpecialName *special = FindSpecialName(asked.name.last);
    if (special == nullptr)
        return false;
    const OtherSearch search = withinItsYears(asked, thisYear);
    SpecialScene scene{search.name, {}, search.places.value(0, u"the courts"_s)};
    if (letsSomethingThrough(search)) {
        scene.row = [search](qint64 number, const QString &lastField) {
            return search.write(MadeUpHit(search, number), lastField);
        };
    }
    SaySpecial(special->search, scene, reply);
    return true;
}

Reply AnswerOther(const Population &population, const OtherSearch &search, int thisYear)
{
    Reply reply;
    SayProgress(search.places, reply);
    if (!SayOtherSpecial(search, thisYear, reply))
        SayOrdered(FindOtherRows(population, search), reply);
    reply.Finish();
    return reply;
}
} // namespace Practice
