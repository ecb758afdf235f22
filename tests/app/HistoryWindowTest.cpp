#include "app/HistoryWindowTest.h"

#include "records/CaseStart.h"
#include "records/StartText.h"
#include "searchentry/EntryText.h"
#include "session/SessionEvents.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int longEnoughToWrite = 30'000; ///< milliseconds; a write takes a few
} // namespace

void HistoryWindowTest::init()
{
    EntryTest::init();
    store().Open(desk->Desk.Folder.Path(u"history.db"_s));
    QVERIFY(store().WaitUntilWritten(longEnoughToWrite));
}

void HistoryWindowTest::cleanup()
{
    delete window;
    store().Close();
    EntryTest::cleanup();
}

void HistoryWindowTest::written()
{
    QVERIFY(store().WaitUntilWritten(longEnoughToWrite));
}

void HistoryWindowTest::open()
{
    written();
    Q_EMIT SessionEvents::Of().HistoryWanted();
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *one : all) {
        if (auto *history = qobject_cast<frmHistory *>(one))
            window = history;
    }
    QVERIFY(window && window->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(window));
}

QStringList HistoryWindowTest::column(int number) const
{
    QStringList cells;
    for (int row = 0; row < table()->model()->rowCount(); ++row)
        cells.append(cell(row, number));
    return cells;
}

SearchEntry HistoryWindowTest::smithInKing(const QString &name)
{
    SearchEntry entry;
    entry.Names[LastName] = name;
    entry.Counties = {u"King"_s};
    entry.CaseTypes = {u"Civil"_s};
    return AsAsked(entry);
}

qint64 HistoryWindowTest::askFor(const QString &name)
{
    AskedItem item;
    item.When = QDateTime(QDate(2026, 11, 2), QTime(9, 5));
    item.What = name;
    item.Where = u"King County - Washington Superior Courts"_s;
    item.ClientCode = u"CODE"_s;
    item.Origin = TextOfEntry(smithInKing(name));
    return store().Begin(item);
}

qint64 HistoryWindowTest::askForCase(const QString &number, const QByteArray &origin)
{
    CaseStart start;
    start.lblState = u"WA"_s;
    start.txtCountyName = u"King"_s;
    start.txtCaseNumber = number;
    start.chkAutoPrint = true;
    start.Origin = origin;
    AskedItem item;
    item.Kind = AskedKind::Case;
    item.What = number;
    item.ClientCode = u"CODE"_s;
    item.Origin = TextOfCaseStart(start);
    return store().Begin(item);
}
