// What a results window does with the report of its list: print it, save it, mail it.

#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "namesearch/DistrictSearch.h"
#include "reports/NotingViewer.h"
#include "support/HalvaneTest.h"
#include "support/MailProgram.h"
#include "support/Ticks.h"
#include "tables/ResultListView.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTest>

namespace {
QStringList firstCells(const Report &report, BlockKind kind)
{
    QStringList first;
    for (const ReportBlock &block : report.Blocks)
        if (block.Kind == kind)
            first.append(block.Cells.value(0));
    return first;
}

/// The button of a window that saves, and the one that mails.
const char *saveButton(Which which)
{
    return which == Which::Name ? "cmdSearchResults_6" : "cmdSaveResultToFile";
}
const char *emailButton(Which which)
{
    return which == Which::Name ? "cmdSearchResults_5" : "cmdEmail";
}

const QString mailFailed = u"Error sending email. Err: The mail program failed #: 4"_s;

QString saveFailed(const QString &path)
{
    return u"Unable to Save this file: "_s + path
           + u" - This may be because there are no results to save or print."_s;
}
} // namespace

class tst_ResultsReports : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void printing_data() { EachResultsWindow(); }
    void printing();
    void theButtonWaitsForTheEnd_data() { EachResultsWindow(); }
    void theButtonWaitsForTheEnd();
    void aRunThatGoesOn_data() { EachResultsWindow(); }
    void aRunThatGoesOn();
    void aSearchThatWaits();
    void aSearchThatWasStopped();
    void theClientCodeOfTheWindow();
    void hiddenRowsAreReported();
    void theOrderIsThatOfTheList();
    void peopleOfOneName();
    void paperInTheLog();
    void thePreviewGoesWithItsWindow();
    void saving_data() { EachResultsWindow(); }
    void saving();
    void theQuestionWhereToSave();
    void theAnswerIsWhereItIsSaved();
    void savingIsGivenUp();
    void savingToAFolderThatIsGone_data() { EachResultsWindow(); }
    void savingToAFolderThatIsGone();
    void theOldReportStays();
    void theWindowGoesUnderTheQuestion();
    void mailing_data() { EachResultsWindow(); }
    void mailing();
    void mailingReplacesTheSavedReport();
    void nothingUnsavedIsMailed();
    void aNameThatIsTooLongForADisk();
    void aMailThatFails_data();
    void aMailThatFails();
    void theWindowGoesUnderItsMail();

private:
    /// A search of this window that found two cases.
    NameResultsWindow *searched(Which which);
    QString reportPath(const NameResultsWindow *window) const;

    ReportsSeen seen;
};

void tst_ResultsReports::init()
{
    DistrictSearchTest::init();
    seen = {};
    NoteReports(&seen);
    QDir(desk->Folder.Path()).mkdir(u"Reports"_s);
    Global.strReportFolder = desk->Folder.Path(u"Reports"_s);
}

NameResultsWindow *tst_ResultsReports::searched(Which which)
{
    court->Expect(LineOf(which))
        .Reply({RowOf(which, u"SMITH, JOHN"_s), RowOf(which, u"SMITH, JON"_s), u"EOF~"_s});
    return Search(MakeWindow(which), {LineOf(which)});
}

QString tst_ResultsReports::reportPath(const NameResultsWindow *window) const
{
    return desk->Folder.Path(u"Reports/"_s) + window->windowTitle().replace(u'/', u'-') + u".Txt"_s;
}

void tst_ResultsReports::printing()
{
    QFETCH(Which, which);
    NameResultsWindow *window = searched(which);
    Click(window, "cmdSearchResults_2");
    QCOMPARE(seen.Shown.size(), 1);
    const Report &report = seen.Shown.first();
    QCOMPARE(report.Title, u"Halvane Search Results for: "_s + window->lblNameVal());
    const QStringList rows = firstCells(report, BlockKind::Row);
    QCOMPARE(rows.first(2), (QStringList{u"SMITH, JOHN"_s, u"SMITH, JON"_s}));
    QCOMPARE(firstCells(report, BlockKind::Total),
             QStringList(u"This search found 2 Matching Records"_s));
    QVERIFY(firstCells(report, BlockKind::Warning).isEmpty());
    // From the main window's menu it is the same.
    FormWindow *child = window;
    QVERIFY(child->HasReport());
    child->PrintDirect();
    QCOMPARE(seen.Shown.size(), 2);
    QVERIFY(seen.Shown.last() == report);
}

void tst_ResultsReports::theButtonWaitsForTheEnd()
{
    QFETCH(Which, which);
    const std::unique_ptr<NameResultsWindow> window(MakeWindow(which));
    QVERIFY(!ButtonOf(window.get(), "cmdSearchResults_2")->isEnabled());
    QVERIFY(ButtonOf(window.get(), saveButton(which))->isEnabled());
    QVERIFY(ButtonOf(window.get(), emailButton(which))->isEnabled());
}

void tst_ResultsReports::aRunThatGoesOn()
{
    QFETCH(Which, which);
    court->Expect(LineOf(which)).Reply({RowOf(which)});
    NameResultsWindow *window = Begin(MakeWindow(which), {LineOf(which)});
    const QString path = desk->Folder.Path(u"half.txt"_s);
    desk->When([&] { return window->RowCount() == 1; },
               [&] {
                   window->PrintDirect();
                   window->PrintToFile(path);
                   court->SendTokens({RowOf(which, u"SMITHY"_s), u"EOF~"_s});
               });
    QVERIFY(desk->Finish(window));
    QCOMPARE(window->RowCount(), 2);
    QCOMPARE(seen.Shown.size(), 1);
    QCOMPARE(firstCells(seen.Shown.first(), BlockKind::Warning).join(u'|'),
             u"WARNING:  This Search is Incomplete! Some results may not have been retrieved."_s);
    QCOMPARE(firstCells(seen.Shown.first(), BlockKind::Total),
             QStringList(u"This Incomplete Search Found 1 Matching Records"_s));
    QVERIFY(desk->Folder.Read(u"half.txt"_s)
                .contains("\r\nWARNING:  This Search is Incomplete! Some results may not have been "
                          "retrieved.\r\n"));
}

void tst_ResultsReports::aSearchThatWaits()
{
    NameResultsWindow *window = desk->MakePending({RequestLine()});
    window->PrintDirect();
    QCOMPARE(firstCells(seen.Shown.value(0), BlockKind::Total),
             QStringList(u"This Incomplete Search Found 0 Matching Records"_s));
    window->Search().Withdraw();
}

void tst_ResultsReports::aSearchThatWasStopped()
{
    court->Expect(RequestLine()).Reply({RowOf(Which::Name)});
    court->Expect(u"STOP¦"_s).Reply({u"EOF~"_s});
    NameResultsWindow *window = Begin(new frmNameSearchResults(u"WA"_s), {RequestLine()});
    Global.bShowAlerts = false;
    desk->When([&] { return window->RowCount() == 1; }, [&] { Click(window, "cmdStopSearching"); });
    QVERIFY(desk->Finish(window));
    window->PrintDirect();
    const Report report = seen.Shown.value(0);
    QCOMPARE(report.Blocks.last().Cells,
             QStringList(u"<------ End of Report: User Stopped Search. Some Results may not have "
                         "been retrieved! ------>"_s));
    QVERIFY(firstCells(report, BlockKind::Warning).isEmpty());
}

void tst_ResultsReports::theClientCodeOfTheWindow()
{
    NameResultsWindow *window = searched(Which::Civil);
    window->ClientAcctgCode = u"SMITH-12"_s;
    Global.ClientAcctgCode = u"ANOTHER"_s;
    window->PrintDirect();
    QVERIFY(firstCells(seen.Shown.value(0), BlockKind::HeadRow).contains(u"Client Matter:"_s));
    window->PrintToFile(desk->Folder.Path(u"code.txt"_s));
    QVERIFY(desk->Folder.Read(u"code.txt"_s).contains("Client Matter: SMITH-12\r\n"));
}

void tst_ResultsReports::hiddenRowsAreReported()
{
    NameResultsWindow *window = searched(Which::Name);
    ListOf(window)->setRowHidden(0, true);
    window->PrintDirect();
    QCOMPARE(firstCells(seen.Shown.value(0), BlockKind::Row).first(2),
             (QStringList{u"SMITH, JOHN"_s, u"SMITH, JON"_s}));
}

void tst_ResultsReports::theOrderIsThatOfTheList()
{
    NameResultsWindow *window = searched(Which::Name);
    // The first click sorts downwards.
    ClickHeader(ListOf(window), 0);
    const QStringList shown{RowsOf(window).at(0).at(0), RowsOf(window).at(1).at(0)};
    window->PrintDirect();
    QCOMPARE(firstCells(seen.Shown.value(0), BlockKind::Row).first(2), shown);
    ClickHeader(ListOf(window), 0);
    window->PrintDirect();
    QCOMPARE(firstCells(seen.Shown.value(1), BlockKind::Row).first(2),
             (QStringList{shown.at(1), shown.at(0)}));
}

void tst_ResultsReports::peopleOfOneName()
{
    const QString line = DistrictLine(u"BED"_s, u"CR"_s);
    court->Expect(line).Reply({CaseRow(u"A CASE"_s),
                               u"NCNMD~SMITH, JOHN~M~01/02/1960~W~600~180~SCAR~none~"_s,
                               u"EOF~"_s});
    auto *window = new frmDiscisNCNameResults;
    Search(window, {line});
    QVERIFY(window->ShowingDupes);
    Click(window, "cmdSearchResults_2");
    QCOMPARE(firstCells(seen.Shown.value(0), BlockKind::Row).first(), u"SMITH, JOHN"_s);
    QCOMPARE(firstCells(seen.Shown.value(0), BlockKind::Total),
             QStringList(u"This search found 1 Matching Records"_s));
    window->PrintToFile(desk->Folder.Path(u"names.txt"_s));
    QVERIFY(desk->Folder.Read(u"names.txt"_s).contains("Participant Name  Sex"));
    Click(window, "cmdViewDupes");
    Click(window, "cmdSearchResults_2");
    QCOMPARE(firstCells(seen.Shown.value(1), BlockKind::Row).first(), u"A CASE"_s);
}

void tst_ResultsReports::paperInTheLog()
{
    const QString line = u"Paper Size: "_s;
    const auto logged = [&] { return desk->Folder.Log().filter(line).join(u'|'); };
    searched(Which::Civil)->PrintDirect();
    QCOMPARE(logged(), QString());
    frmDiscisNCNameResults window;
    window.PrintDirect();
    QVERIFY(QRegularExpression(u"^Paper Size: (1|9) Orientation: 1$"_s).match(logged()).hasMatch());
}

void tst_ResultsReports::thePreviewGoesWithItsWindow()
{
    Global.bShowAlerts = false;
    NameResultsWindow *window = searched(Which::Name);
    window->PrintDirect();
    QCOMPARE(seen.Viewers, 1);
    window->Unload();
    QCOMPARE(seen.Viewers, 0);
}

void tst_ResultsReports::saving()
{
    QFETCH(Which, which);
    NameResultsWindow *window = searched(which);
    QString suggested;
    const auto standard = qScopeGuard([] { ReplaceSaveDialog({}); });
    ReplaceSaveDialog([&](const QString &offered) {
        suggested = offered;
        return desk->Folder.Path(u"mine.txt"_s);
    });
    Click(window, saveButton(which));
    QCOMPARE(suggested, reportPath(window));
    const QByteArray saved = desk->Folder.Read(u"mine.txt"_s);
    const QByteArray head =
        "Halvane Search Results for: " + window->lblNameVal().toUtf8() + "\r\n \r\n Date Printed: ";
    QVERIFY(saved.startsWith(head));
    QVERIFY(saved.contains("\r\nSMITH, JOHN  "));
    QVERIFY(saved.endsWith("\r\n<------ End of Report ------>\r\n"));
}

void tst_ResultsReports::theQuestionWhereToSave()
{
    NameResultsWindow *window = searched(Which::Civil);
    Click(window, "cmdSaveResultToFile");
    auto *dialog = window->findChild<QFileDialog *>(u"SaveDialog"_s);
    QVERIFY(dialog);
    QCOMPARE(dialog->windowTitle(), u"Save Halvane Report"_s);
    QCOMPARE(dialog->nameFilters(), (QStringList{u"Text Files (*.txt)"_s, u"All Files (*.*)"_s}));
    QCOMPARE(dialog->selectedNameFilter(), u"Text Files (*.txt)"_s);
    QCOMPARE(dialog->defaultSuffix(), u"txt"_s);
    QCOMPARE(dialog->directory().path(), Global.strReportFolder);
    QCOMPARE(dialog->selectedFiles(), QStringList(reportPath(window)));
    dialog->reject();
}

/// A name without an ending gets one.
void tst_ResultsReports::theAnswerIsWhereItIsSaved()
{
    NameResultsWindow *window = searched(Which::NonCivil);
    Click(window, "cmdSaveResultToFile");
    auto *dialog = window->findChild<QDialog *>(u"SaveDialog"_s);
    QVERIFY(dialog);
    TypeInto(dialog, "fileNameEdit", u"mine"_s);
    dialog->accept();
    QTRY_COMPARE(QDir(Global.strReportFolder).entryList(QDir::Files), QStringList(u"mine.txt"_s));
    QVERIFY(desk->Folder.Read(u"Reports/mine.txt"_s).contains("\r\nSMITH, JOHN  "));
}

void tst_ResultsReports::savingIsGivenUp()
{
    NameResultsWindow *window = searched(Which::Name);
    const auto standard = qScopeGuard([] { ReplaceSaveDialog({}); });
    ReplaceSaveDialog([](const QString &) { return QString(); });
    Click(window, "cmdSearchResults_6");
    QVERIFY(QDir(Global.strReportFolder).isEmpty());
}

void tst_ResultsReports::savingToAFolderThatIsGone()
{
    QFETCH(Which, which);
    NameResultsWindow *window = searched(which);
    const QString path = desk->Folder.Path(u"gone/mine.txt"_s);
    desk->Boxes.Expect(saveFailed(path), u"Halvane - Save to File Error"_s, MsgIcon::Exclamation);
    window->PrintToFile(path);
}

void tst_ResultsReports::theOldReportStays()
{
    NameResultsWindow *window = searched(Which::Name);
    const QString path = desk->Folder.Path(u"Reports/"_s) + QString(300, u'n');
    desk->Folder.Write(u"Reports/old.txt"_s, "old");
    desk->Boxes.Expect(saveFailed(path), u"Halvane - Save to File Error"_s, MsgIcon::Exclamation);
    window->PrintToFile(path);
    QCOMPARE(QDir(Global.strReportFolder).entryList(QDir::Files | QDir::Hidden),
             QStringList(u"old.txt"_s));
}

void tst_ResultsReports::theWindowGoesUnderTheQuestion()
{
    Global.bShowAlerts = false;
    NameResultsWindow *window = searched(Which::Name);
    desk->Boxes.Whenever(u"SaveDialog"_s, [](QDialog *) {});
    Click(window, "cmdSearchResults_6");
    const QPointer<QFileDialog> dialog = window->findChild<QFileDialog *>(u"SaveDialog"_s);
    QVERIFY(dialog);
    window->Unload();
    QTRY_VERIFY(!dialog);
    QVERIFY(QDir(Global.strReportFolder).isEmpty());
}

void tst_ResultsReports::mailing()
{
    QFETCH(Which, which);
    NameResultsWindow *window = searched(which);
    const MailProgram mail(desk->Folder.Path());
    Click(window, emailButton(which));
    QTRY_VERIFY(mail.WasCalled());
    QFile attached(mail.Arguments().value(6));
    QVERIFY(attached.open(QIODevice::ReadOnly));
    QFile saved(reportPath(window));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    const QByteArray report = saved.readAll();
    QVERIFY(report.contains("\r\nSMITH, JOHN  "));
    QCOMPARE(attached.readAll(), report);
    QVERIFY(!QFileInfo(attached.fileName()).fileName().contains(u' '));
}

void tst_ResultsReports::mailingReplacesTheSavedReport()
{
    NameResultsWindow *window = searched(Which::Name);
    const MailProgram mail(desk->Folder.Path());
    QFile old(reportPath(window));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("an older one");
    old.close();
    Click(window, "cmdSearchResults_5");
    QTRY_VERIFY(mail.WasCalled());
    QVERIFY(old.open(QIODevice::ReadOnly));
    QVERIFY(old.readAll().startsWith("Halvane Search Results for: "));
}

void tst_ResultsReports::nothingUnsavedIsMailed()
{
    NameResultsWindow *window = searched(Which::Name);
    const MailProgram mail(desk->Folder.Path());
    QFile old(reportPath(window));
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.close();
    QVERIFY(QDir(Global.strReportFolder).removeRecursively());
    desk->Boxes.Expect(saveFailed(reportPath(window)), u"Halvane - Save to File Error"_s,
                       MsgIcon::Exclamation);
    Click(window, "cmdSearchResults_5");
    Ticks(20);
    QVERIFY(!mail.WasCalled());
}

void tst_ResultsReports::aNameThatIsTooLongForADisk()
{
    NameResultsWindow *window = searched(Which::Name);
    window->Search().Record.Caption = QString(300, u'N');
    const MailProgram mail(desk->Folder.Path());
    desk->Boxes.Expect(saveFailed(Global.strReportFolder + u'/' + QString(300, u'N') + u".Txt"_s),
                       u"Halvane - Save to File Error"_s, MsgIcon::Exclamation);
    Click(window, "cmdSearchResults_5");
    Ticks(20);
    QVERIFY(!mail.WasCalled());
    QVERIFY(QDir(Global.strReportFolder).isEmpty());
}

void tst_ResultsReports::aMailThatFails_data()
{
    QTest::addColumn<bool>("showsFolder");
    QTest::newRow("read") << false;
    QTest::newRow("the folder is wanted") << true;
}

void tst_ResultsReports::aMailThatFails()
{
    QFETCH(bool, showsFolder);
    NameResultsWindow *window = searched(Which::Name);
    const MailProgram mail(desk->Folder.Path(), 4);
    QStringList opened;
    const auto standard = qScopeGuard([] { ReplaceShell({}); });
    ReplaceShell([&](const QString &path) {
        opened.append(path);
        return true;
    });
    QString text;
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [&](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        text = box->text();
        const QList<QAbstractButton *> buttons = box->buttons();
        for (QAbstractButton *button : buttons)
            if ((button->text() == u"Show &Folder") == showsFolder)
                button->click();
    });
    Click(window, "cmdSearchResults_5");
    QTRY_COMPARE(text, mailFailed);
    QTRY_COMPARE(desk->Boxes.Answered(), 1);
    QCOMPARE(opened, showsFolder ? QStringList(Global.strReportFolder) : QStringList());
    QVERIFY(QFileInfo::exists(reportPath(window)));
}

void tst_ResultsReports::theWindowGoesUnderItsMail()
{
    Global.bShowAlerts = false;
    NameResultsWindow *window = searched(Which::Name);
    const MailProgram mail(desk->Folder.Path(), 4);
    Click(window, "cmdSearchResults_5");
    window->Unload();
    // Who closed it still hears that no mail will come.
    QString text;
    desk->Boxes.ExpectDialog(u"MsgBox"_s, [&](QDialog *dialog) {
        text = qobject_cast<QMessageBox *>(dialog)->text();
        dialog->reject();
    });
    QTRY_COMPARE(text, mailFailed);
}

HALVANE_TEST(tst_ResultsReports)
#include "tst_ResultsReports.moc"
