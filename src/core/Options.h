#pragma once

#include <QString>

// The keys of options.ini by their names, known to the program or not, and the two moments at which
// it takes its settings. What each setting is stands in core/Settings.h.

/// The value of a key of options.ini, or "0" when the key or the file is missing.
QString GetOptionStr(const QString &section, const QString &key);

/// Writes a key of options.ini. Always True: a failure is logged by CSetting.
bool SaveOptionStr(const QString &section, const QString &key, const QString &value);

/// Each character of the trimmed text as "O" and its ANSI code in decimal: "Ab" gives "O65O98".
/// This is no protection, only a form in which the text is not read at a glance.
QString EncodeCredential(const QString &text);

/// The way back. A text without an "O" decodes to ""; an element that is no code from 0 to 255 is
/// passed over.
QString DecodeCredential(const QString &text);

/// Reads the settings that are global from the start on, and writes back those whose rule says so.
bool LoadAppOptions();

/// Reads the settings that the main window owns: it is loaded before LoadAppOptions runs.
void LoadMainWindowOptions();
