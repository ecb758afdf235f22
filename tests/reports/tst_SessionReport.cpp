#include "reports/SessionReport.h"
#include "support/HalvaneTest.h"

using namespace Qt::StringLiterals;

class tst_SessionReport : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lines_data()
    {
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("line");
        QTest::newRow("a normal logout")
            << QString() << u"Total Time OnLine For This Session:      "_s;
        QTest::newRow("a lost link")
            << u"Lost Connection"_s
            << u"Total Time OnLine For This Session:      Lost Connection"_s;
    }
    void lines()
    {
        QFETCH(QString, time);
        QFETCH(QString, line);
        QStringList shown;
        const Report report = SessionReport(u"paralegal"_s, time, u"7/1/2003 2:15:00 PM"_s);
        for (const ReportBlock &block : report.Blocks)
            shown.append(block.Cells.value(0));
        QCOMPARE(shown, (QStringList{u"Halvane - OnLine Activity Report"_s,
                                     {},
                                     u"User Name:      paralegal"_s,
                                     {},
                                     line,
                                     {},
                                     u"Date and Time of Activity:      7/1/2003 2:15:00 PM"_s,
                                     {},
                                     u"<---- End of Report ---->"_s}));
    }

    void letters()
    {
        const Report report = SessionReport({}, {}, {});
        QCOMPARE(report.TitlePoints, 12);
        QCOMPARE(report.BodyPoints, 12);
        QCOMPARE(report.Blocks.first().Kind, BlockKind::Title);
        QCOMPARE(report.Title, u"Halvane - OnLine Activity Report"_s);
    }
};

HALVANE_TEST(tst_SessionReport)
#include "tst_SessionReport.moc"
