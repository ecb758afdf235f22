#include "reports/ReportMail.h"

#include "core/AtomicFile.h"
#include "core/EndProgram.h"
#include "core/Platform.h"
#include "core/TextUtilities.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostNameCharacters = 60;

std::unique_ptr<QTemporaryDir> &privateFolder()
{
    static std::unique_ptr<QTemporaryDir> folder;
    return folder;
}

/// A new folder for each copy: two reports may have one name, and a mail that is being written
/// keeps its own. Throws error 76 when there is none to be had.
QString folderForCopy()
{
    std::unique_ptr<QTemporaryDir> &folder = privateFolder();
    if (!folder || !QFileInfo::exists(folder->path())) {
        folder = std::make_unique<QTemporaryDir>(QDir::tempPath() + u"/halvane-mail-XXXXXX"_s);
        AtEndOfProgram([] { privateFolder().reset(); });
    }
    QTemporaryDir own(folder->path() + u"/XXXXXX"_s);
    if (!folder->isValid() || !own.isValid())
        throw RunTimeError::PathNotFound();
    own.setAutoRemove(false);
    return own.path();
}

QString copyOf(const QString &path, const QString &name)
{
    const QString copy = folderForCopy() + u'/' + AttachmentName(name);
    FileReplacement file(copy);
    file.Write(FileContent(path));
    file.Commit(FileReplacement::Survives::Crash);
    return copy;
}
} // namespace

void SendReport(const QString &path, const QString &name, QObject *context,
                const std::function<void(const std::optional<RunTimeError> &)> &done)
{
    try {
        ComposeMail({.Recipient = u"Enter_Recipient_Names_Here"_s,
                     .Subject = u"Halvane - Search Results"_s,
                     .Body = u" \nPlease find attached a report for your review."_s,
                     .Attachment = copyOf(path, name)},
                    context, done);
    } catch (const RunTimeError &error) {
        done(error);
    }
}

QString AttachmentName(const QString &name)
{
    QString plain;
    const QString base = QFileInfo(name).completeBaseName();
    for (const QChar c : base) {
        const QChar kept = IsFileCharacter(c) && c != u' ' ? c : QChar(u'_');
        // What was left out between two words is one sign.
        if (kept != u'_' || !plain.endsWith(u'_'))
            plain += kept;
    }
    if (plain.isEmpty())
        plain = u"report"_s;
    return plain.left(mostNameCharacters) + u".txt"_s;
}
