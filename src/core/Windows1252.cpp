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

QByteArray ToWindows1252(QStringView text)
{
    const bool allSame = std::none_of(text.begin(), text.end(), [](QChar c) {
        return c.unicode() > 0xFF || (c.unicode() >= firstMapped && c.unicode() <= lastMapped);
    });
    if (allSame)
        return text.toLatin1();
    QByteArray bytes(text.size(), Qt::Uninitialized);
    // Written in place: the log of a busy search encodes megabytes.
    char *next = bytes.data();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int code = AnsiCode(text[i]);
        *next++ = code < 0 ? '?' : static_cast<char>(code);
        // A character beyond the basic plane is one character to the reader, so one "?".
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    bytes.truncate(next - bytes.constData());
    return bytes;
}

QString FromWindows1252(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    const bool allSame = std::none_of(bytes.begin(), bytes.end(), [](char byte) {
        const auto code = static_cast<quint8>(byte);
        return code >= firstMapped && code <= lastMapped;
    });
    if (allSame)
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
