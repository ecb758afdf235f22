// Reports as text files on the disk.

#include "core/RunTimeError.h"
#include "reports/ReportFile.h"
#include "support/FailingDisk.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
int errorOf(const QString &path, const QStringList &lines)
{
    try {
        WriteReportFile(path, lines);
    } catch (const RunTimeError &error) {
        return error.Number();
    }
    return 0;
}

QStringList manyLines()
{
    return QStringList(20'000, u"A line of some length, as a report has them."_s);
}
} // namespace

class tst_ReportFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theBytes_data();
    void theBytes();
    void aLongReport();
    void anOlderReportIsReplaced();
    void noFolder();
    void namesThatNoDiskTakes_data();
    void namesThatNoDiskTakes();
    void namesOfEveryScript_data();
    void namesOfEveryScript();
    void everyCallThatCanFail_data();
    void everyCallThatCanFail();
    void theName_data();
    void theName();
};

void tst_ReportFile::theBytes_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ends of lines")
        << QStringList{u"a"_s, u" "_s, u"b"_s} << QByteArray("a\r\n \r\nb\r\n");
    QTest::newRow("the code page")
        << QStringList(u"Müller § – €"_s) << QByteArray("M\xFCller \xA7 \x96 \x80\r\n");
    QTest::newRow("beyond the code page") << QStringList(u"Łódź"_s)
                                          << QByteArray("?\xF3"
                                                        "d?\r\n");
    QTest::newRow("ends of lines within a line")
        << QStringList(u"a\r\nb\u2028c\u2029d"_s) << QByteArray("a  b c d\r\n");
    QTest::newRow("control characters")
        << QStringList(u"a"_s + QChar(0) + u"\t\x1A" + u"b"_s) << QByteArray("a   b\r\n");
    QTest::newRow("no line") << QStringList() << QByteArray();
}

void tst_ReportFile::theBytes()
{
    QFETCH(QStringList, lines);
    const TestFolder folder;
    WriteReportFile(folder.Path(u"r.txt"_s), lines);
    QTEST(folder.Read(u"r.txt"_s), "bytes");
}

void tst_ReportFile::aLongReport()
{
    const TestFolder folder;
    WriteReportFile(folder.Path(u"r.txt"_s), manyLines());
    const QByteArray bytes = folder.Read(u"r.txt"_s);
    QCOMPARE(bytes.count("\r\n"), manyLines().size());
    QCOMPARE(bytes.size(), manyLines().size() * (manyLines().first().size() + 2));
}

void tst_ReportFile::anOlderReportIsReplaced()
{
    const TestFolder folder;
    folder.Write(u"r.txt"_s, "something longer than what comes\r\n");
    WriteReportFile(folder.Path(u"r.txt"_s), QStringList(u"new"_s));
    QCOMPARE(folder.Read(u"r.txt"_s), QByteArray("new\r\n"));
}

void tst_ReportFile::noFolder()
{
    const TestFolder folder;
    QCOMPARE(errorOf(folder.Path(u"gone/r.txt"_s), {u"a"_s}), 70);
    QVERIFY(!QDir(folder.Path(u"gone"_s)).exists());
}

void tst_ReportFile::namesThatNoDiskTakes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("300 letters") << QString(300, u'n') + u".Txt"_s;
    QTest::newRow("a folder") << u"."_s;
    QTest::newRow("nothing") << QString();
}

void tst_ReportFile::namesThatNoDiskTakes()
{
    QFETCH(QString, name);
    const TestFolder folder;
    const QStringList before = QDir(folder.Path()).entryList(QDir::AllEntries | QDir::Hidden);
    QVERIFY(errorOf(folder.Path() + u'/' + name, {u"a"_s}) != 0);
    QCOMPARE(QDir(folder.Path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

void tst_ReportFile::namesOfEveryScript_data()
{
    QTest::addColumn<QString>("caption");
    QTest::newRow("the code page") << u"MÜLLER, JOSÉ in King"_s;
    QTest::newRow("beyond the code page") << u"ŁÓDŹ, Янка in King"_s;
    QTest::newRow("beyond the first plane") << u"\U0001F4DC in King"_s;
    QTest::newRow("quotes and dollars") << u"O'BRIEN \"BOB\" $HOME `x` in King"_s;
}

void tst_ReportFile::namesOfEveryScript()
{
    QFETCH(QString, caption);
    const TestFolder folder;
    QDir(folder.Path()).mkdir(u"Reports"_s);
    const QString name = caption + u".Txt"_s;
    WriteReportFile(folder.Path(u"Reports/"_s) + ReportFileName(caption), QStringList(u"a"_s));
    QCOMPARE(QDir(folder.Path(u"Reports"_s)).entryList(QDir::Files | QDir::Hidden),
             QStringList(name));
}

void tst_ReportFile::everyCallThatCanFail_data()
{
    QTest::addColumn<FailingDisk::Call>("call");
    QTest::newRow("open") << FailingDisk::Call::Open;
    QTest::newRow("write") << FailingDisk::Call::Write;
    QTest::newRow("rename") << FailingDisk::Call::Rename;
}

void tst_ReportFile::everyCallThatCanFail()
{
    QFETCH(FailingDisk::Call, call);
    const TestFolder folder;
    QDir(folder.Path()).mkdir(u"Reports"_s);
    const QString path = folder.Path(u"Reports/r.txt"_s);
    int calls = 0;
    {
        const FailingDisk counting(call, 0);
        WriteReportFile(path, manyLines());
        calls = counting.Calls();
    }
    QVERIFY(calls >= 1);
    for (int nth = 1; nth <= calls; ++nth) {
        folder.Write(u"Reports/r.txt"_s, "old\r\n");
        {
            const FailingDisk failing(call, nth);
            QVERIFY(errorOf(path, manyLines()) != 0);
        }
        QCOMPARE(folder.Read(u"Reports/r.txt"_s), QByteArray("old\r\n"));
        QCOMPARE(QDir(folder.Path(u"Reports"_s)).entryList(QDir::Files | QDir::Hidden),
                 QStringList(u"r.txt"_s));
    }
}

void tst_ReportFile::theName_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("name");
    QTest::newRow("a search") << u"SMITH, JOHN in King County, Washington Superior Courts"_s
                              << u"SMITH, JOHN in King County, Washington Superior Courts.Txt"_s;
    QTest::newRow("strokes") << u"A/B in King County, Washington District/Municipal Courts"_s
                             << u"A-B in King County, Washington District-Municipal Courts.Txt"_s;
    QTest::newRow("a way out") << u"../../etc"_s << u"..-..-etc.Txt"_s;
    QTest::newRow("nothing") << QString() << u".Txt"_s;
}

void tst_ReportFile::theName()
{
    QFETCH(QString, caption);
    QTEST(ReportFileName(caption), "name");
}

HALVANE_TEST(tst_ReportFile)
#include "tst_ReportFile.moc"
