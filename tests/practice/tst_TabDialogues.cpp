#include "practice/PracticeAsk.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <optional>

using namespace Practice;
using namespace Qt::StringLiterals;

/// What the court says of some cases that are there whatever the seed, line by line.
class tst_TabDialogues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { conversation.emplace(LoggedIn()); }
    void dialogues_data();
    void dialogues();
    void numberFormsThatAreTaken_data();
    void numberFormsThatAreTaken();

private:
    QStringList ask(const QString &request) { return Ask(*conversation, request); }

    std::optional<Conversation> conversation;
};

void tst_TabDialogues::dialogues_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("lines");

    const auto row = [](const char *name, const QString &request, const QStringList &lines) {
        QTest::newRow(name) << request << lines + QStringList{u"EOF~"_s};
    };
    row("Superior, Summary", u"WASUP¦SUMMARY¦94-1-00042-1¦King¦¦"_s,
        {u"Case Number~94-1-00042-1~"_s, u"Court~King County Superior Court~"_s,
         u"Case Title~STATE OF WASHINGTON VS SMITH, JOHN Q~"_s, u"Date Filed~11/07/1994~"_s,
         u"Cause:~Malicious Mischief~"_s, u"Case Status:~Completed~"_s, u"Judge:~EASTMAN, P~"_s,
         u"Completion Date:~06/03/1997~"_s, u"Last Docket Entry:~Certificate Of Discharge~"_s});
    row("Superior, Sentence", u"WASUP¦SENTENCE¦94-1-00042-1¦King¦¦"_s,
        {u"GRIDDEF~Item~Description~35~65~"_s, u"Sentence Date~03/02/1995~"_s,
         u"Sentenced By~EASTMAN, P~"_s, u"Count 1~Guilty~"_s, u"Confinement~16 Months~"_s,
         u"Credit For Time Served~14 Days~"_s, u"Fine~350.00~"_s, u"Victim Assessment~500.00~"_s});
    row("Superior, Accounting", u"WASUP¦ACCOUNTING¦94-1-00042-1¦King¦¦"_s,
        {u"GRIDDEF~Date~Receipt~Description~Amount~Balance~14~16~40~15~15~"_s,
         u"03/02/1995~95-029538~Fines And Costs Ordered~200.00~200.00~"_s,
         u"04/01/1995~95-030388~Payment~-50.00~150.00~"_s,
         u"05/01/1995~95-030551~Payment~-50.00~100.00~"_s,
         u"05/31/1995~95-030831~Payment~-50.00~50.00~"_s,
         u"06/30/1995~95-031694~Payment~-50.00~0.00~"_s});
    row("Superior, no such number", u"WASUP¦SUMMARY¦94-1-00042-2¦King¦¦"_s,
        {u"ERROR -- 94-1-00042-2 is not a valid case number for King County"_s});
    row("Superior, not in that county", u"WASUP¦SUMMARY¦94-1-00042-1¦Pierce¦¦"_s,
        {u"ERROR -- 94-1-00042-1 is not a valid case number for Pierce County"_s});
    row("Superior, a tab of no case", u"WASUP¦DOCKET¦94-1-00042-2¦King¦¦"_s, {});
    row("Oregon, Summary", u"OREGON@SUMMARY,NAMES,DOCKET,@SC97030044@WSH D@"_s,
        {u"TABS~SUMMARY,NAMES,DOCKET,JUDGMENTS,ACCOUNTING,FINANCE,SCHEDULE,~"_s,
         u"Court~Washington County District Court~"_s, u"Case Number~SC97030044~"_s,
         u"Case Title~ACME PLUMBING INC VS SMITH, JOHN Q~"_s, u"Case Type~Small Claims~"_s,
         u"Case Status~Closed~"_s, u"Date Filed~03/04/1997~"_s, u"Judge~CHU, D~"_s,
         u"Date Closed~05/28/1997~"_s, u"Last Event~Full Satisfaction Of Judgment~"_s,
         u"Judgment~Yes~"_s});
    row("Oregon, Finance", u"OREGON@FINANCE,@SC97030044@WSH D@"_s,
        {u"TABNAME~FINANCE~"_s, u"TABDEF~FINANCE~"_s,
         u"COLDEF~Obligation~40~Ordered~20~Paid~20~Owing~20~"_s, u"COLALIGNMENT~L~L~L~L~"_s,
         u"Fees, Fines And Costs~231.00~231.00~0.00~"_s});
    row("Oregon, Sentences without any", u"OREGON@SENTENCES,@SC97030044@WSH D@"_s,
        {u"TABNAME~SENTENCE~"_s, u"TABDEF~SENTENCE~"_s, u"COLDEF~Condition~35~Terms~65~"_s,
         u"COLALIGNMENT~L~L~"_s});
    row("Oregon, the other court of the county", u"OREGON@NAMES,@SC97030044@WSH C@"_s,
        {u"ERROR~Requested case is not on file~"_s});
    row("Idaho, Names", u"IDSUP¦NAMES,¦CV-2004-0000711-OC¦Kootenai¦"_s,
        {u"TABNAME~NAMES~"_s, u"TABDEF~NAMES~"_s,
         u"COLDEF~Name~Role~Address~Attorney~30~18~30~22~"_s, u"COLALIGNMENT~L~L~L~L~"_s,
         u"SMITH, JOHN Q~Plaintiff~9656 MAIN ST, KOOTENAI~Pro Se~"_s,
         u"ACME PLUMBING INC~Defendant~2630 3RD AVE, KOOTENAI~YANG, ROSA~"_s});
    row("Idaho, no such number", u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-2004-0000712-OC¦Kootenai¦"_s,
        {u"ERROR~Requested case is not on file~"_s});
    row("bankruptcy, Summary", u"BKRPT~SUMMARY~99-20077~OR~"_s,
        {u"TABDEF¦RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~OR~¦"
         "RETRIEVECOMMAND=BKRPT~NAMES~99-20077~OR~¦RETRIEVECOMMAND=BKRPT~DOCKET~99-20077~OR~¦"_s,
         u"Case Title~SMITH, JOHN Q~"_s, u"Case Number~99-20077~"_s, u"Chapter~7~"_s,
         u"Date Filed~03/16/1999~"_s, u"Court~Oregon Bankruptcy Court~"_s, u"Judge~BLACKWELL, M~"_s,
         u"Status~Closed~"_s, u"Date Closed~05/14/1999~"_s,
         u"Last Entry~Final Decree, Case Closed~"_s});
    row("bankruptcy, in another court", u"BKRPT~SUMMARY~99-20077~ID~"_s,
        {u"ERROR~Case not found~"_s});
    row("bankruptcy, no number", u"BKRPT~SUMMARY~99-2007X~OR~"_s,
        {u"ERROR~Illegal case number~"_s});
    row("non-civil, Summary", u"WADISCIS¦¦¦¦3YH809020¦IT¦KSD¦IN¦NCNCC¦¦"_s,
        {u"Name~SMITH, JOHN Q~"_s, u"Sex~M~"_s, u"Case Number~3YH809020~"_s,
         u"Court~King District Seattle~"_s, u"Court Type~District~"_s, u"Date Filed~08/09/2003~"_s,
         u"Case Type:~IT~"_s, u"Case Status:~Closed~"_s, u"Judge:~HOLLIS, S~"_s,
         u"Violation 1:~Expired Vehicle License~"_s,
         u"Last Entry:~Case Closed~Entered:~02/03/2004~"_s});
    row("non-civil, Names", u"WADISCIS¦¦¦¦3YH809020¦IT¦KSD¦IN¦NCPAR¦¦"_s,
        {u"CPARNOTE~Addresses may be out of date.~"_s,
         u"CPARNOTE~Contact the court for certified copies.~"_s,
         u"GRIDDEF~Name~Participant~Address~Attorney~32~16~30~22~"_s,
         u"SMITH, JOHN Q~Defendant~2516 PINE AVE, KING~LINDSTROM, JEFFREY~"_s});
    row("civil, Summary", u"WADISCIS¦¦¦¦5KS000123¦SC¦KSD¦CV¦CIVI¦¦"_s,
        {u"Title~SMITH, JOHN Q VS ACME PLUMBING INC~"_s, u"Case Number~5KS000123~"_s,
         u"Court~King District Seattle~"_s, u"Date Filed~01/11/2005~"_s, u"Cause~Small Claims~"_s,
         u"Suit Amount~1,137.31~"_s, u"Case Status:~Open~~"_s, u"Judge:~GRANGER, T~~"_s,
         u"Last Entry:~Counterclaim~01/21/2005~"_s});
    row("civil, no judgment", u"WADISCIS¦¦¦¦5KS000123¦SC¦KSD¦CV¦CVJI¦¦"_s, {});
    row("civil, another court's", u"WADISCIS¦¦¦¦5KS000123¦SC¦TAC¦CV¦CIVI¦¦"_s,
        {u"Case Number not associated with this court"_s});
    row("civil, no such number", u"WADISCIS¦¦¦¦5KS000124¦SC¦KSD¦CV¦CIVI¦¦"_s, {});
    row("the non-civil side of a civil case", u"WADISCIS¦¦¦¦5KS000123¦SC¦KSD¦IN¦NCNCC¦¦"_s, {});
}

void tst_TabDialogues::dialogues()
{
    QFETCH(QString, request);
    QFETCH(QStringList, lines);
    QCOMPARE(ask(request), lines);
}

void tst_TabDialogues::numberFormsThatAreTaken_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("same");
    const QString superior = u"WASUP¦NAMES¦98-2-00017-7¦King¦¦"_s;
    QTest::newRow("without dashes") << u"WASUP¦NAMES¦982000177¦King¦¦"_s << superior;
    QTest::newRow("archived") << u"WASUP¦NAMES¦*98-2-00017-7¦King¦¦"_s << superior;
    QTest::newRow("opened") << u"WASUP¦NAMES¦>>98-2-00017-7¦King¦¦"_s << superior;
    QTest::newRow("opened and archived") << u"WASUP¦NAMES¦>>*98-2-00017-7¦King¦¦"_s << superior;
    QTest::newRow("without a county") << u"WASUP¦NAMES¦98-2-00017-7¦"_s << superior;
    QTest::newRow("with a code") << u"WASUP¦NAMES¦98-2-00017-7¦King¦^^CAC:ABC^^¦"_s << superior;
    QTest::newRow("no arbitration")
        << u"WASUP¦NAMES¦98-2-00017-7¦King NOARBITRATION¦¦"_s << superior;
    const QString oregon = u"OREGON@DOCKET,@CV08060677@MCR C@"_s;
    QTest::newRow("Oregon by bars") << u"OREGON¦DOCKET,¦CV08060677¦MCR C¦"_s << oregon;
    QTest::newRow("Oregon in small letters") << u"OREGON@DOCKET,@cv08060677@MCR C@"_s << oregon;
    QTest::newRow("Oregon with a code") << u"OREGON@DOCKET,@CV08060677@MCR C^^CAC:X^^@"_s << oregon;
    const QString idaho = u"IDSUP¦DOCKET,¦CR-1998-0002546-IN¦Ada¦"_s;
    QTest::newRow("Idaho, archived") << u"IDSUP¦DOCKET,¦*CR-1998-0002546-IN¦Ada¦"_s << idaho;
    QTest::newRow("Idaho without dashes") << u"IDSUP¦DOCKET,¦CR19980002546IN¦Ada¦"_s << idaho;
    const QString district = u"WADISCIS¦¦¦¦3YH809020¦IT¦KSD¦IN¦NCNCC¦¦"_s;
    QTest::newRow("a row's summary") << u"WADISCIS¦¦¦¦3YH809020¦IT¦KSD¦IN¦NCC¦¦"_s << district;
    QTest::newRow("a form's type") << u"WADISCIS¦¦¦¦3YH809020¦IN¦KSD¦IN¦NCNCC¦¦"_s << district;
    QTest::newRow("district, arbitration")
        << u"WADISCIS¦¦¦¦3YH809020¦IN¦KSD¦IN¦NCNCC ARBITRATION¦¦"_s << district;
    QTest::newRow("bankruptcy with a code")
        << u"BKRPT~NAMES~99-20077~OR^^CAC:ABC^^~"_s << u"BKRPT~NAMES~99-20077~OR~"_s;
}

void tst_TabDialogues::numberFormsThatAreTaken()
{
    QFETCH(QString, request);
    QFETCH(QString, same);
    const QStringList lines = ask(same);
    QVERIFY(lines.size() > 2);
    QCOMPARE(ask(request), lines);
}

HALVANE_TEST(tst_TabDialogues)
#include "tst_TabDialogues.moc"
