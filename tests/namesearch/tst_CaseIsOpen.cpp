#include "core/GlobalState.h"
#include "jobs/frmQueue.h"
#include "namesearch/DistrictSearch.h"
#include "namesearch/OpeningUser.h"
#include "namesearch/frmNameSearchResults.h"
#include "support/HalvaneTest.h"

// A case that has a window is offered when it is asked for again.

class tst_CaseIsOpen : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void goingToIt_data();
    void goingToIt();
    void openingItAgain();
    void cancelling();
    void anotherRowOfTheSameCase();
    void anotherCaseIsNotAskedAbout();
    void theSameNumberOfAnotherCounty();
    void aWindowThatWasClosed();
    void theLoginComesFirst();
    void theListClosedUnderTheQuestion();
    void theCaseClosedUnderTheQuestion();
    void rowsThatBecameOthersUnderTheQuestion();
    void theSessionEndedUnderTheQuestion();
    void districtCasesAreKnownByTheirCourt();

private:
    frmNameSearchResults *finished(const QStringList &rows)
    {
        court->Expect(RequestLine()).Reply(rows + QStringList{u"EOF~"_s});
        return Search(new frmNameSearchResults(u"WA"_s), {RequestLine()});
    }
    void expectLoginOffer()
    {
        desk->Boxes.Expect(
            u"This Search Cannot be Started!\r\nThis is because you are not currently "
            "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
            u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
            MsgAnswer::No);
    }
    void expectQuestion(const QString &answer)
    {
        desk->Boxes.ExpectChoice(IsOpenQuestion(u"02-2-02029-9 - King County Superior Courts"_s),
                                 isOpenTitle, answer);
    }
    static QString rowInCounty(const QString &county)
    {
        return u"SMITH~02-2-02029-9~01/02/2002~Civil~WA Superior Ct "_s + county
               + u" County~Plaintiff~"_s;
    }
};

void tst_CaseIsOpen::goingToIt_data()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("double click") << Way::DoubleClick;
    QTest::newRow("Enter") << Way::Enter;
    QTest::newRow("button") << Way::Button;
}

void tst_CaseIsOpen::goingToIt()
{
    QFETCH(const Way, way);
    frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s), ResultLine(u"JONES"_s)});
    ChooseRow(window, 0);
    CaseWindow *open = CaseWindowsInQueue().value(0);
    QVERIFY(open);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    expectQuestion(u"Go To It"_s);
    ChooseRow(window, 1, way);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QVERIFY(QTest::qWaitForWindowActive(open));
    QCOMPARE(RowsOf(window)[1][1], u"02-2-02029-9"_s);
}

void tst_CaseIsOpen::openingItAgain()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    expectQuestion(u"Open Again"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 2);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 2);
}

void tst_CaseIsOpen::cancelling()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    expectQuestion(u"Cancel"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_CaseIsOpen::anotherRowOfTheSameCase()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"SMITH"_s), ResultLine(u"JONES"_s, u"*02-2-02029-9"_s)});
    ChooseRow(window, 0);
    expectQuestion(u"Open Again"_s);
    ChooseRow(window, 1);
    QCOMPARE(RowsOf(window)[1][1], u">>*02-2-02029-9"_s);
    QCOMPARE(CaseWindowsInQueue().size(), 2);
}

void tst_CaseIsOpen::anotherCaseIsNotAskedAbout()
{
    const frmNameSearchResults *window =
        finished({ResultLine(u"SMITH"_s), ResultLine(u"JONES"_s, u"02-2-02030-2"_s)});
    ChooseRow(window, 0);
    ChooseRow(window, 1);
    QCOMPARE(CaseWindowsInQueue().size(), 2);
}

void tst_CaseIsOpen::theSameNumberOfAnotherCounty()
{
    const frmNameSearchResults *window =
        finished({rowInCounty(u"King"_s), rowInCounty(u"Pierce"_s)});
    ChooseRow(window, 0);
    ChooseRow(window, 1);
    QCOMPARE(CaseWindowsInQueue().size(), 2);
}

void tst_CaseIsOpen::aWindowThatWasClosed()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    QVERIFY(CaseWindowsInQueue().constFirst()->Unload(UnloadMode::MdiParent));
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_CaseIsOpen::theLoginComesFirst()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    Global.bLoggedIn = false;
    expectLoginOffer();
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_CaseIsOpen::theListClosedUnderTheQuestion()
{
    frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    desk->Boxes.Meanwhile([window] { window->Unload(UnloadMode::MdiParent); });
    expectQuestion(u"Open Again"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

void tst_CaseIsOpen::theCaseClosedUnderTheQuestion()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    desk->Boxes.Meanwhile([] { CaseWindowsInQueue().constFirst()->Unload(UnloadMode::MdiParent); });
    expectQuestion(u"Go To It"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 0);
}

void tst_CaseIsOpen::rowsThatBecameOthersUnderTheQuestion()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    desk->Boxes.Meanwhile([window] {
        window->Search().Record.Rows.Clear();
        window->Search().Record.Rows.AddRow({u"JONES"_s, u"99-9-99999-9"_s});
    });
    expectQuestion(u"Open Again"_s);
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

/// A case without a session would break down, and hold up the queue.
void tst_CaseIsOpen::theSessionEndedUnderTheQuestion()
{
    const frmNameSearchResults *window = finished({ResultLine(u"SMITH"_s)});
    ChooseRow(window, 0);
    desk->Boxes.Meanwhile([] { Global.bLoggedIn = false; });
    expectQuestion(u"Open Again"_s);
    expectLoginOffer();
    ChooseRow(window, 0);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 1);
}

void tst_CaseIsOpen::districtCasesAreKnownByTheirCourt()
{
    court->Expect(LineOf(Which::Civil))
        .Reply({RowOf(Which::Civil), RowOf(Which::Civil), u"EOF~"_s});
    const NameResultsWindow *window = Search(MakeWindow(Which::Civil), {LineOf(Which::Civil)});
    ChooseRow(window, 0);
    const QString caption = CaseWindowsInQueue().constFirst()->windowTitle();
    desk->Boxes.ExpectChoice(IsOpenQuestion(caption), isOpenTitle, u"Cancel"_s);
    ChooseRow(window, 1);
    QCOMPARE(CaseWindowsInQueue().size(), 1);
}

HALVANE_TEST(tst_CaseIsOpen)
#include "tst_CaseIsOpen.moc"
