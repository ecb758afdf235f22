#pragma once

#include "practice/DocumentBytes.h"

namespace Practice {
/// The paper as a TIFF of so many pages, in black and white, each page a strip of PackBits: what
/// every viewer of the format has to read.
DocumentBytes TiffBytes(const Paper &paper);
} // namespace Practice
