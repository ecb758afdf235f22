#include "support/PracticeAnswers.h"

#include "core/Windows1252.h"
#include "practice/Conversation.h"
#include "practice/MadeUpPeople.h"

#include <QDate>
#include <QHash>

using namespace Qt::StringLiterals;

namespace {
const QDate courtDay(2026, 3, 10);
/// Of one answer: as much as shows each way of going on.
constexpr qsizetype mostAnswerBytes = 48 * 1024;
constexpr int mostAnswerSteps = 60;
/// A reply that never ends is cut after so many.
constexpr int mostSteps = 2000;
constexpr qsizetype mostKnownAnswers = 3000;

const Practice::Population &people()
{
    static const Practice::Population population = Practice::MakePopulation(1, courtDay);
    return population;
}

/// The bytes of a reply, as far as they come without a pause, a silence or the end of the link. Of
/// a long one the beginning and the last token, which says how it ended and what more there is.
QByteArray bytesOf(Practice::Reply reply)
{
    using Kind = Practice::ReplyStep::Kind;
    QByteArray bytes;
    QByteArray last;
    for (int i = 0; i < mostSteps; ++i) {
        const Practice::ReplyStep step = reply.Next();
        if (step.kind == Kind::End)
            break;
        QByteArray next;
        if (step.kind == Kind::Token)
            next = '|' + ToWindows1252(step.text) + '|';
        else if (step.kind == Kind::Bytes || step.kind == Kind::Piece)
            next = step.bytes;
        if (i < mostAnswerSteps && bytes.size() < mostAnswerBytes)
            bytes += next;
        else if (step.kind == Kind::Token)
            last = next;
    }
    bytes += last;
    return bytes.contains("|EOF~|") ? bytes : bytes + "|EOF~|";
}

QHash<QByteArray, QByteArray> &knownAnswers()
{
    static QHash<QByteArray, QByteArray> known;
    return known;
}
} // namespace

const QByteArray &PracticeAnswer(const QByteArray &frame)
{
    QHash<QByteArray, QByteArray> &known = knownAnswers();
    const auto found = known.constFind(frame);
    if (found != known.constEnd())
        return *found;
    if (known.size() > mostKnownAnswers)
        known.clear();
    Practice::Conversation conversation(people(), courtDay);
    conversation.Answer(ToWindows1252(u"LOGON¦ann¦pw¦AppVer-9.00¦"_s));
    const QByteArray request = frame.mid(1).chopped(frame.endsWith('|') ? 1 : 0);
    return *known.insert(frame, bytesOf(conversation.Answer(request)));
}

void ForgetPracticeAnswers()
{
    knownAnswers() = {};
}
