#include "reports/SessionReport.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int points = 12;

QString labelled(const QString &label, const QString &value)
{
    return label + u"      "_s + value;
}
} // namespace

Report SessionReport(const QString &userName, const QString &sessionTime, const QString &when)
{
    Report report;
    report.Title = u"Halvane - OnLine Activity Report"_s;
    report.TitlePoints = points;
    report.BodyPoints = points;
    report.Add(BlockKind::Title, {report.Title});
    for (const QString &line :
         {labelled(u"User Name:"_s, userName),
          labelled(u"Total Time OnLine For This Session:"_s, sessionTime),
          labelled(u"Date and Time of Activity:"_s, when), u"<---- End of Report ---->"_s}) {
        report.Add(BlockKind::Blank);
        report.Add(BlockKind::Text, {line});
    }
    return report;
}
