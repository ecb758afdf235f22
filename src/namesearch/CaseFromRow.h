#pragma once

#include "namesearch/ResultColumns.h"
#include "records/CaseStart.h"

#include <QString>
#include <QStringList>

#include <optional>

// From a row of results to what its case window is given.

/// The cell of a case that has been opened: with ">>" in front, once.
QString MarkedAsOpened(const QString &cell);

/// True for a row of a case; false for a warning or a tip among the rows.
bool IsCaseRow(const QStringList &cells);
/// The same, by the cell with the row's number.
bool NamesCase(const QString &cell);

/// A case of frmNameSearchResults; `state` is a value of lblState. Cells that are missing count as
/// empty.
CaseStart CaseOfRow(const QStringList &cells, ResultKind kind, const QString &state);

/// A case of the District and Municipal Courts. `requestType` is the case type that was searched
/// for, "CV" or "IN". Among the non-civil cases are those of the Superior Courts, which have their
/// own window.
CaseStart DiscisCaseOfRow(const QStringList &cells, ResultKind kind, const QString &requestType);

/// The case type of a District or Municipal request line, "" when it has none.
QString CaseTypeOfRequest(const QString &requestLine);
