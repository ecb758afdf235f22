// What a court sends around the login, without an end: notices, private messages, settings.

#include "core/GlobalState.h"
#include "session/ServerExchanges.h"
#include "session/frmMsg.h"
#include "support/HalvaneTest.h"
#include "sweeps/FloodTest.h"

#include <QTest>

#include <functional>
#include <vector>

namespace {
constexpr int linesOfPiece = 500;

void showNothing(const QString &) {}

/// An exchange around the login, and what its reply is made of.
struct MessageFlood
{
    const char *name;
    int whole; ///< so many lines in full
    std::function<QByteArray(qint64 number)> line;
    std::function<void()> exchange;
};

const std::vector<MessageFlood> &messageFloods()
{
    const auto notice = [](qint64 number) {
        return QByteArray("|The courts are closed on day " + QByteArray::number(number) + ".~|");
    };
    const auto empty = [](qint64) { return QByteArray("|~|"); };
    static const std::vector<MessageFlood> all{
        {"notices", 100'000, notice, [] { GetSystemMessage(showNothing); }},
        {"short notices", 4'000'000, empty, [] { GetSystemMessage(showNothing); }},
        {"private messages", 100'000, notice,
         [] { GetPrivateMessage(u"paralegal"_s, u"secret"_s, u"AppVer-9.00"_s, showNothing); }},
        {"court states", 100'000, notice, [] { GetCourtStatus(showNothing); }},
        {"short court states", 4'000'000, empty, [] { GetCourtStatus(showNothing); }},
        {"accounting options", 100'000, notice, [] { GetClientAcctgOption(); }},
        {"settings that are none", 100'000, notice, [] { GetIniValues(showNothing); }},
        {"settings", 5'000,
         [](qint64 number) {
             return QByteArray("|General=Key" + QByteArray::number(number) + "=1||EOS~|");
         },
         [] { GetIniValues(showNothing); }},
        {"one setting again and again", 5'000,
         [](qint64 number) {
             return QByteArray("|General=SearchTimeout=" + QByteArray::number(1 + number % 9)
                               + "||EOS~|");
         },
         [] { GetIniValues(showNothing); }},
    };
    return all;
}

Flood floodOf(const MessageFlood &message, int lines)
{
    return {.Pieces = (lines + linesOfPiece - 1) / linesOfPiece,
            .Piece = [&message, lines](qint64 piece) {
                QByteArray bytes;
                for (qint64 n = piece * linesOfPiece;
                     n < std::min<qint64>(lines, (piece + 1) * linesOfPiece); ++n)
                    bytes += message.line(n);
                return bytes;
            }};
}
} // namespace

class tst_FloodOfMessages : public FloodTest
{
    Q_OBJECT
private Q_SLOTS:
    void exchange_data();
    void exchange();
    void theLongestMessageIsShown();

private:
    FloodCost run(const MessageFlood &message, int lines);
};

void tst_FloodOfMessages::exchange_data()
{
    QTest::addColumn<int>("index");
    for (size_t i = 0; i < messageFloods().size(); ++i)
        QTest::newRow(messageFloods()[i].name) << static_cast<int>(i);
}

FloodCost tst_FloodOfMessages::run(const MessageFlood &message, int lines)
{
    flood->Answer(floodOf(message, lines));
    const FloodCost cost = Measure([&] { message.exchange(); });
    Tell(qPrintable(QString::number(lines)), cost);
    return cost;
}

void tst_FloodOfMessages::exchange()
{
    QFETCH(int, index);
    const MessageFlood &message = messageFloods()[static_cast<size_t>(index)];
    const int part = std::max(Scaled(message.whole) / Fold, 1);
    Connect();
    const FloodCost less = run(message, part);
    const FloodCost all = run(message, Fold * part);
    CheckFlood(less, all);
    SearchOnce();
}

void tst_FloodOfMessages::theLongestMessageIsShown()
{
    const int lines = Scaled(100'000);
    Connect();
    flood->Answer(floodOf(messageFloods().front(), lines));
    const QString message = GetSystemMessage(showNothing);
    QVERIFY(!message.isEmpty());
    const FloodCost cost = Measure([&] {
        frmMsg window;
        window.show();
        QCoreApplication::processEvents();
    });
    Tell("shown", cost);
}

HALVANE_TEST(tst_FloodOfMessages)
#include "tst_FloodOfMessages.moc"
