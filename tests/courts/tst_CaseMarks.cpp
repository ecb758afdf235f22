#include "courts/CaseMarks.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_CaseMarks : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void numbersLoseTheirMarks_data();
    void numbersLoseTheirMarks();
    void commandsLoseTheirMark_data();
    void commandsLoseTheirMark();
};

void tst_CaseMarks::numbersLoseTheirMarks_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("number");
    QTest::newRow("no mark") << u"02-2-02029-9"_s << u"02-2-02029-9"_s;
    QTest::newRow("archived") << u"*02-2-02029-9"_s << u"02-2-02029-9"_s;
    QTest::newRow("opened") << u">>02-2-02029-9"_s << u"02-2-02029-9"_s;
    QTest::newRow("opened and archived") << u">>*02-2-02029-9"_s << u"02-2-02029-9"_s;
    QTest::newRow("blanks behind the mark") << u">>*  02-2 "_s << u"02-2"_s;
    QTest::newRow("half a mark") << u">02-2"_s << u">02-2"_s;
    QTest::newRow("a mark alone") << u">>*"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void tst_CaseMarks::numbersLoseTheirMarks()
{
    QFETCH(QString, cell);
    QTEST(CaseNumberOf(cell), "number");
}

void tst_CaseMarks::commandsLoseTheirMark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("holds");
    QTest::addColumn<QString>("command");
    QTest::newRow("in capitals") << u"RETRIEVECOMMAND=BKRPT~1~"_s << true << u"BKRPT~1~"_s;
    QTest::newRow("in any letters") << u" retrieveCommand= BKRPT~1~"_s << true << u"  BKRPT~1~"_s;
    QTest::newRow("without its sign")
        << u"RETRIEVECOMMAND BKRPT"_s << false << u"RETRIEVECOMMAND BKRPT"_s;
    QTest::newRow("no command") << u"BKRPT~1~"_s << false << u"BKRPT~1~"_s;
    QTest::newRow("empty") << QString() << false << QString();
}

void tst_CaseMarks::commandsLoseTheirMark()
{
    QFETCH(QString, text);
    QTEST(HoldsRetrieveCommand(text), "holds");
    QTEST(WithoutRetrieveCommand(text), "command");
}

HALVANE_TEST(tst_CaseMarks)
#include "tst_CaseMarks.moc"
