#include "app/SingleInstance.h"

#include "core/Platform.h"

#include <QCryptographicHash>
#include <QLocalSocket>

using namespace Qt::StringLiterals;

namespace {
constexpr int answerMilliseconds = 2'000;
constexpr qsizetype folderMarkLength = 16;

/// The user's id is in the name because one machine's names are shared by all of its users, and the
/// folder because the folder is what must not be shared.
QString instanceName(const QString &folder)
{
    const QByteArray mark =
        QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex();
    return u"halvane-"_s + UserIdText() + u'-' + QString::fromLatin1(mark.left(folderMarkLength));
}
} // namespace

SingleInstance::SingleInstance(const QString &applicationFolder, QObject *parent)
    : QObject(parent), server(this), name(instanceName(applicationFolder))
{
    // An abstract name ends with its process: no stale file can keep the program from starting.
    server.setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(&server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *other = server.nextPendingConnection())
            connect(other, &QLocalSocket::disconnected, other, &QObject::deleteLater);
        Q_EMIT Activated();
    });
}

bool SingleInstance::Claim()
{
    if (server.listen(name))
        return true;
    QLocalSocket first;
    first.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    first.connectToServer(name);
    anotherRuns = first.waitForConnected(answerMilliseconds);
    return false;
}
