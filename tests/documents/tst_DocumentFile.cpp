// How a document is cut out of the file of its stream: byte for byte what cutting it in memory
// gives, in bounded memory, and under its final name as a whole or not at all.

#include "core/RunTimeError.h"
#include "documents/DocumentFile.h"
#include "documents/DocumentLines.h"
#include "documents/DocumentName.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

namespace {
/// The same with everything in memory.
QByteArray cutInMemory(QByteArray stream, const QByteArray &head, qsizetype length)
{
    stream.replace(head, QByteArray());
    stream.replace(DocumentTail, QByteArray());
    return stream.left(length);
}

QByteArray filtered(const QByteArray &bytes, const QByteArray &mark, qsizetype piece)
{
    QByteArray left;
    MarkFilter filter(mark, [&left](QByteArrayView passed) { left.append(passed); });
    for (qsizetype at = 0; at < bytes.size(); at += piece)
        filter.Take(QByteArrayView(bytes).sliced(at, qMin(piece, bytes.size() - at)));
    filter.End();
    return left;
}
} // namespace

class tst_DocumentFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aMarkIsCutWhereverItStands_data();
    void aMarkIsCutWhereverItStands();
    void asInMemory();
    void anEndMarkThatAHeadLeavesGoesToo();
    void moreThanASlice();
    void theHash();
    void nothingIsLeftOfAnEmptyDocument();
    void anOlderFileIsReplaced();
    void whatCannotBeReplaced();
    void aFullDisk();
    void aStreamThatIsNotThere();
    void theStreamFileIsMadeAnew();
    void aLinkInTheStreamsPlaceIsNotFollowed();
    void aFolderInTheStreamsPlace();

private:
    SavedDocument save(const QByteArray &stream, const QByteArray &head, qint64 length,
                       const QString &name = u"a.PDF"_s);
    QStringList files() const
    {
        QStringList names = QDir(ReportsFolder()).entryList(QDir::Files | QDir::Hidden);
        names.removeAll(u"Tempfile.bin"_s);
        return names;
    }
    QByteArray saved(const QString &name = u"a.PDF"_s) const
    {
        return folder->Read(u"Reports/"_s + name);
    }

    std::unique_ptr<TestFolder> folder;
    int slices = 0;
};

void tst_DocumentFile::init()
{
    folder = std::make_unique<TestFolder>();
    CreateReportsFolder(ReportsFolder());
    slices = 0;
}

void tst_DocumentFile::cleanup()
{
    folder.reset();
}

SavedDocument tst_DocumentFile::save(const QByteArray &stream, const QByteArray &head,
                                     qint64 length, const QString &name)
{
    StreamFile file;
    file.Open();
    file.Write(stream);
    file.Close();
    return SaveDocument(file.Path(), ReportsFolder() + u'/' + name,
                        {.Head = head, .FileLength = length, .WantsSha256 = true},
                        [this] { ++slices; });
}

void tst_DocumentFile::aMarkIsCutWhereverItStands_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("left");
    QTest::newRow("in front") << QByteArray("<x>abc") << QByteArray("abc");
    QTest::newRow("behind") << QByteArray("abc<x>") << QByteArray("abc");
    QTest::newRow("alone") << QByteArray("<x>") << QByteArray();
    QTest::newRow("none") << QByteArray("abc") << QByteArray("abc");
    QTest::newRow("twice") << QByteArray("a<x><x>b<x>c") << QByteArray("abc");
    QTest::newRow("half of it") << QByteArray("a<x") << QByteArray("a<x");
    QTest::newRow("begun twice") << QByteArray("a<<x>b") << QByteArray("a<b");
    QTest::newRow("what is left makes no new one") << QByteArray("<<x>x>") << QByteArray("<x>");
    QTest::newRow("nothing") << QByteArray() << QByteArray();
}

void tst_DocumentFile::aMarkIsCutWhereverItStands()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, left);
    for (qsizetype piece = 1; piece <= 12; ++piece)
        QCOMPARE(filtered(bytes, "<x>", piece), left);
}

void tst_DocumentFile::asInMemory()
{
    QRandomGenerator random(7);
    const QByteArrayList parts{"|FILELEN=40~TYPE=PDF~|", DocumentTail, "|EOD~||EO", "F~|",
                               "|FILELEN=40~",           "TYPE=PDF~|", "|",         "abc",
                               QByteArray(1, '\0'),      "~"};
    for (int round = 0; round < 300; ++round) {
        QByteArray stream;
        for (int count = static_cast<int>(random.bounded(1, 30)); count > 0; --count)
            stream += parts[random.bounded(parts.size())];
        const qint64 length = random.bounded(1, 80);
        const QByteArray expected = cutInMemory(stream, parts[0], length);
        const SavedDocument document = save(stream, parts[0], length);
        QCOMPARE(document.Bytes, expected.size());
        if (!expected.isEmpty())
            QCOMPARE(saved(), expected);
        QFile::remove(folder->Path(u"Reports/a.PDF"_s));
    }
}

void tst_DocumentFile::anEndMarkThatAHeadLeavesGoesToo()
{
    const QByteArray head = DocumentHead(100);
    save("abc|EOD~||EO" + head + "F~|def", head, 100);
    QCOMPARE(saved(), QByteArray("abcdef"));
}

void tst_DocumentFile::moreThanASlice()
{
    const QByteArray body = DocumentBody(3'000'000);
    const SavedDocument document =
        save(DocumentReply(body), DocumentHead(body.size()), body.size());
    QCOMPARE(document.Bytes, body.size());
    QVERIFY(saved() == body);
    QVERIFY(slices >= 5);
}

void tst_DocumentFile::theHash()
{
    const SavedDocument document = save(DocumentReply("body"), DocumentHead(4), 4);
    QCOMPARE(document.Sha256, QCryptographicHash::hash("body", QCryptographicHash::Sha256).toHex());
}

void tst_DocumentFile::nothingIsLeftOfAnEmptyDocument()
{
    const SavedDocument document = save(DocumentHead(5) + DocumentTail, DocumentHead(5), 5);
    QCOMPARE(document.Bytes, 0);
    QCOMPARE(files(), QStringList());
}

void tst_DocumentFile::anOlderFileIsReplaced()
{
    folder->Write(u"Reports/a.PDF"_s, "a longer older one");
    save(DocumentReply("new"), DocumentHead(3), 3);
    QCOMPARE(saved(), QByteArray("new"));
    QCOMPARE(files(), QStringList{u"a.PDF"_s});
}

void tst_DocumentFile::whatCannotBeReplaced()
{
    MakeUnreadable(folder->Path(u"Reports/a.PDF"_s));
    try {
        save(DocumentReply("new"), DocumentHead(3), 3);
        QFAIL("no error");
    } catch (const RunTimeError &error) {
        QCOMPARE(error.Number(), 70);
    }
    QCOMPARE(files(), QStringList());
}

void tst_DocumentFile::aFullDisk()
{
    const QByteArray body = DocumentBody(100'000);
    StreamFile file;
    file.Open();
    file.Write(DocumentReply(body));
    file.Close();
    folder->Write(u"Reports/a.PDF"_s, "older");
    {
        const FullDisk disk(50'000);
        try {
            SaveDocument(file.Path(), ReportsFolder() + u"/a.PDF"_s,
                         {.Head = DocumentHead(body.size()), .FileLength = body.size()}, [] {});
            QFAIL("no error");
        } catch (const RunTimeError &error) {
            QCOMPARE(error.Number(), 61);
        }
    }
    QCOMPARE(saved(), QByteArray("older"));
    QCOMPARE(files(), QStringList{u"a.PDF"_s});
}

void tst_DocumentFile::aStreamThatIsNotThere()
{
    QVERIFY_THROWS_EXCEPTION(
        RunTimeError,
        SaveDocument(folder->Path(u"nothing"_s), folder->Path(u"a"_s), DocumentCut{}, [] {}));
}

void tst_DocumentFile::theStreamFileIsMadeAnew()
{
    folder->Write(u"Reports/Tempfile.bin"_s, "of the transfer before");
    StreamFile file;
    file.Open();
    file.Write("ab");
    file.Write(QByteArray("c\0d", 3));
    file.Close();
    QCOMPARE(folder->Read(u"Reports/Tempfile.bin"_s), QByteArray("abc\0d", 5));
    QCOMPARE(QFileInfo(file.Path()).permissions() & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
    file.Open();
    QCOMPARE(folder->Read(u"Reports/Tempfile.bin"_s), QByteArray());
}

void tst_DocumentFile::aLinkInTheStreamsPlaceIsNotFollowed()
{
    folder->Write(u"elsewhere"_s, "kept");
    QVERIFY(QFile::link(folder->Path(u"elsewhere"_s), folder->Path(u"Reports/Tempfile.bin"_s)));
    StreamFile file;
    file.Open();
    file.Write("x");
    QCOMPARE(folder->Read(u"elsewhere"_s), QByteArray("kept"));
    QVERIFY(!QFileInfo(file.Path()).isSymLink());
}

void tst_DocumentFile::aFolderInTheStreamsPlace()
{
    MakeUnreadable(folder->Path(u"Reports/Tempfile.bin"_s));
    StreamFile file;
    try {
        file.Open();
        QFAIL("no error");
    } catch (const RunTimeError &error) {
        QCOMPARE(error.Number(), 70);
    }
}

HALVANE_TEST(tst_DocumentFile)
#include "tst_DocumentFile.moc"
