// A list of very many rows, and a user at it: each thing that can be done to all of them, measured.

#include "app/NewEntries.h"
#include "controls/SaveDialog.h"
#include "history/HistoryStore.h"
#include "jobs/Job.h"
#include "namesearch/NameResultsWindow.h"
#include "namesearch/SearchDesk.h"
#include "reports/PreviewDoc.h"
#include "support/HalvaneTest.h"
#include "sweeps/FloodRows.h"
#include "sweeps/FloodTest.h"
#include "tables/FindBar.h"
#include "tables/ResultListView.h"
#include "tables/TableTools.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <map>

namespace {
/// Something that a user does to a list.
struct Doing
{
    const char *name;
    bool keepsAnswering; ///< no turn of the event loop is long, however many rows there are
    std::function<void(NameResultsWindow *window)> act;
};

void typeFind(const NameResultsWindow *window, const QString &text)
{
    // Each list has its own; one is open.
    const QList<QLineEdit *> fields = window->findChildren<QLineEdit *>(u"txtFind"_s);
    for (QLineEdit *field : fields) {
        if (field->isVisible())
            field->setText(text);
    }
}

const std::vector<Doing> &doings()
{
    static const std::vector<Doing> all{
        {"sort by name", false, [](NameResultsWindow *window) { ClickHeader(ListOf(window), 0); }},
        {"sort by number", false,
         [](NameResultsWindow *window) { ClickHeader(ListOf(window), 1); }},
        {"sort by date", false, [](NameResultsWindow *window) { ClickHeader(ListOf(window), 2); }},
        {"find", true,
         [](NameResultsWindow *window) {
             ListOf(window)->Tools()->OpenFind();
             typeFind(window, u"Q12"_s);
         }},
        {"find more", true, [](NameResultsWindow *window) { typeFind(window, u"Q123"_s); }},
        {"find nothing", true, [](NameResultsWindow *window) { typeFind(window, u"nobody"_s); }},
        {"find no more", true, [](NameResultsWindow *window) { typeFind(window, QString()); }},
        // Each takes all rows at once, or moves them, as sorting does.
        {"select all", false, [](NameResultsWindow *window) { ListOf(window)->selectAll(); }},
        {"copy all", false, [](NameResultsWindow *window) { ListOf(window)->Tools()->Copy(); }},
        {"export", false, [](NameResultsWindow *window) { ListOf(window)->Tools()->ExportCsv(); }},
        {"save report", false,
         [](NameResultsWindow *window) { Click(window, "cmdSearchResults_6"); }},
        {"preview", false, [](NameResultsWindow *window) { Click(window, "cmdSearchResults_2"); }},
        // What it lays out beside the user is no part of what comes next.
        {"close preview", false,
         [](NameResultsWindow *window) { PreviewDoc::Of(window)->close(); }},
        {"scroll", true,
         [](NameResultsWindow *window) {
             ListOf(window)->scrollToBottom();
             ListOf(window)->scrollToTop();
         }},
        {"resize", false, [](NameResultsWindow *window) { window->resize(1000, 700); }},
    };
    return all;
}
} // namespace

class tst_ManyRowsInUse : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { WireNewEntries(); }
    void init() override;
    void cleanup();
    void everyThingThatIsDoneToTheRows();
    void whatIsNewAmongThem();

private:
    NameResultsWindow *search(int rows, FloodCost *cost = nullptr);

    QTemporaryDir folder;
    int histories = 0;
};

void tst_ManyRowsInUse::init()
{
    FloodTest::init();
    HistoryStore::Of().Open(folder.filePath(u"history%1.db"_s.arg(++histories)));
    ReplaceSaveDialog([this](const QString &) { return folder.filePath(u"saved"_s); });
}

void tst_ManyRowsInUse::cleanup()
{
    HistoryStore::Of().WaitUntilWritten(120'000);
    HistoryStore::Of().Close();
    QGuiApplication::clipboard()->clear();
    ReplaceSaveDialog({});
    FloodTest::cleanup();
}

NameResultsWindow *tst_ManyRowsInUse::search(int rows, FloodCost *cost)
{
    flood->Answer(RowsOf(floodLists.front(), rows));
    NameResultsWindow *window = WindowOf(floodLists.front());
    window->ShownJob()->AnnounceLaunch();
    const FloodCost own = Measure([&] { Run(window); });
    Tell("search", own);
    if (cost)
        *cost = own;
    return window;
}

void tst_ManyRowsInUse::everyThingThatIsDoneToTheRows()
{
    const int part = Scaled(millionRows) / rowsOfPiece / Fold * rowsOfPiece;
    Connect();
    std::map<QString, std::array<FloodCost, 2>> costs;
    for (const size_t run : {0U, 1U}) {
        NameResultsWindow *window = search(run == 0 ? part : Fold * part);
        for (const Doing &one : doings()) {
            const FloodCost cost = Measure([&] { one.act(window); });
            costs[QString::fromLatin1(one.name)].at(run) = cost;
            Tell(one.name, cost);
        }
        Tell("closing", Measure([&] { Close(window); }));
        SearchOnce();
    }
    for (const Doing &one : doings()) {
        const auto &[less, all] = costs[QString::fromLatin1(one.name)];
        // Below so much it is the window's own work, which comes when it comes.
        CheckGrowth(less, all, 100.0);
        if (one.keepsAnswering)
            CheckTurn(all);
    }
}

void tst_ManyRowsInUse::whatIsNewAmongThem()
{
    const int part = Scaled(millionRows) / rowsOfPiece / Fold * rowsOfPiece;
    Connect();
    FloodCost less;
    FloodCost all;
    Close(search(part, &less));
    QVERIFY(HistoryStore::Of().WaitUntilWritten(120'000));
    NameResultsWindow *window = search(Fold * part, &all);
    QCOMPARE(window->Search().Record.Rows.NewCount(), (Fold - 1) * part);
    Close(window);
    QVERIFY(HistoryStore::Of().WaitUntilWritten(120'000));
    CheckGrowth(less, all);
    CheckTurn(all);
}

HALVANE_TEST(tst_ManyRowsInUse)
#include "tst_ManyRowsInUse.moc"
