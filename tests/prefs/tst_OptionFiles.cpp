#include "core/CSetting.h"
#include "core/GlobalState.h"
#include "core/IniText.h"
#include "prefs/OptionTable.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
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

/// A value of the control that is not the one given.
QString anotherValue(const OptionRow &row, const QString &value)
{
    switch (row.Rule) {
    case OptionRule::ThreeToThirty:
        return value == u"30" ? u"3"_s : u"30"_s;
    case OptionRule::OneToFive:
        return value == u"5" ? u"4"_s : u"5"_s;
    case OptionRule::Jurisdiction:
        return value == u"FED" ? u"ID"_s : u"FED"_s;
    default:
        break;
    }
    if (row.Control == u"cboxMaxSearchingMsgs" || row.Control == u"txtPort"
        || row.Control == u"cboxHistoryDays")
        return value == u"85" ? u"25"_s : u"85"_s;
    if (row.Kind == OptionKind::Check)
        return value == u"1" ? u"0"_s : u"1"_s;
    return value + u" Two"_s;
}
QByteArray randomValue(QRandomGenerator &random)
{
    static const QByteArrayList values{
        "0",    "1",     "x",   "A",  "",    "yes",           "20",   "30", "Or",
        "  4 ", "\"1\"", "'0'", "12", "fed", "C:\\temp\\new", "a=b;c"};
    return values[random.bounded(values.size())];
}

bool isWritten(const QString &section, const QString &key)
{
    const auto rows = OptionRows();
    return std::any_of(rows.begin(), rows.end(), [&](const OptionRow &row) {
        return row.Save == OptionSave::WithOk
               && savedSection(row).compare(section, Qt::CaseInsensitive) == 0
               && OptionKey(row).compare(key, Qt::CaseInsensitive) == 0;
    });
}

QByteArrayList randomLines(QRandomGenerator &random)
{
    static const QByteArrayList fillers{"; a comment",   "",       "   ",          ";Names=1",
                                        "no key at all", "Mine=1", " Other = 'x' "};
    QByteArrayList lines{"; the head"};
    QStringList sections{u"My Own"_s, u"Security"_s};
    for (const OptionRow &row : OptionRows()) {
        if (!sections.contains(OptionSection(row)))
            sections.append(OptionSection(row));
    }
    std::shuffle(sections.begin(), sections.end(), random);
    for (const QString &section : sections) {
        if (random.bounded(4) == 0)
            continue;
        lines.append('[' + (random.bounded(2) ? section : section.toUpper()).toLatin1() + ']');
        for (const OptionRow &row : OptionRows()) {
            if (OptionSection(row) == section && random.bounded(3) != 0)
                lines.append(OptionKey(row).toLatin1() + '=' + randomValue(random));
            if (random.bounded(20) == 0)
                lines.append(fillers[random.bounded(fillers.size())]);
        }
    }
    return lines;
}

/// The line of a key as it stands in the file.
QByteArray lineOf(const QByteArray &file, const IniEntry &entry)
{
    bool inside = false;
    const QByteArrayList lines = file.split('\n');
    for (const QByteArray &line : lines) {
        const QString text = QString::fromLatin1(line);
        if (text.startsWith(u'['))
            inside = text.startsWith(u'[' + entry.Section + u']', Qt::CaseInsensitive);
        else if (inside && text.startsWith(entry.Key + u'='))
            return line;
    }
    return {};
}

/// The lines that the options do not write.
QByteArrayList untouched(const QByteArray &file)
{
    QByteArrayList left;
    QString section;
    const QByteArrayList lines = file.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith('['))
            section = QString::fromLatin1(line.mid(1, line.indexOf(']') - 1));
        const qsizetype equals = line.indexOf('=');
        const QString key = QString::fromLatin1(line.left(std::max<qsizetype>(equals, 0)));
        if (!isWritten(section, key.trimmed()))
            left.append(line);
    }
    return left;
}
} // namespace

/// What the options leave in the file, and what of the file they leave alone.
class tst_OptionFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void everyControlComesBack_data();
    void everyControlComesBack();
    void theChosenAddressIsNotWrittenWithTheRest();
    void nonCivil_data();
    void nonCivil();
    void whatStandsInTheFileStays();
    void aFileOfItsOwnValuesIsNotTouched();
    void randomFiles_data();
    void randomFiles();
    void allIsWrittenOrNothing();
    void aPhraseInQuotesKeepsThem();
    void anEmptyPhraseIsTheOneOfTheStart();
    void aFolderThatIsMissingIsMade();
    void aPracticeSessionKeepsItsPort();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_OptionFiles::everyControlComesBack_data()
{
    QTest::addColumn<QString>("control");
    for (const OptionRow &row : OptionRows()) {
        if (row.Save == OptionSave::WithOk && row.SavedSection.isEmpty())
            QTest::newRow(qPrintable(row.Control.toString())) << row.Control.toString();
    }
}

/// One control is changed: it is the only one that reads otherwise afterwards.
void tst_OptionFiles::everyControlComesBack()
{
    QFETCH(QString, control);
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[control] = anotherValue(OptionRowOf(control), loaded[control]);
    QVERIFY(SaveOpts(loaded, now));
    const OptionValues after = LoadOpts();
    for (const OptionRow &row : OptionRows()) {
        if (row.Kind == OptionKind::Folder)
            QVERIFY(QDir(now[row.Control]).exists());
        QCOMPARE(after[row.Control], now[row.Control]);
    }
}

void tst_OptionFiles::theChosenAddressIsNotWrittenWithTheRest()
{
    folder->Write(u"options.ini"_s, "[Communications]\r\nHVServerIP2=b\r\n");
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[u"cboxHvServerIPs"] = u"192.0.2.2"_s;
    QVERIFY(SaveOpts(loaded, now));
    QCOMPARE(readKey(u"Communications"_s, u"DefaultIP"_s), u"(missing)"_s);
    QCOMPARE(readKey(u"Communications"_s, u"HVServerIP1"_s), u"(missing)"_s);
    QCOMPARE(readKey(u"Communications"_s, u"HVServerIP2"_s), u"b"_s);
}

void tst_OptionFiles::nonCivil_data()
{
    QTest::addColumn<QStringList>("changed");
    QTest::addColumn<QString>("names");
    QTest::addColumn<QString>("docket");
    QTest::addColumn<QString>("violations");
    const QString civil = u"chkSearchCaseTabs_8"_s;
    const QString civilDocket = u"chkSearchCaseTabs_9"_s;
    const QString names = u"chkSearchCaseTabs_11"_s;
    const QString docket = u"chkSearchCaseTabs_12"_s;
    const QString violations = u"chkSearchCaseTabs_13"_s;
    QTest::newRow("nothing") << QStringList() << u"1"_s << u"0"_s << u"0"_s;
    QTest::newRow("violations") << QStringList{violations} << u"1"_s << u"0"_s << u"1"_s;
    QTest::newRow("names of non-civil cases") << QStringList{names} << u"0"_s << u"0"_s << u"0"_s;
    QTest::newRow("names of civil cases") << QStringList{civil} << u"0"_s << u"0"_s << u"0"_s;
    QTest::newRow("the docket of both: that of civil cases")
        << QStringList{civilDocket, docket} << u"1"_s << u"1"_s << u"0"_s;
}

/// Boxes of non-civil cases go to the section of civil ones, and do not come back.
void tst_OptionFiles::nonCivil()
{
    QFETCH(QStringList, changed);
    folder->Write(u"options.ini"_s,
                  "[CivilCaseTabs]\r\nNames=1\r\n[NonCivilCaseTabs]\r\nNames=1\r\n"
                  "Docket=1\r\n");
    const OptionValues loaded = LoadOpts();
    QCOMPARE(loaded[u"chkSearchCaseTabs_12"], u"1"_s);
    OptionValues now = loaded;
    for (const QString &control : changed)
        now[control] = anotherValue(OptionRowOf(control), loaded[control]);
    QVERIFY(SaveOpts(loaded, now));
    QTEST(readKey(u"CivilCaseTabs"_s, u"Names"_s), "names");
    QTEST(readKey(u"CivilCaseTabs"_s, u"Violations"_s), "violations");
    // A box that nobody has touched does not go over that of the civil cases.
    QTEST(readKey(u"CivilCaseTabs"_s, u"Docket"_s), "docket");
    QVERIFY(
        folder->Read(u"options.ini"_s).contains("[NonCivilCaseTabs]\r\nNames=1\r\nDocket=1\r\n"));
    const OptionValues after = LoadOpts();
    for (const QStringView control :
         {u"chkSearchCaseTabs_11"_s, u"chkSearchCaseTabs_12"_s, u"chkSearchCaseTabs_13"_s})
        QCOMPARE(after[control], loaded[control]);
}

void tst_OptionFiles::whatStandsInTheFileStays()
{
    folder->Write(u"options.ini"_s,
                  "; mine\r\n[searching]\r\n  SearchTimeout = \"4\"\r\nMyKey='x'\r\n\r\n"
                  "; the end\r\n[My Section]\r\nNames=1\r\n[Searching]\r\nSearchTimeout=9\r\n");
    const OptionValues loaded = LoadOpts();
    QCOMPARE(loaded[u"cboxSearchTimeout"], u"4"_s);
    QVERIFY(SaveOpts(loaded, loaded));
    const QByteArray file = folder->Read(u"options.ini"_s);
    QVERIFY(file.startsWith("; mine\r\n[searching]\r\n  SearchTimeout = \"4\"\r\nMyKey='x'\r\n"));
    QVERIFY(file.contains("\r\n\r\n; the end\r\n"));
    QVERIFY(file.contains("[My Section]\r\nNames=1\r\n[Searching]\r\nSearchTimeout=9\r\n"));
}

/// A file that has all settings as they are written is the same after OK as before.
void tst_OptionFiles::aFileOfItsOwnValuesIsNotTouched()
{
    const OptionValues loaded = LoadOpts();
    QVERIFY(SaveOpts(loaded, loaded));
    const QByteArray before = folder->Read(u"options.ini"_s);
    const OptionValues again = LoadOpts();
    QVERIFY(SaveOpts(again, again));
    QCOMPARE(folder->Read(u"options.ini"_s), before);
}

void tst_OptionFiles::randomFiles_data()
{
    QTest::addColumn<quint32>("seed");
    constexpr quint32 files = 100;
    for (quint32 seed = 1; seed <= files; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

/// Whatever the file is like, what is not an option is the same afterwards, byte for byte, and an
/// option that reads as it is to be keeps its line.
void tst_OptionFiles::randomFiles()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    const QByteArrayList lines = randomLines(random);
    const QByteArray before = lines.join("\r\n") + "\r\n";
    folder->Write(u"options.ini"_s, before);
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    for (const OptionRow &row : OptionRows()) {
        if (row.Save == OptionSave::WithOk && row.Kind != OptionKind::Folder
            && random.bounded(3) == 0)
            now[row.Control] = anotherValue(row, loaded[row.Control]);
    }
    QVERIFY(SaveOpts(loaded, now));
    const QByteArray after = folder->Read(u"options.ini"_s);
    QByteArrayList kept = untouched(after);
    const QByteArrayList had = untouched(before);
    // Sections that were not there come at the end.
    const QByteArrayList added = kept.mid(had.size() - 1);
    for (const QByteArray &line : added)
        QVERIFY2(line.isEmpty() || line.startsWith('['), line.constData());
    QCOMPARE(kept.mid(0, had.size() - 1), had.mid(0, had.size() - 1));
    const QList<IniEntry> entries = OptionEntries(loaded, now);
    for (const IniEntry &entry : entries) {
        if (entry.Section != u"CivilCaseTabs"
            && IniValue(before, entry.Section, entry.Key) == entry.Value)
            QCOMPARE(lineOf(after, entry), lineOf(before, entry));
    }
    const OptionValues again = LoadOpts();
    for (const OptionRow &row : OptionRows()) {
        if (row.Group != OptionGroup::Civil && row.Group != OptionGroup::NonCivil)
            QCOMPARE(again[row.Control], now[row.Control]);
    }
    QVERIFY(SaveOpts(again, again));
    QCOMPARE(untouched(folder->Read(u"options.ini"_s)), kept);
}

/// Forty settings are one change of the file.
void tst_OptionFiles::allIsWrittenOrNothing()
{
    constexpr qint64 mostBytes = 100;
    const QByteArray before = folder->Read(u"options.ini"_s);
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[u"cboxSearchTimeout"] = u"5"_s;
    bool saved = true;
    {
        const FullDisk disk(mostBytes);
        saved = SaveOpts(loaded, now);
    }
    QVERIFY(!saved);
    QCOMPARE(folder->Read(u"options.ini"_s), before);
    // What could not be kept holds until the program ends.
    QCOMPARE(Global.intSearchTimeout, 5);
}

void tst_OptionFiles::aPhraseInQuotesKeepsThem()
{
    for (const QString &phrase : {u"\"Smith\""_s, u"'s'"_s, u"\"a"_s, u"\""_s, u"\"\"x\"\""_s}) {
        const OptionValues loaded = LoadOpts();
        OptionValues now = loaded;
        now[u"txtPrintName"] = phrase;
        QVERIFY(SaveOpts(loaded, now));
        QCOMPARE(LoadOpts()[u"txtPrintName"], phrase);
        QCOMPARE(Global.strPrintHdrVal, phrase);
    }
}

void tst_OptionFiles::anEmptyPhraseIsTheOneOfTheStart()
{
    const QString phrase = u"--Enter a Name or Phrase to include on the 1st page--"_s;
    const OptionValues loaded = LoadOpts();
    OptionValues now = loaded;
    now[u"txtPrintName"] = u"  "_s;
    QVERIFY(SaveOpts(loaded, now));
    QCOMPARE(readKey(u"Searching"_s, u"PrintHdrVal"_s), phrase);
    QCOMPARE(Global.strPrintHdrVal, phrase);
}

void tst_OptionFiles::aFolderThatIsMissingIsMade()
{
    QVERIFY(!QDir(StandardReportFolder()).exists());
    const OptionValues loaded = LoadOpts();
    QCOMPARE(loaded[u"Text1"], StandardReportFolder());
    QCOMPARE(StandardReportFolder(), QDir::toNativeSeparators(folder->Path(u"Reports"_s)));
    QVERIFY(SaveOpts(loaded, loaded));
    QVERIFY(QDir(StandardReportFolder()).exists());
    QCOMPARE(readKey(u"Searching"_s, u"ReportFolder"_s), StandardReportFolder());
}

void tst_OptionFiles::aPracticeSessionKeepsItsPort()
{
    folder->Write(u"options.ini"_s, "[Communications]\r\nHVServerPort=80\r\n");
    HoldSetting(Setting::ServerPort, u"4711"_s);
    Global.lngServerPort = 4711;
    const OptionValues loaded = LoadOpts();
    QCOMPARE(loaded[u"txtPort"], u"4711"_s);
    OptionValues now = loaded;
    now[u"txtPort"] = u"85"_s;
    QVERIFY(SaveOpts(loaded, now));
    QCOMPARE(Global.lngServerPort, 4711);
    QVERIFY(folder->Read(u"options.ini"_s).contains("HVServerPort=80\r\n"));
}

HALVANE_TEST(tst_OptionFiles)
#include "tst_OptionFiles.moc"
