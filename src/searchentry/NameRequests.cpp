#include "searchentry/NameRequests.h"

#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QChar fieldBar(u'\u00A6');

/// Each item with a comma behind it, the last one too.
QString eachWithComma(const QStringList &items)
{
    QString joined;
    for (const QString &item : items)
        joined += item + u',';
    return joined;
}

QString line(const QStringList &fields)
{
    return fields.join(fieldBar) + fieldBar;
}
} // namespace

QStringList SuperiorNameRequests(const NameSearchEntry &entry)
{
    const QString caseTypes = eachWithComma(entry.CaseTypes);
    const QString from = entry.YearRange ? TrimBlanks(entry.FromYear) : QString();
    const QString to = entry.YearRange ? TrimBlanks(entry.ToYear) : QString();
    QStringList lines;
    for (const QString &county : entry.Counties) {
        // Field 5 stays empty: the suffix is asked for on the form and never sent.
        lines.append(line({u"WASUP"_s, u"SEARCH"_s, TrimBlanks(entry.LastOrBusinessName),
                           TrimBlanks(entry.FirstName), TrimBlanks(entry.MiddleInitial), QString(),
                           county + u',', caseTypes, from, to}));
    }
    return lines;
}

QString SuperiorJurisdictions(const NameSearchEntry &entry)
{
    if (entry.Statewide)
        return u"Statewide (All Counties) - Washington Superior Courts"_s;
    // One word for one county and for several: that is how the window has always read.
    return entry.Counties.join(u", "_s) + u" County - Washington Superior Courts"_s;
}
