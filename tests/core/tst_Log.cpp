#include "core/AppFolder.h"
#include "core/GeneralDate.h"
#include "core/Log.h"
#include "core/Windows1252.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype rotationBytes = 1'024'000;

constexpr QFileDevice::Permissions othersMay = QFileDevice::ReadGroup | QFileDevice::WriteGroup
                                               | QFileDevice::ReadOther | QFileDevice::WriteOther;

const QString logName = u"AppInfo.txt"_s;
const QString backupName = u"AppInfo.bak"_s;
} // namespace

class tst_Log : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anEntryIsDateTimeDashesMessageAndCrLf();
    void entriesFollowEachOther();
    void aMessageMayHoldItsOwnLineEnds();
    void whatIsRepeatedMakesNoEntryOfItsOwn();
    void theTextIsWindows1252();
    void anEntryThatIsEmptyIsWrittenToo();
    void theDateComesFromTheClock();
    void aFileOfExactlyTheLimitDoesNotRotate();
    void oneByteMoreRotatesOnTheNextWrite();
    void aSecondRotationReplacesTheBackup();
    void theFileMayExceedTheLimitByOneEntry();
    void theLogIsItsOwnersOnly_data();
    void theLogIsItsOwnersOnly();
    void theBackupOfALogThatWasOpenToAllIsItsOwnersOnly();
    void aLogThatSomebodyHasReplacedIsItsOwnersOnly();
    void aFullDiskIsSilent();
    void aFullDiskLeavesNoHalfEntry();
    void aMissingFolderIsSilent();
    void aFolderInThePlaceOfTheLogIsSilent();
    void aBackupThatCannotBeReplacedLosesNoEntry();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_Log::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_Log::cleanup()
{
    folder.reset();
}

void tst_Log::anEntryIsDateTimeDashesMessageAndCrLf()
{
    WriteAppInfo(u"Attempting to Connect to Router"_s);
    const QByteArray content = folder->Read(logName);
    QVERIFY(content.endsWith(" -- Attempting to Connect to Router\r\n"));
    QVERIFY(content.indexOf(" -- ") > 8);
    QCOMPARE(content.count('\n'), 1);
}

void tst_Log::entriesFollowEachOther()
{
    WriteAppInfo(u"one"_s);
    WriteAppInfo(u"two"_s);
    QCOMPARE(folder->Log(), (QStringList{u"one"_s, u"two"_s}));
}

void tst_Log::aMessageMayHoldItsOwnLineEnds()
{
    WriteAppInfo(u" \r\n"_s, LogLines::Own);
    QVERIFY(folder->Read(logName).endsWith(" --  \r\n\r\n"));
}

/// What a server says is repeated in many entries.
void tst_Log::whatIsRepeatedMakesNoEntryOfItsOwn()
{
    WriteAppInfo(u"Current Response: --> A\r\n1/2/1999 9:00:00 AM -- Login Successful\t~"_s);
    WriteAppInfo(QString(u"a"_s + QChar(0) + u"\x1B[2J\x7F\\"_s));
    const QByteArray content = folder->Read(logName);
    QCOMPARE(content.count('\n'), 2);
    QVERIFY(content.contains(" -- Current Response: --> A\\x0D\\x0A1/2/1999 9:00:00 AM -- Login "
                             "Successful\t~\r\n"));
    QVERIFY(content.endsWith(" -- a\\x00\\x1B[2J\\x7F\\\r\n"));
}

void tst_Log::theTextIsWindows1252()
{
    WriteAppInfo(u"SendReq: A¦\u20AC\u4E2D"_s);
    QVERIFY(folder->Read(logName).endsWith("SendReq: A\xA6\x80?\r\n"));
}

void tst_Log::anEntryThatIsEmptyIsWrittenToo()
{
    WriteAppInfo({});
    QVERIFY(folder->Read(logName).endsWith(" -- \r\n"));
}

void tst_Log::theDateComesFromTheClock()
{
    QByteArray morning;
    {
        const TestClock clock(QDateTime({2026, 3, 10}, {9, 8, 7}));
        WriteAppInfo(u"x"_s);
        morning = folder->Read(logName);
        const QString written = GeneralDate(QDateTime({2026, 3, 10}, {9, 8, 7})) + u" -- x\r\n"_s;
        QCOMPARE(FromWindows1252(morning), written);
        QVERIFY(written.contains(u"2026") && written.contains(u"08"));
        WriteAppInfo(u"x"_s);
        QCOMPARE(folder->Read(logName), morning + morning);
    }
    folder->Remove(logName);
    const TestClock clock(QDateTime({2026, 3, 10}, {9, 8, 8}));
    WriteAppInfo(u"x"_s);
    QVERIFY(folder->Read(logName) != morning);
}

void tst_Log::aFileOfExactlyTheLimitDoesNotRotate()
{
    folder->Write(logName, QByteArray(rotationBytes, 'x'));
    WriteAppInfo(u"more"_s);
    QVERIFY(!QFileInfo::exists(folder->Path(backupName)));
    QVERIFY(folder->Read(logName).size() > rotationBytes);
    QVERIFY(folder->Read(logName).startsWith(QByteArray(rotationBytes, 'x')));
}

void tst_Log::oneByteMoreRotatesOnTheNextWrite()
{
    const QByteArray full(rotationBytes + 1, 'x');
    folder->Write(logName, full);
    WriteAppInfo(u"fresh"_s);
    QCOMPARE(folder->Read(backupName), full);
    QCOMPARE(folder->Log(), QStringList{u"fresh"_s});
}

void tst_Log::aSecondRotationReplacesTheBackup()
{
    folder->Write(backupName, "the generation before");
    const QByteArray full(rotationBytes + 1, 'y');
    folder->Write(logName, full);
    WriteAppInfo(u"fresh"_s);
    QCOMPARE(folder->Read(backupName), full);
    const QStringList names = QDir(folder->Path()).entryList({u"AppInfo*"_s}, QDir::Files);
    QCOMPARE(names, (QStringList{backupName, logName}));
}

void tst_Log::theFileMayExceedTheLimitByOneEntry()
{
    folder->Write(logName, QByteArray(rotationBytes - 1, 'x'));
    WriteAppInfo(QString(5000, u'a'));
    QVERIFY(!QFileInfo::exists(folder->Path(backupName)));
    const QByteArray full = folder->Read(logName);
    QVERIFY(full.size() > rotationBytes + 5000);
    WriteAppInfo(u"b"_s);
    QCOMPARE(folder->Read(backupName), full);
}

void tst_Log::theLogIsItsOwnersOnly_data()
{
    QTest::addColumn<bool>("existed");
    QTest::newRow("when it is new") << false;
    QTest::newRow("when it was open to all") << true;
}

void tst_Log::theLogIsItsOwnersOnly()
{
    QFETCH(bool, existed);
    const QString path = folder->Path(logName);
    if (existed) {
        folder->Write(logName, "old\r\n");
        QVERIFY(QFile::setPermissions(path, QFile::permissions(path) | othersMay));
    }
    WriteAppInfo(u"SendReq: LOGON"_s);
    QCOMPARE(QFile::permissions(path) & othersMay, QFileDevice::Permissions());
    QVERIFY(QFile::permissions(path).testFlag(QFileDevice::ReadOwner));
}

void tst_Log::theBackupOfALogThatWasOpenToAllIsItsOwnersOnly()
{
    const QString path = folder->Path(logName);
    folder->Write(logName, QByteArray(rotationBytes + 1, 'x'));
    QVERIFY(QFile::setPermissions(path, QFile::permissions(path) | othersMay));
    WriteAppInfo(u"fresh"_s);
    QCOMPARE(QFile::permissions(folder->Path(backupName)) & othersMay, QFileDevice::Permissions());
    QCOMPARE(QFile::permissions(path) & othersMay, QFileDevice::Permissions());
}

void tst_Log::aLogThatSomebodyHasReplacedIsItsOwnersOnly()
{
    WriteAppInfo(u"first"_s);
    const QString path = folder->Path(logName);
    QVERIFY(QFile::remove(path));
    folder->Write(logName, "another program's\r\n");
    QVERIFY(QFile::setPermissions(path, QFile::permissions(path) | othersMay));
    WriteAppInfo(u"second"_s);
    QCOMPARE(QFile::permissions(path) & othersMay, QFileDevice::Permissions());
    QVERIFY(folder->Read(logName).startsWith("another program's\r\n"));
}

void tst_Log::aFullDiskIsSilent()
{
    WriteAppInfo(u"before"_s);
    const QByteArray before = folder->Read(logName);
    {
        const FullDisk full(before.size());
        WriteAppInfo(u"lost"_s);
    }
    QCOMPARE(folder->Read(logName), before);
    WriteAppInfo(u"after"_s);
    QCOMPARE(folder->Log(), (QStringList{u"before"_s, u"after"_s}));
}

void tst_Log::aFullDiskLeavesNoHalfEntry()
{
    WriteAppInfo(u"before"_s);
    const QByteArray before = folder->Read(logName);
    {
        // Room for the date, and for the first letters.
        const FullDisk full(before.size() + before.size() / 2);
        WriteAppInfo(u"this is longer than what is left of the disk"_s);
    }
    QCOMPARE(folder->Read(logName), before);
    WriteAppInfo(u"after"_s);
    QCOMPARE(folder->Log(), (QStringList{u"before"_s, u"after"_s}));
}

void tst_Log::aMissingFolderIsSilent()
{
    QVERIFY(QDir(folder->Path()).removeRecursively());
    WriteAppInfo(u"lost"_s);
    QVERIFY(!QFileInfo::exists(folder->Path(logName)));
}

void tst_Log::aFolderInThePlaceOfTheLogIsSilent()
{
    MakeUnreadable(folder->Path(logName));
    WriteAppInfo(u"lost"_s);
    QVERIFY(QFileInfo(folder->Path(logName)).isDir());
}

void tst_Log::aBackupThatCannotBeReplacedLosesNoEntry()
{
    MakeUnreadable(folder->Path(backupName));
    folder->Write(logName, QByteArray(rotationBytes + 1, 'x'));
    WriteAppInfo(u"kept"_s);
    WriteAppInfo(u"and this"_s);
    QVERIFY(folder->Read(logName).contains(" -- kept\r\n"));
    QVERIFY(folder->Read(logName).endsWith(" -- and this\r\n"));
}

HALVANE_TEST(tst_Log)
#include "tst_Log.moc"
