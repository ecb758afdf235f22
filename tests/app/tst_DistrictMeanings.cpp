#include "app/CaseChecks.h"
#include "app/PracticeCourt.h"
#include "casedetails/CaseWindow.h"
#include "practice/SpecialCases.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

/// What a district court says in place of a case or ahead of its tables, in both windows, against
/// the practice court.

namespace {
const QString complete = u"Search Complete"_s;

QString specialAt(int place)
{
    for (const Practice::SpecialCaseRow &row : Practice::specialCases) {
        if (row.place == place)
            return Practice::SpecialCaseNumber(Practice::CourtFamily::District, row);
    }
    return {};
}

bool isSeen(const CaseWindow *window, const char *name)
{
    return !window->findChild<QLabel *>(QLatin1StringView(name))->isHidden();
}

void bothWindows()
{
    QTest::addColumn<bool>("civil");
    QTest::newRow("non-civil") << false;
    QTest::newRow("civil") << true;
}
} // namespace

class tst_DistrictMeanings : public PracticeTest
{
    Q_OBJECT
private Q_SLOTS:
    void aWordInPlaceOfTheSummary_data();
    void aWordInPlaceOfTheSummary();
    void aCaseOfAnotherCourt_data();
    void aCaseOfAnotherCourt();
    void notesAheadOfTheTables_data();
    void notesAheadOfTheTables();
    void tabsThatFailTheFirstTimeAndComeTheSecond_data();
    void tabsThatFailTheFirstTimeAndComeTheSecond();

private:
    /// Opens the case of this number in a court of King and waits for the end of its run.
    CaseWindow *open(bool civil, const QString &number, const QString &in);
    CaseWindow *open(bool civil, int place)
    {
        return open(civil, specialAt(place), u"King District Seattle (KSD)"_s);
    }
};

CaseWindow *tst_DistrictMeanings::open(bool civil, const QString &number, const QString &in)
{
    FetchAtOnce(everyTab);
    if (!LogInAs(u"quiet"_s))
        return nullptr;
    user->Do((civil ? discis : nonCivil)
             + QStringList{u"click optSearchType_2"_s, u"choose cboxCountyList King"_s,
                           u"tick lboxDiscisCourtNames "_s + in,
                           u"type txtSearchName_0 "_s + number});
    user->Desk.Boxes.Expect(u"This case number appears to be a non-SCOMIS number.\r\n\r\nTo "
                            "continue the search using this number click OK."_s,
                            u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
                            MsgButtons::OkCancel);
    auto *window = user->StartOne<CaseWindow>();
    return window && user->Run(window) ? window : nullptr;
}

void tst_DistrictMeanings::aWordInPlaceOfTheSummary_data()
{
    QTest::addColumn<bool>("civil");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("status");
    const QString notLocated = u"This Case Was Not Located. No Summary Details Retrieved."_s;
    const QString stopped = u"Search Stopped. Case Was Not Located."_s;
    const QString noItems = u"This case was not located."_s;
    QTest::newRow("non-civil, archived")
        << false << 40 << u"Archived Case. No Summary Information Found."_s
        << u"Note: Archived case, Summary information is not available"_s << complete;
    QTest::newRow("civil, archived") << true << 40 << noItems << QString() << complete;
    QTest::newRow("non-civil, non-JIS")
        << false << 41 << u"Non-JIS case. Summary information not available."_s
        << u"Note: Non-JIS case. Summary information not available"_s << complete;
    QTest::newRow("civil, non-JIS") << true << 41 << noItems << QString() << complete;
    QTest::newRow("non-civil, nothing") << false << 13 << notLocated << QString() << stopped;
    QTest::newRow("civil, nothing") << true << 13 << notLocated << QString() << stopped;
    QTest::newRow("non-civil, only a heading")
        << false << 46 << u"No Additional Summary Details Available."_s << QString() << complete;
    QTest::newRow("civil, only a heading") << true << 46 << noItems << QString() << complete;
}

void tst_DistrictMeanings::aWordInPlaceOfTheSummary()
{
    QFETCH(bool, civil);
    QFETCH(int, place);
    QFETCH(QString, note);
    const CaseWindow *window = open(civil, place);
    QVERIFY(window);
    QTEST(window->Tab(CaseTab::Summary).Grid->Cell(0, 0), "cell");
    QCOMPARE(window->Tab(CaseTab::Summary).Grid->Rows(), 1);
    QCOMPARE(TextOf(window, "lblNote"), note);
    QCOMPARE(isSeen(window, "lblNote"), !note.isEmpty());
    QTEST(TextOf(window, "lblStatus"), "status");
    // It stands in nobody's way.
    QCOMPARE(Keys(), QStringList());
}

void tst_DistrictMeanings::aCaseOfAnotherCourt_data()
{
    bothWindows();
}

void tst_DistrictMeanings::aCaseOfAnotherCourt()
{
    QFETCH(bool, civil);
    const CaseWindow *window =
        open(civil, civil ? u"5KS000123"_s : u"3YH809020"_s, u"King District Bellevue (KBD)"_s);
    QVERIFY(window);
    const QString notAssociated = u"Case Number not associated with this court"_s;
    QCOMPARE(TextOf(window, "lblNote"), u"Note: "_s + notAssociated);
    QCOMPARE(TextOf(window, "lblStatus"),
             civil ? QString(u"Search Stopped. "_s + notAssociated + u'.') : complete);
    QCOMPARE(window->windowTitle().endsWith(u" - "_s + notAssociated + u'!'), civil);
    // The civil run stops at the Summary.
    QCOMPARE(window->Tab(CaseTab::Names).TabDone, !civil);
    QCOMPARE(Keys(), QStringList());
}

void tst_DistrictMeanings::notesAheadOfTheTables_data()
{
    QTest::addColumn<bool>("civil");
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("notes");
    for (int notes = 0; notes <= 2; ++notes) {
        QTest::addRow("non-civil, %d", notes) << false << 42 + notes << notes;
        QTest::addRow("civil, %d", notes) << true << 42 + notes << notes;
    }
}

void tst_DistrictMeanings::notesAheadOfTheTables()
{
    QFETCH(bool, civil);
    QFETCH(int, place);
    QFETCH(int, notes);
    const CaseWindow *window = open(civil, place);
    QVERIFY(window);
    QCOMPARE(TextOf(window, "lblStatus"), complete);
    struct Labels
    {
        CaseTab tab;
        const char *first;
        const char *second;
    };
    const Labels last = civil ? Labels{CaseTab::Judgments, "lblCvjiNote1", "lblCvjiNote2"}
                              : Labels{CaseTab::Violations, "lblNCVIONote1", "lblNCVIONote2"};
    for (const Labels &labels : {Labels{CaseTab::Names, "lblNameNote1", "lblNameNote2"},
                                 Labels{CaseTab::Docket, "lblNoteCDK1", "lblNoteCDK2"}, last}) {
        QCOMPARE(TextOf(window, labels.first),
                 notes < 1 ? QString() : u"Addresses may be out of date."_s);
        QCOMPARE(TextOf(window, labels.second),
                 notes < 2 ? QString() : u"Contact the court for certified copies."_s);
        QCOMPARE(isSeen(window, labels.first), notes >= 1);
        QCOMPARE(isSeen(window, labels.second), notes == 2);
        // The table behind them is read all the same.
        QCOMPARE(TroubleWith(window, labels.tab), QString());
        QVERIFY(window->Tab(labels.tab).Grid->Cols() > 1);
    }
}

void tst_DistrictMeanings::tabsThatFailTheFirstTimeAndComeTheSecond_data()
{
    bothWindows();
}

void tst_DistrictMeanings::tabsThatFailTheFirstTimeAndComeTheSecond()
{
    QFETCH(bool, civil);
    CaseWindow *window = open(civil, 24);
    QVERIFY(window);
    QCOMPARE(TextOf(window, "lblStatus"), u"Search Incomplete!"_s);
    QVERIFY(window->Tab(CaseTab::Names).TabIncomplete);
    user->Desk.Boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton *>(u"Command1"_s), Qt::LeftButton);
    });
    QVERIFY(ClickTab(window, u"Names"_s));
    QVERIFY(user->FetchOnDemand(window));
    QCOMPARE(TextOf(window, "lblStatus"), complete);
    for (const CaseTab tab :
         {CaseTab::Names, CaseTab::Docket, civil ? CaseTab::Judgments : CaseTab::Violations}) {
        QVERIFY(window->Tab(tab).TabDone && !window->Tab(tab).TabIncomplete);
        QCOMPARE(TroubleWith(window, tab), QString());
    }
}

HALVANE_TEST(tst_DistrictMeanings)
#include "tst_DistrictMeanings.moc"
