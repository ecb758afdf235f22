// Long by design: one walk through the whole program, each window where a session comes to it.

#include "app/WindowRound.h"

#include "app/CaseChecks.h"
#include "app/Startup.h"
#include "app/WindowClasses.h"
#include "casedetails/CaseWindow.h"
#include "controls/TabStrip.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Platform.h"
#include "link/frmWinsock.h"
#include "namesearch/NameResultsWindow.h"
#include "prefs/HelpWindow.h"
#include "prefs/frmAbout.h"
#include "prefs/frmDocument.h"
#include "prefs/frmHelp.h"
#include "prefs/frmSearchHelp.h"
#include "session/SessionEvents.h"
#include "session/frmInactivity.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/Places.h"
#include "tables/FlexGrid.h"
#include "tables/ResultListView.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QTabWidget>
#include <QTest>

#include <array>
#include <utility>

namespace {
constexpr int longestMilliseconds = 20'000;
/// What a millisecond of a case's run counts, in seconds.
constexpr double pace = 0.005;

const QStringList smith{u"Smith"_s, u"John"_s, u"Q"_s};

/// Each face of the search form, and what brings it on from the one before.
struct FormFace
{
    const char *name;
    QList<const char *> clicks;
};
const QList<FormFace> &formFaces()
{
    static const QList<FormFace> faces{
        {"form-superior", {"optState_1", "optCourtSelection_0"}},
        {"form-superior-business", {"optSearchType_1"}},
        {"form-index", {"optSearchType_0", "chkUseIndex"}},
        {"form-number", {"chkUseIndex", "optSearchType_2"}},
        {"form-batch", {"chkBulkSearch"}},
        {"form-district", {"optSearchType_0", "optCourtSelection_1"}},
        {"form-district-non-civil", {"optDiscisSearch_1"}},
        {"form-oregon", {"optState_0"}},
        {"form-oregon-number", {"optSearchType_2"}},
        {"form-idaho", {"optSearchType_0", "optState_3"}},
        {"form-bankruptcy", {"optState_2"}},
        {"form-bankruptcy-number", {"optSearchType_2"}},
    };
    return faces;
}

/// What a menu of the main window opens at once.
struct MenuEntry
{
    const char16_t *action;
    const char16_t *window;
};
constexpr std::array<MenuEntry, 3> entries{{
    {u"mnuSearchWaiting", u"frmWaiting"},
    {u"mnuSearchHistory", u"frmHistory"},
    {u"mnuSearchUsage", u"frmUsage"},
}};

/// Windows that are Qt's own classes.
const QStringList fileDialogs{u"SaveDialog"_s, u"FolderDialog"_s, u"PageSetup"_s};

/// What a menu of the main window asks in a dialog.
constexpr std::array<const char16_t *, 5> askingEntries{u"mnuHelpAbout", u"mnuViewOptions",
                                                        u"mnuConnectionStatus", u"mnuFilePageSetup",
                                                        u"mnuCheckMsgs"};

void chooseEntry(const QString &action)
{
    frmMain::Form()->findChild<QAction *>(action)->trigger();
}

/// Presses what lets the program go on.
void agree(QMessageBox *box)
{
    for (const auto wanted : {QMessageBox::Yes, QMessageBox::Ok}) {
        if (QAbstractButton *button = box->button(wanted)) {
            button->click();
            return;
        }
    }
    box->reject();
}
} // namespace

WindowRound::WindowRound(Visitor visit) : visitor(std::move(visit))
{
    static const bool wired = [] {
        WireWindows();
        return true;
    }();
    Q_UNUSED(wired)
    // Slow enough for a look at a document on its way.
    if (!court.Start(ProgramPath(u"halvane-practice"_s), {u"--document-pace"_s, u"4000"_s}))
        complaints.append(court.Error());
    PointSessionAt(court.Port());
    FetchAtOnce(everyTab);
    desk.TakeTime();
    answerDialogs();
}

WindowRound::~WindowRound() = default;

QString WindowRound::Go()
{
    start();
    logIn();
    searchForms();
    refusedEntries();
    searches();
    cases();
    documents();
    lists();
    helpWindows();
    dialogs();
    menus();
    mainWindow();
    logOut();
    const QStringList everyWindow = WindowClasses() + fileDialogs;
    for (const QString &name : everyWindow)
        if (!reached.contains(name))
            complaints.append(u"nobody was shown "_s + name);
    QStringList all = complaints;
    all.append(desk.Complaints());
    all.removeAll(QString());
    return all.join(u"; "_s);
}

void WindowRound::answerDialogs()
{
    BoxAnswers &boxes = desk.Boxes;
    boxes.Whenever(u"MsgBox"_s, [this](QDialog *dialog) {
        auto *box = qobject_cast<QMessageBox *>(dialog);
        visit(u"box-"_s + box->text().simplified().left(24), box);
        agree(box);
    });
    const auto press = [this, &boxes](const QString &name, const char *button) {
        boxes.Whenever(name, [this, name, button](QDialog *dialog) {
            visit(name, dialog);
            Click(dialog, button);
        });
    };
    press(u"frmConnect"_s, "cmdConnect");
    press(u"frmInfo"_s, "Command1");
    press(u"dlgPrintMgr"_s, "OKButton");
    for (const QString &name : {u"frmAbout"_s, u"frmConnectionStatus"_s, u"frmArbPrompt"_s,
                                u"frmOnDemand"_s, u"SaveDialog"_s, u"PageSetup"_s})
        boxes.Whenever(name, [this, name](QDialog *dialog) {
            visit(name, dialog);
            dialog->reject();
        });
    boxes.Whenever(u"frmOpts"_s, [this](QDialog *dialog) {
        visitPages(dialog);
        Click(dialog, "cmdChangeRptFolder");
        auto *folder = Shown<QDialog>(u"FolderDialog"_s);
        visit(u"FolderDialog"_s, folder);
        if (folder)
            folder->reject();
        dialog->reject();
    });
    boxes.Whenever(u"frmAccounting"_s, [this](QDialog *dialog) {
        Child<QComboBox>(dialog, "cboxClientID")->setEditText(u"2026-114 MILLER"_s);
        visit(u"frmAccounting"_s, dialog);
        Click(dialog, "cmdOK");
    });
    boxes.Whenever(u"frmPasteList"_s, [this](QDialog *dialog) {
        QTest::qWait(0);
        visit(u"frmPasteList"_s, dialog);
        Click(dialog, "cmdRetrieve");
    });
}

void WindowRound::start()
{
    frmAbout splash;
    splash.ShowAsSplash();
    visit(u"splash"_s, &splash);
    splash.hide();
    ::Main(true);
}

void WindowRound::logIn()
{
    auto *login = Shown(u"frmLogin"_s);
    if (!login) {
        complaints.append(u"no login window"_s);
        return;
    }
    if (!QTest::qWaitFor([&] { return ButtonOf(login, "cmdLogin")->isEnabled(); },
                         longestMilliseconds))
        complaints.append(u"no court"_s);
    Child<QLineEdit>(login, "txtUsername")->setText(u"mail"_s);
    Child<QLineEdit>(login, "txtPassword")->setText(u"secret"_s);
    visit(u"frmLogin"_s, login);
    Click(login, "cmdLogin");
    if (!QTest::qWaitFor([] { return !frmLogin::IsLoaded() && Global.bLoggedIn; },
                         longestMilliseconds))
        complaints.append(u"not logged in"_s);
    if (QWidget *message = Shown(u"frmMsg"_s)) {
        visit(u"frmMsg-broadcast"_s, message);
        message->close();
    }
}

QWidget *WindowRound::form()
{
    Q_EMIT SessionEvents::Of().SearchFormWanted();
    return Shown(u"frmSearchWA"_s);
}

void WindowRound::click(const char *button)
{
    Child<QAbstractButton>(form(), button)->click();
}

void WindowRound::type(const QStringList &texts)
{
    for (qsizetype i = 0; i < texts.size(); ++i)
        form()->findChild<QLineEdit *>(u"txtSearchName_"_s + QString::number(i))->setText(texts[i]);
}

void WindowRound::tick(const char *list, const QStringList &items)
{
    auto *box = Child<QListWidget>(form(), list);
    for (int i = 0; i < box->count(); ++i)
        if (items.contains(box->item(i)->text()))
            box->item(i)->setCheckState(Qt::Checked);
}

void WindowRound::searchForms()
{
    for (const FormFace &face : formFaces()) {
        for (const char *button : face.clicks)
            click(button);
        visitChild(QString::fromLatin1(face.name), form());
    }
    click("optState_1");
    click("optCourtSelection_0");
    click("optSearchType_0");
}

void WindowRound::refusedEntries()
{
    type({{}, {}, {}});
    click("cmdBeginSearch");
    type(smith);
    click("cmdBeginSearch");
}

void WindowRound::helpWindows()
{
    frmSearchHelp::ShowTopic(0);
    visit(u"frmSearchHelp"_s, Shown(u"frmSearchHelp"_s));
    frmHelp::ShowTopic(QString());
    visit(u"frmHelp"_s, Shown(u"frmHelp"_s));
    Q_EMIT SessionEvents::Of().ResultsHelpWanted();
    visit(u"frmNameSearchResultsHelp"_s, Shown(u"frmNameSearchResultsHelp"_s));
    Q_EMIT SessionEvents::Of().CaseHelpWanted();
    visit(u"frmCaseDetailsHelp"_s, Shown(u"frmCaseDetailsHelp"_s));
    for (const QString &name :
         {u"frmSearchHelp"_s, u"frmHelp"_s, u"frmNameSearchResultsHelp"_s, u"frmCaseDetailsHelp"_s})
        if (QWidget *window = Shown(name))
            window->close();
}

NameResultsWindow *WindowRound::search()
{
    const QList<JobWindow *> before = OpenJobs();
    click("cmdBeginSearch");
    QList<JobWindow *> windows = OpenJobs();
    windows.removeIf([&](JobWindow *window) { return before.contains(window); });
    auto *results =
        windows.isEmpty() ? nullptr : qobject_cast<NameResultsWindow *>(windows.first());
    if (!results) {
        complaints.append(u"no results"_s);
        return nullptr;
    }
    Hurry(results);
    if (!desk.Finish(results))
        complaints.append(u"the search does not end"_s);
    return results;
}

NameResultsWindow *WindowRound::searchAndVisit(const QString &name)
{
    NameResultsWindow *results = search();
    if (results)
        visitChild(name, results);
    return results;
}

/// A search that is asked for its client, and its report for a file.
void WindowRound::searchForClient()
{
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"1"_s);
    type({u"Smith"_s, u"Jane"_s, {}});
    NameResultsWindow *results = search();
    SaveOptionStr(u"Accounting"_s, u"EnableAcctg"_s, u"0"_s);
    if (!results)
        return;
    frmMain::Form()->ShowChildAgain(results);
    chooseEntry(u"mnuFileSave"_s);
    if (!QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }, longestMilliseconds))
        complaints.append(u"the question for a file stays"_s);
}

void WindowRound::searches()
{
    tick("lboxCountyOrProfile", {u"King"_s, u"Pierce"_s, u"Adams"_s});
    tick("lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    type({u"Many"_s, u"120"_s, {}});
    searchAndVisit(u"results-many"_s);
    searchForClient();
    type({u"Badrow"_s, {}, {}});
    searchAndVisit(u"results-incomplete"_s);
    type({u"Empty"_s, {}, {}});
    searchAndVisit(u"results-none"_s);
    click("chkUseIndex");
    type(smith);
    searchAndVisit(u"results-index"_s);
    type({u"Secondname"_s, {}, {}});
    searchAndVisit(u"results-index-warning"_s);
    click("chkUseIndex");
    click("optCourtSelection_1");
    click("optDiscisSearch_1");
    type({u"Dupes"_s, u"30"_s, {}});
    Child<QComboBox>(form(), "cboxCountyList")->setCurrentText(u"-- ALL COUNTIES/STATEWIDE --"_s);
    searchAndVisit(u"results-duplicates"_s);
}

CaseWindow *WindowRound::openCase(NameResultsWindow *results, int row)
{
    if (!results || results->RowCount() <= row) {
        complaints.append(u"no such row"_s);
        return nullptr;
    }
    const QList<JobWindow *> before = OpenJobs();
    ListOf(results)->selectRow(row);
    Click(results, "cmdSearchResults_0");
    QList<JobWindow *> windows = OpenJobs();
    windows.removeIf([&](JobWindow *window) { return before.contains(window); });
    return windows.isEmpty() ? nullptr : qobject_cast<CaseWindow *>(windows.first());
}

void WindowRound::visitCase(const QString &name, CaseWindow *window)
{
    if (!window) {
        complaints.append(u"no case: "_s + name);
        return;
    }
    Hurry(window);
    letTimePass(true);
    if (!desk.Finish(window))
        complaints.append(u"the case does not end: "_s + name);
    letTimePass(false);
    for (const QString &caption : StripOf(window)->Captions()) {
        ClickTab(window, caption);
        visitChild(name + u'-' + caption.toLower(), window);
    }
}

void WindowRound::cases()
{
    click("optDiscisSearch_1");
    type(smith);
    Child<QComboBox>(form(), "cboxCountyList")->setCurrentText(u"King"_s);
    click("cmdClearCourtList");
    tick("lboxDiscisCourtNames", {u"King District Seattle (KSD)"_s});
    visitCase(u"case-non-civil"_s, openCase(searchAndVisit(u"results-non-civil"_s), 0));
    click("optDiscisSearch_0");
    visitCase(u"case-civil"_s, openCase(searchAndVisit(u"results-civil"_s), 0));
    click("optState_0");
    click("optSearchWhere_2");
    tick("lboxCaseTypes", {u"Civil"_s, u"Small Claims"_s});
    visitCase(u"case-oregon"_s, openCase(searchAndVisit(u"results-oregon"_s), 0));
    click("optState_3");
    click("optSearchWhere_2");
    tick("lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    visitCase(u"case-idaho"_s, openCase(searchAndVisit(u"results-idaho"_s), 0));
    click("optState_2");
    click("chkBKcourt_2");
    visitCase(u"case-bankruptcy"_s, openCase(searchAndVisit(u"results-bankruptcy"_s), 0));
    click("optState_1");
    click("optCourtSelection_0");
    tick("lboxCountyOrProfile", {u"King"_s});
    tick("lboxCaseTypes", {u"Civil"_s, u"Criminal"_s});
    visitCase(u"case-superior"_s, openCase(searchAndVisit(u"results-superior"_s), 0));
}

CaseWindow *WindowRound::caseByNumber(const QString &name, const QString &number)
{
    click("optSearchType_2");
    auto *places = Child<QListWidget>(form(), "lboxMultiJurisdiction");
    places->setCurrentItem(places->findItems(u"King"_s, Qt::MatchExactly).value(0));
    type({number});
    const QList<JobWindow *> before = OpenJobs();
    click("cmdBeginSearch");
    QList<JobWindow *> windows = OpenJobs();
    windows.removeIf([&](JobWindow *window) { return before.contains(window); });
    auto *window = windows.isEmpty() ? nullptr : qobject_cast<CaseWindow *>(windows.first());
    visitCase(name, window);
    return window;
}

void WindowRound::documents()
{
    ReplaceShell([](const QString &) { return true; });
    caseByNumber(u"case-arbitration"_s, u"90-2-99020-1"_s);
    caseByNumber(u"case-incomplete"_s, u"90-2-99024-4"_s);
    FetchAtOnce({});
    caseByNumber(u"case-on-demand"_s, u"90-2-99021-0"_s);
    FetchAtOnce(everyTab);
    CaseWindow *details = caseByNumber(u"case-documents"_s, u"90-2-99035-0"_s);
    if (!details)
        return;
    ClickTab(details, u"Documents"_s);
    auto *grid = Child<FlexGrid>(details, "GridDocuments");
    // The one that takes its time.
    constexpr int slowDocument = 8;
    grid->selectRow(slowDocument);
    QTest::keyClick(grid, Qt::Key_Return);
    if (!QTest::qWaitFor([] { return Shown(u"frmDocTransfer"_s) != nullptr; }))
        complaints.append(u"no document is asked for"_s);
    visitJob(u"frmDocTransfer"_s);
    Child<QAction>(details, "mnuDocRetrieveAll")->trigger();
    visitJob(u"frmAllDocuments"_s);
    Click(details, "cmdPrintDetails");
    visitPreview();
}

/// Visits the window of a document's job, and stops the job.
void WindowRound::visitJob(const QString &name)
{
    auto *window = qobject_cast<JobWindow *>(Shown(name));
    if (!window) {
        complaints.append(u"no "_s + name);
        return;
    }
    const QPointer<JobWindow> open(window);
    visitChild(name, window);
    if (open)
        open->ShownJob()->Stop();
    if (!QTest::qWaitFor([&] { return !open || !Global.bSearchInProgress; }, longestMilliseconds))
        complaints.append(name + u" does not stop"_s);
    if (open)
        open->Unload(UnloadMode::MdiParent);
}

void WindowRound::visitPreview()
{
    QWidget *preview = Shown(u"PreviewDoc"_s);
    if (!preview) {
        complaints.append(u"no preview"_s);
        return;
    }
    if (!QTest::qWaitFor([&] { return !Child<QTimer>(preview, "tmrPrepare")->isActive(); }))
        complaints.append(u"the preview has no end"_s);
    visit(u"PreviewDoc"_s, preview);
    Click(preview, "cmdClose");
}

/// What lists several things of the session at once.
void WindowRound::lists()
{
    QGuiApplication::clipboard()->setText(
        u"05-2-02029-1 King\n94-1-00042-1\n98-2-00017-7 Pierce\nno number\n90-2-99023-6\n"_s);
    click("optSearchType_2");
    click("chkBulkSearch");
    click("cmdPasteList");
    if (QWidget *numbers = Shown(u"frmNumberList"_s))
        visitChild(u"frmNumberList"_s, numbers);
    else
        complaints.append(u"no list of numbers"_s);
    for (const MenuEntry &entry : entries) {
        chooseEntry(QStringView(entry.action).toString());
        const QString name = QStringView(entry.window).toString();
        if (QWidget *window = Shown(name))
            visitChild(name, window);
        else
            complaints.append(u"no "_s + name);
        // It stands before the main window.
        if (QWidget *waiting = Shown(u"frmWaiting"_s))
            waiting->close();
    }
    click("chkBulkSearch");
    click("optSearchType_0");
}

void WindowRound::dialogs()
{
    for (const char16_t *entry : askingEntries)
        chooseEntry(QStringView(entry).toString());
    frmInactivity::ShowWarning(frmMain::Form());
    visit(u"frmInactivity"_s, Shown(u"frmInactivity"_s));
    frmInactivity::CloseWarning();
}

void WindowRound::menus()
{
    const QList<QMenu *> all = frmMain::Form()->menuBar()->findChildren<QMenu *>();
    for (QMenu *menu : all) {
        if (menu->title().isEmpty())
            continue;
        menu->popup(frmMain::Form()->mapToGlobal(QPoint(0, 40)));
        visit(u"menu-"_s + menu->title().remove(u'&'), menu);
        menu->close();
    }
}

/// The main window with nothing in it, and with nothing but a text of the user's own.
void WindowRound::mainWindow()
{
    // The frames go a turn later, and a list of numbers comes up once more when its last case goes.
    const auto frames = [] { return frmMain::Form()->findChildren<QMdiSubWindow *>(); };
    const auto closeAll = [&frames] {
        chooseEntry(u"mnuWindowCloseAll"_s);
        return frames().isEmpty();
    };
    if (!QTest::qWaitFor(closeAll))
        complaints.append(u"there stays "_s + frames().first()->windowTitle());
    visit(u"frmMain"_s, frmMain::Form());
    frmDocument::ShowNew();
    visitChild(u"frmDocument"_s, Shown(u"frmDocument"_s));
}

void WindowRound::logOut()
{
    chooseEntry(u"mnuConnectionDisConnect"_s);
    visit(u"frmElapsedTime"_s, Shown(u"frmElapsedTime"_s));
}

void WindowRound::visitPages(QDialog *options)
{
    auto *pages = Child<QTabWidget>(options, "SSTab1");
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        visit(u"options-"_s + pages->tabText(page).remove(u'&'), options);
    }
}

void WindowRound::visitChild(const QString &name, QWidget *child)
{
    if (auto *window = qobject_cast<FormWindow *>(child); window && !child->isWindow())
        frmMain::Form()->ShowChildAgain(window);
    visit(name, child);
}

void WindowRound::visit(const QString &name, QWidget *window)
{
    if (!window) {
        complaints.append(u"no "_s + name);
        return;
    }
    reached.insert(window->objectName());
    reached.insert(QString::fromLatin1(window->metaObject()->className()));
    if (seen.contains(name))
        return;
    seen.insert(name);
    // What was just put in or shown is laid out on the next turn.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    if (!qobject_cast<QMenu *>(window)) {
        window->window()->activateWindow();
        if (!QTest::qWaitForWindowActive(window->window()))
            complaints.append(name + u" is not in front, but "_s
                              + (QApplication::activeWindow()
                                     ? QApplication::activeWindow()->objectName()
                                     : u"nothing"_s));
    }
    // However long it looks, the court is not late, and nobody is logged out.
    desk.Time.Stop();
    frmWinsock::Form().StopInactivity();
    visitor(name, window);
    letTimePass(timePasses);
}

void WindowRound::letTimePass(bool passes)
{
    timePasses = passes;
    if (passes)
        desk.Time.Run(pace);
    else
        desk.Time.Stop();
}
