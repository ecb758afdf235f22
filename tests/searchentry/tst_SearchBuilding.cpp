#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "namesearch/NameResultsWindow.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/frmSearchWA.h"
#include "support/HalvaneTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {
const QString requestError =
    u"An error was encountered while attempting to search Halvane! Please review the search "
    "criteria and retry the search."_s;

const QStringList smith{u"type txtSearchName_0 Smith"_s, u"type txtSearchName_1 John"_s};
const QStringList everywhere{u"click optSearchWhere_2"_s, u"tick lboxCaseTypes Civil"_s};
const QStringList king{u"tick lboxCountyOrProfile King"_s, u"tick lboxCaseTypes Civil"_s};

/// One search of each family and kind, and where it is remembered.
void addSearches()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("entry");
    const QStringList number{u"click optSearchType_2"_s, u"tick lboxMultiJurisdiction King"_s,
                             u"type txtSearchName_0 052020291"_s};
    const QStringList acme{u"click optSearchType_1"_s, u"type txtSearchName_0 Acme"_s};
    const QString persons = u"MruIName.txt"_s;
    const QString businesses = u"MruBName.txt"_s;
    QTest::newRow("Superior, a person") << smith + king << persons << u"SMITH, JOHN"_s;
    QTest::newRow("Superior, a business") << acme + king << businesses << u"ACME"_s;
    QTest::newRow("Superior, a number") << number << u"MruCases.txt"_s << u"05-2-02029-1"_s;
    QTest::newRow("Index") << QStringList{u"click chkUseIndex"_s} + smith + king << persons
                           << u"SMITH, JOHN"_s;
    QTest::newRow("Oregon") << QStringList{u"click optState_0"_s} + acme + everywhere << businesses
                            << u"ACME"_s;
    QTest::newRow("Idaho") << QStringList{u"click optState_3"_s} + smith + everywhere << persons
                           << u"SMITH, JOHN"_s;
    QTest::newRow("Idaho, a number")
        << QStringList{u"click optState_3"_s, u"click optSearchType_2"_s,
                       u"type txtSearchName_0 cr-1"_s}
        << u"MruCases.txt"_s << u"CR-1"_s;
    QTest::newRow("District, civil")
        << QStringList{u"click optCourtSelection_1"_s} + smith << persons << u"SMITH, JOHN"_s;
    QTest::newRow("District, non-civil")
        << QStringList{u"click optCourtSelection_1"_s, u"click optDiscisSearch_1"_s} + acme
        << businesses << u"ACME"_s;
    QTest::newRow("District, a number")
        << QStringList{u"click optCourtSelection_1"_s, u"click optSearchType_2"_s,
                       u"choose cboxCountyList Adams"_s,
                       u"tick lboxDiscisCourtNames Othello District (OTD)"_s,
                       u"type txtSearchName_0 052020299"_s}
        << u"MruCases.txt"_s << u"05-2-02029-9"_s;
    QTest::newRow("Bankruptcy") << QStringList{u"click optState_2"_s, u"click chkBKcourt_1"_s,
                                               u"click chkBKcourt_3"_s}
                                       + smith
                                << persons << u"SMITH, JOHN"_s;
    QTest::newRow("Bankruptcy, a number")
        << QStringList{u"click optState_2"_s, u"click chkBKcourt_1"_s, u"click optSearchType_2"_s,
                       u"type txtSearchName_0 9920077"_s}
        << u"MruCases.txt"_s << u"99-20077"_s;
}
} // namespace

/// What happens while a search is being built, and what is left behind: events that come in between
/// two lines, errors, and the recent entries.
class tst_SearchBuilding : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void aSecondClickWhileLinesAreBuiltDoesNoHarm_data();
    void aSecondClickWhileLinesAreBuiltDoesNoHarm();
    void aBatchClickWhileLinesAreBuiltDoesNoHarm();
    void aFormClearedWhileLinesAreBuiltChangesNothing();
    void anotherCourtChosenWhileLinesAreBuiltChangesNothing();
    void aFormCancelledWhileLinesAreBuilt();
    void linesExistBeforeTheWindowIsShown();

    void aMissingListOfRecentEntriesIsReported_data() { addSearches(); }
    void aMissingListOfRecentEntriesIsReported();

    void aSearchIsRemembered_data() { addSearches(); }
    void aSearchIsRemembered();
    void anEntryIsNotWrittenTwice();
    void anEntryOutsideTheCodePageIsWrittenOnce();
    void whatTheFormShowsIsCompared_data() { addSearches(); }
    void whatTheFormShowsIsCompared();
    void theNewestEntryIsOnTopAndShownAtOnce();
    void the32ndEntryDropsTheOldest();
    void aStoppedSearchIsNotRemembered();

private:
    /// Does this inside the first turn of the event loop that the building takes. False when it
    /// took none.
    bool inside(const std::function<void()> &act)
    {
        bool done = false;
        QTimer::singleShot(0, desk->Form(), [&] {
            done = true;
            act();
        });
        windows = desk->NewWindows(
            [this] { qobject_cast<QAbstractButton *>(desk->Control("cmdBeginSearch"))->click(); });
        return done;
    }
    void press(const char *name) { qobject_cast<QAbstractButton *>(desk->Control(name))->click(); }
    NameResultsWindow *results() const
    {
        return windows.size() == 1 ? qobject_cast<NameResultsWindow *>(windows.first()) : nullptr;
    }

    QList<JobWindow *> windows;
};

void tst_SearchBuilding::aSecondClickWhileLinesAreBuiltDoesNoHarm_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<int>("lines");
    QTest::newRow("Superior, statewide") << smith + everywhere << 39;
    QTest::newRow("Oregon, all counties")
        << QStringList{u"click optState_0"_s} + smith
               + QStringList{u"click cmdCheckAll"_s, u"tick lboxCaseTypes Civil"_s}
        << 37;
    QTest::newRow("Idaho, all counties")
        << QStringList{u"click optState_3"_s} + smith
               + QStringList{u"click cmdCheckAll"_s, u"tick lboxCaseTypes Civil"_s}
        << 44;
    QTest::newRow("District, civil, all courts")
        << QStringList{u"click optCourtSelection_1"_s} + smith
               + QStringList{u"choose cboxCountyList -- ALL COUNTIES/STATEWIDE --"_s}
        << 173;
}

void tst_SearchBuilding::aSecondClickWhileLinesAreBuiltDoesNoHarm()
{
    QFETCH(QStringList, steps);
    QFETCH(int, lines);
    desk->Do(steps);
    QVERIFY(inside([this] { press("cmdBeginSearch"); }));
    QVERIFY(results());
    QCOMPARE(results()->lboxQueue.ListCount(), lines);
    QCOMPARE(Keys(), QStringList{results()->txtMasterKey});
    // It was that click alone: the next one is a search again.
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(Keys().size(), 2);
}

void tst_SearchBuilding::aBatchClickWhileLinesAreBuiltDoesNoHarm()
{
    desk->Do(smith + everywhere);
    QVERIFY(inside([this] {
        press("optSearchType_2");
        press("chkBulkSearch");
        desk->Do({u"type Text1_0 052020291"_s, u"choose cbCty1_0 King"_s});
        press("cmdBatchSearch_4");
    }));
    QVERIFY(results());
    QCOMPARE(results()->lboxQueue.ListCount(), 39);
    QCOMPARE(Keys(), QStringList{results()->txtMasterKey});
}

void tst_SearchBuilding::aFormClearedWhileLinesAreBuiltChangesNothing()
{
    desk->Do(smith + everywhere);
    QVERIFY(inside([this] { press("cmdClearForm"); }));
    QVERIFY(results());
    QCOMPARE(results()->lboxQueue.ListCount(), 39);
    for (const QString &line : results()->lboxQueue.Lines())
        QVERIFY2(line.startsWith(u"WASUP¦SEARCH¦SMITH¦JOHN¦"_s), qPrintable(line));
    QCOMPARE(results()->txtCountyList(),
             u"Statewide (All Counties) - Washington Superior Courts"_s);
    QCOMPARE(desk->Text("txtSearchName_0"), QString());
}

void tst_SearchBuilding::anotherCourtChosenWhileLinesAreBuiltChangesNothing()
{
    desk->Do(QStringList{u"click optState_3"_s} + smith
             + QStringList{u"click cmdCheckAll"_s, u"tick lboxCaseTypes Civil"_s});
    QVERIFY(inside([this] { press("optState_0"); }));
    QVERIFY(results());
    QCOMPARE(results()->lblState, u"ID"_s);
    QCOMPARE(results()->lboxQueue.ListCount(), 44);
    QVERIFY(results()->txtCountyList().endsWith(u" Counties - Idaho District Courts"));
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "SMITH, JOHN\r\n");
}

void tst_SearchBuilding::aFormCancelledWhileLinesAreBuilt()
{
    desk->Do(smith + everywhere);
    QVERIFY(inside([this] { press("cmdCancel"); }));
    QVERIFY(results());
    QCOMPARE(results()->lboxQueue.ListCount(), 39);
    QCOMPARE(Keys(), QStringList{results()->txtMasterKey});
    QVERIFY(!frmSearchWA::IsLoaded());
    QTRY_VERIFY(!desk->Form());
}

void tst_SearchBuilding::linesExistBeforeTheWindowIsShown()
{
    desk->Do(smith + everywhere);
    QVERIFY(inside([] {
        const QList<JobWindow *> making = OpenJobs();
        QCOMPARE(making.size(), 1);
        QVERIFY(!making.first()->isVisible());
        QVERIFY(!making.first()->Timer1->isActive());
        QVERIFY(making.first()->txtMasterKey.isEmpty());
        QCOMPARE(Keys(), QStringList());
    }));
    QVERIFY(results());
    QVERIFY(results()->isVisible());
    QVERIFY(results()->Timer1->isActive());
}

void tst_SearchBuilding::aMissingListOfRecentEntriesIsReported()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, file);
    // With alerts a window asks before it closes, unless it is set not to.
    Global.bShowAlerts = true;
    Global.WaDisclaimerAccepted = true;
    Global.OrDisclaimerAccepted = true;
    desk->Do(steps);
    desk->Desk.Folder.Remove(file);
    desk->Desk.Boxes.Expect(requestError + u"\r\n\r\nError Was: File not found"_s,
                            u"Halvane Search Request Error"_s, MsgIcon::Exclamation);
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(Keys(), QStringList());
    QCOMPARE(desk->Desk.Folder.TimesLogged(requestError + u" Error Was: File not found"_s), 1);
    QVERIFY(desk->Form()->isVisible());
    desk->Desk.Folder.Write(file, QByteArray());
    QVERIFY(!desk->Start().isEmpty());
    QVERIFY(!Keys().isEmpty());
}

void tst_SearchBuilding::aSearchIsRemembered()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, file);
    QFETCH(QString, entry);
    desk->Do(steps);
    QVERIFY(!desk->Start().isEmpty());
    for (const QString &name : {u"MruIName.txt"_s, u"MruBName.txt"_s, u"MruCases.txt"_s})
        QCOMPARE(desk->Desk.Folder.Read(name),
                 name == file ? entry.toLatin1() + "\r\n" : QByteArray());
    QCOMPARE(desk->ItemsOf(file == u"MruCases.txt"_s ? "cboxCaseMRUs" : "cboxLastBizOrCase"),
             QStringList{entry});
}

void tst_SearchBuilding::anEntryIsNotWrittenTwice()
{
    desk->Desk.Folder.Write(u"MruIName.txt"_s, "Jones\r\n  Smith, john  \r\n");
    desk->Form()->ShowMRU();
    desk->Do(smith + king);
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "Jones\r\n  Smith, john  \r\n");
}

void tst_SearchBuilding::anEntryOutsideTheCodePageIsWrittenOnce()
{
    desk->Do(king);
    for (int i = 0; i < 3; ++i) {
        qobject_cast<QLineEdit *>(desk->Control("txtSearchName_0"))
            ->setText(u"\u0141ukasz\u4E2D"_s);
        desk->Desk.Boxes.Expect(
            u"The characters \"\u0141\", \"\u4E2D\" cannot be sent. Question marks go in their "
            "place.\r\n\r\nTo search all the same click OK. To change what you entered click "
            "Cancel."_s,
            u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
            MsgButtons::OkCancel);
        QCOMPARE(desk->Start().size(), 1);
        QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "?UKASZ?\r\n");
    }
    QCOMPARE(desk->ItemsOf("cboxLastBizOrCase"), QStringList{u"?UKASZ?"_s});
}

void tst_SearchBuilding::whatTheFormShowsIsCompared()
{
    QFETCH(QStringList, steps);
    QFETCH(QString, file);
    desk->Do(steps);
    QVERIFY(!desk->Start().isEmpty());
    const QByteArray list = desk->Desk.Folder.Read(file);
    // The form has the entry and keeps it, and nothing is to be written.
    desk->Desk.Folder.Remove(file);
    for (int i = 0; i < 3; ++i)
        QVERIFY(!desk->Start().isEmpty());
    QVERIFY(!QFile::exists(desk->Desk.Folder.Path(file)));
    // The other way round, the file has it and the form does not show it.
    desk->Desk.Folder.Write(file, QByteArray());
    desk->Form()->ShowMRU();
    desk->Desk.Folder.Write(file, list);
    QVERIFY(!desk->Start().isEmpty());
    QCOMPARE(desk->Desk.Folder.Read(file), list + list);
}

void tst_SearchBuilding::theNewestEntryIsOnTopAndShownAtOnce()
{
    desk->Do(smith + king);
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(desk->ItemsOf("cboxLastBizOrCase"), QStringList{u"SMITH, JOHN"_s});
    desk->Do({u"type txtSearchName_0 Jones"_s, u"type txtSearchName_1 "_s});
    QCOMPARE(desk->Start().size(), 1);
    QCOMPARE(desk->ItemsOf("cboxLastBizOrCase"), (QStringList{u"JONES"_s, u"SMITH, JOHN"_s}));
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), "JONES\r\nSMITH, JOHN\r\n");
    // And it can be taken from there.
    auto *box = qobject_cast<QComboBox *>(desk->Control("cboxLastBizOrCase"));
    box->setCurrentIndex(1);
    Q_EMIT box->activated(1);
    QCOMPARE(desk->Text("txtSearchName_0"), u"SMITH"_s);
    QCOMPARE(desk->Text("txtSearchName_1"), u"JOHN"_s);
}

void tst_SearchBuilding::the32ndEntryDropsTheOldest()
{
    QByteArray list;
    for (int i = 31; i >= 1; --i)
        list += "NAME " + QByteArray::number(i) + "\r\n";
    desk->Desk.Folder.Write(u"MruIName.txt"_s, list);
    desk->Form()->ShowMRU();
    desk->Do(smith + king);
    QCOMPARE(desk->Start().size(), 1);
    const QStringList items = desk->ItemsOf("cboxLastBizOrCase");
    QCOMPARE(items.size(), 31);
    QCOMPARE(items.first(), u"SMITH, JOHN"_s);
    QCOMPARE(items.last(), u"NAME 2"_s);
}

void tst_SearchBuilding::aStoppedSearchIsNotRemembered()
{
    desk->Do(smith);
    desk->ExpectRefusal();
    QVERIFY(desk->Start().isEmpty());
    QCOMPARE(desk->Desk.Folder.Read(u"MruIName.txt"_s), QByteArray());
    QCOMPARE(desk->ItemsOf("cboxLastBizOrCase"), QStringList());
}

HALVANE_TEST(tst_SearchBuilding)
#include "tst_SearchBuilding.moc"
