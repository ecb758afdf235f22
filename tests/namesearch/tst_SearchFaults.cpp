#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QString lost = u"Search Stopped - Court Connection Lost!"_s;

/// A reply with everything in it that a search knows.
QByteArray reply()
{
    return ScriptedCourt::Tokens({u"Searching~King~"_s, ResultLine(u"A"_s), u"ERROR~x~"_s,
                                  u"A~B~C~D~E~THEREOF~"_s, u"EOF~"_s});
}

/// Whether the first so many bytes of the reply end where a token ends.
bool endsBetweenTokens(qsizetype bytes)
{
    return reply().left(bytes).count('|') % 2 == 0;
}

/// A window after its search: what can be clicked, and that it does not blink or ask for a turn.
bool isUsable(const frmNameSearchResults *window)
{
    return ButtonOf(window, "cmdSearchResults_2")->isEnabled()
           && !ButtonOf(window, "cmdStopSearching")->isEnabled() && !window->Timer1->isActive()
           && !window->tmrBlink->isActive() && window->isEnabled() && window->SearchIncomplete
           && frmQueue::Form().FIFO.ListCount() == 0 && !Global.bSearchInProgress;
}
} // namespace

class tst_SearchFaults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void droppedAtEveryByte();
    void silentAtEveryByte();
    void droppedForRealAndSearchedAgain_data();
    void droppedForRealAndSearchedAgain();
    void oneByteATime();
    void everyTwoWaySplit();
    void closedAtEveryEventOfARun();

private:
    /// The next search, over a new connection.
    void searchAgain();

    std::unique_ptr<SearchDesk> desk;
};

void tst_SearchFaults::init()
{
    desk = std::make_unique<SearchDesk>();
}

void tst_SearchFaults::cleanup()
{
    QCOMPARE(EndDialogue(desk), QString());
}

void tst_SearchFaults::searchAgain()
{
    CloseServerLink();
    FakeSocket *socket = desk->ConnectToNothing();
    const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
    desk->When([socket] { return socket->sent.size() == 1; },
               [socket] {
                   socket->Arrive(ScriptedCourt::Tokens({ResultLine(u"AGAIN"_s), u"EOF~"_s}));
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Complete: 1 Cases Retrieved."_s);
    QCOMPARE(RowsOf(window)[0][0], u"AGAIN"_s);
    delete window;
}

void tst_SearchFaults::droppedAtEveryByte()
{
    for (qsizetype bytes = 0; bytes < reply().size(); ++bytes) {
        CloseServerLink();
        const QPointer<FakeSocket> socket(desk->ConnectToNothing());
        const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
        desk->When([&] { return socket->sent.size() == 1; },
                   [&] {
                       socket->Arrive(reply().left(bytes));
                       socket->PeerClosesBehindTokens();
                   });
        QVERIFY(desk->Finish(window));
        QVERIFY2(TextOf(window, "lblStatus") == lost && isUsable(window),
                 qPrintable(QString::number(bytes)));
        QVERIFY(Global.bConnectionClosed);
        delete window;
        searchAgain();
    }
}

void tst_SearchFaults::silentAtEveryByte()
{
    for (qsizetype bytes = 0; bytes < reply().size(); ++bytes) {
        CloseServerLink();
        desk->Time.Set(QDateTime({2026, 3, 10}, {10, 0, 0}));
        const QPointer<FakeSocket> socket(desk->ConnectToNothing());
        const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
        const QDateTime start = desk->Time.Now();
        desk->When([&] { return socket->sent.size() == 1; },
                   [&] {
                       socket->Arrive(reply().left(bytes));
                       desk->Time.Run(10.0);
                   });
        // A token that has come in part holds the wait until the rest comes or the link goes.
        if (!endsBetweenTokens(bytes))
            desk->When([&] { return start.secsTo(desk->Time.Now()) > 130; },
                       [&] { socket->PeerCloses(); });
        QVERIFY(desk->Finish(window));
        desk->Time.Stop();
        const qint64 waited = start.secsTo(desk->Time.Now());
        QVERIFY2(TextOf(window, "lblStatus") == lost && isUsable(window),
                 qPrintable(QString::number(bytes)));
        QVERIFY2(endsBetweenTokens(bytes) ? waited >= 60 && waited < 130 : waited > 130,
                 qPrintable(QString::number(bytes)));
        delete window;
        if (endsBetweenTokens(bytes))
            searchAgain();
    }
}

void tst_SearchFaults::droppedForRealAndSearchedAgain_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("at once") << 0;
    QTest::newRow("in the first token") << 8;
    QTest::newRow("in a row") << 30;
    QTest::newRow("before the end mark") << static_cast<int>(reply().size()) - 6;
    QTest::newRow("before the last bar") << static_cast<int>(reply().size()) - 1;
}

void tst_SearchFaults::droppedForRealAndSearchedAgain()
{
    QFETCH(int, bytes);
    ScriptedCourt court;
    court.Expect(RequestLine()).ReplyBytes(reply().left(bytes)).Drop();
    court.Expect(RequestLine()).ReplyBytes(reply());
    desk->ConnectTo(court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), lost);
    QVERIFY(isUsable(window));
    CloseServerLink();
    desk->ConnectTo(court);
    frmNameSearchResults *again = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(again));
    QCOMPARE(TextOf(again, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(again->RowCount(), 2);
    QCOMPARE(court.Complaints(), QString());
}

void tst_SearchFaults::oneByteATime()
{
    FakeSocket *socket = desk->ConnectToNothing();
    frmNameSearchResults *window = desk->Start({RequestLine()});
    QByteArrayList pieces;
    const QByteArray bytes = reply();
    for (const char byte : bytes)
        pieces.append(QByteArray(1, byte));
    desk->When([&] { return socket->sent.size() == 1; }, [&] { socket->ArriveLater(pieces); });
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QCOMPARE(window->RowCount(), 2);
}

void tst_SearchFaults::everyTwoWaySplit()
{
    FakeSocket *socket = desk->ConnectToNothing();
    for (qsizetype split = 1; split < reply().size(); ++split) {
        const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
        desk->When([&] { return socket->sent.size() == split; },
                   [&] {
                       socket->ArriveLater({reply().left(split), reply().mid(split)});
                   });
        QVERIFY(desk->Finish(window));
        QVERIFY2(TextOf(window, "lblStatus") == u"Search Incomplete!" && window->RowCount() == 2,
                 qPrintable(QString::number(split)));
        delete window;
    }
}

void tst_SearchFaults::closedAtEveryEventOfARun()
{
    // The window goes unconditionally after each byte of the reply in turn.
    for (qsizetype bytes = 0; bytes < reply().size(); ++bytes) {
        CloseServerLink();
        FakeSocket *socket = desk->ConnectToNothing();
        const QPointer<frmNameSearchResults> window(desk->Start({RequestLine()}));
        desk->When([&] { return socket->sent.size() == 1; },
                   [&] {
                       socket->Arrive(reply().left(bytes));
                       window->lbl911 = u"T"_s;
                       window->close();
                       socket->ArriveLater({reply().mid(bytes)});
                   });
        QTRY_VERIFY_WITH_TIMEOUT(window.isNull(), 5000);
        QVERIFY(!Global.bSearchInProgress);
        QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    }
}

HALVANE_TEST(tst_SearchFaults)
#include "tst_SearchFaults.moc"
