// Whatever the lines of a reply say: a grid keeps its shape, a broken row loses nothing, a grid
// that is written down is read back as it was, and no reply ends in anything but a grid or a
// run-time error.

#include "casedetails/DocumentList.h"
#include "casedetails/GridGrammar.h"
#include "casedetails/TabGrids.h"

#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "core/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// What the procedure gives, or an empty table when it ends in an error that a tab traps.
template<class Procedure>
auto trapped(const Procedure &procedure) -> decltype(procedure())
{
    try {
        return procedure();
    } catch (const RunTimeError &error) {
        require(error.Number() == 6 || error.Number() == 13);
        return {};
    }
}

QString widthsOf(const QList<GridColumn> &columns)
{
    QString text;
    for (const GridColumn &column : columns)
        text += column.Header + u'~';
    for (const GridColumn &column : columns)
        text += QString::number(static_cast<qint64>(column.Percent)) + u'~';
    return text;
}

/// The grid as a grid of the grammar that expands nothing. A cell of the other may hold what
/// delimits here.
void requireReadBack(const GridTable &table)
{
    QStringList lines{u"GRIDDEF~"_s + widthsOf(table.Columns)};
    GridTable expected;
    for (const GridColumn &column : table.Columns)
        expected.Columns.append({column.Header, static_cast<double>(qint64(column.Percent))});
    for (const QStringList &row : table.Rows) {
        QStringList cells;
        for (qsizetype column = 0; column < table.Columns.size(); ++column)
            cells.append(TrimBlanks(row.value(column)).replace(u'~', u'-'));
        expected.Rows.append(cells);
        lines.append(cells.join(u'~') + u'~');
    }
    GridTable read = GridDefTable(lines, RowOrder::AsSent);
    for (QStringList &row : read.Rows)
        row = row.mid(0, table.Columns.size());
    require(read == expected);
}

void requireShape(const GridTable &table)
{
    require(table.Columns.size() <= maximumGridColumns);
    require(!table.Columns.isEmpty() || table.Rows.isEmpty());
    for (const QStringList &row : table.Rows)
        require(row.size() <= table.Columns.size());
}

void checkGridDef(const QStringList &lines)
{
    const GridTable sent = trapped([&] { return GridDefTable(lines, RowOrder::AsSent); });
    GridTable turned = trapped([&] { return GridDefTable(lines, RowOrder::LastFirst); });
    requireShape(sent);
    require(sent.Columns.isEmpty() || sent.Rows.size() == lines.size() - 1);
    std::reverse(turned.Rows.begin(), turned.Rows.end());
    require(turned == sent);
    if (!sent.Columns.isEmpty())
        requireReadBack(sent);
}

void checkExpansion(const QStringList &lines)
{
    QStringList expanded;
    const QStringList rows = ExpandGridRows(lines, &expanded);
    require(rows.size() <= lines.size() + 2 * lines.join(u'\n').count(u"<BR>"_s));
    qsizetype met = 0;
    for (const QString &row : rows) {
        require(!IsDefinitionLine(row) && !row.contains(u"<CR>"));
        if (met < expanded.size() && row == expanded[met])
            ++met;
    }
    require(met == expanded.size());

    const GridTable table = trapped([&] { return ColDefTable(lines); });
    requireShape(table);
    if (table.Columns.isEmpty())
        return;
    require(table.Rows.size() == rows.size());
    for (qsizetype row = 0; row < rows.size(); ++row) {
        const QStringList fields = rows[row].split(u'~');
        for (qsizetype column = 0; column < table.Rows[row].size(); ++column)
            require(TrimBlanks(fields[column]) == TrimBlanks(table.Rows[row][column]));
    }
}

void checkColumns(const QString &line)
{
    const auto columns = trapped([&] { return ApplyColDef(line); });
    if (columns)
        require(ApplyColDef(u"COLDEF~"_s + widthsOf(*columns)) == columns);
    requireShape({trapped([&] { return SetGridColsAndNamesAndWidths(line); }), {}});
}

void checkTabs(const QStringList &lines)
{
    constexpr std::array<QStringView, 4> states{u"WA", u"OR", u"ID", u"ORBK"};
    for (int tab = 0; tab < caseTabCount; ++tab) {
        const auto caseTab = static_cast<CaseTab>(tab);
        for (const QString &line : lines)
            require(caseTab != CaseTab::Documents
                    || ClassifyTabLine(caseTab, line) != TabLine::Error);
        for (const CaseKind kind : {CaseKind::State, CaseKind::Civil, CaseKind::NonCivil}) {
            for (const QStringView state : states) {
                const TabView view = trapped([&] {
                    return ShowTabResponse(kind, state.toString(), caseTab, lines, false, {});
                });
                requireShape(view.Grid);
                require(view.Notes.size() <= 2);
                require(view.Notes.isEmpty() || kind != CaseKind::State
                        || caseTab == CaseTab::Violations);
            }
        }
    }
    const TabView documents = trapped([&] { return ShowDocumentsResponse(lines, false, {}); });
    requireShape(documents.Grid);
    const bool listed = lines.size() > 4;
    require(documents.Grid.RowData.size() == (listed ? documents.Grid.Rows.size() : 0));
    // A line that breaks into more rows has a row of its own too.
    if (listed && !documents.Grid.Columns.isEmpty())
        require(documents.Grid.Rows.size() >= lines.size() - 4);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const QString text = FromWindows1252(bytes);
    const QStringList lines = text.isEmpty() ? QStringList() : text.split(u'\n');
    checkGridDef(lines);
    checkExpansion(lines);
    for (const QString &line : lines)
        checkColumns(line);
    for (const GridTable &table :
         {trapped([&] { return ColDefTable(lines); }), trapped([&] { return NamesTable(lines); }),
          trapped([&] { return DocumentsTable(lines); })}) {
        requireShape(table);
        if (!table.Columns.isEmpty())
            requireReadBack(table);
    }
    checkTabs(lines);
    return 0;
}
