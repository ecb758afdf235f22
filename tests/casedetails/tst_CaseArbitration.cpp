#include "casedetails/CaseAnswers.h"
#include "casedetails/SummaryDesk.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QAbstractButton>
#include <QDialog>
#include <QPointer>
#include <QPushButton>

namespace {
const QStringList question{u"USERQUESTION~"_s, u"EOF~"_s};
const QStringList allTabs{u"Names"_s,    u"Docket"_s,     u"Judgments"_s, u"Charges"_s,
                          u"Sentence"_s, u"Accounting"_s, u"Schedule"_s,  u"Documents"_s};

/// The line of a tab with the answer at the end of its county.
QString answered(const QString &word, const QString &answer)
{
    return u"WASUP¦"_s + word + u"¦02-1-00123-4¦King"_s + answer + u"¦¦"_s;
}
} // namespace

/// A case in arbitration: the court asks, and every later line carries the answer.
class tst_CaseArbitration : public SummaryTest
{
    Q_OBJECT
private Q_SLOTS:
    void thePrompt();
    void thePromptGoesWithItsWindow();
    void everyLineCarriesTheAnswer_data();
    void everyLineCarriesTheAnswer();
    void theQuestionMakesNoGrid();
    void theStatusIsInSightUnderTheQuestion();
    void theAnswerGoesBeforeTheClientCode();
    void aTabThatWasLeftOutCarriesItToo();
    void theAnswerIsForThisCaseOnly();
    void anAnswerOfAnotherWindowIsForgotten();
    void theQuestionNeedsItsEndMark();
    void aCourtThatAsksTwice();
    void aWindowThatHasGoneIsNotAsked();

private:
    /// Answers the prompt with one of its buttons, or with the key of escape.
    void answer(const QString &button);
    void expectTabs(const QString &tail);
};

void tst_CaseArbitration::answer(const QString &button)
{
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [button](QDialog *dialog) {
        if (button.isEmpty())
            QTest::keyClick(dialog, Qt::Key_Escape);
        else
            dialog->findChild<QPushButton *>(button)->click();
    });
}

void tst_CaseArbitration::expectTabs(const QString &tail)
{
    for (const QString &word : {u"NAMES"_s, u"DOCKET"_s, u"JUDGMENTS"_s, u"CHARGES"_s,
                                u"SENTENCE"_s, u"ACCOUNTING"_s, u"SCHEDULE"_s})
        court->Expect(answered(word, tail)).Reply(GridDef({u"1~"_s + word + u'~'}));
    court->Expect(u"WASUPDOC¦GETDOCTAB¦King¦02-1-00123-4¦"_s).Reply({u"EOF~"_s});
}

void tst_CaseArbitration::thePrompt()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, u" NOARBITRATION"_s)).Reply(superiorReply());
    QStringList read;
    bool modal = false;
    bool plain = false;
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [&](QDialog *dialog) {
        const auto *label = dialog->findChild<QLabel *>(u"Label1"_s);
        read = {dialog->windowTitle(), label->text(), TextOf(dialog, "Command1"),
                TextOf(dialog, "Command2")};
        modal = dialog->isModal();
        plain = label->textFormat() == Qt::PlainText;
        dialog->findChild<QPushButton *>(u"Command2"_s)->click();
    });
    Run(Superior());
    QCOMPARE(read, (QStringList{u"Halvane - Select Arbitration or Non-Arbitrations Details  .."_s,
                                u"This case is in arbitration.  Do you wish to see the details "
                                "from Arbitration Court?"_s,
                                u"&YES"_s, u"&NO"_s}));
    QVERIFY(modal);
    QVERIFY(plain);
}

void tst_CaseArbitration::thePromptGoesWithItsWindow()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    const QPointer<frmCaseDetails> window = Superior();
    bool gone = false;
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [&](QDialog *dialog) {
        window->Unload(UnloadMode::MdiParent);
        gone = dialog->isHidden();
        dialog->reject();
    });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    QTRY_VERIFY(window.isNull());
    desk->Time.Stop();
    QVERIFY(gone);
    // Nobody has answered, and nobody waits for the case.
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseArbitration::everyLineCarriesTheAnswer_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("tail");
    QTest::newRow("yes") << u"Command1"_s << u" ARBITRATION"_s;
    QTest::newRow("no") << u"Command2"_s << u" NOARBITRATION"_s;
    QTest::newRow("closed") << QString() << u" NOARBITRATION"_s;
}

void tst_CaseArbitration::everyLineCarriesTheAnswer()
{
    QFETCH(QString, button);
    QFETCH(QString, tail);
    FetchAtOnce(u"CaseSearchTabs"_s, allTabs);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, tail)).Reply(superiorReply());
    expectTabs(tail);
    answer(button);
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(window->Tab(CaseTab::Summary).TabRequest, answered(u"SUMMARY"_s, tail));
    QCOMPARE(window->Tab(CaseTab::Schedule).TabRequest, answered(u"SCHEDULE"_s, tail));
    QVERIFY(window->Tab(CaseTab::Documents).TabDone);
    QCOMPARE(summaryCells(window).size(), 3);
    QVERIFY(!CaseAnswers.ArbitrationChosen);
    // The first exchange is no Summary: only the second has an end of its own.
    QCOMPARE(desk->Folder.TimesLogged(u"Retrieving Summary .."_s), 2);
    QCOMPARE(desk->Folder.TimesLogged(u"NORMAL EXIT - from DoSummarySearch()."_s), 1);
}

void tst_CaseArbitration::theQuestionMakesNoGrid()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    QStringList first = question;
    first.insert(1, u"Case#:~02-1-00123-4~"_s);
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(first);
    court->Expect(answered(u"SUMMARY"_s, u" ARBITRATION"_s)).Reply(superiorReply());
    frmCaseDetails *window = Superior();
    QList<QStringList> cells;
    QStringList lines;
    QStringList labels;
    bool statusShows = false;
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [&](QDialog *dialog) {
        cells = summaryCells(window);
        lines = window->lboxResponses.Lines();
        labels = {TextOf(window, "lblStatus"), TextOf(window, "lblCaseTitle")};
        statusShows = court->Requests().size() == 1 && !window->Tab(CaseTab::Summary).TabDone;
        dialog->findChild<QPushButton *>(u"Command1"_s)->click();
    });
    Run(window);
    QCOMPARE(cells, QList<QStringList>());
    QCOMPARE(lines, QStringList{u"Case#:~02-1-00123-4~"_s});
    QCOMPARE(labels, (QStringList{u"Retrieving Summary .."_s, u"Pending .. "_s}));
    QVERIFY(statusShows);
    QCOMPARE(window->lboxResponses.ListCount(), 6);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
}

/// Whatever the blinking has left.
void tst_CaseArbitration::theStatusIsInSightUnderTheQuestion()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    court->Expect(answered(u"SUMMARY"_s, u" NOARBITRATION"_s)).Reply(superiorReply());
    frmCaseDetails *window = Superior();
    auto *status = window->findChild<QLabel *>(u"lblStatus"_s);
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   window->tmrBlink->stop();
                   status->hide();
                   court->SendTokens(question);
               });
    bool inSight = false;
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [&](QDialog *dialog) {
        inSight = status->isVisible();
        dialog->findChild<QPushButton *>(u"Command2"_s)->click();
    });
    Run(window);
    QVERIFY(inSight);
}

void tst_CaseArbitration::theAnswerGoesBeforeTheClientCode()
{
    const auto coded = [](const QString &line) -> QString {
        return line.chopped(1) + u"^^CAC:ACME^^¦"_s;
    };
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(coded(SuperiorLine(u"SUMMARY"_s))).Reply(question);
    court->Expect(coded(answered(u"SUMMARY"_s, u" ARBITRATION"_s))).Reply(superiorReply());
    court->Expect(coded(answered(u"NAMES"_s, u" ARBITRATION"_s))).Reply({u"EOF~"_s});
    court->Expect(answered(u"DOCKET"_s, u" ARBITRATION"_s)).Reply({u"EOF~"_s});
    answer(u"Command1"_s);
    frmCaseDetails *window = Superior();
    window->ClientAcctgCode = u"ACME"_s;
    Run(window);
}

/// The line of a tab gets the answer whenever its turn comes, in the first run too, in which it is
/// not sent.
void tst_CaseArbitration::aTabThatWasLeftOutCarriesItToo()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, u" ARBITRATION"_s)).Reply(superiorReply());
    answer(u"Command1"_s);
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(window->Tab(CaseTab::Docket).TabRequest, answered(u"DOCKET"_s, u" ARBITRATION"_s));
    ClickTab(window, u"Docket"_s);
    ButtonOf(window, "cmdClearAll")->click();
    window->findChild<QAbstractButton *>(u"chkTab_2"_s)->click();
    court->Expect(answered(u"DOCKET"_s, u" ARBITRATION ARBITRATION"_s)).Reply({u"EOF~"_s});
    desk->Time.Run(0.05);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    QVERIFY(window->Tab(CaseTab::Docket).TabDone);
}

void tst_CaseArbitration::theAnswerIsForThisCaseOnly()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, u" ARBITRATION"_s)).Reply(superiorReply());
    court->Expect(answered(u"NAMES"_s, u" ARBITRATION"_s)).Reply({u"EOF~"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s, u"02-1-00999-9"_s)).Reply(superiorReply());
    court->Expect(SuperiorLine(u"NAMES"_s, u"02-1-00999-9"_s)).Reply({u"EOF~"_s});
    answer(u"Command1"_s);
    Run(Superior());
    frmCaseDetails *other = Superior(u"02-1-00999-9"_s);
    desk->Time.Run(0.05);
    Begin(other);
    QVERIFY(Finished(other));
    QVERIFY(other->Tab(CaseTab::Names).TabDone);
}

/// The last answer is the program's: no question after this may find it.
void tst_CaseArbitration::anAnswerOfAnotherWindowIsForgotten()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, u" NOARBITRATION"_s)).Reply(superiorReply());
    court->Expect(answered(u"NAMES"_s, u" NOARBITRATION"_s)).Reply({});
    answer(u"Command2"_s);
    desk->When([this] { return court->Requests().size() == 3; },
               [this] {
                   CaseAnswers.ArbitrationChosen = true;
                   court->SendTokens({u"EOF~"_s});
               });
    frmCaseDetails *window = Superior();
    Run(window);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(!CaseAnswers.ArbitrationChosen);
}

void tst_CaseArbitration::theQuestionNeedsItsEndMark()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question.first(1)).Drop();
    frmCaseDetails *window = Superior();
    Run(window);
    QVERIFY(window->Tab(CaseTab::Summary).TabIncomplete);
    QCOMPARE(court->Requests().size(), 1);
}

/// It is answered twice and not asked a third time; the last answer goes with the tabs. The Summary
/// has not come, and can be retrieved like any other tab.
void tst_CaseArbitration::aCourtThatAsksTwice()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(question);
    court->Expect(answered(u"SUMMARY"_s, u" ARBITRATION"_s)).Reply(question);
    court->Expect(answered(u"NAMES"_s, u" NOARBITRATION"_s)).Reply({u"EOF~"_s});
    answer(u"Command1"_s);
    answer(u"Command2"_s);
    frmCaseDetails *window = Superior();
    Run(window);
    QCOMPARE(court->Requests().size(), 3);
    QVERIFY(window->Tab(CaseTab::Names).TabDone);
    QVERIFY(!window->Tab(CaseTab::Summary).TabDone);
    ClickTab(window, u"Docket"_s);
    ButtonOf(window, "cmdClearAll")->click();
    window->findChild<QAbstractButton *>(u"chkTab_0"_s)->click();
    court->Expect(answered(u"SUMMARY"_s, u" ARBITRATION"_s)).Reply(superiorReply());
    desk->Time.Run(0.05);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(court->Requests().size(), 4);
}

void tst_CaseArbitration::aWindowThatHasGoneIsNotAsked()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply({});
    const QPointer<CaseWindow> window = Superior();
    desk->When([this] { return court->Requests().size() == 1; },
               [&] {
                   window->Unload(UnloadMode::MdiParent);
                   court->SendTokens(question);
               });
    desk->ConnectTo(*court);
    desk->Time.Run(0.05);
    Begin(window);
    QTRY_VERIFY(window.isNull());
    QCOMPARE(desk->Boxes.Complaints(), QString());
    QCOMPARE(court->Requests().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

HALVANE_TEST(tst_CaseArbitration)
#include "tst_CaseArbitration.moc"
