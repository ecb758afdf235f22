#pragma once

#include "documents/DocumentHead.h"

/// How far a transfer is, from 1 to 100: what has come, of what is to come.
int TransferProgress(qint64 total, qint64 fileLength);

/// The pages of a document as a number; 0 when the text does not begin with one.
int PagesOf(const QString &text);

/// The stream of one document, piece by piece as it comes: counts notices, learns length and type,
/// and sees the end. It looks into one piece at a time, so what is cut in two it does not see.
class DocumentStream
{
public:
    /// `pages` estimates the length until it is known. More notices than `mostNotices` are too
    /// many.
    DocumentStream(int pages, int mostNotices);

    enum class Next { More, Over, TooManyNotices };
    /// Takes a piece. What of it belongs into the file is left in it.
    Next Take(QByteArray &piece);

    qint64 Total() const { return total; }
    int Progress() const { return TransferProgress(total, FileLength()); }

    /// The bytes of the document: as the court said, or the estimate once a piece has come that
    /// neither says it nor ends the stream. 0 when what it said is no length.
    qint64 FileLength() const
    {
        if (lengthKnown)
            return length;
        return estimated ? estimate : 0;
    }
    bool LengthKnown() const { return lengthKnown; }
    /// "" when what the court said cannot be the end of a file name, "N/A" until it says.
    QString FileType() const { return typeKnown ? type : QStringLiteral("N/A"); }
    bool TypeKnown() const { return typeKnown; }
    /// Whether both are known and can be used.
    bool IsUsable() const { return lengthKnown && length > 0 && typeKnown && !type.isEmpty(); }
    /// The head as it came.
    QByteArray Head() const;

private:
    void learn(const QByteArray &piece);

    qint64 estimate;
    int mostNotices;
    int notices = 0;
    qint64 total = 0;
    bool estimated = false;
    bool lengthKnown = false;
    bool typeKnown = false;
    qint64 length = 0;
    QByteArray lengthText;
    QString type;
};
