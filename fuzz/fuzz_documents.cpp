// Any bytes in any pieces: a stream comes to its end or waits for more, what is learned of it can
// be used or is refused, and what is cut out of it piece by piece is what cutting it whole gives.

#include "documents/DocumentFile.h"
#include "documents/DocumentMemory.h"
#include "documents/DocumentName.h"
#include "documents/DocumentStream.h"

#include "core/Windows1252.h"

#include <cstdint>
#include <cstdlib>

namespace {
constexpr int mostNotices = 12;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// What of the stream belongs into its file, when it comes in pieces of this size.
QByteArray takeAll(QByteArrayView bytes, qsizetype size, DocumentStream &stream)
{
    QByteArray file;
    for (qsizetype at = 0; at < bytes.size(); at += size) {
        QByteArray piece = bytes.sliced(at, qMin(size, bytes.size() - at)).toByteArray();
        const qsizetype came = piece.size();
        const DocumentStream::Next next = stream.Take(piece);
        require(piece.size() <= came);
        if (next == DocumentStream::Next::TooManyNotices)
            break;
        file += piece;
        require(stream.Progress() >= 1 && stream.Progress() <= 100);
        if (next == DocumentStream::Next::Over)
            break;
    }
    return file;
}

void checkUse(const DocumentStream &stream)
{
    if (!stream.IsUsable())
        return;
    require(stream.FileLength() > 0 && stream.FileLength() <= 2147483647);
    require(IsFileType(stream.FileType().toLatin1()));
    require(stream.Head().endsWith("~|"));
}

/// The same cut in memory and in pieces.
void checkCut(const QByteArray &file, const QByteArray &head, qsizetype size)
{
    QByteArray whole = file;
    whole.replace(head, QByteArray());
    whole.replace(DocumentEndMark.toByteArray(), QByteArray());
    QByteArray left;
    MarkFilter end(DocumentEndMark.toByteArray(),
                   [&left](QByteArrayView bytes) { left.append(bytes); });
    MarkFilter begin(head, [&end](QByteArrayView bytes) { end.Take(bytes); });
    for (qsizetype at = 0; at < file.size(); at += size)
        begin.Take(QByteArrayView(file).sliced(at, qMin(size, file.size() - at)));
    begin.End();
    end.End();
    require(left == whole);
}

void checkTexts(const QByteArray &bytes)
{
    const QString text = FromWindows1252(bytes);
    const QString name = BuildDocFileName(text);
    require(!name.contains(u'/') && !name.contains(u'.') && name.size() <= 200);
    require(!RetrievalRequest(text).contains(u'|'));
    DocumentStart start;
    start.Command = RetrieveHead.toString() + text;
    start.Description = text;
    DocumentStart other = start;
    other.Command = RetrieveHead.toString() + QChar(u'x') + text;
    QList<DocumentItem> items = ItemsOf({start, other});
    for (const DocumentMemory &memory : {DocumentMemory(), DocumentMemory(bytes),
                                         DocumentMemory(DocumentMemory(bytes).Csv(items))}) {
        memory.NameItems(items);
        require(items[0].Name.toLower() != items[1].Name.toLower());
        memory.FindPresent(QStringLiteral("/nowhere"), items);
        require(items[0].State == ItemState::Waiting);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const QByteArrayView bytes(data + 1, static_cast<qsizetype>(size) - 1);
    const qsizetype pieceSize = data[0] + 1;
    DocumentStream stream(data[0], mostNotices);
    const QByteArray file = takeAll(bytes, pieceSize, stream);
    checkUse(stream);
    checkCut(file, stream.IsUsable() ? stream.Head() : QByteArray("|F|"), pieceSize);
    checkTexts(bytes.toByteArray());
    return 0;
}
