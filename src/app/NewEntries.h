#pragma once

/// Has the cases and searches that are started from now on compared with how they were seen before:
/// what was not there is marked, and what is there is kept for the next time. What the history does
/// not know marks nothing.
void WireNewEntries();
