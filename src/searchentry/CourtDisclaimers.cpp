#include "searchentry/CourtDisclaimers.h"

#include "controls/MsgBox.h"
#include "core/GlobalState.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
struct DisclaimerRow
{
    QStringView state;
    Boolean GlobalState::*accepted;
    bool batchOnly; ///< no notice before a single search
    QStringView title;
    QStringView whichData; ///< the second line of the notice
};
constexpr std::array<DisclaimerRow, 3> disclaimers{{
    {u"WA", &GlobalState::WaDisclaimerAccepted, false, u"Washington State Courts",
     u"completeness of the Washington Court data except for court purposes. "},
    {u"OR", &GlobalState::OrDisclaimerAccepted, false, u"Oregon State Courts",
     u"completeness of the Oregon Court data except for court purposes. "},
    {u"ID", &GlobalState::IdDisclaimerAccepted, true, u"Idaho State Courts",
     u"completeness of the Idaho Court data except for court purposes. "},
}};

bool display(QWidget *parent, const DisclaimerRow &row)
{
    const MsgAnswer answer =
        MsgBox(parent,
               u"Neither the court nor clerk makes any representation as to the accuracy and "_s
                   + row.whichData + u"\r\n\r\nDo you want to continue?"_s,
               row.title.toString(), MsgButtons::YesNo, MsgIcon::Exclamation);
    if (answer != MsgAnswer::Yes)
        return false;
    Global.*row.accepted = true;
    return true;
}
} // namespace

bool DisplayCourtDisclaimer(QWidget *parent, QStringView searchState)
{
    for (const DisclaimerRow &row : disclaimers) {
        if (row.state == searchState)
            return display(parent, row);
    }
    return true;
}

bool CourtDisclaimerAccepted(QWidget *parent, bool batch)
{
    return CourtDisclaimerAccepted(parent, batch, Global.strSearchState);
}

bool CourtDisclaimerAccepted(QWidget *parent, bool batch, QStringView searchState)
{
    for (const DisclaimerRow &row : disclaimers) {
        if (row.batchOnly && !batch)
            continue;
        if (!Global.bShowAlerts)
            Global.*row.accepted = true;
        else if (row.state == searchState && !(Global.*row.accepted))
            return display(parent, row);
    }
    return true;
}
