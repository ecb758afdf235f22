#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>

// The file of a document while it comes, and how the document is cut out of it.

/// Everything of a stream as it came, in a file that the next transfer deletes.
class StreamFile
{
public:
    StreamFile();

    /// Makes it anew. Throws error 70 ("Permission denied") when that fails.
    void Open();
    /// Throws error 61 ("Disk full") when it fails.
    void Write(const QByteArray &piece);
    void Close() { file.close(); }

    QString Path() const { return file.fileName(); }

private:
    QFile file;
};

/// Cuts a mark out of bytes that pass by in pieces, wherever it stands: what is left is the same
/// whatever the pieces are.
class MarkFilter
{
public:
    using Sink = std::function<void(QByteArrayView bytes)>;

    MarkFilter(QByteArray markToCut, Sink next);

    void Take(QByteArrayView piece);
    /// There is no more: what might have been the beginning of a mark is none.
    void End();

private:
    bool takeSeam(QByteArrayView &piece);
    void passButEnd(QByteArrayView bytes);

    const QByteArray mark;
    const Sink sink;
    QByteArray held; ///< bytes that the beginning of a mark may be among
};

/// What was saved of a document.
struct SavedDocument
{
    qint64 Bytes = 0; ///< 0: there was nothing to be saved, and there is no file
    QByteArray Sha256;
};

/// How a document is cut out of its stream.
struct DocumentCut
{
    QByteArray Head;   ///< cut out wherever it stands, before the end mark is
    qint64 FileLength; ///< as many bytes of the rest are kept
    bool WantsSha256 = false;
};

/// Saves the document that is in the file of a stream under its final name, in place of an older
/// one. It is there as a whole or not at all. `between` is called after each slice. Throws error 70
/// ("Permission denied") when the file cannot be made or replaced, 61 ("Disk full") when it cannot
/// be written, and those of reading.
SavedDocument SaveDocument(const QString &streamPath, const QString &path, const DocumentCut &cut,
                           const std::function<void()> &between);
