#pragma once

#include "practice/CaseFile.h"
#include "practice/CaseTable.h"

#include <QDate>

namespace Practice {
// The records of a case as the cells of its tabs, in the order that most courts have.

CaseRows NameRows(const CaseFile &file);                  ///< name, role, address, attorney
CaseRows DocketRows(const CaseFile &file, QDate today);   ///< date, code, text
CaseRows AccountRows(const CaseFile &file, QDate today);  ///< date, receipt, text, amount, balance
CaseRows FinanceRows(const CaseFile &file, QDate today);  ///< what for, charged, paid, balance
CaseRows ChargeRows(const CaseFile &file, QDate today);   ///< count, law, text, date, plea, result
CaseRows SentenceRows(const CaseFile &file, QDate today); ///< item, text
CaseRows ScheduleRows(const CaseFile &file, QDate today); ///< date, time, event, room

/// Date, case number, creditor, debtor, amount, status. The number is the one in `inCase`.
CaseRows JudgmentRows(const CaseFile &file, const QString &inCase, QDate today);
} // namespace Practice
