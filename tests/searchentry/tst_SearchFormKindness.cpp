// The search form under the hand: the keys reach everything in each state, and nothing is cut.

#include "searchentry/SearchFormUser.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {
struct Box
{
    QStringView text;
    QStringView title;
};
/// What the U.S. Courts say of an empty box, by search type.
constexpr std::array<Box, 3> boxes{{
    {u"The LAST NAME Field Is Empty! Please enter a Last Name.",
     u"Halvane - Search Entry Form Field Error.."},
    {u"The BUSINESS NAME Field Is Empty! Please enter a NAME.", u"Halvane"},
    {u"The NUMBER Field Is Empty! Please enter a NUMBER to continue.",
     u"Halvane - Invalid Number Entered. Verify Number.."},
}};

constexpr std::array<const char *, 14> stepsInOrder{
    "Frame7", "Frame1",   "Frame2", "frameBulkSearch", "Frame11",  "Frame12", "Frame8",
    "Frame9", "frameBK1", "Frame4", "Frame5",          "frameBK2", "Frame6",  "Frame10"};

/// Whether Tab stops here: of a group of radio buttons only at the chosen one.
bool isTabStop(const QWidget *widget)
{
    if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus))
        return false;
    const auto *radio = qobject_cast<const QRadioButton *>(widget);
    if (!radio || radio->isChecked())
        return true;
    const QList<QRadioButton *> group =
        radio->parentWidget()->findChildren<QRadioButton *>(QString(), Qt::FindDirectChildrenOnly);
    return std::none_of(group.begin(), group.end(),
                        [](const QRadioButton *one) { return one->isChecked(); })
           && group.first() == radio;
}
} // namespace

class tst_SearchFormKindness : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void cleanupTestCase() { user.reset(); }

    void tabReachesEverythingInReadingOrder_data() { rowsOfPlaces(); }
    void tabReachesEverythingInReadingOrder();
    void labelsLeadToControlsThatAreThere_data() { rowsOfPlaces(); }
    void labelsLeadToControlsThatAreThere();
    void mnemonicsAreOneOfAKind_data() { rowsOfPlaces(); }
    void mnemonicsAreOneOfAKind();
    void mnemonics_data();
    void mnemonics();
    void enterStarts_data() { rowsOfPlaces(); }
    void enterStarts();
    void escapeCancels_data() { rowsOfPlaces(); }
    void escapeCancels();
    void enterInABatchGoesOnToTheNextNumber();
    void theFocusNeverGetsLost_data() { rowsOfPlaces(); }
    void theFocusNeverGetsLost();
    void nothingIsCutAtTheSmallestSize_data() { rowsOfPlaces(); }
    void nothingIsCutAtTheSmallestSize();
    void theWindowKeepsItsSize();
    void clearFormInEveryState_data() { rowsOfPlaces(); }
    void clearFormInEveryState();
    void cancelInEveryState_data() { rowsOfPlaces(); }
    void cancelInEveryState();
    void helpLinks_data();
    void helpLinks();

private:
    void rowsOfPlaces() const;
    Place goToPlaceOfRow() const;

    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormKindness::init()
{
    // One form for all rows that leave it open: hundreds of application folders take their time.
    if (!user || !frmSearchWA::IsLoaded()) {
        user.reset();
        user = std::make_unique<SearchFormUser>();
    }
    user->GoTo({});
    user->Press("cmdClearForm");
}

void tst_SearchFormKindness::cleanup()
{
    const QString complaints = user->Complaints();
    if (QTest::currentTestFailed() || !complaints.isEmpty())
        user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormKindness::rowsOfPlaces() const
{
    QTest::addColumn<int>("index");
    const QList<Place> places = AllPlaces();
    for (int i = 0; i < places.size(); ++i)
        QTest::newRow(NameOf(places[i]).constData()) << i;
}

Place tst_SearchFormKindness::goToPlaceOfRow() const
{
    QFETCH(int, index);
    const Place place = AllPlaces()[index];
    user->GoTo(place);
    return place;
}

void tst_SearchFormKindness::tabReachesEverythingInReadingOrder()
{
    goToPlaceOfRow();
    const QList<QWidget *> all = user->Form->findChildren<QWidget *>();
    QStringList expected;
    for (const QWidget *widget : all) {
        if (isTabStop(widget))
            expected.append(widget->objectName());
    }
    expected.sort();
    QStringList visited;
    QList<int> steps;
    user->Find("lstJurisdictions")->setFocus();
    do {
        const QWidget *here = QApplication::focusWidget();
        QVERIFY(here);
        visited.append(here->objectName());
        for (size_t i = 0; i < stepsInOrder.size(); ++i) {
            if (user->Find(stepsInOrder[i])->isAncestorOf(here))
                steps.append(static_cast<int>(i));
        }
        QTest::keyClick(user->Form->windowHandle(), Qt::Key_Tab);
    } while (QApplication::focusWidget()->objectName() != visited.first() && visited.size() < 200);
    // From the first step through all of them, and round to the first again.
    const auto round = std::find(steps.begin() + 1, steps.end(), 0);
    const auto turn = std::adjacent_find(steps.begin(), steps.end(), std::greater<>());
    QVERIFY2(turn == steps.end() || turn + 1 == std::find(turn, steps.end(), 0),
             qPrintable(visited.join(u' ')));
    QVERIFY(round == steps.end() || std::is_sorted(steps.begin(), turn + 1));
    visited.sort();
    QCOMPARE(visited, expected);
}

void tst_SearchFormKindness::labelsLeadToControlsThatAreThere()
{
    goToPlaceOfRow();
    const QList<QLabel *> labels = user->Form->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && label->buddy())
            QVERIFY2(label->buddy()->isVisible(), qPrintable(label->objectName()));
    }
    // A box is named by its label, or by a name of its own for those who hear the form.
    const QList<QWidget *> boxes = user->Form->findChildren<QWidget *>();
    for (const QWidget *box : boxes) {
        const bool entry = qobject_cast<const QLineEdit *>(box)
                           || qobject_cast<const QComboBox *>(box)
                           || qobject_cast<const QListWidget *>(box);
        if (!entry || !box->isVisible())
            continue;
        const bool labelled = std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
            return label->isVisible() && label->buddy() == box;
        });
        QVERIFY2(labelled || !box->accessibleName().isEmpty(), qPrintable(box->objectName()));
    }
}

void tst_SearchFormKindness::mnemonicsAreOneOfAKind()
{
    goToPlaceOfRow();
    QMap<QString, QString> keys;
    const QList<QAbstractButton *> buttons = user->Form->findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons) {
        const QString key = QKeySequence::mnemonic(button->text()).toString();
        if (!button->isVisible() || key.isEmpty())
            continue;
        QVERIFY2(!keys.contains(key),
                 qPrintable(key + u" is "_s + keys.value(key) + u" and "_s + button->text()));
        keys.insert(key, button->text());
    }
    QVERIFY(keys.contains(u"Alt+S"_s));
}

void tst_SearchFormKindness::mnemonics_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("statewide") << int(Qt::Key_W) << QByteArray("optSearchWhere_2");
    QTest::newRow("by county") << int(Qt::Key_C) << QByteArray("optSearchWhere_0");
}

void tst_SearchFormKindness::mnemonics()
{
    QFETCH(int, key);
    QFETCH(QByteArray, button);
    user->Click(button == "optSearchWhere_0" ? "optSearchWhere_2" : "optSearchWhere_0");
    QTest::keyClick(user->Box(0), static_cast<Qt::Key>(key), Qt::AltModifier);
    QVERIFY(user->Button(button)->isChecked());
    QCOMPARE(user->Box(0)->text(), QString());
}

void tst_SearchFormKindness::enterStarts()
{
    const Place place = goToPlaceOfRow();
    const QSignalSpy refused(&SearchEvents::Of(), &SearchEvents::FieldErrorRaised);
    // The U.S. Courts refuse names and numbers in a box.
    const bool inABox = place.Court == Federal && place.Type < 3;
    for (int i = 0; inABox && i < 2; ++i)
        user->Desk.Boxes.Expect(boxes[static_cast<size_t>(place.Type)].text.toString(),
                                boxes[static_cast<size_t>(place.Type)].title.toString());
    QWidget *box = place.Batch ? user->BatchBox(0) : user->Box(0);
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClick(user->Find("lstJurisdictions"), Qt::Key_Enter);
    // A batch has buttons of its own.
    QCOMPARE(refused.size(), place.Batch || inABox ? 0 : 2);
}

void tst_SearchFormKindness::escapeCancels()
{
    const Place place = goToPlaceOfRow();
    QTest::keyClick(place.Batch ? user->BatchBox(9) : user->Box(0), Qt::Key_Escape);
    QVERIFY(!frmSearchWA::IsLoaded());
}

void tst_SearchFormKindness::enterInABatchGoesOnToTheNextNumber()
{
    user->GoTo({Idaho, 2, 1, 5, true});
    user->BatchBox(0)->setFocus();
    for (int i = 1; i < 10; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), user->BatchBox(i));
    }
}

void tst_SearchFormKindness::theFocusNeverGetsLost()
{
    const Place place = goToPlaceOfRow();
    const QList<Place> places = AllPlaces();
    for (const Place &to : places) {
        // The scope moves nothing that could have the focus here.
        if (to.Where != 1 || to.DiscisWhere != 5)
            continue;
        user->GoTo(place);
        QWidget *box = place.Batch ? user->BatchBox(4) : user->Box(0);
        box->setFocus();
        user->GoTo(to);
        const QWidget *focused = QApplication::focusWidget();
        QVERIFY(focused);
        QVERIFY2(focused->isVisible() && user->Form->isAncestorOf(focused), NameOf(to).constData());
        // In a box, where it was: never on a button that Enter would press.
        QVERIFY2(qobject_cast<const QLineEdit *>(focused), qPrintable(focused->objectName()));
    }
}

void tst_SearchFormKindness::nothingIsCutAtTheSmallestSize()
{
    goToPlaceOfRow();
    user->Form->resize(user->Form->minimumSizeHint());
    QCoreApplication::processEvents();
    const QWidget *page = user->Find<QWidget>("pageSteps");
    const QList<QWidget *> all = user->Form->findChildren<QWidget *>();
    for (const QWidget *widget : all) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        if (!widget->isVisible() || !(label || qobject_cast<const QAbstractButton *>(widget)))
            continue;
        if (qobject_cast<const QAbstractItemView *>(widget->parentWidget())
            || widget->objectName().startsWith(u"qt_"))
            continue;
        const QSize expected = label && label->wordWrap()
                                   ? QSize(0, label->heightForWidth(label->width()))
                                   : widget->sizeHint();
        const QString size = widget->objectName() + u" is "_s + QString::number(widget->width())
                             + u" x "_s + QString::number(widget->height());
        QVERIFY2(widget->width() >= expected.width() && widget->height() >= expected.height(),
                 qPrintable(size));
        // The steps are on a page that scrolls.
        const QWidget *ground = page->isAncestorOf(widget) ? page : user->Form.data();
        const QRect there(widget->mapTo(ground, QPoint()), widget->size());
        QVERIFY2(ground->rect().contains(there), qPrintable(size));
    }
    const auto *courts = user->Find<QListWidget>("lstJurisdictions");
    QVERIFY(courts->viewport()->width() >= courts->sizeHintForColumn(0));
    QVERIFY(courts->viewport()->height() >= courts->count() * courts->sizeHintForRow(0));
}

void tst_SearchFormKindness::theWindowKeepsItsSize()
{
    // The size at which it opens has room for every state.
    user.reset();
    user = std::make_unique<SearchFormUser>();
    const QSize size = user->Form->size();
    const QList<Place> places = AllPlaces();
    for (const Place &place : places) {
        user->GoTo(place);
        QCoreApplication::processEvents();
        QCOMPARE(user->Form->size(), size);
    }
}

void tst_SearchFormKindness::clearFormInEveryState()
{
    Place place = goToPlaceOfRow();
    user->Box(0)->setText(u"X"_s);
    user->Button("optORjgmtsONLY")->setChecked(true);
    for (const char *court : {"chkBKcourt_0", "chkBKcourt_3"})
        user->Button(court)->setChecked(true);
    for (const char *range : {"optSearchYears_1", "optSearchYears1_1"})
        user->Button(range)->setChecked(true);
    user->Click("cmdClearForm");
    place = After(place, "cmdClearForm");
    QCOMPARE(user->Differences(place), QString());
    const SearchEntry entry = user->Form->Entry();
    QVERIFY(entry.Names == (std::array<QString, 4>{}));
    QVERIFY(entry.BkCourts == (std::array<bool, 4>{}));
    QVERIFY(!entry.JudgmentsOnly && !entry.YearRange);
    QCOMPARE(entry.CaseTypes, QStringList());
    QVERIFY(user->Button("optSearchYears1_0")->isChecked());
    QCOMPARE(user->Find<QComboBox>("cboxSearchStartYear1")->currentText(), u"1980"_s);
    QVERIFY(user->Box(0)->hasFocus());
}

void tst_SearchFormKindness::cancelInEveryState()
{
    goToPlaceOfRow();
    user->Click("cmdCancel");
    QVERIFY(!frmSearchWA::IsLoaded());
}

void tst_SearchFormKindness::helpLinks_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("batch");
    QTest::addColumn<HelpTopic>("topic");
    const auto row = [](int court, int type, bool batch, HelpTopic topic, const char *name) {
        QTest::newRow(name) << court << type << batch << topic;
    };
    row(Superior, 0, false, HelpTopic::Jurisdiction, "jurisdiction");
    row(Superior, 0, false, HelpTopic::SearchType, "search type");
    row(Superior, 0, false, HelpTopic::Name, "name");
    row(Superior, 2, true, HelpTopic::Batch, "batch");
    row(Superior, 0, false, HelpTopic::Jurisdictions, "counties");
    row(Superior, 2, false, HelpTopic::NumberCounty, "county of a number");
    row(Discis, 0, false, HelpTopic::DiscisCaseType, "civil or not");
    row(Discis, 0, false, HelpTopic::DiscisCourts, "courts");
    row(Federal, 0, false, HelpTopic::BankruptcyCourts, "bankruptcy courts");
    row(Superior, 0, false, HelpTopic::CaseTypes, "case types");
    row(Superior, 0, false, HelpTopic::Years, "years");
    row(Federal, 0, false, HelpTopic::BankruptcyYears, "bankruptcy years");
}

void tst_SearchFormKindness::helpLinks()
{
    QFETCH(int, court);
    QFETCH(int, type);
    QFETCH(bool, batch);
    QFETCH(HelpTopic, topic);
    // Each link stands inside the step that it explains.
    constexpr std::array<const char *, helpTopicCount> steps{
        "Frame7", "Frame1", "Frame2",   "frameBulkSearch", "Frame11", "Frame12",
        "Frame8", "Frame9", "frameBK1", "Frame4",          "Frame5",  "frameBK2"};
    user->GoTo({court, type, 1, 5, batch});
    const QByteArray link = "lblHelp_" + QByteArray::number(static_cast<int>(topic));
    QCOMPARE(user->Text(link.constData()), u"Click Here For Search Tips, Usage, and Examples"_s);
    QVERIFY(
        user->Find(steps[static_cast<size_t>(topic)])->isAncestorOf(user->Find(link.constData())));
    QSignalSpy wanted(&SearchEvents::Of(), &SearchEvents::HelpWanted);
    // Read aloud, each says what it is about.
    QCOMPARE(
        user->Find(link.constData())->accessibleName(),
        QString(u"Help: "_s
                + user->Find<QGroupBox>(steps[static_cast<size_t>(topic)])->title().simplified()));
    user->Click(link);
    QTest::keyClick(user->Find(link.constData()), Qt::Key_Return);
    QCOMPARE(wanted.size(), 2);
    QCOMPARE(wanted[0][0].value<HelpTopic>(), topic);
    QCOMPARE(wanted[1][0].value<HelpTopic>(), topic);
}

HALVANE_TEST(tst_SearchFormKindness)
#include "tst_SearchFormKindness.moc"
