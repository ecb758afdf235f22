#pragma once

/// Treats the system's wish to end the program as a close by the task manager: the main window goes
/// through its rules of closing. A second wish ends the process at once. Call it once, when the
/// application object exists.
void CloseOnTermination();
