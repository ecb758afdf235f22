#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// While it lives, the desktop opens mails with a program of the test's: it notes its arguments in
/// this folder and then ends with a code, or does what it is told in the shell's words.
class MailProgram
{
public:
    explicit MailProgram(const QString &folder, int exitCode = 0);
    MailProgram(const QString &folder, const QString &shellWords);
    ~MailProgram();
    MailProgram(const MailProgram &) = delete;
    MailProgram &operator=(const MailProgram &) = delete;

    bool WasCalled() const;
    /// Of the last call.
    QStringList Arguments() const;

private:
    QString notes;
    QByteArray pathBefore;
};

/// While it lives, there is none.
class NoMailProgram
{
public:
    NoMailProgram();
    ~NoMailProgram();
    NoMailProgram(const NoMailProgram &) = delete;
    NoMailProgram &operator=(const NoMailProgram &) = delete;

private:
    QByteArray pathBefore;
};
