#include "casedetails/SummaryDesk.h"
#include "core/GlobalState.h"
#include "core/RunTimeError.h"
#include "jobs/frmQueue.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QApplication>

namespace {
const QStringList severalCases{u"MULTIPLE"_s,
                               u" 99-20077 /RETRIEVECOMMAND=BKRPT~SUMMARY~1~/ BK / SMITH & DOE /"_s,
                               u"no case/x/y/"_s,
                               u"99-20078#RETRIEVECOMMAND=BKRPT~SUMMARY~2~#"_s,
                               u"99-20079/RETRIEVECOMMAND= BKRPT~SUMMARY~3~ /AP/DOE/"_s,
                               u"EOF~"_s};
const QString isOpenQuestion =
    u"This case is open already, in the window\n\nCase Details (02-2-00456-7)\n\nOpening it again "
    "asks the court for all of it once more."_s;
const QString notLoggedIn =
    u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to the "
    "Halvane Server.\r\n\r\nDo you want to Login Now?"_s;
const QString notLoggedInTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;

QStringList superiorWith(const QString &row)
{
    return {u"Case#:~02-1-00123-4~"_s,
            u"Court:~King County~"_s,
            u"Title:~A VS B~"_s,
            u"Date Filed:~03/04/2002~"_s,
            u"Status:~02-2-00111-1~"_s,
            row,
            u"EOF~"_s};
}

/// Fails once, when a case window comes on the screen.
class FailingShow : public QObject
{
public:
    FailingShow() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (!failed && event->type() == QEvent::Show && qobject_cast<frmCaseDetails *>(watched)) {
            failed = true;
            keysThen = frmQueue::Form().FIFO.ListCount();
            throw RunTimeError::PathFileAccess();
        }
        return false;
    }

    bool failed = false;
    int keysThen = -1;
};
} // namespace

/// What a double click in a case window opens.
class tst_CaseLinks : public SummaryTest
{
    Q_OBJECT
private Q_SLOTS:
    void severalBankruptcyCases();
    void aShortListIsAListToo();
    void aCaseOfTheList();
    void aCaseOfTheListNeedsNoNumber();
    void aCommandInAnyLettersOpensItsCase_data();
    void aCommandInAnyLettersOpensItsCase();
    void anAssociatedCase();
    void theCodeInForceGoesWithIt_data();
    void theCodeInForceGoesWithIt();
    void theEnterKeyOpensItToo();
    void aCaseThatIsOpenIsOffered();
    void aSessionThatEndsUnderThatQuestionIsSeen();
    void whatOpensNothing_data();
    void whatOpensNothing();
    void notLoggedInIsAskedFirst_data();
    void notLoggedInIsAskedFirst();
    void aCaseOfTheJudgments();
    void aJudgmentAsksForTheLoginToo();
    void aCaseThatCannotBeOpened_data();
    void aCaseThatCannotBeOpened();
    void onlyJudgmentsOfTheSuperiorCourtsOpenACase();

private:
    static void doubleClick(const frmCaseDetails *window, CaseTab tab, int row, int column);
    /// The window that was opened last, null when there is none but this.
    static frmCaseDetails *otherThan(const frmCaseDetails *window);
    /// A case whose list of judgments is in sight.
    frmCaseDetails *withJudgments();
};

void tst_CaseLinks::doubleClick(const frmCaseDetails *window, CaseTab tab, int row, int column)
{
    FlexGrid *grid = window->Tab(tab).Grid;
    const QModelIndex cell = grid->model()->index(row - 1, column);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
}

frmCaseDetails *tst_CaseLinks::otherThan(const frmCaseDetails *window)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *other : windows) {
        auto *opened = qobject_cast<frmCaseDetails *>(other);
        if (opened && opened != window)
            return opened;
    }
    return nullptr;
}

void tst_CaseLinks::severalBankruptcyCases()
{
    const frmCaseDetails *window = summarised(u"WAWBK"_s, severalCases);
    QCOMPARE(summaryCells(window), (QList<QStringList>{{u"Case#"_s, u"Type"_s, u"Title"_s},
                                                       {u"99-20077"_s, u"BK"_s, u"SMITH & DOE"_s},
                                                       {u"99-20078"_s, QString(), QString()},
                                                       {u"99-20079"_s, u"AP"_s, u"DOE"_s}}));
    const QList<GridColumn> columns = window->Tab(CaseTab::Summary).Grid->Table().Columns;
    QCOMPARE(columns[0].Percent, 15.0);
    QCOMPARE(columns[1].Percent, 10.0);
    QCOMPARE(columns[2].Percent, 74.0);
    QVERIFY(window->chkBKYass);
    QCOMPARE(window->List1, (QStringList{u"RETRIEVECOMMAND=BKRPT~SUMMARY~1~^1^"_s,
                                         u"RETRIEVECOMMAND=BKRPT~SUMMARY~2~^2^"_s,
                                         u"RETRIEVECOMMAND= BKRPT~SUMMARY~3~ ^3^"_s}));
    QCOMPARE(TextOf(window, "Label1_2"), u"Multiple Cases Found for Number Entered. Double-Click "
                                         "on a Case# to Retrieve Details."_s);
    QVERIFY(!isHidden(window, "Label1_2"));
    QCOMPARE(TextOf(window, "lblCaseTitle"),
             u"Multiple Matching Cases Found for the Number Entered"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"N/A"_s);
    QCOMPARE(TextOf(window, "lblTopFrameCaseType"), u"N/A"_s);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseLinks::aShortListIsAListToo()
{
    const frmCaseDetails *window =
        summarised(u"WAWBK"_s, severalCases.first(2) + QStringList{u"EOF~"_s});
    QCOMPARE(summaryCells(window).size(), 2);
    QVERIFY(window->chkBKYass);
}

void tst_CaseLinks::aCaseOfTheList()
{
    QStringList reply = severalCases;
    reply.removeAt(3);
    frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    window->SetCourtName(u"Western District"_s);
    window->ClientAcctgCode = u"ACME"_s;
    doubleClick(window, CaseTab::Summary, 2, 0);
    frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    opened->Timer1->stop();
    QCOMPARE(opened->lblState, u"WAWBK"_s);
    QCOMPARE(opened->lblCourtName(), u"Western District"_s);
    QCOMPARE(opened->txtCaseNumber, u"99-20077"_s);
    QCOMPARE(opened->lblCaseDetailsHdr(), u"Case Details (99-20077)"_s);
    QCOMPARE(opened->windowTitle(), window->windowTitle());
    QCOMPARE(opened->lblCaseTitle(), u"Bankruptcy"_s);
    QCOMPARE(opened->ClientAcctgCode, u"ACME"_s);
    QVERIFY(opened->chkBK);
    QVERIFY(!opened->chkBKYass);
    QVERIFY(isHidden(opened, "Label1_2"));
    QCOMPARE(opened->tboxCaseNumberQueue, u"BKRPT~SUMMARY~3~"_s);
    QCOMPARE(opened->lboxTabReqQueue.Lines(), QStringList{u"BKRPT~SUMMARY~3~"_s});
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{opened->txtMasterKey});
    opened->ClientAcctgCode.clear();
    court->Expect(u"BKRPT~SUMMARY~3~"_s)
        .Reply({u"Case Title~DOE~"_s, u"Chapter~13~"_s, u"a~b~"_s, u"c~d~"_s, u"EOF~"_s});
    desk->Time.Run(0.05);
    Begin(opened);
    QVERIFY(Finished(opened));
    QCOMPARE(TextOf(opened, "lblCaseTitle"), u"DOE (Chapter 13)"_s);
}

void tst_CaseLinks::aCaseOfTheListNeedsNoNumber()
{
    QStringList reply = severalCases;
    reply[1] = u"/RETRIEVECOMMAND=BKRPT~SUMMARY~1~/BK/DOE/"_s;
    const frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    doubleClick(window, CaseTab::Summary, 1, 0);
    const frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    QCOMPARE(opened->tboxCaseNumberQueue, u"BKRPT~SUMMARY~1~"_s);
}

void tst_CaseLinks::aCommandInAnyLettersOpensItsCase_data()
{
    QTest::addColumn<QString>("mark");
    QTest::newRow("as usual") << u"RETRIEVECOMMAND="_s;
    QTest::newRow("mixed") << u"RetrieveCommand="_s;
    QTest::newRow("small") << u"retrievecommand= "_s;
}

void tst_CaseLinks::aCommandInAnyLettersOpensItsCase()
{
    QFETCH(QString, mark);
    const QString command = u"BKRPT~SUMMARY~99^20077~"_s;
    const QStringList reply{u"MULTIPLE"_s, u"99-20077/"_s + mark + command + u"/BK/DOE/"_s,
                            u"EOF~"_s};
    const frmCaseDetails *window = summarised(u"WAWBK"_s, reply);
    QCOMPARE(summaryCells(window).size(), 2);
    doubleClick(window, CaseTab::Summary, 1, 0);
    const frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    QCOMPARE(opened->tboxCaseNumberQueue, command);
    QCOMPARE(opened->lboxTabReqQueue.Lines(), QStringList{command});
}

void tst_CaseLinks::anAssociatedCase()
{
    frmCaseDetails *window =
        summarised(u"WA"_s, superiorWith(u"Associated Case:~ 02-2-0045a-7 ~"_s));
    window->ClientAcctgCode = u"ACME"_s;
    doubleClick(window, CaseTab::Summary, 2, 1);
    frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    opened->Timer1->stop();
    QCOMPARE(opened->lblState, u"WA"_s);
    QCOMPARE(opened->txtCountyName, u"King"_s);
    QCOMPARE(opened->txtCaseNumber, u"02-2-0045A-7"_s);
    QCOMPARE(opened->tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-2-0045A-7"_s);
    QCOMPARE(opened->lblCourtName(), u"King County, Washington Superior Courts"_s);
    QCOMPARE(opened->lblCaseDetailsHdr(), u"Case Details (02-2-0045A-7)"_s);
    QCOMPARE(opened->lblCaseTitle(), u"Pending .. "_s);
    QCOMPARE(opened->ClientAcctgCode, u"ACME"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{opened->txtMasterKey});
    opened->ClientAcctgCode.clear();
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-2-0045A-7"_s)).Reply(superiorReply());
    desk->Time.Run(0.05);
    Begin(opened);
    QVERIFY(Finished(opened));
    QVERIFY(opened->Tab(CaseTab::Summary).TabDone);
}

void tst_CaseLinks::theCodeInForceGoesWithIt_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("inForce");
    QTest::addColumn<QString>("code");
    int from = 0;
    for (const char *name : {"an associated case", "a case of a list", "a judgment's case"}) {
        QTest::addRow("%s, another code", name) << from << u" new co "_s << u"NEW CO"_s;
        QTest::addRow("%s, the same code", name) << from << u"acme"_s << u"ACME"_s;
        QTest::addRow("%s, no code", name) << from << QString() << u"ACME"_s;
        QTest::addRow("%s, blanks", name) << from << u"  "_s << u"ACME"_s;
        ++from;
    }
}

void tst_CaseLinks::theCodeInForceGoesWithIt()
{
    QFETCH(int, from);
    QFETCH(QString, inForce);
    QFETCH(QString, code);
    frmCaseDetails *window = nullptr;
    if (from == 0)
        window = summarised(u"WA"_s, superiorWith(u"Associated Case:~02-2-00456-7~"_s));
    else
        window = from == 1 ? summarised(u"WAWBK"_s, severalCases) : withJudgments();
    window->ClientAcctgCode = u"ACME"_s;
    // The user has given another code since the case was opened, or none.
    Global.ClientAcctgCode = inForce;
    doubleClick(window, from == 2 ? CaseTab::Judgments : CaseTab::Summary, from == 1 ? 1 : 2,
                from == 0 ? 1 : 0);
    const frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    QCOMPARE(opened->ClientAcctgCode, code);
    QCOMPARE(window->ClientAcctgCode, u"ACME"_s);
}

void tst_CaseLinks::theEnterKeyOpensItToo()
{
    const frmCaseDetails *window =
        summarised(u"WA"_s, superiorWith(u"Associated Case:~02-2-00456-7~"_s));
    FlexGrid *grid = window->Tab(CaseTab::Summary).Grid;
    grid->setCurrentIndex(grid->model()->index(1, 0));
    QTest::keyClick(grid, Qt::Key_Return);
    QVERIFY(otherThan(window));
}

void tst_CaseLinks::aCaseThatIsOpenIsOffered()
{
    const frmCaseDetails *window =
        summarised(u"WA"_s, superiorWith(u"Associated Case:~02-2-00456-7~"_s));
    doubleClick(window, CaseTab::Summary, 2, 1);
    frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    opened->Timer1->stop();
    const int waiting = frmQueue::Form().FIFO.ListCount();
    desk->Boxes.ExpectChoice(isOpenQuestion, u"Halvane - Case Is Open"_s, u"Go To It"_s);
    doubleClick(window, CaseTab::Summary, 2, 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), waiting);
    QVERIFY(QTest::qWaitForWindowActive(opened));
    desk->Boxes.ExpectChoice(isOpenQuestion, u"Halvane - Case Is Open"_s, u"Open Again"_s);
    doubleClick(window, CaseTab::Summary, 2, 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), waiting + 1);
}

void tst_CaseLinks::aSessionThatEndsUnderThatQuestionIsSeen()
{
    const frmCaseDetails *window =
        summarised(u"WA"_s, superiorWith(u"Associated Case:~02-2-00456-7~"_s));
    doubleClick(window, CaseTab::Summary, 2, 1);
    const frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    opened->Timer1->stop();
    const QStringList waiting = frmQueue::Form().FIFO.Lines();
    desk->Boxes.Meanwhile([] { Global.bLoggedIn = false; });
    desk->Boxes.ExpectChoice(isOpenQuestion, u"Halvane - Case Is Open"_s, u"Open Again"_s);
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    doubleClick(window, CaseTab::Summary, 2, 1);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), waiting);
}

void tst_CaseLinks::whatOpensNothing_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<int>("row");
    QTest::newRow("another row") << u"WA"_s << superiorWith(u"Associated Case:~02-2-00456-7~"_s)
                                 << 1;
    QTest::newRow("no number") << u"WA"_s << superiorWith(u"Associated Case:~~"_s) << 2;
    QTest::newRow("another name for it")
        << u"WA"_s << superiorWith(u"Associated Cases:~02-2-00456-7~"_s) << 2;
    QTest::newRow("a row of the list without a type") << u"WAWBK"_s << severalCases << 2;
    QTest::newRow("a row of the list whose command stands elsewhere")
        << u"WAWBK"_s
        << QStringList{u"MULTIPLE"_s, u"99-20077/x/BK/RETRIEVECOMMAND=BKRPT~SUMMARY~1~/"_s,
                       u"EOF~"_s}
        << 1;
}

void tst_CaseLinks::whatOpensNothing()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    QFETCH(int, row);
    const frmCaseDetails *window = summarised(state, reply);
    doubleClick(window, CaseTab::Summary, row, 0);
    QVERIFY(!otherThan(window));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseLinks::notLoggedInIsAskedFirst_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("login");
    QTest::addColumn<bool>("through");
    const QStringList associated = superiorWith(u"Associated Case:~02-2-00456-7~"_s);
    QTest::newRow("associated case, no") << u"WA"_s << associated << 2 << false << false;
    QTest::newRow("associated case, given up") << u"WA"_s << associated << 2 << true << false;
    QTest::newRow("associated case, logged in") << u"WA"_s << associated << 2 << true << true;
    QTest::newRow("a case of the list, no") << u"WAWBK"_s << severalCases << 1 << false << false;
    QTest::newRow("a case of the list, given up")
        << u"WAWBK"_s << severalCases << 1 << true << false;
    QTest::newRow("a case of the list, logged in")
        << u"WAWBK"_s << severalCases << 1 << true << true;
}

void tst_CaseLinks::notLoggedInIsAskedFirst()
{
    QFETCH(QString, state);
    QFETCH(QStringList, reply);
    QFETCH(int, row);
    QFETCH(bool, login);
    QFETCH(bool, through);
    const frmCaseDetails *window = summarised(state, reply);
    Global.bLoggedIn = false;
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation,
                       login ? MsgAnswer::Yes : MsgAnswer::No);
    if (login)
        desk->AnswerModalLogin(through);
    doubleClick(window, CaseTab::Summary, row, 0);
    // The login was over before the double click was, and what was wanted goes on.
    QVERIFY(desk->AllHappened());
    QVERIFY(!frmLogin::IsLoaded());
    QCOMPARE(otherThan(window) != nullptr, through);
    QCOMPARE(desk->Boxes.Answered(), 1);
}

frmCaseDetails *tst_CaseLinks::withJudgments()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Judgments"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(superiorReply());
    court->Expect(SuperiorLine(u"JUDGMENTS"_s))
        .Reply(GridDef({u"01/02/2003~02-9-00456-7~"_s, u"01/03/2003~no number~"_s}));
    frmCaseDetails *window = Superior();
    Run(window);
    ClickTab(window, u"Judgments"_s);
    return window;
}

void tst_CaseLinks::aCaseOfTheJudgments()
{
    const frmCaseDetails *window = withJudgments();
    doubleClick(window, CaseTab::Judgments, 1, 1); // the newest is on top
    QVERIFY(!otherThan(window));
    doubleClick(window, CaseTab::Judgments, 2, 0);
    frmCaseDetails *opened = otherThan(window);
    QVERIFY(opened);
    QCOMPARE(opened->txtCaseNumber, u"02-9-00456-7"_s);
    QCOMPARE(opened->txtCountyName, u"King"_s);
    QCOMPARE(opened->lblCourtName(), u"King County, Washington Superior Courts"_s);
    QCOMPARE(opened->tboxCaseNumberQueue, u"WASUP¦SUMMARY¦02-9-00456-7"_s);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{opened->txtMasterKey});
}

void tst_CaseLinks::aJudgmentAsksForTheLoginToo()
{
    const frmCaseDetails *window = withJudgments();
    Global.bLoggedIn = false;
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    doubleClick(window, CaseTab::Judgments, 2, 0);
    QVERIFY(!otherThan(window));
    QCOMPARE(desk->Boxes.Answered(), 1);
}

void tst_CaseLinks::aCaseThatCannotBeOpened_data()
{
    QTest::addColumn<bool>("judgment");
    QTest::addColumn<QString>("logged");
    QTest::newRow("associated case")
        << false
        << u"Error Executing Case Number Search: frmCaseDetails::DoCaseNumberSearchAss(): Error: "_s;
    QTest::newRow("judgment") << true
                              << u"Error Executing Case Number Search: "
                                 "frmCaseDetails::DoCaseNumberSearchJudgment(): Error: "_s;
}

void tst_CaseLinks::aCaseThatCannotBeOpened()
{
    QFETCH(bool, judgment);
    QFETCH(QString, logged);
    frmCaseDetails *window =
        judgment ? withJudgments()
                 : summarised(u"WA"_s, superiorWith(u"Associated Case:~02-2-00456-7~"_s));
    const auto open = [window, judgment] {
        if (judgment)
            doubleClick(window, CaseTab::Judgments, 2, 0);
        else
            doubleClick(window, CaseTab::Summary, 2, 1);
    };
    {
        const FailingShow show;
        open();
        QVERIFY(show.failed);
        QCOMPARE(show.keysThen, 1);
    }
    QCOMPARE(desk->Folder.Log().last(), QString(logged + u"Path/File access error"_s));
    // Nothing is left of it, least of all a key that would hold up the next job.
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QTRY_VERIFY(!otherThan(window));
    open();
    QVERIFY(otherThan(window));
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{otherThan(window)->txtMasterKey});
}

/// The number may look like one of theirs, but it is not theirs.
void tst_CaseLinks::onlyJudgmentsOfTheSuperiorCourtsOpenACase()
{
    QStringList summary = stateReply();
    summary.first() = u"SUMMARY~Judgments~"_s;
    FetchAtOnce(u"OrCaseSearchTabs"_s, {u"Judgments"_s});
    court->Expect(requestOf(u"OR"_s)).Reply(summary);
    court->Expect(u"OREGON@JUDGMENTS,@CV0100001@BAK C@"_s)
        .Reply(TableForm({u"01/02/2003~02-9-00456-7~"_s}));
    frmCaseDetails *window = windowOf(u"OR"_s);
    Run(window);
    ClickTab(window, u"Judgments"_s);
    QCOMPARE(CellsOf(window, CaseTab::Judgments).last(),
             (QStringList{u"01/02/2003"_s, u"02-9-00456-7"_s}));
    doubleClick(window, CaseTab::Judgments, 1, 1);
    QVERIFY(!otherThan(window));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

HALVANE_TEST(tst_CaseLinks)
#include "tst_CaseLinks.moc"
