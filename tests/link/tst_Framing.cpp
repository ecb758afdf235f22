#include "core/GlobalState.h"
#include "link/Comm.h"
#include "link/Framing.h"
#include "link/frmWinsock.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"
#include "support/TestClock.h"
#include "support/TestFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {
struct Reply
{
    const char *name;
    QByteArray bytes;
    QStringList tokens;
};

/// The replies that the tests of the conversations use, and what must come out of them.
const QList<Reply> &replies()
{
    static const QList<Reply> all{
        {"login", "|EOF~|", {u"EOF~"_s}},
        {"refusal",
         "|ERROR~Invalid User Name and/or PW~||EOF~|",
         {u"ERROR~Invalid User Name and/or PW~"_s, u"EOF~"_s}},
        {"parameters",
         "|Searching=MaxIndexResults=300||EOS~||EOF~|",
         {u"Searching=MaxIndexResults=300"_s, u"EOS~"_s, u"EOF~"_s}},
        {"rows",
         "|SMITH, JOHN~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~|"
         "|EOF~|",
         {u"SMITH, JOHN~02-2-02029-9~01/02/2002~Civil~WA Superior Ct King County~Plaintiff~"_s,
          u"EOF~"_s}},
        {"empty tokens", "|||||A~||||B~|", {u"A~"_s, u"B~"_s}},
        {"an empty token that shares its bar", "||X~||EOF~|", {u"X~"_s, u"EOF~"_s}},
        {"high bytes", "|\xA6\x80\x81\xFF~|", {u"¦\u20AC\u0081\u00FF~"_s}},
        {"NULs", QByteArray("|a\0b~|", 6), {u"a\0b~"_s}},
    };
    return all;
}

/// Reads until the buffer and the socket give no more.
QStringList readAll(qsizetype expected)
{
    QStringList tokens;
    while (tokens.size() < expected) {
        const Response response = ReadResponse();
        if (response.Status != ReadStatus::Token)
            break;
        tokens.append(response.Token);
    }
    return tokens;
}
} // namespace

class tst_Framing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void extractDelimited_data();
    void extractDelimited();
    void everyTwoWaySplitGivesTheSameTokens_data();
    void everyTwoWaySplitGivesTheSameTokens();
    void oneByteAtATimeGivesTheSameTokens_data();
    void oneByteAtATimeGivesTheSameTokens();
    void junkBeforeTheFirstBarIsDiscarded_data();
    void junkBeforeTheFirstBarIsDiscarded();

private:
    std::unique_ptr<TestFolder> folder;
    std::unique_ptr<TestClock> clock;
};

void tst_Framing::init()
{
    folder = std::make_unique<TestFolder>();
    clock = std::make_unique<TestClock>();
    FakeSocket::Install();
    frmWinsock::Form();
}

void tst_Framing::cleanup()
{
    clock.reset();
    folder.reset();
}

void tst_Framing::extractDelimited_data()
{
    QTest::addColumn<QByteArray>("buffer");
    QTest::addColumn<QByteArray>("token");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("no delimiter") << QByteArray("abc") << QByteArray() << QByteArray("abc");
    QTest::newRow("one delimiter") << QByteArray("|abc") << QByteArray() << QByteArray("|abc");
    QTest::newRow("a lone bar") << QByteArray("|") << QByteArray() << QByteArray("|");
    QTest::newRow("a token") << QByteArray("|A~|") << QByteArray("A~") << QByteArray();
    QTest::newRow("two tokens") << QByteArray("|A~||B~|") << QByteArray("A~") << QByteArray("|B~|");
    QTest::newRow("leading junk goes")
        << QByteArray("junk|X~|") << QByteArray("X~") << QByteArray();
    QTest::newRow("an empty token is consumed")
        << QByteArray("||X~|") << QByteArray() << QByteArray("X~|");
}

void tst_Framing::extractDelimited()
{
    QFETCH(QByteArray, buffer);
    QFETCH(QByteArray, token);
    QFETCH(QByteArray, rest);
    ReceiveBuffer received;
    received.Append(buffer);
    QCOMPARE(ExtractDelimited(received, '|'), token);
    QCOMPARE(received.View().toByteArray(), rest);
}

void tst_Framing::everyTwoWaySplitGivesTheSameTokens_data()
{
    QTest::addColumn<int>("reply");
    for (int i = 0; i < replies().size(); ++i)
        QTest::newRow(replies()[i].name) << i;
}

void tst_Framing::everyTwoWaySplitGivesTheSameTokens()
{
    QFETCH(int, reply);
    const QByteArray bytes = replies()[reply].bytes;
    const QStringList &tokens = replies()[reply].tokens;
    for (qsizetype split = 1; split < bytes.size(); ++split) {
        Global.strRecvBuffer.Clear();
        FakeSocket::Last()->ArriveLater({bytes.left(split), bytes.mid(split)});
        QCOMPARE(readAll(tokens.size()), tokens);
    }
}

void tst_Framing::oneByteAtATimeGivesTheSameTokens_data()
{
    everyTwoWaySplitGivesTheSameTokens_data();
}

void tst_Framing::oneByteAtATimeGivesTheSameTokens()
{
    QFETCH(int, reply);
    QByteArrayList pieces;
    for (const char byte : replies()[reply].bytes)
        pieces.append(QByteArray(1, byte));
    FakeSocket::Last()->ArriveLater(pieces);
    QCOMPARE(readAll(replies()[reply].tokens.size()), replies()[reply].tokens);
}

void tst_Framing::junkBeforeTheFirstBarIsDiscarded_data()
{
    everyTwoWaySplitGivesTheSameTokens_data();
}

void tst_Framing::junkBeforeTheFirstBarIsDiscarded()
{
    QFETCH(int, reply);
    FakeSocket::Last()->Arrive("junk\r\n~" + replies()[reply].bytes);
    QCOMPARE(readAll(replies()[reply].tokens.size()), replies()[reply].tokens);
}

HALVANE_TEST(tst_Framing)
#include "tst_Framing.moc"
