#include "controls/SaveDialog.h"
#include "core/GlobalState.h"
#include "support/BoxAnswers.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "tables/ListUser.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QTableWidget>

#include <memory>

// The context menu of a list, copying and export.

class tst_TableTools : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theMenuComesAtTheRowUnderThePointer();
    void theMenuOfferings();
    void theMenuComesByKeyAtTheCurrentRow();
    void theMenuComesOnTheHeaderToo();
    void whatCannotBeDoneIsGrey();
    void copyKeyTakesTheSelectedRows();
    void copyKeyGoesBeforeTheMenuBar();
    void copyWithNothingSelectedKeepsTheClipboard();
    void copyLeavesOutRowsThatAreHidden();
    void copyWithHeaders();
    void exportWritesTheRowsAsShown();
    void exportOffersAFileInTheReportFolder();
    void exportCancelled();
    void unwritableFile();
    void fullDiskKeepsTheOldFile();
    void listClosedWhileTheFileIsAskedFor();
    void theDialog();
    void theListIsClosedUnderTheDialog();
    void anyTable();

private:
    void exportTo(const QString &path)
    {
        ReplaceSaveDialog([this, path](const QString &offered) {
            suggested = offered;
            return path;
        });
        user->Item(u"mnuListExport"_s)->trigger();
    }

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<BoxAnswers> boxes;
    std::unique_ptr<ListUser> user;
    QString suggested;
};

void tst_TableTools::init()
{
    folder = std::make_unique<TestFolder>();
    boxes = std::make_unique<BoxAnswers>();
    user = std::make_unique<ListUser>();
    user->Show();
    user->Fill({u"ADAMS"_s, u"BAKER"_s, u"CLARK"_s, u"DAVIS"_s});
    QApplication::clipboard()->setText(u"before"_s);
    suggested.clear();
}

void tst_TableTools::cleanup()
{
    ReplaceSaveDialog({});
    const QString complaints = boxes->Complaints();
    user.reset();
    boxes.reset();
    folder.reset();
    QCOMPARE(complaints, QString());
}

void tst_TableTools::theMenuComesAtTheRowUnderThePointer()
{
    user->Click(2, {}, Qt::RightButton);
    user->AskForMenu(2);
    QVERIFY(user->Menu()->isVisible());
    QCOMPARE(user->Menu()->pos(), user->List->viewport()->mapToGlobal(user->Place(2)));
    user->Item(u"mnuListCopy"_s)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), u"CLARK\t02-2-3"_s);
}

void tst_TableTools::theMenuOfferings()
{
    QStringList offered;
    const QList<QAction *> actions = user->Menu()->actions();
    for (const QAction *action : actions)
        offered.append(action->isSeparator() ? u"-"_s : action->text());
    QCOMPARE(offered, QStringList({u"&Copy"_s, u"Copy with &Headers"_s, u"&Export to CSV .."_s,
                                   u"-"_s, u"&Find .."_s, u"&Reset Column Widths"_s}));
    user->Item(u"mnuListFind"_s)->trigger();
    QVERIFY(user->Bar()->isVisible());
}

void tst_TableTools::theMenuComesByKeyAtTheCurrentRow()
{
    user->Click(3);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(user->List, &event);
    QVERIFY(user->Menu()->isVisible());
    const QRect row = user->List->visualRect(user->List->currentIndex());
    QVERIFY(row.contains(user->List->viewport()->mapFromGlobal(user->Menu()->pos())));
    QVERIFY(user->Item(u"mnuListCopy"_s)->isEnabled());
}

void tst_TableTools::theMenuComesOnTheHeaderToo()
{
    QWidget *header = user->List->horizontalHeader()->viewport();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            header->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(header, &event);
    QVERIFY(user->Menu()->isVisible());
}

void tst_TableTools::whatCannotBeDoneIsGrey()
{
    const auto enabled = [this] {
        user->AskForMenu(0);
        QString states;
        const QList<QAction *> actions = user->Menu()->actions();
        for (const QAction *action : actions) {
            if (!action->isSeparator())
                states += action->isEnabled() ? u'1' : u'0';
        }
        user->Menu()->hide();
        return states;
    };
    // Copy, with headers, export, find, widths
    QCOMPARE(enabled(), u"00110"_s);
    user->Click(0);
    QCOMPARE(enabled(), u"11110"_s);
    user->Find(u"nobody"_s);
    QCOMPARE(enabled(), u"00010"_s);
}

void tst_TableTools::copyKeyTakesTheSelectedRows()
{
    user->Click(0);
    user->Click(2, Qt::ControlModifier);
    user->Click(1, Qt::ControlModifier);
    user->Click(1, Qt::ControlModifier);
    QTest::keySequence(user->List, QKeySequence::Copy);
    // The column that is too narrow to be seen is not copied.
    QCOMPARE(QApplication::clipboard()->text(), u"ADAMS\t02-2-1\nCLARK\t02-2-3"_s);
    // In the order of the list, whichever was selected first.
    user->Click(3);
    user->Click(0, Qt::ControlModifier);
    QTest::keySequence(user->List, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"ADAMS\t02-2-1\nDAVIS\t02-2-4"_s);
    user->Click(1);
    user->Click(3, Qt::ShiftModifier);
    QTest::keySequence(user->List, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"BAKER\t02-2-2\nCLARK\t02-2-3\nDAVIS\t02-2-4"_s);
}

void tst_TableTools::copyKeyGoesBeforeTheMenuBar()
{
    QMainWindow frame;
    bool menuHeardIt = false;
    QAction *edit = frame.menuBar()->addMenu(u"Edit"_s)->addAction(u"Copy"_s);
    edit->setShortcut(QKeySequence::Copy);
    connect(edit, &QAction::triggered, &frame, [&menuHeardIt] { menuHeardIt = true; });
    auto *list = new ResultListView(&frame);
    list->SetColumns({{u"Name"_s, 3000}});
    list->List()->AddRow({u"ADAMS"_s});
    list->List()->Flush();
    frame.setCentralWidget(list);
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    list->setFocus();
    list->selectRow(0);
    QTest::keySequence(list, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"ADAMS"_s);
    QVERIFY(!menuHeardIt);
}

void tst_TableTools::copyWithNothingSelectedKeepsTheClipboard()
{
    user->List->setFocus();
    QTest::keySequence(user->List, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"before"_s);
}

void tst_TableTools::copyLeavesOutRowsThatAreHidden()
{
    user->Find(u"A"_s);
    user->Find(u"DA"_s); // ADAMS, DAVIS
    QCOMPARE(user->InSight(), QStringList({u"ADAMS"_s, u"DAVIS"_s}));
    user->List->setFocus();
    QTest::keySequence(user->List, QKeySequence::SelectAll);
    QTest::keySequence(user->List, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"ADAMS\t02-2-1\nDAVIS\t02-2-4"_s);
}

void tst_TableTools::copyWithHeaders()
{
    user->Click(1);
    user->Item(u"mnuListCopyHeaders"_s)->trigger();
    QCOMPARE(QApplication::clipboard()->text(), u"Name\tCase Number\nBAKER\t02-2-2"_s);
}

void tst_TableTools::exportWritesTheRowsAsShown()
{
    user->List->List()->AddRow({u"=HYPERLINK(\"x\")"_s, u"0012"_s, u"SECRET"_s});
    user->List->List()->AddRow({u"@DAVIS"_s, u"1-2-03"_s, u"SECRET"_s});
    user->List->List()->Flush();
    // Selected or not: what counts is what is shown.
    user->Click(0);
    user->Find(u"0"_s);
    user->List->setRowHidden(1, true);
    const QString path = folder->Path(u"out.csv"_s);
    exportTo(path);
    QCOMPARE(folder->Read(u"out.csv"_s), QByteArray("\xEF\xBB\xBF"
                                                    "Name,Case Number\r\n"
                                                    "ADAMS,\"=\"\"02-2-1\"\"\"\r\n"
                                                    "CLARK,\"=\"\"02-2-3\"\"\"\r\n"
                                                    "DAVIS,\"=\"\"02-2-4\"\"\"\r\n"
                                                    "\"'=HYPERLINK(\"\"x\"\")\",\"=\"\"0012\"\"\""
                                                    "\r\n"
                                                    "'@DAVIS,\"=\"\"1-2-03\"\"\"\r\n"));
}

void tst_TableTools::exportOffersAFileInTheReportFolder()
{
    Global.strReportFolder = folder->Path(u"Reports"_s);
    exportTo({});
    QCOMPARE(suggested, folder->Path(u"Reports/SMITH, JOHN in King County.csv"_s));
}

void tst_TableTools::exportCancelled()
{
    Global.strReportFolder = folder->Path(u"Reports"_s);
    exportTo({});
    QVERIFY(QDir(folder->Path(u"Reports"_s)).isEmpty());
}

void tst_TableTools::unwritableFile()
{
    const QString path = folder->Path(u"taken.csv"_s);
    MakeUnreadable(path);
    boxes->Expect(u"The list could not be written to this file:\n\n"_s + path
                      + u"\n\nCheck that the folder exists, that you may write there, and that "
                        "there is room on the disk. Nothing was changed."_s,
                  u"Export to CSV .."_s, MsgIcon::Exclamation);
    exportTo(path);
    QCOMPARE(boxes->Answered(), 1);
}

void tst_TableTools::fullDiskKeepsTheOldFile()
{
    folder->Write(u"old.csv"_s, "what was there");
    const QString path = folder->Path(u"old.csv"_s);
    boxes->Expect(u"The list could not be written to this file:\n\n"_s + path
                      + u"\n\nCheck that the folder exists, that you may write there, and that "
                        "there is room on the disk. Nothing was changed."_s,
                  u"Export to CSV .."_s, MsgIcon::Exclamation);
    {
        const FullDisk full(20);
        exportTo(path);
    }
    QCOMPARE(boxes->Answered(), 1);
    QCOMPARE(folder->Read(u"old.csv"_s), QByteArray("what was there"));
}

void tst_TableTools::listClosedWhileTheFileIsAskedFor()
{
    const QString path = folder->Path(u"out.csv"_s);
    bool asked = false;
    ReplaceSaveDialog([&](const QString &) {
        asked = true;
        delete user->List;
        return path;
    });
    user->List->Tools()->ExportCsv();
    QVERIFY(asked);
    QVERIFY(!QFile::exists(path));
}

void tst_TableTools::theDialog()
{
    Global.strReportFolder = folder->Path();
    const QString path = folder->Path(u"named.csv"_s);
    boxes->ExpectDialog(u"SaveDialog"_s, [&](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        QCOMPARE(files->acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(files->directory().canonicalPath(), QDir(folder->Path()).canonicalPath());
        auto *name = files->findChild<QLineEdit *>(u"fileNameEdit"_s);
        QCOMPARE(name->text(), u"SMITH, JOHN in King County.csv"_s);
        name->setText(u"named"_s);
        dialog->accept();
    });
    user->List->Tools()->ExportCsv();
    // Whoever called it goes on meanwhile.
    QVERIFY(!QFile::exists(path));
    QTRY_VERIFY(QFile::exists(path));
    QTRY_VERIFY(!user->Window.findChild<QDialog *>());
}

void tst_TableTools::theListIsClosedUnderTheDialog()
{
    user->List->Tools()->ExportCsv();
    const QPointer<QFileDialog> dialog(user->Window.findChild<QFileDialog *>(u"SaveDialog"_s));
    QVERIFY(dialog->isVisible());
    delete user->List;
    Q_EMIT dialog->fileSelected(folder->Path(u"out.csv"_s));
    QVERIFY(!QFile::exists(folder->Path(u"out.csv"_s)));
    dialog->reject();
    QTRY_VERIFY(dialog.isNull());
}

void tst_TableTools::anyTable()
{
    QTableWidget table(2, 2);
    table.setHorizontalHeaderLabels({u"Docket"_s, u"Case No."_s});
    for (int row = 0; row < 2; ++row) {
        table.setItem(row, 0, new QTableWidgetItem(QString::number(row)));
        table.setItem(row, 1, new QTableWidgetItem(u"C"_s));
    }
    auto *tools = new TableTools(&table);
    table.show();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    table.setFocus();
    table.selectRow(1);
    tools->Copy(true);
    QCOMPARE(QApplication::clipboard()->text(), u"Docket\tCase No.\n1\tC"_s);
    QTest::keySequence(&table, QKeySequence::Find);
    QTest::keyClicks(QApplication::focusWidget(), u"0"_s);
    QVERIFY(table.isRowHidden(1) && !table.isRowHidden(0));
}

HALVANE_TEST(tst_TableTools)
#include "tst_TableTools.moc"
