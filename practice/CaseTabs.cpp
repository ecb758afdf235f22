#include "practice/CaseTabs.h"

#include "practice/DocketText.h"
#include "practice/SearchFields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
QDate specialCaseFiled()
{
    return {1990, 3, 14};
}

// What is sent of a docket that breaks off.
constexpr qint64 rowsBeforeBreak = 2;

QString keyOf(const TabTask &task)
{
    return u"%1/%2/%3/%4"_s.arg(task.context.user, task.asked.number)
        .arg(static_cast<int>(task.asked.family))
        .arg(static_cast<int>(task.asked.tab));
}

/// Cells of several lines, a soft break, and a row that holds a word of the table's own grammar and
/// so never reaches the grid.
void addBreaks(TabTable &table)
{
    if (table.form == TableForm::GridDef || table.rows.empty())
        return;
    QStringList cells = table.rows.front();
    cells.last() = u"First line<BR>second line<BR>third line"_s;
    table.rows.insert(table.rows.begin(), cells);
    cells.last() = u"One line,<CR>softly broken"_s;
    table.rows.push_back(cells);
    cells.last() = u"Affidavit Re TABDEF"_s;
    table.rows.push_back(cells);
}
} // namespace

const SpecialCaseRow *FindSpecialCase(const TabAsked &asked)
{
    return FindSpecialCase(asked.family, asked.court, asked.number);
}

bool IsMeaning(const SpecialCaseRow *special, SpecialCase meaning)
{
    return special != nullptr && special->meaning == meaning;
}

bool SaySpecialTab(const TabTask &task, Reply &reply)
{
    return task.special != nullptr
           && SaySpecialTab(*task.special, task.asked.tab, keyOf(task), task.context.memory, reply);
}

QStringList DocketCells(const QDate &date, const QString &code, const QString &text)
{
    return {DateText(date), code, text};
}

void SayTab(const TabTask &task, const CaseFile &file, TabTable table, Reply &reply)
{
    const bool docket = task.asked.tab == CaseTab::Docket;
    if (IsMeaning(task.special, SpecialCase::NoDefinition)) {
        for (const QStringList &row : table.rows)
            reply.Say(CaseLine(row));
        return;
    }
    if (docket && IsMeaning(task.special, SpecialCase::LongDocket)) {
        table.rows.clear();
        for (const QString &line : DefinitionLines(table))
            reply.Say(line);
        reply.Rows(longDocketEntries, [file, today = task.context.today](qint64 number) {
            const DocketEntry entry = LongDocketEntry(file, today, number, longDocketEntries);
            return CaseLine(DocketCells(entry.date, entry.code, entry.text));
        });
        return;
    }
    if (IsMeaning(task.special, SpecialCase::Breaks))
        addBreaks(table);
    const bool silent = IsMeaning(task.special, SpecialCase::TabSilentOnce);
    const bool dropped = IsMeaning(task.special, SpecialCase::TabDropOnce);
    if (docket && (silent || dropped) && task.context.memory.FailsNow(keyOf(task))) {
        table.rows.resize(std::min<std::size_t>(table.rows.size(), rowsBeforeBreak));
        SayTable(table, reply);
        silent ? reply.Silence() : reply.Drop();
        return;
    }
    SayTable(table, reply);
}

CaseFile SpecialCaseFile(const TabTask &task)
{
    CaseFile file;
    file.number = SpecialCaseNumber(task.asked.family, *task.special);
    file.filed = specialCaseFiled();
    file.cause = u"Breach of Contract"_s;
    file.parties = {{{u"PRACTICE"_s, u"JAMES"_s, u"A"_s, false}, u"Plaintiff"_s},
                    {{u"ACME PLUMBING INC"_s, {}, {}, true}, u"Defendant"_s}};
    file.title = u"PRACTICE, JAMES A VS ACME PLUMBING INC"_s;
    file.judgment = true;
    file.seed = SeedOfCase(task.context.people, SpecialCaseCourt(task.asked.family), file.number);
    return file;
}
} // namespace Practice
