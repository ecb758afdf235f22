#include "core/ByteSearch.h"

namespace {
char inCapitals(char sign)
{
    return sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 'a' + 'A') : sign;
}
} // namespace

/// Most times the first signs say that it does not.
bool StandsAt(QByteArrayView bytes, qsizetype at, QByteArrayView word)
{
    if (at < 0 || at + word.size() > bytes.size())
        return false;
    for (const char sign : word) {
        if (inCapitals(bytes[at++]) != sign)
            return false;
    }
    return true;
}

qsizetype FindMark(QByteArrayView bytes, QByteArrayView mark, qsizetype from)
{
    const auto fit = [first = mark[0], second = mark[1]](char sign, char next) {
        return (sign == first) & (next == second);
    };
    return FindPlace(bytes, from, fit,
                     [&](qsizetype at) { return bytes.sliced(at).startsWith(mark); });
}
