#include "reports/ReportText.h"

#include "core/Windows1252.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype lineEndBytes = 2;
constexpr qsizetype columnGap = 2; ///< blanks

/// The same byte in every place of a word.
constexpr std::uint64_t everywhere(std::uint64_t byte)
{
    return byte * 0x0101010101010101U;
}

/// Whether one of its bytes is no printed character of ASCII. Bytes of 0 count as printed where the
/// word was filled up with blanks.
constexpr bool holdsOther(std::uint64_t word)
{
    constexpr std::uint64_t deleted = everywhere(0x7F);
    const std::uint64_t below = (word - everywhere(' ')) & ~word;
    const std::uint64_t isDeleted = ((word ^ deleted) - everywhere(1)) & ~(word ^ deleted);
    return ((word | below | isDeleted) & everywhere(0x80)) != 0;
}

/// Whether the text is printed characters of ASCII throughout: then a byte is a character, in UTF-8
/// as in the file.
bool isPlain(QByteArrayView text)
{
    const char *at = text.data();
    const char *const end = at + text.size();
    std::uint64_t word = 0;
    for (; end - at >= static_cast<qsizetype>(sizeof word); at += sizeof word) {
        std::memcpy(&word, at, sizeof word);
        if (holdsOther(word))
            return false;
    }
    word = everywhere(' ');
    std::memcpy(&word, at, static_cast<size_t>(end - at));
    return !holdsOther(word);
}

QByteArrayView withoutBlanks(QByteArrayView text)
{
    while (text.startsWith(' '))
        text = text.sliced(1);
    while (text.endsWith(' '))
        text.chop(1);
    return text;
}

/// The text in the code page, with blanks for what would make lines of its own.
QByteArray lineBytes(QString text)
{
    for (QChar &c : text)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = u' ';
    return ToWindows1252(text);
}
} // namespace

ReportText::ReportText(const QStringList &lines)
{
    for (const QString &line : lines)
        AddLine(line);
}

void ReportText::AddLine(const QString &text)
{
    bytes += lineBytes(text) + "\r\n";
}

void ReportText::AddCells(std::span<const QByteArrayView> cells, std::span<const int> widths)
{
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i > 0)
            bytes.append(columnGap, ' ');
        addCell(withoutBlanks(cells[i]), widths[i]);
    }
    bytes += "\r\n";
}

void ReportText::addCell(QByteArrayView cell, int width)
{
    if (!isPlain(cell)) {
        const QString text = QString::fromUtf8(cell);
        bytes += lineBytes(text);
        bytes.append(std::max<qsizetype>(0, width - text.size()), ' ');
        return;
    }
    const qsizetype from = bytes.size();
    bytes.resize(from + std::max<qsizetype>(width, cell.size()));
    char *const to = bytes.data() + from;
    std::memcpy(to, cell.data(), static_cast<size_t>(cell.size()));
    std::memset(to + cell.size(), ' ', static_cast<size_t>(bytes.size() - from - cell.size()));
}

void ReportText::Reserve(qsizetype lines, qsizetype characters)
{
    bytes.reserve(bytes.size() + lines * (characters + lineEndBytes));
}

QStringList ReportText::Lines() const
{
    QStringList lines = FromWindows1252(bytes).split(u"\r\n"_s);
    lines.removeLast();
    return lines;
}

qsizetype CharacterCount(QByteArrayView utf8)
{
    return isPlain(utf8) ? utf8.size() : QString::fromUtf8(utf8).size();
}
