// What nobody has asked for, very much of it: while nothing goes on, while a search waits for its
// answer, and while a box stands.

#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "link/Exchange.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"
#include "sweeps/FloodTest.h"

#include <QDialog>
#include <QTcpSocket>
#include <QTest>

#include <array>

namespace {
constexpr int wholePieces = 640;
constexpr qsizetype bytesOfPiece = 100'000;
constexpr qsizetype megabyte = 1'000'000;
constexpr int manyPings = 1'000'000;
constexpr int manyPingsApart = 20'000;
/// With the tests so much of it is enough.
constexpr int leastPieces = 12;

/// What is sent, a piece at a time.
struct Unasked
{
    const char *name;
    const char *unit;
    const char *End;  ///< of a reply that it is
    bool fitForReply; ///< a search whose reply it is completes
};
constexpr std::array<Unasked, 6> unaskedKinds{{
    {"tokens",
     "|SMITH, JOHN~94-1-00001-1~01/02/1994~Mischief~WA Superior Ct King County~Defendant~|",
     "|EOF~|", true},
    {"small tokens", "|A~B~C~D~E~F~|", "|EOF~|", true},
    {"bars", "||", "|EOF~|", true},
    {"junk", "junk and no bar ", "|EOF~|", false},
    {"a token without an end", "|", "~||EOF~|", false},
    {"progress", "|SEARCHING~for more and more~|", "|EOF~|", true},
}};

Flood unaskedOf(const Unasked &kind, int pieces)
{
    const bool endless = kind.name == unaskedKinds[4].name;
    const QByteArray unit = endless ? QByteArray("x") : QByteArray(kind.unit);
    QByteArray piece;
    while (piece.size() < bytesOfPiece)
        piece += unit;
    const QByteArray first = endless ? QByteArray("|x") : piece;
    return {.Pieces = pieces,
            .Piece = [first, piece](qint64 number) { return number == 0 ? first : piece; },
            .End = {}};
}

/// A token is one piece: what is done with it, its log line and its row among it, is done in the
/// turn in which its end comes, however large it is. In milliseconds.
double ofOneToken(const Unasked &kind, const FloodCost &cost)
{
    constexpr double millisecondsOfMegabyte = 15.0;
    const bool endless = kind.name == unaskedKinds[4].name;
    return endless ? millisecondsOfMegabyte * static_cast<double>(cost.Sent) / megabyte : 0.0;
}
} // namespace

class tst_FloodUnasked : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void whileIdle_data() { eachKind(); }
    void whileIdle();
    void whileASearchWaits_data() { eachKind(); }
    void whileASearchWaits();
    void whileABoxStands_data() { eachKind(); }
    void whileABoxStands();
    void pings();
    void pingsApart();
    void pingsThatNobodyReadsTheAnswersOf();

private:
    static void eachKind();
    /// Sends it, and waits until all of it is under way or nothing goes any more.
    FloodCost receive(const Flood &one);
    void waitUntilStill();
    void checkCost(const FloodCost &part, const FloodCost &all);
};

void tst_FloodUnasked::eachKind()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < unaskedKinds.size(); ++i)
        QTest::newRow(unaskedKinds.at(i).name) << static_cast<int>(i);
}

/// Nothing has been sent for so many turns: it is all here, or does not get further.
void tst_FloodUnasked::waitUntilStill()
{
    constexpr int still = 100;
    qint64 before = -1;
    int turns = 0;
    const auto isStill = [&] {
        const qint64 now = flood->BytesSent();
        turns = now == before ? turns + 1 : 0;
        before = now;
        return flood->IsIdle() || turns > still;
    };
    while (!isStill())
        YieldUntilEvent(0.002);
}

FloodCost tst_FloodUnasked::receive(const Flood &one)
{
    const FloodCost cost = Measure([&] {
        flood->Send(one);
        waitUntilStill();
    });
    Tell("unasked", cost);
    return cost;
}

void tst_FloodUnasked::checkCost(const FloodCost &part, const FloodCost &all)
{
    CheckGrowth(part, all);
    for (const FloodCost &cost : {part, all}) {
        CheckTurn(cost);
        // A buffer grows by doubling.
        QVERIFY2(cost.MostBytes <= 2 * maximumBacklogBytes + 2 * megabyte,
                 qPrintable(QString::number(cost.MostBytes)));
    }
}

void tst_FloodUnasked::whileIdle()
{
    QFETCH(int, index);
    const Unasked &kind = unaskedKinds.at(static_cast<size_t>(index));
    const int part = Scaled(wholePieces, leastPieces) / Fold;
    std::array<FloodCost, 2> costs;
    Connect();
    for (const size_t run : {0U, 1U}) {
        costs.at(run) = receive(unaskedOf(kind, run == 0 ? part : Fold * part));
        QVERIFY(Global.strRecvBuffer.Size() <= maximumBacklogBytes + megabyte);
        const FloodCost next = Measure([&] { SearchOnce(!flood->IsIdle()); });
        Tell("the next search", next);
        CheckTurn(next);
    }
    checkCost(costs[0], costs[1]);
}

void tst_FloodUnasked::whileASearchWaits()
{
    QFETCH(int, index);
    const Unasked &kind = unaskedKinds.at(static_cast<size_t>(index));
    const int part = Scaled(wholePieces, leastPieces) / Fold;
    std::array<FloodCost, 2> costs;
    for (const size_t run : {0U, 1U}) {
        Connect();
        Flood reply = unaskedOf(kind, run == 0 ? part : Fold * part);
        reply.End = kind.End;
        flood->Answer(reply);
        auto *window = new frmNameSearchResults(u"WA"_s);
        SearchDesk::Enqueue(window, {RequestLine()});
        const FloodCost cost = Measure([&] { Run(window); });
        Tell("in a search", cost);
        costs.at(run) = cost;
        const bool complete = TextOf(window, "lblStatus").startsWith(u"Search Complete: "_s);
        QVERIFY2(complete || !kind.fitForReply, qPrintable(TextOf(window, "lblStatus")));
        Close(window);
        SearchOnce(!IsLinkUp());
        CloseServerLink();
    }
    CheckTurn(costs[1], ofOneToken(kind, costs[1]));
    CheckGrowth(costs[0], costs[1]);
}

/// The box stands over the wait of a search: what comes meanwhile gathers.
void tst_FloodUnasked::whileABoxStands()
{
    QFETCH(int, index);
    const Unasked &kind = unaskedKinds.at(static_cast<size_t>(index));
    Connect();
    Flood reply = unaskedOf(kind, Scaled(wholePieces, leastPieces));
    reply.End = kind.End;
    flood->Answer(reply);
    auto *window = new frmNameSearchResults(u"WA"_s);
    SearchDesk::Enqueue(window, {RequestLine()});
    Global.bShowAlerts = true;
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [this](QDialog *dialog) {
        // Stop is asked for, and taken back when everything that can come has.
        waitUntilStill();
        dialog->reject();
    });
    desk->When([] { return !Global.strRecvBuffer.IsEmpty(); },
               [window] { Click(window, "cmdStopSearching"); });
    const FloodCost cost = Measure([&] {
        desk->Time.Run(0.001);
        Begin(window);
        WaitUntil([&] { return frmQueue::Form().FIFO.ListCount() == 0 && !Job::WithTurn(); });
        desk->Time.Stop();
    });
    Tell("under a box", cost);
    CheckTurn(cost, ofOneToken(kind, cost));
    Global.bShowAlerts = false;
    Close(window);
    SearchOnce(!IsLinkUp());
}

void tst_FloodUnasked::pings()
{
    const auto pingsOf = [](int count) {
        constexpr int ofPiece = 1'000;
        return Flood{.Pieces = count / ofPiece,
                     .Piece = [](qint64) { return QByteArray("|DIAG001|").repeated(ofPiece); },
                     .End = {}};
    };
    const int part = Scaled(manyPings, 40'000) / Fold;
    Connect();
    const FloodCost less = receive(pingsOf(part));
    SearchOnce();
    const FloodCost all = receive(pingsOf(Fold * part));
    SearchOnce();
    checkCost(less, all);
    QVERIFY(flood->Requests().contains("|IMALIVE\xA6|"));
}

void tst_FloodUnasked::pingsApart()
{
    const auto pingsOf = [](int count) {
        return Flood{.Pieces = count,
                     .Piece = [](qint64) { return QByteArray("|DIAG001|"); },
                     .End = {},
                     .Apart = true};
    };
    const int part = Scaled(manyPingsApart) / Fold;
    Connect();
    const FloodCost less = receive(pingsOf(part));
    SearchOnce();
    const FloodCost all = receive(pingsOf(Fold * part));
    SearchOnce();
    checkCost(less, all);
}

/// The kernel takes next to nothing either, so what is not bounded is held by the program.
void tst_FloodUnasked::pingsThatNobodyReadsTheAnswersOf()
{
    constexpr long long mostHeld = 200'000;
    constexpr qint64 mostUnsent = 8'000;
    Connect();
    flood->ReadNothing();
    auto *socket = frmWinsock::Form().CSock->findChild<QTcpSocket *>();
    QVERIFY(socket);
    socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 1);
    const FloodCost cost = receive({.Pieces = Scaled(5 * manyPingsApart),
                                    .Piece = [](qint64) { return QByteArray("|DIAG001|"); },
                                    .End = {},
                                    .Apart = true});
    QVERIFY2(socket->bytesToWrite() > 0, "the answers have all left");
    QVERIFY2(socket->bytesToWrite() <= mostUnsent,
             qPrintable(QString::number(socket->bytesToWrite())));
    QVERIFY2(cost.BytesLeft <= mostHeld, qPrintable(QString::number(cost.BytesLeft)));
    SearchAtNewCourt();
}

HALVANE_TEST(tst_FloodUnasked)
#include "tst_FloodUnasked.moc"
