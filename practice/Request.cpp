#include "practice/Request.h"

#include "core/Windows1252.h"

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr auto tagOpening = u"^^CAC:";
constexpr auto tagClosing = u"^^";

// The longest request has a dozen fields. One of very many is unknown without being taken apart.
constexpr qsizetype mostFields = 2'000;

/// Takes the tag off the end of `text`, if it has one.
void takeTag(QString &text, Request &request)
{
    const QStringView opening(tagOpening);
    const QStringView closing(tagClosing);
    if (!text.endsWith(closing))
        return;
    const qsizetype at = text.lastIndexOf(opening);
    const qsizetype codeAt = at + opening.size();
    const qsizetype codeEnd = text.size() - closing.size();
    if (at < 0)
        return;
    request.tagged = true;
    request.accountingCode = text.mid(codeAt, codeEnd - codeAt);
    text.truncate(at);
}
} // namespace

Request ParseRequest(QByteArrayView bytes)
{
    Request request;
    QString text = FromWindows1252(bytes);
    if (!text.endsWith(brokenBar) && !text.endsWith(tilde) && !text.endsWith(atSign)) {
        request.keyword = text;
        return request;
    }
    request.delimiter = text.back();
    if (text.count(request.delimiter) > mostFields)
        return request;
    text.chop(1);
    takeTag(text, request);
    request.fields = text.split(request.delimiter);
    request.keyword = request.fields.takeFirst();
    return request;
}

bool IsStop(const Request &request)
{
    // A case window puts the bar first.
    if (request.delimiter.isNull())
        return request.keyword == u"¦STOP";
    if (request.delimiter == brokenBar)
        return request.keyword == u"STOP" && request.fields.isEmpty();
    return request.delimiter == tilde && request.keyword == u"BKRPT"
           && request.fields == QStringList{u"STOP"_s};
}

bool IsAlive(const Request &request)
{
    return request.delimiter == brokenBar && request.keyword == u"IMALIVE"
           && request.fields.isEmpty();
}
} // namespace Practice
