// A report of 10,000 rows to PDF, from its blocks to the file, against a bare QPainter that draws
// the same strings at the same places into a QPdfWriter, with the breaks of lines and pages given
// to it.

#include "BenchFolder.h"
#include "core/AppFolder.h"
#include "reports/ReportPainter.h"
#include "reports/ReportPdf.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;

constexpr int manyRows = 10'000;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

QString named(const char *text)
{
    return QString::fromLatin1(text);
}

/// A report as results windows print it: some names and descriptions take several lines.
Report results(int rows)
{
    constexpr std::array<const char *, 4> names{"ADAMS, JOHN QUINCY", "BAKER, ANNE", "EVANS, AVA",
                                                "VAN DER WESTHUIZEN, MAXIMILIAN ALEXANDER"};
    constexpr std::array<const char *, 3> descriptions{"Tort - Motor Vehicle", "Probate",
                                                       "Dissolution with Children"};
    Report report;
    report.Title = named("Halvane Search Results for: ADAMS, JOHN");
    report.Add(BlockKind::Title, {report.Title});
    QList<ColumnFormat> formats;
    for (const int width : {3000, 1400, 1250, 2600, 2000, 1500})
        formats.append({.Width = width, .Gap = 50});
    formats[0].WrapAt = 2700;
    formats[3].Yields = true;
    const int table = report.AddTable(formats);
    report.Add(BlockKind::ColumnHeads,
               {named("Participant Name"), named("Case Number"), named("Date Filed"),
                named("Description"), named("Location"), named("Role")},
               table);
    for (size_t i = 0; i < static_cast<size_t>(rows); ++i)
        report.Add(BlockKind::Row,
                   {named(names[i % names.size()]),
                    QStringLiteral("03-2-%1-1").arg(i, 6, 10, QLatin1Char('0')),
                    named("02/11/2003"), named(descriptions[i % descriptions.size()]),
                    named("King County Superior"), named("Defendant")},
                   table);
    return report;
}

/// What the bare painter is given: every string with its font and place, page by page.
QList<ReportPage> laidOut(const Report &report)
{
    const ReportPainter ruler;
    PageLayout layout(report, Paper(), &ruler);
    QList<ReportPage> pages;
    ReportPage page;
    while (layout.AddPage(&page))
        pages.append(std::exchange(page, {}));
    return pages;
}

QFont bareFont(ReportFont font)
{
    QFont made(ReportFontFamily());
    made.setPixelSize(font.Points * 20);
    made.setBold(font.Bold);
    return made;
}

void drawBare(const QList<ReportPage> &pages, const QString &path)
{
    QPdfWriter writer(path);
    writer.setResolution(1440);
    writer.setPageLayout(PageLayoutOf(Paper()));
    QPainter painter(&writer);
    bool first = true;
    for (const ReportPage &page : pages) {
        if (!std::exchange(first, false))
            writer.newPage();
        ReportFont set{0, false};
        for (const PlacedText &text : page.Texts) {
            if (std::exchange(set, text.Font) != text.Font)
                painter.setFont(bareFont(text.Font));
            painter.drawText(QPointF(text.Left, text.BaseLine), text.Text);
        }
    }
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Pdf10000Rows(benchmark::State &state)
{
    const Report report = results(manyRows);
    const QList<ReportPage> pages = laidOut(report);
    const QString path = AppFolder() + QStringLiteral("/report.pdf");
    const QString barePath = AppFolder() + QStringLiteral("/bare.pdf");
    std::vector<double> ours;
    std::vector<double> bare;
    for (auto _ : state) {
        const auto bareStart = Clock::now();
        drawBare(pages, barePath);
        bare.push_back(secondsSince(bareStart));
        const auto start = Clock::now();
        WritePdf(report, Paper(), path);
        ours.push_back(secondsSince(start));
        state.SetIterationTime(ours.back());
    }
    state.counters["pages"] = static_cast<double>(pages.size());
    state.counters["bare_milliseconds"] = median(bare) * 1000.0;
    state.counters["ratio_to_bare_painter"] = median(ours) / median(bare);
    state.counters["ratio_of_file_sizes"] =
        static_cast<double>(QFile(path).size()) / static_cast<double>(QFile(barePath).size());
}
} // namespace

BENCHMARK(Pdf10000Rows)->UseManualTime()->Iterations(9)->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const BenchFolder folder;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
