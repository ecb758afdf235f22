#include "namesearch/DuplicateNames.h"

#include "core/TextUtilities.h"
#include "courts/CourtTable.h"
#include "link/RequestLine.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
/// Which field of the row each cell takes, in the order of the columns.
constexpr std::array<int, 8> addressFields{1, 2, 6, 10, 4, 3, 5, 7};
constexpr std::array<int, 8> descriptionFields{1, 2, 3, 4, 5, 6, 7, 8};

/// A row with an address has exactly so many parts; one of any other length is a description,
/// whatever it begins with.
constexpr qsizetype addressParts = 12;
constexpr int personField = 8;
constexpr int personPartField = 9;

/// Sex, date of birth, race, height and weight: what the court does not know of them reads "n/a".
/// What it says in a physical description or a note stays in its own words.
constexpr int firstMeasure = 2;
constexpr int lastMeasure = 6;

constexpr QStringView retrievedMark = u">>";
constexpr QChar keyDelimiter(u'/');
constexpr qsizetype sexCell = 1;
constexpr qsizetype birthCell = 2;
constexpr qsizetype cellCount = 8;

QString withoutMark(const QString &text)
{
    return text.startsWith(retrievedMark) ? text.mid(retrievedMark.size()) : text;
}

QString describedAs(const QString &field, int place)
{
    const bool measure = place >= firstMeasure && place <= lastMeasure;
    return measure && field.contains(u"unknown", Qt::CaseInsensitive) ? u"n/a"_s : field;
}
} // namespace

NameRow ParseNameRow(const QString &row, int rowCount)
{
    const QStringList fields = TrimBlanks(row).split(u'~');
    const bool withAddress = fields.size() == addressParts && fields[0].startsWith(u"NCDND");
    const QString number = QString::number(rowCount + 1);
    NameRow name;
    name.Key =
        withAddress
            ? QStringList{fields[personField], fields[personPartField], number}.join(keyDelimiter)
            : QString(u'I' + number);
    for (const int field : withAddress ? addressFields : descriptionFields) {
        if (field >= fields.size()) {
            name.Complete = false;
            break;
        }
        name.Cells.append(withAddress ? fields[field] : describedAs(fields[field], field));
    }
    return name;
}

QString MarkedAsRetrieved(const QString &text)
{
    return retrievedMark + withoutMark(text);
}

QString OutOfSightQuestion(qsizetype outOfSight, qsizetype checked)
{
    const QString count = QString::number(checked);
    if (checked == 1)
        return u"The checked name is out of sight, because it does not match the words in Find. "
               "Retrieve its cases?"_s;
    QString question = u"All %2 checked names are"_s;
    if (outOfSight == 1)
        question = u"%1 of the %2 checked names is"_s;
    else if (outOfSight < checked)
        question = u"%1 of the %2 checked names are"_s;
    question += outOfSight == 1 ? u" out of sight, because it does not match"_s
                                : u" out of sight, because they do not match"_s;
    question += u" the words in Find. Retrieve the cases of all %2 names?"_s;
    return question.replace(u"%1"_s, QString::number(outOfSight)).replace(u"%2"_s, count);
}

QString CasesOfNameRequest(const QString &search, const QString &nameVal, const QStringList &cells,
                           const QString &key)
{
    QStringList fields{CourtOf(CourtFamily::Discis).Word.toString(), u"SEARCH"_s, nameVal,
                       withoutMark(cells.value(0))};
    if (search == u"DND") {
        // A row that came without the two numbers of its person has a key of one part. It is asked
        // for all the same, for the server to refuse: left out, its cases would be missing
        // without a word.
        const QStringList parts = key.split(keyDelimiter);
        fields << cells.value(sexCell) << cells.value(birthCell) << parts.value(0) << parts.value(1)
               << u"DNDND"_s;
    } else {
        for (qsizetype i = sexCell; i < cellCount; ++i)
            fields << cells.value(i);
        fields << key.mid(1) << u"SNCINMD"_s;
    }
    return ComposeLine(fieldBar, fields);
}
