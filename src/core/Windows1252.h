#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

/// Text as the wire and the files hold it: Windows-1252, one byte a character.
///
/// All 256 bytes round-trip; the five that stand for no character (81, 8D, 8F, 90, 9D) map to the
/// same code point. Characters outside the code page become "?".
QByteArray ToWindows1252(QStringView text);
/// The same, behind what `bytes` holds already.
void AppendWindows1252(QByteArray &bytes, QStringView text);

QString FromWindows1252(QByteArrayView bytes);

/// True when every character of `text` exists in Windows-1252.
bool FitsWindows1252(QStringView text);

/// The characters that Windows-1252 does not have, each once, in the order of the text.
QStringList CharactersOutsideWindows1252(const QString &text);

/// The text in upper case, each character by itself: one that has no upper case in the code page
/// ("ß", "µ") stays as it is, since its upper case could not travel.
QString FoldToUpper(const QString &text);

/// The ANSI code of a character, or -1 when the code page has none for it.
int AnsiCode(QChar character);

/// The character of an ANSI code from 0 to 255.
QChar AnsiCharacter(quint8 code);
