// The report of a case as the lines of a text file. The files in golden/ are such reports, to be
// read: each is compared with what the program makes of the sample of its name.

#include "reports/CaseReport.h"
#include "reports/PageLayout.h"
#include "reports/SampleCases.h"
#include "support/HalvaneTest.h"

#include <QFile>
#include <QTest>

namespace {
QStringList linesOf(const CaseRecord &record, const QList<CaseTab> &tabs)
{
    return CaseReportLines(record, tabs, AtNoon());
}

/// The lines of a tab, from its heading to the empty line behind it.
QStringList linesOfTab(const CaseRecord &record, CaseTab tab)
{
    const QStringList lines = linesOf(record, {tab});
    const qsizetype begin = lines.indexOf(CaseTabRowOf(tab).caption);
    return lines.mid(begin, lines.indexOf(u" "_s, begin) - begin);
}

QString golden(const QString &name)
{
    QFile file(QStringLiteral(HALVANE_GOLDEN_DIR "/case-%1.txt").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return u"cannot be read: "_s + file.fileName();
    return QString::fromUtf8(file.readAll());
}

/// The words of a text with single blanks between them: as they are read, wherever they stand.
QString words(const QString &text)
{
    return text.simplified();
}

void eachSample()
{
    QTest::addColumn<QString>("sample");
    for (const QString &name : SampleCaseNames())
        QTest::addRow("%s", qPrintable(name)) << name;
}
} // namespace

class tst_CaseLines : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void asTheGoldenFile_data() { eachSample(); }
    void asTheGoldenFile();
    void theSameValuesAsOnPaper_data() { eachSample(); }
    void theSameValuesAsOnPaper();
    void columnsAreAsWideAsTheirLongestCell();
    void aCellThatIsMuchTooLongWidensNoOtherLine();
    void aHeadIsLongerThanItsCells();
    void nothingHasComeYet();
    void theEndOfAStoppedSearch();
};

void tst_CaseLines::asTheGoldenFile()
{
    QFETCH(QString, sample);
    const CaseRecord record = SampleCase(sample);
    ReportSituation situation = AtNoon();
    situation.ReportedBy = u"Ann Clerk"_s;
    QList<CaseTab> tabs = TabsToReport(record);
    const QString text = CaseReportLines(record, tabs, situation).join(u'\n') + u'\n';
    QCOMPARE(text, golden(sample));
}

/// Whatever paper says, the file says in the same order.
void tst_CaseLines::theSameValuesAsOnPaper()
{
    QFETCH(QString, sample);
    const CaseRecord record = SampleCase(sample);
    const QList<CaseTab> tabs = TabsToReport(record);
    const Report report = ComposeCase(record, tabs, AtNoon(), Paper().PrintableWidth());
    const QString file = words(linesOf(record, tabs).join(u' ').remove(u'_'));
    QString paper;
    for (const ReportBlock &block : report.Blocks)
        paper += u' ' + block.Cells.join(u' ');
    QCOMPARE(file, words(paper));
    QVERIFY(file.size() > 300);
}

void tst_CaseLines::columnsAreAsWideAsTheirLongestCell()
{
    QCOMPARE(
        linesOfTab(SuperiorCase(), CaseTab::Docket),
        (QStringList{u"Docket"_s, u"Sub#  Date        Description            Misc"_s,
                     u"________________________________________________"_s,
                     u"1     01/15/2002  Information"_s,
                     u"12    02/01/2002  Order for Arraignment  Dept. 3"_s, u"End of Docket"_s}));
}

void tst_CaseLines::aCellThatIsMuchTooLongWidensNoOtherLine()
{
    CaseRecord record = SuperiorCase();
    const QString endless(300, u'x');
    Give(record, CaseTab::Names, {{u"A"_s, 50}, {u"B"_s, 50}},
         {{endless, u"behind"_s}, {u"short"_s, u"row"_s}});
    const QStringList lines = linesOfTab(record, CaseTab::Names);
    QCOMPARE(lines.value(3), QString(endless + u"  behind"));
    QCOMPARE(lines.value(4), QString(u"short"_s + QString(245, u' ') + u"  row"));
}

void tst_CaseLines::aHeadIsLongerThanItsCells()
{
    CaseRecord record = SuperiorCase();
    Give(record, CaseTab::Names, {{u"Participant"_s, 50}, {u"B"_s, 50}}, {{u"A"_s, u"b"_s}});
    QCOMPARE(
        linesOfTab(record, CaseTab::Names),
        (QStringList{u"Names"_s, u"Participant  B"_s, u"______________"_s, u"A            b"_s}));
}

void tst_CaseLines::nothingHasComeYet()
{
    CaseRecord record(CaseKind::State);
    record.txtCaseNumber = u"02-1-00123-4"_s;
    QCOMPARE(linesOfTab(record, CaseTab::Summary),
             (QStringList{u"Summary"_s, u"< WARNING:  Information Incomplete > "_s}));
}

void tst_CaseLines::theEndOfAStoppedSearch()
{
    ReportSituation situation = AtNoon();
    situation.StopRequested = true;
    const QStringList lines = CaseReportLines(SuperiorCase(), {CaseTab::Summary}, situation);
    QCOMPARE(lines.last(), u"<------ End of Report: User Stopped Search. Some Results may not have "
                           "been retrieved! ------>"_s);
    QCOMPARE(linesOf(SuperiorCase(), {}).last(), u"<------ End of Report ------>"_s);
}

HALVANE_TEST(tst_CaseLines)
#include "tst_CaseLines.moc"
