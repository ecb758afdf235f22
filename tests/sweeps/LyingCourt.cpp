#include "sweeps/LyingCourt.h"

#include "core/Windows1252.h"
#include "practice/MadeUpPeople.h"
#include "support/FakeSocket.h"

#include <QDate>

#include <algorithm>

namespace {
const QDate courtDay(2026, 3, 10);

const Practice::Population &everybody()
{
    static const Practice::Population population = Practice::MakePopulation(1, courtDay);
    return population;
}

/// Where the fields of a token end: in a reply at "~", in what is to be sent back at "¦" and "^"
/// too, and what is to be written into the settings at "=".
constexpr bool endsField(char c)
{
    return c == '~' || c == '\xA6' || c == '^' || c == '=';
}

struct Span
{
    qsizetype from;
    qsizetype size;
};

QList<Span> fieldsOf(const QByteArray &token)
{
    QList<Span> spans;
    qsizetype from = 0;
    for (qsizetype at = 0; at <= token.size(); ++at) {
        if (at < token.size() && !endsField(token[at]))
            continue;
        if (at < token.size() || at > from)
            spans.append({from, at - from});
        from = at + 1;
    }
    return spans;
}

/// The bytes of a piece that is tokens; nothing for one that is not.
QByteArrayList tokensOf(const QByteArray &piece)
{
    if (piece.size() < 2 || !piece.startsWith('|') || !piece.endsWith('|') || piece.size() > 4096)
        return {};
    QByteArrayList tokens;
    for (const QByteArray &part : piece.split('|')) {
        if (!part.isEmpty())
            tokens.append(part);
    }
    return tokens;
}

bool isMark(const QByteArray &token)
{
    return token.startsWith("EOF~") || token.startsWith("EOD~") || token.startsWith("EOS~");
}

std::unique_ptr<LyingCourt> &current()
{
    static std::unique_ptr<LyingCourt> court;
    return court;
}
} // namespace

LyingCourt::LyingCourt(const Lie &ofCourt) : lie(ofCourt), conversation(everybody(), courtDay)
{
    // Who it knows is let in: a login of its own is one of the scenes.
    conversation.Answer(ToWindows1252(u"LOGON¦quiet¦pw¦AppVer-9.00¦"));
}

LyingCourt &LyingCourt::Install(const Lie &lie)
{
    current().reset(new LyingCourt(lie));
    FakeSocket::Install([](FakeSocket *socket) {
        socket->state = SocketState::Closed;
        socket->heard = [socket](const QByteArray &frame) { current()->hear(socket, frame); };
    });
    return *current();
}

void LyingCourt::hear(FakeSocket *socket, const QByteArray &frame)
{
    const QByteArray request = frame.mid(1, frame.size() - 2);
    if (Practice::Conversation::TurnOf(request) != Practice::Conversation::Turn::Waits)
        return;
    const QByteArrayList reply = replyTo(request);
    socket->ArriveLater({reply.join()});
}

QByteArrayList LyingCourt::replyTo(const QByteArray &request)
{
    using Kind = Practice::ReplyStep::Kind;
    Practice::Reply reply = conversation.Answer(request);
    const bool bends = lie.request == requests.size();
    requests.append(request);
    fields.append(0);
    struct Part
    {
        QByteArray bytes;
        bool isToken;
    };
    QList<Part> parts;
    for (auto step = reply.Next(); step.kind != Kind::End && step.kind != Kind::Silence;
         step = reply.Next()) {
        if (step.kind == Kind::Token)
            parts.append({ToWindows1252(step.text), true});
        const QByteArrayList tokens = tokensOf(step.bytes);
        for (const QByteArray &token : tokens)
            parts.append({token, true});
        if (tokens.isEmpty() && !step.bytes.isEmpty())
            parts.append({step.bytes, false});
    }
    QList<qsizetype> meant;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (!parts[i].isToken || isMark(parts[i].bytes))
            continue;
        const int count = static_cast<int>(fieldsOf(parts[i].bytes).size());
        fields.last() = std::max(fields.last(), count);
        if (count > lie.field)
            meant.append(i);
    }
    if (bends && !meant.isEmpty()) {
        if (lie.where == Lie::Where::FirstToken)
            meant = {meant.first()};
        else if (lie.where == Lie::Where::LastToken)
            meant = {meant.last()};
        for (const qsizetype i : meant)
            parts[i].bytes = bend(parts[i].bytes);
    }
    QByteArrayList bytes;
    for (const Part &part : parts)
        bytes.append(part.isToken ? '|' + part.bytes + '|' : part.bytes);
    return bytes;
}

QByteArray LyingCourt::bend(const QByteArray &token)
{
    const Span span = fieldsOf(token).at(lie.field);
    const qsizetype at = lie.behind ? span.from + span.size : span.from;
    const qsizetype end = span.from + span.size;
    lied.append(token.left(at) + lie.text + token.mid(end));
    return lied.last();
}
