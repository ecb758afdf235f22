// Printing and saving a case, as the user does it.

#include "casedetails/PrintingDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "reports/CaseReport.h"
#include "support/HalvaneTest.h"

#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace {
const QString notCompleted = u"WARNING:  This Search was NOT completed. Some results may not have "
                             "been retrieved."_s;
const QString incompleteMark = u"< WARNING:  Information Incomplete > "_s;
const QString longEnd = u"<------ End of Report: User Stopped Search. Some Results may not have "
                        "been retrieved! ------>"_s;

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : u"no file"_s;
}

QStringList tickedIn(const QDialog *dialog)
{
    QStringList captions;
    for (const QCheckBox *box : dialog->findChildren<QCheckBox *>()) {
        if (box->isChecked())
            captions.append(box->text());
    }
    return captions;
}

QString endOf(const Report &report)
{
    return report.Blocks.last().Cells.value(0);
}
} // namespace

class tst_CasePrinting : public PrintingTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachWindowPrints_data() { EachCaseWindow(); }
    void eachWindowPrints();
    void onlyWhatIsTickedIsPrinted();
    void noReportIsMade_data();
    void noReportIsMade();
    void aSavedReport();
    void aReportThatCannotBeSaved();
    void gridLinesAreAskedForInTheWindow_data() { EachCaseWindow(); }
    void gridLinesAreAskedForInTheWindow();
    void aTabThatFailedAndIsKept();
    void aCaseThatWaitsIsPrintedAsItIs();
    void aRunThatGoesOn();
    void theLaterRunWaitsForTheAnswer();
    void aStopWhileTheAnswerIsAwaited();
    void aWindowThatIsClosedUnderTheQuestion();
    void theEndOfAStoppedRunAndOfALaterOne();
    void theViewerGoesWithTheWindow();
};

void tst_CasePrinting::eachWindowPrints()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind, {u"Names"_s, u"Docket"_s});
    QStringList offered;
    AnswerPrintManager("OKButton", [&offered](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Halvane - Print Report"_s);
        QVERIFY(dialog->isModal());
        QVERIFY(TurnHold::IsHeld());
        offered = tickedIn(dialog);
    });
    Click(window, "cmdPrintDetails");
    QCOMPARE(offered, (QStringList{u"Summary"_s, u"Names"_s, u"Docket"_s}));
    QCOMPARE(seen.Shown.size(), 1);
    QVERIFY(seen.Printed.isEmpty());
    QCOMPARE(seen.Shown.first(),
             ComposeCase(window->Record(), {CaseTab::Summary, CaseTab::Names, CaseTab::Docket},
                         SituationNow(false, false), seen.Width));
    QCOMPARE(TabsOfReport(seen.Shown.first()), offered);
    QCOMPARE(WarningsOf(seen.Shown.first()), QStringList());
}

void tst_CasePrinting::onlyWhatIsTickedIsPrinted()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {u"Names"_s, u"Docket"_s});
    AnswerPrintManager("OKButton", [](QDialog *dialog) {
        Click(dialog, "cmdClearAll");
        Child<QCheckBox>(dialog, "chkTab_2")->click();
    });
    window->PrintDirect();
    QCOMPARE(TabsOfReport(seen.Shown.value(0)), QStringList{u"Docket"_s});
}

void tst_CasePrinting::noReportIsMade_data()
{
    QTest::addColumn<bool>("cleared");
    QTest::addColumn<QString>("button");
    QTest::newRow("nothing is ticked") << true << u"OKButton"_s;
    QTest::newRow("Cancel") << false << u"CancelButton"_s;
}

void tst_CasePrinting::noReportIsMade()
{
    QFETCH(bool, cleared);
    QFETCH(QString, button);
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    const QByteArray name = button.toLatin1();
    const auto clear = [cleared](QDialog *dialog) {
        if (cleared)
            Click(dialog, "cmdClearAll");
    };
    AnswerPrintManager(name.constData(), clear);
    window->PrintDirect();
    AnswerPrintManager(name.constData(), clear);
    const QString path = desk->Folder.Path(u"case.txt"_s);
    window->PrintToFile(path);
    QVERIFY(seen.Shown.isEmpty() && seen.Printed.isEmpty());
    QVERIFY(!QFile::exists(path));
}

void tst_CasePrinting::aSavedReport()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {u"Docket"_s});
    AnswerPrintManager("OKButton", [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Save Report To File"_s);
        QCOMPARE(TextOf(dialog, "lblCaseDetailsHdr"), u"Halvane - Save Report to File"_s);
    });
    const QString path = desk->Folder.Path(u"case.txt"_s);
    window->PrintToFile(path);
    const QStringList lines = CaseReportLines(window->Record(), {CaseTab::Summary, CaseTab::Docket},
                                              SituationNow(false, false));
    QCOMPARE(contentOf(path), QString(lines.join(u"\r\n"_s) + u"\r\n"));
    QVERIFY(lines.contains(u"End of Docket"_s));
    QVERIFY(seen.Shown.isEmpty());
}

void tst_CasePrinting::aReportThatCannotBeSaved()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    const QString path = desk->Folder.Path(u"no such folder/case.txt"_s);
    AnswerPrintManager("OKButton");
    desk->Boxes.Expect(u"Unable to Save this file: "_s + path
                           + u" - This may be because there are no results to save or print."_s,
                       u"Halvane - Save to File Error"_s, MsgIcon::Exclamation);
    window->PrintToFile(path);
    QCOMPARE(desk->Boxes.Answered(), 2);
}

void tst_CasePrinting::gridLinesAreAskedForInTheWindow()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    for (const bool wanted : {false, true, false}) {
        if (Child<QCheckBox>(window, "chkPrintGridLines")->isChecked() != wanted)
            Child<QCheckBox>(window, "chkPrintGridLines")->click();
        AnswerPrintManager("OKButton");
        Click(window, "cmdPrintDetails");
        QCOMPARE(seen.Shown.last().GridLines, wanted);
    }
}

/// It is offered once the user has chosen to look at what is there.
void tst_CasePrinting::aTabThatFailedAndIsKept()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {}, {u"Docket"_s});
    AnswerPrintManager("OKButton");
    window->PrintDirect();
    QCOMPARE(TabsOfReport(seen.Shown.last()), QStringList{u"Summary"_s});
    QCOMPARE(WarningsOf(seen.Shown.last()), QStringList{notCompleted});
    AnswerPrompt(false);
    ClickTab(window, u"Docket"_s);
    AnswerPrintManager("OKButton");
    window->PrintDirect();
    QCOMPARE(TabsOfReport(seen.Shown.last()), (QStringList{u"Summary"_s, u"Docket"_s}));
    QVERIFY(seen.Shown.last().Blocks.contains(ReportBlock{BlockKind::Text, {incompleteMark}, -1}));
}

void tst_CasePrinting::aCaseThatWaitsIsPrintedAsItIs()
{
    CaseWindow *window = Superior();
    QVERIFY(!ButtonOf(window, "cmdPrintDetails")->isEnabled());
    AnswerPrintManager("OKButton");
    window->PrintDirect();
    QCOMPARE(TabsOfReport(seen.Shown.value(0)), QStringList{u"Summary"_s});
    QCOMPARE(WarningsOf(seen.Shown.value(0)), QStringList{notCompleted});
}

void tst_CasePrinting::aRunThatGoesOn()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Summary))
        .Reply(SummaryReplyOf(CaseWindowKind::Superior));
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Names)).Reply(ReplyOf(CaseTab::Names));
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Docket)).Reply({});
    CaseWindow *window = Superior();
    AnswerPrintManager("OKButton");
    desk->When([this] { return court->Requests().size() == 3; },
               [this, window] {
                   window->PrintDirect();
                   court->SendTokens(ReplyOf(CaseTab::Docket));
               });
    Run(window);
    QCOMPARE(TabsOfReport(seen.Shown.value(0)), (QStringList{u"Summary"_s, u"Names"_s}));
    QCOMPARE(WarningsOf(seen.Shown.value(0)), QStringList{notCompleted});
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_CasePrinting::theLaterRunWaitsForTheAnswer()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    const auto timerStands = [window](QDialog *) {
        QVERIFY(!window->TmrSearchOnDemand->isActive());
    };
    AnswerPrintManager("OKButton", timerStands);
    window->PrintDirect();
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    window->TmrSearchOnDemand->start(60'000);
    AnswerPrintManager("OKButton", timerStands);
    window->PrintDirect();
    QVERIFY(window->TmrSearchOnDemand->isActive());
}

void tst_CasePrinting::aStopWhileTheAnswerIsAwaited()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    ClickTab(window, u"Docket"_s);
    SearchNow(window);
    window->TmrSearchOnDemand->start(60'000);
    AnswerPrintManager("OKButton", [window](QDialog *) { QVERIFY(window->StopPendingSearch()); });
    window->PrintDirect();
    QVERIFY(!window->TmrSearchOnDemand->isActive());
    QCOMPARE(seen.Shown.size(), 1);
}

void tst_CasePrinting::aWindowThatIsClosedUnderTheQuestion()
{
    const QPointer<CaseWindow> window(AfterFirstRun(CaseWindowKind::Superior));
    AnswerPrintManager("OKButton", [window](QDialog *dialog) {
        window->Unload(UnloadMode::MdiParent);
        QVERIFY(dialog->isHidden());
    });
    Global.bShowAlerts = false;
    window->PrintDirect();
    QVERIFY(seen.Shown.isEmpty());
    QTRY_VERIFY(window.isNull());
    QCOMPARE(seen.Viewers, 0);
}

void tst_CasePrinting::theEndOfAStoppedRunAndOfALaterOne()
{
    CaseWindow *window = Superior();
    window->StopRequested = true;
    QVERIFY(window->StopPendingSearch());
    AnswerPrintManager("OKButton");
    window->PrintDirect();
    QCOMPARE(endOf(seen.Shown.last()), longEnd);
    ClickTab(window, u"Summary"_s);
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Summary))
        .Reply(SummaryReplyOf(CaseWindowKind::Superior));
    desk->ConnectTo(*court);
    Tick(window, {CaseTab::Summary});
    SearchNowToTheEnd(window);
    AnswerPrintManager("OKButton");
    window->PrintDirect();
    QCOMPARE(endOf(seen.Shown.last()), u"<------ End of Report ------>"_s);
}

void tst_CasePrinting::theViewerGoesWithTheWindow()
{
    Global.bShowAlerts = false;
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    QCOMPARE(seen.Viewers, 1);
    QVERIFY(window->Unload());
    QCOMPARE(seen.Viewers, 0);
}

HALVANE_TEST(tst_CasePrinting)
#include "tst_CasePrinting.moc"
