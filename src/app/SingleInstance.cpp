#include "app/SingleInstance.h"

#include "core/Platform.h"

#include <QCryptographicHash>
#include <QLocalSocket>

using namespace Qt::StringLiterals;

namespace {
constexpr int answerMilliseconds = 2'000;
constexpr qsizetype folderMarkLength = 16;
/// What a second copy says when it was started for a new search; a copy that says nothing only
/// wants the first to come forward.
constexpr char newSearchLine[] = "new-search\n";

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
            Answer(other);
    });
}

/// Every user of the machine can reach the name, so that nothing but the one line is understood,
/// and no more than that is held of what else is sent.
void SingleInstance::Answer(QLocalSocket *other)
{
    other->setReadBufferSize(sizeof newSearchLine);
    connect(other, &QLocalSocket::disconnected, other, &QObject::deleteLater);
    Q_EMIT Activated();
    const auto read = [this, other] {
        if (other->canReadLine() && other->readLine(sizeof newSearchLine) == newSearchLine)
            Q_EMIT SearchWanted();
    };
    connect(other, &QLocalSocket::readyRead, this, read);
    read();
}

bool SingleInstance::Claim(SecondStart wish)
{
    if (server.listen(name))
        return true;
    QLocalSocket first;
    first.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    first.connectToServer(name);
    anotherRuns = first.waitForConnected(answerMilliseconds);
    if (anotherRuns && wish == SecondStart::NewSearch) {
        first.write(newSearchLine);
        first.waitForBytesWritten(answerMilliseconds);
    }
    return false;
}
