#include "app/Tour.h"

#include "app/WindowFinder.h"
#include "controls/SaveDialog.h"
#include "controls/TabStrip.h"
#include "core/EndProgram.h"
#include "core/GlobalState.h"
#include "core/Platform.h"
#include "session/SessionEvents.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>

#include <array>
#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int tickMilliseconds = 30;
constexpr qint64 stepMilliseconds = 30'000;
/// The search form shows all of itself.
constexpr QSize mainWindowSize(1180, 890);

/// The form for each court and kind of search: what is clicked, one after the other, and the
/// picture then.
struct FormView
{
    QStringView button;
    QStringView picture;
};
constexpr std::array<FormView, 8> formViews{{
    {u"optCourtSelection_1", u"form-district"},
    {u"optState_0", u"form-oregon"},
    {u"optState_3", u"form-idaho"},
    {u"optState_2", u"form-bankruptcy"},
    {u"optState_1", u""},
    {u"optSearchType_2", u"form-number"},
    {u"chkBulkSearch", u"form-batch"},
    {u"optSearchType_0", u""},
}};

/// Answers the box that is open and gives its text.
QString answerBox(QDialogButtonBox::StandardButton answer)
{
    const QWidget *box = QApplication::activeModalWidget();
    const auto *text = box->findChild<QLabel *>(u"qt_msgbox_label"_s);
    const auto *buttons = box->findChild<QDialogButtonBox *>();
    const QString shown = text ? text->text() : QString();
    if (QPushButton *button = buttons ? buttons->button(answer) : nullptr)
        QMetaObject::invokeMethod(button, &QPushButton::click, Qt::QueuedConnection);
    return shown;
}

void type(const QString &window, const QString &name, const QString &text)
{
    if (auto *box = ControlOf<QLineEdit>(window, name))
        box->setText(text);
}

void tick(const QString &window, const QString &list, const QStringList &items)
{
    auto *box = ControlOf<QListWidget>(window, list);
    for (int i = 0; box && i < box->count(); ++i) {
        if (!items.contains(box->item(i)->text()))
            continue;
        box->item(i)->setCheckState(Qt::Checked);
        box->scrollToItem(box->item(i), QAbstractItemView::PositionAtCenter);
    }
}

void choose(const QString &window, const QString &name, const QString &text)
{
    if (auto *box = ControlOf<QComboBox>(window, name))
        box->setCurrentText(text);
}

bool isOver(const QString &window)
{
    const auto *stop = ControlOf<QPushButton>(window, u"cmdStopSearching"_s);
    return stop && !stop->isEnabled();
}

void chooseTab(const QString &window, const QString &caption)
{
    auto *strip = ControlOf<TabStrip>(window, u"TabStrip1"_s);
    const qsizetype index = strip ? strip->Captions().indexOf(caption) : -1;
    if (index >= 0)
        strip->setCurrentIndex(static_cast<int>(index));
}

/// Chooses a row of a table and presses Enter on it.
void enterRow(const QString &window, const QString &table, int row)
{
    auto *view = ControlOf<QTableView>(window, table);
    if (!view)
        return;
    view->selectRow(row);
    QCoreApplication::postEvent(view,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
}

int progressOf(const QString &window)
{
    const auto *bar = ControlOf<QProgressBar>(window, u"ProgressBar1"_s);
    return bar ? bar->value() : 0;
}

QString shownCaption(const QString &window)
{
    const auto *strip = ControlOf<TabStrip>(window, u"TabStrip1"_s);
    return strip ? strip->SelectedCaption() : QString();
}
} // namespace

/// A case that the tour opens.
struct TourCase
{
    QString Window;
    QString Picture; ///< the pictures' names begin so
    QStringList Tabs;
};

Tour::Tour(const QString &outputFolder, std::function<void()> atEnd, QObject *parent)
    : QObject(parent), output(QDir(outputFolder).absolutePath()), cleanUp(std::move(atEnd)),
      timer(this)
{
    timer.setInterval(tickMilliseconds);
    connect(&timer, &QTimer::timeout, this, &Tour::Tick);
    addSessionSteps();
    addFormSteps();
    addSearchSteps();
    addResultsReportSteps();
    addOpenSteps(u"frmNameSearchResults"_s);
    addCaseSteps({u"frmCaseDetails"_s,
                  u"case"_s,
                  {u"Names"_s, u"Docket"_s, u"Judgments"_s, u"Charges"_s, u"Sentence"_s,
                   u"Accounting"_s, u"Schedule"_s, u"Documents"_s}});
    addDocumentSteps();
    addAllDocumentsSteps();
    addCaseReportSteps();
    addDistrictSteps(
        u"optDiscisSearch_0"_s,
        {u"frmCivilCaseDetails"_s, u"civil-case"_s, {u"Names"_s, u"Docket"_s, u"Judgments"_s}});
    addDistrictSteps(
        u"optDiscisSearch_1"_s,
        {u"frmNCCaseDetails"_s, u"non-civil-case"_s, {u"Names"_s, u"Docket"_s, u"Violations"_s}});
}

void Tour::Start()
{
    if (!QDir().mkpath(output)) {
        fail(u"Cannot create "_s + output);
        return;
    }
    ReplaceShell([this](const QString &path) {
        opened.append(path);
        return true;
    });
    // A report is saved among the pictures, under the name that is offered for it.
    ReplaceSaveDialog([this](const QString &offered) {
        return QDir(output).filePath(QFileInfo(offered).fileName());
    });
    waiting.start();
    timer.start();
}

void Tour::addSessionSteps()
{
    steps.push_back({u"The program asks whether to connect"_s,
                     [] { return CanClick(u"frmConnect"_s, u"cmdConnect"_s); },
                     [this] {
                         if (QWidget *main = WindowNamed(u"frmMain"_s)) {
                             main->showNormal();
                             main->resize(mainWindowSize);
                         }
                         picture(WindowNamed(u"frmConnect"_s), u"connect"_s);
                         ClickOn(u"frmConnect"_s, u"cmdConnect"_s);
                     }});
    steps.push_back({u"The server is reached"_s,
                     [] { return CanClick(u"frmLogin"_s, u"cmdLogin"_s); },
                     [this] {
                         say(LabelText(u"frmLogin"_s, u"lblStatus"_s));
                         type(u"frmLogin"_s, u"txtUsername"_s, u"paralegal"_s);
                         type(u"frmLogin"_s, u"txtPassword"_s, u"practice"_s);
                         picture(WindowNamed(u"frmLogin"_s), u"login"_s);
                         ClickOn(u"frmLogin"_s, u"cmdLogin"_s);
                     }});
    steps.push_back({u"A message of the server is offered"_s,
                     [] { return QApplication::activeModalWidget() != nullptr; },
                     [this] { say(answerBox(QDialogButtonBox::Cancel)); }});
}

void Tour::addFormSteps()
{
    const QString form = u"frmSearchWA"_s;
    steps.push_back({u"Logged in: the search form has a place for each court"_s,
                     [form] {
                         return Global.bLoggedIn && !Global.bLoginBusy
                                && !WindowNamed(u"frmLogin"_s) && WindowNamed(form);
                     },
                     [this, form] {
                         for (const FormView &view : formViews) {
                             auto *button =
                                 ControlOf<QAbstractButton>(form, view.button.toString());
                             if (!button || !button->isVisible()) {
                                 fail(u"There is no "_s + view.button.toString());
                                 return;
                             }
                             button->click();
                             say(WindowNamed(form)->windowTitle());
                             if (!view.picture.isEmpty())
                                 picture(WindowNamed(u"frmMain"_s), view.picture.toString());
                         }
                     }});
}

void Tour::addSearchSteps()
{
    const QString form = u"frmSearchWA"_s;
    const QString results = u"frmNameSearchResults"_s;
    steps.push_back({u"The search form is entered"_s,
                     [form] { return WindowNamed(form) != nullptr; },
                     [this, form] {
                         type(form, u"txtSearchName_0"_s, u"Smith"_s);
                         type(form, u"txtSearchName_1"_s, u"John"_s);
                         type(form, u"txtSearchName_2"_s, u"Q"_s);
                         tick(form, u"lboxCountyOrProfile"_s, {u"King"_s});
                         tick(form, u"lboxCaseTypes"_s, {u"Civil"_s, u"Criminal"_s});
                         picture(WindowNamed(u"frmMain"_s), u"search-form"_s);
                         ClickOn(form, u"cmdBeginSearch"_s);
                     }});
    steps.push_back({u"The court's disclaimer is accepted"_s,
                     [] { return QApplication::activeModalWidget() != nullptr; },
                     [this] { say(answerBox(QDialogButtonBox::Yes)); }});
    steps.push_back({u"The search takes its turn"_s,
                     [results] { return WindowNamed(results) != nullptr; },
                     [this, results] { say(LabelText(results, u"lblStatus"_s)); }});
    steps.push_back({u"The matches arrive"_s, [results] { return isOver(results); },
                     [this, results] {
                         say(LabelText(results, u"lblStatus"_s));
                         const auto *list = ControlOf<QAbstractItemView>(results, u"listview1"_s);
                         const QAbstractItemModel *rows = list->model();
                         for (int row = 0; row < rows->rowCount(); ++row)
                             say(rows->index(row, 0).data().toString() + u"  "_s
                                 + rows->index(row, 1).data().toString());
                         picture(WindowNamed(u"frmMain"_s), u"results"_s);
                         if (LabelText(results, u"lblStatus"_s)
                             != u"Search Complete: 2 Cases Retrieved.")
                             fail(u"Two cases were expected."_s);
                     }});
}

/// Opens the first case of a list of results.
void Tour::addOpenSteps(const QString &results)
{
    steps.push_back({u"The first case is opened"_s, [results] { return isOver(results); },
                     [results] {
                         ControlOf<QTableView>(results, u"listview1"_s)->selectRow(0);
                         ClickOn(results, u"cmdSearchResults_0"_s);
                     }});
}

/// Looks at a case: its Summary, what else there is to fetch, and then each of its tabs.
void Tour::addCaseSteps(const TourCase &tourCase)
{
    const QString window = tourCase.Window;
    const QString name = tourCase.Picture;
    const QString first = tourCase.Tabs.first();
    const auto complete = [window] {
        return isOver(window) && LabelText(window, u"lblStatus"_s) == u"Search Complete";
    };
    steps.push_back({u"Its Summary arrives"_s, complete, [this, window, name] {
                         say(WindowNamed(window)->windowTitle());
                         picture(WindowNamed(u"frmMain"_s), name + u"-summary"_s);
                     }});
    steps.push_back({u"A tab that was left out can be fetched"_s, [] { return true; },
                     [window, first] { chooseTab(window, first); }});
    steps.push_back({u"Everything is asked for"_s,
                     [window] { return CanClick(window, u"cmdSearchNow"_s); },
                     [this, window, name] {
                         picture(WindowNamed(u"frmMain"_s), name + u"-on-demand"_s);
                         ClickOn(window, u"cmdSearchNow"_s);
                     }});
    // The first step sees the window before the click has come to it.
    steps.push_back({u"The case takes its turn again"_s, [window] { return !isOver(window); },
                     [this, window] { say(LabelText(window, u"lblStatus"_s)); }});
    for (const QString &caption : tourCase.Tabs) {
        steps.push_back({caption + u" is looked at"_s, complete,
                         [window, caption] { chooseTab(window, caption); }});
        steps.push_back({caption + u" is shown"_s,
                         [window, caption] { return shownCaption(window) == caption; },
                         [this, window, name, caption] {
                             const auto *panel =
                                 ControlOf<QAbstractButton>(window, u"cmdSearchNow"_s);
                             if (!panel || panel->isVisible()) {
                                 fail(caption + u" was not retrieved."_s);
                                 return;
                             }
                             picture(WindowNamed(u"frmMain"_s), name + u'-' + caption.toLower());
                         }});
    }
}

/// Retrieves the first document of the case whose list is in sight. On a busy machine its window
/// may have gone before it was looked at.
void Tour::addDocumentSteps()
{
    const QString transfer = u"frmDocTransfer"_s;
    steps.push_back({u"A document is asked for"_s, [] { return true; },
                     [] { enterRow(u"frmCaseDetails"_s, u"GridDocuments"_s, 0); }});
    steps.push_back({u"Its transfer waits for its turn"_s,
                     [this, transfer] { return WindowNamed(transfer) || !opened.isEmpty(); },
                     [this, transfer] {
                         if (const QWidget *window = WindowNamed(transfer))
                             say(window->windowTitle());
                         say(LabelText(transfer, u"lblStatus"_s));
                     }});
    constexpr int someOfIt = 20;
    steps.push_back(
        {u"It comes"_s,
         [this, transfer] { return progressOf(transfer) > someOfIt || !opened.isEmpty(); },
         [this, transfer] {
             say(LabelText(transfer, u"lblDocDescription"_s));
             say(LabelText(transfer, u"lblStatus"_s));
             picture(WindowNamed(u"frmMain"_s), u"document-transfer"_s);
         }});
    steps.push_back({u"It is saved and would be shown, and the window has gone"_s,
                     [this, transfer] { return !WindowNamed(transfer) && !opened.isEmpty(); },
                     [this] { showDocument(); }});
}

void Tour::showDocument()
{
    QFile document(opened.first());
    say(u"   document: "_s + document.fileName());
    if (QFileInfo(document).dir().dirName() != u"Reports" || !document.open(QIODevice::ReadOnly)
        || !document.readAll().startsWith("%PDF-"))
        fail(u"There is no document in Reports."_s);
}

/// Retrieves the others, too, in one go.
void Tour::addAllDocumentsSteps()
{
    const QString all = u"frmAllDocuments"_s;
    steps.push_back(
        {u"All documents of the case are asked for"_s, [] { return true; },
         [this] {
             auto *command = ControlOf<QAction>(u"frmCaseDetails"_s, u"mnuDocRetrieveAll"_s);
             if (command)
                 QMetaObject::invokeMethod(command, &QAction::trigger, Qt::QueuedConnection);
             else
                 fail(u"There is no command for all documents."_s);
         }});
    steps.push_back({u"They come one after the other"_s,
                     [all] { return WindowNamed(all) != nullptr; },
                     [this, all] { say(WindowNamed(all)->windowTitle()); }});
    steps.push_back({u"All have come that can be had"_s,
                     [all] {
                         const auto *stop = ControlOf<QPushButton>(all, u"cmdStop"_s);
                         return stop && !stop->isEnabled();
                     },
                     [this, all] {
                         say(LabelText(all, u"lblProgress"_s));
                         say(LabelText(all, u"lblStatus"_s));
                         picture(WindowNamed(u"frmMain"_s), u"all-documents"_s);
                         const QString came = LabelText(all, u"lblProgress"_s);
                         if (came.section(u' ', 0, 0) != came.section(u' ', 2, 2))
                             fail(u"Some of the documents have not come."_s);
                         ClickOn(all, u"cmdClose"_s);
                     }});
}

/// Searches in a District Court for the person whom the practice court always has, and opens the
/// case.
void Tour::addDistrictSteps(const QString &kindButton, const TourCase &tourCase)
{
    const QString form = u"frmSearchWA"_s;
    const bool civil = kindButton == u"optDiscisSearch_0";
    const QString results = civil ? u"frmDiscisNameResults"_s : u"frmDiscisNCNameResults"_s;
    steps.push_back({u"The District Courts are searched"_s, [] { return true; },
                     [form, kindButton] {
                         Q_EMIT SessionEvents::Of().CourtWanted(CourtEntry::WaDiscis);
                         for (const QString &button : {u"optCourtSelection_1"_s, kindButton}) {
                             if (auto *option = ControlOf<QAbstractButton>(form, button))
                                 option->click();
                         }
                         type(form, u"txtSearchName_0"_s, u"Smith"_s);
                         type(form, u"txtSearchName_1"_s, u"John"_s);
                         type(form, u"txtSearchName_2"_s, u"Q"_s);
                         choose(form, u"cboxCountyList"_s, u"King"_s);
                         if (auto *clear = ControlOf<QAbstractButton>(form, u"cmdClearCourtList"_s))
                             clear->click();
                         tick(form, u"lboxDiscisCourtNames"_s, {u"King District Seattle (KSD)"_s});
                         ClickOn(form, u"cmdBeginSearch"_s);
                     }});
    addOpenSteps(results);
    addCaseSteps(tourCase);
}

void Tour::Tick()
{
    if (current >= steps.size()) {
        timer.stop();
        say(u"Tour complete: "_s + QString::number(pictures) + u" pictures in "_s + output);
        end(0);
        return;
    }
    const Step &step = steps[current];
    if (!step.ready()) {
        if (waiting.elapsed() > stepMilliseconds)
            fail(u"Waited in vain for: "_s + step.name);
        return;
    }
    ++current;
    waiting.restart();
    say(QString::number(current) + u". "_s + step.name);
    step.act();
}

void Tour::say(const QString &text)
{
    if (text.isEmpty())
        return;
    std::fputs(qUtf8Printable(text + u'\n'), stdout);
    std::fflush(stdout);
}

void Tour::picture(QWidget *window, const QString &name)
{
    // What a click has just shown or hidden is laid out only on the next turn of the event loop.
    QApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QString path = output + u'/' + QString::number(++pictures) + u'-' + name + u".png"_s;
    if (!window || !window->grab().save(path)) {
        fail(u"Cannot save "_s + path);
        return;
    }
    say(u"   picture: "_s + path);
}

void Tour::fail(const QString &why)
{
    timer.stop();
    say(u"Tour failed: "_s + why);
    end(1);
}

void Tour::end(int exitCode)
{
    if (cleanUp)
        cleanUp();
    EndProgram(exitCode);
}
