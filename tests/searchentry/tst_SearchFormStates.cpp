// Each choice on the search form, by a real click on its real control.

#include "searchentry/SearchFormUser.h"

#include "core/GlobalState.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

namespace {
const QByteArray optionsWithIndex("[Searching]\r\nDefaultToWaIndex=1\r\n");
} // namespace

class tst_SearchFormStates : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { user = std::make_unique<SearchFormUser>(); }
    void cleanup();

    void everyPlaceByClicks_data();
    void everyPlaceByClicks();
    void openingAtTheDefaultCourt_data();
    void openingAtTheDefaultCourt();
    void aStartSelectsItsRowOfTheJurisdictions_data();
    void aStartSelectsItsRowOfTheJurisdictions();
    void aClickOnTheRowOfAStartGoesToItsCourt();
    void stateButtons_data();
    void stateButtons();
    void courtButtons_data();
    void courtButtons();
    void hiddenCourtButtons_data();
    void hiddenCourtButtons();
    void jurisdictionsByClick_data();
    void jurisdictionsByClick();
    void jurisdictionsByKeys();
    void searchTypes_data();
    void searchTypes();
    void aNumberKeepsWhatStandsInTheBoxes();
    void scopes_data();
    void scopes();
    void civilAndNonCivil();
    void theDistrictCourtsBeginWithCivil();
    void theIndexByDefault_data();
    void theIndexByDefault();
    void theIndexIsKeptBetweenNames();
    void theSameCourtChosenAgainAsksTheSetting_data();
    void theSameCourtChosenAgainAsksTheSetting();
    void selectingOregonAfterAnIndexSearchClearsTheIndex();
    void usCourtsShowTaxAndSsnAndLeavingThemHidesThem();
    void leavingTheUsCourtsFromATaxSearchGoesToAPersonSearch_data();
    void leavingTheUsCourtsFromATaxSearchGoesToAPersonSearch();
    void anIdentifierDoesNotLeaveTheUsCourts_data();
    void anIdentifierDoesNotLeaveTheUsCourts();
    void statewideSelectedShowsTheOneCountyStatewide_data();
    void statewideSelectedShowsTheOneCountyStatewide();
    void aNumberInSuperiorCourtsHasTheOneCountyList();
    void anotherCourtBeginsByCounty();
    void batchEntryIsOfferedForNumbersOfTheStatesOnly_data();
    void batchEntryIsOfferedForNumbersOfTheStatesOnly();
    void anotherTypeEndsTheBatch();
    void theRecentNumbersComeBackAfterABatchThatWasHidden();
    void judgmentsOnlyIsForgottenOutsideOregon();

private:
    void rowsOfPlaces() const;
    Place placeOfRow() const;
    /// Loads the form anew with these settings.
    void reopen(const QByteArray &options);

    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormStates::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormStates::reopen(const QByteArray &options)
{
    user->Form->Unload();
    user->Desk.Folder.Write(u"options.ini"_s, options);
    frmSearchWA::ShowForm();
    user->Form = &frmSearchWA::Form();
}

void tst_SearchFormStates::rowsOfPlaces() const
{
    QTest::addColumn<int>("index");
    const QList<Place> places = AllPlaces();
    for (int i = 0; i < places.size(); ++i)
        QTest::newRow(NameOf(places[i]).constData()) << i;
}

Place tst_SearchFormStates::placeOfRow() const
{
    QFETCH(int, index);
    return AllPlaces()[index];
}

void tst_SearchFormStates::everyPlaceByClicks_data()
{
    rowsOfPlaces();
}

void tst_SearchFormStates::everyPlaceByClicks()
{
    const Place place = placeOfRow();
    Place now;
    QList<QByteArray> way = WayTo(place);
    if (place.Batch)
        way.append("chkBulkSearch");
    for (const QByteArray &control : way) {
        user->Click(control);
        now = After(now, control);
        QCOMPARE(user->Differences(now), QString());
    }
    QVERIFY(now == place);
}

void tst_SearchFormStates::openingAtTheDefaultCourt_data()
{
    QTest::addColumn<QByteArray>("view");
    QTest::addColumn<int>("court");
    QTest::newRow("unset") << QByteArray() << int(Superior);
    QTest::newRow("WA") << QByteArray("WA") << int(Superior);
    QTest::newRow("OR") << QByteArray("OR") << int(Oregon);
    QTest::newRow("FED") << QByteArray("FED") << int(Federal);
    QTest::newRow("ID") << QByteArray("ID") << int(Idaho);
    QTest::newRow("another state") << QByteArray("NV") << int(Superior);
}

void tst_SearchFormStates::openingAtTheDefaultCourt()
{
    QFETCH(QByteArray, view);
    QFETCH(int, court);
    QByteArray options("[Searching]\r\nEnableMRU=1\r\n");
    if (!view.isEmpty())
        options += "DefaultView=" + view + "\r\n";
    reopen(options);
    Place place;
    place.Court = court;
    QCOMPARE(user->Differences(place), QString());
}

void tst_SearchFormStates::aStartSelectsItsRowOfTheJurisdictions_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("optState");
    QTest::addColumn<int>("row");
    QTest::newRow("WA") << u"WA"_s << 1 << 0;
    QTest::newRow("OR") << u"OR"_s << 0 << 2;
    QTest::newRow("ID") << u"ID"_s << 3 << 2;
    QTest::newRow("FED") << u"FED"_s << 2 << 4;
}

void tst_SearchFormStates::aStartSelectsItsRowOfTheJurisdictions()
{
    QFETCH(QString, state);
    QFETCH(int, optState);
    user->Form->SelectStateAtStart(state);
    QVERIFY(user->Button("optState_" + QByteArray::number(optState))->isChecked());
    QCOMPARE(Global.strSearchState, state);
    QTEST(user->Find<QListWidget>("lstJurisdictions")->currentRow(), "row");
}

void tst_SearchFormStates::aClickOnTheRowOfAStartGoesToItsCourt()
{
    user->Form->SelectStateAtStart(u"ID"_s);
    QCOMPARE(Global.strSearchState, u"ID"_s);
    user->Click("lstJurisdictions_2");
    QCOMPARE(user->Differences({Oregon, 0, 1, 5, false}), QString());
}

void tst_SearchFormStates::stateButtons_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("court");
    QTest::newRow("Oregon") << 0 << int(Oregon);
    QTest::newRow("Washington") << 1 << int(Superior);
    QTest::newRow("U.S. Courts") << 2 << int(Federal);
    QTest::newRow("Idaho") << 3 << int(Idaho);
}

void tst_SearchFormStates::stateButtons()
{
    QFETCH(int, index);
    QFETCH(int, court);
    // From another state, so that the click is one.
    user->Click(index == 2 ? "optState_3" : "optState_2");
    user->Click("optState_" + QByteArray::number(index));
    Place place;
    place.Court = court;
    QCOMPARE(user->Differences(place), QString());
}

void tst_SearchFormStates::courtButtons_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("court");
    QTest::newRow("Superior") << 0 << int(Superior);
    QTest::newRow("District and Municipal") << 1 << int(Discis);
}

void tst_SearchFormStates::courtButtons()
{
    QFETCH(int, index);
    QFETCH(int, court);
    user->Click("optCourtSelection_" + QByteArray::number(1 - index));
    user->Click("optCourtSelection_" + QByteArray::number(index));
    Place place;
    place.Court = court;
    QCOMPARE(user->Differences(place), QString());
}

void tst_SearchFormStates::hiddenCourtButtons_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("court");
    QTest::addColumn<QString>("caption");
    QTest::newRow("bankruptcy") << QByteArray("optCourtSelection_2") << u"FED"_s
                                << u"Search Entry Form - Federal Bankruptcy Courts"_s;
    QTest::newRow("Idaho") << QByteArray("optCourtSelection_4") << u"IDSUP"_s
                           << u"Search Entry Form - Idaho District Courts"_s;
    QTest::newRow("the federal district courts have none")
        << QByteArray("optCourtSelection_3") << u"WASUP"_s
        << u"Search Entry Form - WA. Superior Courts"_s;
}

void tst_SearchFormStates::hiddenCourtButtons()
{
    QFETCH(QByteArray, button);
    QVERIFY(!user->Button(button)->isVisibleTo(user->Form));
    user->Press(button);
    QTEST(frmSearchWA::Form().strCurrentCourt, "court");
    QTEST(user->Form->windowTitle(), "caption");
}

void tst_SearchFormStates::jurisdictionsByClick_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("row");
    QTest::newRow("Superior") << u"Washington State Superior Court"_s << 0;
    QTest::newRow("District") << u"Washington State District/Municipal Courts"_s << 1;
    QTest::newRow("Oregon") << u"Oregon State Circuit/District Courts"_s << 2;
    QTest::newRow("Idaho") << u"Idaho State District Courts"_s << 3;
    QTest::newRow("bankruptcy") << u"U.S. Courts - Federal Bankruptcy Courts"_s << 4;
}

void tst_SearchFormStates::jurisdictionsByClick()
{
    QFETCH(int, row);
    QTEST(user->Items("lstJurisdictions")[row], "text");
    user->Click(row == 3 ? "lstJurisdictions_4" : "lstJurisdictions_3");
    user->Click("lstJurisdictions_" + QByteArray::number(row));
    Place place;
    place.Court = row;
    QCOMPARE(user->Differences(place), QString());
    if (row == Oregon)
        QVERIFY(user->Button("optOrCDcourts_0")->isChecked());
}

void tst_SearchFormStates::jurisdictionsByKeys()
{
    auto *list = user->Find<QListWidget>("lstJurisdictions");
    list->setFocus();
    for (int row = 1; row <= Federal; ++row) {
        QTest::keyClick(list, Qt::Key_Down);
        Place place;
        place.Court = row;
        QCOMPARE(user->Differences(place), QString());
        QVERIFY(list->hasFocus());
    }
    QTest::keyClick(list, Qt::Key_Home);
    QCOMPARE(user->Differences({}), QString());
}

void tst_SearchFormStates::searchTypes_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("type");
    for (const ShownRow &row : shownRows) {
        if (!row.batch)
            QTest::newRow(NameOf({row.court, row.type, 1, 5, false}).constData())
                << row.court << row.type;
    }
}

void tst_SearchFormStates::searchTypes()
{
    QFETCH(int, court);
    QFETCH(int, type);
    Place place;
    place.Court = court;
    place.Type = type == 0 ? 1 : 0;
    user->GoTo(place);
    for (int i = 0; i < 4; ++i)
        user->Box(i)->setText(u"X"_s);
    user->Click("optSearchType_" + QByteArray::number(type));
    place.Type = type;
    QCOMPARE(user->Differences(place), QString());
    for (int i = 0; i < 4; ++i)
        QCOMPARE(user->Box(i)->text(), type < 2 ? QString() : u"X"_s);
}

void tst_SearchFormStates::aNumberKeepsWhatStandsInTheBoxes()
{
    QTest::keyClicks(user->Box(0), u"02-2-02029-9"_s);
    user->Click("optSearchType_2");
    QCOMPARE(user->Box(0)->text(), u"02-2-02029-9"_s);
}

void tst_SearchFormStates::scopes_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("where");
    for (const int court : {Superior, Oregon, Idaho}) {
        for (int where = 1; where <= 3; ++where)
            QTest::newRow(NameOf({court, 0, where, 5, false}).constData()) << court << where;
    }
}

void tst_SearchFormStates::scopes()
{
    QFETCH(int, court);
    QFETCH(int, where);
    Place place;
    place.Court = court;
    place.Where = where == 1 ? 3 : 1;
    user->GoTo(place);
    user->Click("optSearchWhere_" + QByteArray::number(where - 1));
    place.Where = where;
    QCOMPARE(user->Differences(place), QString());
    QCOMPARE(user->Ticked("lboxCountyOrProfile"),
             where == 3 ? QStringList{u"(Statewide)"_s} : QStringList());
}

void tst_SearchFormStates::civilAndNonCivil()
{
    user->Click("optCourtSelection_1");
    user->Click("optDiscisSearch_1");
    QCOMPARE(user->Differences({Discis, 0, 1, 6, false}), QString());
    user->Click("optDiscisSearch_0");
    QCOMPARE(user->Differences({Discis, 0, 1, 5, false}), QString());
}

void tst_SearchFormStates::theDistrictCourtsBeginWithCivil()
{
    user->Click("optCourtSelection_1");
    user->Click("optDiscisSearch_1");
    user->Click("optCourtSelection_0");
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    user->Click("optCourtSelection_1");
    QVERIFY(user->Button("optDiscisSearch_0")->isChecked());
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(5));
}

void tst_SearchFormStates::theIndexByDefault_data()
{
    QTest::addColumn<QByteArray>("options");
    QTest::addColumn<bool>("used");
    QTest::newRow("1") << optionsWithIndex << true;
    QTest::newRow("0") << QByteArray("[Searching]\r\nDefaultToWaIndex=0\r\n") << false;
}

void tst_SearchFormStates::theIndexByDefault()
{
    QFETCH(QByteArray, options);
    QFETCH(bool, used);
    reopen(options);
    const auto *index = user->Button("chkUseIndex");
    QCOMPARE(index->isChecked(), used);
    // Each way out of the Superior Courts' names clears it, and each way back asks the setting.
    const QList<QPair<QByteArray, QByteArray>> ways{{"optState_0", "optState_1"},
                                                    {"optState_2", "optState_1"},
                                                    {"optState_3", "optState_1"},
                                                    {"optCourtSelection_1", "optCourtSelection_0"},
                                                    {"optSearchType_2", "optSearchType_0"}};
    for (const auto &[out, back] : ways) {
        user->Click(out);
        QVERIFY(!index->isChecked());
        QVERIFY(!index->isVisible());
        user->Click(back);
        QCOMPARE(index->isChecked(), used);
        QVERIFY(index->isVisible());
    }
}

void tst_SearchFormStates::theIndexIsKeptBetweenNames()
{
    QVERIFY(!user->Button("chkUseIndex")->isChecked());
    user->Click("chkUseIndex");
    user->Click("optSearchType_1");
    QVERIFY(user->Button("chkUseIndex")->isChecked());
    QVERIFY(user->Button("chkUseIndex")->isVisible());
}

void tst_SearchFormStates::theSameCourtChosenAgainAsksTheSetting_data()
{
    QTest::addColumn<QByteArray>("options");
    QTest::addColumn<bool>("used");
    QTest::newRow("on") << QByteArray("[Searching]\r\nDefaultToWaIndex=1\r\n") << true;
    QTest::newRow("off") << QByteArray("[Searching]\r\nDefaultToWaIndex=0\r\n") << false;
}

void tst_SearchFormStates::theSameCourtChosenAgainAsksTheSetting()
{
    QFETCH(QByteArray, options);
    QFETCH(bool, used);
    reopen(options);
    user->Click("chkUseIndex");
    QCOMPARE(user->Button("chkUseIndex")->isChecked(), !used);
    // As the menu of courts does it.
    user->Form->SelectCourt(CourtFamily::Superior);
    QCOMPARE(user->Button("chkUseIndex")->isChecked(), used);
}

void tst_SearchFormStates::selectingOregonAfterAnIndexSearchClearsTheIndex()
{
    user->Click("chkUseIndex");
    QVERIFY(user->Button("chkUseIndex")->isChecked());
    user->Click("optState_0");
    QVERIFY(!user->Button("chkUseIndex")->isChecked());
    QVERIFY(!user->Button("chkUseIndex")->isVisible());
    QVERIFY(!user->Form->Entry().UseIndex);
}

void tst_SearchFormStates::usCourtsShowTaxAndSsnAndLeavingThemHidesThem()
{
    for (const char *back : {"optState_0", "optState_1", "optState_3"}) {
        user->Click("optState_2");
        QVERIFY(user->Button("optSearchType_3")->isVisible());
        QVERIFY(user->Button("optSearchType_4")->isVisible());
        user->Click(back);
        QVERIFY(!user->Button("optSearchType_3")->isVisible());
        QVERIFY(!user->Button("optSearchType_4")->isVisible());
    }
}

void tst_SearchFormStates::leavingTheUsCourtsFromATaxSearchGoesToAPersonSearch_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("tax identifier") << QByteArray("optSearchType_3");
    QTest::newRow("social security number") << QByteArray("optSearchType_4");
}

void tst_SearchFormStates::leavingTheUsCourtsFromATaxSearchGoesToAPersonSearch()
{
    QFETCH(QByteArray, type);
    user->Click("optState_2");
    user->Click(type);
    user->Box(0)->setText(u"900-00-0001"_s);
    user->Click("optState_0");
    QCOMPARE(user->Differences({Oregon, 0, 1, 5, false}), QString());
    // It is nobody's name.
    QCOMPARE(user->Box(0)->text(), QString());
}

void tst_SearchFormStates::anIdentifierDoesNotLeaveTheUsCourts_data()
{
    QTest::addColumn<QByteArray>("way");
    for (const char *way : {"optState_0", "optState_1", "optState_3", "lstJurisdictions_0",
                            "lstJurisdictions_1", "lstJurisdictions_2", "lstJurisdictions_3"})
        QTest::newRow(way) << QByteArray(way);
    QTest::newRow("the menu of courts") << QByteArray();
}

void tst_SearchFormStates::anIdentifierDoesNotLeaveTheUsCourts()
{
    QFETCH(QByteArray, way);
    const auto leave = [&] {
        if (way.isEmpty())
            user->Form->SelectCourt(CourtFamily::Discis);
        else
            user->Press(way);
    };
    user->Click("optState_2");
    user->Click("optSearchType_4");
    user->Box(0)->setText(u"900-00-0001"_s);
    leave();
    QCOMPARE(user->Box(0)->text(), QString());
    // A case number is one everywhere, and a name is, too.
    for (const char *type : {"optSearchType_2", "optSearchType_0"}) {
        user->Press("optState_2");
        user->Press(type);
        user->Box(0)->setText(u"99-20077"_s);
        leave();
        QCOMPARE(user->Box(0)->text(), u"99-20077"_s);
    }
}

void tst_SearchFormStates::statewideSelectedShowsTheOneCountyStatewide_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::newRow("Washington") << QByteArray("optState_1");
    QTest::newRow("Oregon") << QByteArray("optState_0");
    QTest::newRow("Idaho") << QByteArray("optState_3");
}

void tst_SearchFormStates::statewideSelectedShowsTheOneCountyStatewide()
{
    QFETCH(QByteArray, state);
    user->Click(state);
    user->Click("optSearchWhere_2");
    QCOMPARE(user->Items("lboxCountyOrProfile"), QStringList{u"(Statewide)"_s});
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(3));
    QVERIFY(!user->Find("lboxCountyOrProfile")->isEnabled());
    QVERIFY(!user->Find("cmdCheckAll")->isEnabled());
    QVERIFY(!user->Find("cmdUnCheckAll")->isEnabled());
}

void tst_SearchFormStates::aNumberInSuperiorCourtsHasTheOneCountyList()
{
    user->Click("optSearchType_2");
    QVERIFY(user->Find("Frame12")->isVisible());
    QVERIFY(!user->Find("Frame11")->isVisible());
    user->ClickRow("lboxMultiJurisdiction", 3);
    user->ClickRow("lboxMultiJurisdiction", 5);
    auto *list = user->Find<QListWidget>("lboxMultiJurisdiction");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list->visualItemRect(list->item(6)).center());
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(list->selectedItems().size(), 1);
    QCOMPARE(user->Form->Entry().NumberCounty, list->selectedItems().first()->text());
}

void tst_SearchFormStates::anotherCourtBeginsByCounty()
{
    user->Click("optSearchWhere_2");
    user->Click("optState_0");
    QCOMPARE(user->Differences({Oregon, 0, 1, 5, false}), QString());
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList());
}

void tst_SearchFormStates::batchEntryIsOfferedForNumbersOfTheStatesOnly_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<bool>("offered");
    QTest::newRow("Superior") << int(Superior) << true;
    QTest::newRow("District") << int(Discis) << false;
    QTest::newRow("Oregon") << int(Oregon) << true;
    QTest::newRow("Idaho") << int(Idaho) << true;
    QTest::newRow("bankruptcy") << int(Federal) << false;
}

void tst_SearchFormStates::batchEntryIsOfferedForNumbersOfTheStatesOnly()
{
    QFETCH(int, court);
    QFETCH(bool, offered);
    user->Click("lstJurisdictions_" + QByteArray::number(court));
    QVERIFY(!user->Button("chkBulkSearch")->isVisible());
    user->Click("optSearchType_2");
    QCOMPARE(user->Button("chkBulkSearch")->isVisible(), offered);
}

void tst_SearchFormStates::anotherTypeEndsTheBatch()
{
    user->Click("optSearchType_2");
    user->Click("chkBulkSearch");
    user->Click("optSearchType_1");
    QCOMPARE(user->Differences({Superior, 1, 1, 5, false}), QString());
    user->Click("optSearchType_2");
    QVERIFY(!user->Button("chkBulkSearch")->isChecked());
}

void tst_SearchFormStates::theRecentNumbersComeBackAfterABatchThatWasHidden()
{
    user->Click("optSearchType_2");
    user->Click("chkBulkSearch");
    frmSearchWA::HideForm();
    frmSearchWA::ShowForm();
    QVERIFY(user->Find("frameBulkSearch")->isVisible());
    user->Click("chkBulkSearch");
    QCOMPARE(user->Differences({Superior, 2, 1, 5, false}), QString());
}

void tst_SearchFormStates::judgmentsOnlyIsForgottenOutsideOregon()
{
    user->Click("optState_0");
    user->Click("optORjgmtsONLY");
    QVERIFY(user->Form->Entry().JudgmentsOnly);
    user->Click("optState_3");
    QVERIFY(!user->Form->Entry().JudgmentsOnly);
    user->Click("optState_0");
    QVERIFY(!user->Form->Entry().JudgmentsOnly);
}

HALVANE_TEST(tst_SearchFormStates)
#include "tst_SearchFormStates.moc"
