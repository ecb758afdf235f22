#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "session/SessionEvents.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

// How the three results windows differ, and what they all do alike.

class tst_ResultsWindows : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void atLoad_data();
    void atLoad();
    void workingCaption_data();
    void workingCaption();
    void lostConnectionLog_data();
    void lostConnectionLog();
    void theEndMark_data();
    void theEndMark();
    void errorRule_data();
    void errorRule();
    void progressRule_data();
    void progressRule();
    void logOfTheReplies_data();
    void logOfTheReplies();
    void theUserIsHeardAfterEachReply_data() { EachResultsWindow(); }
    void theUserIsHeardAfterEachReply();
    void betweenTwoLinesTheCountIsThatOfTheLinesBefore_data() { EachResultsWindow(); }
    void betweenTwoLinesTheCountIsThatOfTheLinesBefore();
    void anEmptyTokenBetweenRowsIsNoRow_data();
    void anEmptyTokenBetweenRowsIsNoRow();
    void closeRules_data() { EachResultsWindow(); }
    void closeRules();
    void helpIsWanted_data();
    void helpIsWanted();
    void windowsOfDifferentKindsRunInTheOrderOfTheQueue();
};

void tst_ResultsWindows::atLoad_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("sortColumn");
    QTest::addColumn<QString>("count");
    QTest::newRow("name search") << Which::Name << u"frmNameSearchResults"_s
                                 << u"Participant Name"_s << u"Retrieved: 0"_s;
    QTest::newRow("civil") << Which::Civil << u"frmDiscisNameResults"_s << u"Name"_s
                           << u"Cases Found: 0"_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"frmDiscisNCNameResults"_s << u"Name"_s
                               << u"Cases Found: 0"_s;
}

void tst_ResultsWindows::atLoad()
{
    QFETCH(Which, which);
    Global.bUserStoppedSearch = true;
    const std::unique_ptr<NameResultsWindow> window(MakeWindow(which));
    QTEST(window->objectName(), "name");
    QTEST(window->SortColumnName, "sortColumn");
    QTEST(TextOf(window.get(), "Label3"), "count");
    QCOMPARE(TextOf(window.get(), "lblStatus"), u"Pending .."_s);
    QCOMPARE(TextOf(window.get(), "lblSearchStatus"), inProgress);
    QCOMPARE(window->Timer1->interval(), 1900);
    QCOMPARE(window->tmrBlink->interval(), 500);
    QVERIFY(window->Timer1->isActive());
    QVERIFY(window->tmrBlink->isActive());
    QVERIFY(!Global.bUserStoppedSearch);
    QVERIFY(!window->StopRequested && !window->SearchIncomplete);
}

void tst_ResultsWindows::workingCaption_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("caption");
    QTest::newRow("name search") << Which::Name << u"Searching .."_s;
    QTest::newRow("civil") << Which::Civil << u"S e a r c h i n g .."_s;
    QTest::newRow("non-civil") << Which::NonCivil << u"Searching .."_s;
}

void tst_ResultsWindows::workingCaption()
{
    QFETCH(Which, which);
    court->Expect(LineOf(which)).Reply({});
    NameResultsWindow *window = Begin(MakeWindow(which), {LineOf(which)});
    QString shown;
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   shown = TextOf(window, "lblStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QTEST(shown, "caption");
}

void tst_ResultsWindows::lostConnectionLog_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("log");
    const QString scomis =
        u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s;
    QTest::newRow("name search")
        << Which::Name << u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
    QTest::newRow("civil") << Which::Civil << scomis;
    QTest::newRow("non-civil") << Which::NonCivil << scomis;
}

void tst_ResultsWindows::lostConnectionLog()
{
    QFETCH(Which, which);
    FakeSocket *socket = desk->ConnectToNothing();
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {LineOf(which)});
    window->Timer1->start(1);
    desk->When([&] { return socket->sent.size() == 1; }, [&] { socket->PeerCloses(); });
    QVERIFY(desk->Finish(window));
    QFETCH(QString, log);
    QCOMPARE(desk->Folder.TimesLogged(log), 1);
    QCOMPARE(desk->Folder.Log().filter(u"CONNECTION LOST"_s).size(), 1);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    QVERIFY(window->SearchIncomplete);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_ResultsWindows::theEndMark_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("mark");
    QTest::newRow("name search, at the end") << Which::Name << u"King~EOF~"_s;
    QTest::newRow("civil, at the beginning") << Which::Civil << u"EOF~King~"_s;
    QTest::newRow("civil, any case") << Which::Civil << u"eof~"_s;
    QTest::newRow("non-civil, at the beginning") << Which::NonCivil << u"EOF~King~"_s;
}

void tst_ResultsWindows::theEndMark()
{
    QFETCH(Which, which);
    QFETCH(QString, mark);
    court->Expect(LineOf(which)).Reply({RowOf(which), mark});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    QCOMPARE(TextOf(window, "lblSearchStatus"), complete);
    QCOMPARE(window->RowCount(), 1);
}

void tst_ResultsWindows::errorRule_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("status");
    const QString incomplete = u"Search Incomplete!"_s;
    const QString tooMany = u"ERROR~too many hits~"_s;
    QTest::newRow("name search, too many")
        << Which::Name << tooMany << u"Search Complete: 0 Cases Retrieved."_s;
    QTest::newRow("civil, too many") << Which::Civil << tooMany << incomplete;
    QTest::newRow("non-civil, too many") << Which::NonCivil << tooMany << incomplete;
    for (const Which which : {Which::Name, Which::Civil, Which::NonCivil}) {
        QTest::newRow(qPrintable(u"any other "_s + QString::number(static_cast<int>(which))))
            << which << u"ERROR~Court is down~"_s << incomplete;
    }
}

void tst_ResultsWindows::errorRule()
{
    QFETCH(Which, which);
    QFETCH(QString, error);
    court->Expect(LineOf(which)).Reply({error, u"EOF~"_s});
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    QTEST(TextOf(window, "lblStatus"), "status");
    QCOMPARE(window->SearchIncomplete, TextOf(window, "lblStatus") == u"Search Incomplete!");
    QCOMPARE(desk->Folder.Logged(u"Error Response Received in Task Processor.."_s),
             window->SearchIncomplete);
}

void tst_ResultsWindows::progressRule_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("shown");
    const QString reply = u"Searching~Benton~"_s;
    QTest::newRow("name search") << Which::Name << reply << u"Searching Benton "_s;
    QTest::newRow("civil") << Which::Civil << reply << reply;
    QTest::newRow("non-civil") << Which::NonCivil << reply << reply;
    QTest::newRow("civil, nine characters") << Which::Civil << u"SEARCHING"_s << inProgress;
}

void tst_ResultsWindows::progressRule()
{
    QFETCH(Which, which);
    QFETCH(QString, reply);
    court->Expect(LineOf(which)).Reply({reply, RowOf(which)});
    NameResultsWindow *window = Begin(MakeWindow(which), {LineOf(which)});
    QString shown;
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   shown = TextOf(window, "lblSearchStatus");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QTEST(shown, "shown");
}

void tst_ResultsWindows::logOfTheReplies_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<QStringList>("log");
    const auto log = [](Which which, const QString &number, bool counts) {
        QStringList lines{
            u"SendReq: "_s + LineOf(which),
            u"Current Response: --> "_s + number + RowOf(which),
            u"Sent response to caller: "_s + RowOf(which),
            u"Current Response: --> "_s + number + u"EOF~"_s,
            u"All Responses Received For Request: "_s + LineOf(which),
            u"NORMAL EXIT - from ProcessSearchReqeusts."_s,
        };
        if (counts)
            lines.prepend(u"Items In this Queue: 1"_s);
        return lines;
    };
    QTest::newRow("name search") << Which::Name << log(Which::Name, {}, false);
    QTest::newRow("civil") << Which::Civil << log(Which::Civil, u"0 "_s, true);
    QTest::newRow("non-civil") << Which::NonCivil << log(Which::NonCivil, u"0 "_s, true);
}

void tst_ResultsWindows::logOfTheReplies()
{
    QFETCH(Which, which);
    court->Expect(LineOf(which)).Reply({RowOf(which), u"EOF~"_s});
    desk->ConnectTo(*court);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {LineOf(which)});
    const qsizetype before = desk->Folder.Log().size();
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QTEST(desk->Folder.Log().mid(before), "log");
}

void tst_ResultsWindows::theUserIsHeardAfterEachReply()
{
    QFETCH(Which, which);
    constexpr int rows = 20;
    FakeSocket *socket = desk->ConnectToNothing();
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {LineOf(which)});
    window->Timer1->start(1);
    QSet<int> heardAt;
    const auto end = qScopeGuard([] { WatchYields({}); });
    desk->When([socket] { return socket->sent.size() == 1 && !Global.bSendBusy; },
               [&, socket, window] {
                   WatchYields([&heardAt, window] { heardAt.insert(window->RowCount()); });
                   // All at once: nothing has to be waited for.
                   socket->Arrive(
                       ScriptedCourt::Tokens(QStringList(rows, RowOf(which)) << u"EOF~"_s));
               });
    QVERIFY(desk->Finish(window));
    for (int row = 1; row <= rows; ++row)
        QVERIFY2(heardAt.contains(row), qPrintable(QString::number(row)));
}

void tst_ResultsWindows::betweenTwoLinesTheCountIsThatOfTheLinesBefore()
{
    QFETCH(Which, which);
    const QString line = LineOf(which);
    court->Expect(line).Reply({RowOf(which), RowOf(which), u"EOF~"_s});
    court->Expect(line).Reply({RowOf(which), u"EOF~"_s});
    court->Expect(line).Reply({});
    NameResultsWindow *window = Begin(MakeWindow(which), {line, line, line});
    QString between;
    desk->When([&] { return court->Requests().size() == 3; },
               [&] {
                   between = TextOf(window, "Label3");
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    // It does not know yet of the line that has just ended.
    const QString label = which == Which::Name ? u"Retrieved: "_s : u"Cases Found: "_s;
    QCOMPARE(between, QString(label + u'2'));
}

void tst_ResultsWindows::anEmptyTokenBetweenRowsIsNoRow_data()
{
    QTest::addColumn<Which>("which");
    QTest::addColumn<bool>("index");
    QTest::newRow("name search") << Which::Name << false;
    QTest::newRow("index") << Which::Name << true;
    QTest::newRow("civil") << Which::Civil << false;
    QTest::newRow("non-civil") << Which::NonCivil << false;
}

void tst_ResultsWindows::anEmptyTokenBetweenRowsIsNoRow()
{
    QFETCH(Which, which);
    QFETCH(bool, index);
    const QString line =
        index ? u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,~~~LL=1~UL=500~"_s : LineOf(which);
    const QByteArray row =
        (index ? u"SMITH~02-2~01/02/2002~Civil~King~Role~A title~01/03/2002~"_s : RowOf(which))
            .toLatin1();
    court->Expect(line).ReplyBytes("||" + ('|' + row) + "|||||" + ('|' + row) + "|||EOF~|");
    desk->ConnectTo(*court);
    NameResultsWindow *window = index ? new frmNameSearchResults(u"WA"_s, true) : MakeWindow(which);
    desk->Enqueue(window, {line});
    window->Timer1->start(1);
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->RowCount(), 2);
    QVERIFY(TextOf(window, "lblStatus").contains(u"Complete"));
    QVERIFY(!window->SearchIncomplete);
}

void tst_ResultsWindows::closeRules()
{
    QFETCH(Which, which);
    court->Expect(LineOf(which)).Reply({});
    desk->ConnectTo(*court);
    Global.bShowAlerts = true;
    const QPointer<NameResultsWindow> window(MakeWindow(which));
    desk->Enqueue(window.data(), {LineOf(which)});
    desk->Boxes.Expect(u"This form cannot be closed until the current search completes."_s,
                       u"Stop Current Search .."_s);
    window->Timer1->start(1);
    desk->When([&] { return court->Requests().size() == 1; },
               [&] {
                   window->close();
                   court->SendTokens({u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QVERIFY(window->isVisible());
    const QString question = u"Are you sure you want to close this form?\r\n\r\nAny data that has "
                             "not been printed or saved will be lost!"_s;
    desk->Boxes.Expect(question, u"Close Search Form .."_s, MsgAnswer::No);
    window->close();
    QVERIFY(window->isVisible());
    window->lbl911 = u"T"_s;
    window->close();
    QVERIFY(desk->Folder.Logged(u"Unconditional Form Close Called. Closing Name Search form."_s));
    QTRY_VERIFY(window.isNull());
}

void tst_ResultsWindows::helpIsWanted_data()
{
    QTest::addColumn<Which>("which");
    QTest::newRow("name search") << Which::Name;
    QTest::newRow("civil") << Which::Civil;
}

void tst_ResultsWindows::helpIsWanted()
{
    QFETCH(Which, which);
    NameResultsWindow *window = MakeWindow(which);
    desk->Enqueue(window, {LineOf(which)});
    const QSignalSpy wanted(&SessionEvents::Of(), &SessionEvents::ResultsHelpWanted);
    QTest::mouseClick(ButtonOf(window, "lblHelp"), Qt::LeftButton);
    QCOMPARE(wanted.size(), 1);
}

void tst_ResultsWindows::windowsOfDifferentKindsRunInTheOrderOfTheQueue()
{
    court->Expect(DistrictLine(u"BED"_s)).Reply({CaseRow(u"A"_s), u"EOF~"_s});
    court->Expect(RequestLine()).Reply({ResultLine(u"B"_s), u"EOF~"_s});
    court->Expect(DistrictLine(u"OTD"_s, u"IN"_s)).Reply({CaseRow(u"C"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    auto *civil = new frmDiscisNameResults;
    desk->Enqueue(civil, {DistrictLine(u"BED"_s)});
    frmNameSearchResults *superior = desk->MakePending({RequestLine()});
    auto *nonCivil = new frmDiscisNCNameResults;
    desk->Enqueue(nonCivil, {DistrictLine(u"OTD"_s, u"IN"_s)});
    // The last asks first.
    nonCivil->Timer1->start(1);
    superior->Timer1->start(1);
    civil->Timer1->start(5);
    QVERIFY(desk->Finish(nonCivil));
    QCOMPARE(TextOf(civil, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(superior, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(TextOf(nonCivil, "lblStatus"), u"Search Complete:    1 Case Retrieved."_s);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

HALVANE_TEST(tst_ResultsWindows)
#include "tst_ResultsWindows.moc"
