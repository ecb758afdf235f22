#pragma once

#include "practice/CommandLine.h"
#include "practice/Conversation.h"
#include "practice/FrameReader.h"
#include "practice/Reply.h"
#include "practice/SendGate.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <deque>
#include <optional>

namespace Practice {
/// One client's socket. Requests are answered one after the other, in the order in which they come;
/// a reply is made no faster than the client takes it, so that a long one costs no memory and a
/// stop ends it at once. Deletes itself when the link is gone.
class CourtConnection : public QObject
{
public:
    /// Takes `socket` over. `population` must outlive the connection.
    CourtConnection(QTcpSocket &socket, const Population &population, const Switches &switches,
                    std::shared_ptr<TabMemory> memory, QObject *parent);

private:
    void read();
    void take(const QByteArray &request);
    void stopReply();

    bool startNext();
    void pump();
    bool write();
    void fill();
    void release();

    void ping();
    void hangUp();
    void cutOff(const QString &why);

    QTcpSocket &link;
    FrameReader reader;
    Conversation conversation;
    std::deque<QByteArray> waiting;

    std::optional<Reply> reply;
    std::optional<QByteArray>
        piece;                ///< of the running reply: to be sent once nothing lies before it
    bool silent = false;      ///< the running reply says nothing more
    bool dropping = false;    ///< the running reply ends with the connection
    QByteArray outgoing;      ///< of the running reply: made, and not yet handed to the socket
    bool leaveBehind = false; ///< each reply is followed by one that nobody has asked for
    bool leftBehind = false;  ///< the running one is already
    bool oneByOne = false;    ///< a fault counts bytes, so tokens are made one at a time
    bool pumping = false;
    bool hungUp = false;
    SendGate gate;
    QTimer pumpTimer;
    QTimer pauseTimer;

    QTimer pingTimer;
    QTimer answerTimer; ///< runs while replies wait for the answer to a ping
    bool pingOpen = false;
    bool pingComplained = false;
    QElapsedTimer clock;
    qint64 lastReplyAt = 0;
};
} // namespace Practice
