// Where the keyboard is in a case window: with the tab that is looked at, and never on a button
// that nobody went to.

#include "casedetails/OnDemandDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QPushButton>
#include <QTest>

class tst_CaseFocus : public OnDemandTest
{
    Q_OBJECT
private Q_SLOTS:
    void theKeyboardGoesWithTheTab_data();
    void theKeyboardGoesWithTheTab();
    void onTheStripItStays();
    void aBoxThatIsOffDoesNotGetTheKeyboardBack();
    void theTabKey_data();
    void theTabKey();
    void searchNowGivesItToTheStrip_data();
    void searchNowGivesItToTheStrip();
    void searchNowTakesItFromPrint();
    void stopDoesNotLeadToClose_data();
    void stopDoesNotLeadToClose();
    void theEndOfARunDoesNotLeadToClose();

private:
    static QWidget *named(const CaseWindow *window, const QString &name)
    {
        return window->findChild<QWidget *>(name);
    }
    static QString focused(const CaseWindow *window)
    {
        const QWidget *widget = window->focusWidget();
        return widget ? widget->objectName() : QString();
    }
};

void tst_CaseFocus::theKeyboardGoesWithTheTab_data()
{
    EachCaseWindow();
}

void tst_CaseFocus::theKeyboardGoesWithTheTab()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind, {u"Names"_s});
    window->Tab(CaseTab::Summary).Grid->setFocus();
    ClickTab(window, u"Names"_s);
    QCOMPARE(focused(window), u"GridNames"_s);
    // The first box of the panel that can be ticked.
    ClickTab(window, u"Docket"_s);
    QCOMPARE(focused(window), u"chkTab_2"_s);
    ClickTab(window, u"Summary"_s);
    QCOMPARE(focused(window), u"GridSummary"_s);
}

void tst_CaseFocus::onTheStripItStays()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior, {u"Names"_s});
    named(window, u"TabStrip1"_s)->setFocus();
    for (const QString &caption : {u"Names"_s, u"Docket"_s, u"Summary"_s}) {
        ClickTab(window, caption);
        QCOMPARE(focused(window), u"TabStrip1"_s);
    }
}

void tst_CaseFocus::aBoxThatIsOffDoesNotGetTheKeyboardBack()
{
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    ClickTab(window, u"Docket"_s);
    BoxOf(window, CaseTab::Names)->setFocus();
    court->Expect(LineOf(CaseWindowKind::Superior, CaseTab::Names)).Reply(ReplyOf(CaseTab::Names));
    Tick(window, {CaseTab::Names});
    SearchNowToTheEnd(window);
    // The box is off now, and of the panel it is what had the keyboard last.
    window->Tab(CaseTab::Names).Grid->setFocus();
    ClickTab(window, u"Docket"_s);
    QCOMPARE(focused(window), u"TabStrip1"_s);
}

void tst_CaseFocus::theTabKey_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QStringList>("way");
    const QStringList buttons{u"chkPrintGridLines"_s, u"cmdPrintDetails"_s, u"cmdCloseDetails"_s,
                              u"lblHelp"_s, u"TabStrip1"_s};
    QTest::newRow("a grid") << u"Summary"_s << QStringList{u"GridSummary"_s} + buttons;
    QTest::newRow("the panel") << u"Docket"_s
                               << QStringList{u"chkTab_1"_s,    u"chkTab_2"_s,
                                              u"chkTab_3"_s,    u"cmdSelectAll"_s,
                                              u"cmdClearAll"_s, u"cmdSearchNow"_s}
                                      + buttons;
}

void tst_CaseFocus::theTabKey()
{
    QFETCH(QString, caption);
    QFETCH(QStringList, way);
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Civil);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    ClickTab(window, caption);
    named(window, u"TabStrip1"_s)->setFocus();
    QStringList gone;
    for (qsizetype i = 0; i < way.size(); ++i) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        gone.append(focused(window));
    }
    QCOMPARE(gone, way);
}

void tst_CaseFocus::searchNowGivesItToTheStrip_data()
{
    EachCaseWindow();
}

void tst_CaseFocus::searchNowGivesItToTheStrip()
{
    QFETCH(CaseWindowKind, kind);
    CaseWindow *window = AfterFirstRun(kind);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    ButtonOf(window, "cmdSearchNow")->setFocus();
    SearchNow(window);
    QCOMPARE(focused(window), u"TabStrip1"_s);
    // It is still there when the tab has come.
    ExpectTab(kind, CaseTab::Docket);
    window->TmrSearchOnDemand->start(1);
    QVERIFY(Finished(window));
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
    QCOMPARE(focused(window), u"TabStrip1"_s);
}

void tst_CaseFocus::searchNowTakesItFromPrint()
{
    // By its letter SEARCH NOW is pressed from anywhere, and what is printed now is incomplete.
    CaseWindow *window = AfterFirstRun(CaseWindowKind::Superior);
    ClickTab(window, u"Docket"_s);
    Tick(window, {CaseTab::Docket});
    ButtonOf(window, "cmdPrintDetails")->setFocus();
    SearchNow(window);
    QVERIFY(!ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QCOMPARE(focused(window), u"TabStrip1"_s);
}

void tst_CaseFocus::stopDoesNotLeadToClose_data()
{
    QTest::addColumn<bool>("asked");
    QTest::newRow("asked") << true;
    QTest::newRow("not asked") << false;
}

void tst_CaseFocus::stopDoesNotLeadToClose()
{
    QFETCH(bool, asked);
    Global.bShowAlerts = asked;
    if (asked)
        desk->Boxes.Expect(u"Stop This Search?"_s, u"Stop Search Verification"_s, MsgIcon::Question,
                           MsgAnswer::Yes, MsgButtons::YesNo);
    CaseWindow *window = Superior();
    ButtonOf(window, "cmdStopSearching")->setFocus();
    ButtonOf(window, "cmdStopSearching")->click();
    QVERIFY(window->StopRequested);
    QCOMPARE(focused(window), u"TabStrip1"_s);
}

void tst_CaseFocus::theEndOfARunDoesNotLeadToClose()
{
    CaseWindow *window = Pending(CaseWindowKind::Superior);
    ButtonOf(window, "cmdStopSearching")->setFocus();
    Run(window);
    QCOMPARE(focused(window), u"TabStrip1"_s);
}

HALVANE_TEST(tst_CaseFocus)
#include "tst_CaseFocus.moc"
