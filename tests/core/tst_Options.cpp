#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {
const QString phrase = u"--Enter a Name or Phrase to include on the 1st page--"_s;

/// What a global holds, as text.
using Reader = std::function<QString()>;

QString truth(Boolean value)
{
    return value ? u"True"_s : u"False"_s;
}

/// One setting of options.ini: what a stored value becomes, and what is in the file afterwards.
struct Row
{
    const char *name;
    QString section;
    QString key;
    QString stored; ///< null: the key is missing
    QString value;
    QString afterwards; ///< null: the key is still missing
    Reader read;
};

QString indexResults()
{
    return QString::number(Global.intMaxIndexResults) + u'/' + QString::number(Global.CasesPerPage);
}
QString serverPort()
{
    return QString::number(Global.lngServerPort);
}
QString timeOut()
{
    return QString::number(Global.intSearchTimeout);
}
QString messages()
{
    return QString::number(Global.intSearchingMsgs);
}

void addRows(const QList<Row> &rows)
{
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("afterwards");
    QTest::addColumn<Reader>("read");
    for (const Row &row : rows) {
        QTest::addRow("%s %s", qPrintable(row.key), row.name)
            << row.section << row.key << row.stored << row.value << row.afterwards << row.read;
    }
}

QByteArray fileWith(const QString &section, const QString &key, const QString &value)
{
    if (value.isNull())
        return "; nothing\r\n";
    return '[' + section.toLatin1() + "]\r\n" + key.toLatin1() + '=' + value.toLatin1() + "\r\n";
}
} // namespace

class tst_Options : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aMissingKeyReadsAsZero();
    void aSavedKeyReadsBack();
    void everySettingReadsAsItsRowSaysWhenItIsMissing();
    void everySettingThatIsWrittenReadsBack();
    void aSettingIsWrittenInTheCapitalsOfItsFile();
    void encodeCredential_data();
    void encodeCredential();
    void decodeCredential_data();
    void decodeCredential();
    void credentialsOfTheWholeCodePageComeBack();
    void loadAppOptions_data();
    void loadAppOptions();
    void mainWindowOptions_data();
    void mainWindowOptions();
    void loadAppOptionsWritesBackInItsOrder();
    void aSecondLoadChangesNothing();
    void mainWindowOptionsAreNotReadByLoadAppOptions();
    void reportFolder_data();
    void reportFolder();
    void anExistingReportFolderIsTaken();
    void aReportFolderThatIsAFileFallsBack();
    void aReportFolderThatCannotBeMadeIsNoError();

private:
    /// Loads the options with what the row has stored, and compares what came of it.
    void loadRow(const std::function<void()> &load);

    std::unique_ptr<TestFolder> folder;
};

void tst_Options::init()
{
    folder = std::make_unique<TestFolder>();
}

void tst_Options::cleanup()
{
    folder.reset();
}

void tst_Options::aMissingKeyReadsAsZero()
{
    folder->Write(u"options.ini"_s, "[General]\r\nRNHeader=\r\n");
    QCOMPARE(GetOptionStr(u"General"_s, u"InactivityTimeOut"_s), u"0"_s);
    QCOMPARE(GetOptionStr(u"General"_s, u"RNHeader"_s), u""_s);
}

void tst_Options::aSavedKeyReadsBack()
{
    QVERIFY(SaveOptionStr(u"Searching"_s, u"DefaultView"_s, u"FED"_s));
    QCOMPARE(GetOptionStr(u"searching"_s, u"defaultview"_s), u"FED"_s);
}

void tst_Options::everySettingReadsAsItsRowSaysWhenItIsMissing()
{
    folder->Write(u"options.ini"_s, "; nothing\r\n");
    for (const SettingRow &row : SettingRows()) {
        QCOMPARE(ReadSetting(row.Id), row.Absent.toString());
        if (row.Rule == SettingRule::UpToThirty) // "0" is a wait of its own
            QCOMPARE(SettingValue(row.Id), u"0"_s);
        else if (row.Rule == SettingRule::Folder)
            QCOMPARE(SettingValue(row.Id), folder->Path(row.Default.toString()));
        else
            QCOMPARE(SettingValue(row.Id), row.Default.toString());
    }
    QCOMPARE(folder->Read(u"options.ini"_s), "; nothing\r\n");
}

void tst_Options::everySettingThatIsWrittenReadsBack()
{
    folder->Write(u"options.ini"_s, {});
    for (const SettingRow &row : SettingRows()) {
        if (row.Writer == SettingWriter::Nobody)
            continue;
        SaveSetting(row.Id, row.Writer, u"of "_s + row.Key);
        QCOMPARE(ReadSetting(row.Id), u"of "_s + row.Key);
    }
}

void tst_Options::aSettingIsWrittenInTheCapitalsOfItsFile()
{
    folder->Write(u"options.ini"_s, {});
    SaveSetting(Setting::DefaultIdCounty, SettingWriter::BatchEntry, u"Ada"_s);
    SaveSetting(Setting::RememberPwd, SettingWriter::Login, u"1"_s);
    QCOMPARE(folder->Read(u"options.ini"_s),
             "[Searching]\r\nDefaultIdCounty=Ada\r\n[security]\r\nRememberPwd=1\r\n");
}

void tst_Options::encodeCredential_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("encoded");
    QTest::newRow("two letters") << u"Ab"_s << u"O65O98"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("only blanks") << u"   "_s << u""_s;
    QTest::newRow("trimmed") << u" A b "_s << u"O65O32O98"_s;
    QTest::newRow("the letter O") << u"O"_s << u"O79"_s;
    QTest::newRow("the code page") << u"\u20AC\u00FF"_s << u"O128O255"_s;
}

void tst_Options::encodeCredential()
{
    QFETCH(QString, text);
    QFETCH(QString, encoded);
    QCOMPARE(EncodeCredential(text), encoded);
}

void tst_Options::decodeCredential_data()
{
    QTest::addColumn<QString>("encoded");
    QTest::addColumn<QString>("text");
    QTest::newRow("two letters") << u"O65O98"_s << u"Ab"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("without an O") << u"6598"_s << u""_s;
    QTest::newRow("the default of the setting") << u"0"_s << u""_s;
    QTest::newRow("what stands before the first O is ignored") << u"66O65"_s << u"A"_s;
    QTest::newRow("the code page") << u"O128O255O166"_s << u"\u20AC\u00FF¦"_s;
    QTest::newRow("no code") << u"O65OxO256O-1O98"_s << u"Ab"_s;
    QTest::newRow("a lone O") << u"O"_s << u""_s;
}

void tst_Options::decodeCredential()
{
    QFETCH(QString, encoded);
    QFETCH(QString, text);
    QCOMPARE(DecodeCredential(encoded), text);
}

void tst_Options::credentialsOfTheWholeCodePageComeBack()
{
    QString all;
    for (int code = 33; code < 256; ++code)
        all += DecodeCredential(u'O' + QString::number(code));
    QCOMPARE(all.size(), 223);
    QCOMPARE(DecodeCredential(EncodeCredential(all)), all);
}

void tst_Options::loadAppOptions_data()
{
    const QString searching = u"Searching"_s;
    const QString wire = u"Communications"_s;
    const Reader mru = [] { return truth(Global.bEnableMRU); };
    const Reader accounting = [] { return truth(Global.bEnableAcctg); };
    const Reader view = [] { return Global.strDefaultView; };
    const Reader wa = [] { return Global.strDefaultWaCounty; };
    const Reader oregon = [] { return Global.strDefaultOrCounty; };
    const Reader idaho = [] { return Global.strDefaultIDCounty; };
    const Reader index = [] { return Global.strDefaultToWaIndex; };
    const Reader header = [] { return Global.strPrintHdr; };
    const Reader headerText = [] { return Global.strPrintHdrVal; };
    const QString no;
    addRows({
        {"missing", searching, u"EnableMRU"_s, no, u"False"_s, no, mru},
        {"0", searching, u"EnableMRU"_s, u"0"_s, u"False"_s, u"0"_s, mru},
        {"1", searching, u"EnableMRU"_s, u"1"_s, u"True"_s, u"1"_s, mru},
        {"a word", searching, u"EnableMRU"_s, u"no"_s, u"True"_s, u"no"_s, mru},
        {"missing", u"Accounting"_s, u"EnableAcctg"_s, no, u"False"_s, no, accounting},
        {"0", u"Accounting"_s, u"EnableAcctg"_s, u"0"_s, u"False"_s, u"0"_s, accounting},
        {"1", u"Accounting"_s, u"EnableAcctg"_s, u"1"_s, u"True"_s, u"1"_s, accounting},
        {"missing", searching, u"MaxIndexResults"_s, no, u"500/500"_s, no, indexResults},
        {"0", searching, u"MaxIndexResults"_s, u"0"_s, u"500/500"_s, u"0"_s, indexResults},
        {"300", searching, u"MaxIndexResults"_s, u"300"_s, u"300/300"_s, u"300"_s, indexResults},
        {"negative", searching, u"MaxIndexResults"_s, u"-5"_s, u"500/500"_s, u"-5"_s, indexResults},
        {"a word", searching, u"MaxIndexResults"_s, u"all"_s, u"500/500"_s, u"all"_s, indexResults},
        {"missing", searching, u"DefaultView"_s, no, u"WA"_s, no, view},
        {"0", searching, u"DefaultView"_s, u"0"_s, u"WA"_s, u"0"_s, view},
        {"OR", searching, u"DefaultView"_s, u" OR "_s, u"OR"_s, u"OR"_s, view},
        {"none of the four goes through", searching, u"DefaultView"_s, u"XX"_s, u"XX"_s, u"XX"_s,
         view},
        {"missing", searching, u"DefaultWaCounty"_s, no, u"King"_s, no, wa},
        {"0 counts as absent", searching, u"DefaultWaCounty"_s, u"0"_s, u"King"_s, u"0"_s, wa},
        {"trimmed", searching, u"DefaultWaCounty"_s, u" Pend Oreille "_s, u"Pend Oreille"_s,
         u"Pend Oreille"_s, wa},
        {"missing", searching, u"DefaultOrCounty"_s, no, u"Adams"_s, no, oregon},
        {"0", searching, u"DefaultOrCounty"_s, u"0"_s, u"Adams"_s, u"0"_s, oregon},
        {"a name", searching, u"DefaultOrCounty"_s, u"Lane"_s, u"Lane"_s, u"Lane"_s, oregon},
        {"missing", searching, u"DefaultIDCounty"_s, no, u"Ada"_s, no, idaho},
        {"0", searching, u"DefaultIDCounty"_s, u"0"_s, u"Ada"_s, u"0"_s, idaho},
        {"a name", searching, u"DefaultIDCounty"_s, u"Boise"_s, u"Boise"_s, u"Boise"_s, idaho},
        {"missing", wire, u"HVServerPort"_s, no, u"80"_s, u"80"_s, serverPort},
        {"0", wire, u"HVServerPort"_s, u"0"_s, u"80"_s, u"80"_s, serverPort},
        {"85", wire, u"HVServerPort"_s, u" 85 "_s, u"85"_s, u"85"_s, serverPort},
        {"8080", wire, u"HVServerPort"_s, u"8080"_s, u"8080"_s, u"8080"_s, serverPort},
        {"missing", searching, u"DefaultToWaIndex"_s, no, u"0"_s, u"0"_s, index},
        {"0", searching, u"DefaultToWaIndex"_s, u"0"_s, u"0"_s, u"0"_s, index},
        {"1", searching, u"DefaultToWaIndex"_s, u"1"_s, u"1"_s, u"1"_s, index},
        {"a word", searching, u"DefaultToWaIndex"_s, u"yes"_s, u"1"_s, u"yes"_s, index},
        {"missing", searching, u"PrintHdr"_s, no, u"0"_s, u"0"_s, header},
        {"x", searching, u"PrintHdr"_s, u"x"_s, u"0"_s, u"0"_s, header},
        {"0", searching, u"PrintHdr"_s, u"0"_s, u"0"_s, u"0"_s, header},
        {"1", searching, u"PrintHdr"_s, u"1"_s, u"1"_s, u"1"_s, header},
        {"another value", searching, u"PrintHdr"_s, u"7"_s, u"1"_s, u"7"_s, header},
        {"missing", searching, u"PrintHdrVal"_s, no, phrase, phrase, headerText},
        {"x", searching, u"PrintHdrVal"_s, u"x"_s, phrase, phrase, headerText},
        {"empty", searching, u"PrintHdrVal"_s, u""_s, phrase, phrase, headerText},
        {"a phrase", searching, u"PrintHdrVal"_s, u"My Firm"_s, u"My Firm"_s, u"My Firm"_s,
         headerText},
    });
}

void tst_Options::loadRow(const std::function<void()> &load)
{
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, value);
    QFETCH(QString, afterwards);
    QFETCH(Reader, read);
    folder->Write(u"options.ini"_s, fileWith(section, key, stored));
    load();
    QCOMPARE(read(), value);
    QCOMPARE(GetOptionStr(section, key), afterwards.isNull() ? u"0"_s : afterwards);
    QCOMPARE(folder->Read(u"options.ini"_s).contains(key.toLatin1().append('=')),
             !afterwards.isNull());
}

void tst_Options::loadAppOptions()
{
    loadRow([] { QVERIFY(LoadAppOptions()); });
    QCOMPARE(folder->Log(), QStringList());
}

void tst_Options::mainWindowOptions_data()
{
    const QString searching = u"Searching"_s;
    const QString wire = u"Communications"_s;
    const QString general = u"General"_s;
    const Reader alerts = [] { return truth(Global.bShowAlerts); };
    const Reader batch = [] { return truth(Global.bBatchSearch); };
    const Reader name = [] { return Global.strReportName; };
    const QString no;
    addRows({
        {"missing", wire, u"ShowAlerts"_s, no, u"False"_s, u"0"_s, alerts},
        {"A", wire, u"ShowAlerts"_s, u"A"_s, u"False"_s, u"0"_s, alerts},
        {"1", wire, u"ShowAlerts"_s, u"1"_s, u"True"_s, u"1"_s, alerts},
        {"0", wire, u"ShowAlerts"_s, u"0"_s, u"False"_s, u"0"_s, alerts},
        {"yes", wire, u"ShowAlerts"_s, u"yes"_s, u"False"_s, u"yes"_s, alerts},
        {"missing", wire, u"BatchSearch"_s, no, u"False"_s, no, batch},
        {"A", wire, u"BatchSearch"_s, u"A"_s, u"False"_s, u"A"_s, batch},
        {"1", wire, u"BatchSearch"_s, u"1"_s, u"True"_s, u"1"_s, batch},
        {"yes", wire, u"BatchSearch"_s, u"yes"_s, u"False"_s, u"yes"_s, batch},
        {"missing", general, u"RNHeader"_s, no, u"Halvane"_s, no, name},
        {"0", general, u"RNHeader"_s, u"0"_s, u"Halvane"_s, u"0"_s, name},
        {"a name", general, u"RNHeader"_s, u"My Firm"_s, u"My Firm"_s, u"My Firm"_s, name},
        {"missing", searching, u"SearchTimeout"_s, no, u"1"_s, no, timeOut},
        {"0", searching, u"SearchTimeout"_s, u"0"_s, u"1"_s, u"0"_s, timeOut},
        {"3", searching, u"SearchTimeout"_s, u"3"_s, u"3"_s, u"3"_s, timeOut},
        {"missing", searching, u"SearchingMsgs"_s, no, u"12"_s, no, messages},
        {"0", searching, u"SearchingMsgs"_s, u"0"_s, u"12"_s, u"0"_s, messages},
        {"20", searching, u"SearchingMsgs"_s, u"20"_s, u"20"_s, u"20"_s, messages},
    });
}

void tst_Options::mainWindowOptions()
{
    loadRow(&LoadMainWindowOptions);
}

void tst_Options::loadAppOptionsWritesBackInItsOrder()
{
    folder->Write(u"options.ini"_s, {});
    QVERIFY(LoadAppOptions());
    QCOMPARE(folder->Read(u"options.ini"_s),
             "[Searching]\r\nReportFolder=" + folder->Path(u"Reports"_s).toLatin1()
                 + "\r\nDefaultToWaIndex=0\r\nPrintHdr=0\r\nPrintHdrVal=" + phrase.toLatin1()
                 + "\r\n[Communications]\r\nHVServerPort=80\r\n");
}

void tst_Options::aSecondLoadChangesNothing()
{
    folder->Write(u"options.ini"_s, {});
    LoadMainWindowOptions();
    LoadAppOptions();
    const QByteArray once = folder->Read(u"options.ini"_s);
    LoadMainWindowOptions();
    LoadAppOptions();
    QCOMPARE(folder->Read(u"options.ini"_s), once);
}

void tst_Options::mainWindowOptionsAreNotReadByLoadAppOptions()
{
    folder->Write(u"options.ini"_s, "[Communications]\r\nShowAlerts=1\r\n");
    LoadAppOptions();
    QVERIFY(!Global.bShowAlerts);
    LoadMainWindowOptions();
    QVERIFY(Global.bShowAlerts);
}

void tst_Options::reportFolder_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("missing") << QString();
    QTest::newRow("0") << u"0"_s;
    QTest::newRow("reports") << u"reports"_s;
    QTest::newRow("REPORTS") << u"REPORTS"_s;
    QTest::newRow("Reports with blanks") << u"  Reports  "_s;
    QTest::newRow("a folder that does not exist") << u"/nowhere/at/all"_s;
    QTest::newRow("a path of another system") << u"C:\\temp\\new"_s;
    QTest::newRow("empty") << u""_s;
}

void tst_Options::reportFolder()
{
    QFETCH(QString, stored);
    folder->Write(u"options.ini"_s, fileWith(u"Searching"_s, u"ReportFolder"_s, stored));
    QVERIFY(LoadAppOptions());
    QCOMPARE(Global.strReportFolder, folder->Path(u"Reports"_s));
    QVERIFY(QFileInfo(folder->Path(u"Reports"_s)).isDir());
    QCOMPARE(GetOptionStr(u"Searching"_s, u"ReportFolder"_s), folder->Path(u"Reports"_s));
}

void tst_Options::anExistingReportFolderIsTaken()
{
    const QTemporaryDir elsewhere;
    folder->Write(u"options.ini"_s,
                  fileWith(u"Searching"_s, u"ReportFolder"_s, u"  "_s + elsewhere.path()));
    QVERIFY(LoadAppOptions());
    QCOMPARE(Global.strReportFolder, elsewhere.path());
    QCOMPARE(GetOptionStr(u"Searching"_s, u"ReportFolder"_s), elsewhere.path());
    QVERIFY(!QFileInfo::exists(folder->Path(u"Reports"_s)));
}

void tst_Options::aReportFolderThatIsAFileFallsBack()
{
    folder->Write(u"afile"_s, "x");
    folder->Write(u"options.ini"_s,
                  fileWith(u"Searching"_s, u"ReportFolder"_s, folder->Path(u"afile"_s)));
    QVERIFY(LoadAppOptions());
    QCOMPARE(Global.strReportFolder, folder->Path(u"Reports"_s));
}

void tst_Options::aReportFolderThatCannotBeMadeIsNoError()
{
    folder->Write(u"Reports"_s, "a file in the way");
    folder->Write(u"options.ini"_s, {});
    QVERIFY(LoadAppOptions());
    QCOMPARE(Global.strReportFolder, folder->Path(u"Reports"_s));
    QCOMPARE(Global.lngServerPort, 80);
}

HALVANE_TEST(tst_Options)
#include "tst_Options.moc"
