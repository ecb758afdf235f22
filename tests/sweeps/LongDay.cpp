#include "sweeps/LongDay.h"

#include "app/Startup.h"
#include "casedetails/CaseWindow.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/Options.h"
#include "core/Platform.h"
#include "courts/DiscisCourts.h"
#include "documents/AllDocumentsJob.h"
#include "jobs/JobWindow.h"
#include "jobs/WaitingList.h"
#include "jobs/frmQueue.h"
#include "link/frmWinsock.h"
#include "session/frmInactivity.h"
#include "session/frmLogin.h"
#include "session/frmMain.h"
#include "support/WindowUser.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
/// Seconds that go by in each turn of the event loop.
constexpr double secondsATurn = 0.02;
constexpr double napSeconds = 0.02;
/// Real milliseconds after which something does not come to rest.
constexpr qint64 longestRestMilliseconds = 20'000;
/// On each so-manieth day the windows are painted, and ask before they stop or close.
constexpr int paintedDays = 8;
constexpr int daysOfQuestions = 4;
constexpr int turnsBetweenSkips = 64;

template<class Dialog>
Dialog *shownDialog()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *dialog = qobject_cast<Dialog *>(widget);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

bool isModal()
{
    return QApplication::activeModalWidget() != nullptr;
}
} // namespace

LongDay::LongDay(quint32 seed, int rarity)
    : time(QDateTime::fromString(u"2026-03-10T10:00:00Z"_s, Qt::ISODate)), random(seed),
      court(time, random, rarity)
{
    LoadDiscisCourts();
    ReplaceShell([](const QString &) { return true; });
    for (const QString &name : {u"MsgBox"_s, u"frmOnDemand"_s, u"frmArbPrompt"_s})
        boxes.Whenever(name, [this](QDialog *dialog) { answer(dialog); });
    boxes.Whenever(u"frmConnect"_s, [](QDialog *dialog) { Click(dialog, "cmdConnect"); });
    for (const QString &tab : {u"Names"_s, u"Docket"_s, u"Documents"_s, u"Violations"_s}) {
        for (const QString &section : {u"CaseSearchTabs"_s, u"NonCivilCaseTabs"_s})
            SaveOptionStr(section, tab, u"1"_s);
    }
    connect(&JobEvents::Of(), &JobEvents::Launched, this, &LongDay::follow);
    WireWindows();
    ::Main(false);
    main = frmMain::Form();
    // In a turn of its own: what is done may go on while others are.
    connect(&turns, &QTimer::timeout, this, [this] {
        time.Advance(secondsATurn);
        QMetaObject::invokeMethod(this, &LongDay::act, Qt::QueuedConnection);
    });
    turns.start(0);
}

LongDay::~LongDay()
{
    turns.stop();
    ReplaceShell({});
    delete main;
}

void LongDay::follow(const Job *job)
{
    if (JobWindow *window = JobWindow::Of(job)) {
        opened.append(window);
        note(window->objectName());
    }
}

/// Every job asks for its turn each millisecond, whatever it has set itself.
void LongDay::hurry()
{
    opened.removeIf([](const QPointer<JobWindow> &one) { return !one || one->IsUnloaded(); });
    for (const QPointer<JobWindow> &window : opened) {
        if (window->Timer1->interval() > 1)
            window->Timer1->setInterval(1);
        auto *details = qobject_cast<CaseWindow *>(window);
        if (details && details->TmrSearchOnDemand->interval() > 1)
            details->TmrSearchOnDemand->setInterval(1);
    }
}

QList<JobWindow *> LongDay::windows() const
{
    QList<JobWindow *> all;
    for (const QPointer<JobWindow> &one : opened) {
        if (one && !one->IsUnloaded())
            all.append(one);
    }
    return all;
}

void LongDay::act()
{
    hurry();
    if (idles)
        hurryWarning();
    if (++turnsSoFar % turnsBetweenSkips == 0)
        skipWhatHolds();
    // As the timer of the main window does every 15 seconds.
    if (Global.bLoggedIn && Global.bConnectionClosed)
        main->CheckConnection();
    // Nobody gets at the windows behind a dialog.
    if (isModal())
        return;
    if (frmLogin::IsLoaded())
        attendLogin();
    else if (working && !Global.bLoggedIn)
        choose("mnuConnnectionConnect");
    if (!working)
        return;
    static const int all = std::accumulate(
        acts().begin(), acts().end(), 0, [](int sum, const Act &one) { return sum + one.weight; });
    int drawn = below(all);
    for (const Act &one : acts()) {
        drawn -= one.weight;
        if (drawn < 0) {
            (this->*one.what)();
            return;
        }
    }
}

void LongDay::choose(const char *action)
{
    main->findChild<QAction *>(QLatin1StringView(action))->trigger();
}

void LongDay::attendLogin()
{
    auto *login = Shown<QWidget>(u"frmLogin"_s);
    if (!login)
        return;
    if (auto *timer = login->findChild<QTimer *>(u"tmrUI"_s); timer->interval() > 1)
        timer->setInterval(1);
    if (QPushButton *again = ButtonOf(login, "cmdConnectAgain"); again->isVisible()) {
        note(u"connects again"_s);
        again->click();
        return;
    }
    QPushButton *button = ButtonOf(login, "cmdLogin");
    if (!button->isEnabled())
        return;
    login->findChild<QLineEdit *>(u"txtUsername"_s)->setText(u"ann"_s);
    login->findChild<QLineEdit *>(u"txtPassword"_s)->setText(u"secret"_s);
    note(u"logins"_s);
    button->click();
}

void LongDay::skipWhatHolds()
{
    WaitingList *waiting = main->Waiting();
    waiting->Refresh();
    const QList<WaitingRow> rows = waiting->Rows();
    for (const WaitingRow &row : rows) {
        if (!row.Holds())
            continue;
        // Only a search that is closed before its turn leaves its key, and only a case keeps its
        // place behind a run that broke down.
        const bool closed = row.State == WaitingState::Closed;
        if (row.Kind != (closed ? u"Search"_s : u"Case"_s))
            complain(u"a key is left by: "_s + row.Text() + u", "_s + StateText(row));
        if (waiting->Skip(row.Key))
            note(closed ? u"keys left"_s : u"runs that broke down"_s);
    }
}

void LongDay::answer(QDialog *dialog)
{
    note(dialog->objectName());
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        const QList<QAbstractButton *> buttons = box->buttons();
        buttons.at(below(buttons.size()))->click();
        return;
    }
    ButtonOf(dialog, below(2) == 0 ? "Command1" : "Command2")->click();
}

void LongDay::WorkUntil(qint64 exchanges)
{
    ++evenings;
    Global.bShowAlerts = evenings % daysOfQuestions == 0;
    // What is not painted goes several times as fast, and does the same.
    main->setUpdatesEnabled(evenings % paintedDays == 0);
    working = true;
    QElapsedTimer sinceLast;
    sinceLast.start();
    qint64 seen = Exchanges();
    while (Exchanges() < exchanges) {
        YieldUntilEvent(napSeconds);
        if (seen != Exchanges()) {
            seen = Exchanges();
            sinceLast.restart();
        } else if (sinceLast.elapsed() > longestRestMilliseconds) {
            complain(u"nothing is asked any more"_s);
            break;
        }
    }
    working = false;
    restForTheEvening();
}

bool LongDay::isAtRest() const
{
    const QList<JobWindow *> all = windows();
    return !isModal() && !frmLogin::IsLoaded() && !Global.bSearchInProgress
           && std::all_of(all.begin(), all.end(), [](const JobWindow *window) {
                  return window->ShownJob()->State() == JobState::Over
                         && !window->ShownJob()->HasTurn();
              });
}

/// From event to event until this holds. False when it never does.
bool LongDay::pass(const std::function<bool()> &until)
{
    QElapsedTimer since;
    since.start();
    while (!until()) {
        if (since.elapsed() > longestRestMilliseconds)
            return false;
        YieldUntilEvent(napSeconds);
    }
    return true;
}

void LongDay::restForTheEvening()
{
    Global.bShowAlerts = false;
    court.OpenDoors();
    if (!pass([this] { return isAtRest(); }))
        return complain(u"it does not come to rest"_s);
    leave();
    if (!pass([this] { return !Global.bLoggedIn && isAtRest(); }))
        return complain(u"the user is not logged out"_s);
    // What was left since the last look holds nobody up, but it stays in the queue until tomorrow.
    skipWhatHolds();
    closeEverything();
    // No loop waits below this one that would carry the deletions out. A window takes its job
    // along.
    for (int i = 0; i < 2; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Yield();
    }
    if (!Job::All().isEmpty())
        complain(u"a job stays"_s);
    if (frmQueue::Form().FIFO.ListCount() > 0)
        complain(u"the turn queue holds "_s + frmQueue::Form().FIFO.Lines().join(u", "_s));
    // A wish to disconnect that a running job has outlived stays until the next job is opened.
    if (Global.bSearchInProgress || Global.bLoginBusy)
        complain(u"what the day was busy with is not over"_s);
}

/// The user goes home: logs out, forgets to, or the court closes.
void LongDay::leave()
{
    if (!Global.bLoggedIn)
        return;
    if (evenings % 3 == 1) {
        note(u"idle limits"_s);
        waitForIdleLimit();
    } else if (evenings % 3 == 2) {
        note(u"links closed by the court"_s);
        court.Close();
    } else {
        note(u"disconnects"_s);
        choose("mnuConnectionDisConnect");
    }
}

/// The minutes of the idle count are milliseconds.
void LongDay::waitForIdleLimit()
{
    idles = true;
    frmWinsock::Form().TmrInactivity->start(1);
    if (!pass([this] { return !idles; }))
        complain(u"the idle limit is not reached"_s);
}

/// The seconds of the warning are turns: the clock must not go so far meanwhile that nobody waits
/// for the warning any more.
void LongDay::hurryWarning()
{
    auto *warning = shownDialog<frmInactivity>();
    if (!warning)
        return;
    idles = false;
    warning->Timer1->setInterval(0);
}

void LongDay::closeEverything()
{
    for (JobWindow *window : windows()) {
        if (!window->Unload())
            complain(u"a window does not close: "_s + window->windowTitle());
    }
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        auto *form = qobject_cast<FormWindow *>(widget);
        if (qobject_cast<QDialog *>(widget) && widget->isVisible())
            widget->close();
        else if (form && form->isVisible() && form->objectName() != u"frmSearchWA")
            form->Unload();
    }
    // A link that the court has closed waits for the next login.
    frmWinsock::Unload();
}

/// The first complaint counts: the others follow from it.
void LongDay::complain(const QString &what)
{
    if (!complaint.isEmpty())
        return;
    QStringList states;
    for (const JobWindow *window : windows()) {
        const Job *job = window->ShownJob();
        states.append(u"%1 %2 '%3' state %4%5"_s.arg(
            window->objectName(), job->txtMasterKey, job->Status.Text,
            QString::number(static_cast<int>(job->State())), job->HasTurn() ? u" runs"_s : u""_s));
    }
    const QWidget *modal = QApplication::activeModalWidget();
    const QString front = modal ? modal->objectName() : QString();
    complaint = u"evening %1, exchange %2: %3; the queue: %4%5%6%7; in front: %8; open: %9"_s.arg(
        QString::number(evenings), QString::number(Exchanges()), what,
        frmQueue::Form().FIFO.Lines().join(u", "_s),
        Global.bSearchInProgress ? u"; a job has the link"_s : QString(),
        Global.bLoggedIn ? u"; logged in"_s : QString(),
        frmLogin::IsLoaded() ? u"; the login is open"_s : QString(), front, states.join(u", "_s));
}

QString LongDay::Complaints() const
{
    return complaint.isEmpty() ? boxes.Complaints() : complaint;
}

QString LongDay::Story() const
{
    QStringList lines;
    for (auto one = story.begin(); one != story.end(); ++one)
        lines.append(one.key() + u' ' + QString::number(one.value()));
    for (int i = 0; i < LongCourt::faultCount; ++i)
        lines.append(
            u"fault %1: %2"_s.arg(LongCourt::NameOf(static_cast<LongCourt::Fault>(i)),
                                  QString::number(court.Count(static_cast<LongCourt::Fault>(i)))));
    return lines.join(u", "_s);
}

QStringList LongDay::Missing() const
{
    const QStringList all{u"frmNameSearchResults"_s,
                          u"frmDiscisNameResults"_s,
                          u"frmDiscisNCNameResults"_s,
                          u"frmCaseDetails"_s,
                          u"frmCivilCaseDetails"_s,
                          u"frmNCCaseDetails"_s,
                          u"frmDocTransfer"_s,
                          u"frmAllDocuments"_s,
                          u"rows"_s,
                          u"later runs"_s,
                          u"retries"_s,
                          u"further pages"_s,
                          u"checked names"_s,
                          u"stops before the turn"_s,
                          u"stops of a run"_s,
                          u"refusals to close"_s,
                          u"closed before the turn"_s,
                          u"keys left"_s,
                          u"runs that broke down"_s,
                          u"MsgBox"_s,
                          u"frmOnDemand"_s,
                          u"frmArbPrompt"_s,
                          u"disconnects"_s,
                          u"logins given up"_s,
                          u"idle limits"_s,
                          u"links closed by the court"_s};
    QStringList missing;
    for (const QString &one : all) {
        if (!story.contains(one))
            missing.append(one);
    }
    for (int i = 0; i < LongCourt::faultCount; ++i) {
        if (court.Count(static_cast<LongCourt::Fault>(i)) == 0)
            missing.append(u"fault "_s + LongCourt::NameOf(static_cast<LongCourt::Fault>(i)));
    }
    return missing;
}
