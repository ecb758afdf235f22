// Opening a file by the desktop: xdg-open, wherever PATH has it, with the path as its one argument;
// the system's wish that the program ends; and whether there is a display.

#include "core/Platform.h"
#include "support/HalvaneTest.h"
#include "support/TestFolder.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <map>

using namespace Qt::StringLiterals;

class tst_Platform : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void thePathIsOneArgument_data();
    void thePathIsOneArgument();
    void withoutXdgOpen();
    void theShellIsReplaced();
    void eachWishToEndIsPassedOnOnce();
    void aDisplayIsNamedByTheEnvironment_data();
    void aDisplayIsNamedByTheEnvironment();

private:
    std::unique_ptr<TestFolder> folder;
    QByteArray path;
};

/// An xdg-open of the test's own, which writes each of its arguments on a line of its own.
void tst_Platform::init()
{
    folder = std::make_unique<TestFolder>();
    path = qgetenv("PATH");
    folder->Write(u"xdg-open"_s,
                  "#!/bin/sh\nfor one in \"$@\"; do printf '%s\\n' \"<$one>\"; done > \""
                      + folder->Path(u"opened.part"_s).toUtf8() + "\"\nmv \""
                      + folder->Path(u"opened.part"_s).toUtf8() + "\" \""
                      + folder->Path(u"opened"_s).toUtf8() + "\"\n");
    QFile::setPermissions(folder->Path(u"xdg-open"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void tst_Platform::cleanup()
{
    qputenv("PATH", path);
    ReplaceShell({});
    folder.reset();
}

void tst_Platform::thePathIsOneArgument_data()
{
    QTest::addColumn<QString>("file");
    for (const char *file : {"/tmp/a.pdf", "/tmp/King 02-2  Pgs  A.PDF",
                             "/tmp/$(touch x);`id` & '\".pdf", "/tmp/--help", "/tmp/a%20b#c?d.pdf"})
        QTest::newRow(file) << QString::fromLatin1(file);
}

void tst_Platform::thePathIsOneArgument()
{
    QFETCH(QString, file);
    qputenv("PATH", folder->Path().toUtf8() + ':' + path);
    QVERIFY(OpenByShell(file));
    QTRY_VERIFY(QFile::exists(folder->Path(u"opened"_s)));
    QCOMPARE(folder->Read(u"opened"_s), '<' + file.toUtf8() + ">\n");
}

void tst_Platform::withoutXdgOpen()
{
    qputenv("PATH", folder->Path(u"nowhere"_s).toUtf8());
    QVERIFY(!OpenByShell(u"/tmp/a.pdf"_s));
}

void tst_Platform::theShellIsReplaced()
{
    QString opened;
    ReplaceShell([&opened](const QString &file) {
        opened = file;
        return false;
    });
    QVERIFY(!OpenByShell(u"/tmp/a.pdf"_s));
    QCOMPARE(opened, u"/tmp/a.pdf"_s);
}

/// What comes a second time is the system's own business again, which is the end of the process.
void tst_Platform::eachWishToEndIsPassedOnOnce()
{
    int wishes = 0;
    OnTermination([&wishes] { ++wishes; });
    int expected = 0;
    for (const int wish : {SIGTERM, SIGINT, SIGHUP}) {
        QCOMPARE(std::raise(wish), 0);
        QCOMPARE(wishes, expected); // not inside the signal
        ++expected;
        QTRY_COMPARE(wishes, expected);
        QVERIFY(std::signal(wish, SIG_DFL) == SIG_DFL);
    }
}

void tst_Platform::aDisplayIsNamedByTheEnvironment_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("display");
    QTest::newRow("nothing") << QByteArray("HALVANE_NOTHING") << false;
    QTest::newRow("X11") << QByteArray("DISPLAY") << true;
    QTest::newRow("Wayland") << QByteArray("WAYLAND_DISPLAY") << true;
    QTest::newRow("Qt's own choice") << QByteArray("QT_QPA_PLATFORM") << true;
}

void tst_Platform::aDisplayIsNamedByTheEnvironment()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, display);
    std::map<QByteArray, QByteArray> before;
    for (const char *one : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (qEnvironmentVariableIsSet(one)) {
            before[one] = qgetenv(one);
            qunsetenv(one);
        }
    qputenv(name, "x");
    const bool found = HasDisplay();
    qunsetenv(name);
    for (const auto &[one, value] : before)
        qputenv(one, value);
    QCOMPARE(found, display);
}

HALVANE_TEST(tst_Platform)
#include "tst_Platform.moc"
