#include "controls/FormWindow.h"
#include "controls/ModalDialog.h"
#include "controls/MsgBox.h"
#include "controls/SaveDialog.h"
#include "core/TurnHold.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(MsgButtons)
Q_DECLARE_METATYPE(MsgAnswer)

/// What boxes and dialogs have in common: they hold the turn, and go away with what they are about.
class tst_ModalDialog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aDialogHoldsTheTurn();
    void aBoxHoldsTheTurn();
    void theDialogForAFileHoldsTheTurn();
    void twoDialogsHoldItUntilBothAreAnswered();

    void theAnswerIsThatOfTheDialog_data();
    void theAnswerIsThatOfTheDialog();
    void aDialogThatIsRunCanBeReadAfterwards();
    void aDialogThatWentWithItsParentIsRejected();
    void aDialogGoesWithItsWindow();
    void noDialogOverAWindowThatHasGone();

    void aQuestionGoesWithItsWindow_data() { addQuestions(); }
    void aQuestionGoesWithItsWindow();
    void noQuestionAboutAWindowThatHasGone_data() { addQuestions(); }
    void noQuestionAboutAWindowThatHasGone();
    void aMessageIsShownAllTheSame();
    void aSettledQuestionIsAnsweredAsIfClosed_data() { addQuestions(); }
    void aSettledQuestionIsAnsweredAsIfClosed();
    void onlyTheMatterThatIsSettledGoes();
    void aQuestionUnderAnotherGoesToo();

private:
    /// Does this as soon as a dialog is up.
    void whenUp(const std::function<void(QDialog *)> &act)
    {
        QTimer::singleShot(
            0, this, [act] { act(qobject_cast<QDialog *>(QApplication::activeModalWidget())); });
    }
    static void addQuestions()
    {
        QTest::addColumn<MsgButtons>("buttons");
        QTest::addColumn<MsgAnswer>("escape");
        QTest::newRow("OK and Cancel") << MsgButtons::OkCancel << MsgAnswer::Cancel;
        QTest::newRow("Yes and No") << MsgButtons::YesNo << MsgAnswer::No;
    }
};

void tst_ModalDialog::aDialogHoldsTheTurn()
{
    bool held = false;
    whenUp([&](QDialog *dialog) {
        held = TurnHold::IsHeld();
        dialog->accept();
    });
    QVERIFY(!TurnHold::IsHeld());
    ModalDialog<QDialog>().Run();
    QVERIFY(held);
    QVERIFY(!TurnHold::IsHeld());
}

void tst_ModalDialog::aBoxHoldsTheTurn()
{
    bool held = false;
    whenUp([&](QDialog *dialog) {
        held = TurnHold::IsHeld();
        dialog->close();
    });
    MsgBox(nullptr, u"text"_s);
    QVERIFY(held);
    QVERIFY(!TurnHold::IsHeld());
}

void tst_ModalDialog::theDialogForAFileHoldsTheTurn()
{
    QWidget window;
    window.show();
    AskWhereToSave(&window,
                   {.Title = u"title"_s,
                    .Suggested = QDir::temp().filePath(u"list.csv"_s),
                    .Ending = u"csv"_s,
                    .Filters = {u"Lists (*.csv)"_s, u"All (*)"_s}},
                   this, [](const QString &) {});
    auto *dialog = window.findChild<QFileDialog *>(u"SaveDialog"_s);
    QVERIFY(dialog);
    QCOMPARE(dialog->windowTitle(), u"title"_s);
    QCOMPARE(dialog->defaultSuffix(), u"csv"_s);
    QCOMPARE(dialog->nameFilters(), (QStringList{u"Lists (*.csv)"_s, u"All (*)"_s}));
    QCOMPARE(dialog->selectedNameFilter(), u"Lists (*.csv)"_s);
    QCOMPARE(dialog->selectedFiles(), QStringList(QDir::temp().filePath(u"list.csv"_s)));
    QVERIFY(TurnHold::IsHeld());
    dialog->reject();
    QTRY_VERIFY(!TurnHold::IsHeld());
}

void tst_ModalDialog::twoDialogsHoldItUntilBothAreAnswered()
{
    QList<bool> held;
    whenUp([&](QDialog *below) {
        whenUp([](QDialog *above) { above->close(); });
        MsgBox(below, u"over it"_s);
        held.append(TurnHold::IsHeld());
        below->accept();
    });
    ModalDialog<QDialog>().Run();
    held.append(TurnHold::IsHeld());
    QCOMPARE(held, (QList<bool>{true, false}));
}

void tst_ModalDialog::theAnswerIsThatOfTheDialog_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("accepted") << int(QDialog::Accepted);
    QTest::newRow("rejected") << int(QDialog::Rejected);
}

void tst_ModalDialog::theAnswerIsThatOfTheDialog()
{
    QFETCH(int, answer);
    whenUp([answer](QDialog *dialog) { dialog->done(answer); });
    QCOMPARE(ModalDialog<QDialog>().Run(), answer);
}

void tst_ModalDialog::aDialogThatIsRunCanBeReadAfterwards()
{
    QPointer<QDialog> seen;
    {
        ModalDialog<QDialog> dialog;
        whenUp([](QDialog *one) {
            one->setWindowTitle(u"filled in"_s);
            one->accept();
        });
        dialog.Run();
        QVERIFY(!dialog.IsGone());
        QCOMPARE(dialog->windowTitle(), u"filled in"_s);
        seen = &*dialog;
    }
    QVERIFY(!seen);
}

void tst_ModalDialog::aDialogThatWentWithItsParentIsRejected()
{
    auto *parent = new QWidget;
    ModalDialog<QDialog> dialog(parent);
    whenUp([parent](QDialog *) { delete parent; });
    QCOMPARE(dialog.Run(), int(QDialog::Rejected));
    QVERIFY(dialog.IsGone());
    QVERIFY(!TurnHold::IsHeld());
}

void tst_ModalDialog::aDialogGoesWithItsWindow()
{
    const QPointer<FormWindow> window(new FormWindow);
    const FormWindow::RunScope scope(window);
    auto *inside = new QWidget(window);
    window->show();
    whenUp([&](QDialog *dialog) {
        window->Unload();
        QVERIFY(!dialog->isVisible());
    });
    QCOMPARE(ModalDialog<QDialog>(inside).Run(), int(QDialog::Rejected));
    QVERIFY(window);
}

void tst_ModalDialog::noDialogOverAWindowThatHasGone()
{
    auto *window = new FormWindow;
    const FormWindow::RunScope scope(window);
    window->Unload();
    bool shown = false;
    whenUp([&shown](QDialog *dialog) {
        shown = dialog != nullptr;
        if (dialog)
            dialog->reject();
    });
    QCOMPARE(ModalDialog<QDialog>(window).Run(), int(QDialog::Rejected));
    QCoreApplication::processEvents();
    QVERIFY(!shown);
}

void tst_ModalDialog::aQuestionGoesWithItsWindow()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, escape);
    auto *window = new FormWindow;
    const FormWindow::RunScope scope(window);
    window->show();
    whenUp([window](QDialog *) { window->Unload(); });
    QCOMPARE(MsgBox(window, u"Shall it?"_s, {}, buttons), escape);
}

void tst_ModalDialog::noQuestionAboutAWindowThatHasGone()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, escape);
    auto *window = new FormWindow;
    const FormWindow::RunScope scope(window);
    window->Unload();
    bool shown = false;
    whenUp([&shown](QDialog *dialog) {
        shown = dialog != nullptr;
        if (dialog)
            dialog->accept();
    });
    QCOMPARE(MsgBox(window, u"Shall it?"_s, {}, buttons), escape);
    QCoreApplication::processEvents();
    QVERIFY(!shown);
}

void tst_ModalDialog::aMessageIsShownAllTheSame()
{
    auto *window = new FormWindow;
    const FormWindow::RunScope scope(window);
    window->Unload();
    QString shown;
    whenUp([&shown](QDialog *dialog) {
        shown = qobject_cast<QMessageBox *>(dialog)->text();
        dialog->close();
    });
    QCOMPARE(MsgBox(window, u"It could not be saved."_s), MsgAnswer::Ok);
    QCOMPARE(shown, u"It could not be saved."_s);
}

void tst_ModalDialog::aSettledQuestionIsAnsweredAsIfClosed()
{
    QFETCH(MsgButtons, buttons);
    QFETCH(MsgAnswer, escape);
    const QObject matter;
    whenUp([&matter](QDialog *dialog) {
        SettleQuestions(&matter);
        QVERIFY(!dialog->isVisible());
    });
    QCOMPARE(MsgBox(nullptr, u"Shall it?"_s, {}, buttons, MsgIcon::Question, &matter), escape);
    // Settled again, when nobody asks any more.
    SettleQuestions(&matter);
}

void tst_ModalDialog::onlyTheMatterThatIsSettledGoes()
{
    const QObject matter;
    const QObject other;
    whenUp([&](QDialog *dialog) {
        SettleQuestions(&other);
        SettleQuestions(nullptr);
        QVERIFY(dialog->isVisible());
        qobject_cast<QMessageBox *>(dialog)->button(QMessageBox::Yes)->click();
    });
    QCOMPARE(MsgBox(nullptr, u"Shall it?"_s, {}, MsgButtons::YesNo, MsgIcon::Question, &matter),
             MsgAnswer::Yes);
}

void tst_ModalDialog::aQuestionUnderAnotherGoesToo()
{
    const QObject matter;
    MsgAnswer above = MsgAnswer::No;
    whenUp([&](QDialog *below) {
        whenUp([&](QDialog *box) {
            SettleQuestions(&matter);
            QVERIFY(!below->isVisible());
            QVERIFY(box->isVisible());
            qobject_cast<QMessageBox *>(box)->button(QMessageBox::Yes)->click();
        });
        above = MsgBox(nullptr, u"And that?"_s, {}, MsgButtons::YesNo, MsgIcon::Question);
    });
    QCOMPARE(MsgBox(nullptr, u"Shall it?"_s, {}, MsgButtons::YesNo, MsgIcon::Question, &matter),
             MsgAnswer::No);
    QCOMPARE(above, MsgAnswer::Yes);
}

HALVANE_TEST(tst_ModalDialog)
#include "tst_ModalDialog.moc"
