#include "link/frmWinsock.h"

#include "core/ByteSearch.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/RunTimeError.h"
#include "core/Settings.h"
#include "link/ConnectState.h"
#include "link/TcpServerSocket.h"

#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
QPointer<frmWinsock> loaded;
std::function<ServerSocket *(QObject *)> socketFactory;
qsizetype mostBacklog = maximumBacklogBytes;

constexpr int inactivityTickMilliseconds = 60000;
/// A server that never stops sending is not waited for: the rest is found by whoever reads.
constexpr qint64 maximumDiscardedBytes = 64 * 1024 * 1024;
/// A server that asks and asks, and reads none of the answers, gets no more of them than this:
/// what it does not read stays with us.
constexpr qint64 maximumUnsentBytes = 4096;
constexpr QByteArrayView ping("DIAG001");
constexpr QByteArrayView documentEnd("|EOD~|");

/// What the link itself looks for in all that arrives.
struct ArrivedWords
{
    bool Ping = false;
    bool DocumentEnd = false;
};

/// In one go: there are hundreds of megabytes of a document.
ArrivedWords wordsIn(QByteArrayView chunk)
{
    constexpr qsizetype zeros = 4; // of the ping
    const auto inWord = [](char sign, char next) {
        return ((sign == '0') & (next == '0')) | ((sign == '|') & (AsSmall(next) == 'e'));
    };
    ArrivedWords words;
    FindPlace(chunk, 0, inWord, [&](qsizetype at) {
        words.Ping = words.Ping || StandsAt(chunk, at - zeros, ping);
        words.DocumentEnd = words.DocumentEnd || StandsAt(chunk, at, documentEnd);
        return words.Ping;
    });
    return words;
}

ServerSocket *makeSocket(QObject *parent)
{
    return socketFactory ? socketFactory(parent) : new TcpServerSocket(parent);
}
} // namespace

frmWinsock::BacklogBound::BacklogBound(qsizetype bytes) : before(std::exchange(mostBacklog, bytes))
{
}

frmWinsock::BacklogBound::~BacklogBound()
{
    const bool hasMoreRoom = std::exchange(mostBacklog, before) < before;
    // Nobody may come to read on, and a socket that is full tells of nothing: of no ping, and not
    // of the end of the connection.
    if (hasMoreRoom && loaded && loaded->CSock->BytesAvailable() > 0)
        QMetaObject::invokeMethod(loaded, &frmWinsock::TakeArrivedData, Qt::QueuedConnection);
}

LinkEvents &LinkEvents::Of()
{
    static LinkEvents events;
    return events;
}

frmWinsock &frmWinsock::Form()
{
    if (!loaded)
        loaded = new frmWinsock;
    return *loaded;
}

bool frmWinsock::IsLoaded()
{
    return !loaded.isNull();
}

void frmWinsock::Unload()
{
    if (!loaded)
        return;
    frmWinsock *form = loaded;
    loaded = nullptr;
    Global.sckServer = nullptr;
    form->TmrInactivity->stop();
    form->CSock->disconnect(form);
    form->CSock->Close();
    // Not at once: the caller may be inside an event of this very form.
    form->deleteLater();
}

void frmWinsock::SetSocketFactory(std::function<ServerSocket *(QObject *)> factory)
{
    socketFactory = std::move(factory);
}

void LoadSocketForm(bool load)
{
    if (load)
        frmWinsock::Form();
    else
        frmWinsock::Unload();
}

frmWinsock::frmWinsock()
    : CSock(makeSocket(this)), TmrInactivity(new QTimer(this)), TmrInactivityTag(u"0"_s)
{
    setObjectName(u"frmWinsock"_s);
    CSock->setObjectName(u"CSock"_s);
    TmrInactivity->setObjectName(u"TmrInactivity"_s);
    TmrInactivity->setInterval(inactivityTickMilliseconds);

    Global.intConnectState = ConnectIdle;
    Global.sckServer = CSock;
    strInactivityTimeOut = ReadSetting(Setting::InactivityTimeOut);
    Global.bConnectionClosed = false;

    connect(CSock, &ServerSocket::Connected, this, [] { Global.intConnectState = ConnectDone; });
    connect(CSock, &ServerSocket::DataArrival, this, &frmWinsock::DataArrival);
    connect(CSock, &ServerSocket::SendComplete, this, &frmWinsock::SendCompleted);
    connect(CSock, &ServerSocket::Closed, this, &frmWinsock::SocketClosed);
    connect(CSock, &ServerSocket::Error, this, &frmWinsock::SocketError);
    connect(TmrInactivity, &QTimer::timeout, this, &frmWinsock::InactivityTick);
    TmrInactivity->start();
}

void frmWinsock::DataArrival(qint64 bytesTotal)
{
    if (CSock->State() != SocketState::Connected || bytesTotal < 1)
        return;
    if (Global.strRecvBuffer.Size() >= mostBacklog)
        return;
    const QByteArray chunk = CSock->GetData(bytesTotal);
    Global.strRecvBuffer.TakeOver(chunk);
    const ArrivedWords words = wordsIn(chunk);
    if (words.Ping) {
        // Past SendReq and its busy flag: the server wants to hear from us now. The whole buffer
        // goes with the ping, which is why a server must not ping during a reply.
        if (CSock->BytesToSend() < maximumUnsentBytes) {
            CSock->SendData("|IMALIVE\xA6|");
            WriteAppInfo(u"Replied to Ping Request from Halvane Server.."_s);
        }
        noteTraffic();
        Global.strRecvBuffer.Clear();
        return;
    }
    if (words.DocumentEnd)
        WriteAppInfo(u"|EOD~||EOF~| found in Doc Server response"_s);
    noteTraffic();
}

void frmWinsock::TakeArrivedData()
{
    while (Global.strRecvBuffer.Size() < mostBacklog && CSock->State() == SocketState::Connected
           && CSock->BytesAvailable() > 0)
        DataArrival(CSock->BytesAvailable());
}

void frmWinsock::DiscardArrivedData()
{
    Global.strRecvBuffer.Clear();
    if (!loaded)
        return;
    qint64 discarded = 0;
    while (loaded->CSock->State() == SocketState::Connected && discarded < maximumDiscardedBytes) {
        loaded->CSock->TakeUpArrived();
        const qint64 waiting = loaded->CSock->BytesAvailable();
        if (waiting < 1)
            return;
        loaded->DataArrival(waiting);
        Global.strRecvBuffer.Clear();
        discarded += waiting;
    }
}

void frmWinsock::SendCompleted()
{
    Global.bSendBusy = false;
    noteTraffic();
}

void frmWinsock::SocketClosed()
{
    WriteAppInfo(u"Client Connection was Closed"_s);
    Global.bConnectionClosed = true;
}

void frmWinsock::SocketError(int, const QString &description)
{
    // The words promise more than is done: support staff search the log for them.
    WriteAppInfo(u"attempting to close and reconnect to router.."_s);
    if (description.contains(u"forcefully rejected"))
        Global.intConnectState = ConnectRefused;
}

void frmWinsock::noteTraffic()
{
    TmrInactivityTag = u"0"_s;
    if (!TmrInactivity->isActive())
        TmrInactivity->start();
}

void frmWinsock::RestartInactivity()
{
    TmrInactivity->stop();
    TmrInactivityTag = u"0"_s;
    TmrInactivity->start();
}

void frmWinsock::StopInactivity()
{
    TmrInactivity->stop();
}

void frmWinsock::InactivityTick()
{
    TmrInactivity->stop();
    strInactivityTimeOut = SettingValue(Setting::InactivityTimeOut);
    // By text, as the setting's own rule, on purpose: "5" is above "30", and "2" is not below "10".
    // The waits that users know come from exactly this.
    if (TmrInactivityTag < strInactivityTimeOut) {
        TmrInactivityTag = QString::number(ToInteger(TmrInactivityTag) + 1);
        TmrInactivity->start();
        return;
    }
    // Stays stopped until there is traffic again. Nothing of this form is touched afterwards: the
    // logout that may follow unloads it.
    Q_EMIT LinkEvents::Of().IdleLimitReached();
}
