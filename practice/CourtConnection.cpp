#include "practice/CourtConnection.h"

#include "core/Windows1252.h"
#include "practice/Grumble.h"

#include <QDate>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Practice {
namespace {
// No more than this much of a reply lies in the socket, and this much is made at a time.
constexpr qint64 socketFull = 64 * 1024;
constexpr qsizetype batch = 16 * 1024;

// Of an exchange that the client has long given up.
constexpr QByteArrayView strayReply = "|A ROW OF ANOTHER REPLY~||EOF~|";

// So many writes, then the other clients have their turn.
constexpr int writesATurn = 256;

// A client has one exchange going; one that has so many is not one of ours.
constexpr std::size_t mostWaiting = 1'000;

// A client forgets what it holds when it sees a ping. So a ping keeps away from a reply that may
// still be on its way, and a reply keeps away from a ping that has not been answered.
constexpr qint64 quietBeforePing = 500;
constexpr auto answerLimit = 1s;
} // namespace

CourtConnection::CourtConnection(QTcpSocket &socket, const Population &population,
                                 const Switches &switches, std::shared_ptr<TabMemory> memory,
                                 QObject *parent)
    : QObject(parent), link(socket),
      conversation(population, QDate::currentDate(), std::move(memory), switches.documentPace),
      gate(switches)
{
    link.setParent(this);
    link.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    leaveBehind = switches.leaveBehind;
    oneByOne = switches.split || switches.drip || switches.dropAfter || switches.stallAfter;
    clock.start();

    pumpTimer.setSingleShot(true);
    pauseTimer.setSingleShot(true);
    answerTimer.setSingleShot(true);
    connect(&pumpTimer, &QTimer::timeout, this, &CourtConnection::pump);
    connect(&pauseTimer, &QTimer::timeout, this, &CourtConnection::pump);
    connect(&answerTimer, &QTimer::timeout, this, &CourtConnection::pump);
    connect(&link, &QTcpSocket::readyRead, this, &CourtConnection::read);
    connect(&link, &QTcpSocket::bytesWritten, this, [this] { pumpTimer.start(0); });
    connect(&link, &QTcpSocket::disconnected, this, &CourtConnection::deleteLater);
    if (switches.pingEvery) {
        connect(&pingTimer, &QTimer::timeout, this, &CourtConnection::ping);
        pingTimer.start(*switches.pingEvery);
    }
    read();
}

void CourtConnection::read()
{
    if (hungUp) {
        link.readAll();
        return;
    }
    reader.Append(link.readAll());
    while (const std::optional<QByteArray> request = reader.Next()) {
        take(*request);
        if (hungUp)
            return;
    }
    if (reader.TooLong())
        cutOff(u"a request of more than %1 bytes"_s.arg(FrameReader::longestFrame));
    else
        pump();
}

void CourtConnection::take(const QByteArray &request)
{
    switch (Conversation::TurnOf(request)) {
    case Conversation::Turn::Alive:
        pingOpen = false;
        pingComplained = false;
        answerTimer.stop();
        return;
    case Conversation::Turn::Stops:
        stopReply();
        return;
    case Conversation::Turn::Waits:
        break;
    }
    if (waiting.size() >= mostWaiting) {
        cutOff(u"more than %1 requests at a time"_s.arg(mostWaiting));
        return;
    }
    waiting.push_back(request);
}

/// Ends the running reply with an end mark. Without one nothing is said: the client would take the
/// mark for the end of its next reply.
void CourtConnection::stopReply()
{
    // What it is to stop may have come in the same breath and not have begun.
    if ((!reply && !startNext()) || dropping)
        return;
    pauseTimer.stop();
    silent = false;
    piece.reset();
    leftBehind = false;
    reply = reply->Stopped();
}

/// Begins the reply to the next request that waits; false when none does, or one is running.
bool CourtConnection::startNext()
{
    // Nothing will come of a silent reply: who asks again has given it up.
    if ((reply && !silent) || waiting.empty())
        return false;
    silent = false;
    reply = conversation.Answer(waiting.front());
    waiting.pop_front();
    return true;
}

/// Makes and writes as much as the socket, the faults and the script let through now.
void CourtConnection::pump()
{
    // Writing can bring the socket's signals about, and they come here.
    if (pumping || hungUp || answerTimer.isActive())
        return;
    pumping = true;
    for (int writes = 0; link.state() == QAbstractSocket::ConnectedState; ++writes) {
        if (writes == writesATurn) {
            pumpTimer.start(0);
            break;
        }
        if (outgoing.isEmpty())
            fill();
        if (outgoing.isEmpty() && dropping) {
            hangUp();
            break;
        }
        if (outgoing.isEmpty() ? !startNext() : !write())
            break;
    }
    pumping = false;
}

/// Writes one chunk of what is outgoing; false when nothing may go out now.
bool CourtConnection::write()
{
    if (gate.MustDrop()) {
        hangUp();
        return false;
    }
    if (gate.Stalled() || link.bytesToWrite() >= socketFull)
        return false;
    const qint64 allowed = gate.Allowance(outgoing.size(), clock.elapsed());
    if (allowed == 0) {
        pumpTimer.start(gate.Wait());
        return false;
    }
    const qint64 written = link.write(outgoing.constData(), allowed);
    if (written < 0)
        return false;
    gate.Sent(written);
    outgoing.remove(0, written);
    link.flush();
    lastReplyAt = clock.elapsed();
    if (gate.MustDrop()) {
        hangUp();
        return false;
    }
    return true;
}

/// Sends a piece that is to stay whole, once what lies before it is on its way: the link takes part
/// of what is written only when it is full.
void CourtConnection::release()
{
    if (piece && outgoing.isEmpty() && link.bytesToWrite() == 0)
        outgoing = *std::exchange(piece, std::nullopt);
}

/// Makes the next part of the running reply.
void CourtConnection::fill()
{
    release();
    if (!outgoing.isEmpty())
        return;
    while (reply && !piece && !silent && !dropping && !pauseTimer.isActive()) {
        const ReplyStep step = reply->Next();
        switch (step.kind) {
        case ReplyStep::Kind::Bytes:
            outgoing += step.bytes;
            if (oneByOne || outgoing.size() >= batch)
                return;
            break;
        case ReplyStep::Kind::Piece:
            piece = step.bytes;
            // In one breath with the end of the reply: later it would meet the next request.
            leftBehind = leaveBehind && reply->IsOver();
            if (leftBehind)
                *piece += strayReply;
            break;
        case ReplyStep::Kind::Token:
            outgoing += '|' + ToWindows1252(step.text) + '|';
            if (oneByOne || outgoing.size() >= batch)
                return;
            break;
        case ReplyStep::Kind::Pause:
            pauseTimer.start(step.milliseconds);
            break;
        case ReplyStep::Kind::Silence:
            silent = true;
            break;
        case ReplyStep::Kind::Drop:
            dropping = true;
            break;
        case ReplyStep::Kind::End:
            reply.reset();
            if (leaveBehind && !std::exchange(leftBehind, false))
                outgoing += strayReply;
            break;
        }
    }
    release();
}

void CourtConnection::ping()
{
    const bool idle = !reply && outgoing.isEmpty() && waiting.empty() && link.bytesToWrite() == 0
                      && clock.elapsed() - lastReplyAt >= quietBeforePing;
    if (hungUp || !idle || gate.Stalled())
        return;
    if (pingOpen && !pingComplained) {
        Grumble(u"port %1: a ping was not answered"_s.arg(link.peerPort()));
        pingComplained = true;
    }
    pingOpen = true;
    answerTimer.start(answerLimit);
    link.write("|DIAG001|");
    link.flush();
}

/// Closes the connection once what has been written is on its way.
void CourtConnection::hangUp()
{
    hungUp = true;
    reply.reset();
    outgoing.clear();
    link.disconnectFromHost();
}

void CourtConnection::cutOff(const QString &why)
{
    Grumble(u"port %1: %2, connection closed"_s.arg(link.peerPort()).arg(why));
    hungUp = true;
    link.abort();
}
} // namespace Practice
