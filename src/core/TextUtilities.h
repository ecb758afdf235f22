#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>

#include <functional>

/// The text without the blanks at either end. Only blanks: tabs and line ends are content.
QString TrimBlanks(const QString &text);

/// True when `text` begins with `head`, without regard to case.
bool BeginsWith(const QString &text, QStringView head);

/// The text on one line: a blank for each character that would end the line or that nothing shows.
QString OneLine(const QString &text);

enum class PadAlignment { Left = 0, Centre = 1, Right = 2 };

/// The trimmed text filled up to `width` characters with `pad` (a blank when empty). A text at or
/// above the width is returned as it stands. A pad of several characters may overshoot when it is
/// added at one side; centred text has its last character cut then. Any other alignment gives the
/// trimmed text.
QString PadString(const QString &text, int width, PadAlignment alignment = PadAlignment::Left,
                  const QString &pad = {});

/// Replaces every occurrence of `search`, or with `occurrence` of 1 or more only that one.
QString ReplaceText(const QString &text, const QString &search, const QString &replacement,
                    Qt::CaseSensitivity compare = Qt::CaseSensitive, int occurrence = 0);

/// Measures a text; the unit is the caller's (twips on a printer).
using TextMeasure = std::function<double(const QString &)>;

/// Adds the text to `lines`, broken at blanks so that no line measures more than `limit`, and
/// inside a word that is longer than that. Continuation lines begin with two blanks.
void WrapTextByWidth(const QString &text, double limit, const TextMeasure &textWidth,
                     QStringList &lines);

/// The same by number of characters, and with no indent. A single word that is longer than the
/// limit is a line of its own.
void WrapTextByLength(const QString &text, int limit, QStringList &lines);

/// Whether StripToFileChars keeps it.
bool IsFileCharacter(QChar character);

/// Keeps blanks, "-", "_", letters and digits, for use as a file name. Yields to the event loop
/// once for each character.
QString StripToFileChars(const QString &text);

/// A whole number from `low` to `high`, both included.
int RandomInRange(int low, int high);

/// A key of exactly 20 decimal digits that names one job in the turn queue: hour, minute, second
/// and year, then random digits.
QString MakeMasterKey();

/// The number of elements as a 16-bit count. An array that was never filled has 0. A count beyond
/// 16 bits is an error: it is shown in a box, and the answer is 0.
qint16 ArrayCount(qsizetype elements);

/// Shows a box with an error of the program itself. The core has no windows: the layer that has
/// them registers here at start, and without it nothing is shown.
void ShowErrorBox(const QString &text);
void SetErrorBox(std::function<void(const QString &)> box);

/// `percent` hundredths of the number in `value`, an empty text counting as "1". Throws error 13
/// when it is no number and 6 when it is too great for a whole one.
double PercentOfValue(const QString &value, double percent);

/// The greatest character count among the texts of a column.
qint16 MaxListColumnWidth(const QAbstractItemModel &list, int column);
