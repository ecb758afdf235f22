#include "support/ScriptedCourt.h"

#include "core/Options.h"
#include "core/Windows1252.h"

#include <QTcpSocket>

#include <utility>

using namespace Qt::StringLiterals;

ScriptedCourt::ScriptedCourt()
{
    connect(&server, &QTcpServer::newConnection, this, &ScriptedCourt::accept);
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("the scripted court cannot listen");
}

ScriptedCourt::~ScriptedCourt()
{
    qDeleteAll(script);
}

ScriptedCourt::Exchange &ScriptedCourt::Exchange::Reply(const QStringList &tokens)
{
    reply += Tokens(tokens);
    return *this;
}

ScriptedCourt::Exchange &ScriptedCourt::Exchange::ReplyBytes(const QByteArray &bytes)
{
    reply += bytes;
    return *this;
}

ScriptedCourt::Exchange &ScriptedCourt::Exchange::Drop()
{
    drops = true;
    return *this;
}

ScriptedCourt::Exchange &ScriptedCourt::Exchange::Late()
{
    late = true;
    return *this;
}

QByteArray ScriptedCourt::Tokens(const QStringList &tokens)
{
    QByteArray bytes;
    for (const QString &token : tokens)
        bytes += '|' + ToWindows1252(token) + '|';
    return bytes;
}

ScriptedCourt::Exchange &ScriptedCourt::Expect(const QString &request)
{
    auto *exchange = new Exchange;
    exchange->request = ToWindows1252(request);
    script.append(exchange);
    return *exchange;
}

void ScriptedCourt::ExpectLogin(const QString &userName, const QString &password)
{
    Expect(u"LOGON¦"_s + userName + u'¦' + password + u"¦AppVer-9.00¦"_s).Reply({u"EOF~"_s});
    Expect(u"GETINIVAL¦"_s).Reply({u"EOF~"_s});
    Expect(u"GETMSG¦"_s).Reply({u"EOF~"_s});
    Expect(u"GETCLIENTACCTGOPT~"_s).Reply({u"FALSE~"_s, u"EOF~"_s});
}

void ScriptedCourt::PointSettingsHere() const
{
    SaveOptionStr(u"Communications"_s, u"HVServerIP1"_s, u"127.0.0.1"_s);
    SaveOptionStr(u"Communications"_s, u"HVServerPort"_s, QString::number(Port()));
}

void ScriptedCourt::accept()
{
    QTcpSocket *connection = server.nextPendingConnection();
    if (client)
        client->disconnect(this);
    client = connection;
    received.clear();
    connection->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    connect(connection, &QTcpSocket::readyRead, this, &ScriptedCourt::readRequests);
    connect(connection, &QTcpSocket::disconnected, this, [this, connection] {
        if (client == connection)
            client = nullptr;
        connection->deleteLater();
    });
}

void ScriptedCourt::readRequests()
{
    received += client->readAll();
    for (;;) {
        const qsizetype opening = received.indexOf('|');
        const qsizetype closing = opening < 0 ? -1 : received.indexOf('|', opening + 1);
        if (closing < 0)
            return;
        const QByteArray request = received.mid(opening + 1, closing - opening - 1);
        received.remove(0, closing + 1);
        answer(request);
        if (!client)
            return;
    }
}

void ScriptedCourt::answer(const QByteArray &request)
{
    requests.append(FromWindows1252(request));
    if (request == ToWindows1252(u"IMALIVE¦"_s))
        return;
    if (next >= script.size()) {
        complaints.append(u"unexpected request: "_s + requests.last());
        return;
    }
    const Exchange &exchange = *script[next++];
    if (exchange.request != request)
        complaints.append(u"expected "_s + FromWindows1252(exchange.request) + u", got "_s
                          + requests.last());
    if (exchange.late)
        owed = &exchange;
    else
        reply(exchange);
}

void ScriptedCourt::reply(const Exchange &exchange)
{
    Send(exchange.reply);
    if (exchange.drops && client)
        client->disconnectFromHost();
}

void ScriptedCourt::AnswerNow()
{
    if (const Exchange *late = std::exchange(owed, nullptr))
        reply(*late);
}

void ScriptedCourt::Send(const QByteArray &bytes)
{
    if (client) {
        client->write(bytes);
        client->flush();
    }
}

void ScriptedCourt::SendTokens(const QStringList &tokens)
{
    Send(Tokens(tokens));
}

void ScriptedCourt::DropClient()
{
    if (client)
        client->abort();
}

void ScriptedCourt::Refuse()
{
    server.close();
}

QString ScriptedCourt::Complaints() const
{
    QStringList all = complaints;
    for (qsizetype i = next; i < script.size(); ++i)
        all.append(u"never asked: "_s + FromWindows1252(script[i]->request));
    return all.join(u"; "_s);
}
