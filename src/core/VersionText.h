#pragma once

#include <QString>

/// What a report of a problem has to say of the program and the machine under it, in five lines of
/// "name: value" without a line's end behind the last: `program` and its version, Qt, the system,
/// the platform plugin and the build. Nothing of the user, of a folder or of a court is in it.
/// Before there is an application no plugin is loaded; the text names what will choose one instead.
QString VersionText(const QString &program);
