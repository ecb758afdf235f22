// Whatever stands in a help file: reading it ends, and gives no more than a window shows.

#include "prefs/RtfText.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    // Also as RTF from the start: the fuzzer need not find the first word again and again.
    for (const QByteArray &text :
         {bytes.toByteArray(), QByteArray("{\\rtf1 " + bytes.toByteArray())}) {
        qsizetype characters = 0;
        for (const RtfRun &run : ReadRtf(text)) {
            if (run.Text.isEmpty() || !run.Text.isValidUtf16())
                std::abort();
            characters += run.Text.size();
        }
        if (characters > mostRtfCharacters || characters > text.size())
            std::abort();
    }
    return 0;
}
