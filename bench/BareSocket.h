#pragma once

#include "Loopback.h"

#include <QByteArray>

#include <atomic>
#include <functional>
#include <thread>

/// A server in a thread of its own that answers every frame with the same reply, over blocking
/// sockets and nothing else: as quick as an answer can be.
class BareServer
{
public:
    explicit BareServer(QByteArray reply);
    ~BareServer();

    quint16 Port() const { return listening.Port(); }

private:
    void serve();
    void converse(int connection) const;

    QByteArray reply;
    ListeningSocket listening;
    std::thread thread;
};

/// A blocking client: what an exchange costs without a program around it.
class BareClient
{
public:
    explicit BareClient(quint16 port);
    ~BareClient();

    /// Sends a frame and reads `replyBytes` bytes.
    void Exchange(const QByteArray &frame, qsizetype replyBytes) const;

    /// Sends a frame and hands over what stands between the bars, token by token, until `take` says
    /// that it was the last.
    void ReadTokens(const QByteArray &frame,
                    const std::function<bool(const QByteArray &token)> &take) const;

    /// Sends a frame and writes `replyBytes` bytes of what comes into a file.
    void ReadToFile(const QByteArray &frame, qsizetype replyBytes, const char *path) const;

private:
    int connection = -1;
};

/// Appends a line to a file that is opened and closed for it: what the log of one request costs
/// without a program around it.
void BareLogLine(const char *path, const QByteArray &line);
