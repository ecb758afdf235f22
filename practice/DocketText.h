#pragma once

#include "practice/CaseFile.h"

#include <QDate>
#include <QString>

#include <vector>

namespace Practice {
/// A paper in the file of a case, or something that was done in it.
struct DocketEntry
{
    QDate date;
    QString code;
    QString text;
};

/// All entries of the case up to today, the oldest first, as such a case goes through its court.
std::vector<DocketEntry> DocketOf(const CaseFile &file, QDate today);

/// Entry `number` of a docket of `count`, when there are far too many to be drawn: the days between
/// filing and today are shared out evenly.
DocketEntry LongDocketEntry(const CaseFile &file, QDate today, qint64 number, qint64 count);
} // namespace Practice
