#pragma once

#include "casedetails/TabGrids.h"
#include "records/CaseRecord.h"
#include "records/DocumentStart.h"

#include <optional>

// The list of the documents of a case, whose rows come while its reply is being read, and what a
// row of it opens. Lines are those of the reply, line 0 first.

/// The lines ahead of the first document, which define the table.
inline constexpr qsizetype documentDefinitionLines = 4;

/// Gives the table the columns of the definition lines, and no row. When it fails, the line for the
/// log: fewer than four lines have come, or a width is too great. Of four lines the last counts the
/// columns then, which have no headers.
std::optional<QString> InitDocGrid(const QStringList &lines, GridTable &table);

/// Adds the rows of a document: one, or one for each piece of a cell with "<BR>". `place` is the
/// index of its line, which the rows remember.
void GridDocumentsAddResponse(const QString &line, qsizetype place, GridTable &table);

/// The table of as much of a reply as has come. Nothing is in it before the fourth line has.
GridTable DocumentsTable(const QStringList &lines);

/// The whole reply of the Documents tab, with a message when it holds no list.
TabView ShowDocumentsResponse(const QStringList &lines, bool incomplete, const QString &request);

/// The document that a row opens. Nothing for a row without a retrieval command, for a message in
/// the place of the list, and for the headers, which are row 0 as in CaseLinks.h.
///
/// A row that a "<BR>" made belongs to its document: a cell that is empty in it is that of the
/// document's first row.
std::optional<DocumentStart> DocumentOfRow(const CaseRecord &record, int row);

/// The documents that these rows are of, each once, those that cannot be retrieved too: whoever
/// retrieves all has to say which could not be had.
QList<DocumentStart> DocumentsOfRows(const CaseRecord &record, const QList<int> &rows);

/// Whether the court gives the document out.
bool IsRetrievable(const DocumentStart &document);
