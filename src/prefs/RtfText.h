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

/// What is shown of a text, however long it is: a window full of help is a small part of it.
inline constexpr qsizetype mostRtfCharacters = 100'000;

/// The text of an RTF file, as much of it as there is. Tables of fonts and colours, pictures and
/// whatever else is no text are passed over; a text that does not begin as RTF does is taken as it
/// stands, in Windows-1252. No content is an error: what cannot be understood is left out.
QList<RtfRun> ReadRtf(QByteArrayView rtf);
