#include "casedetails/DocumentsDesk.h"
#include "link/Comm.h"
#include "session/frmLogin.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QScrollBar>

namespace {
const QString notLoggedIn =
    u"This Search Cannot be Started!\r\nThis is because you are not currently Logged-In to the "
    "Halvane Server.\r\n\r\nDo you want to Login Now?"_s;
const QString notLoggedInTitle = u"Cannot Perform Search! Not Logged In to Halvane"_s;
} // namespace

/// The list of documents in a case window: how it comes, and what its rows start.
class tst_CaseDocuments : public DocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void rowsComeWhileTheReplyIsRead();
    void theColumnsComeWithTheFourthLine();
    void aWidthThatCannotBeReadCostsTheHeaders();
    void whatWasChosenMeanwhileStays();
    void aListThatIsCutShortKeepsItsRows();
    void everyMessage_data();
    void everyMessage();
    void aListTakesThePlaceOfAMessage();

    void aDoubleClickStartsATransfer();
    void enterStartsItToo();
    void theDocumentComes();
    void aLaterRunLeavesTheRowsTheirLines();
    void theRowUnderTheMouseIsMeantWhileOthersAreHidden();
    void aRowThatIsHiddenStartsNothing();
    void aBrokenRowStartsItsDocument();
    void pagesOfPierce();
    void theCodeInForceGoesWithIt();
    void whatStartsNothing_data();
    void whatStartsNothing();

    void notLoggedInIsAskedFirst_data();
    void notLoggedInIsAskedFirst();
    void whatWasClickedIsFetchedBehindALogin();

    void theMenuHasTheCommandsAheadOfTheOthers();
    void theMenuOffersWhatItCanDo();
    void theMenuStartsATransfer();
    void nothingIsOfferedWhereThereIsNothing();
};

/// The run is on the stack while this happens, so each step waits for the one before it.
void tst_CaseDocuments::rowsComeWhileTheReplyIsRead()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine());
    const FlexGrid *grid = gridOf(window);
    QStringList seen;
    const auto whenRows = [&](int rows, const QStringList &next) {
        desk->When([=] { return grid->Rows() == rows; },
                   [this, &seen, grid, next] {
                       seen.append(grid->Cell(grid->Rows() - 1, 3));
                       court->SendTokens(next);
                   });
    };
    desk->When([this] { return court->Requests().value(1) == documentsLine(); },
               [this] { court->SendTokens(definition() + QStringList{threeDocuments().first()}); });
    whenRows(2, {threeDocuments()[1]});
    whenRows(3, {threeDocuments()[2]});
    whenRows(4, {u"EOF~"_s});
    Run(window);
    QCOMPARE(seen, (QStringList{u"Complaint"_s, u"Sealed (Unavail.)"_s, u"Answer"_s}));
    QCOMPARE(CellsOf(window, CaseTab::Documents),
             (QList<QStringList>{{u"Sub No"_s, u"Date"_s, u"Pages"_s, u"Description"_s},
                                 {u"1"_s, u"01/02/2003"_s, u"5"_s, u"Complaint"_s},
                                 {u"2"_s, u"01/02/2003"_s, u"7"_s, u"Sealed (Unavail.)"_s},
                                 {u"3"_s, u"01/02/2003"_s, u"5"_s, u"Answer"_s}}));
    QVERIFY(window->Tab(CaseTab::Documents).TabDone);
}

void tst_CaseDocuments::theColumnsComeWithTheFourthLine()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine());
    const FlexGrid *grid = gridOf(window);
    int columnsBefore = -1;
    desk->When([this] { return court->Requests().value(1) == documentsLine(); },
               [this] { court->SendTokens(definition().first(3)); });
    desk->When([window] { return window->lboxResponses.ListCount() == 3; },
               [&] {
                   columnsBefore = grid->Cols();
                   court->SendTokens(definition().mid(3));
               });
    desk->When([grid] { return grid->Cols() == 4 && grid->Rows() == 1; },
               [this] { court->SendTokens({u"EOF~"_s}); });
    Run(window);
    QCOMPARE(columnsBefore, 0);
    // Four lines hold no documents.
    QCOMPARE(CellsOf(window, CaseTab::Documents),
             (QList<QStringList>{{QString()}, {u"No Document Images Available For This Case."_s}}));
}

void tst_CaseDocuments::aWidthThatCannotBeReadCostsTheHeaders()
{
    QStringList lines = definition();
    lines[2] = u"COLDEF~A~99999999999~"_s;
    frmCaseDetails *window = pending();
    court->Expect(documentsLine()).Reply(lines + threeDocuments() + QStringList{u"EOF~"_s});
    Run(window);
    QVERIFY(desk->Folder.Logged(u"Error *** frmCaseDetails::InitDocGrid(): Error: Overflow"_s));
    QVERIFY(window->Tab(CaseTab::Documents).TabDone);
    QCOMPARE(CellsOf(window, CaseTab::Documents).mid(0, 2),
             (QList<QStringList>{{QString(), QString(), QString(), QString()},
                                 {u"1"_s, u"01/02/2003"_s, u"5"_s, u"Complaint"_s}}));
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 1);
}

void tst_CaseDocuments::whatWasChosenMeanwhileStays()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine());
    FlexGrid *grid = gridOf(window);
    QStringList many;
    for (int place = 1; place <= 60; ++place)
        many.append(rowOf(place, u"Paper %1"_s.arg(place)));
    desk->When([this] { return court->Requests().value(1) == documentsLine(); },
               [this, many, window] {
                   ClickTab(window, u"Documents"_s);
                   court->SendTokens(definition() + many.first(40));
               });
    desk->When([grid] { return grid->Rows() == 41; },
               [this, grid, many] {
                   grid->selectRow(7);
                   grid->verticalScrollBar()->setValue(20);
                   court->SendTokens(many.mid(40) + QStringList{u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(grid->Rows(), 61);
    QCOMPARE(grid->Tools()->Filter()->SelectedRows(), QList<int>{7});
    QCOMPARE(grid->verticalScrollBar()->value(), 20);
}

void tst_CaseDocuments::aListThatIsCutShortKeepsItsRows()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine()).Reply(definition() + threeDocuments());
    desk->When([window] { return gridOf(window)->Rows() == 4; },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
    Run(window);
    QVERIFY(window->Tab(CaseTab::Documents).TabIncomplete);
    QCOMPARE(gridOf(window)->Rows(), 4);
    QCOMPARE(window->Record().DocumentLines, definition() + threeDocuments());
}

void tst_CaseDocuments::everyMessage_data()
{
    QTest::addColumn<QStringList>("reply");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QString>("log");
    QTest::newRow("none") << QStringList()
                          << QStringList{u"No Document Images Available For This Case."_s}
                          << u"No Document Images Found For This Particular Case: "_s;
    QTest::newRow("not now")
        << QStringList{u"Court Documents N/A~"_s}
        << QStringList{u"Documents are not available at this time. Please try again later."_s}
        << u"Documents are not available at this time. Please try again later: "_s;
    QTest::newRow("not from this county")
        << QStringList{u"Documents n/a for: King County~"_s}
        << QStringList{u"Document Images Are Not Available From This County."_s}
        << u"Document Images Are Not Available From This County: "_s;
    QTest::newRow("a judgment")
        << QStringList{u"Documents for this Judgment are available by searching its associated "
                       "case~"_s}
        << QStringList{u"Documents for this Judgment may be available by searching its associated "
                       "case number."_s,
                       u"The Summary Tab contains the associated case number for this judgment."_s,
                       u"Tip: Double-Clicking on the associated case number entry will start a new "
                       "search."_s}
        << u"No Document Images Found For This Judgment Search: "_s;
}

void tst_CaseDocuments::everyMessage()
{
    QFETCH(QStringList, reply);
    QFETCH(QStringList, messages);
    QFETCH(QString, log);
    frmCaseDetails *window = pending();
    court->Expect(documentsLine()).Reply(reply + QStringList{u"EOF~"_s});
    Run(window);
    QList<QStringList> cells{{QString()}};
    for (const QString &message : messages)
        cells.append({message});
    QCOMPARE(CellsOf(window, CaseTab::Documents), cells);
    QVERIFY(desk->Folder.Logged(log + documentsLine()));
    // None of them is a document.
    ClickTab(window, u"Documents"_s);
    gridOf(window)->setCurrentIndex(gridOf(window)->model()->index(0, 0));
    QTest::keyClick(gridOf(window), Qt::Key_Return);
    QVERIFY(transfers().isEmpty());
}

void tst_CaseDocuments::aListTakesThePlaceOfAMessage()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine());
    desk->When([this] { return court->Requests().value(1) == documentsLine(); },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
    Run(window);
    QCOMPARE(gridOf(window)->Cell(1, 0),
             u"Retrieval of Document Images Incomplete. Please Retry Search."_s);
    QVERIFY(
        desk->Folder.Logged(u"Incomplete Document Images Available Request: "_s + documentsLine()));
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *prompt) {
        prompt->findChild<QPushButton *>(u"Command1"_s)->click();
    });
    ClickTab(window, u"Documents"_s);
    court->Expect(documentsLine()).Reply(definition() + threeDocuments() + QStringList{u"EOF~"_s});
    desk->Time.Run(0.02);
    searchNow(window, 8);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    QCOMPARE(gridOf(window)->Rows(), 4);
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 1);
}

void tst_CaseDocuments::aDoubleClickStartsATransfer()
{
    const frmCaseDetails *window = listing();
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 1);
    const frmDocTransfer *transfer = transfers().first();
    QCOMPARE(transfer->windowTitle(), u"Halvane - Case 02-1-00123-4 Retrieving Documents.."_s);
    QCOMPARE(transfer->txtDocRetrievalString, rowOf(3, u"Answer"_s));
    QCOMPARE(transfer->txtPageQty, u"5"_s);
    QCOMPARE(TextOf(transfer, "lblCaseNo"), u"Case #: 02-1-00123-4"_s);
    QCOMPARE(TextOf(transfer, "lblCounty"), u"County: King"_s);
    QCOMPARE(TextOf(transfer, "lblDocDescription"), u"Description: Answer"_s);
    QCOMPARE(TextOf(transfer, "lblPageCount"), u"Page Count: 5"_s);
    QVERIFY(transfer->isVisible() && !transfer->isModal());
    QVERIFY(transfer->Timer1->isActive());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{transfer->txtMasterKey});
}

void tst_CaseDocuments::enterStartsItToo()
{
    const frmCaseDetails *window = listing();
    gridOf(window)->setCurrentIndex(gridOf(window)->model()->index(0, 0));
    QTest::keyClick(gridOf(window), Qt::Key_Return);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(1, u"Complaint"_s));
}

void tst_CaseDocuments::theDocumentComes()
{
    const frmCaseDetails *window = listing();
    const QByteArray body = DocumentBody(20'000);
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply(body, "pdf"));
    doubleClick(window, 3);
    letGo(transfers().first());
    QVERIFY(finished(transfers().first()));
    const QString name = u"Reports/King 02-1-00123-4 01-02-2003 5 Pgs  Answer.pdf"_s;
    QCOMPARE(desk->Folder.Read(name), body);
    QCOMPARE(opened, QStringList{desk->Folder.Path(name)});
    QVERIFY(transfers().isEmpty());
}

/// A later run of the case empties the list of responses.
void tst_CaseDocuments::aLaterRunLeavesTheRowsTheirLines()
{
    frmCaseDetails *window = listing();
    court->Expect(SuperiorLine(u"NAMES"_s)).Reply(GridDef({u"SMITH~Plaintiff~"_s}));
    ClickTab(window, u"Names"_s);
    desk->Time.Run(0.02);
    searchNow(window, 1);
    QVERIFY(Finished(window));
    desk->Time.Stop();
    QVERIFY(!window->lboxResponses.Lines().contains(rowOf(3, u"Answer"_s)));
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(3, u"Answer"_s));
}

void tst_CaseDocuments::theRowUnderTheMouseIsMeantWhileOthersAreHidden()
{
    const frmCaseDetails *window = listing();
    FlexGrid *grid = gridOf(window);
    grid->Tools()->Filter()->SetText(u"answer"_s);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, {20, 5});
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(3, u"Answer"_s));
}

void tst_CaseDocuments::aRowThatIsHiddenStartsNothing()
{
    const frmCaseDetails *window = listing();
    FlexGrid *grid = gridOf(window);
    grid->setCurrentIndex(grid->model()->index(0, 0));
    grid->Tools()->Filter()->SetText(u"sealed"_s);
    QTest::keyClick(grid, Qt::Key_Return);
    actionOf(window, u"mnuDocRetrieve"_s)->trigger();
    QVERIFY(transfers().isEmpty());
}

void tst_CaseDocuments::aBrokenRowStartsItsDocument()
{
    const QString broken = rowOf(1, u"Exhibit<BR>second part"_s);
    const frmCaseDetails *window = listing({broken, rowOf(2, u"Answer"_s)});
    doubleClick(window, 2);
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 2);
    QCOMPARE(transfers().first()->txtDocRetrievalString, broken);
    QCOMPARE(TextOf(transfers().first(), "lblPageCount"), u"Page Count: 5"_s);
    QCOMPARE(transfers().last()->txtDocRetrievalString, rowOf(2, u"Answer"_s));
}

void tst_CaseDocuments::pagesOfPierce()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Documents"_s});
    court->Expect(u"WASUP¦SUMMARY¦02-1-00123-4¦Pierce¦¦"_s).Reply(superiorReply());
    court->Expect(u"WASUPDOC¦GETDOCTAB¦Pierce¦02-1-00123-4¦"_s)
        .Reply(definition() + QStringList{u"RETRIEVEDOC=x~01/02/2003~12~5~Answer~"_s, u"EOF~"_s});
    frmCaseDetails *window = Superior();
    window->txtCountyName = u"Pierce"_s;
    Run(window);
    ClickTab(window, u"Documents"_s);
    doubleClick(window, 1);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(TextOf(transfers().first(), "lblPageCount"), u"Page Count: 12"_s);
    QCOMPARE(transfers().first()->txtPageQty, u"12"_s);
}

void tst_CaseDocuments::theCodeInForceGoesWithIt()
{
    frmCaseDetails *window = listing();
    window->ClientAcctgCode = u"ACME"_s;
    doubleClick(window, 1);
    Global.ClientAcctgCode = u" new co "_s;
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 2);
    QCOMPARE(transfers().first()->sClientMatterText, u"ACME"_s);
    QCOMPARE(transfers().last()->sClientMatterText, u"NEW CO"_s);
}

void tst_CaseDocuments::whatStartsNothing_data()
{
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("a document that cannot be had") << QStringList{u"1~01/02/2003~7~Sealed~"_s};
    QTest::newRow("the word in small letters")
        << QStringList{u"retrievedoc=x~01/02/2003~7~Sealed~"_s};
    QTest::newRow("an empty line") << QStringList{QString()};
}

void tst_CaseDocuments::whatStartsNothing()
{
    QFETCH(QStringList, rows);
    const frmCaseDetails *window = listing(rows);
    QCOMPARE(gridOf(window)->Rows(), 2);
    doubleClick(window, 1);
    actionOf(window, u"mnuDocRetrieve"_s)->trigger();
    QVERIFY(transfers().isEmpty());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseDocuments::notLoggedInIsAskedFirst_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("login");
    QTest::addColumn<bool>("through");
    QTest::addColumn<bool>("starts");
    QTest::newRow("no") << 3 << false << false << false;
    QTest::newRow("yes") << 3 << true << true << true;
    QTest::newRow("yes, and given up") << 3 << true << false << false;
    QTest::newRow("a row that cannot be had") << 2 << true << true << false;
}

void tst_CaseDocuments::notLoggedInIsAskedFirst()
{
    QFETCH(int, row);
    QFETCH(bool, login);
    QFETCH(bool, through);
    const frmCaseDetails *window = listing();
    Global.bLoggedIn = false;
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation,
                       login ? MsgAnswer::Yes : MsgAnswer::No);
    if (login)
        desk->AnswerModalLogin(through);
    doubleClick(window, row);
    QVERIFY(desk->AllHappened());
    QTEST(!transfers().isEmpty(), "starts");
    QCOMPARE(desk->Boxes.Answered(), 1);
}

/// Another list can stand there when the login is through.
void tst_CaseDocuments::whatWasClickedIsFetchedBehindALogin()
{
    frmCaseDetails *window = listing();
    Global.bLoggedIn = false;
    desk->Boxes.Meanwhile([window] {
        auto &record = const_cast<CaseRecord &>(window->Record());
        record.DocumentLines = definition() + QStringList{rowOf(9, u"Another"_s)};
    });
    desk->Boxes.Expect(notLoggedIn, notLoggedInTitle, MsgIcon::Exclamation, MsgAnswer::Yes);
    desk->AnswerModalLogin(true);
    doubleClick(window, 3);
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(3, u"Answer"_s));
}

void tst_CaseDocuments::theMenuHasTheCommandsAheadOfTheOthers()
{
    const frmCaseDetails *window = listing();
    const QList<QAction *> actions = gridOf(window)->Tools()->Menu()->actions();
    QCOMPARE(actions.first()->objectName(), u"mnuDocRetrieve"_s);
    QCOMPARE(actions.first()->text(), u"Retrieve &Document"_s);
    QCOMPARE(actions[1]->objectName(), u"mnuDocRetrieveAll"_s);
    QCOMPARE(actions[1]->text(), u"Retrieve &All Documents .."_s);
    QVERIFY(actions[2]->isSeparator());
    QCOMPARE(actions[3]->objectName(), u"mnuListCopy"_s);
    // No other table of a case has it.
    QVERIFY(!window->Tab(CaseTab::Docket)
                 .Grid->Tools()
                 ->Menu()
                 ->findChild<QAction *>(u"mnuDocRetrieve"_s));
}

void tst_CaseDocuments::theMenuOffersWhatItCanDo()
{
    const frmCaseDetails *window = listing();
    FlexGrid *grid = gridOf(window);
    QMenu *menu = grid->Tools()->Menu();
    const auto offered = [&](int row) {
        grid->clearSelection();
        grid->setCurrentIndex(QModelIndex());
        if (row > 0)
            grid->selectRow(row - 1);
        menu->popup({});
        menu->hide();
        return actionOf(window, u"mnuDocRetrieve"_s)->isEnabled();
    };
    QVERIFY(!offered(0));
    QVERIFY(offered(1));
    QVERIFY(!offered(2));
    QVERIFY(offered(3));
    grid->selectRow(0);
    grid->Tools()->Filter()->SetText(u"answer"_s);
    menu->popup({});
    QVERIFY(!actionOf(window, u"mnuDocRetrieve"_s)->isEnabled());
    QVERIFY(actionOf(window, u"mnuDocRetrieveAll"_s)->isEnabled());
    menu->hide();
    grid->Tools()->Filter()->SetText(u"sealed"_s);
    menu->popup({});
    QVERIFY(!actionOf(window, u"mnuDocRetrieveAll"_s)->isEnabled());
    menu->hide();
}

void tst_CaseDocuments::theMenuStartsATransfer()
{
    const frmCaseDetails *window = listing();
    gridOf(window)->selectRow(2);
    actionOf(window, u"mnuDocRetrieve"_s)->trigger();
    QCOMPARE(transfers().size(), 1);
    QCOMPARE(transfers().first()->txtDocRetrievalString, rowOf(3, u"Answer"_s));
}

/// Nobody is asked to log in for nothing.
void tst_CaseDocuments::nothingIsOfferedWhereThereIsNothing()
{
    const frmCaseDetails *window = listing({u"2~01/02/2003~7~Sealed~"_s});
    Global.bLoggedIn = false;
    gridOf(window)->Tools()->Menu()->popup({});
    QVERIFY(!actionOf(window, u"mnuDocRetrieve"_s)->isEnabled());
    QVERIFY(!actionOf(window, u"mnuDocRetrieveAll"_s)->isEnabled());
    gridOf(window)->Tools()->Menu()->hide();
    actionOf(window, u"mnuDocRetrieveAll"_s)->setEnabled(true);
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    QVERIFY(frmQueue::Form().FIFO.Lines().isEmpty());
}

HALVANE_TEST(tst_CaseDocuments)
#include "tst_CaseDocuments.moc"
