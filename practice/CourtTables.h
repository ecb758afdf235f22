#pragma once

#include <QStringView>

#include <array>
#include <optional>
#include <span>

namespace Practice {
/// A part that somebody can have in a case of one type.
struct PartyKind
{
    const char16_t *role;
    int chance;        ///< how often, in percent, a case has this party; the first ones always
    int businessShare; ///< how often, in percent, it is a business
};

/// A case type of the Superior Courts: the digit in the case number, the word the search form and
/// the requests use, and what cases of that type look like.
struct CaseType
{
    int digit;
    const char16_t *word;
    int weight; ///< share of all cases, in percent
    std::span<const char16_t *const> descriptions;
    std::span<const PartyKind> parties;
};

/// All types, by digit.
std::span<const CaseType> CaseTypes();

/// The type of that digit or of that word, whatever its case; nullptr when there is none.
const CaseType *CaseTypeOfDigit(int digit);
const CaseType *CaseTypeOfWord(QStringView word);
} // namespace Practice
