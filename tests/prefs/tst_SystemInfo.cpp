#include "prefs/SystemInfo.h"
#include "prefs/frmAbout.h"
#include "support/BoxAnswers.h"
#include "support/HalvaneTest.h"

#include <QMap>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const auto toolKey = uR"(SOFTWARE\Microsoft\Shared Tools\MSINFO)"_s;
const auto folderKey = uR"(SOFTWARE\Microsoft\Shared Tools Location)"_s;
const auto unavailable = u"System Information Is Unavailable At This Time"_s;

struct Machine
{
    QMap<QString, RegistryValue> registry; ///< key + "\" + name
    QStringList files;
    QStringList run;
    bool runs = true;

    SystemInfoSource Source()
    {
        return {.hasRegistry = true,
                .readValue = [this](const QString &key,
                                    const QString &name) -> std::optional<RegistryValue> {
                    const auto found = registry.constFind(key + u'\\' + name);
                    return found == registry.cend() ? std::nullopt : std::optional(*found);
                },
                .fileExists = [this](const QString &path) { return files.contains(path); },
                .run =
                    [this](const QString &path) {
                        run.append(path);
                        return runs;
                    }};
    }
};
} // namespace

Q_DECLARE_METATYPE(RegistryValue)

class tst_SystemInfo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void keyValue_data();
    void keyValue();
    void tool_data();
    void tool();
    void theToolIsRun();
    void withoutAToolTheBoxSaysSo();
    void aToolThatDoesNotStartIsUnavailable();
    void buttonStandsOnlyWhereThereIsARegistry();
    void thisMachineHasNoTool();
};

void tst_SystemInfo::keyValue_data()
{
    QTest::addColumn<RegistryValue>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << RegistryValue(u"C:\\a b.exe"_s) << u"C:\\a b.exe"_s;
    QTest::newRow("text up to the NUL")
        << RegistryValue(QString(u"abc"_s + QChar::Null + u"def"_s + QChar::Null)) << u"abc"_s;
    QTest::newRow("nothing before the NUL") << RegistryValue(QString(QChar::Null)) << QString();
    QTest::newRow("number") << RegistryValue(quint32(0x1AF)) << u"&h1AF"_s;
    QTest::newRow("zero") << RegistryValue(quint32(0)) << u"&h0"_s;
    QTest::newRow("the largest number") << RegistryValue(0xFFFFFFFFU) << u"&hFFFFFFFF"_s;
}

void tst_SystemInfo::keyValue()
{
    QFETCH(RegistryValue, value);
    QFETCH(QString, text);
    Machine machine{.registry = {{u"Key\\Name"_s, value}}, .files = {}, .run = {}};
    QCOMPARE(GetKeyValue(machine.Source(), u"Key"_s, u"Name"_s), text);
    QCOMPARE(GetKeyValue(machine.Source(), u"Key"_s, u"Other"_s), QString());
}

void tst_SystemInfo::tool_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("tool");
    const auto path = u"C:\\one\\msinfo.exe"_s;
    const auto there = u"D:\\two\\MSINFO32.EXE"_s;
    QTest::newRow("the first value") << path << QString() << QString() << path;
    QTest::newRow("the first value goes before the second")
        << path << u"D:\\two"_s << there << path;
    QTest::newRow("the second value") << QString() << u"D:\\two"_s << there << there;
    QTest::newRow("the second value without the file")
        << QString() << u"D:\\two"_s << QString() << QString();
    QTest::newRow("no folder, though a file of the name lies at the root")
        << QString() << QString() << u"\\MSINFO32.EXE"_s << QString();
    QTest::newRow("neither") << QString() << QString() << QString() << QString();
}

void tst_SystemInfo::tool()
{
    QFETCH(QString, path);
    QFETCH(QString, folder);
    QFETCH(QString, file);
    QFETCH(QString, tool);
    Machine machine{.registry = {}, .files = {file}, .run = {}};
    if (!path.isNull())
        machine.registry[toolKey + u"\\PATH"_s] = path;
    if (!folder.isNull())
        machine.registry[folderKey + u"\\MSINFO"_s] = folder;
    QCOMPARE(SystemInfoTool(machine.Source()), tool);
}

void tst_SystemInfo::theToolIsRun()
{
    BoxAnswers boxes;
    Machine machine{
        .registry = {{toolKey + u"\\PATH"_s, u"C:\\msinfo.exe"_s}}, .files = {}, .run = {}};
    frmAbout window(nullptr, machine.Source());
    window.show();
    QTest::mouseClick(window.findChild<QPushButton *>(u"cmdSysInfo"_s), Qt::LeftButton);
    QCOMPARE(machine.run, QStringList{u"C:\\msinfo.exe"_s});
    QCOMPARE(boxes.Complaints(), QString());
}

void tst_SystemInfo::withoutAToolTheBoxSaysSo()
{
    BoxAnswers boxes;
    Machine machine;
    frmAbout window(nullptr, machine.Source());
    boxes.Expect(unavailable, u"Halvane"_s);
    window.StartSysInfo();
    QCOMPARE(boxes.Answered(), 1);
    QCOMPARE(machine.run, QStringList());
    QCOMPARE(boxes.Complaints(), QString());
}

void tst_SystemInfo::aToolThatDoesNotStartIsUnavailable()
{
    BoxAnswers boxes;
    Machine machine{.registry = {{toolKey + u"\\PATH"_s, u"C:\\msinfo.exe"_s}},
                    .files = {},
                    .run = {},
                    .runs = false};
    frmAbout window(nullptr, machine.Source());
    boxes.Expect(unavailable, u"Halvane"_s);
    window.StartSysInfo();
    QCOMPARE(machine.run, QStringList{u"C:\\msinfo.exe"_s});
    QCOMPARE(boxes.Complaints(), QString());
}

void tst_SystemInfo::buttonStandsOnlyWhereThereIsARegistry()
{
    Machine machine;
    frmAbout with(nullptr, machine.Source());
    with.show();
    QVERIFY(with.findChild<QPushButton *>(u"cmdSysInfo"_s)->isVisible());
    SystemInfoSource none = machine.Source();
    none.hasRegistry = false;
    frmAbout without(nullptr, none);
    without.show();
    QVERIFY(!without.findChild<QPushButton *>(u"cmdSysInfo"_s)->isVisible());
    // The splash has no buttons at all.
    frmAbout splash(nullptr, machine.Source());
    splash.ShowAsSplash();
    QVERIFY(!splash.findChild<QPushButton *>(u"cmdSysInfo"_s)->isVisible());
    QVERIFY(!splash.findChild<QPushButton *>(u"cmdOK"_s)->isVisible());
}

void tst_SystemInfo::thisMachineHasNoTool()
{
#ifdef Q_OS_WIN
    QVERIFY(SystemInfoSource::OfThisMachine().hasRegistry);
#else
    const SystemInfoSource source = SystemInfoSource::OfThisMachine();
    QVERIFY(!source.hasRegistry);
    QCOMPARE(SystemInfoTool(source), QString());
    QVERIFY(!source.run(u"/nonexistent/tool"_s));
    BoxAnswers boxes;
    frmAbout window;
    boxes.Expect(unavailable, u"Halvane"_s);
    window.StartSysInfo();
    QCOMPARE(boxes.Complaints(), QString());
#endif
}

HALVANE_TEST(tst_SystemInfo)
#include "tst_SystemInfo.moc"
