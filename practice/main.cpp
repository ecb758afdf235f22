#include "core/Platform.h"
#include "core/VersionText.h"
#include "practice/CommandLine.h"
#include "practice/CourtServer.h"
#include "practice/ExtraPeople.h"
#include "practice/Grumble.h"
#include "practice/MadeUpPeople.h"

#include <QCoreApplication>
#include <QDate>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
enum ExitCode : int { Fine = 0, CannotListen = 1, BadArguments = 2 };

void say(const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    // Whoever started the court waits for this line.
    std::fflush(stdout);
}

/// Reads the file of extra people; false when there is none to read.
bool addDataFile(const QString &path, Practice::Population &population)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Practice::Grumble(u"cannot read %1: %2"_s.arg(path, file.errorString()));
        return false;
    }
    const Practice::ExtraPeopleOutcome outcome = Practice::AddExtraPeople(population, file);
    for (const QString &complaint : outcome.complaints)
        Practice::Grumble(u"%1, %2, skipped"_s.arg(path, complaint));
    return true;
}

int run(const Practice::Switches &switches)
{
    Practice::Population population = Practice::MakePopulation(switches.seed, QDate::currentDate());
    if (!switches.dataFile.isEmpty() && !addDataFile(switches.dataFile, population))
        return BadArguments;

    Practice::CourtServer server(population, switches);
    if (!server.Listen()) {
        Practice::Grumble(
            u"cannot listen on 127.0.0.1:%1: %2"_s.arg(switches.port).arg(server.ErrorText()));
        return CannotListen;
    }
    say(u"halvane-practice: listening on 127.0.0.1:%1\n"_s.arg(server.Port()));
    if (switches.untilInputCloses)
        WatchInput(&server, [] { QCoreApplication::quit(); });
    return QCoreApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    using Outcome = Practice::CommandLine::Outcome;
    const Practice::CommandLine line = Practice::ParseCommandLine(QCoreApplication::arguments());
    switch (line.outcome) {
    case Outcome::ShowHelp:
        say(Practice::HelpText());
        return Fine;
    case Outcome::ShowVersion:
        say(VersionText(u"halvane-practice"_s) + u'\n');
        return Fine;
    case Outcome::Wrong:
        Practice::Grumble(u"%1 (see --help)"_s.arg(line.message));
        return BadArguments;
    case Outcome::Run:
        break;
    }
    return run(line.switches);
}
