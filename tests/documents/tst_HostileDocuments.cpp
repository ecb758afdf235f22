// Types, lengths, descriptions and commands as no honest court sends them: no file comes to lie
// outside Reports, nothing is opened that is not on the list, and the next document comes.

#include "core/GlobalState.h"
#include "documents/DocumentDesk.h"
#include "documents/frmAllDocuments.h"
#include "documents/frmDocTransfer.h"
#include "jobs/ListBox.h"
#include "jobs/frmQueue.h"
#include "link/Router.h"
#include "support/FakeSocket.h"
#include "support/HalvaneTest.h"

#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QTest>

namespace {
const QStringList shownTypes{u"pdf"_s, u"tif"_s, u"tiff"_s, u"jpg"_s, u"jpeg"_s,
                             u"png"_s, u"gif"_s, u"bmp"_s,  u"txt"_s, u"rtf"_s};

/// Everything beneath a folder but what the program keeps there anyway.
QStringList filesBeneath(const QString &folder)
{
    QStringList files;
    QDirIterator walk(folder, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        if (!path.endsWith(u"AppInfo.txt"))
            files.append(path);
    }
    files.sort();
    return files;
}
} // namespace

class tst_HostileDocuments : public DocumentTest
{
    Q_OBJECT
private Q_SLOTS:
    void init() override;
    void hostile_data();
    void hostile();
    void hostileOnTheWayToAllDocuments_data();
    void hostileOnTheWayToAllDocuments();

private:
    void answerWith(const QByteArray &stream);
    void checkFiles();

    QStringList before;
};

void tst_HostileDocuments::init()
{
    DocumentTest::init();
    QVERIFY(QDir().mkpath(desk->Folder.Path(u"Reports"_s)));
    before = filesBeneath(desk->Folder.Path());
    desk->Boxes.Whenever(u"MsgBox"_s, [](QDialog *box) { box->accept(); });
}

void tst_HostileDocuments::hostile_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QString>("county");
    int number = 0;
    const auto row = [&number](const QString &line, const QByteArray &stream,
                               const QString &county = u"King"_s) {
        QTest::addRow("%d", ++number) << line << stream << county;
    };
    for (const char *type :
         {"../../evil",   "/etc/passwd", "..",         ".",          "PDF/../../x", "PDF\\..\\x",
          "PDF;rm -rf",   "$(id)",       "`id`",       "PDF\r\nEXE", "PDF EXE",     "-rf",
          "--help",       "PDF.EXE",     "PDF:stream", "PDF%00",     "desktop",     "EXE",
          "sh",           "html",        "svg",        "lnk",        "url",         "docm",
          "PDFPDFPDFPDF", "\xE9",        "*",          "?",          "<b>x</b>",    "\"",
          "con"})
        row(DocumentLine(), DocumentReply("body", type));
    row(DocumentLine(), DocumentReply("body", QByteArray("PDF\0EXE", 7)));
    row(DocumentLine(), DocumentReply("body", QByteArray(100'000, 'A')));
    for (const char *length :
         {"-1", "0", "", "4294967300", "2147483648", "99999999999999999999999999", "0x4", "4.0",
          "4,0", "1e1", " 4", "4 ", "four", "\xB2", "2147483647"})
        row(DocumentLine(), "|FILELEN=" + QByteArray(length) + "~TYPE=PDF~|body" + DocumentTail);
    for (const QString &description :
         {u"../../../evil"_s, u"..\\..\\evil"_s, u"/etc/passwd"_s, u"a\u0000b"_s, u"a\r\nb"_s,
          QString(60'000, u'x'), u"$(touch evil)"_s, u"`touch evil`"_s, u";touch evil"_s,
          u"=cmd()"_s, u"<img src=x>"_s, u"\u202Efdp.exe"_s, u"-rf *"_s, QString()})
        row(DocumentLine(u"5"_s, description), DocumentReply("body"));
    for (const QString &command :
         {u"RETRIEVEDOC="_s, u"RETRIEVEDOC=~"_s, u"RETRIEVEDOC=|LOGON|"_s, u"RETRIEVEDOC=a\r\nb~"_s,
          u"RETRIEVEDOC=RETRIEVEDOC=RETRIEVEDOC="_s,
          u"RETRIEVEDOC=x,x,../..,/etc,~~../../~/../~/../../evil~"_s,
          QString(u"RETRIEVEDOC="_s + QString(100'000, u'~'))})
        row(command, DocumentReply("body"));
    for (const QString &county : {u"../../evil"_s, u".."_s, QString(), QString(60'000, u'c')})
        row(DocumentLine(), DocumentReply("body"), county);
    QVERIFY(number >= 60);
}

void tst_HostileDocuments::answerWith(const QByteArray &stream)
{
    CloseServerLink();
    FakeSocket *socket = DocumentDesk::ConnectToNothing();
    connect(socket, &ServerSocket::SendComplete, this,
            [socket, stream] { socket->ArriveLater({stream}); });
}

void tst_HostileDocuments::checkFiles()
{
    const QString reports = desk->Folder.Path(u"Reports/"_s);
    for (const QString &path : filesBeneath(desk->Folder.Path())) {
        if (before.contains(path))
            continue;
        QVERIFY2(path.startsWith(reports), qPrintable(path));
        QVERIFY2(!path.contains(u"evil") || path.contains(u"Pgs  "), qPrintable(path));
    }
    for (const QString &path : desk->Opened) {
        const QString type = path.section(u'.', -1).toLower();
        QVERIFY2(shownTypes.contains(type), qPrintable(path));
        QVERIFY2(path.startsWith(reports) && !path.mid(reports.size()).contains(u'/'),
                 qPrintable(path));
    }
}

void tst_HostileDocuments::hostile()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, stream);
    QFETCH(QString, county);
    answerWith(stream);
    DocumentStart start = StartOf();
    start.Command = line;
    start.County = county;
    start.Description = line;
    window = DocumentDesk::Pending(start);
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    checkFiles();
    delete window;
    desk->Opened.clear();
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
    answerWith(DocumentReply("next"));
    window = DocumentDesk::Pending(StartOf(u"1"_s, u"NEXT"_s));
    DocumentDesk::Begin(window);
    QVERIFY(DocumentDesk::Finish(window));
    QCOMPARE(desk->Opened.size(), 1);
}

void tst_HostileDocuments::hostileOnTheWayToAllDocuments_data()
{
    hostile_data();
}

void tst_HostileDocuments::hostileOnTheWayToAllDocuments()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, stream);
    QFETCH(QString, county);
    answerWith(stream);
    DocumentStart start = StartOf();
    start.Command = line;
    start.County = county;
    start.CaseNumber = u"../../evil"_s;
    start.Description = line;
    frmAllDocuments all;
    all.Take({start, start});
    DocumentDesk::Enqueue(&all);
    DocumentDesk::Begin(&all);
    QVERIFY(LinkDesk::WaitUntil(
        [&all] { return !Global.bSearchInProgress && !all.Timer1->isActive(); }));
    const QString reports = desk->Folder.Path(u"Reports/"_s);
    for (const QString &path : filesBeneath(desk->Folder.Path()))
        QVERIFY2(before.contains(path) || path.startsWith(reports), qPrintable(path));
    QCOMPARE(desk->Opened, QStringList());
    QCOMPARE(frmQueue::Form().FIFO.ListCount(), 0);
}

HALVANE_TEST(tst_HostileDocuments)
#include "tst_HostileDocuments.moc"
