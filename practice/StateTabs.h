#pragma once

#include "practice/CaseTabs.h"

namespace Practice {
/// Answers a request for a tab of a case of the courts of Oregon or of Idaho.
Reply AnswerStateTab(OtherFamily family, const TabContext &context, const TabAsked &asked);
} // namespace Practice
