// A day at the program, from its start to its end, in a program of its own: the sweeps break its
// disk and kill it. It is the real program with a user at its windows, who answers whatever comes
// up, says on standard output what was done and what the program said, and goes on with what can
// still be done. Its arguments are the application folder, which is chosen here, the folder of the
// installed data and the port of the practice court; its exit code is the program's own.

#include "app/PracticeCourt.h"
#include "app/SingleInstance.h"
#include "app/Startup.h"
#include "app/WindowFinder.h"
#include "casedetails/CaseWindow.h"
#include "controls/CheckListBox.h"
#include "controls/SaveDialog.h"
#include "controls/TabStrip.h"
#include "core/AppFolder.h"
#include "core/Clock.h"
#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "jobs/frmQueue.h"
#include "session/SessionEvents.h"
#include "session/frmMain.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <array>
#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// Beyond this the road goes on without what it waits for.
constexpr qint64 patienceMilliseconds = 10'000;
/// A dialog that is still there so long after it was answered is answered again.
constexpr qint64 secondAnswerMilliseconds = 300;

/// Waits go fast: the program's pauses are short, and a court has seconds to answer all the same.
/// What is written down is always of the same moment, so that two days can be compared.
class FastClock : public Clock
{
public:
    FastClock() { elapsed.start(); }
    QDateTime Now() const override { return QDateTime({2026, 3, 10}, {10, 0, 0}); }
    float SecondsOfDay() const override
    {
        constexpr float begin = 36'000.0F;
        constexpr float pace = 0.02F;
        return begin + static_cast<float>(elapsed.elapsed()) * pace;
    }
    void SleepMilliseconds(int) override {}

private:
    QElapsedTimer elapsed;
};

void say(const QString &text)
{
    QString line = text;
    line.replace(u'\r', u' ').replace(u'\n', u' ');
    std::fputs(qUtf8Printable(line + u'\n'), stdout);
    std::fflush(stdout);
}

/// What is clicked in a dialog, and before that, what is typed into a field of it.
struct DialogAnswer
{
    QStringView Dialog;
    QStringView Field;
    QStringView Text;
    QStringView Button;
};
constexpr std::array<DialogAnswer, 5> dialogAnswers{{
    {u"frmConnect", u"", u"", u"cmdConnect"},
    {u"frmAccounting", u"cboxClientID", u"MATTER 2", u"cmdOK"},
    {u"frmOpts", u"txtPrintName", u"What the day has chosen", u"cmdOK"},
    {u"dlgPrintMgr", u"", u"", u"OKButton"},
    {u"frmElapsedTime", u"", u"", u"Command1"},
}};

void enter(const QWidget *window, const QString &field, const QString &text)
{
    if (auto *line = window->findChild<QLineEdit *>(field))
        line->setText(text);
    else if (auto *box = window->findChild<QComboBox *>(field))
        box->setCurrentText(text);
}

void clickLater(QAbstractButton *button)
{
    QMetaObject::invokeMethod(button, &QAbstractButton::click, Qt::QueuedConnection);
}

void answerBox(const QMessageBox *box)
{
    say(u"box: "_s + box->windowTitle() + u" | "_s + box->text());
    // What a day before has left undone stays so: this one has its own searches.
    if (box->windowTitle() == u"History" && box->button(QMessageBox::No)) {
        clickLater(box->button(QMessageBox::No));
        return;
    }
    for (const auto wanted : {QMessageBox::Yes, QMessageBox::Ok, QMessageBox::Cancel}) {
        if (QAbstractButton *button = box->button(wanted)) {
            clickLater(button);
            return;
        }
    }
}

void answerDialog(QDialog *dialog)
{
    for (const DialogAnswer &answer : dialogAnswers) {
        if (answer.Dialog != dialog->objectName())
            continue;
        say(u"dialog: "_s + dialog->objectName());
        enter(dialog, answer.Field.toString(), answer.Text.toString());
        if (auto *button = dialog->findChild<QPushButton *>(answer.Button.toString()))
            clickLater(button);
        return;
    }
    say(u"dialog put away: "_s + dialog->objectName());
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        say(label->text());
    QMetaObject::invokeMethod(dialog, &QDialog::reject, Qt::QueuedConnection);
}

/// A timer that is set anew begins anew, so that is done once.
void quicken(QTimer *timer)
{
    if (timer->interval() > 1)
        timer->setInterval(1);
}

/// Every window asks for its turn at once.
void hurry()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (auto *window = qobject_cast<JobWindow *>(widget))
            quicken(window->Timer1);
        if (auto *window = qobject_cast<CaseWindow *>(widget))
            quicken(window->TmrSearchOnDemand);
        if (auto *main = qobject_cast<frmMain *>(widget))
            quicken(main->TimerExit);
        if (auto *start = widget->findChild<QTimer *>(u"tmrUI"_s))
            quicken(start);
    }
}

/// The user.
class Day
{
public:
    Day()
    {
        ticks.setInterval(1);
        QObject::connect(&ticks, &QTimer::timeout, &ticks, [this] { look(); });
        ticks.start();
    }
    void Go();

private:
    void look();
    /// True when it came to hold; otherwise the day goes on without it.
    bool wait(const QString &what, const std::function<bool()> &holds);
    bool click(const QString &window, const QString &button);
    bool choose(const QString &window, const QString &action);
    bool isShown(const QString &window);

    bool logIn();
    void search();
    void enterPerson() const;
    void saveResults();
    void preview(const QString &of);
    void openCase();
    void documents();
    void searchNumber();
    void options();
    void history();
    void leave();

    QTimer ticks;
    QPointer<QDialog> answered;
    QElapsedTimer sinceAnswer;
};

void Day::look()
{
    hurry();
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || (dialog == answered && sinceAnswer.elapsed() < secondAnswerMilliseconds))
        return;
    answered = dialog;
    sinceAnswer.start();
    if (const auto *box = qobject_cast<QMessageBox *>(dialog))
        answerBox(box);
    else
        answerDialog(dialog);
}

bool Day::wait(const QString &what, const std::function<bool()> &holds)
{
    QElapsedTimer waiting;
    waiting.start();
    while (!holds()) {
        if (waiting.elapsed() > patienceMilliseconds) {
            say(u"in vain: "_s + what);
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    say(u"done: "_s + what);
    return true;
}

bool Day::click(const QString &window, const QString &button)
{
    if (!CanClick(window, button)) {
        say(u"cannot: "_s + window + u' ' + button);
        return false;
    }
    ClickOn(window, button);
    return true;
}

bool Day::choose(const QString &window, const QString &action)
{
    auto *found = ControlOf<QAction>(window, action);
    if (!found || !found->isEnabled()) {
        say(u"cannot: "_s + window + u' ' + action);
        return false;
    }
    QMetaObject::invokeMethod(found, &QAction::trigger, Qt::QueuedConnection);
    return true;
}

bool Day::isShown(const QString &window)
{
    return wait(window, [window] { return WindowNamed(window) != nullptr; });
}

bool isOver(const QString &window)
{
    const auto *stop = ControlOf<QPushButton>(window, u"cmdStopSearching"_s);
    return stop && !stop->isEnabled();
}

bool noQuestion()
{
    return !QApplication::activeModalWidget();
}

bool Day::logIn()
{
    const QString login = u"frmLogin"_s;
    if (!wait(u"the server is reached"_s, [login] { return CanClick(login, u"cmdLogin"_s); }))
        return false;
    enter(WindowNamed(login), u"txtUsername"_s, u"paralegal"_s);
    enter(WindowNamed(login), u"txtPassword"_s, u"practice"_s);
    click(login, u"cmdLogin"_s);
    return wait(u"logged in"_s, [login] {
        return Global.bLoggedIn && !Global.bLoginBusy && !WindowNamed(login) && noQuestion()
               && WindowNamed(u"frmSearchWA"_s);
    });
}

void tick(const QString &list, const QStringList &items)
{
    auto *box = ControlOf<QListWidget>(u"frmSearchWA"_s, list);
    for (int i = 0; box && i < box->count(); ++i) {
        if (!items.contains(box->item(i)->text()))
            continue;
        if (qobject_cast<CheckListBox *>(box))
            box->item(i)->setCheckState(Qt::Checked);
        else
            box->setCurrentRow(i);
    }
}

void Day::enterPerson() const
{
    const QWidget *form = WindowNamed(u"frmSearchWA"_s);
    enter(form, u"txtSearchName_0"_s, u"Smith"_s);
    enter(form, u"txtSearchName_1"_s, u"John"_s);
    enter(form, u"txtSearchName_2"_s, u"Q"_s);
    tick(u"lboxCountyOrProfile"_s, {u"King"_s});
    tick(u"lboxCaseTypes"_s, {u"Civil"_s, u"Criminal"_s});
}

void Day::search()
{
    const QString results = u"frmNameSearchResults"_s;
    enterPerson();
    if (!click(u"frmSearchWA"_s, u"cmdBeginSearch"_s) || !isShown(results)
        || !wait(u"the matches"_s, [results] { return isOver(results) && noQuestion(); }))
        return;
    say(LabelText(results, u"lblStatus"_s));
    saveResults();
    if (auto *list = ControlOf<QTableView>(results, u"listview1"_s)) {
        list->selectRow(0);
        openCase();
    }
}

void Day::saveResults()
{
    const QString results = u"frmNameSearchResults"_s;
    const auto quiet = [] { return noQuestion(); };
    const auto wrote = [this, quiet](const QString &what) {
        // The click and what it does are behind what is in the queue now.
        QCoreApplication::processEvents();
        wait(what, quiet);
    };
    if (click(results, u"cmdSearchResults_6"_s))
        wrote(u"the report as text"_s);
    if (choose(results, u"mnuListExport"_s))
        wrote(u"the list as CSV"_s);
    if (click(results, u"cmdSearchResults_2"_s))
        preview(u"the results"_s);
}

void Day::preview(const QString &of)
{
    const QString window = u"PreviewDoc"_s;
    if (!wait(u"the report of "_s + of, [window] { return CanClick(window, u"cmdSavePdf"_s); }))
        return;
    click(window, u"cmdSavePdf"_s);
    QCoreApplication::processEvents();
    wait(u"saved "_s + of, [window] { return CanClick(window, u"cmdSavePdf"_s) && noQuestion(); });
    say(LabelText(window, u"lblNote"_s));
    click(window, u"cmdClose"_s);
    wait(u"put away"_s, [window] { return !WindowNamed(window); });
}

void Day::openCase()
{
    const QString window = u"frmCaseDetails"_s;
    if (!click(u"frmNameSearchResults"_s, u"cmdSearchResults_0"_s) || !isShown(window)
        || !wait(u"the Summary"_s, [window] { return isOver(window); }))
        return;
    if (auto *strip = ControlOf<TabStrip>(window, u"TabStrip1"_s))
        strip->setCurrentIndex(1);
    if (!wait(u"the panel"_s, [window] { return CanClick(window, u"cmdSearchNow"_s); }))
        return;
    click(window, u"cmdSearchNow"_s);
    if (wait(u"all tabs"_s,
             [window] { return isOver(window) && !CanClick(window, u"cmdSearchNow"_s); }))
        documents();
    say(LabelText(window, u"lblStatus"_s));
    if (click(window, u"cmdPrintDetails"_s))
        preview(u"the case"_s);
}

void Day::documents()
{
    const QString window = u"frmCaseDetails"_s;
    if (auto *strip = ControlOf<TabStrip>(window, u"TabStrip1"_s))
        strip->setCurrentIndex(static_cast<int>(strip->Captions().indexOf(u"Documents"_s)));
    auto *grid = ControlOf<QTableView>(window, u"GridDocuments"_s);
    if (!grid)
        return;
    grid->selectRow(0);
    QCoreApplication::postEvent(grid,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    const QString transfer = u"frmDocTransfer"_s;
    isShown(transfer);
    wait(u"a document"_s, [transfer] {
        const auto *stop = ControlOf<QPushButton>(transfer, u"cmdStop"_s);
        return (!stop || !stop->isEnabled()) && noQuestion();
    });
    if (WindowNamed(transfer))
        say(LabelText(transfer, u"lblStatus"_s));
    const QString all = u"frmAllDocuments"_s;
    if (!choose(window, u"mnuDocRetrieveAll"_s) || !isShown(all))
        return;
    wait(u"all documents"_s, [all] {
        const auto *stop = ControlOf<QPushButton>(all, u"cmdStop"_s);
        return stop && !stop->isEnabled() && noQuestion();
    });
    say(LabelText(all, u"lblStatus"_s));
    if (const auto *missing = ControlOf<QPlainTextEdit>(all, u"txtMissing"_s))
        say(missing->toPlainText());
    click(all, u"cmdClose"_s);
}

/// A company and a case number, which have lists of recent entries of their own.
void Day::searchNumber()
{
    const QString form = u"frmSearchWA"_s;
    Q_EMIT SessionEvents::Of().SearchFormWanted();
    for (const auto &[kind, text] : {std::pair{u"optSearchType_1"_s, u"Harbor Freight"_s},
                                     std::pair{u"optSearchType_2"_s, u"94-1-00042-1"_s}}) {
        if (!click(form, kind))
            continue;
        QCoreApplication::processEvents();
        enter(WindowNamed(form), u"txtSearchName_0"_s, text);
        tick(u"lboxCountyOrProfile"_s, {u"King"_s});
        tick(u"lboxMultiJurisdiction"_s, {u"King"_s});
        tick(u"lboxCaseTypes"_s, {u"Civil"_s});
        click(form, u"cmdBeginSearch"_s);
        QCoreApplication::processEvents();
        wait(text, [] {
            return noQuestion() && frmQueue::Form().FIFO.ListCount() == 0
                   && !Global.bSearchInProgress;
        });
    }
}

void Day::options()
{
    if (!choose(u"frmMain"_s, u"mnuViewOptions"_s))
        return;
    QCoreApplication::processEvents();
    wait(u"the options"_s, [] { return noQuestion(); });
}

void Day::history()
{
    const QString window = u"frmHistory"_s;
    if (!choose(u"frmMain"_s, u"mnuSearchHistory"_s) || !isShown(window))
        return;
    enter(WindowNamed(window), u"txtFilter"_s, u"smith"_s);
    QCoreApplication::processEvents();
    click(window, u"cmdClose"_s);
    wait(u"the history"_s, [window] { return !WindowNamed(window); });
    if (const auto *button = ControlOf<QAbstractButton>(u"frmMain"_s, u"cmdHistoryProblem"_s);
        button && button->isVisible())
        say(u"shown: "_s + button->toolTip());
}

void Day::leave()
{
    say(u"the end of the day"_s);
    choose(u"frmMain"_s, u"mnuFileExit"_s);
    wait(u"the exit"_s, [] { return false; });
    std::_Exit(3);
}

void Day::Go()
{
    Main(false);
    if (logIn()) {
        options();
        search();
        searchNumber();
        history();
    }
    leave();
}

int run(const QStringList &arguments)
{
    ChooseAppFolder(arguments.value(1));
    SingleInstance instance(QFileInfo(AppFolder()).canonicalFilePath());
    if (!instance.Claim()) {
        say(u"refused: a copy runs already"_s);
        return 1;
    }
    CopyMissingDataFiles(arguments.value(2));
    PointSessionAt(arguments.value(3).toUShort());
    ReplaceShell([](const QString &path) {
        say(u"opened: "_s + QFileInfo(path).fileName());
        return true;
    });
    ReplaceSaveDialog([](const QString &offered) { return offered; });
    WireWindows();
    Day day;
    day.Go();
    return 0;
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(u"Halvane"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    FastClock clock;
    Clock::Replace(&clock);
    return run(QApplication::arguments());
}
