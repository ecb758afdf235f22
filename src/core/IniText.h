#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Reading and changing the text of an ini file, as the platform's profile calls do it: sections and
// keys are case-blind, the first one wins, surrounding quotes of a value are stripped on reading,
// and every line that is not the one to be changed stays as it was, comments included.

/// The value of `key` in `section`, or nullopt when there is none.
std::optional<QString> IniValue(const QByteArray &text, const QString &section, const QString &key);

/// The text with `key` set. A missing key goes behind the section's last line, a missing section to
/// the end. Line ends and NULs in the arguments become blanks: they would be lines of their own.
/// A name that the file could not give back changes nothing: a key that would be read as a section
/// or a comment, or that holds "=", a section that holds "]".
QByteArray IniTextWithValue(const QByteArray &text, const QString &section, const QString &key,
                            const QString &value);

QByteArray IniTextWithoutKey(const QByteArray &text, const QString &section, const QString &key);

QByteArray IniTextWithoutSection(const QByteArray &text, const QString &section);
