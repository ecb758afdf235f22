// Each call that a day at the program makes to its disk fails once, in each of the ways in which
// such a call can fail.

#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/DaysRun.h"

#include <QElapsedTimer>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// The ways in which a call can fail, as FailingCalls.cpp reads them.
struct CallRow
{
    QStringView Call;
    std::array<const char *, 4> Faults; ///< null where there are fewer
};
constexpr std::array<CallRow, 10> calls{{
    {u"look", {"13", "24", "5", nullptr}},
    {u"open", {"28", "13", "24", "full"}},
    {u"read", {"5", nullptr, nullptr, nullptr}},
    {u"write", {"short", "full", "5", "28"}},
    {u"fsync", {"5", "28", nullptr, nullptr}},
    {u"truncate", {"5", nullptr, nullptr, nullptr}},
    {u"close", {"5", "28", nullptr, nullptr}},
    {u"rename", {"13", "28", "5", nullptr}},
    {u"link", {"28", "13", nullptr, nullptr}},
    {u"unlink", {"13", nullptr, nullptr, nullptr}},
}};
static_assert(EIO == 5 && EACCES == 13 && EMFILE == 24 && ENOSPC == 28);
constexpr std::array<const char *, 4> otherFaults{"13", "28", nullptr, nullptr};

const std::array<const char *, 4> &faultsOf(const QString &call)
{
    for (const CallRow &row : calls) {
        if (call.startsWith(row.Call + u' '))
            return row.Faults;
    }
    return otherFaults;
}

/// Of these there are hundreds alike.
bool isOneOfMany(const QString &call)
{
    return call.endsWith(u" AppInfo.txt") || call.contains(u" history.db")
           || (call.endsWith(u" options.ini") && !call.startsWith(u"rename"));
}

/// The faults of each call of each file.
using Faults = QMap<QString, QStringList>;

/// Every fault of a day, "FAULT NTH CALL PATH". Calls of which there are many take turns at the
/// ways; every other call fails in all of them.
Faults faultsOfDay(const QStringList &made)
{
    Faults faults;
    QMap<QString, int> times;
    for (const QString &call : made) {
        const int nth = ++times[call];
        const auto &ways = faultsOf(call);
        const auto count =
            static_cast<int>(std::find(ways.begin(), ways.end(), nullptr) - ways.begin());
        for (int way = 0; way < count; ++way) {
            if (!isOneOfMany(call) || way == nth % count)
                faults[call].append(QString::fromLatin1(ways.at(static_cast<size_t>(way))) + u' '
                                    + QString::number(nth) + u' ' + call);
        }
    }
    return faults;
}

/// The same for a program that is killed in the place of each call that changes a file.
QStringList killsOfDay(const QStringList &made)
{
    QStringList kills;
    QMap<QString, int> times;
    for (const QString &call : made) {
        const int nth = ++times[call];
        const bool changes = !call.startsWith(u"look") && !call.startsWith(u"read")
                             && !call.startsWith(u"close") && !call.endsWith(u" AppInfo.txt");
        if (changes)
            kills.append(u"kill "_s + QString::number(nth) + u' ' + call);
    }
    return kills;
}

QStringList allOf(const Faults &faults)
{
    QStringList all;
    for (const QStringList &some : faults)
        all.append(some);
    return all;
}

/// Every so manieth.
QStringList strideOf(const QStringList &faults, qsizetype most)
{
    QStringList some;
    const qsizetype stride = std::max<qsizetype>(1, (faults.size() + most - 1) / most);
    for (qsizetype i = stride / 2; i < faults.size(); i += stride)
        some.append(faults[i]);
    return some;
}

/// One for each call of each file, a different one of its faults each time.
QStringList oneOfEach(const Faults &faults)
{
    QStringList some;
    constexpr qsizetype step = 7;
    for (const QStringList &alike : faults)
        some.append(alike[some.size() * step % alike.size()]);
    return some;
}

QStringList faultsFor(Extent extent, const Faults &faults)
{
    constexpr qsizetype shortCases = 8;
    constexpr qsizetype moreInCi = 100;
    switch (extent) {
    case Extent::Short:
        return strideOf(oneOfEach(faults), shortCases);
    case Extent::Ci:
        return oneOfEach(faults) + strideOf(allOf(faults), moreInCi);
    case Extent::Whole:
        break;
    }
    return allOf(faults);
}
} // namespace

class tst_EveryCallFails : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init() { found = 0; }
    void everyCallFailsOnce();
    void theProgramIsKilledBeforeEveryCall();

private:
    void complain(const QString &fault, QStringList wrong, const QStringList &said);
    void check(const QString &fault, DaysRun &run, bool finished);

    DaysCourt court;
    Faults faults;
    QStringList kills;
    int found = 0;
};

void tst_EveryCallFails::initTestCase()
{
    const QString complaint = court.Open();
    QVERIFY2(complaint.isEmpty(), qPrintable(complaint));
    const std::unique_ptr<DaysRun> counted = court.NewRun();
    counted->SetFiles(court.Files.Before);
    counted->StartOnFailingDisk({});
    QVERIFY(counted->Finish());
    QCOMPARE(counted->ComplaintOfEnd(), QString());
    QCOMPARE(counted->Said(), court.Said);
    QCOMPARE(ComplaintOfFiles(court.Files, counted->Files(), DaysEnd::ByItself), QString());
    faults = faultsOfDay(counted->Calls());
    kills = killsOfDay(counted->Calls());
    qInfo("%d calls, %d faults", int(counted->Calls().size()), int(allOf(faults).size()));
}

void tst_EveryCallFails::check(const QString &fault, DaysRun &run, bool finished)
{
    QStringList wrong;
    const QStringList said = run.Said();
    if (!finished || !run.ComplaintOfEnd().isEmpty())
        wrong.append(u"the end: "_s + run.ComplaintOfEnd());
    const FolderImage left = run.Files();
    wrong.append(ComplaintOfFiles(court.Files, left, DaysEnd::ByItself));
    const QSet<QString> usual(court.Said.begin(), court.Said.end());
    QStringList unusual;
    for (const QString &line : said) {
        if (!usual.contains(line))
            unusual.append(line);
    }
    // What cannot be done is no fault where the user was told why.
    const bool explained = std::any_of(unusual.begin(), unusual.end(), [](const QString &line) {
        return line.startsWith(u"box:") || line.startsWith(u"dialog put away:");
    });
    for (const QString &line : std::as_const(unusual)) {
        if (!explained && (line.startsWith(u"in vain") || line.startsWith(u"cannot")))
            wrong.append(line);
    }
    const QStringList missing = FilesNotWritten(court.Files, left);
    if (!missing.isEmpty() && unusual.isEmpty())
        wrong.append(u"nothing was said of: "_s + missing.join(u", "_s));
    if (fault.contains(u" history.db"))
        wrong.append(ComplaintOfHistory(run.AppPath() + u"/history.db"_s));
    complain(fault, wrong, unusual);
}

void tst_EveryCallFails::everyCallFailsOnce()
{
    const QString only = qEnvironmentVariable("HALVANE_SWEEP_ONLY");
    const Extent extent = SweepExtent();
    const QStringList chosen =
        only.isEmpty() ? faultsFor(extent, faults) : allOf(faults).filter(QRegularExpression(only));
    std::array<std::unique_ptr<DaysRun>, 2> runs{court.NewRun(), court.NewRun()};
    const size_t atOnce = extent == Extent::Short ? 1 : runs.size();
    for (qsizetype i = 0; i < chosen.size() + qsizetype(atOnce); ++i) {
        DaysRun &run = *runs.at(size_t(i) % atOnce);
        if (i >= qsizetype(atOnce)) {
            const bool finished = run.Finish();
            check(chosen[i - qsizetype(atOnce)], run, finished);
        }
        if (i < chosen.size()) {
            run.SetFiles(court.Files.Before);
            run.StartOnFailingDisk(chosen[i]);
        }
    }
    qInfo("%d faults", int(chosen.size()));
    QCOMPARE(found, 0);
}

/// As lines of its own: there is no room for many in a message of Qt Test.
void tst_EveryCallFails::complain(const QString &fault, QStringList wrong, const QStringList &said)
{
    wrong.removeAll(QString());
    if (wrong.isEmpty())
        return;
    ++found;
    const QString text = u"HALVANE_SWEEP_ONLY='^"_s + QRegularExpression::escape(fault)
                         + u"$'\n    "_s + (wrong + said).join(u"\n    "_s) + u'\n';
    std::fputs(qPrintable(text), stdout);
    std::fflush(stdout);
}

/// What is on the disk then is whole, and the next day begins, and ends, as any other.
void tst_EveryCallFails::theProgramIsKilledBeforeEveryCall()
{
    constexpr qsizetype shortCases = 2;
    constexpr qsizetype casesInCi = 30;
    const QString only = qEnvironmentVariable("HALVANE_SWEEP_ONLY");
    const Extent extent = SweepExtent();
    QStringList chosen = only.isEmpty() ? kills : kills.filter(QRegularExpression(only));
    if (only.isEmpty() && extent != Extent::Whole)
        chosen = strideOf(kills, extent == Extent::Ci ? casesInCi : shortCases);
    const std::unique_ptr<DaysRun> run = court.NewRun();
    for (const QString &fault : std::as_const(chosen)) {
        run->SetFiles(court.Files.Before);
        run->StartOnFailingDisk(fault);
        QVERIFY(run->Finish());
        complain(fault, court.ComplaintsOfKilled(*run), {});
    }
    qInfo("%d kills", int(chosen.size()));
    QCOMPARE(found, 0);
}

HALVANE_TEST(tst_EveryCallFails)
#include "tst_EveryCallFails.moc"
