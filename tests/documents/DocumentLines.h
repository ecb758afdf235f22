#pragma once

#include "records/DocumentStart.h"

#include <QByteArray>
#include <QString>

using namespace Qt::StringLiterals;

// What a court sends of a document, and what a starter hands over.

/// The line of a document in the list, with its command. Two documents of one name have places of
/// their own.
QString DocumentLine(const QString &pages = u"5"_s, const QString &description = u"COMPLAINT"_s,
                     const QString &place = u"1"_s);
/// What is asked for by that line.
QString DocumentRequest(const QString &pages = u"5"_s, const QString &description = u"COMPLAINT"_s,
                        const QString &place = u"1"_s);
/// The file name that it gives, without the type.
QString DocumentFileName(const QString &pages = u"5"_s,
                         const QString &description = u"COMPLAINT"_s);
/// What the list hands over for it.
DocumentStart StartOf(const QString &pages = u"5"_s, const QString &description = u"COMPLAINT"_s,
                      const QString &place = u"1"_s);

/// So many bytes of any value, bars among them, but nothing that a stream marks with.
QByteArray DocumentBody(qsizetype bytes);
QByteArray DocumentHead(qsizetype bytes, const QByteArray &type = "PDF");
inline const QByteArray DocumentTail = "|EOD~||EOF~|";
/// Head, body and tail.
QByteArray DocumentReply(const QByteArray &body, const QByteArray &type = "PDF");
