// Every exchange that the program makes, with a reply to which everything happens that can happen
// to one on its way: behind each of its bytes, in each of the ways.

#include "core/GlobalState.h"
#include "core/Windows1252.h"
#include "link/ConnectState.h"
#include "link/Exchange.h"
#include "link/Framing.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/ExchangeDesk.h"
#include "sweeps/Exchanges.h"
#include "sweeps/SweptCourt.h"

#include <QTest>

#include <algorithm>

namespace {
QByteArray frameOf(const QString &request)
{
    return ToWindows1252(WrapDelimited(request, u'|'));
}

/// What can happen to the reply of this exchange. Behind a whole document the next may be asked
/// for, or not, before the end of the link is seen.
QList<Cut> cutsOf(const Exchange &exchange, Way way)
{
    QList<Cut> cuts = CutsOf(exchange.Reply, way);
    if (exchange.BytesCount && (way == Way::Closed || way == Way::Reset))
        cuts.removeLast();
    return cuts;
}

/// Every so manieth case is enough for CI.
constexpr qsizetype ciStride = 9;

constexpr int casesADesk = 50;

bool isAmong(const QList<Cut> &cuts, const Cut &one)
{
    return std::any_of(cuts.begin(), cuts.end(),
                       [&one](const Cut &cut) { return cut.At == one.At; });
}

/// The part of the cases of one way that belongs to the extent, evenly spread, and not the same for
/// each exchange: with the tests one of every third way, in CI some of each.
QList<Cut> chosen(const QList<Cut> &cuts, Way way, const Exchange &of, qsizetype exchange)
{
    const bool isShort = SweepExtent() == Extent::Short;
    if (SweepExtent() == Extent::Whole || cuts.isEmpty())
        return cuts;
    constexpr qsizetype everyWay = 3;
    const qsizetype turn = (exchange + static_cast<int>(way)) % everyWay;
    QList<Cut> some;
    // Where nothing has come in part there is a limit.
    if (way == Way::Silent && (!isShort || turn == 1))
        some.append(cuts.first());
    // With all but its last bar a reply is no reply yet; of a document that is told apart by bytes.
    if (way == Way::Silent && (!isShort || turn == 2 || of.BytesCount))
        some.append(cuts.last());
    if (isShort && turn != 0)
        return some;
    const qsizetype stride = std::min(isShort ? cuts.size() : ciStride, cuts.size());
    // A prime, so that the places do not go along with the exchanges.
    const qsizetype offset = (exchange + static_cast<int>(way)) * 31 % stride;
    for (qsizetype i = offset; i < cuts.size(); i += stride) {
        if (!isAmong(some, cuts[i]))
            some.append(cuts[i]);
    }
    return some;
}
} // namespace

class tst_EveryExchange : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyCut_data();
    void everyCut();
    void cleanupTestCase() { qInfo("%d of %d cases", cases, wholeCases); }

private:
    static QString runCase(ExchangeDesk &desk, const Exchange &exchange, const Cut &cut);

    int cases = 0;
    int wholeCases = 0; ///< as many as there are of the exchanges that were swept
};

void tst_EveryExchange::everyCut_data()
{
    QTest::addColumn<qsizetype>("place");
    for (qsizetype i = 0; i < Exchanges().size(); ++i)
        QTest::newRow(qPrintable(Exchanges()[i].Name)) << i;
}

QString tst_EveryExchange::runCase(ExchangeDesk &desk, const Exchange &exchange, const Cut &cut)
{
    desk.BeginCase();
    const std::unique_ptr<ExchangeRun> run = exchange.Make(desk);
    QStringList wrong;
    {
        SweptCourt court({.Before = exchange.Before,
                          .After = exchange.After,
                          .Request = frameOf(exchange.Request),
                          .Reply = exchange.Reply,
                          .Happens = cut,
                          .LimitSeconds = exchange.LimitSeconds,
                          .PartHolds = exchange.PartHolds,
                          .NeededTokens = exchange.NeededTokens},
                         desk.User().Time, [&run] { return run->IsOver(); });
        court.Install(!exchange.Connects);
        if (!exchange.Connects)
            frmWinsock::Form();
        Global.intConnectState = exchange.Connects ? ConnectIdle : ConnectDone;
        Global.bLoggedIn = !exchange.Connects;
        const Came came = CameOf(exchange.Reply, cut);
        run->Announce(came, desk.User().Boxes);
        if (!run->Go())
            wrong.append(u"it never ends"_s);
        wrong += Differences(run->Seen(), run->Expected(came));
        wrong.append(court.Complaints());
        // What was given up comes after all, ahead of the next search.
        if (cut.How == Way::Silent && IsLinkUp())
            FakeSocket::Last()->Arrive(exchange.Reply.mid(cut.At));
        FakeSocket::Last()->heard = {};
    }
    wrong.append(desk.EndCase(*run));
    wrong.removeAll(QString());
    return wrong.join(u"\n    "_s);
}

void tst_EveryExchange::everyCut()
{
    QFETCH(qsizetype, place);
    const Exchange &exchange = Exchanges()[place];
    auto desk = std::make_unique<ExchangeDesk>();
    const QByteArray only = qgetenv("HALVANE_CASE");
    int failures = 0;
    for (int i = 0; i < wayCount; ++i) {
        const auto way = static_cast<Way>(i);
        const QList<Cut> all = cutsOf(exchange, way);
        wholeCases += static_cast<int>(all.size());
        const QList<Cut> some = only.isEmpty() ? chosen(all, way, exchange, place) : all;
        for (const Cut &cut : some) {
            const QByteArray name = NameOf(cut.How) + QByteArray(" ") + QByteArray::number(cut.At);
            if (!only.isEmpty() && name != only)
                continue;
            // A desk cuts the link half a minute after it was made.
            if (++cases % casesADesk == 0)
                ExchangeDesk::Renew(desk);
            const QString wrong = runCase(*desk, exchange, cut);
            if (wrong.isEmpty())
                continue;
            ++failures;
            qWarning("HALVANE_CASE='%s' tools/sweep exchanges whole 'everyCut:%s'\n    %s",
                     name.constData(), qPrintable(exchange.Name), qPrintable(wrong));
            ExchangeDesk::Renew(desk);
        }
    }
    QCOMPARE(failures, 0);
}

HALVANE_TEST(tst_EveryExchange)
#include "tst_EveryExchange.moc"
