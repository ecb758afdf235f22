#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "courts/DiscisCourts.h"
#include "namesearch/frmDiscisNCNameResults.h"
#include "namesearch/frmDiscisNameResults.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QTest>

namespace {
const QString requestError =
    u"An error was encountered while attempting to search Halvane! Please review the search "
    "criteria and retry the search."_s;
const QString allCounties = u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s;
const QString othello = u"Othello District (OTD)"_s;
const QString ritzville = u"Ritzville District (RID)"_s;

const QStringList civil{u"click optCourtSelection_1"_s};
const QStringList nonCivil{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s};
const QStringList business{u"click optSearchType_1"_s};
const QStringList number{u"click optSearchType_2"_s};
const QStringList acme{u"type txtSearchName_0 Acme Inc"_s};
const QStringList adams{u"choose cboxCountyList Adams"_s};
/// All courts of a county are ticked once it is chosen.
const QStringList oneCourt{u"choose cboxCountyList Adams"_s,
                           u"tick lboxDiscisCourtNames Ritzville District (RID)"_s};

/// What a results window of these courts is handed.
QStringList results(bool isCivil, const QString &name, const QString &courtCounty,
                    const QString &courts, const QString &kind, const QStringList &lines)
{
    QStringList handed{isCivil ? u"frmDiscisNameResults"_s : u"frmDiscisNCNameResults"_s,
                       u"caption Name Search Results - "_s + name, u"lblState WA"_s,
                       u"lblNameVal "_s + name};
    handed.append(isCivil ? u"lblCaseTypeVals CIVIL"_s : u"lblCaseTypeVals NON-CIVIL"_s);
    if (!courts.isEmpty())
        handed.append(u"txtCountyList "_s + courts);
    handed.append(u"lblCourtCounty "_s + courtCounty);
    if (!isCivil)
        handed.append(u"lblDNDorSNCI "_s + kind);
    for (const QString &line : lines)
        handed.append(u"line "_s + line);
    return handed;
}
} // namespace

/// Searches of the District and Municipal Courts: from the clicks on the form to the window and to
/// the wire.
class tst_DispatchDiscis : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void theWindowIsHanded_data();
    void theWindowIsHanded();
    void onTheWire_data();
    void onTheWire();
    void civilStatewideGives173Lines();
    void theTextsSpeakOf173CourtsWhateverTheFileHolds();
    void aNonCivilBusinessInTheFirstCounty();
    void aNonCivilSearchWithAddressesMarksOneWindowOnly();
    void aCivilSearchWithoutACourtIsRefused();
    void courtsThatShareANameAreSearchedTogether();

    void aNumberIsHanded_data();
    void aNumberIsHanded();
    void aNumberOfSeveralCourtsGoesToTheFirst();
    void aNumberWithoutACourtIsRefused();
    void aNumberInAllCountiesIsRefused();
    void aNumberWithNeitherCivilNorNonCivilIsReported();
    void aNameWithNeitherCivilNorNonCivilIsReported();
};

void tst_DispatchDiscis::theWindowIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("handed");
    const QString county = u"Adams District/Municipal Courts"_s;
    const QString both = othello + u", "_s + ritzville;
    const QString all = u"Statewide - All Counties"_s;
    QTest::newRow("civil, one court") << civil + smithJohnQ + oneCourt
                                      << results(true, u"SMITH, JOHN Q"_s, county, othello, {},
                                                 {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI¦"_s});
    QTest::newRow("civil, several courts")
        << civil + smithJohnQ + adams
        << results(true, u"SMITH, JOHN Q"_s, county, both, {},
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI¦"_s,
                    u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦RID¦CV¦CNCI¦"_s});
    QTest::newRow("civil, a business") << civil + business + acme + oneCourt
                                       << results(true, u"ACME INC,  "_s, county, othello, {},
                                                  {u"WADISCIS¦SEARCH¦ACME INC¦¦¦OTD¦CV¦CNCI¦"_s});
    QTest::newRow("non-civil, one court")
        << nonCivil + smithJohnQ + oneCourt
        << results(false, u"SMITH, JOHN Q"_s, county, othello, u"SNCI"_s,
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦IN¦CNCI¦"_s});
    QTest::newRow("non-civil, several courts")
        << nonCivil + smithJohnQ + adams
        << results(false, u"SMITH, JOHN Q"_s, county, both, u"SNCI"_s,
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦IN¦CNCI¦"_s,
                    u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦RID¦IN¦CNCI¦"_s});
    QTest::newRow("non-civil, statewide")
        << nonCivil + smithJohnQ + QStringList{allCounties}
        << results(false, u"SMITH, JOHN Q"_s, all, {}, u"SNCI"_s,
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI¦"_s});
    QTest::newRow("non-civil, a business, statewide")
        << nonCivil + business + acme + QStringList{allCounties}
        << results(false, u"ACME INC,  "_s, all, {}, u"SNCI"_s,
                   {u"WADISCIS¦SEARCH¦ACME INC¦¦¦*SW¦IN¦SNCI¦"_s});
    QTest::newRow("non-civil, defendants with addresses")
        << nonCivil + smithJohnQ
               + QStringList{u"choose cboxCountyList -- SHOW ADDRESS/DEFS ONLY --"_s}
        << results(false, u"SMITH, JOHN Q"_s,
                   u"Statewide - All Counties - Defendants and Addresses"_s, {}, u"DND"_s,
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦DND¦"_s});
    QTest::newRow("a last name alone, and the suffix is not sent")
        << nonCivil + oneCourt
               + QStringList{u"type txtSearchName_0 Smith"_s, u"type txtSearchName_1 John"_s,
                             u"type txtSearchName_3 Jr."_s}
        << results(false, u"SMITH, JOHN "_s, county, othello, u"SNCI"_s,
                   {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦¦OTD¦IN¦CNCI¦"_s});
}

void tst_DispatchDiscis::theWindowIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    const auto *window = desk->StartOne<DiscisResultsWindow>();
    QCOMPARE(Handed(window), handed);
    QVERIFY(window->isVisible());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(TextOf(window, "lblStatus"), u"Pending .."_s);
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
    QCOMPARE(Handed(desk->StartOne<DiscisResultsWindow>()), handed);
}

void tst_DispatchDiscis::onTheWire_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("requests");
    QTest::newRow("civil, two courts")
        << civil + smithJohnQ + adams
        << QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI^^CAC:ABC^^¦"_s,
                       u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦RID¦CV¦CNCI^^CAC:ABC^^¦"_s};
    QTest::newRow("non-civil, one court")
        << nonCivil + smithJohnQ + oneCourt
        << QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦IN¦CNCI^^CAC:ABC^^¦"_s};
    QTest::newRow("non-civil, statewide")
        << nonCivil + smithJohnQ + QStringList{allCounties}
        << QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦SNCI^^CAC:ABC^^¦"_s};
    QTest::newRow("non-civil, defendants with addresses")
        << nonCivil + smithJohnQ
               + QStringList{u"choose cboxCountyList -- SHOW ADDRESS/DEFS ONLY --"_s}
        << QStringList{u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦*SW¦IN¦DND^^CAC:ABC^^¦"_s};
}

void tst_DispatchDiscis::onTheWire()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, requests);
    Global.bClientAcctgOpt = true;
    SearchWithCode(steps, requests);
}

void tst_DispatchDiscis::civilStatewideGives173Lines()
{
    desk->Do(civil + smithJohnQ + QStringList{allCounties});
    QCOMPARE(desk->Text("lblCourtNameStats"), u"Courts Available: 173   Courts Selected: 173"_s);
    QStringList courts;
    QStringList lines;
    for (const clsDiscisCourts &court : DiscisCourts()) {
        courts.append(court.CourtName + u" ("_s + court.CourtCode + u')');
        lines.append(u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦"_s + court.CourtCode + u"¦CV¦CNCI¦"_s);
    }
    QCOMPARE(lines.size(), 173);
    QCOMPARE(Handed(desk->StartOne<DiscisResultsWindow>()),
             results(true, u"SMITH, JOHN Q"_s, u"Statewide - All Courts / 173 Jurisdictions"_s,
                     courts.join(u", "_s), {}, lines));
    QCOMPARE(Keys().size(), 1);
}

void tst_DispatchDiscis::theTextsSpeakOf173CourtsWhateverTheFileHolds()
{
    desk->Desk.Folder.Write(u"wadisciscts.txt"_s, "1,Adams,OTD,Othello,Othello District\r\n"
                                                  "2,King,KBD,Bellevue,King County District\r\n");
    QCOMPARE(LoadDiscisCourts(), 2);
    desk->Do(civil + smithJohnQ + QStringList{allCounties});
    QCOMPARE(desk->Text("lblCourtNameStats"), u"Courts Available: 173   Courts Selected: 173"_s);
    QCOMPARE(Handed(desk->StartOne<DiscisResultsWindow>()),
             results(true, u"SMITH, JOHN Q"_s, u"Statewide - All Courts / 173 Jurisdictions"_s,
                     u"Othello District (OTD), King County District (KBD)"_s, {},
                     {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI¦"_s,
                      u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KBD¦CV¦CNCI¦"_s}));
}

void tst_DispatchDiscis::aNonCivilBusinessInTheFirstCounty()
{
    // For persons, and only for them, the second entry of the box is a statewide one.
    desk->Do(nonCivil + business + acme + adams);
    QCOMPARE(desk->Form()->Entry().DiscisCountyIndex, 1);
    QCOMPARE(Handed(desk->StartOne<DiscisResultsWindow>()),
             results(false, u"ACME INC,  "_s, u"Adams District/Municipal Courts"_s,
                     othello + u", "_s + ritzville, u"SNCI"_s,
                     {u"WADISCIS¦SEARCH¦ACME INC¦¦¦OTD¦IN¦CNCI¦"_s,
                      u"WADISCIS¦SEARCH¦ACME INC¦¦¦RID¦IN¦CNCI¦"_s}));
}

void tst_DispatchDiscis::aNonCivilSearchWithAddressesMarksOneWindowOnly()
{
    desk->Do(nonCivil + smithJohnQ
             + QStringList{u"choose cboxCountyList -- SHOW ADDRESS/DEFS ONLY --"_s});
    const auto *addresses = desk->StartOne<frmDiscisNCNameResults>();
    QVERIFY(addresses);
    QCOMPARE(addresses->lblDNDorSNCI, u"DND"_s);
    desk->Do({allCounties});
    const auto *cases = desk->StartOne<frmDiscisNCNameResults>();
    QVERIFY(cases);
    QCOMPARE(cases->lblDNDorSNCI, u"SNCI"_s);
}

void tst_DispatchDiscis::aCivilSearchWithoutACourtIsRefused()
{
    desk->Do(civil + smithJohnQ + adams + QStringList{u"click cmdClearCourtList"_s});
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(said,
             (QStringList{u"You Have Not Selected a County!"_s,
                          u"At least one selection is required when searching County "
                          "Jurisdictions."_s,
                          u"Please Select a County(s) or Change Jurisidiction to Continue."_s}));
    QCOMPARE(Keys(), QStringList());
}

void tst_DispatchDiscis::courtsThatShareANameAreSearchedTogether()
{
    desk->Desk.Folder.Write(u"wadisciscts.txt"_s,
                            "1,Adams,OTD,Othello,Twin\r\n2,King,KBD,Bellevue,Twin\r\n");
    LoadDiscisCourts();
    desk->Do(civil + smithJohnQ + adams);
    QCOMPARE(Handed(desk->StartOne<DiscisResultsWindow>()),
             results(true, u"SMITH, JOHN Q"_s, u"Adams District/Municipal Courts"_s,
                     u"Twin (OTD), Twin (KBD)"_s, {},
                     {u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦OTD¦CV¦CNCI¦"_s,
                      u"WADISCIS¦SEARCH¦SMITH¦JOHN¦Q¦KBD¦CV¦CNCI¦"_s}));
}

namespace {
const QString notScomis = u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo continue "
                          "the search using this number click OK."_s;
const QString notScomisTitle = u"Halvane Form Field Validation"_s;
} // namespace

void tst_DispatchDiscis::aNumberIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("handed");
    const QStringList entered{u"choose cboxCountyList Adams"_s,
                              u"tick lboxDiscisCourtNames Ritzville District (RID)"_s,
                              u"type txtSearchName_0 3yh809020"_s};
    const QString court = u"lblCourtName Adams Cty. - Ritzville District (RID)"_s;
    QTest::newRow("civil") << civil + number + entered
                           << QStringList{u"frmCivilCaseDetails"_s,
                                          u"caption 3YH809020 - Case Details"_s,
                                          u"lblState WA"_s,
                                          u"lblCaseDetailsHdr Case Details"_s,
                                          court,
                                          u"txtCaseNumber 3YH809020"_s,
                                          u"txtCourtCode RID"_s,
                                          u"txtCaseType CV"_s,
                                          u"lblCaseType CIVIL  CV"_s,
                                          u"lblCaseNo 3YH809020"_s};
    QTest::newRow("non-civil") << nonCivil + number + entered
                               << QStringList{u"frmNCCaseDetails"_s,
                                              u"caption 3YH809020 - Case Details"_s,
                                              u"lblState WA"_s,
                                              u"lblCaseDetailsHdr Case Details"_s,
                                              court,
                                              u"txtCaseNumber 3YH809020"_s,
                                              u"txtCourtCode RID"_s,
                                              u"txtCaseType IN"_s,
                                              u"lblCaseType NON-CIVIL"_s,
                                              u"lblCaseNo 3YH809020"_s};
}

void tst_DispatchDiscis::aNumberIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    desk->Desk.Boxes.Expect(notScomis, notScomisTitle, MsgIcon::Exclamation, MsgAnswer::Ok,
                            MsgButtons::OkCancel);
    const auto *window = desk->StartOne<DiscisCaseWindow>();
    QCOMPARE(Handed(window), handed);
    QVERIFY(window->isVisible());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
    QCOMPARE(desk->ItemsOf("cboxCaseMRUs"), QStringList{u"3YH809020"_s});
}

void tst_DispatchDiscis::aNumberOfSeveralCourtsGoesToTheFirst()
{
    desk->Do(civil + number
             + QStringList{u"choose cboxCountyList Adams"_s,
                           u"tick lboxDiscisCourtNames Ritzville District (RID)"_s,
                           u"tick lboxDiscisCourtNames Othello District (OTD)"_s,
                           u"type txtSearchName_0 052020299"_s});
    const auto *window = desk->StartOne<frmCivilCaseDetails>();
    QVERIFY(window);
    QCOMPARE(window->txtCourtCode, u"OTD"_s);
    QCOMPARE(window->lblCourtName(), u"Adams Cty. - Othello District (OTD)"_s);
    // Nine digits are put into the form that they have in the Superior Courts.
    QCOMPARE(window->txtCaseNumber, u"05-2-02029-9"_s);
    QCOMPARE(desk->Text("txtSearchName_0"), u"05-2-02029-9"_s);
}

void tst_DispatchDiscis::aNumberWithoutACourtIsRefused()
{
    desk->Do(nonCivil + number + adams + QStringList{u"type txtSearchName_0 052020299"_s});
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(said.value(1), u"A County selection is required for this type of search."_s);
    QCOMPARE(Keys(), QStringList());
}

void tst_DispatchDiscis::aNumberInAllCountiesIsRefused()
{
    desk->Do(civil + number
             + QStringList{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s,
                           u"type txtSearchName_0 052020299"_s});
    // A number is one court's: the whole state is no choice, and nothing is chosen.
    QVERIFY(!desk->Control("lboxDiscisCourtNames")->isEnabled());
    QCOMPARE(desk->Text("lblCourtNameStats"),
             u"Courts Available: 173   Courts Selected: 0 (zero)"_s);
    QCOMPARE(desk->Form()->Entry().DiscisSelected, QStringList());
    QStringList said;
    desk->ExpectRefusal(&said);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(said, (QStringList{u"You Have Not Selected a County!"_s,
                                u"A County selection is required for this type of search."_s,
                                u"Please Select a County or Change Jurisidiction to Continue."_s}));
    QCOMPARE(Keys(), QStringList());
}

void tst_DispatchDiscis::aNumberWithNeitherCivilNorNonCivilIsReported()
{
    desk->Do(civil + number + oneCourt + QStringList{u"type txtSearchName_0 052020299"_s});
    frmSearchWA::Form().intSearchWhere = 1;
    desk->Desk.Boxes.Expect(requestError + u"\r\n\r\nError Was: "_s,
                            u"Halvane Search Request Error"_s, MsgIcon::Exclamation);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QVERIFY(desk->Desk.Folder.Logged(u"Error Loading Discis Case Number Search Strings into Form's "
                                     "queue. Exiting Function False."_s));
    QVERIFY(desk->Desk.Folder.Logged(requestError + u" Error Was: "_s));
    QCOMPARE(desk->Desk.Folder.Read(u"MruCases.txt"_s), QByteArray());
}

void tst_DispatchDiscis::aNameWithNeitherCivilNorNonCivilIsReported()
{
    desk->Do(civil + smithJohnQ + oneCourt);
    frmSearchWA::Form().intSearchWhere = 1;
    desk->Desk.Boxes.Expect(requestError + u"\r\n\r\nError Was: "_s,
                            u"Halvane Search Request Error"_s, MsgIcon::Exclamation);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QVERIFY(desk->Desk.Folder.Logged(u"Error Loading Discis Name Search Strings into Form's queue. "
                                     "Exiting Function False."_s));
    QVERIFY(desk->Desk.Folder.Logged(requestError + u" Error Was: "_s));
}

HALVANE_TEST(tst_DispatchDiscis)
#include "tst_DispatchDiscis.moc"
