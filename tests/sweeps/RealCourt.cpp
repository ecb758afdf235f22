#include "sweeps/RealCourt.h"

#include "support/TestClock.h"

#include <QTcpSocket>

#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {
constexpr double secondsATurn = 0.02;
/// In so many turns what was sent has been read, or the program has come to an end of its own.
constexpr int turnsBetweenPieces = 20;
constexpr int turnsBehindReply = 200;

/// Closes a connection so that the other end finds it broken, and not ended.
void breakConnection(QTcpSocket *socket)
{
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    if (setsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
                   sizeof(atOnce))
        != 0)
        qFatal("the connection cannot be broken");
    socket->abort();
}
} // namespace

RealCourt::RealCourt(const Conversation &conversation, TestClock &clock)
    : talk(conversation), time(clock)
{
    connect(&server, &QTcpServer::newConnection, this, &RealCourt::accept);
    connect(&turns, &QTimer::timeout, this, &RealCourt::turn);
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("the court cannot listen");
    turns.start(0);
}

RealCourt::~RealCourt() = default;

void RealCourt::accept()
{
    client = server.nextPendingConnection();
    client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(client, &QTcpSocket::readyRead, this, &RealCourt::readRequests);
}

void RealCourt::readRequests()
{
    received += client->readAll();
    for (qsizetype end = received.indexOf('|', 1); end > 0; end = received.indexOf('|', 1)) {
        const QByteArray frame = received.left(end + 1);
        received.remove(0, end + 1);
        hear(frame);
    }
}

void RealCourt::hear(const QByteArray &frame)
{
    if (frame.contains("STOP"))
        return;
    const qsizetype place = heard++;
    // The connection is about to end.
    if (place > talk.Before.size() && CameOf(talk.Reply, talk.Happens).Lost)
        return;
    if (place != talk.Before.size()) {
        send(place < talk.Before.size() ? talk.Before[place] : talk.After);
        return;
    }
    if (frame != talk.Request)
        complaints.append(u"asked "_s + QString::fromLatin1(frame));
    deliver();
}

void RealCourt::deliver()
{
    clockRuns = false;
    const Came came = CameOf(talk.Reply, talk.Happens);
    // What is over before the end of the connection can be seen stays over; otherwise the end may
    // overtake what was not read.
    const bool waits = talk.Happens.How == Way::Divided || came.Tokens >= talk.NeededTokens;
    for (const QByteArray &piece : came.Pieces)
        steps.append([this, piece, waits] {
            send(piece);
            wait = waits ? turnsBetweenPieces : 1;
        });
    if (came.Lost)
        steps.append([this] { breakLink(); });
    steps.append([this] { wait = turnsBehindReply; });
    steps.append([this] { clockRuns = true; });
}

void RealCourt::send(const QByteArray &bytes)
{
    client->write(bytes);
    client->flush();
}

void RealCourt::breakLink()
{
    if (talk.Happens.How == Way::Reset)
        breakConnection(client);
    else
        client->disconnectFromHost();
}

void RealCourt::turn()
{
    if (clockRuns)
        time.Advance(secondsATurn);
    if (wait > 0)
        --wait;
    else if (!steps.isEmpty())
        steps.takeFirst()();
}
