#include "app/CommandLine.h"
#include "app/PracticeCourt.h"
#include "app/SingleInstance.h"
#include "app/Startup.h"
#include "app/Termination.h"
#include "app/Tour.h"
#include "controls/WindowPlace.h"
#include "core/AppFolder.h"
#include "core/Log.h"
#include "core/Platform.h"
#include "core/RunTimeError.h"
#include "core/Version.h"
#include "session/frmMain.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {
constexpr int exitUsage = 2;

/// No exception may travel through Qt's event loop. Every procedure that can raise one traps it;
/// what comes here was overlooked, is logged, and costs one event and not the session.
class HalvaneApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const RunTimeError &error) {
            WriteAppInfo(u"Untrapped error "_s + QString::number(error.Number()) + u": "_s
                         + error.Description());
            return false;
        }
    }
};

StartOptions optionsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return ReadCommandLine(arguments);
}

int complain(const QString &text, int exitCode)
{
    std::fputs(qUtf8Printable(u"halvane: "_s + text + u'\n'), stderr);
    return exitCode;
}

/// Practice keeps its own folder: made-up servers and passwords do not belong among real settings.
QString practiceFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + u"/practice"_s;
}

/// The platform without a display complains of what it cannot do; a person who plays the tour there
/// knows that, and wants to read the steps.
void quietHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg && message.startsWith(u"This plugin does not support"))
        return;
    std::fputs(qUtf8Printable(qFormatLogMessage(type, context, message) + u'\n'), stderr);
}

int run(const StartOptions &options)
{
    std::optional<QTemporaryDir> tourFolder;
    QString folder = options.Folder;
    if (folder.isEmpty() && options.Tour)
        folder = tourFolder.emplace().path();
    else if (folder.isEmpty() && options.Practice)
        folder = practiceFolder();
    try {
        ChooseAppFolder(folder);
    } catch (const RunTimeError &error) {
        return complain(u"cannot use the folder "_s + folder + u": "_s + error.Description(), 1);
    }
    SingleInstance instance(QFileInfo(AppFolder()).canonicalFilePath());
    if (!instance.Claim(options.NewSearch ? SecondStart::NewSearch : SecondStart::ComeForward))
        return instance.AnotherRuns() ? 0
                                      : complain(u"cannot tell whether a copy runs already"_s, 1);
    KeepFilesForOwner();
    CopyMissingDataFiles(InstalledDataFolder());

    PracticeCourt court;
    if (options.Practice) {
        // Slow enough for a picture of a document on its way.
        const QStringList pace{u"--document-pace"_s, u"60000"_s};
        if (!court.Start(PracticeCourt::Program(), options.Tour ? pace : QStringList()))
            return complain(court.Error(), 1);
        PointSessionAt(court.Port());
    }
    WireWindows();
    CloseOnTermination();
    QObject::connect(&instance, &SingleInstance::Activated, &instance, [] {
        if (frmMain *main = frmMain::Form())
            BringToFront(main);
    });
    QObject::connect(&instance, &SingleInstance::SearchWanted, &instance, &ShowSearchFormOnRequest);
    // The program ends without unwinding, so whoever ends it has to take the folder away: its log
    // holds the password of the tour's login.
    Tour tour(options.Output, [&tourFolder] { tourFolder.reset(); });
    if (options.Tour)
        tour.Start();
    Main(options.Practice);
    return QApplication::exec();
}
} // namespace

int main(int argc, char **argv)
{
    const StartOptions options = optionsOf(argc, argv);
    if (!options.Error.isEmpty())
        return complain(options.Error, exitUsage);
    if (!options.Information.isEmpty()) {
        std::fputs(qUtf8Printable(options.Information), stdout);
        return 0;
    }
    if (options.Tour && !HasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (options.Tour)
        qInstallMessageHandler(&quietHandler);
    QApplication::setApplicationName(u"Halvane"_s);
    QApplication::setApplicationVersion(ProgramVersion());
    QApplication::setDesktopFileName(u"example.halvane.Halvane"_s);
    const HalvaneApplication application(argc, argv);
    // The session lives in the main window's own rules of closing, not in "the last window closed".
    QApplication::setQuitOnLastWindowClosed(false);
    return run(options);
}
