#include "courts/CourtTable.h"

#include <algorithm>

namespace {
const CourtFacts &courtOrWashington(QStringView state)
{
    const CourtFacts *court = CourtOfState(state);
    return court ? *court : CourtOf(CourtSystem::Superior);
}
} // namespace

const CourtFacts *CourtOfState(QStringView state)
{
    const auto *found =
        std::find_if(courtTable.begin(), courtTable.end(),
                     [state](const CourtFacts &court) { return court.State == state; });
    return found == courtTable.end() ? nullptr : found;
}

CourtFamily FamilyOfState(QStringView state)
{
    return courtOrWashington(state).Family;
}

bool IsBankruptcyCourt(QStringView state)
{
    return FamilyOfState(state) == CourtFamily::Bankruptcy;
}

QString CourtsOfCounty(const QString &county, CourtFamily family, bool districtCourts)
{
    const CourtFacts &court = CourtOf(family);
    return county + u" County, " + (districtCourts ? court.DistrictCourts : court.Courts);
}

QString SearchStopOf(QStringView state)
{
    return courtOrWashington(state).SearchStop.toString();
}

QString CaseStopOf(QStringView state)
{
    return courtOrWashington(state).CaseStop.toString();
}
