#pragma once

#include "practice/CaseTabs.h"
#include "practice/OtherCases.h"

#include <optional>

namespace Practice {
/// A case of a family beside the Superior Courts: what its tabs are made from, and what its list
/// row says.
struct OtherFile
{
    CaseFile file;
    OtherCase courtCase;
};

/// The case of that number, in whatever court of the family; nullopt when there is none.
std::optional<OtherFile> FindOtherFile(const TabContext &context, OtherFamily family,
                                       const QString &number);

/// A case with a meaning: of the first kind of its family, or when the non-civil side of a district
/// court is asked, of the first kind there.
OtherFile SpecialOtherFile(const TabTask &task, OtherFamily family);

/// The court of a case.
const OtherCourt &CourtOf(OtherFamily family, const OtherCase &courtCase);
} // namespace Practice
