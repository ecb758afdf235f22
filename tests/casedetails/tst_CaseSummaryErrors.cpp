#include "casedetails/SummaryDesk.h"
#include "casedetails/TextTrail.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Comm.h"
#include "link/ServerSocket.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QPushButton>

namespace {
const QString notLocated = u"This case was not located."_s;
const QString notComplete = u"Summary Incomplete. Some information may not have been retrieved."_s;
const QString oregonIsDown = u"Search Incomplete. Oregon Courts Are Currently Unavailable."_s;
const QString idahoIsDown = u"Search Incomplete. Idaho Courts Are Currently Unavailable."_s;
const QString timedOut = u"Search Error! Reason: Timed Out Waiting For Response from Server."_s;
const QString incompleteWarning = u"Summary Information Incomplete! Please Retry Search."_s;
const QString normalExit = u"NORMAL EXIT - from ProcessSearchReqeusts."_s;
const QString errorExit = u"SEARCH ERROR EXIT - from ProcessSearchReqeusts."_s;
const QString invalidExit = u"NORMAL EXIT - INVALID CASE NUMBER in ProcessSearchReqeusts."_s;
const QString brokeDown = u"Exiting DoSummarySearch() via PROCERR in Case Details. Error: "_s;
} // namespace

/// A Summary that the court answers with an error, or not at all.
class tst_CaseSummaryErrors : public SummaryTest
{
    Q_OBJECT
private Q_SLOTS:
    void phrases_data();
    void phrases();
    void bothSpellingsGiveTheSameReason();
    void theReasonGoesToTheHeaderOfASuperiorCase_data();
    void theReasonGoesToTheHeaderOfASuperiorCase();
    void whatCameBeforeTheErrorStandsInTheCell();
    void invalidNumber_data();
    void invalidNumber();
    void notOnFileIsAnOrdinaryReply();
    void noSuchBankruptcyCase_data();
    void noSuchBankruptcyCase();
    void noSuchBankruptcyCaseIsSaidAtOnce();
    void otherBankruptcyErrors();
    void silence_data();
    void silence();
    void aLostLinkIsSilence();
    void aRequestThatDoesNotLeave();
    void aStaleIncompleteIsForgotten();
    void whatWasSaidOnTheWay_data();
    void whatWasSaidOnTheWay();

private:
    QStringList tailOfLog(qsizetype lines) const;
    void verifyIncomplete(const frmCaseDetails *window, const QString &cell) const;
};

QStringList tst_CaseSummaryErrors::tailOfLog(qsizetype lines) const
{
    const QStringList log = desk->Folder.Log();
    return log.mid(log.size() - lines);
}

/// The Summary alone is left, with one cell in it, and offers to be retrieved again.
void tst_CaseSummaryErrors::verifyIncomplete(const frmCaseDetails *window,
                                             const QString &cell) const
{
    QCOMPARE(summaryCells(window), QList<QStringList>{{cell}});
    QCOMPARE(window->Tab(CaseTab::Summary).Grid->Table().Columns.first().Percent, 100.0);
    QCOMPARE(TextOf(window, "lblWarning"), incompleteWarning);
    QCOMPARE(ColourOf(window, "lblWarning"), u"red"_s);
    QVERIFY(!isHidden(window, "lblWarning"));
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    const CaseTabState &summary = window->Tab(CaseTab::Summary);
    QVERIFY(summary.TabIncomplete);
    QVERIFY(!summary.TabNotRetrieved);
    QVERIFY(!summary.TabDone);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
}

void tst_CaseSummaryErrors::phrases_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("logged"); ///< of the phrase; "" when nothing is
    for (const char *phrase :
         {"no connection", "error occured", "error occurred", "unknown error", "unknown command",
          "connection lost", "scomis was lost", "no servers available", "scomis failed"}) {
        const QString text = u"~Trouble: "_s + QLatin1StringView(phrase).toString().toUpper();
        QTest::newRow(phrase) << QString(u"ERROR"_s + text) << notComplete
                              << QString(notComplete + u" - "_s + text);
    }
    QTest::newRow("Oregon is down")
        << u"ERROR~Oregon Courts are currently unavailable, please try later~"_s << oregonIsDown
        << oregonIsDown;
    QTest::newRow("Idaho is down")
        << u"ERROR~IDAHO courts are currently unavailable, please try later~"_s << idahoIsDown
        << idahoIsDown;
    QTest::newRow("another") << u"ERROR~The roof is leaking~"_s << u"~The roof is leaking~"_s
                             << QString();
    QTest::newRow("the word alone") << u"ERROR"_s << QString() << QString();
}

void tst_CaseSummaryErrors::phrases()
{
    QFETCH(QString, line);
    QFETCH(QString, reason);
    QFETCH(QString, logged);
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s}) {
        cleanup();
        init();
        const frmCaseDetails *window = summarised(state, {line, u"EOF~"_s});
        verifyIncomplete(window, reason);
        QCOMPARE(TextOf(window, "lblStatus"), u"Search Warnings - See Summary"_s);
        QVERIFY(window->TmrFlash->isActive());
        const QStringList log = desk->Folder.Log();
        const qsizetype first = log.indexOf(u"Current Response: --> "_s + line + u" 0"_s);
        QStringList expected{log.value(first)};
        if (!logged.isEmpty())
            expected += logged;
        expected += {u"Current Response: --> EOF~ 0"_s,
                     u"Summary Search Incomplete. Request: "_s + requestOf(state),
                     u"Summary Search Result Was: "_s + reason, errorExit};
        QCOMPARE(log.mid(first), expected);
    }
}

void tst_CaseSummaryErrors::bothSpellingsGiveTheSameReason()
{
    QList<QStringList> shown;
    for (const QString &word : {u"occured"_s, u"occurred"_s}) {
        cleanup();
        init();
        const QString line = u"ERROR~An error "_s + word + u" ~"_s;
        shown += summaryCells(summarised(u"WA"_s, {line, u"EOF~"_s}));
    }
    QCOMPARE(shown, (QList<QStringList>{{notComplete}, {notComplete}}));
}

void tst_CaseSummaryErrors::theReasonGoesToTheHeaderOfASuperiorCase_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("header"); ///< title, court, date
    QTest::newRow("Superior") << u"WA"_s
                              << QStringList{u"~Trouble~"_s,
                                             u"King County, Washington Superior Courts"_s,
                                             u"N/A"_s};
    const QStringList before{u"A VS B"_s, u"A court"_s, u"01/01/2001"_s};
    QTest::newRow("Oregon") << u"OR"_s << before;
    QTest::newRow("Idaho") << u"ID"_s << before;
    QTest::newRow("bankruptcy") << u"WAWBK"_s << before;
}

void tst_CaseSummaryErrors::theReasonGoesToTheHeaderOfASuperiorCase()
{
    QFETCH(QString, state);
    QFETCH(QStringList, header);
    court->Expect(requestOf(state)).Reply({u"ERROR~Trouble~"_s, u"EOF~"_s});
    frmCaseDetails *window = windowOf(state);
    window->SetCaseTitle(u"A VS B"_s);
    window->SetCourtName(u"A court"_s);
    window->SetDateFiled(u"01/01/2001"_s);
    Run(window);
    QCOMPARE((QStringList{TextOf(window, "lblCaseTitle"), TextOf(window, "lblCourtName"),
                          TextOf(window, "lblDateFiled")}),
             header);
}

void tst_CaseSummaryErrors::whatCameBeforeTheErrorStandsInTheCell()
{
    QStringList reply = superiorReply();
    reply.insert(2, u"ERROR~The roof is leaking~"_s);
    const frmCaseDetails *window = summarised(u"WA"_s, reply);
    verifyIncomplete(window, superiorReply().first());
    QCOMPARE(window->lboxResponses.List(2), u"~The roof is leaking~"_s);
    QVERIFY(desk->Folder.Logged(u"Summary Search Result Was: ~The roof is leaking~"_s));
}

void tst_CaseSummaryErrors::invalidNumber_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("header"); ///< title, court, date
    QTest::newRow("Superior") << u"WA"_s
                              << QStringList{u"02-1 is Not a Valid Case Number"_s,
                                             u"King County, Washington Superior Courts"_s,
                                             u"N/A"_s};
    QTest::newRow("Oregon") << u"OR"_s << QStringList{u"A"_s, u"B"_s, u"C"_s};
    QTest::newRow("Idaho") << u"ID"_s << QStringList{u"A"_s, u"B"_s, u"C"_s};
}

void tst_CaseSummaryErrors::invalidNumber()
{
    QFETCH(QString, state);
    QFETCH(QStringList, header);
    court->Expect(requestOf(state))
        .Reply({u"ERROR -- 02-1 is Not a Valid Case Number"_s, u"EOF~"_s});
    frmCaseDetails *window = windowOf(state);
    window->SetCaseTitle(u"A"_s);
    window->SetCourtName(u"B"_s);
    window->SetDateFiled(u"C"_s);
    Run(window);
    const QString reason = u"02-1 is Not a Valid Case Number"_s;
    QCOMPARE(summaryCells(window), QList<QStringList>{{reason}});
    QCOMPARE((QStringList{TextOf(window, "lblCaseTitle"), TextOf(window, "lblCourtName"),
                          TextOf(window, "lblDateFiled")}),
             header);
    QCOMPARE(CaptionsOf(window), QStringList{u"Summary"_s});
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    const CaseTabState &summary = window->Tab(CaseTab::Summary);
    QVERIFY(!summary.TabIncomplete && !summary.TabNotRetrieved && !summary.TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete - Case Number Invalid"_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(TextOf(window, "lblWarning"), QString());
    QVERIFY(isHidden(window, "lblWarning"));
    QCOMPARE(tailOfLog(5),
             (QStringList{reason, u"Current Response: --> EOF~ 0"_s,
                          u"Summary Search Incomplete. Invalid Case# for County. Request: "_s
                              + requestOf(state),
                          u"Summary Search Result Was: "_s + reason, invalidExit}));
}

void tst_CaseSummaryErrors::notOnFileIsAnOrdinaryReply()
{
    const frmCaseDetails *window =
        summarised(u"WA"_s, {u"ERROR -- The Case is Not on File"_s, u"EOF~"_s});
    QCOMPARE(window->lboxResponses.Lines(), QStringList{u"The Case is Not on File"_s});
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(desk->Folder.Logged(u"The Case is Not on File"_s));
    QCOMPARE(tailOfLog(1), QStringList{normalExit});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseSummaryErrors::noSuchBankruptcyCase_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("illegal") << u"ERROR~ILLEGAL Case Number~"_s;
    QTest::newRow("not found") << u"ERROR~Case Not Found~"_s;
    QTest::newRow("in other letters") << u"Error~it was not found~"_s;
}

void tst_CaseSummaryErrors::noSuchBankruptcyCase()
{
    QFETCH(QString, line);
    court->Expect(requestOf(u"WAWBK"_s)).Reply({u"Case Title~x~"_s, line, u"EOF~"_s});
    frmCaseDetails *window = windowOf(u"WAWBK"_s);
    window->SetCaseTitle(u"Pending .. "_s);
    Run(window);
    QCOMPARE(window->lboxResponses.Lines(), QStringList{u"Case Not Found"_s});
    QCOMPARE(summaryCells(window), QList<QStringList>{{notLocated}});
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"N/A"_s);
    QCOMPARE(TextOf(window, "lblDateFiled"), u"N/A"_s);
    QVERIFY(window->Tab(CaseTab::Summary).TabDone);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    const QString all = u"All Responses For SUMMARY were Received: "_s + requestOf(u"WAWBK"_s);
    QCOMPARE(tailOfLog(6), (QStringList{u"Current Response: --> "_s + line + u" 0"_s, all,
                                        u"Current Response: --> EOF~ 0"_s, all,
                                        u"NORMAL EXIT - from DoSummarySearch()."_s, normalExit}));
}

/// Before the end mark has come.
void tst_CaseSummaryErrors::noSuchBankruptcyCaseIsSaidAtOnce()
{
    const QString request = requestOf(u"WAWBK"_s);
    court->Expect(request).Reply({u"ERROR~Case Not Found~"_s});
    frmCaseDetails *window = windowOf(u"WAWBK"_s);
    QStringList said;
    desk->When(
        [&] {
            return desk->Folder.Logged(u"All Responses For SUMMARY were Received: "_s + request);
        },
        [&] {
            said = {TextOf(window, "lblStatus"), TextOf(window, "lblCaseTitle"),
                    TextOf(window, "lblDateFiled")};
            court->SendTokens({u"EOF~"_s});
        });
    Run(window);
    QCOMPARE(said, (QStringList{u"Summary Complete .."_s, u"N/A"_s, u"N/A"_s}));
}

void tst_CaseSummaryErrors::otherBankruptcyErrors()
{
    const frmCaseDetails *window = summarised(u"WAWBK"_s, {u"ERROR~Scomis failed~"_s, u"EOF~"_s});
    verifyIncomplete(window, notComplete);
    QCOMPARE(tailOfLog(1), QStringList{errorExit});
}

void tst_CaseSummaryErrors::silence_data()
{
    QTest::addColumn<QString>("state");
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, u"WAWBK"_s})
        QTest::newRow(qPrintable(state)) << state;
}

/// Unlike an error of the court, silence does not make the case invalid: the run has its ordinary
/// end.
void tst_CaseSummaryErrors::silence()
{
    QFETCH(QString, state);
    desk->When([&] { return desk->Folder.Logged(u"SendReq: "_s + requestOf(state)); },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
    const frmCaseDetails *window = summarised(state, {});
    verifyIncomplete(window, QString());
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(tailOfLog(4),
             (QStringList{u"Current Response: -->  1"_s,
                          u"Summary Search Incomplete. Request: "_s + requestOf(state),
                          u"Summary Search Result Was: "_s + timedOut, normalExit}));
    if (state == u"WA")
        QCOMPARE(TextOf(window, "lblCaseTitle"), timedOut);
}

void tst_CaseSummaryErrors::aLostLinkIsSilence()
{
    court->Expect(requestOf(u"WA"_s)).Reply({superiorReply().first()}).Drop();
    frmCaseDetails *window = windowOf(u"WA"_s);
    Run(window);
    verifyIncomplete(window, superiorReply().first());
    QVERIFY(desk->Folder.Logged(u"Summary Search Result Was: "_s + timedOut));
}

void tst_CaseSummaryErrors::aRequestThatDoesNotLeave()
{
    desk->ConnectTo(*court);
    frmCaseDetails *window = windowOf(u"WA"_s);
    Global.sckServer->Close();
    Begin(window);
    QVERIFY(Finished(window));
    QCOMPARE(tailOfLog(2),
             (QStringList{brokeDown + u"Halvane Server Connection was Dropped!"_s, errorExit}));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
    QVERIFY(ButtonOf(window, "cmdPrintDetails")->isEnabled());
    QVERIFY(window->TmrFlash->isActive());
    QVERIFY(!window->Tab(CaseTab::Summary).TabDone);
    QVERIFY(!window->Tab(CaseTab::Summary).TabIncomplete);
}

void tst_CaseSummaryErrors::aStaleIncompleteIsForgotten()
{
    frmCaseDetails *window = summarised(u"WA"_s, {u"ERROR~The roof is leaking~"_s, u"EOF~"_s});
    QVERIFY(window->Tab(CaseTab::Summary).TabIncomplete);
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *dialog) {
        dialog->findChild<QPushButton *>(u"Command1"_s)->click();
    });
    ClickTab(window, u"Summary"_s);
    QCOMPARE(ShownFrame(window), u"frameTabs_8"_s);
    ButtonOf(window, "cmdClearAll")->click();
    window->findChild<QAbstractButton *>(u"chkTab_0"_s)->click();
    court->Expect(requestOf(u"WA"_s)).Reply(superiorReply());
    desk->Time.Run(0.05);
    ButtonOf(window, "cmdSearchNow")->click();
    QVERIFY(Finished(window));
    const CaseTabState &summary = window->Tab(CaseTab::Summary);
    QVERIFY(summary.TabDone && !summary.TabIncomplete && !summary.TabNotRetrieved);
    QCOMPARE(TextOf(window, "lblCaseTitle"), u"A & B VS C && D"_s);
    QCOMPARE(summaryCells(window).size(), 3);
    QVERIFY(isHidden(window, "lblWarning"));
    QCOMPARE(ShownFrame(window), u"frameTabs_0"_s);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
}

void tst_CaseSummaryErrors::whatWasSaidOnTheWay_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("status");
    QTest::addColumn<QStringList>("warning");
    const QString retrieving = u"Retrieving Summary .."_s;
    const QString complete = u"Summary Complete .."_s;
    const QString warnings = u"Search Warnings - See Summary"_s;
    const QStringList ordinary{retrieving, complete, u"Search Complete"_s};
    const QStringList nothing{QString()};
    const auto warned = [](const QString &text) { return QStringList{QString(), text}; };
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s})
        QTest::addRow("an invalid number, %s", qPrintable(state))
            << state << u"ERROR~02-1 is not a valid case number~"_s
            << QStringList{retrieving, warnings, u"Search Complete - Case Number Invalid"_s}
            << warned(u"Summary Information Unvavailable! Case Number Invalid For County."_s)
                   + nothing;
    QTest::newRow("not on file, Superior")
        << u"WA"_s << u"ERROR~case is not on file~"_s << ordinary << nothing;
    for (const QString &state : {u"OR"_s, u"ID"_s})
        QTest::addRow("not on file, %s", qPrintable(state))
            << state << u"ERROR~requested case is not on file~"_s << ordinary << nothing;
    QTest::newRow("not found, bankruptcy")
        << u"WAWBK"_s << u"ERROR~not found~"_s
        << QStringList{retrieving, complete, u"Search Complete"_s} << nothing;
    QTest::newRow("another error")
        << u"WA"_s << u"ERROR~unknown error~"_s << QStringList{retrieving, warnings}
        << warned(incompleteWarning);
}

/// What the end of the run replaces at once was said all the same.
void tst_CaseSummaryErrors::whatWasSaidOnTheWay()
{
    QFETCH(QString, state);
    QFETCH(QString, line);
    QStringList reply{line, u"EOF~"_s};
    // Behind this line an Oregon or Idaho reply is over.
    if (line.contains(u"requested case"))
        reply.removeLast();
    for (const char *name : {"lblStatus", "lblWarning"}) {
        cleanup();
        init();
        FetchAtOnce(u"CaseSearchTabs"_s, {});
        court->Expect(requestOf(state)).Reply(reply);
        frmCaseDetails *window = windowOf(state);
        const TextTrail trail(window->findChild<QLabel *>(QLatin1StringView(name)));
        Run(window);
        const QStringList texts = trail.Texts();
        if (qstrcmp(name, "lblStatus") == 0)
            QTEST(texts.mid(texts.indexOf(u"Searching .."_s) + 1), "status");
        else
            QTEST(texts, "warning");
    }
}

HALVANE_TEST(tst_CaseSummaryErrors)
#include "tst_CaseSummaryErrors.moc"
