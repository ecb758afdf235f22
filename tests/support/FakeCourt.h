#pragma once

#include <QByteArrayList>
#include <QStringList>

#include <functional>

class FakeSocket;

/// A court without a network: what it does with the connects and requests of every socket that
/// frmWinsock makes, and what came.
struct FakeCourt
{
    /// From now on a new court is behind every socket, none of which is connected yet.
    static void Install();
    static FakeCourt &Current();

    bool refuses = false;
    bool connects = true;
    QByteArrayList replies;     ///< one a request, from the front; a request beyond them gets none
    qsizetype dropsBehind = -1; ///< the server closes behind its reply to this request
    QByteArrayList requests;    ///< all that came, bars included
    std::function<void()> onRequest; ///< called for each, before its reply
    QStringList connectedTo;         ///< "host:port" of each attempt

private:
    void hear(FakeSocket *socket, const QByteArray &frame);
};
