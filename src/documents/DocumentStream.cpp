#include "documents/DocumentStream.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr qint64 bytesPerPage = 16'000;
constexpr int mostPages = 1'000'000;
constexpr int leastProgress = 1;
constexpr int mostProgress = 100;
} // namespace

int TransferProgress(qint64 total, qint64 fileLength)
{
    // Halves go to the even neighbour, as everywhere in the program.
    const double perPercent =
        std::max(1.0, std::nearbyint(static_cast<double>(fileLength) / mostProgress));
    const double percent = static_cast<double>(total) / perPercent;
    if (static_cast<double>(total) < perPercent)
        return leastProgress;
    if (percent - 1.0 >= mostProgress)
        return mostProgress;
    return std::min(mostProgress, static_cast<int>(std::nearbyint(percent)));
}

int PagesOf(const QString &text)
{
    int pages = 0;
    for (const QChar c : QStringView(text).trimmed()) {
        if (c < u'0' || c > u'9' || pages > mostPages)
            break;
        pages = pages * 10 + c.digitValue();
    }
    return std::min(pages, mostPages);
}

DocumentStream::DocumentStream(int pages, int mostNoticesInARow)
    : estimate(pages * bytesPerPage), mostNotices(mostNoticesInARow)
{
}

DocumentStream::Next DocumentStream::Take(QByteArray &piece)
{
    PieceMarks marks = MarksIn(piece);
    if (marks.Searching) {
        piece = StripSearchingNotices(piece);
        marks = MarksIn(piece);
        if (++notices > mostNotices)
            return Next::TooManyNotices;
    }
    total += piece.size();
    learn(piece);
    if (marks.End)
        return Next::Over;
    estimated = true;
    return Next::More;
}

/// The first word of the court holds, whether or not it can be used.
void DocumentStream::learn(const QByteArray &piece)
{
    if (!lengthKnown && piece.contains("FILELEN=")) {
        lengthKnown = true;
        lengthText = FindFileLength(piece);
        length = FileLengthOf(lengthText).value_or(0);
    }
    if (!typeKnown && piece.contains("TYPE=")) {
        typeKnown = true;
        const QByteArray found = FindFileType(piece);
        type = IsFileType(found) ? QString::fromLatin1(found) : QString();
    }
}

QByteArray DocumentStream::Head() const
{
    return "|FILELEN=" + lengthText + "~TYPE=" + type.toLatin1() + "~|";
}
