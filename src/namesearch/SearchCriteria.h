#pragma once

#include <QString>

#include <optional>

/// What a request line says of its search, in the words that the window shows.
struct SearchCriteria
{
    QString Name;      ///< lblNameVal
    QString CaseTypes; ///< lblCaseTypeVals
    QString Caption;
};

/// The search that a request line belongs to.
struct CriteriaSource
{
    QString State;            ///< a value of lblState
    bool IndexSearch = false; ///< the fields are closed by "~"
    QString CountyList = {};  ///< txtCountyList
};

/// The criteria of a Superior, Index, Oregon or Idaho request line; the caption is empty for any
/// other state. Throws error 9 when the line has too few fields.
SearchCriteria CriteriaOf(const QString &requestLine, const CriteriaSource &source);

/// The name that a request line asks for, "SMITH, JOHN, Q"; "" when it has too few fields. The
/// fields of an index search are closed by "~".
QString NameOfRequest(const QString &requestLine, bool indexSearch);

/// True for the courts whose window shows what its starter wrote into it, since their request lines
/// do not have it.
bool KeepsGivenCriteria(const QString &state);

/// The criteria of a District or Municipal request line. `courtCounty` is what lblCourtCounty
/// reads, for a line that names no single court. The line does not name the case types. Throws
/// error 9 when the line has too few fields.
SearchCriteria DiscisCriteria(const QString &requestLine, const QString &courtCounty);

/// The county of a request line: field 6, trimmed and without its commas; nothing when the line has
/// no such field.
std::optional<QString> CountyOfRequest(const QString &requestLine);
