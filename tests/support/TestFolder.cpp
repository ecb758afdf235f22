#include "support/TestFolder.h"

#include "core/AppFolder.h"
#include "core/EndProgram.h"
#include "core/FolderState.h"
#include "core/GlobalState.h"
#include "core/Windows1252.h"
#include "jobs/frmQueue.h"
#include "link/TcpServerSocket.h"
#include "link/frmWinsock.h"
#include "support/Places.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

TestFolder::TestFolder()
{
    ResetProgram();
    ChooseAppFolder(dir.path());
    const QDir data(DataPath());
    const QStringList names = data.entryList(QDir::Files);
    for (const QString &name : names)
        QFile::copy(data.filePath(name), Path(name));
}

TestFolder::~TestFolder()
{
    ResetProgram();
}

void TestFolder::ResetProgram()
{
    frmWinsock::Unload();
    frmWinsock::SetSocketFactory({});
    frmQueue::Unload();
    AssumeNetworkAddress(true);
    ReplaceEndProgram({});
    Global = GlobalState();
    FolderStates::ForgetAll();
}

QString TestFolder::Path(const QString &name) const
{
    return name.isEmpty() ? dir.path() : dir.filePath(name);
}

QByteArray TestFolder::Read(const QString &name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestFolder::Write(const QString &name, const QByteArray &content) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(Path(name)));
}

void TestFolder::Remove(const QString &name) const
{
    QFile::remove(Path(name));
}

QStringList TestFolder::Log() const
{
    QStringList messages;
    const QStringList lines =
        FromWindows1252(Read(u"AppInfo.txt"_s)).split(u"\r\n"_s, Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const qsizetype dash = line.indexOf(u" -- "_s);
        messages.append(dash < 0 ? line : line.mid(dash + 4));
    }
    return messages;
}

bool TestFolder::Logged(const QString &message) const
{
    return Log().contains(message);
}

int TestFolder::TimesLogged(const QString &message) const
{
    const QStringList log = Log();
    return static_cast<int>(std::count(log.begin(), log.end(), message));
}
