#pragma once

#include <QByteArrayList>
#include <QMap>
#include <QObject>
#include <QRandomGenerator>
#include <QTimer>

#include <functional>

class FakeSocket;
class TestClock;

/// The court behind every socket of a long day. It answers as the practice court does, but for one
/// request in so many, with which something goes wrong.
class LongCourt : public QObject
{
    Q_OBJECT
public:
    /// What can go wrong with an exchange.
    enum class Fault {
        Cut,      ///< the link ends in the middle of the reply
        Reset,    ///< the same, with an error
        Refused,  ///< the same, and the next connects are refused
        Unheard,  ///< the same, and the next connects are not answered
        Silence,  ///< nothing comes
        Stall,    ///< part of a token, and nothing more until the link ends
        Junk,     ///< something else before the reply
        Late,     ///< the reply, when nobody waits for it any more
        Twice,    ///< the reply, and once more
        ErrorRow, ///< an error in the place of the reply
        Slow,     ///< byte after byte
        Ping,     ///< the court wants to know whether somebody is there
        Unsent    ///< the request does not leave for a long time
    };
    Q_ENUM(Fault)
    static constexpr int faultCount = 13;

    /// One exchange in `rarity` goes wrong.
    LongCourt(TestClock &clock, QRandomGenerator &dice, int rarity);
    ~LongCourt() override;

    /// Requests that came so far, those that stop another left out.
    qint64 Exchanges() const { return exchanges; }
    /// How often something went wrong.
    int Count(Fault fault) const { return counts.value(fault); }
    int Faults() const;
    static QString NameOf(Fault fault);
    /// The court closes the link.
    void Close();
    /// Connects are answered again from here on.
    void OpenDoors() { closedDoors = 0; }

private:
    /// Something the court does in one turn.
    using Step = std::function<void()>;

    void prepare(FakeSocket *socket);
    void hear(const QByteArray &frame);
    void answer(const QByteArray &bytes);
    void misbehave(Fault fault, const QByteArray &bytes);
    void say(const QByteArray &bytes, qsizetype piece = 0);
    void end(bool withError);
    void closeDoors(Fault how);
    void letTimePass(double seconds);
    void takeStep();

    TestClock &time;
    QRandomGenerator &random;
    const int oneIn;
    qint64 exchanges = 0;
    QMap<Fault, int> counts;
    int closedDoors = 0; ///< so many connects fail
    bool refuses = false;
    FakeSocket *socket = nullptr; ///< the newest
    QTimer turns;
    QList<Step> steps;
};
