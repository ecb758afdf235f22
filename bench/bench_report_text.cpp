// The text report of a search of 100,000 rows, from its record to the file, against a bare program
// that writes the same bytes into a file beside, has the disk take them and puts it in its place.

#include "reports/ReportFile.h"
#include "reports/ResultsReport.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
using Clock = std::chrono::steady_clock;

constexpr int manyRows = 100'000;
constexpr int ownerOnly = 0600;
constexpr qsizetype pieceBytes = 1 << 16;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void fill(ResultsRecord &record)
{
    record.lblState = u"WA"_s;
    record.lblNameVal = u"SMITH, JOHN"_s;
    record.txtCountyList = u"King County - Washington Superior Courts"_s;
    for (int i = 0; i < manyRows; ++i)
        record.Rows.AddRow({u"SMITH, JOHN Q"_s + QString::number(i),
                            u"94-1-"_s + QString::number(i).rightJustified(5, u'0') + u"-1"_s,
                            u"01/02/1994"_s, u"Malicious Mischief"_s,
                            u"WA Superior Ct King County"_s, u"Defendant"_s});
}

/// Seconds from the record to the file.
double reportSeconds(const ResultsRecord &record, const QString &path)
{
    const Clock::time_point start = Clock::now();
    WriteReportFile(path, ResultsText(record, CasesOf(record), {}));
    return secondsSince(start);
}

/// Seconds for the same bytes with nothing but the system's calls.
double bareSeconds(const QByteArray &bytes, const QByteArray &path)
{
    const QByteArray beside = path + ".new";
    const Clock::time_point start = Clock::now();
    const int file =
        ::open(beside.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ownerOnly);
    for (qsizetype at = 0; at < bytes.size();) {
        const ssize_t written =
            ::write(file, bytes.constData() + at,
                    static_cast<size_t>(std::min(pieceBytes, bytes.size() - at)));
        if (written <= 0)
            qFatal("cannot write");
        at += written;
    }
    ::fsync(file);
    ::close(file);
    std::rename(beside.constData(), path.constData());
    return secondsSince(start);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void reportAgainstBareWrite(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"report.Txt"_s);
    ResultsRecord record;
    fill(record);
    std::vector<double> report;
    std::vector<double> bare;
    reportSeconds(record, path);
    QFile written(path);
    if (!written.open(QIODevice::ReadOnly))
        qFatal("no report");
    const QByteArray bytes = written.readAll();
    for (auto _ : state) {
        report.push_back(reportSeconds(record, path));
        bare.push_back(bareSeconds(bytes, QFile::encodeName(path)));
        state.SetIterationTime(report.back());
    }
    state.counters["ratio"] = median(report) / median(bare);
    state.counters["bare_ms"] = median(bare) * 1000;
    state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
}
BENCHMARK(reportAgainstBareWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
} // namespace

BENCHMARK_MAIN();
