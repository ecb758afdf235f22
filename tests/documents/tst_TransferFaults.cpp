// A document whose link is closed, reset or falls silent at every byte of its head and its end
// mark, and at a hundred places of its body; and one that comes in pieces of any size.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmDocTransfer.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QTest>
#include <QTimer>

namespace {
enum class Fault { Closed, Reset, Silent };

const QDateTime aMorning({2026, 3, 10}, {10, 0, 0});
constexpr qsizetype sentBytes = 20'000;
constexpr qsizetype places = 100;

const QByteArray &reply()
{
    static const QByteArray whole = DocumentReply(DocumentBody(sentBytes));
    return whole;
}

/// Every byte of head and end mark, and a hundred places of the body.
QList<qsizetype> cuts()
{
    QList<qsizetype> all;
    const qsizetype head = DocumentHead(sentBytes).size();
    for (qsizetype at = 0; at <= head; ++at)
        all.append(at);
    for (qsizetype place = 1; place <= places; ++place)
        all.append(head + place * sentBytes / (places + 1));
    for (qsizetype at = head + sentBytes; at < reply().size(); ++at)
        all.append(at);
    return all;
}

void breakLink(FakeSocket *socket, Fault fault)
{
    if (fault == Fault::Closed) {
        socket->PeerCloses();
        return;
    }
    socket->state = SocketState::Closed;
    Q_EMIT socket->Error(1, u"Connection reset by peer"_s);
    Q_EMIT socket->Closed();
}
} // namespace

Q_DECLARE_METATYPE(Fault)

class tst_TransferFaults : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void theLinkFailsAnywhere_data();
    void theLinkFailsAnywhere();
    void piecesOfAnySize_data();
    void piecesOfAnySize();
    void everyCutOfTheBody();
    void aHeadThatIsCut();
    void anEndMarkThatIsCut();

private:
    /// A transfer over a new connection without a network, to its end. Once the request has gone
    /// out, this happens.
    void transfer(const std::function<void(FakeSocket *)> &atRequest);
    void nextComes();
    QString onlyFile() const { return DocumentFileName() + u".PDF"_s; }
};

void tst_TransferFaults::transfer(const std::function<void(FakeSocket *)> &atRequest)
{
    CloseServerLink();
    desk->Time.Set(aMorning);
    const QPointer<FakeSocket> socket(DocumentDesk::ConnectToNothing());
    desk->When([socket] { return socket && !socket->sent.isEmpty() && !Global.bSendBusy; },
               [socket, atRequest] { atRequest(socket); });
    window = DocumentDesk::Pending();
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    desk->Time.Stop();
    QVERIFY(window.isNull());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    QVERIFY(!Global.bSearchInProgress);
}

void tst_TransferFaults::nextComes()
{
    transfer([](FakeSocket *socket) { socket->Arrive(reply()); });
    QCOMPARE(desk->Documents(), QStringList{onlyFile()});
    QVERIFY(desk->Document(onlyFile()) == DocumentBody(sentBytes));
    desk->Folder.Remove(u"Reports/"_s + onlyFile());
}

void tst_TransferFaults::theLinkFailsAnywhere_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("closed by the server") << Fault::Closed;
    QTest::newRow("reset") << Fault::Reset;
    QTest::newRow("silent") << Fault::Silent;
}

void tst_TransferFaults::theLinkFailsAnywhere()
{
    QFETCH(Fault, fault);
    const QString line =
        fault == Fault::Silent
            ? u"Timed Out waiting for response from Document Server. In ReadDocument()"_s
            : u"Connection to Servers was dropped!. Document Download is Incomplete!"_s;
    const QList<qsizetype> all = cuts();
    for (const qsizetype at : all) {
        desk->Folder.Remove(u"AppInfo.txt"_s);
        ExpectFailureBox();
        transfer([&](FakeSocket *socket) {
            if (at > 0)
                socket->Arrive(reply().left(at));
            if (fault == Fault::Silent)
                desk->Time.Run(5.0);
            else
                QTimer::singleShot(1, socket, [socket, fault] { breakLink(socket, fault); });
        });
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(QString::number(at)));
        QCOMPARE(desk->Documents(), QStringList());
        QCOMPARE(desk->Opened, QStringList());
        QCOMPARE(desk->Folder.TimesLogged(line), 1);
        QCOMPARE(desk->Time.Sleeps(), QList<int>());
        // Each would only cost time: every tenth shows it.
        if (at % 10 == 0)
            nextComes();
        desk->Opened.clear();
    }
}

void tst_TransferFaults::piecesOfAnySize_data()
{
    QTest::addColumn<qsizetype>("size");
    for (const qsizetype size : {1, 7, 100, 1460, 4096, 65'536})
        QTest::addRow("%lld", static_cast<long long>(size)) << size;
}

void tst_TransferFaults::piecesOfAnySize()
{
    QFETCH(qsizetype, size);
    const QByteArray body = DocumentBody(size == 1 ? 500 : sentBytes);
    QByteArrayList pieces{DocumentHead(body.size())};
    for (qsizetype at = 0; at < body.size(); at += size)
        pieces.append(body.mid(at, size));
    pieces.append(DocumentTail);
    transfer([pieces](FakeSocket *socket) { socket->ArriveLater(pieces); });
    QVERIFY(desk->Document(onlyFile()) == body);
}

void tst_TransferFaults::everyCutOfTheBody()
{
    const QByteArray body = DocumentBody(60);
    const QByteArray whole = DocumentReply(body);
    const qsizetype head = DocumentHead(body.size()).size();
    for (qsizetype at = head; at <= head + body.size(); ++at) {
        transfer([&](FakeSocket *socket) { socket->ArriveLater({whole.left(at), whole.mid(at)}); });
        QVERIFY2(desk->Document(onlyFile()) == body, qPrintable(QString::number(at)));
        desk->Folder.Remove(u"Reports/"_s + onlyFile());
    }
}

/// It is not seen: the end mark ends the reading, and nothing can be saved.
void tst_TransferFaults::aHeadThatIsCut()
{
    const QByteArray head = DocumentHead(sentBytes);
    for (qsizetype at = 2; at < head.size() - 1; ++at) {
        ExpectFailureBox();
        transfer([&](FakeSocket *socket) {
            socket->ArriveLater({reply().left(at), reply().mid(at)});
        });
        QCOMPARE(desk->Documents(), QStringList());
        QVERIFY(!QTest::currentTestFailed());
    }
}

/// It is not seen: the reading ends by its limit.
void tst_TransferFaults::anEndMarkThatIsCut()
{
    const qsizetype last = reply().size();
    for (qsizetype at = last - 5; at < last; ++at) {
        ExpectFailureBox();
        transfer([&](FakeSocket *socket) {
            socket->ArriveLater({reply().left(at), reply().mid(at)});
            // Both pieces have come by then: a minute is twelve of its steps.
            desk->When([this] { return window && window->List2.ListCount() == 2; },
                       [this] { desk->Time.Run(5.0); });
        });
        QVERIFY(!QTest::currentTestFailed());
        QVERIFY(desk->Folder.Logged(
            u"Timed Out waiting for response from Document Server. In ReadDocument()"_s));
        QCOMPARE(desk->Documents(), QStringList());
    }
}

HALVANE_TEST(tst_TransferFaults)
#include "tst_TransferFaults.moc"
