#include "controls/FormWindow.h"
#include "controls/SaveDialog.h"
#include "core/TurnHold.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The question where to save: what its answer is called in, and what may go meanwhile.
class tst_SaveDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void itIsOutOfTheWayWhenItsAnswerComes();
    void itGoesWithItsWindow();
    void itsWindowGoesUnderTheQuestionToReplace();
    void anExistingFileIsReplacedWhenTheUserSaysSo_data();
    void anExistingFileIsReplacedWhenTheUserSaysSo();

private:
    void ask();
    /// Types the name and presses Save.
    void answer(const QString &name);
    /// Does this as soon as the user is asked whether to replace the file.
    void whenAskedToReplace(const std::function<void(QMessageBox *)> &act);

    std::unique_ptr<TestFolder> folder;
    QPointer<FormWindow> window;
    QPointer<QFileDialog> dialog;
    QStringList saved;
    std::function<void()> whileSaving;
    bool asked = false; ///< whether to replace
};

void tst_SaveDialog::init()
{
    folder = std::make_unique<TestFolder>();
    window = new FormWindow;
    window->show();
    saved.clear();
    whileSaving = [] {};
    asked = false;
}

void tst_SaveDialog::cleanup()
{
    if (window)
        window->Unload();
    QTRY_VERIFY(!window && !dialog);
    QVERIFY(!TurnHold::IsHeld());
}

void tst_SaveDialog::ask()
{
    AskWhereToSave(window,
                   {.Title = u"title"_s,
                    .Suggested = folder->Path(u"offered.txt"_s),
                    .Ending = u"txt"_s,
                    .Filters = {u"All (*)"_s}},
                   window, [this](const QString &path) {
                       saved.append(path);
                       whileSaving();
                   });
    dialog = window->findChild<QFileDialog *>(u"SaveDialog"_s);
    QVERIFY(dialog);
}

void tst_SaveDialog::answer(const QString &name)
{
    dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(name);
    static_cast<QDialog *>(dialog)->accept();
}

void tst_SaveDialog::whenAskedToReplace(const std::function<void(QMessageBox *)> &act)
{
    QTimer::singleShot(0, this, [this, act] {
        asked = true;
        act(qobject_cast<QMessageBox *>(QApplication::activeModalWidget()));
    });
}

/// What is saved may show how far it is, and be cancelled: nothing modal stands over it, and nobody
/// can answer twice.
void tst_SaveDialog::itIsOutOfTheWayWhenItsAnswerComes()
{
    bool inTheWay = true;
    bool held = false;
    whileSaving = [&] {
        inTheWay = (dialog && dialog->isVisible()) || QApplication::activeModalWidget();
        held = TurnHold::IsHeld();
    };
    ask();
    answer(u"mine"_s);
    QTRY_COMPARE(saved, QStringList(folder->Path(u"mine.txt"_s)));
    QVERIFY(!inTheWay);
    // No job came in between.
    QVERIFY(held);
}

/// Also while the window has a procedure on the stack, and is only hidden.
void tst_SaveDialog::itGoesWithItsWindow()
{
    const FormWindow::RunScope run(window);
    ask();
    window->Unload();
    QTRY_VERIFY(!dialog);
    QVERIFY(saved.isEmpty());
}

void tst_SaveDialog::itsWindowGoesUnderTheQuestionToReplace()
{
    folder->Write(u"there.txt"_s, "old");
    ask();
    whenAskedToReplace([this](QMessageBox *) { window->Unload(); });
    answer(u"there.txt"_s);
    QTRY_VERIFY(!window && !dialog);
    QVERIFY(asked);
    QVERIFY(saved.isEmpty());
}

void tst_SaveDialog::anExistingFileIsReplacedWhenTheUserSaysSo_data()
{
    QTest::addColumn<bool>("says");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void tst_SaveDialog::anExistingFileIsReplacedWhenTheUserSaysSo()
{
    QFETCH(bool, says);
    folder->Write(u"there.txt"_s, "old");
    ask();
    whenAskedToReplace([says](QMessageBox *box) {
        box->button(says ? QMessageBox::Yes : QMessageBox::No)->click();
    });
    answer(u"there.txt"_s);
    QVERIFY(asked);
    if (says)
        QTRY_COMPARE(saved, QStringList(folder->Path(u"there.txt"_s)));
    else
        QVERIFY(dialog && dialog->isVisible() && saved.isEmpty());
}

HALVANE_TEST(tst_SaveDialog)
#include "tst_SaveDialog.moc"
