// Whatever a Summary of the District and Municipal Courts says: it is read without an error, every
// label of a header reads something, and no item is lost.

#include "casedetails/DiscisSummary.h"

#include "core/TextUtilities.h"
#include "core/Windows1252.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype headerLines = 6;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// The texts in which there is something, in their order.
QStringList said(const QStringList &texts)
{
    QStringList kept;
    for (const QString &text : texts) {
        if (!TrimBlanks(text).isEmpty())
            kept.append(text);
    }
    return kept;
}

QStringList cellsOf(const GridTable &grid)
{
    QStringList cells;
    for (const QStringList &row : grid.Rows)
        cells += row;
    return cells;
}

/// The labels that both windows have, and those of one.
QList<std::optional<QString>> labelsOf(const DiscisSummaryView &view)
{
    return {view.CaseNo,    view.CourtName, view.DateFiled, view.Name,   view.Sex,
            view.CourtType, view.CaseTitle, view.Cause,     view.SuitAmt};
}

void requireLabels(const DiscisSummaryView &view)
{
    qsizetype set = 0;
    for (const std::optional<QString> &label : labelsOf(view)) {
        require(!label || !label->isEmpty());
        set += label.has_value() ? 1 : 0;
    }
    // All of a header, or none when a phrase stands in its place.
    require(set == headerLines || (set == 0 && view.Note.has_value()) || view.Status.has_value());
}

void requireItems(CaseKind kind, const QStringList &lines, const GridTable &grid)
{
    for (const QStringList &row : grid.Rows)
        require(!row.isEmpty() && row.size() <= grid.Columns.size());
    if (!grid.HasHeader) {
        require(grid.IsMessage() && grid.Rows.size() == 1);
        return;
    }
    QStringList sent;
    QStringList items = lines.mid(headerLines);
    items.removeAll(QString());
    for (const QString &item : std::as_const(items))
        sent += item.split(u'~');
    if (kind == CaseKind::NonCivil) {
        require(said(cellsOf(grid)) == said(sent));
        return;
    }
    constexpr qsizetype rowsOfHeader = 4;
    require(grid.Rows.size() == rowsOfHeader + items.size());
}

/// A header line without its mark is one with an empty field.
void requireNoLineCostsMore(CaseKind kind, const QStringList &lines, const DiscisSummaryView &view)
{
    QStringList closed = lines;
    for (qsizetype line = 0; line < std::min(headerLines, closed.size()); ++line) {
        if (!closed[line].contains(u'~'))
            closed[line] += u'~';
    }
    const DiscisSummaryView same = ReadDiscisSummary(kind, closed);
    require(labelsOf(view) == labelsOf(same) && view.Grid == same.Grid && view.Note == same.Note
            && view.Status == same.Status);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString text = FromWindows1252(bytes);
    const QStringList lines = text.isEmpty() ? QStringList() : text.split(u'\n');
    for (const CaseKind kind : {CaseKind::Civil, CaseKind::NonCivil}) {
        const DiscisSummaryView view = ReadDiscisSummary(kind, lines);
        requireLabels(view);
        requireItems(kind, lines, view.Grid);
        requireNoLineCostsMore(kind, lines, view);
    }
    return 0;
}
