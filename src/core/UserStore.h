#pragma once

#include <QString>

// The per-user store of the platform, under the application's title: what belongs to the person at
// this machine and not to the installation, such as where the window stood. Its file
// is for its owner only.

QString UserStoreValue(const QString &section, const QString &key, const QString &fallback);
void SaveUserStoreValue(const QString &section, const QString &key, const QString &value);
