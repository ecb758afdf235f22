// What the form shows depends on where the user is, and never on the way there: from every place to
// every other, and on long walks of arbitrary clicks.

#include "searchentry/SearchFormUser.h"

#include "controls/CheckListBox.h"
#include "core/GlobalState.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QTest>

namespace {
constexpr int walks = 1000;
constexpr int clicksOfAWalk = 12;
constexpr quint32 seed = 20260310;

/// What a click on the form changes besides the place.
struct Extras
{
    bool UseIndex = true;
    bool TemplateApplied = false;
    QString Name;
    QString County;
};

QStringList courtsOf(const TestFolder &folder, const QString &county)
{
    QStringList courts;
    const QStringList lines = QString::fromLatin1(folder.Read(u"wadisciscts.txt"_s)).split(u'\n');
    for (const QString &line : lines) {
        const QStringList fields = line.trimmed().split(u',');
        if (fields.size() >= 5 && fields[1] == county)
            courts.append(fields[4] + u" ("_s + fields[2] + u')');
    }
    return courts;
}
} // namespace

class tst_SearchFormWalks : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void fromEveryPlaceToEveryOther_data();
    void fromEveryPlaceToEveryOther();
    void walks_data();
    void walks();

private:
    QList<QByteArray> clickable(const Place &place) const;
    Place walkOn(const Place &place, const QByteArray &control, Extras &extras) const;
    QString differences(const Place &place, const Extras &extras) const;

    std::unique_ptr<SearchFormUser> user;
    QHash<QString, QStringList> courts;
};

void tst_SearchFormWalks::initTestCase()
{
    // Never shown: what would be seen is the same, and nothing is painted.
    user = std::make_unique<SearchFormUser>(false);
    user->Form->ShowMRU();
    Global.strDefaultToWaIndex = u"1"_s;
    for (const QString &county : user->CountiesOf(Superior))
        courts.insert(county, courtsOf(user->Desk.Folder, county));
}

void tst_SearchFormWalks::cleanupTestCase()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormWalks::fromEveryPlaceToEveryOther_data()
{
    QTest::addColumn<int>("from");
    const QList<Place> places = AllPlaces();
    QCOMPARE(places.size(), 47);
    for (int i = 0; i < places.size(); ++i)
        QTest::newRow(NameOf(places[i]).constData()) << i;
}

void tst_SearchFormWalks::fromEveryPlaceToEveryOther()
{
    QFETCH(int, from);
    const QList<Place> places = AllPlaces();
    for (const Place &to : places) {
        user->GoTo(places[from]);
        QCOMPARE(user->Differences(places[from]), QString());
        user->GoTo(to);
        const QString found = user->Differences(to);
        QVERIFY2(found.isEmpty(),
                 qPrintable(u"to "_s + QString::fromLatin1(NameOf(to)) + u": "_s + found));
    }
}

/// What a user could click at this place.
QList<QByteArray> tst_SearchFormWalks::clickable(const Place &place) const
{
    QList<QByteArray> all{"optState_0",         "optState_1",         "optState_2",
                          "optState_3",         "lstJurisdictions_0", "lstJurisdictions_1",
                          "lstJurisdictions_2", "lstJurisdictions_3", "lstJurisdictions_4",
                          "optSearchType_0",    "optSearchType_1",    "optSearchType_2",
                          "cmdClearForm"};
    const QList<QByteArray> shown = ShownAt(place);
    if (shown.contains("Frame14"))
        all.append(QList<QByteArray>{"optCourtSelection_0", "optCourtSelection_1"});
    if (shown.contains("optSearchType_3"))
        all.append(QList<QByteArray>{"optSearchType_3", "optSearchType_4"});
    if (shown.contains("Frame11"))
        all.append(QList<QByteArray>{"optSearchWhere_0", "optSearchWhere_1", "optSearchWhere_2"});
    if (shown.contains("Frame11") && place.Where == 2)
        all.append(QList<QByteArray>{"template", "template"});
    if (shown.contains("Frame8"))
        all.append(QList<QByteArray>{"optDiscisSearch_0", "optDiscisSearch_1", "county", "county"});
    if (shown.contains("chkBulkSearch"))
        all.append(QList<QByteArray>{"chkBulkSearch", "chkBulkSearch"});
    if (shown.contains("chkUseIndex"))
        all.append(QList<QByteArray>{"chkUseIndex"});
    if (shown.contains("Frame2"))
        all.append(QList<QByteArray>{"type"});
    return all;
}

/// Does what was drawn, and says where that leads.
Place tst_SearchFormWalks::walkOn(const Place &place, const QByteArray &control,
                                  Extras &extras) const
{
    if (control == "type") {
        user->Box(0)->setText(extras.Name = u"SMITH"_s);
        return place;
    }
    if (control == "county") {
        auto *box = user->Find<QComboBox>("cboxCountyList");
        box->setCurrentIndex((box->currentIndex() + 7) % box->count());
        extras.County = box->currentText();
        return place;
    }
    if (control == "template") {
        auto *list = user->Find<QListWidget>("lboxSearchProfiles");
        Q_EMIT list->itemDoubleClicked(list->item(0));
        extras.TemplateApplied = true;
        return place;
    }
    user->Press(control);
    const Place next = After(place, control);
    if (control == "chkUseIndex")
        extras.UseIndex = !extras.UseIndex;
    const bool indexBefore = ShownAt(place).contains("chkUseIndex");
    const bool indexNow = ShownAt(next).contains("chkUseIndex");
    if (indexBefore != indexNow)
        extras.UseIndex = indexNow;
    if (next.Where != 2 || control == "optSearchWhere_1")
        extras.TemplateApplied = false;
    const bool chosen = control == "optSearchType_0" || control == "optSearchType_1";
    // Who leaves the U.S. Courts from an identifier comes to a search by name.
    const bool identifierLeft = place.Type > 2 && next.Court != place.Court;
    if (control == "cmdClearForm" || (chosen && next.Type != place.Type) || identifierLeft)
        extras.Name.clear();
    const bool addresses = next.Court != Discis || (next.Type == 0 && next.DiscisWhere == 6);
    if (!addresses && extras.County.startsWith(u"-- SHOW"))
        extras.County = u"-- ALL COUNTIES/STATEWIDE --"_s;
    return next;
}

QString tst_SearchFormWalks::differences(const Place &place, const Extras &extras) const
{
    QString found = user->Differences(place, extras.TemplateApplied);
    if (user->Button("chkUseIndex")->isChecked() != extras.UseIndex)
        found += u"the index is wrongly used or not; "_s;
    if (user->Box(0)->text() != extras.Name)
        found += u"box 0 reads "_s + user->Box(0)->text() + u"; "_s;
    if (place.Court != Discis)
        return found;
    const QString county = user->Find<QComboBox>("cboxCountyList")->currentText();
    if (county != extras.County)
        found += u"the county is "_s + county + u" for "_s + extras.County + u"; "_s;
    QStringList expected = courts.value(county);
    if (county.startsWith(u"-- ALL"))
        expected = {u"Statewide (all counties/jurisdictions)"_s};
    else if (county.startsWith(u"-- SHOW"))
        expected = {u"Statewide Defendant Name Search with Addresses"_s};
    if (user->Items("lboxDiscisCourtNames") != expected)
        found += u"the courts are not those of "_s + county + u"; "_s;
    if (user->Ticked("lboxDiscisCourtNames") != (place.Type == 2 ? QStringList() : expected))
        found += u"the wrong courts are ticked; "_s;
    return found;
}

void tst_SearchFormWalks::walks_data()
{
    QTest::addColumn<int>("hundred");
    for (int hundred = 0; hundred < ::walks / 100; ++hundred)
        QTest::addRow("walks %d to %d", hundred * 100, hundred * 100 + 99) << hundred;
}

void tst_SearchFormWalks::walks()
{
    QFETCH(int, hundred);
    QRandomGenerator random(seed + static_cast<quint32>(hundred));
    const QList<Place> places = AllPlaces();
    for (int walk = 0; walk < 100; ++walk) {
        Place place = places[random.bounded(static_cast<int>(places.size()))];
        user->GoTo(places[0]);
        user->Press("cmdClearForm");
        user->GoTo(place);
        Extras extras;
        extras.UseIndex = user->Button("chkUseIndex")->isChecked();
        extras.Name = user->Box(0)->text();
        extras.County = user->Find<QComboBox>("cboxCountyList")->currentText();
        QList<QByteArray> way{NameOf(place)};
        for (int step = 0; step < clicksOfAWalk; ++step) {
            const QList<QByteArray> choice = clickable(place);
            QByteArray control = choice[random.bounded(static_cast<int>(choice.size()))];
            if (control == "template" && extras.TemplateApplied)
                control = "optSearchWhere_1";
            way.append(control);
            place = walkOn(place, control, extras);
            const QString found = differences(place, extras);
            QVERIFY2(found.isEmpty(),
                     qPrintable(QString::fromLatin1(way.join(" > ")) + u": "_s + found));
        }
    }
}

HALVANE_TEST(tst_SearchFormWalks)
#include "tst_SearchFormWalks.moc"
