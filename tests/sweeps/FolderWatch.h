#pragma once

#include <QByteArray>
#include <QStringList>

/// Looks at what the program leaves on the disk, for what a text from outside must not do there.
class FolderWatch
{
public:
    /// Remembers what is there now, and which keys are in options.ini.
    explicit FolderWatch(const QString &folder);

    /// What is otherwise than it has to be. The log has entries only, each in one line; options.ini
    /// has the keys that it had, apart from `changedKeys` ("section/key"); new files lie where they
    /// belong, under names that hide nothing, for their owner only.
    QStringList Complaints(const QStringList &changedKeys = {}) const;

    /// The files of the folder, with their paths in it.
    static QStringList FilesIn(const QString &folder);

private:
    QStringList logComplaints(const QString &name) const;
    QStringList fileComplaints() const;
    QStringList keysNow() const;

    const QString folder;
    const QStringList filesBefore;
    const QStringList keysBefore;
};

/// "section/key" of every key in the text of an ini file, in order.
QStringList IniKeys(const QByteArray &text);

/// What is in a file; empty when it cannot be read.
QByteArray WholeFile(const QString &path);
