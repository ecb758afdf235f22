#include "sweeps/SweptCourt.h"

#include "core/GlobalState.h"
#include "support/FakeSocket.h"
#include "support/TestClock.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// After so many turns in which nothing was read the program is waiting.
constexpr int turnsToSettle = 4;
constexpr double secondsATurn = 0.1;
/// So many halves of a limit are well behind it.
constexpr int halvesBehindLimit = 6;
/// A document that was stopped may keep silent for so long; nothing takes longer.
constexpr double stopLimitSeconds = 14.0;
constexpr const char *ping = "|DIAG001|";
} // namespace

SweptCourt::SweptCourt(const Conversation &conversation, TestClock &clock,
                       std::function<bool()> isOver)
    : talk(conversation), time(clock), over(std::move(isOver))
{
    if (talk.Happens.How == Way::BehindLateReply && !talk.Before.isEmpty())
        talk.Before.last() += lateReply;
    connect(&turns, &QTimer::timeout, this, &SweptCourt::turn);
    turns.start(0);
}

SweptCourt::~SweptCourt() = default;

void SweptCourt::Install(bool connected)
{
    FakeSocket::Install([this, connected](FakeSocket *made) {
        socket = made;
        made->state = connected ? SocketState::Connected : SocketState::Closed;
        // It has reached this machine, and no event has reported it yet.
        if (talk.Happens.How == Way::BehindLateReply && talk.Before.isEmpty())
            made->HoldBack(lateReply);
        made->heard = [this, made](const QByteArray &frame) { hear(made, frame); };
    });
}

QString SweptCourt::Complaints() const
{
    QStringList all = complaints;
    // One behind the end of the exchange may find nobody there any more.
    const bool pinged = talk.Happens.How == Way::BehindPing
                        || (talk.Happens.How == Way::Pinged
                            && talk.Reply.left(talk.Happens.At).count('|') / 2 < talk.NeededTokens);
    if (pinged && pings != 1)
        all.append(u"%1 pings were answered"_s.arg(pings));
    return all.join(u"; "_s);
}

bool SweptCourt::isDone() const
{
    return over() || stops > 0 || requests.size() > talk.Before.size() + 1;
}

void SweptCourt::expectWaiting(const char *when)
{
    if (isDone())
        complaints.append(u"it does not wait any more "_s + QLatin1StringView(when));
}

void SweptCourt::hear(FakeSocket *from, const QByteArray &frame)
{
    socket = from;
    if (frame.contains("IMALIVE")) {
        ++pings;
        return;
    }
    if (frame.contains("STOP")) {
        ++stops;
        return;
    }
    requests.append(frame);
    const qsizetype place = requests.size() - 1;
    if (place == talk.Before.size()) {
        if (frame != talk.Request)
            complaints.append(u"asked "_s + QString::fromLatin1(frame));
        deliver();
        return;
    }
    const QByteArray reply = place < talk.Before.size() ? talk.Before[place] : talk.After;
    steps.append([this, reply] { send(reply); });
}

void SweptCourt::turn()
{
    const qsizetype now = Global.strRecvBuffer.Size();
    const bool quiet = now == buffered && !Global.bSendBusy;
    buffered = now;
    quietTurns = quiet ? quietTurns + 1 : 0;
    if (!sweeping)
        time.Advance(secondsATurn);
    if (quietTurns < turnsToSettle || steps.isEmpty())
        return;
    quietTurns = 0;
    steps.takeFirst()();
}

void SweptCourt::send(const QByteArray &bytes)
{
    if (!bytes.isEmpty() && socket->state == SocketState::Connected)
        socket->Arrive(bytes);
}

void SweptCourt::breakLink()
{
    if (talk.Happens.How == Way::Reset) {
        socket->state = SocketState::Closed;
        Q_EMIT socket->Error(1, u"Connection reset by peer"_s);
        Q_EMIT socket->Closed();
        return;
    }
    socket->PeerCloses();
}

/// The steps in which the reply comes. Behind them, whoever waits still comes to his limit.
void SweptCourt::deliver()
{
    sweeping = true;
    const Came came = CameOf(talk.Reply, talk.Happens);
    if (talk.Happens.How == Way::BehindPing)
        steps.append([this] { send(ping); });
    if (talk.Happens.How == Way::ClosedAtOnce) {
        steps.append([this, came] {
            send(came.Pieces.first());
            breakLink();
        });
    } else {
        for (const QByteArray &piece : came.Pieces)
            steps.append([this, piece] { send(piece); });
        if (talk.Happens.How == Way::Pinged)
            steps.insert(steps.size() - 1, [this] { send(ping); });
        if (came.Lost)
            steps.append([this] { breakLink(); });
    }
    if (talk.Happens.How == Way::Silent && came.Tokens < talk.NeededTokens)
        keepSilent();
    steps.append([this] { sweeping = isDone() ? false : sweeping; });
    for (int i = 0; i < 2; ++i)
        steps.append([this] { time.Advance(isDone() ? 0.0 : talk.LimitSeconds); });
    steps.append([this] { sweeping = false; });
}

/// Just before the limit it still waits, and just behind it no longer; with part of a token there
/// is no limit, and the link ends the wait.
void SweptCourt::keepSilent()
{
    const bool holds = talk.PartHolds && CameOf(talk.Reply, talk.Happens).InPart;
    if (holds) {
        // In steps: whoever waits looks at the clock every second.
        for (int i = 0; i < halvesBehindLimit; ++i)
            steps.append([this] { time.Advance(talk.LimitSeconds / 2.0); });
        steps.append([this] {
            expectWaiting("for the rest of a token");
            breakLink();
        });
        return;
    }
    steps.append([this] { time.Advance(talk.LimitSeconds - 1.0); });
    steps.append([this] { expectWaiting("before its limit"); });
    steps.append([this] { time.Advance(2.0); });
    steps.append([this] {
        if (!isDone())
            complaints.append(u"it waits beyond its limit"_s);
        time.Advance(over() ? 0.0 : stopLimitSeconds + 1.0);
    });
}
