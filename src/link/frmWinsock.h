#pragma once

#include "link/ServerSocket.h"

#include <QObject>
#include <QTimer>

#include <functional>

/// The signals of the link to the layers above. The object outlives every load of frmWinsock, so
/// that connecting to it once, at start, is enough.
class LinkEvents : public QObject
{
    Q_OBJECT
public:
    static LinkEvents &Of();

Q_SIGNALS:
    /// The link has been idle for as long as the settings allow.
    void IdleLimitReached();
    /// The link was closed from here because nothing good could come of it any more. Whoever shows
    /// whether there is a connection looks again now.
    void LinkDropped();
    /// A request, without its bars, has begun an exchange. It was handed to the socket whole.
    void RequestSent(const QString &request);
};

/// Keeps the one socket and the count of idle minutes. A service without a window.
///
/// It is loaded by the first reference and unloaded when the link is closed; `Global.sckServer` is
/// its socket while it is loaded and nothing otherwise.
class frmWinsock : public QObject
{
    Q_OBJECT
public:
    /// The one instance, loaded now if it was not.
    static frmWinsock &Form();
    static bool IsLoaded();
    static void Unload();

    /// Who makes the sockets of later loads; an empty function goes back to real ones.
    static void SetSocketFactory(std::function<ServerSocket *(QObject *parent)> factory);

    /// While it lives, the receive buffer takes so many bytes at most before the socket has to
    /// wait. What has waited for that is taken on the turn after its end.
    class BacklogBound
    {
    public:
        explicit BacklogBound(qsizetype bytes);
        ~BacklogBound();
        Q_DISABLE_COPY_MOVE(BacklogBound)

    private:
        qsizetype before;
    };

    /// Takes what the socket holds, as long as the receive buffer has room. An arrival that found
    /// the buffer full left its data with the socket: whoever empties the buffer calls this.
    void TakeArrivedData();

    /// Throws away what has arrived and was not consumed: what the receive buffer holds, what the
    /// socket holds, and what has reached this machine without an event that reports it yet. A ping
    /// in it is answered. Without a socket only the buffer is emptied.
    static void DiscardArrivedData();

    /// Starts the idle count over.
    void RestartInactivity();
    void StopInactivity();

    ServerSocket *CSock;
    QTimer *TmrInactivity;        ///< one minute a tick
    QString TmrInactivityTag;     ///< idle minutes so far, as text
    QString strInactivityTimeOut; ///< the most idle minutes, compared as text

private:
    frmWinsock();
    void DataArrival(qint64 bytesTotal);
    void SendCompleted();
    void SocketClosed();
    void SocketError(int number, const QString &description);
    void InactivityTick();
    void noteTraffic();
};

/// Loads frmWinsock (True) or unloads it (False).
void LoadSocketForm(bool load);

/// The most that the receive buffer takes before the socket has to wait, in bytes. A token longer
/// than this is refused: no reply is, and a server that sends one would take all memory.
constexpr qsizetype maximumBacklogBytes = 32 * 1024 * 1024;
/// The same while a reply of tokens is read and a whole one is there: what stands behind it can
/// wait, and a stop is over the sooner the less of it there is.
constexpr qsizetype maximumUnreadBytes = 1024 * 1024;
/// The same while a reply of bytes is read. It has no tokens that must fit, and what has gathered,
/// as behind an open box, is handed over as one piece.
constexpr qsizetype maximumPieceBytes = 4 * 1024 * 1024;
