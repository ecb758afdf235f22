#include "sweeps/DaysRun.h"

#include "support/Places.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {
/// The longest day, on a machine that has other things to do, too.
constexpr int dayMilliseconds = 120'000;
/// What the log may grow to before it is put aside, and how far before that the day begins.
constexpr qsizetype logBytes = 1'024'000 - 8'000;

QString beside(const QString &name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

/// What somebody has who was here before: entries of their own, and a code to be asked for.
FolderImage firstFiles()
{
    FolderImage image = ReadFolder(DataPath());
    image[u"options.ini"_s].replace("EnableAcctg=0", "EnableAcctg=1");
    for (const QString &name :
         {u"MruIName.txt"_s, u"MruBName.txt"_s, u"MruCases.txt"_s, u"MruAcctg.txt"_s})
        image[name] = "AN OLD ENTRY\r\nAN OLDER ONE\r\n";
    return image;
}

/// The files of one day as the next one finds them: what it writes is there already, as another
/// file, or is missing, and the log is about to be put aside.
FolderImage nextMorning(const FolderImage &first, const FolderImage &evening)
{
    FolderImage image = first;
    for (auto one = evening.cbegin(); one != evening.cend(); ++one) {
        if (one.key().count(u'/') == 1)
            image[one.key()] = "What was here before.\r\n";
    }
    image[u"history.db"_s] = evening.value(u"history.db"_s);
    for (const QString &copied : {u"Helpstep2.Rtf"_s, u"OrCtyLst.txt"_s})
        image.remove(copied);
    const QByteArray entry = "9 Mar 2026 10:00:00 -- Yesterday.\r\n";
    image[u"AppInfo.txt"_s] = entry.repeated(logBytes / entry.size());
    image[u"AppInfo.bak"_s] = entry;
    return image;
}

/// What differs from run to run by itself is fixed: how dates are written, and in which order a PDF
/// has its fonts.
QProcessEnvironment daysEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C"_s);
    environment.insert(u"QT_HASH_SEED"_s, u"0"_s);
    return environment;
}
} // namespace

void DaysRun::start(const QProcessEnvironment &environment)
{
    QFile::remove(folder.filePath(u"trace"_s));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(beside(u"halvane_day"_s), {AppPath(), DataPath(), QString::number(port)});
}

void DaysRun::Start()
{
    start(daysEnvironment());
}

void DaysRun::StartOnFailingDisk(const QString &fault)
{
    QProcessEnvironment environment = daysEnvironment();
    environment.insert(u"LD_PRELOAD"_s, beside(u"halvane_failing_calls.so"_s));
    environment.insert(u"HALVANE_DAY_ROOT"_s, AppPath());
    environment.insert(u"HALVANE_DAY_TRACE"_s, folder.filePath(u"trace"_s));
    if (!fault.isEmpty())
        environment.insert(u"HALVANE_DAY_FAULT"_s, fault);
    start(environment);
}

bool DaysRun::Finish()
{
    if (process.waitForFinished(dayMilliseconds))
        return true;
    process.kill();
    process.waitForFinished();
    return false;
}

bool DaysRun::KillAfter(int milliseconds)
{
    if (process.waitForFinished(milliseconds) || process.state() == QProcess::NotRunning)
        return false;
    process.kill();
    process.waitForFinished();
    return true;
}

QString DaysRun::ComplaintOfEnd() const
{
    if (process.exitStatus() != QProcess::NormalExit)
        return u"it has crashed, or never ended"_s;
    return process.exitCode() == 0 ? QString()
                                   : u"it ended with "_s + QString::number(process.exitCode());
}

QStringList DaysRun::Said()
{
    QStringList lines = QString::fromUtf8(process.readAll()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString &line) { return line.startsWith(u"This plugin does not"); });
    return lines;
}

QStringList DaysRun::Calls() const
{
    QFile trace(folder.filePath(u"trace"_s));
    return trace.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(trace.readAll()).split(u'\n', Qt::SkipEmptyParts)
               : QStringList();
}

QString DaysCourt::liveThrough(DaysRun &run, const FolderImage &before) const
{
    run.SetFiles(before);
    run.Start();
    if (!run.Finish())
        return u"The day never ends."_s;
    return run.ComplaintOfEnd();
}

QString DaysCourt::Open()
{
    if (!court.Start(ProgramPath(u"halvane-practice"_s)))
        return court.Error();
    DaysRun run(court.Port());
    const FolderImage first = firstFiles();
    QString complaint = liveThrough(run, first);
    if (!complaint.isEmpty())
        return complaint + u" "_s + run.Said().join(u'\n');
    run.Said();
    Files.Before = nextMorning(first, run.Files());
    complaint = liveThrough(run, Files.Before);
    Files.After = run.Files();
    Said = run.Said();
    return complaint;
}

QStringList DaysCourt::ComplaintsOfKilled(DaysRun &run) const
{
    QStringList wrong{ComplaintOfFiles(Files, run.Files(), DaysEnd::Killed)};
    run.Said();
    run.Start();
    if (!run.Finish() || !run.ComplaintOfEnd().isEmpty())
        wrong.append(u"the next day: "_s + run.ComplaintOfEnd());
    const QStringList said = run.Said();
    for (const QString &line : said) {
        for (const QStringView trouble : {u"in vain", u"cannot", u"refused", u"shown:"}) {
            if (line.startsWith(trouble))
                wrong.append(u"the next day says: "_s + line);
        }
    }
    const FolderImage left = run.Files();
    wrong.append(ComplaintOfFiles(Files, left, DaysEnd::ByItself));
    wrong.append(FilesNotWritten(Files, left));
    wrong.append(ComplaintOfHistory(run.AppPath() + u"/history.db"_s));
    wrong.removeAll(QString());
    return wrong;
}
