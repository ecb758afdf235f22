#include "namesearch/DuplicateNames.h"

#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Rows of people as the list has them, and the requests that are made of them.
class tst_DuplicateNames : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rows_data();
    void rows();
    void unknown_data();
    void unknown();
    void unknownInAnAddressRowStays();
    void marks_data();
    void marks();
    void requests_data();
    void requests();
};

void tst_DuplicateNames::rows_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("cells"); // with bars between them
    QTest::addColumn<QString>("key");   // with two rows in the list before it
    QTest::addColumn<bool>("complete");

    QTest::newRow("NCNMD") << u"NCNMD~1~2~3~4~5~6~7~8~"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s
                           << true;
    QTest::newRow("NCNMD without its closing delimiter")
        << u"NCNMD~1~2~3~4~5~6~7~8"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s << true;
    QTest::newRow("NCNMD of 12 fields")
        << u"NCNMD~1~2~3~4~5~6~7~8~9~10~"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s << true;
    QTest::newRow("NCDND of exactly 12 fields, the last one empty")
        << u"NCDND~1~2~3~4~5~6~7~8~9~10~"_s << u"1|2|6|10|4|3|5|7"_s << u"8/9/3"_s << true;
    QTest::newRow("NCDND of exactly 12 fields")
        << u"NCDND~1~2~3~4~5~6~7~8~9~10~11"_s << u"1|2|6|10|4|3|5|7"_s << u"8/9/3"_s << true;
    QTest::newRow("NCDND of 11 fields")
        << u"NCDND~1~2~3~4~5~6~7~8~9~"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s << true;
    QTest::newRow("NCDND of 13 fields")
        << u"NCDND~1~2~3~4~5~6~7~8~9~10~11~"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s << true;
    QTest::newRow("NCDND of 9 fields")
        << u"NCDND~1~2~3~4~5~6~7~8"_s << u"1|2|3|4|5|6|7|8"_s << u"I3"_s << true;
    QTest::newRow("blanks around the row")
        << u"  NCDND~1~2~3~4~5~6~7~8~9~10~  "_s << u"1|2|6|10|4|3|5|7"_s << u"8/9/3"_s << true;
    QTest::newRow("another delimiter at the end is no delimiter")
        << u"NCNMD~1~2~3~4~5~6~7~8|"_s << u"1|2|3|4|5|6|7|8|"_s << u"I3"_s << true;
    QTest::newRow("a slash in what identifies the person")
        << u"NCDND~1~2~3~4~5~6~7~A/B~C~10~"_s << u"1|2|6|10|4|3|5|7"_s << u"A/B/C/3"_s << true;
    QTest::newRow("nothing identifies the person")
        << u"NCDND~1~2~3~4~5~6~7~~~10~"_s << u"1|2|6|10|4|3|5|7"_s << u"//3"_s << true;
    QTest::newRow("empty fields") << u"NCNMD~~~~~~~~~"_s << u"|||||||"_s << u"I3"_s << true;
    QTest::newRow("markup") << u"NCNMD~<b>A</b>~&amp;~3~4~5~6~7~<img src=x>~"_s
                            << u"<b>A</b>|&amp;|3|4|5|6|7|<img src=x>"_s << u"I3"_s << true;
    QTest::newRow("too few fields")
        << u"NCNMD~1~2~3~4~5~6~7"_s << u"1|2|3|4|5|6|7"_s << u"I3"_s << false;
    QTest::newRow("its word alone") << u"NCDND"_s << QString() << u"I3"_s << false;
}

void tst_DuplicateNames::rows()
{
    QFETCH(QString, row);
    const NameRow name = ParseNameRow(row, 2);
    QTEST(name.Cells.join(u'|'), "cells");
    QTEST(name.Key, "key");
    QTEST(name.Complete, "complete");
}

void tst_DuplicateNames::unknown_data()
{
    QTest::addColumn<int>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    const QString none = u"n/a"_s;
    QTest::newRow("name") << 1 << u"unknown"_s << u"unknown"_s;
    QTest::newRow("sex") << 2 << u"unknown"_s << none;
    QTest::newRow("date of birth") << 3 << u"unknown"_s << none;
    QTest::newRow("race") << 4 << u"unknown"_s << none;
    QTest::newRow("height") << 5 << u"unknown"_s << none;
    QTest::newRow("weight") << 6 << u"unknown"_s << none;
    QTest::newRow("physical description") << 7 << u"unknown"_s << u"unknown"_s;
    QTest::newRow("notes") << 8 << u"unknown"_s << u"unknown"_s;
    QTest::newRow("among other words") << 4 << u"race unknown to us"_s << none;
    QTest::newRow("in capitals") << 4 << u"UNKNOWN"_s << none;
    QTest::newRow("with a capital") << 6 << u"Unknown"_s << none;
    QTest::newRow("something like it") << 4 << u"unknow"_s << u"unknow"_s;
}

void tst_DuplicateNames::unknown()
{
    QFETCH(int, field);
    QFETCH(QString, text);
    for (const QString &word : {u"NCNMD"_s, u"NCDND"_s}) {
        QStringList fields{word, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s};
        fields[field] = text;
        QStringList expected = fields.mid(1);
        QFETCH(QString, shown);
        expected[field - 1] = shown;
        QCOMPARE(ParseNameRow(fields.join(u'~') + u'~', 0).Cells, expected);
    }
}

void tst_DuplicateNames::unknownInAnAddressRowStays()
{
    const QString word = u"unknown"_s;
    const QStringList eleven(11, word);
    const NameRow name = ParseNameRow(u"NCDND~"_s + eleven.join(u'~'), 0);
    QCOMPARE(name.Cells, QStringList(8, word));
}

void tst_DuplicateNames::marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("marked");
    QTest::newRow("none") << u"SMITH"_s << u">>SMITH"_s;
    QTest::newRow("marked") << u">>SMITH"_s << u">>SMITH"_s;
    QTest::newRow("half a mark") << u">SMITH"_s << u">>>SMITH"_s;
    QTest::newRow("a mark inside") << u"SMITH >>"_s << u">>SMITH >>"_s;
    QTest::newRow("empty") << QString() << u">>"_s;
}

void tst_DuplicateNames::marks()
{
    QFETCH(QString, text);
    QTEST(MarkedAsRetrieved(text), "marked");
}

void tst_DuplicateNames::requests_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QString>("cells"); // with bars between them
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("line");

    const QString cells = u"JOHN A|1|2|3|4|5|6|7"_s;
    QTest::newRow("SNCI") << u"SNCI"_s << cells << u"I12"_s
                          << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦3¦4¦5¦6¦7¦12¦SNCINMD¦"_s;
    QTest::newRow("DND") << u"DND"_s << cells << u"K1/K2/12"_s
                         << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦K1¦K2¦DNDND¦"_s;
    QTest::newRow("SNCI, a marked name")
        << u"SNCI"_s << u">>JOHN A|1|2|3|4|5|6|7"_s << u"I1"_s
        << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦3¦4¦5¦6¦7¦1¦SNCINMD¦"_s;
    QTest::newRow("DND, a marked name") << u"DND"_s << u">>JOHN A|1|2|3|4|5|6|7"_s << u"K1/K2/1"_s
                                        << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦K1¦K2¦DNDND¦"_s;
    QTest::newRow("only the first mark goes")
        << u"DND"_s << u">>>>J >>|1|2|3|4|5|6|7"_s << u"K1/K2/1"_s
        << u"WADISCIS¦SEARCH¦SMITH, J¦>>J >>¦1¦2¦K1¦K2¦DNDND¦"_s;
    QTest::newRow("DND, a slash in the key's first part")
        << u"DND"_s << cells << u"A/B/C/3"_s << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦A¦B¦DNDND¦"_s;
    QTest::newRow("SNCI, a row with an address")
        << u"SNCI"_s << cells << u"K1/K2/3"_s
        << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦3¦4¦5¦6¦7¦1/K2/3¦SNCINMD¦"_s;
    QTest::newRow("DND, a row without an address")
        << u"DND"_s << cells << u"I3"_s << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦I3¦¦DNDND¦"_s;
    QTest::newRow("empty cells") << u"SNCI"_s << u"JOHN A|||||||"_s << u"I1"_s
                                 << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦¦¦¦¦¦¦¦1¦SNCINMD¦"_s;
    QTest::newRow("what would break the frame")
        << u"SNCI"_s << u"JO¦HN\r\n A|1|2|3|4|5|6|7"_s << u"I|1"_s
        << u"WADISCIS¦SEARCH¦SMITH, J¦JOHN A¦1¦2¦3¦4¦5¦6¦7¦1¦SNCINMD¦"_s;
}

void tst_DuplicateNames::requests()
{
    QFETCH(QString, search);
    QFETCH(QString, cells);
    QFETCH(QString, key);
    QFETCH(QString, line);
    QCOMPARE(CasesOfNameRequest(search, u"SMITH, J"_s, cells.split(u'|'), key), line);
}

HALVANE_TEST(tst_DuplicateNames)
#include "tst_DuplicateNames.moc"
