#include "controls/FormWindow.h"
#include "controls/TabStrip.h"
#include "support/HalvaneTest.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
const QStringList fiveTabs{u"Summary"_s, u"Names"_s, u"Docket"_s, u"Judgments"_s, u"Charges"_s};

/// A case window: a strip, and something else that can have the focus.
class CaseForm : public FormWindow
{
public:
    CaseForm()
    {
        auto *column = new QVBoxLayout(this);
        Strip = new TabStrip(this);
        auto *frame = new QWidget(this);
        Entry = new QLineEdit(frame);
        column->addWidget(Strip);
        column->addWidget(frame);
        resize(700, 200);
        Strip->SetCaptions(fiveTabs);
        connect(Strip, &TabStrip::TabClicked, this,
                [this](const QString &caption) { Clicked.append(caption); });
    }

    TabStrip *Strip;
    QLineEdit *Entry;
    QStringList Clicked;
};

/// A platform on which a tab is selected when the button is let go.
class ReleaseStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *answer) const override
    {
        return hint == SH_TabBar_SelectMouseType
                   ? QEvent::MouseButtonRelease
                   : QProxyStyle::styleHint(hint, option, widget, answer);
    }
};
} // namespace

class tst_TabStrip : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup() { form.reset(); }

    void captionsAsGiven_data();
    void captionsAsGiven();
    void captionsShown_data();
    void captionsShown();
    void captionsAreSetInSilence();
    void theSelectedCaptionIsKept();
    void aSelectedCaptionThatIsGone();
    void allButTheFirst();

    void selectCaption_data();
    void selectCaption();
    void noTabs();

    void click();
    void clickOnTheSelectedTab();
    void doubleClickTellsOnce();
    void otherButtonsAndPlaces();
    void clickWhereReleaseSelects();
    void theWheelSelectsNothing();
    void mnemonic();
    void screenReader();
    void whoHearsOfAClickMayDeleteTheStrip();

    void keysOnTheStrip_data();
    void keysOnTheStrip();
    void keysAnywhereInTheWindow_data();
    void keysAnywhereInTheWindow();
    void oneTabHasNoNext();
    void keysOfAnotherWindow();
    void keysInTheMainWindow();
    void keysAfterTheWindowMoved();

private:
    QPoint tab(int index) const { return form->Strip->tabRect(index).center(); }
    void press(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers keys = {})
    {
        QTest::keyClick(widget, key, keys);
    }

    std::unique_ptr<CaseForm> form;
};

void tst_TabStrip::init()
{
    form = std::make_unique<CaseForm>();
    form->show();
    QVERIFY(QTest::qWaitForWindowActive(form.get()));
    form->Entry->setFocus();
}

void tst_TabStrip::captionsAsGiven_data()
{
    QTest::addColumn<QStringList>("captions");
    QTest::addRow("more") << fiveTabs + QStringList{u"Sentence"_s, u"Accounting"_s};
    QTest::addRow("fewer") << fiveTabs.mid(0, 2);
    QTest::addRow("others") << QStringList{u"Summary"_s, u"Finance"_s, u"Names"_s};
    QTest::addRow("ampersands") << QStringList{u"&Summary"_s, u"A & B"_s, u"&"_s, u"&A & B"_s};
    QTest::addRow("markup") << QStringList{u"<b>Names</b>"_s};
    QTest::addRow("none") << QStringList();
}

void tst_TabStrip::captionsAsGiven()
{
    QFETCH(const QStringList, captions);
    form->Strip->SetCaptions(captions);
    QCOMPARE(form->Strip->Captions(), captions);
    QCOMPARE(form->Strip->count(), captions.size());
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::captionsShown_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text"); // "&" marks a mnemonic, "&&" is one "&"
    QTest::addRow("plain") << u"Docket"_s << u"Docket"_s;
    QTest::addRow("first") << u"&Docket"_s << u"&Docket"_s;
    QTest::addRow("inside") << u"A & B"_s << u"A && B"_s;
    QTest::addRow("letter") << u"Do&cket"_s << u"Do&&cket"_s;
    QTest::addRow("both") << u"&A & B"_s << u"&A && B"_s;
    QTest::addRow("alone") << u"&"_s << u"&&"_s;
    QTest::addRow("last") << u"Docket&"_s << u"Docket&&"_s;
}

void tst_TabStrip::captionsShown()
{
    QFETCH(const QString, caption);
    form->Strip->SetCaptions({caption});
    QTEST(form->Strip->tabText(0), "text");
    QCOMPARE(form->Strip->SelectedCaption(), caption);
}

void tst_TabStrip::captionsAreSetInSilence()
{
    form->Strip->SelectCaption(u"CHARGES"_s);
    form->Strip->SetCaptions({u"Charges"_s, u"Summary"_s});
    form->Strip->SetCaptions({u"Names"_s});
    form->Strip->SetCaptions({});
    form->Strip->SetCaptions(fiveTabs);
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::theSelectedCaptionIsKept()
{
    form->Strip->SelectCaption(u"Docket"_s);
    form->Strip->SetCaptions({u"Summary"_s, u"Docket"_s, u"Names"_s});
    QCOMPARE(form->Strip->SelectedCaption(), u"Docket"_s);
}

void tst_TabStrip::aSelectedCaptionThatIsGone()
{
    form->Strip->SelectCaption(u"Docket"_s);
    form->Strip->SetCaptions({u"Summary"_s, u"Names"_s, u"Charges"_s, u"Sentence"_s});
    QCOMPARE(form->Strip->SelectedCaption(), u"Summary"_s);
}

void tst_TabStrip::allButTheFirst()
{
    form->Strip->SelectCaption(u"Docket"_s);
    form->Strip->SetCaptions({u"Summary"_s});
    QCOMPARE(form->Strip->Captions(), QStringList{u"Summary"_s});
    QCOMPARE(form->Strip->SelectedCaption(), u"Summary"_s);
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::selectCaption_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("selected");
    QTest::addRow("as it stands") << u"Docket"_s << u"Docket"_s;
    QTest::addRow("capitals") << u"DOCKET"_s << u"Docket"_s;
    QTest::addRow("ampersand before the word") << u"&Docket"_s << u"Docket"_s;
    QTest::addRow("ampersand before the caption") << u"FINANCE"_s << u"&Finance"_s;
    QTest::addRow("both") << u"&FINANCE"_s << u"&Finance"_s;
    QTest::addRow("tail") << u"Names"_s << u"Names"_s;
    QTest::addRow("tail of a longer caption") << u"ENTRIES"_s << u"Old Entries"_s;
    QTest::addRow("no head") << u"DOCK"_s << u"Judgments"_s;
    QTest::addRow("unknown") << u"SCHEDULE"_s << u"Judgments"_s;
    QTest::addRow("nothing") << QString() << u"Judgments"_s;
    QTest::addRow("ampersand alone") << u"&"_s << u"Judgments"_s;
}

void tst_TabStrip::selectCaption()
{
    QFETCH(const QString, word);
    form->Strip->SetCaptions(fiveTabs
                             + QStringList{u"&Finance"_s, u"Old Entries"_s, u"Other Names"_s});
    form->Strip->SelectCaption(u"Judgments"_s);
    form->Strip->SelectCaption(word);
    QTEST(form->Strip->SelectedCaption(), "selected");
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::noTabs()
{
    form->Strip->SetCaptions({});
    QCOMPARE(form->Strip->SelectedCaption(), QString());
    form->Strip->SelectCaption(u"Summary"_s);
    form->Strip->setFocus();
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_End, Qt::Key_Home, Qt::Key_Space})
        press(form->Strip, key);
    press(form->Strip, Qt::Key_Tab, Qt::ControlModifier);
    press(form->Strip, Qt::Key_1, Qt::ControlModifier);
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::click()
{
    QTest::mouseClick(form->Strip, Qt::LeftButton, {}, tab(2));
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
    QCOMPARE(form->Strip->SelectedCaption(), u"Docket"_s);
}

void tst_TabStrip::clickOnTheSelectedTab()
{
    QTest::mouseClick(form->Strip, Qt::LeftButton, {}, tab(0));
    QTest::mouseClick(form->Strip, Qt::LeftButton, {}, tab(0));
    QCOMPARE(form->Clicked, QStringList({u"Summary"_s, u"Summary"_s}));
}

void tst_TabStrip::doubleClickTellsOnce()
{
    QTest::mouseClick(form->Strip, Qt::LeftButton, {}, tab(1));
    QTest::mouseDClick(form->Strip, Qt::LeftButton, {}, tab(1));
    QCOMPARE(form->Clicked, QStringList({u"Names"_s, u"Names"_s}));
}

void tst_TabStrip::otherButtonsAndPlaces()
{
    QTest::mouseClick(form->Strip, Qt::RightButton, {}, tab(1));
    QTest::mouseClick(form->Strip, Qt::MiddleButton, {}, tab(1));
    QTest::mouseClick(form->Strip, Qt::LeftButton, {}, {form->Strip->width() - 2, 5});
    QCOMPARE(form->Clicked, QStringList());
    QCOMPARE(form->Strip->currentIndex(), 0);
}

void tst_TabStrip::clickWhereReleaseSelects()
{
    ReleaseStyle style;
    form->Strip->setStyle(&style);
    QTest::mousePress(form->Strip, Qt::LeftButton, {}, tab(2));
    QCOMPARE(form->Clicked, QStringList());
    QTest::mouseRelease(form->Strip, Qt::LeftButton, {}, tab(2));
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
    QTest::mousePress(form->Strip, Qt::LeftButton, {}, tab(1));
    QTest::mouseRelease(form->Strip, Qt::LeftButton, {}, tab(3));
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
    form->Strip->setStyle(nullptr);
}

void tst_TabStrip::theWheelSelectsNothing()
{
    const QPoint place = tab(0);
    QWheelEvent turn(place, form->Strip->mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(form->Strip, &turn);
    QCOMPARE(form->Strip->currentIndex(), 0);
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::mnemonic()
{
    form->Strip->SetCaptions({u"Summary"_s, u"&Docket"_s, u"&Names & More"_s, u"A &More"_s});
    press(form->Entry, Qt::Key_D, Qt::AltModifier);
    press(form->Entry, Qt::Key_N, Qt::AltModifier);
    press(form->Entry, Qt::Key_M, Qt::AltModifier);
    QCOMPARE(form->Clicked, QStringList({u"&Docket"_s, u"&Names & More"_s}));
}

void tst_TabStrip::screenReader()
{
    QAccessibleInterface *strip = QAccessible::queryAccessibleInterface(form->Strip);
    QCOMPARE(strip->role(), QAccessible::PageTabList);
    QCOMPARE(strip->child(2)->text(QAccessible::Name), u"Docket"_s);
    strip->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
}

void tst_TabStrip::whoHearsOfAClickMayDeleteTheStrip()
{
    const QPointer<TabStrip> strip = form->Strip;
    connect(strip, &TabStrip::TabClicked, this, [strip] { delete strip.data(); });
    QTest::mousePress(strip, Qt::LeftButton, {}, tab(2));
    QVERIFY(!strip);
}

void tst_TabStrip::keysOnTheStrip_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<QStringList>("clicked"); // from Names on
    QTest::addRow("right") << QList<int>{Qt::Key_Right} << QStringList{u"Docket"_s};
    QTest::addRow("left") << QList<int>{Qt::Key_Left} << QStringList{u"Summary"_s};
    QTest::addRow("not beyond the first")
        << QList<int>{Qt::Key_Left, Qt::Key_Left} << QStringList{u"Summary"_s};
    QTest::addRow("end, not beyond the last")
        << QList<int>{Qt::Key_End, Qt::Key_Right} << QStringList{u"Charges"_s};
    QTest::addRow("home") << QList<int>{Qt::Key_Home} << QStringList{u"Summary"_s};
    QTest::addRow("space") << QList<int>{Qt::Key_Space} << QStringList{u"Names"_s};
    QTest::addRow("enter") << QList<int>{Qt::Key_Return} << QStringList{u"Names"_s};
    QTest::addRow("other keys") << QList<int>{Qt::Key_Down, Qt::Key_A} << QStringList();
}

void tst_TabStrip::keysOnTheStrip()
{
    QFETCH(const QList<int>, keys);
    form->Strip->SelectCaption(u"Names"_s);
    form->Strip->setFocus();
    for (const int key : keys)
        press(form->Strip, static_cast<Qt::Key>(key));
    QTEST(form->Clicked, "clicked");
}

void tst_TabStrip::keysAnywhereInTheWindow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QStringList>("clicked");
    const int tab = Qt::Key_Tab;
    QTest::addRow("Ctrl+Tab") << tab << false << u"Names"_s << QStringList{u"Docket"_s};
    QTest::addRow("Ctrl+Tab from the last")
        << tab << false << u"Charges"_s << QStringList{u"Summary"_s};
    QTest::addRow("Ctrl+Shift+Tab") << tab << true << u"Names"_s << QStringList{u"Summary"_s};
    QTest::addRow("Ctrl+Shift+Tab as it often arrives")
        << static_cast<int>(Qt::Key_Backtab) << true << u"Names"_s << QStringList{u"Summary"_s};
    QTest::addRow("Ctrl+Shift+Tab from the first")
        << tab << true << u"Summary"_s << QStringList{u"Charges"_s};
    for (int digit = 1; digit <= 5; ++digit)
        QTest::addRow("Ctrl+%d", digit)
            << Qt::Key_0 + digit << false << u"Names"_s << QStringList{fiveTabs[digit - 1]};
    for (int digit = 6; digit <= 9; ++digit)
        QTest::addRow("Ctrl+%d", digit)
            << Qt::Key_0 + digit << false << u"Names"_s << QStringList();
    QTest::addRow("Ctrl+0") << static_cast<int>(Qt::Key_0) << false << u"Names"_s << QStringList();
}

void tst_TabStrip::keysAnywhereInTheWindow()
{
    QFETCH(const int, key);
    QFETCH(const bool, shift);
    QFETCH(const QString, from);
    form->Strip->SelectCaption(from);
    const Qt::KeyboardModifiers keys =
        shift ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier;
    press(form->Entry, static_cast<Qt::Key>(key), keys);
    QTEST(form->Clicked, "clicked");
    QCOMPARE(form->focusWidget(), form->Entry);
}

void tst_TabStrip::oneTabHasNoNext()
{
    form->Strip->SetCaptions({u"Summary"_s});
    press(form->Entry, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(form->Clicked, QStringList());
}

void tst_TabStrip::keysOfAnotherWindow()
{
    CaseForm other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    other.Entry->setFocus();
    press(other.Entry, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(form->Clicked, QStringList());
    QCOMPARE(other.Clicked, QStringList{u"Names"_s});
}

void tst_TabStrip::keysInTheMainWindow()
{
    QMainWindow main;
    auto *area = new QMdiArea(&main);
    main.setCentralWidget(area);
    CaseForm first;
    CaseForm second;
    QWidget third;
    auto *thirdEntry = new QLineEdit(&third);
    QList<QMdiSubWindow *> frames;
    for (QWidget *window :
         {static_cast<QWidget *>(&first), static_cast<QWidget *>(&second), &third})
        frames.append(area->addSubWindow(window));
    main.resize(900, 600);
    main.show();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    const auto pressCtrlTab = [&main] {
        QTest::keyPress(main.focusWidget(), Qt::Key_Control, Qt::ControlModifier);
        QTest::keyClick(main.focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyRelease(main.focusWidget(), Qt::Key_Control);
    };
    area->setActiveSubWindow(frames[0]);
    first.Entry->setFocus();
    pressCtrlTab();
    pressCtrlTab();
    QCOMPARE(first.Clicked, QStringList({u"Names"_s, u"Docket"_s}));
    QCOMPARE(second.Clicked, QStringList());
    QCOMPARE(area->activeSubWindow(), frames[0]);
    // A window without tabs leaves the keys to the main window.
    area->setActiveSubWindow(frames[2]);
    thirdEntry->setFocus();
    pressCtrlTab();
    QVERIFY(area->activeSubWindow() != frames[2]);
    QCOMPARE(first.Clicked.size() + second.Clicked.size(), 2);
    for (QMdiSubWindow *frame : frames)
        frame->setWidget(nullptr);
    first.setParent(nullptr);
    second.setParent(nullptr);
    third.setParent(nullptr);
}

void tst_TabStrip::keysAfterTheWindowMoved()
{
    // A strip that is shown in another window works there, and no longer where it was.
    CaseForm other;
    delete other.Strip;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    TabStrip *strip = form->Strip;
    strip->setParent(&other);
    strip->show();
    other.Entry->setFocus();
    press(other.Entry, Qt::Key_3, Qt::ControlModifier);
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form.get()));
    form->Entry->setFocus();
    press(form->Entry, Qt::Key_4, Qt::ControlModifier);
    QCOMPARE(form->Clicked, QStringList{u"Docket"_s});
}

HALVANE_TEST(tst_TabStrip)
#include "tst_TabStrip.moc"
