#pragma once

#include "sweeps/ReplyCuts.h"

#include <QByteArrayList>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

class FakeSocket;
class TestClock;

/// The conversation that a court holds in one case of the sweep.
struct Conversation
{
    QByteArrayList Before; ///< replies to what is asked ahead of the exchange that is swept
    QByteArray After;      ///< the reply to whatever is asked behind it
    QByteArray Request;    ///< of that exchange, with its bars
    QByteArray Reply;
    Cut Happens;
    double LimitSeconds = 60.0; ///< of silence
    bool PartHolds = true;      ///< part of a token keeps the limit from running out
    qsizetype NeededTokens = 0; ///< with so many tokens the exchange is over
};

/// The court behind every FakeSocket that frmWinsock makes from now on, as long as it lives. One
/// thing happens at a time, and the next only when the program has come back to waiting; so it
/// needs no time, and what the program has read by then is known.
///
/// Its clock stands still while the exchange that is swept goes on, but for the silence that
/// belongs to it; otherwise it runs, for the pauses between requests.
class SweptCourt : public QObject
{
    Q_OBJECT
public:
    /// `isOver` tells whether the program has stopped waiting for the exchange.
    SweptCourt(const Conversation &conversation, TestClock &clock, std::function<bool()> isOver);
    ~SweptCourt() override;

    /// Makes this one the court behind every socket of later loads, connected or about to be.
    void Install(bool connected);

    /// What did not happen as the rules of the wire have it, "" when all did.
    QString Complaints() const;

private:
    using Step = std::function<void()>;

    void hear(FakeSocket *from, const QByteArray &frame);
    void turn();
    void deliver();
    void send(const QByteArray &bytes);
    void breakLink();
    void keepSilent();
    bool isDone() const;
    void expectWaiting(const char *when);

    Conversation talk;
    TestClock &time;
    std::function<bool()> over;
    FakeSocket *socket = nullptr;
    QTimer turns;
    QList<Step> steps;
    QByteArrayList requests;
    QStringList complaints;
    qsizetype buffered = 0;
    int quietTurns = 0;
    int pings = 0;
    int stops = 0;
    bool sweeping = false;
};
