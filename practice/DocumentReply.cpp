#include "practice/DocumentReply.h"

#include "practice/PdfBytes.h"
#include "practice/Request.h"
#include "practice/SearchFields.h"
#include "practice/TiffBytes.h"

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr QByteArrayView tail = "|EOD~||EOF~|";

// The program counts notices by the chunks in which they come.
constexpr int pauseBehindNotice = 150;
// So that the tail does not come in one chunk with half of itself.
constexpr int pauseBeforeTail = 20;
constexpr qint64 tooManyBytes = 1'000;

/// What the head says of the document, and what comes.
struct Stream
{
    DocumentBytes document;
    QByteArray length;
    QByteArray type = "pdf";
};

Stream streamOf(const ListedDocument &listed)
{
    Stream stream;
    const bool huge = listed.trouble == DocumentTrouble::Huge;
    if (listed.trouble == DocumentTrouble::Tiff) {
        stream.document = TiffBytes(listed.paper);
        stream.type = "tif";
    } else {
        stream.document = PdfBytes(listed.paper, huge ? listed.number : 0);
    }
    if (listed.trouble == DocumentTrouble::Typed)
        stream.type = listed.type;
    qint64 length = stream.document.Size();
    if (listed.trouble == DocumentTrouble::TooLong)
        length += tooManyBytes;
    else if (listed.trouble == DocumentTrouble::TooShort)
        length /= 2;
    if (listed.trouble != DocumentTrouble::NoLength)
        stream.length = QByteArray::number(length);
    return stream;
}

void sayNotices(const ListedDocument &listed, Reply &reply)
{
    if (listed.trouble != DocumentTrouble::Notices)
        return;
    const QByteArray county = listed.paper.county.toLatin1();
    for (qint64 notice = 0; notice < listed.number; ++notice) {
        const QByteArray what = notice % 2 == 0 ? " For Documents~|" : " Superior Court~|";
        reply.Piece("|Searching~" + county + what).Pause(pauseBehindNotice);
    }
}

qint64 paceOf(const ListedDocument &listed, qint64 size, qint64 pace)
{
    return listed.trouble == DocumentTrouble::Slow ? std::max<qint64>(size / listed.number, 1)
                                                   : pace;
}
} // namespace

QString DocumentCommand(const QString &county, const QString &number, int place)
{
    return u"WASUPDOC¦GETDOC¦%1¦%2¦%3¦"_s.arg(county, number).arg(place);
}

std::optional<DocumentAsked> ParseDocumentRequest(const QString &request)
{
    constexpr qsizetype commandFields = 5;
    const QStringList fields = request.split(brokenBar);
    if (fields.size() <= commandFields || fields[0] != u"WASUPDOC" || fields[1] != u"GETDOC")
        return std::nullopt;
    bool isNumber = false;
    const int place = fields[4].toInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    return DocumentAsked{fields[2].trimmed(), fields[3].trimmed(), place};
}

Reply DocumentReply(const ListedDocument &listed, qint64 pace)
{
    if (listed.trouble == DocumentTrouble::Gone)
        return Refusal(u"Document not found"_s);
    const auto stream = std::make_shared<const Stream>(streamOf(listed));
    const qint64 size = stream->document.Size();
    const bool dropped = listed.trouble == DocumentTrouble::Dropped;
    const bool stalled = listed.trouble == DocumentTrouble::Stalled;
    Reply reply;
    reply.StopsWith(tail.toByteArray());
    sayNotices(listed, reply);
    reply.Piece("|FILELEN=" + stream->length + "~TYPE=" + stream->type + "~|");
    reply.Body(
        dropped || stalled ? size / 2 : size, paceOf(listed, size, pace),
        [stream](qint64 offset, qint64 length) { return stream->document.Part(offset, length); });
    if (dropped)
        return std::move(reply.Drop());
    if (stalled)
        return std::move(reply.Silence());
    reply.Pause(pauseBeforeTail).Piece(tail.toByteArray());
    return reply;
}
} // namespace Practice
