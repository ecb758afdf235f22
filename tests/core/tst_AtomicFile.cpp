// A file that takes another one's place once it is whole.

#include "core/AtomicFile.h"
#include "core/RunTimeError.h"
#include "support/FaultyFile.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_AtomicFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { folder = std::make_unique<TestFolder>(); }
    void cleanup() { folder.reset(); }

    void theOldOneStaysUntilTheEnd();
    void oneThatIsGivenUpLeavesNothing();
    void aNewOneIsItsOwnersOnly();
    void aLinkStaysALink();
    void oneThatIsReadOnlyStays();
    void aFolderInItsPlace();
    void aFolderThatIsNotThere();
    void aFullDisk();
    void whatAKilledProgramHasLeftIsTakenAway();

private:
    int errorOf(const std::function<void()> &act) const
    {
        try {
            act();
        } catch (const RunTimeError &error) {
            return error.Number();
        }
        return 0;
    }
    QStringList files() const
    {
        return QDir(folder->Path()).entryList({u"a*"_s}, QDir::Files | QDir::Hidden);
    }

    std::unique_ptr<TestFolder> folder;
};

void tst_AtomicFile::theOldOneStaysUntilTheEnd()
{
    folder->Write(u"a"_s, "old");
    FileReplacement file(folder->Path(u"a"_s));
    file.Write("ne");
    file.Write("w");
    QCOMPARE(folder->Read(u"a"_s), QByteArray("old"));
    file.Commit(FileReplacement::Survives::Crash);
    QCOMPARE(folder->Read(u"a"_s), QByteArray("new"));
    QCOMPARE(files(), QStringList{u"a"_s});
}

void tst_AtomicFile::oneThatIsGivenUpLeavesNothing()
{
    {
        FileReplacement file(folder->Path(u"a"_s));
        file.Write("something");
    }
    QCOMPARE(files(), QStringList());
}

void tst_AtomicFile::aNewOneIsItsOwnersOnly()
{
    FileReplacement file(folder->Path(u"a"_s));
    file.Commit();
    QCOMPARE(QFileInfo(folder->Path(u"a"_s)).permissions()
                 & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
             QFile::Permissions());
}

void tst_AtomicFile::aLinkStaysALink()
{
    folder->Write(u"target"_s, "old");
    QVERIFY(QFile::link(folder->Path(u"target"_s), folder->Path(u"a"_s)));
    FileReplacement file(folder->Path(u"a"_s));
    file.Write("new");
    file.Commit();
    QVERIFY(QFileInfo(folder->Path(u"a"_s)).isSymLink());
    QCOMPARE(folder->Read(u"target"_s), QByteArray("new"));
}

void tst_AtomicFile::oneThatIsReadOnlyStays()
{
    folder->Write(u"a"_s, "kept");
    QVERIFY(QFile::setPermissions(folder->Path(u"a"_s), QFile::ReadOwner));
    QCOMPARE(errorOf([this] { FileReplacement(folder->Path(u"a"_s)); }), 70);
    QVERIFY(!ReplaceFileContent(folder->Path(u"a"_s), "new"));
    QCOMPARE(folder->Read(u"a"_s), QByteArray("kept"));
    QCOMPARE(files(), QStringList{u"a"_s});
}

void tst_AtomicFile::aFolderInItsPlace()
{
    MakeUnreadable(folder->Path(u"a"_s));
    QCOMPARE(errorOf([this] { FileReplacement(folder->Path(u"a"_s)); }), 70);
}

void tst_AtomicFile::aFolderThatIsNotThere()
{
    QCOMPARE(errorOf([this] { FileReplacement(folder->Path(u"nowhere/a"_s)); }), 70);
}

void tst_AtomicFile::aFullDisk()
{
    folder->Write(u"a"_s, "old");
    const FullDisk disk(1000);
    QCOMPARE(errorOf([this] {
                 FileReplacement file(folder->Path(u"a"_s));
                 file.Write(QByteArray(100'000, 'x'));
                 file.Commit();
             }),
             61);
    QCOMPARE(folder->Read(u"a"_s), QByteArray("old"));
    QCOMPARE(files(), QStringList{u"a"_s});
}

void tst_AtomicFile::whatAKilledProgramHasLeftIsTakenAway()
{
    // Of others, or of the same name by somebody's own choice.
    const QStringList others{u"a"_s, u"a.AbCdEf"_s, u"a.AbCdEf.unfinished.txt"_s,
                             u"a.unfinished"_s};
    for (const QString &name : others)
        folder->Write(name, "kept");
    for (const QString &name : {u"a.AbCdEf.unfinished"_s, u"a.b.ini.ZyXwVu.unfinished"_s})
        folder->Write(name, "half");
    RemoveUnfinishedFiles(folder->Path());
    QCOMPARE(files(), others);
}

HALVANE_TEST(tst_AtomicFile)
#include "tst_AtomicFile.moc"
