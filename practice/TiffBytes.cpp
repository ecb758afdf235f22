#include "practice/TiffBytes.h"

#include "practice/PixelText.h"

#include <QtEndian>

#include <array>

namespace Practice {
namespace {
// A letter page at 100 dots an inch
constexpr int pageWidth = 850;
constexpr int pageHeight = 1'100;
constexpr quint32 dotsAnInch = 100;
constexpr qsizetype rowBytes = (pageWidth + 7) / 8;

constexpr int leftMargin = 70;
constexpr int topMargin = 80;
constexpr int lineHeight = 30;
constexpr int pixelSize = 2;

enum Tag : quint16 {
    NewSubfileType = 254,
    ImageWidth = 256,
    ImageLength = 257,
    BitsPerSample = 258,
    Compression = 259,
    Photometric = 262,
    StripOffsets = 273,
    SamplesPerPixel = 277,
    RowsPerStrip = 278,
    StripByteCounts = 279,
    XResolution = 282,
    YResolution = 283,
    ResolutionUnit = 296,
    PageNumber = 297,
};
enum FieldType : quint16 { Short = 3, Long = 4, Rational = 5 };

constexpr quint32 onePageOfSeveral = 2;
constexpr quint32 packBits = 32'773;
constexpr quint32 inches = 2;

template<typename Number>
QByteArray bytesOf(Number value)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

struct DirectoryEntry
{
    Tag tag;
    FieldType type;
    quint32 count;
    quint32 value; ///< of a short one the lower half; of two shorts the first in the lower half
};

QByteArray entryBytes(const DirectoryEntry &entry)
{
    return bytesOf<quint16>(entry.tag) + bytesOf<quint16>(entry.type) + bytesOf(entry.count)
           + bytesOf(entry.value);
}

/// A row of pixels in which runs of the same byte are counted.
void packRow(QByteArrayView row, QByteArray &packed)
{
    constexpr qsizetype mostOfARun = 128;
    for (qsizetype from = 0; from < row.size();) {
        qsizetype to = from + 1;
        while (to < row.size() && to - from < mostOfARun && row[to] == row[from])
            ++to;
        packed += static_cast<char>(1 - (to - from));
        packed += row[from];
        from = to;
    }
}

QByteArray packedPage(const Paper &paper, int page)
{
    PixelPage pixels(pageWidth, pageHeight);
    int y = topMargin;
    for (const QString &line : PaperLines(paper, page)) {
        pixels.Write(line, leftMargin, y, pixelSize);
        y += lineHeight;
    }
    QByteArray packed;
    for (int row = 0; row < pageHeight; ++row)
        packRow(pixels.Row(row), packed);
    // What follows begins at an even place.
    if (packed.size() % 2 != 0)
        packed += '\x80'; // stands for nothing
    return packed;
}

/// What describes a page whose strip lies at `strip`; `resolution` is where that is written.
QByteArray directoryOf(const Paper &paper, int page, quint32 strip, quint32 stripBytes,
                       quint32 resolution)
{
    const auto number = static_cast<quint32>(page - 1);
    const auto pages = static_cast<quint32>(paper.pages);
    const std::array<DirectoryEntry, 14> entries{{
        {NewSubfileType, Long, 1, onePageOfSeveral},
        {ImageWidth, Long, 1, pageWidth},
        {ImageLength, Long, 1, pageHeight},
        {BitsPerSample, Short, 1, 1},
        {Compression, Short, 1, packBits},
        {Photometric, Short, 1, 0}, // white is zero
        {StripOffsets, Long, 1, strip},
        {SamplesPerPixel, Short, 1, 1},
        {RowsPerStrip, Long, 1, pageHeight},
        {StripByteCounts, Long, 1, stripBytes},
        {XResolution, Rational, 1, resolution},
        {YResolution, Rational, 1, resolution},
        {ResolutionUnit, Short, 1, inches},
        {PageNumber, Short, 2, number | pages << 16},
    }};
    QByteArray bytes = bytesOf(static_cast<quint16>(entries.size()));
    for (const DirectoryEntry &entry : entries)
        bytes += entryBytes(entry);
    return bytes;
}
} // namespace

DocumentBytes TiffBytes(const Paper &paper)
{
    constexpr quint32 resolution = 8;
    constexpr qsizetype firstLink = 4;
    QByteArray bytes = QByteArray("II") + bytesOf<quint16>(42) + bytesOf<quint32>(0)
                       + bytesOf(dotsAnInch) + bytesOf<quint32>(1);
    qsizetype link = firstLink; // where the place of the next directory is written
    for (int page = 1; page <= paper.pages; ++page) {
        const auto strip = static_cast<quint32>(bytes.size());
        bytes += packedPage(paper, page);
        const auto directory = static_cast<quint32>(bytes.size());
        qToLittleEndian(directory, bytes.data() + link);
        bytes += directoryOf(paper, page, strip, directory - strip, resolution);
        link = bytes.size();
        bytes += bytesOf<quint32>(0);
    }
    return {bytes, 0, {}};
}
} // namespace Practice
