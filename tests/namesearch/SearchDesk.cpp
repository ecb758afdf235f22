#include "namesearch/SearchDesk.h"

#include "tables/ResultListView.h"
#include "core/EventLoop.h"
#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "link/ConnectState.h"
#include "link/Router.h"
#include "link/frmWinsock.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmLogin.h"
#include "support/FakeSocket.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <utility>

namespace {
constexpr int longestTestMilliseconds = 30'000;
constexpr int shortestTick = 1;
constexpr double longestNapSeconds = 0.05;
} // namespace

SearchDesk::SearchDesk()
{
    // A wait that no test meant to have ends with the link, and the test fails by what it shows.
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &context, [] {
        qWarning("the test waited too long: the link is cut");
        if (Global.sckServer)
            Global.sckServer->Close();
    });
    guard.start(longestTestMilliseconds);
}

SearchDesk::~SearchDesk()
{
    qDeleteAll(watchers);
    QList<QPointer<QWidget>> windows;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *window : all)
        windows.append(window);
    // A window takes those that belong to it along.
    for (const QPointer<QWidget> &window : windows) {
        if (window && window->objectName().startsWith(u"frm"))
            delete window;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void SearchDesk::ConnectTo(const ScriptedCourt &court)
{
    Global.lngServerPort = court.Port();
    if (!ConnectToRouter(u"127.0.0.1"_s)
        || !QTest::qWaitFor([&court] { return court.HasClient(); }))
        qFatal("the scripted court cannot be reached");
    Global.bLoggedIn = true;
}

FakeSocket *SearchDesk::ConnectToNothing()
{
    FakeSocket::Install();
    frmWinsock::Form();
    Global.intConnectState = ConnectDone;
    Global.bLoggedIn = true;
    return FakeSocket::Last();
}

frmNameSearchResults *SearchDesk::MakePending(const QStringList &lines, const QString &state)
{
    auto *window = new frmNameSearchResults(state);
    Enqueue(window, lines);
    return window;
}

void SearchDesk::Enqueue(JobWindow *window)
{
    window->Timer1->stop();
    window->txtMasterKey = MakeMasterKey();
    EnqueueKey(window->txtMasterKey);
    window->show();
}

void SearchDesk::Enqueue(NameResultsWindow *window, const QStringList &lines)
{
    for (const QString &line : lines)
        window->lboxQueue.AddItem(line);
    Enqueue(window);
}

frmNameSearchResults *SearchDesk::Start(const QStringList &lines, const QString &state)
{
    frmNameSearchResults *window = MakePending(lines, state);
    window->Timer1->start(shortestTick);
    return window;
}

void SearchDesk::When(std::function<bool()> ready, std::function<void()> act)
{
    auto *watcher = new QTimer;
    watchers.append(watcher);
    QObject::connect(watcher, &QTimer::timeout, &context,
                     [this, watcher, ready = std::move(ready), act = std::move(act)] {
                         if (!watchers.contains(watcher) || !ready())
                             return;
                         watcher->stop();
                         watchers.removeAll(watcher);
                         watcher->deleteLater();
                         // A copy of its own: what happens may run the event loop, in which the
                         // watcher ends.
                         const std::function<void()> now = act;
                         now();
                     });
    watcher->start(shortestTick);
}

void SearchDesk::AnswerModalLogin(bool through)
{
    const auto login = [] { return qobject_cast<frmLogin *>(QApplication::activeModalWidget()); };
    When([login] { return login() != nullptr; },
         [login, through] {
             Global.bLoggedIn = through;
             login()->Unload();
         });
}

bool SearchDesk::Finish(const QWidget *window)
{
    const QPushButton *stop = ButtonOf(window, "cmdStopSearching");
    const QDeadlineTimer deadline(longestTestMilliseconds);
    // From event to event, without naps in between: some tests make hundreds of searches.
    while (stop->isEnabled() || Global.bSearchInProgress) {
        if (deadline.hasExpired())
            return false;
        YieldUntilEvent(longestNapSeconds);
    }
    return true;
}

void SearchTest::init()
{
    desk = std::make_unique<SearchDesk>();
    court = std::make_unique<ScriptedCourt>();
}

void SearchTest::cleanup()
{
    const QString boxes = desk->Boxes.Complaints();
    const bool allHappened = desk->AllHappened();
    const QString conversation = court->Complaints();
    desk.reset();
    court.reset();
    QCOMPARE(boxes, QString());
    QVERIFY(allHappened);
    QCOMPARE(conversation, QString());
}

void SearchTest::begin(NameResultsWindow *window, const QStringList &lines)
{
    desk->ConnectTo(*court);
    desk->Enqueue(window, lines);
    window->Timer1->start(shortestTick);
}

void SearchTest::finish(const QWidget *window)
{
    if (!desk->Finish(window))
        qFatal("the search does not end");
}

QString TextOf(const QWidget *window, const char *name)
{
    const auto *control = window->findChild<QWidget *>(QLatin1StringView(name));
    return control ? control->property("text").toString() : u"no such control"_s;
}

QPushButton *ButtonOf(const QWidget *window, const char *name)
{
    return window->findChild<QPushButton *>(QLatin1StringView(name));
}

QString ColourOf(const QWidget *window, const char *name)
{
    const auto *control = window->findChild<QWidget *>(QLatin1StringView(name));
    const QColor colour = control->palette().color(QPalette::WindowText);
    if (colour == QColor(0x00, 0x00, 0xC0))
        return u"blue"_s;
    return colour == QColor(0xFF, 0x00, 0x00) ? u"red"_s : colour.name();
}

bool IsBold(const QWidget *window, const char *name)
{
    return window->findChild<QWidget *>(QLatin1StringView(name))->font().bold();
}

ResultListView *ListOf(const QWidget *window, const char *name)
{
    return window->findChild<ResultListView *>(QLatin1StringView(name));
}

QList<QStringList> RowsOf(const QWidget *window, const char *list)
{
    const QAbstractItemModel *model = ListOf(window, list)->model();
    QList<QStringList> rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString());
        rows.append(cells);
    }
    return rows;
}

QStringList HeadersOf(const QWidget *window)
{
    const QAbstractItemModel *model = ListOf(window)->model();
    QStringList headers;
    for (int column = 0; column < model->columnCount(); ++column)
        headers.append(model->headerData(column, Qt::Horizontal).toString());
    return headers;
}

void ClickHeader(const ResultListView *list, int column)
{
    const QHeaderView *header = list->horizontalHeader();
    const QPoint where(header->sectionViewportPosition(column) + 4, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, where);
}

QString ArrowOf(const ResultListView *list)
{
    const QHeaderView *header = list->horizontalHeader();
    if (!header->isSortIndicatorShown())
        return {};
    return QString::number(header->sortIndicatorSection())
           + (header->sortIndicatorOrder() == Qt::DescendingOrder ? u"v"_s : QString());
}

QString RequestLine(const QString &last, const QString &county)
{
    return u"WASUP\u00A6SEARCH\u00A6"_s + last + u"\u00A6JOHN\u00A6Q\u00A6\u00A6"_s + county
           + u",\u00A6Civil,Criminal,\u00A6\u00A6\u00A6"_s;
}

QString ResultLine(const QString &name, const QString &number)
{
    return name + u'~' + number + u"~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s;
}
