#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/SearchDesk.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"

#include <QPushButton>
#include <QTest>

namespace {
const QString lost = u"Search Stopped - Court Connection Lost!"_s;
const QString complete = u"Search Complete: %1 Cases Retrieved."_s;

QByteArray endMark()
{
    return "|EOF~|";
}

QByteArray allBytesButBars()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '|' && byte != '~')
            bytes.append(static_cast<char>(byte));
    }
    return bytes;
}
} // namespace

class tst_Nonsense : public SearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void reply_data();
    void reply();
    void anEndlessTokenIsRefused();
    void aReplyWithoutAClosingBarEndsWithTheLink();
    void aFloodOfRows();
    void aPingInsideAReplyLosesIt();
    void bytesBeforeTheRequestAreForgotten();

private:
    /// The window is as after any search, and the next search over a new connection works.
    void searchAgain(const frmNameSearchResults *window);
};

void tst_Nonsense::searchAgain(const frmNameSearchResults *window)
{
    QVERIFY(window->isVisible());
    QVERIFY(ButtonOf(window, "cmdSearchResults_2")->isEnabled());
    QVERIFY(!ButtonOf(window, "cmdStopSearching")->isEnabled());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
    CloseServerLink();
    court->Expect(RequestLine()).Reply({ResultLine(u"AGAIN"_s), u"EOF~"_s});
    desk->ConnectTo(*court);
    const frmNameSearchResults *again = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(again));
    QCOMPARE(TextOf(again, "lblStatus"), complete.arg(1));
}

void tst_Nonsense::reply_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("status");
    QTest::addColumn<int>("rows");
    const QByteArray nuls(1000, '\0');
    QByteArray fields("|");
    for (int i = 0; i < 1000; ++i)
        fields += QByteArray::number(i).append('~');
    QTest::newRow("NULs in a token")
        << QByteArray("|").append(nuls).append("|").append(endMark()) << complete.arg(1) << 1;
    QTest::newRow("NULs between tokens")
        << QByteArray(nuls).append(endMark()) << complete.arg(0) << 0;
    QTest::newRow("a row of NULs and tildes")
        << QByteArray("|\0~\0~\0~\0~\0~\0~|", 14).append(endMark()) << complete.arg(1) << 1;
    QTest::newRow("1,000 fields") << fields.append("|").append(endMark()) << complete.arg(1) << 1;
    QTest::newRow("bars only") << QByteArray(100'001, '|').append("EOF~|") << complete.arg(0) << 0;
    QTest::newRow("every byte in a cell")
        << QByteArray("|A~").append(allBytesButBars()).append("~C~D~E~F~|").append(endMark())
        << complete.arg(1) << 1;
    QTest::newRow("every byte as a row, one delimiter")
        << QByteArray("|").append(allBytesButBars()).append("|").append(endMark()) << lost << 1;
    QTest::newRow("another protocol")
        << QByteArray("HTTP/1.1 400 Bad Request\r\nServer: x\r\n\r\n").append(endMark())
        << complete.arg(0) << 0;
    QTest::newRow("a megabyte in one cell") << QByteArray("|A~B~C~D~E~")
                                                   .append(QByteArray(1'000'000, 'x'))
                                                   .append("~|")
                                                   .append(endMark())
                                            << complete.arg(1) << 1;
    QTest::newRow("HTML in every cell")
        << QByteArray("|<h1>A</h1>~<img src=x>~<b>~&amp;~<a href=x>~<script>~|").append(endMark())
        << complete.arg(1) << 1;
    QTest::newRow("format marks") << QByteArray("|%1~%n~%c~%s~%2~%L1~|").append(endMark())
                                  << complete.arg(1) << 1;
    QTest::newRow("end mark at once") << endMark() << complete.arg(0) << 0;
    QTest::newRow("end mark twice") << endMark().append(endMark()) << complete.arg(0) << 0;
    QTest::newRow("blanks") << QByteArray("|     |").append(endMark()) << lost << 0;
}

void tst_Nonsense::reply()
{
    QFETCH(QByteArray, bytes);
    court->Expect(RequestLine()).ReplyBytes(bytes);
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QTEST(TextOf(window, "lblStatus"), "status");
    QTEST(window->RowCount(), "rows");
    QTEST(static_cast<int>(RowsOf(window).size()), "rows");
    searchAgain(window);
}

void tst_Nonsense::anEndlessTokenIsRefused()
{
    court->Expect(RequestLine())
        .ReplyBytes(QByteArray("|").append(QByteArray(64 * 1024 * 1024, 'A')));
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    qsizetype largest = 0;
    desk->When(
        [&] {
            largest = qMax(largest, Global.strRecvBuffer.Size());
            return !Global.sckServer || Global.sckServer->State() != SocketState::Connected;
        },
        [] {});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), lost);
    QVERIFY(desk->Folder.Logged(u"Refused a token of more than 33554432 bytes. Closing the "
                                "connection."_s));
    QVERIFY(largest <= maximumBacklogBytes + 1024 * 1024);
    QVERIFY(Global.strRecvBuffer.IsEmpty());
    searchAgain(window);
}

void tst_Nonsense::aReplyWithoutAClosingBarEndsWithTheLink()
{
    court->Expect(RequestLine()).ReplyBytes("|SMITH, JOHN~02-2-02029-9~01/02/2002");
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    const QDateTime start = desk->Time.Now();
    desk->When([] { return !Global.strRecvBuffer.IsEmpty(); }, [this] { desk->Time.Run(10.0); });
    // The part of a token holds the wait beyond every limit.
    desk->When([&] { return start.secsTo(desk->Time.Now()) > 1000; },
               [this] { court->DropClient(); });
    QVERIFY(desk->Finish(window));
    desk->Time.Stop();
    QCOMPARE(TextOf(window, "lblStatus"), lost);
    QCOMPARE(window->RowCount(), 0);
    searchAgain(window);
}

void tst_Nonsense::aFloodOfRows()
{
    QByteArray bytes;
    const QByteArray row = ScriptedCourt::Tokens({ResultLine(u"A"_s)});
    for (int i = 0; i < 3000; ++i)
        bytes.append(row);
    court->Expect(RequestLine()).ReplyBytes(bytes.append(endMark()));
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), complete.arg(3000));
    searchAgain(window);
}

void tst_Nonsense::aPingInsideAReplyLosesIt()
{
    court->Expect(RequestLine()).ReplyBytes("|DIAG001|");
    desk->ConnectTo(*court);
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    desk->When([this] { return court->Requests().contains(u"IMALIVE¦"_s); },
               [this] {
                   court->SendTokens({ResultLine(u"A"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), complete.arg(1));
    QVERIFY(desk->Folder.Logged(u"Replied to Ping Request from Halvane Server.."_s));
    searchAgain(window);
}

void tst_Nonsense::bytesBeforeTheRequestAreForgotten()
{
    court->Expect(RequestLine()).Reply({u"EOF~"_s});
    desk->ConnectTo(*court);
    court->Send("|ERROR~x~||A~B~C~D~E~F~||SMITH");
    QTRY_VERIFY(!Global.strRecvBuffer.IsEmpty());
    const frmNameSearchResults *window = desk->Start({RequestLine()});
    QVERIFY(desk->Finish(window));
    QCOMPARE(TextOf(window, "lblStatus"), complete.arg(0));
    searchAgain(window);
}

HALVANE_TEST(tst_Nonsense)
#include "tst_Nonsense.moc"
