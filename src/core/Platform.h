#pragma once

#include "core/RunTimeError.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <variant>

class QObject;

// What only one platform has, behind one small file.

enum class AppendResult { Appended, Failed, TooLarge };

/// Opens `path` for appending, creating it for its owner only, writes `bytes` and closes it. A file
/// that already has more than `largest` bytes is left as it is and reported.
AppendResult AppendOwnerOnly(const QString &path, const QByteArray &bytes, qint64 largest);

/// Makes the data written through the file descriptor survive a power cut.
bool FlushToDisk(int fileDescriptor);

/// Puts the file `from` in the place of `to` in one step: whoever opens `to` sees the old file or
/// the new one and never anything between.
bool RenameOver(const QString &from, const QString &to);

/// Opens a file or a folder with what the desktop has for it, and does not wait for it. The path
/// is one argument and passes no command line. False when nothing there opens files.
bool OpenByShell(const QString &path);

/// Who opens files in the shell's place; an empty function puts the shell back.
void ReplaceShell(std::function<bool(const QString &path)> shell);

/// A mail that the user still has to address and send.
struct MailDraft
{
    QString Recipient;
    QString Subject;
    QString Body;
    QString Attachment; ///< the path of a file, whose name is plain
};

/// Opens the draft in the mail program of the desktop, each part as an argument of its own, and
/// returns at once. When the desktop has answered, `done` is called with what failed, unless
/// `context` is gone by then: 53 when there is no mail program, otherwise the number that the
/// desktop gave.
void ComposeMail(const MailDraft &draft, QObject *context,
                 const std::function<void(const std::optional<RunTimeError> &)> &done);

/// The signed-in user's id as text, for names that two users must not share.
QString UserIdText();

/// A value of the registry: text with whatever stands behind its end, or a number.
using RegistryValue = std::variant<QString, quint32>;

/// True where there is a registry: on Windows only.
bool HasRegistry();

/// The value `name` under `key` of the machine's part of the registry, or nothing when there is
/// none or it is neither text nor a number.
std::optional<RegistryValue> MachineRegistryValue(const QString &key, const QString &name);
