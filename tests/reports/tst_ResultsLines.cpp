// The report of a search as lines of a text file.

#include "reports/ReportedSearch.h"
#include "reports/ResultsReport.h"
#include "support/HalvaneTest.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {
QStringList linesOf(const ResultsRecord &record, const ReportSituation &situation = OnAMorning())
{
    return ResultsText(record, CasesOf(record), situation).Lines();
}

QStringList golden(const QString &name)
{
    QFile file(QStringLiteral(HALVANE_GOLDEN_DIR) + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
        return {u"no file "_s + file.fileName()};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeLast();
    return lines;
}

void compareLines(const QStringList &lines, const QStringList &expected)
{
    for (qsizetype i = 0; i < std::min(lines.size(), expected.size()); ++i)
        QCOMPARE(lines.at(i), expected.at(i));
    QCOMPARE(lines.size(), expected.size());
}

std::unique_ptr<ResultsRecord> wholeSearch(ResultKind kind)
{
    auto record = ReportedSearch(kind);
    record->ClientAcctgCode = u" smith-12 "_s;
    record->SortColumnName = u"Participant Name"_s;
    record->Rows.AddRow(RowOf(kind));
    QStringList second = RowOf(kind);
    second[0] = u"SMITHERS-JONES, JONATHAN BARTHOLOMEW"_s;
    second[1] = u">>*99-1-00001-7"_s;
    record->Rows.AddRow(second);
    record->Rows.AddRow({u"SMITH, J"_s, u"02-3-00009-1"_s});
    return record;
}
} // namespace

class tst_ResultsLines : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void wholeReports_data();
    void wholeReports();
    void theHead_data();
    void theHead();
    void warnings_data();
    void warnings();
    void countiesAreBrokenAt110();
    void aColumnIsAsWideAsItsLongestCell();
    void theRuleIsAsLongAsTheHead();
    void theLastLine();
    void noRows();
    void aHundredThousandRows();
};

void tst_ResultsLines::wholeReports_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::addColumn<QString>("file");
    QTest::newRow("superior") << ResultKind::Superior << u"results-superior.txt"_s;
    QTest::newRow("idaho") << ResultKind::Idaho << u"results-superior.txt"_s;
    QTest::newRow("bankruptcy") << ResultKind::Bankruptcy << u"results-superior.txt"_s;
    QTest::newRow("index") << ResultKind::Index << u"results-index.txt"_s;
    QTest::newRow("district, civil") << ResultKind::DiscisCivil << u"results-discis-civil.txt"_s;
    QTest::newRow("district, statewide")
        << ResultKind::DiscisStatewide << u"results-discis-statewide.txt"_s;
    QTest::newRow("district, addresses")
        << ResultKind::DiscisAddresses << u"results-discis-addresses.txt"_s;
    QTest::newRow("names, statewide")
        << ResultKind::NamesStatewide << u"results-names-statewide.txt"_s;
    QTest::newRow("names, addresses")
        << ResultKind::NamesAddresses << u"results-names-addresses.txt"_s;
}

void tst_ResultsLines::wholeReports()
{
    QFETCH(ResultKind, kind);
    QFETCH(QString, file);
    ReportSituation situation = OnAMorning();
    situation.ReportedBy = u"Pat Doe"_s;
    const auto record = wholeSearch(kind);
    compareLines(linesOf(*record, situation), golden(file));
}

void tst_ResultsLines::theHead_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("reportedBy");
    QTest::addColumn<QStringList>("behind");
    QTest::newRow("neither") << QString() << QString() << QStringList();
    QTest::newRow("a code of blanks") << u"  "_s << QString() << QStringList();
    QTest::newRow("a code") << u" ab "_s << QString() << QStringList(u"Client Matter: AB"_s);
    QTest::newRow("a name") << QString() << u"Pat Doe"_s << QStringList(u"Reported By: Pat Doe"_s);
    QTest::newRow("both") << u"ab"_s << u"Pat Doe"_s
                          << QStringList{u"Client Matter: AB"_s, u"Reported By: Pat Doe"_s};
}

void tst_ResultsLines::theHead()
{
    QFETCH(QString, code);
    QFETCH(QString, reportedBy);
    QFETCH(QStringList, behind);
    const auto record = ReportedSearch();
    record->ClientAcctgCode = code;
    ReportSituation situation = OnAMorning();
    situation.ReportedBy = reportedBy;
    const QStringList expected = QStringList{u"Halvane Search Results for: SMITH, JOHN"_s,
                                             u" "_s,
                                             u" Date Printed: 3/10/2026 10:00:00 AM"_s,
                                             u"    Sorted By:  Participant Name"_s,
                                             u"   Case Types: Civil, Criminal"_s,
                                             u"     Court(s): King County - Washington Superior "
                                             "Courts"_s}
                                 + behind + QStringList{u" "_s, u" "_s};
    compareLines(linesOf(*record, situation).first(expected.size()), expected);
}

void tst_ResultsLines::warnings_data()
{
    QTest::addColumn<bool>("incomplete");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<bool>("stopFlag");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QStringList>("lines");
    const QString blank = u" "_s;
    const QString incomplete = u"WARNING:  This Search is Incomplete! Some results may not have "
                               "been retrieved."_s;
    const QString stopped = u"WARNING:  This Search was Stopped by the User. Some results may not "
                            "have been retrieved."_s;
    const QString archived = u"* Indicates the case is archived. Some details are offline and not "
                             "available electronically at this time."_s;
    QTest::newRow("none") << false << false << false << u"1"_s << QStringList();
    QTest::newRow("incomplete") << true << false << false << u"1"_s
                                << QStringList{blank, incomplete};
    QTest::newRow("goes on") << false << true << false << u"1"_s << QStringList{blank, incomplete};
    QTest::newRow("stopped") << false << false << true << u"1"_s << QStringList{blank, stopped};
    QTest::newRow("archived") << false << false << false << u"*1"_s << QStringList{blank, archived};
    QTest::newRow("all") << true << false << true << u">>*1"_s
                         << QStringList{blank, incomplete, blank, stopped, blank, archived};
}

void tst_ResultsLines::warnings()
{
    QFETCH(bool, incomplete);
    QFETCH(bool, goesOn);
    QFETCH(bool, stopFlag);
    QFETCH(QString, number);
    QFETCH(QStringList, lines);
    const auto record = ReportedSearch();
    record->SearchIncomplete = incomplete;
    record->StopWarningFlag = stopFlag;
    record->Rows.AddRow({u"A"_s, number});
    ReportSituation situation = OnAMorning();
    situation.GoesOn = goesOn;
    constexpr qsizetype behindHead = 6;
    const QStringList expected = QStringList(u" "_s) + lines + QStringList(u" "_s);
    const QStringList all = linesOf(*record, situation);
    compareLines(all.mid(behindHead, expected.size()), expected);
    QVERIFY(all.at(behindHead + expected.size()).startsWith(u"Participant Name"));
}

void tst_ResultsLines::countiesAreBrokenAt110()
{
    const auto record = ReportedSearch();
    record->txtCountyList = QStringList(40, u"County"_s).join(u", "_s);
    const QStringList lines = linesOf(*record);
    QCOMPARE(lines.at(5), u"     Court(s): "_s + QStringList(13, u"County,"_s).join(u' '));
    for (qsizetype i = 6; i < 8; ++i) {
        QVERIFY(lines.at(i).startsWith(u"               County, "));
        QVERIFY(lines.at(i).size() <= 15 + 110);
    }
}

void tst_ResultsLines::aColumnIsAsWideAsItsLongestCell()
{
    const auto record = ReportedSearch();
    record->Rows.AddRow({u"A LONG NAME OF SOMEBODY"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    record->Rows.AddRow({u"B"_s, u"12345678901234"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    const QStringList lines = linesOf(*record);
    QCOMPARE(lines.at(8), u"Participant Name         Case Number     Date Filed  Description  "
                          "Location  Role"_s);
    QCOMPARE(lines.at(10), u"A LONG NAME OF SOMEBODY  1               2  3  4  5"_s);
    QCOMPARE(lines.at(11), u"B                        12345678901234  2  3  4  5"_s);
}

void tst_ResultsLines::theRuleIsAsLongAsTheHead()
{
    const auto record = wholeSearch(ResultKind::Superior);
    const QStringList lines = linesOf(*record);
    const qsizetype head = lines.indexOf(QRegularExpression(u"^Participant Name.*"_s));
    QCOMPARE(lines.at(head + 1), QString(lines.at(head).size(), u'_'));
    QCOMPARE(lines.at(head + 5), lines.at(head + 1));
}

void tst_ResultsLines::theLastLine()
{
    ReportSituation situation = OnAMorning();
    situation.StopRequested = true;
    QCOMPARE(linesOf(*ReportedSearch(), situation).last(),
             u"<------ End of Report: User Stopped Search. Some Results may not have been "
             "retrieved! ------>"_s);
    QCOMPARE(linesOf(*ReportedSearch()).last(), u"<------ End of Report ------>"_s);
}

void tst_ResultsLines::noRows()
{
    const QStringList lines = linesOf(*ReportedSearch());
    QVERIFY(lines.contains(u"This search found 0 Matching Records"_s));
    QVERIFY(lines.contains(
        u"Participant Name  Case Number  Date Filed  Description  Location  Role"_s));
}

void tst_ResultsLines::aHundredThousandRows()
{
    const auto record = ReportedSearch();
    constexpr int many = 100'000;
    for (int i = 0; i < many; ++i)
        record->Rows.AddRow({u"SMITH, JOHN "_s + QString::number(i), QString::number(i)});
    const QStringList lines = linesOf(*record);
    QCOMPARE(lines.at(10 + many - 1).left(17), u"SMITH, JOHN 99999"_s);
    QVERIFY(lines.contains(u"This search found 100000 Matching Records"_s));
}

HALVANE_TEST(tst_ResultsLines)
#include "tst_ResultsLines.moc"
