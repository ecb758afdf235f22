#pragma once

/// Treats the system's wish to end the program (SIGTERM, SIGINT, SIGHUP) as a close by the task
/// manager: the main window goes through its rules of closing. A second signal
/// ends the process at once. Call it once, when the application object exists.
void CloseOnTermination();
