#pragma once

#include "practice/CaseTabs.h"

namespace Practice {
/// Answers a request for a tab of a case of the district and municipal courts.
Reply AnswerDistrictTab(const TabContext &context, const TabAsked &asked);
} // namespace Practice
