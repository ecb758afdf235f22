#pragma once

#include <QByteArrayView>
#include <QList>
#include <QString>

/// A stretch of text with one look. A new paragraph is "\n", a new line within one is
/// QChar::LineSeparator.
struct RtfRun
{
    QString Text;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    int HalfPoints = 24; ///< size of the characters

    friend bool operator==(const RtfRun &, const RtfRun &) = default;
};

/// What is read of a text, however long it is: far more than a window full of help, and little
/// enough to be laid out in a moment. Beyond so many runs the look stays what it is, since the time
/// that a paragraph takes grows with the square of its looks.
inline constexpr qsizetype mostRtfCharacters = 50'000;
inline constexpr qsizetype mostRtfRuns = 2'000;

/// The text of an RTF file, as much of it as there is. Tables of fonts and colours, pictures and
/// whatever else is no text are passed over; a text that does not begin as RTF does is taken as it
/// stands, in Windows-1252. No content is an error: what cannot be understood is left out.
QList<RtfRun> ReadRtf(QByteArrayView rtf);
