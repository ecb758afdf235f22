#include "practice/DocumentBytes.h"

#include "practice/Random.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr int wordLines = 24;

constexpr std::array phrases{
    u"Comes now the moving party and respectfully states",
    u"that the matters set forth herein are true",
    u"to the best of the knowledge of the undersigned",
    u"and that due notice was given to all parties",
    u"The court has considered the records and files",
    u"and finds that there is good cause for the order",
    u"It is therefore ordered that the relief requested",
    u"be and hereby is granted as prayed for",
    u"Dated and signed in open court on the day above",
    u"Copies were mailed to counsel of record this day",
};

/// A block whose length has no factor in common with the chunks in which it is sent: bytes that
/// were lost or repeated on the way show.
const QByteArray &fillingBlock()
{
    static const QByteArray block = [] {
        constexpr int length = 65'521;
        QByteArray bytes(length, '\0');
        // No bar, so that nothing in it reads like the end of the stream.
        for (int i = 0; i < length; ++i)
            bytes[i] = static_cast<char>('!' + (i * 7 + i / 89) % 89);
        return bytes;
    }();
    return block;
}

QByteArray fillingPart(qint64 offset, qint64 length)
{
    const QByteArray &block = fillingBlock();
    QByteArray part;
    part.reserve(length);
    while (part.size() < length) {
        const qint64 from = (offset + part.size()) % block.size();
        part += block.mid(from, length - part.size());
    }
    return part;
}
} // namespace

QStringList PaperLines(const Paper &paper, int page)
{
    constexpr int mostCharacters = 60;
    QStringList lines{
        u"Superior Court of Washington, County of %1"_s.arg(paper.county),
        u"Case %1, Sub No %2"_s.arg(paper.number).arg(paper.place),
        paper.text.left(mostCharacters),
        u"Filed %1"_s.arg(paper.date.toString(u"MM/dd/yyyy"_s)),
        u"Page %1 of %2"_s.arg(page).arg(paper.pages),
        u"A practice document: made up, and of no effect."_s,
        QString(),
    };
    ShortRandom random(paper.seed + static_cast<quint64>(paper.place * 1'000 + page));
    for (int line = 0; line < wordLines; ++line)
        lines.append(QString::fromUtf16(random.OneOf(phrases)));
    return lines;
}

QByteArray DocumentBytes::Part(qint64 offset, qint64 length) const
{
    length = std::min(length, Size() - offset);
    QByteArray part;
    if (length <= 0)
        return part;
    if (offset < start.size())
        part = start.mid(offset, length);
    const qint64 fillingFrom = std::max<qint64>(offset + part.size() - start.size(), 0);
    const qint64 fillingLeft = filling - fillingFrom;
    if (part.size() < length && fillingLeft > 0)
        part += fillingPart(fillingFrom, std::min(length - part.size(), fillingLeft));
    if (part.size() < length)
        part += end.mid(offset + part.size() - start.size() - filling, length - part.size());
    return part;
}
} // namespace Practice
