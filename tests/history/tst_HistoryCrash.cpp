#include "history/HistoryStore.h"
#include "support/HalvaneTest.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr int kills = 200;
constexpr qint64 enoughBytes = 1'000; ///< for more than two lines of a child
constexpr int longEnough = 30'000;    ///< milliseconds; a write takes a few

/// What the child does until it is killed: writes lines, and says of which it was told that they
/// are in the file.
int writeUntilKilled(const QStringList &arguments)
{
    HistoryStore store;
    store.Open(arguments.value(0));
    store.WaitUntilWritten(longEnough);
    for (qint64 last = 0;;) {
        std::printf("%lld\n", static_cast<long long>(last));
        std::fflush(stdout);
        constexpr int atOnce = 5;
        for (int i = 0; i < atOnce; ++i) {
            AskedItem item;
            item.What = u"DOE"_s;
            last = store.Begin(item);
            store.Sent(last, SentKind::Search, u"A"_s, QDateTime::currentDateTime());
            store.SaveLook(u"case"_s, u"Docket"_s, QDateTime::currentDateTime(),
                           QList<quint64>(i * 100, 1), i % 2 == 0);
            store.End(last, u"Search Complete"_s, i);
        }
        if (!store.WaitUntilWritten(longEnough))
            return 1;
    }
}
} // namespace

class tst_HistoryCrash : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aKillAtAnyMomentLosesNothingThatWasWritten();
};

void tst_HistoryCrash::aKillAtAnyMomentLosesNothingThatWasWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"history.db"_s);
    QRandomGenerator random(20261122);
    int heard = 0;
    for (int i = 0; i < kills; ++i) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {u"--write-history"_s, path});
        QVERIFY(child.waitForStarted());
        // Some are killed while they open the file, which the one before has left as it was.
        if (i % 4 != 0)
            QVERIFY(child.waitForReadyRead());
        // Others when they have written for certain, however busy the machine is.
        while (i % 4 == 3 && child.peek(enoughBytes).count('\n') < 2)
            QVERIFY(child.waitForReadyRead());
        QThread::usleep(random.bounded(1U, 20'000U));
        child.kill();
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        const QList<QByteArray> said = child.readAllStandardOutput().split('\n');
        const qint64 last = said.size() < 2 ? 0 : said.at(said.size() - 2).toLongLong();

        HistoryStore store;
        QStringList problems;
        connect(&store, &HistoryStore::Problem, &store,
                [&problems](const QString &text) { problems.append(text); });
        store.Open(path);
        QVERIFY(store.WaitUntilWritten(longEnough));
        QCoreApplication::processEvents();
        QCOMPARE(problems, QStringList());
        if (last == 0)
            continue;
        ++heard;
        bool found = false;
        const QList<AskedItem> items = store.Items({}, 0, 100);
        for (const AskedItem &item : items)
            found = found || (item.Id == last && item.State == AskedState::Ended);
        QVERIFY2(found, qPrintable(u"kill "_s + QString::number(i)));
        // Lines are written in their order: none ends whose request is not there.
        QVERIFY(store.Usage().value(0).Requests >= store.CountOf(u"complete"_s));
    }
    // The children did write, or the kills would have proved nothing.
    QVERIFY(heard >= kills / 4);
}

HALVANE_TEST_CHILD("--write-history", writeUntilKilled)
HALVANE_TEST(tst_HistoryCrash)
#include "tst_HistoryCrash.moc"
