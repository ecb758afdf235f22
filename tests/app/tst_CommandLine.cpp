#include "app/CommandLine.h"

#include "core/VersionText.h"
#include "support/HalvaneTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_CommandLine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void options_data();
    void options();
    void error_data();
    void error();
    void versionIsPrinted();
    void helpNamesEveryOption();
    void helpNamesTheProgram();
    void aNewSearchIsAskedFor();
};

void tst_CommandLine::options_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("practice");
    QTest::addColumn<bool>("tour");
    QTest::addColumn<QString>("output");
    QTest::newRow("nothing") << QStringList{} << QString() << false << false << u"tour"_s;
    QTest::newRow("folder") << QStringList{u"--folder"_s, u"/a b"_s} << u"/a b"_s << false << false
                            << u"tour"_s;
    QTest::newRow("folder with =")
        << QStringList{u"--folder=/x"_s} << u"/x"_s << false << false << u"tour"_s;
    QTest::newRow("practice") << QStringList{u"--practice"_s} << QString() << true << false
                              << u"tour"_s;
    QTest::newRow("tour is a practice session")
        << QStringList{u"--tour"_s} << QString() << true << true << u"tour"_s;
    QTest::newRow("output") << QStringList{u"--tour"_s, u"--output"_s, u"/out"_s} << QString()
                            << true << true << u"/out"_s;
    QTest::newRow("all") << QStringList{u"--output"_s, u"o"_s,      u"--folder"_s,
                                        u"f"_s,        u"--tour"_s, u"--practice"_s}
                         << u"f"_s << true << true << u"o"_s;
}

void tst_CommandLine::options()
{
    QFETCH(QStringList, arguments);
    const StartOptions read = ReadCommandLine(QStringList{u"halvane"_s} + arguments);
    QCOMPARE(read.Error, QString());
    QCOMPARE(read.Information, QString());
    QTEST(read.Folder, "folder");
    QTEST(read.Practice, "practice");
    QTEST(read.Tour, "tour");
    QTEST(read.Output, "output");
}

void tst_CommandLine::error_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part");
    QTest::newRow("unknown option") << QStringList{u"--nonsense"_s} << u"nonsense"_s;
    QTest::newRow("folder without its value") << QStringList{u"--folder"_s} << u"folder"_s;
    QTest::newRow("output without its value")
        << QStringList{u"--tour"_s, u"--output"_s} << u"output"_s;
    QTest::newRow("argument") << QStringList{u"options.ini"_s}
                              << u"Unexpected argument: options.ini"_s;
}

void tst_CommandLine::error()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    const StartOptions read = ReadCommandLine(QStringList{u"halvane"_s} + arguments);
    QVERIFY2(read.Error.contains(part), qPrintable(read.Error));
}

void tst_CommandLine::versionIsPrinted()
{
    for (const QString &option : {u"--version"_s, u"-v"_s}) {
        const StartOptions read = ReadCommandLine({u"halvane"_s, option});
        QCOMPARE(read.Information, VersionText(u"Halvane"_s) + u'\n');
        QCOMPARE(read.Error, QString());
    }
}

void tst_CommandLine::helpNamesEveryOption()
{
    for (const QString &option : {u"--help"_s, u"-h"_s}) {
        const QString help = ReadCommandLine({u"halvane"_s, option}).Information;
        for (const QString &named : {u"--folder"_s, u"--practice"_s, u"--tour"_s, u"--output"_s,
                                     u"--new-search"_s, u"--version"_s, u"--help"_s})
            QVERIFY2(help.contains(named), qPrintable(named));
    }
}

/// With and without an application, and whatever the path.
void tst_CommandLine::helpNamesTheProgram()
{
    const QString help = ReadCommandLine({u"/opt/bin/halvane"_s, u"--help"_s}).Information;
    QVERIFY2(help.startsWith(u"Usage: halvane [options]\nHalvane searches court records.\n"_s),
             qPrintable(help));
}

void tst_CommandLine::aNewSearchIsAskedFor()
{
    QVERIFY(!ReadCommandLine({u"halvane"_s}).NewSearch);
    const StartOptions read = ReadCommandLine({u"halvane"_s, u"--new-search"_s});
    QVERIFY(read.NewSearch);
    QVERIFY(!read.Practice);
    QCOMPARE(read.Error, QString());
}

HALVANE_TEST(tst_CommandLine)
#include "tst_CommandLine.moc"
