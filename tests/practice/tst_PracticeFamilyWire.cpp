#include "practice/PracticeExchange.h"
#include "practice/PracticeProcess.h"
#include "practice/SpecialCases.h"
#include "support/HalvaneTest.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
/// The number of a Superior case with a meaning.
QString superiorNumber(int place)
{
    for (const Practice::SpecialCaseRow &row : Practice::specialCases) {
        if (row.place == place)
            return Practice::SpecialCaseNumber(Practice::CourtFamily::Superior, row);
    }
    return {};
}

/// A row for the docket of a case of each family, by the place of its number among those with a
/// meaning, with the family's stop.
void addDocketsAndStops(const QList<int> &places)
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("stop");

    const QString bar = u"¦STOP"_s;
    for (const int place : places) {
        QTest::addRow("Superior %d", place)
            << u"WASUP¦DOCKET¦%1¦King¦¦"_s.arg(superiorNumber(place)) << bar;
        QTest::addRow("Oregon %d", place)
            << u"OREGON@DOCKET,@CV900000%1@MCR C@"_s.arg(place) << bar;
        QTest::addRow("Idaho %d", place)
            << u"IDSUP¦DOCKET,¦CV-1990-09000%1-OC¦Ada¦"_s.arg(place) << bar;
        QTest::addRow("district %d", place)
            << u"WADISCIS¦¦¦¦0KS9000%1¦IN¦KSD¦IN¦NCCDK¦¦"_s.arg(place) << bar;
        QTest::addRow("bankruptcy %d", place)
            << u"BKRPT~DOCKET~90-990%1~OR~"_s.arg(place) << u"BKRPT~STOP~"_s;
    }
}
} // namespace

/// What the running court sends for each family, byte for byte, and how it takes a stop.
class tst_PracticeFamilyWire : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void dialogues_data();
    void dialogues();
    void tabs_data();
    void tabs() { dialogues(); }
    void stopEndsATab_data();
    void stopEndsATab();
    void stopEndsALongTab_data();
    void stopEndsALongTab();
    void aDroppedTabComesOnTheNextConnection();
    void stopEndsTheReply_data();
    void stopEndsTheReply();
    void rubbishEndsNothing_data();
    void rubbishEndsNothing();

private:
    std::unique_ptr<PracticeProcess> court;
};

void tst_PracticeFamilyWire::initTestCase()
{
    court = std::make_unique<PracticeProcess>();
    QVERIFY(court->Port() != 0);
}

void tst_PracticeFamilyWire::dialogues_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QByteArray>("reply");

    const QByteArray lookups = "|SEARCHING~the~index~of~names~..||SEARCHING~the~index~of~cases~..|";
    const auto row = [&](const char *name, const QString &request, const QByteArray &place,
                         const QByteArray &rows) {
        QTest::newRow(name) << request
                            << QByteArray("|SEARCHING~" + place + "~..|" + lookups + rows
                                          + "|EOF~|");
    };
    row("Oregon, a county", u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦MCR C¦CV,DO,¦1990¦2008¦"_s,
        "Multnomah~County~Circuit~Court",
        "|SMITH, JOHN Q~DO99120007~12/06/1999~Dissolution~OR Multnomah Co Cir Ct~Petitioner~|"
        "|SMITH, JOHN Q~CV08060677~06/17/2008~Contract~OR Multnomah Co Cir Ct~Plaintiff~|");
    row("Oregon, judgments", u"OREGON¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,SC,JG,¦¦¦"_s,
        "all~Oregon~Courts",
        "|SMITH, JOHN Q~SC97030044~03/04/1997~Small Claims (Judgment)~"
        "OR Washington Co Dist Ct~Defendant~|");
    row("Idaho", u"IDSUP¦SEARCH¦SMITH¦JOHN¦Q¦¦*ALL¦CV,CR,¦¦^^CAC:ABC^^¦"_s, "all~Idaho~Courts",
        "|SMITH, JOHN Q~CR-1998-0002546-IN~05/08/1998~Speeding~"
        "ID District Ct Ada County~Defendant~|"
        "|SMITH, JOHN Q~CV-2004-0000711-OC~02/20/2004~Contract~"
        "ID District Ct Kootenai County~Plaintiff~|");
    row("a civil case", u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦CV¦CNCI¦"_s,
        "King~District~Seattle~Court",
        "|SMITH, JOHN Q~5KS000123~KSD~King District Seattle~SC~OP~PLA~01/11/2005~|");
    row("a non-civil case", u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KSD¦IN¦CNCI¦"_s,
        "King~District~Seattle~Court",
        "|SMITH, JOHN Q~3YH809020~KSD~King District Seattle~IT~CL~DEF~08/09/2003~|");
    row("statewide", u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s,
        "all~District~and~Municipal~Courts",
        "|SMITH, JOHN Q~94-1-00042-1~S17~King Superior~S1~CL~DEF~11/07/1994~|"
        "|SMITH, JOHN Q~1TA004410~TAC~Tacoma (Municipal)~CT~CL~DEF~10/01/2001~|"
        "|SMITH, JOHN Q~3YH809020~KSD~King District Seattle~IT~CL~DEF~08/09/2003~|");
    row("with addresses", u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦DND¦"_s,
        "all~District~and~Municipal~Courts",
        "|SMITH, JOHN Q~94-1-00042-1~S17~KIP~S1~CL~DEF~11/07/1994~|"
        "|SMITH, JOHN Q~1TA004410~TAC~TAP~CT~CL~DEF~10/01/2001~|"
        "|SMITH, JOHN Q~3YH809020~KSD~KSP~IT~CL~DEF~08/09/2003~|");
    const QByteArray debtor = "|SMITH, JOHN Q\xA6"
                              "99-20077\xA6RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~OR~\xA6"
                              "03/16/1999\xA6"
                              "Chapter 7\xA6OR Bankruptcy Ct\xA6"
                              "Debtor\xA6"
                              "ACME PLUMBING INC\xA6|";
    const QByteArray creditor = "|ACME PLUMBING INC\xA6"
                                "99-20077\xA6RETRIEVECOMMAND=BKRPT~SUMMARY~99-20077~OR~\xA6"
                                "03/16/1999\xA6"
                                "Chapter 7\xA6OR Bankruptcy Ct\xA6"
                                "Creditor\xA6SMITH, JOHN Q\xA6|";
    const QByteArray oregon = "Oregon~Bankruptcy~Court";
    row("a bankrupt person", u"BKRPT~SEARCH~SMITH~JOHN~Q~~OR~*ALL~1980~2005~"_s, oregon, debtor);
    row("a business", u"BKRPT~SEARCHBUS~ACME PLUMBING INC~OR~*ALL~1980~2005~"_s, oregon, creditor);
    row("a tax number", u"BKRPT~SEARCHTID~00-0000001~OR~*ALL~1980~2005~"_s, oregon, creditor);
    row("a social security number", u"BKRPT~SEARCHSSN~900-00-0001~OR~*ALL~1980~2005^^CAC:ABC^^~"_s,
        oregon, debtor);
    QTest::newRow("the index")
        << u"INDEX~SEARCH~SMITH~JOHN~Q~~Adams,King,~Criminal,Judgment,~1970~2005~LL=1~UL=500~"_s
        << QByteArray("|SEARCHING~the~weekly~index~..|"
                      "|SMITH, JOHN Q~94-1-00042-1~11/07/1994~Malicious Mischief~"
                      "WA Superior Ct King County~Defendant~"
                      "STATE OF WASHINGTON VS SMITH, JOHN Q~11/07/1994~|"
                      "|SMITH, JOHN Q~*96-9-00005-9~02/14/1996~Abstract of Judgment~"
                      "WA Superior Ct Adams County~Judgment Debtor~"
                      "IN RE SMITH, JOHN Q~02/09/1996~|"
                      "|EOF~|");
    QTest::newRow("a page of the index")
        << u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,Criminal,~1970~2005~LL=1~UL=1~"_s
        << QByteArray("|SEARCHING~the~weekly~index~..|"
                      "|SMITH, JOHN Q~94-1-00042-1~11/07/1994~Malicious Mischief~"
                      "WA Superior Ct King County~Defendant~"
                      "STATE OF WASHINGTON VS SMITH, JOHN Q~11/07/1994~|"
                      "|WARNING~Reached Search Limit~1~1~|");
}

/// Tabs of cases. Their requests and replies have no common form, so each is written out whole.
void tst_PracticeFamilyWire::tabs_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QByteArray>("reply");

    QTest::newRow("Superior") << u"WASUP¦NAMES¦98-2-00017-7¦King¦^^CAC:ABC^^¦"_s
                              << QByteArray(
                                     "|GRIDDEF~Participant~Role~Address~Attorney~30~18~30~22~|"
                                     "|SMITH, JOHN Q~Plaintiff~2865 ORCHARD LN, KING~Pro Se~|"
                                     "|ACME PLUMBING INC~Defendant~3989 MAIN ST, KING~Pro Se~|"
                                     "|EOF~|");
    QTest::newRow("documents of a county that scans nothing")
        << u"WASUPDOC¦GETDOCTAB¦King¦%1¦"_s.arg(superiorNumber(32))
        << QByteArray("|Documents n/a for: King County~||EOF~|");
    QTest::newRow("Oregon, which speaks otherwise")
        << u"OREGON@FINANCE,@SC97030044@WSH D@"_s
        << QByteArray("|TABNAME~FINANCE~||TABDEF~FINANCE~|"
                      "|COLDEF~Obligation~40~Ordered~20~Paid~20~Owing~20~||COLALIGNMENT~L~L~L~L~|"
                      "|Fees, Fines And Costs~231.00~231.00~0.00~||EOF~|");
    QTest::newRow("Idaho") << u"IDSUP¦NAMES,¦CR-1998-0002546-IN¦Canyon¦"_s
                           << QByteArray("|ERROR~Requested case is not on file~||EOF~|");
    QTest::newRow("district") << u"WADISCIS¦¦¦¦5KS000123¦SC¦TAC¦CV¦CIVI¦¦"_s
                              << QByteArray("|Case Number not associated with this court||EOF~|");
    QTest::newRow("bankruptcy")
        << u"BKRPT~SUMMARY~90-99050~OR~"_s
        << QByteArray("|MULTIPLE|"
                      "|90-99050-1\xA6RETRIEVECOMMAND=BKRPT~SUMMARY~90-99050-1~OR~\xA6"
                      "Chapter 7\xA6PRACTICE, JAMES A\xA6|"
                      "|90-99050-2\xA6RETRIEVECOMMAND=BKRPT~SUMMARY~90-99050-2~OR~\xA6"
                      "Chapter 13\xA6PRACTICE, JAMES A\xA6|"
                      "|90-99050-3\xA6RETRIEVECOMMAND=BKRPT~SUMMARY~90-99050-3~OR~\xA6"
                      "Chapter 7\xA6PRACTICE, JAMES A\xA6||EOF~|");
}

void tst_PracticeFamilyWire::dialogues()
{
    QFETCH(QString, request);
    QFETCH(QByteArray, reply);

    WireClient client(*court);
    QCOMPARE(client.LogOn(), justEnd);
    client.Send(request);
    QCOMPARE(client.ReadBytes(reply.size()), reply);
    // Nothing comes behind it: the next reply begins with its own first byte.
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

void tst_PracticeFamilyWire::stopEndsTheReply_data()
{
    QTest::addColumn<QString>("search"); // %1: the name
    QTest::addColumn<QString>("stop");

    const QString stop = u"STOP¦"_s;
    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦%1¦¦¦¦*ALL¦¦¦¦"_s << stop;
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦%1¦¦¦¦Ada,¦¦¦¦"_s << stop;
    QTest::newRow("district courts") << u"WADISCIS¦SEARCH¦%1¦¦¦KSD¦CV¦CNCI¦"_s << stop;
    QTest::newRow("statewide") << u"WADISCIS¦SEARCH¦%1¦¦¦*SW¦IN¦SNCI¦"_s << stop;
    const QString index = u"INDEX~SEARCH~%1~~~~King,~~1970~2026~LL=1~UL=30000~"_s;
    QTest::newRow("index") << index << stop;
    const QString bankruptcy = u"BKRPT~SEARCH~%1~~~~ID~*ALL~1980~2026~"_s;
    QTest::newRow("bankruptcy") << bankruptcy << u"BKRPT~STOP~"_s;
    QTest::newRow("bankruptcy in Idaho, by the others' stop") << bankruptcy << stop;
}

void tst_PracticeFamilyWire::stopEndsTheReply()
{
    QFETCH(QString, search);
    QFETCH(QString, stop);

    WireClient client(*court);
    client.LogOn();
    QElapsedTimer timer;
    timer.start();
    for (const QString &name : {u"SLOW"_s, u"STALL"_s}) {
        client.Send(search.arg(name));
        client.Send(stop);
        QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
    }
    QVERIFY(timer.elapsed() < 15'000); // the slow one takes 30 seconds
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

/// The stops of a case window, on a docket that breaks off and on one that is slow.
void tst_PracticeFamilyWire::stopEndsATab_data()
{
    addDocketsAndStops({25, 30});
}

void tst_PracticeFamilyWire::stopEndsATab()
{
    QFETCH(QString, request);
    QFETCH(QString, stop);

    WireClient client(*court);
    client.LogOn(QString::fromLatin1(QTest::currentDataTag())); // nobody has asked before
    QElapsedTimer timer;
    timer.start();
    client.Send(request);
    client.Send(stop);
    QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
    QVERIFY(timer.elapsed() < 10'000);
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

void tst_PracticeFamilyWire::stopEndsALongTab_data()
{
    addDocketsAndStops({23});
}

/// In the middle of 20,000 lines. They fit into the buffers of a loopback socket, where no stop
/// reaches them, so this court sends them slowly: they would take ten seconds and more.
void tst_PracticeFamilyWire::stopEndsALongTab()
{
    QFETCH(QString, request);
    QFETCH(QString, stop);

    const PracticeProcess slowCourt({u"--drip"_s, u"100000"_s});
    WireClient client(slowCourt);
    client.LogOn();
    client.Send(request);
    QVERIFY(client.WaitForBytes(5'000));
    client.Send(stop);
    const QStringList lines = client.ReadTo();
    QCOMPARE(lines.last(), u"EOF~"_s);
    QVERIFY2(lines.size() < 19'000, qPrintable(QString::number(lines.size())));
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

/// A docket that closes the connection comes whole on the next one.
void tst_PracticeFamilyWire::aDroppedTabComesOnTheNextConnection()
{
    const QString request = u"WASUP¦DOCKET¦%1¦King¦¦"_s.arg(superiorNumber(26));
    WireClient first(*court);
    first.LogOn(u"drop"_s);
    first.Send(request);
    const QByteArray broken = first.ReadToClose();
    QVERIFY(broken.startsWith("|GRIDDEF~") && !broken.endsWith("|EOF~|"));
    WireClient second(*court);
    second.LogOn(u"drop"_s);
    const QStringList whole = second.Ask(request);
    QCOMPARE(whole.last(), u"EOF~"_s);
    QVERIFY(whole.size() > 4);
}

void tst_PracticeFamilyWire::rubbishEndsNothing_data()
{
    QTest::addColumn<QByteArray>("request");

    const QByteArray bar("\xA6");
    for (const QByteArray family : {"OREGON", "IDSUP", "WADISCIS", "INDEX", "BKRPT"}) {
        const QByteArray delimiter = family == "INDEX" || family == "BKRPT" ? "~" : bar;
        const auto row = [&](const char *what, const QByteArray &field, qsizetype count) {
            QByteArray request = family + delimiter;
            for (qsizetype i = 0; i < count; ++i)
                request += (i == 0 ? QByteArray("SEARCH") : field) + delimiter;
            const QByteArray name = family + ' ' + what;
            QTest::newRow(name.constData()) << request;
        };
        row("alone", {}, 0);
        row("of nothing", {}, 1);
        row("of many fields", "x", 1'000);
        row("of empty fields", {}, 9);
        row("of long fields", QByteArray(50'000, 'x'), 9);
        row("of NULs", QByteArray(3, '\0'), 9);
    }
}

/// Whatever a search holds, it is answered, and the court goes on.
void tst_PracticeFamilyWire::rubbishEndsNothing()
{
    QFETCH(QByteArray, request);

    WireClient client(*court);
    client.LogOn();
    client.SendRaw('|' + request + '|');
    QCOMPARE(client.ReadTo().last(), u"EOF~"_s);
    client.Send(guideSearch);
    QCOMPARE(client.ReadBytes(guideReply.size()), guideReply);
}

HALVANE_TEST(tst_PracticeFamilyWire)
#include "tst_PracticeFamilyWire.moc"
