#include "casedetails/DocumentsDesk.h"
#include "documents/frmAllDocuments.h"
#include "link/Comm.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QDir>
#include <QPlainTextEdit>

/// All documents of a case, from its window: when they are offered, and which.
class tst_CaseAllDocuments : public DocumentsTest
{
    Q_OBJECT
private Q_SLOTS:
    void theMenuStartsAllOfThem();
    void allOfThemAreThoseInSight();
    void allOfThemNeedALogin();
    void allOfThemAreNotOfferedWhileTheyCome();
    void allOfThemAreNotOfferedOfAListThatIsCutShort();
    void allOfThemInPierce();
    void aSecondCommandShowsTheWindowThatIsThere();
    void aWindowThatIsThroughTakesWhatIsInSightNow();
    void anotherCaseHasAWindowOfItsOwn();

private:
    static QList<frmAllDocuments *> allWindows()
    {
        QList<frmAllDocuments *> found;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (auto *one = qobject_cast<frmAllDocuments *>(window); one && !one->IsUnloaded())
                found.append(one);
        }
        return found;
    }
    static frmAllDocuments *all() { return allWindows().value(0); }
    /// Whether the menu offers all documents now.
    static bool offersAll(const CaseWindow *window)
    {
        QMenu *menu = gridOf(window)->Tools()->Menu();
        menu->popup({});
        menu->hide();
        return actionOf(window, u"mnuDocRetrieveAll"_s)->isEnabled();
    }
    QString list() const
    {
        return QString::fromUtf8(desk->Folder.Read(u"Reports/King 02-1-00123-4/documents.csv"_s));
    }
    /// Retrieves all that the menu would, and gives the files that are there then.
    QStringList filesOfAll(const CaseWindow *window);
};

QStringList tst_CaseAllDocuments::filesOfAll(const CaseWindow *window)
{
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    frmAllDocuments *transfer = all();
    if (!transfer)
        return {u"no window"_s};
    letGo(transfer);
    const QPushButton *stop = ButtonOf(transfer, "cmdStop");
    LinkDesk::WaitUntil([stop] { return !stop->isEnabled() && !Global.bSearchInProgress; });
    return QDir(desk->Folder.Path(u"Reports/King 02-1-00123-4"_s))
        .entryList(QDir::Files, QDir::Name);
}

void tst_CaseAllDocuments::theMenuStartsAllOfThem()
{
    const frmCaseDetails *window = listing();
    court->Expect(requestOf(1, u"Complaint"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF 2", "pdf"));
    QCOMPARE(
        filesOfAll(window),
        (QStringList{u"King 02-1-00123-4 01-02-2003 5 Pgs  Answer.pdf"_s,
                     u"King 02-1-00123-4 01-02-2003 5 Pgs  Complaint.pdf"_s, u"documents.csv"_s}));
    // What cannot be had is in the list, with the reason.
    QVERIFY(desk->Folder.Read(u"Reports/King 02-1-00123-4/documents.csv"_s).contains("Sealed"));
    QVERIFY(opened.isEmpty());
}

void tst_CaseAllDocuments::allOfThemAreThoseInSight()
{
    const frmCaseDetails *window = listing();
    gridOf(window)->Tools()->Filter()->SetText(u"answer"_s);
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    QCOMPARE(filesOfAll(window), (QStringList{u"King 02-1-00123-4 01-02-2003 5 Pgs  Answer.pdf"_s,
                                              u"documents.csv"_s}));
    QVERIFY(!list().contains(u"Sealed"));
}

void tst_CaseAllDocuments::allOfThemNeedALogin()
{
    const frmCaseDetails *window = listing();
    Global.bLoggedIn = false;
    desk->Boxes.Expect(u"This Search Cannot be Started!\r\nThis is because you are not currently "
                       "Logged-In to the Halvane Server.\r\n\r\nDo you want to Login Now?"_s,
                       u"Cannot Perform Search! Not Logged In to Halvane"_s, MsgIcon::Exclamation,
                       MsgAnswer::No);
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    QVERIFY(!all());
    QCOMPARE(desk->Boxes.Answered(), 1);
}

/// The list of what is there would say that these are all.
void tst_CaseAllDocuments::allOfThemAreNotOfferedWhileTheyCome()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine());
    QList<bool> offered;
    desk->When([this] { return court->Requests().value(1) == documentsLine(); },
               [this] { court->SendTokens(definition() + threeDocuments()); });
    desk->When([window] { return gridOf(window)->Rows() == 4; },
               [&] {
                   ClickTab(window, u"Documents"_s);
                   offered.append(offersAll(window));
                   // A shortcut does not ask the menu.
                   actionOf(window, u"mnuDocRetrieveAll"_s)->setEnabled(true);
                   actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
                   offered.append(all() != nullptr);
                   gridOf(window)->selectRow(0);
                   offersAll(window);
                   offered.append(actionOf(window, u"mnuDocRetrieve"_s)->isEnabled());
                   court->SendTokens({u"EOF~"_s});
               });
    Run(window);
    QCOMPARE(offered, (QList<bool>{false, false, true}));
    QVERIFY(offersAll(window));
}

void tst_CaseAllDocuments::allOfThemAreNotOfferedOfAListThatIsCutShort()
{
    frmCaseDetails *window = pending();
    court->Expect(documentsLine()).Reply(definition() + threeDocuments());
    desk->When([window] { return gridOf(window)->Rows() == 4; },
               [this] { desk->Time.Advance(ResponseLimitSeconds() + 1); });
    Run(window);
    desk->Boxes.ExpectDialog(u"frmOnDemand"_s, [](QDialog *prompt) { prompt->reject(); });
    ClickTab(window, u"Documents"_s);
    QVERIFY(!offersAll(window));
}

void tst_CaseAllDocuments::allOfThemInPierce()
{
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Documents"_s});
    const QString request = u"WASUPDOC¦GETDOC¦Pierce¦02-1-00123-4¦1¦~01/02/2003~12~1~Answer~"_s;
    court->Expect(u"WASUP¦SUMMARY¦02-1-00123-4¦Pierce¦¦"_s).Reply(superiorReply());
    court->Expect(u"WASUPDOC¦GETDOCTAB¦Pierce¦02-1-00123-4¦"_s)
        .Reply({u"TABNAME~Documents~"_s, u"TABDEF~Documents~"_s,
                u"COLDEF~Date~20~Pages~10~Sub No~10~Description~60~"_s, u"COLALIGNMENT~L~L~L~L~"_s,
                u"RETRIEVEDOC="_s + request, u"01/03/2003~7~2~Sealed~"_s, u"EOF~"_s});
    court->Expect(request).ReplyBytes(DocumentReply("%PDF", "pdf"));
    frmCaseDetails *window = Superior();
    window->txtCountyName = u"Pierce"_s;
    Run(window);
    ClickTab(window, u"Documents"_s);
    filesOfAll(window);
    const QStringList lines =
        QString::fromUtf8(desk->Folder.Read(u"Reports/Pierce 02-1-00123-4/documents.csv"_s))
            .split(u"\r\n"_s);
    QCOMPARE(lines.value(1).section(u',', 1, 4), u"01/02/2003,12,Answer,4"_s);
    QCOMPARE(lines.value(2).section(u',', 1, 3), u"01/03/2003,7,Sealed (Unavail.)"_s);
    QCOMPARE(all()->findChild<QPlainTextEdit *>(u"txtMissing"_s)->toPlainText(),
             u"01/03/2003 Sealed (Unavail.): The court does not give it out."_s);
}

/// Two of them would each write the list of the folder as if there were no other.
void tst_CaseAllDocuments::aSecondCommandShowsTheWindowThatIsThere()
{
    const frmCaseDetails *window = listing();
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    const frmAllDocuments *first = all();
    all()->hide();
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    QCOMPARE(allWindows().size(), 1);
    QVERIFY(first->isVisible());
    QCOMPARE(frmQueue::Form().FIFO.Lines(), QStringList{first->txtMasterKey});
    // One that was closed is none.
    all()->Unload(UnloadMode::MdiParent);
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    QCOMPARE(allWindows().size(), 1);
    QVERIFY(all()->Timer1->isActive());
}

void tst_CaseAllDocuments::aWindowThatIsThroughTakesWhatIsInSightNow()
{
    const frmCaseDetails *window = listing();
    gridOf(window)->Tools()->Filter()->SetText(u"answer"_s);
    court->Expect(requestOf(3, u"Answer"_s)).ReplyBytes(DocumentReply("%PDF", "pdf"));
    filesOfAll(window);
    gridOf(window)->Tools()->Filter()->SetText({});
    court->Expect(requestOf(1, u"Complaint"_s)).ReplyBytes(DocumentReply("%PDF 2", "pdf"));
    Global.ClientAcctgCode = u"new co"_s;
    filesOfAll(window);
    QCOMPARE(allWindows().size(), 1);
    QCOMPARE(TextOf(all(), "lblStatus"), u"Status: 2 of 2 Documents Are Here."_s);
    QCOMPARE(all()->ClientAcctgCode, u"NEW CO"_s);
    QCOMPARE(list().count(u"\r\n"), 4);
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

void tst_CaseAllDocuments::anotherCaseHasAWindowOfItsOwn()
{
    frmCaseDetails *window = listing();
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    window->txtCaseNumber = u"02-1-00124-4"_s;
    actionOf(window, u"mnuDocRetrieveAll"_s)->trigger();
    QCOMPARE(allWindows().size(), 2);
}

HALVANE_TEST(tst_CaseAllDocuments)
#include "tst_CaseAllDocuments.moc"
