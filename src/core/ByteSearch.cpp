#include "core/ByteSearch.h"

#include <cstring>

namespace {
char inCapitals(char sign)
{
    return sign >= 'a' && sign <= 'z' ? static_cast<char>(sign - 'a' + 'A') : sign;
}
} // namespace

qsizetype FindSign(QByteArrayView bytes, char sign, qsizetype from)
{
    if (from >= bytes.size())
        return -1;
    const void *found =
        std::memchr(bytes.data() + from, sign, static_cast<size_t>(bytes.size() - from));
    return found ? static_cast<const char *>(found) - bytes.data() : -1;
}

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
    const qsizetype last = bytes.size() - mark.size();
    for (qsizetype at = FindSign(bytes, mark.front(), from); at >= 0 && at <= last;
         at = FindSign(bytes, mark.front(), at + 1)) {
        if (std::memcmp(bytes.data() + at, mark.data(), static_cast<size_t>(mark.size())) == 0)
            return at;
    }
    return -1;
}

bool HoldsWord(QByteArrayView bytes, QByteArrayView word, qsizetype rare)
{
    for (qsizetype at = FindSign(bytes, word[rare]); at >= 0;
         at = FindSign(bytes, word[rare], at + 1)) {
        if (StandsAt(bytes, at - rare, word))
            return true;
    }
    return false;
}
