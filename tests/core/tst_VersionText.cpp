#include "core/Version.h"
#include "core/VersionText.h"
#include "support/HalvaneTest.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif

/// The value of the line of this name, nothing without one.
QString valueOf(const QString &name)
{
    const QStringList lines = VersionText(u"a program"_s).split(u'\n');
    for (const QString &line : lines) {
        if (line.startsWith(name + u": "_s))
            return line.mid(name.size() + 2);
    }
    return {};
}
} // namespace

class tst_VersionText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theFirstLineIsTheProgram();
    void everyLineIsThereOnce();
    void qtIsTheOneThatRuns();
    void theSystemIsThisMachine();
    void withoutWindowsItSaysWhatChoosesThePlugin();
    void thePluginIsTheOneThatIsLoaded();
    void theBuildIsThisOne();
};

void tst_VersionText::theFirstLineIsTheProgram()
{
    QCOMPARE(VersionText(u"a program"_s).section(u'\n', 0, 0), u"a program "_s + ProgramVersion());
}

void tst_VersionText::everyLineIsThereOnce()
{
    QStringList names = VersionText(u"a program"_s).split(u'\n').mid(1);
    for (QString &name : names)
        name = name.section(u": "_s, 0, 0);
    QCOMPARE(names, (QStringList{u"Qt"_s, u"System"_s, u"Platform plugin"_s, u"Build"_s}));
}

void tst_VersionText::qtIsTheOneThatRuns()
{
    QCOMPARE(valueOf(u"Qt"_s), QString::fromLatin1(qVersion()) + u", compiled with "_s
                                   + QString::fromLatin1(QT_VERSION_STR));
}

void tst_VersionText::theSystemIsThisMachine()
{
    const QString system = valueOf(u"System"_s);
    for (const QString &part : {QSysInfo::prettyProductName(), QSysInfo::kernelVersion(),
                                QSysInfo::currentCpuArchitecture()}) {
        QVERIFY(!part.isEmpty());
        QVERIFY2(system.contains(part), qPrintable(system));
    }
}

void tst_VersionText::withoutWindowsItSaysWhatChoosesThePlugin()
{
    const QByteArray session = qgetenv("XDG_SESSION_TYPE");
    qputenv("XDG_SESSION_TYPE", "wayland");
    qunsetenv("QT_QPA_PLATFORM");
    const QString chosen = valueOf(u"Platform plugin"_s);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_SESSION_TYPE", session);
    QCOMPARE(chosen, u"none loaded, QT_QPA_PLATFORM is not set, XDG_SESSION_TYPE is wayland"_s);
}

void tst_VersionText::thePluginIsTheOneThatIsLoaded()
{
    QCoreApplication *application = QCoreApplication::instance();
    application->setProperty("platformName", u"of this test"_s);
    const QString loaded = valueOf(u"Platform plugin"_s);
    application->setProperty("platformName", QVariant());
    QCOMPARE(loaded, u"of this test"_s);
}

void tst_VersionText::theBuildIsThisOne()
{
    const QString build = valueOf(u"Build"_s);
    QVERIFY2(build.endsWith(QSysInfo::buildAbi()), qPrintable(build));
#ifdef NDEBUG
    QVERIFY2(!build.startsWith(u"Debug,"_s), qPrintable(build));
#else
    QVERIFY2(!build.startsWith(u"Rel"_s), qPrintable(build));
#endif
    QCOMPARE(build.contains(u" with sanitizers (address"_s), sanitized);
}

HALVANE_TEST(tst_VersionText)
#include "tst_VersionText.moc"
