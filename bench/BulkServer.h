#pragma once

#include "Loopback.h"

#include <QByteArray>

#include <thread>

/// A server in a thread of its own that answers every frame with one large document, over blocking
/// sockets and nothing else: as quick as a document can come. Head and end mark each come in one
/// piece.
class BulkServer
{
public:
    explicit BulkServer(qsizetype documentBytes);
    ~BulkServer();

    quint16 Port() const { return listening.Port(); }
    /// Bytes of a whole answer.
    qsizetype AnswerBytes() const { return head.size() + bytes + tail.size(); }

private:
    void serve();
    void answer(int connection) const;

    const QByteArray head;
    const QByteArray tail;
    const qsizetype bytes;
    ListeningSocket listening;
    std::thread thread;
};
