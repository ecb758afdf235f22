#pragma once

#include "practice/Population.h"

#include <span>

namespace Practice {
// The words that people and businesses are named with. Names are upper case, as the courts write
// them. Some hold what trips careless code: an apostrophe, a blank, a dash, a letter with an
// accent.

/// From the most to the least common; the place in the list decides how many people have it.
std::span<const char16_t *const> Surnames();

/// Likewise from the most to the least common.
std::span<const char16_t *const> FirstNames();

// A business is named "CASCADE PLUMBING INC" from these three.
std::span<const char16_t *const> BusinessHeads();
std::span<const char16_t *const> BusinessTrades();
std::span<const char16_t *const> BusinessForms();

/// Somebody of surname `last`, another one for each `number`.
Person MadeUpNamesake(const QString &last, qint64 number);
} // namespace Practice
