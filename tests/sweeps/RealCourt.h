#pragma once

#include "sweeps/SweptCourt.h"

#include <QTcpServer>

class QTcpSocket;

/// The court of a conversation at the other end of a real connection, in the test's own process. It
/// can close its side, break the connection and divide a reply; its silence would be nothing that a
/// real connection has of its own.
class RealCourt : public QObject
{
    Q_OBJECT
public:
    RealCourt(const Conversation &conversation, TestClock &clock);
    ~RealCourt() override;

    quint16 Port() const { return server.serverPort(); }
    /// What was asked and should not have been, "" for nothing.
    QString Complaints() const { return complaints.join(QStringLiteral("; ")); }

private:
    using Step = std::function<void()>;

    void accept();
    void readRequests();
    void hear(const QByteArray &frame);
    void deliver();
    void send(const QByteArray &bytes);
    void breakLink();
    void turn();

    Conversation talk;
    TestClock &time;
    QTcpServer server;
    QTcpSocket *client = nullptr;
    QTimer turns;
    QList<Step> steps;
    QByteArray received;
    QStringList complaints;
    qsizetype heard = 0;
    int wait = 0;          ///< turns up to the next step
    bool clockRuns = true; ///< not while the exchange goes on that is swept
};
