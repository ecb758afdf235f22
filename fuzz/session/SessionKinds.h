#pragma once

#include <QString>

#include <memory>

class NameSearch;
struct CaseStart;

// The windows that a script can open, by number.

/// How many searches and cases there are.
inline constexpr int searchKinds = 11;
inline constexpr int caseKinds = 7;

/// A search with its request lines, for a name that `variant` chooses.
NameSearch *MakeSearch(int kind, int variant);

/// What a case starts with; `variant` chooses among the numbers with a meaning.
CaseStart MakeCaseStart(int kind, int variant);
