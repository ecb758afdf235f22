#include "app/CaseChecks.h"
#include "app/PracticeCourt.h"
#include "casedetails/frmCaseDetails.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {
const QString troubledCase = u"90-2-99035-0"_s;
const QString failure =
    u"An error was encountered while retrieving this document. Please retry this search at a later "
    "time."_s;
const QString failureTitle = u"Halvane Document Retrieval Error.."_s;

template<typename Window>
QPointer<Window> opened()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *window = qobject_cast<Window *>(widget);
        if (window && !window->IsUnloaded())
            return window;
    }
    return nullptr;
}
} // namespace

/// The program retrieves the documents of the practice court, each of which comes with a trouble of
/// its own.
class tst_DocumentsOfTheCourt : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase_data() { PracticeCourts::AddRows(); }
    void initTestCase();
    void init();
    void cleanup();

    void aDocument_data();
    void aDocument();
    void aDocumentThatIsStopped_data();
    void aDocumentThatIsStopped();
    void allDocumentsOfACase();

private:
    /// A case whose list of documents is in sight.
    CaseWindow *listing(const QString &number);
    /// Double-clicks the document of this description; its transfer, taking its turn.
    QPointer<frmDocTransfer> start(const CaseWindow *window, const QString &description);
    /// The files in Reports, without the stream.
    QStringList files(const QString &folder = {}) const
    {
        QStringList names = QDir(user->Desk.Folder.Path(u"Reports/"_s + folder))
                                .entryList(QDir::Files | QDir::Hidden, QDir::Name);
        names.removeAll(u"Tempfile.bin"_s);
        return names;
    }
    /// Not a byte more or less than from the first mark of a PDF to its last.
    void verifyWhole(const QString &name) const;
    /// After whatever came of a document the link is clean: a case is asked for, and comes.
    void verifyNextJob();

    PracticeCourts court;
    std::unique_ptr<PracticeUser> user;
    QStringList shown;
};

void tst_DocumentsOfTheCourt::initTestCase()
{
    QCOMPARE(court.Start(), QString());
}

void tst_DocumentsOfTheCourt::init()
{
    user = std::make_unique<PracticeUser>(court.Port());
    shown.clear();
    ReplaceShell([this](const QString &path) {
        shown.append(QFileInfo(path).fileName());
        return true;
    });
}

void tst_DocumentsOfTheCourt::cleanup()
{
    const QString complaints = user->Complaints();
    delete opened<frmDocTransfer>();
    delete opened<frmAllDocuments>();
    user.reset();
    ReplaceShell({});
    QCOMPARE(complaints, QString());
}

CaseWindow *tst_DocumentsOfTheCourt::listing(const QString &number)
{
    FetchAtOnce({u"Documents"_s});
    if (!Global.bLoggedIn && !LogInAs(u"quiet"_s))
        return nullptr;
    user->Do({u"click optSearchType_2"_s, u"tick lboxMultiJurisdiction King"_s,
              u"type txtSearchName_0 "_s + number});
    auto *window = user->StartOne<CaseWindow>();
    if (!window || !user->Run(window))
        return nullptr;
    ClickTab(window, u"Documents"_s);
    return window;
}

QPointer<frmDocTransfer> tst_DocumentsOfTheCourt::start(const CaseWindow *window,
                                                        const QString &description)
{
    FlexGrid *grid = window->Tab(CaseTab::Documents).Grid;
    for (int row = 1; row < grid->Rows(); ++row) {
        if (grid->Cell(row, 3) != description)
            continue;
        const QModelIndex cell = grid->model()->index(row - 1, 3);
        grid->scrollTo(cell);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(cell).center());
    }
    QPointer<frmDocTransfer> transfer = opened<frmDocTransfer>();
    if (transfer)
        Hurry(transfer);
    return transfer;
}

void tst_DocumentsOfTheCourt::verifyWhole(const QString &name) const
{
    const QByteArray end = "%%EOF\n";
    QFile document(user->Desk.Folder.Path(u"Reports/"_s + name));
    QVERIFY(document.open(QIODevice::ReadOnly));
    QCOMPARE(document.read(5), "%PDF-");
    QVERIFY(document.seek(document.size() - end.size()));
    QCOMPARE(document.readAll(), end);
    QVERIFY(!name.contains(u"200 Megabytes") || document.size() >= 200'000'000);
}

void tst_DocumentsOfTheCourt::verifyNextJob()
{
    const QString number = u"98-2-00017-7"_s;
    user->Do({u"type txtSearchName_0 "_s + number});
    auto *window = user->StartOne<CaseWindow>();
    QVERIFY(window);
    QVERIFY(user->Run(window));
    QCOMPARE(window->lblDateFiled(), u"03/16/1998"_s);
}

void tst_DocumentsOfTheCourt::aDocument_data()
{
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QString>("file"); // what its name ends with
    QTest::addColumn<bool>("linkStays");
    const auto row = [](const char *description, const char *outcome, const char *file = "",
                        bool linkStays = true) {
        QTest::newRow(description)
            << QString::fromLatin1(outcome) << QString::fromLatin1(file) << linkStays;
    };
    row("Complaint", "shown", "03-15-1990 3 Pgs  Complaint.pdf");
    row("Exhibit As TIFF", "shown", "2 Pgs  Exhibit As TIFF.tif");
    row("Declaration Of Mailing", "shown", "2 Pgs  Declaration Of MailingBRand of publication.pdf");
    row("Order Re: Costs/Fees & \"Other\" (Amended)", "shown",
        "4 Pgs  Order Re CostsFees  Other Amended.pdf");
    row("Transcript Of 100 Pages", "shown", "100 Pgs  Transcript Of 100 Pages.pdf");
    row("12 Progress Notices", "shown", "12 Progress Notices.pdf");
    row("13 Progress Notices", "failed");
    row("Type That Is Not Opened", "kept", "Type That Is Not Opened.wpd");
    row("Runnable Type sh", "kept", "Runnable Type sh.sh");
    row("Runnable Type desktop", "kept", "Runnable Type desktop.desktop");
    row("Type With A Path", "failed");
    row("No Type", "failed");
    row("Length Too Large", "failed");
    row("Length Too Small", "shown", "Length Too Small.pdf");
    row("No Length", "failed");
    row("Link Dropped In The Middle", "failed", "", false);
    row("Document That Is Gone", "failed");
    row("200 Megabytes", "shown", "140 Pgs  200 Megabytes.pdf");
}

void tst_DocumentsOfTheCourt::aDocument()
{
    QFETCH(QString, outcome);
    QFETCH(QString, file);
    QFETCH(bool, linkStays);
    CaseWindow *window = listing(troubledCase);
    QVERIFY(window);
    const QPointer<frmDocTransfer> transfer =
        start(window, QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(transfer);
    if (outcome == u"failed")
        user->Desk.Boxes.Expect(failure, failureTitle, MsgIcon::Exclamation);
    const bool goes = outcome != u"kept";
    QTRY_VERIFY_WITH_TIMEOUT(!Global.bSearchInProgress
                                 && (goes ? !transfer || transfer->IsUnloaded()
                                          : !ButtonOf(transfer, "cmdStop")->isEnabled()),
                             60'000);
    const QStringList saved = files();
    QCOMPARE(saved.size(), outcome == u"failed" ? 0 : 1);
    QVERIFY2(saved.isEmpty() || saved.first().endsWith(file), qPrintable(saved.value(0)));
    if (file.endsWith(u".pdf") && file != u"Length Too Small.pdf")
        verifyWhole(saved.first());
    QCOMPARE(shown, outcome == u"shown" ? saved : QStringList());
    QCOMPARE(transfer.isNull() || transfer->IsUnloaded(), goes);
    if (linkStays)
        verifyNextJob();
}

void tst_DocumentsOfTheCourt::aDocumentThatIsStopped_data()
{
    QTest::addColumn<int>("least"); // per cent, when it is stopped
    QTest::newRow("Slow Document") << 5;
    QTest::newRow("Stall In The Middle") << 40;
    QTest::newRow("200 Megabytes") << 5;
}

void tst_DocumentsOfTheCourt::aDocumentThatIsStopped()
{
    QFETCH(int, least);
    Global.bShowAlerts = false;
    CaseWindow *window = listing(troubledCase);
    QVERIFY(window);
    const QPointer<frmDocTransfer> transfer =
        start(window, QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(transfer);
    const auto *bar = transfer->findChild<QProgressBar *>(u"ProgressBar1"_s);
    user->Desk.When([bar, least] { return bar->value() >= least; },
                    [transfer] { ButtonOf(transfer, "cmdStop")->click(); });
    QTRY_VERIFY_WITH_TIMEOUT(user->Desk.AllHappened() && !Global.bSearchInProgress, 60'000);
    QCOMPARE(files(), QStringList());
    QVERIFY(shown.isEmpty());
    verifyNextJob();
}

void tst_DocumentsOfTheCourt::allDocumentsOfACase()
{
    CaseWindow *window = listing(u"94-1-00042-1"_s);
    QVERIFY(window);
    window->Tab(CaseTab::Documents)
        .Grid->Tools()
        ->Menu()
        ->findChild<QAction *>(u"mnuDocRetrieveAll"_s)
        ->trigger();
    const QPointer<frmAllDocuments> all = opened<frmAllDocuments>();
    QVERIFY(all);
    Hurry(all);
    QTRY_VERIFY_WITH_TIMEOUT(!Global.bSearchInProgress && !ButtonOf(all, "cmdStop")->isEnabled(),
                             60'000);
    QCOMPARE(files(u"King 94-1-00042-1"_s).size(), 11);
    QVERIFY(files(u"King 94-1-00042-1"_s).contains(u"documents.csv"));
    QVERIFY(shown.isEmpty());
    verifyNextJob();
}

HALVANE_TEST(tst_DocumentsOfTheCourt)
#include "tst_DocumentsOfTheCourt.moc"
