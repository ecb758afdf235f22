// The batch of numbers on the search form: its rows and their counties.

#include "searchentry/SearchFormUser.h"

#include "core/GlobalState.h"
#include "support/HalvaneTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

namespace {
const QString noSelection = u"---- NO SELECTION ----"_s;
} // namespace

class tst_SearchFormBatch : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { user = std::make_unique<SearchFormUser>(); }
    void cleanup();

    void batchCounties_data();
    void batchCounties();
    void setAllCountiesToSameAsFirstKeepsTheNumbers();
    void resetClearsNumbersAndCounties();
    void theNumbersAreStillThereWhenBatchEntryComesBack();
    void settingTheDefaultCounty_data();
    void settingTheDefaultCounty();
    void noDefaultCountyWithoutASelection();

private:
    std::unique_ptr<SearchFormUser> user;
};

void tst_SearchFormBatch::cleanup()
{
    const QString complaints = user->Complaints();
    user.reset();
    QCOMPARE(complaints, QString());
}

void tst_SearchFormBatch::batchCounties_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("county");
    QTest::addColumn<int>("count");
    QTest::newRow("Washington") << int(Superior) << u"Pierce"_s << 40;
    QTest::newRow("Washington without") << int(Superior) << QString() << 40;
    QTest::newRow("Oregon") << int(Oregon) << u"Lane"_s << 38;
    QTest::newRow("Idaho") << int(Idaho) << u"Ada"_s << 45;
    QTest::newRow("one of another state") << int(Idaho) << u"King"_s << 45;
}

void tst_SearchFormBatch::batchCounties()
{
    QFETCH(int, court);
    QFETCH(QString, county);
    QFETCH(int, count);
    Global.strDefaultWaCounty = Global.strDefaultOrCounty = Global.strDefaultIDCounty = county;
    user->GoTo({court, 2, 1, 5, true});
    QVERIFY(user->BatchBox(0)->hasFocus());
    const bool known = !county.isEmpty() && user->CountiesOf(court).contains(county);
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(user->BatchCounty(i)->count(), count);
        QCOMPARE(user->BatchCounty(i)->currentText(), known ? county : noSelection);
        // Whatever will be chosen in it can be read.
        int widest = 0;
        for (int item = 0; item < user->BatchCounty(i)->count(); ++item)
            widest = std::max(widest, user->BatchCounty(i)->fontMetrics().horizontalAdvance(
                                          user->BatchCounty(i)->itemText(item)));
        QTRY_VERIFY(user->BatchCounty(i)->width() > widest);
    }
}

void tst_SearchFormBatch::setAllCountiesToSameAsFirstKeepsTheNumbers()
{
    user->GoTo({Superior, 2, 1, 5, true});
    for (int i = 0; i < 10; ++i)
        user->BatchBox(i)->setText(QString::number(i));
    user->BatchCounty(0)->setCurrentText(u"Yakima"_s);
    user->Click("cmdBatchSearch_1");
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(user->BatchCounty(i)->currentText(), u"Yakima"_s);
        QCOMPARE(user->BatchBox(i)->text(), QString::number(i));
    }
}

void tst_SearchFormBatch::resetClearsNumbersAndCounties()
{
    user->GoTo({Superior, 2, 1, 5, true});
    for (int i = 0; i < 10; ++i) {
        user->BatchBox(i)->setText(u"X"_s);
        user->BatchCounty(i)->setCurrentIndex(5);
    }
    user->Click("cmdBatchSearch_2");
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(user->BatchBox(i)->text(), QString());
        QCOMPARE(user->BatchCounty(i)->currentText(), u"King"_s);
    }
}

void tst_SearchFormBatch::theNumbersAreStillThereWhenBatchEntryComesBack()
{
    user->GoTo({Superior, 2, 1, 5, true});
    for (int i = 0; i < 10; ++i)
        QTest::keyClicks(user->BatchBox(i), u"05-2-0202"_s + QString::number(i));
    user->Click("chkBulkSearch");
    QVERIFY(!user->Find("frameBulkSearch")->isVisible());
    user->Click("chkBulkSearch");
    QVERIFY(user->Find("frameBulkSearch")->isVisible());
    for (int i = 0; i < 10; ++i)
        QCOMPARE(user->BatchBox(i)->text(), u"05-2-0202"_s + QString::number(i));
    user->Click("cmdBatchSearch_2");
    for (int i = 0; i < 10; ++i)
        QCOMPARE(user->BatchBox(i)->text(), QString());
}

void tst_SearchFormBatch::settingTheDefaultCounty_data()
{
    QTest::addColumn<int>("court");
    QTest::addColumn<QString>("county");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("Washington") << int(Superior) << u"Yakima"_s
                                << QByteArray("DefaultWaCounty=Yakima");
    QTest::newRow("Oregon") << int(Oregon) << u"Yamhill"_s << QByteArray("DefaultOrCounty=Yamhill");
    QTest::newRow("Idaho") << int(Idaho) << u"Ada"_s << QByteArray("DefaultIdCounty=Ada");
}

void tst_SearchFormBatch::settingTheDefaultCounty()
{
    QFETCH(int, court);
    QFETCH(QString, county);
    QFETCH(QByteArray, line);
    user->GoTo({court, 2, 1, 5, true});
    user->BatchCounty(0)->setCurrentText(county);
    user->Click("cmdBatchSearch_3");
    const QByteArray saved = user->Desk.Folder.Read(u"options.ini"_s).toLower();
    QVERIFY(saved.contains(line.toLower()));
    user->Click("cmdBatchSearch_2");
    QCOMPARE(user->BatchCounty(9)->currentText(), county);
}

void tst_SearchFormBatch::noDefaultCountyWithoutASelection()
{
    user->GoTo({Superior, 2, 1, 5, true});
    const QByteArray before = user->Desk.Folder.Read(u"options.ini"_s);
    user->BatchCounty(0)->setCurrentIndex(0);
    user->Desk.Boxes.Expect(u"You must select a valid county!"_s, u"Invalid County Selected .."_s,
                            MsgIcon::Critical);
    user->Click("cmdBatchSearch_3");
    QCOMPARE(user->Desk.Folder.Read(u"options.ini"_s), before);
    QCOMPARE(Global.strDefaultWaCounty, u"King"_s);
}

HALVANE_TEST(tst_SearchFormBatch)
#include "tst_SearchFormBatch.moc"
