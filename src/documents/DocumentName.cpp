#include "documents/DocumentName.h"

#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
/// A name longer than this is refused by file systems, with the type and what a file is called
/// while it is being written.
constexpr qsizetype longestName = 200;

/// The fields of a list that is ended by its own delimiter.
QStringList fieldsOf(const QString &list)
{
    if (list.isEmpty())
        throw RunTimeError::SubscriptOutOfRange();
    return list.split(list.back());
}

QString nameFromFields(const QString &line)
{
    const QStringList fields = fieldsOf(RetrievalRequest(line));
    const QStringList ofCase = fieldsOf(FieldAt(fields, 0));
    QString date = FieldAt(fields, 2);
    date.replace(u'/', u'-');
    return FieldAt(ofCase, 2) + u' ' + FieldAt(ofCase, 3) + u' ' + date + u' ' + FieldAt(fields, 3)
           + u" Pgs "_s + u' ' + FieldAt(fields, 4);
}
} // namespace

QString RetrievalRequest(const QString &line)
{
    QString request = line;
    // A frame has no escape.
    return request.remove(RetrieveHead.toString()).remove(u'|');
}

QString ReportsFolder()
{
    return AppFolder() + u"/Reports"_s;
}

void CreateReportsFolder(const QString &path)
{
    if (!MakeOwnFolder(path))
        throw RunTimeError::PermissionDenied();
}

QString BuildDocFileName(const QString &line)
{
    try {
        return StripToFileChars(nameFromFields(line).left(longestName));
    } catch (const RunTimeError &) {
        return Clock::Current().Now().toString(u"MM-dd-yyyy_hhmmss"_s);
    }
}
