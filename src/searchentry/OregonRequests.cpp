#include "searchentry/OregonRequests.h"

#include "core/Log.h"
#include "courts/Counties.h"
#include "link/RequestLine.h"

#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype placeField = 6;
constexpr qsizetype caseTypesField = 7;
constexpr qsizetype partsTooFew = 10; ///< ten fields, each with its bar, are eleven parts
constexpr qsizetype codeLength = 3;

/// What decides about a line.
struct CountyCourt
{
    QString code;
    QString county;
    bool district;
};

std::optional<CountyCourt> countyCourt(const QString &line)
{
    const QStringList parts = line.split(QChar(fieldBar));
    if (parts.size() <= partsTooFew || parts[placeField].isEmpty()
        || parts[caseTypesField].isEmpty())
        return std::nullopt;
    const QString &place = parts[placeField];
    const QString code = place.left(codeLength);
    const QString county = GetOrCountyName(code);
    if (county.isEmpty() || (place.back() != u'D' && place.back() != u'C'))
        return std::nullopt;
    return CountyCourt{code, county, place.back() == u'D'};
}

bool lacksDistrictCourt(const CountyCourt &court)
{
    return court.district
           && OrCountiesWithoutDistrictCourt().contains(court.county, Qt::CaseInsensitive);
}

/// The code is looked for in the whole line: a name that holds it counts as well.
bool lacksJuvenile(const QString &line, const CountyCourt &court)
{
    return line.contains(u"JU,", Qt::CaseInsensitive)
           && OrCountiesWithoutJuvenile().contains(court.county, Qt::CaseInsensitive);
}
} // namespace

bool IsOregonRequestValid(const QString &line)
{
    const std::optional<CountyCourt> court = countyCourt(line);
    return court && !lacksDistrictCourt(*court) && !lacksJuvenile(line, *court);
}

QString FixOregonRequest(const QString &line)
{
    const std::optional<CountyCourt> court = countyCourt(line);
    if (!court) {
        WriteAppInfo(u"Error Fixing Oregon Search Request "_s + line);
        return line;
    }
    QString fixed = line;
    // Without its code the line is no county's, so that it is left out.
    if (lacksDistrictCourt(*court))
        fixed.remove(court->code);
    // Over the whole line, names too: that is how these searches have always gone out.
    if (lacksJuvenile(line, *court)) {
        fixed.remove(u"JU"_s);
        const QChar bar(fieldBar);
        fixed.replace(bar + u","_s, QString(bar));
        fixed.replace(u",,"_s, u","_s);
    }
    return fixed;
}
