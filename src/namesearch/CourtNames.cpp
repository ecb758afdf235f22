#include "namesearch/CourtNames.h"

#include "core/TextUtilities.h"
#include "courts/Counties.h"
#include "courts/CourtTable.h"
#include "courts/DiscisCourts.h"
#include "records/ResultsRecord.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
constexpr int personOfLine = 3;
constexpr int courtField = 5; ///< of a District or Municipal line
constexpr int placeField = 6;
constexpr qsizetype oregonCodeLength = 3;

/// The District and Municipal Courts have windows, and with them kinds of rows, of their own.
bool isDistrict(const ResultsRecord &record)
{
    return record.Kind == ResultKind::DiscisCivil || record.Kind == ResultKind::DiscisStatewide
           || record.Kind == ResultKind::DiscisAddresses;
}

/// The last word of a line that asks for the cases of one person.
bool asksForPerson(const QStringList &fields)
{
    const QString &last = fields.value(fields.size() - 2);
    return last == u"SNCINMD" || last == u"DNDND";
}

QString districtCourt(const QStringList &fields, const ResultsRecord &record)
{
    if (asksForPerson(fields))
        return fields.value(personOfLine);
    const clsDiscisCourts *court = DiscisCourtByCode(fields.value(courtField));
    return court ? court->ListText() : record.lblCourtCounty;
}

QString oregonCourt(const QString &place)
{
    const QString county = GetOrCountyName(place.left(oregonCodeLength));
    const bool district = TrimBlanks(place).endsWith(u" D");
    if (county.isEmpty())
        return {};
    return county + (district ? u" - District Court"_s : u" - Circuit Court"_s);
}

/// The rows of a page, from the limits at the end of its line.
QString pageOf(const QStringList &fields)
{
    QString lower;
    QString upper;
    for (const QString &field : fields) {
        if (field.startsWith(u"LL=", Qt::CaseInsensitive))
            lower = field.sliced(3);
        if (field.startsWith(u"UL=", Qt::CaseInsensitive))
            upper = field.sliced(3);
    }
    return lower.isEmpty() ? QString() : u", rows "_s + lower + u" to "_s + upper;
}

QString countiesOf(const QStringList &fields, const ResultsRecord &record)
{
    const QStringList counties = fields.value(placeField).split(u',', Qt::SkipEmptyParts);
    if (counties.size() == 1 && record.lblState == u"OR")
        return oregonCourt(counties.first());
    // A whole state in one request reads as the user has chosen it.
    const bool named = counties.size() == 1 && !counties.first().startsWith(u'*');
    return named ? TrimBlanks(counties.first()) : record.txtCountyList;
}
} // namespace

QString CourtOfLine(const QString &line, const ResultsRecord &record)
{
    const CourtSystem system = record.chkIndexSearch ? CourtSystem::Index : CourtSystem::Superior;
    const QStringList fields = TrimBlanks(line).split(QChar(CourtOf(system).SearchDelimiter));
    QString court;
    if (isDistrict(record))
        court = districtCourt(fields, record);
    else if (!IsBankruptcyCourt(record.lblState))
        court = countiesOf(fields, record);
    if (court.isEmpty())
        court = record.txtCountyList;
    const CourtFacts *facts = CourtOfState(record.lblState);
    if (court.isEmpty() && facts)
        court = facts->Display.toString();
    return record.chkIndexSearch ? court + pageOf(fields) : court;
}
