#pragma once

#include "core/RunTimeError.h"

#include <QString>

#include <functional>
#include <optional>

class QObject;

/// Opens a mail with the report at `path` attached in the user's mail program, for the user to
/// address and send. `name` is what the report is called.
///
/// What is attached is a copy under a plain name, in a folder that only this user can read and that
/// goes with the program: mail programs stumble over blanks and commas, and the report may be
/// replaced before the mail is sent. It returns at once; `done` is called with what failed, unless
/// `context` is gone by then.
void SendReport(const QString &path, const QString &name, QObject *context,
                const std::function<void(const std::optional<RunTimeError> &)> &done);

/// The name of the copy: letters, digits, "-" and "_" of `name`, at most 60 of them, and ".txt";
/// "report.txt" when there are none.
QString AttachmentName(const QString &name);
