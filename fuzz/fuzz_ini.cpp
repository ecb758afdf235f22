// Whatever stands in an ini file: a value that is written is read back, and no other line changes.

#include "core/IniText.h"

#include <cstdint>
#include <cstdlib>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    IniValue(text, u"Searching"_s, u"Key"_s);
    const QByteArray written = IniTextWithValue(text, u"Searching"_s, u"Key"_s, u"value"_s);
    if (IniValue(written, u"searching"_s, u"KEY"_s) != u"value"_s)
        std::abort();
    if (IniTextWithValue(written, u"Searching"_s, u"Key"_s, u"value"_s) != written)
        std::abort();
    IniTextWithoutKey(text, u"Searching"_s, u"Key"_s);
    IniTextWithoutSection(text, u"Searching"_s);
    return 0;
}
