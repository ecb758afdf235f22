#include "namesearch/SearchCriteria.h"

#include "core/RunTimeError.h"
#include "core/TextUtilities.h"
#include "courts/Counties.h"
#include "courts/CourtTable.h"
#include "courts/DiscisCourts.h"
#include "link/RequestLine.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr int nameField = 2;
constexpr int firstNameField = 3;
constexpr int middleNameField = 4;
constexpr int courtField = 5; ///< of a District or Municipal line
constexpr int countyField = 6;
constexpr int caseTypeField = 7;
constexpr qsizetype longestWholeCounty = 20;
constexpr qsizetype longestCountyHead = 35;
constexpr qsizetype oregonCodeLength = 3;

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

QStringList fieldsOf(const QString &requestLine, bool indexSearch)
{
    const CourtSystem system = indexSearch ? CourtSystem::Index : CourtSystem::Superior;
    return TrimBlanks(requestLine).split(QChar(CourtOf(system).SearchDelimiter));
}

QString caseTypesOf(const QString &field)
{
    QString types = field.chopped(qMin<qsizetype>(1, field.size())).split(u',').join(u", "_s);
    for (const TypeWord &row : typeWords)
        types.replace(row.code.toString(), row.word.toString());
    return types;
}

QString washingtonPlace(const QString &county)
{
    const QString shown = county.size() <= longestWholeCounty
                              ? QString(county + u" "_s)
                              : QString(county.left(longestCountyHead) + u".. "_s);
    return shown + u"County, Washington Superior Courts"_s;
}

QString oregonPlace(const QString &county)
{
    QStringList names;
    for (const QString &entry : county.split(u','))
        names.append(GetOrCountyName(entry.left(oregonCodeLength)));
    const QString list = names.join(u',');
    const QString tail = u"Oregon Circuit/District Courts"_s;
    return list.size() < longestCountyHead
               ? QString(list + u" County, "_s + tail)
               : QString(list.left(longestCountyHead) + u".. Counties, "_s + tail);
}

QString idahoPlace(const QString &county, const QString &countyList)
{
    return county.contains(u',') ? countyList.left(longestCountyHead) : countyList;
}
} // namespace

SearchCriteria CriteriaOf(const QString &requestLine, const CriteriaSource &source)
{
    const QStringList fields = fieldsOf(requestLine, source.IndexSearch);
    SearchCriteria criteria;
    criteria.Name = nameOf(fields);
    criteria.CaseTypes = caseTypesOf(FieldAt(fields, caseTypeField));
    QString county = FieldAt(fields, countyField);
    if (county.endsWith(u','))
        county.chop(1);
    const QString head = criteria.Name + u" in "_s;
    if (source.State == u"WA")
        criteria.Caption = head + washingtonPlace(county);
    else if (source.State == u"OR")
        criteria.Caption = head + oregonPlace(county);
    else if (source.State == u"ID")
        criteria.Caption = head + idahoPlace(county, source.CountyList);
    return criteria;
}

QString NameOfRequest(const QString &requestLine, bool indexSearch)
{
    const QStringList fields = fieldsOf(requestLine, indexSearch);
    return fields.size() > middleNameField ? nameOf(fields) : QString();
}

bool KeepsGivenCriteria(const QString &state)
{
    return IsBankruptcyCourt(state);
}

SearchCriteria DiscisCriteria(const QString &requestLine, const QString &courtCounty)
{
    const QStringList fields = TrimBlanks(requestLine).split(QChar(fieldBar));
    SearchCriteria criteria;
    criteria.Name = nameOf(fields);
    const clsDiscisCourts *court = DiscisCourtByCode(FieldAt(fields, courtField));
    // A statewide line has no county: it reads as the window's own words for it.
    const QString place = court ? QString(court->CourtCounty + u" County"_s) : courtCounty;
    criteria.Caption =
        criteria.Name + u" in "_s + place + u", Washington District/Municipal Courts"_s;
    return criteria;
}

std::optional<QString> CountyOfRequest(const QString &requestLine)
{
    const QStringList fields = requestLine.split(QChar(fieldBar));
    if (fields.size() <= countyField)
        return std::nullopt;
    return TrimBlanks(QString(fields[countyField]).remove(u','));
}
