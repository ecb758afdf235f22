#pragma once

#include "records/CaseRecord.h"
#include "reports/Report.h"

using namespace Qt::StringLiterals;

// Cases as their windows have them when everything has come, for tests of reports.

/// A criminal case of the Superior Courts, with all of its tabs but Finance.
CaseRecord SuperiorCase();
/// A civil and a non-civil case of the District and Municipal Courts.
CaseRecord CivilCase();
CaseRecord NonCivilCase();
/// A number for which a bankruptcy court has several cases.
CaseRecord BankruptcyList();

/// A tab of this case has come, with these rows.
void Give(CaseRecord &record, CaseTab tab, const QList<GridColumn> &columns,
          const QList<QStringList> &rows);
/// Words have come in the place of its table.
void GiveMessage(CaseRecord &record, CaseTab tab, const QString &words);

/// At noon of a day in March 2024, reported by nobody, and everything went well.
ReportSituation AtNoon();

/// A sample by its name: "superior", "civil", "non-civil" or "bankruptcy".
CaseRecord SampleCase(const QString &name);
QStringList SampleCaseNames();
