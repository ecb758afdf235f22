#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

/// When the case of an identity (CaseIdentity) was opened last; nothing when it never was.
using CaseMemory = std::function<std::optional<QDateTime>(const QString &identity)>;

/// The lists of results ask this memory from now on; an empty one remembers nothing, as it is at
/// first.
void UseCaseMemory(CaseMemory memory);
std::optional<QDateTime> LastOpened(const QString &identity);
