// Any bytes, arriving in any pieces, give the same tokens as arriving at once; and every token can
// be classified and cut into cells.

#include "link/Framing.h"
#include "namesearch/Replies.h"
#include "namesearch/ResultRows.h"

#include "core/Windows1252.h"

#include <QList>

#include <cstdint>
#include <cstdlib>

namespace {
QList<QByteArray> takeAll(ReceiveBuffer &buffer)
{
    QList<QByteArray> tokens;
    while (const auto token = buffer.Extract(frameBar))
        tokens.append(*token);
    return tokens;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const QByteArrayView bytes(data + 1, static_cast<qsizetype>(size) - 1);
    ReceiveBuffer whole;
    whole.Append(bytes);
    const QList<QByteArray> expected = takeAll(whole);

    const qsizetype piece = data[0] % 16 + 1;
    ReceiveBuffer pieces;
    QList<QByteArray> tokens;
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        pieces.Append(bytes.sliced(at, qMin(piece, bytes.size() - at)));
        tokens += takeAll(pieces);
    }
    if (tokens != expected || pieces.View() != whole.View())
        std::abort();
    for (const QByteArray &token : tokens) {
        const QString text = FromWindows1252(token);
        if (ToWindows1252(text) != token)
            std::abort();
        ClassifyReply(text);
        ProgressText(text);
        for (const ResultKind kind :
             {ResultKind::Superior, ResultKind::Bankruptcy, ResultKind::Index})
            ParseResultRow(text, kind);
    }
    return 0;
}
