#include "core/Windows1252.h"
#include "practice/CourtTables.h"
#include "practice/PracticeAsk.h"
#include "practice/SuperiorSearch.h"
#include "support/HalvaneTest.h"

#include <QTest>

#include <set>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
const QString end = u"EOF~"_s;

/// The rows that stand in a script.
QStringList rowsOf(const QStringList &script)
{
    QStringList rows;
    for (const QString &step : script) {
        if (step.count(u'~') == 6 && step.endsWith(u'~'))
            rows.append(step);
    }
    return rows;
}
} // namespace

class tst_PracticeAnswers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void logins_data();
    void logins();
    void aFailedLoginLogsOut();
    void exchanges_data();
    void exchanges();
    void beforeTheLogin_data();
    void beforeTheLogin();
    void theGuidesSearch();
    void progressComesFirst();
    void filters_data();
    void filters();
    void rowsPassTheFilters();
    void rowsAreInOrder();
    void archivedCasesAreMarked();
    void aBusinessIsFoundByItsWords();
    void anAccentedNameIsFound();
    void theTagChangesNothing();
    void malformedSearches_data();
    void malformedSearches();
    void specialNames_data();
    void specialNames();
    void noSpecialNameReadsLikeAnotherReply();
    void specialRowsPassTheFilters();
    void manyRows_data();
    void manyRows();
    void slow_data();
    void slow();
    void rubbish_data();
    void rubbish();
};

void tst_PracticeAnswers::logins_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QStringList>("script");
    QTest::addColumn<bool>("accepted");

    const QStringList fine{end};
    const QStringList refused{u"ERROR~Invalid User Name and/or PW~"_s, end};
    QTest::newRow("anybody") << u"ann¦pw¦AppVer-9.00¦"_s << fine << true;
    QTest::newRow("no version") << u"ann¦pw¦¦"_s << fine << true;
    QTest::newRow("nobody") << u"nobody¦pw¦v¦"_s << refused << false;
    QTest::newRow("Nobody") << u" Nobody ¦pw¦v¦"_s << refused << false;
    QTest::newRow("a wrong password") << u"ann¦wrong¦v¦"_s << refused << false;
    QTest::newRow("a WRONG password") << u"ann¦WRONG¦v¦"_s << refused << false;
    QTest::newRow("no name") << u"¦pw¦v¦"_s << refused << false;
    QTest::newRow("a blank name") << u"  ¦pw¦v¦"_s << refused << false;
    QTest::newRow("no password") << u"ann¦¦v¦"_s << refused << false;
    QTest::newRow("no end mark") << u"noend¦pw¦v¦"_s << QStringList{refused.first(), u"<silence>"_s}
                                 << false;
    QTest::newRow("silent") << u"silent¦pw¦v¦"_s << QStringList{u"<silence>"_s} << false;
    QTest::newRow("silent, but wrong") << u"silent¦wrong¦v¦"_s << refused << false;
    QTest::newRow("dropped") << u"droplink¦pw¦v¦"_s << QStringList{u"<drop>"_s} << false;
    QTest::newRow("accounting") << u"acctg¦pw¦v¦"_s << fine << true;
    QTest::newRow("mail") << u"mail¦pw¦v¦"_s << fine << true;
    QTest::newRow("quiet") << u"quiet¦pw¦v¦"_s << fine << true;
    QTest::newRow("too few fields")
        << u"ann¦pw¦"_s << QStringList{u"ERROR~Unknown request~"_s, end} << false;
}

void tst_PracticeAnswers::logins()
{
    QFETCH(QString, fields);
    QFETCH(QStringList, script);
    QFETCH(bool, accepted);

    Conversation conversation(People(), someDay);
    QCOMPARE(Ask(conversation, u"LOGON¦"_s + fields), script);
    const QStringList refused{u"ERROR~Not logged in~"_s, end};
    QCOMPARE(Ask(conversation, u"OREGON¦SEARCH¦"_s) == refused, !accepted);
}

void tst_PracticeAnswers::aFailedLoginLogsOut()
{
    Conversation conversation = LoggedIn();
    Ask(conversation, u"LOGON¦nobody¦pw¦v¦"_s);
    QCOMPARE(Ask(conversation, u"OREGON¦SEARCH¦"_s), (QStringList{u"ERROR~Not logged in~"_s, end}));
}

void tst_PracticeAnswers::exchanges_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QStringList>("script");

    const QString welcome = u"Welcome to the practice court. The people and cases here are made "
                            "up. To begin, search for SMITH, JOHN Q in King county."_s;
    const QStringList unknown{u"ERROR~Unknown request~"_s, end};
    const QStringList none{u"No messages found."_s, end};
    const QStringList refused{u"ERROR~Invalid User Name and/or PW~"_s, end};
    QTest::newRow("parameters") << u"ann"_s << u"GETINIVAL¦"_s
                                << QStringList{u"Searching=MaxIndexResults=500"_s, u"EOS~"_s, end};
    QTest::newRow("no parameters") << u"quiet"_s << u"GETINIVAL¦"_s << QStringList{end};
    QTest::newRow("broadcast") << u"ann"_s << u"GETMSG¦"_s << QStringList{welcome, end};
    QTest::newRow("no broadcast") << u"quiet"_s << u"GETMSG¦"_s << QStringList{end};
    QTest::newRow("private message") << u"ann"_s << u"GET_PRIV_MSG¦mail¦pw¦v¦"_s
                                     << QStringList{u"Your practice invoice is ready: 0 searches, "
                                                    "nothing to pay."_s,
                                                    end};
    QTest::newRow("no private message") << u"mail"_s << u"GET_PRIV_MSG¦ann¦pw¦v¦"_s << none;
    QTest::newRow("private, refused") << u"ann"_s << u"GET_PRIV_MSG¦nobody¦pw¦v¦"_s << refused;
    QTest::newRow("private, wrong") << u"ann"_s << u"GET_PRIV_MSG¦mail¦wrong¦v¦"_s << refused;
    QTest::newRow("private, no end") << u"ann"_s << u"GET_PRIV_MSG¦noend¦pw¦v¦"_s << refused;
    QTest::newRow("private, silent") << u"ann"_s << u"GET_PRIV_MSG¦silent¦pw¦v¦"_s << none;
    QTest::newRow("court status") << u"ann"_s << u"COURT_STATUS¦"_s
                                  << QStringList{u"All practice courts are available."_s, end};
    QTest::newRow("accounting") << u"acctg"_s << u"GETCLIENTACCTGOPT~"_s
                                << QStringList{u"TRUE~"_s, end};
    QTest::newRow("no accounting")
        << u"ann"_s << u"GETCLIENTACCTGOPT~"_s << QStringList{u"FALSE~"_s, end};
    QTest::newRow("accounting by the wrong delimiter")
        << u"acctg"_s << u"GETCLIENTACCTGOPT¦"_s << unknown;
    QTest::newRow("a stop that finds nothing running") << u"ann"_s << u"STOP¦"_s << unknown;
    QTest::newRow("unknown") << u"ann"_s << u"RUBBISH¦"_s << unknown;
    QTest::newRow("lower case") << u"ann"_s << u"getmsg¦"_s << unknown;
    QTest::newRow("no delimiter") << u"ann"_s << u"GETMSG"_s << unknown;
    QTest::newRow("wrong delimiter") << u"ann"_s << u"GETMSG~"_s << unknown;
    QTest::newRow("too many fields") << u"ann"_s << u"GETMSG¦x¦"_s << unknown;
    QTest::newRow("superior courts by tildes")
        << u"ann"_s << u"WASUP~SEARCH~SMITH~~~~King,~~~~"_s << unknown;
    QTest::newRow("index by broken bars") << u"ann"_s << u"INDEX¦SEARCH¦"_s << unknown;
    const auto unknownRow = [&](const char *name, const QString &request) {
        QTest::newRow(name) << u"ann"_s << request << unknown;
    };
    unknownRow("nothing of the superior courts", u"WASUP¦"_s);
    unknownRow("a tab that the superior courts have not", u"WASUP¦FINANCE¦94-1-00042-1¦King¦¦"_s);
    unknownRow("a tab of too many fields", u"WASUP¦NAMES¦94-1-00042-1¦King¦¦¦"_s);
    unknownRow("documents in the order of the other tabs", u"WASUPDOC¦GETDOC¦King¦94-1-00042-1¦"_s);
    unknownRow("a tab that Idaho has not", u"IDSUP¦SENTENCES,¦CR-1998-0002546-IN¦Ada¦"_s);
    unknownRow("a sentence of Oregon in the singular", u"OREGON@SENTENCE,@CV08060677@MCR C@"_s);
    unknownRow("the superior courts by the sign of Oregon", u"WASUP@SUMMARY@94-1-00042-1@King@@"_s);
    unknownRow("a district tab of no side", u"WADISCIS¦¦¦¦5KS000123¦SC¦KSD¦CV¦NAMES¦¦"_s);
    unknownRow("a bankruptcy tab that there is not", u"BKRPT~CLAIMS~99-20077~OR~"_s);
    unknownRow("cases of the index", u"INDEX~SUMMARY~94-1-00042-1~"_s);
    unknownRow("nothing of Oregon", u"OREGON¦"_s);
    unknownRow("nothing of the bankruptcy courts", u"BKRPT~"_s);
    const QStringList nobody{u"ERROR~Nobody was listed so~"_s, end};
    QTest::newRow("cases of a person of no list, statewide")
        << u"ann"_s << u"WADISCIS¦SEARCH¦SMITH¦SMITH, JOHN¦M¦¦¦¦¦¦¦1¦SNCINMD¦"_s << nobody;
    QTest::newRow("cases of a person of no list with addresses")
        << u"ann"_s << u"WADISCIS¦SEARCH¦SMITH¦SMITH, JOHN¦M¦¦1¦2¦DNDND¦"_s << nobody;
}

void tst_PracticeAnswers::exchanges()
{
    QFETCH(QString, user);
    QFETCH(QString, request);
    QFETCH(QStringList, script);

    Conversation conversation = LoggedIn(user);
    QCOMPARE(Ask(conversation, request), script);
}

void tst_PracticeAnswers::beforeTheLogin_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("first");

    const QString refused = u"ERROR~Not logged in~"_s;
    QTest::newRow("superior courts")
        << u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"_s << refused;
    QTest::newRow("Oregon") << u"OREGON¦SEARCH¦"_s << refused;
    QTest::newRow("Idaho") << u"IDSUP¦SEARCH¦"_s << refused;
    QTest::newRow("district courts") << u"WADISCIS¦SEARCH¦"_s << refused;
    QTest::newRow("index") << u"INDEX~SEARCH~"_s << refused;
    QTest::newRow("bankruptcy") << u"BKRPT~SEARCH~"_s << refused;
    QTest::newRow("accounting") << u"GETCLIENTACCTGOPT~"_s << u"FALSE~"_s;
    QTest::newRow("private messages") << u"GET_PRIV_MSG¦ann¦pw¦v¦"_s << u"No messages found."_s;
    QTest::newRow("court status") << u"COURT_STATUS¦"_s << u"All practice courts are available."_s;
}

void tst_PracticeAnswers::beforeTheLogin()
{
    QFETCH(QString, request);
    QFETCH(QString, first);

    Conversation conversation(People(), someDay);
    QCOMPARE(Ask(conversation, request), (QStringList{first, end}));
}

void tst_PracticeAnswers::theGuidesSearch()
{
    Conversation conversation = LoggedIn();
    QCOMPARE(Ask(conversation, u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,Criminal,¦¦¦"_s),
             (QStringList{
                 u"SEARCHING~King~County~Superior~Court~.."_s,
                 u"SEARCHING~the~index~of~names~.."_s,
                 u"SEARCHING~the~index~of~cases~.."_s,
                 u"SMITH, JOHN Q~94-1-00042-1~11/07/1994~Malicious Mischief~"
                 "WA Superior Ct King County~Defendant~"_s,
                 u"SMITH, JOHN Q~98-2-00017-7~03/16/1998~Tort - Motor Vehicle~"
                 "WA Superior Ct King County~Plaintiff~"_s,
                 end,
             }));
}

void tst_PracticeAnswers::progressComesFirst()
{
    Conversation conversation = LoggedIn();
    const QStringList script = Ask(conversation, u"WASUP¦SEARCH¦ACME¦¦¦¦Walla Walla,Pierce,¦¦¦¦"_s);
    QCOMPARE(script[0], u"SEARCHING~Walla~Walla~County~Superior~Court~.."_s);
    QCOMPARE(script[1], u"SEARCHING~Pierce~County~Superior~Court~.."_s);
    qsizetype progress = 0;
    while (script[progress].startsWith(u"SEARCHING"_s)) {
        QVERIFY(script[progress].size() >= 10);
        ++progress;
    }
    QCOMPARE(progress, 4);
    QCOMPARE(WithoutProgress(script).size(), script.size() - progress);
}

void tst_PracticeAnswers::filters_data()
{
    QTest::addColumn<QString>("tail"); // counties, types, years
    QTest::addColumn<QStringList>("numbers");

    const QString criminal = u"94-1-00042-1"_s;
    const QString civil = u"98-2-00017-7"_s;
    const QString domestic = u"01-3-00008-9"_s;
    const QString collection = u"05-2-00031-8"_s;
    const QString judgment = u"*96-9-00005-9"_s;
    QTest::newRow("a county") << u"King,¦¦¦¦"_s << QStringList{criminal, civil, domestic};
    QTest::newRow("a county without its comma")
        << u"King¦¦¦¦"_s << QStringList{criminal, civil, domestic};
    QTest::newRow("a county in capitals")
        << u"KING,¦¦¦¦"_s << QStringList{criminal, civil, domestic};
    QTest::newRow("two counties") << u"King,Pierce,¦¦¦¦"_s
                                  << QStringList{criminal, civil, domestic, collection};
    QTest::newRow("a county without him") << u"Garfield,¦¦¦¦"_s << QStringList{};
    QTest::newRow("a county of another state") << u"Baker,¦¦¦¦"_s << QStringList{};
    QTest::newRow("no county") << u"¦¦¦¦"_s << QStringList{};
    QTest::newRow("one type") << u"King,¦Domestic,¦¦¦"_s << QStringList{domestic};
    QTest::newRow("all types by name")
        << u"King,¦Civil,Criminal,Domestic,Judgment,Juvenile Offender,Probate,¦¦¦"_s
        << QStringList{criminal, civil, domestic};
    QTest::newRow("a type he has none of") << u"King,¦Juvenile Offender,¦¦¦"_s << QStringList{};
    QTest::newRow("an unknown type") << u"King,¦Sealed,¦¦¦"_s << QStringList{};
    QTest::newRow("an archived case") << u"Adams,¦Judgment,¦¦¦"_s << QStringList{judgment};
    QTest::newRow("years") << u"King,¦¦1995¦2000¦"_s << QStringList{civil};
    QTest::newRow("years at their bounds")
        << u"King,¦¦1994¦1998¦"_s << QStringList{criminal, civil};
    QTest::newRow("from a year") << u"King,¦¦1998¦¦"_s << QStringList{civil, domestic};
    QTest::newRow("to a year") << u"King,¦¦¦1998¦"_s << QStringList{criminal, civil};
    QTest::newRow("years the wrong way round") << u"King,¦¦2000¦1995¦"_s << QStringList{};
    QTest::newRow("a year of none") << u"King,¦¦1999¦1999¦"_s << QStringList{};
}

void tst_PracticeAnswers::filters()
{
    QFETCH(QString, tail);
    QFETCH(QStringList, numbers);

    QStringList found;
    const QStringList script = Search(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦"_s + tail);
    QCOMPARE(script.last(), end);
    for (const QString &row : rowsOf(script))
        found.append(row.split(u'~')[1]);
    QCOMPARE(found, numbers);
    QCOMPARE(script.size(), numbers.size() + 1);
}

void tst_PracticeAnswers::rowsPassTheFilters()
{
    const QStringList script = Search(u"WASUP¦SEARCH¦SMITH¦J¦¦¦King,¦Civil,¦1990¦2009¦"_s);
    QVERIFY(script.size() > 10);
    for (const QString &row : rowsOf(script)) {
        const QStringList fields = row.split(u'~');
        QVERIFY2(fields[0].startsWith(u"SMITH, J"_s), qPrintable(row));
        QVERIFY2(fields[1].section(u'-', 1, 1) == u"2", qPrintable(row));
        const QDate filed = QDate::fromString(fields[2], u"MM/dd/yyyy"_s);
        QVERIFY2(filed.year() >= 1990 && filed.year() <= 2009, qPrintable(row));
        QCOMPARE(fields[4], u"WA Superior Ct King County"_s);
        QVERIFY(ParseCaseNumber(17, row.split(u'~')[1]).has_value());
    }
    QCOMPARE(rowsOf(script).size(), script.size() - 1);
}

void tst_PracticeAnswers::rowsAreInOrder()
{
    const QStringList rows = rowsOf(Search(u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦¦¦"_s, 5'000));
    QVERIFY(rows.size() > 200);
    const auto key = [](const QString &row) {
        const QStringList fields = row.split(u'~');
        return std::make_pair(fields[0], QDate::fromString(fields[2], u"MM/dd/yyyy"_s));
    };
    for (qsizetype i = 1; i < rows.size(); ++i)
        QVERIFY2(key(rows[i - 1]) <= key(rows[i]), qPrintable(rows[i]));
}

void tst_PracticeAnswers::archivedCasesAreMarked()
{
    QCOMPARE(Search(u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦Adams,¦¦¦¦"_s),
             (QStringList{u"SMITH, JOHN Q~*96-9-00005-9~02/14/1996~Abstract of Judgment~"
                          "WA Superior Ct Adams County~Judgment Debtor~"_s,
                          end}));
}

void tst_PracticeAnswers::aBusinessIsFoundByItsWords()
{
    const QString row = u"ACME PLUMBING INC~98-2-00017-7~03/16/1998~Tort - Motor Vehicle~"
                        "WA Superior Ct King County~Defendant~"_s;
    for (const QString &name : {u"ACME PLUMBING INC"_s, u"acme"_s, u"PLUMBING ACME"_s})
        QCOMPARE(Search(u"WASUP¦SEARCH¦%1¦¦¦¦King,¦¦¦¦"_s.arg(name)), (QStringList{row, end}));
    QCOMPARE(Search(u"WASUP¦SEARCH¦ACME¦JOHN¦¦¦King,¦¦¦¦"_s), QStringList{end});
}

void tst_PracticeAnswers::anAccentedNameIsFound()
{
    const QStringList rows = rowsOf(Search(u"WASUP¦SEARCH¦muñoz¦¦¦¦King,Pierce,¦¦¦¦"_s));
    QVERIFY(!rows.isEmpty());
    QVERIFY(rows.first().startsWith(u"MUÑOZ, "_s));
}

void tst_PracticeAnswers::theTagChangesNothing()
{
    const QString bare = u"WASUP¦SEARCH¦SMITH¦JOHN¦Q¦¦King,¦Civil,¦¦%1¦"_s;
    const QStringList script = Search(bare.arg(QString()));
    QCOMPARE(rowsOf(script).size(), 1);
    QCOMPARE(Search(bare.arg(u"^^CAC:ABC^^"_s)), script);
    QCOMPARE(Search(bare.arg(u"^^CAC:^^"_s)), script);
}

void tst_PracticeAnswers::malformedSearches_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("error");

    const QString fields = u"ERROR~Wrong number of fields~"_s;
    QTest::newRow("too few") << u"WASUP¦SEARCH¦SMITH¦"_s << fields;
    QTest::newRow("one too few") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦¦"_s << fields;
    QTest::newRow("one too many") << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦¦¦¦"_s << fields;
    QTest::newRow("no name") << u"WASUP¦SEARCH¦ ¦¦¦¦King,¦¦¦¦"_s << u"ERROR~No name~"_s;
    QTest::newRow("a word for a year")
        << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦x¦1999¦"_s << u"ERROR~Not a year~"_s;
    QTest::newRow("a word for the other")
        << u"WASUP¦SEARCH¦SMITH¦¦¦¦King,¦¦1999¦x¦"_s << u"ERROR~Not a year~"_s;
}

void tst_PracticeAnswers::malformedSearches()
{
    QFETCH(QString, request);
    QFETCH(QString, error);
    QCOMPARE(Search(request), (QStringList{error, end}));
}

void tst_PracticeAnswers::specialNames_data()
{
    QTest::addColumn<QString>("name");  // LAST¦FIRST
    QTest::addColumn<QString>("shape"); // r: a row, else the step itself

    const QString rows5 = u"r r r r r "_s;
    const QString rows25 = rows5.repeated(5);
    QTest::newRow("TOOMANY") << u"TOOMANY¦"_s << QString(rows25 + u"ERROR~Too many hits~ EOF~");
    QTest::newRow("OVER200") << u"OVER200¦"_s
                             << QString(rows25.repeated(8)
                                        + u"This search resulted in more than 200 results. EOF~");
    QTest::newRow("OVER200 NONE") << u"OVER200¦NONE"_s
                                  << u"This search resulted in more than 200 results. EOF~"_s;
    QTest::newRow("BADROW") << u"BADROW¦"_s
                            << u"r r r ERROR~A court record could not be read~ r r r EOF~"_s;
    QTest::newRow("THEREOF") << u"THEREOF¦"_s << u"r r t r r EOF~"_s;
    QTest::newRow("STALL") << u"STALL¦"_s << QString(rows5 + u"<silence>");
    QTest::newRow("DROPLINK") << u"DROPLINK¦"_s << QString(rows5 + u"<drop>");
    QTest::newRow("EMPTY") << u"EMPTY¦"_s << u"EOF~"_s;
    QTest::newRow("MANY 5") << u"MANY¦5"_s << QString(rows5 + u"EOF~");
    QTest::newRow("SLOW 2") << u"SLOW¦2"_s << u"<pause 1000> <pause 1000> r r r EOF~"_s;
    QTest::newRow("lower case") << u"empty¦"_s << u"EOF~"_s;
}

void tst_PracticeAnswers::specialNames()
{
    QFETCH(QString, name);
    QFETCH(QString, shape);

    const QString request = u"WASUP¦SEARCH¦%1¦¦¦King,¦Civil,Criminal,¦¦¦"_s.arg(name);
    QStringList found;
    for (const QString &step : Search(request)) {
        const bool row = step.count(u'~') == 6;
        if (row)
            QVERIFY2(step.startsWith(name.section(u'¦', 0, 0) + u", "), qPrintable(step));
        found.append(!row ? step : step.endsWith(u"~Heirs THEREOF~"_s) ? u"t"_s : u"r"_s);
    }
    QCOMPARE(found.join(u' '), shape);
}

void tst_PracticeAnswers::noSpecialNameReadsLikeAnotherReply()
{
    // A row begins with the name, and is a row only if that means nothing else.
    for (const Practice::SpecialName &special : Practice::specialNames) {
        const QStringView name(special.name);
        for (const QStringView word : {u"ERROR", u"WARNING", u"SEARCHING", u"EOF"})
            QVERIFY2(!name.startsWith(word), qPrintable(name.toString()));
    }
}

void tst_PracticeAnswers::specialRowsPassTheFilters()
{
    const QStringList rows =
        rowsOf(Search(u"WASUP¦SEARCH¦MANY¦300¦¦¦Pierce,¦Criminal,Probate,¦1990¦1992¦"_s));
    QCOMPARE(rows.size(), 300);
    std::set<QString> numbers;
    for (const QString &row : rows) {
        const QStringList fields = row.split(u'~');
        const std::optional<CaseNumber> number = ParseCaseNumber(27, fields[1]);
        QVERIFY2(number.has_value(), qPrintable(row));
        QVERIFY(number->type == 1 || number->type == 4);
        QVERIFY(number->year >= 1990 && number->year <= 1992);
        QCOMPARE(QDate::fromString(fields[2], u"MM/dd/yyyy"_s).year(), number->year);
        QCOMPARE(fields[4], u"WA Superior Ct Pierce County"_s);
        numbers.insert(fields[1]);
    }
    QCOMPARE(numbers.size(), std::size_t{300});

    for (const QString &tail :
         {u"Baker,¦¦¦¦"_s, u"King,¦Sealed,¦¦¦"_s, u"King,¦¦2001¦2000¦"_s, u"King,¦¦2030¦2040¦"_s}) {
        for (const QString &name : {u"MANY"_s, u"THEREOF"_s, u"SLOW"_s})
            QCOMPARE(rowsOf(Search(u"WASUP¦SEARCH¦%1¦0¦¦¦"_s.arg(name) + tail)).size(), 0);
    }
}

void tst_PracticeAnswers::manyRows_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<qsizetype>("count");

    QTest::newRow("no number") << QString() << qsizetype{10'000};
    QTest::newRow("a name") << u"JOHN"_s << qsizetype{10'000};
    QTest::newRow("none") << u"0"_s << qsizetype{0};
    QTest::newRow("one") << u"1"_s << qsizetype{1};
    QTest::newRow("the most") << u"200000"_s << qsizetype{200'000};
    QTest::newRow("more than that") << u"200001"_s << qsizetype{200'000};
    QTest::newRow("less than none") << u"-1"_s << qsizetype{10'000};
}

void tst_PracticeAnswers::manyRows()
{
    QFETCH(QString, first);
    QFETCH(qsizetype, count);

    const QStringList script =
        Search(u"WASUP¦SEARCH¦MANY¦%1¦¦¦King,¦Civil,¦¦¦"_s.arg(first), 300'000);
    QCOMPARE(script.size(), count + 1);
    QCOMPARE(script.last(), end);
    QCOMPARE(std::set<QString>(script.begin(), script.end()).size(),
             static_cast<std::size_t>(count + 1));
}

void tst_PracticeAnswers::slow_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("seconds");

    QTest::newRow("half a minute") << QString() << 30;
    QTest::newRow("so many seconds") << u"3"_s << 3;
    QTest::newRow("at once") << u"0"_s << 0;
    QTest::newRow("an hour at most") << u"99999"_s << 3'600;
}

void tst_PracticeAnswers::slow()
{
    QFETCH(QString, first);
    QFETCH(int, seconds);

    Conversation conversation = LoggedIn();
    const QStringList script =
        Ask(conversation, u"WASUP¦SEARCH¦SLOW¦%1¦¦¦King,¦Civil,¦¦¦"_s.arg(first), 10'000);
    QCOMPARE(script.count(u"<pause 1000>"_s), seconds);
    QCOMPARE(rowsOf(WithoutProgress(script)).size(), 3);
    for (int second = 1; second <= seconds; ++second) {
        // Three lines of progress stand before it all.
        QCOMPARE(script[1 + second * 2],
                 u"SEARCHING~King~County~Superior~Court~%1~of~%2~.."_s.arg(second).arg(seconds));
        QCOMPARE(script[2 + second * 2], u"<pause 1000>"_s);
    }
}

void tst_PracticeAnswers::rubbish_data()
{
    QTest::addColumn<QByteArray>("request");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("NULs") << QByteArray(100, '\0');
    QTest::newRow("NULs and a delimiter") << QByteArray(100, '\0') + '\xA6';
    QTest::newRow("a thousand fields") << "LOGON\xA6" + QByteArray("x\xA6").repeated(1'000);
    QTest::newRow("half a million fields") << QByteArray("\xA6").repeated(500'000);
    QTest::newRow("every byte") << [] {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes.append(static_cast<char>(byte));
        return bytes;
    }();
    QTest::newRow("a megabyte") << QByteArray(1'000'000, '\xFF');
    QTest::newRow("only a tag") << QByteArray("^^CAC:^^\xA6");
}

void tst_PracticeAnswers::rubbish()
{
    QFETCH(QByteArray, request);
    Conversation conversation = LoggedIn();
    QCOMPARE(ScriptOf(conversation.Answer(request)),
             (QStringList{u"ERROR~Unknown request~"_s, end}));
}

HALVANE_TEST(tst_PracticeAnswers)
#include "tst_PracticeAnswers.moc"
