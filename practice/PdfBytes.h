#pragma once

#include "practice/DocumentBytes.h"

namespace Practice {
/// The paper as a PDF of so many pages. One that would be shorter than `least` bytes is made as
/// long by a stream that no page shows.
DocumentBytes PdfBytes(const Paper &paper, qint64 least = 0);
} // namespace Practice
