// A report in a mail: what the desktop is asked for, and what it answers.

#include "core/EndProgram.h"
#include "reports/ReportMail.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/MailProgram.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// What came of a mail.
struct Answer
{
    bool Came = false;
    std::optional<RunTimeError> Failure;
};

void send(const TestFolder &folder, const QString &name, QObject *context, Answer *answer)
{
    folder.Write(u"r.Txt"_s, "the report\r\n");
    SendReport(folder.Path(u"r.Txt"_s), name, context,
               [answer](const std::optional<RunTimeError> &failure) {
                   *answer = {true, failure};
               });
}

/// A mail program that is there and has nothing to run it.
class BrokenMailProgram
{
public:
    explicit BrokenMailProgram(const TestFolder &folder) : mail(folder.Path())
    {
        QFile script(folder.Path(u"bin/xdg-email"_s));
        QVERIFY(script.open(QIODevice::WriteOnly | QIODevice::Truncate));
        script.write("#!/nowhere\n");
    }

private:
    const MailProgram mail;
};
} // namespace

class tst_ReportMail : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatTheMailProgramIsGiven();
    void theCopyIsTheUsersOwn();
    void theCopyGoesWithTheProgram();
    void twoMailsOfOneName();
    void answers_data();
    void answers();
    void noMailProgram();
    void aMailProgramThatDies();
    void aReportThatIsGone();
    void noRoomForTheCopy();
    void aMailProgramThatCannotBeStarted();
    void nobodyWaitsAnyMore();
    void nobodyWaitsForWhatCannotBeStarted();
    void names_data();
    void names();
};

void tst_ReportMail::whatTheMailProgramIsGiven()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    send(folder, u"SMITH, JOHN in King County.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(!answer.Failure);
    const QStringList arguments = mail.Arguments();
    QCOMPARE(arguments.size(), 8);
    QCOMPARE(arguments.mid(0, 6),
             (QStringList{u"--utf8"_s, u"--subject"_s, u"Halvane - Search Results"_s, u"--body"_s,
                          u" \nPlease find attached a report for your review."_s, u"--attach"_s}));
    QCOMPARE(QFileInfo(arguments.at(6)).fileName(), u"SMITH_JOHN_in_King_County.txt"_s);
    QCOMPARE(arguments.at(7), u"mailto:Enter_Recipient_Names_Here"_s);
}

void tst_ReportMail::theCopyIsTheUsersOwn()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    const QFileInfo copy(mail.Arguments().at(6));
    QFile file(copy.filePath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("the report\r\n"));
    QCOMPARE(copy.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
    const QFileInfo around(copy.path());
    constexpr QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
                                          | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QVERIFY(!(around.permissions() & others));
    // The report itself may be replaced before the mail is sent.
    folder.Write(u"r.Txt"_s, "another\r\n");
    file.seek(0);
    QCOMPARE(file.readAll(), QByteArray("the report\r\n"));
}

void tst_ReportMail::theCopyGoesWithTheProgram()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    const QString copy = mail.Arguments().at(6);
    QVERIFY(QFileInfo::exists(copy));
    bool goneBeforeTheEnd = false;
    ReplaceEndProgram([&](int) { goneBeforeTheEnd = !QFileInfo::exists(copy); });
    EndProgram();
    ReplaceEndProgram({});
    QVERIFY(goneBeforeTheEnd);
    // The next mail of this process has a folder again.
    answer = {};
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(QFileInfo::exists(mail.Arguments().at(6)));
}

void tst_ReportMail::twoMailsOfOneName()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    const QString first = mail.Arguments().at(6);
    answer = {};
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(mail.Arguments().at(6) != first);
    QVERIFY(QFileInfo::exists(first));
}

void tst_ReportMail::answers_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("description");
    QTest::newRow("called wrongly") << 1 << u"The mail program was called wrongly"_s;
    QTest::newRow("no such file") << 2 << u"File not found"_s;
    QTest::newRow("no tool") << 3 << u"There is no mail program"_s;
    QTest::newRow("failed") << 4 << u"The mail program failed"_s;
    QTest::newRow("another") << 77 << u"The mail program failed"_s;
}

void tst_ReportMail::answers()
{
    QFETCH(int, code);
    const TestFolder folder;
    const MailProgram mail(folder.Path(), code);
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), code);
    QTEST(answer.Failure->Description(), "description");
    QVERIFY(QFileInfo::exists(folder.Path(u"r.Txt"_s)));
}

void tst_ReportMail::noMailProgram()
{
    const TestFolder folder;
    const NoMailProgram none;
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), 53);
}

void tst_ReportMail::aMailProgramThatDies()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path(), u"kill -9 $$"_s);
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QTRY_VERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), 4);
}

void tst_ReportMail::aReportThatIsGone()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    SendReport(folder.Path(u"never.Txt"_s), u"never.Txt"_s, this,
               [&](const std::optional<RunTimeError> &failure) {
                   answer = {true, failure};
               });
    QTRY_VERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), 53);
    QVERIFY(!mail.WasCalled());
}

void tst_ReportMail::noRoomForTheCopy()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    folder.Write(u"r.Txt"_s, QByteArray(10'000, 'r'));
    {
        const FullDisk full(5'000);
        SendReport(folder.Path(u"r.Txt"_s), u"r.Txt"_s, this,
                   [&](const std::optional<RunTimeError> &failure) {
                       answer = {true, failure};
                   });
    }
    QVERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), 61);
    QVERIFY(!mail.WasCalled());
    QCOMPARE(folder.Read(u"r.Txt"_s).size(), 10'000);
}

void tst_ReportMail::nobodyWaitsAnyMore()
{
    const TestFolder folder;
    const MailProgram mail(folder.Path());
    Answer answer;
    {
        QObject window;
        send(folder, u"r.Txt"_s, &window, &answer);
    }
    // Its answer has come, and nobody was there to hear it.
    QTRY_VERIFY(!QCoreApplication::instance()->findChild<QProcess *>());
    QVERIFY(mail.WasCalled());
    QVERIFY(!answer.Came);
}

void tst_ReportMail::aMailProgramThatCannotBeStarted()
{
    const TestFolder folder;
    const BrokenMailProgram mail(folder);
    Answer answer;
    send(folder, u"r.Txt"_s, this, &answer);
    QVERIFY(!answer.Came);
    QTRY_VERIFY(answer.Came);
    QVERIFY(answer.Failure);
    QCOMPARE(answer.Failure->Number(), 4);
}

/// Somebody else who comes to stand in the same place is told nothing.
void tst_ReportMail::nobodyWaitsForWhatCannotBeStarted()
{
    const TestFolder folder;
    const BrokenMailProgram mail(folder);
    Answer answer;
    std::optional<QObject> window(std::in_place);
    send(folder, u"r.Txt"_s, &*window, &answer);
    window.emplace();
    QTRY_VERIFY(!QCoreApplication::instance()->findChild<QProcess *>());
    QTest::qWait(0);
    QVERIFY(!answer.Came);
}

void tst_ReportMail::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("attached");
    QTest::newRow("blanks and commas")
        << u"SMITH, JOHN in King.Txt"_s << u"SMITH_JOHN_in_King.txt"_s;
    QTest::newRow("a number") << u"Case Details (02-2-00123-4).Txt"_s
                              << u"Case_Details_02-2-00123-4_.txt"_s;
    QTest::newRow("a command") << u"$(rm -rf ~);`x`.Txt"_s << u"_rm_-rf_x_.txt"_s;
    QTest::newRow("markup and a way out") << u"<b>..-..-etc.Txt"_s << u"_b_-_-etc.txt"_s;
    QTest::newRow("300 letters") << QString(300, u'n') + u".Txt"_s << QString(60, u'n') + u".txt"_s;
    QTest::newRow("nothing") << u".Txt"_s << u"report.txt"_s;
}

void tst_ReportMail::names()
{
    QFETCH(QString, name);
    QTEST(AttachmentName(name), "attached");
}

HALVANE_TEST(tst_ReportMail)
#include "tst_ReportMail.moc"
