#pragma once

#include <QString>

#include <optional>

// Settings that hold for this run of the program only. They go before what options.ini has for the
// same key, for whoever reads it, and the key in the file stays as it is, whoever writes: so a
// practice court leaves no trace among the settings of a real session.

/// Has a key of options.ini read as this value until the program ends.
void HoldForThisRun(const QString &section, const QString &key, const QString &value);

/// The value that a key is held at; nothing when it is the file's. Names of sections and keys are
/// the same in capital and small letters.
std::optional<QString> HeldForThisRun(const QString &section, const QString &key);
