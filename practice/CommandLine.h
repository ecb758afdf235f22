#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Practice {
/// What the command line sets. The faults say how the court misbehaves on every connection, so that
/// a program can be watched while its link is bad.
struct Switches
{
    quint16 port = 0; ///< 0: any free one
    QString dataFile;
    quint32 seed = 1;
    std::optional<qint64> split;      ///< bytes a chunk
    std::optional<qint64> drip;       ///< bytes a second
    std::optional<qint64> dropAfter;  ///< reply bytes, then the connection is closed
    std::optional<qint64> stallAfter; ///< reply bytes, then nothing more is sent
    qint64 documentPace = 0;          ///< bytes a second; 0: as fast as the client reads
    std::optional<int> pingEvery;     ///< milliseconds
    bool leaveBehind = false;
    bool refuse = false;
    bool untilInputCloses = false;
};

/// The command line, understood or not.
struct CommandLine
{
    enum class Outcome : quint8 { Run, ShowHelp, ShowVersion, Wrong };

    Outcome outcome = Outcome::Run;
    Switches switches;
    QString message; ///< what is wrong with it
};

/// Understands the arguments; the first one is the program's own name, as in main().
CommandLine ParseCommandLine(const QStringList &arguments);

/// What --help prints.
QString HelpText();
} // namespace Practice
