#pragma once

#include <QObject>

#include <functional>

namespace Practice {
/// Calls `ended` once when standard input reaches its end: a program that started the court with a
/// pipe for its input takes the court with it, however it ends itself.
void WatchInput(QObject *owner, std::function<void()> ended);
} // namespace Practice
