// Opening the search form, against a bare window with as many plain controls; and starting a civil
// search of all 173 District and Municipal Courts, against such a window and the bare lines.

#include "BenchFolder.h"

#include "controls/FormWindow.h"
#include "core/AppFolder.h"
#include "core/GlobalState.h"
#include "courts/DiscisCourts.h"
#include "jobs/frmQueue.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/frmSearchWA.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {
/// Processor time: other programs on the machine take none of it.
double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

template<typename Work>
double secondsOf(Work work)
{
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

void finishDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// A window with so many buttons and labels, laid out and painted once.
void openBareWindow(int controls)
{
    QWidget window;
    auto *layout = new QGridLayout(&window);
    for (int i = 0; i < controls; ++i) {
        QWidget *control = nullptr;
        if (i % 2 == 0)
            control = new QRadioButton(u"Control"_s, &window);
        else
            control = new QLabel(u"Control"_s, &window);
        layout->addWidget(control, i / 8, i % 8);
    }
    window.show();
    QCoreApplication::processEvents();
}

int openForm()
{
    frmSearchWA::ShowForm();
    QCoreApplication::processEvents();
    const auto controls = frmSearchWA::Form().findChildren<QWidget *>().size();
    frmSearchWA::Form().Unload();
    finishDeletions();
    return static_cast<int>(controls);
}

void OpenForm(benchmark::State &state)
{
    const int controls = openForm();
    double baseline = 0.0;
    double subject = 0.0;
    for (auto _ : state) {
        baseline += secondsOf([controls] { openBareWindow(controls); });
        const double seconds = secondsOf([] { openForm(); });
        subject += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["controls"] = controls;
    state.counters["ratio_to_bare_window"] = subject / baseline;
}

SearchEntry allCivilCourts()
{
    SearchEntry entry;
    entry.Court = CourtFamily::Discis;
    entry.Where = SearchScope::DiscisCivil;
    entry.Names = {u"SMITH"_s, u"JOHN"_s, u"Q"_s, QString()};
    entry.DiscisCountyIndex = 0;
    entry.DiscisCounty = u"-- ALL COUNTIES/STATEWIDE --"_s;
    entry.DiscisItems = {u"Statewide (all counties/jurisdictions)"_s};
    entry.DiscisSelected = entry.DiscisItems;
    return entry;
}

void closeResults()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->objectName().startsWith(u"frm"))
            delete window;
    }
    frmQueue::Unload();
}

void StartStatewideCivilSearch(benchmark::State &state)
{
    LoadDiscisCourts();
    Global.strSearchState = u"WA"_s;
    const SearchEntry entry = allCivilCourts();
    constexpr int controlsOfResults = 20;
    ShownRecents recents;
    double baseline = 0.0;
    double subject = 0.0;
    for (auto _ : state) {
        baseline += secondsOf([] {
            openBareWindow(controlsOfResults);
            QStringList lines;
            for (const clsDiscisCourts &court : DiscisCourts())
                lines.append(u"DISCIS\u00A6SMITH\u00A6JOHN\u00A6Q\u00A6"_s + court.CourtCode);
            benchmark::DoNotOptimize(lines);
        });
        DispatchResult result = DispatchResult::Nothing;
        const double seconds = secondsOf([&] { result = DispatchSearch(entry, {}, recents); });
        closeResults();
        if (result != DispatchResult::Waiting) {
            state.SkipWithError("the search did not start");
            break;
        }
        subject += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["courts"] = static_cast<double>(DiscisCourts().size());
    state.counters["ratio_to_bare_window"] = subject / baseline;
}
} // namespace

BENCHMARK(OpenForm)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(StartStatewideCivilSearch)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const BenchFolder folder;
    const QDir data(QStringLiteral(HALVANE_DATA_DIR));
    const QStringList files = data.entryList(QDir::Files);
    for (const QString &file : files)
        QFile::copy(data.filePath(file), AppFile(file));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
