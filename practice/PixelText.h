#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace Practice {
/// A page of black and white pixels that text can be written on, without a library that draws.
class PixelPage
{
public:
    PixelPage(int width, int height);

    /// Writes the text in capitals with its upper left corner at (x, y), each dot of a letter so
    /// many pixels wide and high. What does not fit on the page is left out, and a character
    /// without a picture is a blank.
    void Write(const QString &text, int x, int y, int size);

    /// The pixels of a row, eight in a byte, the leftmost in its highest bit; black is 1.
    QByteArrayView Row(int y) const;

private:
    void blacken(int x, int y);
    void dot(int x, int y, int size);

    int width;
    int height;
    qsizetype rowBytes;
    QByteArray bits;
};
} // namespace Practice
