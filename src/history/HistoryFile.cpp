#include "history/HistoryFile.h"

#include "history/HistorySchema.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

/// SQLite gives the files beside it the permissions of the database, so the database has to have
/// them before it is opened.
bool makeForOwnerOnly(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadWrite | QIODevice::NewOnly, ownerOnly))
        return true;
    if (!file.exists())
        return false;
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup
                                            | QFileDevice::ExeGroup | QFileDevice::ReadOther
                                            | QFileDevice::WriteOther | QFileDevice::ExeOther;
    return !(file.permissions() & others) || file.setPermissions(ownerOnly);
}

constexpr std::array<QStringView, 3> manners{{
    // Whoever reads does not hold up whoever writes.
    u"PRAGMA journal_mode = WAL",
    u"PRAGMA synchronous = NORMAL",
    // What is cleared cannot be found in the file any more.
    u"PRAGMA secure_delete = ON",
}};

HistoryTrouble setManners(HistoryDatabase &database)
{
    for (const QStringView manner : manners) {
        if (!database.Run(manner.toString()))
            return database.Trouble();
    }
    return HistoryTrouble::None;
}

HistoryTrouble markLeftBehind(HistoryDatabase &database)
{
    database.Run(u"UPDATE Asked SET LeftBehind = 1 WHERE State < 2"_s);
    return database.Trouble();
}

HistoryTrouble prepare(HistoryDatabase &database, Unfinished items)
{
    using Step = HistoryTrouble (*)(HistoryDatabase &);
    constexpr std::array<Step, 4> order{&RefuseStrangers, &CheckIntegrity, &setManners,
                                        &BringToVersion};
    for (const Step step : order) {
        const HistoryTrouble trouble = step(database);
        if (trouble != HistoryTrouble::None)
            return trouble;
    }
    return items == Unfinished::IsLeftBehind ? markLeftBehind(database) : HistoryTrouble::None;
}

/// What the names of damaged files begin with.
QString damagedStem(const QString &path)
{
    return QFileInfo(path).completeBaseName() + u"-damaged-"_s;
}

QString freeName(const QString &path)
{
    const QString stem = QFileInfo(path).path() + u'/' + damagedStem(path)
                         + QDate::currentDate().toString(Qt::ISODate);
    QString name = stem + u".db"_s;
    for (int i = 2; QFileInfo::exists(name); ++i)
        name = stem + u'-' + QString::number(i) + u".db"_s;
    return name;
}
} // namespace

HistoryTrouble OpenHistoryFile(HistoryDatabase &database, const QString &path, int busyMilliseconds,
                               Unfinished items)
{
    if (!makeForOwnerOnly(path))
        return HistoryTrouble::CannotWrite;
    if (!database.Open(path, HistoryDatabase::Access::ReadWrite, busyMilliseconds))
        return database.Trouble();
    const HistoryTrouble trouble = prepare(database, items);
    if (trouble != HistoryTrouble::None)
        database.Close();
    return trouble;
}

QString PutAside(const QString &path)
{
    const QString name = freeName(path);
    if (!QFile::rename(path, name))
        return {};
    // What was not yet taken into the database may be of use to whoever tries to mend it.
    QFile::rename(path + u"-wal"_s, name + u"-wal"_s);
    QFile::remove(path + u"-shm"_s);
    return name;
}

bool RemoveHistoryFile(const QString &path)
{
    bool gone = true;
    const QStringList names{path, path + u"-wal"_s, path + u"-shm"_s};
    for (const QString &name : names)
        gone = (!QFileInfo::exists(name) || QFile::remove(name)) && gone;
    return gone;
}

void TidyHistoryFile(HistoryDatabase &database)
{
    constexpr int large = 4;
    const int pages = database.Value(u"PRAGMA page_count"_s).toInt();
    if (database.Value(u"PRAGMA freelist_count"_s).toInt() * large > pages)
        database.Run(u"VACUUM"_s);
    database.Run(u"PRAGMA wal_checkpoint(TRUNCATE)"_s);
}

bool RemoveDamagedHistories(const QString &path)
{
    QDir folder(QFileInfo(path).path());
    bool gone = true;
    const QStringList names = folder.entryList({damagedStem(path) + u'*'}, QDir::Files);
    for (const QString &name : names)
        gone = folder.remove(name) && gone;
    return gone;
}
