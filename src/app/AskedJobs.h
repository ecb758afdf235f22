#pragma once

#include "history/AskedItem.h"

#include <optional>

class Job;
struct CaseStart;

// What the history keeps of a job: what it is for, how it ended, and what it asks the court.

/// The line of a job that waits for its first turn; nothing for a job of no kind that is kept. When
/// it is asked for again, its origin gives the same job.
std::optional<AskedItem> AskedItemOf(const Job &job);
/// The line of a case that waits and has no job yet: the same as its job's.
AskedItem AskedItemOf(const CaseStart &start);

/// How a job that is over has ended, in the words of its window.
QString OutcomeOf(const Job &job);

/// Whether a run that is over, and that the user has not stopped, did not come to its end: the
/// session had to, or the link went.
bool WasCutOff(const Job &job);

/// How many rows, tabs, pages or documents have come; -1 when that is not known.
int CountOf(const Job &job);

/// What a request of this job, as it went out, is counted as.
SentKind SentKindOf(const Job &job, const QString &request);

/// The client accounting code that its requests carry.
QString ClientCodeOf(const Job &job);
