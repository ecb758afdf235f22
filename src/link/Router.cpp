#include "link/Router.h"

#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Log.h"
#include "core/Settings.h"
#include "core/TextUtilities.h"
#include "link/ConnectState.h"
#include "link/frmWinsock.h"

#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr float connectLimitSeconds = 7.0F;
constexpr int standardPort = 80;
constexpr int alternatePort = 85;
constexpr int settleMilliseconds = 100;
constexpr int greatestPort = 65535;

void settle()
{
    Clock::Current().SleepMilliseconds(settleMilliseconds);
}

bool connectFailed(const QString &logLine)
{
    WriteAppInfo(logLine);
    Global.intConnectState = ConnectIdle;
    frmWinsock::Unload();
    return false;
}
} // namespace

QStringList LoadServerList()
{
    QStringList addresses;
    for (int i = 0; i < serverAddressCount; ++i)
        addresses.append(ReadSetting(ServerAddress(i)));
    return addresses;
}

bool ConnectToRouter(const QString &address)
{
    frmWinsock &form = frmWinsock::Form();
    const QPointer<frmWinsock> stillLoaded(&form);
    form.CSock->RemoteHost = TrimBlanks(address);
    form.CSock->RemotePort =
        static_cast<quint16>(std::clamp(Global.lngServerPort, 0, greatestPort));
    form.CSock->LocalPort = 0;
    // What an earlier connection left, perhaps half a token, is no part of this one: with it every
    // token from here on would be cut at the wrong bars, and no login could succeed any more.
    Global.strRecvBuffer.Clear();
    Global.intConnectState = ConnectUnderWay;
    form.CSock->Connect();
    WriteAppInfo(u"Attempting to Connect to Router"_s);
    const float start = Clock::Current().SecondsOfDay();
    for (;;) {
        const float elapsed = ElapsedSeconds(start);
        // Unloaded under the wait: the user gave up, and may already be at the next attempt, whose
        // state is not ours to touch.
        if (!stillLoaded || Global.sckServer != stillLoaded->CSock) {
            WriteAppInfo(u"Error connecting to router"_s);
            if (!frmWinsock::IsLoaded())
                Global.intConnectState = ConnectIdle;
            return false;
        }
        if (elapsed >= connectLimitSeconds || Global.intConnectState != ConnectUnderWay)
            break;
        YieldUntilEvent(static_cast<double>(connectLimitSeconds - elapsed));
    }
    if (Global.intConnectState == ConnectRefused)
        return connectFailed(u"Router is not running"_s);
    if (Global.intConnectState != ConnectDone)
        return connectFailed(u"Error connecting to router"_s);
    WriteAppInfo(u"Successfully connected to router"_s);
    return true;
}

bool HasNetworkAddress()
{
    return frmWinsock::Form().CSock->LocalIP() != u"127.0.0.1";
}

void CloseServerLink()
{
    if (frmWinsock::IsLoaded())
        frmWinsock::Form().CSock->Close();
    WriteAppInfo(u"Closed connection to Halvane Server"_s);
    Global.intConnectState = ConnectIdle;
    frmWinsock::Unload();
}

void DropServerLink()
{
    CloseServerLink();
    Q_EMIT LinkEvents::Of().LinkDropped();
}

ServerSelection SelectServer(const std::function<bool()> &cancelled)
{
    const QStringList aServerIPs = LoadServerList();
    for (int i = 0; i < serverAddressCount; ++i) {
        if (cancelled())
            return ServerSelection::Cancelled;
        const QString address = aServerIPs.value(i);
        if (ConnectToRouter(address)) {
            settle();
            return ServerSelection::Contacted;
        }
        if (cancelled())
            return ServerSelection::Cancelled;
        Global.lngServerPort = Global.lngServerPort == standardPort ? alternatePort : standardPort;
        const QString port = QString::number(Global.lngServerPort);
        WriteAppInfo(u"Note: Swapping Connection Port to: "_s + port);
        if (ConnectToRouter(address)) {
            settle();
            SaveSetting(Setting::ServerPort, SettingWriter::Connecting, port);
            return ServerSelection::Contacted;
        }
        Yield();
    }
    return Global.intConnectState == ConnectDone ? ServerSelection::Contacted
                                                 : ServerSelection::NotAvailable;
}
