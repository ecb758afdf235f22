// A case whose link dies, or falls silent, at every byte of a reply: the window says so, can be
// used, and the next case comes.

#include "casedetails/CaseDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
/// It has the tabs Summary, Names and Docket; Names is off.
const QString caseNumber = u"02-5-00123-4"_s;

const QDateTime aMorning({2026, 3, 10}, {10, 0, 0});
constexpr qint64 timeOutSeconds = 60;
constexpr qint64 wellBehindTimeOut = 130;

enum class Tab { Summary, Docket };

QByteArray summaryReply()
{
    return ScriptedCourt::Tokens({u"Searching~King~"_s, u"Type:~5~"_s, u"Court:~King~"_s,
                                  u"Title:~A & B~"_s, u"Filed:~03/04/2002~"_s, u"CAUSE:~Theft~"_s,
                                  u"EOF~"_s});
}

QByteArray docketReply()
{
    return ScriptedCourt::Tokens(
        {u"SEARCHING~"_s, u"GRIDDEF~Date~Entry~20~80~"_s, u"01/02/2003~Complaint~"_s, u"EOF~"_s});
}

QByteArray replyOf(Tab tab)
{
    return tab == Tab::Summary ? summaryReply() : docketReply();
}

/// Whether the first so many bytes of the reply end where a token ends.
bool endsBetweenTokens(Tab tab, qsizetype bytes)
{
    return replyOf(tab).left(bytes).count('|') % 2 == 0;
}

/// A window after its run: what can be clicked, and that it does not blink or ask for a turn.
bool isUsable(const frmCaseDetails *window)
{
    return ButtonOf(window, "cmdPrintDetails")->isEnabled()
           && !ButtonOf(window, "cmdStopSearching")->isEnabled() && !window->Timer1->isActive()
           && !window->tmrBlink->isActive() && window->isEnabled()
           && frmQueue::Form().FIFO.ListCount() == 0 && !Global.bSearchInProgress;
}
} // namespace

Q_DECLARE_METATYPE(Tab)

class tst_CaseFaults : public CaseTest
{
    Q_OBJECT
private Q_SLOTS:
    void droppedAtEveryByte_data();
    void droppedAtEveryByte();
    void silentAtEveryByte_data();
    void silentAtEveryByte();
    void aTabBehindTheLossBreaksDown();
    void droppedForRealAndOpenedAgain_data();
    void droppedForRealAndOpenedAgain();
    void oneByteATime();
    void everyTwoWaySplit_data();
    void everyTwoWaySplit();
    void goneAtEveryByte_data();
    void goneAtEveryByte();

private:
    static void bothTabs();
    /// A case whose run is about to begin, over a new connection without a network. Answers
    /// everything before the reply of this tab; then does this.
    frmCaseDetails *startCase(Tab tab, const std::function<void(FakeSocket *)> &atReply);
    /// What the window shows of the tab that failed.
    static QString failureOf(Tab tab, const frmCaseDetails *window);
    /// The next case, over a new connection.
    void openAgain();
};

void tst_CaseFaults::bothTabs()
{
    QTest::addColumn<Tab>("tab");
    QTest::newRow("Summary") << Tab::Summary;
    QTest::newRow("Docket") << Tab::Docket;
}

frmCaseDetails *tst_CaseFaults::startCase(Tab tab, const std::function<void(FakeSocket *)> &atReply)
{
    CloseServerLink();
    desk->Time.Set(aMorning);
    // The pauses before the tabs.
    desk->Time.Run(0.1);
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    frmCaseDetails *window = Superior(caseNumber);
    const QPointer<FakeSocket> socket(desk->ConnectToNothing());
    if (tab == Tab::Docket)
        desk->When([socket] { return socket && socket->sent.size() == 1; },
                   [socket] { socket->Arrive(summaryReply()); });
    desk->When(
        [socket, tab] { return socket && socket->sent.size() == (tab == Tab::Docket ? 2 : 1); },
        [socket, atReply] { atReply(socket); });
    Begin(window);
    return window;
}

QString tst_CaseFaults::failureOf(Tab tab, const frmCaseDetails *window)
{
    const CaseTabState &state =
        window->Tab(tab == Tab::Summary ? CaseTab::Summary : CaseTab::Docket);
    const QList<QStringList> cells =
        CellsOf(window, tab == Tab::Summary ? CaseTab::Summary : CaseTab::Docket);
    QStringList seen{TextOf(window, "lblStatus"), ColourOf(window, "lblStatus"),
                     TextOf(window, "lblWarning"), CaptionsOf(window).join(u'+')};
    if (tab == Tab::Docket)
        seen.append(cells.value(1).join(u'+'));
    if (state.TabIncomplete)
        seen.append(u"incomplete"_s);
    if (state.TabNotRetrieved)
        seen.append(u"not retrieved"_s);
    if (state.TabDone)
        seen.append(u"done"_s);
    if (!isUsable(window))
        seen.append(u"cannot be used"_s);
    return seen.join(u'/');
}

namespace {
/// What the Docket shows when so many bytes of it have come: what there is, once its columns are
/// known.
QString docketRow(qsizetype bytes)
{
    constexpr std::array<QStringView, 4> rowOfTokens{
        u"Docket Information Incomplete. Please Retry Search.",
        u"Docket Information Incomplete. Please Retry Search.", u"", u"01/02/2003+Complaint"};
    return rowOfTokens.at(static_cast<size_t>(docketReply().left(bytes).count('|') / 2)).toString();
}

/// What failureOf gives, for a tab that failed as it should behind so many bytes.
QString failed(Tab tab, qsizetype bytes)
{
    if (tab == Tab::Summary)
        return u"Search Incomplete!/red/Summary Information Incomplete! Please Retry Search./"
               "Summary/incomplete"_s;
    return u"Search Incomplete!/red/Docket Information Incomplete! Click Tab to Retry./"
           "Summary+Names+Docket/"_s
           + docketRow(bytes) + u"/incomplete/not retrieved"_s;
}
} // namespace

void tst_CaseFaults::openAgain()
{
    const QPointer<frmCaseDetails> window(
        startCase(Tab::Docket, [](FakeSocket *socket) { socket->Arrive(docketReply()); }));
    QVERIFY(Finished(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CellsOf(window, CaseTab::Docket).value(1),
             (QStringList{u"01/02/2003"_s, u"Complaint"_s}));
    delete window;
}

void tst_CaseFaults::droppedAtEveryByte_data()
{
    bothTabs();
}

void tst_CaseFaults::droppedAtEveryByte()
{
    QFETCH(Tab, tab);
    for (qsizetype bytes = 0; bytes < replyOf(tab).size(); ++bytes) {
        const QPointer<frmCaseDetails> window(startCase(tab, [&](FakeSocket *socket) {
            socket->Arrive(replyOf(tab).left(bytes));
            socket->PeerClosesBehindTokens();
        }));
        QVERIFY(Finished(window));
        QVERIFY2(failureOf(tab, window) == failed(tab, bytes),
                 qPrintable(QString::number(bytes) + u' ' + failureOf(tab, window)));
        QVERIFY(Global.bConnectionClosed);
        delete window;
        openAgain();
    }
}

void tst_CaseFaults::silentAtEveryByte_data()
{
    bothTabs();
}

void tst_CaseFaults::silentAtEveryByte()
{
    QFETCH(Tab, tab);
    for (qsizetype bytes = 0; bytes < replyOf(tab).size(); ++bytes) {
        const bool whole = endsBetweenTokens(tab, bytes);
        QDateTime start;
        const QPointer<frmCaseDetails> window(startCase(tab, [&](FakeSocket *socket) {
            socket->Arrive(replyOf(tab).left(bytes));
            start = desk->Time.Now();
            desk->Time.Run(10.0);
            // A token that has come in part holds the wait until the rest comes or the link goes.
            if (!whole)
                desk->When([&] { return start.secsTo(desk->Time.Now()) > wellBehindTimeOut; },
                           [socket] { socket->PeerCloses(); });
        }));
        QVERIFY(Finished(window));
        desk->Time.Stop();
        const qint64 waited = start.secsTo(desk->Time.Now());
        QVERIFY2(failureOf(tab, window) == failed(tab, bytes),
                 qPrintable(QString::number(bytes) + u' ' + failureOf(tab, window)));
        QVERIFY2(whole ? waited >= timeOutSeconds && waited < wellBehindTimeOut
                       : waited > wellBehindTimeOut,
                 qPrintable(QString::number(bytes) + u' ' + QString::number(waited)));
        delete window;
        if (whole)
            openAgain();
    }
}

void tst_CaseFaults::aTabBehindTheLossBreaksDown()
{
    // With a tab to come, what cannot be sent ends the run, and it keeps its place.
    const QPointer<frmCaseDetails> window(startCase(Tab::Summary, [](FakeSocket *socket) {
        socket->Arrive(summaryReply());
        socket->PeerClosesBehindTokens();
    }));
    const QString broken = u"Exiting DoDocketSearch() via PROCERR in Case Details. Error: Halvane "
                           "Server Connection was Dropped!"_s;
    QTRY_COMPARE(desk->Folder.TimesLogged(broken), 1);
    QTRY_VERIFY(!Global.bSearchInProgress);
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{window->txtMasterKey});
    QVERIFY(!desk->Folder.Logged(u"NORMAL EXIT - from ProcessSearchReqeusts."_s));
    Global.bShowAlerts = false;
    window->close();
    QTRY_VERIFY(window.isNull());
    openAgain();
}

void tst_CaseFaults::droppedForRealAndOpenedAgain_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("at once") << 0;
    QTest::newRow("in the first token") << 8;
    QTest::newRow("in a line") << 30;
    QTest::newRow("before the end mark") << static_cast<int>(summaryReply().size()) - 6;
    QTest::newRow("before the last bar") << static_cast<int>(summaryReply().size()) - 1;
}

void tst_CaseFaults::droppedForRealAndOpenedAgain()
{
    QFETCH(int, bytes);
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s, caseNumber))
        .ReplyBytes(summaryReply().left(bytes))
        .Drop();
    court->Expect(SuperiorLine(u"SUMMARY"_s, caseNumber)).ReplyBytes(summaryReply());
    frmCaseDetails *window = Superior(caseNumber);
    Run(window);
    QCOMPARE(failureOf(Tab::Summary, window), failed(Tab::Summary, bytes));
    CloseServerLink();
    frmCaseDetails *again = Superior(caseNumber);
    Run(again);
    QCOMPARE(TextOf(again, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(again->lblCaseTitle(), u"A & B"_s);
}

void tst_CaseFaults::oneByteATime()
{
    frmCaseDetails *window = startCase(Tab::Docket, [](FakeSocket *socket) {
        QByteArrayList pieces;
        const QByteArray reply = docketReply();
        for (const char byte : reply)
            pieces.append(QByteArray(1, byte));
        socket->ArriveLater(pieces);
    });
    QVERIFY(Finished(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete"_s);
    QCOMPARE(CellsOf(window, CaseTab::Docket).size(), 2);
}

void tst_CaseFaults::everyTwoWaySplit_data()
{
    bothTabs();
}

void tst_CaseFaults::everyTwoWaySplit()
{
    QFETCH(Tab, tab);
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    for (qsizetype split = 1; split < replyOf(tab).size(); ++split) {
        const QPointer<frmCaseDetails> window(startCase(tab, [&](FakeSocket *socket) {
            socket->ArriveLater({replyOf(tab).left(split), replyOf(tab).mid(split)});
            if (tab == Tab::Summary)
                desk->When([socket] { return socket->sent.size() == 2; },
                           [socket] { socket->Arrive(docketReply()); });
        }));
        QVERIFY(Finished(window));
        QVERIFY2(TextOf(window, "lblStatus") == u"Search Complete"
                     && CellsOf(window, CaseTab::Summary).size() == 2
                     && CellsOf(window, CaseTab::Docket).size() == 2,
                 qPrintable(QString::number(split)));
        delete window;
    }
}

void tst_CaseFaults::goneAtEveryByte_data()
{
    bothTabs();
}

void tst_CaseFaults::goneAtEveryByte()
{
    QFETCH(Tab, tab);
    // The window goes with its session after each byte of the reply in turn; its run goes on to the
    // end of the reply, and asks for nothing more.
    for (qsizetype bytes = 0; bytes < replyOf(tab).size(); ++bytes) {
        QPointer<frmCaseDetails> window;
        window = startCase(tab, [&](FakeSocket *socket) {
            socket->Arrive(replyOf(tab).left(bytes));
            QVERIFY(window->Unload(UnloadMode::SessionEnd));
            socket->ArriveLater({replyOf(tab).mid(bytes)});
        });
        // Its window goes at once.
        QTRY_VERIFY_WITH_TIMEOUT(window.isNull() && !Global.bSearchInProgress, 5000);
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
        QCOMPARE(FakeSocket::Last()->sent.size(), tab == Tab::Docket ? 2 : 1);
    }
}

HALVANE_TEST(tst_CaseFaults)
#include "tst_CaseFaults.moc"
