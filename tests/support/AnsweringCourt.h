#pragma once

#include <QByteArrayList>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

class FakeSocket;
class ServerSocket;

/// The court behind a FakeSocket that answers every request alike. One thing happens a turn of the
/// event loop: a send is complete, or a token arrives, the end mark usually in two pieces. A
/// request to stop it takes note of: the replies come all the same, as from a court that was nearly
/// done.
class AnsweringCourt : public QObject
{
    Q_OBJECT
public:
    /// The tokens that answer a frame.
    using Answers = std::function<QStringList(const QByteArray &frame)>;

    /// How the end mark of a reply comes.
    enum class EndMark { InTwo, Whole };

    /// From now on there is one behind every socket that frmWinsock makes. `onRequest` is called at
    /// every request, before its answer.
    static void Install(const Answers &answers, const std::function<void()> &onRequest,
                        EndMark endMark = EndMark::InTwo);
    /// The court behind this socket.
    static AnsweringCourt *Behind(ServerSocket *socket);

    /// From now on nothing comes but the rest of a token.
    void FallSilent() { silent = true; }
    /// Something that the court had to say has not come.
    bool OwesAnswers() const { return owes; }

private:
    explicit AnsweringCourt(FakeSocket *socket);

    void hear(const QByteArray &frame);
    void takeStep();

    FakeSocket *socket;
    QTimer turns;
    QByteArrayList steps;
    EndMark endMarkComes = EndMark::InTwo;
    bool silent = false;
    bool owes = false;
    Answers answersOf;
    std::function<void()> requested;
};
