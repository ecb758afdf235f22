// A search that was started comes back: onto the form, or into the queue once more.

#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "namesearch/NameResultsWindow.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/EntryText.h"
#include "searchentry/SearchStart.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QCheckBox>
#include <QTest>

namespace {
const QStringList oregon{u"click optState_0"_s};
const QStringList federal{u"click optState_2"_s};
const QStringList idaho{u"click optState_3"_s};
const QStringList civil{u"click optCourtSelection_1"_s};
const QStringList nonCivil{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s};
const QStringList adams{u"choose cboxCountyList Adams"_s};
const QStringList business{u"click optSearchType_1"_s, u"type txtSearchName_0 Acme Inc"_s};
const QStringList byNumber{u"click optSearchType_2"_s};
const QStringList batch = byNumber + QStringList{u"click chkBulkSearch"_s};
const QStringList twoTypes{u"tick lboxCaseTypes Civil"_s};

QStringList ofNumber(const QString &text)
{
    return byNumber + QStringList{u"type txtSearchName_0 "_s + text};
}

QStringList row(int index, const QString &number, const QString &county)
{
    const QString suffix = u'_' + QString::number(index) + u' ';
    return {u"type Text1"_s + suffix + number, u"choose cbCty1"_s + suffix + county};
}

QByteArray originOf(const JobWindow *window)
{
    if (const auto *results = qobject_cast<const NameResultsWindow *>(window))
        return results->Search().Record.Origin;
    const auto *ofCase = qobject_cast<const CaseWindow *>(window);
    return ofCase ? ofCase->Record().Origin : QByteArray();
}

QList<QStringList> handedOf(const QList<JobWindow *> &windows)
{
    QList<QStringList> handed;
    for (const JobWindow *window : windows)
        handed.append(Handed(window));
    return handed;
}

/// Somewhere else on the form, with something entered there.
const QStringList elsewhere{u"click cmdClearForm"_s,
                            u"click optState_3"_s,
                            u"type txtSearchName_0 Jones"_s,
                            u"type txtSearchName_3 Jr"_s,
                            u"tick lboxCountyOrProfile Ada"_s,
                            u"click optSearchYears_1"_s,
                            u"choose cboxSearchStartYear 1999"_s};
} // namespace

class tst_SearchAgain : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void whatWasAskedIsAskedAgain_data();
    void whatWasAskedIsAskedAgain();
    void theFormHasWhatWasAsked_data() { whatWasAskedIsAskedAgain_data(); }
    void theFormHasWhatWasAsked();
    void whatIsNotOfferedAnyMoreIsSaid();
    void aRowOfABatchStandsInTheFirst();
    void theFormStaysAsItStands();
    void withACodeNobodyIsAskedForOne();
    void withoutACodeItIsAskedFor();
    void theNoticeOfItsOwnCourtsIsAsked();
    void aDeclinedNoticeStartsNothing();
    void whoIsNotLoggedInIsAsked();
    void whatTheCourtsRefuseNowIsRefused();
    void whatIsPutBackIsNotCheckedAgain();

private:
    /// The steps, and a click on what starts them.
    QList<JobWindow *> startSteps(const QStringList &steps);
};

QList<JobWindow *> tst_SearchAgain::startSteps(const QStringList &steps)
{
    desk->Do(steps);
    const QStringList start = desk->Form()->Entry().InBatch
                                  ? QStringList{u"click cmdBatchSearch_4"_s}
                                  : QStringList{u"click cmdBeginSearch"_s};
    return desk->NewWindows([&] { desk->Do(start); });
}

void tst_SearchAgain::whatWasAskedIsAskedAgain_data()
{
    QTest::addColumn<QStringList>("steps");
    const QStringList king{u"tick lboxCountyOrProfile King"_s,
                           u"tick lboxCountyOrProfile Pierce"_s};
    const QStringList range{u"click optSearchYears_1"_s, u"choose cboxSearchStartYear 2003"_s,
                            u"choose cboxSearchEndYear 2004"_s};
    const QStringList bkRange{u"click optSearchYears1_1"_s, u"choose cboxSearchStartYear1 2001"_s};
    QTest::newRow("Superior, a person") << smithJohnQ + king + twoTypes + range;
    QTest::newRow("Superior, a person with a suffix")
        << smithJohnQ + QStringList{u"type txtSearchName_3 Jr"_s} + king + twoTypes;
    QTest::newRow("Superior, a business") << business + king + twoTypes;
    QTest::newRow("Superior, statewide")
        << smithJohnQ + QStringList{u"click optSearchWhere_2"_s} + twoTypes;
    QTest::newRow("Superior, the index")
        << smithJohnQ + QStringList{u"click chkUseIndex"_s} + king + twoTypes;
    QTest::newRow("Superior, a number")
        << ofNumber(u"05-2-02029-1"_s) + QStringList{u"tick lboxMultiJurisdiction King"_s};
    QTest::newRow("Superior, a batch")
        << batch + row(0, u"05-2-02029-1"_s, u"King"_s) + row(1, u"05-2-02029-8"_s, u"Adams"_s);
    QTest::newRow("District, a civil person") << civil + adams + smithJohnQ;
    QTest::newRow("District, some courts")
        << civil + adams + smithJohnQ
               + QStringList{u"tick lboxDiscisCourtNames Ritzville District (RID)"_s};
    QTest::newRow("District, a civil business") << civil + business + adams;
    QTest::newRow("District, statewide")
        << civil + smithJohnQ
               + QStringList{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s};
    QTest::newRow("District, a non-civil person") << nonCivil + adams + smithJohnQ;
    QTest::newRow("District, addresses")
        << nonCivil + smithJohnQ
               + QStringList{u"choose cboxCountyList -- SHOW ADDRESS/DEFS ONLY --"_s};
    QTest::newRow("District, a civil number")
        << civil + ofNumber(u"05-2-02029-9"_s) + adams
               + QStringList{u"tick lboxDiscisCourtNames Othello District (OTD)"_s};
    QTest::newRow("District, a non-civil number")
        << nonCivil + ofNumber(u"05-2-02029-9"_s) + adams
               + QStringList{u"tick lboxDiscisCourtNames Othello District (OTD)"_s};
    const QStringList lane{u"tick lboxCountyOrProfile Lane"_s};
    QTest::newRow("Oregon, a person") << oregon + smithJohnQ + lane + twoTypes + range;
    QTest::newRow("Oregon, District, judgments only")
        << oregon + QStringList{u"click optOrCDcourts_1"_s} + business + lane
               + QStringList{u"click optORjgmtsONLY"_s} + twoTypes;
    QTest::newRow("Oregon, statewide")
        << oregon + smithJohnQ + QStringList{u"click optSearchWhere_2"_s} + twoTypes;
    QTest::newRow("Oregon, a number")
        << oregon + ofNumber(u"05-2-02029-1"_s) + QStringList{u"tick lboxMultiJurisdiction Lane"_s};
    QTest::newRow("Oregon, a batch") << oregon + batch + row(4, u"CV08060677"_s, u"Lane"_s);
    const QStringList ada{u"tick lboxCountyOrProfile Ada"_s};
    QTest::newRow("Idaho, a person") << idaho + smithJohnQ + ada + twoTypes;
    QTest::newRow("Idaho, a business, statewide")
        << idaho + business + QStringList{u"click optSearchWhere_2"_s} + twoTypes;
    QTest::newRow("Idaho, a number") << idaho + ofNumber(u"CR-1998-0002546-IN"_s)
                                            + QStringList{u"tick lboxMultiJurisdiction Ada"_s};
    QTest::newRow("Idaho, a batch") << idaho + batch + row(9, u"CR-1998-0002546-IN"_s, u"Ada"_s);
    const QStringList twoCourts{u"click chkBKcourt_0"_s, u"click chkBKcourt_3"_s};
    QTest::newRow("Bankruptcy, a person") << federal + smithJohnQ + twoCourts + bkRange;
    QTest::newRow("Bankruptcy, a business") << federal + business + twoCourts;
    QTest::newRow("Bankruptcy, a number") << federal + ofNumber(u"99-20077"_s) + twoCourts;
    QTest::newRow("Bankruptcy, a tax identifier")
        << federal + QStringList{u"click optSearchType_3"_s, u"type txtSearchName_0 91-1234567"_s}
               + twoCourts;
    QTest::newRow("Bankruptcy, a social security number")
        << federal + QStringList{u"click optSearchType_4"_s, u"type txtSearchName_0 900-00-0001"_s}
               + twoCourts;
}

/// Each window says how it was asked for; asked so again, there is another that is handed the same.
void tst_SearchAgain::whatWasAskedIsAskedAgain()
{
    QFETCH(QStringList, steps);
    const QList<JobWindow *> windows = startSteps(steps);
    QVERIFY(!windows.isEmpty());
    desk->Do(elsewhere);
    for (const JobWindow *window : windows) {
        const std::optional<SearchEntry> entry = EntryOf(originOf(window));
        QVERIFY(entry);
        QVERIFY(*entry == AsAsked(*entry));
        bool waits = false;
        const QList<JobWindow *> again =
            desk->NewWindows([&] { waits = desk->Form()->Start().BeginAgain(*entry, u"ABC"_s); });
        QVERIFY(waits);
        QCOMPARE(handedOf(again).size(), 1);
        QCOMPARE(originOf(again[0]), originOf(window));
        QCOMPARE(again[0]->ClientAcctgCode, u"ABC"_s);
        again[0]->ClientAcctgCode.clear();
        QCOMPARE(Handed(again[0]), Handed(window));
    }
}

/// The same through the form, on which the user starts it.
void tst_SearchAgain::theFormHasWhatWasAsked()
{
    QFETCH(QStringList, steps);
    const QList<JobWindow *> windows = startSteps(steps);
    QVERIFY(!windows.isEmpty());
    for (const JobWindow *window : windows) {
        const std::optional<SearchEntry> entry = EntryOf(originOf(window));
        QVERIFY(entry);
        desk->Do(elsewhere);
        QVERIFY(desk->Form()->Fill(*entry));
        QVERIFY(AsAsked(desk->Form()->Entry()) == *entry);
        const QList<JobWindow *> again = startSteps({});
        QCOMPARE(handedOf(again), (QList<QStringList>{Handed(window)}));
        QCOMPARE(originOf(again[0]), originOf(window));
    }
}

void tst_SearchAgain::whatIsNotOfferedAnyMoreIsSaid()
{
    SearchEntry entry;
    entry.Names[LastName] = u"SMITH"_s;
    entry.Counties = {u"King"_s, u"Atlantis"_s};
    entry.CaseTypes = {u"Civil"_s};
    QVERIFY(!desk->Form()->Fill(entry));
    QCOMPARE(desk->Form()->Entry().Counties, QStringList{u"King"_s});
    entry.Counties = {u"King"_s};
    QVERIFY(desk->Form()->Fill(entry));
    entry.YearRange = true;
    entry.FromYear = u"1234"_s;
    entry.ToYear = u"2004"_s;
    QVERIFY(!desk->Form()->Fill(entry));
}

void tst_SearchAgain::aRowOfABatchStandsInTheFirst()
{
    const QList<JobWindow *> windows = startSteps(batch + row(2, u"05-2-02029-8"_s, u"Adams"_s));
    QCOMPARE(windows.size(), 1);
    desk->Do(QStringList{u"type Text1_7 1"_s} + elsewhere);
    QVERIFY(desk->Form()->Fill(*EntryOf(originOf(windows[0]))));
    const SearchEntry entry = desk->Form()->Entry();
    QVERIFY(entry.InBatch);
    QVERIFY(entry.Batch[0] == (BatchRow{u"05-2-02029-8"_s, u"Adams"_s}));
    for (size_t i = 1; i < entry.Batch.size(); ++i)
        QCOMPARE(entry.Batch[i].Number, QString());
    QVERIFY(desk->Control("frameBulkSearch")->isVisible());
}

void tst_SearchAgain::theFormStaysAsItStands()
{
    const QList<JobWindow *> windows =
        startSteps(smithJohnQ + QStringList{u"tick lboxCountyOrProfile King"_s} + twoTypes);
    QCOMPARE(windows.size(), 1);
    desk->Do(elsewhere);
    const SearchEntry before = desk->Form()->Entry();
    QVERIFY(desk->Form()->Start().BeginAgain(*EntryOf(originOf(windows[0])), u"ABC"_s));
    QVERIFY(desk->Form()->Entry() == before);
    QCOMPARE(Global.strSearchState, u"ID"_s);
}

void tst_SearchAgain::withACodeNobodyIsAskedForOne()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Names[LastName] = u"SMITH"_s;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    Global.bClientAcctgOpt = true;
    Global.ClientAcctgCode = u"OTHER"_s;
    const QList<JobWindow *> again =
        desk->NewWindows([&] { desk->Form()->Start().BeginAgain(entry, u"ABC"_s); });
    QCOMPARE(again.size(), 1);
    QCOMPARE(again[0]->ClientAcctgCode, u"ABC"_s);
    // The code that is in force for what the user starts is not this one.
    QCOMPARE(Global.ClientAcctgCode, u"OTHER"_s);
}

void tst_SearchAgain::withoutACodeItIsAskedFor()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Names[LastName] = u"SMITH"_s;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    Global.bClientAcctgOpt = true;
    desk->ExpectCode(u"xyz"_s);
    const QList<JobWindow *> again =
        desk->NewWindows([&] { desk->Form()->Start().BeginAgain(entry, QString()); });
    QCOMPARE(again.size(), 1);
    QCOMPARE(again[0]->ClientAcctgCode, u"XYZ"_s);
}

/// The form is on Idaho, which has no notice before a single search.
void tst_SearchAgain::theNoticeOfItsOwnCourtsIsAsked()
{
    const QList<JobWindow *> windows = startSteps(
        oregon + smithJohnQ + QStringList{u"tick lboxCountyOrProfile Lane"_s} + twoTypes);
    QCOMPARE(windows.size(), 1);
    const SearchEntry entry = *EntryOf(originOf(windows[0]));
    desk->Do(elsewhere);
    Global.bShowAlerts = true;
    Global.OrDisclaimerAccepted = false;
    desk->Desk.Boxes.Expect(oregonDisclaimer, u"Oregon State Courts"_s, MsgIcon::Exclamation,
                            MsgAnswer::Yes, MsgButtons::YesNo);
    QVERIFY(desk->Form()->Start().BeginAgain(entry, u"ABC"_s));
    // Once accepted it is not asked for again.
    QVERIFY(desk->Form()->Start().BeginAgain(entry, u"ABC"_s));
    QVERIFY(desk->Form()->Start().PutBack(entry, u"ABC"_s));
}

void tst_SearchAgain::aDeclinedNoticeStartsNothing()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Names[LastName] = u"SMITH"_s;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    Global.bShowAlerts = true;
    for (int i = 0; i < 2; ++i)
        desk->Desk.Boxes.Expect(washingtonDisclaimer, u"Washington State Courts"_s,
                                MsgIcon::Exclamation, MsgAnswer::No, MsgButtons::YesNo);
    QVERIFY(!desk->Form()->Start().BeginAgain(entry, u"ABC"_s));
    QVERIFY(!desk->Form()->Start().PutBack(entry, u"ABC"_s));
    QCOMPARE(Keys(), QStringList());
}

void tst_SearchAgain::whoIsNotLoggedInIsAsked()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Names[LastName] = u"SMITH"_s;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    Global.bLoggedIn = false;
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No,
                            MsgButtons::YesNo);
    QVERIFY(!desk->Form()->Start().BeginAgain(entry, u"ABC"_s));
    QCOMPARE(Keys(), QStringList());
}

void tst_SearchAgain::whatTheCourtsRefuseNowIsRefused()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Counties = {u"King"_s};
    desk->ExpectRefusal();
    QVERIFY(!desk->Form()->Start().BeginAgain(entry, u"ABC"_s));
    QCOMPARE(Keys(), QStringList());
}

/// A number in a form that is not the court's was the user's to decide, and is decided.
void tst_SearchAgain::whatIsPutBackIsNotCheckedAgain()
{
    SearchEntry entry = desk->Form()->Entry();
    entry.Kind = SearchKind::Number;
    entry.Names[LastName] = u"12AB"_s;
    entry.NumberCounty = u"King"_s;
    bool waits = false;
    const QList<JobWindow *> again =
        desk->NewWindows([&] { waits = desk->Form()->Start().PutBack(entry, QString()); });
    QVERIFY(waits);
    QCOMPARE(again.size(), 1);
    QCOMPARE(qobject_cast<CaseWindow *>(again[0])->txtCaseNumber, u"12AB"_s);
}

HALVANE_TEST(tst_SearchAgain)
#include "tst_SearchAgain.moc"
