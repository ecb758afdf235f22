#include "reports/ReportText.h"

#include "core/TextUtilities.h"
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

/// Whether one of its bytes is no printed character of ASCII.
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
    constexpr qsizetype wordBytes = sizeof(std::uint64_t);
    const char *at = text.data();
    const char *const end = at + text.size();
    if (text.size() < wordBytes)
        return std::all_of(at, end, [](char c) { return c >= ' ' && c < '\x7F'; });
    std::uint64_t word = 0;
    for (; end - at > wordBytes; at += wordBytes) {
        std::memcpy(&word, at, sizeof word);
        if (holdsOther(word))
            return false;
    }
    // The last word, some of which may have been looked at already.
    std::memcpy(&word, end - wordBytes, sizeof word);
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
QByteArray lineBytes(const QString &text)
{
    return ToWindows1252(OneLine(text));
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
    qsizetype room = lineEndBytes + columnGap * static_cast<qsizetype>(cells.size());
    bool plain = true;
    for (size_t i = 0; i < cells.size(); ++i) {
        room += std::max<qsizetype>(widths[i], cells[i].size());
        plain = plain && isPlain(cells[i]);
    }
    if (!plain) {
        addOtherCells(cells, widths);
        return;
    }
    // Blanks all along, and the cells upon them.
    const qsizetype from = bytes.size();
    bytes.resize(from + room);
    char *const begin = bytes.data() + from;
    std::memset(begin, ' ', static_cast<size_t>(room));
    char *to = begin;
    for (size_t i = 0; i < cells.size(); ++i) {
        const QByteArrayView cell = withoutBlanks(cells[i]);
        if (i > 0)
            to += columnGap;
        std::copy(cell.begin(), cell.end(), to);
        to += std::max<qsizetype>(widths[i], cell.size());
    }
    *to++ = '\r';
    *to++ = '\n';
    bytes.resize(from + (to - begin));
}

/// The same for a line whose bytes are not its characters.
void ReportText::addOtherCells(std::span<const QByteArrayView> cells, std::span<const int> widths)
{
    for (size_t i = 0; i < cells.size(); ++i) {
        if (i > 0)
            bytes.append(columnGap, ' ');
        const QString text = QString::fromUtf8(withoutBlanks(cells[i]));
        bytes += lineBytes(text);
        bytes.append(std::max<qsizetype>(0, widths[i] - text.size()), ' ');
    }
    bytes += "\r\n";
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
