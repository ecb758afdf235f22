#include "SessionFixture.h"

#include "controls/FormWindow.h"
#include "controls/PageScroller.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// A child window that is a page, which scrolls where there is no room for it.
class PageForm : public FormWindow
{
    Q_OBJECT
public:
    PageForm() : scroller(new PageScroller(this)), page(new QWidget), content(new QWidget(page))
    {
        content->setFixedSize(pageSize);
        auto *onPage = new QVBoxLayout(page);
        onPage->setContentsMargins({});
        onPage->addWidget(content);
        scroller->setWidget(page);
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->addWidget(scroller);
        resize(pageSize);
    }
    bool Scrolls() const
    {
        return scroller->verticalScrollBar()->maximum() > 0
               || scroller->horizontalScrollBar()->maximum() > 0;
    }

    static constexpr QSize pageSize{500, 400};
    PageScroller *scroller;
    QWidget *page;
    QWidget *content;
};

/// A child window with the fields that text is cut from and pasted into.
class TextForm : public FormWindow
{
    Q_OBJECT
public:
    explicit TextForm(const QString &caption)
        : line(new QLineEdit(this)), secret(new QLineEdit(this)), text(new QPlainTextEdit(this))
    {
        setWindowTitle(caption);
        auto *layout = new QVBoxLayout(this);
        for (QWidget *field : {static_cast<QWidget *>(line), static_cast<QWidget *>(secret),
                               static_cast<QWidget *>(text)})
            layout->addWidget(field);
        secret->setEchoMode(QLineEdit::Password);
    }

    QLineEdit *line;
    QLineEdit *secret;
    QPlainTextEdit *text;
    bool mayClose = true;

protected:
    bool QueryUnload(UnloadMode) override { return mayClose; }
};

class tst_frmMainChildren : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void shownChildIsTheActiveOne();
    void childIsUnloadedByItsTitleBar();
    void childThatRefusesStays();
    void childUnloadedDuringItsRunOutlivesItsFrame();
    void hiddenChildComesAgain();
    void minimisedChildComesAgain();
    void childrenDieWithTheMainWindow();
    void cascadeArrangesTheChildren();
    void captionsStandInTheOrderOfActivation();
    void backBringsTheOneBeforeToTheFront();
    void backWithOneChildOrNoneDoesNothing();
    void backPassesOverAnUnloadedChild();
    void theChildUsedBeforeComesUpWhenOneGoes();

    void aFrameTakesTheRoomThatComesLater();
    void aFrameGrowsWithItsPage();
    void aMainWindowThatIsTooSmallScrolls();
    void aMainWindowCanBeNarrow();
    void aFrameThatTheUserPlacedStays_data();
    void aFrameThatTheUserPlacedStays();

    void cut_data() { addWays("Cut"); }
    void cut();
    void copy_data() { addWays("Copy"); }
    void copy();
    void paste_data() { addWays("Paste"); }
    void paste();
    void passwordIsNeitherCopiedNorCut_data();
    void passwordIsNeitherCopiedNorCut();
    void readOnlyTextIsCopiedAndNeverChanged();
    void nothingSelectedLeavesTheClipboard();
    void editingWithoutAChildDoesNothing();
    void saveAndPrintWithoutAChildDoNothing();

private:
    void addWays(const QByteArray &what)
    {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<bool>("inText");
        QTest::newRow("menu, line") << "mnuEdit" + what << false;
        QTest::newRow("menu, text") << "mnuEdit" + what << true;
        QTest::newRow("tool bar, line") << "tbToolBar_" + what << false;
        QTest::newRow("tool bar, text") << "tbToolBar_" + what << true;
    }
    TextForm *show(const QString &caption = u"Case"_s)
    {
        auto *form = new TextForm(caption);
        main->ShowChild(form);
        Settle();
        return form;
    }
    /// Fills the field that the row names, selects its middle, and gives it the focus.
    QWidget *prepare(TextForm *form, bool inText)
    {
        if (inText) {
            form->text->setPlainText(u"one two three"_s);
            QTextCursor cursor = form->text->textCursor();
            cursor.setPosition(4);
            cursor.setPosition(7, QTextCursor::KeepAnchor);
            form->text->setTextCursor(cursor);
            form->text->setFocus();
            return form->text;
        }
        form->line->setText(u"one two three"_s);
        form->line->setFocus();
        form->line->setSelection(4, 3);
        return form->line;
    }
    static QString content(const TextForm *form, bool inText)
    {
        return inText ? form->text->toPlainText() : form->line->text();
    }
    static QString clip() { return QApplication::clipboard()->text(); }
    static QMdiSubWindow *frameOf(const QWidget *child)
    {
        return qobject_cast<QMdiSubWindow *>(child->parentWidget());
    }

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_frmMainChildren::init()
{
    session = std::make_unique<SessionFixture>();
    FakeSocket::Install();
    main = session->ShowMain();
    QApplication::clipboard()->setText(u"before"_s);
}

void tst_frmMainChildren::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmMainChildren::shownChildIsTheActiveOne()
{
    QVERIFY(!main->ActiveChild());
    const TextForm *first = show(u"First"_s);
    QVERIFY(first->isVisible());
    QCOMPARE(main->ActiveChild(), first);
    const TextForm *second = show(u"Second"_s);
    QCOMPARE(main->ActiveChild(), second);
    QCOMPARE(Child<QMdiArea>(main, "mdiArea")->subWindowList().size(), 2);
}

void tst_frmMainChildren::childIsUnloadedByItsTitleBar()
{
    const QPointer<TextForm> child(show());
    frameOf(child)->close();
    QTRY_VERIFY(!child);
    QTRY_VERIFY(Child<QMdiArea>(main, "mdiArea")->subWindowList().isEmpty());
    QCOMPARE(main->lstActiveWindows, QStringList());
    QVERIFY(!main->ActiveChild());
}

void tst_frmMainChildren::childThatRefusesStays()
{
    const QPointer<TextForm> child(show());
    child->mayClose = false;
    QVERIFY(!frameOf(child)->close());
    Settle();
    QVERIFY(child && child->isVisible());
    QCOMPARE(main->ActiveChild(), child.data());
}

void tst_frmMainChildren::childUnloadedDuringItsRunOutlivesItsFrame()
{
    const QPointer<TextForm> child(show());
    {
        const FormWindow::RunScope run(child);
        frameOf(child)->close();
        QTRY_VERIFY(Child<QMdiArea>(main, "mdiArea")->subWindowList().isEmpty());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(child && child->IsUnloaded());
        QVERIFY(!child->isVisible());
    }
    QTRY_VERIFY(!child);
}

void tst_frmMainChildren::hiddenChildComesAgain()
{
    TextForm *child = show(u"First"_s);
    show(u"Second"_s);
    main->HideChild(child);
    QVERIFY(!child->isVisible());
    QVERIFY(!child->IsUnloaded());
    main->ShowChildAgain(child);
    QVERIFY(child->isVisible());
    QCOMPARE(main->ActiveChild(), child);
}

void tst_frmMainChildren::minimisedChildComesAgain()
{
    TextForm *child = show();
    frameOf(child)->showMinimized();
    main->ShowChildAgain(child);
    QVERIFY(!frameOf(child)->isMinimized());
    QCOMPARE(main->ActiveChild(), child);
}

void tst_frmMainChildren::childrenDieWithTheMainWindow()
{
    const QPointer<TextForm> child(show());
    session.reset();
    QVERIFY(!child);
    init();
}

void tst_frmMainChildren::cascadeArrangesTheChildren()
{
    const TextForm *first = show(u"First"_s);
    const TextForm *second = show(u"Second"_s);
    frameOf(first)->move(0, 0);
    frameOf(second)->move(0, 0);
    Choose(main, "mnuWindowCascade");
    QVERIFY(frameOf(first)->pos() != frameOf(second)->pos());
}

void tst_frmMainChildren::captionsStandInTheOrderOfActivation()
{
    TextForm *first = show(u"First"_s);
    show(u"Second"_s);
    QCOMPARE(main->lstActiveWindows, (QStringList{u"First"_s, u"Second"_s}));
    main->ShowChildAgain(first);
    QCOMPARE(main->lstActiveWindows, (QStringList{u"Second"_s, u"First"_s}));
}

void tst_frmMainChildren::backBringsTheOneBeforeToTheFront()
{
    const TextForm *first = show(u"First"_s);
    const TextForm *second = show(u"Second"_s);
    Choose(main, "tbToolBar_Back");
    QCOMPARE(main->ActiveChild(), first);
    Choose(main, "tbToolBar_Back");
    QCOMPARE(main->ActiveChild(), second);
}

void tst_frmMainChildren::backWithOneChildOrNoneDoesNothing()
{
    Choose(main, "tbToolBar_Back");
    QVERIFY(!main->ActiveChild());
    const TextForm *child = show();
    Choose(main, "tbToolBar_Back");
    QCOMPARE(main->ActiveChild(), child);
}

void tst_frmMainChildren::backPassesOverAnUnloadedChild()
{
    const TextForm *first = show(u"First"_s);
    TextForm *second = show(u"Second"_s);
    show(u"Third"_s);
    second->Unload();
    Choose(main, "tbToolBar_Back");
    QCOMPARE(main->ActiveChild(), first);
}

/// A window that goes by itself leaves the user where he came from, not at the oldest window.
void tst_frmMainChildren::theChildUsedBeforeComesUpWhenOneGoes()
{
    show(u"First"_s);
    const TextForm *second = show(u"Second"_s);
    show(u"Third"_s);
    Child<QMdiArea>(main, "mdiArea")->setActiveSubWindow(frameOf(second));
    TextForm *passing = show(u"Passing"_s);
    passing->Unload();
    Settle();
    QCOMPARE(main->ActiveChild(), second);
}

/// The desktop maximises the main window some time after the first child has been shown in it.
void tst_frmMainChildren::aFrameTakesTheRoomThatComesLater()
{
    main->resize(800, 300);
    Settle();
    auto *child = new PageForm;
    main->ShowChild(child);
    Settle();
    const QWidget *area = Child<QMdiArea>(main, "mdiArea")->viewport();
    QCOMPARE(frameOf(child)->height(), area->height());
    QVERIFY(child->Scrolls());
    main->resize(900, 800);
    Settle();
    QVERIFY(!child->Scrolls());
    QVERIFY(frameOf(child)->height() < area->height());
    QCOMPARE(child->size(), PageForm::pageSize);
    main->resize(800, 300);
    Settle();
    QCOMPARE(frameOf(child)->height(), area->height());
}

void tst_frmMainChildren::aFrameGrowsWithItsPage()
{
    main->resize(900, 800);
    Settle();
    auto *child = new PageForm;
    main->ShowChild(child);
    Settle();
    child->content->setFixedSize(620, 480);
    QTRY_COMPARE(child->size(), QSize(620, 480));
    QVERIFY(!child->Scrolls());
    // What comes and goes does not make the window restless.
    child->content->setFixedSize(300, 200);
    Settle();
    QCOMPARE(child->size(), QSize(620, 480));
}

/// No button is out of reach.
void tst_frmMainChildren::aMainWindowThatIsTooSmallScrolls()
{
    main->resize(500, 300);
    Settle();
    auto *child = new TextForm(u"Case"_s);
    child->setMinimumSize(600, 400);
    main->ShowChild(child);
    Settle();
    const auto *area = Child<QMdiArea>(main, "mdiArea");
    QVERIFY(frameOf(child)->height() >= 400);
    QVERIFY(area->verticalScrollBar()->isVisible());
    QVERIFY(area->horizontalScrollBar()->isVisible());
    main->resize(800, 700);
    Settle();
    QVERIFY(!area->verticalScrollBar()->isVisible());
    QVERIFY(!area->horizontalScrollBar()->isVisible());
}

/// A line in the status bar does not keep it wide.
void tst_frmMainChildren::aMainWindowCanBeNarrow()
{
    main->SetNotice(u"x"_s.repeated(200));
    main->UpdateStatusBarText(1, u"y"_s.repeated(200));
    Settle();
    main->resize(500, 300);
    QCOMPARE(main->width(), 500);
    QCOMPARE(Child<QLabel>(main, "lblNotice")->toolTip(), u"x"_s.repeated(200));
}

void tst_frmMainChildren::aFrameThatTheUserPlacedStays_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("moved") << QRect(30, 20, 0, 0);
    QTest::newRow("sized") << QRect(0, 0, 300, 200);
    QTest::newRow("maximised") << QRect();
}

void tst_frmMainChildren::aFrameThatTheUserPlacedStays()
{
    QFETCH(QRect, place);
    main->resize(900, 800);
    Settle();
    auto *child = new PageForm;
    main->ShowChild(child);
    Settle();
    QMdiSubWindow *frame = frameOf(child);
    if (place.isNull())
        frame->showMaximized();
    else if (place.topLeft().isNull())
        frame->resize(place.size());
    else
        frame->move(place.topLeft());
    const QRect placed = frame->geometry();
    child->content->setFixedSize(620, 480);
    Settle();
    QCOMPARE(frame->geometry(), placed);
    main->resize(800, 300);
    Settle();
    if (place.isNull())
        QVERIFY(frame->isMaximized());
    else
        QCOMPARE(frame->geometry(), placed);
}

void tst_frmMainChildren::cut()
{
    QFETCH(QByteArray, action);
    QFETCH(bool, inText);
    TextForm *form = show();
    const QWidget *prepared = prepare(form, inText);
    QCOMPARE(QApplication::focusWidget(), prepared);
    Choose(main, action.constData());
    QCOMPARE(clip(), u"two"_s);
    QCOMPARE(content(form, inText), u"one  three"_s);
}

void tst_frmMainChildren::copy()
{
    QFETCH(QByteArray, action);
    QFETCH(bool, inText);
    TextForm *form = show();
    prepare(form, inText);
    Choose(main, action.constData());
    QCOMPARE(clip(), u"two"_s);
    QCOMPARE(content(form, inText), u"one two three"_s);
}

void tst_frmMainChildren::paste()
{
    QFETCH(QByteArray, action);
    QFETCH(bool, inText);
    TextForm *form = show();
    prepare(form, inText);
    Choose(main, action.constData());
    QCOMPARE(content(form, inText), u"one before three"_s);
}

void tst_frmMainChildren::passwordIsNeitherCopiedNorCut_data()
{
    QTest::addColumn<QByteArray>("action");
    for (const char *action : {"mnuEditCopy", "mnuEditCut", "tbToolBar_Copy", "tbToolBar_Cut"})
        QTest::newRow(action) << QByteArray(action);
}

void tst_frmMainChildren::passwordIsNeitherCopiedNorCut()
{
    QFETCH(QByteArray, action);
    const TextForm *form = show();
    form->secret->setText(u"Pass"_s);
    form->secret->setFocus();
    form->secret->selectAll();
    Choose(main, action.constData());
    QCOMPARE(clip(), u"before"_s);
    QCOMPARE(form->secret->text(), u"Pass"_s);
}

void tst_frmMainChildren::readOnlyTextIsCopiedAndNeverChanged()
{
    TextForm *form = show();
    form->line->setReadOnly(true);
    form->text->setReadOnly(true);
    for (const bool inText : {false, true}) {
        prepare(form, inText);
        Choose(main, "mnuEditCut");
        QCOMPARE(clip(), u"before"_s);
        Choose(main, "mnuEditCopy");
        QCOMPARE(clip(), u"two"_s);
        QCOMPARE(content(form, inText), u"one two three"_s);
        QApplication::clipboard()->setText(u"before"_s);
        Choose(main, "mnuEditPaste");
        QCOMPARE(content(form, inText), u"one two three"_s);
    }
}

void tst_frmMainChildren::nothingSelectedLeavesTheClipboard()
{
    const TextForm *form = show();
    form->line->setText(u"one"_s);
    form->line->setFocus();
    form->line->deselect();
    for (const char *entry : {"mnuEditCopy", "mnuEditCut"}) {
        Choose(main, entry);
        QCOMPARE(clip(), u"before"_s);
        QCOMPARE(form->line->text(), u"one"_s);
    }
}

void tst_frmMainChildren::editingWithoutAChildDoesNothing()
{
    for (const char *entry : {"mnuEditCut", "mnuEditCopy", "mnuEditPaste"})
        Choose(main, entry);
    QCOMPARE(clip(), u"before"_s);
}

void tst_frmMainChildren::saveAndPrintWithoutAChildDoNothing()
{
    for (const char *entry : {"mnuFileSave", "mnuFilePrint", "tbToolBar_Save", "tbToolBar_Print"})
        Choose(main, entry);
    QCOMPARE(session->boxes.Answered(), 0);
}

HALVANE_TEST(tst_frmMainChildren)
#include "tst_frmMainChildren.moc"
