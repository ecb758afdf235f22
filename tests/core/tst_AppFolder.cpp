#include "core/AppFolder.h"
#include "core/AtomicFile.h"
#include "core/RunTimeError.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
constexpr uid_t nobody = 65534;
constexpr QFile::Permissions othersMay = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                         | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// What a child of this test does: it says which folder it chooses.
int sayTheFolder(const QStringList &arguments)
{
    QCoreApplication::setApplicationName(u"halvane"_s);
    // The administrator may write everywhere; a folder that is closed is one for other people only.
    if (::geteuid() == 0 && ::setuid(nobody) != 0)
        return 2;
    try {
        ChooseAppFolder(arguments.value(0));
        std::puts(qPrintable(AppFolder()));
    } catch (const RunTimeError &error) {
        std::printf("error %d\n", error.Number());
    }
    return 0;
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void setMode(const QString &path, bool writable)
{
    auto mode = QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
                | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
    if (writable)
        mode |= QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;
    QVERIFY(QFile::setPermissions(path, mode));
}
} // namespace

class tst_AppFolder : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theChosenFolderGoesFirst();
    void theChosenFolderIsMadeForItsOwnerOnly();
    void aFolderThatCannotBeMadeIsAnError();
    void foldersOfDocumentsAreTheirOwnersOnly();
    void filesOfAnOlderVersionAreTakenFromOthers_data();
    void filesOfAnOlderVersionAreTakenFromOthers();
    void aFileThatIsToBeReadOnlyStaysSo();
    void otherFilesStayAsTheyAre();
    void choiceBesideTheProgram_data();
    void choiceBesideTheProgram();
    void namesAreMatchedWithoutRegardToCase_data();
    void namesAreMatchedWithoutRegardToCase();
    void missingDataFilesAreCopied();
    void aFileThatIsThereIsNeverOverwritten();
    void aFileThatCannotBeCopiedIsLogged();
    void copyingFromNowhereCopiesNothing();
    void noInstalledDataIsNotTheCurrentFolder();
    void fileContent();
    void fileContentOfWhatCannotBeRead();
    void replacingAFolderIsRefused();
    void replacingInAMissingFolderIsRefused();
};

void tst_AppFolder::theChosenFolderGoesFirst()
{
    const TestFolder folder;
    const QTemporaryDir other;
    ChooseAppFolder(other.path());
    QCOMPARE(AppFolder(), other.path());
    ChooseAppFolder(other.path() + u"/sub/../deep"_s);
    QVERIFY(QFileInfo(other.path() + u"/deep"_s).isDir());
}

void tst_AppFolder::theChosenFolderIsMadeForItsOwnerOnly()
{
    const TestFolder folder;
    const QString path = folder.Path(u"a/b"_s);
    ChooseAppFolder(path);
    QVERIFY(QFileInfo(path).isDir());
    QCOMPARE(QFile::permissions(path)
                 & (QFileDevice::ReadGroup | QFileDevice::ReadOther | QFileDevice::ExeOther),
             QFileDevice::Permissions());
}

void tst_AppFolder::foldersOfDocumentsAreTheirOwnersOnly()
{
    const TestFolder folder;
    const mode_t before = ::umask(0);
    const bool made = MakeOwnFolder(folder.Path(u"Reports/King 1"_s));
    ::umask(before);
    QVERIFY(made);
    for (const QString &name : {u"Reports"_s, u"Reports/King 1"_s})
        QCOMPARE(QFile::permissions(folder.Path(name)) & othersMay, QFile::Permissions());
    // One that is there is as the user wants it.
    setMode(folder.Path(u"Reports"_s), true);
    QVERIFY(MakeOwnFolder(folder.Path(u"Reports"_s)));
    QVERIFY(QFile::permissions(folder.Path(u"Reports"_s)) & QFile::ReadOther);
    // However its path is written.
    QVERIFY(MakeOwnFolder(folder.Path(u"Mail/"_s)));
    QVERIFY(MakeOwnFolder(folder.Path(u"Mail//2026/../2027/"_s)));
    QVERIFY(QFileInfo(folder.Path(u"Mail/2027"_s)).isDir());
    folder.Write(u"file"_s, {});
    QVERIFY(!MakeOwnFolder(folder.Path(u"file/in it"_s)));
}

/// Each of them can hold a name, a number or a password.
void tst_AppFolder::filesOfAnOlderVersionAreTakenFromOthers_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"options.ini", "Options.INI", "templates.ini", "AppInfo.txt",
                             "AppInfo.bak", "MruIName.txt", "MruBName.txt", "MruCases.txt",
                             "mruacctg.txt", "history.db", "history.db-wal", "history.db-shm",
                             "history-practice.db", "history-damaged-2026-03-10.db"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_AppFolder::filesOfAnOlderVersionAreTakenFromOthers()
{
    QFETCH(QString, name);
    const TestFolder folder;
    KeepFilesForOwner();
    folder.Write(name, "x");
    setMode(folder.Path(name), true);
    QCOMPARE(KeepFilesForOwner(), 1);
    QCOMPARE(QFile::permissions(folder.Path(name)) & othersMay, QFile::Permissions());
    QCOMPARE(folder.Read(name), "x");
    QCOMPARE(KeepFilesForOwner(), 0);
}

/// Whoever has taken the right to write from a file wants it to stay as it is.
void tst_AppFolder::aFileThatIsToBeReadOnlyStaysSo()
{
    const TestFolder folder;
    KeepFilesForOwner();
    folder.Write(u"options.ini"_s, "x");
    const QString path = folder.Path(u"options.ini"_s);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    QCOMPARE(KeepFilesForOwner(), 1);
    const QFile::Permissions kept = QFile::permissions(path);
    QCOMPARE(kept & othersMay, QFile::Permissions());
    QVERIFY(kept & QFile::ReadOwner);
    QVERIFY(!(kept & QFile::WriteOwner));
}

/// The program may lie in the folder, and has to stay executable.
void tst_AppFolder::otherFilesStayAsTheyAre()
{
    const TestFolder folder;
    KeepFilesForOwner();
    for (const QString &name : {u"halvane"_s, u"libx.so"_s, u"notes.txt"_s}) {
        folder.Write(name, "x");
        setMode(folder.Path(name), true);
    }
    QCOMPARE(KeepFilesForOwner(), 0);
    QVERIFY(QFile::permissions(folder.Path(u"halvane"_s)) & QFile::ExeOther);
}

void tst_AppFolder::aFolderThatCannotBeMadeIsAnError()
{
    const TestFolder folder;
    folder.Write(u"file"_s, "x");
    int number = 0;
    try {
        ChooseAppFolder(folder.Path(u"file/below"_s));
    } catch (const RunTimeError &error) {
        number = error.Number();
    }
    QCOMPARE(number, 76);
}

void tst_AppFolder::choiceBesideTheProgram_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<bool>("given");
    QTest::addColumn<QString>("answer");
    QTest::newRow("given") << u"options.ini"_s << true << true << u"given"_s;
    QTest::newRow("portable") << u"options.ini"_s << true << false << u"program"_s;
    QTest::newRow("portable, other case") << u"OPTIONS.INI"_s << true << false << u"program"_s;
    QTest::newRow("no settings beside it") << QString() << true << false << u"user"_s;
    QTest::newRow("not writable") << u"options.ini"_s << false << false << u"user"_s;
}

void tst_AppFolder::choiceBesideTheProgram()
{
    QFETCH(QString, settings);
    QFETCH(bool, writable);
    QFETCH(bool, given);
    QFETCH(QString, answer);
    const QTemporaryDir base;
    setMode(base.path(), true);
    const QDir dir(base.path());
    for (const QString &name : {u"program"_s, u"data"_s, u"given"_s}) {
        QVERIFY(dir.mkdir(name));
        setMode(dir.filePath(name), true);
    }
    const QString program = dir.filePath(u"program/halvane"_s);
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
    setMode(program, false);
    if (!settings.isNull())
        write(dir.filePath(u"program/"_s + settings), "[General]\r\n");
    setMode(dir.filePath(u"program"_s), writable);

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, dir.filePath(u"data"_s));
    child.setProcessEnvironment(environment);
    child.start(program, {u"--say-folder"_s, given ? dir.filePath(u"given"_s) : QString()});
    QVERIFY(child.waitForFinished());
    setMode(dir.filePath(u"program"_s), true);
    const QString said = QString::fromUtf8(child.readAllStandardOutput()).trimmed();
    if (answer == u"user") {
        QVERIFY2(said.startsWith(dir.filePath(u"data/"_s)), qPrintable(said));
        QVERIFY(QFileInfo(said).isDir());
    } else {
        QCOMPARE(said, dir.filePath(answer));
    }
}

void tst_AppFolder::namesAreMatchedWithoutRegardToCase_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("stored");
    QTest::newRow("as stored") << u"wactylst.txt"_s << u"wactylst.txt"_s;
    QTest::newRow("in capitals") << u"WACTYLST.TXT"_s << u"wactylst.txt"_s;
    QTest::newRow("stored in mixed case") << u"wascases.txt"_s << u"WaSCases.txt"_s;
    QTest::newRow("a new file") << u"New.txt"_s << u"New.txt"_s;
    QTest::newRow("in a folder") << u"Reports\\TEMPFILE.BIN"_s << u"Reports/Tempfile.bin"_s;
    QTest::newRow("new in a folder") << u"Reports\\x.pdf"_s << u"Reports/x.pdf"_s;
}

void tst_AppFolder::namesAreMatchedWithoutRegardToCase()
{
    QFETCH(QString, asked);
    QFETCH(QString, stored);
    const TestFolder folder;
    QVERIFY(QDir(folder.Path()).mkdir(u"Reports"_s));
    folder.Write(u"Reports/Tempfile.bin"_s, "x");
    QCOMPARE(AppFile(asked), folder.Path(stored));
}

void tst_AppFolder::missingDataFilesAreCopied()
{
    const TestFolder folder;
    const QTemporaryDir empty;
    ChooseAppFolder(empty.path());
    const QStringList names = QDir(folder.Path()).entryList(QDir::Files);
    QCOMPARE(CopyMissingDataFiles(folder.Path()), int(names.size()));
    QCOMPARE(QDir(empty.path()).entryList(QDir::Files), names);
    for (const QString &name : names)
        QCOMPARE(FileContent(AppFile(name)), folder.Read(name));
    QCOMPARE(CopyMissingDataFiles(folder.Path()), 0);
}

void tst_AppFolder::aFileThatIsThereIsNeverOverwritten()
{
    const TestFolder folder;
    const QTemporaryDir installed;
    write(installed.filePath(u"options.ini"_s), "[Installed]\r\n");
    write(installed.filePath(u"WACTYLST.TXT"_s), "Elsewhere\r\n");
    write(installed.filePath(u"new.txt"_s), "new\r\n");
    const QByteArray options = folder.Read(u"options.ini"_s);
    const QByteArray counties = folder.Read(u"wactylst.txt"_s);
    QCOMPARE(CopyMissingDataFiles(installed.path()), 1);
    QCOMPARE(folder.Read(u"options.ini"_s), options);
    QCOMPARE(folder.Read(u"wactylst.txt"_s), counties);
    QVERIFY(!QFileInfo::exists(folder.Path(u"WACTYLST.TXT"_s)));
    QCOMPARE(folder.Read(u"new.txt"_s), QByteArray("new\r\n"));
}

void tst_AppFolder::aFileThatCannotBeCopiedIsLogged()
{
    const TestFolder folder;
    const QTemporaryDir installed;
    // The log line itself still fits on this disk.
    write(installed.filePath(u"large.txt"_s), QByteArray(5000, 'x'));
    write(installed.filePath(u"small.txt"_s), "x");
    {
        const FullDisk full(1000);
        QCOMPARE(CopyMissingDataFiles(installed.path()), 1);
    }
    QVERIFY(!QFileInfo::exists(folder.Path(u"large.txt"_s)));
    QVERIFY(QFileInfo::exists(folder.Path(u"small.txt"_s)));
    QCOMPARE(folder.Log(),
             QStringList{u"Cannot copy the data file large.txt into the application folder."_s});
}

void tst_AppFolder::copyingFromNowhereCopiesNothing()
{
    const TestFolder folder;
    QCOMPARE(CopyMissingDataFiles(folder.Path(u"none"_s)), 0);
    QCOMPARE(folder.Log(), QStringList());
}

void tst_AppFolder::noInstalledDataIsNotTheCurrentFolder()
{
    const TestFolder folder;
    const QTemporaryDir here;
    QFile stray(here.filePath(u"stray.txt"_s));
    QVERIFY(stray.open(QIODevice::WriteOnly));
    stray.close();
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(here.path()));
    const int copied = CopyMissingDataFiles({});
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(copied, 0);
    QVERIFY(!QFileInfo::exists(folder.Path(u"stray.txt"_s)));
}

void tst_AppFolder::fileContent()
{
    const TestFolder folder;
    folder.Write(u"x.bin"_s, QByteArray("a\0b\r\n", 5));
    QCOMPARE(FileContent(folder.Path(u"x.bin"_s)), QByteArray("a\0b\r\n", 5));
}

void tst_AppFolder::fileContentOfWhatCannotBeRead()
{
    const TestFolder folder;
    const auto errorOf = [](const QString &path) {
        try {
            FileContent(path);
        } catch (const RunTimeError &error) {
            return error.Number();
        }
        return 0;
    };
    QCOMPARE(errorOf(folder.Path(u"none.txt"_s)), 53);
    MakeUnreadable(folder.Path(u"folder.txt"_s));
    QCOMPARE(errorOf(folder.Path(u"folder.txt"_s)), 75);
}

void tst_AppFolder::replacingAFolderIsRefused()
{
    const TestFolder folder;
    MakeUnreadable(folder.Path(u"x"_s));
    QVERIFY(!ReplaceFileContent(folder.Path(u"x"_s), "y"));
    QVERIFY(QFileInfo(folder.Path(u"x"_s)).isDir());
}

void tst_AppFolder::replacingInAMissingFolderIsRefused()
{
    const TestFolder folder;
    QVERIFY(!ReplaceFileContent(folder.Path(u"none/x"_s), "y"));
    QVERIFY(!QFileInfo::exists(folder.Path(u"none"_s)));
}

HALVANE_TEST_CHILD("--say-folder", sayTheFolder)
HALVANE_TEST(tst_AppFolder)
#include "tst_AppFolder.moc"
