// A case whose replies go on and on: rows, and what defines a table, in each form that the courts
// have for them.

#include "casedetails/frmCaseDetails.h"
#include "casedetails/frmCivilCaseDetails.h"
#include "casedetails/frmNCCaseDetails.h"
#include "support/HalvaneTest.h"
#include "support/SweepExtent.h"
#include "sweeps/FloodTest.h"
#include "tables/FlexGrid.h"

#include <QDialog>
#include <QTest>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace {
constexpr int manyLines = 100'000;

/// What a line of a reply is made of, each for itself.
QByteArray numbered(const char *before, qint64 number, const char *behind = "~")
{
    return '|' + QByteArray(before) + QByteArray::number(number) + behind + '|';
}

QByteArray many(const char *text, qint64 times)
{
    QByteArray bytes;
    for (qint64 i = 0; i < times; ++i)
        bytes += text;
    return bytes;
}

/// A reply that goes on and on: one of a court for the Summary or a tab.
struct LineFlood
{
    const char *name;
    const char *court;          ///< "CV" and "IN" for the District and Municipal Courts
    std::optional<CaseTab> tab; ///< the Summary without one
    int whole;                  ///< so many units of it in full
    QByteArray head;            ///< ahead of it
    /// Units `first` to `last`, the last not included, as the bytes of whole tokens.
    std::function<QByteArray(qint64 first, qint64 last)> bytes;
    bool oneToken = false; ///< all units are one token, for which `bytes` is called once
};

using Units = std::function<QByteArray(qint64 first, qint64 last)>;

/// Each unit is a line of its own.
Units lines(const char *before, const char *behind = "~")
{
    return [before, behind](qint64 first, qint64 last) {
        QByteArray bytes;
        for (qint64 n = first; n < last; ++n)
            bytes += numbered(before, n, behind);
        return bytes;
    };
}

/// All units are one line, each with a number of its own.
Units oneNumberedLine(const char *before, const char *unit, const char *behindNumber)
{
    return [before, unit, behindNumber](qint64 first, qint64 last) -> QByteArray {
        QByteArray bytes = '|' + QByteArray(before);
        for (qint64 n = first; n < last; ++n)
            bytes += unit + QByteArray::number(n) + behindNumber;
        return bytes + '|';
    };
}

/// All units are one line.
Units oneLine(const char *before, const char *unit, const char *behind = "")
{
    return [before, unit, behind](qint64 first, qint64 last) -> QByteArray {
        return '|' + QByteArray(before) + many(unit, last - first) + behind + '|';
    };
}

const char *const tableHead = "|TABNAME~x~||TABDEF~x~||COLDEF~Date~20~Text~80~||COLALIGNMENT~L~L~|";
const char *const namesHead = "|TABNAME~x~||TABDEF~x~||COLDEF~Date~Text~20~80~||COLALIGNMENT~L~L~|";
const char *const gridHead = "|GRIDDEF~Date~Text~20~80~|";
const char *const documentsHead =
    "|TABNAME~Documents~||TABDEF~Documents~||COLDEF~Sub No~10~Date~20~Pages~10~Description~60~|"
    "|COLALIGNMENT~L~L~L~L~|";
const char *const superior = "|Case Type:~1~||Court:~King~||Title:~A~||Filed:~03/04/2002~|";
const char *const idaho = "|NAMES,DOCKET,FINANCE,CHARGES~||Court~Ada~||Type~CV~||Title~A~|";

const std::vector<LineFlood> &lineFloods()
{
    static const std::vector<LineFlood> all{
        {"summary items, Superior",
         "WA",
         {},
         manyLines,
         superior,
         lines("Item ", "~A description~")},
        {"summary items, Oregon", "OR", {}, manyLines, idaho, lines("Item ", "~A description~")},
        {"summary items, Idaho", "ID", {}, manyLines, idaho, lines("Item ", "~A description~")},
        {"summary items, bankruptcy",
         "BK",
         {},
         manyLines,
         superior,
         lines("Item ", "~A description~")},
        {"summary items, civil", "CV", {}, manyLines, superior, lines("Item ", "~A description~")},
        {"summary items, non-civil",
         "IN",
         {},
         manyLines,
         superior,
         lines("Item ", "~A description~")},
        {"chapters", "BK", {}, manyLines, superior, lines("Chapter ", "~7~")},
        {"cases of a number",
         "BK",
         {},
         manyLines,
         "|MULTIPLE|",
         lines("99-", "~RETRIEVECOMMAND=BKRPT^SUMMARY^99^~7~SMITH, JOHN~")},
        {"tab definitions",
         "BK",
         {},
         10'000,
         superior,
         lines("TABDEF~RETRIEVECOMMAND=BKRPT^DOCKET^", "^~")},
        {"commands of a tab definition",
         "BK",
         {},
         10'000,
         superior,
         oneNumberedLine("TABDEF~", "RETRIEVECOMMAND=BKRPT^DOCKET^", "^~"),
         true},
        {"tabs of a summary", "ID", {}, 10'000, {}, oneLine("", "NAMES,DOCKET,", "~"), true},
        {"a title",
         "WA",
         {},
         1'000'000,
         "|Case Type:~1~||Court:~King~|",
         oneLine("Title:~", "Smith ", "~"),
         true},
        {"a description", "WA", {}, 1'000'000, superior, oneLine("Item~", "Smith ", "~"), true},
        {"errors", "WA", {}, manyLines, superior, lines("ERROR~no connection to ")},
        {"progress", "WA", {}, manyLines, superior, lines("SEARCHING~for ")},
        {"docket, Superior", "WA", CaseTab::Docket, manyLines, gridHead,
         lines("01/02/2003~COMPLAINT ")},
        {"names, Superior", "WA", CaseTab::Names, manyLines, gridHead, lines("Plaintiff~SMITH ")},
        {"docket, Oregon", "OR", CaseTab::Docket, manyLines, tableHead,
         lines("01/02/2003~COMPLAINT ")},
        {"names, Idaho", "ID", CaseTab::Names, manyLines, namesHead, lines("Plaintiff~SMITH ")},
        {"docket, bankruptcy", "BK", CaseTab::Docket, manyLines, tableHead,
         lines("01/02/2003~COMPLAINT ")},
        {"judgments, civil", "CV", CaseTab::Judgments, manyLines, gridHead,
         lines("01/02/2003~COMPLAINT ")},
        {"docket, non-civil", "IN", CaseTab::Docket, manyLines, gridHead,
         lines("01/02/2003~COMPLAINT ")},
        {"documents", "WA", CaseTab::Documents, manyLines, documentsHead,
         lines("RETRIEVEDOC=WASUPDOC\xA6GETDOC\xA6King\xA6"
               "02-1-00123-4\xA6",
               "\xA6~1~01/02/2003~5~Complaint~")},
        {"columns of a grid",
         "WA",
         CaseTab::Docket,
         1'000'000,
         {},
         oneLine("GRIDDEF~", "1~"),
         true},
        {"grids", "WA", CaseTab::Docket, manyLines, gridHead, lines("GRIDDEF~Date~Text~20~80~")},
        {"columns of a table", "OR", CaseTab::Docket, 1'000'000, "|TABNAME~x~||TABDEF~x~|",
         oneLine("COLDEF~", "H~1~"), true},
        {"definitions of a table", "OR", CaseTab::Docket, manyLines, tableHead,
         lines("COLDEF~Date~20~Text")},
        {"definitions of names", "ID", CaseTab::Names, manyLines, namesHead, lines("TABNAME~x~")},
        {"notes", "CV", CaseTab::Docket, manyLines, "|CDKNOTE~a~||CDKNOTE~b~|", lines("CDKNOTE~")},
        {"fields of a row", "OR", CaseTab::Docket, 1'000'000, QByteArray(tableHead) + "|a~b~|",
         oneLine("", "f~"), true},
        {"fields of a name", "ID", CaseTab::Names, 1'000'000, QByteArray(namesHead) + "|a~b~|",
         oneLine("", "f~"), true},
        {"breaks in a cell", "OR", CaseTab::Docket, manyLines, QByteArray(tableHead) + "|a~b~|",
         oneLine("01/02/2003~", "COMPLAINT<BR>", "~"), true},
        {"rows with breaks", "ID", CaseTab::Names, manyLines, namesHead,
         lines("Plaintiff~SMITH<BR>JOHN ")},
        {"a long cell", "OR", CaseTab::Docket, 1'000'000, QByteArray(tableHead) + "|a~b~|",
         oneLine("01/02/2003~", "COMPLAINT ", "~"), true},
    };
    return all;
}

QByteArray summaryOf(const LineFlood &reply)
{
    const QByteArray state = reply.court;
    if (state == "WA")
        return superior;
    if (state == "BK")
        return "|Case Number~99-20077~||Case Title~A~||Date Filed~03/16/1999~|"
               "|TABDEF~RETRIEVECOMMAND=BKRPT^DOCKET^99-20077^~|";
    if (state == "CV" || state == "IN")
        return "|Title~A~||Case Number~Y00012345~||Court~Southeast~||Date Filed~01/11/2005~|"
               "|Cause~Small Claims~||Suit Amount~1.00~||Status~Open~|";
    return QByteArray(idaho) + "|A~1~||B~2~||Date Filed~01/11/2005~|";
}

Flood floodOf(const LineFlood &reply, int units)
{
    constexpr qint64 unitsOfPiece = 1'000;
    const qint64 ofPiece = reply.oneToken ? units : unitsOfPiece;
    const auto piece = [&reply, units, ofPiece](qint64 number) {
        const QByteArray head = number == 0 ? reply.head : QByteArray();
        return QByteArray(
            head + reply.bytes(number * ofPiece, std::min<qint64>(units, (number + 1) * ofPiece)));
    };
    return {.Pieces = (units + ofPiece - 1) / ofPiece, .Piece = piece};
}
} // namespace

class tst_FloodOfLines : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void reply_data();
    void reply();
    void aTabOfVeryManyLines();
    void questionsAreAskedOnce();
    void aQuestionThatComesAgainAndAgain();

private:
    CaseWindow *windowOf(const LineFlood &reply);
    FloodCost run(const LineFlood &reply, int units);
};

CaseWindow *tst_FloodOfLines::windowOf(const LineFlood &reply)
{
    const QByteArray state = reply.court;
    if (state == "WA")
        return Superior();
    if (state == "BK")
        return Bankruptcy(u"BKRPT~SUMMARY~99-20077~"_s);
    if (state == "CV")
        return Civil();
    if (state == "IN")
        return NonCivil();
    return OfState(QString::fromLatin1(state), u"CV0100001"_s);
}

FloodCost tst_FloodOfLines::run(const LineFlood &reply, int units)
{
    if (reply.tab)
        flood->Answer(summaryOf(reply) + "|EOF~|");
    flood->Answer(floodOf(reply, units));
    CaseWindow *window = windowOf(reply);
    const FloodCost cost = Measure([&] {
        Run(window);
        if (reply.tab)
            ClickTab(window, CaseTabRowOf(*reply.tab).caption.toString());
    });
    Tell(qPrintable(QString::number(units)), cost);
    const FloodCost closing = Measure([&] { Close(window); });
    if (closing.LongestTurn > 20)
        Tell("closing", closing);
    return cost;
}

void tst_FloodOfLines::reply_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < lineFloods().size(); ++i)
        QTest::newRow(lineFloods()[i].name) << static_cast<int>(i);
}

void tst_FloodOfLines::reply()
{
    QFETCH(int, index);
    const LineFlood &one = lineFloods()[static_cast<size_t>(index)];
    QStringList tabs;
    if (one.tab)
        tabs.append(CaseTabRowOf(*one.tab).caption.toString());
    for (const QString &section :
         {u"CaseSearchTabs"_s, u"OrCaseSearchTabs"_s, u"IdCaseSearchTabs"_s, u"CivilCaseTabs"_s,
          u"NonCivilCaseTabs"_s})
        FetchAtOnce(section, tabs);
    const int part = std::max(Scaled(one.whole) / Fold, 1);
    Connect();
    const FloodCost less = run(one, part);
    const FloodCost all = run(one, Fold * part);
    // A grid keeps its cells as texts of two bytes a character, beside the lines that they were
    // made from, and a row as objects of its own.
    constexpr qint64 bytesOfRow = 400;
    CheckFlood(less, all,
               {.Times = 7, .Beside = one.whole > manyLines ? 0 : Fold * part * bytesOfRow});
    SearchOnce();
}

/// What looks through the lines that are here at each new one costs little beside everything else
/// that a line costs, until there are very many: CI has them all.
void tst_FloodOfLines::aTabOfVeryManyLines()
{
    constexpr int fold = 16;
    const auto docket = std::find_if(lineFloods().begin(), lineFloods().end(), [](const auto &one) {
        return one.name == QByteArrayView("docket, Superior");
    });
    FetchAtOnce(u"CaseSearchTabs"_s, {u"Docket"_s});
    const int most = SweepExtent() == Extent::Short ? Scaled(docket->whole) : docket->whole;
    Connect();
    const FloodCost less = run(*docket, most / fold);
    const FloodCost all = run(*docket, most);
    CheckGrowth(less, all, 20.0, fold);
}

void tst_FloodOfLines::questionsAreAskedOnce()
{
    const LineFlood questions{.name = "questions",
                              .court = "WA",
                              .tab = {},
                              .whole = manyLines,
                              .head = {},
                              .bytes = lines("USERQUESTION~arbitration ")};
    Connect();
    flood->Answer(floodOf(questions, Scaled(questions.whole)));
    flood->Answer(QByteArray(superior) + "|Item~A description~||EOF~|");
    desk->Boxes.ExpectDialog(u"frmArbPrompt"_s, [](QDialog *dialog) { Click(dialog, "Command1"); });
    CaseWindow *window = Superior();
    const FloodCost cost = Measure([&] { Run(window); });
    Tell("asked", cost);
    CheckTurn(cost);
    QCOMPARE(flood->Requests().size(), 2);
    QCOMPARE(window->Tab(CaseTab::Summary).Grid->model()->rowCount(), 1);
    Close(window);
    SearchOnce();
}

/// A court that asks whatever is answered is not answered for ever.
void tst_FloodOfLines::aQuestionThatComesAgainAndAgain()
{
    constexpr int mostQuestions = 3;
    Connect();
    for (int i = 0; i < 2 * mostQuestions; ++i)
        flood->Answer("|USERQUESTION~arbitration~||EOF~|");
    int asked = 0;
    desk->Boxes.Whenever(u"frmArbPrompt"_s, [&asked](QDialog *dialog) {
        ++asked;
        Click(dialog, "Command1");
    });
    CaseWindow *window = Superior();
    Run(window);
    QVERIFY(asked >= 1);
    QVERIFY2(asked <= mostQuestions, qPrintable(QString::number(asked)));
    Close(window);
    SearchAtNewCourt();
}

HALVANE_TEST(tst_FloodOfLines)
#include "tst_FloodOfLines.moc"
