#pragma once

#include <QString>

// The marks that a list of results puts in front of a case number: "*" for an archived case, ">>"
// for one that has been opened, ">>*" for both.

/// The number without its marks.
QString CaseNumberOf(const QString &cell);

// "RETRIEVECOMMAND=", in any case of letters, is what a bankruptcy court puts ahead of the request
// for a case or for a tab of one.

bool HoldsRetrieveCommand(const QString &text);
/// The text with every such mark left out.
QString WithoutRetrieveCommand(const QString &text);
