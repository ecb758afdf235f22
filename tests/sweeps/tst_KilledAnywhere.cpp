// The program is killed at random moments of a day, beside another day that keeps the machine busy.
// What is on the disk then is whole, and the next day begins, and ends, as any other.

#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/DaysRun.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
int killsFor(Extent extent)
{
    switch (extent) {
    case Extent::Short:
        return 3;
    case Extent::Ci:
        return 60;
    case Extent::Whole:
        break;
    }
    return 500;
}

quint32 seedOfRun()
{
    bool given = false;
    const uint seed = qEnvironmentVariable("HALVANE_SWEEP_SEED").toUInt(&given);
    return given ? seed : QRandomGenerator::global()->generate();
}
} // namespace

class tst_KilledAnywhere : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void whatIsLeftIsWholeAndTheNextDayBegins();

private:
    DaysCourt court;
    int dayMilliseconds = 0;
};

void tst_KilledAnywhere::initTestCase()
{
    const QString complaint = court.Open();
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
    const std::unique_ptr<DaysRun> measured = court.NewRun();
    measured->SetFiles(court.Files.Before);
    QElapsedTimer clock;
    clock.start();
    measured->Start();
    QVERIFY(measured->Finish());
    dayMilliseconds = static_cast<int>(clock.elapsed());
    QCOMPARE(measured->Said(), court.Said);
    QCOMPARE(ComplaintOfFiles(court.Files, measured->Files(), DaysEnd::ByItself), QString());
}

void tst_KilledAnywhere::whatIsLeftIsWholeAndTheNextDayBegins()
{
    const quint32 seed = seedOfRun();
    qInfo("seed %u, a day of %d ms", seed, dayMilliseconds);
    QRandomGenerator random(seed);
    const int kills = killsFor(SweepExtent());
    const std::unique_ptr<DaysRun> load = court.NewRun();
    const std::unique_ptr<DaysRun> run = court.NewRun();
    int killed = 0;
    int found = 0;
    for (int kill = 1; kill <= kills; ++kill) {
        const int milliseconds = random.bounded(dayMilliseconds);
        load->SetFiles(court.Files.Before);
        load->Start();
        run->SetFiles(court.Files.Before);
        run->Start();
        if (run->KillAfter(milliseconds))
            ++killed;
        const QStringList wrong = court.ComplaintsOfKilled(*run);
        if (!wrong.isEmpty()) {
            ++found;
            std::printf("HALVANE_SWEEP_SEED=%u, kill %d, after %d ms:\n    %s\n", seed, kill,
                        milliseconds, qPrintable(wrong.join(u"\n    "_s)));
            std::fflush(stdout);
        }
        QVERIFY(load->Finish());
        load->Said();
    }
    qInfo("%d of %d days were killed", killed, kills);
    QVERIFY(killed > 0);
    QCOMPARE(found, 0);
}

HALVANE_TEST(tst_KilledAnywhere)
#include "tst_KilledAnywhere.moc"
