#include "core/Windows1252.h"

#include <algorithm>
#include <array>

namespace {
// Bytes 0x80 to 0x9F; every other byte is the code point of the same value.
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t firstMapped = 0x80;
constexpr char16_t lastMapped = 0x9F;

constexpr bool isMapped(unsigned code)
{
    return code - firstMapped <= unsigned{lastMapped} - firstMapped;
}
} // namespace

int AnsiCode(QChar character)
{
    const char16_t unit = character.unicode();
    if (unit < firstMapped || (unit > lastMapped && unit <= 0xFF))
        return unit;
    const auto *found = std::find(upperControls.begin(), upperControls.end(), unit);
    return found == upperControls.end()
               ? -1
               : firstMapped + static_cast<int>(found - upperControls.begin());
}

QChar AnsiCharacter(quint8 code)
{
    if (code < firstMapped || code > lastMapped)
        return QChar(static_cast<char16_t>(code));
    return QChar(upperControls[code - firstMapped]);
}

namespace {
/// Writes the bytes of the text, at most one a character, and gives the place behind them.
char *encode(QStringView text, char *to)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int code = AnsiCode(text[i]);
        *to++ = code < 0 ? '?' : static_cast<char>(code);
        // A character beyond the basic plane is one character to the reader, so one "?".
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    return to;
}

/// Whether every character has its own code point for its byte. Without a way out in the middle,
/// so that the compiler takes many characters at once.
bool isSameInLatin1(QStringView text)
{
    unsigned different = 0;
    for (const QChar c : text) {
        const unsigned unit = c.unicode();
        different |= static_cast<unsigned>(unit > 0xFF) | static_cast<unsigned>(isMapped(unit));
    }
    return different == 0;
}
} // namespace

void AppendWindows1252(QByteArray &bytes, QStringView text)
{
    // Written in place: the log of a busy search encodes megabytes.
    const qsizetype before = bytes.size();
    bytes.resize(before + text.size());
    char *const to = bytes.data() + before;
    if (isSameInLatin1(text)) {
        std::transform(text.begin(), text.end(), to,
                       [](QChar c) { return static_cast<char>(c.unicode()); });
        return;
    }
    bytes.truncate(encode(text, to) - bytes.constData());
}

QByteArray ToWindows1252(QStringView text)
{
    QByteArray bytes;
    AppendWindows1252(bytes, text);
    return bytes;
}

QString FromWindows1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    // Again no way out in the middle.
    unsigned mapped = 0;
    for (const char byte : bytes)
        mapped |= static_cast<unsigned>(isMapped(static_cast<quint8>(byte)));
    if (mapped == 0)
        return text;
    for (QChar &character : text)
        character = AnsiCharacter(static_cast<quint8>(character.unicode()));
    return text;
}

bool FitsWindows1252(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return AnsiCode(c) >= 0; });
}

QStringList CharactersOutsideWindows1252(const QString &text)
{
    QStringList outside;
    for (const uint code : text.toUcs4()) {
        const QString character = QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1);
        if (!FitsWindows1252(character))
            outside.append(character);
    }
    outside.removeDuplicates();
    return outside;
}

QString FoldToUpper(const QString &text)
{
    QString folded = text;
    for (QChar &character : folded) {
        const QChar upper = character.toUpper();
        if (AnsiCode(upper) >= 0)
            character = upper;
    }
    return folded;
}
