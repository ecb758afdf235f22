#include "core/RunTimeError.h"
#include "core/Version.h"
#include "reports/PdfReader.h"
#include "reports/ReportPainter.h"
#include "reports/ReportPaper.h"
#include "reports/ReportPdf.h"
#include "reports/SampleReports.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QRegularExpression>

#include <memory>

using namespace Qt::StringLiterals;

// Reports on paper, read back by a program that is not ours.

class tst_ReportPdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void propertiesNameTheReportAndTheProgram();
    void paperIsTheSheet_data();
    void paperIsTheSheet();
    void eachRowIsThereOnce();
    void eachPageHasItsHeadsAndItsFoot();
    void nothingIsCutAtAnEdge();
    void noTextOverText();
    void textCanBeSearched();
    void theWritingIsArialOrItsNearest();
    void rulesAreThinLines();
    void measuresAreThoseOfTheWrittenText();
    void measuresDoNotDependOnTheScreen();
    void fullDiskKeepsTheOldFile();
    void folderThatIsNotThere();
    void stoppedKeepsTheOldFile();
    void pagesThatWereLaidOutBefore();
    void paperOfTheTerritory();
    void paperAsThePrinterHasIt();
    void paperInNumbers_data();
    void paperInNumbers();

private:
    QString written(const Report &report, const Paper &paper = letter)
    {
        const QString path = folder->Path(u"report.pdf"_s);
        WritePdf(report, paper, path);
        return path;
    }

    std::unique_ptr<TestFolder> folder;
};

void tst_ReportPdf::propertiesNameTheReportAndTheProgram()
{
    const auto info = PdfInfo(written(SampleResults(3)));
    QCOMPARE(info[u"Title"_s], u"Halvane Search Results for: ADAMS, JOHN"_s);
    QCOMPARE(info[u"Creator"_s], u"Halvane "_s + ProgramVersion());
    QCOMPARE(info[u"Pages"_s], u"1"_s);
}

void tst_ReportPdf::paperIsTheSheet_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<QString>("size");
    QTest::newRow("letter") << 12240 << 15840 << u"612 x 792 pts (letter)"_s;
    QTest::newRow("letter, lying") << 15840 << 12240 << u"792 x 612 pts (letter)"_s;
    QTest::newRow("A4") << 11900 << 16840 << u"595 x 842 pts (A4)"_s;
}

void tst_ReportPdf::paperIsTheSheet()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(QString, size);
    QCOMPARE(PdfInfo(written(SampleResults(3), {width, height}))[u"Page size"_s], size);
}

void tst_ReportPdf::eachRowIsThereOnce()
{
    constexpr int rows = 1000;
    QHash<QString, int> seen;
    const auto pages = PdfWords(written(SampleResults(rows)));
    for (const QList<PdfWord> &page : pages)
        for (const PdfWord &word : page)
            if (word.Text.startsWith(u"03-2-"))
                ++seen[word.Text];
    QCOMPARE(seen.size(), rows);
    for (int i = 1; i <= rows; ++i)
        QCOMPARE(seen.value(u"03-2-%1-1"_s.arg(i, 6, 10, QChar(u'0'))), 1);
}

void tst_ReportPdf::eachPageHasItsHeadsAndItsFoot()
{
    const QStringList pages = PdfPages(written(SampleResults(400)));
    QVERIFY(pages.size() > 8);
    static const QRegularExpression heads(
        u"Participant Name +Case Number +Date Filed +Description +Location +Role"_s);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        QVERIFY(pages[i].contains(heads));
        QCOMPARE(pages[i].count(u"Halvane Search Results for: ADAMS, JOHN"_s), 1);
        QCOMPARE(pages[i].simplified().count(stoppedWarning.toString().simplified()), 1);
        QCOMPARE(pages[i].trimmed().split(u'\n').last().trimmed(),
                 u"Page "_s + QString::number(i + 1));
    }
    QVERIFY(pages.last().contains(u"This search found 400 Matching Records"_s));
    QVERIFY(pages.last().contains(u"<------ End of Report ------>"_s));
}

void tst_ReportPdf::nothingIsCutAtAnEdge()
{
    Report report = SampleResults(100);
    // Words that no column holds, and a sentence that no line does.
    for (QString &cell : report.Blocks[30].Cells)
        cell = QString(300, u'W');
    report.Add(BlockKind::Text, {u"word "_s.repeated(200)});
    for (const Paper &paper : {letter, letterLying}) {
        const auto pages = PdfWords(written(report, paper));
        QCOMPARE(pages.value(0).value(0).Text, u"Halvane"_s);
        const QRectF printable(QPointF(Paper::LeftMargin, 0) / twipsPerPoint,
                               QPointF(paper.Width - Paper::RightMargin + 1, paper.Height)
                                   / twipsPerPoint);
        qsizetype signs = 0;
        for (const QList<PdfWord> &page : pages)
            for (const PdfWord &word : page) {
                QVERIFY2(printable.contains(word.Place), qPrintable(word.Text));
                signs += word.Text.count(u'W');
            }
        QVERIFY(signs >= 6 * 300);
    }
}

void tst_ReportPdf::noTextOverText()
{
    const auto pages = PdfWords(written(SampleResults(120)));
    // A box has room above and below its letters.
    const auto letters = [](const PdfWord &word) {
        const double room = word.Place.height() * 0.2;
        return word.Place.adjusted(0, room, 0, -room);
    };
    for (const QList<PdfWord> &page : pages) {
        QVERIFY(page.size() > 5);
        for (qsizetype i = 0; i < page.size(); ++i)
            for (qsizetype j = i + 1; j < page.size(); ++j)
                QVERIFY2(!letters(page[i]).intersects(letters(page[j])),
                         qPrintable(page[i].Text + u" and "_s + page[j].Text));
    }
}

void tst_ReportPdf::textCanBeSearched()
{
    Report report = SampleResults(1);
    report.Add(BlockKind::Text, {u"Peñalver & Søn, AVENUE \u2013 Tårnvej"_s});
    QVERIFY(
        PdfPages(written(report)).value(0).contains(u"Peñalver & Søn, AVENUE \u2013 Tårnvej"_s));
}

void tst_ReportPdf::theWritingIsArialOrItsNearest()
{
    const QStringList present = QFontDatabase::families();
    for (const QString &family : {u"Arial"_s, u"Liberation Sans"_s, u"Arimo"_s}) {
        if (!present.contains(family))
            continue;
        QCOMPARE(ReportFontFamily(), family);
        return;
    }
    QVERIFY(present.contains(ReportFontFamily()));
}

void tst_ReportPdf::rulesAreThinLines()
{
    constexpr int side = 200; ///< pixels, of ten twips each
    QImage sheet(side, side, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    {
        QPainter painter(&sheet);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(0.1, 0.1);
        ReportPage page;
        page.Rules = {{500, 1000, 1500, 1000}};
        ReportPainter().Draw(&painter, page);
    }
    const auto inkAt = [&sheet](int x) {
        int ink = 0;
        for (int y = 0; y < side; ++y)
            ink += 255 - qGray(sheet.pixel(x, y));
        return ink;
    };
    // Some black, and less than a whole pixel of it.
    QVERIFY(inkAt(100) > 50 && inkAt(100) < 255);
    QCOMPARE(inkAt(20), 0);
    QCOMPARE(inkAt(180), 0);
}

void tst_ReportPdf::measuresAreThoseOfTheWrittenText()
{
    const QString text = u"WESTHUIZEN,MAXIMILIAN-ALEXANDER"_s;
    const ReportPainter painter;
    Report report;
    report.Add(BlockKind::Total, {text});
    const PdfWord word = PdfWords(written(report)).value(0).value(0);
    QCOMPARE(word.Text, text);
    const double measured = painter.Width(text, {9, true}) / twipsPerPoint;
    QVERIFY2(std::abs(word.Place.width() - measured) < 0.2,
             qPrintable(QString::number(word.Place.width() - measured)));
}

void tst_ReportPdf::measuresDoNotDependOnTheScreen()
{
    const ReportPainter painter;
    const QString text = u"This search found 400 Matching Records"_s;
    const double nine = painter.Width(text, {9, false});
    QVERIFY(std::abs(painter.Width(text, {18, false}) - 2 * nine) < 2.0);
    QVERIFY(nine > 2500 && nine < 3500);
    QVERIFY(painter.LineHeight({9, false}) >= 180 && painter.LineHeight({9, false}) < 230);
}

void tst_ReportPdf::fullDiskKeepsTheOldFile()
{
    const QString path = folder->Path(u"report.pdf"_s);
    folder->Write(u"report.pdf"_s, "the old one");
    for (const qint64 bytes : {0, 100, 20'000, 60'000}) {
        const FullDisk full(bytes);
        try {
            WritePdf(SampleResults(2000), letter, path);
            QFAIL("written");
        } catch (const RunTimeError &error) {
            QCOMPARE(error.Number(), 61);
        }
    }
    QCOMPARE(folder->Read(u"report.pdf"_s), QByteArray("the old one"));
    QCOMPARE(QDir(folder->Path()).entryList({u"report.pdf*"_s}), QStringList{u"report.pdf"_s});
}

void tst_ReportPdf::folderThatIsNotThere()
{
    try {
        WritePdf(SampleResults(1), letter, folder->Path(u"nowhere/report.pdf"_s));
        QFAIL("written");
    } catch (const RunTimeError &error) {
        QCOMPARE(error.Number(), 70);
    }
}

void tst_ReportPdf::stoppedKeepsTheOldFile()
{
    folder->Write(u"report.pdf"_s, "the old one");
    const ReportPainter painter;
    PageLayout layout(SampleResults(500), letter, &painter);
    QList<int> seen;
    QVERIFY(!WritePdf(layout, painter, folder->Path(u"report.pdf"_s), [&seen](int done) {
        seen.append(done);
        return done < 3;
    }));
    QCOMPARE(seen, (QList<int>{1, 2, 3}));
    QCOMPARE(folder->Read(u"report.pdf"_s), QByteArray("the old one"));
    QCOMPARE(QDir(folder->Path()).entryList({u"report.pdf*"_s}), QStringList{u"report.pdf"_s});
}

void tst_ReportPdf::pagesThatWereLaidOutBefore()
{
    const ReportPainter painter;
    PageLayout layout(SampleResults(500), letter, &painter);
    for (int i = 0; i < 4; ++i)
        layout.AddPage();
    const QString path = folder->Path(u"half.pdf"_s);
    QVERIFY(WritePdf(layout, painter, path, {}));
    QCOMPARE(PdfPages(path), PdfPages(written(SampleResults(500))));
}

void tst_ReportPdf::paperOfTheTerritory()
{
    QCOMPARE(PaperOfTerritory(QLocale::UnitedStates), letter);
    QCOMPARE(PaperOfTerritory(QLocale::Canada), letter);
    QCOMPARE(PaperOfTerritory(QLocale::Germany), (Paper{11900, 16840}));
    // Until somebody chooses other paper.
    QCOMPARE(ReportPaper::Of().Current(), PaperOfTerritory(QLocale::system().territory()));
}

void tst_ReportPdf::paperAsThePrinterHasIt()
{
    for (const Paper &paper : {letter, letterLying, Paper{11900, 16840}, Paper{9000, 9600}})
        QCOMPARE(PaperOf(PageLayoutOf(paper)), paper);
    QCOMPARE(PageLayoutOf(letterLying).pageSize().id(), QPageSize::Letter);
    QCOMPARE(PageLayoutOf(letterLying).orientation(), QPageLayout::Landscape);
}

void tst_ReportPdf::paperInNumbers_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("orientation");
    QTest::newRow("letter") << 12240 << 15840 << 1 << 1;
    QTest::newRow("letter, lying") << 15840 << 12240 << 1 << 2;
    QTest::newRow("A4") << 11900 << 16840 << 9 << 1;
    QTest::newRow("A4, lying") << 16840 << 11900 << 9 << 2;
    QTest::newRow("another") << 9000 << 9600 << 256 << 1;
}

void tst_ReportPdf::paperInNumbers()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QTEST(PaperNumber({width, height}), "number");
    QTEST(OrientationNumber({width, height}), "orientation");
}

HALVANE_TEST(tst_ReportPdf)
#include "tst_ReportPdf.moc"
