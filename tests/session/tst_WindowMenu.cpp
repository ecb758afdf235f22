// The menu of the children of the main window: the list, going from one to the next, closing.

#include "SessionFixture.h"

#include "controls/FormWindow.h"
#include "controls/MsgBox.h"
#include "controls/TabStrip.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// A child with an entry field, with tabs if wanted, that closes, refuses or asks.
class SomeChild : public FormWindow
{
public:
    enum class Closing { Goes, Refuses, Asks };

    explicit SomeChild(const QString &caption, bool tabs = false) : field(new QPlainTextEdit(this))
    {
        setWindowTitle(caption);
        auto *layout = new QVBoxLayout(this);
        if (tabs) {
            strip = new TabStrip(this);
            layout->addWidget(strip);
            strip->addTab(u"One"_s);
            strip->addTab(u"Two"_s);
        }
        layout->addWidget(field);
    }

    QPlainTextEdit *field;
    TabStrip *strip = nullptr;
    Closing closing = Closing::Goes;

protected:
    bool QueryUnload(UnloadMode mode) override
    {
        if (mode != UnloadMode::ControlMenu || closing == Closing::Goes)
            return true;
        return closing == Closing::Asks
               && MsgBox(this, u"Close "_s + windowTitle() + u'?', {}, MsgButtons::YesNo,
                         MsgIcon::Question)
                      == MsgAnswer::Yes;
    }
};
} // namespace

class tst_WindowMenu : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void theListIsThatOfTheChildren();
    void aCaptionIsPlainText_data();
    void aCaptionIsPlainText();
    void onlyNineHaveADigit();
    void whoIsHiddenIsNotListed();
    void anEntryGoesToItsChild();
    void anEntryWhoseChildHasGoneDoesNothing();
    void keys_data();
    void keys();
    void aWindowWithTabsKeepsItsKeys();
    void nextPassesOverTheHiddenOnes();
    void tileArrangesTheChildren();
    void closeKeys_data();
    void closeKeys();
    void closeAsksAsItsWindowDoes();
    void closeAll();
    void closeAllStopsAtTheFirstRefusal();
    void closeAllWithChildrenThatComeAndGo();

private:
    SomeChild *show(const QString &caption, bool tabs = false)
    {
        auto *child = new SomeChild(caption, tabs);
        main->ShowChild(child);
        Settle();
        return child;
    }
    /// The entries of the children, a line each; "[x]" for the one that is checked.
    QStringList listed() const
    {
        auto *menu = Child<QMenu>(main, "mnuWindow");
        Q_EMIT menu->aboutToShow();
        QStringList texts;
        for (const QAction *action : menu->actions()) {
            if (action->objectName().startsWith(u"child_"))
                texts.append((action->isChecked() ? u"[x] "_s : QString()) + action->text());
        }
        return texts;
    }
    /// The captions of the children that are there, in the order in which they were made.
    QString captions() const
    {
        QStringList texts;
        for (const QMdiSubWindow *frame : Child<QMdiArea>(main, "mdiArea")->subWindowList()) {
            if (!frame->isHidden())
                texts.append(frame->windowTitle());
        }
        return texts.join(u' ');
    }
    QString inFront() const
    {
        const FormWindow *child = main->ActiveChild();
        return child ? child->windowTitle() : QString();
    }

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_WindowMenu::init()
{
    session = std::make_unique<SessionFixture>();
    FakeSocket::Install();
    main = session->ShowMain();
}

void tst_WindowMenu::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_WindowMenu::theListIsThatOfTheChildren()
{
    QCOMPARE(listed(), QStringList());
    SomeChild *first = show(u"A"_s);
    show(u"B"_s);
    show(u"C"_s);
    QCOMPARE(listed(), (QStringList{u"&1 A"_s, u"&2 B"_s, u"[x] &3 C"_s}));
    // Whoever comes to the front keeps its number, and a new caption is seen.
    main->ShowChildAgain(first);
    first->setWindowTitle(u"A in King County"_s);
    QCOMPARE(listed(), (QStringList{u"[x] &1 A in King County"_s, u"&2 B"_s, u"&3 C"_s}));
    first->Unload();
    QCOMPARE(listed().size(), 2);
    // Nothing of the earlier list is left.
    QCOMPARE(Child<QMenu>(main, "mnuWindow")->actions().last()->text().right(1), u"C"_s);
}

void tst_WindowMenu::aCaptionIsPlainText_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text");
    QTest::newRow("an ampersand") << u"A & B"_s << u"[x] &1 A && B"_s;
    QTest::newRow("a tab") << u"A\tCtrl+Q"_s << u"[x] &1 A Ctrl+Q"_s;
    QTest::newRow("lines") << u"A\nB"_s << u"[x] &1 A B"_s;
    QTest::newRow("marks") << u"<b>A</b>"_s << u"[x] &1 <b>A</b>"_s;
}

void tst_WindowMenu::aCaptionIsPlainText()
{
    QFETCH(QString, caption);
    show(caption);
    QTEST(listed().value(0), "text");
}

void tst_WindowMenu::onlyNineHaveADigit()
{
    for (int i = 1; i <= 11; ++i)
        show(u"W"_s + QString::number(i));
    const QStringList texts = listed();
    QCOMPARE(texts.size(), 11);
    QCOMPARE(texts[8], u"&9 W9"_s);
    QCOMPARE(texts[9], u"W10"_s);
    QCOMPARE(texts[10], u"[x] W11"_s);
    // A long caption is cut, and the status bar has room for all of it.
    const QString longCaption(500, u'x');
    show(longCaption);
    QVERIFY(listed().last().size() < 200);
    QVERIFY(listed().last().endsWith(u'…'));
    QCOMPARE(Child<QAction>(main, "child_12")->statusTip(), longCaption);
}

void tst_WindowMenu::whoIsHiddenIsNotListed()
{
    SomeChild *hidden = show(u"A"_s);
    show(u"B"_s);
    main->HideChild(hidden);
    QCOMPARE(listed(), QStringList{u"[x] &1 B"_s});
    main->ShowChildAgain(hidden);
    QCOMPARE(listed(), (QStringList{u"[x] &1 A"_s, u"&2 B"_s}));
}

void tst_WindowMenu::anEntryGoesToItsChild()
{
    SomeChild *first = show(u"A"_s);
    show(u"B"_s);
    first->parentWidget()->showMinimized();
    listed();
    Choose(main, "child_1");
    QCOMPARE(inFront(), u"A"_s);
    QVERIFY(!first->parentWidget()->isMinimized());
}

void tst_WindowMenu::anEntryWhoseChildHasGoneDoesNothing()
{
    SomeChild *first = show(u"A"_s);
    show(u"B"_s);
    listed();
    first->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Choose(main, "child_1");
    QCOMPARE(inFront(), u"B"_s);
}

void tst_WindowMenu::keys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("visited");
    const auto row = [](const char *name, Qt::Key key, Qt::KeyboardModifiers modifiers,
                        const QString &visited) {
        QTest::newRow(name) << key << modifiers << visited;
    };
    const QString forward = u"A B C A"_s;
    const QString backward = u"B A C B"_s;
    row("Ctrl+Tab", Qt::Key_Tab, Qt::ControlModifier, forward);
    row("Ctrl+F6", Qt::Key_F6, Qt::ControlModifier, forward);
    row("Ctrl+Shift+Tab", Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier, backward);
    row("Ctrl+Shift+F6", Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier, backward);
}

void tst_WindowMenu::keys()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    show(u"A"_s);
    show(u"B"_s);
    show(u"C"_s)->field->setFocus();
    QStringList visited;
    for (int i = 0; i < 4; ++i) {
        // As it is pressed: the platform's own road to another child listens to Ctrl by itself.
        QTest::keyPress(main->windowHandle(), Qt::Key_Control, Qt::ControlModifier);
        QTest::keyClick(main->windowHandle(), key, modifiers);
        QTest::keyRelease(main->windowHandle(), Qt::Key_Control);
        Settle();
        visited.append(inFront());
    }
    QTEST(visited.join(u' '), "visited");
}

void tst_WindowMenu::aWindowWithTabsKeepsItsKeys()
{
    show(u"A"_s);
    SomeChild *tabbed = show(u"B"_s, true);
    tabbed->field->setFocus();
    QTest::keyClick(main->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(inFront(), u"B"_s);
    QCOMPARE(tabbed->strip->currentIndex(), 1);
    QTest::keyClick(main->windowHandle(), Qt::Key_F6, Qt::ControlModifier);
    QCOMPARE(inFront(), u"A"_s);
    QTest::keyClick(main->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(inFront(), u"B"_s);
}

void tst_WindowMenu::nextPassesOverTheHiddenOnes()
{
    show(u"A"_s);
    SomeChild *hidden = show(u"B"_s);
    show(u"C"_s);
    main->HideChild(hidden);
    Choose(main, "mnuWindowNext");
    QCOMPARE(inFront(), u"A"_s);
    Choose(main, "mnuWindowNext");
    QCOMPARE(inFront(), u"C"_s);
    Choose(main, "mnuWindowPrevious");
    QCOMPARE(inFront(), u"A"_s);
}

void tst_WindowMenu::tileArrangesTheChildren()
{
    const SomeChild *first = show(u"A"_s);
    const SomeChild *second = show(u"B"_s);
    Choose(main, "mnuWindowTile");
    Settle();
    QVERIFY(!first->parentWidget()->geometry().intersects(second->parentWidget()->geometry()));
}

void tst_WindowMenu::closeKeys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Ctrl+W") << Qt::Key_W;
    QTest::newRow("Ctrl+F4") << Qt::Key_F4;
}

void tst_WindowMenu::closeKeys()
{
    QFETCH(Qt::Key, key);
    show(u"A"_s);
    show(u"B"_s)->field->setFocus();
    QTest::keyClick(main->windowHandle(), key, Qt::ControlModifier);
    Settle();
    QCOMPARE(captions(), u"A"_s);
    QVERIFY(main->isVisible());
}

void tst_WindowMenu::closeAsksAsItsWindowDoes()
{
    SomeChild *child = show(u"A"_s);
    child->closing = SomeChild::Closing::Asks;
    session->boxes.Expect(u"Close A?"_s, u"Halvane"_s, MsgAnswer::No);
    Choose(main, "mnuWindowClose");
    QCOMPARE(captions(), u"A"_s);
    session->boxes.Expect(u"Close A?"_s, u"Halvane"_s, MsgAnswer::Yes);
    Choose(main, "mnuWindowClose");
    QCOMPARE(captions(), QString());
}

void tst_WindowMenu::closeAll()
{
    SomeChild *hidden = show(u"A"_s);
    show(u"B"_s)->closing = SomeChild::Closing::Asks;
    show(u"C"_s);
    main->HideChild(hidden);
    session->boxes.Expect(u"Close B?"_s, u"Halvane"_s, MsgAnswer::Yes);
    Choose(main, "mnuWindowCloseAll");
    QCOMPARE(captions(), QString());
    // What is out of sight is not the user's to close.
    QVERIFY(!hidden->IsUnloaded());
}

void tst_WindowMenu::closeAllStopsAtTheFirstRefusal()
{
    show(u"A"_s);
    SomeChild *asking = show(u"B"_s);
    asking->closing = SomeChild::Closing::Asks;
    SomeChild *last = show(u"C"_s);
    // One that is minimised comes up to ask.
    asking->parentWidget()->showMinimized();
    main->ShowChildAgain(last);
    QString front;
    bool minimised = true;
    session->boxes.Meanwhile([&] {
        front = inFront();
        minimised = asking->parentWidget()->isMinimized();
    });
    session->boxes.Expect(u"Close B?"_s, u"Halvane"_s, MsgAnswer::No);
    Choose(main, "mnuWindowCloseAll");
    QCOMPARE(captions(), u"A B"_s);
    QCOMPARE(front, u"B"_s);
    QVERIFY(!minimised);
    asking->closing = SomeChild::Closing::Refuses;
    Choose(main, "mnuWindowCloseAll");
    QCOMPARE(captions(), u"A B"_s);
}

void tst_WindowMenu::closeAllWithChildrenThatComeAndGo()
{
    SomeChild *goes = show(u"A"_s);
    show(u"B"_s)->closing = SomeChild::Closing::Asks;
    session->boxes.Meanwhile([this, goes] {
        goes->Unload(UnloadMode::Code);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        main->ShowChild(new SomeChild(u"D"_s));
    });
    session->boxes.Expect(u"Close B?"_s, u"Halvane"_s, MsgAnswer::Yes);
    Choose(main, "mnuWindowCloseAll");
    // One that came later was not meant.
    QCOMPARE(captions(), u"D"_s);
}

HALVANE_TEST(tst_WindowMenu)
#include "tst_WindowMenu.moc"
