#include "practice/DistrictTabs.h"

#include "practice/CaseRecords.h"
#include "practice/DocketText.h"
#include "practice/OtherFile.h"
#include "practice/RecordRows.h"
#include "practice/SearchFields.h"

#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
constexpr auto family = OtherFamily::District;

constexpr std::array nameColumns{CaseColumn{u"Name", 32}, CaseColumn{u"Participant", 16},
                                 CaseColumn{u"Address", 30}, CaseColumn{u"Attorney", 22}};
constexpr std::array docketColumns{CaseColumn{u"Date", 14}, CaseColumn{u"Code", 12},
                                   CaseColumn{u"Entry", 74}};
constexpr std::array violationColumns{CaseColumn{u"No.", 6},        CaseColumn{u"Law", 18},
                                      CaseColumn{u"Violation", 36}, CaseColumn{u"Date", 14},
                                      CaseColumn{u"Plea", 13},      CaseColumn{u"Finding", 13}};
constexpr std::array judgmentColumns{CaseColumn{u"Date", 12},     CaseColumn{u"Case Number", 14},
                                     CaseColumn{u"Creditor", 25}, CaseColumn{u"Debtor", 25},
                                     CaseColumn{u"Amount", 12},   CaseColumn{u"Status", 12}};

/// A tab, and how a note ahead of its table begins.
struct DistrictTab
{
    CaseTab tab;
    QStringView name;
    const char16_t *note;
    CaseColumns columns;
    CaseRows (*rows)(const CaseFile &file, QDate today);
};

struct Spelled
{
    QStringView code;
    const char16_t *text;
};
constexpr std::array<Spelled, 5> spelled{{
    {u"PLA", u"Plaintiff"},
    {u"DEF", u"Defendant"},
    {u"OP", u"Open"},
    {u"CL", u"Closed"},
    {u"DI", u"Dismissed"},
}};

QString spellOut(const QString &code)
{
    for (const Spelled &one : spelled) {
        if (code == one.code)
            return QString::fromUtf16(one.text);
    }
    return code;
}

CaseRows namesOf(const CaseFile &file, QDate /*today*/)
{
    CaseRows rows = NameRows(file);
    for (QStringList &cells : rows)
        cells[1] = spellOut(cells[1]);
    return rows;
}

CaseRows judgmentsIn(const CaseFile &file, QDate today)
{
    return JudgmentRows(file, file.number, today);
}

constexpr std::array<DistrictTab, 4> tabs{{
    {CaseTab::Names, u"Names", u"CPARNOTE", nameColumns, namesOf},
    {CaseTab::Docket, u"Docket", u"CDKNOTE", docketColumns, DocketRows},
    {CaseTab::Violations, u"Violations", u"NCVIONOTE", violationColumns, ChargeRows},
    {CaseTab::Judgments, u"Judgments", u"CVJINOTE", judgmentColumns, judgmentsIn},
}};

constexpr std::array notes{u"Addresses may be out of date.",
                           u"Contact the court for certified copies."};
constexpr auto notAssociated = u"Case Number not associated with this court";

constexpr quint64 noteSalt = 0xE0;
constexpr quint64 suitSalt = 0xE1;

/// None, one or two, as the number means or as it falls.
int noteCount(const TabTask &task, const CaseFile &file)
{
    if (IsMeaning(task.special, SpecialCase::NoNotes))
        return 0;
    if (IsMeaning(task.special, SpecialCase::OneNote))
        return 1;
    if (IsMeaning(task.special, SpecialCase::TwoNotes))
        return 2;
    return DrawingFor(file, noteSalt).Between(0, 2);
}

bool isCivil(const CaseFile &file)
{
    return file.nature == Nature::Civil || file.nature == Nature::SmallClaims;
}

/// The lines of the heading, each by its place; with the meaning of an empty one nothing in them.
void sayHeading(const TabTask &task, const QList<QStringList> &lines, Reply &reply)
{
    const bool empty = IsMeaning(task.special, SpecialCase::EmptyHeader);
    for (const QStringList &line : lines)
        reply.Say(CaseLine({line.first(), empty ? QString() : line.last()}));
}

void sayCivilSummary(const TabTask &task, const OtherFile &found, Reply &reply)
{
    const CaseFile &file = found.file;
    const QDate today = task.context.today;
    ShortRandom random = DrawingFor(file, suitSalt);
    static constexpr std::array causes{u"Collection", u"Unlawful Detainer", u"Property Damage",
                                       u"Personal Injury", u"Breach Of Contract"};
    constexpr int smallClaims = 1;
    const bool small = found.courtCase.type == smallClaims;
    const QString cause = QString::fromUtf16(random.OneOf(causes));
    const qint64 most = small ? 4'000'00 : 50'000'00;
    sayHeading(task,
               {{u"Title"_s, file.title},
                {u"Case Number"_s, file.number},
                {u"Court"_s, CourtOf(family, found.courtCase).location},
                {u"Date Filed"_s, DateText(file.filed)},
                {u"Cause"_s, small ? u"Small Claims"_s : cause},
                {u"Suit Amount"_s, MoneyText(random.Between(100'00, static_cast<int>(most)))}},
               reply);
    if (IsMeaning(task.special, SpecialCase::HeaderOnly))
        return;
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    reply.Say(CaseLine({u"Case Status:"_s, spellOut(found.courtCase.text), {}}));
    reply.Say(CaseLine({u"Judge:"_s, JudgeOf(file), {}}));
    reply.Say(CaseLine({u"Last Entry:"_s, docket.back().text, DateText(docket.back().date)}));
    for (const JudgmentRecord &one : JudgmentsOf(file, today))
        reply.Say(CaseLine({u"Judgment:"_s, u'$' + MoneyText(one.cents), one.status}));
}

void sayNonCivilSummary(const TabTask &task, const OtherFile &found, Reply &reply)
{
    const CaseFile &file = found.file;
    const QDate today = task.context.today;
    const OtherCourt &court = CourtOf(family, found.courtCase);
    const Person &defendant = file.parties.front().person;
    sayHeading(task,
               {{u"Name"_s, NameText(defendant)},
                {u"Sex"_s, SexOf(defendant)},
                {u"Case Number"_s, file.number},
                {u"Court"_s, court.location},
                {u"Court Type"_s,
                 court.location.contains(u"(Municipal)"_s) ? u"Municipal"_s : u"District"_s},
                {u"Date Filed"_s, DateText(file.filed)}},
               reply);
    if (IsMeaning(task.special, SpecialCase::HeaderOnly))
        return;
    const auto say = [&reply](const QString &item, const QString &text) {
        reply.Say(CaseLine({item, text}));
    };
    const OtherCaseType &type = CaseTypesOf(family)[static_cast<std::size_t>(found.courtCase.type)];
    say(u"Case Type:"_s, QString::fromUtf16(type.mark));
    say(u"Case Status:"_s, spellOut(found.courtCase.text));
    say(u"Judge:"_s, JudgeOf(file));
    for (const ChargeRecord &one : ChargesOf(file, today))
        say(u"Violation %1:"_s.arg(one.count), one.text);
    const std::vector<DocketEntry> docket = DocketOf(file, today);
    // What belongs together comes in one line, and stands side by side then.
    reply.Say(CaseLine(
        {u"Last Entry:"_s, docket.back().text, u"Entered:"_s, DateText(docket.back().date)}));
}

void sayTab(const TabTask &task, const OtherFile &found, Reply &reply)
{
    const CaseFile &file = found.file;
    if (task.asked.tab == CaseTab::Summary) {
        isCivil(file) ? sayCivilSummary(task, found, reply)
                      : sayNonCivilSummary(task, found, reply);
        return;
    }
    for (const DistrictTab &tab : tabs) {
        if (tab.tab != task.asked.tab)
            continue;
        TabTable table{TableForm::GridDef, tab.name, tab.columns,
                       tab.rows(file, task.context.today)};
        for (int i = 0; i < noteCount(task, file); ++i)
            table.notes.append(CaseLine({QString::fromUtf16(tab.note),
                                         QString::fromUtf16(notes[static_cast<std::size_t>(i)])}));
        SayTab(task, file, table, reply);
    }
}
} // namespace

Reply AnswerDistrictTab(const TabContext &context, const TabAsked &asked)
{
    const TabTask task{context, asked, FindSpecialCase(asked)};
    Reply reply;
    if (!SaySpecialTab(task, reply)) {
        const std::optional<OtherFile> found = task.special != nullptr
                                                   ? std::optional(SpecialOtherFile(task, family))
                                                   : FindOtherFile(context, family, asked.number);
        if (!found || isCivil(found->file) != asked.civil) {
            // Nothing is said of a case that there is not.
        } else if (FindCourt(family, asked.court) != found->courtCase.court) {
            if (asked.tab == CaseTab::Summary)
                reply.Say(QString::fromUtf16(notAssociated));
        } else {
            sayTab(task, *found, reply);
        }
    }
    reply.Finish();
    return reply;
}
} // namespace Practice
