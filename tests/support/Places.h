#pragma once

#include <QString>

// Where this build and its sources lie. One source knows it, so that no other one's compile line
// differs from clone to clone.

/// A file of the project's data folder, or the folder itself.
QString DataPath(const QString &name = {});
/// A page of the project's docs folder.
QString DocsPath(const QString &name);
/// A program of this build.
QString ProgramPath(const QString &name);
