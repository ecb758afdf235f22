#include "support/HalvaneTest.h"
#include "support/Places.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const QString program = ProgramPath(u"halvane"_s);
constexpr int tourMilliseconds = 90'000;

/// As on a machine without a display.
QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &display : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        environment.remove(display);
    return environment;
}
} // namespace

class tst_Tour : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theTourShowsWhatItMust();
    void aTourWithoutAPlaceForItsPicturesFails();
    void aTourTakesItsFolderAway_data();
    void aTourTakesItsFolderAway();
    void versionNeedsNoDisplay();
    void aWrongCommandLineIsRefused();
};

void tst_Tour::theTourShowsWhatItMust()
{
    const QTemporaryDir output;
    // The servers of somebody's real sessions.
    const QTemporaryDir folder;
    QFile installed(DataPath(u"options.ini"_s));
    QFile options(folder.filePath(u"options.ini"_s));
    QVERIFY(installed.open(QIODevice::ReadOnly) && options.open(QIODevice::ReadWrite));
    options.write(installed.readAll()
                      .replace("router1.halvane.example", "192.0.2.1")
                      .replace("HVServerPort=80", "HVServerPort=85"));
    options.close();
    QProcess tour;
    tour.setProcessEnvironment(withoutDisplay());
    tour.start(program, {u"--tour"_s, u"--output"_s, output.path(), u"--folder"_s, folder.path()});
    QVERIFY(tour.waitForFinished(tourMilliseconds));
    const QString said = QString::fromUtf8(tour.readAllStandardOutput());
    QVERIFY2(tour.exitStatus() == QProcess::NormalExit && tour.exitCode() == 0, qPrintable(said));
    QVERIFY2(said.contains(u"Search Complete: 2 Cases Retrieved."), qPrintable(said));
    // Nor is anything said of what cannot be done without a display.
    const QByteArray complaints = tour.readAllStandardError();
    QVERIFY2(!complaints.contains("plugin"), complaints.constData());
    QVERIFY(said.contains(u"SMITH, JOHN"));
    QVERIFY(said.contains(u"Tour complete"));
    // A document has come into the folder of the documents, and so have all that can be had.
    const QDir reports(folder.filePath(u"Reports"_s));
    QFile document(reports.filePath(u"King 94-1-00042-1 11-07-1994 14 Pgs  Information.pdf"_s));
    QVERIFY(document.open(QIODevice::ReadOnly));
    QVERIFY(document.readAll().startsWith("%PDF-"));
    const QStringList all = QDir(reports.filePath(u"King 94-1-00042-1"_s)).entryList(QDir::Files);
    QVERIFY(all.contains(u"documents.csv"));
    QCOMPARE(all.size(), 11);
    QVERIFY(said.contains(u"10 of 10 Documents"));
    // The reports, by their names.
    const QString list = u"SMITH, JOHN, Q in King County, Washington Superior Courts"_s;
    const QStringList reported{list + u".pdf"_s, list + u".Txt"_s,
                               u"94-1-00042-1 -- King County Superior Court.pdf"_s};
    for (const QString &report : reported) {
        QVERIFY2(said.contains(u"report: "_s + output.filePath(report)), qPrintable(said));
        QVERIFY2(QFileInfo(output.filePath(report)).size() > 500, qPrintable(report));
    }
    // It has talked to a practice court, and left no trace of it there.
    QVERIFY(options.open(QIODevice::ReadOnly));
    const QByteArray left = options.readAll();
    QVERIFY(left.contains("HVServerIP1=192.0.2.1\n") || left.contains("HVServerIP1=192.0.2.1\r\n"));
    QVERIFY(left.contains("HVServerPort=85") && !left.contains("127.0.0.1"));
    const QStringList pictures = QDir(output.path()).entryList({u"*.png"_s}, QDir::Files);
    for (const QString &name : {u"connect"_s,
                                u"login"_s,
                                u"form-district"_s,
                                u"form-oregon"_s,
                                u"form-idaho"_s,
                                u"form-bankruptcy"_s,
                                u"form-number"_s,
                                u"form-batch"_s,
                                u"search-form"_s,
                                u"results"_s,
                                u"case-summary"_s,
                                u"case-on-demand"_s,
                                u"case-docket"_s,
                                u"case-documents"_s,
                                u"document-transfer"_s,
                                u"all-documents"_s,
                                u"results-report"_s,
                                u"print-manager"_s,
                                u"case-report"_s,
                                u"civil-case-judgments"_s,
                                u"non-civil-case-violations"_s}) {
        const QStringList found =
            pictures.filter(QRegularExpression(u"^\\d+-"_s + name + u"\\.png$"_s));
        QVERIFY2(found.size() == 1, qPrintable(name));
        const QImage picture(output.filePath(found.first()));
        QVERIFY2(picture.width() > 100 && picture.height() > 100, qPrintable(name));
    }
}

void tst_Tour::aTourWithoutAPlaceForItsPicturesFails()
{
    QProcess tour;
    tour.start(program, {u"--tour"_s, u"--output"_s, u"/dev/null/pictures"_s});
    QVERIFY(tour.waitForFinished(tourMilliseconds));
    QCOMPARE(tour.exitCode(), 1);
    QVERIFY(tour.readAllStandardOutput().contains("Tour failed: Cannot create"));
}

void tst_Tour::aTourTakesItsFolderAway_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("at its end") << QString() << 0;
    QTest::newRow("when it fails") << u"/dev/null/pictures"_s << 1;
}

void tst_Tour::aTourTakesItsFolderAway()
{
    // Its settings and its log hold a password.
    QFETCH(QString, output);
    const QTemporaryDir pictures;
    const QTemporaryDir temporary;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"TMPDIR"_s, temporary.path());
    // The platform would make one of its own among the temporary files.
    environment.insert(u"XDG_RUNTIME_DIR"_s, pictures.path());
    QProcess tour;
    tour.setProcessEnvironment(environment);
    tour.start(program, {u"--tour"_s, u"--output"_s, output.isEmpty() ? pictures.path() : output});
    QVERIFY(tour.waitForStarted());
    const QDir folder(temporary.path());
    QTRY_VERIFY_WITH_TIMEOUT(!folder.isEmpty() || tour.state() == QProcess::NotRunning,
                             tourMilliseconds);
    QVERIFY(tour.state() == QProcess::NotRunning || tour.waitForFinished(tourMilliseconds));
    QTEST(tour.exitCode(), "exitCode");
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_Tour::versionNeedsNoDisplay()
{
    QProcess process;
    process.setProcessEnvironment(withoutDisplay());
    process.start(program, {u"--version"_s});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QByteArray said = process.readAllStandardOutput();
    QVERIFY2(said.startsWith("Halvane "), said);
    QVERIFY2(said.contains("\nPlatform plugin: none loaded, "), said);
    QVERIFY2(said.contains("\nBuild: "), said);
}

void tst_Tour::aWrongCommandLineIsRefused()
{
    QProcess process;
    process.start(program, {u"--nonsense"_s});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QVERIFY(process.readAllStandardError().startsWith("halvane: "));
}

HALVANE_TEST(tst_Tour)
#include "tst_Tour.moc"
