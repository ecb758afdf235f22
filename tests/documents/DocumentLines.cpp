#include "documents/DocumentLines.h"

QString DocumentLine(const QString &pages, const QString &description)
{
    return u"RETRIEVEDOC="_s + DocumentRequest(pages, description);
}

QString DocumentRequest(const QString &pages, const QString &description)
{
    return u"WASUPDOC¦GETDOC¦King¦02-2-00123-4¦"_s
           u"77¦~1~01/02/2003~"_s
           + pages + u'~' + description + u'~';
}

QString DocumentFileName(const QString &pages, const QString &description)
{
    return u"King 02-2-00123-4 01-02-2003 "_s + pages + u" Pgs  "_s + description;
}

DocumentStart StartOf(const QString &pages, const QString &description)
{
    return {.Command = DocumentLine(pages, description),
            .CaseNumber = u"02-2-00123-4"_s,
            .County = u"King"_s,
            .Description = description,
            .PageCount = pages,
            .ClientMatterText = {}};
}

QByteArray DocumentBody(qsizetype bytes)
{
    QByteArray body;
    body.reserve(bytes);
    quint32 state = 12345;
    for (qsizetype i = 0; i < bytes; ++i) {
        state = state * 1664525U + 1013904223U;
        body.append(static_cast<char>(state >> 24U));
    }
    return body;
}

QByteArray DocumentHead(qsizetype bytes, const QByteArray &type)
{
    return "|FILELEN=" + QByteArray::number(bytes) + "~TYPE=" + type + "~|";
}

QByteArray DocumentReply(const QByteArray &body, const QByteArray &type)
{
    return DocumentHead(body.size(), type) + body + DocumentTail;
}
