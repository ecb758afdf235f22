#include "sweeps/LongDay.h"

#include "support/HalvaneTest.h"
#include "support/ObjectCount.h"
#include "support/PracticeAnswers.h"
#include "support/SweepExtent.h"

#include <QElapsedTimer>
#include <QPixmapCache>
#include <QTest>

namespace {
constexpr const char *seedVariable = "HALVANE_DAY_SEED";
constexpr quint32 usualSeed = 20'260'310;

/// How long it goes on: for so many exchanges or so many milliseconds, whichever comes first.
struct Length
{
    qint64 exchanges;
    qint64 milliseconds;
    qint64 exchangesADay;
};

Length lengthOfToday()
{
    switch (SweepExtent()) {
    case Extent::Ci:
        return {100'000, 300'000, 500};
    case Extent::Whole:
        return {100'000, 36'000'000, 500};
    case Extent::Short:
        break;
    }
    return {1'000, 5'000, 200};
}

quint32 seedOfToday()
{
    bool given = false;
    const int seed = qEnvironmentVariableIntValue(seedVariable, &given);
    return given ? static_cast<quint32>(seed) : usualSeed;
}

/// On the heap, without what grows to a limit of its own and is nothing of the program's: the
/// pictures that Qt has drawn, and the answers that the court knows. SQLite's pages, 2 MB at most,
/// stay among it.
long long heapBytes()
{
    QPixmapCache::clear();
    ForgetPracticeAnswers();
    return ObjectCount::HeapBytes();
}

/// Which objects have come since and which have gone, by their classes.
QString difference(const QMap<QByteArray, int> &before, const QMap<QByteArray, int> &now)
{
    QStringList lines;
    QMap<QByteArray, int> all = before;
    all.insert(now);
    for (auto one = all.begin(); one != all.end(); ++one) {
        if (before.value(one.key()) != now.value(one.key()))
            lines.append(QStringLiteral("%1: %2 and then %3")
                             .arg(QString::fromLatin1(one.key()),
                                  QString::number(before.value(one.key())),
                                  QString::number(now.value(one.key()))));
    }
    return lines.join(QStringLiteral(", "));
}
} // namespace

/// Many exchanges, of which one in a hundred goes wrong, in the whole program. In the evenings
/// objects, timers and descriptors are as many as before, and memory has not grown. What happens is
/// settled by the seed, which can be given in HALVANE_DAY_SEED.
class tst_LongDays : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nothingIsLeftOfManyDays();
};

void tst_LongDays::nothingIsLeftOfManyDays()
{
    constexpr int rarity = 100;
    // By then Qt has made most of what it keeps to use again.
    constexpr int warmUps = 3;
    constexpr long long growth = 4LL * 1024 * 1024;
    const quint32 seed = seedOfToday();
    qInfo("the seed of the days is %u", seed);

    const Length length = lengthOfToday();
    const ObjectCount count;
    LongDay day(seed, rarity);
    ObjectCount::Holdings atFirst;
    QMap<QByteArray, int> classes;
    long long memory = 0;
    QElapsedTimer since;
    since.start();
    int days = 0;
    while (days <= warmUps
           || (day.Exchanges() < length.exchanges && since.elapsed() < length.milliseconds)) {
        day.WorkUntil(day.Exchanges() + length.exchangesADay);
        QVERIFY2(day.Complaints().isEmpty(), qPrintable(day.Complaints()));
        const ObjectCount::Holdings now = ObjectCount::Now();
        if (++days == warmUps) {
            atFirst = now;
            classes = ObjectCount::Classes();
            memory = heapBytes();
        } else if (days > warmUps) {
            QVERIFY2(now.objects == atFirst.objects,
                     qPrintable(difference(classes, ObjectCount::Classes())));
            QCOMPARE(now.timers, atFirst.timers);
            QCOMPARE(now.files, atFirst.files);
            // Memory that grows for ever tells itself from what is kept once by when it grows.
            if (days % 20 == 0)
                qInfo("day %d: %lld bytes more", days, heapBytes() - memory);
        }
    }
    const long long grown = heapBytes() - memory;
    qInfo("%lld exchanges in %d days, %lld a second; %lld bytes more than at first",
          day.Exchanges(), days, day.Exchanges() * 1000 / qMax<qint64>(1, since.elapsed()), grown);
    qInfo("%s", qPrintable(day.Story()));
    QVERIFY2(grown < growth, qPrintable(QString::number(grown)));
    // How many days go into five minutes is up to the machine; the rarest things may not be among
    // them.
    if (SweepExtent() == Extent::Whole)
        QCOMPARE(day.Missing(), QStringList());
}

HALVANE_TEST(tst_LongDays)
#include "tst_LongDays.moc"
