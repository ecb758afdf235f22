#include "core/Platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <io.h>
#endif

#ifdef Q_OS_WIN
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <string>
#include <vector>
#endif

namespace {
std::filesystem::path nativePath(const QString &path)
{
    return std::filesystem::path(path.toStdU16String());
}

std::function<bool(const QString &)> shellInPlace;

/// What the desktop answers when a mail could not be opened.
struct MailFailure
{
    int code;
    QStringView description;
};
constexpr int mailActionFailed = 4;
constexpr std::array<MailFailure, 4> mailFailures{{
    {1, u"The mail program was called wrongly"},
    {2, u"File not found"},
    {3, u"There is no mail program"},
    {mailActionFailed, u"The mail program failed"},
}};

/// Nothing when the mail was opened.
std::optional<RunTimeError> mailFailureOf(int code)
{
    if (code == 0)
        return std::nullopt;
    for (const MailFailure &failure : mailFailures)
        if (failure.code == code)
            return RunTimeError(code, failure.description.toString());
    return RunTimeError(code, QStringLiteral("The mail program failed"));
}

#ifdef Q_OS_WIN
bool openWithDesktop(const QString &path)
{
    // What it answers is no handle, whatever its type: above 32 is success.
    constexpr INT_PTR mostOfErrors = 32;
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    return reinterpret_cast<INT_PTR>(
               ::ShellExecuteW(nullptr, L"open", native.c_str(), nullptr, nullptr, SW_SHOWNORMAL))
           > mostOfErrors;
}
#else
#ifdef Q_OS_MACOS
constexpr QStringView openingProgram = u"open";
#else
constexpr QStringView openingProgram = u"xdg-open";
#endif

bool openWithDesktop(const QString &path)
{
    const QString opener = QStandardPaths::findExecutable(openingProgram.toString());
    // Absolute, so that no name is taken for an option.
    return !opener.isEmpty()
           && QProcess::startDetached(opener, {QDir(path).absolutePath()}, QDir::rootPath());
}
#endif
} // namespace

AppendedFile::AppendedFile(const QString &path) : name(QFile::encodeName(path)) {}

#ifdef Q_OS_UNIX
namespace {
/// Appends all of the bytes or none: of what a full disk has taken nothing stays, or the next entry
/// would stand behind half a one. `size` is that of the file before.
bool appendWhole(int descriptor, const QByteArray &bytes, qint64 size)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t written =
            ::write(descriptor, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            break;
        done += written;
    }
    if (done == bytes.size())
        return true;
    // When that fails, too, nothing more can be done.
    if (done > 0) {
        [[maybe_unused]] const int cut = ::ftruncate(descriptor, size);
    }
    return false;
}
} // namespace

void AppendedFile::keepToOwner(int descriptor, qint64 size)
{
    if (size == sizeLeft)
        return;
    struct stat facts = {};
    if (::fstat(descriptor, &facts) == 0 && (facts.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        ::fchmod(descriptor, S_IRUSR | S_IWUSR);
}

AppendResult AppendedFile::Append(const QByteArray &bytes, qint64 largest)
{
    // The mode is given with the creation: there is no moment at which others could open the file.
    const int descriptor =
        ::open(name.constData(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return AppendResult::Failed;
    // Not asked for among the other facts: Linux would note that somebody has seen the time of the
    // last change, and write a new one at every entry.
    const qint64 size = ::lseek(descriptor, 0, SEEK_END);
    keepToOwner(descriptor, size);
    if (size > largest) {
        ::close(descriptor);
        return AppendResult::TooLarge;
    }
    const bool written = appendWhole(descriptor, bytes, size);
    sizeLeft = written ? size + bytes.size() : -1;
    return ::close(descriptor) == 0 && written ? AppendResult::Appended : AppendResult::Failed;
}
#else
AppendResult AppendedFile::Append(const QByteArray &bytes, qint64 largest)
{
    QFile file(QFile::decodeName(name));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return AppendResult::Failed;
    const qint64 size = file.size();
    if (size > largest)
        return AppendResult::TooLarge;
    if (file.write(bytes) == bytes.size() && file.flush())
        return AppendResult::Appended;
    file.resize(size);
    return AppendResult::Failed;
}
#endif

bool FlushToDisk(int fileDescriptor)
{
#ifdef Q_OS_UNIX
    return ::fsync(fileDescriptor) == 0;
#else
    return ::_commit(fileDescriptor) == 0;
#endif
}

bool RenameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return !error;
}

bool OpenByShell(const QString &path)
{
    return shellInPlace ? shellInPlace(path) : openWithDesktop(path);
}

void ReplaceShell(std::function<bool(const QString &)> shell)
{
    shellInPlace = std::move(shell);
}

void ComposeMail(const MailDraft &draft, QObject *context,
                 const std::function<void(const std::optional<RunTimeError> &)> &done)
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (program.isEmpty()) {
        QMetaObject::invokeMethod(
            context, [done] { done(RunTimeError::FileNotFound()); }, Qt::QueuedConnection);
        return;
    }
    // Of the process, not of the window: a mail program that is about to open outlives it.
    auto *mailer = new QProcess(QCoreApplication::instance());
    mailer->setStandardInputFile(QProcess::nullDevice());
    mailer->setStandardOutputFile(QProcess::nullDevice());
    mailer->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(mailer, &QProcess::finished, mailer, &QObject::deleteLater);
    QObject::connect(
        mailer, &QProcess::finished, context, [done](int code, QProcess::ExitStatus status) {
            done(mailFailureOf(status == QProcess::NormalExit ? code : mailActionFailed));
        });
    QObject::connect(
        mailer, &QProcess::errorOccurred, context,
        [done](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                done(mailFailureOf(mailActionFailed));
        },
        Qt::QueuedConnection);
    QObject::connect(mailer, &QProcess::errorOccurred, mailer,
                     [mailer](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             mailer->deleteLater();
                     });
    mailer->start(program, {QStringLiteral("--utf8"), QStringLiteral("--subject"), draft.Subject,
                            QStringLiteral("--body"), draft.Body, QStringLiteral("--attach"),
                            draft.Attachment, QStringLiteral("mailto:") + draft.Recipient});
}

QString UserIdText()
{
#ifdef Q_OS_UNIX
    return QString::number(::getuid());
#else
    return qEnvironmentVariable("USERNAME");
#endif
}

#ifdef Q_OS_WIN
bool HasRegistry()
{
    return true;
}

std::optional<RegistryValue> MachineRegistryValue(const QString &key, const QString &name)
{
    HKEY opened = nullptr;
    const std::wstring keyName = key.toStdWString();
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyName.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return std::nullopt;
    const std::wstring valueName = name.toStdWString();
    DWORD type = 0;
    DWORD size = 0;
    std::vector<BYTE> bytes;
    LSTATUS status = ::RegQueryValueExW(opened, valueName.c_str(), nullptr, &type, nullptr, &size);
    if (status == ERROR_SUCCESS) {
        bytes.resize(size);
        status = ::RegQueryValueExW(opened, valueName.c_str(), nullptr, &type, bytes.data(), &size);
    }
    ::RegCloseKey(opened);
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    if (type == REG_DWORD && size == sizeof(quint32)) {
        quint32 number = 0;
        std::copy_n(bytes.data(), sizeof number, reinterpret_cast<BYTE *>(&number));
        return number;
    }
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return std::nullopt;
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(bytes.data()),
                              static_cast<qsizetype>(size / sizeof(char16_t)));
}
#else
bool HasRegistry()
{
    return false;
}

std::optional<RegistryValue> MachineRegistryValue(const QString &, const QString &)
{
    return std::nullopt;
}
#endif
