#include "HistoryDisk.h"
#include "history/HistoryStore.h"
#include "support/HalvaneTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <cstdio>
#include <functional>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few
constexpr int manyItems = 20'000;  ///< more than SQLite keeps in memory
constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                               | QFileDevice::ReadUser | QFileDevice::WriteUser;

AskedItem itemOf(const QString &what)
{
    AskedItem item;
    item.When = QDateTime(QDate(2026, 11, 2), QTime(10, 30));
    item.What = what;
    item.Where = QString(u'x').repeated(100);
    return item;
}

/// A connection that some other program has.
class OtherProgram
{
public:
    explicit OtherProgram(const QString &path)
    {
        database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
        database.setDatabaseName(path);
        database.open();
    }
    ~OtherProgram()
    {
        database.close();
        database = {};
        QSqlDatabase::removeDatabase(u"other"_s);
    }
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    /// Runs a statement; gives the first cell.
    QString Run(const QString &sql)
    {
        QSqlQuery query(database);
        if (!query.exec(sql))
            qFatal("%s", qPrintable(sql));
        return query.next() ? query.value(0).toString() : QString();
    }
    /// Keeps everybody else out until it goes.
    void Hold()
    {
        Run(u"PRAGMA locking_mode = EXCLUSIVE"_s);
        Run(u"BEGIN EXCLUSIVE"_s);
        Run(u"CREATE TABLE Held (Id INTEGER)"_s);
    }

private:
    QSqlDatabase database;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAt(const QString &path, qint64 place, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(place) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// A history in a folder of a test's own, and what it has to say.
class Memory
{
public:
    Memory()
    {
        QObject::connect(&Store, &HistoryStore::Problem, &Store,
                         [this](const QString &text) { Problems.append(text); });
    }

    QString Path() const { return Folder.filePath(u"history.db"_s); }
    QStringList Aside() const
    {
        return QDir(Folder.path()).entryList({u"history-damaged-*.db"_s}, QDir::Files);
    }
    /// Waits until the file is open and all is written, and hears what there is to be said.
    bool Written()
    {
        const bool written = Store.WaitUntilWritten(longEnough);
        QCoreApplication::processEvents();
        return written;
    }
    /// Writes so many and closes.
    void Fill(int items)
    {
        Store.Open(Path());
        for (int i = 0; i < items; ++i)
            Store.Begin(itemOf(u"OLD "_s + QString::number(i)));
        if (!Written())
            qFatal("the history cannot be filled");
        Store.Close();
    }

    QTemporaryDir Folder;
    HistoryStore Store;
    QStringList Problems;
};

/// What a child does that may not write where the history is to be.
int openWithoutRights(const QStringList &arguments)
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0))
        return 2;
    HistoryStore store;
    QStringList problems;
    QObject::connect(&store, &HistoryStore::Problem, &store,
                     [&problems](const QString &text) { problems.append(text); });
    store.Open(arguments.value(0));
    store.Begin(itemOf(u"DOE"_s));
    const bool written = store.WaitUntilWritten(longEnough);
    QCoreApplication::processEvents();
    std::printf("%s|%d%d", qPrintable(problems.join(u'|')), written ? 1 : 0,
                store.IsOpen() ? 1 : 0);
    return 0;
}
} // namespace

class tst_HistoryTrouble : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aFileThatCannotBeReadGivesItsPlaceToANewOne_data();
    void aFileThatCannotBeReadGivesItsPlaceToANewOne();
    void asideTwiceADayAreTwoFiles();
    void aFileThatIsDamagedMeanwhileGivesItsPlace();
    void aFileThatIsDeletedMeanwhileIsBegunAnew();
    void aFolderThatIsTakenAwayCostsTheHistory();
    void anyPathIsAPath();
    void aFileOfALaterVersionIsLeftAlone();
    void aFileThatIsHeldIsTriedAgain();
    void aFileThatIsHeldAtTheStartIsTriedAgain();
    void closingDoesNotWaitForWhoHoldsTheFile();
    void aReadThatFailsOnceIsNoDamage();
    void aReadThatFailsOnceLeavesNothingBehind();
    void whatTheDiskRefusesIsLostAndSaidOnce_data();
    void whatTheDiskRefusesIsLostAndSaidOnce();
    void withoutTheRightToWriteTheSessionHasNoHistory_data();
    void withoutTheRightToWriteTheSessionHasNoHistory();
    void onlyTheOwnerMayReadFromTheFirstMomentOn();
    void aFileThatOthersMayReadIsClosedToThem();
};

using Spoil = std::function<void(const QString &path)>;
Q_DECLARE_METATYPE(Spoil)

void tst_HistoryTrouble::aFileThatCannotBeReadGivesItsPlaceToANewOne_data()
{
    QTest::addColumn<Spoil>("spoil");
    QTest::addColumn<bool>("saidSo");
    QTest::addColumn<int>("kept");
    const auto row = [](const char *name, const Spoil &spoil, bool saidSo, int kept = 0) {
        QTest::newRow(name) << spoil << saidSo << kept;
    };
    row(
        "whole", [](const QString &) {}, false, 100);
    row(
        "missing", [](const QString &path) { QFile::remove(path); }, false);
    row(
        "empty", [](const QString &path) { QFile::resize(path, 0); }, false);
    row(
        "missing, and its journal is there",
        [](const QString &path) {
            QFile::copy(path, path + u"-wal"_s);
            QFile::remove(path);
        },
        false);
    row(
        "garbage", [](const QString &path) { writeAt(path, 0, QByteArray(10'000, 'x')); }, true);
    row(
        "cut within its head", [](const QString &path) { QFile::resize(path, 50); }, true);
    row(
        "cut in the middle of a page", [](const QString &path) { QFile::resize(path, 9'000); },
        true);
    row(
        "cut between pages", [](const QString &path) { QFile::resize(path, 8'192); }, true);
    row(
        "a page is overwritten",
        [](const QString &path) { writeAt(path, 4'096 * 5, QByteArray(4'096, 'x')); }, true);
    row(
        "a database of someone else",
        [](const QString &path) {
            QFile::remove(path);
            OtherProgram(path).Run(u"CREATE TABLE Recipes (Id INTEGER)"_s);
        },
        true);
}

void tst_HistoryTrouble::aFileThatCannotBeReadGivesItsPlaceToANewOne()
{
    QFETCH(const Spoil, spoil);
    QFETCH(const bool, saidSo);
    QFETCH(const int, kept);
    constexpr int some = 100;
    Memory memory;
    memory.Fill(some);
    spoil(memory.Path());
    const QByteArray spoilt = contentOf(memory.Path());

    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"NEW"_s));
    QVERIFY(memory.Written());
    QVERIFY(memory.Store.IsOpen());
    QCOMPARE(memory.Store.CountOf({}), kept + 1);
    QCOMPARE(memory.Problems.size(), saidSo ? 1 : 0);
    QCOMPARE(memory.Aside().size(), saidSo ? 1 : 0);
    if (saidSo) {
        QVERIFY(memory.Problems.first().contains(memory.Aside().first()));
        QCOMPARE(contentOf(memory.Folder.filePath(memory.Aside().first())), spoilt);
    }
    QCOMPARE(QFile::permissions(memory.Path()), ownerOnly);
}

void tst_HistoryTrouble::asideTwiceADayAreTwoFiles()
{
    Memory memory;
    for (const QByteArray &garbage : {QByteArray("one"), QByteArray("two")}) {
        writeAt(memory.Path(), 0, garbage.repeated(100));
        memory.Store.Open(memory.Path());
        QVERIFY(memory.Written());
        memory.Store.Close();
    }
    QCOMPARE(memory.Aside().size(), 2);
    QCOMPARE(memory.Problems.size(), 2);
}

void tst_HistoryTrouble::aFileThatIsDamagedMeanwhileGivesItsPlace()
{
    Memory memory;
    memory.Fill(manyItems);
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), manyItems);
    writeAt(memory.Path(), 4'096, QByteArray(contentOf(memory.Path()).size() - 4'096, 'x'));

    memory.Store.ForgetBefore(QDateTime::currentDateTime());
    memory.Store.Begin(itemOf(u"NEW"_s));
    QVERIFY(memory.Written());
    QCOMPARE(memory.Problems.size(), 1);
    QVERIFY(memory.Problems.first().contains(u"was damaged"));
    QCOMPARE(memory.Aside().size(), 1);
    // Readers go over to the new file.
    QCOMPARE(memory.Store.CountOf({}), 1);
}

/// What is written into a file without a name is lost with the program.
void tst_HistoryTrouble::aFileThatIsDeletedMeanwhileIsBegunAnew()
{
    Memory memory;
    memory.Fill(3);
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 3);
    for (const QString &end : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(memory.Path() + end);

    memory.Store.Begin(itemOf(u"NEW"_s));
    QVERIFY(memory.Written());
    QCOMPARE(memory.Problems.size(), 1);
    QVERIFY(memory.Problems.first().contains(u"was deleted while this program ran"));
    QCOMPARE(memory.Store.CountOf({}), 1);
    QCOMPARE(QFile::permissions(memory.Path()), ownerOnly);
    memory.Store.Begin(itemOf(u"NEWER"_s));
    QVERIFY(memory.Written());
    memory.Store.Close();
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 2);
    QCOMPARE(memory.Problems.size(), 1);
}

void tst_HistoryTrouble::aFolderThatIsTakenAwayCostsTheHistory()
{
    Memory memory;
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QVERIFY(QDir(memory.Folder.path()).removeRecursively());
    memory.Store.Begin(itemOf(u"LOST"_s));
    QVERIFY(!memory.Written());
    QCOMPARE(memory.Problems.size(), 1);
    QVERIFY(memory.Problems.first().contains(u"cannot be written in this folder"));
    QVERIFY(!memory.Store.IsOpen());
}

/// Signs that have a meaning in the address of a database, and letters beyond ASCII.
void tst_HistoryTrouble::anyPathIsAPath()
{
    const Memory memory;
    const QString folder =
        memory.Folder.filePath(u"file:O'Neill \"100%20\" #1?mode=ro;Jörg Åß 法"_s);
    QVERIFY(QDir().mkpath(folder));
    const QString path = folder + u"/history.db"_s;
    HistoryStore store;
    store.Open(path);
    store.Begin(itemOf(u"DOE"_s));
    QVERIFY(store.WaitUntilWritten(longEnough));
    QCOMPARE(store.CountOf({}), 1);
    QCOMPARE(QDir(folder).entryList({u"history*"_s}).first(), u"history.db"_s);
}

void tst_HistoryTrouble::aFileOfALaterVersionIsLeftAlone()
{
    Memory memory;
    memory.Fill(1);
    OtherProgram(memory.Path()).Run(u"PRAGMA user_version = 99"_s);
    const QByteArray before = contentOf(memory.Path());

    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"NEW"_s));
    QVERIFY(!memory.Written());
    QCOMPARE(memory.Problems.size(), 1);
    QVERIFY(memory.Problems.first().contains(u"later version"));
    QVERIFY(!memory.Store.IsOpen());
    QCOMPARE(memory.Store.Begin(itemOf(u"NEW"_s)), 0);
    QCOMPARE(contentOf(memory.Path()), before);
    QVERIFY(memory.Aside().isEmpty());
}

void tst_HistoryTrouble::aFileThatIsHeldIsTriedAgain()
{
    Memory memory;
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    memory.Store.Close();
    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"BEFORE"_s));
    QVERIFY(memory.Written());
    {
        OtherProgram other(memory.Path());
        other.Run(u"BEGIN IMMEDIATE"_s);
        other.Run(u"CREATE TABLE Held (Id INTEGER)"_s);
        memory.Store.Begin(itemOf(u"MEANWHILE"_s));
        QTRY_COMPARE(memory.Problems.size(), 1);
        QVERIFY(memory.Problems.first().contains(u"another program"));
        // Several attempts later.
        QVERIFY(!memory.Store.WaitUntilWritten(1'000));
        memory.Store.Begin(itemOf(u"AND THIS"_s));
        QCOMPARE(memory.Store.CountOf({}), 1);
        other.Run(u"ROLLBACK"_s);
    }
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 3);
    QCOMPARE(memory.Problems.size(), 1);
}

void tst_HistoryTrouble::aFileThatIsHeldAtTheStartIsTriedAgain()
{
    Memory memory;
    memory.Fill(1);
    {
        OtherProgram other(memory.Path());
        other.Hold();
        memory.Store.Open(memory.Path());
        const qint64 id = memory.Store.Begin(itemOf(u"MEANWHILE"_s));
        QVERIFY(id > 0);
        QTRY_COMPARE(memory.Problems.size(), 1);
        QVERIFY(memory.Problems.first().contains(u"another program"));
        QVERIFY(memory.Store.IsOpen());
        QVERIFY(memory.Store.Items({}, 0, 10).isEmpty());
        QVERIFY(!memory.Store.LastOpened(u"case"_s));
    }
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 2);
    QCOMPARE(memory.Problems.size(), 1);
}

void tst_HistoryTrouble::closingDoesNotWaitForWhoHoldsTheFile()
{
    Memory memory;
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    {
        OtherProgram other(memory.Path());
        other.Run(u"BEGIN IMMEDIATE"_s);
        memory.Store.Begin(itemOf(u"LOST"_s));
        memory.Store.Close();
        other.Run(u"ROLLBACK"_s);
    }
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 0);
}

void tst_HistoryTrouble::aReadThatFailsOnceIsNoDamage()
{
    constexpr int some = 100;
    Memory memory;
    memory.Fill(some);
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        const FailingHistoryRead disk(nth);
        memory.Store.Open(memory.Path());
        memory.Store.Begin(itemOf(u"NEW"_s));
        memory.Written();
        memory.Store.Close();
        failed = disk.HasFailed();
        QVERIFY2(memory.Aside().isEmpty(), qPrintable(u"read "_s + QString::number(nth)));
    }
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QVERIFY(memory.Store.CountOf({}) > some);
}

/// The file is opened anew, but the session is the same: what waits in it would be offered, and
/// asked for twice.
void tst_HistoryTrouble::aReadThatFailsOnceLeavesNothingBehind()
{
    Memory memory;
    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"WAITS"_s));
    QVERIFY(memory.Written());
    OtherProgram other(memory.Path());
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        // What somebody else has changed is read again.
        other.Run(u"UPDATE Asked SET Count = Count + 1"_s);
        const FailingHistoryRead disk(nth);
        memory.Store.Begin(itemOf(u"NEW"_s));
        memory.Written();
        failed = disk.HasFailed();
        QVERIFY2(memory.Store.Unfinished().isEmpty(),
                 qPrintable(u"read "_s + QString::number(nth)));
    }
    QVERIFY(memory.Store.CountOf({}) > 1);
}

void tst_HistoryTrouble::whatTheDiskRefusesIsLostAndSaidOnce_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("text");
    QTest::newRow("no room") << ENOSPC << u"The disk is full"_s;
    QTest::newRow("broken") << EIO << u"the disk reports an error"_s;
    QTest::newRow("a limit of the user") << EFBIG << u"the disk reports an error"_s;
}

void tst_HistoryTrouble::whatTheDiskRefusesIsLostAndSaidOnce()
{
    QFETCH(const int, error);
    QFETCH(const QString, text);
    Memory memory;
    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"BEFORE"_s));
    QVERIFY(memory.Written());
    {
        const FailingHistoryDisk failing(error);
        for (int i = 0; i < 3; ++i) {
            memory.Store.Begin(itemOf(u"LOST"_s));
            QVERIFY(!memory.Written());
        }
        QCOMPARE(memory.Store.CountOf({}), 1);
    }
    QCOMPARE(memory.Problems.size(), 1);
    QVERIFY(memory.Problems.first().contains(text));
    // The disk has room again.
    memory.Store.Begin(itemOf(u"AFTER"_s));
    QVERIFY(memory.Written());
    QCOMPARE(memory.Store.CountOf({}), 2);
}

void tst_HistoryTrouble::withoutTheRightToWriteTheSessionHasNoHistory_data()
{
    QTest::addColumn<bool>("fileIsThere");
    QTest::newRow("a folder in which nothing can be made") << false;
    QTest::newRow("a file that can only be read") << true;
}

void tst_HistoryTrouble::withoutTheRightToWriteTheSessionHasNoHistory()
{
    QFETCH(const bool, fileIsThere);
    Memory memory;
    if (fileIsThere) {
        memory.Fill(1);
        QVERIFY(::chmod(QFile::encodeName(memory.Path()).constData(), 0444) == 0);
    }
    const QByteArray folder = QFile::encodeName(memory.Folder.path());
    QVERIFY(::chmod(folder.constData(), 0555) == 0);
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {u"--without-rights"_s, memory.Path()});
    QVERIFY(child.waitForFinished());
    QVERIFY(::chmod(folder.constData(), 0755) == 0);
    const QList<QByteArray> said = child.readAllStandardOutput().split('|');
    QCOMPARE(said.size(), 2);
    QVERIFY2(said.at(0).contains("cannot be written in this folder"), said.at(0).constData());
    QCOMPARE(said.at(1), QByteArray("00"));
}

void tst_HistoryTrouble::onlyTheOwnerMayReadFromTheFirstMomentOn()
{
    Memory memory;
    const mode_t before = ::umask(0);
    const qsizetype births = PermissionsAtBirth().size();
    memory.Store.Open(memory.Path());
    memory.Store.Begin(itemOf(u"DOE"_s));
    const bool written = memory.Written();
    ::umask(before);
    QVERIFY(written);
    const QList<unsigned> atBirth = PermissionsAtBirth().mid(births);
    QVERIFY(atBirth.size() >= 3);
    for (const unsigned permissions : atBirth)
        QCOMPARE(permissions, 0600U);
    for (const QString &end : {u""_s, u"-wal"_s, u"-shm"_s})
        QCOMPARE(QFile::permissions(memory.Path() + end), ownerOnly);
}

void tst_HistoryTrouble::aFileThatOthersMayReadIsClosedToThem()
{
    Memory memory;
    memory.Fill(1);
    QVERIFY(::chmod(QFile::encodeName(memory.Path()).constData(), 0644) == 0);
    memory.Store.Open(memory.Path());
    QVERIFY(memory.Written());
    QCOMPARE(QFile::permissions(memory.Path()), ownerOnly);
    QCOMPARE(QFile::permissions(memory.Path() + u"-wal"_s), ownerOnly);
}

HALVANE_TEST_CHILD("--without-rights", openWithoutRights)
HALVANE_TEST(tst_HistoryTrouble)
#include "tst_HistoryTrouble.moc"
