#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTcpServer>

class QTcpSocket;

/// A court server inside the test process that holds a conversation written down beforehand:
///
///     court.Expect(u"LOGON¦U¦P¦AppVer-9.00¦"_s).Reply({u"EOF~"_s});
///
/// Requests are compared in order, byte for byte as Windows-1252. A request that was not expected,
/// or not as it was expected, is kept as a complaint; Verify() tells, and so does a request that
/// never came.
class ScriptedCourt : public QObject
{
    Q_OBJECT
public:
    ScriptedCourt();
    ~ScriptedCourt() override;

    /// One exchange of the conversation.
    class Exchange
    {
    public:
        /// Tokens, each sent in its own bars.
        Exchange &Reply(const QStringList &tokens);
        /// Bytes as they are.
        Exchange &ReplyBytes(const QByteArray &bytes);
        /// The connection is dropped behind the reply.
        Exchange &Drop();
        /// The reply waits until AnswerNow.
        Exchange &Late();

    private:
        friend class ScriptedCourt;
        QByteArray request;
        QByteArray reply;
        bool drops = false;
        bool late = false;
    };

    /// The next request that must come, without its bars.
    Exchange &Expect(const QString &request);

    /// LOGON, GETINIVAL, GETMSG and GETCLIENTACCTGOPT~ as an uneventful login has them.
    void ExpectLogin(const QString &userName, const QString &password);

    /// A reply waits for AnswerNow.
    bool OwesAnswer() const { return owed != nullptr; }
    void AnswerNow();

    /// Sends bytes to the client now, unasked.
    void Send(const QByteArray &bytes);
    void SendTokens(const QStringList &tokens);
    /// Drops the client's connection now.
    void DropClient();
    /// Stops listening: further connects are refused.
    void Refuse();

    quint16 Port() const { return server.serverPort(); }
    /// Writes this court as the one server into options.ini of the application folder.
    void PointSettingsHere() const;

    /// Every request that came, without its bars.
    const QStringList &Requests() const { return requests; }
    bool HasClient() const { return client != nullptr; }

    /// "" when the conversation went as written and to its end; otherwise what went wrong.
    QString Complaints() const;

    static QByteArray Tokens(const QStringList &tokens);

private:
    void accept();
    void readRequests();
    void answer(const QByteArray &request);
    void reply(const Exchange &exchange);

    QTcpServer server;
    QTcpSocket *client = nullptr;
    QByteArray received;
    QList<Exchange *> script;
    const Exchange *owed = nullptr;
    qsizetype next = 0;
    QStringList requests;
    QStringList complaints;
};
