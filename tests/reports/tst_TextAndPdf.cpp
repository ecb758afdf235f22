// The PDF of a report and its text file say the same: whoever has one of them misses nothing that
// stands in the other.

#include "reports/CaseReport.h"
#include "reports/PdfReader.h"
#include "reports/ReportPainter.h"
#include "reports/ReportPdf.h"
#include "reports/ReportedSearch.h"
#include "reports/ResultsReport.h"
#include "reports/ResultsTables.h"
#include "reports/SampleCases.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

#include <algorithm>

namespace {
/// All on one page: the heads of further pages stand in no file.
constexpr Paper tall{12240, 60000};

QStringList sorted(QStringList words)
{
    std::sort(words.begin(), words.end());
    return words;
}

QStringList wordsOf(const QStringList &lines)
{
    QStringList words = lines.join(u' ').split(u' ', Qt::SkipEmptyParts);
    words.removeIf([](const QString &word) { return word.count(u'_') == word.size(); });
    return words;
}

/// Of the only page, without its number.
QStringList wordsOnPaper(const Report &report)
{
    const TestFolder folder;
    const QString path = folder.Path(u"report.pdf"_s);
    WritePdf(report, tall, path);
    const QList<QList<PdfWord>> pages = PdfWords(path);
    QStringList words;
    for (const PdfWord &word : pages.value(0))
        words.append(word.Text);
    const bool numbered = words.removeOne(u"Page"_s) && words.removeOne(u"1"_s);
    return pages.size() == 1 && numbered ? words : QStringList{u"no single page"_s};
}

/// A few heads of columns are shorter in a file.
QStringList withHeadsOfPaper(QStringList words, ResultKind kind)
{
    for (const ReportColumn &column : ReportColumnsOf(kind)) {
        for (const QString &word : wordsOf({column.FileHead.toString()}))
            words.removeOne(word);
        words += wordsOf({column.Head.toString()});
    }
    return words;
}

std::unique_ptr<ResultsRecord> searchOf(ResultKind kind)
{
    auto record = ReportedSearch(kind);
    record->ClientAcctgCode = u" smith-12 "_s;
    record->StopWarningFlag = true;
    // So short that no column breaks them: a piece of a word is a word to who reads it back.
    QStringList cells;
    for (int i = 0; i < 8; ++i)
        cells.append(u"v"_s + QString::number(i));
    record->Rows.AddRow(cells);
    cells[0] = u"SMITHERS, JONATHAN BARTHOLOMEW MAXIMILIAN"_s;
    cells[1] = u"*w1"_s;
    record->Rows.AddRow(cells);
    return record;
}
} // namespace

class tst_TextAndPdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void results_data();
    void results();
    void cases_data();
    void cases();
};

void tst_TextAndPdf::results_data()
{
    QTest::addColumn<ResultKind>("kind");
    QTest::newRow("superior") << ResultKind::Superior;
    QTest::newRow("idaho") << ResultKind::Idaho;
    QTest::newRow("bankruptcy") << ResultKind::Bankruptcy;
    QTest::newRow("index") << ResultKind::Index;
    QTest::newRow("district, civil") << ResultKind::DiscisCivil;
    QTest::newRow("district, statewide") << ResultKind::DiscisStatewide;
    QTest::newRow("district, addresses") << ResultKind::DiscisAddresses;
    QTest::newRow("names, statewide") << ResultKind::NamesStatewide;
    QTest::newRow("names, addresses") << ResultKind::NamesAddresses;
}

void tst_TextAndPdf::results()
{
    QFETCH(ResultKind, kind);
    const auto record = searchOf(kind);
    ReportSituation situation = OnAMorning();
    situation.ReportedBy = u"Pat Doe"_s;
    const ReportPainter ruler;
    const Report report =
        ComposeResults(*record, CasesOf(*record), situation,
                       [&ruler](const QString &text) { return ruler.Width(text, {}); });
    const QStringList file = wordsOf(ResultsText(*record, CasesOf(*record), situation).Lines());
    QVERIFY(file.size() > 80);
    QCOMPARE(sorted(wordsOnPaper(report)).join(u' '),
             sorted(withHeadsOfPaper(file, kind)).join(u' '));
}

void tst_TextAndPdf::cases_data()
{
    QTest::addColumn<QString>("sample");
    for (const QString &name : SampleCaseNames())
        QTest::addRow("%s", qPrintable(name)) << name;
}

void tst_TextAndPdf::cases()
{
    QFETCH(QString, sample);
    const CaseRecord record = SampleCase(sample);
    const QList<CaseTab> tabs = TabsToReport(record);
    const Report report = ComposeCase(record, tabs, AtNoon(), tall.PrintableWidth());
    const QStringList file = wordsOf(CaseReportLines(record, tabs, AtNoon()));
    QVERIFY(file.size() > 60);
    QCOMPARE(sorted(wordsOnPaper(report)).join(u' '), sorted(file).join(u' '));
}

HALVANE_TEST(tst_TextAndPdf)
#include "tst_TextAndPdf.moc"
