#include "practice/ToldSearches.h"

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

void sayThereof(const ToldScene &scene, Reply &reply)
{
    SayToldRows(scene, 2, reply);
    if (scene.row)
        reply.Say(scene.row(2, u"Heirs THEREOF"_s));
    SayToldRows(scene, 2, reply, 3);
}
} // namespace

void SayToldRows(const ToldScene &scene, qint64 count, Reply &reply, qint64 first)
{
    if (!scene.row)
        return;
    reply.Rows(count,
               [row = scene.row, first](qint64 number) { return row(first + number, QString()); });
}

void SaySlowProgress(const ToldScene &scene, Reply &reply)
{
    const qint64 seconds = numberAsFirstName(scene.name.first, slowSeconds, mostSlowSeconds);
    for (qint64 second = 1; second <= seconds; ++second) {
        reply.Say(ProgressLine(u"%1 %2 of %3"_s.arg(scene.place).arg(second).arg(seconds)));
        reply.Pause(1'000);
    }
}

qint64 ToldRowCount(ToldSearch search, const QString &first)
{
    return numberAsFirstName(first, search == ToldSearch::Pages ? pagesRows : manyRows,
                             mostManyRows);
}

qint64 Over200Rows(const QString &first)
{
    return first == u"NONE" ? 0 : 200;
}

void SayTold(ToldSearch search, const ToldScene &scene, Reply &reply)
{
    switch (search) {
    case ToldSearch::TooManyHits:
        SayToldRows(scene, tooManyRows, reply);
        reply.Say(QString::fromUtf16(tooManyHits));
        break;
    case ToldSearch::Over200:
        SayToldRows(scene, Over200Rows(scene.name.first), reply);
        reply.Say(u"This search resulted in more than 200 results."_s);
        break;
    case ToldSearch::ErrorRow:
        SayToldRows(scene, errorRows, reply);
        reply.Say(QString::fromUtf16(unreadableRecord));
        SayToldRows(scene, errorRows, reply, errorRows);
        break;
    case ToldSearch::Thereof:
        sayThereof(scene, reply);
        break;
    case ToldSearch::Stall:
        SayToldRows(scene, brokenRows, reply);
        reply.Silence();
        break;
    case ToldSearch::DropLink:
        SayToldRows(scene, brokenRows, reply);
        reply.Drop();
        break;
    case ToldSearch::Many:
    case ToldSearch::Pages:
        SayToldRows(scene, ToldRowCount(search, scene.name.first), reply);
        break;
    case ToldSearch::Slow:
        SaySlowProgress(scene, reply);
        SayToldRows(scene, slowRows, reply);
        break;
    case ToldSearch::Empty:
    case ToldSearch::FirstNameError:
    case ToldSearch::RoleError:
    case ToldSearch::OtherError:
    case ToldSearch::SecondNameWarning:
    case ToldSearch::OtherWarning:
    case ToldSearch::BadLimit:
    case ToldSearch::NamesOnly:
    case ToldSearch::NamesAndCases:
        break; // what means something to one court alone finds nothing elsewhere
    }
}
} // namespace Practice
