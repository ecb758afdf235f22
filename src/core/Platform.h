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

/// A file of its owner's alone that grows by one entry at a time: it is opened, appended to and
/// closed for each, so that it can be read, renamed or deleted at any time in between.
class AppendedFile
{
public:
    explicit AppendedFile(const QString &path);

    /// Appends all of the bytes, or none when not all of them can be written. Creates the file for
    /// its owner only, and takes it from others when it has come from elsewhere since the last
    /// entry. One that already has more than `largest` bytes is left as it is and reported.
    AppendResult Append(const QByteArray &bytes, qint64 largest);

private:
#ifdef Q_OS_UNIX
    /// Whose file it is is looked at only when it is not as long as the last entry has left it: a
    /// busy search writes a hundred thousand entries a second.
    void keepToOwner(int descriptor, qint64 size);

    qint64 sizeLeft = -1; ///< -1 before the first entry
#endif
    QByteArray name; ///< as the system writes it
};

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

/// Calls `wanted` from the event loop when the system wishes the program to end (SIGTERM, SIGINT,
/// SIGHUP). The same wish a second time ends the process at once. Call it once, when the
/// application object exists.
void OnTermination(std::function<void()> wanted);

/// Calls `ended` once when standard input reaches its end, unless `owner` is gone by then: a
/// program that started this one with a pipe for its input takes it with it, however it ends
/// itself.
void WatchInput(QObject *owner, std::function<void()> ended);

/// True when windows can be shown to somebody, or when the environment says where they go.
bool HasDisplay();

/// The signed-in user's id as text, for names that two users must not share.
QString UserIdText();

/// A value of the registry: text with whatever stands behind its end, or a number.
using RegistryValue = std::variant<QString, quint32>;

/// True where there is a registry: on Windows only.
bool HasRegistry();

/// The value `name` under `key` of the machine's part of the registry, or nothing when there is
/// none or it is neither text nor a number.
std::optional<RegistryValue> MachineRegistryValue(const QString &key, const QString &name);
