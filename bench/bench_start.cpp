// The program's start, from the command to the form of a search that waits for the user, against a
// program that shows an empty window: processor time and memory. On the platform that is told
// (QT_QPA_PLATFORM), without a display offscreen. What the program waits on purpose is no
// processor time.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int lookMilliseconds = 50;
/// A program that has done nothing for so many looks, a second, waits for its user.
constexpr int looksAtRest = 20;

struct Cost
{
    double ProcessorMilliseconds = 0.0;
    double ResidentMegabytes = 0.0;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double processorMilliseconds(const QString &process)
{
    double sum = 0.0;
    const QDir tasks(process + u"/task"_s);
    for (const QString &task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        sum += contentOf(tasks.filePath(task) + u"/schedstat"_s).split(' ').first().toDouble();
    return sum / 1e6;
}

double residentMegabytes(const QString &process)
{
    const QByteArrayList lines = contentOf(process + u"/status"_s).split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmRSS:"))
            return line.sliced(6).simplified().split(' ').first().toDouble() / 1024.0;
    }
    return 0.0;
}

/// Starts a program and looks at it until it has come as far as `isThere` says and is at rest.
Cost costOf(const QString &program, const QStringList &arguments,
            const std::function<bool()> &isThere)
{
    QProcess started;
    started.setStandardOutputFile(QProcess::nullDevice());
    started.setStandardErrorFile(QProcess::nullDevice());
    started.start(program, arguments);
    if (!started.waitForStarted())
        qFatal("cannot start a program");
    const QString process = u"/proc/"_s + QString::number(started.processId());
    double used = 0.0;
    for (int atRest = 0; atRest < looksAtRest;) {
        QThread::msleep(lookMilliseconds);
        const double now = processorMilliseconds(process);
        atRest = isThere() && now <= used ? atRest + 1 : 0;
        used = std::max(used, now);
    }
    const Cost cost{used, residentMegabytes(process)};
    started.kill();
    started.waitForFinished();
    return cost;
}

/// As it is on a first start, but for the question whether to connect, which would stand before
/// the form.
Cost costOfProgram()
{
    const QTemporaryDir folder;
    QByteArray options = contentOf(QStringLiteral(HALVANE_DATA_DIR "/options.ini"));
    options.replace("ShowAlerts=1", "ShowAlerts=0");
    QFile file(folder.filePath(u"options.ini"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(options) != options.size())
        qFatal("cannot write the settings");
    file.close();
    const QString log = folder.filePath(u"AppInfo.txt"_s);
    return costOf(QStringLiteral(HALVANE_PROGRAM), {u"--folder"_s, folder.path()},
                  // Written just before the form is shown.
                  [&log] { return contentOf(log).contains(" --  \r\n"); });
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Start(benchmark::State &state)
{
    std::vector<double> bareTime;
    std::vector<double> bareMemory;
    std::vector<double> time;
    std::vector<double> memory;
    for (auto _ : state) {
        const Cost bare = costOf(QStringLiteral(BARE_WINDOW), {}, [] { return true; });
        bareTime.push_back(bare.ProcessorMilliseconds);
        bareMemory.push_back(bare.ResidentMegabytes);
        const Cost cost = costOfProgram();
        time.push_back(cost.ProcessorMilliseconds);
        memory.push_back(cost.ResidentMegabytes);
        state.SetIterationTime(cost.ProcessorMilliseconds / 1e3);
    }
    state.counters["processor_ms"] = median(time);
    state.counters["bare_processor_ms"] = median(bareTime);
    state.counters["resident_mb"] = median(memory);
    state.counters["bare_resident_mb"] = median(bareMemory);
}
} // namespace

BENCHMARK(Start)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
