#include "history/HistoryStore.h"
#include "support/HalvaneTest.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few

QDateTime at(int month, int day)
{
    return QDateTime(QDate(2026, month, day), QTime(10, 30));
}

AskedItem search(const QString &name, const QString &court, const QString &code)
{
    AskedItem item;
    item.When = at(11, 2);
    item.What = name;
    item.Where = court;
    item.ClientCode = code;
    item.Origin = "{}";
    return item;
}

QStringList namesOf(const QList<AskedItem> &items)
{
    QStringList names;
    for (const AskedItem &item : items)
        names.append(item.What);
    return names;
}

/// An empty history of a test's own, open.
struct OpenStore
{
    OpenStore() { Reopen(); }
    void Reopen()
    {
        Store.Open(Path());
        Written();
    }
    void Written() { QVERIFY(Store.WaitUntilWritten(longEnough)); }
    QString Path() const { return Folder.filePath(u"history.db"_s); }

    QTemporaryDir Folder;
    HistoryStore Store;
};
} // namespace

class tst_HistoryStore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void anItemIsReadAsItWasGiven();
    void anItemGoesFromWaitingToEndedAndBack();
    void theNewestStandsFirstAndPagesFollow();
    void aFilterFindsEveryWordAnywhere_data();
    void aFilterFindsEveryWordAnywhere();
    void whatASessionLeftIsUnfinishedUntilItIsSettled();
    void rowsAreKnownAgainByTheirCells();
    void aWholeLookReplacesAndAPartOnlyAdds();
    void aRunIsRememberedForItsSearch();
    void theAccountCountsWhatWasSent();
    void whatIsOldIsForgottenWithItsAccount();
    void whatIsForgottenGivesItsRoomBack();
    void whatIsClearedIsNotInTheFileAnyMore();
    void whatIsSentAfterItWasClearedStillCounts();
    void aClosedStoreIsHarmless();
    void changesAreAnnouncedFourTimesASecondAtMost();
};

void tst_HistoryStore::anItemIsReadAsItWasGiven()
{
    OpenStore open;
    AskedItem given = search(u"ÅNGSTRÖM, JÖRG"_s, u"King, Pierce"_s, u"4711"_s);
    given.Kind = AskedKind::Document;
    given.Origin = QByteArray("{\"a\":\"\0\"}", 9);
    const qint64 id = open.Store.Begin(given);
    open.Written();
    const QList<AskedItem> items = open.Store.Items({}, 0, 10);
    QCOMPARE(items.size(), 1);
    const AskedItem &item = items.first();
    QVERIFY(id > 0);
    QCOMPARE(item.Id, id);
    QCOMPARE(item.Kind, AskedKind::Document);
    QCOMPARE(item.State, AskedState::Waiting);
    QCOMPARE(item.When, given.When);
    QCOMPARE(item.What, given.What);
    QCOMPARE(item.Where, given.Where);
    QCOMPARE(item.ClientCode, given.ClientCode);
    QCOMPARE(item.Outcome, u""_s);
    QCOMPARE(item.Count, -1);
    QCOMPARE(item.Origin, given.Origin);
}

void tst_HistoryStore::anItemGoesFromWaitingToEndedAndBack()
{
    OpenStore open;
    const qint64 id = open.Store.Begin(search(u"DOE"_s, {}, {}));
    const auto now = [&open] {
        open.Written();
        return open.Store.Items({}, 0, 1).value(0);
    };
    open.Store.Runs(id);
    QCOMPARE(now().State, AskedState::Running);
    open.Store.End(id, u"Search Complete"_s, 12);
    QCOMPARE(now().State, AskedState::Ended);
    QCOMPARE(now().Outcome, u"Search Complete"_s);
    QCOMPARE(now().Count, 12);
    open.Store.Again(id);
    QCOMPARE(now().State, AskedState::Waiting);
}

void tst_HistoryStore::theNewestStandsFirstAndPagesFollow()
{
    OpenStore open;
    for (int i = 0; i < 5; ++i)
        open.Store.Begin(search(u"N"_s + QString::number(i), {}, {}));
    open.Written();
    QCOMPARE(open.Store.CountOf({}), 5);
    QCOMPARE(namesOf(open.Store.Items({}, 0, 2)), QStringList({u"N4"_s, u"N3"_s}));
    QCOMPARE(namesOf(open.Store.Items({}, 4, 2)), QStringList({u"N0"_s}));
    // What was counted before is counted again when there is more.
    QCOMPARE(open.Store.Items(u"n"_s, 0, 10).size(), 5);
    QCOMPARE(open.Store.CountOf(u"n"_s), 5);
    open.Store.Begin(search(u"N5"_s, {}, {}));
    open.Written();
    QCOMPARE(open.Store.CountOf(u"n"_s), 6);
    QCOMPARE(open.Store.CountOf(u"n5"_s), 1);
}

void tst_HistoryStore::aFilterFindsEveryWordAnywhere_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("found");
    QTest::newRow("no filter") << u""_s << 2;
    QTest::newRow("blanks only") << u"  "_s << 2;
    QTest::newRow("a blank of another kind") << u"jörg\tpierce"_s << 1;
    QTest::newRow("within a word, other case") << u"ngstr"_s << 1;
    QTest::newRow("letters beyond ASCII, other case") << u"jörg"_s << 1;
    QTest::newRow("words of several places") << u"pierce JÖRG 4711"_s << 1;
    QTest::newRow("one word of two is missing") << u"jörg doe"_s << 0;
    QTest::newRow("the outcome") << u"stopped"_s << 1;
    QTest::newRow("the kind") << u"search"_s << 1;
    QTest::newRow("another kind") << u"document"_s << 1;
    QTest::newRow("none of this kind") << u"case"_s << 0;
    QTest::newRow("the kind and the outcome") << u"document stopped"_s << 1;
    QTest::newRow("the day") << u"11/02/2026"_s << 2;
    QTest::newRow("not across two places") << u"kingx4711"_s << 0;
    QTest::newRow("a sign of patterns is itself") << u"%"_s << 1;
    QTest::newRow("another one") << u"_"_s << 0;
    QTest::newRow("the sign before them") << u"!"_s << 1;
}

void tst_HistoryStore::aFilterFindsEveryWordAnywhere()
{
    QFETCH(const QString, filter);
    QFETCH(const int, found);
    OpenStore open;
    open.Store.Begin(search(u"ÅNGSTRÖM, JÖRG"_s, u"Pierce, King"_s, u"x4711"_s));
    AskedItem document = search(u"DOE 100% !"_s, u"Snohomish"_s, {});
    document.Kind = AskedKind::Document;
    const qint64 id = open.Store.Begin(document);
    open.Store.End(id, u"Stopped"_s, 0);
    open.Written();
    QCOMPARE(open.Store.CountOf(filter), found);
    QCOMPARE(open.Store.Items(filter, 0, 10).size(), found);
    const FoundIds all = open.Store.Found(filter, std::numeric_limits<qint64>::max());
    QCOMPARE(all.Ids.size(), found);
    QCOMPARE(open.Store.ItemsOf(all.Ids).size(), found);
    QVERIFY(open.Store.Found(filter, all.Below).AtEnd);
}

void tst_HistoryStore::whatASessionLeftIsUnfinishedUntilItIsSettled()
{
    OpenStore open;
    const qint64 waits = open.Store.Begin(search(u"WAITS"_s, {}, {}));
    const qint64 runs = open.Store.Begin(search(u"RUNS"_s, {}, {}));
    const qint64 ended = open.Store.Begin(search(u"ENDED"_s, {}, {}));
    open.Store.Runs(runs);
    open.Store.End(ended, u"Search Complete"_s, 1);
    open.Written();
    QVERIFY(open.Store.Unfinished().isEmpty());

    open.Reopen();
    open.Store.Begin(search(u"NEW"_s, {}, {}));
    open.Written();
    QCOMPARE(namesOf(open.Store.Unfinished()), QStringList({u"WAITS"_s, u"RUNS"_s}));

    open.Store.Settle({waits, runs}, u"Not run"_s);
    open.Written();
    QVERIFY(open.Store.Unfinished().isEmpty());
    QCOMPARE(open.Store.CountOf(u"search not run"_s), 2);
    open.Reopen();
    QCOMPARE(namesOf(open.Store.Unfinished()), QStringList({u"NEW"_s}));
}

void tst_HistoryStore::rowsAreKnownAgainByTheirCells()
{
    const quint64 row = HistoryStore::HashOfRow({u"11/02/2026"_s, u"MOTION"_s, u"12"_s});
    // The number stands in people's files: it may never be another one.
    QCOMPARE(row, Q_UINT64_C(14119580344071954160));
    QCOMPARE(HistoryStore::HashOfRow({u"11/02/2026"_s, u"MOTION"_s, u"12"_s}), row);
    const QList<QStringList> others{{u"11/02/2026"_s, u"MOTION"_s, u"13"_s},
                                    {u"11/02/2026"_s, u"MOTION1"_s, u"2"_s},
                                    {u"11/02/2026MOTION"_s, u""_s, u"12"_s},
                                    {u"11/02/2026"_s, u"MOTION"_s, u"12"_s, u""_s},
                                    {}};
    for (const QStringList &other : others)
        QVERIFY(HistoryStore::HashOfRow(other) != row);
}

void tst_HistoryStore::aWholeLookReplacesAndAPartOnlyAdds()
{
    OpenStore open;
    const auto look = [&open](const QString &tab) {
        open.Written();
        return open.Store.LastLook(u"case"_s, tab);
    };
    using Rows = QHash<quint64, int>;
    QVERIFY(!look(u"Docket"_s));
    QVERIFY(!open.Store.LastOpened(u"case"_s));
    open.Store.SaveLook(u"case"_s, u"Docket"_s, at(1, 1), {1, 2, 2, 3}, true);
    QCOMPARE(look(u"Docket"_s)->Rows, Rows({{1, 1}, {2, 2}, {3, 1}}));
    QCOMPARE(look(u"Docket"_s)->When, at(1, 1));

    open.Store.SaveLook(u"case"_s, u"Docket"_s, at(2, 1), {2, 4}, false);
    QCOMPARE(look(u"Docket"_s)->Rows, Rows({{1, 1}, {2, 2}, {3, 1}, {4, 1}}));
    QCOMPARE(look(u"Docket"_s)->When, at(1, 1));
    QCOMPARE(open.Store.LastOpened(u"case"_s).value(), at(2, 1));

    open.Store.SaveLook(u"case"_s, u"Docket"_s, at(3, 1), {~quint64{0}}, true);
    QCOMPARE(look(u"Docket"_s)->Rows, Rows({{~quint64{0}, 1}}));
    QVERIFY(!look(u"Charges"_s));
    open.Store.SaveLook(u"case"_s, u"Charges"_s, at(2, 2), {}, true);
    QVERIFY(look(u"Charges"_s)->Rows.isEmpty());
    QCOMPARE(open.Store.LastOpened(u"case"_s).value(), at(3, 1));
    QVERIFY(!open.Store.LastOpened(u"another"_s));
}

void tst_HistoryStore::aRunIsRememberedForItsSearch()
{
    OpenStore open;
    QVERIFY(!open.Store.LastRun(u"search"_s));
    open.Store.SaveRun(u"search"_s, at(1, 1), {1, 2});
    open.Store.SaveRun(u"search"_s, at(2, 1), {2, 3, 3});
    open.Written();
    QCOMPARE(open.Store.LastRun(u"search"_s)->When, at(2, 1));
    const RowSet rows = open.Store.LastRun(u"search"_s)->Rows;
    QVERIFY(!rows.Contains(1) && rows.Contains(2) && rows.Contains(3));
    QVERIFY(!open.Store.LastRun(u"another"_s));
}

void tst_HistoryStore::theAccountCountsWhatWasSent()
{
    OpenStore open;
    using Kind = HistoryStore::SentKind;
    const qint64 name = open.Store.Begin(search(u"SEARCH"_s, {}, u"A"_s));
    const qint64 opened = open.Store.Begin(search(u"CASE"_s, {}, u"A"_s));
    for (int i = 0; i < 3; ++i)
        open.Store.Sent(name, Kind::Search, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::CaseSummary, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::CaseSummary, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::Tab, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::Tab, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::Document, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::Other, u"A"_s, at(11, 2));
    open.Store.Sent(opened, Kind::Tab, u"A"_s, at(12, 1));
    open.Store.Sent(name, Kind::Search, u""_s, at(11, 2));
    open.Written();

    const QList<HistoryStore::UsageLine> lines = open.Store.Usage();
    const auto figures = [&lines](int line) {
        const HistoryStore::UsageLine &of = lines.at(line);
        return QStringList{of.Month, of.ClientCode}
               + QStringList{QString::number(of.Searches), QString::number(of.Requests),
                             QString::number(of.Cases), QString::number(of.Tabs),
                             QString::number(of.Documents)};
    };
    QCOMPARE(lines.size(), 3);
    QCOMPARE(figures(0),
             QStringList({u"2026-12"_s, u"A"_s, u"0"_s, u"1"_s, u"0"_s, u"1"_s, u"0"_s}));
    QCOMPARE(figures(1),
             QStringList({u"2026-11"_s, u""_s, u"1"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s}));
    QCOMPARE(figures(2),
             QStringList({u"2026-11"_s, u"A"_s, u"1"_s, u"9"_s, u"1"_s, u"2"_s, u"1"_s}));

    const QList<AskedItem> behind = open.Store.UsageItems(u"A"_s, u"2026-11"_s);
    QCOMPARE(namesOf(behind), QStringList({u"CASE"_s, u"SEARCH"_s}));
    QCOMPARE(behind.at(0).Requests, 6);
    QCOMPARE(behind.at(1).Requests, 3);
}

void tst_HistoryStore::whatIsOldIsForgottenWithItsAccount()
{
    OpenStore open;
    AskedItem old = search(u"OLD"_s, {}, u"A"_s);
    old.When = at(10, 31);
    const qint64 oldId = open.Store.Begin(old);
    const qint64 newId = open.Store.Begin(search(u"NEW"_s, {}, u"A"_s));
    open.Store.Sent(oldId, SentKind::Search, u"A"_s, at(11, 1));
    open.Store.Sent(newId, SentKind::Search, u"A"_s, at(11, 2));
    open.Store.SaveLook(u"old"_s, u"Docket"_s, at(10, 31), {1}, true);
    open.Store.SaveLook(u"new"_s, u"Docket"_s, at(11, 2), {1}, true);
    open.Store.SaveRun(u"old"_s, at(10, 31), {1});
    open.Store.SaveRun(u"new"_s, at(11, 2), {1});
    open.Store.ForgetBefore(at(11, 1));
    open.Written();
    QCOMPARE(namesOf(open.Store.Items({}, 0, 10)), QStringList({u"NEW"_s}));
    QCOMPARE(open.Store.CountOf(u"old"_s), 0);
    QCOMPARE(open.Store.Usage().value(0).Requests, 1);
    QVERIFY(!open.Store.LastOpened(u"old"_s));
    QVERIFY(open.Store.LastOpened(u"new"_s));
    QVERIFY(!open.Store.LastRun(u"old"_s));
    QVERIFY(open.Store.LastRun(u"new"_s));
}

void tst_HistoryStore::whatIsForgottenGivesItsRoomBack()
{
    OpenStore open;
    constexpr int items = 5'000;
    for (int i = 0; i < items; ++i)
        open.Store.Begin(search(QString(u'x').repeated(100), {}, {}));
    open.Written();
    open.Store.Close();
    const qint64 full = QFileInfo(open.Path()).size();
    open.Reopen();
    open.Store.ForgetBefore(at(12, 1));
    open.Written();
    open.Store.Close();
    QVERIFY(QFileInfo(open.Path()).size() < full / 10);
}

void tst_HistoryStore::whatIsClearedIsNotInTheFileAnyMore()
{
    OpenStore open;
    for (int i = 0; i < 100; ++i)
        open.Store.Begin(search(u"CONFIDENTIAL"_s, {}, {}));
    open.Written();
    open.Store.SaveLook(u"CONFIDENTIAL"_s, u"Docket"_s, at(11, 1), {1}, true);
    open.Store.ClearAll();
    open.Written();
    QCOMPARE(open.Store.CountOf({}), 0);
    QVERIFY(!open.Store.LastOpened(u"CONFIDENTIAL"_s));
    for (const QString &end : {u""_s, u"-wal"_s}) {
        QFile file(open.Path() + end);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(!file.readAll().contains("CONFIDENTIAL"));
    }
}

/// It is paid for, whatever the user wants to see of it: a line of the account has something behind
/// it, and no more of it than the number of requests.
void tst_HistoryStore::whatIsSentAfterItWasClearedStillCounts()
{
    OpenStore open;
    const qint64 id = open.Store.Begin(search(u"SMITH"_s, u"King"_s, u"A"_s));
    open.Store.Runs(id);
    open.Store.Sent(id, SentKind::CaseSummary, u"A"_s, at(11, 2));
    open.Store.ClearAll();
    open.Store.Sent(id, SentKind::Tab, u"A"_s, at(11, 2));
    open.Store.Sent(id, SentKind::Tab, u"A"_s, at(11, 2));
    open.Store.Again(id);
    open.Store.End(id, u"Search Complete"_s, 2);
    open.Written();
    QCOMPARE(open.Store.CountOf({}), 0);
    QVERIFY(open.Store.Unfinished().isEmpty());
    QCOMPARE(open.Store.Usage().value(0).Requests, 2);
    const QList<AskedItem> behind = open.Store.UsageItems(u"A"_s, u"2026-11"_s);
    QCOMPARE(behind.size(), 1);
    QCOMPARE(behind.first().Requests, 2);
    QCOMPARE(behind.first().Id, id);
    QCOMPARE(behind.first().Kind, AskedKind::Case);
    QCOMPARE(behind.first().What, u"(cleared from the history)"_s);
    QVERIFY(qAbs(behind.first().When.secsTo(QDateTime::currentDateTime())) < 3'600);
    open.Store.ForgetBefore(at(12, 1));
    open.Written();
    QVERIFY(open.Store.Usage().isEmpty());
}

void tst_HistoryStore::aClosedStoreIsHarmless()
{
    HistoryStore store;
    QCOMPARE(store.Begin(search(u"DOE"_s, {}, {})), 0);
    store.Runs(1);
    store.End(1, {}, 0);
    store.Again(1);
    store.Sent(1, SentKind::Search, {}, at(1, 1));
    store.SaveLook({}, {}, at(1, 1), {1}, true);
    store.SaveRun({}, at(1, 1), {1});
    store.Settle({1}, {});
    store.ClearAll();
    store.ForgetBefore(at(1, 1));
    store.Close();
    QVERIFY(!store.IsOpen());
    QVERIFY(!store.WaitUntilWritten(longEnough));
    QVERIFY(!store.LastLook({}, {}));
    QVERIFY(!store.LastOpened({}));
    QVERIFY(!store.LastRun({}));
    QVERIFY(store.Items({}, 0, 10).isEmpty());
    QCOMPARE(store.CountOf({}), 0);
    QVERIFY(store.Unfinished().isEmpty());
    QVERIFY(store.Usage().isEmpty());
    QVERIFY(store.UsageItems({}, {}).isEmpty());
}

void tst_HistoryStore::changesAreAnnouncedFourTimesASecondAtMost()
{
    OpenStore open;
    int announced = 0;
    int seen = 0;
    connect(&open.Store, &HistoryStore::Changed, &open.Store, [&open, &announced, &seen] {
        ++announced;
        seen = open.Store.CountOf({});
    });
    const QDateTime began = QDateTime::currentDateTime();
    constexpr int items = 200;
    for (int i = 0; i < items; ++i) {
        open.Store.Begin(search(u"DOE"_s, {}, {}));
        open.Written();
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(seen, items);
    constexpr qint64 pause = 250;
    QVERIFY(announced >= 1);
    QVERIFY(announced <= 2 + began.msecsTo(QDateTime::currentDateTime()) / pause);
}

HALVANE_TEST(tst_HistoryStore)
#include "tst_HistoryStore.moc"
