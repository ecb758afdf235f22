#include "core/TextUtilities.h"

#include "core/Clock.h"
#include "core/EventLoop.h"
#include "core/RunTimeError.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QRandomGenerator generator{1};
std::function<void(const QString &)> errorBox;

constexpr qsizetype masterKeyLength = 20;

using Fits = std::function<bool(const QString &)>;

/// Takes a line that has begun and is too long already; gives what is left of it.
using BreakWord = std::function<QString(const QString &line)>;

/// The one wrapping of both measures: `fits` says whether a line may stand, `indent` is what a
/// continuation line begins with.
void wrap(const QString &text, const QString &indent, const Fits &fits, const BreakWord &breakWord,
          QStringList &lines)
{
    const QString trimmed = TrimBlanks(text);
    if (fits(trimmed)) {
        lines.append(trimmed);
        return;
    }
    const QStringList words = trimmed.split(u' ');
    QString line = breakWord(words.first());
    for (const QString &word : words.mid(1)) {
        const QString extended = line + u' ' + word;
        if (fits(extended)) {
            line = extended;
        } else {
            lines.append(line);
            line = breakWord(indent + word);
        }
    }
    if (!line.isEmpty())
        lines.append(line);
}
/// Whether a text may be broken before this place: a sign and what belongs to it stay together.
bool isBetweenSigns(const QString &text, qsizetype at)
{
    return at >= text.size() || (!text[at].isLowSurrogate() && !text[at].isMark());
}

/// How many characters of `text`, from `from` on, make the longest line behind `head` that fits;
/// one sign at least, since a limit that is less than a sign would have no end.
qsizetype longestFit(const QString &text, qsizetype from, const QString &head, const Fits &fits)
{
    const auto lineFits = [&](qsizetype count) { return fits(head + text.mid(from, count)); };
    const qsizetype most = text.size() - from;
    qsizetype fitting = 0;
    qsizetype tooMany = 1;
    while (tooMany <= most && lineFits(tooMany))
        fitting = std::exchange(tooMany, std::min(tooMany * 2, most + 1));
    while (tooMany - fitting > 1) {
        const qsizetype middle = fitting + (tooMany - fitting) / 2;
        (lineFits(middle) ? fitting : tooMany) = middle;
    }
    while (fitting > 0 && !isBetweenSigns(text, from + fitting))
        --fitting;
    if (fitting > 0)
        return fitting;
    for (fitting = 1; !isBetweenSigns(text, from + fitting);)
        ++fitting;
    return fitting;
}

/// Appends a line that is one word in pieces that fit; gives the last one.
QString breakInside(const QString &line, const QString &indent, const Fits &fits,
                    QStringList &lines)
{
    if (fits(line))
        return line;
    // What the line begins with is no part of the word.
    const bool continued = line.startsWith(indent);
    QString head = continued ? indent : QString();
    qsizetype from = head.size();
    while (from < line.size()) {
        const qsizetype count = longestFit(line, from, head, fits);
        const QString piece = head + line.mid(from, count);
        from += count;
        if (from >= line.size())
            return piece;
        lines.append(piece);
        head = indent;
    }
    return head;
}
} // namespace

QString TrimBlanks(const QString &text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ')
        ++first;
    while (last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

bool BeginsWith(const QString &text, QStringView head)
{
    return text.startsWith(head, Qt::CaseInsensitive);
}

QString OneLine(const QString &text)
{
    const auto breaksLine = [](QChar c) {
        // Nearly every letter is one of these, and to ask for its category takes longer.
        if (c >= u' ' && c <= u'~')
            return false;
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line
               || c.category() == QChar::Separator_Paragraph;
    };
    if (std::none_of(text.begin(), text.end(), breaksLine))
        return text;
    QString line = text;
    std::replace_if(line.begin(), line.end(), breaksLine, QChar(u' '));
    return line;
}

QString PadString(const QString &text, int width, PadAlignment alignment, const QString &pad)
{
    QString padded = TrimBlanks(text);
    const QString filling = pad.isEmpty() ? u" "_s : pad;
    if (alignment != PadAlignment::Left && alignment != PadAlignment::Centre
        && alignment != PadAlignment::Right)
        return padded;
    while (padded.size() < width) {
        if (alignment != PadAlignment::Left)
            padded.prepend(filling);
        if (alignment != PadAlignment::Right)
            padded.append(filling);
        if (alignment == PadAlignment::Centre && padded.size() > width)
            padded.chop(1);
    }
    return padded;
}

QString ReplaceText(const QString &text, const QString &search, const QString &replacement,
                    Qt::CaseSensitivity compare, int occurrence)
{
    if (search.isEmpty())
        return text;
    QString result = text;
    if (occurrence < 1)
        return result.replace(search, replacement, compare);
    qsizetype at = -search.size();
    for (int i = 0; i < occurrence; ++i) {
        at = text.indexOf(search, at + search.size(), compare);
        if (at < 0)
            return text;
    }
    return result.replace(at, search.size(), replacement);
}

void WrapTextByWidth(const QString &text, double limit, const TextMeasure &textWidth,
                     QStringList &lines)
{
    const QString indent = u"  "_s;
    const Fits fits = [&](const QString &line) { return textWidth(line) <= limit; };
    wrap(
        text, indent, fits,
        [&](const QString &line) { return breakInside(line, indent, fits, lines); }, lines);
}

void WrapTextByLength(const QString &text, int limit, QStringList &lines)
{
    wrap(
        text, {}, [&](const QString &line) { return line.size() <= limit; },
        [](const QString &line) { return line; }, lines);
}

bool IsFileCharacter(QChar character)
{
    const char16_t c = character.unicode();
    return c == u' ' || c == u'-' || c == u'_' || (c >= u'a' && c <= u'z')
           || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

QString StripToFileChars(const QString &text)
{
    QString kept;
    for (const QChar character : text) {
        if (IsFileCharacter(character))
            kept += character;
        Yield();
    }
    return kept;
}

int RandomInRange(int low, int high)
{
    return static_cast<int>(generator.generateDouble() * (high - low + 1)) + low;
}

QString MakeMasterKey()
{
    const QDateTime now = Clock::Current().Now();
    QString key = QString::number(now.time().hour()) + QString::number(now.time().minute())
                  + QString::number(now.time().second()) + QString::number(now.date().year());
    // Seeded from the time of day and from the number before it: two keys made in the same
    // millisecond still differ.
    generator.seed(static_cast<quint32>(now.time().msecsSinceStartOfDay()) ^ generator.generate());
    key += QString::number(RandomInRange(10000, 50000));
    key += QString::number(RandomInRange(1000, 9000));
    while (key.size() < masterKeyLength)
        key += QString::number(RandomInRange(1, 9));
    return key;
}

qint16 ArrayCount(qsizetype elements)
{
    if (elements <= std::numeric_limits<qint16>::max())
        return static_cast<qint16>(elements);
    const RunTimeError overflow = RunTimeError::Overflow();
    ShowErrorBox(u"Error:"_s + QString::number(overflow.Number()) + u'-' + overflow.Description());
    return 0;
}

void ShowErrorBox(const QString &text)
{
    if (errorBox)
        errorBox(text);
}

void SetErrorBox(std::function<void(const QString &)> box)
{
    errorBox = std::move(box);
}

double PercentOfValue(const QString &value, double percent)
{
    const QString text = TrimBlanks(value);
    bool isNumber = false;
    const double number = text.isEmpty() ? 1.0 : text.toDouble(&isNumber);
    if (!text.isEmpty() && (!isNumber || std::isnan(number)))
        throw RunTimeError::TypeMismatch();
    if (std::fabs(number) > static_cast<double>(std::numeric_limits<qint32>::max()))
        throw RunTimeError::Overflow();
    return std::trunc(number) * (percent / 100.0);
}

qint16 MaxListColumnWidth(const QAbstractItemModel &list, int column)
{
    qsizetype widest = 0;
    for (int row = 0; row < list.rowCount(); ++row)
        widest = std::max(widest, list.index(row, column).data().toString().size());
    return static_cast<qint16>(std::min<qsizetype>(widest, std::numeric_limits<qint16>::max()));
}
