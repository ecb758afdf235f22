#include "searchentry/Slips.h"

#include "core/TextUtilities.h"

using namespace Qt::StringLiterals;

namespace {
/// So soon nobody means the same search a second time.
constexpr qint64 soonSeconds = 10;

bool yearsRunBackwards(const SearchEntry &entry)
{
    return entry.YearRange && entry.FromYear.toInt() > entry.ToYear.toInt();
}

bool isDiscisNumber(const SearchEntry &entry)
{
    return entry.Court == CourtFamily::Discis && entry.Kind == SearchKind::Number
           && !TrimBlanks(entry.Names[LastName]).isEmpty();
}
} // namespace

QString SlipIn(const SearchEntry &entry, bool withYears)
{
    if (withYears && yearsRunBackwards(entry))
        return u"The years run backwards: from "_s + entry.FromYear + u" to "_s + entry.ToYear
               + u'.';
    if (!isDiscisNumber(entry))
        return {};
    const auto courts = entry.DiscisSelected.size();
    if (courts == 0)
        return u"Select the one court whose number this is."_s;
    if (courts > 1)
        return u"A number is one court's: of the "_s + QString::number(courts)
               + u" selected, only the first is asked."_s;
    return {};
}

QString RepeatedStart::Note(const SearchEntry &entry, const QDateTime &now)
{
    const qint64 seconds = at.isValid() ? at.secsTo(now) : soonSeconds;
    const bool again = entry == last && seconds >= 0 && seconds < soonSeconds;
    last = entry;
    at = now;
    return again ? u"The same search was started a moment ago. It has been started again."_s
                 : QString();
}
