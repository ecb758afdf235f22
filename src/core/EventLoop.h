#pragma once

#include <functional>

/// Handles every event that is pending and returns at once.
///
/// Anything may have happened on return: windows closed, flags set, the link lost.
void Yield();

/// A yield between two tokens that are here already. What was posted is handled at each. The system
/// is asked what else there is when a tenth of a millisecond has gone since it was last asked here:
/// asking costs as much as a row of results, and no click and no timer waits longer for it.
void YieldBetween();

/// Handles what is pending; if there was nothing, spins for some tens of microseconds (an answer
/// over a fast link is often that near), then sleeps in the event loop until something happens or
/// `seconds` have gone by. A waiting program uses no processor time, and what arrives is still seen
/// on the very next turn.
///
/// Test your condition before each call: an event that was handled already wakes nobody.
void YieldUntilEvent(double seconds);

/// How many yields of any kind the process has made so far. A run that behaves well at one
/// yield must behave well at each of them; the tests count them through this.
unsigned long long YieldCount();

/// Called at the beginning of every yield of any kind, before anything is handled; an empty
/// function takes it away again. For tests, which let something happen inside a yield of their
/// choice; the program itself watches nothing.
void WatchYields(std::function<void()> watcher);
