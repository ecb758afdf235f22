#include "casedetails/SummaryReply.h"

#include "casedetails/GridGrammar.h"
#include "core/TextUtilities.h"
#include "courts/CaseMarks.h"
#include "courts/CaseTypes.h"
#include "courts/CourtTable.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QChar fieldMark(u'~');
constexpr QStringView notLocated = u"This case was not located.";
constexpr QStringView notAvailable = u"N/A";
constexpr QStringView notFound = u"Case Not Found";
constexpr QStringView multipleMark = u"MULTIPLE";
constexpr QStringView invalidNumber = u"not a valid case number";
constexpr QStringView incompleteSummary =
    u"Summary Incomplete. Some information may not have been retrieved.";

/// Below this a reply is no case.
constexpr qsizetype fewestLines = 4;
constexpr QStringView noSuchCase = u"case is not on file";

constexpr std::array<QStringView, 2> noSuchBankruptcyCase{u"illegal case number", u"not found"};
constexpr std::array<QStringView, 2> noSuchStateCase{u"error~requested case is not on file~",
                                                     u"error~request case is not on file~"};

/// What an error line with one of these phrases does.
enum class ErrorKind {
    Incomplete, ///< the error text becomes the row's reason; both are logged
    ShownAsIs,  ///< the summary shows the text: the reply is a normal one otherwise
    Unavailable ///< the error text becomes the row's reason, which is logged
};
struct ErrorPhrase
{
    QStringView phrase;
    ErrorKind kind;
    QStringView reason;
};
/// Tried from top to bottom, each on the text that the rows above it left.
constexpr std::array errorPhrases{
    ErrorPhrase{u"no connection", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"error occured", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"error occurred", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"unknown error", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"unknown command", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"connection lost", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"scomis was lost", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"no servers available", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{u"scomis failed", ErrorKind::Incomplete, incompleteSummary},
    ErrorPhrase{invalidNumber, ErrorKind::ShownAsIs, {}},
    ErrorPhrase{noSuchCase, ErrorKind::ShownAsIs, {}},
    ErrorPhrase{u"oregon courts are currently unavailable, please try later",
                ErrorKind::Unavailable,
                u"Search Incomplete. Oregon Courts Are Currently Unavailable."},
    ErrorPhrase{u"idaho courts are currently unavailable, please try later", ErrorKind::Unavailable,
                u"Search Incomplete. Idaho Courts Are Currently Unavailable."},
};

bool holds(const QString &text, QStringView words)
{
    return text.contains(words, Qt::CaseInsensitive);
}

template<size_t N>
bool holdsOneOf(const QString &text, const std::array<QStringView, N> &phrases)
{
    return std::any_of(phrases.begin(), phrases.end(),
                       [&text](QStringView phrase) { return holds(text, phrase); });
}

QStringList splitByLastCharacter(const QString &line)
{
    return line.isEmpty() ? QStringList() : line.split(line.back());
}

QString singleBlanks(const QString &text)
{
    return QString(text).replace(u"  "_s, u" "_s);
}

GridTable itemGrid()
{
    return {{{u"Item"_s, 30}, {u"Description"_s, 70}}, {}, true};
}

/// Field 1 of a header line. A line that lacks it has an empty one: the rest of the case is not to
/// be lost over it. Nothing where the reply ends before the line, or where a reply that is too
/// short for a case lacks the field: what the window shows stays then, and the grid tells the rest.
std::optional<QString> headerField(const QStringList &lines, qsizetype line)
{
    if (line >= lines.size())
        return std::nullopt;
    const QStringList fields = lines[line].split(fieldMark);
    if (lines.size() < fewestLines && fields.size() < 2)
        return std::nullopt;
    return fields.value(1);
}

/// The case is not to be shown: a message in its place, Summary is the only tab that is left, and
/// what still says that the case is pending says so no longer.
SummaryView closedView(const SummaryContext &context, QStringView message)
{
    SummaryView view;
    view.Grid = OneCellTable(message.toString());
    view.ActivateSummary = true;
    view.Tabs = QStringList{CaseTabRowOf(CaseTab::Summary).caption.toString()};
    if (holds(context.CaseTitle, u"pending")) {
        view.CaseTitle = TrimBlanks(context.CaseTitle);
        view.DateFiled = notAvailable.toString();
        view.TopFrameCaseType = notAvailable.toString();
    }
    return view;
}

SummaryView washingtonCase(const QStringList &lines)
{
    SummaryView view;
    const std::optional<QString> number = headerField(lines, 0);
    const std::optional<QString> court = headerField(lines, 1);
    if (number)
        view.TopFrameCaseType = GetCaseTypeFromNumber(*number, u"WA"_s);
    if (court) {
        view.CourtName = singleBlanks(*court);
        view.Caption = singleBlanks(number.value_or(QString()) + u" -- "_s + *court);
    }
    // A label takes a single "&" for the sign of an access key.
    if (const std::optional<QString> title = headerField(lines, 2))
        view.CaseTitle = QString(*title).replace(u'&', u"&&"_s);
    view.DateFiled = headerField(lines, 3);
    if (lines.size() < fewestLines) {
        view.Grid = OneCellTable(notLocated.toString());
        return view;
    }
    GridTable grid = itemGrid();
    for (const QString &line : lines.sliced(fewestLines)) {
        if (line.isEmpty())
            continue;
        const QStringList fields = line.split(fieldMark);
        const QString item = holds(fields.front(), u"CAUSE:") ? u"Cause:"_s : fields.front();
        grid.Rows.append({item, fields.value(1)});
    }
    view.Grid = grid;
    return view;
}

/// The tabs that the first line names, as far as the courts of the state have them.
QStringList stateTabs(const QString &state, const QString &firstLine)
{
    const QStringList known = state == u"OR" ? OregonTabs() : IdahoTabs();
    QStringList tabs = TabsOfSummary(firstLine);
    tabs.removeIf([&known](const QString &caption) { return !known.contains(caption); });
    return tabs;
}

SummaryView oregonOrIdahoCase(const SummaryContext &context, const QStringList &lines)
{
    constexpr qsizetype courtLine = 1;
    constexpr qsizetype numberLine = 2;
    constexpr qsizetype titleLine = 3;
    constexpr qsizetype dateLine = 6;
    const bool oregon = context.State == u"OR";

    SummaryView view;
    view.CourtName = headerField(lines, courtLine);
    if (view.CourtName && oregon)
        view.CourtName = u"Oregon State - "_s + *view.CourtName;
    const std::optional<QString> number = headerField(lines, numberLine);
    if (oregon)
        view.TopFrameCaseType = notAvailable.toString();
    else if (number)
        view.TopFrameCaseType = GetCaseTypeFromNumber(*number, u"ID"_s);
    view.CaseTitle = headerField(lines, titleLine);
    view.DateFiled = headerField(lines, dateLine);
    view.Caption =
        QString(context.CaseDetailsHdr + u" -- "_s + view.CourtName.value_or(context.CourtName))
            .replace(u" --  "_s, u" -- "_s);
    view.Tabs = stateTabs(context.State, lines.front());

    if (lines.size() < fewestLines) {
        view.Grid = OneCellTable(notLocated.toString());
        return view;
    }
    GridTable grid = itemGrid();
    for (const QString &line : lines.sliced(1)) {
        if (line.isEmpty())
            continue;
        const QStringList fields = line.split(fieldMark);
        grid.Rows.append({QString(fields.front() + u": "_s), fields.value(1)});
    }
    view.Grid = grid;
    return view;
}

/// The tab that a bankruptcy request line fetches.
std::optional<CaseTab> tabOfRequest(const QString &request)
{
    if (holds(request, u"SUMMARY") && !holds(request, u"CLAIMS SUMMARY"))
        return CaseTab::Summary;
    if (holds(request, u"NAMES"))
        return CaseTab::Names;
    if (holds(request, u"DOCKET"))
        return CaseTab::Docket;
    return std::nullopt;
}

void readTabDef(SummaryView &view, const QString &line)
{
    // Summary is on the screen already, so it is the first tab whatever the line says.
    QStringList tabs{CaseTabRowOf(CaseTab::Summary).caption.toString()};
    for (const QString &field : splitByLastCharacter(line)) {
        if (!HoldsRetrieveCommand(field))
            continue;
        const QString request = TrimBlanks(WithoutRetrieveCommand(field));
        view.TabRequests += request;
        if (const std::optional<CaseTab> tab = tabOfRequest(request)) {
            const QString caption = CaseTabRowOf(*tab).caption.toString();
            if (!tabs.contains(caption))
                tabs += caption;
        }
    }
    view.Tabs = tabs;
}

SummaryView bankruptcyCase(const SummaryContext &context, const QStringList &lines)
{
    SummaryView view;
    if (lines.size() < fewestLines) {
        view.Grid = OneCellTable(notLocated.toString());
        return view;
    }
    QStringList rows = lines;
    const auto tabDef = std::find_if(rows.begin(), rows.end(),
                                     [](const QString &line) { return holds(line, u"TABDEF"); });
    if (tabDef != rows.end()) {
        readTabDef(view, *tabDef);
        rows.erase(tabDef);
    }
    GridTable grid = itemGrid();
    QString chapters; // behind the title, wherever their lines stand
    for (const QString &line : rows) {
        if (line.isEmpty())
            continue;
        const QStringList fields = line.split(fieldMark);
        const QString &item = fields.front();
        const QString text = fields.value(1);
        grid.Rows.append({QString(item + u": "_s), text});
        if (holds(item, u"case title"))
            view.CaseTitle = text;
        else if (holds(item, u"chapter"))
            chapters += u" (Chapter "_s + text + u')';
        else if (holds(item, u"date filed"))
            view.DateFiled = text;
    }
    if (!chapters.isEmpty())
        view.CaseTitle = view.CaseTitle.value_or(context.CaseTitle) + chapters;
    view.Grid = grid;
    return view;
}

SummaryView bankruptcyList(const QStringList &lines)
{
    SummaryView view;
    GridTable grid{{{u"Case#"_s, 15}, {u"Type"_s, 10}, {u"Title"_s, 74}}, {}, true};
    for (const QString &line : lines) {
        if (!HoldsRetrieveCommand(line))
            continue;
        const QStringList fields = splitByLastCharacter(line);
        grid.Rows.append({TrimBlanks(fields.value(0)), TrimBlanks(fields.value(2)),
                          TrimBlanks(fields.value(3))});
        view.List1 += fields.value(1) + u'^' + QString::number(grid.Rows.size()) + u'^';
    }
    view.Grid = grid;
    view.Multiple = true;
    view.MultipleLabel = u"Multiple Cases Found for Number Entered. "
                         "Double-Click on a Case# to Retrieve Details."_s;
    view.CaseTitle = u"Multiple Matching Cases Found for the Number Entered"_s;
    view.DateFiled = notAvailable.toString();
    view.TopFrameCaseType = notAvailable.toString();
    return view;
}
} // namespace

SummaryLine ClassifySummaryLine(const QString &state, const QString &line)
{
    // No exception for a name that ends in "thereof": only the whole mark in capitals is the end.
    if (line.endsWith(u"EOF~"))
        return SummaryLine::EndOfReply;
    if (IsBankruptcyCourt(state) && BeginsWith(line, u"ERROR")
        && holdsOneOf(line, noSuchBankruptcyCase))
        return SummaryLine::BankruptcyNotFound;
    if ((state == u"OR" || state == u"ID") && holdsOneOf(line, noSuchStateCase))
        return SummaryLine::NotOnFile;
    if (line.startsWith(u"ERROR"))
        return SummaryLine::Error;
    if (BeginsWith(line, u"SEARCHING"))
        return SummaryLine::Progress;
    if (line.startsWith(u"USERQUESTION"))
        return SummaryLine::UserQuestion;
    return SummaryLine::Data;
}

bool IsInvalidNumber(const QString &text)
{
    return holds(text, invalidNumber);
}

bool IsNotOnFile(const QString &text)
{
    return holds(text, noSuchCase);
}

SummaryError ReadSummaryError(const QString &line)
{
    constexpr qsizetype errorWord = 5;
    SummaryError error{line.mid(errorWord), {}, {}, true};
    for (const ErrorPhrase &row : errorPhrases) {
        if (!holds(error.Text, row.phrase))
            continue;
        switch (row.kind) {
        case ErrorKind::Incomplete:
            error.LogLine = row.reason + u" - "_s + error.Text;
            error.Text = row.reason.toString();
            break;
        case ErrorKind::ShownAsIs:
            error.Text.remove(u" -- "_s);
            error.LogLine = error.Text;
            error.Warnings = false;
            break;
        case ErrorKind::Unavailable:
            error.LogLine = row.reason.toString();
            error.Text = row.reason.toString();
            break;
        }
    }
    error.Response = error.Text;
    return error;
}

SummaryView ReadSummary(const SummaryContext &context, const QStringList &lines)
{
    const QString first = lines.value(0);
    const bool oregon = context.State == u"OR";
    const bool idaho = context.State == u"ID";
    // In these letters only: the courts of Idaho have a text of their own, below.
    if (first.contains(u"currently unavailable"))
        return closedView(context, u"This Court Is Currently Unavailable, Please Try Later");
    if ((oregon || idaho) && first == notFound) {
        SummaryView view = closedView(context, notLocated);
        view.CourtName = CourtsOfCounty(context.CountyName, FamilyOfState(context.State));
        view.NoSuchCase = true;
        return view;
    }
    if (idaho && first.toLower() == u"idaho courts are currently unavailable")
        return closedView(context, u"Idaho Courts are Currently Unavailable, Please Try Later");
    if (lines.isEmpty()) {
        SummaryView view;
        view.NotLocated = true;
        view.CaptionSuffix = u" - This Case Was Not Located!"_s;
        view.Grid = OneCellTable(notLocated.toString());
        return view;
    }
    if (context.State == u"WA" && IsInvalidNumber(first)) {
        SummaryView view;
        view.InvalidNumber = true;
        view.Grid = OneCellTable(first);
        return view;
    }
    if (IsBankruptcyCourt(context.State))
        return first == multipleMark ? bankruptcyList(lines) : bankruptcyCase(context, lines);
    if (oregon || idaho)
        return oregonOrIdahoCase(context, lines);
    return washingtonCase(lines);
}
