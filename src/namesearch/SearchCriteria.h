#pragma once

#include <QString>

/// What a request line says of its search, in the words that the window shows.
struct SearchCriteria
{
    QString Name;      ///< lblNameVal
    QString CaseTypes; ///< lblCaseTypeVals
    QString Caption;
};

/// The criteria of a Washington Superior request line. Throws error 9 when the line has too few
/// fields.
SearchCriteria SuperiorCriteria(const QString &requestLine);

/// The county of a request line: field 6, trimmed and without its commas; "" when there is none.
QString CountyOfRequest(const QString &requestLine);
