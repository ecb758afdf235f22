#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

class FakeSocket;

/// The server behind every socket that the program makes: it answers what the script says, or, when
/// the script wants it so, what the practice court would, in pieces of any size.
class SessionCourt
{
public:
    /// How the next connects come out.
    enum class Door { Opens, Refuses, KeepsSilent };

    /// A new court, to which nothing is connected.
    SessionCourt();
    ~SessionCourt();
    Q_DISABLE_COPY_MOVE(SessionCourt)

    Door NextConnects = Door::Opens;
    /// Every request is answered by itself, in pieces of so many bytes; 0 for none of them.
    qsizetype AnswersInPieces = 0;
    bool CompletesSends = true;

    /// What the practice court answers to the last request comes next, in pieces of so many bytes.
    void Answer(qsizetype piece);
    void Arrive(const QByteArray &bytes);
    /// Bytes that reach the machine without an event that tells of them.
    void HoldBack(const QByteArray &bytes);
    void CompleteSend();
    void Close();
    void Reset();

    bool HasPiece() const { return !pieces.isEmpty(); }
    void SendPiece();
    /// Bytes that have arrived over all connections.
    qsizetype Arrived() const { return arrived; }

private:
    void prepare(FakeSocket *socket);
    void hear(const QByteArray &frame);
    void sayInPieces(const QByteArray &bytes, qsizetype size);

    QByteArray lastFrame;
    QByteArrayList pieces;
    qsizetype arrived = 0;
};
