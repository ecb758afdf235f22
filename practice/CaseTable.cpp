#include "practice/CaseTable.h"

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
QString text(const char16_t *literal)
{
    return QString::fromUtf16(literal);
}

QStringList columnFields(const TabTable &table)
{
    QStringList headers;
    QStringList widths;
    for (const CaseColumn &column : table.columns) {
        headers.append(text(column.header));
        (table.form == TableForm::Paired ? headers : widths).append(QString::number(column.width));
    }
    return headers + widths;
}
} // namespace

QString CaseLine(const QStringList &fields)
{
    return fields.join(u'~') + u'~';
}

QStringList DefinitionLines(const TabTable &table)
{
    const QStringList columns = columnFields(table);
    if (table.form == TableForm::GridDef)
        return table.notes + QStringList{CaseLine(QStringList{u"GRIDDEF"_s} + columns)};
    QStringList alignment{u"COLALIGNMENT"_s};
    alignment.insert(1, static_cast<qsizetype>(table.columns.size()), u"L"_s);
    return {CaseLine({u"TABNAME"_s, table.name.toString()}),
            CaseLine({u"TABDEF"_s, table.name.toString()}),
            CaseLine(QStringList{u"COLDEF"_s} + columns), CaseLine(alignment)};
}

void SayTable(const TabTable &table, Reply &reply)
{
    if (table.form == TableForm::GridDef && table.rows.empty())
        return;
    for (const QString &line : DefinitionLines(table))
        reply.Say(line);
    for (const QStringList &row : table.rows)
        reply.Say(CaseLine(row));
}
} // namespace Practice
