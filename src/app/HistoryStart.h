#pragma once

/// Connects the options to the history, the menu to the account, and what is wrong with the file to
/// the status bar of the main window. Once, with the rest of the wiring.
void WireHistory();

/// Opens the history as the options say, and forgets what is too old; a practice session has one of
/// its own. What is in it at the end of the program is written before the end.
void StartHistory(bool practice);
