// Every exchange over a real connection: what a socket reports of its end is what the rest of the
// sweep takes for granted. Some places of each reply are enough for that.

#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Windows1252.h"
#include "link/ConnectState.h"
#include "link/Framing.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/ExchangeDesk.h"
#include "sweeps/Exchanges.h"
#include "sweeps/RealCourt.h"

#include <QTest>

namespace {
QList<Cut> cutsOf(const Exchange &exchange)
{
    const qsizetype size = exchange.Reply.size();
    QList<Cut> cuts{{Way::Divided, size / 2}};
    // Documents are looked at a piece at a time, and a piece is what the network makes of it.
    if (!exchange.BytesCount)
        cuts.append({Way::ByteByByte, 0});
    else
        cuts.first().At = exchange.Reply.indexOf("%PDF") + 1;
    for (const Way way : {Way::Closed, Way::Reset}) {
        for (const qsizetype at : {qsizetype(0), qsizetype(1), size / 2, size - 1, size}) {
            // Behind a whole document the next may be asked for, or not, before the end is seen.
            if (at < size || !exchange.BytesCount)
                cuts.append({way, at});
        }
    }
    return cuts;
}

/// What can be seen. The end of a connection overtakes tokens that were not read yet, as many as
/// there are.
QList<QStringList> possible(const ExchangeRun &run, const Exchange &exchange, const Cut &cut)
{
    const Came came = CameOf(exchange.Reply, cut);
    QList<QStringList> all{run.Expected(came)};
    if (!came.Lost || exchange.BytesCount)
        return all;
    Came less = came;
    while (less.Tokens-- > 0)
        all.append(run.Expected(less));
    return all;
}
} // namespace

class tst_ExchangesForReal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void someCuts_data();
    void someCuts();

private:
    static QString runCase(ExchangeDesk &desk, const Exchange &exchange, const Cut &cut);
};

void tst_ExchangesForReal::someCuts_data()
{
    QTest::addColumn<qsizetype>("place");
    for (qsizetype i = 0; i < Exchanges().size(); ++i)
        QTest::newRow(qPrintable(Exchanges()[i].Name)) << i;
}

QString tst_ExchangesForReal::runCase(ExchangeDesk &desk, const Exchange &exchange, const Cut &cut)
{
    desk.BeginCase();
    frmWinsock::SetSocketFactory({});
    const std::unique_ptr<ExchangeRun> run = exchange.Make(desk);
    RealCourt court({.Before = exchange.Before,
                     .After = exchange.After,
                     .Request = ToWindows1252(WrapDelimited(exchange.Request, u'|')),
                     .Reply = exchange.Reply,
                     .Happens = cut,
                     .NeededTokens = exchange.NeededTokens},
                    desk.User().Time);
    Global.lngServerPort = court.Port();
    SaveOptionStr(u"Communications"_s, u"HVServerIP1"_s, u"127.0.0.1"_s);
    Global.intConnectState = ConnectIdle;
    Global.bLoggedIn = !exchange.Connects;
    if (!exchange.Connects && !ConnectToRouter(u"127.0.0.1"_s))
        return u"the court cannot be reached"_s;
    run->Announce(CameOf(exchange.Reply, cut), desk.User().Boxes);
    QStringList wrong;
    if (!run->Go())
        wrong.append(u"it never ends"_s);
    const QStringList seen = run->Seen();
    const QList<QStringList> expected = possible(*run, exchange, cut);
    if (!expected.contains(seen))
        wrong += Differences(seen, expected.first());
    wrong.append(court.Complaints());
    CloseServerLink();
    wrong.append(desk.EndCase(*run));
    wrong.removeAll(QString());
    return wrong.join(u"\n    "_s);
}

void tst_ExchangesForReal::someCuts()
{
    QFETCH(qsizetype, place);
    const Exchange &exchange = Exchanges()[place];
    QList<Cut> cuts = cutsOf(exchange);
    if (SweepExtent() == Extent::Short) // of every second exchange one
        cuts = place % 2 == 0 ? QList<Cut>{cuts[place / 2 % cuts.size()]} : QList<Cut>();
    auto desk = std::make_unique<ExchangeDesk>();
    int failures = 0;
    for (const Cut &cut : std::as_const(cuts)) {
        const QString wrong = runCase(*desk, exchange, cut);
        if (wrong.isEmpty())
            continue;
        ++failures;
        qWarning("%s %lld\n    %s", NameOf(cut.How), static_cast<long long>(cut.At),
                 qPrintable(wrong));
        ExchangeDesk::Renew(desk);
    }
    QCOMPARE(failures, 0);
}

HALVANE_TEST(tst_ExchangesForReal)
#include "tst_ExchangesForReal.moc"
