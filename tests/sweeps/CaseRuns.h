#pragma once

#include "records/CaseTabs.h"
#include "sweeps/Exchanges.h"

/// The exchange of a tab behind the Summary.
struct CaseTabExchange
{
    QString Name;
    QString Court; ///< "WA", "OR", "ID" or a bankruptcy court
    CaseKind Kind = CaseKind::State;
    CaseTab Tab = CaseTab::Names;
    QString Request;
    QStringList Notes = {}; ///< ahead of the table
    QStringList Head;       ///< what defines a table of Date and Entry
    QStringList Rows;       ///< 1, a and 2, b
    bool LastFirst = false;
    QString Incomplete; ///< what stands in place of a table that has not come
};

/// The exchange of a Summary.
struct SummaryExchange
{
    QString Name;
    QString Court;
    CaseKind Kind = CaseKind::State;
    QString Request;
    QStringList Reply;
    QList<QStringList> Cells; ///< what a whole reply shows
    bool Asks = false;        ///< the court has asked about arbitration before it, and was told yes
    bool Later = false;       ///< it failed before, and the user asks for it again
};

std::unique_ptr<ExchangeRun> MakeRun(ExchangeDesk &desk, const SummaryExchange &summary);
std::unique_ptr<ExchangeRun> MakeRun(ExchangeDesk &desk, const CaseTabExchange &tab, bool later);
