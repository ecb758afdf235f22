#include "documents/DocumentFile.h"

#include "core/AtomicFile.h"
#include "core/ByteSearch.h"
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
    if (!held.isEmpty() && !takeSeam(piece))
        return;
    qsizetype from = 0;
    for (qsizetype at = FindMark(piece, mark); at >= 0; at = FindMark(piece, mark, from)) {
        sink(piece.sliced(from, at - from));
        from = at + mark.size();
    }
    passButEnd(piece.sliced(from));
}

/// Decides what was held, by as much of the piece as a mark can reach into. False when the piece is
/// too short for that: all of it is dealt with then. Only here is anything copied.
bool MarkFilter::takeSeam(QByteArrayView &piece)
{
    const qsizetype reach = std::min(piece.size(), mark.size() - 1);
    const QByteArray seam = held + piece.first(reach).toByteArray();
    const qsizetype at = FindMark(seam, mark);
    if (at >= 0) {
        // It begins in what was held, and ends in the piece.
        sink(QByteArrayView(seam).first(at));
        piece = piece.sliced(at + mark.size() - held.size());
        held.clear();
        return true;
    }
    if (reach < mark.size() - 1) {
        passButEnd(seam);
        return false;
    }
    sink(held);
    held.clear();
    return true;
}

/// Passes on what cannot be the beginning of a mark.
void MarkFilter::passButEnd(QByteArrayView bytes)
{
    const qsizetype undecided = std::min(mark.size() - 1, bytes.size());
    sink(bytes.chopped(undecided));
    held = bytes.last(undecided).toByteArray();
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
