#include "core/AppFolder.h"
#include "core/Options.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTest>
#include <QThread>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr int kills = 60;
constexpr int valueLength = 4000;

/// The value of the n-th write: as long as all the others, and made of its own letter only.
QString valueOf(int round)
{
    return QString(valueLength, QChar(static_cast<char16_t>('a' + round % 26)));
}

QByteArray fileWith(const QString &value)
{
    return "; a comment that stays\r\n[S]\r\nK=" + value.toLatin1() + "\r\nLast=1\r\n";
}

/// What the child does until it is killed.
int writeForEver(const QStringList &arguments)
{
    ChooseAppFolder(arguments.value(0));
    std::puts("writing");
    std::fflush(stdout);
    for (int i = 0;; ++i)
        SaveOptionStr(u"S"_s, u"K"_s, valueOf(i));
}
} // namespace

class tst_SettingsCrash : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void aKillAtAnyMomentLeavesTheOldFileOrANewOne();
};

void tst_SettingsCrash::aKillAtAnyMomentLeavesTheOldFileOrANewOne()
{
    const TestFolder folder;
    folder.Write(u"options.ini"_s, fileWith(valueOf(0)));
    QRandomGenerator random(20260310);
    QSet<QByteArray> seen;
    for (int i = 0; i < kills; ++i) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {u"--write"_s, folder.Path()});
        QVERIFY(child.waitForStarted());
        QVERIFY(child.waitForReadyRead());
        QThread::usleep(random.bounded(1U, 20000U));
        child.kill();
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        const QByteArray content = folder.Read(u"options.ini"_s);
        const QString value = GetOptionStr(u"S"_s, u"K"_s);
        QCOMPARE(value.size(), valueLength);
        QCOMPARE(value, QString(valueLength, value.front()));
        QCOMPARE(content, fileWith(value));
        seen.insert(content);
    }
    // The child did write, or the kills would have proved nothing.
    QVERIFY(seen.size() > 1);
}

HALVANE_TEST_CHILD("--write", writeForEver)
HALVANE_TEST(tst_SettingsCrash)
#include "tst_SettingsCrash.moc"
