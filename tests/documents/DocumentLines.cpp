#include "documents/DocumentLines.h"

QString DocumentLine(const QString &pages, const QString &description, const QString &place)
{
    return u"RETRIEVEDOC="_s + DocumentRequest(pages, description, place);
}

QString DocumentRequest(const QString &pages, const QString &description, const QString &place)
{
    return u"WASUPDOC¦GETDOC¦King¦02-2-00123-4¦"_s
           u"77¦~"_s
           + place + u"~01/02/2003~"_s + pages + u'~' + description + u'~';
}

QString DocumentFileName(const QString &pages, const QString &description)
{
    return u"King 02-2-00123-4 01-02-2003 "_s + pages + u" Pgs  "_s + description;
}

DocumentStart StartOf(const QString &pages, const QString &description, const QString &place)
{
    return {.Command = DocumentLine(pages, description, place),
            .CaseNumber = u"02-2-00123-4"_s,
            .County = u"King"_s,
            .Description = description,
            .PageCount = pages,
            .Date = u"01/02/2003"_s,
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
