#include "documents/DocumentFile.h"

#include "core/AtomicFile.h"
#include "core/RunTimeError.h"
#include "documents/DocumentHead.h"
#include "documents/DocumentName.h"

#include <QCryptographicHash>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// Small enough for the window to answer in between, large enough to cost nothing.
constexpr qint64 sliceBytes = 512 * 1024;

/// The first so many bytes of what passes by go into the file.
class DocumentWriter
{
public:
    DocumentWriter(const QString &path, qint64 length, bool wantsSha256)
        : file(path), left(length), hashes(wantsSha256)
    {
    }

    void Take(QByteArrayView bytes)
    {
        const QByteArrayView kept = bytes.first(std::min<qint64>(left, bytes.size()));
        if (kept.isEmpty())
            return;
        file.Write(kept);
        if (hashes)
            hash.addData(kept);
        left -= kept.size();
        saved.Bytes += kept.size();
    }
    bool IsFull() const { return left == 0; }

    SavedDocument Finish()
    {
        if (saved.Bytes == 0)
            return {};
        // A document can be had again: the window does not stand still for as long as the disk
        // needs for hundreds of megabytes.
        file.Commit(FileReplacement::Survives::Crash);
        if (hashes)
            saved.Sha256 = hash.result().toHex();
        return saved;
    }

private:
    FileReplacement file;
    qint64 left;
    bool hashes;
    QCryptographicHash hash{QCryptographicHash::Sha256};
    SavedDocument saved;
};
} // namespace

StreamFile::StreamFile() : file(ReportsFolder() + u"/Tempfile.bin"_s) {}

void StreamFile::Open()
{
    file.close();
    file.remove();
    // Only a new one: a link in its place would lead elsewhere.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        throw RunTimeError::PermissionDenied();
}

void StreamFile::Write(const QByteArray &piece)
{
    if (file.write(piece) != piece.size())
        throw RunTimeError::DiskFull();
}

MarkFilter::MarkFilter(QByteArray markToCut, Sink next)
    : mark(std::move(markToCut)), sink(std::move(next))
{
}

void MarkFilter::Take(QByteArrayView piece)
{
    held.append(piece);
    qsizetype from = 0;
    for (qsizetype at = held.indexOf(mark); at >= 0; at = held.indexOf(mark, from)) {
        sink(QByteArrayView(held).sliced(from, at - from));
        from = at + mark.size();
    }
    const qsizetype undecided = std::min(mark.size() - 1, held.size() - from);
    sink(QByteArrayView(held).sliced(from).chopped(undecided));
    held = held.last(undecided);
}

void MarkFilter::End()
{
    sink(held);
    held.clear();
}

SavedDocument SaveDocument(const QString &streamPath, const QString &path, const DocumentCut &cut,
                           const std::function<void()> &between)
{
    QFile stream(streamPath);
    if (!stream.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RunTimeError::PathFileAccess();
    DocumentWriter writer(path, cut.FileLength, cut.WantsSha256);
    MarkFilter end(DocumentEndMark.toByteArray(),
                   [&writer](QByteArrayView bytes) { writer.Take(bytes); });
    MarkFilter head(cut.Head, [&end](QByteArrayView bytes) { end.Take(bytes); });
    while (!writer.IsFull()) {
        const QByteArray slice = stream.read(sliceBytes);
        if (slice.isEmpty())
            break;
        head.Take(slice);
        between();
    }
    if (stream.error() != QFileDevice::NoError)
        throw RunTimeError::PathFileAccess();
    head.End();
    end.End();
    return writer.Finish();
}
