#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "namesearch/frmNameSearchResults.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/RecentEntries.h"
#include "searchentry/SearchDispatch.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <array>

namespace {
/// A court: its box, its code in the lines, and what its windows say.
struct Court
{
    int box;
    QStringView code;
    QStringView state;
    QStringView county;
    QStringView longName;
};
constexpr std::array<Court, 4> courts{{
    {0, u"WAW", u"WAWBK", u"Washington Western Bankruptcy",
     u"Washington Bankruptcy Courts (Western)"},
    {1, u"WAE", u"WAEBK", u"Washington Eastern Bankruptcy",
     u"Washington Bankruptcy Courts (Eastern)"},
    {2, u"OR", u"ORBK", u"Oregon Bankruptcy", u"Oregon Bankruptcy Courts (Statewide)"},
    {3, u"ID", u"IDBK", u"Idaho Bankruptcy", u"Idaho Bankruptcy Courts (Statewide)"},
}};

const QStringList federal{u"click optState_2"_s};
const QStringList years{u"click optSearchYears1_1"_s, u"choose cboxSearchStartYear1 1990"_s,
                        u"choose cboxSearchEndYear1 2002"_s};

QStringList check(const Court &court)
{
    return {u"click chkBKcourt_"_s + QString::number(court.box)};
}

QStringList type(int button, const QString &text)
{
    return {u"click optSearchType_"_s + QString::number(button), u"type txtSearchName_0 "_s + text};
}

/// What a results window of this court is handed. "@" in the line is the court's code.
QStringList results(const Court &court, const QString &name, const QString &label, QString line)
{
    return {u"frmNameSearchResults"_s,
            u"caption "_s + name + u" in "_s + court.county,
            u"lblState "_s + court.state,
            u"lblNameVal "_s + name,
            u"lblCaseTypeVals Bankruptcy"_s,
            u"txtCountyList "_s + court.county,
            u"lblName "_s + label,
            u"chkBK"_s,
            u"line "_s + line.replace(u"@"_s, court.code.toString())};
}

QStringList details(const Court &court, const QString &number)
{
    return {u"frmCaseDetails"_s,
            u"caption "_s + number + u" / "_s + court.longName,
            u"lblState "_s + court.state,
            u"lblCaseDetailsHdr Case Details ("_s + number + u')',
            u"lblCourtName "_s + court.longName,
            u"txtCaseNumber "_s + number,
            u"chkBK"_s,
            u"lboxTabReqQueue BKRPT~SUMMARY~"_s + number + u'~' + court.code + u'~'};
}
} // namespace

/// Searches of the Federal Bankruptcy Courts: from the clicks on the form to the windows and to the
/// wire.
class tst_DispatchBankruptcy : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;

    void theWindowIsHanded_data();
    void theWindowIsHanded();
    void aCaseWindowIsHanded_data();
    void aCaseWindowIsHanded();
    void twoCourtsYieldTwoWindowsAndTwoKeysInTheOrderOfTheBoxes();
    void allCourtsYieldFourWindows();
    void allCourtsYieldFourCaseWindows();
    void onTheWire_data();
    void onTheWire();
    void theRecentEntryIsFiled_data();
    void theRecentEntryIsFiled();
    void aNumberInAnUnknownFormIsSearchedAsTyped();
    void noCourtIsRefused();
    void theListHasTheColumnsOfTheBankruptcyCourts();
    void withoutALineNothingIsShown_data();
    void withoutALineNothingIsShown();
};

void tst_DispatchBankruptcy::init()
{
    EntryTest::init();
    desk->Desk.Time.Set(QDateTime({2005, 6, 15}, {10, 0, 0}));
}

void tst_DispatchBankruptcy::theWindowIsHanded_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("handed");
    for (const Court &court : courts) {
        const QByteArray code = court.code.toLatin1();
        const QStringList one = check(court);
        QTest::addRow("%s, a person", code.constData())
            << federal + smithJohnQ + one
            << results(court, u"SMITH, JOHN, Q"_s, u"Name:"_s,
                       u"BKRPT~SEARCH~SMITH~JOHN~Q~~@~*ALL~1980~2005~"_s);
        QTest::addRow("%s, a person, a range of years", code.constData())
            << federal + smithJohnQ + one + years
            << results(court, u"SMITH, JOHN, Q"_s, u"Name:"_s,
                       u"BKRPT~SEARCH~SMITH~JOHN~Q~~@~*ALL~1990~2002~"_s);
        QTest::addRow("%s, a business", code.constData())
            << federal + type(1, u"Acme Inc"_s) + one
            << results(court, u"ACME INC"_s, u"Name:"_s,
                       u"BKRPT~SEARCHBUS~ACME INC~@~*ALL~1980~2005~"_s);
        QTest::addRow("%s, a tax identifier", code.constData())
            << federal + type(3, u"91-1234567"_s) + one
            << results(court, u"91-1234567"_s, u"Tax ID#:"_s,
                       u"BKRPT~SEARCHTID~91-1234567~@~*ALL~1980~2005~"_s);
        QTest::addRow("%s, a tax identifier goes as typed", code.constData())
            << federal + type(3, u"911234567"_s) + one
            << results(court, u"911234567"_s, u"Tax ID#:"_s,
                       u"BKRPT~SEARCHTID~911234567~@~*ALL~1980~2005~"_s);
        QTest::addRow("%s, a social security number", code.constData())
            << federal + type(4, u"123456789"_s) + one
            << results(court, u"123456789"_s, u"SSN#"_s,
                       u"BKRPT~SEARCHSSN~123456789~@~*ALL~1980~2005~"_s);
    }
}

void tst_DispatchBankruptcy::theWindowIsHanded()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, handed);
    desk->Do(steps);
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QCOMPARE(Handed(window), handed);
    QVERIFY(window->isVisible());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
}

void tst_DispatchBankruptcy::aCaseWindowIsHanded_data()
{
    QTest::addColumn<int>("court");
    for (const Court &court : courts)
        QTest::newRow(court.code.toLatin1().constData()) << court.box;
}

void tst_DispatchBankruptcy::aCaseWindowIsHanded()
{
    QFETCH(int, court);
    const Court &row = courts.at(static_cast<size_t>(court));
    desk->Do(federal + type(2, u"9920077"_s) + check(row));
    const auto *window = desk->StartOne<frmCaseDetails>();
    QCOMPARE(Handed(window), details(row, u"99-20077"_s));
    QVERIFY(window->isVisible());
    QVERIFY(window->Timer1->isActive());
    QCOMPARE(Keys(), QStringList{window->txtMasterKey});
    QCOMPARE(desk->Text("txtSearchName_0"), u"99-20077"_s);
}

void tst_DispatchBankruptcy::twoCourtsYieldTwoWindowsAndTwoKeysInTheOrderOfTheBoxes()
{
    // Checked the other way round.
    desk->Do(federal + smithJohnQ + check(courts[3]) + check(courts[1]));
    const QList<JobWindow *> windows = desk->Start();
    QCOMPARE(windows.size(), 2);
    QCOMPARE(windows[0]->lblState, u"WAEBK"_s);
    QCOMPARE(windows[1]->lblState, u"IDBK"_s);
    QVERIFY(windows[0]->txtMasterKey != windows[1]->txtMasterKey);
    QCOMPARE(Keys(), (QStringList{windows[0]->txtMasterKey, windows[1]->txtMasterKey}));
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "SMITH, JOHN, Q\r\n");
}

void tst_DispatchBankruptcy::allCourtsYieldFourWindows()
{
    desk->Do(federal + type(1, u"Acme Inc"_s) + QStringList{u"click cmdSelBk_0"_s});
    const QList<JobWindow *> windows = desk->Start();
    QCOMPARE(windows.size(), 4);
    for (const Court &court : courts)
        QCOMPARE(Handed(windows[court.box]),
                 results(court, u"ACME INC"_s, u"Name:"_s,
                         u"BKRPT~SEARCHBUS~ACME INC~@~*ALL~1980~2005~"_s));
    QCOMPARE(Keys().size(), 4);
}

void tst_DispatchBankruptcy::allCourtsYieldFourCaseWindows()
{
    desk->Do(federal + type(2, u"99-20077"_s) + QStringList{u"click cmdSelBk_0"_s});
    const QList<JobWindow *> windows = desk->Start();
    QCOMPARE(windows.size(), 4);
    for (const Court &court : courts)
        QCOMPARE(Handed(windows[court.box]), details(court, u"99-20077"_s));
    QCOMPARE(Keys().size(), 4);
}

void tst_DispatchBankruptcy::onTheWire_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("request");
    QTest::newRow("a person") << smithJohnQ
                              << u"BKRPT~SEARCH~SMITH~JOHN~Q~~WAW~*ALL~1980~2005^^CAC:ABC^^~"_s;
    QTest::newRow("a business") << type(1, u"Acme Inc"_s)
                                << u"BKRPT~SEARCHBUS~ACME INC~WAW~*ALL~1980~2005^^CAC:ABC^^~"_s;
    QTest::newRow("a tax identifier")
        << type(3, u"91-1234567"_s)
        << u"BKRPT~SEARCHTID~91-1234567~WAW~*ALL~1980~2005^^CAC:ABC^^~"_s;
    QTest::newRow("a social security number")
        << type(4, u"123456789"_s) << u"BKRPT~SEARCHSSN~123456789~WAW~*ALL~1980~2005^^CAC:ABC^^~"_s;
}

void tst_DispatchBankruptcy::onTheWire()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, request);
    Global.bClientAcctgOpt = true;
    SearchWithCode(federal + steps + check(courts[0]), {request});
}

void tst_DispatchBankruptcy::theRecentEntryIsFiled_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("a person") << smithJohnQ << u"MruIName.txt"_s
                              << QByteArray("SMITH, JOHN, Q\r\n");
    QTest::newRow("a business goes to the persons")
        << type(1, u"Acme Inc"_s) << u"MruIName.txt"_s << QByteArray("ACME INC\r\n");
    QTest::newRow("a tax identifier goes to the businesses")
        << type(3, u"91-1234567"_s) << u"MruBName.txt"_s << QByteArray("91-1234567\r\n");
    QTest::newRow("a social security number goes to the persons")
        << type(4, u"900-00-0001"_s) << u"MruIName.txt"_s << QByteArray("900-00-0001\r\n");
}

void tst_DispatchBankruptcy::theRecentEntryIsFiled()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    desk->Do(federal + steps + check(courts[0]));
    QVERIFY(desk->StartOne<frmNameSearchResults>());
    for (const QString &name : {u"MruIName.txt"_s, u"MruBName.txt"_s, u"MruCases.txt"_s})
        QCOMPARE(desk->Desk.Folder.Read(name), name == file ? content : QByteArray());
    // Once, although the form shows another list than the one that some go to.
    desk->Do(check(courts[1]));
    QCOMPARE(desk->Start().size(), 2);
    QCOMPARE(desk->Desk.Folder.Read(file), content);
}

void tst_DispatchBankruptcy::aNumberInAnUnknownFormIsSearchedAsTyped()
{
    desk->Do(federal + type(2, u"12ab"_s) + check(courts[2]));
    desk->Desk.Boxes.Expect(
        u"The NUMBER entered appears invalid or incorrectly formatted! \r\n\r\nProper formats are "
        "like: YY-Nnnnn or n:yy-tt-Nnnnn.     NOTE: Dashes and colons are not required when "
        "entering numbers.\r\n\r\nTo try using this number anyway - select OK. To stop and check "
        "this number without searching - select Cancel."_s,
        u"Halvane - Invalid Number Entered. Please Verify Number.."_s, MsgIcon::Question,
        MsgAnswer::Ok, MsgButtons::OkCancel);
    QCOMPARE(Handed(desk->StartOne<frmCaseDetails>()), details(courts[2], u"12AB"_s));
}

void tst_DispatchBankruptcy::noCourtIsRefused()
{
    desk->Do(federal + smithJohnQ);
    desk->Desk.Boxes.Expect(u"No Court Selected! Please select a U.S. Court to continue."_s,
                            u"Halvane"_s);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Text("txtSearchName_0"), u"SMITH"_s);
}

void tst_DispatchBankruptcy::theListHasTheColumnsOfTheBankruptcyCourts()
{
    desk->Do(federal + smithJohnQ + check(courts[3]));
    const auto *window = desk->StartOne<frmNameSearchResults>();
    QVERIFY(window);
    QCOMPARE(HeadersOf(window),
             (QStringList{u"Participant Name"_s, u"Case Number"_s, u"Date Filed"_s,
                          u"Description"_s, u"Location"_s, u"Role/Parties"_s, u"Search String"_s}));
    // The window behind it is one of the state courts again.
    desk->Do(
        {u"click optState_3"_s, u"tick lboxCountyOrProfile Ada"_s, u"tick lboxCaseTypes Civil"_s});
    const auto *idaho = desk->StartOne<frmNameSearchResults>();
    QVERIFY(idaho);
    QVERIFY(!HeadersOf(idaho).contains(u"Role/Parties"_s));
    QVERIFY(!idaho->chkBK);
}

void tst_DispatchBankruptcy::withoutALineNothingIsShown_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("a results window") << int(SearchKind::Person);
    QTest::newRow("a case window") << int(SearchKind::Number);
}

void tst_DispatchBankruptcy::withoutALineNothingIsShown()
{
    QFETCH(int, kind);
    SearchEntry entry = desk->Form()->Entry();
    entry.Court = CourtFamily::Bankruptcy;
    entry.Kind = static_cast<SearchKind>(kind);
    entry.BkCourts = {true, true, false, false};
    DispatchResult result = DispatchResult::Waiting;
    ShownRecents recents;
    const QList<JobWindow *> windows =
        desk->NewWindows([&] { result = DispatchSearch(entry, QString(), recents); });
    QCOMPARE(result, DispatchResult::NoRequests);
    QVERIFY(windows.isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), QByteArray());
}

HALVANE_TEST(tst_DispatchBankruptcy)
#include "tst_DispatchBankruptcy.moc"
