#include "controls/SaveDialog.h"
#include "core/EndProgram.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "reports/PdfReader.h"
#include "reports/PreviewUser.h"
#include "reports/ReportPaper.h"
#include "reports/SampleReports.h"
#include "support/BoxAnswers.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "support/Ticks.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QRadioButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// From the preview to a printer, and into a PDF. The printer is a file that is read back.

namespace {
/// So many that printing them lets events through.
constexpr int longReport = 600;
} // namespace

class tst_PreviewPrint : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void printsAllPages();
    void printsWhileItPrepares();
    void printsOnThePaperOfTheDialog();
    void printsTheRangeThatIsWanted();
    void letsEventsThroughOnTheWayToARange();
    void notPrinted();
    void dialogByMnemonic();
    void realDialogHoldsTheTurn();
    void ownerGoesUnderTheDialog();
    void ownerGoesUnderTheRealDialog();
    void putAwayWhilePrinting();
    void ownerGoesWhilePrinting();
    void ownerIsDeletedWhilePrinting();
    void cancelledWhilePrinting();
    void oneThingAtATime();
    void printerThatFails();
    void savesAsPdf();
    void offersAFileInTheReportFolder();
    void savesWhatWasAskedFor();
    void cannotBeSaved();
    void cancelledWhileSaving();
    void ownerGoesWhileSaving();
    void ownerGoesUnderTheQuestion();
    void programEndsMeanwhile_data();
    void programEndsMeanwhile();
    void printsByItself();
    void severalPrintByThemselves();
    void noPrinter();
    void paperIsAskedFor();

private:
    QString path(const QString &name) const { return folder->Path(name); }
    /// Lets the dialog choose a file as the printer.
    void printTo(const QString &name)
    {
        ReplacePrintDialog([this, name](QPrinter &printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(path(name));
            return true;
        });
    }
    /// What happens at the first yield, once.
    static void atFirstYield(const std::function<void()> &act)
    {
        WatchYields([act] {
            // What is taken away goes with all that it holds.
            const std::function<void()> now = act;
            WatchYields({});
            now();
        });
    }
    static QStringList pagesOf(const Report &report)
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(u"expected.pdf"_s);
        WritePdf(report, letter, file);
        return PdfPages(file);
    }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<BoxAnswers> boxes;
    std::unique_ptr<PreviewUser> user;
};

void tst_PreviewPrint::init()
{
    folder = std::make_unique<TestFolder>();
    boxes = std::make_unique<BoxAnswers>();
    ReportPaper::Of().Set(letter);
    user = std::make_unique<PreviewUser>();
}

void tst_PreviewPrint::cleanup()
{
    WatchYields({});
    ReplacePrintDialog({});
    ReplaceDefaultPrinter({});
    ReplaceSaveDialog({});
    user.reset();
    Ticks(2);
    const QString complaints = boxes->Complaints();
    boxes.reset();
    folder.reset();
    QCOMPARE(complaints, QString());
    QVERIFY(!TurnHold::IsHeld());
}

void tst_PreviewPrint::printsAllPages()
{
    user->Look(SampleResults(100));
    printTo(u"out.pdf"_s);
    Click(user->Preview(), "cmdPrint");
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(100)));
    QCOMPARE(PdfInfo(path(u"out.pdf"_s))[u"Page size"_s], u"612 x 792 pts (letter)"_s);
    // Everybody who looks at the queue of a print server reads what the job is called.
    QCOMPARE(PdfInfo(path(u"out.pdf"_s))[u"Title"_s], u"Halvane Report"_s);
    QVERIFY(user->Preview()->isVisible());
    QCOMPARE(user->Note(), QString());
}

void tst_PreviewPrint::printsWhileItPrepares()
{
    user->Preview()->ShowReport(SampleResults(4000));
    QTimer *timer = user->Preview()->tmrPrepare;
    QVERIFY(timer->isActive());
    // What is missing does not come from elsewhere.
    timer->setInterval(1'000'000);
    printTo(u"out.pdf"_s);
    Click(user->Preview(), "cmdPrint");
    timer->setInterval(0);
    const QStringList pages = PdfPages(path(u"out.pdf"_s));
    QCOMPARE(u"Page 1 of %1"_s.arg(pages.size()), (user->FinishPages(), user->Page()));
    QVERIFY(pages.last().contains(u"This search found 4000 Matching Records"_s));
}

void tst_PreviewPrint::printsOnThePaperOfTheDialog()
{
    user->Look(SampleResults(100));
    ReplacePrintDialog([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        printer.setPageOrientation(QPageLayout::Landscape);
        return true;
    });
    Click(user->Preview(), "cmdPrint");
    WritePdf(SampleResults(100), letterLying, path(u"expected.pdf"_s));
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), PdfPages(path(u"expected.pdf"_s)));
}

void tst_PreviewPrint::printsTheRangeThatIsWanted()
{
    user->Look(SampleResults(100));
    ReplacePrintDialog([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 3);
        return true;
    });
    Click(user->Preview(), "cmdPrint");
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(100)).mid(1, 2));
    // On other paper no page has been found yet.
    WritePdf(SampleResults(100), letterLying, path(u"expected.pdf"_s));
    ReplacePrintDialog([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"lying.pdf"_s));
        printer.setPageOrientation(QPageLayout::Landscape);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(3, 4);
        return true;
    });
    Click(user->Preview(), "cmdPrint");
    QCOMPARE(PdfPages(path(u"lying.pdf"_s)), PdfPages(path(u"expected.pdf"_s)).mid(2, 2));
}

/// The last page of a report that is long, and of which few pages have been found.
void tst_PreviewPrint::letsEventsThroughOnTheWayToARange()
{
    constexpr int veryLong = 6000;
    user->Preview()->ShowReport(SampleResults(veryLong));
    ReplacePrintDialog([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(200, 200);
        return true;
    });
    const unsigned long long before = YieldCount();
    Click(user->Preview(), "cmdPrint");
    // One would come behind the page.
    QVERIFY(YieldCount() - before > 1);
    const QStringList printed = PdfPages(path(u"out.pdf"_s));
    QCOMPARE(printed.size(), 1);
    QVERIFY(printed.first().contains(u"Page 200"));
}

void tst_PreviewPrint::notPrinted()
{
    user->Look(SampleResults(1));
    int asked = 0;
    ReplacePrintDialog([this, &asked](QPrinter &printer) {
        printer.setOutputFileName(path(u"out.pdf"_s));
        ++asked;
        return false;
    });
    Click(user->Preview(), "cmdPrint");
    QCOMPARE(asked, 1);
    QVERIFY(!QFile::exists(path(u"out.pdf"_s)));
    QVERIFY(user->IsOn("cmdPrint"));
}

void tst_PreviewPrint::dialogByMnemonic()
{
    user->Look(SampleResults(1));
    int asked = 0;
    ReplacePrintDialog([&asked](QPrinter &) {
        ++asked;
        return false;
    });
    QTest::keyClick(Child(user->Preview(), "Pages"), Qt::Key_P, Qt::AltModifier);
    QCOMPARE(asked, 1);
}

void tst_PreviewPrint::realDialogHoldsTheTurn()
{
    user->Look(SampleResults(1));
    bool held = false;
    boxes->ExpectDialog(u"PrintDialog"_s, [&held](QDialog *dialog) {
        held = TurnHold::IsHeld();
        dialog->reject();
    });
    Click(user->Preview(), "cmdPrint");
    QVERIFY(held);
}

void tst_PreviewPrint::ownerGoesUnderTheDialog()
{
    user->Look(SampleResults(1));
    const QPointer<PreviewDoc> preview(user->Preview());
    ReplacePrintDialog([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        user->owner->Unload();
        Ticks(2);
        return true;
    });
    Click(user->Preview(), "cmdPrint");
    QVERIFY(!QFile::exists(path(u"out.pdf"_s)));
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::ownerGoesUnderTheRealDialog()
{
    user->Look(SampleResults(1));
    const QPointer<PreviewDoc> preview(user->Preview());
    boxes->ExpectDialog(u"PrintDialog"_s, [this](QDialog *) { user->owner->Unload(); });
    Click(user->Preview(), "cmdPrint");
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::putAwayWhilePrinting()
{
    user->Look(SampleResults(longReport));
    printTo(u"out.pdf"_s);
    bool wasThere = false;
    bool held = false;
    QString note;
    atFirstYield([&] {
        wasThere = user->Preview()->isVisible();
        held = TurnHold::IsHeld();
        note = user->Note();
        user->Preview()->close();
    });
    Click(user->Preview(), "cmdPrint");
    QVERIFY(wasThere);
    QVERIFY(held);
    QVERIFY(note.startsWith(u"Printing page "));
    QVERIFY(!user->Preview()->isVisible());
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(longReport)));
}

void tst_PreviewPrint::ownerGoesWhilePrinting()
{
    user->Look(SampleResults(longReport));
    const QPointer<PreviewDoc> preview(user->Preview());
    printTo(u"out.pdf"_s);
    atFirstYield([&] {
        user->owner->Unload();
        Ticks(2);
        QVERIFY(!user->owner);
        QVERIFY(preview);
    });
    Click(preview, "cmdPrint");
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(longReport)));
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::ownerIsDeletedWhilePrinting()
{
    user->Look(SampleResults(longReport));
    const QPointer<PreviewDoc> preview(user->Preview());
    printTo(u"out.pdf"_s);
    atFirstYield([&] { delete user->owner; });
    Click(preview, "cmdPrint");
    QVERIFY(!user->owner);
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(longReport)));
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::cancelledWhilePrinting()
{
    user->Look(SampleResults(longReport));
    printTo(u"out.pdf"_s);
    bool canCancel = false;
    unsigned long long yieldsBefore = 0;
    atFirstYield([&] {
        canCancel = Child(user->Preview(), "cmdCancel")->isVisible();
        yieldsBefore = YieldCount();
        user->Press("cmdCancel");
    });
    Click(user->Preview(), "cmdPrint");
    QVERIFY(canCancel);
    QCOMPARE(YieldCount(), yieldsBefore);
    QCOMPARE(user->Note(), QString());
    QVERIFY(!Child(user->Preview(), "cmdCancel")->isVisible());
    QVERIFY(user->IsOn("cmdPrint"));
}

void tst_PreviewPrint::oneThingAtATime()
{
    user->Look(SampleResults(longReport));
    printTo(u"out.pdf"_s);
    bool others = true;
    atFirstYield([&] { others = user->IsOn("cmdPrint") || user->IsOn("cmdSavePdf"); });
    Click(user->Preview(), "cmdPrint");
    QVERIFY(!others);
    QVERIFY(user->IsOn("cmdPrint") && user->IsOn("cmdSavePdf"));
}

void tst_PreviewPrint::printerThatFails()
{
    user->Look(SampleResults(1));
    printTo(u"nowhere/out.pdf"_s);
    boxes->Expect(u"The report could not be printed. Please look after the printer and try again, "
                  "or save the report as a PDF."_s,
                  u"Halvane - Print Error"_s, MsgIcon::Exclamation);
    Click(user->Preview(), "cmdPrint");
    QVERIFY(user->Preview()->isVisible());
}

void tst_PreviewPrint::savesAsPdf()
{
    user->Preview()->ShowReport(SampleResults(longReport));
    ReplaceSaveDialog([this](const QString &) { return path(u"saved.pdf"_s); });
    Click(user->Preview(), "cmdSavePdf");
    QCOMPARE(PdfPages(path(u"saved.pdf"_s)), pagesOf(SampleResults(longReport)));
    QCOMPARE(PdfInfo(path(u"saved.pdf"_s))[u"Title"_s], SampleResults(1).Title);
}

void tst_PreviewPrint::offersAFileInTheReportFolder()
{
    Global.strReportFolder = path(u"Reports"_s);
    user->Look(SampleResults(1));
    QString offered;
    ReplaceSaveDialog([&offered](const QString &suggested) {
        offered = suggested;
        return QString();
    });
    Click(user->Preview(), "cmdSavePdf");
    QCOMPARE(offered, path(u"Reports/ADAMS, JOHN in King-Pierce.pdf"_s));
    QVERIFY(!QFile::exists(offered));
}

/// The main window is not blocked by the question: another report can be shown under it.
void tst_PreviewPrint::savesWhatWasAskedFor()
{
    user->Look(SampleResults(3));
    ReplaceSaveDialog([this](const QString &) {
        user->Look(SampleResults(4));
        return path(u"saved.pdf"_s);
    });
    Click(user->Preview(), "cmdSavePdf");
    QCOMPARE(PdfPages(path(u"saved.pdf"_s)), pagesOf(SampleResults(3)));
}

void tst_PreviewPrint::cannotBeSaved()
{
    user->Look(SampleResults(longReport));
    folder->Write(u"saved.pdf"_s, "the old one");
    ReplaceSaveDialog([this](const QString &) { return path(u"saved.pdf"_s); });
    boxes->Expect(u"Unable to Save this file: "_s + path(u"saved.pdf"_s)
                      + u" - This may be because there are no results to save or print."_s,
                  u"Halvane - Save to File Error"_s, MsgIcon::Exclamation);
    {
        const FullDisk full(10'000);
        Click(user->Preview(), "cmdSavePdf");
    }
    QCOMPARE(folder->Read(u"saved.pdf"_s), QByteArray("the old one"));
    QVERIFY(user->IsOn("cmdSavePdf"));
}

void tst_PreviewPrint::cancelledWhileSaving()
{
    user->Look(SampleResults(longReport));
    folder->Write(u"saved.pdf"_s, "the old one");
    ReplaceSaveDialog([this](const QString &) { return path(u"saved.pdf"_s); });
    QString note;
    atFirstYield([&] {
        note = user->Note();
        user->Press("cmdCancel");
    });
    Click(user->Preview(), "cmdSavePdf");
    QVERIFY(note.startsWith(u"Saving page "));
    QCOMPARE(folder->Read(u"saved.pdf"_s), QByteArray("the old one"));
    QCOMPARE(user->Note(), QString());
}

void tst_PreviewPrint::ownerGoesWhileSaving()
{
    user->Look(SampleResults(longReport));
    const QPointer<PreviewDoc> preview(user->Preview());
    ReplaceSaveDialog([this](const QString &) { return path(u"saved.pdf"_s); });
    atFirstYield([&] {
        user->owner->Unload();
        Ticks(2);
    });
    Click(preview, "cmdSavePdf");
    QCOMPARE(PdfPages(path(u"saved.pdf"_s)), pagesOf(SampleResults(longReport)));
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::ownerGoesUnderTheQuestion()
{
    user->Look(SampleResults(1));
    const QPointer<PreviewDoc> preview(user->Preview());
    ReplaceSaveDialog([this](const QString &) {
        user->owner->Unload();
        return path(u"saved.pdf"_s);
    });
    Click(preview, "cmdSavePdf");
    QVERIFY(!QFile::exists(path(u"saved.pdf"_s)));
    Ticks(2);
    QVERIFY(!preview);
}

void tst_PreviewPrint::programEndsMeanwhile_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("printing") << QByteArray("cmdPrint");
    QTest::newRow("saving") << QByteArray("cmdSavePdf");
    QTest::newRow("by itself") << QByteArray();
}

void tst_PreviewPrint::programEndsMeanwhile()
{
    QFETCH(QByteArray, button);
    user->Look(SampleResults(longReport));
    printTo(u"out.pdf"_s);
    ReplaceSaveDialog([this](const QString &) { return path(u"out.pdf"_s); });
    ReplaceDefaultPrinter([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        return true;
    });
    QList<int> codes;
    QStringList pages;
    ReplaceEndProgram([&](int code) {
        codes.append(code);
        pages = PdfPages(path(u"out.pdf"_s));
    });
    QList<int> codesAtOnce{0};
    atFirstYield([&] {
        EndProgram(3);
        codesAtOnce = codes;
    });
    if (button.isEmpty())
        user->Preview()->PrintAndClose(SampleResults(longReport));
    else
        Click(user->Preview(), button.constData());
    QTRY_COMPARE(codes, QList<int>{3});
    QCOMPARE(codesAtOnce, QList<int>());
    QCOMPARE(pages, pagesOf(SampleResults(longReport)));
    // The next end waits for nothing.
    EndProgram(4);
    QCOMPARE(codes, (QList<int>{3, 4}));
}

void tst_PreviewPrint::printsByItself()
{
    ReplaceDefaultPrinter([this](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"out.pdf"_s));
        return true;
    });
    QSignalSpy over(user->Preview(), &PreviewDoc::PrintingOver);
    user->Preview()->PrintAndClose(SampleResults(100));
    // No job comes in between.
    QVERIFY(TurnHold::IsHeld());
    QTRY_COMPARE(over.size(), 1);
    QVERIFY(!TurnHold::IsHeld());
    QVERIFY(over.first().first().toBool());
    QVERIFY(!user->Preview()->isVisible());
    QCOMPARE(PdfPages(path(u"out.pdf"_s)), pagesOf(SampleResults(100)));
}

void tst_PreviewPrint::severalPrintByThemselves()
{
    int taken = 0;
    ReplaceDefaultPrinter([this, &taken](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(QString::number(++taken) + u".pdf"_s));
        return true;
    });
    QSignalSpy over(user->Preview(), &PreviewDoc::PrintingOver);
    user->Preview()->PrintAndClose(SampleResults(longReport));
    // The second is asked for while the first is being printed.
    int takenMeanwhile = 0;
    atFirstYield([&] {
        user->Preview()->PrintAndClose(SampleResults(2));
        user->Preview()->PrintAndClose(SampleResults(3));
        Ticks(2);
        takenMeanwhile = taken;
    });
    QTRY_COMPARE(over.size(), 3);
    QCOMPARE(takenMeanwhile, 1);
    QCOMPARE(PdfPages(path(u"1.pdf"_s)), pagesOf(SampleResults(longReport)));
    QCOMPARE(PdfPages(path(u"2.pdf"_s)), pagesOf(SampleResults(2)));
    QCOMPARE(PdfPages(path(u"3.pdf"_s)), pagesOf(SampleResults(3)));
}

void tst_PreviewPrint::noPrinter()
{
    ReplaceDefaultPrinter([](QPrinter &) { return false; });
    QSignalSpy over(user->Preview(), &PreviewDoc::PrintingOver);
    user->Preview()->PrintAndClose(SampleResults(100));
    QTRY_COMPARE(over.size(), 1);
    QVERIFY(!over.first().first().toBool());
    QVERIFY(user->Preview()->isVisible());
    user->FinishPages();
    QCOMPARE(user->Note(), u"There is no printer. The report can be saved as a PDF."_s);
    QVERIFY(user->IsOn("cmdSavePdf"));
}

void tst_PreviewPrint::paperIsAskedFor()
{
    user->Look(SampleResults(2000));
    const QString before = user->Page();
    bool held = false;
    const auto choose = [&held](QDialog *dialog, bool take) {
        QCOMPARE(dialog->windowTitle(), u"Page Setup"_s);
        held = TurnHold::IsHeld();
        Child<QRadioButton>(dialog, "landscape")->click();
        take ? dialog->accept() : dialog->reject();
    };
    boxes->ExpectDialog(u"PageSetup"_s, [&](QDialog *dialog) { choose(dialog, false); });
    AskForPaper(user->owner);
    QVERIFY(held);
    QCOMPARE(ReportPaper::Of().Current(), letter);
    boxes->ExpectDialog(u"PageSetup"_s, [&](QDialog *dialog) { choose(dialog, true); });
    AskForPaper(user->owner);
    QCOMPARE(ReportPaper::Of().Current(), letterLying);
    user->FinishPages();
    QVERIFY(user->Page() != before);
}

HALVANE_TEST(tst_PreviewPrint)
#include "tst_PreviewPrint.moc"
