#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>

#include <array>

// A reply that is cut or divided anywhere, in the windows and flows beside that of the Superior
// Courts, and what can be done in them over the next session.

namespace {
const QString courtLost = u"SEARCH FAILED - COURT CONNECTION LOST - from ProcessSearchReqeusts."_s;
const QString scomisLost =
    u"SEARCH FAILED - SCOMIS CONNECTION LOST - from ProcessSearchReqeusts."_s;

enum class Flow { Bankruptcy, Index, Civil, NonCivil };
constexpr std::array<const char *, 4> flowNames{"bankruptcy", "index", "civil", "non-civil"};

NameResultsWindow *makeWindow(Flow flow)
{
    switch (flow) {
    case Flow::Bankruptcy:
        return new frmNameSearchResults(u"WAWBK"_s);
    case Flow::Index:
        return new frmNameSearchResults(u"WA"_s, true);
    case Flow::Civil:
        return MakeWindow(Which::Civil);
    case Flow::NonCivil:
        break;
    }
    return MakeWindow(Which::NonCivil);
}

QString lineOf(Flow flow)
{
    return flow == Flow::Index      ? IndexLine()
           : flow == Flow::NonCivil ? StatewideLine()
                                    : DistrictLine();
}

/// All that can stand in a reply of this flow.
QStringList tokensOf(Flow flow)
{
    switch (flow) {
    case Flow::Bankruptcy:
        return {u"Searching~Seattle~"_s, u"A~05-1~RETRIEVECOMMAND=B~1~2~3~4~5~"_s,
                u"B~05-2~RETRIEVECOMMAND=B~1~2~3~4~5~"_s, u"EOF~"_s};
    case Flow::Index:
        return {u"SEARCHING~King~"_s, IndexRow(u"A"_s), u"ERROR~Down~"_s, LimitRow(500, 700)};
    case Flow::Civil:
        return {u"Searching~Benton~"_s, CaseRow(u"A"_s), CaseRow(u"EOF~B"_s).mid(4), u"EOF~"_s};
    case Flow::NonCivil:
        break;
    }
    return {CaseRow(u"A"_s), PersonRow(u"B"_s), AddressRow(u"C"_s, u"K1"_s), u"EOF~"_s};
}

/// What the user sees of a search that is over.
QString shownIn(const NameResultsWindow *window)
{
    QString shown = TextOf(window, "lblStatus") + u'/' + TextOf(window, "lblSearchStatus") + u'/'
                    + TextOf(window, "Label3");
    for (const char *list : {"listview1", "lvDupe"}) {
        if (!ListOf(window, list))
            continue;
        for (const QStringList &row : RowsOf(window, list))
            shown += u'\n' + row.join(u'~');
    }
    return shown;
}
} // namespace

Q_DECLARE_METATYPE(Flow)

class tst_FaultsEachWindow : public DupesTest
{
    Q_OBJECT
private Q_SLOTS:
    void droppedAtEveryByte_data() { eachFlow(); }
    void droppedAtEveryByte();
    void everyTwoWaySplit_data() { eachFlow(); }
    void everyTwoWaySplit();
    void oneByteATime_data() { eachFlow(); }
    void oneByteATime();
    void theNextPageComesOverANewSession();
    void namesAreRetrievedOverANewSession();
    void aCaseIsOpenedOverANewSession_data() { EachResultsWindow(); }
    void aCaseIsOpenedOverANewSession();

private:
    static void eachFlow();
    /// A search whose reply comes in these pieces; behind the last, the connection may break.
    QPointer<NameResultsWindow> searchWith(Flow flow, const QByteArrayList &pieces, bool drops);
};

void tst_FaultsEachWindow::eachFlow()
{
    QTest::addColumn<Flow>("flow");
    for (size_t i = 0; i < flowNames.size(); ++i)
        QTest::newRow(flowNames.at(i)) << static_cast<Flow>(i);
}

QPointer<NameResultsWindow>
tst_FaultsEachWindow::searchWith(Flow flow, const QByteArrayList &pieces, bool drops)
{
    CloseServerLink();
    const QPointer<FakeSocket> socket(desk->ConnectToNothing());
    const QPointer<NameResultsWindow> window(makeWindow(flow));
    desk->Enqueue(window.data(), {lineOf(flow)});
    window->Timer1->start(0);
    desk->When([socket] { return socket->sent.size() == 1; },
               [socket, pieces, drops] {
                   if (!drops) {
                       socket->ArriveLater(pieces);
                       return;
                   }
                   socket->Arrive(pieces.join());
                   socket->PeerClosesBehindTokens();
               });
    if (!desk->Finish(window))
        qWarning("the search does not end");
    return window;
}

void tst_FaultsEachWindow::droppedAtEveryByte()
{
    QFETCH(Flow, flow);
    const QByteArray reply = ScriptedCourt::Tokens(tokensOf(flow));
    const bool district = flow == Flow::Civil || flow == Flow::NonCivil;
    for (qsizetype bytes = 0; bytes < reply.size(); ++bytes) {
        desk->Folder.Remove(u"AppInfo.txt"_s);
        const auto window = searchWith(flow, {reply.left(bytes)}, true);
        const QByteArray where = QByteArray::number(bytes);
        QVERIFY2(TextOf(window, "lblStatus") == u"Search Stopped - Court Connection Lost!", where);
        QVERIFY2(desk->Folder.TimesLogged(district ? scomisLost : courtLost) == 1, where);
        QVERIFY2(window->SearchIncomplete && !Global.bSearchInProgress, where);
        QVERIFY2(!ButtonOf(window, "cmdStopSearching")->isEnabled(), where);
        QVERIFY2(frmQueue::Form().FIFO.ListCount() == 0, where);
        delete window;
    }
}

void tst_FaultsEachWindow::everyTwoWaySplit()
{
    QFETCH(Flow, flow);
    const QByteArray reply = ScriptedCourt::Tokens(tokensOf(flow));
    const auto whole = searchWith(flow, {reply}, false);
    const QString meant = shownIn(whole);
    QVERIFY2(meant.contains(u"Complete") || meant.contains(u"Error - "), qPrintable(meant));
    delete whole;
    for (qsizetype split = 1; split < reply.size(); ++split) {
        const auto window = searchWith(flow, {reply.left(split), reply.mid(split)}, false);
        QCOMPARE(shownIn(window), meant);
        delete window;
    }
}

void tst_FaultsEachWindow::oneByteATime()
{
    QFETCH(Flow, flow);
    const QByteArray reply = ScriptedCourt::Tokens(tokensOf(flow));
    const auto whole = searchWith(flow, {reply}, false);
    QByteArrayList pieces;
    for (const char byte : reply)
        pieces.append(QByteArray(1, byte));
    const auto window = searchWith(flow, pieces, false);
    QCOMPARE(shownIn(window), shownIn(whole));
    delete whole;
    delete window;
}

void tst_FaultsEachWindow::theNextPageComesOverANewSession()
{
    court->Expect(IndexLine()).Reply({IndexRow(u"A"_s), LimitRow(500, 700)});
    court->Expect(IndexLine(501, 1000)).Reply({IndexRow(u"B"_s), u"EOF~"_s});
    auto *window = Search(new frmNameSearchResults(u"WA"_s, true), {IndexLine()});
    CloseServerLink();
    desk->ConnectTo(*court);
    ButtonOf(window, "cmdSearchResults_4")->click();
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 2 Cases Retrieved."_s);
    QVERIFY(ButtonOf(window, "cmdSearchResults_6")->isVisible());
}

void tst_FaultsEachWindow::namesAreRetrievedOverANewSession()
{
    frmDiscisNCNameResults *window = Searched({PersonRow(u"A"_s), PersonRow(u"B"_s), u"EOF~"_s});
    court->Expect(CasesLine(u"A"_s, 1)).Reply({CaseRow(u"SMITH, A"_s)}).Drop();
    CheckRow(window, 0);
    Retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    CloseServerLink();
    desk->ConnectTo(*court);
    // The case that had come is in front.
    ButtonOf(window, "cmdViewDupes")->click();
    const QString name = TextOf(window, "lblNameVal");
    court->Expect(CasesLine(u"A"_s, 1, name)).Reply({CaseRow(u"SMITH, A"_s), u"EOF~"_s});
    Retrieve(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete:    2 Cases Retrieved."_s);
    QCOMPARE(ColourOf(window, "lblStatus"), u"blue"_s);
    QCOMPARE(ColourOf(window, "lblSearchStatus"), u"blue"_s);
    QVERIFY(!window->SearchIncomplete);
    QCOMPARE(NamesOf(window)[0][0], u">>SMITH, A"_s);
    QCOMPARE(NamesOf(window)[1][0], u"SMITH, B"_s);
}

void tst_FaultsEachWindow::aCaseIsOpenedOverANewSession()
{
    QFETCH(Which, which);
    LoadDiscisCourts();
    court->Expect(LineOf(which)).Reply({RowOf(which)}).Drop();
    NameResultsWindow *window = Search(MakeWindow(which), {LineOf(which)});
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Stopped - Court Connection Lost!"_s);
    CloseServerLink();
    desk->ConnectTo(*court);
    window->OpenCaseFromRow(0);
    QVERIFY(ListOf(window)->List()->Cell(0, 1).startsWith(u">>"));
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

HALVANE_TEST(tst_FaultsEachWindow)
#include "tst_FaultsEachWindow.moc"
