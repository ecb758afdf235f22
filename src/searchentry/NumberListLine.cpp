#include "searchentry/NumberListLine.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
/// What other programs write for a dash.
constexpr QStringView dashes = u"\u2010\u2011\u2012\u2013\u2014\u2015\u2212\uFE58\uFE63\uFF0D";
/// What is there and not seen.
constexpr QStringView unseen = u"\u00AD\u200B\u200C\u200D\u2060\uFEFF";

constexpr std::array<QStringView, 5> countyWords{u"COUNTY", u"CO", u"CTY", u"CNTY", u"COUNTIES"};

/// Oregon's lists have the first word of this county only.
constexpr QStringView hoodRiver = u" HOOD RIVER ";
constexpr QStringView hood = u" HOOD ";

bool isCountyWord(QStringView word)
{
    return std::find(countyWords.begin(), countyWords.end(), word) != countyWords.end();
}

bool isPlainWordCharacter(QChar c)
{
    return c == u'-' || (c.unicode() < 128 && c.isLetterOrNumber());
}

/// Letters and digits in capitals, each run of anything else one blank, blanks at both ends.
QString wordsOf(const QString &plain)
{
    QString words(u' ');
    for (const QChar c : plain) {
        if (c.isLetterOrNumber())
            words += c.toUpper();
        else if (!words.endsWith(u' '))
            words += u' ';
    }
    if (!words.endsWith(u' '))
        words += u' ';
    return words.replace(hoodRiver.toString(), hood.toString());
}

QStringView wordBehind(QStringView words, qsizetype at)
{
    const qsizetype end = words.indexOf(u' ', at);
    return end < 0 ? words.sliced(at) : words.sliced(at, end - at);
}

/// Takes the name out of the words, wherever it stands; whether it was there, and called a county.
struct Named
{
    bool There = false;
    bool AsCounty = false;
};
Named takeName(QString &words, const QString &county)
{
    const QString name = u' ' + county.toUpper() + u' ';
    Named named;
    for (qsizetype at = words.indexOf(name); at >= 0; at = words.indexOf(name, at)) {
        named.There = true;
        const qsizetype behind = at + name.size();
        named.AsCounty |= isCountyWord(wordBehind(words, behind))
                          || QStringView(words).first(at).endsWith(u" COUNTY OF");
        // A mark that is no word stands in its place, so that "Lake" is not found in "Bear Lake".
        words.replace(at, name.size(), u" . "_s);
    }
    return named;
}
} // namespace

QString PlainLine(const QString &line)
{
    QString plain = line.normalized(QString::NormalizationForm_KC);
    for (QChar &c : plain) {
        if (dashes.contains(c))
            c = u'-';
        else if (c.isSpace() || c == u'"' || c == u'=')
            c = u' ';
    }
    plain.removeIf([](QChar c) { return unseen.contains(c); });
    static const QRegularExpression aroundDash(u"(?<=[0-9]) *- *(?=[0-9])"_s);
    return plain.replace(aroundDash, u"-"_s).trimmed();
}

QStringList NumberWords(const QString &plain)
{
    static const QRegularExpression noNumber(
        u"\\S*@\\S*|https?:\\S*|\\$ *[0-9.,]+"
        "|\\b[0-9]{1,4}([/.])[0-9]{1,2}\\1[0-9]{1,4}\\b|\\b(?:19|20)[0-9]{2}-[0-9]{2}-[0-9]{2}\\b"_s);
    const QString rest = QString(plain).replace(noNumber, u" "_s);
    QStringList words;
    QString word;
    const auto end = [&] {
        while (word.startsWith(u'-'))
            word.remove(0, 1);
        while (word.endsWith(u'-'))
            word.chop(1);
        const auto isDigit = [](QChar c) { return c.isDigit(); };
        if (std::any_of(word.cbegin(), word.cend(), isDigit))
            words.append(word);
        word.clear();
    };
    for (const QChar c : rest) {
        if (isPlainWordCharacter(c))
            word += c;
        else
            end();
    }
    end();
    return words;
}

QStringList CountiesNamedIn(const QString &plain, const QStringList &counties)
{
    // Long names first: "Bear Lake" before "Lake".
    QStringList inOrder = counties;
    std::stable_sort(inOrder.begin(), inOrder.end(), [](const QString &left, const QString &right) {
        return left.size() > right.size();
    });
    QString words = wordsOf(plain);
    QStringList called;
    QStringList named;
    for (const QString &county : std::as_const(inOrder)) {
        const Named name = takeName(words, county);
        if (name.AsCounty)
            called.append(county);
        if (name.There)
            named.append(county);
    }
    return called.isEmpty() ? named : called;
}
