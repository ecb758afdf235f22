#pragma once

#include <QString>

// The marks that a list of results puts in front of a case number: "*" for an archived case, ">>"
// for one that has been opened, ">>*" for both.

/// The number without its marks.
QString CaseNumberOf(const QString &cell);
