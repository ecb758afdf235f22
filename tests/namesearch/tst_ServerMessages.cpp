#include "namesearch/ServerMessages.h"
#include "support/ErrorOf.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString limit = u"WARNING~Reached Search Limit~500~700~"_s;
} // namespace

class tst_ServerMessages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void message_data();
    void message();
    void nextPage_data();
    void nextPage();
    void malformedLimit_data();
    void malformedLimit();
    void pageRequest_data();
    void pageRequest();
    void aLineWithoutAPage();
};

void tst_ServerMessages::message_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("searchStatus");
    QTest::addColumn<bool>("pageLimit");
    const QString many = u"Warning - Too Many Results For First Name!"_s;
    const QString manyLong =
        u"Too Many Results for First Name! Enter a More Specific Name and Retry the Search."_s;
    const QString other = u"WARNING~Something~"_s;
    QTest::newRow("first name") << u"ERROR~FIRST NAME has more than 200 hits~"_s << other << many
                                << manyLong << false;
    QTest::newRow("first name without more than")
        << u"ERROR~First Name~"_s << other << u"Error - Unexpected Search Results."_s
        << u"Error. Check Search Criteria Before Trying Again .."_s << false;
    QTest::newRow("illegal role")
        << u"ERROR~illegal role~"_s << other << u"Error - Invalid Role Assignment!"_s
        << u"Error. Invalid Role! Enter a Valid Role and Retry the Search."_s << false;
    QTest::newRow("other error") << u"ERROR~Down~"_s << other
                                 << u"Error - Unexpected Search Results."_s
                                 << u"Error. Check Search Criteria Before Trying Again .."_s
                                 << false;
    QTest::newRow("the error goes before the page limit")
        << u"ERROR~Down~"_s << limit << u"Error - Unexpected Search Results."_s
        << u"Error. Check Search Criteria Before Trying Again .."_s << false;
    QTest::newRow("second name, in the words of the first")
        << QString() << u"WARNING~Second name: more than 200~"_s << many << manyLong << false;
    QTest::newRow("page limit") << QString() << u"WARNING~REACHED SEARCH LIMIT~500~700~"_s
                                << u"Complete - %m More Results Available"_s
                                << u"%m more results are available for retrieval."_s << true;
    QTest::newRow("other warning") << QString() << other << QString() << QString() << false;
}

void tst_ServerMessages::message()
{
    QFETCH(QString, error);
    QFETCH(QString, warning);
    const ServerMessageRow &row = ServerMessageRowOf(error, warning);
    QTEST(row.status.toString(), "status");
    QTEST(row.searchStatus.toString(), "searchStatus");
    QTEST(row.pageLimit, "pageLimit");
}

void tst_ServerMessages::nextPage_data()
{
    QTest::addColumn<QString>("warning");
    QTest::addColumn<QString>("page");
    QTest::newRow("more than a page") << limit << u"501-1000 of 500"_s;
    QTest::newRow("less than a page")
        << u"WARNING~Reached Search Limit~1000~200~"_s << u"1001-1200 of 200"_s;
    QTest::newRow("a whole page") << u"WARNING~Reached Search Limit~500~500~"_s
                                  << u"501-1000 of 500"_s;
    QTest::newRow("one row") << u"WARNING~Reached Search Limit~500~1~"_s << u"501-501 of 1"_s;
    QTest::newRow("blanks around the numbers")
        << u"WARNING~Reached Search Limit~ 500 ~ 700 ~"_s << u"501-1000 of 500"_s;
}

void tst_ServerMessages::nextPage()
{
    QFETCH(QString, warning);
    const NextPage page = NextPageOf(warning, 500);
    const QString text = u"%1-%2 of %3"_s.arg(page.Lower).arg(page.Upper).arg(page.Count);
    QTEST(text, "page");
}

void tst_ServerMessages::malformedLimit_data()
{
    QTest::addColumn<QString>("warning");
    QTest::addColumn<int>("error");
    QTest::newRow("no numbers") << u"WARNING~Reached Search Limit"_s << 9;
    QTest::newRow("one number") << u"WARNING~Reached Search Limit~500"_s << 9;
    QTest::newRow("a word for the last row") << u"WARNING~Reached Search Limit~x~700~"_s << 13;
    QTest::newRow("a word for what is left") << u"WARNING~Reached Search Limit~500~many~"_s << 13;
    QTest::newRow("too great") << u"WARNING~Reached Search Limit~500~40000~"_s << 6;
    QTest::newRow("the row behind the greatest")
        << u"WARNING~Reached Search Limit~32767~10~"_s << 6;
    QTest::newRow("a page beyond the greatest")
        << u"WARNING~Reached Search Limit~32760~500~"_s << 6;
}

void tst_ServerMessages::malformedLimit()
{
    QFETCH(QString, warning);
    QTEST(ErrorOf([&] { NextPageOf(warning, 500); }), "error");
}

void tst_ServerMessages::pageRequest_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("request");
    QTest::newRow("first page") << u"INDEX~SEARCH~SMITH~~LL=1~UL=500~"_s
                                << u"INDEX~SEARCH~SMITH~~LL=501~UL=1000~"_s;
    QTest::newRow("lower case, blanks around")
        << u"  INDEX~SEARCH~SMITH~~ll=1~ul=500~  "_s << u"INDEX~SEARCH~SMITH~~LL=501~UL=1000~"_s;
    QTest::newRow("the same letters in the name")
        << u"INDEX~SEARCH~BALL=S~~LL=1~UL=500~"_s << u"INDEX~SEARCH~BALL=S~~LL=501~UL=1000~"_s;
}

void tst_ServerMessages::pageRequest()
{
    QFETCH(QString, line);
    QTEST(PageRequest(line, NextPageOf(limit, 500)), "request");
}

void tst_ServerMessages::aLineWithoutAPage()
{
    QCOMPARE(ErrorOf([] { PageRequest(u"INDEX~SEARCH~SMITH~"_s, {1, 2, u"2"_s}); }), 5);
}

HALVANE_TEST(tst_ServerMessages)
#include "tst_ServerMessages.moc"
