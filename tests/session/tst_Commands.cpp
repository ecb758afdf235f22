// Which commands of the main window there are, and when: each exactly when it can do something.

#include "SessionFixture.h"

#include "controls/FormWindow.h"
#include "core/GlobalState.h"
#include "session/frmMain.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSet>
#include <QStatusBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// A child with or without a report, and a field of each kind.
class SomeChild : public FormWindow
{
    Q_OBJECT
public:
    explicit SomeChild(bool hasReport)
        : line(new QLineEdit(u"one two"_s, this)), text(new QPlainTextEdit(u"one two"_s, this)),
          report(hasReport)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(line);
        layout->addWidget(text);
    }

    bool HasReport() const override { return report; }
    void PrintDirect() override { ++Printed; }

    QLineEdit *line;
    QPlainTextEdit *text;
    int Printed = 0;

private:
    bool report;
};

const QStringList always{u"mnuViewOptions"_s, u"mnuFilePageSetup"_s,    u"mnuFileExit"_s,
                         u"mnuViewToolbar"_s, u"mnuViewStatusBar"_s,    u"mnuIdahoSupremeCourt"_s,
                         u"mnuOrCourts"_s,    u"mnuCourtsWaSuperior"_s, u"mnuCourtsWaDiscis"_s,
                         u"mnuFedBK"_s,       u"mnuConnectionStatus"_s, u"mnuStartSearch"_s,
                         u"mnuCheckMsgs"_s,   u"mnuHelpOnline"_s,       u"mnuCourtDates"_s,
                         u"mnuHelpAbout"_s,   u"tbToolBar_Search"_s,    u"tbToolBar_Delete"_s,
                         u"tbToolBar_Help"_s, u"mnuSearchWaiting"_s,    u"mnuSearchHistory"_s,
                         u"mnuSearchUsage"_s};
const QStringList ofReport{u"mnuFileSave"_s, u"mnuFilePrint"_s, u"tbToolBar_Save"_s,
                           u"tbToolBar_Print"_s};

/// What there is besides the commands that are always there.
enum class Children { None, Plain, Report, ReportBehindPlain, ReportMinimised, ReportHidden };
} // namespace

Q_DECLARE_METATYPE(Children)

class tst_Commands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void whatThereIs_data();
    void whatThereIs();
    void whenTheReportGoes();
    void printReachesTheChild();
    void editing_data();
    void editing();
    void theClipboardFills();
    void eachSaysWhatItDoes();
    void theTipIsShown();
    void theStatusBarIsPaintedAtOnce();

private:
    QSet<QString> enabled() const;

    std::unique_ptr<SessionFixture> session;
    frmMain *main = nullptr;
};

void tst_Commands::init()
{
    session = std::make_unique<SessionFixture>();
    FakeSocket::Install();
    main = session->ShowMain();
    QApplication::clipboard()->clear();
}

void tst_Commands::cleanup()
{
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

/// The commands of the menus and the tool bar that can be chosen now.
QSet<QString> tst_Commands::enabled() const
{
    QSet<QString> names;
    const QList<QAction *> actions = main->findChildren<QAction *>();
    for (const QAction *action : actions) {
        const QString name = action->objectName();
        if (!action->menu() && (name.startsWith(u"mnu") || name.startsWith(u"tbToolBar_"))
            && action->isEnabled())
            names.insert(name);
    }
    return names;
}

void tst_Commands::whatThereIs_data()
{
    QTest::addColumn<Children>("children");
    QTest::addColumn<bool>("loggedIn");
    QTest::addColumn<bool>("searching");
    const std::array<std::pair<const char *, Children>, 6> all{
        {{"no child", Children::None},
         {"a child without a report", Children::Plain},
         {"a child with a report", Children::Report},
         {"a report behind another child", Children::ReportBehindPlain},
         {"a minimised child with a report", Children::ReportMinimised},
         {"a child with a report, out of sight", Children::ReportHidden}}};
    for (const auto &[name, children] : all) {
        QTest::addRow("%s, not logged in", name) << children << false << false;
        QTest::addRow("%s, logged in", name) << children << true << false;
        QTest::addRow("%s, searching", name) << children << true << true;
    }
}

void tst_Commands::whatThereIs()
{
    QFETCH(Children, children);
    QFETCH(bool, loggedIn);
    QFETCH(bool, searching);
    if (loggedIn)
        session->BeLoggedIn();
    Global.bSearchInProgress = searching;
    SomeChild *report = nullptr;
    if (children != Children::None && children != Children::Plain)
        main->ShowChild(report = new SomeChild(true));
    if (children == Children::Plain || children == Children::ReportBehindPlain)
        main->ShowChild(new SomeChild(false));
    if (children == Children::ReportMinimised)
        report->parentWidget()->showMinimized();
    if (children == Children::ReportHidden)
        main->HideChild(report);
    main->setFocus();
    Settle();
    QSet<QString> expected(always.begin(), always.end());
    expected.insert(loggedIn ? u"mnuConnectionDisConnect"_s : u"mnuConnnectionConnect"_s);
    if (children == Children::Report || children == Children::ReportMinimised)
        expected.unite(QSet<QString>(ofReport.begin(), ofReport.end()));
    if (children != Children::None && children != Children::ReportHidden)
        expected.unite({u"mnuWindowCascade"_s, u"mnuWindowTile"_s, u"mnuWindowClose"_s,
                        u"mnuWindowCloseAll"_s});
    if (children == Children::ReportBehindPlain)
        expected.unite({u"tbToolBar_Back"_s, u"mnuWindowNext"_s, u"mnuWindowPrevious"_s});
    QCOMPARE((enabled() - expected).values(), QStringList());
    QCOMPARE((expected - enabled()).values(), QStringList());
    Global.bSearchInProgress = false;
}

void tst_Commands::whenTheReportGoes()
{
    auto *report = new SomeChild(true);
    main->ShowChild(report);
    QVERIFY(enabled().contains(u"mnuFilePrint"_s));
    report->Unload();
    QVERIFY(!enabled().contains(u"mnuFilePrint"_s));
    QVERIFY(!enabled().contains(u"mnuWindowCascade"_s));
}

void tst_Commands::printReachesTheChild()
{
    auto *behind = new SomeChild(true);
    auto *report = new SomeChild(true);
    main->ShowChild(behind);
    main->ShowChild(report);
    Choose(main, "mnuFilePrint");
    Choose(main, "tbToolBar_Print");
    QCOMPARE(report->Printed, 2);
    QCOMPARE(behind->Printed, 0);
}

void tst_Commands::editing_data()
{
    QTest::addColumn<bool>("inText");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("clipboard");
    QTest::addColumn<QString>("commands");
    for (const bool inText : {false, true}) {
        const char *field = inText ? "text" : "line";
        QTest::addRow("%s, nothing", field) << inText << false << false << false << QString();
        QTest::addRow("%s, selected", field) << inText << false << true << false << u"Copy Cut"_s;
        QTest::addRow("%s, clipboard", field) << inText << false << false << true << u"Paste"_s;
        QTest::addRow("%s, both", field) << inText << false << true << true << u"Copy Cut Paste"_s;
        QTest::addRow("%s, read only", field) << inText << true << true << true << u"Copy"_s;
    }
}

void tst_Commands::editing()
{
    QFETCH(bool, inText);
    QFETCH(bool, readOnly);
    QFETCH(bool, selected);
    QFETCH(bool, clipboard);
    auto *child = new SomeChild(false);
    main->ShowChild(child);
    if (clipboard)
        QApplication::clipboard()->setText(u"x"_s);
    child->line->setReadOnly(readOnly);
    child->text->setReadOnly(readOnly);
    child->line->deselect();
    if (inText)
        child->text->setFocus(Qt::OtherFocusReason);
    else
        child->line->setFocus(Qt::OtherFocusReason);
    if (selected && inText)
        child->text->selectAll();
    else if (selected)
        child->line->selectAll();
    const auto edits = [this](const QString &prefix) {
        QStringList names;
        for (const QString &name : enabled()) {
            if (name.startsWith(prefix)
                && QStringList{u"Cut"_s, u"Copy"_s, u"Paste"_s}.contains(name.mid(prefix.size())))
                names.append(name.mid(prefix.size()));
        }
        names.sort();
        return names.join(u' ');
    };
    QTEST(edits(u"mnuEdit"_s), "commands");
    QTEST(edits(u"tbToolBar_"_s), "commands");
    // Whoever leaves the field has nothing to edit.
    main->setFocus();
    QCOMPARE(edits(u"mnuEdit"_s), QString());
}

void tst_Commands::theClipboardFills()
{
    auto *child = new SomeChild(false);
    main->ShowChild(child);
    child->line->setFocus();
    QVERIFY(!enabled().contains(u"mnuEditPaste"_s));
    QApplication::clipboard()->setText(u"x"_s);
    QVERIFY(enabled().contains(u"mnuEditPaste"_s));
}

void tst_Commands::eachSaysWhatItDoes()
{
    const QList<QAction *> actions = main->findChildren<QAction *>();
    int commands = 0;
    for (const QAction *action : actions) {
        const QString name = action->objectName();
        if (action->menu() || !(name.startsWith(u"mnu") || name.startsWith(u"tbToolBar_")))
            continue;
        ++commands;
        QVERIFY2(!action->statusTip().isEmpty(), qPrintable(name));
        QVERIFY2(action->statusTip().size() < 70, qPrintable(name));
    }
    QCOMPARE(commands, 43);
}

void tst_Commands::theTipIsShown()
{
    auto *bar = Child<QStatusBar>(main, "sbStatusBar");
    Child<QAction>(main, "mnuFileExit")->hover();
    QStatusTipEvent tip(Child<QAction>(main, "mnuFileExit")->statusTip());
    QApplication::sendEvent(main, &tip);
    QCOMPARE(bar->currentMessage(), u"Log out and leave the program"_s);
    QStatusTipEvent none{QString()};
    QApplication::sendEvent(main, &none);
    QCOMPARE(bar->currentMessage(), QString());
}

void tst_Commands::theStatusBarIsPaintedAtOnce()
{
    class Paints : public QObject
    {
    public:
        int Count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            Count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } paints;
    Settle();
    Child<QStatusBar>(main, "sbStatusBar")->installEventFilter(&paints);
    main->UpdateStatusBarText(1, u"Disconnecting From Halvane .."_s);
    QVERIFY(paints.Count >= 1);
}

HALVANE_TEST(tst_Commands)
#include "tst_Commands.moc"
