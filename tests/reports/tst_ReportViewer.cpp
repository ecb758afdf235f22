#include "controls/FormWindow.h"
#include "core/EventLoop.h"
#include "reports/PdfReader.h"
#include "reports/PreviewDoc.h"
#include "reports/ReportPaper.h"
#include "reports/ReportViewer.h"
#include "reports/SampleReports.h"
#include "support/BoxAnswers.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "support/Ticks.h"
#include "support/WindowUser.h"

#include <QPointer>
#include <QPrinter>
#include <QTest>

using namespace Qt::StringLiterals;

// What a window sees of its preview.

namespace {
/// So many that printing them lets events through.
constexpr int yieldingReport = 600;
} // namespace

class tst_ReportViewer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void thePreviewIsMadeWhenItIsNeeded();
    void thePreviewGoesWithItsViewer();
    void thePaperIsTheSession();
    void printsUntilTheLastIsThrough();
    void aPrintThatFailsIsOver();

private:
    QObject *preview() const { return owner->property("preview").value<QObject *>(); }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<BoxAnswers> boxes;
    std::unique_ptr<FormWindow> owner;
    std::unique_ptr<ReportViewer> viewer;
};

void tst_ReportViewer::init()
{
    folder = std::make_unique<TestFolder>();
    boxes = std::make_unique<BoxAnswers>();
    ReportPaper::Of().Set(letter);
    owner = std::make_unique<FormWindow>();
    owner->show();
    viewer = MakeReportViewer(owner.get());
}

void tst_ReportViewer::cleanup()
{
    WatchYields({});
    ReplaceDefaultPrinter({});
    viewer.reset();
    owner.reset();
    Ticks(2);
    const QString complaints = boxes->Complaints();
    boxes.reset();
    folder.reset();
    QCOMPARE(complaints, QString());
}

void tst_ReportViewer::thePreviewIsMadeWhenItIsNeeded()
{
    QVERIFY(!preview());
    QVERIFY(!viewer->IsPrinting());
    viewer->Show(SampleResults(1));
    const QObject *first = preview();
    QCOMPARE(first, Shown<PreviewDoc>(u"PreviewDoc"_s));
    viewer->Show(SampleResults(2));
    QCOMPARE(preview(), first);
    QVERIFY(!viewer->IsPrinting());
}

void tst_ReportViewer::thePreviewGoesWithItsViewer()
{
    viewer->Show(SampleResults(1));
    const QPointer<QObject> shown(preview());
    viewer.reset();
    QVERIFY(!Shown(u"PreviewDoc"_s));
    Ticks(2);
    QVERIFY(!shown);
}

void tst_ReportViewer::thePaperIsTheSession()
{
    QCOMPARE(viewer->PrintableWidth(), 12240 - 2 * 720);
    ReportPaper::Of().Set(letterLying);
    QCOMPARE(viewer->PrintableWidth(), 15840 - 2 * 720);
}

void tst_ReportViewer::printsUntilTheLastIsThrough()
{
    int taken = 0;
    ReplaceDefaultPrinter([this, &taken](QPrinter &printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder->Path(QString::number(++taken) + u".pdf"_s));
        return true;
    });
    QList<bool> printing;
    WatchYields([&] { printing.append(viewer->IsPrinting()); });
    viewer->PrintAndClose(SampleResults(yieldingReport));
    viewer->PrintAndClose(SampleResults(1));
    QVERIFY(viewer->IsPrinting());
    QTRY_VERIFY(!viewer->IsPrinting());
    QCOMPARE(taken, 2);
    QVERIFY(!printing.isEmpty());
    QVERIFY(!printing.contains(false));
    QVERIFY(PdfPages(folder->Path(u"2.pdf"_s)).value(0).contains(u"This search found 1 "_s));
    QVERIFY(!Shown(u"PreviewDoc"_s));
}

void tst_ReportViewer::aPrintThatFailsIsOver()
{
    ReplaceDefaultPrinter([](QPrinter &) { return false; });
    viewer->PrintAndClose(SampleResults(1));
    QVERIFY(viewer->IsPrinting());
    QTRY_VERIFY(!viewer->IsPrinting());
    QVERIFY(Shown(u"PreviewDoc"_s));
}

HALVANE_TEST(tst_ReportViewer)
#include "tst_ReportViewer.moc"
