#pragma once

#include <QProcess>
#include <QString>

/// A practice court of our own: a server on this machine, on a free port, that lives as long as
/// this object and never longer than this process (it ends when its standard input closes).
class PracticeCourt
{
public:
    /// Starts `program`. False when it cannot be started or does not say its port in ten seconds;
    /// Error() then tells why.
    bool Start(const QString &program, const QStringList &switches = {});

    quint16 Port() const { return port; }
    const QString &Error() const { return error; }

    /// The practice court that is installed, or was built, beside the running program.
    static QString Program();

    ~PracticeCourt();

private:
    QProcess process;
    quint16 port = 0;
    QString error;
};

/// Makes the court the one server of this run, without a trace in options.ini, and lets the login
/// through on a machine that is in no network.
void PointSessionAt(quint16 port);
