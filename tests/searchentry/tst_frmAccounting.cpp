#include "searchentry/frmAccounting.h"

#include "controls/SearchTextBox.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "support/BoxAnswers.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
enum class Way { Ok, Enter, EnterOnCheckBox, Cancel, Escape, TitleBar };

const QString acctgFile = u"MruAcctg.txt"_s;
const QString requiredTitle = u"Halvane - Required Field is Empty"_s;
const QString required = u"You are required to enter a client accounting code. This code appears "
                         "on the invoice each month."_s;

QComboBox *entryOf(const QWidget *form)
{
    return form->findChild<QComboBox *>(u"cboxClientID"_s);
}

QCheckBox *checkBoxOf(const QWidget *form)
{
    return form->findChild<QCheckBox *>(u"chkDontShowAgain"_s);
}

void click(const QWidget *form, const QString &name)
{
    QTest::mouseClick(form->findChild<QPushButton *>(name), Qt::LeftButton);
}

void leave(QDialog *form, Way way)
{
    switch (way) {
    case Way::Ok:
        click(form, u"cmdOK"_s);
        break;
    case Way::Enter:
        QTest::keyClick(entryOf(form)->lineEdit(), Qt::Key_Return);
        break;
    case Way::EnterOnCheckBox:
        QTest::keyClick(checkBoxOf(form), Qt::Key_Return);
        break;
    case Way::Cancel:
        click(form, u"cmdCancel"_s);
        break;
    case Way::Escape:
        QTest::keyClick(entryOf(form)->lineEdit(), Qt::Key_Escape);
        break;
    case Way::TitleBar:
        form->close();
        break;
    }
}

/// Behind the announced answer, since a box that opens in it has to be answered too.
void later(QDialog *form, const std::function<void()> &act)
{
    QMetaObject::invokeMethod(form, act, Qt::QueuedConnection);
}

QString enableAcctg()
{
    return GetOptionStr(u"Accounting"_s, u"EnableAcctg"_s);
}
} // namespace

class tst_frmAccounting : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theWindow();
    void theKeyboardOrder();
    void theCodeInForceStandsInTheEntry();
    void theListIsReadWhenTheWindowOpens();
    void choosingFromTheList();
    void nothingIsCompletedWhileTyping();
    void charactersThatCannotTravelDoNotGoIn_data();
    void charactersThatCannotTravelDoNotGoIn();

    void aCharacterThatCannotBeSentIsReported_data();
    void aCharacterThatCannotBeSentIsReported();
    void aCodeThatIsNotWantedIsNotAskedAbout();
    void theWindowMayGoUnderTheQuestion();

    void waysOutWithACode_data();
    void waysOutWithACode();
    void waysOutWithoutACode_data();
    void waysOutWithoutACode();
    void aCompulsoryCodeThatIsMissing_data();
    void aCompulsoryCodeThatIsMissing();
    void aCancelledEntryIsNoCode();
    void aCodeInForceLetsCancelPass_data();
    void aCodeInForceLetsCancelPass();

    void theOptionIsSwitched_data();
    void theOptionIsSwitched();
    void theCodeIsRememberedAndMovesUp();
    void anEmptyCodeIsNotRemembered();
    void aListThatCannotBeWrittenStopsNothing_data();
    void aListThatCannotBeWrittenStopsNothing();
    void itsParentMayGoWhileItIsUp();

private:
    /// Opens the window, enters the code and leaves by the way; the window closes by it.
    void answer(Way way, const QString &code, bool dontShow = false);

    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<BoxAnswers> boxes;
};

void tst_frmAccounting::init()
{
    folder = std::make_unique<TestFolder>();
    boxes = std::make_unique<BoxAnswers>();
}

void tst_frmAccounting::cleanup()
{
    const QString complaints = boxes->Complaints();
    boxes.reset();
    folder.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmAccounting::answer(Way way, const QString &code, bool dontShow)
{
    boxes->ExpectDialog(u"frmAccounting"_s, [=](QDialog *form) {
        entryOf(form)->lineEdit()->clear();
        QTest::keyClicks(entryOf(form)->lineEdit(), code);
        checkBoxOf(form)->setChecked(dontShow);
        leave(form, way);
    });
    frmAccounting::ShowModal(nullptr);
}

void tst_frmAccounting::theWindow()
{
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        QVERIFY(form->isModal());
        QCOMPARE(form->windowTitle(), u"Halvane - Client Accounting Code"_s);
        QCOMPARE(checkBoxOf(form)->text(), u"Don't Show This Again (turn off client ID code)"_s);
        QVERIFY(!checkBoxOf(form)->isChecked());
        QCOMPARE(form->findChild<QPushButton *>(u"cmdOK"_s)->text(), u"OK"_s);
        QCOMPARE(form->findChild<QPushButton *>(u"cmdCancel"_s)->text(), u"Cancel"_s);
        const auto *label = form->findChild<QLabel *>(u"lblClientID"_s);
        QCOMPARE(label->text(), u"Client &ID Code:"_s);
        QCOMPARE(label->buddy(), entryOf(form));
        QCOMPARE(entryOf(form)->accessibleName(), u"Client ID code"_s);
        QCOMPARE(entryOf(form)->lineEdit()->accessibleName(), u"Client ID code"_s);
        // Everything is in sight at the size that the window opens with.
        QVERIFY(form->width() >= form->minimumSizeHint().width());
        QVERIFY(form->height() >= form->minimumSizeHint().height());
        form->reject();
    });
    frmAccounting::ShowModal(nullptr);
}

void tst_frmAccounting::theKeyboardOrder()
{
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        // A mnemonic is for the active window only.
        QVERIFY(QTest::qWaitForWindowActive(form));
        QCOMPARE(form->focusWidget(), entryOf(form));
        QStringList order;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
            order.append(form->focusWidget()->objectName());
        }
        QCOMPARE(order, (QStringList{u"chkDontShowAgain"_s, u"cmdOK"_s, u"cmdCancel"_s}));
        QTest::keyClick(form, Qt::Key_I, Qt::AltModifier);
        QCOMPARE(form->focusWidget(), entryOf(form));
        form->reject();
    });
    frmAccounting::ShowModal(nullptr);
}

void tst_frmAccounting::theCodeInForceStandsInTheEntry()
{
    Global.ClientAcctgCode = u"ABC"_s;
    folder->Write(acctgFile, "XYZ\r\nABC\r\n");
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        QCOMPARE(entryOf(form)->currentText(), u"ABC"_s);
        // Typing replaces it.
        QTest::keyClicks(form->focusWidget(), u"D"_s);
        QCOMPARE(entryOf(form)->currentText(), u"D"_s);
        form->reject();
    });
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(Global.ClientAcctgCode, u"ABC"_s);
}

void tst_frmAccounting::theListIsReadWhenTheWindowOpens()
{
    folder->Write(acctgFile, "ABC\r\n\r\n XYZ \r\n");
    QStringList shown;
    const auto read = [&](QDialog *form) {
        for (int i = 0; i < entryOf(form)->count(); ++i)
            shown.append(entryOf(form)->itemText(i));
        QCOMPARE(entryOf(form)->currentText(), QString());
        form->reject();
    };
    boxes->ExpectDialog(u"frmAccounting"_s, read);
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(shown, (QStringList{u"ABC"_s, u"XYZ"_s}));
    folder->Write(acctgFile, "NEW\r\n");
    shown.clear();
    boxes->ExpectDialog(u"frmAccounting"_s, read);
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(shown, QStringList{u"NEW"_s});
    folder->Remove(acctgFile);
    shown.clear();
    boxes->ExpectDialog(u"frmAccounting"_s, read);
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(shown, QStringList());
}

void tst_frmAccounting::choosingFromTheList()
{
    folder->Write(acctgFile, "ABC\r\nX|Y~Z\r\n");
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        QTest::keyClick(entryOf(form)->lineEdit(), Qt::Key_Down);
        QCOMPARE(entryOf(form)->currentText(), u"ABC"_s);
        // What came into the file by another way cannot travel either.
        QTest::keyClick(entryOf(form)->lineEdit(), Qt::Key_Down);
        QCOMPARE(entryOf(form)->currentText(), u"XYZ"_s);
        click(form, u"cmdOK"_s);
    });
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(Global.ClientAcctgCode, u"XYZ"_s);
}

void tst_frmAccounting::nothingIsCompletedWhileTyping()
{
    folder->Write(acctgFile, "ACME-2\r\nacme\r\n");
    answer(Way::Enter, u"ACME"_s);
    QCOMPARE(Global.ClientAcctgCode, u"ACME"_s);
}

void tst_frmAccounting::charactersThatCannotTravelDoNotGoIn_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("the bar") << u"A|B"_s;
    QTest::newRow("the broken bar") << u"A¦B"_s;
    QTest::newRow("the tilde") << u"A~B"_s;
    QTest::newRow("the at sign") << u"A@B"_s;
    QTest::newRow("the mark of the code itself") << u"A^^B"_s;
    QTest::newRow("control characters") << u"A\t\r\nB"_s;
}

void tst_frmAccounting::charactersThatCannotTravelDoNotGoIn()
{
    QFETCH(QString, typed);
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        entryOf(form)->lineEdit()->insert(typed);
        QCOMPARE(entryOf(form)->currentText(), u"AB"_s);
        click(form, u"cmdOK"_s);
    });
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(Global.ClientAcctgCode, u"AB"_s);
}

void tst_frmAccounting::aCharacterThatCannotBeSentIsReported_data()
{
    QTest::addColumn<MsgAnswer>("answer");
    QTest::newRow("Cancel") << MsgAnswer::Cancel;
    QTest::newRow("OK") << MsgAnswer::Ok;
}

void tst_frmAccounting::aCharacterThatCannotBeSentIsReported()
{
    QFETCH(MsgAnswer, answer);
    bool stays = false;
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        entryOf(form)->lineEdit()->setText(u"\u0141 & Co"_s);
        later(form, [&, form] {
            click(form, u"cmdOK"_s);
            stays = form->isVisible();
            entryOf(form)->lineEdit()->setText(u"ABC"_s);
            if (stays)
                click(form, u"cmdOK"_s);
        });
    });
    boxes->Expect(u"The character \"\u0141\" cannot be sent. A question mark goes in its "
                  "place.\r\n\r\nTo use the code all the same click OK. To change it click "
                  "Cancel."_s,
                  u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, answer,
                  MsgButtons::OkCancel);
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(stays, answer == MsgAnswer::Cancel);
    QCOMPARE(Global.ClientAcctgCode, stays ? u"ABC"_s : u"\u0141 & Co"_s);
    QCOMPARE(folder->Read(acctgFile), stays ? QByteArray("ABC\r\n") : QByteArray("? & Co\r\n"));
}

void tst_frmAccounting::aCodeThatIsNotWantedIsNotAskedAbout()
{
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        entryOf(form)->lineEdit()->setText(u"\u0141"_s);
        checkBoxOf(form)->setChecked(true);
        click(form, u"cmdOK"_s);
    });
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(Global.ClientAcctgCode, QString());
}

void tst_frmAccounting::theWindowMayGoUnderTheQuestion()
{
    auto *parent = new QWidget;
    boxes->ExpectDialog(u"frmAccounting"_s, [](QDialog *form) {
        entryOf(form)->lineEdit()->setText(u"\u0141"_s);
        later(form, [form] { click(form, u"cmdOK"_s); });
    });
    boxes->Meanwhile([parent] { delete parent; });
    boxes->Expect(u"The character \"\u0141\" cannot be sent. A question mark goes in its "
                  "place.\r\n\r\nTo use the code all the same click OK. To change it click "
                  "Cancel."_s,
                  u"Halvane Form Field Validation"_s, MsgIcon::Exclamation, MsgAnswer::Ok,
                  MsgButtons::OkCancel);
    frmAccounting::ShowModal(parent);
    QCOMPARE(Global.ClientAcctgCode, QString());
    QCOMPARE(enableAcctg(), u"0"_s);
}

void tst_frmAccounting::waysOutWithACode_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<bool>("compulsory");
    QTest::addColumn<bool>("taken");
    for (const bool compulsory : {false, true}) {
        const char *suffix = compulsory ? ", compulsory" : "";
        QTest::addRow("OK%s", suffix) << Way::Ok << compulsory << true;
        QTest::addRow("Enter%s", suffix) << Way::Enter << compulsory << true;
        QTest::addRow("Enter on the check box%s", suffix)
            << Way::EnterOnCheckBox << compulsory << true;
    }
    // With a compulsory code these three are in aCompulsoryCodeThatIsMissing.
    QTest::newRow("Cancel") << Way::Cancel << false << false;
    QTest::newRow("Esc") << Way::Escape << false << false;
    QTest::newRow("title bar") << Way::TitleBar << false << false;
}

void tst_frmAccounting::waysOutWithACode()
{
    QFETCH(Way, way);
    QFETCH(bool, compulsory);
    QFETCH(bool, taken);
    Global.bClientAcctgOpt = compulsory;
    answer(way, u"  Abc  "_s);
    QCOMPARE(Global.ClientAcctgCode, taken ? u"Abc"_s : QString());
    QCOMPARE(enableAcctg(), taken ? u"1"_s : u"0"_s);
    QCOMPARE(folder->Read(acctgFile), QByteArray(taken ? "Abc\r\n" : ""));
}

void tst_frmAccounting::waysOutWithoutACode_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QString>("codeAfter");
    QTest::newRow("OK") << Way::Ok << u""_s;
    QTest::newRow("Enter") << Way::Enter << u""_s;
    QTest::newRow("Cancel") << Way::Cancel << u"OLD"_s;
    QTest::newRow("Esc") << Way::Escape << u"OLD"_s;
    QTest::newRow("title bar") << Way::TitleBar << u"OLD"_s;
}

void tst_frmAccounting::waysOutWithoutACode()
{
    QFETCH(Way, way);
    QFETCH(QString, codeAfter);
    Global.ClientAcctgCode = u"OLD"_s;
    answer(way, u" "_s);
    QCOMPARE(Global.ClientAcctgCode, codeAfter);
}

void tst_frmAccounting::aCompulsoryCodeThatIsMissing_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<bool>("dontShow");
    QTest::addColumn<QString>("enabled");
    QTest::newRow("OK") << Way::Ok << false << u"1"_s;
    QTest::newRow("OK, not to be shown again") << Way::Ok << true << u"0"_s;
    QTest::newRow("Enter") << Way::Enter << false << u"1"_s;
    QTest::newRow("Cancel") << Way::Cancel << false << u"x"_s;
    QTest::newRow("Cancel, not to be shown again") << Way::Cancel << true << u"x"_s;
    QTest::newRow("Esc") << Way::Escape << false << u"x"_s;
    QTest::newRow("title bar") << Way::TitleBar << false << u"x"_s;
}

void tst_frmAccounting::aCompulsoryCodeThatIsMissing()
{
    QFETCH(Way, way);
    QFETCH(bool, dontShow);
    QFETCH(QString, enabled);
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"x"_s);
    Global.bClientAcctgOpt = true;
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        checkBoxOf(form)->setChecked(dontShow);
        later(form, [=] { leave(form, way); });
    });
    boxes->Expect(required, requiredTitle, MsgIcon::Exclamation);
    bool stayed = false;
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        // The option is written even where the code is then refused.
        QCOMPARE(enableAcctg(), enabled);
        stayed = form->isVisible() && form->focusWidget() == entryOf(form);
        checkBoxOf(form)->setChecked(false);
        QTest::keyClicks(entryOf(form)->lineEdit(), u"ABC"_s);
        click(form, u"cmdOK"_s);
    });
    frmAccounting::ShowModal(nullptr);
    QVERIFY(stayed);
    QCOMPARE(Global.ClientAcctgCode, u"ABC"_s);
    QCOMPARE(boxes->Answered(), 3);
}

void tst_frmAccounting::aCancelledEntryIsNoCode()
{
    // The search would take the code in force, which is still empty.
    Global.bClientAcctgOpt = true;
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        QTest::keyClicks(entryOf(form)->lineEdit(), u"ABC"_s);
        later(form, [=] { leave(form, Way::Cancel); });
    });
    boxes->Expect(required, requiredTitle, MsgIcon::Exclamation);
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        QCOMPARE(entryOf(form)->currentText(), u"ABC"_s);
        leave(form, Way::Ok);
    });
    frmAccounting::ShowModal(nullptr);
    QCOMPARE(Global.ClientAcctgCode, u"ABC"_s);
}

void tst_frmAccounting::aCodeInForceLetsCancelPass_data()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("Cancel") << Way::Cancel;
    QTest::newRow("Esc") << Way::Escape;
    QTest::newRow("title bar") << Way::TitleBar;
}

void tst_frmAccounting::aCodeInForceLetsCancelPass()
{
    QFETCH(Way, way);
    Global.bClientAcctgOpt = true;
    Global.ClientAcctgCode = u"OLD"_s;
    answer(way, u"NEW"_s);
    QCOMPARE(Global.ClientAcctgCode, u"OLD"_s);
}

void tst_frmAccounting::theOptionIsSwitched_data()
{
    QTest::addColumn<bool>("dontShow");
    QTest::addColumn<bool>("compulsory");
    QTest::addColumn<QString>("code");
    QTest::newRow("on") << false << false << u"ABC"_s;
    QTest::newRow("off") << true << false << u""_s;
    QTest::newRow("off, where a code is entered and compulsory") << true << true << u""_s;
}

void tst_frmAccounting::theOptionIsSwitched()
{
    QFETCH(bool, dontShow);
    QFETCH(bool, compulsory);
    QFETCH(QString, code);
    Global.bClientAcctgOpt = compulsory;
    Global.ClientAcctgCode = u"OLD"_s;
    Global.bEnableAcctg = dontShow;
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"x"_s);
    const QSignalSpy changes(&AccountingEvents::Of(), &AccountingEvents::OptionChanged);
    answer(Way::Ok, u"ABC"_s, dontShow);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes[0][0].toBool(), !dontShow);
    QCOMPARE(bool(Global.bEnableAcctg), !dontShow);
    QCOMPARE(enableAcctg(), dontShow ? u"0"_s : u"1"_s);
    QCOMPARE(Global.ClientAcctgCode, code);
    QCOMPARE(folder->Read(acctgFile), QByteArray(dontShow ? "" : "ABC\r\n"));
}

void tst_frmAccounting::theCodeIsRememberedAndMovesUp()
{
    answer(Way::Ok, u"A"_s);
    answer(Way::Ok, u"B"_s);
    answer(Way::Ok, u"a"_s);
    QCOMPARE(folder->Read(acctgFile), QByteArray("a\r\nB\r\n"));
}

void tst_frmAccounting::anEmptyCodeIsNotRemembered()
{
    folder->Write(acctgFile, "A\r\n");
    answer(Way::Ok, u""_s);
    QCOMPARE(folder->Read(acctgFile), QByteArray("A\r\n"));
    QCOMPARE(enableAcctg(), u"1"_s);
}

void tst_frmAccounting::aListThatCannotBeWrittenStopsNothing_data()
{
    QTest::addColumn<bool>("missing");
    QTest::addColumn<QString>("why");
    QTest::newRow("missing") << true << u"File not found"_s;
    QTest::newRow("unreadable") << false << u"Path/File access error"_s;
}

void tst_frmAccounting::aListThatCannotBeWrittenStopsNothing()
{
    QFETCH(bool, missing);
    QFETCH(QString, why);
    if (missing)
        folder->Remove(acctgFile);
    else
        MakeUnreadable(folder->Path(acctgFile));
    answer(Way::Ok, u"ABC"_s);
    QCOMPARE(Global.ClientAcctgCode, u"ABC"_s);
    QVERIFY(folder->Logged(u"Error writing the list of client codes: "_s + why));
}

void tst_frmAccounting::itsParentMayGoWhileItIsUp()
{
    const QPointer<QWidget> parent(new QWidget);
    boxes->ExpectDialog(u"frmAccounting"_s, [&](QDialog *form) {
        QCOMPARE(form->parentWidget(), parent);
        delete parent;
    });
    frmAccounting::ShowModal(parent);
    QVERIFY(!parent);
}

HALVANE_TEST(tst_frmAccounting)

#include "tst_frmAccounting.moc"
