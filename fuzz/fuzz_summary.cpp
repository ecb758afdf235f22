// Whatever a Summary of the Superior Courts, Oregon, Idaho or a bankruptcy court says: it is read
// without an error, no line behind the header is lost, and no line costs more than its own.

#include "casedetails/SummaryReply.h"

#include "core/Windows1252.h"
#include "courts/CaseMarks.h"
#include "courts/CourtTable.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype fewestLines = 4;
constexpr std::array<QStringView, 4> states{u"WA", u"OR", u"ID", u"WAWBK"};

void require(bool holds)
{
    if (!holds)
        std::abort();
}

SummaryView read(const QString &state, const QStringList &lines)
{
    return ReadSummary(
        {state, u"King"_s, u"Pending .. "_s, u"Case Details (1)"_s, u"King County"_s}, lines);
}

qsizetype filled(const QStringList &lines)
{
    return lines.size() - lines.count(QString());
}

/// How many rows a table of this reply has.
qsizetype rowsOf(const QString &state, const QStringList &lines, bool multiple)
{
    const auto holdsTabDef = [](const QString &line) {
        return line.contains(u"TABDEF", Qt::CaseInsensitive);
    };
    if (state == u"WA")
        return filled(lines.mid(fewestLines));
    if (!IsBankruptcyCourt(state))
        return filled(lines.mid(1));
    if (multiple)
        return std::count_if(lines.begin(), lines.end(), HoldsRetrieveCommand);
    return filled(lines) - (std::any_of(lines.begin(), lines.end(), holdsTabDef) ? 1 : 0);
}

void requireGrid(const QString &state, const QStringList &lines, const SummaryView &view)
{
    require(view.Grid.has_value());
    const GridTable &grid = *view.Grid;
    for (const QStringList &row : grid.Rows)
        require(row.size() == grid.Columns.size());
    if (!grid.HasHeader) {
        require(grid.IsMessage() && grid.Rows.size() == 1);
        return;
    }
    require(grid.Columns.size() == (view.Multiple ? 3 : 2));
    require(grid.Rows.size() == rowsOf(state, lines, view.Multiple));
    require(view.List1.size() == (view.Multiple ? grid.Rows.size() : 0));
}

void requireTabs(const SummaryView &view)
{
    if (!view.Tabs)
        return;
    require(view.Tabs->value(0) == CaseTabRowOf(CaseTab::Summary).caption);
    for (const QString &caption : *view.Tabs)
        require(CaseTabOf(caption).has_value() && view.Tabs->count(caption) == 1);
}

/// A line without its mark is a line with an empty field, wherever it stands.
void requireNoLineCostsMore(const QString &state, const QStringList &lines, const SummaryView &view)
{
    if (IsBankruptcyCourt(state) || lines.size() < fewestLines || !view.Grid->HasHeader)
        return;
    QStringList closed = lines;
    for (QString &line : closed) {
        if (!line.isEmpty() && !line.contains(u'~'))
            line += u'~';
    }
    const SummaryView same = read(state, closed);
    require(view.Grid == same.Grid && view.CaseTitle == same.CaseTitle
            && view.CourtName == same.CourtName && view.DateFiled == same.DateFiled
            && view.TopFrameCaseType == same.TopFrameCaseType && view.Caption == same.Caption
            && view.Tabs == same.Tabs);
}

void checkLine(const QString &state, const QString &line)
{
    const SummaryLine kind = ClassifySummaryLine(state, line);
    require((kind == SummaryLine::EndOfReply) == line.endsWith(u"EOF~"));
    if (kind != SummaryLine::Error)
        return;
    const SummaryError error = ReadSummaryError(line);
    require(error.Response == error.Text);
    require(error.Text.size() <= std::max<qsizetype>(line.size(), 100));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString text = FromWindows1252(bytes);
    const QStringList lines = text.isEmpty() ? QStringList() : text.split(u'\n');
    for (const QStringView name : states) {
        const QString state = name.toString();
        for (const QString &line : lines)
            checkLine(state, line);
        const SummaryView view = read(state, lines);
        require(view.NotLocated == lines.isEmpty());
        requireGrid(state, lines, view);
        requireTabs(view);
        requireNoLineCostsMore(state, lines, view);
    }
    return 0;
}
