#include "namesearch/CourtLines.h"

#include "core/Clock.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// What a row is known by. Two rows of one answer have the same one time in billions.
quint64 hashOf(const QString &row)
{
    static_assert(sizeof(size_t) == sizeof(quint64));
    return qHash(row);
}
} // namespace

void CourtLines::List(const QStringList &requests,
                      const std::function<QString(const QString &request)> &courtOf)
{
    QStringList listed;
    for (qsizetype i = firstOfRun; i < lines.size(); ++i)
        listed.append(lines[i].Request);
    if (listed == requests)
        return;
    lines.resize(firstOfRun);
    forgetRepeated(requests);
    for (const QString &request : requests)
        lines.append({.Court = courtOf(request), .Request = request});
}

void CourtLines::forgetRepeated(const QStringList &requests)
{
    lines.removeIf([&](const CourtAnswer &line) { return requests.contains(line.Request); });
    firstOfRun = lines.size();
    // Asked for anew, everything that comes is added.
    for (const QString &request : requests)
        parts.remove(request);
}

QList<qsizetype> CourtLines::missing() const
{
    QList<qsizetype> found;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (IsMissing(lines[i].State))
            found.append(i);
    }
    return found;
}

bool CourtLines::IsWhole() const
{
    return std::all_of(lines.begin(), lines.end(), [](const CourtAnswer &line) {
        return line.State == AnswerState::Found || line.State == AnswerState::None;
    });
}

const QList<qsizetype> &CourtLines::BeginRetry()
{
    toRetry = missing();
    added = 0;
    for (const qsizetype line : std::as_const(toRetry))
        lines[line].State = AnswerState::Waiting;
    return toRetry;
}

QString CourtLines::RetryResult(bool stopped) const
{
    const auto answered = std::count_if(toRetry.begin(), toRetry.end(), [this](qsizetype line) {
        return !IsMissing(lines.at(line).State);
    });
    return (stopped ? u"Retry stopped: "_s : u"Retry ended: "_s) + QString::number(answered)
           + u" of "_s + QString::number(toRetry.size()) + u" answered, "_s + QString::number(added)
           + (added == 1 ? u" row added."_s : u" rows added."_s);
}

void CourtLines::Ask(qsizetype line)
{
    asked = line;
    startedAt = Clock::Current().SecondsOfDay();
    came.clear();
    CourtAnswer &answer = lines[asked];
    expected = parts.value(answer.Request);
    answer.State = AnswerState::Asking;
    answer.Cases = 0;
    answer.Names = 0;
    answer.Reason.clear();
    answer.Seconds = 0;
}

bool CourtLines::TakeRow(const QString &row, bool isName)
{
    if (asked < 0)
        return true;
    const quint64 hash = hashOf(row);
    came.append(hash);
    ++(isName ? lines[asked].Names : lines[asked].Cases);
    const auto known = expected.find(hash);
    if (known == expected.end() || known.value() == 0) {
        ++added;
        return true;
    }
    --known.value();
    return false;
}

void CourtLines::TakeError(const QString &words)
{
    if (asked >= 0 && lines[asked].Reason.isEmpty())
        lines[asked].Reason = CourtWords(words);
}

void CourtLines::Answered()
{
    if (asked < 0)
        return;
    const CourtAnswer &answer = lines[asked];
    if (!answer.Reason.isEmpty())
        end(AnswerState::Failed);
    else
        end(answer.Cases + answer.Names > 0 ? AnswerState::Found : AnswerState::None);
}

void CourtLines::EndFailed(const QString &reason)
{
    TakeError(reason);
    end(AnswerState::Failed);
}

void CourtLines::end(AnswerState state)
{
    if (asked < 0)
        return;
    CourtAnswer &answer = lines[std::exchange(asked, -1)];
    answer.State = state;
    answer.Seconds = ElapsedSeconds(startedAt);
    if (!IsMissing(state)) {
        parts.remove(answer.Request);
    } else {
        // What came before is in the list still, whether or not it came again this time.
        RowCounts now;
        for (const quint64 row : std::as_const(came))
            ++now[row];
        RowCounts &inList = parts[answer.Request];
        for (auto row = now.cbegin(); row != now.cend(); ++row)
            inList[row.key()] = std::max(inList.value(row.key()), row.value());
    }
    came = {};
    expected.clear();
}

void CourtLines::EndRun()
{
    for (CourtAnswer &line : lines) {
        if (line.State == AnswerState::Waiting)
            line.State = AnswerState::NotAsked;
    }
}
