#include "controls/SaveDialog.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"
#include "tables/NamesUser.h"
#include "tables/RowFilter.h"

#include <QFile>

#include <array>
#include <memory>

// What acts on rows of a table acts on those that can be seen, whatever Find hides, and whatever
// has happened to them.

namespace {
/// A command of the table, and the names in the rows that it acted on.
struct Command
{
    const char *name;
    bool ofLists; ///< grids do not have it
    QStringList (*act)(const NamesUser &user, const QString &file);
};

QStringList linesOf(const QString &text)
{
    return text.split(u'\n', Qt::SkipEmptyParts);
}

const std::array<Command, 7> commands{{
    {"Ctrl+C", false,
     [](const NamesUser &user, const QString &) {
         QApplication::clipboard()->clear();
         QTest::keySequence(user.Table, QKeySequence::Copy);
         return linesOf(QApplication::clipboard()->text());
     }},
    {"copy", false,
     [](const NamesUser &user, const QString &) { return linesOf(user.Copied(u"mnuListCopy"_s)); }},
    {"copy with headers", false,
     [](const NamesUser &user, const QString &) {
         return linesOf(user.Copied(u"mnuListCopyHeaders"_s)).mid(1);
     }},
    {"export", false,
     [](const NamesUser &user, const QString &file) {
         ReplaceSaveDialog([file](const QString &) { return file; });
         user.Trigger(u"mnuListExport"_s);
         QFile written(file);
         const bool opened = written.open(QIODevice::ReadOnly);
         return opened ? linesOf(QString::fromUtf8(written.readAll()).remove(u'"').remove(u'\r'))
                             .mid(1)
                       : QStringList();
     }},
    {"Enter", false,
     [](const NamesUser &user, const QString &) {
         // The cursor of a grid stands nowhere at first.
         if (user.Grid)
             QTest::keyClick(user.Table, Qt::Key_Down);
         return user.Opened([&] { QTest::keyClick(user.Table, Qt::Key_Return); });
     }},
    {"double click", false,
     [](const NamesUser &user, const QString &) {
         return user.Opened([&] {
             for (int y = 2; y < user.Table->viewport()->height(); y += 6)
                 QTest::mouseDClick(user.Table->viewport(), Qt::LeftButton, {}, {20, y});
         });
     }},
    {"Space", true,
     [](const NamesUser &user, const QString &) {
         QTest::keyClick(user.Table, Qt::Key_Space);
         QStringList checked;
         for (const int row : user.List->List()->CheckedRows())
             checked.append(user.List->List()->Cell(row, 0));
         return checked;
     }},
}};

/// What has happened to the table before the command.
struct Before
{
    const char *name;
    bool ofLists;
    void (*happen)(const NamesUser &user);
};

void sortBackwards(const NamesUser &user)
{
    std::vector<QString> keys;
    keys.reserve(static_cast<size_t>(user.List->List()->Count()));
    for (int row = 0; row < user.List->List()->Count(); ++row)
        keys.push_back(user.List->List()->Cell(row, 0));
    user.List->SortRows(keys, Qt::DescendingOrder);
}

const std::array<Before, 6> befores{{
    {"selected and then hidden", false,
     [](const NamesUser &user) {
         user.Table->selectAll();
         user.Find(u"smith"_s);
     }},
    {"hidden and then selected", false,
     [](const NamesUser &user) {
         user.Find(u"smith"_s);
         user.Table->selectAll();
     }},
    {"hidden and sorted", true,
     [](const NamesUser &user) {
         user.Find(u"smith"_s);
         user.Table->selectAll();
         sortBackwards(user);
     }},
    {"rows arrive", true,
     [](const NamesUser &user) {
         user.Find(u"smith"_s);
         user.Table->selectAll();
         user.Fill({u"BROWN"_s, u"SMITHERS"_s});
     }},
    {"rows arrive and are sorted", true,
     [](const NamesUser &user) {
         user.Table->selectAll();
         user.Find(u"smith"_s);
         user.Fill({u"BROWN"_s, u"SMITHERS"_s});
         sortBackwards(user);
     }},
    {"another table comes", false,
     [](const NamesUser &user) {
         user.Find(u"smith"_s);
         user.Fill({u"JONES, F"_s, u"SMITH, G"_s});
         user.Table->selectAll();
     }},
}};
} // namespace

class tst_HiddenRowCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup()
    {
        ReplaceSaveDialog({});
        folder.reset();
    }

    void everyCommandActsOnRowsInSight_data();
    void everyCommandActsOnRowsInSight();
    void commandsOnSelectedRows_data() { eachTable(); }
    void commandsOnSelectedRows();
    void commandsOnOneRow_data() { eachTable(); }
    void commandsOnOneRow();
    void theMenuWithNothingInSight_data() { eachTable(); }
    void theMenuWithNothingInSight();

private:
    std::unique_ptr<TestFolder> folder;
};

void tst_HiddenRowCommands::everyCommandActsOnRowsInSight_data()
{
    QTest::addColumn<bool>("isGrid");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("before");
    for (size_t command = 0; command < commands.size(); ++command) {
        for (size_t before = 0; before < befores.size(); ++before) {
            for (const bool isGrid : {false, true}) {
                if (isGrid && (commands.at(command).ofLists || befores.at(before).ofLists))
                    continue;
                QTest::addRow("%s, %s, %s", isGrid ? "grid" : "list", commands.at(command).name,
                              befores.at(before).name)
                    << isGrid << static_cast<int>(command) << static_cast<int>(before);
            }
        }
    }
}

void tst_HiddenRowCommands::everyCommandActsOnRowsInSight()
{
    QFETCH(bool, isGrid);
    QFETCH(int, command);
    QFETCH(int, before);
    const NamesUser user(isGrid);
    if (user.List)
        user.List->List()->SetCheckBoxes(true);
    befores.at(static_cast<size_t>(before)).happen(user);
    const QStringList inSight = user.InSight();
    const QStringList actedOn =
        commands.at(static_cast<size_t>(command)).act(user, folder->Path(u"rows.csv"_s));
    QVERIFY(!actedOn.isEmpty());
    for (const QString &name : actedOn)
        QVERIFY2(inSight.contains(name), qPrintable(name));
}

void tst_HiddenRowCommands::commandsOnSelectedRows()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    user.Table->selectAll();
    user.Find(u"smith"_s);
    QCOMPARE(user.Copied(u"mnuListCopy"_s), u"SMITH, A\nSMITH, C\nSMITH, E"_s);
    QCOMPARE(user.Copied(u"mnuListCopyHeaders"_s), u"Name\nSMITH, A\nSMITH, C\nSMITH, E"_s);
    QApplication::clipboard()->clear();
    QTest::keySequence(user.Table, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), u"SMITH, A\nSMITH, C\nSMITH, E"_s);
    QCOMPARE(user.Tools()->Filter()->SelectedRows(), QList<int>({0, 2, 4}));
    // An export is of all rows in sight, selected or not.
    const QString path = folder->Path(u"rows.csv"_s);
    ReplaceSaveDialog([path](const QString &) { return path; });
    user.Table->clearSelection();
    user.Trigger(u"mnuListExport"_s);
    QCOMPARE(folder->Read(u"rows.csv"_s),
             QByteArray("\xEF\xBB\xBF"
                        "Name\r\n\"SMITH, A\"\r\n\"SMITH, C\"\r\n\"SMITH, E\"\r\n"));
    QCOMPARE(user.Copied(u"mnuListCopy"_s), u"nothing"_s);
}

void tst_HiddenRowCommands::commandsOnOneRow()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    QList<int> opened;
    if (user.Grid)
        connect(user.Grid, &FlexGrid::RowActivated, this, [&](int row) { opened.append(row - 1); });
    else
        connect(user.List, &ResultListView::RowChosen, this, [&](int row) { opened.append(row); });
    user.Click(3);
    user.Find(u"smith"_s);
    QTest::keyClick(user.Table, Qt::Key_Return);
    QCOMPARE(opened, QList<int>());
    QCOMPARE(user.Tools()->Filter()->ChosenRow(), -1);
    QCOMPARE(user.Tools()->Filter()->CurrentRow(), -1);
    // Where the hidden row 3 was, row 4 is now.
    user.Click(4);
    QTest::mouseDClick(user.Table->viewport(), Qt::LeftButton, {}, user.Place(4));
    QTest::keyClick(user.Table, Qt::Key_Up);
    QTest::keyClick(user.Table, Qt::Key_Return);
    QCOMPARE(opened, QList<int>({4, 2}));
    QCOMPARE(user.Tools()->Filter()->ChosenRow(), 2);
}

void tst_HiddenRowCommands::theMenuWithNothingInSight()
{
    QFETCH(bool, isGrid);
    const NamesUser user(isGrid);
    user.Click(3);
    user.Find(u"nobody"_s);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(user.Table, &event);
    for (const QString &name : {u"mnuListCopy"_s, u"mnuListCopyHeaders"_s, u"mnuListExport"_s})
        QVERIFY(!user.Table->findChild<QAction *>(name)->isEnabled());
}

HALVANE_TEST(tst_HiddenRowCommands)
#include "tst_HiddenRowCommands.moc"
