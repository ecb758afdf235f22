// Any table that a court can send stands in the grid of its case as it was sent, whichever court it
// is and in whatever pieces it arrives.

#include "casedetails/AnyTable.h"
#include "casedetails/DistrictDesk.h"
#include "casedetails/GridTexts.h"
#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "link/Router.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "tables/FlexGrid.h"

#include <QPointer>
#include <QTest>

#include <algorithm>

namespace {
const QString endMark = u"EOF~"_s;

/// A tab of a court, and how its table is written.
struct WireRow
{
    const char *name;
    QStringView court; ///< "CV" and "IN" for the District and Municipal Courts
    CaseTab tab;
    TableGrammar grammar;
    bool lastFirst;
    int notes = 0;
    QStringView noteHead = u"";
};
constexpr std::array<WireRow, 13> wireRows{{
    {"Superior names", u"WA", CaseTab::Names, TableGrammar::GridDef, false},
    {"Superior docket", u"WA", CaseTab::Docket, TableGrammar::GridDef, true},
    {"Superior charges", u"WA", CaseTab::Charges, TableGrammar::GridDef, false},
    {"Oregon names", u"OR", CaseTab::Names, TableGrammar::Names, false},
    {"Oregon docket, grouped", u"OR", CaseTab::Docket, TableGrammar::ColDefGrouped, false},
    {"Oregon finance, interleaved", u"OR", CaseTab::Finance, TableGrammar::ColDefInterleaved,
     false},
    {"Idaho names", u"ID", CaseTab::Names, TableGrammar::Names, false},
    {"Idaho charges, interleaved", u"ID", CaseTab::Charges, TableGrammar::ColDefInterleaved, false},
    {"bankruptcy docket, grouped", u"WAWBK", CaseTab::Docket, TableGrammar::ColDefGrouped, false},
    {"civil names", u"CV", CaseTab::Names, TableGrammar::GridDef, false, 1, u"CPARNOTE~"},
    {"civil judgments", u"CV", CaseTab::Judgments, TableGrammar::GridDef, true, 2, u"CVJINOTE~"},
    {"non-civil docket", u"IN", CaseTab::Docket, TableGrammar::GridDef, true, 2, u"CDKNOTE~"},
    {"non-civil violations", u"IN", CaseTab::Violations, TableGrammar::GridDef, false},
}};

/// A Summary that leaves the tab in the strip.
QStringList summaryOf(const WireRow &row)
{
    if (row.court == u"WA")
        return {u"Type:~1~"_s, u"Court:~King~"_s, u"Title:~A~"_s, u"Filed:~03/04/2002~"_s};
    if (row.court == u"WAWBK")
        return {u"Case Number~99-20077~"_s, u"Case Title~A~"_s, u"Date Filed~03/16/1999~"_s,
                u"TABDEF~RETRIEVECOMMAND=BKRPT^DOCKET^99-20077^~"_s};
    if (row.court == u"CV" || row.court == u"IN")
        return DistrictSummary(row.court == u"CV" ? CaseKind::Civil : CaseKind::NonCivil);
    return {u"NAMES,DOCKET,FINANCE,CHARGES~"_s,
            u"Court~Ada~"_s,
            u"Type~CV~"_s,
            u"Title~A~"_s,
            u"A~1~"_s,
            u"B~2~"_s,
            u"Date Filed~01/11/2005~"_s};
}

/// The bytes cut at places that the dice tell, so that a piece may end inside a token or a bar.
QByteArrayList anyPieces(QRandomGenerator &random, const QByteArray &bytes)
{
    constexpr int longest = 90;
    QByteArrayList pieces;
    for (qsizetype from = 0; from < bytes.size();) {
        const qsizetype length = random.bounded(1, longest);
        pieces.append(bytes.mid(from, length));
        from += length;
    }
    return pieces;
}
} // namespace

class tst_AnyCaseGrid : public DistrictTest
{
    Q_OBJECT
private Q_SLOTS:
    void anyTableComesThroughTheWire_data();
    void anyTableComesThroughTheWire();

private:
    CaseWindow *windowOf(const WireRow &row);
    /// The window behind a run in which the court has sent these lines for the tab.
    CaseWindow *retrieved(const WireRow &row, const QByteArrayList &pieces);
};

CaseWindow *tst_AnyCaseGrid::windowOf(const WireRow &row)
{
    if (row.court == u"WA")
        return Superior();
    if (row.court == u"CV")
        return Civil();
    if (row.court == u"IN")
        return NonCivil();
    if (row.court == u"WAWBK")
        return Bankruptcy(u"BKRPT~SUMMARY~99-20077~"_s);
    return OfState(row.court.toString(), u"CV0100001"_s);
}

CaseWindow *tst_AnyCaseGrid::retrieved(const WireRow &row, const QByteArrayList &pieces)
{
    CloseServerLink();
    const QPointer<FakeSocket> socket(desk->ConnectToNothing());
    CaseWindow *window = windowOf(row);
    const QByteArray summary = ScriptedCourt::Tokens(summaryOf(row) + QStringList{endMark});
    desk->When([socket] { return socket && socket->sent.size() == 1; },
               [socket, summary] { socket->Arrive(summary); });
    desk->When([socket] { return socket && socket->sent.size() == 2; },
               [socket, pieces] { socket->ArriveLater(pieces); });
    // The pauses ahead of the tabs; no reply may seem late by it.
    desk->Time.Run(0.02);
    Begin(window);
    Finished(window);
    desk->Time.Stop();
    return window;
}

void tst_AnyCaseGrid::anyTableComesThroughTheWire_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < wireRows.size(); ++i)
        QTest::newRow(wireRows.at(i).name) << static_cast<int>(i);
}

void tst_AnyCaseGrid::anyTableComesThroughTheWire()
{
    constexpr quint32 tables = 8;
    QFETCH(int, index);
    const WireRow &row = wireRows.at(static_cast<size_t>(index));
    const QStringList tab{CaseTabRowOf(row.tab).caption.toString()};
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s, u"CivilCaseTabs"_s,
          u"NonCivilCaseTabs"_s})
        FetchAtOnce(section, tab);
    // Other tables for each tab.
    const quint32 first = static_cast<quint32>(index) * tables + 1;
    for (quint32 seed = first; seed < first + tables; ++seed) {
        QRandomGenerator random(seed);
        // The bar ends a token; nothing can carry it.
        const QString delimiters = row.grammar == TableGrammar::Names ? u"¦;^\t~"_s : u"~"_s;
        const QChar delimiter = delimiters[random.bounded(delimiters.size())];
        GridTable table = AnyTable(random, u"~|"_s + delimiter);
        QStringList lines;
        for (int note = 0; note < row.notes; ++note)
            lines.append(row.noteHead + u"A note~"_s);
        lines += ReplyOfTable(table, row.grammar, delimiter);
        lines += endMark;
        const QPointer<CaseWindow> window =
            retrieved(row, anyPieces(random, ScriptedCourt::Tokens(lines)));
        if (row.lastFirst)
            std::reverse(table.Rows.begin(), table.Rows.end());
        const GridTable shown = window->Tab(row.tab).Grid->Table();
        QVERIFY2(window->Tab(row.tab).TabDone, qPrintable(u"seed "_s + QString::number(seed)));
        QVERIFY2(shown == table, qPrintable(u"seed "_s + QString::number(seed) + u'\n'
                                            + GridText(table) + u'\n' + GridText(shown)));
        delete window;
    }
}

HALVANE_TEST(tst_AnyCaseGrid)
#include "tst_AnyCaseGrid.moc"
