#include "practice/SpecialSearches.h"

#include "practice/SearchFields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
/// A number given as the first name, from 0 to `most`; `usual` when it is none.
qint64 numberAsFirstName(const QString &first, qint64 usual, qint64 most)
{
    bool isNumber = false;
    const qint64 number = first.toLongLong(&isNumber);
    return isNumber && number >= 0 ? std::min(number, most) : usual;
}

void sayThereof(const SpecialScene &scene, Reply &reply)
{
    SaySpecialRows(scene, 2, reply);
    if (scene.row)
        reply.Say(scene.row(2, u"Heirs THEREOF"_s));
    SaySpecialRows(scene, 2, reply, 3);
}
} // namespace

void SaySpecialRows(const SpecialScene &scene, qint64 count, Reply &reply, qint64 first)
{
    if (!scene.row)
        return;
    reply.Rows(count,
               [row = scene.row, first](qint64 number) { return row(first + number, QString()); });
}

void SaySlowProgress(const SpecialScene &scene, Reply &reply)
{
    const qint64 seconds = numberAsFirstName(scene.name.first, slowSeconds, mostSlowSeconds);
    for (qint64 second = 1; second <= seconds; ++second) {
        reply.Say(ProgressLine(u"%1 %2 of %3"_s.arg(scene.place).arg(second).arg(seconds)));
        reply.Pause(1'000);
    }
}

qint64 SpecialRowCount(SpecialSearch search, const QString &first)
{
    return numberAsFirstName(first, search == SpecialSearch::Pages ? pagesRows : manyRows,
                             mostManyRows);
}

qint64 Over200Rows(const QString &first)
{
    return first == u"NONE" ? 0 : 200;
}

void SaySpecial(SpecialSearch search, const SpecialScene &scene, Reply &reply)
{
    switch (search) {
    case SpecialSearch::TooManyHits:
        SaySpecialRows(scene, tooManyRows, reply);
        reply.Say(QString::fromUtf16(tooManyHits));
        break;
    case SpecialSearch::Over200:
        SaySpecialRows(scene, Over200Rows(scene.name.first), reply);
        reply.Say(u"This search resulted in more than 200 results."_s);
        break;
    case SpecialSearch::ErrorRow:
        SaySpecialRows(scene, errorRows, reply);
        reply.Say(QString::fromUtf16(unreadableRecord));
        SaySpecialRows(scene, errorRows, reply, errorRows);
        break;
    case SpecialSearch::Thereof:
        sayThereof(scene, reply);
        break;
    case SpecialSearch::Stall:
        SaySpecialRows(scene, brokenRows, reply);
        reply.Silence();
        break;
    case SpecialSearch::DropLink:
        SaySpecialRows(scene, brokenRows, reply);
        reply.Drop();
        break;
    case SpecialSearch::Many:
    case SpecialSearch::Pages:
        SaySpecialRows(scene, SpecialRowCount(search, scene.name.first), reply);
        break;
    case SpecialSearch::Slow:
        SaySlowProgress(scene, reply);
        SaySpecialRows(scene, slowRows, reply);
        break;
    case SpecialSearch::Empty:
    case SpecialSearch::FirstNameError:
    case SpecialSearch::RoleError:
    case SpecialSearch::OtherError:
    case SpecialSearch::SecondNameWarning:
    case SpecialSearch::OtherWarning:
    case SpecialSearch::BadLimit:
    case SpecialSearch::NamesOnly:
    case SpecialSearch::NamesAndCases:
        break; // what means something to one court alone finds nothing elsewhere
    }
}
} // namespace Practice
