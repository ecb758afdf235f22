#include "core/GlobalState.h"
#include "core/Windows1252.h"
#include "namesearch/DupesSearch.h"
#include "support/HalvaneTest.h"

#include <array>
#include <functional>

// Rows that no court should send, on the windows themselves: whatever comes is shown cell by cell
// as it came, and a row that is cut short ends the search as it should.

namespace {
const QString lost = u"Search Stopped - Court Connection Lost!"_s;
const QString end = u"EOF~"_s;

NameResultsWindow *superior()
{
    return new frmNameSearchResults(u"WA"_s);
}
NameResultsWindow *idaho()
{
    return new frmNameSearchResults(u"ID"_s);
}
NameResultsWindow *bankruptcy()
{
    return new frmNameSearchResults(u"WAWBK"_s);
}
NameResultsWindow *index()
{
    return new frmNameSearchResults(u"WA"_s, true);
}
NameResultsWindow *civil()
{
    return new frmDiscisNameResults;
}
NameResultsWindow *nonCivil()
{
    return new frmDiscisNCNameResults;
}
NameResultsWindow *addresses()
{
    return new frmDiscisNCNameResults(DiscisDndSearch::Yes);
}

/// A kind of list, and which field of a row each of its cells shows.
struct ListKind
{
    const char *name;
    NameResultsWindow *(*make)();
    const char *list;
    QStringView head;  ///< what the row begins with, in place of field 0
    int fields;        ///< in a whole row
    QStringView order; ///< "6+7" are two fields in one cell
    bool ownDelimiter; ///< the last character of the row parts its fields
    int shortCells;    ///< of a row that ends behind its third field
};

constexpr std::array<ListKind, 9> kinds{{
    {"Superior", superior, "listview1", u"", 6, u"0 1 2 3 4 5", true, 4},
    {"Idaho", idaho, "listview1", u"", 6, u"0 1 2 3 4 5", true, 4},
    {"Bankruptcy", bankruptcy, "listview1", u"", 8, u"0 1 3 4 5 6+7 2", true, 3},
    {"Index", index, "listview1", u"", 8, u"0 1 2 3 6 4 5 7", true, 4},
    {"civil", civil, "listview1", u"", 8, u"0 1 2 3 4 5 6 7", false, 4},
    {"non-civil", nonCivil, "listview1", u"", 8, u"0 1 2 3 4 5 6 7", false, 4},
    {"non-civil, addresses", addresses, "listview1", u"", 8, u"0 1 2 3 4 5 6 7", false, 4},
    {"names", nonCivil, "lvDupe", u"NCNMD", 9, u"1 2 3 4 5 6 7 8", false, 3},
    {"names with addresses", addresses, "lvDupe", u"NCDND", 11, u"1 2 6 10 4 3 5 7", false, 3},
}};

using FieldText = std::function<QString(int field)>;

/// A row of so many fields, each closed by the delimiter.
QString rowOf(const ListKind &kind, const FieldText &text, int fields, QChar delimiter = u'~')
{
    QString row;
    for (int i = 0; i < fields; ++i)
        row += (i == 0 && !kind.head.isEmpty() ? kind.head.toString() : text(i)) + delimiter;
    return row;
}

/// The cells of a whole row.
QStringList cellsOf(QStringView order, const FieldText &text)
{
    QStringList cells;
    for (const QStringView place : order.split(u' ')) {
        const QList<QStringView> parts = place.split(u'+');
        QString cell = text(parts.first().toInt());
        if (parts.size() > 1)
            cell += u" / "_s + text(parts.last().toInt());
        cells.append(cell);
    }
    return cells;
}

QString number(int field)
{
    return QString::number(field);
}

FieldText always(const QString &text)
{
    return [text](int) { return text; };
}

/// All that a cell can hold: a bar ends the token and a tilde the cell.
QString everyCharacter()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '|' && byte != '~')
            bytes.append(static_cast<char>(byte));
    }
    return FromWindows1252(bytes);
}
} // namespace

class tst_OddRows : public DistrictSearchTest
{
    Q_OBJECT
private Q_SLOTS:
    void wholeRows_data();
    void wholeRows();
    void shortRows_data();
    void shortRows();

private:
    static void addKinds(const std::function<void(const ListKind &kind, int number)> &add);
    NameResultsWindow *searched(const ListKind &kind, const QStringList &replies);
};

void tst_OddRows::addKinds(const std::function<void(const ListKind &kind, int number)> &add)
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("replies");
    QTest::addColumn<QList<QStringList>>("rows");
    for (size_t i = 0; i < kinds.size(); ++i)
        add(kinds.at(i), static_cast<int>(i));
}

NameResultsWindow *tst_OddRows::searched(const ListKind &kind, const QStringList &replies)
{
    // What it asks for is no matter here, but its criteria must be readable.
    const QString line = u"INDEX~SEARCH~SMITH~JOHN~Q~~King,~Civil,~~~LL=1~UL=500~"_s;
    court->Expect(line).Reply(replies);
    return Search(kind.make(), {line});
}

void tst_OddRows::wholeRows_data()
{
    addKinds([](const ListKind &kind, int place) {
        const auto add = [&](const char *name, const FieldText &sent, const FieldText &shown) {
            QTest::addRow("%s: %s", kind.name, name)
                << place << QStringList{rowOf(kind, sent, kind.fields), end}
                << QList<QStringList>{cellsOf(kind.order, shown)};
        };
        const auto addSame = [&](const char *name, const FieldText &text) {
            add(name, text, text);
        };
        addSame("a number in each cell", number);
        addSame("one character in each cell", always(u"x"_s));
        addSame("nothing in any cell", always({}));
        // The blanks at the ends of a row do not belong to it.
        const bool headless = kind.head.isEmpty();
        add("blanks in each cell", always(u"   "_s),
            [headless](int field) { return headless && field == 0 ? QString() : u"   "_s; });
        addSame("every character in each cell", always(everyCharacter()));
        addSame("markup in each cell", always(u"<b>&amp;</b><img src=x><!-- %1 %n -->"_s));
        addSame("commands of a printer and of a terminal", always(u"\x1B[31m\f\b\x0B\x7F"_s));
        addSame("the marks of a frame and of a request", always(u"EOF ¦ ^^CAC:A^^"_s));
        addSame("100,000 characters in each cell", always(QString(100'000, u'x')));
        QTest::addRow("%s: the same row three times", kind.name)
            << place << QStringList(3, rowOf(kind, number, kind.fields)) + QStringList{end}
            << QList<QStringList>(3, cellsOf(kind.order, number));
        QTest::addRow("%s: blanks around the row", kind.name)
            << place << QStringList{u"  "_s + rowOf(kind, number, kind.fields) + u"   "_s, end}
            << QList<QStringList>{cellsOf(kind.order, number)};
        // A person with so many fields is described without an address.
        const bool described = kind.head == u"NCDND";
        QTest::addRow("%s: 1,000 fields", kind.name)
            << place << QStringList{rowOf(kind, number, 1000), end}
            << QList<QStringList>{
                   cellsOf(described ? QStringView(u"1 2 3 4 5 6 7 8") : kind.order, number)};
        if (kind.ownDelimiter) {
            QTest::addRow("%s: another delimiter", kind.name)
                << place << QStringList{rowOf(kind, number, kind.fields, u';'), end}
                << QList<QStringList>{cellsOf(kind.order, number)};
        }
    });
}

void tst_OddRows::wholeRows()
{
    QFETCH(int, kind);
    QFETCH(QStringList, replies);
    QFETCH(QList<QStringList>, rows);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    const NameResultsWindow *window = searched(one, replies);
    QCOMPARE(RowsOf(window, one.list), rows);
    const QString status = TextOf(window, "lblStatus").simplified();
    QVERIFY2(status.startsWith(u"Search Complete: %1 "_s.arg(rows.size())), qPrintable(status));
    // Only text is shown, however it looks.
    const QVariant shown = ListOf(window, one.list)->model()->index(0, 0).data();
    QCOMPARE(shown.typeId(), QMetaType::QString);
}

void tst_OddRows::shortRows_data()
{
    addKinds([](const ListKind &kind, int place) {
        const auto columns = kind.order.split(u' ').size();
        const auto padded = [columns](QStringList cells) {
            while (cells.size() < columns)
                cells.append(QString());
            return cells;
        };
        const auto add = [&](const char *name, const QStringList &replies,
                             const QList<QStringList> &rows) {
            QTest::addRow("%s: %s", kind.name, name) << place << replies + QStringList{end} << rows;
        };
        const QString cut = rowOf(kind, number, 3);
        // The empty text behind the last delimiter counts as a field.
        QStringList cells =
            cellsOf(kind.order, [](int field) { return field < 3 ? number(field) : QString(); });
        cells = padded(cells.first(kind.shortCells));
        add("three fields", {cut}, {cells});
        add("three fields behind a whole row", {rowOf(kind, number, kind.fields), cut},
            {cellsOf(kind.order, number), cells});
        add("two rows of three fields", {cut, cut}, {cells});
        add("three fields and a whole row", {cut, rowOf(kind, number, kind.fields)}, {cells});
        if (!kind.head.isEmpty()) {
            add("the head alone", {kind.head.toString()}, {});
            return;
        }
        add("blanks", {u"     "_s}, {});
        add("one blank", {u" "_s}, {});
        // As its own delimiter a character leaves two empty fields.
        const QStringList nothing = padded({});
        add("one character", {u"x"_s}, {kind.ownDelimiter ? nothing : padded({u"x"_s})});
        add("one tilde", {u"~"_s}, {nothing});
        add("two tildes, twice", {u"~~"_s, u"~~"_s}, {nothing});
        add("every character once", {everyCharacter()},
            {kind.ownDelimiter ? padded({everyCharacter().chopped(1), QString()})
                               : padded({everyCharacter()})});
    });
}

void tst_OddRows::shortRows()
{
    QFETCH(int, kind);
    QFETCH(QStringList, replies);
    QFETCH(QList<QStringList>, rows);
    const ListKind &one = kinds.at(static_cast<size_t>(kind));
    const NameResultsWindow *window = searched(one, replies);
    QCOMPARE(RowsOf(window, one.list), rows);
    QCOMPARE(TextOf(window, "lblStatus"), lost);
    QCOMPARE(ColourOf(window, "lblStatus"), u"red"_s);
    QVERIFY(window->SearchIncomplete);
    // Whoever leafs through what came meets nothing that breaks.
    ListOf(window, one.list)->selectAll();
    ClickHeader(ListOf(window, one.list), 0);
    QCOMPARE(RowsOf(window, one.list).size(), rows.size());
}

HALVANE_TEST(tst_OddRows)
#include "tst_OddRows.moc"
