#include "SessionFixture.h"

#include "controls/SaveDialog.h"
#include "core/Clock.h"
#include "history/HistoryStore.h"
#include "history/frmUsage.h"
#include "reports/NotingViewer.h"
#include "reports/ReportViewer.h"
#include "support/HalvaneTest.h"
#include "tables/ResultListView.h"
#include "tables/RowFilter.h"
#include "tables/TableTools.h"

#include <QItemSelectionModel>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int longEnough = 30'000; ///< milliseconds; a write takes a few

QDateTime at(int month, int day)
{
    return QDateTime(QDate(2026, month, day), QTime(10, 30));
}

HistoryStore &store()
{
    return HistoryStore::Of();
}

/// Something that was asked for, and so many requests that went out for it.
void ask(AskedKind kind, const QString &what, const QString &code, SentKind sent, int requests,
         const QDateTime &when)
{
    AskedItem item;
    item.Kind = kind;
    item.What = what;
    item.Where = u"King"_s;
    item.ClientCode = code;
    item.When = when;
    const qint64 id = store().Begin(item);
    for (int i = 0; i < requests; ++i)
        store().Sent(id, sent, code, when);
    store().End(id, u"Search Complete"_s, 1);
}

QList<QStringList> rowsOf(const QWidget *window, const char *name)
{
    const ResultListModel *list = Child<ResultListView>(window, name)->List();
    QList<QStringList> rows;
    for (int row = 0; row < list->Count(); ++row)
        rows.append(list->Cells(row));
    return rows;
}
} // namespace

class tst_frmUsage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aLineForEachCodeAndMonthAndATotal();
    void theLinesBehindTheSelectedOne();
    void itFollowsTheHistoryAndKeepsTheSelection();
    void whatTheUserLooksAtStays();
    void theSelectionBehindItStays();
    void itSaysWhyItIsEmpty_data();
    void itSaysWhyItIsEmpty();
    void itIsPrintedAndSaved();
    void theTableIsExported();
    void thereIsOne();

private:
    void fill();

    std::unique_ptr<SessionFixture> session;
    ReportsSeen seen;
};

void tst_frmUsage::init()
{
    session = std::make_unique<SessionFixture>();
    seen = {};
    NoteReports(&seen);
    store().Open(session->folder.Path(u"history.db"_s));
    QVERIFY(store().WaitUntilWritten(longEnough));
}

void tst_frmUsage::cleanup()
{
    store().Close();
    ReplaceReportViewer({});
    ReplaceSaveDialog({});
    const QString complaints = session->boxes.Complaints();
    session.reset();
    QCOMPARE(complaints, QString());
}

void tst_frmUsage::fill()
{
    ask(AskedKind::Search, u"DOE, JOHN"_s, u"A"_s, SentKind::Search, 3, at(10, 2));
    ask(AskedKind::Search, u"ROE, JANE"_s, u"A"_s, SentKind::Search, 1, at(11, 2));
    ask(AskedKind::Case, u"02-2-00001-1"_s, u"A"_s, SentKind::CaseSummary, 1, at(11, 3));
    ask(AskedKind::Document, u"COMPLAINT"_s, {}, SentKind::Document, 2, at(11, 4));
    QVERIFY(store().WaitUntilWritten(longEnough));
}

void tst_frmUsage::aLineForEachCodeAndMonthAndATotal()
{
    fill();
    frmUsage window;
    QCOMPARE(
        rowsOf(&window, "listUsage"),
        QList<QStringList>({{u"2026-11"_s, u"(none)"_s, u"0"_s, u"2"_s, u"0"_s, u"0"_s, u"2"_s},
                            {u"2026-11"_s, u"A"_s, u"1"_s, u"2"_s, u"1"_s, u"0"_s, u"0"_s},
                            {u"2026-10"_s, u"A"_s, u"1"_s, u"3"_s, u"0"_s, u"0"_s, u"0"_s},
                            {u"Total"_s, u"all codes"_s, u"2"_s, u"7"_s, u"1"_s, u"0"_s, u"2"_s}}));
}

void tst_frmUsage::theLinesBehindTheSelectedOne()
{
    fill();
    frmUsage window;
    // The first line is selected to begin with.
    QCOMPARE(rowsOf(&window, "listBehind").size(), 1);
    auto *list = Child<ResultListView>(&window, "listUsage");
    list->selectRow(1);
    const auto date = [](int day) { return u"11/0%1/2026 10:30"_s.arg(day); };
    QCOMPARE(
        rowsOf(&window, "listBehind"),
        QList<QStringList>(
            {{date(3), u"Case"_s, u"02-2-00001-1"_s, u"King"_s, u"Search Complete"_s, u"1"_s},
             {date(2), u"Search"_s, u"ROE, JANE"_s, u"King"_s, u"Search Complete"_s, u"1"_s}}));
    list->selectRow(3);
    QCOMPARE(rowsOf(&window, "listBehind"), QList<QStringList>());
}

void tst_frmUsage::itFollowsTheHistoryAndKeepsTheSelection()
{
    fill();
    frmUsage window;
    window.tmrRefresh->setInterval(0);
    auto *list = Child<ResultListView>(&window, "listUsage");
    list->selectRow(2);
    ask(AskedKind::Search, u"NEW"_s, u"B"_s, SentKind::Search, 1, at(11, 5));
    QVERIFY(store().WaitUntilWritten(longEnough));
    QTRY_COMPARE(rowsOf(&window, "listUsage").size(), 5);
    QCOMPARE(list->SelectedRow(), 3);
    QCOMPARE(rowsOf(&window, "listBehind").value(0).value(2), u"DOE, JOHN"_s);
}

/// The first code that the window shows, and what is selected.
void tst_frmUsage::whatTheUserLooksAtStays()
{
    constexpr int many = 200;
    constexpr int chosen = 150;
    for (int i = 0; i < many; ++i)
        ask(AskedKind::Search, u"DOE, JOHN"_s, u"C"_s + QString::number(1000 + i), SentKind::Search,
            1, at(11, 2));
    QVERIFY(store().WaitUntilWritten(longEnough));
    frmUsage window;
    window.tmrRefresh->setInterval(0);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *list = Child<ResultListView>(&window, "listUsage");
    list->selectRow(chosen);
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum() / 2);
    const auto codeOnTop = [list] { return list->List()->Cell(list->rowAt(0), 1); };
    const QString before = codeOnTop();
    QVERIFY(before > u"C1010"_s);
    int resets = 0;
    connect(list->List(), &QAbstractItemModel::modelReset, this, [&resets] { ++resets; });
    // What is counted in a line that is there.
    ask(AskedKind::Search, u"ROE, JANE"_s, u"C1000"_s, SentKind::Search, 1, at(11, 3));
    QVERIFY(store().WaitUntilWritten(longEnough));
    QTRY_COMPARE(rowsOf(&window, "listUsage").value(0).value(3), u"2"_s);
    QCOMPARE(codeOnTop(), before);
    QCOMPARE(list->SelectedRow(), chosen);
    QCOMPARE(resets, 0);
    // A line that comes above it.
    ask(AskedKind::Search, u"ROE, JANE"_s, u"B"_s, SentKind::Search, 1, at(11, 3));
    QVERIFY(store().WaitUntilWritten(longEnough));
    QTRY_COMPARE(rowsOf(&window, "listUsage").size(), many + 2);
    QCOMPARE(codeOnTop(), before);
    QCOMPARE(list->SelectedRow(), chosen + 1);
}

void tst_frmUsage::theSelectionBehindItStays()
{
    constexpr int many = 100;
    constexpr int chosen = 60;
    for (int i = 0; i < many; ++i)
        ask(AskedKind::Search, u"N"_s + QString::number(i), u"A"_s, SentKind::Search, 1, at(11, 2));
    QVERIFY(store().WaitUntilWritten(longEnough));
    frmUsage window;
    window.tmrRefresh->setInterval(0);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *behind = Child<ResultListView>(&window, "listBehind");
    const auto name = [behind](int row) { return behind->List()->Cell(row, 2); };
    behind->selectRow(chosen);
    behind->selectionModel()->select(behind->model()->index(chosen + 1, 0),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
    behind->verticalScrollBar()->setValue(chosen - 1);
    const QString before = name(chosen);
    const QString onTop = name(behind->rowAt(0));
    ask(AskedKind::Search, u"NEW"_s, u"A"_s, SentKind::Search, 1, at(11, 3));
    QVERIFY(store().WaitUntilWritten(longEnough));
    QTRY_COMPARE(rowsOf(&window, "listBehind").size(), many + 1);
    QCOMPARE(name(0), u"NEW"_s);
    QCOMPARE(behind->Tools()->Filter()->SelectedRows(), (QList<int>{chosen + 1, chosen + 2}));
    QCOMPARE(name(chosen + 1), before);
    QCOMPARE(name(behind->rowAt(0)), onTop);
    // Another line has its own: they begin at the top, and none is chosen.
    ask(AskedKind::Search, u"OTHER"_s, u"B"_s, SentKind::Search, 1, at(11, 3));
    QVERIFY(store().WaitUntilWritten(longEnough));
    QTRY_COMPARE(rowsOf(&window, "listUsage").size(), 3);
    Child<ResultListView>(&window, "listUsage")->selectRow(1);
    QCOMPARE(rowsOf(&window, "listBehind").size(), 1);
    QVERIFY(behind->Tools()->Filter()->SelectedRows().isEmpty());
}

void tst_frmUsage::itSaysWhyItIsEmpty_data()
{
    QTest::addColumn<bool>("open");
    QTest::addColumn<QString>("note");
    QTest::newRow("nothing was sent") << true << u"Nothing was sent"_s;
    QTest::newRow("the history is off") << false << u"The history is off"_s;
}

void tst_frmUsage::itSaysWhyItIsEmpty()
{
    QFETCH(const bool, open);
    QFETCH(const QString, note);
    if (!open)
        store().Close();
    const frmUsage window;
    QVERIFY(TextOf(&window, "lblNote").startsWith(note));
    QCOMPARE(rowsOf(&window, "listUsage"), QList<QStringList>());
}

void tst_frmUsage::itIsPrintedAndSaved()
{
    fill();
    frmUsage window;
    Click(&window, "cmdPrint");
    QCOMPARE(seen.Shown.size(), 1);
    QCOMPARE(seen.Shown.first().Title, u"Halvane - Usage by Client Code"_s);
    ReplaceSaveDialog([this](const QString &) { return session->folder.Path(u"usage.txt"_s); });
    Click(&window, "cmdSave");
    QVERIFY(session->folder.Read(u"usage.txt"_s).contains("all codes"));
}

void tst_frmUsage::theTableIsExported()
{
    fill();
    frmUsage window;
    ReplaceSaveDialog([this](const QString &) { return session->folder.Path(u"usage.csv"_s); });
    Child<ResultListView>(&window, "listUsage")->Tools()->ExportCsv();
    const QByteArray file = session->folder.Read(u"usage.csv"_s);
    QVERIFY(file.contains("Month,Client Code,Searches,Requests,Cases,Tabs,Documents"));
    QVERIFY2(file.contains("Total,all codes,2,7,1,0,2"), file.constData());
}

void tst_frmUsage::thereIsOne()
{
    session->ShowMain();
    frmUsage::ShowForm();
    auto *window = Shown<frmUsage>(u"frmUsage"_s);
    QVERIFY(window);
    frmUsage::ShowForm();
    QCOMPARE(Shown<frmUsage>(u"frmUsage"_s), window);
    Click(window, "cmdClose");
    QVERIFY(!Shown<frmUsage>(u"frmUsage"_s));
    frmUsage::ShowForm();
    QVERIFY(Shown<frmUsage>(u"frmUsage"_s));
}

HALVANE_TEST(tst_frmUsage)
#include "tst_frmUsage.moc"
