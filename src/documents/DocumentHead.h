#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

// What stands around the bytes of a document on the wire:
//
//     |FILELEN=1234~TYPE=PDF~| the document |EOD~||EOF~|
//
// and, anywhere, notices that the court is still searching. All of it is looked for in one piece of
// the stream at a time, as it came.

inline constexpr QByteArrayView DocumentEndMark("|EOD~||EOF~|");

/// What stands between "FILELEN=" and "~TYPE="; "" when the two do not stand there.
QByteArray FindFileLength(QByteArrayView text);
/// What stands between "TYPE=" and the next "~"; "" when the two do not stand there.
QByteArray FindFileType(QByteArrayView text);

/// The bytes that a FILELEN stands for. Nothing when it is no whole number, or one above 2 GB.
std::optional<qint64> FileLengthOf(QByteArrayView text);
/// Whether a type can be the end of a file name: letters and digits, ten at most.
bool IsFileType(QByteArrayView type);
/// Whether a document of this type is opened by the desktop. A type comes from the court and
/// chooses a program: only what shows pages, pictures and text is on the list.
bool OpensByItself(const QString &type);

/// What is looked for in every piece, in one go: there are hundreds of megabytes of them.
struct PieceMarks
{
    bool Searching = false; ///< a notice that the court is still searching, in capitals or not
    bool End = false;       ///< the end of the stream
};
PieceMarks MarksIn(QByteArrayView piece);

/// Whether a piece holds the end of the stream.
bool HoldsEnd(QByteArrayView piece);
/// The piece without its notices, and without what stands before them.
QByteArray StripSearchingNotices(const QByteArray &piece);

/// The type, from a head that stands at the start of a text. "" and a line in the log when there is
/// none.
QString GetDocFileType(const QString &text);
/// The number of bytes, likewise; 0 when there is none.
qint64 GetDocFileByteCount(const QString &text);
