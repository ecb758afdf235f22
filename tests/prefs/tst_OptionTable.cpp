#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "prefs/OptionTable.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// A setting in the file and what the options make of it: what the control shows, and what OK
/// leaves in the file. Without a word about the file it is what the control shows.
struct Reading
{
    const char *control;
    QString stored; ///< null for a key that is missing
    QString shown;
    QString saved = {};
};

QByteArray fileOf(const QString &section, const QString &key, const QString &value)
{
    return value.isNull()
               ? QByteArray("; nothing\r\n")
               : QString(u'[' + section + u"]\r\n"_s + key + u'=' + value + u"\r\n"_s).toLatin1();
}

/// What a reader of the program gets of a key.
QString readKey(const QString &section, const QString &key)
{
    CSetting setting;
    setting.Init(u"options.ini"_s, true);
    return setting.GetSettingStr(section, key, u"(missing)"_s);
}

QString savedSection(const OptionRow &row)
{
    return row.SavedSection.isEmpty() ? OptionSection(row) : row.SavedSection.toString();
}
} // namespace

class tst_OptionTable : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void rows_data();
    void rows();
    void order();
    void everyRowThatIsUnlikeTheOthersSaysWhy();
    void readings_data();
    void readings();
    void readingWritesNothing();
    void inForce_data();
    void inForce();
    void whatIsNotInForceAtOnce();
    void servers_data();
    void servers();
    void ports_data();
    void ports();
    void whyNotKept_data();
    void whyNotKept();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_OptionTable::rows_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("written");
    const auto row = [](const QString &control, const QString &place, const QString &written = {}) {
        QTest::newRow(qPrintable(control)) << control << place << written;
    };
    const auto tabs = [&row](const QString &control, int first, const QString &section,
                             const QString &keys, const QString &saved = {}) {
        int index = first;
        const QStringList all = keys.split(u' ');
        for (const QString &key : all)
            row(control + u'_' + QString::number(index++), section + u'/' + key,
                saved.isEmpty() ? saved : saved + u'/' + key);
    };
    tabs(u"chkSearchCaseTabs"_s, 0, u"CaseSearchTabs"_s,
         u"Names Docket Judgments Charges Sentence Accounting Schedule Documents"_s);
    tabs(u"chkSearchCaseTabs"_s, 8, u"CivilCaseTabs"_s, u"Names Docket Judgments"_s);
    tabs(u"chkSearchCaseTabs"_s, 11, u"NonCivilCaseTabs"_s, u"Names Docket Violations"_s,
         u"CivilCaseTabs"_s);
    tabs(u"chkOrTabOpts"_s, 0, u"OrCaseSearchTabs"_s,
         u"Names Docket Judgments Charges Sentence Finance Accounting"_s);
    tabs(u"chkIdaho"_s, 0, u"IdCaseSearchTabs"_s, u"Names Docket Judgments Charges"_s);
    row(u"chkEnableMRU"_s, u"Searching/EnableMRU"_s);
    row(u"chkEnableAcctg"_s, u"Accounting/EnableAcctg"_s);
    row(u"cboxHvServerIPs"_s, u"Communications/DefaultIP"_s, u"at the click"_s);
    row(u"chkShowAlerts"_s, u"Communications/ShowAlerts"_s);
    row(u"chkBatchSearch"_s, u"Communications/BatchSearch"_s);
    row(u"cboxInactiveMins"_s, u"General/InactivityTimeOut"_s);
    row(u"cboxSearchTimeout"_s, u"Searching/SearchTimeout"_s);
    row(u"cboxMaxSearchingMsgs"_s, u"Searching/SearchingMsgs"_s);
    row(u"optDefaultState"_s, u"Searching/DefaultView"_s);
    row(u"Text1"_s, u"Searching/ReportFolder"_s);
    row(u"txtPort"_s, u"Communications/HVServerPort"_s);
    row(u"chkDefaultToIndex"_s, u"Searching/DefaultToWaIndex"_s);
    row(u"chkPrintoutName"_s, u"Searching/PrintHdr"_s);
    row(u"txtPrintName"_s, u"Searching/PrintHdrVal"_s);
    row(u"chkKeepHistory"_s, u"History/KeepHistory"_s);
    row(u"cboxHistoryDays"_s, u"History/HistoryDays"_s);
    row(u"lblImageCounties"_s, u"Images/Counties"_s, u"never"_s);
}

/// Each control, where it is read and where it is written.
void tst_OptionTable::rows()
{
    QFETCH(QString, control);
    QFETCH(QString, written);
    const OptionRow &row = OptionRowOf(control);
    QTEST(QString(OptionSection(row) + u'/' + OptionKey(row)), "place");
    if (row.Save == OptionSave::WithOk)
        QCOMPARE(row.SavedSection.isEmpty() ? QString() : savedSection(row) + u'/' + OptionKey(row),
                 written);
    else
        QCOMPARE(row.Save == OptionSave::Never ? u"never"_s : u"at the click"_s, written);
}

/// The tabs, and then the others in the order in which they are read.
void tst_OptionTable::order()
{
    QStringList others;
    for (const OptionRow &row : OptionRows()) {
        if (row.Group == OptionGroup::None)
            others.append(OptionKey(row));
        else
            QVERIFY(others.isEmpty());
    }
    QCOMPARE(
        others.join(u' '),
        u"EnableMRU EnableAcctg DefaultIP ShowAlerts BatchSearch InactivityTimeOut SearchTimeout "
        "SearchingMsgs DefaultView ReportFolder HVServerPort DefaultToWaIndex PrintHdr "
        "PrintHdrVal KeepHistory HistoryDays Counties"_s);
}

void tst_OptionTable::everyRowThatIsUnlikeTheOthersSaysWhy()
{
    for (const OptionRow &row : OptionRows()) {
        const bool startsOtherwise =
            row.Known && row.Rule != OptionRule::AsAtStart && row.Rule != OptionRule::NativeFolder;
        const bool unlike = startsOtherwise || !row.SavedSection.isEmpty()
                            || row.Save != OptionSave::WithOk || (row.Known && !row.InForce);
        QCOMPARE(!row.Reason.isEmpty(), unlike);
    }
}

void tst_OptionTable::readings_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("saved");
    const QString no;
    const QString phrase = u"--Enter a Name or Phrase to include on the 1st page--"_s;
    const QList<Reading> all{
        {"chkSearchCaseTabs_0", no, u"0"_s},
        {"chkSearchCaseTabs_0", u"1"_s, u"1"_s},
        {"chkSearchCaseTabs_0", u"yes"_s, u"0"_s},
        {"chkSearchCaseTabs_8", u"1"_s, u"1"_s},
        {"chkOrTabOpts_5", u"1"_s, u"1"_s},
        {"chkIdaho_3", u"01"_s, u"0"_s},
        {"chkEnableMRU", no, u"0"_s},
        {"chkEnableMRU", u"1"_s, u"1"_s},
        {"chkEnableMRU", u"yes"_s, u"1"_s},
        {"chkEnableAcctg", no, u"0"_s},
        {"chkEnableAcctg", u"0"_s, u"0"_s},
        {"chkEnableAcctg", u"on"_s, u"1"_s},
        {"chkShowAlerts", no, u"0"_s},
        {"chkShowAlerts", u"A"_s, u"0"_s},
        {"chkShowAlerts", u"yes"_s, u"0"_s},
        {"chkShowAlerts", u"1"_s, u"1"_s},
        {"chkBatchSearch", no, u"0"_s},
        {"chkBatchSearch", u"A"_s, u"0"_s},
        {"chkBatchSearch", u"1"_s, u"1"_s},
        {"cboxInactiveMins", no, u"3"_s},
        {"cboxInactiveMins", u"2"_s, u"3"_s},
        {"cboxInactiveMins", u"3"_s, u"3"_s},
        {"cboxInactiveMins", u"4"_s, u"3"_s},
        {"cboxInactiveMins", u"20"_s, u"3"_s},
        {"cboxInactiveMins", u"30"_s, u"30"_s},
        {"cboxInactiveMins", u"31"_s, u"3"_s},
        {"cboxInactiveMins", u"five"_s, u"3"_s},
        {"cboxInactiveMins", u""_s, u"3"_s},
        {"cboxSearchTimeout", no, u"2"_s},
        {"cboxSearchTimeout", u"0"_s, u"2"_s},
        {"cboxSearchTimeout", u"1"_s, u"1"_s},
        {"cboxSearchTimeout", u"5"_s, u"5"_s},
        {"cboxSearchTimeout", u"6"_s, u"2"_s},
        {"cboxSearchTimeout", u"-1"_s, u"2"_s},
        {"cboxSearchTimeout", u"one"_s, u"2"_s},
        {"cboxMaxSearchingMsgs", no, u"12"_s},
        {"cboxMaxSearchingMsgs", u"0"_s, u"12"_s},
        {"cboxMaxSearchingMsgs", u"10"_s, u"10"_s},
        {"cboxMaxSearchingMsgs", u"15"_s, u"15"_s},
        {"optDefaultState", no, u"WA"_s},
        {"optDefaultState", u"OR"_s, u"OR"_s},
        {"optDefaultState", u"Or"_s, u"OR"_s},
        {"optDefaultState", u"or"_s, u"OR"_s},
        {"optDefaultState", u"oR"_s, u"WA"_s},
        {"optDefaultState", u"WA"_s, u"WA"_s},
        {"optDefaultState", u"Wa"_s, u"WA"_s},
        {"optDefaultState", u"wa"_s, u"WA"_s},
        {"optDefaultState", u"ID"_s, u"ID"_s},
        {"optDefaultState", u"id"_s, u"ID"_s},
        {"optDefaultState", u"Id"_s, u"WA"_s},
        {"optDefaultState", u"FED"_s, u"FED"_s},
        {"optDefaultState", u"Fed"_s, u"FED"_s},
        {"optDefaultState", u"fed"_s, u"FED"_s},
        {"optDefaultState", u"Texas"_s, u"WA"_s},
        {"txtPort", no, u"80"_s},
        {"txtPort", u"0"_s, u"80"_s},
        {"txtPort", u"  85 "_s, u"85"_s},
        {"txtPort", u"8080"_s, u"8080"_s},
        {"chkDefaultToIndex", no, u"0"_s},
        {"chkDefaultToIndex", u"yes"_s, u"1"_s},
        {"chkPrintoutName", no, u"0"_s},
        {"chkPrintoutName", u"x"_s, u"0"_s},
        {"chkPrintoutName", u"7"_s, u"1"_s},
        {"txtPrintName", no, phrase},
        {"txtPrintName", u"x"_s, phrase},
        {"txtPrintName", u""_s, phrase},
        {"txtPrintName", u"Smith & Jones"_s, u"Smith & Jones"_s},
        {"chkKeepHistory", no, u"1"_s},
        {"chkKeepHistory", u"0"_s, u"0"_s},
        {"chkKeepHistory", u"1"_s, u"1"_s},
        {"chkKeepHistory", u"no"_s, u"1"_s},
        {"cboxHistoryDays", no, u"400"_s},
        {"cboxHistoryDays", u"0"_s, u"400"_s},
        {"cboxHistoryDays", u"-5"_s, u"400"_s},
        {"cboxHistoryDays", u"30"_s, u"30"_s},
        {"cboxHistoryDays", u"77"_s, u"77"_s},
        {"cboxHistoryDays", u"for ever"_s, u"400"_s},
        {"lblImageCounties", no, u"0"_s, u"(missing)"_s},
        {"lblImageCounties", u"King,Pierce"_s, u"King,Pierce"_s},
    };
    for (const Reading &one : all) {
        const QString stored = one.stored.isNull() ? u"missing"_s : one.stored;
        QTest::addRow("%s: %s", one.control, qPrintable(stored))
            << QString::fromLatin1(one.control) << one.stored << one.shown
            << (one.saved.isNull() ? one.shown : one.saved);
    }
}

/// What is shown for what stands in the file, and what OK without a change makes of it.
void tst_OptionTable::readings()
{
    QFETCH(QString, control);
    QFETCH(QString, stored);
    const OptionRow &row = OptionRowOf(control);
    folder->Write(u"options.ini"_s, fileOf(OptionSection(row), OptionKey(row), stored));
    const OptionValues values = LoadOpts();
    QTEST(values[control], "shown");
    QVERIFY(SaveOpts(values, values));
    QTEST(readKey(OptionSection(row), OptionKey(row)), "saved");
}

void tst_OptionTable::readingWritesNothing()
{
    folder->Write(u"options.ini"_s, "; mine\r\n");
    LoadOpts();
    QCOMPARE(folder->Read(u"options.ini"_s), "; mine\r\n");
}

void tst_OptionTable::inForce_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("global");
    const auto row = [](const char *control, const QString &value) {
        QTest::newRow(control) << QString::fromLatin1(control) << value << value;
    };
    row("chkEnableAcctg", u"1"_s);
    row("chkShowAlerts", u"1"_s);
    row("chkBatchSearch", u"1"_s);
    row("cboxSearchTimeout", u"4"_s);
    row("cboxMaxSearchingMsgs", u"25"_s);
    row("optDefaultState", u"FED"_s);
    row("txtPort", u"85"_s);
    row("chkDefaultToIndex", u"1"_s);
    row("chkPrintoutName", u"1"_s);
    row("txtPrintName", u"Smith"_s);
    QTest::newRow("Text1") << u"Text1"_s << QDir::toNativeSeparators(QDir::tempPath())
                           << QDir::tempPath();
}

void tst_OptionTable::inForce()
{
    QFETCH(QString, control);
    QFETCH(QString, value);
    QFETCH(QString, global);
    const auto number = [](bool flag) { return flag ? u"1"_s : u"0"_s; };
    const QHash<QString, QString (*)()> globals{
        {u"cboxSearchTimeout"_s, [] { return QString::number(Global.intSearchTimeout); }},
        {u"cboxMaxSearchingMsgs"_s, [] { return QString::number(Global.intSearchingMsgs); }},
        {u"optDefaultState"_s, [] { return Global.strDefaultView; }},
        {u"txtPort"_s, [] { return QString::number(Global.lngServerPort); }},
        {u"chkDefaultToIndex"_s, [] { return Global.strDefaultToWaIndex; }},
        {u"chkPrintoutName"_s, [] { return Global.strPrintHdr; }},
        {u"txtPrintName"_s, [] { return Global.strPrintHdrVal; }},
        {u"Text1"_s, [] { return Global.strReportFolder; }},
    };
    const auto inProgram = [&](const QString &name) {
        if (name == u"chkEnableAcctg")
            return number(Global.bEnableAcctg);
        if (name == u"chkShowAlerts")
            return number(Global.bShowAlerts);
        if (name == u"chkBatchSearch")
            return number(Global.bBatchSearch);
        return globals.value(name)();
    };
    folder->Write(u"options.ini"_s, "; nothing\r\n");
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[control] = value;
    QVERIFY(inProgram(control) != global);
    QVERIFY(SaveOpts(loaded, now));
    QCOMPARE(inProgram(control), global);
    QVERIFY(SaveOpts(now, loaded));
    QVERIFY(inProgram(control) != global);
}

/// Recent entries come and go when the search form is loaded, which reads the file again.
void tst_OptionTable::whatIsNotInForceAtOnce()
{
    folder->Write(u"options.ini"_s, "; nothing\r\n");
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[u"chkEnableMRU"] = u"1"_s;
    QVERIFY(SaveOpts(loaded, now));
    QCOMPARE(readKey(u"Searching"_s, u"EnableMRU"_s), u"1"_s);
    QVERIFY(!Global.bEnableMRU);
    LoadAppOptions();
    QVERIFY(Global.bEnableMRU);
}

void tst_OptionTable::servers_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("servers");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("missing");
    const QStringList builtIn{u"192.0.2.1"_s, u"192.0.2.2"_s};
    QTest::newRow("none") << QByteArray("[Communications]\r\n") << builtIn << u"192.0.2.1"_s
                          << true;
    QTest::newRow("a first one that is 0")
        << QByteArray("[Communications]\r\nHVServerIP1=0\r\n") << builtIn << u"192.0.2.1"_s << true;
    QTest::newRow("an empty first one")
        << QByteArray("[Communications]\r\nHVServerIP1=\r\n") << builtIn << u"192.0.2.1"_s << true;
    QTest::newRow("only a second one")
        << QByteArray("[Communications]\r\nHVServerIP2=b\r\nDefaultIP=192.0.2.2\r\n") << builtIn
        << u"192.0.2.2"_s << true;
    QTest::newRow("one") << QByteArray("[Communications]\r\nHVServerIP1=a\r\n")
                         << QStringList{u"a"_s} << u"a"_s << false;
    QTest::newRow("all five, the third chosen")
        << QByteArray("[Communications]\r\nHVServerIP1=a\r\nHVServerIP2=b\r\nHVServerIP3=c\r\n"
                      "HVServerIP4=d\r\nHVServerIP5=e\r\nDefaultIP=c\r\n")
        << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s} << u"c"_s << false;
    QTest::newRow("a chosen one that is not there, and one twice")
        << QByteArray("[Communications]\r\nHVServerIP1=a\r\nHVServerIP2=0\r\nHVServerIP3=a\r\n"
                      "DefaultIP=z\r\n")
        << QStringList{u"a"_s} << u"a"_s << false;
}

void tst_OptionTable::servers()
{
    QFETCH(QByteArray, file);
    folder->Write(u"options.ini"_s, file);
    const OptionValues values = LoadOpts();
    QTEST(values.Servers, "servers");
    QTEST(values[u"cboxHvServerIPs"], "chosen");
    QTEST(values.ServersMissing, "missing");
}

void tst_OptionTable::ports_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("port");
    const QList<std::pair<QString, int>> all{
        {u"80"_s, 80},          {u"85"_s, 85},  {u"1"_s, 1},     {u"65535"_s, 65535},
        {u" 80 "_s, 80},        {u"080"_s, 80}, {u"0"_s, -1},    {u""_s, -1},
        {u"65536"_s, -1},       {u"-80"_s, -1}, {u"+80"_s, -1},  {u"8o"_s, -1},
        {u"80.5"_s, -1},        {u"8 0"_s, -1}, {u"0x50"_s, -1}, {u"99999999999"_s, -1},
        {u"\u0668\u0660"_s, -1}};
    for (const auto &[text, port] : all)
        QTest::newRow(text.isEmpty() ? "empty" : qPrintable(text)) << text << port;
}

void tst_OptionTable::ports()
{
    QFETCH(QString, text);
    constexpr int none = -1;
    QTEST(PortOf(text).value_or(none), "port");
}

void tst_OptionTable::whyNotKept_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const QString ends = u"The settings file keeps no blank at an end, and no line end."_s;
    QTest::newRow("plain") << u"/home/lee/Reports"_s << QString();
    QTest::newRow("the code page") << u"/home/Müller/€"_s << QString();
    QTest::newRow("a letter it lacks")
        << u"/home/Łódź"_s << u"The settings file has no letter for Ł ź."_s;
    QTest::newRow("a blank at the end") << u"/home/lee "_s << ends;
    QTest::newRow("a line end") << u"/home/a\nb"_s << ends;
}

void tst_OptionTable::whyNotKept()
{
    QFETCH(QString, text);
    QTEST(WhyNotKept(text), "reason");
}

HALVANE_TEST(tst_OptionTable)
#include "tst_OptionTable.moc"
