#pragma once

#include <QString>

// Not every Oregon county has every court. A search of several counties leaves out the requests
// that a county could not answer.

/// False for a line that its county cannot answer, or that is no Oregon request by county.
bool IsOregonRequestValid(const QString &line);

/// The line changed so that its county can answer it, where that is possible; where it is not, the
/// answer is still no valid line.
QString FixOregonRequest(const QString &line);
