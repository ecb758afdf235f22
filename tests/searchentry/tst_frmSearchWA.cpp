#include "controls/CheckListBox.h"
#include "controls/SearchTextBox.h"
#include "core/GlobalState.h"
#include "courts/Counties.h"
#include "namesearch/SearchDesk.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace {
struct Control
{
    const char *name;
    QString caption;
    bool enabled;
    bool checked;
};

/// Every button of the form: what it says, and what it is when the form opens.
const QList<Control> &buttons()
{
    static const QList<Control> all{
        {"optState_0", u"Oregon"_s, true, false},
        {"optState_1", u"Washington"_s, true, true},
        {"optState_2", u"U.S. Courts"_s, true, false},
        {"optState_3", u"Idaho"_s, true, false},
        {"optCourtSelection_0", u"Superior Courts"_s, true, true},
        {"optCourtSelection_1", u"District && Municipal  Courts"_s, true, false},
        {"optSearchType_0", u"By Person Name"_s, true, true},
        {"optSearchType_1", u"By Business Name"_s, true, false},
        {"optSearchType_2", u"By Number"_s, true, false},
        {"optSearchType_3", u"By Tax ID or UBI #"_s, true, false},
        {"optSearchType_4", u"By SSN #"_s, true, false},
        {"chkUseIndex", u"Use Index (Updated Weekly)"_s, true, false},
        {"chkBulkSearch", u"Batch Entry"_s, true, false},
        {"optSearchWhere_0", u"By &County(s)"_s, true, true},
        {"optSearchWhere_1", u"Use Search Profile"_s, true, false},
        {"optSearchWhere_2", u"State&wide (39 Counties)"_s, true, false},
        {"cmdCheckAll", u"Select All"_s, true, false},
        {"cmdUnCheckAll", u"Clear All"_s, true, false},
        {"cmdSelAll", u"Select All"_s, true, false},
        {"cmdClrAll", u"Clear All"_s, true, false},
        {"optSearchYears_0", u"All Available"_s, true, true},
        {"optSearchYears_1", u"Range"_s, true, false},
        {"optCourtSelection_2", u"Federal Bankruptcy Courts"_s, true, false},
        {"optCourtSelection_3", u"Federal District Courts"_s, true, false},
        {"optCourtSelection_4", u"Idaho Supreme Courts"_s, true, false},
        {"optOrCDcourts_0", u"Circuit  Court"_s, true, true},
        {"optOrCDcourts_1", u"District Court"_s, true, false},
        {"optDiscisSearch_0", u"Civil "_s, true, true},
        {"optDiscisSearch_1", u"Non-Civil"_s, true, false},
        {"cmdSelectAllCourts", u"Select All"_s, true, false},
        {"cmdClearCourtList", u"Clear All"_s, true, false},
        {"chkBKcourt_0", u"Washington (Western)"_s, true, false},
        {"chkBKcourt_1", u"Washington (Eastern )"_s, true, false},
        {"chkBKcourt_2", u"Oregon (Statewide)"_s, true, false},
        {"chkBKcourt_3", u"Idaho (Statewide)"_s, true, false},
        {"cmdSelBk_0", u"Select All"_s, true, false},
        {"cmdSelBk_1", u"Clear All"_s, true, false},
        {"optSearchYears1_0", u"All Available"_s, true, true},
        {"optSearchYears1_1", u"Range"_s, true, false},
        {"cmdBatchSearch_0", u"Retrieve and Print All"_s, true, false},
        {"cmdBatchSearch_1", u"Set All Counties to Same as #1"_s, true, false},
        {"cmdBatchSearch_2", u"Reset/Clear"_s, true, false},
        {"cmdBatchSearch_3", u"Set Default County to Same as #1"_s, true, false},
        {"cmdBatchSearch_4", u"Retrieve (selective print)"_s, true, false},
        {"cmdBeginSearch", u"Start &Search"_s, true, false},
        {"cmdClearForm", u"Clea&r Form"_s, true, false},
        {"cmdCancel", u"Ca&ncel"_s, true, false},
        {"cmdAddToProfiles", u"Search &Template Mgr."_s, false, false},
        {"cmdEditAcctID", u"Enter/Change Client ID"_s, false, false},
    };
    return all;
}

const QStringList caseTypes{u"Civil"_s,    u"Criminal"_s,          u"Domestic"_s,
                            u"Judgment"_s, u"Juvenile Offender"_s, u"Probate"_s};
} // namespace

class tst_frmSearchWA : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void buttonsSayWhatTheyDo_data();
    void buttonsSayWhatTheyDo();
    void stepsAreNumbered_data();
    void stepsAreNumbered();
    void openingSetsTheSharedState();
    void openingFillsTheLists();
    void openingPutsTheCursorInTheFirstNameBox();
    void yearsRunFrom1970ToThisYear();
    void yearsAreOpenForARangeOnly();
    void personNameLabels();
    void businessNameShowsOneBox();
    void changingTheSearchTypeEmptiesTheBoxes_data();
    void changingTheSearchTypeEmptiesTheBoxes();
    void aSecondClickOnTheChosenOneKeepsTheEntries();
    void changingTheSearchTypeKeepsTheScope();
    void changingTheSearchTypeReloadsTheCaseTypes();
    void statewideShowsTheOneItem();
    void byCountyShowsTheCountiesAgain();
    void selectAllAndClearAllCounties();
    void selectAllAndClearAllCaseTypes();
    void oneCountyIsTickedByAClickAndByTheSpaceBar();
    void clearFormGoesBackToAPersonSearch();
    void cancelUnloadsTheForm();
    void aReloadedFormIsEmpty();
    void hiddenFormKeepsWhatWasEntered();
    void escapeCancels();
    void enterStarts_data();
    void enterStarts();
    void labelsLeadToTheirControls();
    void reservedCharactersCannotBeEntered_data();
    void reservedCharactersCannotBeEntered();
    void reservedCharactersCannotBePasted();
    void entriesHaveALimit();
    void selectingAStateThatIsUnknownChangesNothing_data();
    void selectingAStateThatIsUnknownChangesNothing();
    void selectingTheFirstCourt();
    void serverTextLikeHtmlStaysText();

private:
    template<typename Widget = QWidget>
    Widget *find(const char *name) const
    {
        return form->findChild<Widget *>(QLatin1StringView(name));
    }
    QLineEdit *box(int i) const
    {
        return form->findChild<QLineEdit *>(u"txtSearchName_"_s + QString::number(i));
    }
    void click(const char *name) const
    {
        QTest::mouseClick(find(name), Qt::LeftButton, {}, {10, find(name)->height() / 2});
    }
    QStringList items(const char *list) const;

    std::unique_ptr<SearchDesk> desk;
    QPointer<frmSearchWA> form;
};

void tst_frmSearchWA::init()
{
    desk = std::make_unique<SearchDesk>();
    frmSearchWA::ShowForm();
    form = &frmSearchWA::Form();
}

void tst_frmSearchWA::cleanup()
{
    if (frmSearchWA::IsLoaded())
        frmSearchWA::Form().Unload();
    QCOMPARE(EndDialogue(desk), QString());
}

QStringList tst_frmSearchWA::items(const char *list) const
{
    const auto *widget = find<QListWidget>(list);
    QStringList texts;
    for (int i = 0; i < widget->count(); ++i)
        texts.append(widget->item(i)->text());
    return texts;
}

void tst_frmSearchWA::buttonsSayWhatTheyDo_data()
{
    QTest::addColumn<int>("row");
    for (int i = 0; i < buttons().size(); ++i)
        QTest::newRow(buttons()[i].name) << i;
}

void tst_frmSearchWA::buttonsSayWhatTheyDo()
{
    QFETCH(int, row);
    const Control &expected = buttons()[row];
    const auto *button = find<QAbstractButton>(expected.name);
    QVERIFY(button);
    QCOMPARE(button->text(), expected.caption);
    QCOMPARE(button->isEnabled(), expected.enabled);
    QCOMPARE(button->isChecked(), expected.checked);
}

void tst_frmSearchWA::stepsAreNumbered_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("title");
    QTest::newRow("jurisdiction") << QByteArray("Frame7") << u" STEP 1:   Select Jurisdiction"_s;
    QTest::newRow("search type") << QByteArray("Frame1") << u" STEP 2:   Select Search Type"_s;
    QTest::newRow("name") << QByteArray("Frame2") << u" STEP 3:   Enter Name"_s;
    QTest::newRow("counties") << QByteArray("Frame11") << u" STEP 4:   Select  Jurisdiction(s)"_s;
    QTest::newRow("case types") << QByteArray("Frame4") << u" STEP 5:   Select Case Type(s)"_s;
    QTest::newRow("years") << QByteArray("Frame5") << u" STEP 6:    Search Years"_s;
    QTest::newRow("batch") << QByteArray("frameBulkSearch")
                           << u" STEP 3:   Enter up to 10 Numbers and Counties to Search."_s;
    QTest::newRow("county of a number")
        << QByteArray("Frame12") << u" STEP 4:   Select a Jurisdiction"_s;
    QTest::newRow("civil or not") << QByteArray("Frame8") << u" STEP 4:   Select Case Type"_s;
    QTest::newRow("courts") << QByteArray("Frame9") << u" STEP 5:   Select Court(s)"_s;
    QTest::newRow("bankruptcy courts")
        << QByteArray("frameBK1") << u" STEP 4:   Select Bankruptcy Court(s) to Search"_s;
    QTest::newRow("bankruptcy years") << QByteArray("frameBK2") << u" STEP 5:   Search Years"_s;
}

void tst_frmSearchWA::stepsAreNumbered()
{
    QFETCH(QByteArray, frame);
    const auto *group = find<QGroupBox>(frame.constData());
    QVERIFY(group);
    QTEST(group->title(), "title");
}

void tst_frmSearchWA::openingSetsTheSharedState()
{
    QCOMPARE(Global.strSearchState, u"WA"_s);
    QCOMPARE(frmSearchWA::Form().strCurrentCourt, u"WASUP"_s);
    QCOMPARE(frmSearchWA::Form().strCurrentSearchType, u"Individual Name"_s);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    QCOMPARE(form->windowTitle(), u"Search Entry Form - WA. Superior Courts"_s);
    QCOMPARE(TextOf(form, "lblCurrentCourt"), u"[Current Court  -  WA Superior]"_s);
    QCOMPARE(TextOf(form, "lblCountyOrProfile"), u"Select County (multiple selections allowed):"_s);
}

void tst_frmSearchWA::openingFillsTheLists()
{
    QCOMPARE(items("lboxCountyOrProfile"), WaCountyNames());
    QCOMPARE(items("lboxCountyOrProfile").size(), 39);
    QCOMPARE(items("lboxCaseTypes"), caseTypes);
    QCOMPARE(find<CheckListBox>("lboxCountyOrProfile")->Selected(), QStringList());
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), QStringList());
    for (int i = 0; i < 4; ++i)
        QCOMPARE(box(i)->text(), QString());
}

void tst_frmSearchWA::openingPutsTheCursorInTheFirstNameBox()
{
    QVERIFY(QTest::qWaitForWindowActive(form));
    QVERIFY(box(0)->hasFocus());
}

void tst_frmSearchWA::yearsRunFrom1970ToThisYear()
{
    const auto *from = find<QComboBox>("cboxSearchStartYear");
    const auto *to = find<QComboBox>("cboxSearchEndYear");
    for (const QComboBox *years : {from, to}) {
        QCOMPARE(years->count(), 2026 - 1970 + 1);
        QCOMPARE(years->itemText(0), u"1970"_s);
        QCOMPARE(years->itemText(years->count() - 1), u"2026"_s);
    }
    QCOMPARE(from->currentText(), u"1970"_s);
    QCOMPARE(to->currentText(), u"2026"_s);
}

void tst_frmSearchWA::yearsAreOpenForARangeOnly()
{
    const QList<const char *> controls{"cboxSearchStartYear", "cboxSearchEndYear",
                                       "lblSearchStartYear", "lblSearchEndYear"};
    for (const char *control : controls)
        QVERIFY(!find(control)->isEnabled());
    click("optSearchYears_1");
    for (const char *control : controls)
        QVERIFY(find(control)->isEnabled());
    click("optSearchYears_0");
    for (const char *control : controls)
        QVERIFY(!find(control)->isEnabled());
}

void tst_frmSearchWA::personNameLabels()
{
    click("optSearchType_1");
    click("optSearchType_0");
    QCOMPARE(frmSearchWA::Form().strCurrentSearchType, u"Individual Name"_s);
    QCOMPARE(TextOf(form, "lblNameSearchLastName"), u"Last Name:"_s);
    QCOMPARE(TextOf(form, "lblNameSearchFirstName"), u"First Name:"_s);
    QCOMPARE(TextOf(form, "lblNameSearchMI"), u"M.I.:"_s);
    QCOMPARE(TextOf(form, "lblNameSearchSuffix"), u"Suffix (Jr. etc.):"_s);
    QCOMPARE(find<QGroupBox>("Frame2")->title(), u" STEP 3:   Enter Name"_s);
    for (int i = 0; i < 4; ++i)
        QVERIFY(box(i)->isVisible());
}

void tst_frmSearchWA::businessNameShowsOneBox()
{
    click("optSearchType_1");
    QCOMPARE(frmSearchWA::Form().strCurrentSearchType, u"Business Name"_s);
    QCOMPARE(TextOf(form, "lblNameSearchLastName"), u"Business Name:"_s);
    QCOMPARE(TextOf(form, "lblNameSearchFirstName"), QString());
    QCOMPARE(TextOf(form, "lblNameSearchMI"), QString());
    QCOMPARE(TextOf(form, "lblNameSearchSuffix"), QString());
    QCOMPARE(find<QGroupBox>("Frame2")->title(), u" STEP 3:   Enter Business Name"_s);
    QVERIFY(box(0)->isVisible());
    for (int i = 1; i < 4; ++i)
        QVERIFY(!box(i)->isVisible());
}

void tst_frmSearchWA::changingTheSearchTypeEmptiesTheBoxes_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");
    QTest::newRow("to a business")
        << QByteArray("optSearchType_0") << QByteArray("optSearchType_1");
    QTest::newRow("to a person") << QByteArray("optSearchType_1") << QByteArray("optSearchType_0");
}

void tst_frmSearchWA::changingTheSearchTypeEmptiesTheBoxes()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);
    click(first.constData());
    for (int i = 0; i < 4; ++i)
        box(i)->setText(u"X"_s);
    click(second.constData());
    for (int i = 0; i < 4; ++i)
        QCOMPARE(box(i)->text(), QString());
}

void tst_frmSearchWA::aSecondClickOnTheChosenOneKeepsTheEntries()
{
    box(0)->setText(u"X"_s);
    click("optSearchType_0");
    click("optState_1");
    click("optSearchWhere_0");
    QCOMPARE(box(0)->text(), u"X"_s);
}

void tst_frmSearchWA::changingTheSearchTypeKeepsTheScope()
{
    click("optSearchWhere_2");
    click("optSearchType_1");
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(3));
    QCOMPARE(items("lboxCountyOrProfile"), QStringList{u"(Statewide)"_s});
}

void tst_frmSearchWA::changingTheSearchTypeReloadsTheCaseTypes()
{
    click("cmdSelAll");
    click("optSearchType_1");
    QCOMPARE(items("lboxCaseTypes"), caseTypes);
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), QStringList());
}

void tst_frmSearchWA::statewideShowsTheOneItem()
{
    click("optSearchWhere_2");
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(3));
    QCOMPARE(TextOf(form, "lblCountyOrProfile"), u"Select County (Statewide Selected):"_s);
    QCOMPARE(items("lboxCountyOrProfile"), QStringList{u"(Statewide)"_s});
}

void tst_frmSearchWA::byCountyShowsTheCountiesAgain()
{
    click("optSearchWhere_2");
    click("optSearchWhere_0");
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    QCOMPARE(TextOf(form, "lblCountyOrProfile"), u"Select County (multiple selections allowed):"_s);
    QCOMPARE(items("lboxCountyOrProfile"), WaCountyNames());
    QCOMPARE(find<CheckListBox>("lboxCountyOrProfile")->Selected(), QStringList());
    QVERIFY(find("lboxCountyOrProfile")->isEnabled());
    QVERIFY(find("cmdCheckAll")->isEnabled());
    QVERIFY(find("cmdUnCheckAll")->isEnabled());
}

void tst_frmSearchWA::selectAllAndClearAllCounties()
{
    click("cmdCheckAll");
    QCOMPARE(find<CheckListBox>("lboxCountyOrProfile")->Selected(), WaCountyNames());
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), QStringList());
    click("cmdUnCheckAll");
    QCOMPARE(find<CheckListBox>("lboxCountyOrProfile")->Selected(), QStringList());
}

void tst_frmSearchWA::selectAllAndClearAllCaseTypes()
{
    click("cmdSelAll");
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), caseTypes);
    QCOMPARE(find<CheckListBox>("lboxCountyOrProfile")->Selected(), QStringList());
    click("cmdClrAll");
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), QStringList());
}

void tst_frmSearchWA::oneCountyIsTickedByAClickAndByTheSpaceBar()
{
    auto *list = find<CheckListBox>("lboxCountyOrProfile");
    const QPoint first = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    QCOMPARE(list->Selected(), QStringList{u"Adams"_s});
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first);
    QCOMPARE(list->Selected(), QStringList());
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    QCOMPARE(list->Selected(), QStringList{u"Asotin"_s});
}

void tst_frmSearchWA::clearFormGoesBackToAPersonSearch()
{
    click("optSearchType_1");
    QTest::keyClicks(box(0), u"Acme"_s);
    click("optSearchWhere_2");
    click("cmdSelAll");
    click("optSearchYears_1");
    find<QComboBox>("cboxSearchStartYear")->setCurrentText(u"1990"_s);
    click("cmdClearForm");
    QVERIFY(find<QRadioButton>("optSearchType_0")->isChecked());
    QVERIFY(find<QRadioButton>("optSearchWhere_0")->isChecked());
    QVERIFY(find<QRadioButton>("optSearchYears_0")->isChecked());
    QCOMPARE(frmSearchWA::Form().strCurrentSearchType, u"Individual Name"_s);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(box(i)->text(), QString());
        QVERIFY(box(i)->isVisible());
    }
    QCOMPARE(items("lboxCountyOrProfile"), WaCountyNames());
    QCOMPARE(find<CheckListBox>("lboxCaseTypes")->Selected(), QStringList());
    QCOMPARE(find<QComboBox>("cboxSearchStartYear")->currentText(), u"1970"_s);
    QCOMPARE(find<QComboBox>("cboxSearchEndYear")->currentText(), u"2026"_s);
    QVERIFY(!find("cboxSearchStartYear")->isEnabled());
}

void tst_frmSearchWA::cancelUnloadsTheForm()
{
    click("cmdCancel");
    QVERIFY(!frmSearchWA::IsLoaded());
    QTRY_VERIFY(form.isNull());
}

void tst_frmSearchWA::aReloadedFormIsEmpty()
{
    box(0)->setText(u"SMITH"_s);
    click("optSearchWhere_2");
    click("cmdCancel");
    frmSearchWA::ShowForm();
    form = &frmSearchWA::Form();
    QCOMPARE(box(0)->text(), QString());
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    QVERIFY(form->isVisible());
}

void tst_frmSearchWA::hiddenFormKeepsWhatWasEntered()
{
    box(0)->setText(u"SMITH"_s);
    frmSearchWA::HideForm();
    QVERIFY(!form->isVisible());
    QVERIFY(frmSearchWA::IsLoaded());
    frmSearchWA::ShowForm();
    QVERIFY(form->isVisible());
    QCOMPARE(box(0)->text(), u"SMITH"_s);
}

void tst_frmSearchWA::escapeCancels()
{
    QTest::keyClick(box(0), Qt::Key_Escape);
    QVERIFY(!frmSearchWA::IsLoaded());
}

void tst_frmSearchWA::enterStarts_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Enter") << int(Qt::Key_Enter);
}

void tst_frmSearchWA::enterStarts()
{
    QFETCH(int, key);
    QStringList refused;
    connect(&SearchEvents::Of(), &SearchEvents::FieldErrorRaised, form,
            [&refused](const QString &what) { refused.append(what); });
    QTest::keyClick(box(0), static_cast<Qt::Key>(key));
    QCOMPARE(refused, QStringList{u"The LAST NAME Field Is Empty!"_s});
}

void tst_frmSearchWA::labelsLeadToTheirControls()
{
    QCOMPARE(find<QLabel>("lblNameSearchLastName")->buddy(), box(0));
    QCOMPARE(find<QLabel>("lblNameSearchFirstName")->buddy(), box(1));
    QCOMPARE(find<QLabel>("lblNameSearchMI")->buddy(), box(2));
    QCOMPARE(find<QLabel>("lblNameSearchSuffix")->buddy(), box(3));
    QCOMPARE(find<QLabel>("lblCountyOrProfile")->buddy(), find("lboxCountyOrProfile"));
    QCOMPARE(find<QLabel>("lblSearchStartYear")->buddy(), find("cboxSearchStartYear"));
    QCOMPARE(find<QLabel>("lblSearchEndYear")->buddy(), find("cboxSearchEndYear"));
}

void tst_frmSearchWA::reservedCharactersCannotBeEntered_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 4; ++i)
        QTest::addRow("box %d", i) << i;
}

void tst_frmSearchWA::reservedCharactersCannotBeEntered()
{
    QFETCH(int, index);
    QTest::keyClicks(box(index), u"A|B¦C~D"_s);
    QCOMPARE(box(index)->text(), u"ABC~D"_s);
}

void tst_frmSearchWA::reservedCharactersCannotBePasted()
{
    QGuiApplication::clipboard()->setText(u"O'NEIL|STOP¦\r\nX\tY"_s);
    box(0)->paste();
    QCOMPARE(box(0)->text().contains(u'|'), false);
    QCOMPARE(box(0)->text().contains(u'¦'), false);
    QVERIFY(box(0)->text().startsWith(u"O'NEILSTOP"));
    QVERIFY(!box(0)->text().contains(u'\n') && !box(0)->text().contains(u'\t'));
}

void tst_frmSearchWA::entriesHaveALimit()
{
    for (int i = 0; i < 4; ++i)
        QCOMPARE(box(i)->maxLength(), SearchTextBox::longestEntry);
}

void tst_frmSearchWA::selectingAStateThatIsUnknownChangesNothing_data()
{
    QTest::addColumn<QString>("state");
    QTest::newRow("none") << QString();
    QTest::newRow("another state") << u"NV"_s;
    QTest::newRow("lower case") << u"wa"_s;
    QTest::newRow("the words of the setting") << u"WA - Washington"_s;
}

void tst_frmSearchWA::selectingAStateThatIsUnknownChangesNothing()
{
    QFETCH(QString, state);
    click("optSearchWhere_2");
    form->SelectState(state);
    QVERIFY(find<QRadioButton>("optState_1")->isChecked());
    QCOMPARE(Global.strSearchState, u"WA"_s);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(3));
}

void tst_frmSearchWA::selectingTheFirstCourt()
{
    click("optSearchWhere_2");
    frmSearchWA::Form().strCurrentCourt = u"OR"_s;
    form->SelectFirstCourt();
    QCOMPARE(frmSearchWA::Form().strCurrentCourt, u"WASUP"_s);
    QCOMPARE(frmSearchWA::Form().intSearchWhere, qint16(1));
    QVERIFY(find<QRadioButton>("optCourtSelection_0")->isChecked());
    QCOMPARE(form->windowTitle(), u"Search Entry Form - WA. Superior Courts"_s);
}

void tst_frmSearchWA::serverTextLikeHtmlStaysText()
{
    const QList<QLabel *> labels = form->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

HALVANE_TEST(tst_frmSearchWA)
#include "tst_frmSearchWA.moc"
