#include "courts/Counties.h"
#include "searchentry/NameRequests.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
NameSearchEntry smith()
{
    NameSearchEntry entry;
    entry.LastOrBusinessName = u"SMITH"_s;
    entry.FirstName = u"JOHN"_s;
    entry.MiddleInitial = u"Q"_s;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s, u"Criminal"_s};
    return entry;
}

/// The line with "|" where the broken bar stands, for reading.
QString readable(const QString &line)
{
    return QString(line).replace(QChar(0xA6), u'|');
}

QStringList readable(const QStringList &lines)
{
    QStringList all;
    for (const QString &line : lines)
        all.append(readable(line));
    return all;
}
} // namespace

class tst_NameRequests : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void allYears();
    void aRangeOfYears();
    void yearsAreReadOnlyWithARange();
    void aBusinessHasItsNameInTheFirstNameField();
    void namesAreTrimmed();
    void oneLineACounty();
    void statewideIsEveryCounty();
    void noCountyIsNoLine();
    void caseTypesEndInCommas_data();
    void caseTypesEndInCommas();
    void theCountyKeepsTheCaseOfItsList();
    void everyLineHasTenFieldsAndEndsInItsDelimiter();
    void jurisdictions_data();
    void jurisdictions();
};

void tst_NameRequests::allYears()
{
    QCOMPARE(SuperiorNameRequests(smith()),
             QStringList{u"WASUP\u00A6SEARCH\u00A6SMITH\u00A6JOHN\u00A6Q\u00A6\u00A6King,"
                         "\u00A6Civil,Criminal,\u00A6\u00A6\u00A6"_s});
}

void tst_NameRequests::aRangeOfYears()
{
    NameSearchEntry entry = smith();
    entry.YearRange = true;
    entry.FromYear = u" 1990 "_s;
    entry.ToYear = u"2002"_s;
    QCOMPARE(readable(SuperiorNameRequests(entry)),
             QStringList{u"WASUP|SEARCH|SMITH|JOHN|Q||King,|Civil,Criminal,|1990|2002|"_s});
}

void tst_NameRequests::yearsAreReadOnlyWithARange()
{
    NameSearchEntry entry = smith();
    entry.FromYear = u"1990"_s;
    entry.ToYear = u"2002"_s;
    QCOMPARE(readable(SuperiorNameRequests(entry)),
             QStringList{u"WASUP|SEARCH|SMITH|JOHN|Q||King,|Civil,Criminal,|||"_s});
}

void tst_NameRequests::aBusinessHasItsNameInTheFirstNameField()
{
    NameSearchEntry entry = smith();
    entry.LastOrBusinessName = u"ACME TOOLS"_s;
    entry.FirstName.clear();
    entry.MiddleInitial.clear();
    QCOMPARE(readable(SuperiorNameRequests(entry)),
             QStringList{u"WASUP|SEARCH|ACME TOOLS||||King,|Civil,Criminal,|||"_s});
}

void tst_NameRequests::namesAreTrimmed()
{
    NameSearchEntry entry = smith();
    entry.LastOrBusinessName = u"  VAN DYKE "_s;
    entry.FirstName = u" JOHN "_s;
    entry.MiddleInitial = u" "_s;
    QCOMPARE(readable(SuperiorNameRequests(entry)),
             QStringList{u"WASUP|SEARCH|VAN DYKE|JOHN|||King,|Civil,Criminal,|||"_s});
}

void tst_NameRequests::oneLineACounty()
{
    NameSearchEntry entry = smith();
    entry.Counties = {u"Adams"_s, u"Pend Oreille"_s};
    QCOMPARE(readable(SuperiorNameRequests(entry)),
             (QStringList{u"WASUP|SEARCH|SMITH|JOHN|Q||Adams,|Civil,Criminal,|||"_s,
                          u"WASUP|SEARCH|SMITH|JOHN|Q||Pend Oreille,|Civil,Criminal,|||"_s}));
}

void tst_NameRequests::statewideIsEveryCounty()
{
    NameSearchEntry entry = smith();
    entry.Statewide = true;
    entry.Counties = WaCountyNames();
    const QStringList lines = SuperiorNameRequests(entry);
    QCOMPARE(lines.size(), 39);
    for (int i = 0; i < 39; ++i)
        QCOMPARE(lines[i].split(QChar(0xA6)).at(6), WaCountyNames().at(i) + u',');
}

void tst_NameRequests::noCountyIsNoLine()
{
    NameSearchEntry entry = smith();
    entry.Counties.clear();
    QCOMPARE(SuperiorNameRequests(entry), QStringList());
}

void tst_NameRequests::caseTypesEndInCommas_data()
{
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("field");
    QTest::newRow("none") << QStringList() << u""_s;
    QTest::newRow("one") << QStringList{u"Civil"_s} << u"Civil,"_s;
    QTest::newRow("several, in list order")
        << QStringList{u"Probate"_s, u"Juvenile Offender"_s, u"Civil"_s}
        << u"Probate,Juvenile Offender,Civil,"_s;
}

void tst_NameRequests::caseTypesEndInCommas()
{
    QFETCH(QStringList, types);
    QFETCH(QString, field);
    NameSearchEntry entry = smith();
    entry.CaseTypes = types;
    QCOMPARE(SuperiorNameRequests(entry).first().split(QChar(0xA6)).at(7), field);
}

void tst_NameRequests::theCountyKeepsTheCaseOfItsList()
{
    NameSearchEntry entry = smith();
    entry.Counties = {u"kInG"_s};
    QCOMPARE(SuperiorNameRequests(entry).first().split(QChar(0xA6)).at(6), u"kInG,"_s);
}

void tst_NameRequests::everyLineHasTenFieldsAndEndsInItsDelimiter()
{
    NameSearchEntry entry = smith();
    entry.Counties = WaCountyNames();
    for (const QString &line : SuperiorNameRequests(entry)) {
        QCOMPARE(line.count(QChar(0xA6)), 10);
        QVERIFY(line.endsWith(QChar(0xA6)));
        QCOMPARE(line.split(QChar(0xA6)).at(5), QString());
        QVERIFY(!line.contains(u'\n'));
    }
}

void tst_NameRequests::jurisdictions_data()
{
    QTest::addColumn<QStringList>("counties");
    QTest::addColumn<bool>("statewide");
    QTest::addColumn<QString>("text");
    QTest::newRow("one county") << QStringList{u"King"_s} << false
                                << u"King County - Washington Superior Courts"_s;
    QTest::newRow("several read as one") << QStringList{u"King"_s, u"Pierce"_s} << false
                                         << u"King, Pierce County - Washington Superior Courts"_s;
    QTest::newRow("statewide") << WaCountyNames() << true
                               << u"Statewide (All Counties) - Washington Superior Courts"_s;
}

void tst_NameRequests::jurisdictions()
{
    QFETCH(QStringList, counties);
    QFETCH(bool, statewide);
    QFETCH(QString, text);
    NameSearchEntry entry = smith();
    entry.Counties = counties;
    entry.Statewide = statewide;
    QCOMPARE(SuperiorJurisdictions(entry), text);
}

QTEST_GUILESS_MAIN(tst_NameRequests)
#include "tst_NameRequests.moc"
