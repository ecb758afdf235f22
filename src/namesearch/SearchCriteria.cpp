#include "namesearch/SearchCriteria.h"

#include "core/RunTimeError.h"
#include "core/TextUtilities.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QChar fieldBar(u'\u00A6');
constexpr int nameField = 2;
constexpr int firstNameField = 3;
constexpr int middleNameField = 4;
constexpr int countyField = 6;
constexpr int caseTypeField = 7;
constexpr qsizetype longestWholeCounty = 20;
constexpr qsizetype longestCountyHead = 35;

/// Oregon and Idaho send codes; each is replaced over the whole text, in this order.
struct TypeWord
{
    QStringView code;
    QStringView word;
};
constexpr std::array<TypeWord, 9> typeWords{{
    {u"OF", u"Offense"},
    {u"CV", u"Civil"},
    {u"DO", u"Domestic"},
    {u"JU", u"Juvenile Offender"},
    {u"JV", u"Juvenile Offender"},
    {u"PB", u"Probate"},
    {u"SC", u"Small Claims"},
    {u"JG", u"Judgment"},
    {u"CR", u"Criminal"},
}};

QString nameOf(const QStringList &fields)
{
    QString name = FieldAt(fields, nameField);
    for (const int field : {firstNameField, middleNameField}) {
        const QString &part = FieldAt(fields, field);
        if (!part.isEmpty())
            name += u", "_s + part;
    }
    return name;
}

QString caseTypesOf(const QString &field)
{
    QString types = field.chopped(qMin<qsizetype>(1, field.size())).split(u',').join(u", "_s);
    for (const TypeWord &row : typeWords)
        types.replace(row.code.toString(), row.word.toString());
    return types;
}
} // namespace

SearchCriteria SuperiorCriteria(const QString &requestLine)
{
    const QStringList fields = TrimBlanks(requestLine).split(fieldBar);
    SearchCriteria criteria;
    criteria.Name = nameOf(fields);
    criteria.CaseTypes = caseTypesOf(FieldAt(fields, caseTypeField));
    QString county = FieldAt(fields, countyField);
    if (county.endsWith(u','))
        county.chop(1);
    const QString shown = county.size() <= longestWholeCounty
                              ? QString(county + u" "_s)
                              : QString(county.left(longestCountyHead) + u".. "_s);
    criteria.Caption = criteria.Name + u" in "_s + shown + u"County, Washington Superior Courts"_s;
    return criteria;
}

QString CountyOfRequest(const QString &requestLine)
{
    QString county = requestLine.split(fieldBar).value(countyField);
    return TrimBlanks(county.remove(u','));
}
