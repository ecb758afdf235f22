#pragma once

#include <QString>

struct ResultsRecord;

/// The court, or the counties, that a request line of this search asks, in the words that the user
/// knows. A line for the cases of one person names the person, and a page of an index its rows.
QString CourtOfLine(const QString &line, const ResultsRecord &record);
