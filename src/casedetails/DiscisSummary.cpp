#include "casedetails/DiscisSummary.h"

#include "casedetails/GridGrammar.h"
#include "core/TextUtilities.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {
constexpr QChar fieldMark(u'~');
constexpr QStringView notOnFile = u"Not on File";
constexpr QStringView notAssociated = u"Case Number not associated with this court";
constexpr QStringView noCase = u"This Case Was Not Located. No Summary Details Retrieved.";

/// A first line of a non-civil reply that says why there is no summary.
struct PhraseRow
{
    QStringView phrase;
    QStringView cell;
};
constexpr std::array<PhraseRow, 3> nonCivilPhrases{{
    {u"Archived case, Summary information is not available",
     u"Archived Case. No Summary Information Found."},
    {notAssociated, u"Case Number not associated with this court."},
    {u"Non-JIS case. Summary information not available",
     u"Non-JIS case. Summary information not available."},
}};

/// Where the header lines go, in their order.
using Header = std::array<std::optional<QString> DiscisSummaryView::*, 6>;
constexpr Header nonCivilHeader{&DiscisSummaryView::Name,      &DiscisSummaryView::Sex,
                                &DiscisSummaryView::CaseNo,    &DiscisSummaryView::CourtName,
                                &DiscisSummaryView::CourtType, &DiscisSummaryView::DateFiled};
constexpr Header civilHeader{&DiscisSummaryView::CaseTitle, &DiscisSummaryView::CaseNo,
                             &DiscisSummaryView::CourtName, &DiscisSummaryView::DateFiled,
                             &DiscisSummaryView::Cause,     &DiscisSummaryView::SuitAmt};

/// The line as a sentence, without the marks that close its fields.
QString sentence(const QString &line)
{
    return TrimBlanks(QString(line).replace(fieldMark, u' '));
}

/// The value of a header line. A line that is missing, or lacks the field, has an empty one: one
/// line of the header is no reason to lose the rest of the case.
QString headerValue(const QStringList &lines, qsizetype line)
{
    return TrimBlanks(lines.value(line).split(fieldMark).value(1));
}

void fillHeader(DiscisSummaryView &view, const Header &header, const QStringList &lines)
{
    qsizetype line = 0;
    for (const auto label : header) {
        const QString value = headerValue(lines, line++);
        view.*label = value.isEmpty() ? notOnFile.toString() : value;
    }
}

/// The lines behind the header, without the empty ones.
QStringList itemsBehind(const QStringList &lines)
{
    QStringList items = lines.mid(static_cast<qsizetype>(nonCivilHeader.size()));
    items.removeAll(QString());
    return items;
}

/// The reply held no case at all.
DiscisSummaryView notLocated()
{
    DiscisSummaryView view;
    view.CaptionSuffix = u" - This Case Was Not Located!"_s;
    view.Status = u"Search Stopped. Case Was Not Located."_s;
    view.Grid = OneCellTable(noCase.toString());
    return view;
}

/// The items of a line, each with its description. A pair in which there is nothing is none.
QList<QStringList> pairsOf(const QString &line)
{
    QList<QStringList> pairs;
    const QStringList fields = line.split(fieldMark);
    for (qsizetype field = 0; field < fields.size(); field += 2) {
        const QStringList pair{fields[field], fields.value(field + 1)};
        if (!TrimBlanks(pair.join(QString())).isEmpty())
            pairs.append(pair);
    }
    return pairs;
}

/// Two pairs in a row. A line of several pairs has rows of its own: the court has put side by side
/// what belongs together. Pairs that come one a line share a row with the next that does.
QList<QStringList> pairRows(const QStringList &lines)
{
    QList<QStringList> rows;
    bool hasRoom = false; // the last row is a pair that came alone
    for (const QString &line : lines) {
        const QList<QStringList> pairs = pairsOf(line);
        if (pairs.isEmpty())
            continue;
        const bool alone = pairs.size() == 1;
        if (alone && hasRoom) {
            rows.back() += pairs.front();
            hasRoom = false;
            continue;
        }
        for (qsizetype pair = 0; pair < pairs.size(); pair += 2)
            rows.append(pairs[pair] + pairs.value(pair + 1));
        hasRoom = alone;
    }
    return rows;
}

GridTable pairGrid(const QStringList &lines)
{
    const QList<QStringList> rows = pairRows(lines);
    if (rows.isEmpty())
        return OneCellTable(u"No Additional Summary Details Available."_s);
    return {{{u"Item"_s, 15}, {u"Description"_s, 35}, {u"Item"_s, 15}, {u"Description"_s, 35}},
            rows,
            true};
}

/// Nothing of an earlier try stays beside a summary that has come.
void clearNotes(DiscisSummaryView &view)
{
    view.Note = QString();
    view.SumNote2 = QString();
}

DiscisSummaryView nonCivilSummary(const QStringList &lines)
{
    DiscisSummaryView view;
    for (const PhraseRow &row : nonCivilPhrases) {
        if (!lines.front().contains(row.phrase))
            continue;
        view.Note = u"Note: "_s + sentence(lines.front());
        view.Grid = OneCellTable(row.cell.toString());
        // The labels keep what the list of results said of the case, unless the court says more.
        if (lines.size() > 1)
            fillHeader(view, nonCivilHeader, lines.sliced(1));
        return view;
    }
    clearNotes(view);
    fillHeader(view, nonCivilHeader, lines);
    view.Grid = pairGrid(itemsBehind(lines));
    return view;
}

/// An amount that is not on file is none.
QString dollars(const QString &amount)
{
    return amount == notOnFile ? amount : QString(u'$' + amount);
}

DiscisSummaryView civilSummary(const QStringList &lines)
{
    DiscisSummaryView view;
    if (lines.front().contains(notAssociated)) {
        view.Note = u"Note: "_s + sentence(lines.front());
        view.Status = u"Search Stopped. "_s + notAssociated + u'.';
        view.CaptionSuffix = u" - "_s + notAssociated + u'!';
        view.Grid = OneCellTable(
            u"Case Number not associated with this court! No Summary Details Retrieved."_s);
        return view;
    }
    clearNotes(view);
    fillHeader(view, civilHeader, lines);
    // A label takes a single "&" for the sign of an access key.
    view.CaseTitle->replace(u'&', u"&&"_s).replace(u"  "_s, u" "_s);
    const QStringList items = itemsBehind(lines);
    if (items.isEmpty()) {
        view.Grid = OneCellTable(u"This case was not located."_s);
        return view;
    }
    view.Grid = {{{u"Summary Item"_s, 25}, {u"Item Description"_s, 50}, {u"Notes"_s, 25}},
                 {{u"Case Type: "_s, u"Civil"_s, u"WA State District/Municipal Cts."_s},
                  {u"Court Location: "_s, *view.CourtName},
                  {u"Date Filed: "_s, *view.DateFiled},
                  {u"Suit Amount: "_s, dollars(*view.SuitAmt)}},
                 true};
    for (const QString &item : items)
        view.Grid.Rows.append(item.split(fieldMark).mid(0, view.Grid.Columns.size()));
    return view;
}
} // namespace

DiscisSummaryView ReadDiscisSummary(CaseKind kind, const QStringList &lines)
{
    if (lines.isEmpty())
        return notLocated();
    return kind == CaseKind::Civil ? civilSummary(lines) : nonCivilSummary(lines);
}
