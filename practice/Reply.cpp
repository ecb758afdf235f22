#include "practice/Reply.h"

#include <utility>

namespace Practice {
Reply &Reply::add(ReplyStep step)
{
    acts.push_back({std::move(step), 0, 0, {}});
    return *this;
}

Reply &Reply::Say(QString token)
{
    return add({ReplyStep::Kind::Token, std::move(token), 0});
}

Reply &Reply::Rows(qint64 count, RowMaker maker)
{
    if (count > 0)
        acts.push_back({{}, count, 0, std::move(maker)});
    return *this;
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

ReplyStep Reply::Next()
{
    if (acts.empty())
        return {};
    Act &act = acts.front();
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
