#pragma once

#include "practice/Reply.h"

#include <QString>
#include <QStringList>

#include <span>
#include <vector>

namespace Practice {
// A tab of a case is a table, and the courts have two ways to say one.

struct CaseColumn
{
    const char16_t *header;
    int width; ///< in percent
};

using CaseColumns = std::span<const CaseColumn>;
using CaseRows = std::vector<QStringList>;

/// The fields as a line, each closed by "~".
QString CaseLine(const QStringList &fields);

/// "GRIDDEF~", all headers, all widths; then a line for each row. Or four lines that define the
/// table, with each header beside its width or all headers before all widths, and then the rows:
/// lists of names are read in the latter way only.
enum class TableForm : quint8 { GridDef, Paired, Grouped };

/// A tab, ready to be said.
struct TabTable
{
    TableForm form = TableForm::GridDef;
    QStringView name;
    CaseColumns columns;
    CaseRows rows;
    QStringList notes = {}; ///< lines ahead of the definition
};

/// The lines ahead of the rows.
QStringList DefinitionLines(const TabTable &table);

/// Says the table. One in the first form that has no rows is not said at all: to the program that
/// is an empty tab.
void SayTable(const TabTable &table, Reply &reply);
} // namespace Practice
