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

/// Where a mark stands next, for whoever goes through the bytes once: what has been found ahead is
/// not looked for again.
class MarkAhead
{
public:
    MarkAhead(QByteArrayView whereTo, QByteArrayView whatFor) : bytes(whereTo), mark(whatFor) {}

    /// At or behind this place, which never goes back; -1 when nowhere.
    qsizetype From(qsizetype place)
    {
        if (at < place && !none) {
            at = bytes.indexOf(mark, place);
            none = at < 0;
        }
        return at;
    }
    /// Behind the next one; -1 when there is none.
    qsizetype Behind(qsizetype place) { return From(place) < 0 ? -1 : at + mark.size(); }

private:
    QByteArrayView bytes;
    QByteArrayView mark;
    qsizetype at = -1;
    bool none = false;
};

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
    const auto beginsMark = [](char sign, char next) {
        return (sign == '|') & ((AsSmall(next) == 's') | (next == 'E'));
    };
    FindPlace(piece, 0, beginsMark, [&](qsizetype at) {
        marks.Searching = marks.Searching || StandsAt(piece, at, searchingUpper);
        marks.End = marks.End || piece.sliced(at).startsWith(streamEnd);
        return marks.Searching && marks.End;
    });
    return marks;
}

bool HoldsEnd(QByteArrayView piece)
{
    return FindMark(piece, streamEnd) >= 0;
}

QByteArray StripSearchingNotices(const QByteArray &piece)
{
    MarkAhead begin(piece, notice);
    MarkAhead documents(piece, "For Documents~|");
    MarkAhead documentsEnd(piece, " For Documents~|");
    MarkAhead courtEnd(piece, " Superior Court~|");
    qsizetype from = 0;
    while (begin.From(from) >= 0) {
        from = documents.From(from) >= 0 ? documentsEnd.Behind(from) : courtEnd.Behind(from);
        if (from < 0)
            return {};
    }
    return from == 0 ? piece : piece.sliced(from);
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
