#include "casedetails/CaseLines.h"
#include "casedetails/CaseWindow.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "jobs/JobWindow.h"
#include "searchentry/CaseNumbers.h"
#include "searchentry/EntryDesk.h"
#include "searchentry/NumberListRun.h"
#include "searchentry/frmNumberList.h"
#include "searchentry/frmPasteList.h"
#include "searchentry/frmSearchWA.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"
#include "support/ScriptedCourt.h"
#include "support/Ticks.h"
#include "tables/ResultListView.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
const QStringList batchOfNumbers{u"click optSearchType_2"_s, u"click chkBulkSearch"_s};

/// The nth number that King county can have.
QString kingNumber(int n)
{
    const QString head = u"05-2-"_s + QString::number(n).rightJustified(5, u'0') + u'-';
    return head + ComputeScomisCheckDigit(ScomisCountyCode(u"King"_s), head + u'0');
}

QString kingNumbers(int count)
{
    QStringList numbers;
    for (int n = 1; n <= count; ++n)
        numbers.append(kingNumber(n));
    return numbers.join(u'\n');
}

QString requestOf(int n)
{
    return u"WASUP¦SUMMARY¦"_s + kingNumber(n) + u"¦King¦¦"_s;
}

QStringList summaryOf(int n)
{
    return {u"Case#:~"_s + kingNumber(n) + u'~',
            u"Court:~King  Co Superior Ct~"_s,
            u"Title:~A VS B~"_s,
            u"Date Filed:~03/04/2002~"_s,
            u"Orig cause: Theft~Theft~"_s,
            u"Status:~Active~"_s,
            u"EOF~"_s};
}
} // namespace

/// A list of numbers from the clipboard up to the list of what has come of each.
class tst_PasteList : public EntryTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void cleanup();

    void theOutcomesAreNotCut();
    void theListIsTakenFromTheClipboard();
    void aNumberThatIsRefusedCannotBeTicked();
    void theCountyOfLinesThatNameNone();
    void whatIsTypedIsRead();
    void ticksOfTheUsersOutliveAnotherReading();
    void aLineWithoutEndIsCut();
    void aListThatIsGivenUpIsOfferedAgain();
    void nothingStartsWithoutLogin();
    void tenAreAskedForAtATime();
    void theNextFollowsWhereOneEnds_data();
    void theNextFollowsWhereOneEnds();
    void theCodeIsAskedForOnce();
    void theListOutlivesTheForm();
    void whatHasComeOfEach();
    void aCaseThatBreaksDownIsNotWaitedFor();
    void theEndIsShownAgain();
    void aLogoutGivesUpTheRest_data();
    void aLogoutGivesUpTheRest();
    void aLostLinkGivesUpTheRest();
    void noMoreAreStarted();
    void closingTheListAsksAboutTheRest_data();
    void closingTheListAsksAboutTheRest();
    void theOutcomesAreCopied();
    void whatIsFoundIsCopied();
    void casesOfTwoListsShareThePlaces();
    void theKeyboardStaysWhereItIs();
    void whatIsMinimisedStaysSo();
    void printsWhenAsked();

private:
    /// Opens the dialog on this text, and does this with it.
    QList<JobWindow *> paste(const QString &text, const std::function<void(QDialog *)> &act)
    {
        QApplication::clipboard()->setText(text);
        desk->Desk.Boxes.ExpectDialog(u"frmPasteList"_s, act);
        return desk->NewWindows([this] { desk->Do({u"click cmdPasteList"_s}); });
    }
    static void retrieve(QDialog *dialog)
    {
        QTest::mouseClick(ButtonOf(dialog, "cmdRetrieve"), Qt::LeftButton);
    }
    static void cancel(QDialog *dialog)
    {
        QTest::mouseClick(ButtonOf(dialog, "cmdCancel"), Qt::LeftButton);
    }
    /// Number, court and verdict of each row, "*" before those that are ticked.
    static QStringList rowsOf(const QWidget *window)
    {
        const ResultListModel *list = window->findChild<ResultListView *>(u"lvNumbers"_s)->List();
        QStringList rows;
        for (int row = 0; row < list->Count(); ++row)
            rows.append((list->IsChecked(row) ? u"*"_s : QString()) + list->Cells(row).join(u'|'));
        return rows;
    }
    /// The windows of lists that are on the screen.
    static QList<frmNumberList *> lists()
    {
        QList<frmNumberList *> found;
        const QWidgetList widgets = QApplication::allWidgets();
        for (QWidget *widget : widgets) {
            auto *list = qobject_cast<frmNumberList *>(widget);
            if (list && !list->IsUnloaded())
                found.append(list);
        }
        return found;
    }
    static frmNumberList *list() { return lists().value(0); }
    static QStringList outcomes()
    {
        QStringList words;
        for (const QString &row : rowsOf(list()))
            words.append(row.section(u'|', 2));
        return words;
    }
    static QString sum() { return TextOf(list(), "lblListStatus"); }
    /// Eleven numbers, one of which waits, in a main window with the search form in front.
    void withElevenInMain(const std::function<void(frmMain &, frmSearchWA &)> &act)
    {
        frmMain main;
        main.show();
        desk->Form()->Unload();
        frmSearchWA::ShowForm();
        frmSearchWA &form = frmSearchWA::Form();
        const NumberListCourt king{CourtFamily::Superior, false, {u"King"_s}, u"King"_s};
        const std::unique_ptr<NumberListRun> run(
            NumberListRun::Start(ReadNumberList(kingNumbers(11), king), king, {}, false));
        main.ShowChildAgain(&form);
        QCOMPARE(main.ActiveChild(), &form);
        act(main, form);
        form.Unload();
    }
    /// Jobs ask for their turn every millisecond from now on.
    void hurry()
    {
        connect(&JobEvents::Of(), &JobEvents::Launched, this,
                [](Job *job) { job->Timer1->start(1); });
    }
    static void stop(JobWindow *window)
    {
        window->StopRequested = true;
        window->ShownJob()->Stop();
    }
};

void tst_PasteList::init()
{
    EntryTest::init();
    desk->Do(batchOfNumbers);
}

/// A run belongs to no window, and would go on in the next function.
void tst_PasteList::cleanup()
{
    for (frmNumberList *each : lists())
        each->Unload();
    qDeleteAll(qApp->findChildren<NumberListRun *>());
    JobEvents::Of().disconnect(this);
    EntryTest::cleanup();
}

/// In the window as it comes up.
void tst_PasteList::theOutcomesAreNotCut()
{
    NumberListRun *run = NumberListRun::Start({}, {}, {}, false);
    frmNumberList::Follow(run);
    run->Rows.AddRow({u"05-2-00001-1"_s, u"Pend Oreille County, Washington Superior Courts"_s,
                      u"Not started: no more were wanted"_s});
    const auto *view = Child<ResultListView>(list(), "lvNumbers");
    QTRY_COMPARE(view->model()->rowCount(), 1);
    for (int column = 0; column < view->model()->columnCount(); ++column) {
        const int needed = view->sizeHintForIndex(view->model()->index(0, column)).width();
        QTRY_VERIFY(view->columnWidth(column) >= needed);
    }
}

void tst_PasteList::theListIsTakenFromTheClipboard()
{
    QStringList rows;
    QString counted;
    QVERIFY(paste(u"See 052020291,\n05-2-02029-8 Adams County\nthanks"_s, [&](QDialog *dialog) {
                rows = rowsOf(dialog);
                counted = TextOf(dialog, "lblListCount");
                cancel(dialog);
            }).isEmpty());
    QCOMPARE(rows,
             (QStringList{u"*05-2-02029-1|King|1|Valid"_s, u"*05-2-02029-8|Adams|2|Valid"_s,
                          u"thanks||3|Not understood: There is no case number in this line."_s}));
    QCOMPARE(counted, u"2 ticked, of 2 numbers that can be asked for."_s);
    QCOMPARE(Keys(), QStringList());
}

void tst_PasteList::aNumberThatIsRefusedCannotBeTicked()
{
    paste(u"052020298\n"_s, [](QDialog *dialog) {
        RowTable *rows = dialog->findChild<ResultListView *>(u"lvNumbers"_s)->List()->Rows();
        rows->SetChecked(0, true);
        QVERIFY(!rows->IsChecked(0));
        QVERIFY(!ButtonOf(dialog, "cmdRetrieve")->isEnabled());
        QVERIFY(!ButtonOf(dialog, "cmdTickAll")->isEnabled());
        cancel(dialog);
    });
}

void tst_PasteList::theCountyOfLinesThatNameNone()
{
    paste(u"052020298"_s, [](QDialog *dialog) {
        auto *box = dialog->findChild<QComboBox *>(u"cboxUsualCounty"_s);
        QCOMPARE(box->currentText(), u"King"_s);
        box->setCurrentText(u"Adams"_s);
        QCOMPARE(rowsOf(dialog), QStringList{u"*05-2-02029-8|Adams|1|Valid"_s});
        box->setCurrentIndex(0);
        QCOMPARE(rowsOf(dialog),
                 QStringList{u"052020298||1|Refused: No county is named in this line, and none is "
                             "chosen."_s});
        cancel(dialog);
    });
}

void tst_PasteList::whatIsTypedIsRead()
{
    const QList<JobWindow *> windows = paste({}, [](QDialog *dialog) {
        QVERIFY(!ButtonOf(dialog, "cmdRetrieve")->isEnabled());
        QTest::keyClicks(dialog->findChild<QPlainTextEdit *>(u"txtList"_s), u"052020291"_s);
        QTRY_VERIFY(ButtonOf(dialog, "cmdRetrieve")->isEnabled());
        retrieve(dialog);
    });
    QCOMPARE(windows.size(), 1);
    QCOMPARE(Keys(), QStringList{windows.first()->txtMasterKey});
}

void tst_PasteList::ticksOfTheUsersOutliveAnotherReading()
{
    paste(kingNumbers(2) + u"\nA-17"_s, [](QDialog *dialog) {
        RowTable *rows = dialog->findChild<ResultListView *>(u"lvNumbers"_s)->List()->Rows();
        QCOMPARE(rows->CheckedRows(), QList<int>({0, 1}));
        rows->SetChecked(0, false);
        rows->SetChecked(2, true);
        dialog->findChild<QPlainTextEdit *>(u"txtList"_s)->appendPlainText(kingNumber(3));
        QTRY_COMPARE(rows->Count(), 4);
        QCOMPARE(rows->CheckedRows(), QList<int>({1, 2, 3}));
        QTest::mouseClick(ButtonOf(dialog, "cmdTickNone"), Qt::LeftButton);
        QCOMPARE(rows->CheckedRows(), QList<int>());
        QTest::mouseClick(ButtonOf(dialog, "cmdTickAll"), Qt::LeftButton);
        QCOMPARE(rows->CheckedRows(), QList<int>({0, 1, 2, 3}));
        cancel(dialog);
    });
}

void tst_PasteList::aLineWithoutEndIsCut()
{
    paste(QString(1'000'000, u'7'), [](QDialog *dialog) {
        auto *box = dialog->findChild<QPlainTextEdit *>(u"txtList"_s);
        QVERIFY(box->toPlainText().size() < 3000);
        QTest::mouseClick(ButtonOf(dialog, "cmdPaste"), Qt::LeftButton);
        QVERIFY(box->toPlainText().size() < 3000);
        QVERIFY(rowsOf(dialog).last().contains(u"more than 2,000 characters"));
        cancel(dialog);
    });
}

void tst_PasteList::aListThatIsGivenUpIsOfferedAgain()
{
    paste(u"x"_s, [](QDialog *dialog) {
        dialog->findChild<QPlainTextEdit *>(u"txtList"_s)->setPlainText(u"052020291"_s);
        cancel(dialog);
    });
    paste(u"y"_s, [](QDialog *dialog) {
        QCOMPARE(dialog->findChild<QPlainTextEdit *>(u"txtList"_s)->toPlainText(), u"052020291"_s);
        cancel(dialog);
    });
    // What was not changed is no list of the user's.
    paste(u"z"_s, [](QDialog *dialog) {
        QCOMPARE(dialog->findChild<QPlainTextEdit *>(u"txtList"_s)->toPlainText(), u"z"_s);
        cancel(dialog);
    });
}

void tst_PasteList::nothingStartsWithoutLogin()
{
    Global.bLoggedIn = false;
    QApplication::clipboard()->setText(kingNumbers(2));
    desk->Desk.Boxes.ExpectDialog(u"frmPasteList"_s, retrieve);
    desk->Desk.Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::No);
    QVERIFY(desk->NewWindows([this] { desk->Do({u"click cmdPasteList"_s}); }).isEmpty());
    QCOMPARE(list(), nullptr);
}

void tst_PasteList::tenAreAskedForAtATime()
{
    const QList<JobWindow *> windows = paste(kingNumbers(12), retrieve);
    QCOMPARE(windows.size(), 10);
    QCOMPARE(Keys().size(), 10);
    for (int i = 0; i < windows.size(); ++i) {
        QCOMPARE(Handed(windows[i]).last(),
                 u"tboxCaseNumberQueue WASUP¦SUMMARY¦"_s + kingNumber(i + 1) + u'¦');
        QVERIFY(windows[i]->isVisible());
    }
    QCOMPARE(outcomes(), QStringList(10, u"Asked for .."_s) + QStringList(2, u"Waiting"_s));
    QCOMPARE(sum(), u"0 of 12 done."_s);
}

void tst_PasteList::theNextFollowsWhereOneEnds_data()
{
    QTest::addColumn<bool>("closed");
    QTest::newRow("stopped") << false;
    QTest::newRow("its window closed") << true;
}

void tst_PasteList::theNextFollowsWhereOneEnds()
{
    QFETCH(const bool, closed);
    const QList<JobWindow *> windows = paste(kingNumbers(12), retrieve);
    const auto end = [&](JobWindow *window) {
        if (closed)
            window->Unload(UnloadMode::MdiParent);
        else
            stop(window);
    };
    end(windows[3]);
    QTRY_COMPARE(outcomes().at(10), u"Asked for .."_s);
    QCOMPARE(OpenJobs().size(), closed ? 10 : 11);
    QCOMPARE(outcomes().at(3), u"Stopped"_s);
    QCOMPARE(outcomes().mid(10), (QStringList{u"Asked for .."_s, u"Waiting"_s}));
    end(windows[0]);
    QTRY_COMPARE(outcomes().last(), u"Asked for .."_s);
    // There is no thirteenth.
    end(windows[1]);
    QTRY_COMPARE(sum(), u"3 of 12 done: 3 stopped."_s);
    QCOMPARE(Keys().size(), 9);
}

void tst_PasteList::theCodeIsAskedForOnce()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    QApplication::clipboard()->setText(kingNumbers(11));
    desk->Desk.Boxes.ExpectDialog(u"frmPasteList"_s, retrieve);
    desk->ExpectCode(u" abc"_s);
    desk->Do({u"click cmdPasteList"_s});
    stop(OpenJobs().first());
    QTRY_COMPARE(OpenJobs().size(), 11);
    for (const JobWindow *window : OpenJobs())
        QCOMPARE(window->ClientAcctgCode, u"ABC"_s);
}

void tst_PasteList::theListOutlivesTheForm()
{
    const QList<JobWindow *> windows = paste(kingNumbers(11), retrieve);
    desk->Form()->Unload();
    stop(windows.first());
    QTRY_COMPARE(OpenJobs().size(), 11);
    QCOMPARE(outcomes().last(), u"Asked for .."_s);
}

void tst_PasteList::whatHasComeOfEach()
{
    CaseLines::FetchAtOnce(u"CaseSearchTabs"_s, {});
    ScriptedCourt court;
    court.Expect(requestOf(1)).Reply(summaryOf(1));
    court.Expect(requestOf(2)).Reply({u"ERROR -- Case is not on file"_s, u"EOF~"_s});
    court.Expect(requestOf(3)).Reply({u"ERROR~1 is not a valid case number~"_s, u"EOF~"_s});
    court.Expect(requestOf(4)).Reply({u"ERROR~unknown error~"_s, u"EOF~"_s});
    court.Expect(requestOf(5)).Reply({u"The court is currently unavailable"_s, u"EOF~"_s});
    court.Expect(requestOf(6)).Reply({u"EOF~"_s});
    for (int n = 7; n <= 12; ++n)
        court.Expect(requestOf(n)).Reply(summaryOf(n));
    desk->Desk.ConnectTo(court);
    hurry();
    // The run pauses before each tab.
    desk->Desk.Time.Run(0.2);
    QCOMPARE(paste(kingNumbers(12), retrieve).size(), 10);
    QTRY_COMPARE_WITH_TIMEOUT(outcomes(),
                              (QStringList{u"Found"_s, u"Not found"_s, u"Not found"_s, u"Failed"_s,
                                           u"Failed"_s, u"Not found"_s, u"Found"_s, u"Found"_s,
                                           u"Found"_s, u"Found"_s, u"Found"_s, u"Found"_s}),
                              30'000);
    QCOMPARE(sum(), u"12 of 12 done: 7 found, 3 not found, 2 failed."_s);
    QVERIFY(!ButtonOf(list(), "cmdStartNoMore")->isEnabled());
    QCOMPARE(court.Complaints(), QString());
}

/// It keeps its place in the queue, but nothing more comes of it.
void tst_PasteList::aCaseThatBreaksDownIsNotWaitedFor()
{
    CaseLines::FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    ScriptedCourt court;
    court.Expect(requestOf(1)).Reply(summaryOf(1));
    court.Expect(requestOf(1).replace(u"SUMMARY"_s, u"DOCKET"_s))
        .Reply({u"GRIDDEF~Date~Entry~wide~80~"_s, u"01/02/2003~A~"_s, u"EOF~"_s});
    desk->Desk.ConnectTo(court);
    hurry();
    desk->Desk.Time.Run(0.02);
    const QList<JobWindow *> windows = paste(kingNumbers(1), retrieve);
    QTRY_VERIFY(windows.first()->ShownJob()->KeepsPlace());
    QTRY_COMPARE(outcomes(), QStringList{u"Found, but not complete"_s});
    QCOMPARE(sum(), u"1 of 1 done: 1 found, but not complete."_s);
    QCOMPARE(court.Complaints(), QString());
}

void tst_PasteList::theEndIsShownAgain()
{
    const QList<JobWindow *> windows = paste(kingNumbers(2), retrieve);
    QTest::mouseClick(ButtonOf(list(), "cmdCloseList"), Qt::LeftButton);
    QCOMPARE(list(), nullptr);
    stop(windows[0]);
    Ticks(3);
    QCOMPARE(list(), nullptr);
    stop(windows[1]);
    QTRY_VERIFY(list());
    QCOMPARE(sum(), u"2 of 2 done: 2 stopped."_s);
    const QPointer<NumberListRun> run = qApp->findChild<NumberListRun *>();
    QVERIFY(run);
    QTest::mouseClick(ButtonOf(list(), "cmdCloseList"), Qt::LeftButton);
    QTRY_VERIFY(!run);
    QCOMPARE(list(), nullptr);
}

void tst_PasteList::aLogoutGivesUpTheRest_data()
{
    QTest::addColumn<bool>("announced");
    QTest::newRow("the session says so") << true;
    QTest::newRow("it is found out when one ends") << false;
}

void tst_PasteList::aLogoutGivesUpTheRest()
{
    QFETCH(const bool, announced);
    const QList<JobWindow *> windows = paste(kingNumbers(12), retrieve);
    Global.bLoggedIn = false;
    if (announced)
        Q_EMIT SessionEvents::Of().SessionChanged();
    else
        stop(windows.first());
    QTRY_COMPARE(outcomes().mid(10), QStringList(2, u"Not started: the session ended"_s));
    // Another session does not take them up.
    Global.bLoggedIn = true;
    stop(windows.last());
    Ticks(3);
    QCOMPARE(OpenJobs().size(), 10);
    QCOMPARE(outcomes().mid(10), QStringList(2, u"Not started: the session ended"_s));
}

/// It may take a while until the session is known to have ended with it.
void tst_PasteList::aLostLinkGivesUpTheRest()
{
    const QList<JobWindow *> windows = paste(kingNumbers(12), retrieve);
    Global.bConnectionClosed = true;
    stop(windows.first());
    QTRY_COMPARE(outcomes().mid(10), QStringList(2, u"Not started: the connection was lost"_s));
    QCOMPARE(OpenJobs().size(), 10);
}

void tst_PasteList::noMoreAreStarted()
{
    const QList<JobWindow *> windows = paste(kingNumbers(12), retrieve);
    QTest::mouseClick(ButtonOf(list(), "cmdStartNoMore"), Qt::LeftButton);
    QCOMPARE(sum(), u"2 of 12 done: 2 not started."_s);
    QVERIFY(!ButtonOf(list(), "cmdStartNoMore")->isEnabled());
    for (JobWindow *window : windows)
        stop(window);
    QTRY_COMPARE(sum(), u"12 of 12 done: 10 stopped, 2 not started."_s);
    QCOMPARE(OpenJobs().size(), 10);
    QCOMPARE(list()->windowTitle(), u"List of Numbers - Done"_s);
}

void tst_PasteList::closingTheListAsksAboutTheRest_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("go on") << u"Go On"_s << true << true;
    QTest::newRow("start no more") << u"Start No More"_s << true << false;
    QTest::newRow("cancel") << u"Cancel"_s << false << true;
}

void tst_PasteList::closingTheListAsksAboutTheRest()
{
    QFETCH(QString, answer);
    QFETCH(bool, closed);
    QFETCH(bool, goesOn);
    const QList<JobWindow *> windows = paste(kingNumbers(11), retrieve);
    desk->Desk.Boxes.ExpectChoice(
        u"Not all numbers of this list have been asked for. The others are asked for behind the "
        "closed window, which comes up again at the end."_s,
        u"List of Numbers"_s, answer);
    QTest::mouseClick(ButtonOf(list(), "cmdCloseList"), Qt::LeftButton);
    QCOMPARE(list() == nullptr, closed);
    stop(windows.first());
    Ticks(3);
    QCOMPARE(OpenJobs().size(), goesOn ? 11 : 10);
}

void tst_PasteList::theOutcomesAreCopied()
{
    paste(kingNumbers(1), retrieve);
    QTest::mouseClick(ButtonOf(list(), "cmdCopyList"), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(),
             u"Case Number\tCourt\tOutcome\n"_s + kingNumber(1)
                 + u"\tKing County, Washington Superior Courts\tAsked for .."_s);
}

/// As in every table: what Find hides is not meant, and the buttons say so.
void tst_PasteList::whatIsFoundIsCopied()
{
    paste(kingNumbers(3), retrieve);
    auto *view = Child<ResultListView>(list(), "lvNumbers");
    view->List()->Flush();
    view->selectRow(0);
    view->Tools()->Filter()->SetText(kingNumber(2));
    QTest::mouseClick(ButtonOf(list(), "cmdCopyList"), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(),
             u"Case Number\tCourt\tOutcome\n"_s + kingNumber(2)
                 + u"\tKing County, Washington Superior Courts\tAsked for .."_s);
    QCOMPARE(ButtonOf(list(), "cmdCopyList")->toolTip(),
             u"Copies the rows that are shown, with the column titles on top."_s);
    QCOMPARE(ButtonOf(list(), "cmdExportList")->toolTip(),
             u"Saves the rows that are shown as a file for a spreadsheet."_s);
}

void tst_PasteList::casesOfTwoListsShareThePlaces()
{
    QCOMPARE(paste(kingNumbers(7), retrieve).size(), 7);
    QCOMPARE(paste(u"A-1 Adams\n"_s + kingNumbers(7),
                   [](QDialog *dialog) {
                       QTest::mouseClick(ButtonOf(dialog, "cmdTickAll"), Qt::LeftButton);
                       retrieve(dialog);
                   })
                 .size(),
             3);
    QCOMPARE(lists().size(), 2);
    stop(OpenJobs().first());
    QTRY_COMPARE(OpenJobs().size(), 11);
}

void tst_PasteList::theKeyboardStaysWhereItIs()
{
    withElevenInMain([](frmMain &main, frmSearchWA &form) {
        stop(OpenJobs().first());
        QTRY_COMPARE(OpenJobs().size(), 11);
        QCOMPARE(main.ActiveChild(), &form);
    });
}

void tst_PasteList::whatIsMinimisedStaysSo()
{
    withElevenInMain([](const frmMain &main, const frmSearchWA &form) {
        form.parentWidget()->showMinimized();
        QCOMPARE(main.ActiveChild(), &form);
        stop(OpenJobs().first());
        QTRY_COMPARE(OpenJobs().size(), 11);
        Ticks(3);
        QVERIFY(form.parentWidget()->isMinimized());
    });
}

void tst_PasteList::printsWhenAsked()
{
    const QList<JobWindow *> windows = paste(kingNumbers(1), [](QDialog *dialog) {
        dialog->findChild<QCheckBox *>(u"chkAutoPrint"_s)->setChecked(true);
        retrieve(dialog);
    });
    QCOMPARE(windows.size(), 1);
    QVERIFY(Handed(windows.first()).contains(u"chkAutoPrint"_s));
}

HALVANE_TEST(tst_PasteList)
#include "tst_PasteList.moc"
