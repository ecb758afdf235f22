#include "namesearch/SearchDesk.h"

#include "core/GlobalState.h"
#include "core/TextUtilities.h"
#include "jobs/TurnTaking.h"
#include "namesearch/frmNameSearchResults.h"
#include "session/frmLogin.h"
#include "tables/ResultListView.h"

#include <QApplication>
#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int shortestTick = 1;
} // namespace

frmNameSearchResults *SearchDesk::MakePending(const QStringList &lines, const QString &state)
{
    auto *window = new frmNameSearchResults(state);
    Enqueue(window, lines);
    return window;
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
    return WaitUntil([stop] { return !stop->isEnabled() && !Global.bSearchInProgress; });
}

void SearchTest::init()
{
    desk = std::make_unique<SearchDesk>();
    court = std::make_unique<ScriptedCourt>();
}

void SearchTest::cleanup()
{
    QCOMPARE(EndDialogue(desk, court), QString());
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
