#include "sweeps/LongCourt.h"

#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/PracticeAnswers.h"
#include "support/TestClock.h"

#include <QMetaEnum>

#include <numeric>

using namespace Qt::StringLiterals;

namespace {
constexpr int mostClosedDoors = 4;
constexpr qsizetype slowBytes = 60;
/// Turns in which a silence becomes longer than any limit.
constexpr int turnsOfSilence = 6;
constexpr double secondsOfSilenceATurn = 20.0;
/// Turns for which a token that has come in part stays so.
constexpr int turnsOfStall = 30;
constexpr int junkBytes = 200;
} // namespace

LongCourt::LongCourt(TestClock &clock, QRandomGenerator &dice, int rarity)
    : time(clock), random(dice), oneIn(rarity)
{
    FakeSocket::Install([this](FakeSocket *made) { prepare(made); });
    connect(&turns, &QTimer::timeout, this, &LongCourt::takeStep);
}

LongCourt::~LongCourt()
{
    frmWinsock::SetSocketFactory({});
}

int LongCourt::Faults() const
{
    return std::accumulate(counts.begin(), counts.end(), 0);
}

QString LongCourt::NameOf(Fault fault)
{
    return QString::fromLatin1(QMetaEnum::fromType<Fault>().valueToKey(static_cast<int>(fault)));
}

void LongCourt::Close()
{
    turns.start(0);
    end(false);
}

void LongCourt::prepare(FakeSocket *made)
{
    socket = made;
    steps.clear();
    socket->state = SocketState::Closed;
    socket->completesSends = false;
    connect(socket, &QObject::destroyed, this, [this, made] {
        if (socket == made)
            socket = nullptr;
    });
    socket->dialled = [this, made] {
        const bool opens = closedDoors <= 0;
        made->connects = opens;
        made->refuses = !opens && refuses;
        if (!opens)
            --closedDoors;
        // A connect that nobody answers is waited for.
        if (!opens && !refuses)
            letTimePass(secondsOfSilenceATurn);
    };
    socket->heard = [this](const QByteArray &frame) { hear(frame); };
}

void LongCourt::hear(const QByteArray &frame)
{
    turns.start(0);
    // The end of the send goes before what is still to come.
    steps.prepend([this] { Q_EMIT socket->SendComplete(); });
    if (frame.contains("IMALIVE"))
        return;
    if (frame.contains("STOP")) {
        // What has not been said yet is not said any more.
        steps.resize(1);
        say("|EOF~|");
        return;
    }
    ++exchanges;
    const QByteArray bytes = PracticeAnswer(frame);
    if (random.bounded(oneIn) != 0) {
        answer(bytes);
        return;
    }
    const auto fault = static_cast<Fault>(random.bounded(faultCount));
    ++counts[fault];
    misbehave(fault, bytes);
}

/// In two pieces, and now and then in more.
void LongCourt::answer(const QByteArray &bytes)
{
    constexpr int oneInPieces = 16;
    const bool whole = random.bounded(oneInPieces) != 0;
    say(bytes, whole ? 0 : 1 + random.bounded(static_cast<int>(bytes.size())));
}

void LongCourt::misbehave(Fault fault, const QByteArray &bytes)
{
    const QByteArray half = bytes.left(random.bounded(static_cast<int>(bytes.size()) + 1));
    switch (fault) {
    case Fault::Cut:
    case Fault::Reset:
    case Fault::Refused:
    case Fault::Unheard:
        say(half);
        end(fault == Fault::Reset);
        closeDoors(fault);
        return;
    case Fault::Silence:
        letTimePass(secondsOfSilenceATurn);
        return;
    case Fault::Stall:
        say(half + "|x");
        for (int i = 0; i < turnsOfStall; ++i)
            steps.append([] {});
        end(false);
        return;
    case Fault::Junk: {
        QByteArray junk;
        for (int i = 0; i < junkBytes; ++i)
            junk.append(static_cast<char>(random.bounded(256)));
        say(junk + '|');
        say(bytes);
        return;
    }
    case Fault::Late:
        letTimePass(secondsOfSilenceATurn);
        say(bytes);
        return;
    case Fault::Twice:
        say(bytes);
        say(bytes);
        return;
    case Fault::ErrorRow:
        say("|ERROR ~The court is down~||EOF~|");
        return;
    case Fault::Slow:
        say(bytes.left(slowBytes), 1);
        say(bytes.mid(slowBytes));
        return;
    case Fault::Ping:
        say("|0000DIAG001\xA6|");
        say(bytes);
        return;
    case Fault::Unsent:
        steps.removeFirst();
        letTimePass(secondsOfSilenceATurn);
        steps.append([this] { Q_EMIT socket->SendComplete(); });
        say(bytes);
        return;
    }
}

/// The bytes arrive in pieces of this size, one a turn; 0 for all at once.
void LongCourt::say(const QByteArray &bytes, qsizetype piece)
{
    const qsizetype size = piece > 0 ? piece : qMax<qsizetype>(1, bytes.size());
    for (qsizetype at = 0; at < bytes.size(); at += size)
        steps.append([this, part = bytes.mid(at, size)] { socket->Arrive(part); });
}

void LongCourt::end(bool withError)
{
    steps.append([this, withError] {
        if (socket->state != SocketState::Connected)
            return;
        // What was not written is over, too.
        Q_EMIT socket->SendComplete();
        if (withError) {
            socket->state = SocketState::Closing;
            Q_EMIT socket->Error(104, u"Connection reset by peer"_s);
        }
        socket->PeerCloses();
    });
}

void LongCourt::closeDoors(Fault how)
{
    if (how != Fault::Refused && how != Fault::Unheard)
        return;
    refuses = how == Fault::Refused;
    closedDoors = 1 + random.bounded(mostClosedDoors);
}

void LongCourt::letTimePass(double seconds)
{
    turns.start(0);
    for (int i = 0; i < turnsOfSilence; ++i)
        steps.append([this, seconds] { time.Advance(seconds); });
}

void LongCourt::takeStep()
{
    if (steps.isEmpty() || !socket) {
        steps.clear();
        turns.stop();
        return;
    }
    // A step may let others be made, or take all of them away.
    const Step step = steps.takeFirst();
    step();
}
