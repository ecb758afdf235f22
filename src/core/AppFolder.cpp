#include "core/AppFolder.h"

#include "core/AtomicFile.h"
#include "core/Log.h"
#include "core/RunTimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {
constexpr QFileDevice::Permissions ownFolder =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr QFileDevice::Permissions ownFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup
                                            | QFileDevice::ExeGroup | QFileDevice::ReadOther
                                            | QFileDevice::WriteOther | QFileDevice::ExeOther;

QString folder;

/// The name under which `name` really stands in `dir`, or "" when nothing matches.
QString storedName(const QDir &dir, const QString &name)
{
    const QStringList names = dir.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &candidate : names) {
        if (candidate.compare(name, Qt::CaseInsensitive) == 0)
            return candidate;
    }
    return {};
}

bool isPortable(const QString &programFolder)
{
    return !storedName(QDir(programFolder), u"options.ini"_s).isEmpty()
           && QFileInfo(programFolder).isWritable();
}
} // namespace

QString AppFolder()
{
    if (folder.isEmpty())
        ChooseAppFolder({});
    return folder;
}

void ChooseAppFolder(const QString &chosen)
{
    const QString programFolder = QCoreApplication::applicationDirPath();
    if (!chosen.isEmpty())
        folder = QDir(chosen).absolutePath();
    else if (isPortable(programFolder))
        folder = programFolder;
    else
        folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (QDir(folder).exists())
        return;
    if (!QDir().mkpath(folder))
        throw RunTimeError::PathNotFound();
    QFile::setPermissions(folder, ownFolder);
}

QString AppFile(const QString &name)
{
    QString native = name;
    native.replace(u'\\', u'/');
    const QString exact = AppFolder() + u'/' + native;
    if (QFileInfo::exists(exact))
        return exact;
    const QFileInfo info(exact);
    const QString stored = storedName(info.dir(), info.fileName());
    return stored.isEmpty() ? exact : info.dir().filePath(stored);
}

QString InstalledDataFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    // As it is installed, as it is built, and as it is carried along in one folder.
    for (const QString &candidate :
         {QStringLiteral(HALVANE_DATA_FROM_PROGRAM), u"../share/halvane"_s, u"data"_s}) {
        if (program.exists(candidate))
            return QDir::cleanPath(program.absoluteFilePath(candidate));
    }
    return {};
}

int CopyMissingDataFiles(const QString &from)
{
    // An empty path would be the current folder, whatever that is.
    if (from.isEmpty())
        return 0;
    int copied = 0;
    const QDir source(from);
    const QStringList names = source.entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        const QString target = AppFile(name);
        if (QFileInfo::exists(target))
            continue;
        try {
            if (ReplaceFileContent(target, FileContent(source.filePath(name)))) {
                ++copied;
                continue;
            }
        } catch (const RunTimeError &) {
            // Reported below, like a copy that could not be written.
        }
        WriteAppInfo(u"Cannot copy the data file "_s + name + u" into the application folder."_s);
    }
    return copied;
}

int KeepFilesForOwner()
{
    // Not every file: the program itself may lie in the folder, and has to stay executable.
    const QStringList written{u"*.ini"_s, u"AppInfo.*"_s, u"Mru*.txt"_s, u"history*"_s};
    int mended = 0;
    const QFileInfoList files =
        QDir(AppFolder()).entryInfoList(written, QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &file : files) {
        // One that its owner has made read-only is not to be written.
        const QFileDevice::Permissions own = file.permissions() & ownFile;
        if ((file.permissions() & others) && QFile::setPermissions(file.filePath(), own))
            ++mended;
    }
    return mended;
}

bool MakeOwnFolder(const QString &path)
{
    // With a separator at its end a folder would be the one around itself.
    const QString clean = QDir::cleanPath(path);
    const QFileInfo info(clean);
    if (info.isDir())
        return true;
    return info.path() != clean && MakeOwnFolder(info.path()) && QDir().mkdir(clean, ownFolder);
}
