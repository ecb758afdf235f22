#pragma once

#include "core/Platform.h"

#include <functional>

/// Where the system's information tool is looked for, and how it is run.
struct SystemInfoSource
{
    bool hasRegistry = false; ///< without one there is no tool to look for
    std::function<std::optional<RegistryValue>(const QString &key, const QString &name)> readValue;
    std::function<bool(const QString &path)> fileExists;
    std::function<bool(const QString &path)> run;

    /// The machine that the program runs on.
    static SystemInfoSource OfThisMachine();
};

/// A registry value as text: a text up to its NUL, a number in hexadecimal behind "&h". Empty when
/// there is no such value.
QString GetKeyValue(const SystemInfoSource &source, const QString &key, const QString &name);

/// The path of the tool, or "" when neither of the two places in which it may stand knows it.
QString SystemInfoTool(const SystemInfoSource &source);
