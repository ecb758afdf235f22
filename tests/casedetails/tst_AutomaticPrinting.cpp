// Cases that print by themselves when their runs are over: one after the other, and never on top of
// something else.

#include "casedetails/AutomaticPrinting.h"
#include "casedetails/PrintingDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/TurnHold.h"
#include "jobs/TurnTaking.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <memory>

namespace {
constexpr int someTicks = 10;

bool everythingIsPrinted()
{
    return !AutomaticPrinting::Of().TmrReports->isActive();
}
/// What a report does not come on top of.
enum class Obstacle { RunningJob, NextJob, Question, Dialog };
} // namespace

Q_DECLARE_METATYPE(Obstacle)

class tst_AutomaticPrinting : public PrintingTest
{
    Q_OBJECT
protected Q_SLOTS:
    void init() override;
private Q_SLOTS:
    void withoutAlertsNobodyIsAsked_data() { EachCaseWindow(); }
    void withoutAlertsNobodyIsAsked();
    void withAlertsTheTabsAreAskedFor();
    void declinedIsDeclined();
    void onlyWhoWantsItPrints();
    void whatHoldsItUp_data();
    void whatHoldsItUp();
    void aRunThatBrokeDownHoldsUpNothing();
    void oneQuestionAtATime();
    void aBatchPrintsBehindItsLastRun();
    void onePrintAtATime();
    void aClosedWindowLeavesTheLine();
    void aLogoutChangesNothing();

private:
    /// A case behind its run, which is to print by itself.
    CaseWindow *afterRun(CaseWindowKind kind);
    /// A case without a run of its own, which waits to be printed.
    CaseWindow *waiting(const QString &number);
    QStringList titlesPrinted() const;
};

void tst_AutomaticPrinting::init()
{
    PrintingTest::init();
    AutomaticPrinting::Of().TmrReports->setInterval(1);
    Global.bShowAlerts = false;
}

CaseWindow *tst_AutomaticPrinting::afterRun(CaseWindowKind kind)
{
    CaseWindow *window = Pending(kind, {u"Names"_s});
    window->chkAutoPrint = true;
    Run(window);
    return window;
}

CaseWindow *tst_AutomaticPrinting::waiting(const QString &number)
{
    CaseWindow *window = Superior(number);
    window->StopPendingSearch();
    window->lboxReportsToPrint.AddItem(number);
    AutomaticPrinting::Of().Add(window);
    return window;
}

QStringList tst_AutomaticPrinting::titlesPrinted() const
{
    QStringList titles;
    for (const Report &report : seen.Printed)
        titles.append(report.Title.section(u' ', -1));
    return titles;
}

void tst_AutomaticPrinting::withoutAlertsNobodyIsAsked()
{
    QFETCH(CaseWindowKind, kind);
    const CaseWindow *window = afterRun(kind);
    QTRY_COMPARE(seen.Printed.size(), 1);
    QCOMPARE(TabsOfReport(seen.Printed.first()), (QStringList{u"Summary"_s, u"Names"_s}));
    QVERIFY(seen.Shown.isEmpty());
    QCOMPARE(window->lboxReportsToPrint.ListCount(), 0);
    QVERIFY(!window->chkAutoPrint);
    QVERIFY(everythingIsPrinted());
}

void tst_AutomaticPrinting::withAlertsTheTabsAreAskedFor()
{
    Global.bShowAlerts = true;
    AnswerPrintManager("OKButton", [](QDialog *dialog) {
        QCOMPARE(dialog->windowTitle(), u"Halvane - Print Report"_s);
        Child<QCheckBox>(dialog, "chkTab_0")->click();
    });
    afterRun(CaseWindowKind::Civil);
    QTRY_COMPARE(seen.Printed.size(), 1);
    QCOMPARE(TabsOfReport(seen.Printed.first()), QStringList{u"Names"_s});
    QVERIFY(seen.Shown.isEmpty());
}

void tst_AutomaticPrinting::declinedIsDeclined()
{
    Global.bShowAlerts = true;
    AnswerPrintManager("CancelButton");
    const CaseWindow *window = afterRun(CaseWindowKind::NonCivil);
    QTRY_COMPARE(desk->Boxes.Answered(), 1);
    Ticks(someTicks);
    QVERIFY(seen.Printed.isEmpty());
    QCOMPARE(window->lboxReportsToPrint.ListCount(), 0);
    QVERIFY(everythingIsPrinted());
}

void tst_AutomaticPrinting::onlyWhoWantsItPrints()
{
    const CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    Ticks(someTicks);
    QCOMPARE(window->lboxReportsToPrint.ListCount(), 0);
    QVERIFY(seen.Printed.isEmpty());
    QVERIFY(everythingIsPrinted());
}

void tst_AutomaticPrinting::whatHoldsItUp_data()
{
    QTest::addColumn<Obstacle>("obstacle");
    QTest::newRow("a job works") << Obstacle::RunningJob;
    QTest::newRow("a job is about to work") << Obstacle::NextJob;
    QTest::newRow("the user is asked") << Obstacle::Question;
    QTest::newRow("a window that nobody announced") << Obstacle::Dialog;
}

void tst_AutomaticPrinting::whatHoldsItUp()
{
    QFETCH(Obstacle, obstacle);
    std::unique_ptr<TurnHold> hold;
    QDialog dialog;
    desk->Boxes.Whenever(u"dialog"_s, [](QDialog *) {});
    dialog.setObjectName(u"dialog"_s);
    CaseWindow *next = nullptr;
    switch (obstacle) {
    case Obstacle::RunningJob:
        TakeLink();
        break;
    case Obstacle::NextJob:
        next = Superior();
        break;
    case Obstacle::Question:
        hold = std::make_unique<TurnHold>();
        break;
    case Obstacle::Dialog:
        dialog.open();
        break;
    }
    const CaseWindow *window = waiting(u"02-1-00001-1"_s);
    Ticks(someTicks);
    QVERIFY(seen.Printed.isEmpty());
    QCOMPARE(window->lboxReportsToPrint.ListCount(), 1);
    FreeLink();
    if (next)
        next->StopPendingSearch();
    hold.reset();
    dialog.close();
    QTRY_COMPARE(seen.Printed.size(), 1);
}

/// Its place in the queue is kept, but nobody has a turn before it is closed.
void tst_AutomaticPrinting::aRunThatBrokeDownHoldsUpNothing()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Summary))
        .Reply(SummaryReplyOf(CaseWindowKind::Superior));
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Docket))
        .Reply({u"GRIDDEF~Date~Entry~wide~80~"_s, u"01/02/2003~A~"_s, u"EOF~"_s});
    CaseWindow *broken = Superior();
    desk->ConnectTo(*court);
    desk->Time.Run(0.02);
    bool began = false;
    connect(broken->Timer1, &QTimer::timeout, broken, [&began] { began = true; });
    Begin(broken);
    QTRY_VERIFY(began && !Global.bSearchInProgress);
    desk->Time.Stop();
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{broken->txtMasterKey});
    waiting(u"02-1-00001-1"_s);
    QTRY_COMPARE(seen.Printed.size(), 1);
}

void tst_AutomaticPrinting::oneQuestionAtATime()
{
    Global.bShowAlerts = true;
    const CaseWindow *first = waiting(u"02-1-00001-1"_s);
    const CaseWindow *second = waiting(u"02-1-00002-2"_s);
    QList<int> left;
    const auto lookAround = [&](QDialog *dialog) {
        Ticks(someTicks);
        left.append(first->lboxReportsToPrint.ListCount() + second->lboxReportsToPrint.ListCount());
        QCOMPARE(QApplication::activeModalWidget(), dialog);
    };
    AnswerPrintManager("OKButton", lookAround);
    AnswerPrintManager("OKButton", lookAround);
    QTRY_COMPARE(seen.Printed.size(), 2);
    QCOMPARE(left, (QList<int>{1, 0}));
    QCOMPARE(titlesPrinted(), (QStringList{u"02-1-00001-1"_s, u"02-1-00002-2"_s}));
}

/// A question between two runs would keep the rest of the batch waiting for the user.
void tst_AutomaticPrinting::aBatchPrintsBehindItsLastRun()
{
    Global.bShowAlerts = true;
    QList<CaseWindow *> windows;
    for (int i = 0; i < 3; ++i) {
        windows.append(Pending(CaseWindowKind::Superior, {u"Names"_s}));
        windows.last()->chkAutoPrint = true;
    }
    int asked = 0;
    const auto countAndLook = [&](QDialog *) {
        ++asked;
        for (const CaseWindow *window : windows)
            QVERIFY(window->Tab(CaseTab::Names).TabDone);
    };
    for (int i = 0; i < 3; ++i)
        AnswerPrintManager("OKButton", countAndLook);
    desk->ConnectTo(*court);
    desk->Time.Run(0.02);
    for (CaseWindow *window : windows) {
        Begin(window);
        if (window == windows.last())
            break;
        // The next one is about to ask for its turn.
        QTRY_COMPARE(window->lboxReportsToPrint.ListCount(), 1);
        Ticks(someTicks);
    }
    QTRY_COMPARE(seen.Printed.size(), 3);
    desk->Time.Stop();
    QCOMPARE(asked, 3);
}

void tst_AutomaticPrinting::onePrintAtATime()
{
    seen.Printing = true;
    waiting(u"02-1-00001-1"_s);
    waiting(u"02-1-00002-2"_s);
    QTRY_COMPARE(seen.Printed.size(), 1);
    Ticks(someTicks);
    QCOMPARE(titlesPrinted(), QStringList{u"02-1-00001-1"_s});
    seen.Printing = false;
    QTRY_COMPARE(titlesPrinted(), (QStringList{u"02-1-00001-1"_s, u"02-1-00002-2"_s}));
}

void tst_AutomaticPrinting::aClosedWindowLeavesTheLine()
{
    auto hold = std::make_unique<TurnHold>();
    CaseWindow *first = waiting(u"02-1-00001-1"_s);
    waiting(u"02-1-00002-2"_s);
    Ticks(someTicks);
    {
        // It is not deleted as long as one of its procedures is on the stack.
        const FormWindow::RunScope scope(first);
        QVERIFY(first->Unload());
        hold.reset();
        QTRY_COMPARE(titlesPrinted(), QStringList{u"02-1-00002-2"_s});
        QCOMPARE(first->lboxReportsToPrint.ListCount(), 1);
    }
    Ticks(someTicks);
    QVERIFY(everythingIsPrinted());
}

/// What has come is here.
void tst_AutomaticPrinting::aLogoutChangesNothing()
{
    auto hold = std::make_unique<TurnHold>();
    waiting(u"02-1-00001-1"_s);
    Global.bStopRequested = true;
    Global.bLoggedIn = false;
    hold.reset();
    QTRY_COMPARE(titlesPrinted(), QStringList{u"02-1-00001-1"_s});
}

HALVANE_TEST(tst_AutomaticPrinting)
#include "tst_AutomaticPrinting.moc"
