#include "practice/StateTabs.h"

#include "practice/CaseRecords.h"
#include "practice/DocketText.h"
#include "practice/OtherFile.h"
#include "practice/RecordRows.h"
#include "practice/SearchFields.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr std::array nameColumns{CaseColumn{u"Name", 30}, CaseColumn{u"Role", 18},
                                 CaseColumn{u"Address", 30}, CaseColumn{u"Attorney", 22}};
constexpr std::array docketColumns{CaseColumn{u"Date", 14}, CaseColumn{u"Event", 12},
                                   CaseColumn{u"Description", 74}};
constexpr std::array accountColumns{CaseColumn{u"Date", 14}, CaseColumn{u"Receipt", 16},
                                    CaseColumn{u"Transaction", 40}, CaseColumn{u"Amount", 15},
                                    CaseColumn{u"Balance", 15}};
constexpr std::array financeColumns{CaseColumn{u"Obligation", 40}, CaseColumn{u"Ordered", 20},
                                    CaseColumn{u"Paid", 20}, CaseColumn{u"Owing", 20}};
constexpr std::array judgmentColumns{CaseColumn{u"Date", 12},     CaseColumn{u"Case Number", 20},
                                     CaseColumn{u"Creditor", 22}, CaseColumn{u"Debtor", 22},
                                     CaseColumn{u"Amount", 12},   CaseColumn{u"Status", 12}};
constexpr std::array chargeColumns{CaseColumn{u"Count", 8},   CaseColumn{u"Statute", 18},
                                   CaseColumn{u"Charge", 34}, CaseColumn{u"Date", 14},
                                   CaseColumn{u"Plea", 13},   CaseColumn{u"Finding", 13}};
constexpr std::array sentenceColumns{CaseColumn{u"Condition", 35}, CaseColumn{u"Terms", 65}};
constexpr std::array scheduleColumns{CaseColumn{u"Date", 16}, CaseColumn{u"Time", 14},
                                     CaseColumn{u"Event", 45}, CaseColumn{u"Room", 25}};

/// The columns and the rows of a tab.
struct StateTab
{
    CaseTab tab;
    const char16_t *word; ///< as the first line of a summary calls the tab
    TableForm form;
    CaseColumns columns;
    CaseRows (*rows)(const CaseFile &file, QDate today);
    bool idaho = false;  ///< Idaho has it, too
    bool always = false; ///< every case has it, even when there is nothing in it
};

CaseRows namesOf(const CaseFile &file, QDate /*today*/)
{
    return NameRows(file);
}

CaseRows judgmentsIn(const CaseFile &file, QDate today)
{
    return JudgmentRows(file, file.number, today);
}

constexpr auto paired = TableForm::Paired;
constexpr std::array<StateTab, 8> tabs{{
    {CaseTab::Names, u"NAMES", TableForm::Grouped, nameColumns, namesOf, true, true},
    {CaseTab::Docket, u"DOCKET", paired, docketColumns, DocketRows, true, true},
    {CaseTab::Judgments, u"JUDGMENTS", paired, judgmentColumns, judgmentsIn, true},
    {CaseTab::Charges, u"CHARGES", paired, chargeColumns, ChargeRows, true},
    {CaseTab::Accounting, u"ACCOUNTING", paired, accountColumns, AccountRows},
    {CaseTab::Finance, u"FINANCE", paired, financeColumns, FinanceRows},
    {CaseTab::Sentence, u"SENTENCE", paired, sentenceColumns, SentenceRows},
    {CaseTab::Schedule, u"SCHEDULE", paired, scheduleColumns, ScheduleRows},
}};

/// The tabs in which there is something. The program shows those that the first line names.
QString tabLine(OtherFamily family, const CaseFile &file, QDate today)
{
    QString words = u"SUMMARY,"_s;
    for (const StateTab &tab : tabs) {
        if ((tab.idaho || family == OtherFamily::Oregon)
            && (tab.always || !tab.rows(file, today).empty()))
            words += QString::fromUtf16(tab.word) + u',';
    }
    return CaseLine({u"TABS"_s, words});
}

void saySummary(OtherFamily family, const OtherFile &found, QDate today, Reply &reply)
{
    const CaseFile &file = found.file;
    const bool over = IsOver(file, today);
    const auto say = [&reply](const QString &item, const QString &text) {
        reply.Say(CaseLine({item, text}));
    };
    // The program takes the court, the number, the title and the date by the places of their lines.
    reply.Say(tabLine(family, file, today));
    say(u"Court"_s, file.court);
    say(u"Case Number"_s, file.number);
    say(u"Case Title"_s, file.title);
    say(u"Case Type"_s, file.cause);
    say(u"Case Status"_s, file.archived ? u"Archived"_s : over ? u"Closed"_s : u"Open"_s);
    say(u"Date Filed"_s, DateText(file.filed));
    say(u"Judge"_s, JudgeOf(file));
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    if (over)
        say(u"Date Closed"_s, DateText(docket.back().date));
    say(u"Last Event"_s, docket.back().text);
    if (found.courtCase.judgment)
        say(u"Judgment"_s, u"Yes"_s);
}

void sayTab(const TabTask &task, OtherFamily family, const OtherFile &found, Reply &reply)
{
    const QDate today = task.context.today;
    if (task.asked.tab == CaseTab::Summary) {
        saySummary(family, found, today, reply);
        return;
    }
    for (const StateTab &tab : tabs) {
        if (tab.tab == task.asked.tab)
            SayTab(task, found.file, {tab.form, tab.word, tab.columns, tab.rows(found.file, today)},
                   reply);
    }
}

/// The case of that number, if it is in that court.
std::optional<OtherFile> findCase(OtherFamily family, const TabTask &task)
{
    if (task.special != nullptr)
        return SpecialOtherFile(task, family);
    const std::optional<OtherFile> found = FindOtherFile(task.context, family, task.asked.number);
    if (!found || FindCourt(family, task.asked.court) != found->courtCase.court)
        return std::nullopt;
    return found;
}
} // namespace

Reply AnswerStateTab(OtherFamily family, const TabContext &context, const TabAsked &asked)
{
    const TabTask task{context, asked, FindSpecialCase(asked)};
    Reply reply;
    if (!SaySpecialTab(task, reply)) {
        if (const std::optional<OtherFile> found = findCase(family, task))
            sayTab(task, family, *found, reply);
        else
            reply.Say(u"ERROR~Requested case is not on file~"_s);
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
