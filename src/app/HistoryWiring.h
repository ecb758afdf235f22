#pragma once

// The history learns of jobs and requests here, and nowhere else: nothing below knows of it.

/// Writes down, from now on, whatever is launched, sent and over, as far as the history is open;
/// called once, at the start of the program. What was stopped because the program ends counts as
/// not run.
void FollowJobs();

/// The history is switched off: what has not ended would never end in it, and be offered by the
/// next session that has one. It is over there; how it ends is written if the history is on by
/// then.
void LeaveHistory();
