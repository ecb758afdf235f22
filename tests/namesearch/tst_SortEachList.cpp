#include "namesearch/DupesSearch.h"
#include "namesearch/IndexLines.h"

#include <QSet>

#include <algorithm>
#include <array>

// Every column of every kind of list, both ways, by clicks on its header; the rows are those of a
// court, and behind each click they are the same rows with the same keys and check marks.

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
    Global.DiscisDndSearch = kind.addresses;
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

class tst_SortEachList : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void eachColumnBothWays_data();
    void eachColumnBothWays();
};

void tst_SortEachList::eachColumnBothWays_data()
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

void tst_SortEachList::eachColumnBothWays()
{
    QFETCH(int, kind);
    QFETCH(int, column);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    NameResultsWindow *window = makeWindow(one);
    ResultListView *list = ListOf(window, one.list);
    QStringList headers;
    for (const ListColumn &listColumn : list->List()->Columns())
        headers.append(listColumn.Header);
    QStringList replies;
    for (const size_t nth : sent)
        replies.append(rowOf(one, headers, nth));
    court->Expect(IndexLine()).Reply(replies << u"EOF~"_s);
    Search(window, {IndexLine()});
    window->resize(1400, 500);
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

QTEST_MAIN(tst_SortEachList)
#include "tst_SortEachList.moc"
