// The lists of the search form: what choosing in them does.

#include "searchentry/SearchFormUser.h"

#include "core/GlobalState.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

namespace {
const QByteArray templates("[WaSup]\r\na=Sound\r\nb=Far\r\nc=Empty\r\n"
                           "[Sound]\r\nJuris=King,Atlantis,Pierce\r\nCases=Civil,Probate\r\n"
                           "[Far]\r\nJuris=Multnomah,Lane\r\nCases=Offense\r\n");
const QString templateLoaded =
    u"Template Loaded. Double-click 'Templates' for the Template List."_s;
const QString allCounties = u"-- ALL COUNTIES/STATEWIDE --"_s;
const QString addressesOnly = u"-- SHOW ADDRESS/DEFS ONLY --"_s;
} // namespace

class tst_SearchFormLists : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void selectAllAndClearAll_data();
    void selectAllAndClearAll();
    void selectAllAndClearAllBankruptcyCourts();
    void aCountyButtonChoosesThatCountyAlone_data();
    void aCountyButtonChoosesThatCountyAlone();
    void theCountyButtonsFollowTheList();
    void theCountyButtonsAreTheCounties();

    void courtsOfACounty_data();
    void courtsOfACounty();
    void allCountiesOfTheDistrictCourts();
    void addressesAreForNonCivilPersonsOnly_data();
    void addressesAreForNonCivilPersonsOnly();
    void addressesGoWithTheCaseType();
    void clearAllCourtsSaysZero();
    void theCourtsSelectedAreCounted();
    void aNumberSelectsNoCourtByItself();

    void yearsOfEachBox_data();
    void yearsOfEachBox();
    void bankruptcyYearsAreOpenForARangeOnly();
    void eachYearsFrameIsReadForItsCourts();

    void recentEntriesOfAType_data();
    void recentEntriesOfAType();
    void recentEntriesAreNotOfferedWithoutTheSetting();
    void choosingARecentPerson_data();
    void choosingARecentPerson();
    void typingOffersRecentEntries();
    void socialSecurityNumbersAreNeverOffered();

    void aTemplateSelectsItsCountiesAndCaseTypes();
    void enterAppliesATemplateAndStartsNothing_data();
    void enterAppliesATemplateAndStartsNothing();
    void aTemplateThatNamesACountyNoLongerThereSelectsTheRest();
    void aTemplateOfAnotherStateSelectsNoCounty();
    void aTemplateWithoutASectionClearsTheChoice();
    void theTemplateListComesBackByItsButton();
    void aSecondTemplateTakesThePlaceOfTheFirst();

private:
    QComboBox *combo(const char *name) const { return user->Find<QComboBox>(name); }
    /// As the user does: the box opens, and an item is chosen in it.
    void choose(const char *name, const QString &text) const;
    QString stats() const { return user->Text("lblCourtNameStats"); }

    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormLists::init()
{
    user = std::make_unique<SearchFormUser>();
    user->Desk.Folder.Write(u"templates.ini"_s, templates);
    user->Desk.Folder.Write(u"MruIName.txt"_s, "SMITH, JOHN, Q\r\nMADONNA\r\nDOE, JANE\r\n");
    user->Desk.Folder.Write(u"MruBName.txt"_s, "ACME, INC\r\n91-1234567\r\n");
    user->Desk.Folder.Write(u"MruCases.txt"_s, "02-2-02029-9\r\n");
    user->Form->ShowMRU();
}

void tst_SearchFormLists::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormLists::choose(const char *name, const QString &text) const
{
    QComboBox *box = combo(name);
    const int index = box->findText(text);
    if (index < 0)
        qFatal("%s does not offer it", name);
    box->showPopup();
    QAbstractItemView *view = box->view();
    view->scrollTo(view->model()->index(index, 0));
    QTest::mouseMove(view->viewport(), view->visualRect(view->model()->index(index, 0)).center());
    view->setCurrentIndex(view->model()->index(index, 0));
    QTest::keyClick(view, Qt::Key_Return);
}

// ---- counties and case types ----

void tst_SearchFormLists::selectAllAndClearAll_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("all");
    QTest::addColumn<QByteArray>("none");
    QTest::addColumn<int>("count");
    const QByteArray counties("lboxCountyOrProfile");
    const QByteArray types("lboxCaseTypes");
    const auto row = [](const char *name, int court, const QByteArray &list, const char *all,
                        const char *none, int count) {
        QTest::newRow(name) << court << list << QByteArray(all) << QByteArray(none) << count;
    };
    row("Washington counties", Superior, counties, "cmdCheckAll", "cmdUnCheckAll", 39);
    row("Oregon counties", Oregon, counties, "cmdCheckAll", "cmdUnCheckAll", 37);
    row("Idaho counties", Idaho, counties, "cmdCheckAll", "cmdUnCheckAll", 44);
    row("Washington case types", Superior, types, "cmdSelAll", "cmdClrAll", 6);
    row("Oregon case types", Oregon, types, "cmdSelAll", "cmdClrAll", 6);
    row("Idaho case types", Idaho, types, "cmdSelAll", "cmdClrAll", 3);
    row("courts of a county", Discis, "lboxDiscisCourtNames", "cmdSelectAllCourts",
        "cmdClearCourtList", 26);
}

void tst_SearchFormLists::selectAllAndClearAll()
{
    QFETCH(int, court);
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, all);
    QFETCH(QByteArray, none);
    QFETCH(int, count);
    Place place;
    place.Court = court;
    user->GoTo(place);
    user->Click(none);
    QCOMPARE(user->Ticked(list.constData()), QStringList());
    user->Click(all);
    QCOMPARE(user->Ticked(list.constData()), user->Items(list.constData()));
    QCOMPARE(user->Ticked(list.constData()).size(), count);
    user->Click(none);
    QCOMPARE(user->Ticked(list.constData()), QStringList());
}

void tst_SearchFormLists::selectAllAndClearAllBankruptcyCourts()
{
    user->Click("optState_2");
    QCOMPARE(user->Text("cmdSelBk_0"), u"Select All"_s);
    user->Click("cmdSelBk_0");
    QVERIFY(user->Form->Entry().BkCourts == (std::array<bool, 4>{true, true, true, true}));
    user->Click("chkBKcourt_1");
    QVERIFY(user->Form->Entry().BkCourts == (std::array<bool, 4>{true, false, true, true}));
    user->Click("cmdSelBk_1");
    QVERIFY(user->Form->Entry().BkCourts == (std::array<bool, 4>{}));
}

void tst_SearchFormLists::aCountyButtonChoosesThatCountyAlone_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 39; ++i)
        QTest::addRow("button %d", i) << i;
}

void tst_SearchFormLists::aCountyButtonChoosesThatCountyAlone()
{
    QFETCH(int, index);
    user->Click("cmdCheckAll");
    user->Click("optCounties_" + QByteArray::number(index));
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList{user->CountiesOf(Superior)[index]});
    QVERIFY(user->Button("optCounties_" + QByteArray::number(index))->isChecked());
}

void tst_SearchFormLists::theCountyButtonsFollowTheList()
{
    user->ClickRow("lboxCountyOrProfile", 2);
    QVERIFY(user->Button("optCounties_2")->isChecked());
    user->ClickRow("lboxCountyOrProfile", 4);
    QVERIFY(!user->Button("optCounties_2")->isChecked());
    QVERIFY(!user->Button("optCounties_4")->isChecked());
    user->ClickRow("lboxCountyOrProfile", 2);
    QVERIFY(user->Button("optCounties_4")->isChecked());
}

void tst_SearchFormLists::theCountyButtonsAreTheCounties()
{
    QStringList texts;
    for (int i = 0; i < 39; ++i)
        texts.append(user->Button("optCounties_" + QByteArray::number(i))->text());
    QCOMPARE(texts, user->CountiesOf(Superior));
}

// ---- courts of a district or municipality ----

void tst_SearchFormLists::courtsOfACounty_data()
{
    QTest::addColumn<QString>("county");
    QTest::addColumn<QStringList>("courts");
    QTest::newRow("Adams") << u"Adams"_s
                           << QStringList{u"Othello District (OTD)"_s,
                                          u"Ritzville District (RID)"_s};
    QTest::newRow("Asotin") << u"Asotin"_s
                            << QStringList{u"Asotin District (ASD)"_s,
                                           u"Clarkston (Municipal) (CLA)"_s};
    QTest::newRow("Garfield") << u"Garfield"_s << QStringList{u"Garfield District (GAD)"_s};
}

void tst_SearchFormLists::courtsOfACounty()
{
    QFETCH(QString, county);
    QFETCH(QStringList, courts);
    user->Click("optCourtSelection_1");
    choose("cboxCountyList", county);
    const QString count = QString::number(courts.size());
    QCOMPARE(user->Items("lboxDiscisCourtNames"), courts);
    QCOMPARE(user->Ticked("lboxDiscisCourtNames"), courts);
    QCOMPARE(stats(), u"Courts Available: "_s + count + u"   Courts Selected: "_s + count);
    QVERIFY(user->Find("cmdSelectAllCourts")->isEnabled());
    QVERIFY(user->Find("cmdClearCourtList")->isEnabled());
}

void tst_SearchFormLists::allCountiesOfTheDistrictCourts()
{
    user->Click("optCourtSelection_1");
    choose("cboxCountyList", allCounties);
    const QStringList item{u"Statewide (all counties/jurisdictions)"_s};
    QCOMPARE(user->Items("lboxDiscisCourtNames"), item);
    QCOMPARE(user->Ticked("lboxDiscisCourtNames"), item);
    QCOMPARE(stats(), u"Courts Available: 173   Courts Selected: 173"_s);
    QVERIFY(!user->Find("cmdSelectAllCourts")->isEnabled());
    QVERIFY(!user->Find("cmdClearCourtList")->isEnabled());
}

void tst_SearchFormLists::addressesAreForNonCivilPersonsOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("where");
    QTest::addColumn<bool>("offered");
    QTest::newRow("civil person") << 0 << 5 << false;
    QTest::newRow("civil business") << 1 << 5 << false;
    QTest::newRow("civil number") << 2 << 5 << false;
    QTest::newRow("non-civil person") << 0 << 6 << true;
    QTest::newRow("non-civil business") << 1 << 6 << false;
    QTest::newRow("non-civil number") << 2 << 6 << false;
}

void tst_SearchFormLists::addressesAreForNonCivilPersonsOnly()
{
    QFETCH(int, type);
    QFETCH(int, where);
    QFETCH(bool, offered);
    user->GoTo({Discis, type, 1, where, false});
    QCOMPARE(combo("cboxCountyList")->findText(addressesOnly), offered ? 1 : -1);
    QCOMPARE(combo("cboxCountyList")->itemText(0), allCounties);
}

void tst_SearchFormLists::addressesGoWithTheCaseType()
{
    user->GoTo({Discis, 0, 1, 6, false});
    choose("cboxCountyList", addressesOnly);
    const QStringList item{u"Statewide Defendant Name Search with Addresses"_s};
    QCOMPARE(user->Items("lboxDiscisCourtNames"), item);
    QCOMPARE(user->Ticked("lboxDiscisCourtNames"), item);
    QCOMPARE(stats(), u"Courts Available: 173   Courts Selected: 173"_s);
    QVERIFY(!user->Find("cmdSelectAllCourts")->isEnabled());
    QVERIFY(!user->Find("cmdClearCourtList")->isEnabled());
    user->Click("optDiscisSearch_0");
    QCOMPARE(combo("cboxCountyList")->currentText(), allCounties);
    QCOMPARE(user->Items("lboxDiscisCourtNames"),
             QStringList{u"Statewide (all counties/jurisdictions)"_s});
}

void tst_SearchFormLists::clearAllCourtsSaysZero()
{
    user->Click("optCourtSelection_1");
    choose("cboxCountyList", u"Adams"_s);
    user->Click("cmdClearCourtList");
    QCOMPARE(stats(), u"Courts Available: 2   Courts Selected: 0 (zero)"_s);
    user->Click("cmdSelectAllCourts");
    QCOMPARE(stats(), u"Courts Available: 2   Courts Selected: 2"_s);
}

void tst_SearchFormLists::theCourtsSelectedAreCounted()
{
    user->Click("optCourtSelection_1");
    choose("cboxCountyList", u"Adams"_s);
    user->ClickRow("lboxDiscisCourtNames", 0);
    QCOMPARE(stats(), u"Courts Available: 2   Courts Selected: 1"_s);
    user->ClickRow("lboxDiscisCourtNames", 0);
    QCOMPARE(stats(), u"Courts Available: 2   Courts Selected: 2"_s);
}

void tst_SearchFormLists::aNumberSelectsNoCourtByItself()
{
    user->GoTo({Discis, 2, 1, 5, false});
    choose("cboxCountyList", u"Adams"_s);
    QCOMPARE(user->Items("lboxDiscisCourtNames").size(), 2);
    QCOMPARE(user->Ticked("lboxDiscisCourtNames"), QStringList());
    QCOMPARE(stats(), u"Courts Available: 2   Courts Selected: 0"_s);
}

// ---- years ----

void tst_SearchFormLists::yearsOfEachBox_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("opensAt");
    QTest::newRow("from") << QByteArray("cboxSearchStartYear") << u"1970"_s;
    QTest::newRow("to") << QByteArray("cboxSearchEndYear") << u"2026"_s;
    QTest::newRow("bankruptcy from") << QByteArray("cboxSearchStartYear1") << u"1980"_s;
    QTest::newRow("bankruptcy to") << QByteArray("cboxSearchEndYear1") << u"2026"_s;
}

void tst_SearchFormLists::yearsOfEachBox()
{
    QFETCH(QByteArray, box);
    const QStringList years = user->ComboItems(box.constData());
    QCOMPARE(years.size(), 2026 - 1970 + 1);
    for (int i = 0; i < years.size(); ++i)
        QCOMPARE(years[i], QString::number(1970 + i));
    QTEST(combo(box.constData())->currentText(), "opensAt");
}

void tst_SearchFormLists::bankruptcyYearsAreOpenForARangeOnly()
{
    user->Click("optState_2");
    const QList<const char *> controls{"cboxSearchStartYear1", "cboxSearchEndYear1",
                                       "lblSearchStartYear1", "lblSearchEndYear1"};
    for (const auto &[button, open] :
         {std::pair("optSearchYears1_0", false), std::pair("optSearchYears1_1", true),
          std::pair("optSearchYears1_0", false)}) {
        user->Click(button);
        for (const char *control : controls)
            QCOMPARE(user->Find(control)->isEnabled(), open);
    }
}

void tst_SearchFormLists::eachYearsFrameIsReadForItsCourts()
{
    user->Click("optSearchYears_1");
    choose("cboxSearchStartYear", u"1999"_s);
    QVERIFY(user->Form->Entry().YearRange);
    QCOMPARE(user->Form->Entry().FromYear, u"1999"_s);
    user->Click("optState_2");
    QVERIFY(!user->Form->Entry().YearRange);
    user->Click("optSearchYears1_1");
    QVERIFY(user->Form->Entry().YearRange);
    QCOMPARE(user->Form->Entry().FromYear, u"1980"_s);
}

// ---- recent entries ----

void tst_SearchFormLists::recentEntriesOfAType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QStringList>("entries");
    const QByteArray names("cboxLastBizOrCase");
    QTest::newRow("person") << 0 << names
                            << QStringList{u"SMITH, JOHN, Q"_s, u"MADONNA"_s, u"DOE, JANE"_s};
    QTest::newRow("business") << 1 << names << QStringList{u"ACME, INC"_s, u"91-1234567"_s};
    QTest::newRow("number") << 2 << QByteArray("cboxCaseMRUs") << QStringList{u"02-2-02029-9"_s};
    QTest::newRow("tax identifier") << 3 << names << QStringList{u"ACME, INC"_s, u"91-1234567"_s};
}

void tst_SearchFormLists::recentEntriesOfAType()
{
    QFETCH(int, type);
    QFETCH(QByteArray, box);
    QFETCH(QStringList, entries);
    user->GoTo({Federal, type, 1, 5, false});
    QVERIFY(user->Find(box.constData())->isVisible());
    QCOMPARE(user->Text("lblMruList"), u"Most Recently Used List:"_s);
    QCOMPARE(user->ComboItems(box.constData()), entries);
    if (type == 0)
        return;
    // What is not a person's goes whole into the first box.
    choose(box.constData(), entries.first());
    QCOMPARE(user->Box(0)->text(), entries.first());
    QCOMPARE(user->Box(1)->text(), QString());
}

void tst_SearchFormLists::recentEntriesAreNotOfferedWithoutTheSetting()
{
    Global.bEnableMRU = false;
    for (const char *type : {"optSearchType_1", "optSearchType_2", "optSearchType_0"}) {
        user->Click(type);
        for (const char *control : {"lblMruList", "cboxLastBizOrCase", "cboxCaseMRUs"})
            QVERIFY(!user->Find(control)->isVisible());
        QVERIFY(!user->Box(0)->completer());
    }
}

void tst_SearchFormLists::choosingARecentPerson_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("boxes");
    QTest::newRow("three parts") << u"SMITH, JOHN, Q"_s
                                 << QStringList{u"SMITH"_s, u"JOHN"_s, u"Q"_s};
    QTest::newRow("two parts") << u"DOE, JANE"_s << QStringList{u"DOE"_s, u"JANE"_s, QString()};
    QTest::newRow("one part") << u"MADONNA"_s << QStringList{u"MADONNA"_s, QString(), QString()};
}

void tst_SearchFormLists::choosingARecentPerson()
{
    QFETCH(QString, entry);
    QFETCH(QStringList, boxes);
    for (int i = 0; i < 4; ++i)
        user->Box(i)->setText(u"X"_s);
    choose("cboxLastBizOrCase", entry);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(user->Box(i)->text(), boxes[i]);
    QCOMPARE(user->Box(3)->text(), u"X"_s);
}

void tst_SearchFormLists::typingOffersRecentEntries()
{
    QLineEdit *box = user->Box(0);
    QVERIFY(box->completer());
    QTest::keyClicks(box, u"smi"_s);
    QCOMPARE(box->completer()->completionCount(), 1);
    QAbstractItemView *popup = box->completer()->popup();
    QTRY_VERIFY(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    QTRY_COMPARE(box->text(), u"SMITH"_s);
    QCOMPARE(user->Box(1)->text(), u"JOHN"_s);
    QCOMPARE(user->Box(2)->text(), u"Q"_s);
}

void tst_SearchFormLists::socialSecurityNumbersAreNeverOffered()
{
    user->GoTo({Federal, 4, 1, 5, false});
    QVERIFY(!user->Find("lblMruList")->isVisible());
    QVERIFY(!user->Box(0)->completer());
}

// ---- templates ----

void tst_SearchFormLists::aTemplateSelectsItsCountiesAndCaseTypes()
{
    user->ClickRow("lboxCountyOrProfile", 0);
    user->ClickRow("lboxCaseTypes", 1);
    user->Click("optSearchWhere_1");
    QCOMPARE(user->Items("lboxSearchProfiles"), (QStringList{u"Sound"_s, u"Far"_s, u"Empty"_s}));
    user->DoubleClickRow("lboxSearchProfiles", 0);
    QCOMPARE(user->Differences({Superior, 0, 2, 5, false}, true), QString());
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), (QStringList{u"King"_s, u"Pierce"_s}));
    QCOMPARE(user->Ticked("lboxCaseTypes"), (QStringList{u"Civil"_s, u"Probate"_s}));
    QCOMPARE(user->Text("lblCountyOrProfile"), templateLoaded);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(2));
    // One may still add to it.
    QVERIFY(user->Find("lboxCountyOrProfile")->isEnabled());
    QVERIFY(user->Find("lboxCountyOrProfile")->hasFocus());
}

void tst_SearchFormLists::enterAppliesATemplateAndStartsNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void tst_SearchFormLists::enterAppliesATemplateAndStartsNothing()
{
    QFETCH(int, key);
    QSignalSpy pressed(user->Button("cmdBeginSearch"), &QAbstractButton::clicked);
    user->Click("optSearchWhere_1");
    auto *list = user->Find<QListWidget>("lboxSearchProfiles");
    list->setFocus();
    list->setCurrentRow(0);
    QTest::keyClick(list, static_cast<Qt::Key>(key));
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), (QStringList{u"King"_s, u"Pierce"_s}));
    QCOMPARE(user->Ticked("lboxCaseTypes"), (QStringList{u"Civil"_s, u"Probate"_s}));
    QCOMPARE(user->Text("lblCountyOrProfile"), templateLoaded);
    QCOMPARE(pressed.size(), 0);
    // In the list of counties, where the focus is now, it starts the search as everywhere.
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QCOMPARE(pressed.size(), 1);
}

void tst_SearchFormLists::aTemplateThatNamesACountyNoLongerThereSelectsTheRest()
{
    user->Desk.Folder.Write(u"templates.ini"_s,
                            "[WaSup]\r\na=Old\r\n[Old]\r\nJuris=Atlantis,Yakima\r\nCases=Tea\r\n");
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 0);
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList{u"Yakima"_s});
    QCOMPARE(user->Ticked("lboxCaseTypes"), QStringList());
}

void tst_SearchFormLists::aTemplateOfAnotherStateSelectsNoCounty()
{
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 1);
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList());
    user->Click("optState_0");
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 1);
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), (QStringList{u"Lane"_s, u"Multnomah"_s}));
    QCOMPARE(user->Ticked("lboxCaseTypes"), QStringList{u"Offense"_s});
}

void tst_SearchFormLists::aTemplateWithoutASectionClearsTheChoice()
{
    user->Click("cmdCheckAll");
    user->Click("cmdSelAll");
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 2);
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList());
    QCOMPARE(user->Ticked("lboxCaseTypes"), QStringList());
}

void tst_SearchFormLists::theTemplateListComesBackByItsButton()
{
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 0);
    QVERIFY(!user->Find("lboxSearchProfiles")->isVisible());
    user->Click("optSearchWhere_1");
    QCOMPARE(user->Differences({Superior, 0, 2, 5, false}), QString());
}

void tst_SearchFormLists::aSecondTemplateTakesThePlaceOfTheFirst()
{
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 0);
    user->Click("optSearchWhere_1");
    user->DoubleClickRow("lboxSearchProfiles", 2);
    QCOMPARE(user->Ticked("lboxCountyOrProfile"), QStringList());
    QCOMPARE(user->Text("lblCountyOrProfile"), templateLoaded);
}

HALVANE_TEST(tst_SearchFormLists)
#include "tst_SearchFormLists.moc"
