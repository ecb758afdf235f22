#include "records/CourtAnswer.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype longestReason = 200;

struct StateRow
{
    AnswerState state;
    QStringView words;
    QStringView inShort; ///< behind a number of courts
    bool missing;
};

/// In the order in which a line tells of them.
constexpr std::array<StateRow, 8> states{{
    {AnswerState::Asking, u"Asking ..", u"asking", false},
    {AnswerState::Found, u"Found", u"answered", false},
    {AnswerState::None, u"None", u"answered", false},
    {AnswerState::TooMany, u"Too many to list", u"with too many to list", false},
    {AnswerState::Failed, u"Failed", u"failed", true},
    {AnswerState::Stopped, u"Stopped", u"stopped", true},
    {AnswerState::NotAsked, u"Not asked", u"not asked", true},
    {AnswerState::Waiting, u"Waiting", u"waiting", false},
}};

const StateRow &rowOf(AnswerState state)
{
    return *std::find_if(states.begin(), states.end(),
                         [state](const StateRow &row) { return row.state == state; });
}

QString counted(int number, const QString &word)
{
    return QString::number(number) + u' ' + word + (number == 1 ? u""_s : u"s"_s);
}
} // namespace

QString AnswerWords(AnswerState state, const QString &reason)
{
    const QString words = rowOf(state).words.toString();
    return reason.isEmpty() ? words : QString(words + u": "_s + reason);
}

QString FoundText(int cases, int names)
{
    if (names == 0)
        return counted(cases, u"case"_s);
    const QString people = counted(names, u"name"_s);
    return cases == 0 ? people : QString(counted(cases, u"case"_s) + u", "_s + people);
}

QString AnswerText(const CourtAnswer &answer)
{
    const bool some = answer.Cases + answer.Names > 0;
    const QString found = FoundText(answer.Cases, answer.Names);
    if (answer.State == AnswerState::Found)
        return found;
    const QString words =
        AnswerWords(answer.State, answer.State == AnswerState::Failed ? answer.Reason : QString());
    if (!some || answer.State == AnswerState::Waiting || answer.State == AnswerState::Asking)
        return words;
    const QString came = words + u" - "_s + found + u" came"_s;
    return IsMissing(answer.State) ? QString(came + u", others may be missing"_s) : came;
}

QString AnswerTime(const CourtAnswer &answer)
{
    if (answer.Seconds <= 0)
        return {};
    return QString::number(static_cast<double>(answer.Seconds), 'f', 1) + u" s"_s;
}

bool IsMissing(AnswerState state)
{
    return rowOf(state).missing;
}

QString AnswersInShort(const QList<CourtAnswer> &answers)
{
    if (answers.isEmpty())
        return {};
    if (answers.size() == 1)
        return answers.first().Court + u": "_s + AnswerText(answers.first());
    QStringList parts;
    for (const StateRow &row : states) {
        // Found and none are the same here, and are told once.
        if (row.state == AnswerState::None)
            continue;
        const auto count =
            std::count_if(answers.begin(), answers.end(), [&row](const CourtAnswer &answer) {
                return rowOf(answer.State).inShort == row.inShort;
            });
        if (count > 0)
            parts.append(QString::number(count) + u' ' + row.inShort);
    }
    return QString::number(answers.size()) + u" courts: "_s + parts.join(u", "_s);
}

QString CourtWords(const QString &reply)
{
    QString words = QString(reply).replace(u'~', u' ').simplified();
    if (words.size() > longestReason)
        words = words.left(longestReason) + u" .."_s;
    return words.isEmpty() ? u"the court gave no reason"_s : words;
}
