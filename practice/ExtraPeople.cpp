#include "practice/ExtraPeople.h"

#include "core/Windows1252.h"
#include "practice/Counties.h"
#include "practice/CourtTables.h"
#include "practice/SpecialNames.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
// The made-up cases leave these serials alone.
constexpr int firstFreeSerial = 90'000;

enum Column : qsizetype {
    Last,
    First,
    Middle,
    InCounty,
    Type,
    Filed,
    Description,
    Role,
    Number,
    ColumnCount,
};
constexpr qsizetype leastColumns = Filed + 1;

/// A line that has been understood.
struct Entry
{
    Person person;
    CourtCase courtCase;
    QString role;
    bool numbered = false;
};

/// Rows that begin like this are no rows to a reader of the wire.
constexpr std::array<const char16_t *, 4> reservedBeginnings{u"ERROR", u"WARNING", u"SEARCHING",
                                                             u"EOF"};

/// Why the text cannot stand in a row of a reply, or "" when it can.
QString troubleOnTheWire(const QString &field)
{
    for (const QChar character : field) {
        if (character == u'|' || character == u'\u00A6' || character == u'~')
            return u"a field must not hold \"|\", \"\u00A6\" or \"~\""_s;
        if (character < u' ')
            return u"a field must not hold control characters"_s;
    }
    if (!FitsWindows1252(field))
        return u"a character is not in Windows-1252"_s;
    if (field.contains(u"DIAG001"_s, Qt::CaseInsensitive))
        return u"a field must not hold \"DIAG001\""_s;
    return {};
}

QString troubleWithName(const QString &last)
{
    if (last.isEmpty())
        return u"the last or business name is missing"_s;
    for (const char16_t *beginning : reservedBeginnings) {
        if (last.startsWith(QStringView(beginning)))
            return u"a name must not begin with %1"_s.arg(QStringView(beginning));
    }
    if (FindSpecialName(last) != nullptr)
        return u"the name %1 has a meaning of its own"_s.arg(last);
    return {};
}

QDate parseDate(const QString &text)
{
    const QDate american = QDate::fromString(text, u"MM/dd/yyyy"_s);
    return american.isValid() ? american : QDate::fromString(text, Qt::ISODate);
}

const CaseType *parseType(const QString &text)
{
    bool isDigit = false;
    const int digit = text.toInt(&isDigit);
    return isDigit ? CaseTypeOfDigit(digit) : CaseTypeOfWord(text);
}

/// Fills what the number says. The reason why it is refused, or "".
QString takeNumber(QString text, Entry &entry)
{
    if (text.startsWith(u'*')) {
        entry.courtCase.archived = true;
        text.remove(0, 1);
    }
    if (text.isEmpty())
        return {};
    const CaseNumber wanted = entry.courtCase.number;
    const std::optional<CaseNumber> number = ParseCaseNumber(wanted.county, text);
    if (!number)
        return u"the case number is not YY-T-NNNNN-C with the check digit of its county"_s;
    if (number->type != wanted.type || number->year != wanted.year)
        return u"the case number does not agree with the type and the date"_s;
    entry.courtCase.number = *number;
    entry.numbered = true;
    return {};
}

/// The entry that a line stands for, or why it stands for none.
std::variant<Entry, QString> parseLine(const QString &line)
{
    QStringList fields = line.split(line.contains(u'\t') ? u'\t' : u'~');
    while (fields.size() > leastColumns && fields.last().trimmed().isEmpty())
        fields.removeLast();
    if (fields.size() < leastColumns || fields.size() > ColumnCount)
        return u"%1 fields, where %2 to %3 are needed"_s.arg(fields.size())
            .arg(leastColumns)
            .arg(ColumnCount);
    fields.resize(ColumnCount);
    for (QString &field : fields) {
        field = field.simplified();
        if (QString trouble = troubleOnTheWire(field); !trouble.isEmpty())
            return trouble;
    }

    Entry entry;
    entry.person.last = fields[Last].toUpper();
    entry.person.first = fields[First].toUpper();
    entry.person.middle = fields[Middle].toUpper().left(1);
    entry.person.business = entry.person.first.isEmpty();
    if (entry.person.business)
        entry.person.middle.clear();
    if (QString trouble = troubleWithName(entry.person.last); !trouble.isEmpty())
        return trouble;

    const std::optional<int> county = CountyNumber(fields[InCounty]);
    if (!county)
        return u"there is no county \"%1\""_s.arg(fields[InCounty]);
    const CaseType *type = parseType(fields[Type]);
    if (type == nullptr)
        return u"there is no case type \"%1\""_s.arg(fields[Type]);
    const QDate filed = parseDate(fields[Filed]);
    if (!filed.isValid() || filed.year() < firstCaseYear || filed.year() >= firstCaseYear + 100)
        return u"\"%1\" is no date from 1970 on, as MM/DD/YYYY"_s.arg(fields[Filed]);

    CourtCase &courtCase = entry.courtCase;
    courtCase.number = {*county, filed.year(), type->digit, 0};
    courtCase.filed = filed;
    courtCase.description = fields[Description].isEmpty()
                                ? QString::fromUtf16(type->descriptions.front())
                                : fields[Description];
    entry.role =
        fields[Role].isEmpty() ? QString::fromUtf16(type->parties.front().role) : fields[Role];
    // The role is a row's last word, and a row that ends in "EOF" ends the reply.
    if (entry.role.endsWith(u"EOF"_s, Qt::CaseInsensitive)
        && !entry.role.endsWith(u"THEREOF"_s, Qt::CaseInsensitive))
        return u"a role must not end in EOF"_s;
    if (QString trouble = takeNumber(fields[Number], entry); !trouble.isEmpty())
        return trouble;
    return entry;
}

/// A number for a case that came without one; false when the court has no more of them.
bool giveNumber(const Population &population, CaseNumber &number)
{
    for (number.serial = firstFreeSerial; number.serial <= lastSerial; ++number.serial) {
        if (!population.FindCase(number))
            return true;
    }
    return false;
}

QString addEntry(Population &population, Entry &entry)
{
    if (!entry.numbered && !giveNumber(population, entry.courtCase.number))
        return u"too many cases of this county, type and year without a number"_s;
    std::optional<quint32> courtCase = population.FindCase(entry.courtCase.number);
    if (!courtCase)
        courtCase = population.AddCase(entry.courtCase);
    std::optional<quint32> person = population.FindPerson(entry.person);
    if (!person)
        person = population.AddPerson(entry.person);
    population.AddPart(*person, *courtCase, entry.role);
    return {};
}

/// Reads to the end of the line; false when it was longer than a line may be.
bool readLine(QIODevice &lines, QByteArray &line)
{
    line = lines.readLine(longestDataLine + 2); // with the line end, and a NUL that Qt reserves
    bool whole = line.endsWith('\n') || lines.atEnd();
    const bool fits = whole && line.size() - (line.endsWith('\n') ? 1 : 0) <= longestDataLine;
    while (!whole) {
        const QByteArray more = lines.readLine(longestDataLine);
        whole = more.isEmpty() || more.endsWith('\n');
    }
    return fits;
}
} // namespace

ExtraPeopleOutcome AddExtraPeople(Population &population, QIODevice &lines)
{
    ExtraPeopleOutcome outcome;
    QByteArray bytes;
    for (int number = 1; !lines.atEnd(); ++number) {
        const auto complain = [&](const QString &what) {
            outcome.complaints.append(u"line %1: %2"_s.arg(number).arg(what));
        };
        if (!readLine(lines, bytes)) {
            complain(u"longer than %1 bytes"_s.arg(longestDataLine));
            continue;
        }
        QStringDecoder decoder(QStringDecoder::Utf8); // drops a byte order mark
        const QString line = decoder.decode(bytes);
        if (decoder.hasError()) {
            complain(u"not UTF-8"_s);
            continue;
        }
        const QString meat = line.trimmed();
        if (meat.isEmpty() || meat.startsWith(u'#'))
            continue;

        std::variant<Entry, QString> parsed = parseLine(line);
        QString trouble;
        if (Entry *entry = std::get_if<Entry>(&parsed))
            trouble = addEntry(population, *entry);
        else
            trouble = std::get<QString>(parsed);
        if (trouble.isEmpty())
            ++outcome.added;
        else
            complain(trouble);
    }
    return outcome;
}
} // namespace Practice
