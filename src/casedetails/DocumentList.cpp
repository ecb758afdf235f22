#include "casedetails/DocumentList.h"

#include "casedetails/GridGrammar.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "documents/DocumentName.h"

#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
// Where the columns of the list are what the transfer is told
constexpr qsizetype describing = 3;
constexpr qsizetype countingPages = 2;
constexpr qsizetype countingPagesInPierce = 1;
constexpr qsizetype dating = 1;
constexpr qsizetype datingInPierce = 0;

/// What stands in place of a list of documents, by the first line of the reply.
struct NoDocumentsRow
{
    QStringView phrase;
    QStringView message; ///< a line break makes another row
    QStringView log;     ///< with the request behind it
};

constexpr NoDocumentsRow documentsIncomplete{
    u"", u"Retrieval of Document Images Incomplete. Please Retry Search.",
    u"Incomplete Document Images Available Request: "};

constexpr std::array<NoDocumentsRow, 4> noDocuments{{
    {u"Court Documents N/A", u"Documents are not available at this time. Please try again later.",
     u"Documents are not available at this time. Please try again later: "},
    {u"Documents n/a for:", u"Document Images Are Not Available From This County.",
     u"Document Images Are Not Available From This County: "},
    {u"Documents for this Judgment are available by searching its associated case",
     u"Documents for this Judgment may be available by searching its associated case number.\n"
     "The Summary Tab contains the associated case number for this judgment.\n"
     "Tip: Double-Clicking on the associated case number entry will start a new search.",
     u"No Document Images Found For This Judgment Search: "},
    {u"", u"No Document Images Available For This Case.",
     u"No Document Images Found For This Particular Case: "},
}};

const NoDocumentsRow &noDocumentsOf(const QStringList &lines)
{
    const QString first = lines.value(0);
    return *std::find_if(noDocuments.begin(), noDocuments.end(),
                         [&](const NoDocumentsRow &row) { return first.contains(row.phrase); });
}

/// The cells of a document, before a "<BR>" in them makes more rows.
QStringList documentCells(const QString &line, qsizetype columns)
{
    if (line.isEmpty())
        return {};
    const QStringList fields = line.split(line.back());
    if (fields[0].contains(RetrieveHead))
        return fields.mid(1, columns);
    QStringList cells = fields.mid(0, columns);
    if (cells.size() > describing)
        cells[describing] += u" (Unavail.)"_s;
    return cells;
}

/// The rows of a document, the pieces of each broken cell below one another.
QList<QStringList> documentRows(const QStringList &cells)
{
    QList<QStringList> rows{{}};
    for (qsizetype column = 0; column < cells.size(); ++column) {
        QString cell = cells[column];
        const QStringList pieces = cell.replace(u"<CR>"_s, u" "_s).split(u"<BR>"_s);
        for (qsizetype piece = 0; piece < pieces.size(); ++piece) {
            if (piece == rows.size())
                rows.append(QStringList());
            QStringList &row = rows[piece];
            while (row.size() < column)
                row.append(QString());
            row.append(pieces[piece]);
        }
    }
    return rows;
}

QList<GridColumn> documentColumns(const QStringList &lines, const QString &definition)
{
    // The command, which is in front of each row, has its "~" in the last of them and no column.
    return ColDefColumns(definition, CountDelimiters(FieldAt(lines, 3), u'~') - 1);
}

/// The cell of a row of the list, or of the first row of its document when it is empty.
QString cellOf(const GridTable &table, qsizetype row, qsizetype column)
{
    const QString own = table.Rows[row].value(column);
    if (!TrimBlanks(own).isEmpty())
        return own;
    return table.Rows[table.RowData.indexOf(table.RowData[row])].value(column);
}

bool isOfPierce(const CaseRecord &record)
{
    return record.txtCountyName.toLower() == u"pierce";
}

/// The document that a row is of, whether or not it can be retrieved. Nothing where there is no
/// list, and for a row whose line is empty.
std::optional<DocumentStart> documentAt(const CaseRecord &record, int row)
{
    const GridTable &table = record.Tab(CaseTab::Documents).Table;
    const qsizetype place = row - 1;
    if (table.Columns.size() < 2 || place < 0 || place >= table.RowData.size())
        return std::nullopt;
    const QString line = record.DocumentLines.value(table.RowData[place]);
    if (line.isEmpty())
        return std::nullopt;
    const bool pierce = isOfPierce(record);
    return DocumentStart{.Command = line,
                         .CaseNumber = record.txtCaseNumber,
                         .County = record.txtCountyName,
                         .Description = cellOf(table, place, describing),
                         .PageCount =
                             cellOf(table, place, pierce ? countingPagesInPierce : countingPages),
                         .Date = cellOf(table, place, pierce ? datingInPierce : dating),
                         .ClientMatterText = record.ClientAcctgCode};
}
} // namespace

std::optional<QString> InitDocGrid(const QStringList &lines, GridTable &table)
{
    table = {};
    try {
        table.Columns = documentColumns(lines, FieldAt(lines, 2));
        return std::nullopt;
    } catch (const RunTimeError &error) {
        if (lines.size() >= documentDefinitionLines)
            table.Columns = documentColumns(lines, {});
        return u"Error *** frmCaseDetails::InitDocGrid(): Error: "_s + error.Description();
    }
}

void GridDocumentsAddResponse(const QString &line, qsizetype place, GridTable &table)
{
    // A line without a field has its row too: the place of a row is that of its line.
    if (table.Columns.isEmpty())
        return;
    for (const QStringList &row :
         documentRows(documentCells(TrimBlanks(line), table.Columns.size()))) {
        table.Rows.append(row);
        table.RowData.append(place);
    }
}

GridTable DocumentsTable(const QStringList &lines)
{
    GridTable table;
    if (lines.size() < documentDefinitionLines)
        return table;
    InitDocGrid(lines, table);
    for (qsizetype line = documentDefinitionLines; line < lines.size(); ++line)
        GridDocumentsAddResponse(lines[line], line, table);
    return table;
}

TabView ShowDocumentsResponse(const QStringList &lines, bool incomplete, const QString &request)
{
    if (lines.size() > documentDefinitionLines)
        return {DocumentsTable(lines), {}, {}};
    const NoDocumentsRow &row = incomplete ? documentsIncomplete : noDocumentsOf(lines);
    GridTable table = MessageTable({});
    table.Rows.clear();
    for (const QString &message : row.message.toString().split(u'\n'))
        table.Rows.append({message});
    return {table, {}, {row.log + request}};
}

bool IsRetrievable(const DocumentStart &document)
{
    return document.Command.contains(RetrieveHead);
}

std::optional<DocumentStart> DocumentOfRow(const CaseRecord &record, int row)
{
    const std::optional<DocumentStart> document = documentAt(record, row);
    return document && IsRetrievable(*document) ? document : std::nullopt;
}

QList<DocumentStart> DocumentsOfRows(const CaseRecord &record, const QList<int> &rows)
{
    const GridTable &table = record.Tab(CaseTab::Documents).Table;
    QList<DocumentStart> documents;
    QSet<qsizetype> taken;
    for (const int row : rows) {
        const std::optional<DocumentStart> document = documentAt(record, row);
        if (!document || taken.contains(table.RowData[row - 1]))
            continue;
        taken.insert(table.RowData[row - 1]);
        documents.append(*document);
    }
    return documents;
}
