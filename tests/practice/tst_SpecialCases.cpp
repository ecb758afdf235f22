#include "practice/OtherCases.h"
#include "practice/PracticeAsk.h"
#include "practice/SpecialCases.h"
#include "support/HalvaneTest.h"
#include "support/Places.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <array>

using namespace Practice;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(Practice::CourtFamily)

namespace {
const QString end = u"EOF~"_s;

constexpr std::array families{CourtFamily::Superior, CourtFamily::Oregon, CourtFamily::Idaho,
                              CourtFamily::District, CourtFamily::Bankruptcy};

const SpecialCaseRow &rowAt(int place)
{
    return *std::find_if(specialCases.begin(), specialCases.end(),
                         [&](const SpecialCaseRow &row) { return row.place == place; });
}

QString numberAt(CourtFamily family, int place)
{
    return SpecialCaseNumber(family, rowAt(place));
}

struct Words
{
    const char16_t *summary; ///< %1: the number
    const char16_t *names;
    const char16_t *docket;
};

/// As the windows ask, in the order of the families.
constexpr std::array<Words, 5> words{{
    {u"WASUP¦SUMMARY¦%1¦King¦¦", u"WASUP¦NAMES¦%1¦King¦¦", u"WASUP¦DOCKET¦%1¦King¦¦"},
    {u"OREGON@SUMMARY,NAMES,DOCKET,@%1@MCR C@", u"OREGON@NAMES,@%1@MCR C@",
     u"OREGON@DOCKET,@%1@MCR C@"},
    {u"IDSUP¦SUMMARY,NAMES,DOCKET,¦%1¦Ada¦", u"IDSUP¦NAMES,¦%1¦Ada¦", u"IDSUP¦DOCKET,¦%1¦Ada¦"},
    {u"WADISCIS¦¦¦¦%1¦IN¦KSD¦IN¦NCNCC¦¦", u"WADISCIS¦¦¦¦%1¦IN¦KSD¦IN¦NCPAR¦¦",
     u"WADISCIS¦¦¦¦%1¦IN¦KSD¦IN¦NCCDK¦¦"},
    {u"BKRPT~SUMMARY~%1~OR~", u"BKRPT~NAMES~%1~OR~", u"BKRPT~DOCKET~%1~OR~"},
}};

enum class Tab : quint8 { Summary, Names, Docket };

QString requestFor(CourtFamily family, int place, Tab tab)
{
    const Words &row = words[static_cast<std::size_t>(family)];
    const char16_t *shape = tab == Tab::Summary ? row.summary
                            : tab == Tab::Names ? row.names
                                                : row.docket;
    return QString::fromUtf16(shape).arg(numberAt(family, place));
}

const char *nameOf(CourtFamily family)
{
    static constexpr std::array names{"Superior", "Oregon", "Idaho", "District", "Bankruptcy"};
    return names[static_cast<std::size_t>(family)];
}

void addFamilies()
{
    QTest::addColumn<CourtFamily>("family");
    for (const CourtFamily family : families)
        QTest::newRow(nameOf(family)) << family;
}
} // namespace

/// The case numbers with a meaning, one by one.
class tst_SpecialCases : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { conversation.emplace(LoggedIn()); }
    void numbersAreThoseOfTheGuide();
    void noOtherCaseHasSuchANumber();
    void oneLine_data();
    void oneLine();
    void nothingSilenceAndDrop_data() { addFamilies(); }
    void nothingSilenceAndDrop();
    void aTabIsAnErrorEveryOtherTime_data() { addFamilies(); }
    void aTabIsAnErrorEveryOtherTime();
    void aDocketBreaksOffEveryOtherTime_data();
    void aDocketBreaksOffEveryOtherTime();
    void whatFailedIsRememberedByUser();
    void emptyTabs_data() { addFamilies(); }
    void emptyTabs();
    void theLongDocket_data() { addFamilies(); }
    void theLongDocket();
    void theSlowDocket();
    void rowsWithoutADefinition();
    void breaks_data();
    void breaks();
    void arbitration_data();
    void arbitration();
    void arbitrationWithAnAccountingCode();
    void associatedCasesOfTheGuide();
    void documentsThatAreNot_data();
    void documentsThatAreNot();
    void aSealedCaseHasASummary();
    void districtSummaryLines_data();
    void districtSummaryLines();
    void districtNotes_data();
    void districtNotes();
    void districtEmptyHeading();
    void districtHeadingOnly();
    void severalBankruptciesOfANumber();
    void theMeaningIsOfOneCourtOnly();

private:
    QStringList ask(const QString &request, qsizetype most = 1'000)
    {
        return Ask(*conversation, request, most);
    }
    QStringList askFor(CourtFamily family, int place, Tab tab)
    {
        return ask(requestFor(family, place, tab), 30'000);
    }

    std::optional<Conversation> conversation;
};

void tst_SpecialCases::numbersAreThoseOfTheGuide()
{
    QFile file(DocsPath(u"practice.md"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    for (const SpecialCaseRow &row : specialCases) {
        for (const CourtFamily family : families) {
            if ((row.families & FamilyBit(family)) == 0)
                continue;
            const QString number = u'`' + SpecialCaseNumber(family, row) + u'`';
            QVERIFY2(guide.contains(number), qPrintable(number));
        }
    }
}

void tst_SpecialCases::noOtherCaseHasSuchANumber()
{
    for (const CourtFamily family : families) {
        if (family == CourtFamily::Superior)
            continue;
        const auto other = static_cast<OtherFamily>(static_cast<int>(family) - 1);
        for (const SpecialCaseRow &row : specialCases) {
            const QString number = SpecialCaseNumber(family, row);
            if ((row.families & FamilyBit(family)) != 0)
                QVERIFY2(PartiesOfOtherCase(People(), other, number).empty(), qPrintable(number));
        }
    }
    for (const SpecialCaseRow &row : specialCases) {
        const auto number = ParseCaseNumber(
            17, SpecialCaseNumber(CourtFamily::Superior, row)); // right check digits
        QVERIFY(number.has_value());
        QVERIFY(!People().FindCase(*number));
    }
}

void tst_SpecialCases::oneLine_data()
{
    QTest::addColumn<CourtFamily>("family");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("line");

    static constexpr std::array<const char16_t *, 9> lost{
        u"ERROR~No connection to the court~",
        u"ERROR~An error occured in the court's system~",
        u"ERROR~An error occurred in the court's system~",
        u"ERROR~Unknown error~",
        u"ERROR~Unknown command~",
        u"ERROR~Connection lost~",
        u"ERROR~The connection to SCOMIS was lost~",
        u"ERROR~No servers available~",
        u"ERROR~SCOMIS failed~",
    };
    const auto row = [](CourtFamily family, int place, const QString &line) {
        QTest::addRow("%s %d", nameOf(family), place) << family << place << line;
    };
    using enum CourtFamily;
    for (const CourtFamily family : {Superior, Oregon, Idaho, Bankruptcy}) {
        for (std::size_t i = 0; i < lost.size(); ++i)
            row(family, static_cast<int>(i) + 1, QString::fromUtf16(lost[i]));
    }
    row(Superior, 10, u"ERROR -- This is not a valid case number"_s);
    row(Superior, 11, u"ERROR -- Case is not on file"_s);
    for (const CourtFamily family : families)
        row(family, 12, u"ERROR~The court record could not be read~"_s);
    row(Superior, 16, u"This court is currently unavailable, please try later~"_s);
    row(Bankruptcy, 16, u"This court is currently unavailable, please try later~"_s);
    row(Oregon, 17, u"ERROR~Oregon courts are currently unavailable, please try later~"_s);
    row(Idaho, 18, u"ERROR~Idaho courts are currently unavailable, please try later~"_s);
    row(Oregon, 19, u"ERROR~Request case is not on file~"_s);
    row(Idaho, 19, u"ERROR~Request case is not on file~"_s);
    row(Bankruptcy, 51, u"ERROR~Illegal case number~"_s);
}

void tst_SpecialCases::oneLine()
{
    QFETCH(CourtFamily, family);
    QFETCH(int, place);
    QFETCH(QString, line);
    QCOMPARE(askFor(family, place, Tab::Summary), (QStringList{line, end}));
    QCOMPARE(askFor(family, place, Tab::Docket), (QStringList{line, end}));
}

void tst_SpecialCases::nothingSilenceAndDrop()
{
    QFETCH(CourtFamily, family);
    QCOMPARE(askFor(family, 13, Tab::Summary), QStringList{end});
    QCOMPARE(askFor(family, 14, Tab::Summary), QStringList{u"<silence>"_s});
    QCOMPARE(askFor(family, 15, Tab::Summary), QStringList{u"<drop>"_s});
}

void tst_SpecialCases::aTabIsAnErrorEveryOtherTime()
{
    QFETCH(CourtFamily, family);
    const QStringList error{u"ERROR~The court did not send this information~"_s, end};
    QVERIFY(askFor(family, 24, Tab::Summary).size() > 5);
    for (const Tab tab : {Tab::Names, Tab::Docket}) {
        QCOMPARE(askFor(family, 24, tab), error);
        QVERIFY(askFor(family, 24, tab).size() > 2);
        QCOMPARE(askFor(family, 24, tab), error);
    }
}

void tst_SpecialCases::aDocketBreaksOffEveryOtherTime_data()
{
    QTest::addColumn<CourtFamily>("family");
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("ending");
    for (const CourtFamily family : families) {
        QTest::addRow("%s falls silent", nameOf(family)) << family << 25 << u"<silence>"_s;
        QTest::addRow("%s drops", nameOf(family)) << family << 26 << u"<drop>"_s;
    }
}

void tst_SpecialCases::aDocketBreaksOffEveryOtherTime()
{
    QFETCH(CourtFamily, family);
    QFETCH(int, place);
    QFETCH(QString, ending);
    QCOMPARE(askFor(family, place, Tab::Names).last(), end);
    const QStringList broken = askFor(family, place, Tab::Docket);
    const QStringList whole = askFor(family, place, Tab::Docket);
    QCOMPARE(broken.last(), ending);
    QCOMPARE(whole.last(), end);
    QVERIFY(whole.size() > broken.size());
    // What came before is what comes again.
    QCOMPARE(whole.first(broken.size() - 1), broken.first(broken.size() - 1));
    QCOMPARE(askFor(family, place, Tab::Docket).last(), ending);
}

/// A connection that was closed takes nothing along: the court remembers, by user.
void tst_SpecialCases::whatFailedIsRememberedByUser()
{
    const auto memory = std::make_shared<TabMemory>();
    const auto endingFor = [&](const QString &user) {
        Conversation one(People(), someDay, memory);
        Ask(one, u"LOGON¦%1¦pw¦AppVer-9.00¦"_s.arg(user));
        return Ask(one, requestFor(CourtFamily::Superior, 26, Tab::Docket)).last();
    };
    QCOMPARE(endingFor(u"ann"_s), u"<drop>"_s);
    QCOMPARE(endingFor(u"bob"_s), u"<drop>"_s);
    QCOMPARE(endingFor(u"Ann"_s), end);
    QCOMPARE(endingFor(u"bob"_s), end);
}

void tst_SpecialCases::emptyTabs()
{
    QFETCH(CourtFamily, family);
    QVERIFY(askFor(family, 27, Tab::Summary).size() > 5);
    QCOMPARE(askFor(family, 27, Tab::Names), QStringList{end});
    QCOMPARE(askFor(family, 27, Tab::Docket), QStringList{end});
}

void tst_SpecialCases::theLongDocket()
{
    QFETCH(CourtFamily, family);
    QStringList lines = askFor(family, 23, Tab::Docket);
    lines.removeIf([](const QString &line) { return !line.isEmpty() && !line[0].isDigit(); });
    QCOMPARE(lines.size(), 20'000);
    QCOMPARE(lines.first().section(u'~', 0, 0), u"03/14/1990"_s);
    QCOMPARE(lines.last().section(u'~', 0, 0), someDay.toString(u"MM/dd/yyyy"_s));
    QDate before;
    for (const QString &line : lines) {
        const QDate day = QDate::fromString(line.section(u'~', 0, 0), u"MM/dd/yyyy"_s);
        QVERIFY2(day.isValid() && (!before.isValid() || before <= day), qPrintable(line));
        QCOMPARE(line.count(u'~'), 3);
        before = day;
    }
}

void tst_SpecialCases::theSlowDocket()
{
    const QStringList script = askFor(CourtFamily::Superior, 30, Tab::Docket);
    QCOMPARE(script[0], u"SEARCHING~the~docket~1~of~20~.."_s);
    QCOMPARE(script[1], u"<pause 1000>"_s);
    QCOMPARE(script.count(u"<pause 1000>"_s), 20);
    QVERIFY(script[40].startsWith(u"GRIDDEF~"));
}

void tst_SpecialCases::rowsWithoutADefinition()
{
    for (const CourtFamily family : families) {
        const QStringList lines = askFor(family, 29, Tab::Docket);
        QVERIFY2(lines.first().startsWith(u"03/14/1990~"), qPrintable(lines.first()));
    }
}

void tst_SpecialCases::breaks_data()
{
    QTest::addColumn<QString>("request");
    QTest::newRow("Superior, documents")
        << u"WASUPDOC¦GETDOCTAB¦King¦%1¦"_s.arg(numberAt(CourtFamily::Superior, 28));
    using enum CourtFamily;
    for (const CourtFamily family : {Oregon, Idaho, Bankruptcy}) {
        QTest::addRow("%s, names", nameOf(family)) << requestFor(family, 28, Tab::Names);
        QTest::addRow("%s, docket", nameOf(family)) << requestFor(family, 28, Tab::Docket);
    }
}

void tst_SpecialCases::breaks()
{
    QFETCH(QString, request);
    const QStringList lines = ask(request);
    QVERIFY(lines.size() > 7);
    QVERIFY(lines[4].endsWith(u"~First line<BR>second line<BR>third line~"));
    QVERIFY(lines[lines.size() - 3].endsWith(u"~One line,<CR>softly broken~"));
    // A row that the reader takes for a line of definition.
    QVERIFY(lines[lines.size() - 2].endsWith(u"~Affidavit Re TABDEF~"));
}

void tst_SpecialCases::arbitration_data()
{
    QTest::addColumn<QString>("request"); // %1: the number
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    const QString court = u"Court~King County Superior Court~"_s;
    QTest::newRow("asked first") << u"WASUP¦SUMMARY¦%1¦King¦¦"_s
                                 << u"USERQUESTION~This case is in arbitration~"_s << end;
    QTest::newRow("yes") << u"WASUP¦SUMMARY¦%1¦King ARBITRATION¦¦"_s << QString()
                         << u"Court~King County Superior Court - Arbitration~"_s;
    QTest::newRow("no") << u"WASUP¦SUMMARY¦%1¦King NOARBITRATION¦¦"_s << QString() << court;
    const QString grid = u"GRIDDEF~Date~Code~Description~14~12~74~"_s;
    QTest::newRow("docket, yes") << u"WASUP¦DOCKET¦%1¦King ARBITRATION¦¦"_s << grid
                                 << u"03/14/1990~NTARB~Request For Arbitration~"_s;
    const QString complaint = u"03/14/1990~SMCMP~Summons & Complaint~"_s;
    QTest::newRow("docket, no") << u"WASUP¦DOCKET¦%1¦King NOARBITRATION¦¦"_s << grid << complaint;
    QTest::newRow("docket, not asked") << u"WASUP¦DOCKET¦%1¦King¦¦"_s << grid << complaint;
}

void tst_SpecialCases::arbitration()
{
    QFETCH(QString, request);
    QFETCH(QString, first);
    QFETCH(QString, second);
    const QString number = numberAt(CourtFamily::Superior, 20);
    const QStringList lines = ask(request.arg(number));
    QCOMPARE(lines[0], first.isEmpty() ? QString(u"Case Number~" + number + u'~') : first);
    QCOMPARE(lines[1], second);
}

void tst_SpecialCases::arbitrationWithAnAccountingCode()
{
    const QString request = u"WASUP¦SUMMARY¦%1¦King ARBITRATION¦^^CAC:ABC^^¦"_s.arg(
        numberAt(CourtFamily::Superior, 20));
    QCOMPARE(ask(request)[1], u"Court~King County Superior Court - Arbitration~"_s);
}

void tst_SpecialCases::associatedCasesOfTheGuide()
{
    const QString civil = numberAt(CourtFamily::Superior, 21);
    const QString judgment = numberAt(CourtFamily::Superior, 22);
    const auto association = [](const QString &number) {
        return u"Associated Case:~%1~"_s.arg(number);
    };
    QVERIFY(askFor(CourtFamily::Superior, 21, Tab::Summary).contains(association(judgment)));
    QVERIFY(askFor(CourtFamily::Superior, 22, Tab::Summary).contains(association(civil)));
    const QStringList judgments = ask(u"WASUP¦JUDGMENTS¦%1¦King¦¦"_s.arg(civil));
    QVERIFY(judgments.size() > 2);
    QCOMPARE(judgments[1].section(u'~', 1, 1), judgment);
    QCOMPARE(ask(u"WASUPDOC¦GETDOCTAB¦King¦%1¦"_s.arg(judgment)).first(),
             u"Documents for this Judgment are available by searching its associated case~"_s);
}

void tst_SpecialCases::documentsThatAreNot_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("line");
    QTest::newRow("not now") << 31 << u"Court Documents N/A~"_s;
    QTest::newRow("not from this county") << 32 << u"Documents n/a for: King County~"_s;
    QTest::newRow("in another case")
        << 33 << u"Documents for this Judgment are available by searching its associated case~"_s;
}

void tst_SpecialCases::documentsThatAreNot()
{
    QFETCH(int, place);
    QFETCH(QString, line);
    const QString number = numberAt(CourtFamily::Superior, place);
    QCOMPARE(ask(u"WASUPDOC¦GETDOCTAB¦King¦%1¦"_s.arg(number)), (QStringList{line, end}));
    QVERIFY(askFor(CourtFamily::Superior, place, Tab::Docket).size() > 2);
}

void tst_SpecialCases::aSealedCaseHasASummary()
{
    QCOMPARE(numberAt(CourtFamily::Superior, 34).mid(3, 1), u"5"_s);
    QVERIFY(askFor(CourtFamily::Superior, 34, Tab::Summary).size() > 5);
    QCOMPARE(askFor(CourtFamily::Superior, 34, Tab::Docket), QStringList{end});
}

void tst_SpecialCases::districtSummaryLines_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("line");
    QTest::newRow("archived") << 40 << u"Archived case, Summary information is not available"_s;
    QTest::newRow("not of the system")
        << 41 << u"Non-JIS case. Summary information not available"_s;
}

void tst_SpecialCases::districtSummaryLines()
{
    QFETCH(int, place);
    QFETCH(QString, line);
    QCOMPARE(askFor(CourtFamily::District, place, Tab::Summary), (QStringList{line, end}));
    QVERIFY(askFor(CourtFamily::District, place, Tab::Names).size() > 2);
}

void tst_SpecialCases::districtNotes_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("notes");
    QTest::newRow("none") << 42 << 0;
    QTest::newRow("one") << 43 << 1;
    QTest::newRow("two") << 44 << 2;
}

void tst_SpecialCases::districtNotes()
{
    QFETCH(int, place);
    QFETCH(int, notes);
    const QString number = numberAt(CourtFamily::District, place);
    const QList<std::pair<QString, QString>> tabs{
        {u"IN¦NCPAR"_s, u"CPARNOTE~"_s},  {u"IN¦NCCDK"_s, u"CDKNOTE~"_s},
        {u"IN¦NCVIO"_s, u"NCVIONOTE~"_s}, {u"CV¦CVPAR"_s, u"CPARNOTE~"_s},
        {u"CV¦CVCDK"_s, u"CDKNOTE~"_s},   {u"CV¦CVJI"_s, u"CVJINOTE~"_s},
    };
    for (const auto &[tab, note] : tabs) {
        const QStringList lines = ask(u"WADISCIS¦¦¦¦%1¦X¦KSD¦%2¦¦"_s.arg(number, tab));
        QVERIFY2(lines.size() > notes + 2, qPrintable(tab));
        for (int i = 0; i < notes; ++i)
            QVERIFY2(lines[i].startsWith(note), qPrintable(lines[i]));
        QVERIFY2(lines[notes].startsWith(u"GRIDDEF~"), qPrintable(lines[notes]));
    }
}

void tst_SpecialCases::districtEmptyHeading()
{
    QStringList lines = askFor(CourtFamily::District, 45, Tab::Summary);
    QCOMPARE(lines.first(6), (QStringList{u"Name~~"_s, u"Sex~~"_s, u"Case Number~~"_s, u"Court~~"_s,
                                          u"Court Type~~"_s, u"Date Filed~~"_s}));
    QVERIFY(lines.size() > 8);
    lines = ask(u"WADISCIS¦¦¦¦%1¦CV¦KSD¦CV¦CIVI¦¦"_s.arg(numberAt(CourtFamily::District, 45)));
    QCOMPARE(lines.first(6), (QStringList{u"Title~~"_s, u"Case Number~~"_s, u"Court~~"_s,
                                          u"Date Filed~~"_s, u"Cause~~"_s, u"Suit Amount~~"_s}));
}

void tst_SpecialCases::districtHeadingOnly()
{
    QCOMPARE(askFor(CourtFamily::District, 46, Tab::Summary).size(), 7);
    const QString civil = u"WADISCIS¦¦¦¦%1¦CV¦KSD¦CV¦CIVI¦¦"_s;
    QCOMPARE(ask(civil.arg(numberAt(CourtFamily::District, 46))).size(), 7);
}

void tst_SpecialCases::severalBankruptciesOfANumber()
{
    const QStringList lines = askFor(CourtFamily::Bankruptcy, 50, Tab::Summary);
    QCOMPARE(lines.size(), 5);
    QCOMPARE(lines.first(), u"MULTIPLE"_s);
    for (const QString &line : lines.mid(1, 3)) {
        const QStringList fields = line.split(u'¦');
        QVERIFY(fields[1].startsWith(u"RETRIEVECOMMAND="));
        const QStringList summary = ask(fields[1].mid(16));
        QVERIFY(summary.first().startsWith(u"TABDEF¦"));
        QVERIFY(summary.contains(QString(u"Case Number~" + fields[0] + u'~')));
        QVERIFY(summary.contains(QString(u"Case Title~" + fields[3] + u'~')));
        QVERIFY(summary.contains(QString(u"Chapter~" + fields[2].section(u' ', 1) + u'~')));
        const QString names = summary.first().section(u'¦', 2, 2).mid(16);
        QCOMPARE(names, u"BKRPT~NAMES~%1~OR~"_s.arg(fields[0]));
        QVERIFY(ask(names).size() > 4);
    }
    QCOMPARE(ask(u"BKRPT~SUMMARY~90-99050-4~OR~"_s).first(), u"ERROR~Illegal case number~"_s);
}

void tst_SpecialCases::theMeaningIsOfOneCourtOnly()
{
    QCOMPARE(ask(u"IDSUP¦SUMMARY,NAMES,DOCKET,¦%1¦Adams¦"_s.arg(numberAt(CourtFamily::Idaho, 14))),
             (QStringList{u"ERROR~Requested case is not on file~"_s, end}));
    QCOMPARE(ask(u"BKRPT~SUMMARY~%1~WAW~"_s.arg(numberAt(CourtFamily::Bankruptcy, 14))),
             (QStringList{u"ERROR~Case not found~"_s, end}));
}

HALVANE_TEST(tst_SpecialCases)
#include "tst_SpecialCases.moc"
