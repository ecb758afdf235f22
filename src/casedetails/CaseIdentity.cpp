#include "casedetails/CaseIdentity.h"

#include "core/TextUtilities.h"
#include "core/Windows1252.h"
#include "courts/CaseMarks.h"
#include "courts/CourtTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
QString folded(const QString &text)
{
    return FoldToUpper(TrimBlanks(text));
}

QString joined(const QStringList &parts)
{
    const bool missing =
        std::any_of(parts.begin(), parts.end(), [](const QString &part) { return part.isEmpty(); });
    return missing ? QString() : parts.join(u'|');
}
} // namespace

QString CaseIdentity(const CaseStart &start)
{
    const QString number = folded(CaseNumberOf(start.txtCaseNumber));
    // A list of bankruptcy cases hands its own number to each case of it: the request knows better.
    if (IsBankruptcyCourt(start.lblState))
        return joined({start.lblState, folded(WithoutRetrieveCommand(start.TabRequests.value(0)))});
    if (start.Kind != CaseKind::State)
        return joined({u"DISCIS"_s, folded(start.txtCourtCode), folded(start.txtCaseType), number});
    const QString county = folded(start.txtCountyName);
    if (FamilyOfState(start.lblState) != CourtFamily::Oregon)
        return joined({start.lblState, county, number});
    const bool circuit = start.lblOrCourtType == u"C";
    return joined({start.lblState, circuit ? u"C"_s : u"D"_s, county, number});
}
