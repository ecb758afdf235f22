#pragma once

#include "practice/CaseTabs.h"

namespace Practice {
/// Answers a request for a tab of a case of the Superior Courts.
Reply AnswerSuperiorTab(const TabContext &context, const TabAsked &asked);

/// The command with which the program asks for a scanned document: fields in "¦", the first of
/// which has fields of its own in "^".
///
///     WASUPDOC^GETDOC^King^98-2-00017-7^4^¦IMG¦03/16/1998¦12¦Answer¦
QString DocumentCommand(const QString &county, const QString &number, int place, QDate date,
                        int pages, const QString &text);
} // namespace Practice
