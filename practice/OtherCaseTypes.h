#pragma once

#include "practice/OtherCourts.h"

#include <QStringView>

#include <span>

namespace Practice {
/// A kind of case in a family beside the Superior Courts.
struct OtherCaseType
{
    const char16_t *asked;  ///< how a request calls it; several kinds may share a word
    const char16_t *mark;   ///< what its numbers begin with; a district court's type
    const char16_t *ending; ///< what a number of Idaho ends with
    int weight;             ///< share of the family's cases, in percent
    bool lesser;            ///< heard by the District Courts of Oregon too
    bool personal;          ///< no business has a part in it
    const char16_t *role;
    const char16_t *otherRole; ///< nullptr: nobody else is named
    /// What a row says of it: a description, or in the district courts a status.
    std::span<const char16_t *const> texts;
};

/// All kinds of a family.
std::span<const OtherCaseType> CaseTypesOf(OtherFamily family);
} // namespace Practice
