#pragma once

#include "searchentry/SearchEntry.h"

#include <QByteArray>

#include <optional>

// Searches as they were entered, in a form that can be kept, and from which each can be asked for
// again.

/// What this search is made from: nothing of what the form has out of sight, or knows of other
/// searches. Two of them are equal when they ask for the same.
SearchEntry AsAsked(SearchEntry entry);

/// The same with this bankruptcy court, 0 to 3, as the only one.
SearchEntry AsAskedOf(const SearchEntry &entry, int bankruptcyCourt);
/// The same with this row of the batch as the only one.
SearchEntry AsAskedInRow(const SearchEntry &entry, size_t row);

/// JSON with everything that differs from an empty entry.
QByteArray TextOfEntry(const SearchEntry &entry);
/// Nothing when the text is damaged, is no search, or has something that this program does not
/// know: half a search would find more, or less, than was asked for.
std::optional<SearchEntry> EntryOf(const QByteArray &text);
