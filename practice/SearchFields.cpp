#include "practice/SearchFields.h"

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
QString upper(const QString &field)
{
    return field.simplified().toUpper();
}
} // namespace

std::optional<Years> ParseYears(const QString &from, const QString &to, int firstYear, int thisYear)
{
    Years years{firstYear, thisYear};
    bool isYear = true;
    if (const QString text = from.trimmed(); !text.isEmpty())
        years.from = text.toInt(&isYear);
    if (const QString text = to.trimmed(); !text.isEmpty() && isYear)
        years.to = text.toInt(&isYear);
    if (!isYear)
        return std::nullopt;
    return years;
}

NameQuery ParseName(const QString &last, const QString &first, const QString &middle)
{
    return {upper(last), upper(first), upper(middle)};
}

QStringList ParseList(const QString &field)
{
    return field.split(u',', Qt::SkipEmptyParts);
}

Reply Refusal(const QString &reason)
{
    Reply reply;
    reply.Say(u"ERROR~%1~"_s.arg(reason)).Finish();
    return reply;
}

QString ProgressLine(const QString &what)
{
    QString line = u"SEARCHING %1 .."_s.arg(what);
    return line.replace(u' ', u'~');
}

void SayProgress(const QStringList &places, Reply &reply)
{
    for (const QString &place : places)
        reply.Say(ProgressLine(place));
    reply.Say(ProgressLine(u"the index of names"_s));
    reply.Say(ProgressLine(u"the index of cases"_s));
}

QString DateText(QDate date)
{
    return date.toString(u"MM/dd/yyyy"_s);
}
} // namespace Practice
