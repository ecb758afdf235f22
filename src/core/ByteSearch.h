#pragma once

#include <QByteArrayView>

// Searching bytes that come by the hundred megabytes. In the bytes of a compressed page every sign
// stands every few hundred bytes, and two given signs side by side almost nowhere: what is looked
// for is found by two of its signs, block by block and without a branch, which a compiler turns
// into vector instructions. Folding or indexing each piece first costs ten to twenty times as much,
// and stopping at each single sign twice as much.

/// A letter as a small one. What is no letter may come out as another sign.
constexpr char AsSmall(char sign)
{
    return static_cast<char>(sign | 0x20);
}

/// Bytes that are searched in one go.
inline constexpr qsizetype SearchedBlock = 256;

/// Whether two signs that fit stand side by side in the block that begins here. One byte behind the
/// block is looked at too.
template<class Fit>
bool BlockHolds(const char *block, Fit fit)
{
    unsigned char any = 0;
    for (qsizetype i = 0; i < SearchedBlock; ++i)
        any = static_cast<unsigned char>(any
                                         | static_cast<unsigned char>(fit(block[i], block[i + 1])));
    return any != 0;
}

/// The first place, from `from` on, whose sign and the next one fit, and where `stands(place)` is
/// true; -1 when there is none. `fit(sign, next)` says 1 or 0 and should have no branch.
template<class Fit, class Stands>
qsizetype FindPlace(QByteArrayView bytes, qsizetype from, Fit fit, Stands stands)
{
    const char *signs = bytes.data();
    const qsizetype last = bytes.size() - 1;
    for (qsizetype block = from; block < last; block += SearchedBlock) {
        const bool whole = last - block >= SearchedBlock;
        if (whole && !BlockHolds(signs + block, fit))
            continue;
        const qsizetype end = whole ? block + SearchedBlock : last;
        for (qsizetype at = block; at < end; ++at) {
            if (fit(signs[at], signs[at + 1]) && stands(at))
                return at;
        }
    }
    return -1;
}

/// Whether this word, given in capitals, stands at this place, in capitals or not.
bool StandsAt(QByteArrayView bytes, qsizetype at, QByteArrayView word);

/// Where the mark, of two signs at least, stands first, from `from` on; -1 when it does not.
qsizetype FindMark(QByteArrayView bytes, QByteArrayView mark, qsizetype from = 0);
