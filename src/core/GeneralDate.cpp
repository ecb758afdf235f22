#include "core/GeneralDate.h"

#include "core/Windows1252.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr QStringView dateLetters = u"dMy";
constexpr QStringView timeLetters = u"hHmsAat";

/// A part of a locale's format: a field, by the letter it is written with, or text between fields.
struct Piece
{
    QChar field; ///< null for a text
    int length = 0;
    QString text = {};
};

/// The text with blanks of every kind as the one that the code page has.
QString plainText(QString text)
{
    for (QChar &c : text) {
        if (c.isSpace())
            c = u' ';
    }
    return text;
}

void addText(QList<Piece> &pieces, QChar c)
{
    if (pieces.isEmpty() || !pieces.last().field.isNull())
        pieces.append(Piece{});
    pieces.last().text.append(c);
}

/// A letter that is no field, and stands outside quotes, is one that only the locale's source
/// knows.
QList<Piece> piecesOf(const QString &format, QStringView letters)
{
    QList<Piece> pieces;
    bool quoted = false;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format[i];
        if (c == u'\'' && format.mid(i, 2) == u"''") {
            addText(pieces, c);
            ++i;
        } else if (c == u'\'') {
            quoted = !quoted;
        } else if (quoted || !c.isLetter() || c.unicode() > 0x7F) {
            addText(pieces, c);
        } else if (letters.contains(c)) {
            Piece piece{c, 1};
            while (format.mid(i + 1, 1) == QString(c) || format.mid(i, 2).toUpper() == u"AP") {
                ++piece.length;
                ++i;
            }
            pieces.append(piece);
        }
    }
    return pieces;
}

QString padded(int number, int length)
{
    return QString::number(number).rightJustified(length, u'0');
}

QString dateField(const Piece &piece, QDate date, const QLocale &locale)
{
    constexpr int shortestName = 3;
    constexpr int yearDigits = 4;
    constexpr int mostDigits = 2;
    if (piece.field == u'y')
        return padded(date.year(), yearDigits);
    if (piece.field == u'd')
        return padded(date.day(), std::min(piece.length, mostDigits));
    const QString name = locale.monthName(date.month(), QLocale::ShortFormat);
    return piece.length >= shortestName && FitsWindows1252(name)
               ? name
               : padded(date.month(), std::min(piece.length, mostDigits));
}

bool isHalfOfDay(const Piece &piece)
{
    return piece.field == u'A' || piece.field == u'a';
}

QString timeField(const Piece &piece, QTime time, const QLocale &locale, bool halves)
{
    constexpr int hoursOfHalf = 12;
    constexpr int digits = 2;
    if (piece.field == u'm')
        return padded(time.minute(), digits);
    if (piece.field == u's')
        return padded(time.second(), digits);
    if (isHalfOfDay(piece))
        return plainText(time.hour() < hoursOfHalf ? locale.amText() : locale.pmText());
    if (piece.field == u't')
        return {};
    const int ofHalf = (time.hour() + hoursOfHalf - 1) % hoursOfHalf + 1;
    return padded(halves && piece.field == u'h' ? ofHalf : time.hour(), piece.length);
}

/// What is left when a zone has been taken out: no brackets around nothing, no comma before it.
QString tidied(QString text)
{
    static const QRegularExpression emptyBrackets(u"\\( *\\)|\\[ *\\]"_s);
    static const QRegularExpression loose(u"^[ ,]+|[ ,]+$"_s);
    return text.remove(emptyBrackets).simplified().remove(loose);
}

QString dateText(QDate date, const QLocale &locale)
{
    const QList<Piece> pieces = piecesOf(locale.dateFormat(QLocale::ShortFormat), dateLetters);
    QString text;
    QStringList numbers;
    QString separator = u"/"_s;
    for (const Piece &piece : pieces) {
        if (!piece.field.isNull()) {
            numbers.append(dateField(piece, date, locale));
            text += numbers.last();
            continue;
        }
        const QString between = plainText(piece.text);
        text += between;
        if (numbers.size() == 1 && FitsWindows1252(between))
            separator = between;
    }
    return FitsWindows1252(text) ? tidied(text) : numbers.join(separator);
}

/// The form of a time in this locale. Its short form has seconds, too, in the locale of no place.
QList<Piece> timePieces(bool seconds, const QLocale &locale)
{
    QList<Piece> pieces = piecesOf(
        locale.timeFormat(seconds ? QLocale::LongFormat : QLocale::ShortFormat), timeLetters);
    qsizetype last = pieces.size() - 1;
    while (last > 0 && pieces[last].field != u's')
        --last;
    if (!seconds && last > 0)
        pieces.remove(last - 1, 2);
    return pieces;
}

QString timeText(QTime time, ClockTime clock, const QLocale &locale)
{
    const bool seconds = clock == ClockTime::WithSeconds;
    const QList<Piece> pieces = timePieces(seconds, locale);
    const bool halves = std::any_of(pieces.begin(), pieces.end(), isHalfOfDay);
    QString text;
    for (const Piece &piece : pieces)
        text +=
            piece.field.isNull() ? plainText(piece.text) : timeField(piece, time, locale, halves);
    return FitsWindows1252(text) ? tidied(text)
                                 : time.toString(seconds ? u"HH:mm:ss"_s : u"HH:mm"_s);
}
} // namespace

QString GeneralDate(const QDateTime &moment, ClockTime time, const QLocale &locale)
{
    return dateText(moment.date(), locale) + u' ' + timeText(moment.time(), time, locale);
}
