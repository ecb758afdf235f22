#include "practice/ExtraPeople.h"
#include "support/HalvaneTest.h"

#include <QBuffer>
#include <QTest>

using namespace Practice;
using namespace Qt::StringLiterals;

namespace {
ExtraPeopleOutcome add(Population &population, const QByteArray &text)
{
    QByteArray copy = text;
    QBuffer lines(&copy);
    lines.open(QIODevice::ReadOnly);
    return AddExtraPeople(population, lines);
}

/// Each case with its parties, as text.
QStringList tell(const Population &population)
{
    QStringList texts;
    for (const Part &part : population.Parts()) {
        const CourtCase &courtCase = population.Cases()[part.courtCase];
        texts.append(
            u"%1|%2|%3%4|%5|%6|%7"_s.arg(NameText(population.People()[part.person]))
                .arg(courtCase.number.county)
                .arg(courtCase.archived ? u"*"_s : QString(), CaseNumberText(courtCase.number),
                     courtCase.filed.toString(Qt::ISODate), courtCase.description, part.role));
    }
    return texts;
}
} // namespace

class tst_PracticeData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodLines_data();
    void goodLines();
    void badLines_data();
    void badLines();
    void badLinesAreSkippedAndNumbered();
    void oneNameIsOnePerson();
    void oneNumberIsOneCase();
    void numbersAreGivenOut();
    void lineEndsAndMarks();
};

void tst_PracticeData::goodLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("expected");

    QTest::newRow("all fields, by tabs")
        << QByteArray("Doe\tJane\tX\tKing\tCivil\t02/03/1994\tQuiet Title\tPlaintiff\t94-2-00007-7")
        << u"DOE, JANE X|17|94-2-00007-7|1994-02-03|Quiet Title|Plaintiff"_s;
    QTest::newRow("all fields, by tildes")
        << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~Quiet Title~Plaintiff~94-2-00007-7~")
        << u"DOE, JANE X|17|94-2-00007-7|1994-02-03|Quiet Title|Plaintiff"_s;
    QTest::newRow("the least")
        << QByteArray("Doe~Jane~~King~Civil~02/03/1994")
        << u"DOE, JANE|17|94-2-90000-1|1994-02-03|Tort - Motor Vehicle|Plaintiff"_s;
    QTest::newRow("a business")
        << QByteArray("Doe Diner LLC~~~walla walla~9~1999-12-31")
        << u"DOE DINER LLC|36|99-9-90000-1|1999-12-31|Abstract of Judgment|Judgment Debtor"_s;
    QTest::newRow("archived, with a number")
        << QByteArray("Doe~Jane~~King~2~02/03/1994~~~*942000077")
        << u"DOE, JANE|17|*94-2-00007-7|1994-02-03|Tort - Motor Vehicle|Plaintiff"_s;
    QTest::newRow("archived, without one")
        << QByteArray("Doe~Jane~~King~Civil~02/03/1994~~~*")
        << u"DOE, JANE|17|*94-2-90000-1|1994-02-03|Tort - Motor Vehicle|Plaintiff"_s;
    QTest::newRow("blanks and accents")
        << QByteArray("  Mu\xC3\xB1oz  ~ Ana  Maria ~ ~ King ~ civil ~ 02/03/1994 ")
        << u"MUÑOZ, ANA MARIA|17|94-2-90000-1|1994-02-03|Tort - Motor Vehicle|Plaintiff"_s;
    QTest::newRow("a role that ends in THEREOF")
        << QByteArray("Doe~Jane~~King~Probate~02/03/1994~Estate~Heirs thereof")
        << u"DOE, JANE|17|94-4-90000-8|1994-02-03|Estate|Heirs thereof"_s;
}

void tst_PracticeData::goodLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, expected);

    Population population;
    const ExtraPeopleOutcome outcome = add(population, line);
    QCOMPARE(outcome.complaints, QStringList());
    QCOMPARE(outcome.added, 1);
    QCOMPARE(tell(population), QStringList{expected});
}

void tst_PracticeData::badLines_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("too few") << QByteArray("Doe~Jane~X~King~Civil")
                             << u"5 fields, where 6 to 9 are needed"_s;
    QTest::newRow("too many") << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~d~r~~x")
                              << u"10 fields, where 6 to 9 are needed"_s;
    QTest::newRow("no name") << QByteArray("~Jane~X~King~Civil~02/03/1994")
                             << u"the last or business name is missing"_s;
    QTest::newRow("no such county")
        << QByteArray("Doe~Jane~X~Baker~Civil~02/03/1994") << u"there is no county \"Baker\""_s;
    QTest::newRow("no such type") << QByteArray("Doe~Jane~X~King~Sealed~02/03/1994")
                                  << u"there is no case type \"Sealed\""_s;
    QTest::newRow("no such digit")
        << QByteArray("Doe~Jane~X~King~5~02/03/1994") << u"there is no case type \"5\""_s;
    QTest::newRow("no such day") << QByteArray("Doe~Jane~X~King~Civil~02/30/1994")
                                 << u"\"02/30/1994\" is no date from 1970 on, as MM/DD/YYYY"_s;
    QTest::newRow("too early") << QByteArray("Doe~Jane~X~King~Civil~12/31/1969")
                               << u"\"12/31/1969\" is no date from 1970 on, as MM/DD/YYYY"_s;
    QTest::newRow("too late") << QByteArray("Doe~Jane~X~King~Civil~01/01/2070")
                              << u"\"01/01/2070\" is no date from 1970 on, as MM/DD/YYYY"_s;
    QTest::newRow("a bar") << QByteArray("Do|e~Jane~X~King~Civil~02/03/1994")
                           << u"a field must not hold \"|\", \"¦\" or \"~\""_s;
    QTest::newRow("a broken bar") << QByteArray("Do\xC2\xA6~J~X~King~Civil~02/03/1994")
                                  << u"a field must not hold \"|\", \"¦\" or \"~\""_s;
    QTest::newRow("a tilde between tabs") << QByteArray("Do~e\tJane\tX\tKing\tCivil\t02/03/1994")
                                          << u"a field must not hold \"|\", \"¦\" or \"~\""_s;
    QTest::newRow("a NUL") << QByteArray("Do\0e~Jane~X~King~Civil~02/03/1994", 34)
                           << u"a field must not hold control characters"_s;
    QTest::newRow("outside the code page")
        << QByteArray("\xD0\x98\xD0\xB2~Jane~X~King~Civil~02/03/1994")
        << u"a character is not in Windows-1252"_s;
    QTest::newRow("not UTF-8") << QByteArray("Mu\xF1oz~Jane~X~King~Civil~02/03/1994")
                               << u"not UTF-8"_s;
    QTest::newRow("the ping") << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~diag001")
                              << u"a field must not hold \"DIAG001\""_s;
    QTest::newRow("like an error") << QByteArray("Errorson~Jane~X~King~Civil~02/03/1994")
                                   << u"a name must not begin with ERROR"_s;
    QTest::newRow("like progress") << QByteArray("Searching~Jane~X~King~Civil~02/03/1994")
                                   << u"a name must not begin with SEARCHING"_s;
    QTest::newRow("like a warning") << QByteArray("Warning~Jane~X~King~Civil~02/03/1994")
                                    << u"a name must not begin with WARNING"_s;
    QTest::newRow("like the end") << QByteArray("Eof~Jane~X~King~Civil~02/03/1994")
                                  << u"a name must not begin with EOF"_s;
    QTest::newRow("a name with a meaning") << QByteArray("Many~Jane~X~King~Civil~02/03/1994")
                                           << u"the name MANY has a meaning of its own"_s;
    QTest::newRow("a role that ends a reply")
        << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~~Chief of")
        << QString(); // "OF" alone does not: control row
    QTest::newRow("a role that ends in EOF")
        << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~~Geof") << u"a role must not end in EOF"_s;
    QTest::newRow("a number with a wrong digit")
        << QByteArray("Doe~Jane~X~King~Civil~02/03/1994~~~94-2-00007-2")
        << u"the case number is not YY-T-NNNNN-C with the check digit of its county"_s;
    QTest::newRow("a number of another year")
        << QByteArray("Doe~Jane~X~King~Civil~02/03/1995~~~94-2-00007-7")
        << u"the case number does not agree with the type and the date"_s;
    QTest::newRow("a number of another type")
        << QByteArray("Doe~Jane~X~King~Criminal~02/03/1994~~~94-2-00007-7")
        << u"the case number does not agree with the type and the date"_s;
    QTest::newRow("very long") << QByteArray(4'097, 'x') << u"longer than 4096 bytes"_s;
}

void tst_PracticeData::badLines()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, complaint);

    Population population;
    const ExtraPeopleOutcome outcome = add(population, line);
    if (complaint.isEmpty()) {
        QCOMPARE(outcome.complaints, QStringList());
        return;
    }
    QCOMPARE(outcome.complaints, QStringList{u"line 1: "_s + complaint});
    QCOMPARE(outcome.added, 0);
    QVERIFY(population.People().empty());
    QVERIFY(population.Cases().empty());
}

void tst_PracticeData::badLinesAreSkippedAndNumbered()
{
    Population population;
    const ExtraPeopleOutcome outcome = add(population, "# people of ours\n"
                                                       "\n"
                                                       "Doe~Jane~X~King~Civil~02/03/1994\n"
                                                       "rubbish\n"
                                                           + QByteArray(20'000, 'y')
                                                           + "\n"
                                                             "Roe~Rick~~King~Civil~02/03/1994\n"
                                                             "more rubbish");
    QCOMPARE(outcome.added, 2);
    QCOMPARE(outcome.complaints, (QStringList{u"line 4: 1 fields, where 6 to 9 are needed"_s,
                                              u"line 5: longer than 4096 bytes"_s,
                                              u"line 7: 1 fields, where 6 to 9 are needed"_s}));
}

void tst_PracticeData::oneNameIsOnePerson()
{
    Population population;
    add(population, "Doe~Jane~X~King~Civil~02/03/1994\n"
                    "DOE~JANE~X~Pierce~Criminal~02/03/1999\n"
                    "Doe~Jane~Y~King~Civil~02/03/1994\n");
    QCOMPARE(population.People().size(), std::size_t{2});
    QCOMPARE(population.PartsOf(0).size(), std::size_t{2});
    QCOMPARE(population.Cases().size(), std::size_t{3});
}

void tst_PracticeData::oneNumberIsOneCase()
{
    Population population;
    add(population, "Doe~Jane~X~King~Civil~02/03/1994~Quiet Title~Plaintiff~94-2-00007-7\n"
                    "Roe~Rick~~King~Civil~02/03/1994~Quiet Title~Defendant~94-2-00007-7\n");
    QCOMPARE(population.People().size(), std::size_t{2});
    QCOMPARE(population.Cases().size(), std::size_t{1});
    QCOMPARE(population.Parts().size(), std::size_t{2});
}

void tst_PracticeData::numbersAreGivenOut()
{
    Population population;
    add(population, "Doe~Jane~X~King~Civil~02/03/1994\n"
                    "Roe~Rick~~King~Civil~02/04/1994\n"
                    "Poe~Pat~~Pierce~Civil~02/04/1994\n");
    QCOMPARE(population.Cases()[0].number.serial, 90'000);
    QCOMPARE(population.Cases()[1].number.serial, 90'001);
    QCOMPARE(population.Cases()[2].number.serial, 90'000);
}

void tst_PracticeData::lineEndsAndMarks()
{
    Population population;
    const ExtraPeopleOutcome outcome =
        add(population, "\xEF\xBB\xBF"
                        "Doe~Jane~X~King~Civil~02/03/1994\r\n"
                        "   # not this one\r\n"
                        "Roe\tRick\t\tKing\tCivil\t02/04/1994\t\t\t\r\n");
    QCOMPARE(outcome.complaints, QStringList());
    QCOMPARE(outcome.added, 2);
    QCOMPARE(NameText(population.People()[0]), u"DOE, JANE X"_s);
    QCOMPARE(population.Parts()[1].role, u"Plaintiff"_s);
}

HALVANE_TEST(tst_PracticeData)
#include "tst_PracticeData.moc"
