#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/RunSettings.h"
#include "core/UserStore.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr QFileDevice::Permissions othersMay = QFileDevice::ReadGroup | QFileDevice::WriteGroup
                                               | QFileDevice::ReadOther | QFileDevice::WriteOther;

CSetting optionsFile()
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting;
}
} // namespace

class tst_Settings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void pathOfTheFile_data();
    void pathOfTheFile();
    void withoutANameTheFileHasTheNameOfTheProgram();
    void namesAreMatchedWithoutRegardToCase();
    void anUninitialisedReaderReadsOptions();
    void stringValues_data();
    void stringValues();
    void aValueIsCutAt8191Characters_data();
    void aValueIsCutAt8191Characters();
    void integerValues_data();
    void integerValues();
    void anIntegerIsSavedAsText();
    void everyCallGoesToTheFile();
    void sectionsAndKeysCanBeDeleted();
    void saveModeIsReadAndWritten();
    void withIniModeOffThePerUserStoreIsUsed();
    void theUserStoreGivesTheFallbackForWhatWasNeverSaved();
    void aMissingFileGivesTheDefaultWithoutAWord();
    void anUnreadableFileGivesTheDefaultAndALogLine();
    void onlyWhatWasReadIsReplaced_data();
    void onlyWhatWasReadIsReplaced();
    void anUnwritableFileLeavesALogLine();
    void aFailedDeleteLeavesALogLine();
    void theFileIsItsOwnersOnly_data();
    void theFileIsItsOwnersOnly();
    void aFullDiskLeavesTheOldFileByteForByte();
    void aWriteThatChangesNothingLeavesTheFileAlone();
    void aLinkedFileStaysALink();
    void noTemporaryFileStaysBehind();
    void severalAreWrittenAtOnce();
    void whatIsHeldOrReadsTheSameIsNotWritten();
    void severalThatCannotBeWrittenLeaveALogLine();
    void aKeyThatIsHeldGoesBeforeTheFile();
    void aKeyThatIsHeldIsNotWritten();
    void onlyOptionsAreHeld();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_Settings::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_Settings::cleanup()
{
    folder.reset();
}

void tst_Settings::pathOfTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("with its ending") << u"options.ini"_s << u"options.ini"_s;
    QTest::newRow("without") << u"waCtyCds"_s << u"waCtyCds.ini"_s;
    QTest::newRow("the ending in capitals") << u"NEW.INI"_s << u"NEW.INI"_s;
    QTest::newRow("another ending") << u"new.txt"_s << u"new.txt.ini"_s;
    QTest::newRow("blanks around") << u"  templates.ini "_s << u"templates.ini"_s;
    QTest::newRow("a short name") << u"x"_s << u"x.ini"_s;
}

void tst_Settings::pathOfTheFile()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    CSetting setting;
    setting.Init(name, true);
    QCOMPARE(setting.FullPath(), folder->Path(file));
}

void tst_Settings::withoutANameTheFileHasTheNameOfTheProgram()
{
    CSetting setting;
    setting.Init();
    QCOMPARE(setting.FullPath(), folder->Path(u"test_core.ini"_s));
    QVERIFY(setting.SaveMode());
}

void tst_Settings::namesAreMatchedWithoutRegardToCase()
{
    folder->Write(u"options.ini"_s, "[security]\r\nUserName=O65\r\n");
    CSetting setting;
    setting.Init(u"Options"_s, true);
    QCOMPARE(setting.GetSettingStr(u"Security"_s, u"USERNAME"_s, u"none"_s), u"O65"_s);
    setting.SaveSettingStr(u"SECURITY"_s, u"username"_s, u"O66"_s);
    QCOMPARE(folder->Read(u"options.ini"_s), QByteArray("[security]\r\nUserName=O66\r\n"));
    QVERIFY(!QDir(folder->Path()).entryList().contains(u"Options.ini"_s));
}

void tst_Settings::anUninitialisedReaderReadsOptions()
{
    folder->Write(u"options.ini"_s, "[General]\r\nRNHeader=Firm\r\n");
    CSetting setting;
    QCOMPARE(setting.GetSettingStr(u"General"_s, u"RNHeader"_s, u"0"_s), u"Firm"_s);
    QVERIFY(setting.SaveMode());
}

void tst_Settings::stringValues_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("value");
    QTest::newRow("a value") << QByteArray("[S]\r\nK=v\r\n") << u"v"_s;
    QTest::newRow("blanks around it") << QByteArray("[S]\r\nK=  v \r\n") << u"v"_s;
    QTest::newRow("blanks inside quotes") << QByteArray("[S]\r\nK=\"  v \"\r\n") << u"v"_s;
    QTest::newRow("no such key") << QByteArray("[S]\r\nL=v\r\n") << u"default"_s;
    QTest::newRow("no such section") << QByteArray("[T]\r\nK=v\r\n") << u"default"_s;
    QTest::newRow("an empty file") << QByteArray() << u"default"_s;
    QTest::newRow("an empty value") << QByteArray("[S]\r\nK=\r\n") << u""_s;
    QTest::newRow("a NUL ends it") << QByteArray("[S]\r\nK=ab\0cd\r\n", 14) << u"ab"_s;
    QTest::newRow("a NUL at once") << QByteArray("[S]\r\nK=\0cd\r\n", 12) << u""_s;
}

void tst_Settings::stringValues()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, value);
    folder->Write(u"options.ini"_s, content);
    QCOMPARE(optionsFile().GetSettingStr(u"S"_s, u"K"_s, u"default"_s), value);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Settings::aValueIsCutAt8191Characters_data()
{
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("read");
    QTest::newRow("8190") << 8190 << 8190;
    QTest::newRow("8191") << 8191 << 8191;
    QTest::newRow("8192") << 8192 << 8191;
    QTest::newRow("100000") << 100000 << 8191;
}

void tst_Settings::aValueIsCutAt8191Characters()
{
    QFETCH(int, written);
    QFETCH(int, read);
    CSetting setting = optionsFile();
    setting.SaveSettingStr(u"S"_s, u"K"_s, QString(written, u'x'));
    QCOMPARE(setting.GetSettingStr(u"S"_s, u"K"_s, {}), QString(read, u'x'));
}

void tst_Settings::integerValues_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("number");
    QTest::newRow("a number") << QByteArray("17") << 17;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("negative") << QByteArray("-1") << -1;
    QTest::newRow("digits, then letters") << QByteArray("12abc") << 12;
    QTest::newRow("no number") << QByteArray("abc") << 0;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("blanks around") << QByteArray("  8 ") << 8;
    QTest::newRow("the greatest") << QByteArray("32767") << 32767;
    QTest::newRow("the least but one") << QByteArray("-32767") << -32767;
}

void tst_Settings::integerValues()
{
    QFETCH(QByteArray, value);
    QFETCH(int, number);
    folder->Write(u"options.ini"_s, "[S]\r\nK=" + value + "\r\n");
    QCOMPARE(int(optionsFile().GetSettingInt(u"S"_s, u"K"_s, 5)), number);
    QCOMPARE(int(optionsFile().GetSettingInt(u"S"_s, u"Missing"_s, 5)), 5);
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Settings::anIntegerIsSavedAsText()
{
    folder->Write(u"options.ini"_s, {});
    optionsFile().SaveSettingInt(u"Searching"_s, u"SearchTimeout"_s, -12);
    QCOMPARE(folder->Read(u"options.ini"_s), QByteArray("[Searching]\r\nSearchTimeout=-12\r\n"));
}

void tst_Settings::everyCallGoesToTheFile()
{
    CSetting setting = optionsFile();
    folder->Write(u"options.ini"_s, "[S]\r\nK=1\r\n");
    QCOMPARE(setting.GetSettingStr(u"S"_s, u"K"_s, {}), u"1"_s);
    folder->Write(u"options.ini"_s, "[S]\r\nK=2\r\n");
    QCOMPARE(setting.GetSettingStr(u"S"_s, u"K"_s, {}), u"2"_s);
    folder->Remove(u"options.ini"_s);
    QCOMPARE(setting.GetSettingStr(u"S"_s, u"K"_s, u"3"_s), u"3"_s);
}

void tst_Settings::sectionsAndKeysCanBeDeleted()
{
    folder->Write(u"templates.ini"_s, "[WaSup]\r\na=One\r\nb=Two\r\n[One]\r\nJuris=King,\r\n");
    CSetting setting;
    setting.Init(u"templates"_s, true);
    setting.DeleteKey(u"wasup"_s, u"A"_s, u"templates.ini"_s);
    QCOMPARE(folder->Read(u"templates.ini"_s),
             QByteArray("[WaSup]\r\nb=Two\r\n[One]\r\nJuris=King,\r\n"));
    setting.DeleteSection(u"one"_s, u"templates"_s);
    QCOMPARE(folder->Read(u"templates.ini"_s), QByteArray("[WaSup]\r\nb=Two\r\n"));
}

void tst_Settings::saveModeIsReadAndWritten()
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    QVERIFY(setting.SaveMode());
    setting.SetSaveMode(false);
    QVERIFY(!setting.SaveMode());
    setting.Init(u"options.ini"_s, false);
    QVERIFY(!setting.SaveMode());
}

void tst_Settings::withIniModeOffThePerUserStoreIsUsed()
{
    const QByteArray before = folder->Read(u"options.ini"_s);
    CSetting setting;
    setting.Init(u"options.ini"_s, false);
    setting.SaveSettingStr(u"Settings"_s, u"MainLeft"_s, u"1234"_s);
    setting.SaveSettingInt(u"Settings"_s, u"MainTop"_s, 77);
    setting.SaveSettingStr(u"Settings"_s, u"Odd"_s, u"word"_s);
    QCOMPARE(setting.GetSettingStr(u"Settings"_s, u"MainLeft"_s, u"1000"_s), u"1234"_s);
    QCOMPARE(int(setting.GetSettingInt(u"Settings"_s, u"MainTop"_s, 1000)), 77);
    QCOMPARE(int(setting.GetSettingInt(u"Settings"_s, u"Odd"_s, 1000)), 0);
    QCOMPARE(UserStoreValue(u"Settings"_s, u"MainLeft"_s, {}), u"1234"_s);
    QCOMPARE(folder->Read(u"options.ini"_s), before);
}

void tst_Settings::theUserStoreGivesTheFallbackForWhatWasNeverSaved()
{
    QCOMPARE(UserStoreValue(u"Settings"_s, u"Never"_s, u"6500"_s), u"6500"_s);
    SaveUserStoreValue(u"Settings"_s, u"MainWidth"_s, u"9000"_s);
    QCOMPARE(UserStoreValue(u"Settings"_s, u"MainWidth"_s, u"6500"_s), u"9000"_s);
}

void tst_Settings::aMissingFileGivesTheDefaultWithoutAWord()
{
    folder->Remove(u"options.ini"_s);
    QCOMPARE(optionsFile().GetSettingStr(u"S"_s, u"K"_s, u"default"_s), u"default"_s);
    QCOMPARE(int(optionsFile().GetSettingInt(u"S"_s, u"K"_s, 9)), 9);
    QCOMPARE(GetOptionStr(u"S"_s, u"K"_s), u"0"_s);
    QVERIFY(!QFileInfo::exists(folder->Path(u"options.ini"_s)));
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Settings::anUnreadableFileGivesTheDefaultAndALogLine()
{
    MakeUnreadable(folder->Path(u"options.ini"_s));
    QCOMPARE(optionsFile().GetSettingStr(u"General"_s, u"RNHeader"_s, u"d"_s), u"d"_s);
    QCOMPARE(int(optionsFile().GetSettingInt(u"General"_s, u"Count"_s, 4)), 4);
    QCOMPARE(folder->Log(),
             (QStringList{u"Error reading Setting General, RNHeader - CSetting.GetSettingStr"_s,
                          u"Error reading Setting General, Count - CSetting.GetSettingInt"_s}));
}

void tst_Settings::onlyWhatWasReadIsReplaced_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("nothing there") << QByteArray() << QByteArray("[S]\r\nK=new\r\n");
    QTest::newRow("no such key") << QByteArray("[S]\r\nL=1\r\n")
                                 << QByteArray("[S]\r\nL=1\r\nK=new\r\n");
    QTest::newRow("what was read")
        << QByteArray("[S]\r\nK=A\r\n") << QByteArray("[S]\r\nK=new\r\n");
    QTest::newRow("something else, which could not be read")
        << QByteArray("[S]\r\nK=1\r\n") << QByteArray("[S]\r\nK=1\r\n");
}

void tst_Settings::onlyWhatWasReadIsReplaced()
{
    QFETCH(QByteArray, before);
    folder->Write(u"options.ini"_s, before);
    optionsFile().ReplaceSettingStr(u"S"_s, u"K"_s, u"A"_s, u"new"_s);
    QTEST(folder->Read(u"options.ini"_s), "after");
}

void tst_Settings::anUnwritableFileLeavesALogLine()
{
    MakeUnreadable(folder->Path(u"options.ini"_s));
    optionsFile().SaveSettingStr(u"General"_s, u"RNHeader"_s, u"x"_s);
    optionsFile().SaveSettingInt(u"General"_s, u"Count"_s, 1);
    QVERIFY(SaveOptionStr(u"General"_s, u"RNHeader"_s, u"x"_s));
    QCOMPARE(folder->Log(),
             (QStringList{u"Error writing Setting General, RNHeader - CSetting.SaveSettingStr"_s,
                          u"Error writing Setting General, Count - CSetting.SaveSettingInt"_s,
                          u"Error writing Setting General, RNHeader - CSetting.SaveSettingStr"_s}));
}

void tst_Settings::aFailedDeleteLeavesALogLine()
{
    MakeUnreadable(folder->Path(u"options.ini"_s));
    CSetting setting = optionsFile();
    setting.DeleteKey(u"S"_s, u"K"_s, u"options.ini"_s);
    setting.DeleteSection(u"S"_s, u"options.ini"_s);
    const QStringList log = folder->Log();
    QCOMPARE(log.size(), 2);
    QVERIFY(log.at(0).startsWith(u"Error writing Setting S, K"_s));
    QVERIFY(log.at(1).startsWith(u"Error writing Setting S, "_s));
}

void tst_Settings::theFileIsItsOwnersOnly_data()
{
    QTest::addColumn<bool>("existed");
    QTest::newRow("when it is new") << false;
    QTest::newRow("when it was open to all") << true;
}

void tst_Settings::theFileIsItsOwnersOnly()
{
    QFETCH(bool, existed);
    const QString path = folder->Path(u"options.ini"_s);
    if (existed)
        QVERIFY(QFile::setPermissions(path, QFile::permissions(path) | othersMay));
    else
        folder->Remove(u"options.ini"_s);
    for (int i = 1; i <= 3; ++i) {
        optionsFile().SaveSettingInt(u"security"_s, u"Count"_s, static_cast<qint16>(i));
        QCOMPARE(QFile::permissions(path) & othersMay, QFileDevice::Permissions());
        QVERIFY(QFile::permissions(path).testFlag(QFileDevice::ReadOwner));
        QVERIFY(QFile::permissions(path).testFlag(QFileDevice::WriteOwner));
    }
}

void tst_Settings::aFullDiskLeavesTheOldFileByteForByte()
{
    const QByteArray before = folder->Read(u"options.ini"_s);
    QVERIFY(before.size() > 100);
    const QStringList names = QDir(folder->Path()).entryList(QDir::Files);
    for (const qint64 room : {qint64(0), qint64(1), qint64(100), qint64(before.size())}) {
        {
            const FullDisk full(room);
            optionsFile().SaveSettingStr(u"New"_s, u"Key"_s, u"a value that does not fit"_s);
        }
        QCOMPARE(folder->Read(u"options.ini"_s), before);
    }
    QStringList now = QDir(folder->Path()).entryList(QDir::Files);
    now.removeAll(u"AppInfo.txt"_s);
    QCOMPARE(now, names);
    optionsFile().SaveSettingStr(u"New"_s, u"Key"_s, u"a value that fits"_s);
    QCOMPARE(GetOptionStr(u"New"_s, u"Key"_s), u"a value that fits"_s);
}

void tst_Settings::aWriteThatChangesNothingLeavesTheFileAlone()
{
    const QString path = folder->Path(u"options.ini"_s);
    folder->Write(u"options.ini"_s, "[S]\r\nK=v\r\n");
    const FullDisk full(0);
    optionsFile().SaveSettingStr(u"S"_s, u"K"_s, u"v"_s);
    QCOMPARE(QFileInfo(path).size(), 10);
    QVERIFY(!QFileInfo::exists(folder->Path(u"AppInfo.txt"_s)));
}

void tst_Settings::aLinkedFileStaysALink()
{
    QTemporaryDir elsewhere;
    const QString real = elsewhere.filePath(u"real.ini"_s);
    QVERIFY(QFile::rename(folder->Path(u"options.ini"_s), real));
    QVERIFY(QFile::link(real, folder->Path(u"options.ini"_s)));
    QVERIFY(SaveOptionStr(u"General"_s, u"RNHeader"_s, u"Firm"_s));
    QVERIFY(QFileInfo(folder->Path(u"options.ini"_s)).isSymLink());
    QFile file(real);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("RNHeader=Firm"));
}

void tst_Settings::noTemporaryFileStaysBehind()
{
    const QStringList before = QDir(folder->Path()).entryList(QDir::Files | QDir::Hidden);
    for (int i = 0; i < 10; ++i)
        SaveOptionStr(u"S"_s, u"K"_s, QString::number(i));
    QCOMPARE(QDir(folder->Path()).entryList(QDir::Files | QDir::Hidden), before);
}

void tst_Settings::severalAreWrittenAtOnce()
{
    folder->Write(u"options.ini"_s, "; mine\r\n[S]\r\nA=1\r\n");
    QVERIFY(optionsFile().SaveSettings(
        {{u"S"_s, u"A"_s, u"2"_s}, {u"T"_s, u"B"_s, u"'quoted'"_s}, {u"S"_s, u"A"_s, u"3"_s}}));
    QCOMPARE(folder->Read(u"options.ini"_s), "; mine\r\n[S]\r\nA=3\r\n[T]\r\nB=\"'quoted'\"\r\n");
    QCOMPARE(optionsFile().GetSettingStr(u"T"_s, u"B"_s, {}), u"'quoted'"_s);
}

void tst_Settings::whatIsHeldOrReadsTheSameIsNotWritten()
{
    const QByteArray before = "[s]\r\n a = \"1\" \r\nB='x'\r\n";
    folder->Write(u"options.ini"_s, before);
    HoldForThisRun(u"S"_s, u"C"_s, u"held"_s);
    QVERIFY(optionsFile().SaveSettings(
        {{u"S"_s, u"A"_s, u"1"_s}, {u"S"_s, u"B"_s, u"x"_s}, {u"S"_s, u"C"_s, u"new"_s}}));
    QCOMPARE(folder->Read(u"options.ini"_s), before);
}

void tst_Settings::severalThatCannotBeWrittenLeaveALogLine()
{
    MakeUnreadable(folder->Path(u"options.ini"_s));
    QVERIFY(!optionsFile().SaveSettings({{u"S"_s, u"A"_s, u"1"_s}, {u"S"_s, u"B"_s, u"2"_s}}));
    QCOMPARE(folder->Log(), QStringList{u"Error writing Setting S, A - CSetting.SaveSettings"_s});
}

void tst_Settings::aKeyThatIsHeldGoesBeforeTheFile()
{
    folder->Write(u"options.ini"_s, "[Communications]\r\nHVServerPort=80\r\nHVServerIP1=a\r\n");
    HoldForThisRun(u"Communications"_s, u"HVServerPort"_s, u"4711"_s);
    HoldForThisRun(u"Communications"_s, u"HVServerIP2"_s, u"here"_s);
    CSetting setting = optionsFile();
    // In whatever letters, through whatever call, in the file or not.
    QCOMPARE(setting.GetSettingStr(u"communications"_s, u"HVSERVERPORT"_s, u"x"_s), u"4711"_s);
    QCOMPARE(setting.GetSettingInt(u"Communications"_s, u"HVServerPort"_s, 1), qint16(4711));
    QCOMPARE(setting.GetSettingStr(u"Communications"_s, u"HVServerIP2"_s, u"x"_s), u"here"_s);
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerPort"_s), u"4711"_s);
    CSetting never;
    QCOMPARE(never.GetSettingStr(u"Communications"_s, u"HVServerPort"_s, u"x"_s), u"4711"_s);
    // Other keys are the file's.
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerIP1"_s), u"a"_s);
    QCOMPARE(GetOptionStr(u"General"_s, u"HVServerPort"_s), u"0"_s);
    // The next run begins without it.
    TestFolder::ResetProgram();
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerPort"_s), u"80"_s);
}

void tst_Settings::aKeyThatIsHeldIsNotWritten()
{
    const QByteArray before = "[Communications]\r\nHVServerPort=85\r\n[Searching]\r\n";
    folder->Write(u"options.ini"_s, before);
    HoldForThisRun(u"Communications"_s, u"HVServerPort"_s, u"4711"_s);
    SaveOptionStr(u"Communications"_s, u"HVServerPort"_s, u"80"_s);
    SaveOptionStr(u" communications "_s, u" hvserverport "_s, u"80"_s);
    optionsFile().SaveSettingInt(u"Communications"_s, u"HVServerPort"_s, 80);
    QCOMPARE(folder->Read(u"options.ini"_s), before);
    QCOMPARE(GetOptionStr(u"Communications"_s, u"HVServerPort"_s), u"4711"_s);
    LoadAppOptions();
    QCOMPARE(Global.lngServerPort, 4711);
    QVERIFY(folder->Read(u"options.ini"_s).contains("HVServerPort=85\r\n"));
    SaveOptionStr(u"Searching"_s, u"DefaultView"_s, u"OR"_s);
    QVERIFY(folder->Read(u"options.ini"_s).contains("DefaultView=OR"));
}

void tst_Settings::onlyOptionsAreHeld()
{
    HoldForThisRun(u"Cty2Code"_s, u"King"_s, u"99"_s);
    CSetting codes;
    codes.Init(u"waCtyCds"_s, true);
    QCOMPARE(codes.GetSettingStr(u"Cty2Code"_s, u"King"_s, u"0"_s), u"17"_s);
    codes.SaveSettingStr(u"Cty2Code"_s, u"King"_s, u"18"_s);
    QCOMPARE(codes.GetSettingStr(u"Cty2Code"_s, u"King"_s, u"0"_s), u"18"_s);
    CSetting user;
    user.Init(u"options.ini"_s, false);
    QCOMPARE(user.GetSettingStr(u"Cty2Code"_s, u"King"_s, u"none"_s), u"none"_s);
}

HALVANE_TEST(tst_Settings)
#include "tst_Settings.moc"
