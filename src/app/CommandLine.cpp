#include "app/CommandLine.h"

#include "core/VersionText.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {
/// The parser asks a running application for the program's name, and help is printed before there
/// is one; with one it would print the whole path.
QString helpText(const QCommandLineParser &parser)
{
    return u"Usage: halvane [options]\n"_s + parser.helpText().section(u'\n', 1);
}
} // namespace

StartOptions ReadCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Halvane searches court records."_s);
    const QCommandLineOption folder(u"folder"_s,
                                    u"Keep settings, lists, log and reports in <dir>."_s, u"dir"_s);
    const QCommandLineOption practice(
        u"practice"_s, u"Search made-up records on a practice court started for this session."_s);
    const QCommandLineOption tour(
        u"tour"_s, u"Play the main job by itself against the practice court, and end with 0 when "
                   "every step showed what it must. Needs no display."_s);
    const QCommandLineOption output(u"output"_s, u"Save the tour's pictures under <dir>."_s,
                                    u"dir"_s, u"tour"_s);
    const QCommandLineOption newSearch(
        u"new-search"_s, u"Show the search form. When Halvane runs already, it comes to the front "
                         "with the form, and what is entered there stays."_s);
    const QCommandLineOption version({u"v"_s, u"version"_s},
                                     u"Print the version, and what it runs on, and end."_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Print this help and end."_s);
    parser.addOptions({folder, newSearch, practice, tour, output, version, help});

    StartOptions options;
    if (!parser.parse(arguments)) {
        options.Error = parser.errorText();
        return options;
    }
    if (!parser.positionalArguments().isEmpty())
        options.Error = u"Unexpected argument: "_s + parser.positionalArguments().constFirst();
    if (parser.isSet(version))
        options.Information = VersionText(u"Halvane"_s) + u'\n';
    if (parser.isSet(help))
        options.Information = helpText(parser);
    options.Folder = parser.value(folder);
    options.NewSearch = parser.isSet(newSearch);
    options.Tour = parser.isSet(tour);
    options.Practice = parser.isSet(practice) || options.Tour;
    options.Output = parser.value(output);
    return options;
}
