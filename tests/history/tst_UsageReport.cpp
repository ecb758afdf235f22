#include "history/UsageReport.h"
#include "support/HalvaneTest.h"

using namespace Qt::StringLiterals;

namespace {
const QList<HistoryUsage> lines{{u"4711 SMITH"_s, u"2026-11"_s, 3, 40, 12, 20, 5},
                                {u""_s, u"2026-10"_s, 1, 2, 0, 0, 0}};

ReportSituation situation(const QString &reportedBy)
{
    ReportSituation now;
    now.DatePrinted = u"11/2/2026 10:30:00 AM"_s;
    now.ReportedBy = reportedBy;
    return now;
}

QList<QStringList> cellsOf(const Report &report, BlockKind kind)
{
    QList<QStringList> cells;
    for (const ReportBlock &block : report.Blocks) {
        if (block.Kind == kind)
            cells.append(block.Cells);
    }
    return cells;
}

const QStringList totalCells{u"Total"_s, u"all codes"_s, u"4"_s, u"42"_s, u"12"_s, u"20"_s, u"5"_s};
} // namespace

class tst_UsageReport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void onPaper();
    void asText();
    void nothingIsATotalOfNothing();
};

void tst_UsageReport::onPaper()
{
    const Report report = ComposeUsage(lines, situation(u"My Firm"_s));
    QCOMPARE(report.Title, u"Halvane - Usage by Client Code"_s);
    QCOMPARE(cellsOf(report, BlockKind::HeadRow),
             QList<QStringList>({{u"Date Printed:"_s, u"11/2/2026 10:30:00 AM"_s},
                                 {u"Reported By:"_s, u"My Firm"_s}}));
    QCOMPARE(cellsOf(report, BlockKind::ColumnHeads), QList<QStringList>({UsageHeads()}));
    QCOMPARE(cellsOf(report, BlockKind::Row),
             QList<QStringList>(
                 {{u"2026-11"_s, u"4711 SMITH"_s, u"3"_s, u"40"_s, u"12"_s, u"20"_s, u"5"_s},
                  {u"2026-10"_s, u"(none)"_s, u"1"_s, u"2"_s, u"0"_s, u"0"_s, u"0"_s},
                  totalCells}));
    // Each row fits its table, and figures stand right.
    for (const ReportBlock &block : report.Blocks) {
        if (block.Table >= 0)
            QCOMPARE(block.Cells.size(), report.Tables.at(block.Table).size());
    }
    QCOMPARE(report.Tables.last().last().Alignment, Qt::AlignRight);
}

void tst_UsageReport::asText()
{
    const QStringList text = UsageText(lines, situation({})).Lines();
    QCOMPARE(text.value(2), u" Date Printed: 11/2/2026 10:30:00 AM"_s);
    QVERIFY(!text.join(u'\n').contains(u"Reported By"));
    QVERIFY(text.contains(u"2026-11   4711 SMITH                               3        "
                          "  40          12          20           5"_s));
    QVERIFY(text.contains(u"Total     all codes                                4        "
                          "  42          12          20           5"_s));
    QCOMPARE(text.value(text.size() - 1), ClosingLine(false));
}

void tst_UsageReport::nothingIsATotalOfNothing()
{
    const HistoryUsage total = TotalUsage({});
    QCOMPARE(UsageCells(total),
             QStringList({u"Total"_s, u"all codes"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
}

HALVANE_TEST(tst_UsageReport)
#include "tst_UsageReport.moc"
