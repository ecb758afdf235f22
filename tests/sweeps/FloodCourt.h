#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QtGlobal>

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// What a court sends and sends: piece n for each n below Pieces, and then the end.
struct Flood
{
    qint64 Pieces = 0;
    std::function<QByteArray(qint64 number)> Piece; ///< called in the court's thread
    QByteArray End = QByteArrayLiteral("|EOF~|");
    /// A request in the middle of it, one to stop, is followed by so many pieces more and the end;
    /// -1 when nothing comes of it.
    qint64 PiecesBehindStop = 0;
    /// Each piece waits until the client's machine has taken the one before, and travels alone.
    bool Apart = false;
};

/// A court in a thread of its own that answers each request with a flood, over a blocking socket
/// and nothing else: whatever the program does, it is not this that holds it up. One client at a
/// time.
class FloodCourt
{
public:
    FloodCourt();
    ~FloodCourt();
    Q_DISABLE_COPY_MOVE(FloodCourt)

    quint16 Port() const { return port; }

    /// What answers the next request that has no answer yet; one without any gets the end mark.
    void Answer(const Flood &flood);
    void Answer(const QByteArray &bytes) { Answer(Flood{.Pieces = 0, .Piece = {}, .End = bytes}); }
    /// Sends this now, unasked.
    void Send(const Flood &flood);
    /// The client's bytes stay where they are from now on.
    void ReadNothing() { deaf = true; }

    /// The frames that came, with their bars.
    QByteArrayList Requests();
    /// Nothing is being sent, and nothing waits to be.
    bool IsIdle() const { return busy == 0; }
    qint64 BytesSent() const { return sent; }
    /// So many bytes had been sent when the last request in the middle of a flood was read.
    qint64 BytesAtStop() const { return atStop; }

private:
    void serve();
    void serveClient();
    void next();
    void begin(const Flood &flood);
    bool sendOn();
    bool readOn();
    void hear(const QByteArray &frame);
    void stopFlood();
    void wake();

    int listening = -1;
    int client = -1;
    int wakes = -1;
    quint16 port = 0;
    std::atomic<bool> over{false};
    std::atomic<bool> deaf{false};
    std::atomic<int> busy{0};
    std::atomic<qint64> sent{0};
    std::atomic<qint64> atStop{0};

    std::mutex mutex; ///< for these three
    std::deque<Flood> answers;
    std::deque<Flood> unasked;
    QByteArrayList requests;

    // Of the thread
    Flood current;
    bool flooding = false;
    qint64 number = 0;
    bool endQueued = false;
    QByteArray out;
    qsizetype written = 0;
    QByteArray received;
    std::thread thread;
};
