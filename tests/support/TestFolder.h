#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// An application folder of a test's own, with the data files that are installed, and the program's
/// shared state as at its start. Make one at the beginning of each test function.
class TestFolder
{
public:
    TestFolder();
    ~TestFolder();

    QString Path(const QString &name = {}) const;
    QByteArray Read(const QString &name) const;
    void Write(const QString &name, const QByteArray &content) const;
    void Remove(const QString &name) const;

    /// The messages of the log, without their dates. A message with line ends of its own comes as
    /// several.
    QStringList Log() const;
    bool Logged(const QString &message) const;
    int TimesLogged(const QString &message) const;

    /// Puts all shared state back to that of a start: globals, link, turn queue.
    static void ResetProgram();

private:
    QTemporaryDir dir;
};
