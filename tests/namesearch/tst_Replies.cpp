#include "namesearch/Replies.h"

#include "core/Windows1252.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(ReplyKind)
Q_DECLARE_METATYPE(IndexReplyKind)

class tst_Replies : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void kind_data();
    void kind();
    void kindInTheDistrictCourts_data();
    void kindInTheDistrictCourts();
    void kindInAnIndexSearch_data();
    void kindInAnIndexSearch();
    void everySingleByteIsARow();
    void aNulDoesNotHideTheEndMark();
    void veryLongRepliesAreRows();
    void progressText_data();
    void progressText();
    void progressTextAsItIs();
};

void tst_Replies::kind_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<ReplyKind>("kind");
    const auto end = ReplyKind::EndOfReply;
    const auto row = ReplyKind::Row;
    QTest::newRow("end mark") << u"EOF~"_s << end;
    QTest::newRow("end mark in lower case") << u"eof~"_s << end;
    QTest::newRow("end mark in mixed case") << u"Eof~"_s << end;
    QTest::newRow("end mark behind text") << u"King~3~EOF~"_s << end;
    QTest::newRow("error that ends in the mark") << u"ERROR~too many hits~EOF~"_s << end;
    QTest::newRow("progress that ends in the mark") << u"SEARCHING~EOF~"_s << end;
    QTest::newRow("EREOF~") << u"EREOF~"_s << end;
    QTest::newRow("HEREOF~") << u"HEREOF~"_s << end;
    QTest::newRow("THEREOF~ alone") << u"THEREOF~"_s << row;
    QTest::newRow("thereof in lower case") << u"a~b~thereof~"_s << row;
    QTest::newRow("THEREOF~ behind text") << u"HEIRS THEREOF~"_s << row;
    QTest::newRow("WHEREOF~") << u"WHEREOF~"_s << end;
    QTest::newRow("end mark in the middle") << u"EOF~SMITH~"_s << row;
    QTest::newRow("end mark without its tilde") << u"EOF"_s << row;
    QTest::newRow("end mark with a blank behind") << u"EOF~ "_s << row;
    QTest::newRow("end mark with another delimiter") << u"EOF;"_s << row;
    QTest::newRow("tilde alone") << u"~"_s << row;
    QTest::newRow("nothing") << QString() << row;

    QTest::newRow("too many hits") << u"ERROR~too many hits~"_s << ReplyKind::TooManyHits;
    QTest::newRow("too many hits in capitals")
        << u"ERROR~TOO MANY HITS"_s << ReplyKind::TooManyHits;
    QTest::newRow("too many hits behind another error")
        << u"ERROR: ERROR~Too Many Hits found~"_s << ReplyKind::TooManyHits;
    QTest::newRow("too many hits without its head") << u"too many hits~"_s << row;
    QTest::newRow("too many hits, another delimiter")
        << u"ERROR;too many hits;"_s << ReplyKind::Error;
    QTest::newRow("error") << u"ERROR~Court is down~"_s << ReplyKind::Error;
    QTest::newRow("error alone") << u"ERROR"_s << ReplyKind::Error;
    QTest::newRow("a name that begins with error") << u"ERRORSON~1~2~3~4~5~"_s << ReplyKind::Error;
    QTest::newRow("error in lower case") << u"error~Court is down~"_s << row;
    QTest::newRow("too many hits in lower case") << u"error~too many hits~"_s << row;
    QTest::newRow("Error in mixed case") << u"Error~x~"_s << row;
    QTest::newRow("error behind a blank") << u" ERROR~x~"_s << row;
    QTest::newRow("error and more than 200")
        << u"ERROR This search resulted in more than 200 results."_s << ReplyKind::Error;

    QTest::newRow("progress") << u"SEARCHING~King~"_s << ReplyKind::Progress;
    QTest::newRow("progress in lower case") << u"searching"_s << ReplyKind::Progress;
    QTest::newRow("progress and more than 200")
        << u"Searching. This search resulted in more than 200 results."_s << ReplyKind::Progress;
    QTest::newRow("progress behind text") << u"~SEARCHING~"_s << row;
    QTest::newRow("progress cut short") << u"SEARCHIN"_s << row;

    QTest::newRow("more than 200")
        << u"This search resulted in more than 200 results."_s << ReplyKind::MaxResults;
    QTest::newRow("more than 200, any case, within text")
        << u"** THIS SEARCH RESULTED IN MORE THAN 200 RESULTS. **~"_s << ReplyKind::MaxResults;
    QTest::newRow("more than 200 without its full stop")
        << u"This search resulted in more than 200 results"_s << row;
    QTest::newRow("a row") << u"SMITH~02-2-02029-9~01/02/2002~Civil~King~Plaintiff~"_s << row;
}

void tst_Replies::kind()
{
    QFETCH(QString, reply);
    QTEST(ClassifyReply(reply), "kind");
}

void tst_Replies::kindInTheDistrictCourts_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<ReplyKind>("kind");
    const auto end = ReplyKind::EndOfReply;
    const auto row = ReplyKind::Row;
    QTest::newRow("end mark") << u"EOF~"_s << end;
    QTest::newRow("end mark in lower case") << u"eof~"_s << end;
    QTest::newRow("end mark before text") << u"EOF~King~"_s << end;
    QTest::newRow("end mark behind text") << u"King~3~EOF~"_s << row;
    QTest::newRow("a row that ends in THEREOF~") << u"HEIRS THEREOF~"_s << row;
    QTest::newRow("a row that ends in WHEREOF~") << u"WHEREOF~"_s << row;
    QTest::newRow("too many hits is an error") << u"ERROR~too many hits~"_s << ReplyKind::Error;
    QTest::newRow("error") << u"ERROR~Court is down~"_s << ReplyKind::Error;
    QTest::newRow("error that ends in the mark") << u"ERROR~EOF~"_s << ReplyKind::Error;
    QTest::newRow("error in lower case") << u"error~x~"_s << row;
    QTest::newRow("progress") << u"Searching~King~"_s << ReplyKind::Progress;
    QTest::newRow("more than 200")
        << u"This search resulted in more than 200 results."_s << ReplyKind::MaxResults;
}

void tst_Replies::kindInTheDistrictCourts()
{
    QFETCH(QString, reply);
    QTEST(ClassifyReply(reply, {EndMark::AtTheBeginning, false}), "kind");
}

void tst_Replies::kindInAnIndexSearch_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<IndexReplyKind>("kind");
    const auto end = IndexReplyKind::EndOfSearch;
    const auto progress = IndexReplyKind::Progress;
    const auto row = IndexReplyKind::Row;
    QTest::newRow("end mark") << u"EOF~"_s << end;
    QTest::newRow("end mark with a bar") << u"EOF~|"_s << end;
    QTest::newRow("end mark in lower case") << u"eof~"_s << row;
    QTest::newRow("end mark with a bar in lower case") << u"eof~|"_s << row;
    QTest::newRow("end mark in mixed case") << u"Eof~|"_s << row;
    QTest::newRow("end mark without its tilde") << u"EOF"_s << row;
    QTest::newRow("end mark with a bar for its tilde") << u"EOF|"_s << row;
    QTest::newRow("end mark with two bars") << u"EOF~||"_s << row;
    QTest::newRow("end mark with two tildes") << u"EOF~~"_s << row;
    QTest::newRow("end mark behind a letter") << u"XEOF~"_s << row;
    QTest::newRow("end mark with a bar behind a letter") << u"XEOF~|"_s << row;
    QTest::newRow("end mark behind a blank") << u" EOF~"_s << row;
    QTest::newRow("end mark with a bar behind a blank") << u" EOF~|"_s << row;
    QTest::newRow("end mark before a blank") << u"EOF~ "_s << row;
    QTest::newRow("end mark before text") << u"EOF~King~"_s << row;
    QTest::newRow("end mark behind text") << u"King~3~EOF~"_s << row;
    QTest::newRow("a row that ends in THEREOF~") << u"HEIRS THEREOF~"_s << row;
    QTest::newRow("nothing") << QString() << row;

    QTest::newRow("progress") << u"SEARCHING~King~"_s << progress;
    QTest::newRow("progress in lower case") << u"searching"_s << progress;
    QTest::newRow("progress before the end mark") << u"Searching~EOF~"_s << progress;
    QTest::newRow("progress behind a blank") << u" SEARCHING~"_s << row;
    QTest::newRow("progress cut short") << u"SEARCHIN"_s << row;

    QTest::newRow("error") << u"ERROR~Illegal Role~"_s << IndexReplyKind::Error;
    QTest::newRow("error before the end mark") << u"ERROR~EOF~"_s << IndexReplyKind::Error;
    QTest::newRow("too many hits") << u"ERROR~too many hits~"_s << IndexReplyKind::Error;
    QTest::newRow("error without its tilde") << u"ERROR"_s << row;
    QTest::newRow("error in lower case") << u"error~x~"_s << row;
    QTest::newRow("error behind a blank") << u" ERROR~x~"_s << row;
    QTest::newRow("a name that begins with error") << u"ERRORSON~1~2~3~4~5~6~7~"_s << row;

    QTest::newRow("warning") << u"WARNING~Reached Search Limit~500~700~"_s
                             << IndexReplyKind::Warning;
    QTest::newRow("warning alone") << u"WARNING~"_s << IndexReplyKind::Warning;
    QTest::newRow("warning without its tilde") << u"WARNING"_s << row;
    QTest::newRow("warning in lower case") << u"warning~x~"_s << row;
    QTest::newRow("warning behind text") << u"A WARNING~x~"_s << row;
    QTest::newRow("more than 200") << u"This search resulted in more than 200 results."_s << row;
    QTest::newRow("a row") << u"SMITH~02-1~01/02/2002~Felony~King~Role~A V B~03/04/2005~"_s << row;
}

void tst_Replies::kindInAnIndexSearch()
{
    QFETCH(QString, reply);
    QTEST(ClassifyIndexReply(reply), "kind");
}

void tst_Replies::everySingleByteIsARow()
{
    for (int byte = 0; byte < 256; ++byte) {
        const QByteArray one(1, static_cast<char>(byte));
        QCOMPARE(ClassifyReply(FromWindows1252(one)), ReplyKind::Row);
        QCOMPARE(ClassifyReply(FromWindows1252(one) + u"EOF~"_s), ReplyKind::EndOfReply);
    }
}

void tst_Replies::aNulDoesNotHideTheEndMark()
{
    QCOMPARE(ClassifyReply(QString::fromLatin1("\0EOF~", 5)), ReplyKind::EndOfReply);
    QCOMPARE(ClassifyReply(QString::fromLatin1("EOF~\0", 5)), ReplyKind::Row);
}

void tst_Replies::veryLongRepliesAreRows()
{
    QCOMPARE(ClassifyReply(QString(1'000'000, u'A')), ReplyKind::Row);
    QCOMPARE(ClassifyReply(QString(1'000'000, u'~')), ReplyKind::Row);
}

void tst_Replies::progressText_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("text");
    QTest::newRow("nine characters") << u"SEARCHING"_s << QString();
    QTest::newRow("ten characters") << u"SEARCHING~"_s << u"SEARCHING "_s;
    QTest::newRow("every tilde") << u"Searching~King~~County~"_s << u"Searching King  County "_s;
    QTest::newRow("no tilde") << u"Searching now"_s << u"Searching now"_s;
    QTest::newRow("like HTML") << u"Searching <b>x</b>~"_s << u"Searching <b>x</b> "_s;
}

void tst_Replies::progressText()
{
    QFETCH(QString, reply);
    QTEST(ProgressText(reply), "text");
}

void tst_Replies::progressTextAsItIs()
{
    QCOMPARE(ProgressText(u"Searching~King~"_s, true), u"Searching~King~"_s);
    QCOMPARE(ProgressText(u"SEARCHING"_s, true), QString());
}

HALVANE_TEST(tst_Replies)
#include "tst_Replies.moc"
