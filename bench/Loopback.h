#pragma once

#include <QByteArrayView>

struct sockaddr_in;

// Blocking sockets on this machine and nothing else: what every server and client of a benchmark
// begins with. A call that fails ends the program, as no figure would mean anything.

void Require(bool success);
/// This machine, at this port; 0 stands for any.
sockaddr_in LoopbackAddress(quint16 port);
/// Sends all of it. False when the other side has gone.
bool SendAll(int connection, QByteArrayView bytes);

/// A socket that listens on a port of its own.
class ListeningSocket
{
public:
    ListeningSocket();
    ~ListeningSocket();
    ListeningSocket(const ListeningSocket &) = delete;
    ListeningSocket &operator=(const ListeningSocket &) = delete;

    quint16 Port() const { return port; }
    /// The next connection; below 0 once it has been stopped.
    int Accept() const;
    /// Ends the waiting for a connection, in whatever thread.
    void Stop() const;

private:
    int listening;
    quint16 port = 0;
};
