#pragma once

#include <QByteArrayView>

// Searching bytes that come by the hundred megabytes. A mark is found by its rarest sign, as fast
// as memory can be read; folding or indexing each piece first costs ten to twenty times as much.

/// Where the sign stands first, from `from` on; -1 when it does not.
qsizetype FindSign(QByteArrayView bytes, char sign, qsizetype from = 0);

/// Whether this word, given in capitals, stands at this place, in capitals or not.
bool StandsAt(QByteArrayView bytes, qsizetype at, QByteArrayView word);

/// Where the mark stands first, from `from` on; -1 when it does not. It is looked for by its first
/// sign, which should be a rare one.
qsizetype FindMark(QByteArrayView bytes, QByteArrayView mark, qsizetype from = 0);

/// Whether a word stands in the bytes, in capitals or not. It is given in capitals, and looked for
/// by its sign at `rare`, which is no letter.
bool HoldsWord(QByteArrayView bytes, QByteArrayView word, qsizetype rare = 0);
