#include "practice/CommandLine.h"

#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace Practice {
namespace {
enum class Switch : quint8 {
    Port,
    Data,
    Seed,
    Split,
    Drip,
    DropAfter,
    StallAfter,
    DocumentPace,
    PingEvery,
    LeaveBehind,
    Refuse,
    UntilStdinCloses,
    Version,
    Help,
};

enum class Takes : quint8 { Nothing, Number, Text };

struct SwitchRow
{
    Switch which;
    const char16_t *name;
    Takes takes;
    const char16_t *argument;
    qint64 least;
    qint64 most;
    const char16_t *help;
};

constexpr qint64 anyCount = std::numeric_limits<qint64>::max();
constexpr qint64 aDay = 86'400'000;

constexpr std::array<SwitchRow, 14> rows{{
    {Switch::Port, u"--port", Takes::Number, u"N", 0, 65'535,
     u"listen on this port of 127.0.0.1; 0 (default) picks a free one"},
    {Switch::Data, u"--data", Takes::Text, u"FILE", 0, 0, u"people and cases to add"},
    {Switch::Seed, u"--seed", Takes::Number, u"N", 0, std::numeric_limits<quint32>::max(),
     u"make up other people (default 1)"},
    {Switch::Split, u"--split", Takes::Number, u"N", 1, anyCount,
     u"write replies in chunks of N bytes"},
    {Switch::Drip, u"--drip", Takes::Number, u"N", 1, 1'000'000'000, u"send N bytes a second"},
    {Switch::DropAfter, u"--drop-after", Takes::Number, u"N", 0, anyCount,
     u"close a connection after N reply bytes"},
    {Switch::StallAfter, u"--stall-after", Takes::Number, u"N", 0, anyCount,
     u"send nothing more after N reply bytes"},
    {Switch::DocumentPace, u"--document-pace", Takes::Number, u"N", 1, 1'000'000'000,
     u"send documents at N bytes a second"},
    {Switch::PingEvery, u"--ping-every", Takes::Number, u"MS", 1, aDay,
     u"ping an idle client every MS milliseconds"},
    {Switch::LeaveBehind, u"--leave-behind", Takes::Nothing, u"", 0, 0,
     u"leave a stray reply behind each reply"},
    {Switch::Refuse, u"--refuse", Takes::Nothing, u"", 0, 0, u"close each connection at once"},
    {Switch::UntilStdinCloses, u"--until-stdin-closes", Takes::Nothing, u"", 0, 0,
     u"end when standard input ends"},
    {Switch::Version, u"--version", Takes::Nothing, u"", 0, 0,
     u"print the version, and what it runs on, and end"},
    {Switch::Help, u"--help", Takes::Nothing, u"", 0, 0, u"print this text and end"},
}};

const SwitchRow *findRow(QStringView name)
{
    for (const SwitchRow &row : rows) {
        if (name == QStringView(row.name))
            return &row;
    }
    return nullptr;
}

/// Stores what the switch sets; `number` and `text` hold its argument. True when nothing after it
/// matters any more.
bool apply(Switch which, qint64 number, const QString &text, CommandLine &line)
{
    Switches &switches = line.switches;
    switch (which) {
    case Switch::Port:
        switches.port = static_cast<quint16>(number);
        return false;
    case Switch::Data:
        switches.dataFile = text;
        return false;
    case Switch::Seed:
        switches.seed = static_cast<quint32>(number);
        return false;
    case Switch::Split:
        switches.split = number;
        return false;
    case Switch::Drip:
        switches.drip = number;
        return false;
    case Switch::DropAfter:
        switches.dropAfter = number;
        return false;
    case Switch::StallAfter:
        switches.stallAfter = number;
        return false;
    case Switch::DocumentPace:
        switches.documentPace = number;
        return false;
    case Switch::PingEvery:
        switches.pingEvery = static_cast<int>(number);
        return false;
    case Switch::LeaveBehind:
        switches.leaveBehind = true;
        return false;
    case Switch::Refuse:
        switches.refuse = true;
        return false;
    case Switch::UntilStdinCloses:
        switches.untilInputCloses = true;
        return false;
    case Switch::Version:
        line.outcome = CommandLine::Outcome::ShowVersion;
        return true;
    case Switch::Help:
        line.outcome = CommandLine::Outcome::ShowHelp;
        return true;
    }
    return false;
}

CommandLine wrong(const QString &message)
{
    CommandLine line;
    line.outcome = CommandLine::Outcome::Wrong;
    line.message = message;
    return line;
}

/// The number in `text`; nullopt when it is none, or out of the row's range.
std::optional<qint64> parseNumber(const SwitchRow &row, const QString &text)
{
    if (text.isEmpty() || !text.front().isDigit()) // no sign, no blank
        return std::nullopt;
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber || number < row.least || number > row.most)
        return std::nullopt;
    return number;
}

QString rangeOf(const SwitchRow &row)
{
    if (row.most == anyCount)
        return u"a whole number from %1 up"_s.arg(row.least);
    return u"a whole number from %1 to %2"_s.arg(row.least).arg(row.most);
}
} // namespace

CommandLine ParseCommandLine(const QStringList &arguments)
{
    CommandLine line;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        const qsizetype equals = argument.startsWith(u"--"_s) ? argument.indexOf(u'=') : -1;
        const QString name = equals < 0 ? argument : argument.left(equals);
        const SwitchRow *row = findRow(name);
        if (row == nullptr)
            return wrong(u"unknown argument \"%1\""_s.arg(argument));
        if (row->takes == Takes::Nothing && equals >= 0)
            return wrong(u"%1 takes no argument"_s.arg(name));

        QString text;
        if (equals >= 0)
            text = argument.mid(equals + 1);
        else if (row->takes != Takes::Nothing && i + 1 < arguments.size())
            text = arguments[++i];
        if (row->takes == Takes::Text && text.isEmpty())
            return wrong(u"%1 needs a file name"_s.arg(name));
        std::optional<qint64> number;
        if (row->takes == Takes::Number) {
            number = parseNumber(*row, text);
            if (!number)
                return wrong(u"%1 needs %2, not \"%3\""_s.arg(name, rangeOf(*row), text));
        }
        if (apply(row->which, number.value_or(0), text, line))
            return line;
    }
    return line;
}

QString HelpText()
{
    QString text = u"Usage: halvane-practice [switches]\n\n"
                   "A court server on this machine with made-up people and cases, to try and test "
                   "Halvane with.\n\n"_s;
    for (const SwitchRow &row : rows) {
        const QString left = u"%1 %2"_s.arg(QStringView(row.name), QStringView(row.argument));
        text += u"  %1 %2\n"_s.arg(left, -24).arg(QStringView(row.help));
    }
    return text;
}
} // namespace Practice
