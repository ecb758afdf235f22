#pragma once

#include <QString>

#include <array>

namespace Practice {
// The documents of one case of the practice court, each of which comes with a trouble of its own:
// its description says which. docs/practice.md has the same list.

enum class DocumentTrouble : quint8 {
    None,
    Notices,    ///< `number` lines of progress ahead of it
    Typed,      ///< of a type that is not shown: `type`
    TooLong,    ///< the head says more bytes than come
    TooShort,   ///< the head says fewer
    NoLength,   ///< the head does not say how many
    Dropped,    ///< the connection is closed in the middle
    Stalled,    ///< nothing more comes from the middle on
    Huge,       ///< `number` bytes
    Slow,       ///< takes `number` seconds
    Gone,       ///< is listed, and not there
    Tiff,       ///< none, but that it is a TIFF
    Unavailable ///< is listed without a command
};

struct DocumentTroubleRow
{
    int pages;
    const char16_t *text; ///< what the list calls it
    DocumentTrouble trouble;
    qint64 number = 0;
    const char *type = nullptr;
};

/// In the order of the list, the first of which has place 1.
extern const std::array<DocumentTroubleRow, 22> documentTroubles;
} // namespace Practice
