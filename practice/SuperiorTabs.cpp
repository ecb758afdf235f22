#include "practice/SuperiorTabs.h"

#include "practice/CaseRecords.h"
#include "practice/Counties.h"
#include "practice/DocketText.h"
#include "practice/RecordRows.h"
#include "practice/SearchFields.h"
#include "practice/SuperiorCases.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum Digit : int { Criminal = 1, Civil, Domestic, Probate, Juvenile = 8, JudgmentCase };

constexpr std::array nameColumns{CaseColumn{u"Participant", 30}, CaseColumn{u"Role", 18},
                                 CaseColumn{u"Address", 30}, CaseColumn{u"Attorney", 22}};
constexpr std::array docketColumns{CaseColumn{u"Date", 14}, CaseColumn{u"Code", 12},
                                   CaseColumn{u"Description", 74}};
constexpr std::array accountColumns{CaseColumn{u"Date", 14}, CaseColumn{u"Receipt", 16},
                                    CaseColumn{u"Description", 40}, CaseColumn{u"Amount", 15},
                                    CaseColumn{u"Balance", 15}};
// The program opens the case in the second column.
constexpr std::array judgmentColumns{CaseColumn{u"Date", 12},     CaseColumn{u"Case Number", 17},
                                     CaseColumn{u"Creditor", 23}, CaseColumn{u"Debtor", 23},
                                     CaseColumn{u"Amount", 12},   CaseColumn{u"Status", 13}};
constexpr std::array chargeColumns{CaseColumn{u"Count", 8},   CaseColumn{u"RCW", 18},
                                   CaseColumn{u"Charge", 34}, CaseColumn{u"Date", 14},
                                   CaseColumn{u"Plea", 13},   CaseColumn{u"Result", 13}};
constexpr std::array sentenceColumns{CaseColumn{u"Item", 35}, CaseColumn{u"Description", 65}};
constexpr std::array scheduleColumns{CaseColumn{u"Date", 16}, CaseColumn{u"Time", 14},
                                     CaseColumn{u"Event", 45}, CaseColumn{u"Location", 25}};
// The program finds the number of pages in the third column, in Pierce county in the second, and
// the description in the fourth.
constexpr std::array documentColumns{CaseColumn{u"Sub No", 10}, CaseColumn{u"Date", 15},
                                     CaseColumn{u"Pages", 10}, CaseColumn{u"Description", 65}};
constexpr std::array pierceColumns{CaseColumn{u"Date", 15}, CaseColumn{u"Pages", 10},
                                   CaseColumn{u"Sub No", 10}, CaseColumn{u"Description", 65}};
constexpr QStringView pierce = u"Pierce";

// Counties with fewer people, in thousands, have nothing scanned.
constexpr int leastToScan = 10;

Nature natureOf(int digit)
{
    switch (digit) {
    case Criminal:
        return Nature::Criminal;
    case Domestic:
        return Nature::Domestic;
    case Probate:
        return Nature::Probate;
    case Juvenile:
        return Nature::Juvenile;
    case JudgmentCase:
        return Nature::Judgment;
    default:
        return Nature::Civil;
    }
}

/// A case and its place in the population; the special ones have none.
struct Found
{
    CaseFile file;
    std::optional<quint32> place;
    int county = 0;
};

CaseFile fileOf(const Population &people, quint32 place)
{
    const CourtCase &courtCase = people.Cases()[place];
    const std::vector<quint32> parties = people.PartiesOf(place);
    CaseFile file;
    file.number = CaseNumberText(courtCase.number);
    file.cause = courtCase.description;
    file.filed = courtCase.filed;
    file.nature = natureOf(courtCase.number.type);
    file.archived = courtCase.archived;
    for (const quint32 part : parties) {
        const Part &one = people.Parts()[part];
        file.parties.push_back({people.People()[one.person], one.role});
    }
    if (!parties.empty())
        file.title = SuperiorRowOf(people, parties.front()).title;
    return file;
}

void nameCourt(const Population &people, int county, CaseFile &file)
{
    file.county = CountyName(county).toString();
    file.court = u"%1 County Superior Court"_s.arg(file.county);
    file.seed = SeedOfCase(people, file.county, file.number);
}

/// A case from the list of a name with a meaning.
Found listedFound(const TabContext &context, const SuperiorRow &row)
{
    const CourtCase &courtCase = row.courtCase;
    Found found;
    found.county = courtCase.number.county;
    found.file.number = CaseNumberText(courtCase.number);
    found.file.cause = courtCase.description;
    found.file.filed = courtCase.filed;
    found.file.nature = natureOf(courtCase.number.type);
    found.file.title = row.title;
    found.file.parties = {{row.person, row.role}};
    nameCourt(context.people, found.county, found.file);
    return found;
}

std::optional<Found> findIn(const TabContext &context, const CaseNumber &number)
{
    const std::optional<quint32> place = context.people.FindCase(number);
    const std::optional<SuperiorRow> row = context.lists.FindSuperior(number);
    if (row && (!place || context.lists.AreLatest(CourtFamily::Superior)))
        return listedFound(context, *row);
    if (!place)
        return std::nullopt;
    Found found{fileOf(context.people, *place), place, number.county};
    nameCourt(context.people, number.county, found.file);
    return found;
}

/// The case of that number in the county, or without a county in the first one where the number can
/// be.
std::optional<Found> findCase(const TabContext &context, const TabAsked &asked)
{
    const std::optional<int> named = CountyNumber(asked.court);
    if (!named && !asked.court.isEmpty())
        return std::nullopt;
    const int first = named.value_or(1);
    const int last = named.value_or(static_cast<int>(counties.size()));
    for (int county = first; county <= last; ++county) {
        const std::optional<CaseNumber> number = ParseCaseNumber(county, asked.number);
        std::optional<Found> found = number ? findIn(context, *number) : std::nullopt;
        if (found)
            return found;
    }
    return std::nullopt;
}

Found specialFound(const TabTask &task)
{
    Found found{SpecialCaseFile(task), {}, CountyNumber(task.asked.court).value_or(1)};
    found.file.nature = natureOf(task.special->digit);
    if (found.file.nature == Nature::Criminal) {
        found.file.cause = u"Forgery"_s;
        found.file.parties = {{found.file.parties.front().person, u"Defendant"_s}};
        found.file.title = u"STATE OF WASHINGTON VS PRACTICE, JAMES A"_s;
    }
    nameCourt(task.context.people, found.county, found.file);
    if (task.special->meaning == SpecialCase::Arbitration
        && task.asked.arbitration == ArbitrationAnswer::Arbitration) {
        found.file.nature = Nature::Arbitration;
        found.file.court += u" - Arbitration"_s;
    }
    return found;
}

std::optional<Found> foundFor(const TabTask &task)
{
    return task.special != nullptr ? std::optional(specialFound(task))
                                   : findCase(task.context, task.asked);
}

/// Another case that belongs to this one: a judgment and the case in which it was given, in the
/// same county and with a party in common.
QString associatedNumber(const TabTask &task, const Found &found)
{
    if (IsMeaning(task.special, SpecialCase::Associated)) {
        for (const SpecialCaseRow &row : specialCases) {
            if (row.meaning == SpecialCase::Associated && row.place != task.special->place)
                return SpecialCaseNumber(CourtFamily::Superior, row);
        }
    }
    if (!found.place)
        return {};
    const Population &people = task.context.people;
    const CaseNumber &own = people.Cases()[*found.place].number;
    const auto belongs = [&](const CaseNumber &other) {
        return other.county == own.county
               && ((own.type == JudgmentCase && (other.type == Civil || other.type == Domestic))
                   || (other.type == JudgmentCase && (own.type == Civil || own.type == Domestic)));
    };
    for (const quint32 party : people.PartiesOf(*found.place)) {
        for (const quint32 part : people.PartsOf(people.Parts()[party].person)) {
            const CaseNumber &other = people.Cases()[people.Parts()[part].courtCase].number;
            if (belongs(other))
                return CaseNumberText(other);
        }
    }
    return {};
}

void saySummary(const TabTask &task, const Found &found, Reply &reply)
{
    const CaseFile &file = found.file;
    const auto say = [&reply](const QString &item, const QString &text) {
        reply.Say(CaseLine({item, text}));
    };
    // The program takes the four lines of the heading by their places, and the case type from the
    // number.
    say(u"Case Number"_s, file.number);
    say(u"Court"_s, file.court);
    say(u"Case Title"_s, file.title);
    say(u"Date Filed"_s, DateText(file.filed));

    const std::vector<DocketEntry> docket = DocketOf(file, task.context.today);
    const bool over = IsOver(file, task.context.today);
    say(u"Cause:"_s, file.cause);
    say(u"Case Status:"_s, file.archived ? u"Archived"_s : over ? u"Completed"_s : u"Active"_s);
    say(u"Judge:"_s, JudgeOf(file));
    if (over)
        say(u"Completion Date:"_s, DateText(docket.back().date));
    say(u"Last Docket Entry:"_s, docket.back().text);
    if (const QString number = associatedNumber(task, found); !number.isEmpty())
        say(u"Associated Case:"_s, number);
}

CaseRows judgmentRows(const TabTask &task, const Found &found)
{
    const QString other = associatedNumber(task, found);
    return JudgmentRows(found.file, other.isEmpty() ? found.file.number : other,
                        task.context.today);
}

/// One paper in so many was scanned as a TIFF, by a clerk who has the older machine.
bool isTiff(const DocumentRecord &document)
{
    constexpr int clerks = 4;
    constexpr int mostPages = 24;
    return document.place % clerks == 3 && document.pages <= mostPages;
}

std::vector<ListedDocument> ordinaryDocuments(const CaseFile &file, QDate today)
{
    std::vector<ListedDocument> documents;
    for (const DocumentRecord &one : DocumentsOf(file, today)) {
        ListedDocument listed;
        listed.paper = {file.county, file.number, one.text, one.date,
                        one.place,   one.pages,   file.seed};
        if (!one.retrievable)
            listed.trouble = DocumentTrouble::Unavailable;
        else if (isTiff(one))
            listed.trouble = DocumentTrouble::Tiff;
        documents.push_back(listed);
    }
    return documents;
}

std::vector<ListedDocument> troubledDocuments(const CaseFile &file)
{
    std::vector<ListedDocument> documents;
    int place = 0;
    for (const DocumentTroubleRow &row : documentTroubles) {
        ++place;
        documents.push_back({{file.county, file.number, QString::fromUtf16(row.text),
                              file.filed.addDays(place), place, row.pages, file.seed},
                             row.trouble,
                             row.number,
                             row.type});
    }
    return documents;
}

std::vector<ListedDocument> documentsOf(const TabTask &task, const Found &found)
{
    if (IsMeaning(task.special, SpecialCase::Documents))
        return troubledDocuments(found.file);
    return ordinaryDocuments(found.file, task.context.today);
}

CaseRows documentRows(const TabTask &task, const Found &found)
{
    CaseRows rows;
    for (const ListedDocument &one : documentsOf(task, found)) {
        const Paper &paper = one.paper;
        const QString place = QString::number(paper.place);
        const QString pages = QString::number(paper.pages);
        const QString date = DateText(paper.date);
        QStringList cells = paper.county == pierce ? QStringList{date, pages, place, paper.text}
                                                   : QStringList{place, date, pages, paper.text};
        if (one.trouble != DocumentTrouble::Unavailable)
            cells.prepend(u"RETRIEVEDOC="_s
                          + DocumentCommand(paper.county, paper.number, paper.place));
        rows.push_back(cells);
    }
    return rows;
}

/// A county that scans nothing, or a judgment whose papers are in another case, says so in a line.
bool sayWhyNoDocuments(const TabTask &task, const Found &found, Reply &reply)
{
    const County &county = counties[static_cast<std::size_t>(found.county - 1)];
    if (county.weight < leastToScan) {
        reply.Say(u"Documents n/a for: %1 County~"_s.arg(found.file.county));
        return true;
    }
    if (found.file.nature != Nature::Judgment || associatedNumber(task, found).isEmpty())
        return false;
    reply.Say(u"Documents for this Judgment are available by searching its associated case~"_s);
    return true;
}

TabTable tableOf(const TabTask &task, const Found &found)
{
    const CaseFile &file = found.file;
    const QDate today = task.context.today;
    constexpr auto grid = TableForm::GridDef;
    switch (task.asked.tab) {
    case CaseTab::Names:
        return {grid, u"Names", nameColumns, NameRows(file)};
    case CaseTab::Docket:
        return {grid, u"Docket", docketColumns, DocketRows(file, today)};
    case CaseTab::Accounting:
        return {grid, u"Accounting", accountColumns, AccountRows(file, today)};
    case CaseTab::Judgments:
        return {grid, u"Judgments", judgmentColumns, judgmentRows(task, found)};
    case CaseTab::Charges:
        return {grid, u"Charges", chargeColumns, ChargeRows(file, today)};
    case CaseTab::Sentence:
        return {grid, u"Sentence", sentenceColumns, SentenceRows(file, today)};
    case CaseTab::Schedule:
        return {grid, u"Schedule", scheduleColumns, ScheduleRows(file, today)};
    case CaseTab::Documents:
        return {TableForm::Paired, u"Documents",
                file.county == pierce ? CaseColumns(pierceColumns) : CaseColumns(documentColumns),
                documentRows(task, found)};
    default:
        return {};
    }
}

/// An archived case has no docket and no accounts any more, but a judgment keeps its docket.
bool isGone(const CaseFile &file, CaseTab tab)
{
    return file.archived
           && (tab == CaseTab::Accounting
               || (tab == CaseTab::Docket && file.nature != Nature::Judgment));
}

void sayTab(const TabTask &task, const Found &found, Reply &reply)
{
    if (task.asked.tab == CaseTab::Summary) {
        saySummary(task, found, reply);
        return;
    }
    if (isGone(found.file, task.asked.tab))
        return;
    if (task.asked.tab == CaseTab::Documents && sayWhyNoDocuments(task, found, reply))
        return;
    SayTab(task, found.file, tableOf(task, found), reply);
}
} // namespace

Reply AnswerSuperiorTab(const TabContext &context, const TabAsked &asked)
{
    const TabTask task{context, asked, FindSpecialCase(asked)};
    Reply reply;
    if (IsMeaning(task.special, SpecialCase::Arbitration) && asked.tab == CaseTab::Summary
        && asked.arbitration == ArbitrationAnswer::NotGiven) {
        reply.Say(u"USERQUESTION~This case is in arbitration~"_s).Finish();
        return reply;
    }
    if (!SaySpecialTab(task, reply)) {
        const std::optional<Found> found = foundFor(task);
        if (found)
            sayTab(task, *found, reply);
        else if (asked.tab == CaseTab::Summary)
            reply.Say(u"ERROR -- %1 is not a valid case number for %2 County"_s.arg(asked.number,
                                                                                    asked.court));
    }
    reply.Finish();
    return reply;
}

std::optional<ListedDocument> FindSuperiorDocument(const TabContext &context,
                                                   const DocumentAsked &asked)
{
    const TabAsked tab{CourtFamily::Superior, CaseTab::Documents, WithoutMarks(asked.number),
                       asked.county};
    const TabTask task{context, tab, FindSpecialCase(tab)};
    const std::optional<Found> found = foundFor(task);
    if (!found)
        return std::nullopt;
    for (const ListedDocument &one : documentsOf(task, *found)) {
        if (one.paper.place == asked.place && one.trouble != DocumentTrouble::Unavailable)
            return one;
    }
    return std::nullopt;
}
} // namespace Practice
