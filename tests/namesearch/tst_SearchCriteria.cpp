#include "namesearch/SearchCriteria.h"

#include "core/RunTimeError.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
SearchCriteria superiorCriteria(const QString &line)
{
    return CriteriaOf(line, {u"WA"_s});
}
} // namespace

class tst_SearchCriteria : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void name_data();
    void name();
    void caption_data();
    void caption();
    void caseTypes_data();
    void caseTypes();
    void tooFewFields_data();
    void tooFewFields();
    void blanksAroundTheLine();
    void captionOfEachState_data();
    void captionOfEachState();
    void indexLine();
    void givenCriteria_data();
    void givenCriteria();
    void districtCaption_data();
    void districtCaption();
    void districtLineWithTooFewFields();
    void county_data();
    void county();
};

void tst_SearchCriteria::name_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("name");
    QTest::newRow("all three") << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s
                               << u"SMITH, JOHN, Q"_s;
    QTest::newRow("no middle initial")
        << u"WASUP¦SEARCH¦SMITH¦JOHN¦¦¦King,¦Civil,¦¦¦"_s << u"SMITH, JOHN"_s;
    QTest::newRow("last name alone") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,¦¦¦"_s << u"SMITH"_s;
    QTest::newRow("middle initial without first name")
        << u"WASUP¦SEARCH¦SMITH¦¦Q¦¦King,¦Civil,¦¦¦"_s << u"SMITH, Q"_s;
    QTest::newRow("business") << u"WASUP¦SEARCH¦ACME, INC¦¦¦¦King,¦Civil,¦¦¦"_s << u"ACME, INC"_s;
    QTest::newRow("field 5 is not shown")
        << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦JR¦King,¦Civil,¦¦¦"_s << u"SMITH, JOHN, Q"_s;
}

void tst_SearchCriteria::name()
{
    QFETCH(QString, line);
    QTEST(superiorCriteria(line).Name, "name");
}

void tst_SearchCriteria::caption_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("caption");
    const QString tail = u" County, Washington Superior Courts"_s;
    QTest::newRow("one county") << u"King,"_s << u"SMITH in King"_s + tail;
    QTest::newRow("no closing comma") << u"King"_s << u"SMITH in King"_s + tail;
    QTest::newRow("20 characters")
        << u"ABCDEFGHIJKLMNOPQRST,"_s << u"SMITH in ABCDEFGHIJKLMNOPQRST"_s + tail;
    QTest::newRow("21 characters")
        << u"ABCDEFGHIJKLMNOPQRSTU,"_s << u"SMITH in ABCDEFGHIJKLMNOPQRSTU.."_s + tail;
    QTest::newRow("more than 35 characters")
        << u"Adams,Asotin,Benton,Chelan,Clallam,Clark,"_s
        << u"SMITH in Adams,Asotin,Benton,Chelan,Clallam,.."_s + tail;
    QTest::newRow("none") << QString() << u"SMITH in "_s + tail;
    QTest::newRow("only one comma goes") << u"King,,"_s << u"SMITH in King,"_s + tail;
}

void tst_SearchCriteria::caption()
{
    QFETCH(QString, county);
    QTEST(superiorCriteria(QString(u"WASUP¦SEARCH¦SMITH¦¦¦¦"_s + county + u"¦Civil,¦¦¦"_s)).Caption,
          "caption");
}

void tst_SearchCriteria::caseTypes_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one") << u"Civil,"_s << u"Civil"_s;
    QTest::newRow("two") << u"Civil,Criminal,"_s << u"Civil, Criminal"_s;
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("the words of Washington")
        << u"Civil,Criminal,Domestic,Judgment,Juvenile Offender,Probate,"_s
        << u"Civil, Criminal, Domestic, Judgment, Juvenile Offender, Probate"_s;
    QTest::newRow("the codes, in order")
        << u"OF,CV,DO,JU,JV,PB,SC,JG,CR,"_s
        << u"Offense, Civil, Domestic, Juvenile Offender, Juvenile Offender, Probate, "
           "Small Claims, Judgment, Criminal"_s;
    QTest::newRow("the last character goes whatever it is") << u"Civil"_s << u"Civi"_s;
    QTest::newRow("codes in lower case are words") << u"cv,"_s << u"cv"_s;
}

void tst_SearchCriteria::caseTypes()
{
    QFETCH(QString, field);
    QTEST(superiorCriteria(QString(u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦"_s + field + u"¦¦¦"_s)).CaseTypes,
          "shown");
}

void tst_SearchCriteria::tooFewFields_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing") << QString();
    QTest::newRow("no bar") << u"SMITH"_s;
    QTest::newRow("up to the name") << u"WASUP¦SEARCH¦SMITH"_s;
    QTest::newRow("up to the county") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,"_s;
    QTest::newRow("the other delimiter") << u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,~~~"_s;
}

void tst_SearchCriteria::tooFewFields()
{
    QFETCH(QString, line);
    int number = 0;
    try {
        superiorCriteria(line);
    } catch (const RunTimeError &error) {
        number = error.Number();
    }
    QCOMPARE(number, 9);
}

void tst_SearchCriteria::blanksAroundTheLine()
{
    const SearchCriteria criteria =
        superiorCriteria(u"   "_s + u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦¦"_s + u"  "_s);
    QCOMPARE(criteria.Caption, u"SMITH, JOHN, Q in King County, Washington Superior Courts"_s);
}

void tst_SearchCriteria::captionOfEachState_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("county");
    QTest::addColumn<QString>("caption");
    const QString list = u"Ada, Adams, Bannock, Bear Lake, Benewah Counties"_s;
    QTest::newRow("Oregon") << u"OR"_s << u"BAK C"_s
                            << u"SMITH in Baker County, Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, a name of two words")
        << u"OR"_s << u"HOO D"_s << u"SMITH in Hood River County, Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, several")
        << u"OR"_s << u"BAK C,BEN C,"_s
        << u"SMITH in Baker,Benton County, Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, 34 characters")
        << u"OR"_s << u"BAK C,BEN C,CLA C,BEN D,COO C,"_s
        << u"SMITH in Baker,Benton,Clackamas,Benton,Coos County, Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, 35 characters")
        << u"OR"_s << u"BAK C,BEN C,CLA C,CLT C,COO C,"_s
        << u"SMITH in Baker,Benton,Clackamas,Clatsop,Coos.. Counties, "
           "Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, more than 35 characters")
        << u"OR"_s << u"BAK C,BEN C,CLA C,CLT C,COL C,COO C,"_s
        << u"SMITH in %1.. Counties, Oregon Circuit/District Courts"_s;
    QTest::newRow("Oregon, statewide has no county")
        << u"OR"_s << u"*ALL"_s << u"SMITH in  County, Oregon Circuit/District Courts"_s;
    QTest::newRow("Idaho") << u"ID"_s << u"Ada,"_s << u"SMITH in "_s + list;
    QTest::newRow("Idaho, statewide") << u"ID"_s << u"*ALL"_s << u"SMITH in "_s + list;
    QTest::newRow("Idaho, several") << u"ID"_s << u"Ada,Adams,"_s << u"SMITH in "_s + list.left(35);
    QTest::newRow("no such state") << u"CA"_s << u"King,"_s << QString();
}

void tst_SearchCriteria::captionOfEachState()
{
    QFETCH(QString, state);
    QFETCH(QString, county);
    QFETCH(QString, caption);
    if (caption.contains(u"%1")) {
        QStringList names;
        for (const QString &entry : county.chopped(1).split(u','))
            names.append(GetOrCountyName(entry.left(3)));
        QVERIFY(names.join(u',').size() >= 35);
        caption = caption.arg(names.join(u',').left(35));
    }
    const QString line = QString(u"OREGON¦SEARCH¦SMITH¦¦¦¦"_s + county + u"¦CV,¦¦¦"_s);
    QCOMPARE(CriteriaOf(line, {state, false, u"Ada, Adams, Bannock, Bear Lake, Benewah Counties"_s})
                 .Caption,
             caption);
}

void tst_SearchCriteria::indexLine()
{
    const SearchCriteria criteria =
        CriteriaOf(u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,~1970~2005~LL=1~UL=500~"_s,
                   {u"WA"_s, true});
    QCOMPARE(criteria.Name, u"SMITH, JOHN, Q"_s);
    QCOMPARE(criteria.CaseTypes, u"Criminal"_s);
    QCOMPARE(criteria.Caption,
             u"SMITH, JOHN, Q in Adams,King County, Washington Superior Courts"_s);
}

void tst_SearchCriteria::givenCriteria_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("given");
    for (const QString &state : {u"ORBK"_s, u"WAEBK"_s, u"WAWBK"_s, u"IDBK"_s})
        QTest::newRow(qPrintable(state)) << state << true;
    for (const QString &state : {u"WA"_s, u"OR"_s, u"ID"_s, QString()})
        QTest::newRow(qPrintable(state + u'.')) << state << false;
}

void tst_SearchCriteria::givenCriteria()
{
    QFETCH(QString, state);
    QTEST(KeepsGivenCriteria(state), "given");
}

void tst_SearchCriteria::districtCaption_data()
{
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("caption");
    const QString tail = u", Washington District/Municipal Courts"_s;
    QTest::newRow("a court's county") << u"BED"_s << u"SMITH, JOHN in Benton County"_s + tail;
    QTest::newRow("statewide") << u"*SW"_s << u"SMITH, JOHN in Statewide - All Counties"_s + tail;
}

void tst_SearchCriteria::districtCaption()
{
    const TestFolder folder;
    LoadDiscisCourts();
    QFETCH(QString, court);
    const SearchCriteria criteria =
        DiscisCriteria(QString(u"WADISCIS¦SEARCH¦SMITH¦JOHN¦¦"_s + court + u"¦CV¦CNCI¦"_s),
                       u"Statewide - All Counties"_s);
    QCOMPARE(criteria.Name, u"SMITH, JOHN"_s);
    QTEST(criteria.Caption, "caption");
}

void tst_SearchCriteria::districtLineWithTooFewFields()
{
    int number = 0;
    try {
        DiscisCriteria(u"WADISCIS¦SEARCH¦SMITH¦JOHN¦"_s, {});
    } catch (const RunTimeError &error) {
        number = error.Number();
    }
    QCOMPARE(number, 9);
}

void tst_SearchCriteria::county_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("county");
    QTest::newRow("one") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,¦¦¦"_s << u"King"_s;
    QTest::newRow("blanks") << u"WASUP¦SEARCH¦SMITH¦¦¦¦ Grays Harbor , ¦Civil,¦¦¦"_s
                            << u"Grays Harbor"_s;
    QTest::newRow("several") << u"WASUP¦SEARCH¦SMITH¦¦¦¦Adams,King,¦Civil,¦¦¦"_s << u"AdamsKing"_s;
    QTest::newRow("an empty field 6") << u"WASUP¦SEARCH¦SMITH¦¦¦¦¦Civil,¦¦¦"_s << QString();
    QTest::newRow("field 6 without its bar") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King"_s << u"King"_s;
    QTest::newRow("no field 6") << u"WASUP¦SEARCH¦SMITH¦¦¦"_s << u"none"_s;
    QTest::newRow("index line") << u"INDEX~SEARCH~SMITH~~~~King,~"_s << u"none"_s;
    QTest::newRow("nothing") << QString() << u"none"_s;
}

void tst_SearchCriteria::county()
{
    QFETCH(QString, line);
    QTEST(CountyOfRequest(line).value_or(u"none"_s), "county");
}

HALVANE_TEST(tst_SearchCriteria)
#include "tst_SearchCriteria.moc"
