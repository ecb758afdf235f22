#include "records/CaseTabs.h"

#include <array>

namespace {
constexpr std::array<CaseTabRow, caseTabCount> tabs{{
    {CaseTab::Summary, u"Summary", 0, 0, u"Summary", u"DoSummarySearch",
     u"Summary Information Incomplete! Click Tab to Review."},
    {CaseTab::Names, u"Names", 1, 1, u"Names", u"DoNameSearch",
     u"Names Information Incomplete! Click Tab to Review."},
    {CaseTab::Docket, u"Docket", 2, 2, u"Docket", u"DoDocketSearch",
     u"Docket Information Incomplete! Click Tab to Review."},
    {CaseTab::Accounting, u"Accounting", 3, 6, u"Accounting", u"DoAcctgSearch",
     u"Accounting Information Incomplete! Click Tab to Review."},
    {CaseTab::Judgments, u"Judgments", 4, 3, u"Judgments", u"DoJudgmentsSearch",
     u"Judgments Information Incomplete! Click Tab to Review."},
    {CaseTab::Charges, u"Charges", 5, 4, u"Charges", u"DoChargesSearch",
     u"Charges Information Incomplete! Click Tab to Review."},
    {CaseTab::Sentence, u"Sentence", 6, 5, u"Sentence", u"DoSentenceSearch",
     u"Sentence Information Incomplete! Click Tab to Review."},
    {CaseTab::Schedule, u"Schedule", 7, 7, u"Schedule", u"DoScheduleSearch",
     u"Schedule Information Incomplete! Click Tab to Review."},
    {CaseTab::Documents, u"Documents", 9, 8, u"Document", u"DoDocumentSearch",
     u"Document Information Not Retrieved. Click Tab to Retry."},
    {CaseTab::Finance, u"Finance", 10, 9, u"Finance", u"DoFinanceSearch",
     u"Finance Information Not Retrieved. Click Tab to Retry."},
    // In the place that Charges has in the other windows
    {CaseTab::Violations, u"Violations", 5, 4, u"Violations", u"DoViolationsSearch",
     u"Violations Information Incomplete! Click Tab to Review."},
}};
} // namespace

const CaseTabRow &CaseTabRowOf(CaseTab tab)
{
    return tabs[static_cast<size_t>(tab)];
}

std::optional<CaseTab> CaseTabOf(const QString &caption)
{
    QStringView word = caption;
    if (word.startsWith(u'&'))
        word = word.sliced(1);
    for (const CaseTabRow &row : tabs) {
        if (word.compare(row.caption, Qt::CaseInsensitive) == 0)
            return row.tab;
    }
    return std::nullopt;
}
