#include "documents/DocumentHead.h"

#include "core/ByteSearch.h"
#include "core/Log.h"
#include "core/RunTimeError.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr QByteArrayView lengthKey("FILELEN=");
constexpr QByteArrayView typeKey("TYPE=");
constexpr QByteArrayView behindLength("~TYPE=");
constexpr QByteArrayView searchingUpper("|SEARCHING");
constexpr QByteArrayView notice("|Searching~");
constexpr QByteArrayView streamEnd("|EOF~|");

constexpr qsizetype longestType = 10;
constexpr qsizetype longestLength = 32;

constexpr std::array<QStringView, 10> shownTypes{u"pdf", u"tif", u"tiff", u"jpg", u"jpeg",
                                                 u"png", u"gif", u"bmp",  u"txt", u"rtf"};

QByteArray between(QByteArrayView text, QByteArrayView from, QByteArrayView to)
{
    const qsizetype key = text.indexOf(from);
    if (key < 0)
        return {};
    const QByteArrayView rest = text.sliced(key + from.size());
    const qsizetype end = rest.indexOf(to);
    return end < 0 ? QByteArray() : rest.first(end).toByteArray();
}

/// What follows the mark, or nothing when it is not there.
QByteArray behind(const QByteArray &text, QByteArrayView mark)
{
    const qsizetype at = text.indexOf(mark);
    return at < 0 ? QByteArray() : text.sliced(at + mark.size());
}

/// The value of a key in field 1 of a text, whose fields are ended by the text's own last
/// character, as those of the field are by the field's.
QString headValue(const QString &text, qsizetype index, QStringView key)
{
    if (text.isEmpty())
        throw RunTimeError::SubscriptOutOfRange();
    const QString head = FieldAt(text.split(text.back()), 1);
    if (head.isEmpty())
        throw RunTimeError::SubscriptOutOfRange();
    const QString field = FieldAt(head.split(head.back()), index);
    const qsizetype at = field.indexOf(key);
    if (at < 0 || at + key.size() == field.size())
        throw RunTimeError::SubscriptOutOfRange();
    return field.mid(at + key.size());
}
} // namespace

QByteArray FindFileLength(QByteArrayView text)
{
    return between(text, lengthKey, behindLength);
}

QByteArray FindFileType(QByteArrayView text)
{
    return between(text, typeKey, "~");
}

std::optional<qint64> FileLengthOf(QByteArrayView text)
{
    const bool digits =
        std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (text.isEmpty() || text.size() > longestLength || !digits)
        return std::nullopt;
    bool fits = false;
    const qint64 length = text.toByteArray().toLongLong(&fits);
    if (!fits || length > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return length;
}

bool IsFileType(QByteArrayView type)
{
    return !type.isEmpty() && type.size() <= longestType
           && std::all_of(type.begin(), type.end(), [](char c) {
                  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
              });
}

bool OpensByItself(const QString &type)
{
    return std::any_of(shownTypes.begin(), shownTypes.end(), [&type](QStringView shown) {
        return shown.compare(type, Qt::CaseInsensitive) == 0;
    });
}

PieceMarks MarksIn(QByteArrayView piece)
{
    PieceMarks marks;
    for (qsizetype at = FindSign(piece, '|'); at >= 0; at = FindSign(piece, '|', at + 1)) {
        marks.Searching = marks.Searching || StandsAt(piece, at, searchingUpper);
        marks.End = marks.End || piece.sliced(at).startsWith(streamEnd);
    }
    return marks;
}

bool HoldsEnd(QByteArrayView piece)
{
    return FindMark(piece, streamEnd) >= 0;
}

QByteArray StripSearchingNotices(const QByteArray &piece)
{
    QByteArray left = piece;
    while (left.contains(notice))
        left = behind(left,
                      left.contains("For Documents~|") ? " For Documents~|" : " Superior Court~|");
    return left;
}

QString GetDocFileType(const QString &text)
{
    try {
        return headValue(text, 1, u"TYPE=");
    } catch (const RunTimeError &) {
        WriteAppInfo(u"ERROR *** in GetDocFileType(). No Doc Type Found in: "_s + text);
        return {};
    }
}

qint64 GetDocFileByteCount(const QString &text)
{
    try {
        const QString value = headValue(text, 0, u"FILELEN=");
        if (const std::optional<qint64> length = FileLengthOf(value.toLatin1()))
            return *length;
    } catch (const RunTimeError &) {
        // Reported below, like a value that is no number.
    }
    WriteAppInfo(u"ERROR *** in GetDocFileByteCount(). No FILELEN value found in: "_s + text);
    return 0;
}
