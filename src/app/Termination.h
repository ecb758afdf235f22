#pragma once

/// Treats the wish of the system to end the program (SIGTERM, SIGINT, SIGHUP) as what it is, a
/// close by the task manager: the main window goes through its rules of closing. A second signal
/// ends the process at once. Call it once, when the application object exists.
void CloseOnTermination();
