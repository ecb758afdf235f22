#pragma once

#include "practice/CaseTabs.h"
#include "practice/DocumentReply.h"

#include <optional>

namespace Practice {
/// Answers a request for a tab of a case of the Superior Courts.
Reply AnswerSuperiorTab(const TabContext &context, const TabAsked &asked);

/// The document that a retrieval command names; nullopt when no list of documents has it.
std::optional<ListedDocument> FindSuperiorDocument(const TabContext &context,
                                                   const DocumentAsked &asked);
} // namespace Practice
