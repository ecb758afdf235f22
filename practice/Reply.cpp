#include "practice/Reply.h"

#include <algorithm>
#include <utility>

namespace Practice {
namespace {
// Of a body: what is made at a time, and how often when it has a pace.
constexpr qint64 bodyChunk = 16 * 1024;
constexpr int pacePause = 50;
constexpr qint64 pausesASecond = 1'000 / pacePause;
} // namespace

Reply &Reply::add(ReplyStep step)
{
    acts.push_back({std::move(step), 0, 0, {}, {}});
    return *this;
}

Reply &Reply::Say(QString token)
{
    return add({ReplyStep::Kind::Token, std::move(token), 0});
}

Reply &Reply::Rows(qint64 count, RowMaker maker)
{
    if (count > 0)
        acts.push_back({{}, count, 0, std::move(maker), {}});
    return *this;
}

Reply &Reply::Piece(QByteArray bytes)
{
    return add({ReplyStep::Kind::Piece, {}, 0, std::move(bytes)});
}

Reply &Reply::Body(qint64 size, qint64 pace, BytesMaker maker)
{
    if (size > 0)
        acts.push_back({{}, 0, 0, {}, {size, 0, pace, false, std::move(maker)}});
    return *this;
}

Reply &Reply::StopsWith(QByteArray bytes)
{
    stopTail = std::move(bytes);
    return *this;
}

Reply Reply::Stopped() const
{
    Reply end;
    return stopTail.isEmpty() ? std::move(end.Finish()) : std::move(end.Piece(stopTail));
}

Reply &Reply::Pause(int milliseconds)
{
    return add({ReplyStep::Kind::Pause, {}, milliseconds});
}

Reply &Reply::Silence()
{
    return add({ReplyStep::Kind::Silence, {}, 0});
}

Reply &Reply::Drop()
{
    return add({ReplyStep::Kind::Drop, {}, 0});
}

Reply &Reply::Finish()
{
    return Say(QString::fromUtf16(endMark));
}

ReplyStep Reply::nextOf(BodyLeft &body)
{
    if (std::exchange(body.pauses, false))
        return {ReplyStep::Kind::Pause, {}, pacePause};
    const qint64 chunk =
        body.pace > 0 ? std::clamp<qint64>(body.pace / pausesASecond, 1, bodyChunk) : bodyChunk;
    const QByteArray bytes = body.maker(body.made, std::min(chunk, body.size - body.made));
    body.made += bytes.size();
    body.pauses = body.pace > 0 && body.made < body.size;
    return {ReplyStep::Kind::Bytes, {}, 0, bytes};
}

ReplyStep Reply::Next()
{
    if (acts.empty())
        return {};
    Act &act = acts.front();
    if (act.body.maker) {
        ReplyStep part = nextOf(act.body);
        if (act.body.made == act.body.size)
            acts.pop_front();
        return part;
    }
    if (!act.maker) {
        ReplyStep step = std::move(act.step);
        acts.pop_front();
        // Nothing comes after these two, whatever the script goes on to say.
        if (step.kind == ReplyStep::Kind::Silence || step.kind == ReplyStep::Kind::Drop)
            acts.clear();
        return step;
    }
    ReplyStep row{ReplyStep::Kind::Token, act.maker(act.rowsMade++), 0};
    if (--act.rowsLeft == 0)
        acts.pop_front();
    return row;
}
} // namespace Practice
