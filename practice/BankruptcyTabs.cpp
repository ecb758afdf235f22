#include "practice/BankruptcyTabs.h"

#include "practice/CaseRecords.h"
#include "practice/DocketText.h"
#include "practice/OtherFile.h"
#include "practice/RecordRows.h"
#include "practice/SearchFields.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr std::array nameColumns{CaseColumn{u"Name", 32}, CaseColumn{u"Role", 16},
                                 CaseColumn{u"Address", 30}, CaseColumn{u"Attorney", 22}};
constexpr std::array docketColumns{CaseColumn{u"Filed", 14}, CaseColumn{u"No.", 8},
                                   CaseColumn{u"Entry", 78}};
constexpr auto family = OtherFamily::Bankruptcy;
constexpr std::array chapters{u"Chapter 7", u"Chapter 13", u"Chapter 7"};
constexpr qsizetype bareDigits = 7;

QString command(const QString &word, const QString &number, const QString &court)
{
    return u"RETRIEVECOMMAND=BKRPT~%1~%2~%3~"_s.arg(word, number, court);
}

/// Several cases have the number: a list, each with what opens it.
void sayMultiple(const OtherFile &found, const QString &court, Reply &reply)
{
    reply.Say(u"MULTIPLE"_s);
    for (int i = 1; i <= multipleCases; ++i) {
        const QString number = u"%1-%2"_s.arg(found.file.number).arg(i);
        reply.Say(u"%1¦%2¦%3¦%4¦"_s.arg(
            number, command(u"SUMMARY"_s, number, court),
            QString::fromUtf16(chapters[static_cast<std::size_t>(i) - 1]), found.file.title));
    }
}

void saySummary(const OtherFile &found, QDate today, Reply &reply)
{
    const CaseFile &file = found.file;
    const QString court = CourtOf(family, found.courtCase).code;
    const auto say = [&reply](const QString &item, const QString &text) {
        reply.Say(CaseLine({item, text}));
    };
    // The commands are full of tildes.
    QString commands = u"TABDEF¦"_s;
    for (const QString &word : {u"SUMMARY"_s, u"NAMES"_s, u"DOCKET"_s})
        commands += command(word, file.number, court) + u'¦';
    reply.Say(commands);
    say(u"Case Title"_s, file.title);
    say(u"Case Number"_s, file.number);
    say(u"Chapter"_s, found.courtCase.text.section(u' ', -1));
    say(u"Date Filed"_s, DateText(file.filed));
    say(u"Court"_s, file.court);
    say(u"Judge"_s, JudgeOf(file));
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    const bool over = IsOver(file, today);
    say(u"Status"_s, over ? u"Closed"_s : u"Open"_s);
    if (over)
        say(u"Date Closed"_s, DateText(docket.back().date));
    say(u"Last Entry"_s, docket.back().text);
}

/// Entries are numbered here.
CaseRows numberedDocket(const CaseFile &file, QDate today)
{
    CaseRows rows;
    for (const DocketEntry &entry : DocketOf(file, today)) {
        const QString place = QString::number(rows.size() + 1);
        rows.push_back(DocketCells(entry.date, place, entry.text));
    }
    return rows;
}

void sayTab(const TabTask &task, const OtherFile &found, Reply &reply)
{
    const QDate today = task.context.today;
    if (IsMeaning(task.special, SpecialCase::Multiple) && task.asked.tab == CaseTab::Summary
        && task.asked.number.count(u'-') == 1)
        sayMultiple(found, CourtOf(family, found.courtCase).code, reply);
    else if (task.asked.tab == CaseTab::Summary)
        saySummary(found, today, reply);
    else if (task.asked.tab == CaseTab::Names)
        SayTab(task, found.file, {TableForm::Grouped, u"Names", nameColumns, NameRows(found.file)},
               reply);
    else
        SayTab(task, found.file,
               {TableForm::Paired, u"Docket", docketColumns, numberedDocket(found.file, today)},
               reply);
}

/// "90-99050-2" is the second of the cases that have the number before it.
const SpecialCaseRow *findSpecial(const TabAsked &asked)
{
    if (const SpecialCaseRow *special = FindSpecialCase(asked))
        return special;
    const qsizetype dash = asked.number.lastIndexOf(u'-');
    const int place = asked.number.mid(dash + 1).toInt();
    const SpecialCaseRow *special =
        FindSpecialCase(asked.family, asked.court, asked.number.left(std::max<qsizetype>(dash, 0)));
    return IsMeaning(special, SpecialCase::Multiple) && place >= 1 && place <= multipleCases
               ? special
               : nullptr;
}

std::optional<OtherFile> findCase(const TabTask &task)
{
    if (task.special != nullptr) {
        OtherFile found = SpecialOtherFile(task, family);
        if (task.asked.number.count(u'-') > 1) {
            const int place = task.asked.number.section(u'-', -1).toInt();
            found.file.number = task.asked.number;
            found.courtCase.text =
                QString::fromUtf16(chapters[static_cast<std::size_t>(place) - 1]);
        }
        return found;
    }
    const std::optional<OtherFile> found = FindOtherFile(task.context, family, task.asked.number);
    if (!found || FindCourt(family, task.asked.court) != found->courtCase.court)
        return std::nullopt;
    return found;
}

bool isNumber(const QString &number)
{
    const QString bare = BareNumber(number);
    return bare.size() == bareDigits
           && std::all_of(bare.begin(), bare.end(), [](QChar digit) { return digit.isDigit(); });
}
} // namespace

Reply AnswerBankruptcyTab(const TabContext &context, const TabAsked &asked)
{
    const TabTask task{context, asked, findSpecial(asked)};
    Reply reply;
    if (!SaySpecialTab(task, reply)) {
        if (const std::optional<OtherFile> found = findCase(task))
            sayTab(task, *found, reply);
        else
            reply.Say(isNumber(asked.number) ? u"ERROR~Case not found~"_s
                                             : u"ERROR~Illegal case number~"_s);
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
