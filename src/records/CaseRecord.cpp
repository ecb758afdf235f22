#include "records/CaseRecord.h"

#include "courts/CourtTable.h"

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array stateTabs{
    CaseTab::Summary, CaseTab::Names,    CaseTab::Docket,   CaseTab::Accounting, CaseTab::Judgments,
    CaseTab::Charges, CaseTab::Sentence, CaseTab::Schedule, CaseTab::Documents,  CaseTab::Finance};
constexpr std::array civilTabs{CaseTab::Summary, CaseTab::Names, CaseTab::Docket,
                               CaseTab::Judgments};
constexpr std::array nonCivilTabs{CaseTab::Summary, CaseTab::Names, CaseTab::Docket,
                                  CaseTab::Violations};

/// What a kind of window has of its own.
struct KindRow
{
    std::span<const CaseTab> tabs;
    QStringView state; ///< the only one
    QStringView caseType;
};
/// In the order of CaseKind.
constexpr std::array<KindRow, 3> kinds{{
    {stateTabs, u"", u""},
    {civilTabs, u"WA", u"CIVIL  CV"},
    {nonCivilTabs, u"WA", u"NON-CIVIL"},
}};

const KindRow &rowOf(CaseKind kind)
{
    return kinds.at(static_cast<size_t>(kind));
}

QString captionOf(CaseTab tab)
{
    return CaseTabRowOf(tab).caption.toString();
}
} // namespace

CaseStart::CaseStart(CaseKind kind)
    : Kind(kind), lblCaseType(rowOf(kind).caseType.toString()),
      lblState(rowOf(kind).state.toString())
{
}

void CaseStart::SetHeading(const QString &text)
{
    lblCaseDetailsHdr = text;
    Archived = text.contains(u'*');
}

void CaseStart::SetTitle(const QString &text)
{
    if (Kind != CaseKind::NonCivil)
        lblCaseTitle = QString(text).replace(u"&&"_s, u"&"_s);
}

CaseRecord::CaseRecord(CaseKind kind)
    : CaseStart(kind), TabCaptions(captionOf(CaseTab::Summary)),
      SelectedTab(captionOf(CaseTab::Summary))
{
    for (const CaseTab tab : rowOf(kind).tabs)
        Tab(tab).Exists = true;
}

bool CaseRecord::TabExists(const QString &word) const
{
    return TabCaptions.contains(word, Qt::CaseInsensitive);
}

bool CaseRecord::TabExists(CaseTab tab) const
{
    return TabExists(captionOf(tab));
}

bool CaseRecord::AnyTabIncomplete() const
{
    for (int i = 0; i < caseTabCount; ++i) {
        const auto tab = static_cast<CaseTab>(i);
        if (Tab(tab).TabIncomplete && TabExists(tab))
            return true;
    }
    return false;
}

bool CaseRecord::IsBankruptcy() const
{
    return IsBankruptcyCourt(lblState);
}
