#pragma once

#include "practice/CaseFile.h"
#include "practice/CaseTable.h"
#include "practice/SpecialCases.h"
#include "practice/SpecialLists.h"
#include "practice/TabRequest.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace Practice {
// What the tabs of all court families have in common.

/// Who asks, and what the court knows.
struct TabContext
{
    const Population &people;
    QDate today;
    TabMemory &memory;
    const SpecialLists &lists;
    QString user;
};

/// A request for a tab on its way to its answer.
struct TabTask
{
    const TabContext &context;
    const TabAsked &asked;
    const SpecialCaseRow *special; ///< nullptr for an ordinary case
};

/// The meaning of the number that is asked for.
const SpecialCaseRow *FindSpecialCase(const TabAsked &asked);

/// Says what the number means in place of the tab; false when the tab comes as of any case.
bool SaySpecialTab(const TabTask &task, Reply &reply);

/// Says a tab that is a table, with what the number's meaning makes of it.
void SayTab(const TabTask &task, const CaseFile &file, TabTable table, Reply &reply);

/// What the practice court's own cases have in common: the parties, the day.
CaseFile SpecialCaseFile(const TabTask &task);

/// The cells of a docket row: the date, the code, the text.
QStringList DocketCells(const QDate &date, const QString &code, const QString &text);

bool IsMeaning(const SpecialCaseRow *special, SpecialCase meaning);
} // namespace Practice
