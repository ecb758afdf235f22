#include "casedetails/GridGrammar.h"

#include "core/TextUtilities.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView gridDefHead = u"GRIDDEF~";
constexpr QStringView colDefHead = u"COLDEF";
constexpr QStringView breakMark = u"<BR>";

/// A line with one of these anywhere defines the table.
constexpr std::array<QStringView, 5> definitionWords{u"COLALIGNMENT", u"COLDEF", u"TABDEF",
                                                     u"BREAKERS", u"TABNAME"};

// The lines of a reply in the table form
constexpr qsizetype columnLine = 2;
constexpr qsizetype countLine = 3;
constexpr qsizetype fewestLines = 5;

/// Half of the number, rounded to a whole one; a half goes to its even neighbour.
constexpr qsizetype halved(qsizetype number)
{
    if (number % 2 == 0)
        return number / 2;
    const qsizetype below = (number - 1) / 2;
    return below % 2 == 0 ? below : below + 1;
}
static_assert(halved(-1) == 0 && halved(1) == 0 && halved(3) == 2 && halved(5) == 2);

qsizetype bounded(qsizetype columns)
{
    return std::clamp<qsizetype>(columns, 0, maximumGridColumns);
}

/// Digits with or without a sign and a point. Not "1E5", "inf" or "nan", which may be headers.
bool isNumber(const QString &text)
{
    const QString trimmed = TrimBlanks(text);
    const bool isSigned = trimmed.startsWith(u'-') || trimmed.startsWith(u'+');
    qsizetype digits = 0;
    qsizetype points = 0;
    for (const QChar character : QStringView(trimmed).sliced(isSigned ? 1 : 0)) {
        if (character == u'.')
            ++points;
        else if (character >= u'0' && character <= u'9')
            ++digits;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}

double percentOf(const QString &width)
{
    return PercentOfValue(width, 100);
}

/// The line without what stands behind the last column that a grid can have.
QString withinColumns(const QString &line, QChar delimiter)
{
    qsizetype end = -1;
    for (int column = 0; column < maximumGridColumns; ++column) {
        end = line.indexOf(delimiter, end + 1);
        if (end < 0)
            return line;
    }
    return line.left(end + 1);
}

QString withoutSoftBreaks(QString text)
{
    return text.replace(u"<CR>"_s, u" "_s);
}

/// A row of the table form, still in one piece.
struct TableRow
{
    QString Line;
    qsizetype Broken = -1;  ///< the field whose "<BR>" made this row
    bool Continues = false; ///< not its first piece
};

TableRow brokenRow(const QStringList &fields, QChar delimiter, qsizetype broken, QStringView piece,
                   bool continues)
{
    TableRow row{{}, broken, continues};
    for (qsizetype column = 0; column < fields.size(); ++column) {
        if (column == broken)
            row.Line += piece;
        else
            row.Line += continues ? u" "_s : fields[column];
        row.Line += delimiter;
    }
    row.Line = withoutSoftBreaks(row.Line);
    return row;
}

void appendRows(const QString &whole, QChar delimiter, QList<TableRow> &rows)
{
    const QString line = withinColumns(whole, delimiter);
    if (!line.contains(breakMark)) {
        rows.append({withoutSoftBreaks(line)});
        return;
    }
    QStringList fields = line.split(delimiter);
    fields.removeLast(); // a field is what a delimiter closes
    // Each field with a mark breaks the whole line once; the others show theirs as they stand.
    for (qsizetype field = 0; field < fields.size(); ++field) {
        if (!fields[field].contains(breakMark))
            continue;
        bool continues = false;
        for (const QStringView piece : QStringView(fields[field]).split(breakMark)) {
            rows.append(brokenRow(fields, delimiter, field, piece, continues));
            continues = true;
        }
    }
}

QList<TableRow> expandedRows(const QStringList &lines)
{
    QList<TableRow> rows;
    for (const QString &line : lines) {
        if (!IsDefinitionLine(line))
            appendRows(line, u'~', rows);
    }
    return rows;
}

void noteExpanded(const QList<TableRow> &rows, QStringList *expanded)
{
    if (!expanded)
        return;
    for (const TableRow &row : rows) {
        if (row.Broken >= 0)
            expanded->append(row.Line);
    }
}

/// Adds the row. The blanks beside the further pieces of a broken cell stay.
void addCells(const TableRow &row, QChar delimiter, GridTable &table)
{
    const QStringList fields = row.Line.split(delimiter);
    QStringList cells;
    for (qsizetype column = 0; column < std::min(fields.size(), table.Columns.size()); ++column) {
        const bool isFilling = row.Continues && column != row.Broken;
        cells.append(isFilling ? fields[column] : TrimBlanks(fields[column]));
    }
    table.Rows.append(cells);
}

/// The cells of a line behind "GRIDDEF~". A line that is not divided stands in every column.
QStringList gridDefCells(const QString &line, qsizetype columns)
{
    if (!line.contains(u'~'))
        return QStringList(columns, TrimBlanks(line));
    const QStringList fields = withinColumns(line, u'~').split(u'~');
    QStringList cells;
    for (const QString &field : fields.mid(0, columns))
        cells.append(TrimBlanks(field));
    return cells;
}
} // namespace

int CountDelimiters(const QString &line, QChar delimiter)
{
    return static_cast<int>(
        std::min<qsizetype>(line.count(delimiter), std::numeric_limits<int>::max()));
}

bool IsDefinitionLine(const QString &line)
{
    return std::any_of(definitionWords.begin(), definitionWords.end(),
                       [&](QStringView word) { return line.contains(word); });
}

GridTable GridDefTable(const QStringList &lines, RowOrder order, int first)
{
    GridTable table;
    if (first < 0 || first >= lines.size() || !lines[first].startsWith(gridDefHead))
        return table;
    const QStringList elements = lines[first].mid(gridDefHead.size()).split(u'~');
    const qsizetype defined = halved(elements.size() - 1);
    const qsizetype columns = bounded(defined);
    for (qsizetype column = 0; column < columns; ++column)
        table.Columns.append({elements[column], percentOf(elements[defined + column])});
    if (columns == 0)
        return table;
    for (qsizetype line = first + 1; line < lines.size(); ++line)
        table.Rows.append(gridDefCells(lines[line], columns));
    if (order == RowOrder::LastFirst)
        std::reverse(table.Rows.begin(), table.Rows.end());
    return table;
}

std::optional<QList<GridColumn>> ApplyColDef(const QString &line)
{
    constexpr qsizetype head = 7; // with its "~"
    if (!line.startsWith(colDefHead) || !line.contains(u'~') || line.size() <= head + 1)
        return std::nullopt;
    const QStringList elements = line.mid(head).chopped(1).split(u'~');
    QList<GridColumn> columns(bounded(halved(elements.size())));
    if (columns.isEmpty())
        return std::nullopt;
    qsizetype headers = 0;
    qsizetype widths = 0;
    for (const QString &element : elements) {
        const bool isWidth = isNumber(element);
        qsizetype &column = isWidth ? widths : headers;
        if (column == columns.size())
            continue;
        if (isWidth)
            columns[column].Percent = percentOf(element);
        else
            columns[column].Header = element;
        ++column;
    }
    return columns;
}

QList<GridColumn> ColDefColumns(const QString &line, int count)
{
    if (auto columns = ApplyColDef(line))
        return *columns;
    const double percent = 100.0 / std::max(count, 1);
    return QList<GridColumn>(bounded(count), {{}, percent});
}

QList<GridColumn> SetGridColsAndNamesAndWidths(const QString &line)
{
    const QStringList elements = TrimBlanks(ReplaceText(line, u"COLDEF"_s, u" "_s)).split(u'~');
    const qsizetype upperBound = elements.size() - 1;
    const qsizetype defined = halved(halved(2 * upperBound - 1));
    QList<GridColumn> columns;
    for (qsizetype column = 0; column < bounded(defined); ++column)
        columns.append({elements[column + 1], percentOf(elements[defined + column + 1])});
    return columns;
}

QStringList ExpandGridRows(const QStringList &lines, QStringList *expanded)
{
    const QList<TableRow> rows = expandedRows(lines);
    noteExpanded(rows, expanded);
    QStringList texts;
    for (const TableRow &row : rows)
        texts.append(row.Line);
    return texts;
}

GridTable ColDefTable(const QStringList &lines, QStringList *expanded)
{
    GridTable table;
    if (lines.size() < fewestLines)
        return table;
    const QList<TableRow> rows = expandedRows(lines);
    noteExpanded(rows, expanded);
    table.Columns = ColDefColumns(lines[columnLine], CountDelimiters(lines[countLine], u'~'));
    if (table.Columns.isEmpty())
        return table;
    for (const TableRow &row : rows)
        addCells(row, u'~', table);
    return table;
}

GridTable NamesTable(const QStringList &lines)
{
    GridTable table;
    if (lines.size() < fewestLines)
        return table;
    table.Columns = SetGridColsAndNamesAndWidths(lines[columnLine]);
    if (table.Columns.isEmpty()) {
        // No headers then, as when the other reader rejects a line.
        table.Columns = ColDefColumns({}, CountDelimiters(lines[countLine], u'~'));
    }
    if (table.Columns.isEmpty())
        return table;
    for (const QString &line : lines) {
        if (IsDefinitionLine(line))
            continue;
        const QString row = TrimBlanks(line);
        // A line without a last character has nothing to split by, and no cells.
        const QChar delimiter = row.isEmpty() ? u'~' : row.back();
        QList<TableRow> rows;
        appendRows(row, delimiter, rows);
        for (const TableRow &tableRow : std::as_const(rows))
            addCells(tableRow, delimiter, table);
    }
    return table;
}

GridTable MessageTable(const QString &message)
{
    return {{GridColumn{{}, 100}}, {QStringList{message}}, true};
}

GridTable OneCellTable(const QString &message)
{
    return {{GridColumn{{}, 100}}, {QStringList{message}}, false};
}
