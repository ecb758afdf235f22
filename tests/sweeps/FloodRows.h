#pragma once

#include "sweeps/FloodCourt.h"

#include <array>

class NameResultsWindow;

/// A list of results, and what its rows end in.
struct FloodList
{
    enum Kind { Superior, Idaho, Bankruptcy, Index, Civil, NonCivil };

    const char *Name;
    Kind Which;
    const char *State;
    const char *BehindNumber; ///< of a row
};
constexpr std::array<FloodList, 6> floodLists{{
    {"Superior", FloodList::Superior, "WA",
     "~01/02/1994~Malicious Mischief~WA Superior Ct King County~Defendant~"},
    {"Idaho", FloodList::Idaho, "ID",
     "~01/02/1994~Malicious Mischief~ID District Ct Ada County~Defendant~"},
    {"bankruptcy", FloodList::Bankruptcy, "WAWBK",
     "~RETRIEVECOMMAND=BKRPT^SUMMARY^99-20077^~03/16/1999~Chapter 7~WA Western Bankruptcy "
     "Ct~Debtor~Self~"},
    {"index", FloodList::Index, "WA",
     "~01/02/2002~Felony~King~Defendant~STATE V SMITH~03/04/2005~"},
    {"civil", FloodList::Civil, "", "~BED~Benton District~CV~OPN~DEF~01/02/2002~"},
    {"non-civil", FloodList::NonCivil, "", "~BED~Benton District~IN~OPN~DEF~01/02/2002~"},
}};

constexpr int millionRows = 1'000'000;
constexpr int rowsOfPiece = 500;

/// Row number `number`, no two of which are alike, with its bars.
QByteArray FloodRow(const FloodList &list, qint64 number);
/// So many rows, a multiple of rowsOfPiece, and the end mark.
Flood RowsOf(const FloodList &list, int rows);

/// A window for the list, shown, with one request line and a key at the end of the queue; it does
/// not ask for its turn.
NameResultsWindow *WindowOf(const FloodList &list);
