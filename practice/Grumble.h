#pragma once

#include <QString>

namespace Practice {
/// Writes one line, with the program's name before it, to standard error.
void Grumble(const QString &text);
} // namespace Practice
