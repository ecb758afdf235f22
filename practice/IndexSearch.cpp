#include "practice/IndexSearch.h"

#include "practice/SpecialSearches.h"
#include "practice/SuperiorCases.h"

#include <algorithm>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum Field : qsizetype { Lower = 9, Upper };

/// The rows of a page, counted from 1.
struct Page
{
    qint64 first = 1;
    qint64 last = 1;

    qint64 Size() const { return last - first + 1; }
};

constexpr auto weeklyIndex = u"the weekly index";
constexpr auto stopped = u"WARNING~Search stopped~";

std::optional<qint64> limitOf(const QString &field, const QString &name)
{
    const QString text = field.trimmed();
    bool isNumber = false;
    const qint64 number = text.mid(name.size()).toLongLong(&isNumber);
    if (!text.startsWith(name, Qt::CaseInsensitive) || !isNumber || number < 1)
        return std::nullopt;
    // What lies behind the last row is all the same, and cannot overflow.
    return std::min(number, mostIndexRows + 1);
}

std::optional<Page> parsePage(const QStringList &fields)
{
    const std::optional<qint64> lower = limitOf(fields[Lower], u"LL="_s);
    const std::optional<qint64> upper = limitOf(fields[Upper], u"UL="_s);
    if (!lower || !upper || *upper < *lower)
        return std::nullopt;
    return Page{*lower, *upper};
}

QString rowText(const SuperiorRow &row, const QString &lastField)
{
    QStringList fields = SuperiorFields(row);
    fields.append(
        {row.title, lastField.isEmpty() ? DateText(EffectiveDate(row.courtCase)) : lastField});
    return fields.join(u'~') + u'~';
}

/// Says the page of so many rows, and what ends it.
void sayPage(qint64 count, const Page &page, const Reply::RowMaker &row, Reply &reply)
{
    const qint64 total = std::min(count, mostIndexRows);
    const qint64 last = std::min(page.last, total);
    reply.Rows(last - page.first + 1,
               [row, first = page.first - 1](qint64 number) { return row(first + number); });
    const qint64 left = total - last;
    if (left > 0)
        reply.Say(u"WARNING~Reached Search Limit~%1~%2~"_s.arg(last).arg(left));
    else
        reply.Finish();
}

/// An error, and the warning without which the program makes nothing of it.
void sayError(const SpecialScene &scene, qint64 rows, const QString &error, Reply &reply)
{
    SaySpecialRows(scene, rows, reply);
    reply.Say(error).Say(QString::fromUtf16(stopped));
}

void saySpecial(SpecialSearch search, const SpecialScene &scene, const Page &page, Reply &reply)
{
    const auto few = [&](qint64 count) { return std::min(count, page.Size()); };
    const auto sayPaged = [&](qint64 count) {
        const auto row = [make = scene.row](qint64 number) { return make(number, QString()); };
        sayPage(scene.row ? count : 0, page, row, reply);
    };
    switch (search) {
    case SpecialSearch::Many:
    case SpecialSearch::Pages:
        sayPaged(SpecialRowCount(search, scene.name.first));
        break;
    case SpecialSearch::Over200:
        sayPaged(Over200Rows(scene.name.first)); // more than a page is nothing to speak of here
        break;
    case SpecialSearch::Slow:
        SaySlowProgress(scene, reply);
        sayPaged(slowRows);
        break;
    case SpecialSearch::TooManyHits:
        sayError(scene, few(tooManyRows), QString::fromUtf16(tooManyHits), reply);
        break;
    case SpecialSearch::FirstNameError:
        sayError(scene, few(errorRows), u"ERROR~More than 500 names match the First Name~"_s,
                 reply);
        break;
    case SpecialSearch::RoleError:
        sayError(scene, few(errorRows), u"ERROR~Illegal Role~"_s, reply);
        break;
    case SpecialSearch::OtherError:
        sayError(scene, few(errorRows), QString::fromUtf16(unreadableRecord), reply);
        break;
    case SpecialSearch::SecondNameWarning:
        SaySpecialRows(scene, few(errorRows), reply);
        reply.Say(u"WARNING~More than 500 names match the Second Name~"_s);
        break;
    case SpecialSearch::OtherWarning:
        SaySpecialRows(scene, few(errorRows), reply);
        reply.Say(u"WARNING~The index is being rebuilt~"_s);
        break;
    case SpecialSearch::BadLimit:
        SaySpecialRows(scene, few(errorRows), reply);
        reply.Say(u"WARNING~Reached Search Limit~some~more~"_s);
        break;
    case SpecialSearch::ErrorRow:
    case SpecialSearch::Thereof:
    case SpecialSearch::Stall:
    case SpecialSearch::DropLink:
    case SpecialSearch::Empty:
    case SpecialSearch::NamesOnly:
    case SpecialSearch::NamesAndCases:
        SaySpecial(search, scene, reply);
        reply.Finish();
        break;
    }
}

void saySpecialName(SpecialSearch search, SuperiorQuery query, int thisYear, const Page &page,
                    Reply &reply)
{
    query.years.from = std::max(query.years.from, firstCaseYear);
    query.years.to = std::min(query.years.to, thisYear);
    SpecialScene scene{query.name, {}, QString::fromUtf16(weeklyIndex)};
    if (LetsSomethingThrough(query)) {
        scene.row = [query](qint64 number, const QString &lastField) {
            return rowText(MadeUpSuperiorRow(query, number), lastField);
        };
    }
    saySpecial(search, scene, page, reply);
}
} // namespace

Reply AnswerIndexSearch(const Population &population, const QStringList &fields, int thisYear)
{
    if (fields.size() != indexSearchFields)
        return Refusal(u"Wrong number of fields"_s);
    SuperiorQuery query;
    if (const std::optional<QString> wrong = ReadSuperiorQuery(fields, thisYear, query))
        return Refusal(*wrong);
    const std::optional<Page> page = parsePage(fields);
    if (!page)
        return Refusal(u"Not a page"_s);

    Reply reply;
    reply.Say(ProgressLine(QString::fromUtf16(weeklyIndex)));
    if (const SpecialName *special = FindSpecialName(query.name.last)) {
        saySpecialName(special->search, query, thisYear, *page, reply);
        return reply;
    }
    const auto parts =
        std::make_shared<const std::vector<quint32>>(FindSuperiorParts(population, query));
    sayPage(
        static_cast<qint64>(parts->size()), *page,
        [&population, parts](qint64 number) {
            const quint32 part = (*parts)[static_cast<std::size_t>(number)];
            return rowText(SuperiorRowOf(population, part), QString());
        },
        reply);
    return reply;
}
} // namespace Practice
