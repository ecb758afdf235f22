#include "casedetails/GridTexts.h"
#include "casedetails/TabGrids.h"
#include "core/RunTimeError.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(CaseTab)
Q_DECLARE_METATYPE(TabLine)

class tst_TabGrids : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void line_data();
    void line();
    void emptyReply_data();
    void emptyReply();
    void everyTabOfEveryCourtHasItsMessage();
    void summaryAndDocumentsAreReadElsewhere();
    void gridDefRows_data();
    void gridDefRows();
    void tableForm_data();
    void tableForm();
    void linesWithoutADefinitionLeaveTheGridEmpty_data();
    void linesWithoutADefinitionLeaveTheGridEmpty();
    void anIncompleteTableIsShownAsFarAsItCame();
    void notes_data();
    void notes();
    void brokenRowsAreLogged();
    void aWidthThatIsNoNumberIsTheProceduresToTrap();

private:
    static CaseKind kindOf(const QString &state);
};

namespace {
const QString request = u"WASUP¦X¦02-2-00001-0¦King¦¦"_s;
const QString definition = u"TABNAME~\nTABDEF~\nCOLDEF~A~B~20~80~\nCOLALIGNMENT~L~L~"_s;
const QStringList allStates{u"WA"_s,   u"OR"_s,   u"ID"_s,    u"WAWBK"_s,    u"WAEBK"_s,
                            u"IDBK"_s, u"ORBK"_s, u"civil"_s, u"non-civil"_s};
const QStringList bankruptcies{u"WAWBK"_s, u"WAEBK"_s, u"IDBK"_s, u"ORBK"_s};
constexpr std::array<CaseTab, 9> ordinaryTabs{
    CaseTab::Names,    CaseTab::Docket,   CaseTab::Accounting, CaseTab::Judgments, CaseTab::Charges,
    CaseTab::Sentence, CaseTab::Schedule, CaseTab::Finance,    CaseTab::Violations};

QString tabName(CaseTab tab)
{
    return u"tab "_s + QString::number(static_cast<int>(tab));
}
} // namespace

CaseKind tst_TabGrids::kindOf(const QString &state)
{
    if (state == u"civil")
        return CaseKind::Civil;
    return state == u"non-civil" ? CaseKind::NonCivil : CaseKind::State;
}

void tst_TabGrids::line_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<TabLine>("kind");
    QTest::addColumn<TabLine>("kindInDocuments");
    const auto end = TabLine::EndOfReply;
    const auto error = TabLine::Error;
    const auto progress = TabLine::Progress;
    const auto data = TabLine::Data;
    QTest::newRow("end mark") << u"EOF~"_s << end << end;
    QTest::newRow("end mark before text") << u"EOF~ERROR"_s << end << end;
    QTest::newRow("end mark in lower case") << u"eof~"_s << data << data;
    QTest::newRow("end mark behind text") << u"01/02/2003~EOF~"_s << data << data;
    QTest::newRow("end mark behind a blank") << u" EOF~"_s << data << data;
    QTest::newRow("end mark without its delimiter") << u"EOF"_s << data << data;
    QTest::newRow("error") << u"ERROR~no connection~"_s << error << data;
    QTest::newRow("error alone") << u"ERROR"_s << error << data;
    QTest::newRow("error that ends in the mark") << u"ERROR~EOF~"_s << error << data;
    QTest::newRow("error in lower case") << u"error~no connection~"_s << data << data;
    QTest::newRow("error in mixed case") << u"Error~x~"_s << data << data;
    QTest::newRow("error behind text") << u"x ERROR"_s << data << data;
    QTest::newRow("progress") << u"SEARCHING~King~"_s << progress << progress;
    QTest::newRow("progress in mixed case") << u"Searching~King~"_s << progress << progress;
    QTest::newRow("progress in lower case") << u"searching"_s << progress << progress;
    QTest::newRow("progress cut short") << u"SEARCHIN"_s << data << data;
    QTest::newRow("progress behind text") << u"~SEARCHING"_s << data << data;
    QTest::newRow("an empty line") << QString() << data << data;
    QTest::newRow("a definition") << u"GRIDDEF~A~20~"_s << data << data;
    QTest::newRow("a row") << u"01/02/2003~Filed~"_s << data << data;
}

void tst_TabGrids::line()
{
    QFETCH(QString, line);
    QFETCH(TabLine, kind);
    for (const CaseTab tab : ordinaryTabs)
        QCOMPARE(ClassifyTabLine(tab, line), kind);
    QTEST(ClassifyTabLine(CaseTab::Documents, line), "kindInDocuments");
}

void tst_TabGrids::emptyReply_data()
{
    QTest::addColumn<QStringList>("states");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<QString>("empty");
    QTest::addColumn<QString>("incomplete");
    QTest::addColumn<QString>("emptyLog");
    QTest::addColumn<QString>("incompleteLog");
    const QStringList district{u"civil"_s, u"non-civil"_s};
    const QStringList ofWashington = QStringList{u"WA"_s} + district;
    const QStringList others = QStringList{u"OR"_s, u"ID"_s} + bankruptcies;
    const QString none;

    QTest::newRow("Names, Washington")
        << ofWashington << CaseTab::Names << u"No Names Were Found For This Case."_s
        << u"Name Search Incomplete. Please Retry Search."_s
        << u"NO Responses for this Names request: "_s
        << u"Search Incomplete for this Names request: "_s;
    QTest::newRow("Names, others")
        << others << CaseTab::Names << u"No Names Information Found For This Case."_s
        << u"Name Information Incomplete. Please Retry Search."_s
        << u"NO Responses Were Found for This Names Request: "_s << u"Incomplete Names Request: "_s;
    QTest::newRow("Docket") << allStates << CaseTab::Docket
                            << u"No Docket Information Found For This Case."_s
                            << u"Docket Information Incomplete. Please Retry Search."_s
                            << u"NO Responses for this Docket request: "_s
                            << u"Incomplete Docket request: "_s;
    QTest::newRow("Accounting, Washington")
        << ofWashington << CaseTab::Accounting
        << u"No Accounting Information Found For This Case."_s
        << u"Accounting Information Incomplete. Please Retry Search."_s << none << none;
    QTest::newRow("Accounting, Oregon")
        << others << CaseTab::Accounting << u"No Accounting Details Were Found For This Case."_s
        << u"Accounting Search Incomplete. Please Retry Search"_s << none << none;
    QTest::newRow("Finance") << allStates << CaseTab::Finance
                             << u"No Finance Details Were Found For This Case."_s
                             << u"Finance Search Incomplete. Please Retry Search"_s << none << none;
    QTest::newRow("Judgments") << QStringList{u"WA"_s} + others << CaseTab::Judgments
                               << u"No Judgments Were Found For This Case."_s
                               << u"Judgments Search Incomplete. Please Retry Search"_s << none
                               << none;
    QTest::newRow("Judgments, civil")
        << district << CaseTab::Judgments << u"No Judgments Were Found For This Case."_s
        << u"Judgments Search Incomplete. Please Retry Search"_s
        << u"NO Responses for this Judgments request: "_s << u"Incomplete Judgments request: "_s;
    QTest::newRow("Charges") << allStates << CaseTab::Charges
                             << u"No Charges Were Found For This Case."_s
                             << u"Charges Search Incomplete. Please Retry Search."_s << none
                             << none;
    QTest::newRow("Sentence") << allStates << CaseTab::Sentence
                              << u"No Sentence Information Found For This Case."_s
                              << u"Sentence Information Incomplete. Please Retry Search."_s << none
                              << none;
    QTest::newRow("Schedule, Washington")
        << ofWashington << CaseTab::Schedule << u"No Schedule Information Found For This Case."_s
        << u"Schedule Information Incomplete. Please Retry Search."_s << none << none;
    QTest::newRow("Schedule, Oregon, in the words of Judgments")
        << others << CaseTab::Schedule << u"No Judgments Were Found For This Case."_s
        << u"Judgments Search Incomplete. Please Retry Search"_s << none << none;
    QTest::newRow("Violations") << allStates << CaseTab::Violations
                                << u"No Additional Violations Details Available."_s
                                << u"Violations Information Incomplete. Please Retry Search."_s
                                << none << none;
}

void tst_TabGrids::emptyReply()
{
    QFETCH(QStringList, states);
    QFETCH(CaseTab, tab);
    QFETCH(QString, empty);
    QFETCH(QString, incomplete);
    QFETCH(QString, emptyLog);
    QFETCH(QString, incompleteLog);
    const auto logged = [](const QString &log) {
        return log.isEmpty() ? QStringList() : QStringList{log + request};
    };
    for (const QString &state : std::as_const(states)) {
        const TabView done = ShowTabResponse(kindOf(state), state, tab, {}, false, request);
        QCOMPARE(GridText(done.Grid), u" 100\n"_s + empty);
        QVERIFY(done.Grid.HasHeader);
        QCOMPARE(done.LogLines, logged(emptyLog));
        const TabView cut = ShowTabResponse(kindOf(state), state, tab, {}, true, request);
        QCOMPARE(GridText(cut.Grid), u" 100\n"_s + incomplete);
        QCOMPARE(cut.LogLines, logged(incompleteLog));
        QVERIFY(done.Notes.isEmpty() && cut.Notes.isEmpty());
    }
}

void tst_TabGrids::everyTabOfEveryCourtHasItsMessage()
{
    for (const QString &state : allStates) {
        for (const CaseTab tab : ordinaryTabs) {
            const TabView view = ShowTabResponse(kindOf(state), state, tab, {}, false, request);
            QVERIFY2(view.Grid.Rows.size() == 1, qPrintable(state + u", "_s + tabName(tab)));
        }
    }
}

void tst_TabGrids::summaryAndDocumentsAreReadElsewhere()
{
    for (const QString &state : allStates) {
        for (const CaseTab tab : {CaseTab::Summary, CaseTab::Documents}) {
            const TabView view = ShowTabResponse(kindOf(state), state, tab, {}, true, request);
            QCOMPARE(view.Grid, GridTable());
            QVERIFY(view.LogLines.isEmpty());
        }
    }
}

void tst_TabGrids::gridDefRows_data()
{
    QTest::addColumn<QStringList>("states");
    QTest::addColumn<CaseTab>("tab");
    QTest::addColumn<bool>("lastFirst");
    const QStringList washington{u"WA"_s};
    const QStringList all{u"WA"_s, u"civil"_s, u"non-civil"_s};
    QTest::newRow("Names") << all << CaseTab::Names << false;
    QTest::newRow("Docket") << all << CaseTab::Docket << true;
    QTest::newRow("Accounting") << washington << CaseTab::Accounting << true;
    QTest::newRow("Judgments") << all << CaseTab::Judgments << true;
    QTest::newRow("Charges") << washington << CaseTab::Charges << false;
    QTest::newRow("Sentence") << washington << CaseTab::Sentence << false;
    QTest::newRow("Schedule") << washington << CaseTab::Schedule << false;
    QTest::newRow("Violations") << QStringList{u"non-civil"_s} << CaseTab::Violations << false;
}

void tst_TabGrids::gridDefRows()
{
    QFETCH(QStringList, states);
    QFETCH(CaseTab, tab);
    QFETCH(bool, lastFirst);
    const QStringList lines = ReplyLines(u"GRIDDEF~A~B~20~80~\n1~one~\n2~two<BR>2~\nlast TABDEF"_s);
    const QString rows = lastFirst ? u"last TABDEF|last TABDEF\n2|two<BR>2\n1|one"_s
                                   : u"1|one\n2|two<BR>2\nlast TABDEF|last TABDEF"_s;
    for (const QString &state : std::as_const(states)) {
        const TabView view = ShowTabResponse(kindOf(state), state, tab, lines, false, request);
        QCOMPARE(GridText(view.Grid), u"A 20|B 80\n"_s + rows);
        QVERIFY(view.LogLines.isEmpty());
        const TabView head =
            ShowTabResponse(kindOf(state), state, tab, lines.mid(0, 1), false, request);
        QCOMPARE(GridText(head.Grid), u"A 20|B 80"_s);
    }
}

void tst_TabGrids::tableForm_data()
{
    QTest::addColumn<QStringList>("states");
    QTest::addColumn<CaseTab>("tab");
    const QStringList oregon{u"OR"_s};
    const QStringList both{u"OR"_s, u"ID"_s};
    QTest::newRow("Names") << both + bankruptcies << CaseTab::Names;
    QTest::newRow("Docket") << both + bankruptcies << CaseTab::Docket;
    QTest::newRow("Accounting") << oregon << CaseTab::Accounting;
    QTest::newRow("Finance") << oregon << CaseTab::Finance;
    QTest::newRow("Judgments") << both << CaseTab::Judgments;
    QTest::newRow("Charges") << both << CaseTab::Charges;
    QTest::newRow("Sentence") << oregon << CaseTab::Sentence;
    QTest::newRow("Schedule") << oregon << CaseTab::Schedule;
}

void tst_TabGrids::tableForm()
{
    QFETCH(QStringList, states);
    QFETCH(CaseTab, tab);
    const QStringList lines = ReplyLines(definition + u"\n1;~a;~\n2~b~\n3 COLDEF~c~"_s);
    const QString message =
        GridText(ShowTabResponse(CaseKind::State, states[0], tab, {}, false, {}).Grid);
    for (const QString &state : std::as_const(states)) {
        const TabView view = ShowTabResponse(CaseKind::State, state, tab, lines, false, request);
        QCOMPARE(GridText(view.Grid), u"A 20|B 80\n1;|a;\n2|b"_s);
        QVERIFY(view.LogLines.isEmpty());
        // Four lines in a table reply hold the definition and no rows.
        const TabView four =
            ShowTabResponse(CaseKind::State, state, tab, lines.mid(0, 4), false, request);
        QCOMPARE(GridText(four.Grid), message);
        const TabView noRows = ShowTabResponse(CaseKind::State, state, tab,
                                               lines.mid(0, 4) + lines.mid(6), false, request);
        QCOMPARE(GridText(noRows.Grid), u"A 20|B 80"_s);
    }
    // Only the names of Oregon and Idaho are split by what stands last in a row, and their headers
    // stand ahead of their widths.
    const QStringList other = ReplyLines(definition + u"\n1;a;"_s);
    for (const QString &state : std::as_const(states)) {
        const bool own = tab == CaseTab::Names && !state.endsWith(u"BK");
        QCOMPARE(GridText(ShowTabResponse(CaseKind::State, state, tab, other, false, request).Grid),
                 u"A 20|B 80\n"_s + (own ? u"1|a"_s : u"1;a;"_s));
    }
}

void tst_TabGrids::linesWithoutADefinitionLeaveTheGridEmpty_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("incomplete");
    QTest::newRow("one line") << u"No entries"_s << false;
    QTest::newRow("an empty line") << u"\n"_s << false;
    QTest::newRow("the table form") << definition + u"\n1~a~" << false;
    QTest::newRow("the definition in the second line") << u"1~a~\nGRIDDEF~A~B~20~80~"_s << false;
    QTest::newRow("in lower case") << u"griddef~A~B~20~80~\n1~a~"_s << false;
    QTest::newRow("incomplete") << u"No entries"_s << true;
}

void tst_TabGrids::linesWithoutADefinitionLeaveTheGridEmpty()
{
    QFETCH(QString, reply);
    QFETCH(bool, incomplete);
    for (const QString &state : {u"WA"_s, u"civil"_s, u"non-civil"_s}) {
        for (const CaseTab tab : ordinaryTabs) {
            if (tab == CaseTab::Finance)
                continue;
            const TabView view =
                ShowTabResponse(kindOf(state), state, tab, ReplyLines(reply), incomplete, request);
            QCOMPARE(view.Grid, GridTable());
            QVERIFY(view.LogLines.isEmpty());
        }
    }
}

void tst_TabGrids::anIncompleteTableIsShownAsFarAsItCame()
{
    const TabView washington =
        ShowTabResponse(CaseKind::State, u"WA"_s, CaseTab::Docket,
                        {u"GRIDDEF~A~100~"_s, u"1~"_s, u"2~"_s}, true, request);
    QCOMPARE(GridText(washington.Grid), u"A 100\n2\n1"_s);
    const TabView oregon = ShowTabResponse(CaseKind::State, u"OR"_s, CaseTab::Docket,
                                           ReplyLines(definition + u"\n1~a~"), true, request);
    QCOMPARE(GridText(oregon.Grid), u"A 20|B 80\n1|a"_s);
    QVERIFY(washington.LogLines.isEmpty() && oregon.LogLines.isEmpty());
}

void tst_TabGrids::notes_data()
{
    QTest::addColumn<QString>("reply"); // "N~" stands for the tab's own note
    QTest::addColumn<QStringList>("notes");
    QTest::addColumn<QString>("grid");
    const QString table = u"GRIDDEF~A~100~\n1~"_s;
    const QString shown = u"A 100\n1"_s;
    QTest::newRow("none") << table << QStringList() << shown;
    QTest::newRow("one") << u"N~See file~\n"_s + table << QStringList{u"See file"_s} << shown;
    QTest::newRow("two fill both labels") << u"N~See file~\nN~Sealed~\n"_s + table
                                          << QStringList{u"See file"_s, u"Sealed"_s} << shown;
    QTest::newRow("the third line must be the definition")
        << u"N~a~\nN~b~\nN~c~\n"_s + table << QStringList{u"a"_s, u"b"_s} << u"no columns"_s;
    QTest::newRow("a line that is neither")
        << u"N~a~\nx~\n"_s + table << QStringList{u"a"_s} << u"no columns"_s;
    QTest::newRow("only field 1 is the note")
        << u"N~a~b~c~\n"_s + table << QStringList{u"a"_s} << shown;
    QTest::newRow("an empty note") << u"N~\n"_s + table << QStringList{QString()} << shown;
    QTest::newRow("behind the definition it is a row")
        << table + u"\nN~a~"_s << QStringList() << u"A 100\n1\nNOTE"_s;
    QTest::newRow("a note in lower case is none")
        << u"n~a~\n"_s + table << QStringList() << u"no columns"_s;
    QTest::newRow("a note that is not at the head of its line is none")
        << u"x~N~a~\n"_s + table << QStringList() << u"no columns"_s;
    QTest::newRow("notes alone leave the message")
        << u"N~a~\nN~b~"_s << QStringList{u"a"_s, u"b"_s} << u"message"_s;
}

void tst_TabGrids::notes()
{
    QFETCH(QString, reply);
    QFETCH(QStringList, notes);
    QFETCH(QString, grid);
    struct
    {
        CaseKind kind;
        CaseTab tab;
        QString note;
        bool lastFirst;
    } const rows[] = {
        {CaseKind::NonCivil, CaseTab::Names, u"CPARNOTE~"_s, false},
        {CaseKind::Civil, CaseTab::Names, u"CPARNOTE~"_s, false},
        {CaseKind::NonCivil, CaseTab::Docket, u"CDKNOTE~"_s, true},
        {CaseKind::Civil, CaseTab::Docket, u"CDKNOTE~"_s, true},
        {CaseKind::NonCivil, CaseTab::Violations, u"NCVIONOTE~"_s, false},
        {CaseKind::Civil, CaseTab::Judgments, u"CVJINOTE~"_s, true},
    };
    for (const auto &row : rows) {
        const auto view = [&](const QString &note) {
            QStringList lines = ReplyLines(reply);
            for (QString &line : lines) {
                if (line.startsWith(u"N~"))
                    line.replace(0, 2, note);
                else if (line.startsWith(u"n~"))
                    line.replace(0, 2, note.toLower());
                else if (line.startsWith(u"x~N~"))
                    line.replace(2, 2, note);
            }
            return ShowTabResponse(row.kind, u"WA"_s, row.tab, lines, false, request);
        };
        const TabView shown = view(row.note);
        QCOMPARE(shown.Notes, notes);
        if (grid == u"message") {
            const TabView none = ShowTabResponse(row.kind, u"WA"_s, row.tab, {}, false, request);
            QCOMPARE(shown.Grid, none.Grid);
            QCOMPARE(shown.LogLines, none.LogLines);
            continue;
        }
        QString expected = QString(grid).replace(u"NOTE"_s, row.note.chopped(1));
        if (row.lastFirst && expected.count(u'\n') == 2)
            expected = u"A 100\n"_s + row.note.chopped(1) + u"\n1"_s;
        QCOMPARE(GridText(shown.Grid), expected);
        // Another tab's note is none.
        if (!notes.isEmpty())
            QCOMPARE(GridText(view(u"XNOTE~"_s).Grid), u"no columns"_s);
    }
}

void tst_TabGrids::brokenRowsAreLogged()
{
    const QStringList lines = ReplyLines(definition + u"\n1~a~\n2~b<BR>c<CR>d~"_s);
    const TabView docket =
        ShowTabResponse(CaseKind::State, u"OR"_s, CaseTab::Docket, lines, false, request);
    QCOMPARE(GridText(docket.Grid), u"A 20|B 80\n1|a\n2|b\n |c d"_s);
    QCOMPARE(docket.LogLines, (QStringList{u"R=2~b~"_s, u"R= ~c d~"_s}));
    const TabView names =
        ShowTabResponse(CaseKind::State, u"ID"_s, CaseTab::Names, lines, false, request);
    QCOMPARE(names.Grid, docket.Grid);
    QVERIFY(names.LogLines.isEmpty());
}

void tst_TabGrids::aWidthThatIsNoNumberIsTheProceduresToTrap()
{
    QVERIFY_THROWS_EXCEPTION(RunTimeError,
                             ShowTabResponse(CaseKind::State, u"WA"_s, CaseTab::Docket,
                                             {u"GRIDDEF~A~wide~"_s}, false, request));
    QStringList lines = ReplyLines(definition + u"\n1~a~"_s);
    lines[2] = u"COLDEF~A~20~B~80~"_s;
    QVERIFY_THROWS_EXCEPTION(RunTimeError, ShowTabResponse(CaseKind::State, u"OR"_s, CaseTab::Names,
                                                           lines, false, request));
}

HALVANE_TEST(tst_TabGrids)
#include "tst_TabGrids.moc"
