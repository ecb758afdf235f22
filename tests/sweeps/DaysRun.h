#pragma once

#include "app/PracticeCourt.h"
#include "sweeps/DaysFolder.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// One day at the program, in a process and a folder of its own.
class DaysRun
{
public:
    explicit DaysRun(quint16 courtPort) : port(courtPort) {}

    QString AppPath() const { return folder.filePath(QStringLiteral("app")); }
    /// The folder as the next day finds it.
    void SetFiles(const FolderImage &image) const { WriteFolder(AppPath(), image); }
    FolderImage Files() const { return ReadFolder(AppPath()); }

    /// Starts the day; with a fault, as FailingCalls.cpp reads it, or counting the calls only ("").
    void StartOnFailingDisk(const QString &fault);
    void Start();
    /// Waits for its end. False when it has to be ended.
    bool Finish();
    /// Ends it after so many milliseconds, unless it has come to its end. False then.
    bool KillAfter(int milliseconds);

    /// "" when it has come to its end as a program does.
    QString ComplaintOfEnd() const;
    /// What was done, and what the program said; what the platform complains of is left out.
    QStringList Said();
    /// The calls of the day, in their order.
    QStringList Calls() const;

private:
    void start(const QProcessEnvironment &environment);

    QTemporaryDir folder;
    QProcess process;
    quint16 port;
};

/// The court of all days, and what a day begins and ends with when nothing is broken.
class DaysCourt
{
public:
    /// "" when all is there, otherwise what went wrong.
    QString Open();
    std::unique_ptr<DaysRun> NewRun() const { return std::make_unique<DaysRun>(court.Port()); }

    /// What is wrong in the folder of a day that was killed: with what it has left, and then with
    /// the next day, which is lived through here. It has to begin and to end as any other, hear of
    /// no damage, and leave nothing over.
    QStringList ComplaintsOfKilled(DaysRun &run) const;

    DaysFiles Files;
    QStringList Said;

private:
    QString liveThrough(DaysRun &run, const FolderImage &before) const;

    PracticeCourt court;
};
