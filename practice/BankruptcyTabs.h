#pragma once

#include "practice/CaseTabs.h"

namespace Practice {
/// Answers a request for a tab of a bankruptcy.
Reply AnswerBankruptcyTab(const TabContext &context, const TabAsked &asked);
} // namespace Practice
