// What the history keeps of searches, cases and documents, from their launch to their end.

#include "app/HistoryWiring.h"
#include "app/Startup.h"
#include "casedetails/DocumentsDesk.h"
#include "casedetails/frmCaseDetails.h"
#include "core/EndProgram.h"
#include "history/HistoryStore.h"
#include "link/RequestLine.h"
#include "namesearch/frmNameSearchResults.h"
#include "records/StartText.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/Ticks.h"

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few
const QString stopQuestion = u"Stop This Search?"_s;
const QString stopTitle = u"Stop Search Verification"_s;

QString lineFor(const QString &lastName)
{
    return u"WASUP¦SEARCH¦"_s + lastName + u"¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s;
}

QStringList twoRows()
{
    return {ResultLine(u"SMITH, JOHN"_s), ResultLine(u"SMITH, JOHN Q"_s), u"EOF~"_s};
}

/// An item in one line: state, what, outcome, count.
QString inShort(const AskedItem &item)
{
    constexpr std::array<QStringView, 3> states{u"waits", u"runs", u"ended"};
    return states.at(static_cast<size_t>(item.State)) + u'|' + item.What + u'|' + item.Outcome
           + u'|' + QString::number(item.Count);
}
} // namespace

class tst_HistoryRecording : public DocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { WireWindows(); }
    void init() override;
    void cleanup();

    void aSearchFromItsLaunchToItsEnd();
    void aSearchThatIsRetried();
    void aCaseWithItsTabs();
    void aLaterRunOfACase();
    void aDocumentWithItsPages();
    void aDocumentThatCannotBeHad();
    void twoWindowsAreTwoItems();
    void stoppedWhileItWaits();
    void stoppedWhileItRuns();
    void closedWhileItWaits();
    void closedWhileItRuns();
    void aLinkThatIsLost();
    void aCaseThatBreaksDown();
    void theCodeOfTheRequestIsBilled();
    void whatTheSessionStoppedIsOfferedAgain();
    void whatWasCutOffIsOfferedAgain();
    void whatStoodWaitingIsOfferedAgain();
    void whatIsLaunchedOnTheWayOutTakesNothingBack();
    void afterALogoutTheProgramGoesOn();
    void withTheHistoryOffNothingIsKept();
    void whatIsLaunchedWithTheHistoryOffIsNotKeptLater();

private:
    frmNameSearchResults *pending(const QString &lastName, const QString &code = {});
    template<class Window>
    Window *launched(Window *window)
    {
        window->ShownJob()->AnnounceLaunch();
        return window;
    }
    /// What is kept, oldest first.
    QStringList kept();
    HistoryStore::UsageLine account();
    void reopen();
    void write() { QVERIFY(store().WaitUntilWritten(longEnough)); }
    static HistoryStore &store() { return HistoryStore::Of(); }
    /// Does this in the middle of the search for SMITH, and lets the court answer.
    void inTheMiddle(const std::function<void()> &act);
};

void tst_HistoryRecording::init()
{
    DocumentsTest::init();
    // What is to be done at the end of the program is done once.
    FollowJobs();
    reopen();
}

void tst_HistoryRecording::cleanup()
{
    store().Close();
    DocumentsTest::cleanup();
}

void tst_HistoryRecording::reopen()
{
    store().Open(desk->Folder.Path(u"history.db"_s));
    write();
}

frmNameSearchResults *tst_HistoryRecording::pending(const QString &lastName, const QString &code)
{
    auto *window = new frmNameSearchResults(u"WA"_s);
    window->ClientAcctgCode = code;
    window->SetTxtCountyList(u"King County - Washington Superior Courts"_s);
    window->Search().Record.Origin = "origin of " + lastName.toUtf8();
    desk->Enqueue(window, {lineFor(lastName)});
    return launched(window);
}

QStringList tst_HistoryRecording::kept()
{
    // The last words of a job are read on the next turn.
    Ticks(2);
    if (!store().IsOpen() || !store().WaitUntilWritten(longEnough))
        return {u"nothing is open"_s};
    QStringList items;
    for (const AskedItem &item : store().Items({}, 0, 100))
        items.prepend(inShort(item));
    return items;
}

HistoryStore::UsageLine tst_HistoryRecording::account()
{
    const QList<HistoryStore::UsageLine> lines = store().Usage();
    return lines.size() == 1 ? lines.first() : HistoryStore::UsageLine();
}

void tst_HistoryRecording::inTheMiddle(const std::function<void()> &act)
{
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows()).Late();
    desk->When([this] { return court->OwesAnswer(); },
               [this, act] {
                   act();
                   court->AnswerNow();
               });
}

void tst_HistoryRecording::aSearchFromItsLaunchToItsEnd()
{
    inTheMiddle([this] { QCOMPARE(kept(), QStringList{u"runs|SMITH, JOHN, Q||-1"_s}); });
    desk->ConnectTo(*court);
    frmNameSearchResults *window = pending(u"SMITH"_s);
    QCOMPARE(kept(), QStringList{u"waits|SMITH, JOHN, Q||-1"_s});
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept(), QStringList{u"ended|SMITH, JOHN, Q|Search Complete: 2 Cases Retrieved.|2"_s});
    const AskedItem item = store().Items({}, 0, 1).first();
    QCOMPARE(item.Kind, AskedKind::Search);
    QCOMPARE(item.Where, u"King County - Washington Superior Courts"_s);
    QCOMPARE(item.Origin, QByteArray("origin of SMITH"));
    const HistoryStore::UsageLine used = account();
    QCOMPARE(used.Searches, 1);
    QCOMPARE(used.Requests, 1);
    QCOMPARE(used.Cases, 0);
}

/// One line, which keeps its words until there is more; its requests are those of one search.
void tst_HistoryRecording::aSearchThatIsRetried()
{
    const QString adams = u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Adams,¦Civil,¦¦¦"_s;
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows());
    court->Expect(adams).Reply({u"ERROR~Court is down~"_s, u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *window = new frmNameSearchResults(u"WA"_s);
    window->SetTxtCountyList(u"King, Adams"_s);
    desk->Enqueue(window, {lineFor(u"SMITH"_s), adams});
    launched(window)->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    const QStringList first = kept();
    QCOMPARE(first.size(), 1);
    QVERIFY2(first[0].startsWith(u"ended|SMITH, JOHN, Q|") && first[0].endsWith(u"|2"),
             qPrintable(first[0]));
    const QString words = first[0].section(u'|', 2, 2);
    const qint64 id = store().Items({}, 0, 1).value(0).Id;
    Global.bLoggedIn = true;
    court->Expect(adams).Reply({ResultLine(u"SMITH, JOHN A"_s), u"EOF~"_s}).Late();
    desk->When([this] { return court->OwesAnswer(); },
               [&] {
                   QCOMPARE(kept(), first);
                   court->AnswerNow();
               });
    window->Search().RetryFailed();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept(), QStringList{u"ended|SMITH, JOHN, Q|"_s + words + u"|3"_s});
    QCOMPARE(store().Items({}, 0, 1).value(0).Id, id);
    const HistoryStore::UsageLine used = account();
    QCOMPARE(used.Searches, 1);
    QCOMPARE(used.Requests, 3);
}

void tst_HistoryRecording::aCaseWithItsTabs()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Names"_s, u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(superiorReply());
    for (const QString &word : {u"NAMES"_s, u"DOCKET"_s})
        court->Expect(SuperiorLine(word)).Reply(GridDef({u"01/02/2003~A~"_s}));
    frmCaseDetails *window = launched(Superior());
    QCOMPARE(kept(), QStringList{u"waits|02-1-00123-4||-1"_s});
    const AskedItem item = store().Items({}, 0, 1).first();
    QCOMPARE(item.Kind, AskedKind::Case);
    QCOMPARE(item.Where, u"King County, Washington Superior Courts"_s);
    const std::optional<CaseStart> start = CaseStartOf(item.Origin);
    QVERIFY(start);
    QCOMPARE(start->txtCaseNumber, u"02-1-00123-4"_s);
    QCOMPARE(start->txtCountyName, u"King"_s);
    Run(window);
    QCOMPARE(kept(), QStringList{u"ended|02-1-00123-4|Search Complete|3"_s});
    const HistoryStore::UsageLine used = account();
    QCOMPARE(used.Cases, 1);
    QCOMPARE(used.Tabs, 2);
    QCOMPARE(used.Requests, 3);
    QCOMPARE(used.Searches, 0);
}

/// The same case, once more: one line, which keeps what it says until there is more. A program that
/// ends meanwhile has not left the case undone.
void tst_HistoryRecording::aLaterRunOfACase()
{
    constexpr int docketBox = 2;
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(superiorReply());
    frmCaseDetails *window = launched(Superior());
    Run(window);
    QCOMPARE(kept(), QStringList{u"ended|02-1-00123-4|Search Complete|1"_s});
    ClickTab(window, u"Docket"_s);
    window->TmrSearchOnDemand->setInterval(60'000);
    ButtonOf(window, "cmdClearAll")->click();
    window->findChild<QCheckBox *>(u"chkTab_%1"_s.arg(docketBox))->click();
    ButtonOf(window, "cmdSearchNow")->click();
    QCOMPARE(kept(), QStringList{u"ended|02-1-00123-4|Search Complete|1"_s});
    court->Expect(SuperiorLine(u"DOCKET"_s)).Reply(GridDef({u"01/02/2003~A~"_s}));
    window->TmrSearchOnDemand->start(1);
    QVERIFY(Finished(window));
    QCOMPARE(kept(), QStringList{u"ended|02-1-00123-4|Search Complete|2"_s});
    const HistoryStore::UsageLine used = account();
    QCOMPARE(used.Cases, 1);
    QCOMPARE(used.Tabs, 1);
    QCOMPARE(used.Requests, 2);
}

void tst_HistoryRecording::aDocumentWithItsPages()
{
    const frmCaseDetails *window = listing();
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply(DocumentBody(2'000), "pdf"));
    doubleClick(window, 3);
    const QPointer<frmDocTransfer> transfer = transfers().value(0);
    QVERIFY(transfer);
    QCOMPARE(kept(), QStringList{u"waits|Answer||-1"_s});
    const AskedItem item = store().Items({}, 0, 1).first();
    QCOMPARE(item.Kind, AskedKind::Document);
    QCOMPARE(item.Where, u"02-1-00123-4, King"_s);
    const std::optional<QList<DocumentStart>> starts = DocumentsOf(item.Origin);
    QVERIFY(starts);
    QCOMPARE(starts->value(0).Command, rowOf(3, u"Answer"_s));
    letGo(transfer);
    QVERIFY(finished(transfer));
    QCOMPARE(kept(), QStringList{u"ended|Answer|Document Retrieved.|5"_s});
    const HistoryStore::UsageLine used = account();
    QCOMPARE(used.Documents, 1);
    QCOMPARE(used.Requests, 1);
}

void tst_HistoryRecording::aDocumentThatCannotBeHad()
{
    const frmCaseDetails *window = listing();
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes("|EOD~||EOF~|");
    doubleClick(window, 3);
    const QPointer<frmDocTransfer> transfer = transfers().value(0);
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [](QDialog *box) { box->accept(); });
    letGo(transfer);
    QVERIFY(finished(transfer));
    const QStringList items = kept();
    QCOMPARE(items.size(), 1);
    QVERIFY(items[0].startsWith(u"ended|Answer|The "));
    QVERIFY(items[0].endsWith(u"|0"));
}

void tst_HistoryRecording::twoWindowsAreTwoItems()
{
    desk->ConnectTo(*court);
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows());
    court->Expect(lineFor(u"JONES"_s)).Reply({u"EOF~"_s});
    frmNameSearchResults *first = pending(u"SMITH"_s);
    frmNameSearchResults *second = pending(u"JONES"_s);
    second->Timer1->start(1);
    first->Timer1->start(1);
    QVERIFY(desk->Finish(first));
    QVERIFY(desk->Finish(second));
    QCOMPARE(kept(),
             (QStringList{u"ended|SMITH, JOHN, Q|Search Complete: 2 Cases Retrieved.|2"_s,
                          u"ended|JONES, JOHN, Q|Search Complete: 0 Cases Retrieved.|0"_s}));
    QCOMPARE(account().Searches, 2);
}

void tst_HistoryRecording::stoppedWhileItWaits()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *window = pending(u"SMITH"_s);
    window->ShownJob()->Stop();
    QCOMPARE(kept(), QStringList{u"ended|SMITH, JOHN, Q|Search Stopped By User ..|0"_s});
    QVERIFY(store().Usage().isEmpty());
}

/// What stops a search is no request of it.
void tst_HistoryRecording::stoppedWhileItRuns()
{
    inTheMiddle([] { Job::WithTurn()->Stop(); });
    court->Expect(u"STOP¦"_s);
    desk->ConnectTo(*court);
    frmNameSearchResults *window = pending(u"SMITH"_s);
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept(),
             QStringList{u"ended|SMITH, JOHN, Q|Search Stopped By User: 2 Cases Retrieved.|2"_s});
    QCOMPARE(account().Requests, 1);
}

void tst_HistoryRecording::closedWhileItWaits()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *window = pending(u"SMITH"_s);
    window->Unload(UnloadMode::MdiParent);
    QCOMPARE(kept(), QStringList{u"ended|SMITH, JOHN, Q|Closed before it had its turn.|-1"_s});
}

/// Nobody sees what comes, but it came, and was paid for.
void tst_HistoryRecording::closedWhileItRuns()
{
    desk->ConnectTo(*court);
    QPointer<frmNameSearchResults> window = pending(u"SMITH"_s);
    inTheMiddle([&window] { window->Unload(UnloadMode::MdiParent); });
    window->Timer1->start(1);
    QVERIFY(desk->WaitUntil([&window] { return !window && !Global.bSearchInProgress; }));
    QCOMPARE(kept(),
             QStringList{u"ended|SMITH, JOHN, Q|Search Stopped By User: 2 Cases Retrieved.|2"_s});
    QCOMPARE(account().Requests, 1);
}

void tst_HistoryRecording::aLinkThatIsLost()
{
    desk->ConnectTo(*court);
    court->Expect(lineFor(u"SMITH"_s)).Reply({ResultLine(u"SMITH, JOHN"_s)}).Drop();
    frmNameSearchResults *window = pending(u"SMITH"_s);
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept(),
             QStringList{u"ended|SMITH, JOHN, Q|Search Stopped - Court Connection Lost!|1"_s});
}

void tst_HistoryRecording::aCaseThatBreaksDown()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    court->Expect(SuperiorLine(u"SUMMARY"_s)).Reply(superiorReply());
    // A docket that cannot be read.
    court->Expect(SuperiorLine(u"DOCKET"_s))
        .Reply({u"GRIDDEF~Date~Entry~wide~80~"_s, u"01/02/2003~A~"_s, u"EOF~"_s});
    desk->ConnectTo(*court);
    frmCaseDetails *window = launched(Superior());
    desk->Time.Run(0.02);
    Begin(window);
    QVERIFY(desk->WaitUntil([window] { return window->ShownJob()->KeepsPlace(); }));
    desk->Time.Stop();
    const QStringList items = kept();
    QCOMPARE(items.size(), 1);
    QVERIFY(items[0].startsWith(u"ended|02-1-00123-4|Broke down: "));
    QVERIFY(items[0].endsWith(u"|1"));
}

void tst_HistoryRecording::theCodeOfTheRequestIsBilled()
{
    court->Expect(EmbedClientCode(lineFor(u"SMITH"_s), u"ABC"_s)).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    frmNameSearchResults *window = pending(u"SMITH"_s, u"ABC"_s);
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept().size(), 1);
    QCOMPARE(store().Items({}, 0, 1).first().ClientCode, u"ABC"_s);
    QCOMPARE(account().ClientCode, u"ABC"_s);
    // A case is billed by its Summary, in which the code stands too.
    court->Expect(EmbedClientCode(SuperiorLine(u"SUMMARY"_s), u"ABC"_s)).Reply(superiorReply());
    FetchAtOnce(u"CaseSearchTabs"_s, {});
    desk->Time.Run(0.02);
    frmCaseDetails *ofCase = Superior();
    ofCase->ClientAcctgCode = u"ABC"_s;
    launched(ofCase);
    Begin(ofCase);
    QVERIFY(Finished(ofCase));
    QCOMPARE(kept().size(), 2);
    QCOMPARE(account().Cases, 1);
    QCOMPARE(account().Tabs, 0);
}

/// Whoever ends the program has all jobs stopped first: they have not run.
void tst_HistoryRecording::whatTheSessionStoppedIsOfferedAgain()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *first = pending(u"SMITH"_s);
    frmNameSearchResults *second = pending(u"JONES"_s);
    frmNameSearchResults *third = pending(u"DOE"_s);
    Global.bStopRequested = true;
    // What the user has stopped is not to run, whatever else is going on.
    third->ShownJob()->Stop();
    first->Timer1->start(1);
    second->Timer1->start(1);
    QVERIFY(desk->Finish(first) && desk->Finish(second));
    QCOMPARE(kept().value(0), u"ended|SMITH, JOHN, Q|Search Stopped By User ..|0"_s);
    bool ended = false;
    ReplaceEndProgram([&ended](int) { ended = true; });
    EndProgram();
    ReplaceEndProgram({});
    QVERIFY(ended);
    reopen();
    QStringList names;
    for (const AskedItem &item : store().Unfinished())
        names.append(item.What);
    QCOMPARE(names, (QStringList{u"SMITH, JOHN, Q"_s, u"JONES, JOHN, Q"_s}));
}

/// The end of the session takes the link from the search that runs; one that had come to its end by
/// then is done.
void tst_HistoryRecording::whatWasCutOffIsOfferedAgain()
{
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows());
    court->Expect(lineFor(u"JONES"_s)).Reply({ResultLine(u"JONES, JOHN"_s)}).Drop().Late();
    desk->ConnectTo(*court);
    frmNameSearchResults *done = pending(u"SMITH"_s);
    done->Timer1->start(1);
    QVERIFY(desk->Finish(done));
    frmNameSearchResults *cut = pending(u"JONES"_s);
    desk->When([this] { return court->OwesAnswer(); },
               [this] {
                   Global.bStopRequested = true;
                   court->AnswerNow();
               });
    cut->Timer1->start(1);
    QVERIFY(desk->Finish(cut));
    kept();
    ReplaceEndProgram([](int) {});
    EndProgram();
    ReplaceEndProgram({});
    reopen();
    QCOMPARE(store().Unfinished().size(), 1);
    QCOMPARE(store().Unfinished().first().What, u"JONES, JOHN, Q"_s);
}

void tst_HistoryRecording::whatStoodWaitingIsOfferedAgain()
{
    desk->ConnectTo(*court);
    pending(u"SMITH"_s);
    launched(Superior());
    QCOMPARE(kept().size(), 2);
    QVERIFY(store().Unfinished().isEmpty());
    // As when the program was killed.
    store().Close();
    reopen();
    QCOMPARE(store().Unfinished().size(), 2);
}

void tst_HistoryRecording::whatIsLaunchedOnTheWayOutTakesNothingBack()
{
    frmMain main;
    main.TimerExit->start(60'000);
    desk->ConnectTo(*court);
    frmNameSearchResults *first = pending(u"SMITH"_s);
    Global.bStopRequested = true;
    first->Timer1->start(1);
    QVERIFY(desk->Finish(first));
    kept();
    pending(u"JONES"_s);
    kept();
    ReplaceEndProgram([](int) {});
    EndProgram();
    ReplaceEndProgram({});
    reopen();
    QCOMPARE(store().Unfinished().size(), 2);
}

/// They were stopped, and the user has gone on with other things.
void tst_HistoryRecording::afterALogoutTheProgramGoesOn()
{
    desk->ConnectTo(*court);
    frmNameSearchResults *first = pending(u"SMITH"_s);
    Global.bStopRequested = true;
    first->Timer1->start(1);
    QVERIFY(desk->Finish(first));
    Global.bStopRequested = false;
    frmNameSearchResults *second = pending(u"JONES"_s);
    second->ShownJob()->Stop();
    kept();
    ReplaceEndProgram([](int) {});
    EndProgram();
    ReplaceEndProgram({});
    reopen();
    QVERIFY(store().Unfinished().isEmpty());
}

void tst_HistoryRecording::withTheHistoryOffNothingIsKept()
{
    store().Close();
    desk->ConnectTo(*court);
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows());
    frmNameSearchResults *window = pending(u"SMITH"_s);
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    reopen();
    QCOMPARE(kept(), QStringList());
    QVERIFY(store().Usage().isEmpty());
}

void tst_HistoryRecording::whatIsLaunchedWithTheHistoryOffIsNotKeptLater()
{
    store().Close();
    desk->ConnectTo(*court);
    court->Expect(lineFor(u"SMITH"_s)).Reply(twoRows());
    frmNameSearchResults *window = pending(u"SMITH"_s);
    reopen();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(kept(), QStringList());
    QVERIFY(store().Usage().isEmpty());
}

HALVANE_TEST(tst_HistoryRecording)
#include "tst_HistoryRecording.moc"
