#include "app/PracticeCourt.h"

#include "core/Settings.h"
#include "link/TcpServerSocket.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int startMilliseconds = 10'000;
constexpr int endMilliseconds = 2'000;
} // namespace

bool PracticeCourt::Start(const QString &program, const QStringList &switches)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, QStringList{u"--port"_s, u"0"_s, u"--until-stdin-closes"_s} + switches);
    if (!process.waitForStarted(startMilliseconds)) {
        error = program + u": "_s + process.errorString();
        return false;
    }
    const QDeadlineTimer deadline(startMilliseconds);
    while (!process.canReadLine()
           && process.waitForReadyRead(
               static_cast<int>(std::max<qint64>(0, deadline.remainingTime())))) {
    }
    const QString line = QString::fromUtf8(process.readLine()).trimmed();
    port = line.section(u':', -1).toUShort();
    if (port == 0)
        error = program + u" did not say its port: "_s + line;
    return port != 0;
}

QString PracticeCourt::Program()
{
    return QCoreApplication::applicationDirPath() + u"/halvane-practice"_s;
}

PracticeCourt::~PracticeCourt()
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.closeWriteChannel();
    if (!process.waitForFinished(endMilliseconds))
        process.kill();
    process.waitForFinished(endMilliseconds);
}

void PointSessionAt(quint16 port)
{
    for (int i = 0; i < serverAddressCount; ++i)
        HoldSetting(ServerAddress(i), u"127.0.0.1"_s);
    HoldSetting(Setting::ServerPort, QString::number(port));
    AssumeNetworkAddress(true);
}
