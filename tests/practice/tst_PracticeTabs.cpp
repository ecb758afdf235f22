#include "courts/CaseMarks.h"
#include "courts/Counties.h"
#include "courts/DiscisCourts.h"
#include "namesearch/CaseFromRow.h"
#include "practice/CaseFile.h"
#include "practice/PracticeAsk.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString end = u"EOF~"_s;

QString fieldOf(const QStringList &lines, const QString &label)
{
    for (const QString &line : lines) {
        if (line.startsWith(label + u'~'))
            return line.section(u'~', 1, 1);
    }
    return {};
}

/// The rows of a tab, without what stands ahead of them and without the end mark.
QStringList rowsOf(const QStringList &lines)
{
    static const QStringList ahead{u"GRIDDEF~"_s, u"TABNAME~"_s,      u"TABDEF~"_s,
                                   u"COLDEF~"_s,  u"COLALIGNMENT~"_s, u"CPARNOTE~"_s,
                                   u"CDKNOTE~"_s, u"NCVIONOTE~"_s,    u"CVJINOTE~"_s};
    QStringList rows;
    for (const QString &line : lines) {
        const bool isAhead = std::any_of(
            ahead.begin(), ahead.end(), [&](const QString &head) { return line.startsWith(head); });
        if (!isAhead && line != end)
            rows.append(line);
    }
    return rows;
}

/// The first cells of all rows.
QStringList firstCells(const QStringList &rows)
{
    QStringList cells;
    for (const QString &row : rows)
        cells.append(row.section(u'~', 0, 0));
    return cells;
}

QDate dateOf(const QString &text)
{
    return QDate::fromString(text, u"MM/dd/yyyy"_s);
}
} // namespace

/// The tabs of the cases: what each family says, and that it agrees with its lists.
class tst_PracticeTabs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { folder.reset(); }
    void superiorListsAndSummariesAgree();
    void stateListsAndSummariesAgree_data();
    void stateListsAndSummariesAgree();
    void districtListsAndSummariesAgree_data();
    void districtListsAndSummariesAgree();
    void bankruptcyListsAndSummariesAgree();
    void everyTabIsWellFormed_data();
    void everyTabIsWellFormed();
    void archivedCasesHaveNoDocketAndNoAccounts();
    void associatedCasesOpen();
    void aJudgmentIsWhereTheListSaysSo();
    void documentsOfPierce();
    void smallCountiesScanNothing();
    void rowsOfNamesWithAMeaningOpen_data();
    void rowsOfNamesWithAMeaningOpen();
    void listsAreOfOneClient();
    void theSameAgain();
    void theDayChangesOnlyWhatIsAhead();

private:
    QStringList ask(const QString &request, qsizetype most = 1'000)
    {
        return Ask(*conversation, request, most);
    }
    QStringList listed(const QString &request) { return WithoutProgress(ask(request, 20'000)); }
    void checkTab(const QStringList &lines, const QString &request);

    std::unique_ptr<TestFolder> folder; // the program's own lists lie there
    std::optional<Conversation> conversation;
};

void tst_PracticeTabs::initTestCase()
{
    folder = std::make_unique<TestFolder>();
    LoadDiscisCourts();
    LoadOrCounties();
    conversation.emplace(LoggedIn());
}

void tst_PracticeTabs::superiorListsAndSummariesAgree()
{
    int seen = 0;
    for (const QString &name :
         {u"SMITH¦JOHN"_s, u"NGUYEN¦"_s, u"ACME PLUMBING INC¦"_s, u"XIONG¦"_s, u"MUÑOZ¦"_s}) {
        const QStringList rows = listed(
            u"INDEX~SEARCH~%1~~~King,Pierce,Adams,Yakima,Spokane,~~1970~2026~LL=1~UL=30000~"_s.arg(
                QString(name).replace(u'¦', u'~')));
        QVERIFY2(rows.size() > 2, qPrintable(name));
        for (const QString &row : rows.first(rows.size() - 1)) {
            const QStringList index = row.split(u'~');
            // The columns of the index's list stand in another order than the row's fields.
            const QStringList cells{index[0], index[1], index[2], index[3],
                                    index[6], index[4], index[5], index[7]};
            const CaseStart opened = CaseOfRow(cells, ResultKind::Index, u"WA"_s);
            const QStringList summary = ask(opened.tboxCaseNumberQueue);
            QVERIFY2(summary.size() > 6, qPrintable(row));
            QCOMPARE(summary[0].section(u'~', 1, 1), CaseNumberOf(cells[1]));
            QCOMPARE(summary[1].section(u'~', 1, 1),
                     QString(opened.txtCountyName + u" County Superior Court"));
            QCOMPARE(summary[2].section(u'~', 1, 1), index[6]);
            QCOMPARE(summary[3].section(u'~', 1, 1), index[2]);
            QCOMPARE(fieldOf(summary, u"Cause:"_s), index[3]);
            QCOMPARE(fieldOf(summary, u"Case Status:"_s) == u"Archived", index[1].startsWith(u'*'));
            const QStringList names = rowsOf(ask(u"WASUP¦NAMES¦%1¦%2¦¦"_s.arg(
                cells[1], opened.txtCountyName))); // with the mark, as the window sends it
            const QString part = index[0] + u'~' + index[5] + u'~';
            QVERIFY2(std::any_of(names.begin(), names.end(),
                                 [&](const QString &line) { return line.startsWith(part); }),
                     qPrintable(row));
            ++seen;
        }
    }
    QVERIFY2(seen > 300, qPrintable(QString::number(seen)));
}

void tst_PracticeTabs::stateListsAndSummariesAgree_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("names");
    QTest::newRow("Oregon") << u"OR"_s << u"OREGON¦SEARCH¦%1¦¦¦¦*ALL¦¦¦¦"_s
                            << u"OREGON@NAMES,@%1@%2@"_s;
    QTest::newRow("Idaho") << u"ID"_s << u"IDSUP¦SEARCH¦%1¦¦¦¦*ALL¦¦¦¦"_s
                           << u"IDSUP¦NAMES,¦%1¦%2¦"_s;
}

void tst_PracticeTabs::stateListsAndSummariesAgree()
{
    QFETCH(QString, state);
    QFETCH(QString, search);
    QFETCH(QString, names);

    int seen = 0;
    for (const QString &name : {u"SMITH"_s, u"GARCIA"_s, u"ACME PLUMBING INC"_s, u"NUÑEZ"_s}) {
        const QStringList rows = listed(search.arg(name));
        for (const QString &row : rows.first(rows.size() - 1)) {
            const QStringList cells = row.split(u'~');
            const CaseStart opened =
                CaseOfRow(cells, state == u"ID" ? ResultKind::Idaho : ResultKind::Superior, state);
            const QStringList summary = ask(opened.tboxCaseNumberQueue);
            QVERIFY2(summary.size() > 8, qPrintable(row));
            QVERIFY(summary[0].startsWith(u"TABS~SUMMARY,NAMES,DOCKET,"));
            QVERIFY2(summary[1].section(u'~', 1, 1).startsWith(opened.txtCountyName),
                     qPrintable(summary[1]));
            QCOMPARE(summary[2].section(u'~', 1, 1), CaseNumberOf(cells[1]));
            QVERIFY(summary[3].section(u'~', 1, 1).contains(cells[0])
                    || cells[5] == u"Personal Rep");
            QVERIFY(cells[3].startsWith(summary[4].section(u'~', 1, 1)));
            QCOMPARE(summary[6].section(u'~', 1, 1), cells[2]);
            QCOMPARE(fieldOf(summary, u"Case Status"_s) == u"Archived", cells[1].startsWith(u'*'));
            const QStringList found =
                rowsOf(ask(names.arg(cells[1], opened.tboxCaseNumberQueue.section(u'¦', 3, 3))));
            const QString part = cells[0] + u'~' + cells[5] + u'~';
            QVERIFY2(std::any_of(found.begin(), found.end(),
                                 [&](const QString &line) { return line.startsWith(part); }),
                     qPrintable(row));
            ++seen;
        }
    }
    QVERIFY2(seen > 300, qPrintable(QString::number(seen)));
}

void tst_PracticeTabs::districtListsAndSummariesAgree_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<bool>("civil");
    QTest::newRow("statewide") << u"WADISCIS¦SEARCH¦%1¦¦¦*SW¦IN¦SNCI¦"_s << false;
    QTest::newRow("civil, Tacoma") << u"WADISCIS¦SEARCH¦%1¦¦¦TAC¦CV¦CNCI¦"_s << true;
    QTest::newRow("civil, Seattle") << u"WADISCIS¦SEARCH¦%1¦¦¦KSD¦CV¦CNCI¦"_s << true;
}

void tst_PracticeTabs::districtListsAndSummariesAgree()
{
    QFETCH(QString, search);
    QFETCH(bool, civil);

    int seen = 0;
    for (const QString &name : {u"SMITH"_s, u"JOHNSON"_s, u"NGUYEN"_s}) {
        const QStringList rows = listed(search.arg(name));
        for (const QString &row : rows.first(rows.size() - 1)) {
            const QStringList cells = row.split(u'~');
            const CaseStart opened = DiscisCaseOfRow(
                cells, civil ? ResultKind::DiscisCivil : ResultKind::DiscisStatewide,
                civil ? u"CV"_s : u"IN"_s);
            const QStringList summary = ask(opened.tboxCaseNumberQueue);
            QVERIFY2(summary.size() > 6, qPrintable(row));
            if (opened.Kind == CaseKind::State) { // a criminal case of the Superior Courts
                QCOMPARE(summary[0].section(u'~', 1, 1), cells[1]);
                QCOMPARE(summary[3].section(u'~', 1, 1), cells[7]);
                continue;
            }
            QCOMPARE(fieldOf(summary, u"Case Number"_s), cells[1]);
            QCOMPARE(fieldOf(summary, u"Court"_s), cells[3]);
            QCOMPARE(fieldOf(summary, u"Date Filed"_s), cells[7]);
            if (civil)
                QVERIFY2(summary[0].contains(cells[0]), qPrintable(row));
            else
                QCOMPARE(summary[0], QString(u"Name~" + cells[0] + u'~'));
            const QString names = u"WADISCIS¦¦¦¦%1¦%2¦%3¦%4¦¦"_s.arg(
                cells[1], cells[4], cells[2], civil ? u"CV¦CVPAR"_s : u"IN¦NCPAR"_s);
            QVERIFY2(firstCells(rowsOf(ask(names))).contains(cells[0]), qPrintable(row));
            const bool open = cells[5] == u"OP";
            QCOMPARE(fieldOf(summary, u"Case Status:"_s) == u"Open", open);
            ++seen;
        }
    }
    QVERIFY2(seen > 3, qPrintable(QString::number(seen)));
}

void tst_PracticeTabs::bankruptcyListsAndSummariesAgree()
{
    int seen = 0;
    for (const QString &court : {u"WAW"_s, u"WAE"_s, u"OR"_s, u"ID"_s}) {
        const QStringList rows = listed(u"BKRPT~SEARCH~SMITH~~~~%1~*ALL~1980~2026~"_s.arg(court));
        for (const QString &row : rows.first(rows.size() - 1)) {
            const QStringList fields = row.split(u'¦');
            QVERIFY(fields[2].startsWith(u"RETRIEVECOMMAND="));
            const QStringList summary = ask(fields[2].mid(16));
            QVERIFY2(summary.size() > 6, qPrintable(row));
            QCOMPARE(fieldOf(summary, u"Case Number"_s), fields[1]);
            QCOMPARE(QString(u"Chapter " + fieldOf(summary, u"Chapter"_s)), fields[4]);
            QCOMPARE(fieldOf(summary, u"Date Filed"_s), fields[3]);
            const QString debtor = fields[6] == u"Debtor" ? fields[0] : fields[7];
            QCOMPARE(fieldOf(summary, u"Case Title"_s), debtor);
            // The commands of the definition line open the other tabs.
            const QStringList commands = summary[0].split(u'¦', Qt::SkipEmptyParts);
            QCOMPARE(commands.size(), 4);
            const QStringList names = firstCells(rowsOf(ask(commands[2].mid(16))));
            QVERIFY(names.contains(fields[0]) && names.contains(fields[7]));
            QCOMPARE(rowsOf(ask(commands[3].mid(16))).first().section(u'~', 0, 0), fields[3]);
            ++seen;
        }
    }
    QVERIFY2(seen > 30, qPrintable(QString::number(seen)));
}

/// What every reply of a table has to be, whatever is in it.
void tst_PracticeTabs::checkTab(const QStringList &lines, const QString &request)
{
    const char *what = qPrintable(request);
    QVERIFY2(!lines.isEmpty() && lines.last() == end, what);
    QStringList definition;
    for (const QString &line : lines) {
        QVERIFY2(!line.contains(u'|') && line == line.trimmed(), what);
        if (line.startsWith(u"GRIDDEF~") || line.startsWith(u"COLDEF~"))
            definition = line.split(u'~', Qt::SkipEmptyParts).mid(1);
    }
    if (lines.size() == 1)
        return;
    QVERIFY2(!definition.isEmpty(), what);
    int width = 0;
    qsizetype columns = 0;
    for (const QString &field : definition) {
        bool isNumber = false;
        width += field.toInt(&isNumber);
        columns += isNumber ? 1 : 0;
    }
    QCOMPARE(width, 100);
    QCOMPARE(definition.size(), columns * 2);
    for (const QString &row : rowsOf(lines)) {
        const bool withCommand = row.startsWith(u"RETRIEVEDOC=");
        QVERIFY2(row.count(u'~') == columns + (withCommand ? 1 : 0), qPrintable(request + row));
        for (const char16_t *word : {u"TABDEF", u"COLDEF", u"BREAKERS", u"TABNAME", u"EOF~"})
            QVERIFY2(!row.contains(QStringView(word)), qPrintable(row));
    }
}

void tst_PracticeTabs::everyTabIsWellFormed_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("tabs"); // %1 number, %2 court, %3 type
    const auto all = [](const QString &shape, const QStringList &words) {
        QStringList requests;
        for (const QString &word : words)
            requests.append(QString(shape).replace(u"WORD"_s, word));
        return requests;
    };
    QTest::newRow("Superior") << u"WASUP¦SEARCH¦LEE¦¦¦¦King,Pierce,Ferry,¦¦¦¦"_s
                              << all(u"WASUP¦WORD¦%1¦%2¦¦"_s,
                                     {u"NAMES"_s, u"DOCKET"_s, u"ACCOUNTING"_s, u"JUDGMENTS"_s,
                                      u"CHARGES"_s, u"SENTENCE"_s, u"SCHEDULE"_s});
    QTest::newRow("Superior, documents") << u"WASUP¦SEARCH¦LEE¦¦¦¦King,Pierce,¦Civil,Criminal,¦¦¦"_s
                                         << QStringList{u"WASUPDOC¦GETDOCTAB¦%2¦%1¦"_s};
    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦LEE¦¦¦¦*ALL¦¦¦¦"_s
                            << all(u"OREGON@WORD,@%1@%2@"_s,
                                   {u"NAMES"_s, u"DOCKET"_s, u"ACCOUNTING"_s, u"FINANCE"_s,
                                    u"JUDGMENTS"_s, u"CHARGES"_s, u"SENTENCES"_s, u"SCHEDULE"_s});
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦LEE¦¦¦¦*ALL¦¦¦¦"_s
                           << all(u"IDSUP¦WORD,¦%1¦%2¦"_s,
                                  {u"NAMES"_s, u"DOCKET"_s, u"JUDGMENTS"_s, u"CHARGES"_s});
    QTest::newRow("non-civil") << u"WADISCIS¦SEARCH¦LEE¦¦¦KSD¦IN¦CNCI¦"_s
                               << all(u"WADISCIS¦¦¦¦%1¦IT¦%2¦IN¦WORD¦¦"_s,
                                      {u"NCPAR"_s, u"NCCDK"_s, u"NCVIO"_s});
    QTest::newRow("civil") << u"WADISCIS¦SEARCH¦SMITH¦¦¦KSD¦CV¦CNCI¦"_s
                           << all(u"WADISCIS¦¦¦¦%1¦CV¦%2¦CV¦WORD¦¦"_s,
                                  {u"CVPAR"_s, u"CVCDK"_s, u"CVJI"_s});
    QTest::newRow("bankruptcy") << u"BKRPT~SEARCH~LEE~~~~WAW~*ALL~1980~2026~"_s
                                << all(u"BKRPT~WORD~%1~%2~"_s, {u"NAMES"_s, u"DOCKET"_s});
}

void tst_PracticeTabs::everyTabIsWellFormed()
{
    QFETCH(QString, search);
    QFETCH(QStringList, tabs);

    const QStringList rows = listed(search);
    QVERIFY(rows.size() > 3);
    QList<int> filled(tabs.size(), 0);
    for (const QString &row : rows.first(rows.size() - 1)) {
        const QStringList fields = row.split(row.back());
        QString court = search.section(search.back(), 5, 5);
        if (search.startsWith(u"WASUP"))
            court = fields[4].section(u"Ct "_s, 1).section(u" County"_s, 0, 0);
        else if (search.startsWith(u"BKRPT"))
            court = u"WAW"_s;
        else if (search.contains(u"*ALL"))
            court = CaseOfRow(fields, ResultKind::Superior, search.left(2))
                        .tboxCaseNumberQueue.section(u'¦', 3, 3);
        for (qsizetype i = 0; i < tabs.size(); ++i) {
            const QString request = tabs[i].arg(fields[1], court);
            const QStringList lines = ask(request);
            checkTab(lines, request);
            if (QTest::currentTestFailed())
                return;
            const QStringList dates = firstCells(rowsOf(lines));
            filled[i] += dates.isEmpty() ? 0 : 1;
            if (!request.contains(u"DOCKET") && !request.contains(u"CDK"))
                continue;
            // In the order of the days, and none of them still to come.
            QDate before;
            for (const QString &text : dates) {
                QVERIFY2(dateOf(text).isValid() && dateOf(text) <= someDay, qPrintable(request));
                QVERIFY2(!before.isValid() || before <= dateOf(text), qPrintable(request));
                before = dateOf(text);
            }
        }
    }
    // There is something in each of them for somebody.
    for (qsizetype i = 0; i < tabs.size(); ++i)
        QVERIFY2(filled[i] > 0, qPrintable(tabs[i]));
}

void tst_PracticeTabs::archivedCasesHaveNoDocketAndNoAccounts()
{
    const QStringList rows = listed(u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦¦1990¦"_s);
    int archived = 0;
    for (const QString &row : rows) {
        const QString number = row.section(u'~', 1, 1);
        if (!number.startsWith(u'*'))
            continue;
        ++archived;
        const bool judgment = number.mid(4, 1) == u"9";
        QCOMPARE(ask(u"WASUP¦DOCKET¦%1¦King¦¦"_s.arg(number)).size() == 1, !judgment);
        QCOMPARE(ask(u"WASUP¦ACCOUNTING¦%1¦King¦¦"_s.arg(number)), QStringList{end});
        QVERIFY(ask(u"WASUP¦NAMES¦%1¦King¦¦"_s.arg(number)).size() > 2);
    }
    QVERIFY(archived > 5);
}

void tst_PracticeTabs::associatedCasesOpen()
{
    const QStringList rows = listed(u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,Domestic,Judgment,¦¦¦"_s);
    int opened = 0;
    for (const QString &row : rows.first(rows.size() - 1)) {
        const QString number = CaseNumberOf(row.section(u'~', 1, 1));
        const QString other =
            fieldOf(ask(u"WASUP¦SUMMARY¦%1¦King¦¦"_s.arg(number)), u"Associated Case:"_s);
        for (const QString &judgment : rowsOf(ask(u"WASUP¦JUDGMENTS¦%1¦King¦¦"_s.arg(number)))) {
            // The second column opens, too.
            QCOMPARE(judgment.section(u'~', 1, 1), other.isEmpty() ? number : other);
        }
        if (other.isEmpty())
            continue;
        const QStringList summary = ask(u"WASUP¦SUMMARY¦%1¦King¦¦"_s.arg(other));
        QCOMPARE(summary.first(), QString(u"Case Number~" + other + u'~'));
        QVERIFY((number.mid(3, 1) == u"9") != (other.mid(3, 1) == u"9"));
        ++opened;
    }
    QVERIFY2(opened > 3, qPrintable(QString::number(opened)));
}

void tst_PracticeTabs::aJudgmentIsWhereTheListSaysSo()
{
    int with = 0;
    int without = 0;
    const QStringList rows = listed(u"OREGON¦SEARCH¦SMITH¦¦¦¦MCR C¦CV,SC,¦¦¦"_s);
    for (const QString &row : rows.first(rows.size() - 1)) {
        const QString number = row.section(u'~', 1, 1);
        const bool isListed = row.contains(u"(Judgment)");
        const QStringList judgments = rowsOf(ask(u"OREGON@JUDGMENTS,@%1@MCR C@"_s.arg(number)));
        QCOMPARE(!judgments.isEmpty(), isListed);
        const QStringList summary = ask(u"OREGON@SUMMARY,NAMES,DOCKET,@%1@MCR C@"_s.arg(number));
        QCOMPARE(summary[0].contains(u"JUDGMENTS,"), isListed);
        ++(isListed ? with : without);
    }
    QVERIFY(with > 2 && without > 2);
}

void tst_PracticeTabs::documentsOfPierce()
{
    const QStringList king = ask(u"WASUPDOC¦GETDOCTAB¦King¦98-2-00017-7¦"_s);
    QCOMPARE(king[2], u"COLDEF~Sub No~10~Date~15~Pages~10~Description~65~"_s);
    QCOMPARE(king[3].count(u'~'), 5); // one more than columns
    QCOMPARE(king[4], u"RETRIEVEDOC=WASUPDOC¦GETDOC¦King¦98-2-00017-7¦1¦"
                      "~1~03/16/1998~22~Summons & Complaint~"_s);
    QCOMPARE(king[6], u"3~03/17/1998~74~Order Setting Case Schedule~"_s); // not to be had
    const QStringList pierce = ask(u"WASUPDOC¦GETDOCTAB¦Pierce¦05-2-00031-8¦"_s);
    QCOMPARE(pierce[2], u"COLDEF~Date~15~Pages~10~Sub No~10~Description~65~"_s);
    int checked = 0;
    for (const QString &row : rowsOf(pierce)) {
        if (!row.startsWith(u"RETRIEVEDOC="))
            continue;
        const QStringList fields = row.split(u'~');
        const QStringList command = fields.first().split(u'¦');
        QCOMPARE(command.mid(2), (QStringList{u"Pierce"_s, u"05-2-00031-8"_s, fields[3], {}}));
        ++checked;
    }
    QVERIFY(checked > 1);
}

void tst_PracticeTabs::smallCountiesScanNothing()
{
    const QStringList rows = listed(u"WASUP¦SEARCH¦SMITH¦¦¦¦Ferry,¦¦¦¦"_s);
    QVERIFY(rows.size() > 1);
    const QString number = CaseNumberOf(rows.first().section(u'~', 1, 1));
    QCOMPARE(ask(u"WASUPDOC¦GETDOCTAB¦Ferry¦%1¦"_s.arg(number)),
             (QStringList{u"Documents n/a for: Ferry County~"_s, end}));
}

/// A case reads the same in another conversation and after other cases.
void tst_PracticeTabs::theSameAgain()
{
    Conversation other = LoggedIn(u"bob"_s);
    Ask(other, u"WASUP¦DOCKET¦94-1-00042-1¦King¦¦"_s);
    for (const QString &tab : {u"SUMMARY"_s, u"NAMES"_s, u"DOCKET"_s, u"ACCOUNTING"_s}) {
        const QString request = u"WASUP¦%1¦98-2-00017-7¦King¦¦"_s.arg(tab);
        QCOMPARE(Ask(other, request), ask(request));
    }
}

/// The next day adds entries to an open case and changes none.
void tst_PracticeTabs::theDayChangesOnlyWhatIsAhead()
{
    const QStringList rows = listed(u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦Civil,¦2026¦2026¦"_s);
    QVERIFY(rows.size() > 3);
    Conversation later(People(), QDate(2026, 12, 31));
    later.Answer(ToWindows1252(u"LOGON¦ann¦pw¦AppVer-9.00¦"_s));
    int grown = 0;
    for (const QString &row : rows.first(rows.size() - 1)) {
        const QString request = u"WASUP¦DOCKET¦%1¦King¦¦"_s.arg(row.section(u'~', 1, 1));
        const QStringList now = rowsOf(ask(request));
        const QStringList then = rowsOf(Ask(later, request));
        QCOMPARE(then.first(now.size()), now);
        grown += then.size() > now.size() ? 1 : 0;
    }
    QVERIFY(grown > 0);
}

void tst_PracticeTabs::rowsOfNamesWithAMeaningOpen_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("names"); // %1: the number, %2: the court

    const QString superior = u"WASUP¦NAMES¦%1¦%2¦¦"_s;
    QTest::newRow("Superior") << u"WASUP¦SEARCH¦MANY¦900¦¦¦King,¦¦¦¦"_s << superior;
    QTest::newRow("Superior, one year")
        << u"WASUP¦SEARCH¦MANY¦900¦¦¦King,¦Civil,¦1998¦1998¦"_s << superior;
    QTest::newRow("Superior, an error row")
        << u"WASUP¦SEARCH¦BADROW¦¦¦¦Pierce,King,¦¦¦¦"_s << superior;
    QTest::newRow("the index") << u"INDEX~SEARCH~PAGES~~~~King,~~1970~2026~LL=501~UL=1000~"_s
                               << superior;
    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦MANY¦900¦¦¦MCR C¦¦¦¦"_s << u"OREGON@NAMES,@%1@%2@"_s;
    QTest::newRow("Oregon, judgments")
        << u"OREGON¦SEARCH¦OVER200¦¦¦¦MCR C¦CV,JG,¦¦¦"_s << u"OREGON@NAMES,@%1@%2@"_s;
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦MANY¦900¦¦¦Ada¦¦¦¦"_s << u"IDSUP¦NAMES,¦%1¦%2¦"_s;
    QTest::newRow("civil") << u"WADISCIS¦SEARCH¦MANY¦900¦¦KSD¦CV¦CNCI¦"_s
                           << u"WADISCIS¦¦¦¦%1¦CV¦%2¦CV¦CVPAR¦¦"_s;
    const QString nonCivil = u"WADISCIS¦¦¦¦%1¦IN¦%2¦IN¦NCPAR¦¦"_s;
    QTest::newRow("statewide") << u"WADISCIS¦SEARCH¦MANY¦900¦¦*SW¦IN¦SNCI¦"_s << nonCivil;
    QTest::newRow("a listed person")
        << u"WADISCIS¦SEARCH¦DUPES¦DUPES, JOHN C¦M¦n/a¦W¦507¦162¦BLN/BLU¦Alias¦1¦SNCINMD¦"_s
        << nonCivil;
    QTest::newRow("bankruptcy") << u"BKRPT~SEARCH~MANY~900~~~OR~*ALL~1980~2026~"_s
                                << u"BKRPT~NAMES~%1~%2~"_s;
}

void tst_PracticeTabs::rowsOfNamesWithAMeaningOpen()
{
    QFETCH(QString, search);
    QFETCH(QString, names);

    int opened = 0;
    for (const QString &row : listed(search)) {
        if (row.startsWith(u"ERROR~") || row.startsWith(u"WARNING") || row.startsWith(u"This")
            || row == end)
            continue;
        const QStringList cells = row.split(row.back());
        QString court = u"King"_s;
        if (search.startsWith(u"WADISCIS"))
            court = cells[2];
        else if (search.startsWith(u"OREGON"))
            court = u"MCR C"_s;
        else if (search.startsWith(u"IDSUP"))
            court = u"Ada"_s;
        else if (search.startsWith(u"BKRPT"))
            court = u"OR"_s;
        else if (cells[4].contains(u"Pierce"))
            court = u"Pierce"_s;
        const QStringList lines = ask(names.arg(cells[1], court));
        QVERIFY2(firstCells(rowsOf(lines)).contains(cells[0]), qPrintable(row + lines.join(u' ')));
        ++opened;
    }
    QVERIFY2(opened >= 2, qPrintable(QString::number(opened)));
    // Another search means its own cases again.
    listed(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦¦¦¦"_s);
    QVERIFY(
        firstCells(rowsOf(ask(u"WASUP¦NAMES¦98-2-00017-7¦King¦¦"_s))).contains(u"SMITH, JOHN Q"_s));
}

/// A list of one client does not open for another one.
void tst_PracticeTabs::listsAreOfOneClient()
{
    listed(u"IDSUP¦SEARCH¦MANY¦¦¦¦Ada¦CV,¦1990¦1990¦"_s);
    const QString request = u"IDSUP¦SUMMARY,NAMES,DOCKET,¦CV-1990-0000001-OC¦Ada¦"_s;
    QVERIFY(ask(request).size() > 5);
    Conversation other = LoggedIn(u"bob"_s);
    QCOMPARE(Ask(other, request).first(), u"ERROR~Requested case is not on file~"_s);
}

HALVANE_TEST(tst_PracticeTabs)
#include "tst_PracticeTabs.moc"
