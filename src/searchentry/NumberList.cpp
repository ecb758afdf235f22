#include "searchentry/NumberList.h"

#include "courts/CourtTable.h"
#include "searchentry/CaseNumbers.h"
#include "searchentry/FieldRules.h"
#include "searchentry/NumberListLine.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype mostLines = 10'000;
/// What ends a line; "\r\n" is one end.
constexpr QStringView lineEnds = u"\n\r\v\f\u0085\u2028\u2029";
constexpr qsizetype mostRows = 10'000;
constexpr qsizetype longestLine = 2'000;
constexpr qsizetype shownCharacters = 80;
constexpr qsizetype scomisDigits = 9;
constexpr qsizetype fewestDigits = 5; ///< of a number that was meant as one
constexpr qsizetype fewestInOtherCourts = 4;

qsizetype digitsOf(QStringView word)
{
    return std::count_if(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
}

bool isNumeric(QStringView word)
{
    return std::all_of(word.begin(), word.end(), [](QChar c) { return c.isDigit() || c == u'-'; });
}

/// What a batch's checks say of one number: the answer to every question is yes, since whoever
/// ticks the number has read it.
class ListTalk : public FormTalk
{
public:
    void ShowFieldError(const QString &what, const QString &, const QString &,
                        const QString &) override
    {
        Refusal = what;
    }
    void Notice(const QString &text, const QString &, MessageIcon) override { Refusal = text; }
    bool Ask(const QString &, const QString &, QuestionButtons buttons, MessageIcon) override
    {
        // One asks about the form of the number, the other about the county.
        (buttons == QuestionButtons::OkCancel ? UnusualNumber : NoDistrictCourt) = true;
        return true;
    }

    QString Refusal;
    bool UnusualNumber = false;
    bool NoDistrictCourt = false;
};

/// The texts of the checks count the fields of the form, where a list has lines.
QString withoutField(QString text)
{
    text.remove(u" in FIELD 1"_s);
    return text.remove(u" for field 1"_s);
}

SearchEntry entryOf(const NumberListCourt &court)
{
    SearchEntry entry;
    entry.Court = court.Court;
    entry.Kind = SearchKind::Number;
    entry.DistrictCourt = court.DistrictCourt;
    entry.Batch.fill({QString(), noCountySelected.toString()});
    return entry;
}

/// The number without the letters of a court's branch at its end, as in "09-2-02029-9 SEA".
QString withoutBranch(const QString &word)
{
    static const QRegularExpression branch(u"-?[A-Za-z]{1,4}$"_s);
    const QString bare = QString(word).remove(branch);
    return isNumeric(bare) ? bare : word;
}

/// Gives the lines of a text one after the other, each as far as it is read and, when it is longer,
/// by one character more.
class LineCutter
{
public:
    explicit LineCutter(QStringView all) : text(all) {}

    bool AtEnd() const { return from > text.size(); }
    QStringView Next()
    {
        qsizetype to = from;
        while (to < text.size() && !lineEnds.contains(text[to]))
            ++to;
        const QStringView line = text.sliced(from, std::min(to - from, longestLine + 1));
        from = to + (text.sliced(to).startsWith(u"\r\n") ? 2 : 1);
        return line;
    }

private:
    QStringView text;
    qsizetype from = 0;
};

/// Reads the lines one after the other.
class Reader
{
public:
    explicit Reader(const NumberListCourt &place) : court(place) {}

    void Read(int number, const QString &line);
    bool IsFull() const { return rows.size() >= mostRows; }
    void Add(int line, const QString &words, const QString &reason)
    {
        rows.append({line, words, {}, NumberVerdict::NotUnderstood, reason});
    }

    QList<ListedNumber> rows;

private:
    void readSuperior(const ListedNumber &row, const QString &plain, const QStringList &words);
    void readOther(const ListedNumber &row, const QString &plain, const QStringList &words);
    void notUnderstood(const ListedNumber &row, const QString &plain, const QString &reason);
    void judge(ListedNumber row, const QString &number, const QString &doubt);
    QString countyOf(const QString &number) const;
    bool fits(const QString &number, const QString &county) const;

    const NumberListCourt &court;
    QStringList named; ///< the counties in this line
    QSet<QString> seen;
};

void Reader::Read(int number, const QString &line)
{
    const QString plain = PlainLine(line.left(longestLine));
    const auto says = [](QChar c) { return c.isLetterOrNumber(); };
    if (!std::any_of(plain.cbegin(), plain.cend(), says))
        return;
    named = CountiesNamedIn(plain, court.Counties);
    ListedNumber row;
    row.Line = number;
    const QStringList words = NumberWords(plain);
    if (court.Court == CourtFamily::Superior)
        readSuperior(row, plain, words);
    else
        readOther(row, plain, words);
    if (line.size() > longestLine)
        Add(number, {}, u"The rest of this line is not read: it has more than 2,000 characters."_s);
}

void Reader::readSuperior(const ListedNumber &row, const QString &plain, const QStringList &words)
{
    static const QRegularExpression socialSecurity(u"^[0-9]{3}-[0-9]{2}-[0-9]{4}$"_s);
    QStringList numbers;
    QStringList doubtful;
    QString nearest;
    for (const QString &word : words) {
        const QString bare = withoutBranch(word);
        if (!isNumeric(bare))
            continue;
        if (digitsOf(bare) == scomisDigits)
            (socialSecurity.match(bare).hasMatch() ? doubtful : numbers).append(bare);
        else if (digitsOf(bare) > digitsOf(nearest))
            nearest = bare;
    }
    for (const QString &number : std::as_const(numbers))
        judge(row, number, {});
    if (!numbers.isEmpty())
        return;
    for (const QString &number : std::as_const(doubtful))
        judge(row, number, u"It is written like a social security number."_s);
    if (!doubtful.isEmpty())
        return;
    if (digitsOf(nearest) >= fewestDigits)
        notUnderstood(row, plain,
                      nearest + u" has "_s + QString::number(digitsOf(nearest))
                          + u" digits; a case number of these courts has 9."_s);
    else if (words.size() == 1 && (plain == words.first() || !named.isEmpty()))
        judge(row, words.first(), {});
    else
        notUnderstood(row, plain, u"There is no case number in this line."_s);
}

/// The other courts write numbers in forms of their own, with letters as a rule.
void Reader::readOther(const ListedNumber &row, const QString &plain, const QStringList &words)
{
    QStringList withLetters;
    QStringList digitsOnly;
    for (const QString &word : words) {
        if (digitsOf(word) >= fewestInOtherCourts)
            (isNumeric(word) ? digitsOnly : withLetters).append(word);
    }
    for (const QString &number : std::as_const(withLetters))
        judge(row, number, {});
    if (!withLetters.isEmpty())
        return;
    if (digitsOnly.size() == 1)
        judge(row, digitsOnly.first(), {});
    else if (digitsOnly.isEmpty())
        notUnderstood(row, plain, u"There is no case number in this line."_s);
    else
        notUnderstood(row, plain,
                      u"There are several numbers in this line, and none has the letters of a "
                      "case number."_s);
}

void Reader::notUnderstood(const ListedNumber &row, const QString &plain, const QString &reason)
{
    Add(row.Line, plain.left(shownCharacters), reason);
}

bool Reader::fits(const QString &number, const QString &county) const
{
    QString form = number;
    if (court.Court != CourtFamily::Superior || !FormatScomisNumber(form))
        return false;
    const QString code = ScomisCountyCode(county);
    return !code.isEmpty() && ComputeScomisCheckDigit(code, form) == form.back();
}

/// The one county that the line names, or the one of several whose number it can be.
QString Reader::countyOf(const QString &number) const
{
    if (named.isEmpty())
        return court.UsualCounty;
    if (named.size() == 1)
        return named.first();
    QStringList fitting;
    std::copy_if(named.begin(), named.end(), std::back_inserter(fitting),
                 [&](const QString &county) { return fits(number, county); });
    return fitting.size() == 1 ? fitting.first() : QString();
}

void Reader::judge(ListedNumber row, const QString &number, const QString &doubt)
{
    row.Number = number.toUpper();
    row.County = countyOf(number);
    if (row.County.isEmpty()) {
        row.Verdict = NumberVerdict::Refused;
        row.Reason = named.isEmpty()
                         ? u"No county is named in this line, and none is chosen."_s
                         : u"This line names several counties: "_s + named.join(u", "_s) + u'.';
        rows.append(row);
        return;
    }
    SearchEntry entry = entryOf(court);
    entry.Batch[0] = {row.Number, row.County};
    ListTalk talk;
    const bool passes = ValidateBatchSearchFields(entry, talk);
    row.Number = entry.Batch[0].Number;
    row.Reason = doubt;
    if (!passes) {
        row.Verdict = NumberVerdict::Refused;
        row.Reason = withoutField(talk.Refusal);
    } else if (seen.contains(row.Number + u'/' + row.County)) {
        row.Verdict = NumberVerdict::Duplicate;
        row.Reason = u"It stands in the list already."_s;
    } else {
        if (talk.UnusualNumber)
            row.Reason = u"It has not the form of a number of these courts."_s;
        else if (talk.NoDistrictCourt)
            row.Reason = u"This county has no District Court."_s;
        row.Verdict = row.Reason.isEmpty() ? NumberVerdict::Valid : NumberVerdict::Doubtful;
        seen.insert(row.Number + u'/' + row.County);
    }
    rows.append(row);
}
} // namespace

QList<ListedNumber> ReadNumberList(const QString &text, const NumberListCourt &court)
{
    Reader reader(court);
    int number = 0;
    for (LineCutter lines(text); !lines.AtEnd();) {
        if (number == mostLines || reader.IsFull()) {
            reader.Add(number + 1, {},
                       u"The list is not read from this line on: it is too long."_s);
            break;
        }
        reader.Read(++number, lines.Next().toString());
    }
    return reader.rows;
}

QString ReadablePart(const QString &text)
{
    QString part;
    int number = 0;
    for (LineCutter lines(text); !lines.AtEnd() && number <= mostLines; ++number) {
        if (number > 0)
            part += u'\n';
        part += lines.Next();
    }
    return part;
}

QString VerdictText(const ListedNumber &listed)
{
    switch (listed.Verdict) {
    case NumberVerdict::Valid:
        return u"Valid"_s;
    case NumberVerdict::Doubtful:
        return u"Doubtful: "_s + listed.Reason;
    case NumberVerdict::Duplicate:
        return u"Duplicate: "_s + listed.Reason;
    case NumberVerdict::Refused:
        return u"Refused: "_s + listed.Reason;
    case NumberVerdict::NotUnderstood:
        return u"Not understood: "_s + listed.Reason;
    }
    return {};
}

QList<SearchEntry> BatchesOf(const QList<ListedNumber> &numbers, const NumberListCourt &court)
{
    QList<SearchEntry> batches;
    for (qsizetype i = 0; i < numbers.size(); ++i) {
        const size_t row = static_cast<size_t>(i) % std::tuple_size_v<decltype(SearchEntry::Batch)>;
        if (row == 0)
            batches.append(entryOf(court));
        batches.last().Batch[row] = {numbers[i].Number, numbers[i].County};
    }
    return batches;
}
