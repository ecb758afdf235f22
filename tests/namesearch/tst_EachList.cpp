#include "controls/SaveDialog.h"
#include "core/UserStore.h"
#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"
#include "namesearch/ResultColumns.h"
#include "support/HalvaneTest.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QHeaderView>
#include <QSet>

#include <algorithm>
#include <array>

// What is the same in every kind of list, with rows of a court in each: every column sorts both
// ways, the rows as shown are copied and exported, and widths are remembered for the kind.

namespace {
/// A kind of list: how its window is made, and which field of a row stands in which of its columns.
struct ListKind
{
    const char *name;
    const char *state; ///< of frmNameSearchResults; others by `which`
    Which which;
    bool index;
    bool addresses;
    const char *list;
    QStringView head; ///< what a row begins with
    int fields;       ///< behind that
    QStringView order;
};

constexpr std::array<ListKind, 10> kinds{{
    {"Superior", "WA", Which::Name, false, false, "listview1", u"", 6, u"0 1 2 3 4 5"},
    {"Oregon", "OR", Which::Name, false, false, "listview1", u"", 6, u"0 1 2 3 4 5"},
    {"Idaho", "ID", Which::Name, false, false, "listview1", u"", 6, u"0 1 2 3 4 5"},
    // The last column, the retrieval command, is not to be seen and cannot be clicked.
    {"Bankruptcy", "WAWBK", Which::Name, false, false, "listview1", u"", 8, u"0 1 3 4 5 6"},
    {"Index", "WA", Which::Name, true, false, "listview1", u"", 8, u"0 1 2 3 6 4 5 7"},
    {"civil", "", Which::Civil, false, false, "listview1", u"", 8, u"0 1 2 3 4 5 6 7"},
    {"non-civil", "", Which::NonCivil, false, false, "listview1", u"", 8, u"0 1 2 3 4 5 6 7"},
    {"non-civil, addresses", "", Which::NonCivil, false, true, "listview1", u"", 8,
     u"0 1 2 3 4 5 6 7"},
    {"names", "", Which::NonCivil, false, false, "lvDupe", u"NCNMD~", 8, u"0 1 2 3 4 5 6 7"},
    {"names with addresses", "", Which::NonCivil, false, true, "lvDupe", u"NCDND~", 10,
     u"0 1 5 9 3 2 4 6"},
}};

/// A column that is sorted as text, as dates or as case numbers: what its three cells are, from the
/// least to the greatest in the order of that kind, which the plain order of texts is not.
using Cells = std::array<QString, 3>;
const Cells texts{u"apple"_s, u"Banana"_s, u"cherry"_s};
const Cells dates{u"12/31/1999"_s, u"01/02/2002"_s, u"02/01/2003"_s};
const Cells numbers{u"9"_s, u"*2-5"_s, u">>10-0"_s};

const Cells &cellsOf(const QString &header)
{
    static const QSet<QString> dateColumns{u"Date Filed"_s, u"Vio./File Date"_s, u"D.O.B."_s};
    static const QSet<QString> numberColumns{u"Case Number"_s, u"Case No."_s};
    if (dateColumns.contains(header))
        return dates;
    return numberColumns.contains(header) ? numbers : texts;
}

NameResultsWindow *makeWindow(const ListKind &kind)
{
    if (kind.addresses)
        return new frmDiscisNCNameResults(DiscisDndSearch::Yes);
    if (kind.which != Which::Name)
        return MakeWindow(kind.which);
    return new frmNameSearchResults(QString::fromLatin1(kind.state), kind.index);
}

/// In which order the three rows come: the middle one, the least, the greatest.
constexpr std::array<size_t, 3> sent{1, 0, 2};

/// A row with the nth cells of all columns. Fields that no column shows hold the row's number.
QString rowOf(const ListKind &kind, const QStringList &headers, size_t nth)
{
    QStringList fields(kind.fields, QString::number(nth));
    const QList<QStringView> order = kind.order.split(u' ');
    for (qsizetype column = 0; column < order.size(); ++column)
        fields[order[column].toInt()] = cellsOf(headers[column]).at(nth);
    return kind.head + fields.join(u'~') + u'~';
}

/// The cells that can be seen of the nth row.
QStringList shownCells(const ListKind &kind, const QStringList &headers, size_t nth)
{
    QStringList cells;
    for (qsizetype column = 0; column < kind.order.split(u' ').size(); ++column) {
        const QString &cell = cellsOf(headers[column]).at(nth);
        const bool twoRoles = headers[column] == u"Role/Parties";
        cells.append(twoRoles ? QString(cell + u" / "_s + QString::number(nth)) : cell);
    }
    return cells;
}

/// The same as a line of a file: nothing in it needs quotes but a case number, which stays text.
QString fileLine(const ListKind &kind, const QStringList &headers, size_t nth)
{
    QStringList cells = shownCells(kind, headers, nth);
    for (QString &cell : cells) {
        if (numbers.end() != std::find(numbers.begin(), numbers.end(), cell))
            cell = u"\"=\"\""_s + cell + u"\"\"\""_s;
    }
    return cells.join(u',') + u"\r\n"_s;
}

QStringList headersOf(const ResultListView *list)
{
    QStringList headers;
    for (const ListColumn &column : list->List()->Columns())
        headers.append(column.Header);
    return headers;
}

void dragEdge(const ResultListView *list, int column, int pixels)
{
    const QHeaderView *header = list->horizontalHeader();
    const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                      header->height() / 2);
    QWidget *place = header->viewport();
    QTest::mousePress(place, Qt::LeftButton, {}, edge);
    QTest::mouseMove(place, edge + QPoint(pixels / 2, 0));
    QTest::mouseMove(place, edge + QPoint(pixels, 0));
    QTest::mouseRelease(place, Qt::LeftButton, {}, edge + QPoint(pixels, 0));
}

/// Each row with its key and its check mark, as one text.
QStringList wholeRows(const ResultListView *list)
{
    QStringList rows;
    for (int row = 0; row < list->List()->Count(); ++row) {
        rows.append(list->List()->Cells(row).join(u'/') + u' ' + list->List()->Key(row)
                    + (list->List()->IsChecked(row) ? u" checked"_s : QString()));
    }
    return rows;
}
} // namespace

class tst_EachList : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachColumnBothWays_data();
    void eachColumnBothWays();
    void theRowsAsShownAreCopiedAndExported_data() { eachKind(); }
    void theRowsAsShownAreCopiedAndExported();
    void theDraggedWidthIsThatOfTheKind_data() { eachKind(); }
    void theDraggedWidthIsThatOfTheKind();

private:
    void init() override;
    static void eachKind();
    /// A window of this kind with its three rows.
    NameResultsWindow *searched(const ListKind &kind);
};

/// No widths are left from a test that has failed.
void tst_EachList::init()
{
    DistrictSearchTest::init();
    for (int kind = 0; kind <= static_cast<int>(ResultKind::NamesAddresses); ++kind)
        SaveUserStoreValue(u"ColumnWidths"_s, ResultKindName(static_cast<ResultKind>(kind)),
                           QString());
}

void tst_EachList::eachKind()
{
    QTest::addColumn<int>("kind");
    for (size_t i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds.at(i).name) << static_cast<int>(i);
}

NameResultsWindow *tst_EachList::searched(const ListKind &kind)
{
    NameResultsWindow *window = makeWindow(kind);
    const QStringList headers = headersOf(ListOf(window, kind.list));
    QStringList replies;
    for (const size_t nth : sent)
        replies.append(rowOf(kind, headers, nth));
    court->Expect(IndexLine()).Reply(replies << u"EOF~"_s);
    Search(window, {IndexLine()});
    window->resize(1400, 500);
    return window;
}

void tst_EachList::eachColumnBothWays_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("column");
    for (size_t i = 0; i < kinds.size(); ++i) {
        const auto columns = static_cast<int>(kinds.at(i).order.split(u' ').size());
        for (int column = 0; column < columns; ++column)
            QTest::addRow("%s, column %d", kinds.at(i).name, column)
                << static_cast<int>(i) << column;
    }
}

void tst_EachList::eachColumnBothWays()
{
    QFETCH(int, kind);
    QFETCH(int, column);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    ResultListView *list = ListOf(searched(one), one.list);
    const QStringList headers = headersOf(list);
    if (list->List()->HasCheckBoxes())
        list->List()->SetChecked(2, true);

    const QStringList before = wholeRows(list);
    const QStringList upwards{before[1], before[0], before[2]};
    const QStringList downwards{before[2], before[0], before[1]};
    // The first click turns the order that the court sent.
    for (const QStringList &rows : {downwards, upwards, downwards}) {
        ClickHeader(list, column);
        QCOMPARE(wholeRows(list), rows);
    }
    const Cells &cells = cellsOf(headers[column]);
    for (size_t row = 0; row < cells.size(); ++row) {
        const QString shown = list->List()->Cell(static_cast<int>(row), column);
        // A person's role in a bankruptcy is two fields.
        QVERIFY2(shown.startsWith(cells.at(cells.size() - 1 - row)), qPrintable(shown));
    }
}

void tst_EachList::theRowsAsShownAreCopiedAndExported()
{
    QFETCH(int, kind);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    NameResultsWindow *window = searched(one);
    ResultListView *list = ListOf(window, one.list);
    const QStringList headers = headersOf(list);
    // The greatest row comes first then, and is the one that does not have these words.
    ClickHeader(list, 0);
    list->setFocus();
    QTest::keySequence(list, QKeySequence::Find);
    QTest::keyClicks(window->focusWidget(), u"a"_s);
    QCOMPARE(TextOf(window->focusWidget()->parentWidget(), "lblFindCount"), u"2 of 3 shown"_s);

    const QStringList columns = headers.first(one.order.split(u' ').size());
    const QString path = desk->Folder.Path(u"list.csv"_s);
    ReplaceSaveDialog([path](const QString &) { return path; });
    list->findChild<QAction *>(u"mnuListExport"_s)->trigger();
    ReplaceSaveDialog({});
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text =
        columns.join(u',') + u"\r\n"_s + fileLine(one, headers, 1) + fileLine(one, headers, 0);
    QCOMPARE(file.readAll(), QByteArray("\xEF\xBB\xBF") + text.toUtf8());

    list->selectAll();
    list->findChild<QAction *>(u"mnuListCopyHeaders"_s)->trigger();
    const QString rows =
        shownCells(one, headers, 1).join(u'\t') + u'\n' + shownCells(one, headers, 0).join(u'\t');
    QCOMPARE(QApplication::clipboard()->text(), QString(columns.join(u'\t') + u'\n' + rows));
    QTest::keySequence(list, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(), rows);
}

void tst_EachList::theDraggedWidthIsThatOfTheKind()
{
    QFETCH(int, kind);
    const auto widthsOfAll = [](std::vector<int> &usual) {
        for (const ListKind &each : kinds) {
            const std::unique_ptr<NameResultsWindow> window(makeWindow(each));
            usual.push_back(ListOf(window.get(), each.list)->columnWidth(0));
        }
    };
    std::vector<int> usual;
    widthsOfAll(usual);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    const ResultListView *list = ListOf(searched(one), one.list);
    dragEdge(list, 0, 40);
    QCOMPARE(list->columnWidth(0), usual[static_cast<size_t>(kind)] + 40);

    std::vector<int> meant = usual;
    meant[static_cast<size_t>(kind)] += 40;
    // Oregon's list is that of the Superior Courts.
    if (kind <= 1)
        meant[0] = meant[1] = usual[0] + 40;
    std::vector<int> now;
    widthsOfAll(now);
    QCOMPARE(now, meant);
    list->findChild<QAction *>(u"mnuListResetWidths"_s)->trigger();
    QCOMPARE(list->columnWidth(0), usual[static_cast<size_t>(kind)]);
    now.clear();
    widthsOfAll(now);
    QCOMPARE(now, usual);
}

HALVANE_TEST(tst_EachList)
#include "tst_EachList.moc"
